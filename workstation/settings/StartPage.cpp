#include "StartPage.h"

#include "UserSettings.h"

#include <QCheckBox>
#include <QSignalBlocker>

StartPage::StartPage(UserSettings* settings, const QVector<QPair<QString, QString>>& modules, QWidget* parent)
    : SettingsPage(settings, tr("Запуск"), parent)
{
    for (const auto& module : modules) {
        const QString name = module.first;
        auto* box = new QCheckBox(tr("Открывать «%1»").arg(module.second));
        box->setObjectName(QStringLiteral("start_") + name);
        addRow(QString(), box,
               tr("Сразу после входа в программу. Если не выбрано ничего, открывается журнал."),
               box->text() + QLatin1Char(' ') + tr("модули начало вход"));
        follow(Setting::startModules, [box, name](const QVariant& value) {
            const QSignalBlocker quiet(box);
            box->setChecked(value.toStringList().contains(name));
        });
        connect(box, &QCheckBox::toggled, this, [this, name](bool on) {
            QStringList names = this->settings()->value(Setting::startModules).toStringList();
            names.removeAll(name);
            if (on)
                names.append(name);
            keep(Setting::startModules,
                 names.isEmpty() ? UserSettings::defaultValue(Setting::startModules) : QVariant(names));
        });
    }
}
