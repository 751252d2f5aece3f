#include "AboutDialog.h"
#include "CPopMessageBox.h"
#include "CPopTemplate.h"
#include "CVrkCliApp.h"
#include "CVrkCliMod.h"
#include "HelpWindow.h"
#include "HistoryDialog.h"
#include "HistoryGuard.h"
#include "Options.h"
#include "PasswordDialog.h"
#include "SettingsWindow.h"
#include "SignIn.h"
#include "SignInDialog.h"
#include "StoreDialog.h"
#include "UserSettings.h"
#include "Workstation.h"

#include <functional>
#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QDir>
#include <QKeyEvent>
#include <QLibraryInfo>
#include <QListWidget>
#include <QPainter>
#include <QProcess>
#include <QSettings>
#include <QTemporaryDir>
#include <QTranslator>

/// Draws every window of the workstation on one sheet: a row for each window, a column for each theme, size of letters
/// and size of the window. Writes the single pictures, too, in a folder beside the sheet. Needs a screen as large as
/// the largest window.
///
///     window_sheet SHEET.png
namespace
{
struct Look {
    QString theme;
    int letters;
    QSize size;

    QString name() const
    {
        return QStringLiteral("%1 %2 % %3x%4").arg(theme).arg(letters).arg(size.width()).arg(size.height());
    }
};

struct Window {
    QString name;
    std::function<QWidget*()> widget; ///< a dialog that the program creates each time is created here, too
    std::function<void()> prepare;    ///< after it was shown
};

const QSize thumb(480, 270);
constexpr int captionHeight = 20;

QVector<Look> looks()
{
    QVector<Look> all;
    for (const char* theme : {"light", "dark"})
        for (int letters : {100, 125, 150, 175})
            for (const QSize& size : {QSize(1280, 720), QSize(1920, 1080)})
                all.append({QString::fromLatin1(theme), letters, size});
    return all;
}

void settle()
{
    for (int i = 0; i < 20; ++i)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
}

void add(QVector<Window>* windows, QWidget* widget, const std::function<void()>& prepare = {},
         const QString& suffix = QString())
{
    windows->append({QString::fromLatin1(widget->metaObject()->className()) + suffix,
                     [widget] { return widget; }, prepare});
}

/// A dialog without parent or with one that is no window of the list; it is destroyed after the picture.
void addPassing(QVector<Window>* windows, const char* name, const std::function<QWidget*()>& make)
{
    windows->append({QString::fromLatin1(name),
                     [make] {
                         QWidget* dialog = make();
                         dialog->setAttribute(Qt::WA_DeleteOnClose);
                         return dialog;
                     },
                     {}});
}

CVrkCliMod* started(Workstation& host, const char* name)
{
    CVrkCliMod* module = host.startModule(QString::fromLatin1(name));
    if (!module)
        qFatal("%s: %s", name, qPrintable(host.errorText()));
    return module;
}

/// Asks as the journal does.
QWidget* question(CPopMessageBox* box)
{
    box->setMessage(QStringLiteral("Утверждение записей"),
                    QStringLiteral("<center>В смене есть черновики.\nУтвердить их?</center>"),
                    MessageIconQuestion, MessageTypeYesNo);
    box->resize(350, 110);
    return box;
}

/// Takes a template, so that the fields are there.
void fill(QWidget* dialog)
{
    auto* tree = dialog->findChild<QAbstractItemView*>(QStringLiteral("templatesTree"));
    const auto isFilled = [dialog] {
        return dialog->findChild<QWidget*>(QStringLiteral("parameterInput_2")) != nullptr;
    };
    for (int row = 0; row < 60 && !isFilled(); ++row) {
        QKeyEvent press(QEvent::KeyPress, row % 2 == 0 ? Qt::Key_Down : Qt::Key_Right, Qt::NoModifier);
        QCoreApplication::sendEvent(tree, &press);
    }
}

/// What a dispatcher sees.
QVector<Window> windowsOfDispatcher(Workstation& host, SignIn* signIn, const QString& url)
{
    QVector<Window> windows;
    CVrkCliMod* journal = started(host, "logbook");
    add(&windows, journal);
    QWidget* report = nullptr;
    for (auto* dialog : journal->findChildren<CPopTemplate*>()) {
        if (auto* box = qobject_cast<CPopMessageBox*>(dialog))
            windows.append({QStringLiteral("CPopMessageBox"), [box] { return question(box); }, {}});
        else
            add(&windows, dialog);
        if (dialog->inherits("RecordCreatorDialog"))
            add(
                &windows, dialog, [dialog] { fill(dialog); }, QStringLiteral("-filled"));
        if (dialog->inherits("ReportDialog"))
            report = dialog;
    }
    journal->show();
    settle();
    journal->findChild<QAbstractButton*>(QStringLiteral("reportButton"))->click();
    settle();
    report->findChild<QAbstractButton*>(QStringLiteral("printButton"))->click();
    settle();
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window->inherits("VrkPreviewWindow"))
            add(&windows, window);
    host.showSettings(journal);
    auto* settings = journal->findChild<SettingsWindow*>();
    auto* pages = settings->findChild<QListWidget*>(QStringLiteral("pageList"));
    for (int page = 0; page < pages->count(); ++page)
        add(
            &windows, settings, [pages, page] { pages->setCurrentRow(page); },
            QStringLiteral("-%1").arg(page));
    auto* help = new HelpWindow(journal);
    help->showSection(1);
    add(&windows, help);
    addPassing(&windows, "AboutDialog",
               [journal, url] { return new AboutDialog(url, QStringLiteral("SQLite, файл"), journal); });
    auto* guard = new HistoryGuard(journal->session(), QDir::tempPath(), url, journal);
    addPassing(&windows, "HistoryDialog",
               [guard, journal] { return new HistoryDialog(guard, QStringLiteral("ozerov"), journal); });
    addPassing(&windows, "SignInDialog", [signIn] { return new SignInDialog(signIn, QString(), QString()); });
    addPassing(&windows, "PasswordDialog", [signIn] {
        return new PasswordDialog(signIn, QStringLiteral("postgresql://server/journal"), QString());
    });
    StoreDialog::remember(url);
    addPassing(&windows, "StoreDialog", [] { return new StoreDialog; });
    return windows;
}

