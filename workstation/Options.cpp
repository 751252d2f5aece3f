#include "Options.h"

#include <QCommandLineParser>
#include <QCoreApplication>

bool Options::parse(const QStringList& arguments, QString* message, int* exitCode)
{
    const auto tr = [](const char* text) { return QCoreApplication::translate("Options", text); };
    QCommandLineParser parser;
    parser.setApplicationDescription(tr("Рабочее место диспетчера: оперативный журнал."));
    const QCommandLineOption help({QStringLiteral("h"), QStringLiteral("help")}, tr("Показать эту справку."));
    const QCommandLineOption version({QStringLiteral("v"), QStringLiteral("version")},
                                     tr("Показать версию."));
    const QCommandLineOption storeOption(
        QStringLiteral("store"),
        tr("Хранилище: sqlite:///путь или postgresql://имя@сервер/база. Без него берётся "
           "переменная окружения VRK_STORE, а без неё программа спросит."),
        QStringLiteral("URL"));
    const QCommandLineOption userOption(
        QStringLiteral("user"), tr("Имя для входа. Без него программа спросит. Пароль она спрашивает сама."),
        QStringLiteral("LOGIN"));
    const QCommandLineOption departmentOption(QStringLiteral("department"),
                                              tr("Подразделение, если их у пользователя несколько."),
                                              QStringLiteral("NAME"));
    const QCommandLineOption moduleOption(QStringLiteral("module"),
                                          tr("Модуль: logbook, template, converter, unfinished, archive."),
                                          QStringLiteral("NAME"), module);
    const QCommandLineOption pluginOption(
        QStringLiteral("plugin"), tr("Библиотека модулей вместо установленных."), QStringLiteral("FILE"));
    const QCommandLineOption modulesOption(
        QStringLiteral("modules"), tr("Назвать установленные модули и проверить, что они загружаются."));
    const QCommandLineOption tourOption(QStringLiteral("tour"),
                                        tr("Показать журнал на примере и сохранить картинки в папку."),
                                        QStringLiteral("DIR"));
    const QCommandLineOption themeOption(QStringLiteral("theme"),
                                         tr("Цвета: light, dark или system (как на рабочем столе)."),
                                         QStringLiteral("NAME"));
    parser.addOptions({themeOption, help, version, storeOption, userOption, departmentOption, moduleOption,
                       pluginOption, modulesOption, tourOption});

    *exitCode = 0;
    if (!parser.parse(arguments)) {
        *message = parser.errorText();
        *exitCode = 2;
        return false;
    }
    if (parser.isSet(help)) {
        *message = parser.helpText();
        return false;
    }
    if (parser.isSet(version)) {
        *message = QStringLiteral("vrk-workstation ") + QCoreApplication::applicationVersion();
        return false;
    }
    if (!parser.positionalArguments().isEmpty()) {
        *message = tr("Лишний аргумент: %1").arg(parser.positionalArguments().constFirst());
        *exitCode = 2;
        return false;
    }
    store = parser.isSet(storeOption) ? parser.value(storeOption) : qEnvironmentVariable("VRK_STORE");
    user = parser.value(userOption);
    department = parser.value(departmentOption);
    module = parser.value(moduleOption);
    plugin = parser.value(pluginOption);
    tour = parser.value(tourOption);
    theme = parser.value(themeOption);
    listModules = parser.isSet(modulesOption);
    return true;
}
