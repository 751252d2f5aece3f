#include "RecordPrefill.h"

#include "HtmlParser.h"
#include "ParameterKind.h"
#include "TemplateFiller.h"

#include <QCoreApplication>
#include <QDateTime>

namespace
{
const char* const UsualTimeFormat = "dd.MM.yyyy hh:mm";

HtmlParser parsed(const TemplateFiller* filler)
{
    return HtmlParser(filler->filledTemplate(false).toStdString());
}

QVector<unsigned int> timesOf(const TemplateFiller* filler)
{
    return filler->findParameter(QStringLiteral("datetime"));
}

bool isEmpty(const HtmlParser& parser, unsigned index)
{
    const QString shown = QString::fromStdString(parser.valueText(index)).trimmed();
    return parser.propertyData(index).empty() &&
           (shown.isEmpty() || shown == ParameterSpec::read(parser, index).label.trimmed());
}

bool isDeadline(const HtmlParser& parser, unsigned index)
{
    return ParameterSpec::read(parser, index)
        .label.startsWith(QCoreApplication::translate("RecordPrefill", "Срок"), Qt::CaseInsensitive);
}
} // namespace

void RecordPrefill::fillTime(const QDateTime& time)
{
    clear();
    const QVector<unsigned int> found = timesOf(m_filler);
    if (found.isEmpty())
        return;
    const HtmlParser parser = parsed(m_filler);
    if (isEmpty(parser, found.first()) && !isDeadline(parser, found.first()))
        writeTime(found.first(), time);
}

void RecordPrefill::followTime(const QDateTime& time)
{
    const QVector<unsigned int> found = timesOf(m_filler);
    if (!m_time.isEmpty() && !found.isEmpty() &&
        QString::fromStdString(parsed(m_filler).valueText(found.first())) == m_time)
        writeTime(found.first(), time);
}

void RecordPrefill::fill(const QString& parameter, const QString& text, const QString& key)
{
    const QVector<unsigned int> found = m_filler->findParameter(parameter);
    if (!found.isEmpty() && !text.isEmpty() && isEmpty(parsed(m_filler), found.first()))
        m_filler->setParameterValue(found.first(), text, key);
}

void RecordPrefill::writeTime(unsigned index, const QDateTime& time)
{
    const QString format = ParameterSpec::read(parsed(m_filler), index).format;
    m_time = time.toString(format.isEmpty() ? QLatin1String(UsualTimeFormat) : format);
    m_filler->setParameterValue(index, m_time, QString());
}
