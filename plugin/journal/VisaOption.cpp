#include "VisaOption.h"

#include "CVrkCliSes.h"
#include "FileAnswer.h"

#include <QTextCodec>
#include <QXmlStreamReader>

bool VisaOption::fromXml(const QString& xml)
{
    const QLatin1String name("VisaPassword");
    bool isOn = false;
    QXmlStreamReader reader(xml);
    while (!reader.atEnd())
        if (reader.readNext() == QXmlStreamReader::StartElement &&
            reader.name() == QLatin1String("Options") && reader.attributes().hasAttribute(name))
            isOn = reader.attributes().value(name).toInt() != 0;
    return isOn;
}

bool VisaOption::asksPassword(CVrkCliSes* session)
{
    if (!session->hasPassword())
        return false;
    const FileAnswer answer = FileAnswer::fetch(session, QStringLiteral("options;OperLogOptions"));
    return fromXml(session->codec()->toUnicode(answer.content));
}
