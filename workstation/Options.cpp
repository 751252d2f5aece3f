#include "Options.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QVector>

bool Options::parse(const QStringList& arguments, QString* message, int* exitCode)
{
    const auto tr = [](const char* text) { return QCoreApplication::translate("Options", text); };
    QCommandLineParser parser;
    parser.setApplicationDescription(tr("Рабочее место диспетчера: оперативный журнал."));
    const QCommandLineOption help({QStringLiteral("h"), QStringLiteral("help")}, tr("Показать эту справку."));
    const QCommandLineOption version({QStringLiteral("v"), QStringLiteral("version")},
                                     tr("Показать версию."));
    const QCommandLineOption modules(QStringLiteral("modules"),
                                     tr("Назвать установленные модули и проверить, что они загружаются."));
    QVector<std::pair<QString, QString*>> values;
    const auto add = [&](const char* name, const char* text, const char* valueName, QString* value) {
        parser.addOption({QLatin1String(name), tr(text), QLatin1String(valueName), *value});
        values.append({QLatin1String(name), value});
    };
    add("theme", "Цвета: light, dark, contrast или system (как на рабочем столе).", "NAME", &theme);
    parser.addOptions({help, version});
    store = qEnvironmentVariable("VRK_STORE");
    add("store",
        "Хранилище: sqlite:///путь или postgresql://имя@сервер/база. Без него берётся "
        "переменная окружения VRK_STORE, а без неё программа спросит.",
        "URL", &store);
    add("user", "Имя для входа. Без него программа спросит. Пароль она спрашивает сама.", "LOGIN", &user);
    add("department", "Подразделение, если их у пользователя несколько.", "NAME", &department);
    add("module",
        "Модуль: logbook, template, converter, unfinished, archive, past, statistics. Без него открываются "
        "модули, "
        "выбранные в настройках.",
        "NAME", &module);
    add("plugin", "Библиотека модулей вместо установленных.", "FILE", &plugin);
    parser.addOption(modules);
    const QCommandLineOption quiet(QStringLiteral("no-greeting"),
                                   tr("Не показывать первые шаги и новости версии."));
    parser.addOption(quiet);
    add("tour", "Показать журнал на примере и сохранить картинки в папку.", "DIR", &tour);

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
    for (const auto& [name, value] : qAsConst(values))
        *value = parser.value(name);
    greets = !parser.isSet(quiet) && tour.isEmpty();
    listModules = parser.isSet(modules);
    return true;
}