/// The windows that an administrator sees, and the modules of all.
QVector<Window> windowsOfAdministrator(Workstation& host)
{
    QVector<Window> windows;
    for (const char* name :
         {"template", "converter", "unfinished", "archive", "bookmarks", "history", "past", "statistics"}) {
        CVrkCliMod* module = started(host, name);
        add(&windows, module);
        for (auto* dialog : module->findChildren<CPopTemplate*>())
            if (!dialog->inherits("CPopMessageBox"))
                add(&windows, dialog);
    }
    return windows;
}

/// The windows of modules fill the screen, dialogs keep their own size.
QPixmap drawn(const Window& window, const QSize& size)
{
    QWidget* widget = window.widget();
    const bool isModule = qobject_cast<CVrkCliMod*>(widget) != nullptr;
    widget->show();
    if (window.prepare)
        window.prepare();
    settle();
    widget->resize(isModule ? size : widget->size().boundedTo(size));
    settle();
    const QPixmap picture = widget->grab();
    if (!isModule)
        widget->close();
    return picture;
}

/// Writes the pictures of the windows; returns a row of small ones for each.
QVector<QVector<QImage>> rowsOf(const QVector<Window>& windows, UserSettings* settings, const QString& folder,
                                int firstRow)
{
    QVector<QVector<QImage>> rows(windows.size());
    for (const Look& look : looks()) {
        settings->setValue(Setting::theme, look.theme);
        settings->setValue(Setting::letters, look.letters);
        settle();
        for (int row = 0; row < windows.size(); ++row) {
            const QPixmap picture = drawn(windows[row], look.size);
            picture.save(QStringLiteral("%1/%2-%3-%4-%5-%6.png")
                             .arg(folder)
                             .arg(firstRow + row, 2, 10, QLatin1Char('0'))
                             .arg(windows[row].name, look.theme)
                             .arg(look.letters)
                             .arg(look.size.width()));
            QImage cell(thumb.width(), thumb.height() + captionHeight, QImage::Format_RGB32);
            cell.fill(Qt::gray);
            QPainter painter(&cell);
            painter.drawPixmap(0, captionHeight,
                               picture.scaled(thumb, Qt::KeepAspectRatio, Qt::SmoothTransformation));
            QFont font = painter.font();
            font.setPixelSize(captionHeight - 7);
            painter.setFont(font);
            painter.drawText(QRect(0, 0, thumb.width(), captionHeight), Qt::AlignCenter,
                             windows[row].name + QStringLiteral(", ") + look.name());
            painter.end();
            rows[row].append(cell);
        }
    }
    return rows;
}

