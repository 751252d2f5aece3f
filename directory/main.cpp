#include "DirectoryOpening.h"
#include "DirectoryWindow.h"
#include "HostSettings.h"
#include "ScreenScale.h"
#include "StoreDialog.h"
#include "StoreZone.h"
#include "Theme.h"
#include "WindowMemory.h"

#include <cstdio>
#include <QApplication>
#include <QFile>
#include <QIcon>
#include <QInputDialog>
#include <QLibraryInfo>
#include <QLocale>
#include <QMessageBox>
#include <QTranslator>

namespace
{
enum ExitCode { Success = 0, Failed = 1, WrongUsage = 2 };

QString words(const char* text)
{
    return QCoreApplication::translate("main", text);
}

QString helpText()
{
    QFile file(QStringLiteral(":/vrk-directory/help.txt"));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

/// What the arguments ask for.
struct Options {
    QString url;
    QString theme;
    bool isSound = true;

    explicit Options(const QStringList& arguments)
    {
        for (int i = 0; i < arguments.size(); ++i) {
            if (arguments[i] == QLatin1String("--theme") && i + 1 < arguments.size())
                theme = arguments[++i];
            else if (arguments[i].startsWith(QLatin1Char('-')) || !url.isEmpty())
                isSound = false;
            else
                url = arguments[i];
        }
        isSound = isSound && (theme.isEmpty() || Theme::isKnown(theme));
    }
};

QString askPassword(const QString& text)
{
    bool isGiven = false;
    const QString password =
        QInputDialog::getText(nullptr, words("Справочники"), text + QLatin1Char('\n') + words("Пароль:"),
                              QLineEdit::Password, QString(), &isGiven);
    return isGiven ? QStringLiteral("%1").arg(password) : QString();
}

/// The store at the address, or the one that the user chooses. Null if he gives up or there is none.
std::unique_ptr<Store> openStore(QString* url)
{
    const DirectoryOpening opening(askPassword);
    StoreError error;
    if (!url->isEmpty()) {
        auto store = opening.open(*url, &error);
        if (error)
            QMessageBox::critical(nullptr, words("Справочники"), error.text);
        return store;
    }
    StoreDialog dialog;
    while (dialog.exec() == QDialog::Accepted) {
        *url = dialog.url();
        if (auto store = opening.open(*url, &error)) {
            StoreDialog::remember(*url);
            return store;
        }
        dialog.showNotice(error.text);
    }
    return nullptr;
}

/// As the workstation does.
void scaleWindows(int argc, char* argv[])
{
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
#endif
    QGuiApplication::setHighDpiScaleFactorRoundingPolicy(Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
    ScreenScale::roundToQuarters(argc, argv);
}

/// Information about the program itself, which needs no display: true if that was asked for.
bool tell(int argc, char* argv[])
{
    const QByteArray word = argc == 2 ? argv[1] : "";
    if (word == "--version" || word == "-v")
        std::printf("vrk-directory %s\n", VRK_VERSION);
    else if (word == "--help" || word == "-h")
        std::printf("%s", qUtf8Printable(helpText()));
    else
        return false;
    return true;
}

int run(const Options& options)
{
    if (!Theme::apply(options.theme.isEmpty() ? Theme::remembered() : options.theme))
        return WrongUsage;
    QString url = options.url;
    std::unique_ptr<Store> store = openStore(&url);
    if (!store)
        return Failed;
    const StoreZone zone(*store);
    DirectoryWindow window(std::move(store), url);
    StoreError error;
    if (!window.load(&error)) {
        QMessageBox::critical(nullptr, words("Справочники"), error.text);
        return Failed;
    }
    WindowMemory memory(&window, QStringLiteral("vrk-directory"), window.objectName());
    memory.restorePlace();
    window.show();
    memory.restoreInside();
    const int code = QApplication::exec();
    memory.save();
    return code;
}
} // namespace

int main(int argc, char* argv[])
{
    if (tell(argc, argv))
        return Success;
    scaleWindows(argc, argv);
    QApplication application(argc, argv);
    ScreenScale::forget();
    HostSettings::useOwnPlace();
    QApplication::setApplicationVersion(QStringLiteral(VRK_VERSION));
    QGuiApplication::setDesktopFileName(QStringLiteral("vrk-logbook-directory"));
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/vrk/app.png")));
    QLocale::setDefault(QLocale(QLocale::Russian, QLocale::Russia));
    QTranslator translator;
    if (translator.load(QLocale(), QStringLiteral("qtbase"), QStringLiteral("_"),
                        QLibraryInfo::location(QLibraryInfo::TranslationsPath)))
        QApplication::installTranslator(&translator);
    const Options options(QApplication::arguments().mid(1));
    if (!options.isSound) {
        std::fprintf(stderr, "%s", qUtf8Printable(helpText()));
        return WrongUsage;
    }
    return run(options);
}
