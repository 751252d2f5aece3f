#include "Look.h"

#include "Letters.h"
#include "Theme.h"
#include "UserSettings.h"

#include <QScopedValueRollback>

Look::Look(UserSettings* settings) : m_settings(settings)
{
    connect(settings, &UserSettings::changed, this, &Look::apply);
    apply(Setting::letters);
}

void Look::setUser(const QString& login, bool keepsTheme)
{
    const QScopedValueRollback<bool> keeping(m_keepsTheme, keepsTheme);
    m_settings->setUser(login);
}

void Look::apply(const QByteArray& name)
{
    if (name == Setting::letters)
        Letters::apply(m_settings->value(Setting::letters).toInt());
    if (name == Setting::theme && !m_keepsTheme)
        Theme::apply(m_settings->value(Setting::theme).toString());
}
