#include "ConversionReport.h"

namespace
{
QString words(ConversionReport::Result result)
{
    switch (result) {
    case ConversionReport::Text:
        return ConversionReport::tr("текст");
    case ConversionReport::List:
        return ConversionReport::tr("список значений");
    case ConversionReport::DateTime:
        return ConversionReport::tr("дата и время");
    case ConversionReport::Reference:
        return ConversionReport::tr("ссылка, берётся из основных параметров");
    case ConversionReport::Base:
        return ConversionReport::tr("берётся из основных параметров");
    case ConversionReport::Unnamed:
        return ConversionReport::tr("пропущен: нет латинского имени");
    case ConversionReport::BadName:
        return ConversionReport::tr("не преобразован: недопустимый знак в латинском имени");
    case ConversionReport::BadDate:
        return ConversionReport::tr("не преобразован: формат даты и времени неизвестен");
    case ConversionReport::Template:
        return ConversionReport::tr("преобразован");
    case ConversionReport::OpenBracket:
        return ConversionReport::tr("не преобразован: за знаком \"<\" нет знака \">\"");
    case ConversionReport::LeftOut:
        return ConversionReport::tr("не преобразован: нет текста или раздела");
    }
    return {};
}

QString listed(const QString& title, const QVector<ConversionReport::Outcome>& outcomes)
{
    QString text = QStringLiteral("\n%1: %2\n").arg(title).arg(outcomes.size());
    for (const ConversionReport::Outcome& outcome : outcomes) {
        text += outcome.name + QLatin1String(": ") + words(outcome.result) + QLatin1Char('\n');
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

QString ConversionReport::asText() const
{
    QString text;
    for (const Line& line : m_lines)
        text += line.text + QLatin1Char('\n');
    return text + listed(tr("Параметры прежнего журнала"), params) +
           listed(tr("Шаблоны прежнего журнала"), templates);
}
