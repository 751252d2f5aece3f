#include "LatelyUsed.h"

#include "TextMatch.h"

#include <QSettings>

namespace
{
constexpr int longestText = 300;
} // namespace

QString LatelyUsed::settingsKey(const QString& label) const
{
    QString name = TextMatch::folded(label.trimmed());
    name.replace(QLatin1Char('/'), QLatin1Char('_')).replace(QLatin1Char('\\'), QLatin1Char('_'));
    return QStringLiteral("TemplateFiller/%1/%2").arg(m_user, name);
}

QStringList LatelyUsed::texts(const QString& label) const
{
    return QSettings().value(settingsKey(label)).toStringList();
}

void LatelyUsed::add(const QString& label, const QString& text)
{
    if (text.trimmed().isEmpty() || text.size() > longestText)
        return;
    QStringList list = texts(label);
    list.removeAll(text);
    list.prepend(text);
    while (list.size() > keptAtMost)
        list.removeLast();
    QSettings().setValue(settingsKey(label), list);
}
