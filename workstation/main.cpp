#include "CVrkCliApp.h"
#include "HostSettings.h"
#include "LogWriter.h"
#include "Options.h"
#include "PluginLoader.h"
#include "ScreenScale.h"
#include "Theme.h"
#include "Tour.h"
#include "Workstation.h"

#include <algorithm>
#include <cstdio>
#include <QApplication>
#include <QIcon>
#include <QLibraryInfo>
#include <QLocale>
#include <QMessageBox>
#include <QTranslator>

namespace
{
/// Reports why the program cannot continue: on the terminal and in a box.
int fail(const QString& text)
{
    std::fprintf(stderr, "%s\n", qUtf8Printable(text));
    QMessageBox::critical(nullptr, QCoreApplication::translate("main", "Оперативный журнал"), text);
    return 1;
}

/// Creates each module without starting it; the exit code is 1 if one is missing.
int listModules(const Options& options)
{
    CVrkCliApp app;
    const PluginCatalog catalog;
    PluginLoader loader(catalog, options.plugin);
    bool complete = !catalog.modules().isEmpty();
    for (const PluginCatalog::Module& module : catalog.modules()) {
        const std::unique_ptr<CVrkCliMod> made(loader.create(&app, module.name));
        std::printf("%-12s %s: %s\n", qUtf8Printable(module.name), qUtf8Printable(module.title),
                    qUtf8Printable(made ? module.library : loader.errorText()));
        complete = complete && made;
    }
    return complete ? 0 : 1;
}

bool isAmong(int argc, char* argv[], std::initializer_list<const char*> words)
{
    for (int i = 1; i < argc; ++i)
        for (const char* word : words)
            if (qstrcmp(argv[i], word) == 0)
                return true;
    return false;
}

/// Information about the program itself needs no display; for windows Qt reports what is missing.
void doWithoutDisplay(int argc, char* argv[])
{
    for (const char* choice : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
        if (qEnvironmentVariableIsSet(choice))
            return;
    if (isAmong(argc, argv, {"--help", "-h", "--version", "-v", "--modules"}))
        qputenv("QT_QPA_PLATFORM", "offscreen");
}

/// A desktop scaled by 125 or 150 % must keep this factor, which Qt would round to 100 and 200 %; 104 %
/// must be 100 %.
void scaleWindows(int argc, char* argv[])
{
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
#endif
    if (std::any_of(argv, argv + argc, [](const char* word) { return qstrncmp(word, "--tour", 6) == 0; })) {
        ScreenScale::switchOff();
        return;
    }
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
#endif
    QApplication::setHighDpiScaleFactorRoundingPolicy(Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
    ScreenScale::roundToQuarters(argc, argv);
}
} // namespace

int main(int argc, char* argv[])
{
    doWithoutDisplay(argc, argv);
    scaleWindows(argc, argv);
    QApplication application(argc, argv);
    ScreenScale::forget();
    HostSettings::useOwnPlace();
    QApplication::setApplicationVersion(QStringLiteral(VRK_VERSION));
    QGuiApplication::setDesktopFileName(QStringLiteral("vrk-logbook")); // packaging/vrk-logbook.desktop
    QIcon icon(QStringLiteral(":/vrk/app.png"));
    for (int size : {16, 24, 32, 48, 256})
        icon.addFile(QStringLiteral(":/vrk/app_%1.png").arg(size));
    QApplication::setWindowIcon(icon);

    // Qt's own texts: calendars, menus of editors, standard buttons.
    QLocale::setDefault(QLocale(QLocale::Russian, QLocale::Russia));
    QTranslator translator;
    if (translator.load(QLocale(), QStringLiteral("qtbase"), QStringLiteral("_"),
                        QLibraryInfo::location(QLibraryInfo::TranslationsPath)))
        QApplication::installTranslator(&translator);

    Options options;
    QString message;
    int exitCode = 0;
    if (!options.parse(QApplication::arguments(), &message, &exitCode)) {
        std::fprintf(exitCode == 0 ? stdout : stderr, "%s\n", qUtf8Printable(message));
        return exitCode;
    }

    if (!Theme::apply(options.theme.isEmpty() ? Theme::remembered() : options.theme)) {
        std::fprintf(
            stderr, "%s\n",
            qUtf8Printable(QCoreApplication::translate("main", "Нет темы «%1».").arg(options.theme)));
        return 2;
    }
    if (options.listModules)
        return listModules(options);
    LogWriter log(LogWriter::defaultFile());
    if (!options.tour.isEmpty()) {
        Tour tour(options.tour);
        const bool played = tour.play();
        std::printf("%s\n", qUtf8Printable(played ? tour.summary() : tour.errorText()));
        return played ? 0 : 1;
    }
    Workstation workstation(&log);
    if (!workstation.enter(options))
        return workstation.errorText().isEmpty() ? 0 : fail(workstation.errorText());
    if (!workstation.start())
        return fail(workstation.errorText());
    QObject::connect(&workstation, &Workstation::left, &application, [&workstation] {
        const bool unwanted = !workstation.errorText().isEmpty();
        QApplication::exit(unwanted ? fail(workstation.errorText()) : 0);
    });
    return QApplication::exec();
}
