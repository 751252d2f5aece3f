#include "ConversionReport.h"

namespace
{
QString listed(const QString& title, const QVector<ConversionReport::Outcome>& outcomes)
{
    QString text = QStringLiteral("\n%1: %2\n").arg(title).arg(outcomes.size());
    for (const ConversionReport::Outcome& outcome : outcomes) {
        text += outcome.name + QLatin1String(": ") + outcome.result + QLatin1Char('\n');
        for (const QString& loss : outcome.losses)
            text += QLatin1String("    ") + loss + QLatin1Char('\n');
    }
    return text;
}
} // namespace

void ConversionReport::add(Tone tone, const QString& text)
{
    m_lines.append({tone, text});
    emit added(tone, text);
}

void ConversionReport::step(const QString& text)
{
    emit stepped(text);
}

QString ConversionReport::asText() const
{
    QString text;
    for (const Line& line : m_lines)
        text += line.text + QLatin1Char('\n');
    return text + listed(tr("Параметры прежнего журнала"), params) +
           listed(tr("Шаблоны прежнего журнала"), templates);
}
