#include "DesignedFont.h"

#include "UserSettings.h"

#include <QWidget>

DesignedFont::DesignedFont(QWidget* widget, const UserSettings* settings)
    : QObject(widget), m_widget(widget), m_points(widget->font().pointSizeF())
{
    if (!settings || m_points <= 0)
        return;
    const auto letters = [settings] { return settings->value(Setting::letters).toInt(); };
    connect(settings, &UserSettings::changed, this, [this, letters](const QByteArray& name) {
        if (name == Setting::letters)
            apply(letters());
    });
    apply(letters());
}

void DesignedFont::apply(int percent)
{
    QFont font = m_widget->font();
    font.setPointSizeF(m_points * percent / 100);
    m_widget->setFont(font);
}
