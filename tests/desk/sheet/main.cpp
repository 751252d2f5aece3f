#include "CPopTemplate.h"
#include "CVrkCliApp.h"
#include "CVrkCliMod.h"
#include "Options.h"
#include "UserSettings.h"
#include "Workstation.h"

#include <QApplication>
#include <QDir>
#include <QPainter>
#include <QProcess>
#include <QSettings>
#include <QTemporaryDir>

/// Draws every window of the workstation on one sheet: a row for each window, a column for each theme, size of letters
/// and size of the window. Writes the single pictures, too, in a folder beside the sheet.
///
///     window_sheet SHEET.png
namespace
{
struct Column {
    QString theme;
    int letters;
    QSize size;

    QString name() const
    {
        return QStringLiteral("%1 %2 % %3x%4").arg(theme).arg(letters).arg(size.width()).arg(size.height());
    }
};

const QSize thumb(640, 360);
constexpr int captionHeight = 24;

QVector<Column> looks()
{
    QVector<Column> all;
    for (const char* theme : {"light", "dark"})
        for (int letters : {100, 125, 150, 175})
            for (const QSize& size : {QSize(1280, 720), QSize(1920, 1080)})
                all.append({QString::fromLatin1(theme), letters, size});
    return all;
}

/// The windows of modules fill the screen, dialogs keep their own size.
QVector<QWidget*> windowsOf(Workstation& host)
{
    QVector<QWidget*> windows;
    for (const char* name :
         {"logbook", "template", "converter", "unfinished", "archive", "bookmarks", "history", "past"}) {
        CVrkCliMod* module = host.startModule(QString::fromLatin1(name));
        if (!module)
            qFatal("%s: %s", name, qPrintable(host.errorText()));
        windows.append(module);
        for (auto* dialog : module->findChildren<CPopTemplate*>())
            windows.append(dialog);
    }
    return windows;
}

QPixmap drawn(QWidget* window, const QSize& size)
{
    const bool isModule = qobject_cast<CVrkCliMod*>(window) != nullptr;
    window->show();
    window->resize(isModule ? size : window->size().boundedTo(size));
    for (int i = 0; i < 20; ++i)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
    const QPixmap picture = window->grab();
    if (!isModule)
        window->hide();
    return picture;
}
} // namespace

int main(int argc, char** argv)
{
    if (argc != 2)
        qFatal("usage: window_sheet SHEET.png");
    const QString sheet = QString::fromLocal8Bit(argv[1]);
    const QTemporaryDir folder;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("XDG_DATA_HOME", folder.path().toLocal8Bit());
    const QApplication application(argc, argv);
    QCoreApplication::setOrganizationName(QStringLiteral("vrk-windows"));
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, folder.path());
    Options options;
    options.store = QStringLiteral("sqlite://") + folder.filePath(QStringLiteral("demo.sqlite"));
    options.user = QStringLiteral("admin");
    options.department = QStringLiteral("ЦДС");
    if (QProcess::execute(QCoreApplication::applicationDirPath() + QStringLiteral("/vrk-admin"),
                          {QStringLiteral("demo"), options.store}) != 0)
        qFatal("no demo store");
    Workstation host;
    if (!host.enter(options))
        qFatal("%s", qPrintable(host.errorText()));
    const QVector<QWidget*> windows = windowsOf(host);
    UserSettings* settings = qobject_cast<CVrkCliMod*>(windows.constFirst())->app()->settings();
    const QVector<Column> columns = looks();
    const QSize cell(thumb.width(), thumb.height() + captionHeight);
    QImage all(cell.width() * columns.size(), cell.height() * windows.size(), QImage::Format_RGB32);
    all.fill(Qt::gray);
    QPainter painter(&all);
    QDir().mkpath(sheet + QStringLiteral(".d"));
    for (int column = 0; column < columns.size(); ++column) {
        const Column& look = columns[column];
        settings->setValue(Setting::theme, look.theme);
        settings->setValue(Setting::letters, look.letters);
        for (int row = 0; row < windows.size(); ++row) {
            const QPixmap picture = drawn(windows[row], look.size);
            const QPoint at(column * cell.width(), row * cell.height());
            const QString name = QString::fromLatin1(windows[row]->metaObject()->className());
            picture.save(QStringLiteral("%1.d/%2-%3-%4-%5-%6.png")
                             .arg(sheet)
                             .arg(row, 2, 10, QLatin1Char('0'))
                             .arg(name, look.theme)
                             .arg(look.letters)
                             .arg(look.size.width()));
            painter.drawPixmap(at + QPoint(0, captionHeight),
                               picture.scaled(thumb, Qt::KeepAspectRatio, Qt::SmoothTransformation));
            painter.drawText(QRect(at, QSize(thumb.width(), captionHeight)), Qt::AlignCenter,
                             name + QStringLiteral(", ") + look.name());
        }
    }
    painter.end();
    return all.save(sheet) ? 0 : 1;
}