bool saveSheet(const QVector<QVector<QImage>>& rows, const QString& file)
{
    const QSize cell = rows.constFirst().constFirst().size();
    QImage all(cell.width() * rows.constFirst().size(), cell.height() * rows.size(), QImage::Format_RGB32);
    QPainter painter(&all);
    for (int row = 0; row < rows.size(); ++row)
        for (int column = 0; column < rows[row].size(); ++column)
            painter.drawImage(column * cell.width(), row * cell.height(), rows[row][column]);
    painter.end();
    return all.save(file);
}

QVector<QVector<QImage>> rowsOfUser(const QString& user, const QString& url, const QString& folder,
                                    int firstRow)
{
    Options options;
    options.store = url;
    options.user = user;
    options.department = QStringLiteral("ЦДС");
    SignIn signIn;
    if (!signIn.open(url))
        qFatal("no sign-in");
    Workstation host;
    if (!host.enter(options))
        qFatal("%s", qPrintable(host.errorText()));
    const bool isAdministrator = user == QLatin1String("admin");
    const QVector<Window> windows =
        isAdministrator ? windowsOfAdministrator(host) : windowsOfDispatcher(host, &signIn, url);
    UserSettings* settings = started(host, "logbook")->app()->settings();
    const QVector<QVector<QImage>> rows = rowsOf(windows, settings, folder, firstRow);
    return rows;
}
} // namespace

int main(int argc, char** argv)
{
    if (argc != 2)
        qFatal("usage: window_sheet SHEET.png");
    const QString sheet = QString::fromLocal8Bit(argv[1]);
    const QTemporaryDir folder;
    qputenv("XDG_DATA_HOME", folder.path().toLocal8Bit());
    const QApplication application(argc, argv);
    QCoreApplication::setOrganizationName(QStringLiteral("vrk-windows"));
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, folder.path());
    QLocale::setDefault(QLocale(QLocale::Russian, QLocale::Russia));
    QTranslator translator;
    if (translator.load(QLocale(), QStringLiteral("qtbase"), QStringLiteral("_"),
                        QLibraryInfo::location(QLibraryInfo::TranslationsPath)))
        QApplication::installTranslator(&translator);
    const QString url = QStringLiteral("sqlite://") + folder.filePath(QStringLiteral("demo.sqlite"));
    if (QProcess::execute(QCoreApplication::applicationDirPath() + QStringLiteral("/vrk-admin"),
                          {QStringLiteral("demo"), url}) != 0)
        qFatal("no demo store");
    const QString pictures = sheet + QStringLiteral(".d");
    QDir(pictures).removeRecursively();
    QDir().mkpath(pictures);
    QVector<QVector<QImage>> rows = rowsOfUser(QStringLiteral("ozerov"), url, pictures, 0);
    rows += rowsOfUser(QStringLiteral("admin"), url, pictures, rows.size());
    return saveSheet(rows, sheet) ? 0 : 1;
}
