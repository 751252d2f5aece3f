#include "DurationOptions.h"

#include <QXmlStreamReader>

DurationOptions DurationOptions::fromXml(const QString& xml)
{
    DurationOptions read;
    QXmlStreamReader reader(xml);
    while (!reader.atEnd()) {
        if (reader.readNext() != QXmlStreamReader::StartElement || reader.name() != QLatin1String("Options"))
            continue;
        const QXmlStreamAttributes attributes = reader.attributes();
        const auto readInt = [&](const char* name, int present) {
            const QLatin1String attribute(name);
            return attributes.hasAttribute(attribute) ? attributes.value(attribute).toInt() : present;
        };
        read.isOn = readInt("CheckLengthShift", read.isOn ? 1 : 0) != 0;
        if (read.isOn) {
            read.delay = readInt("DelayTime", read.delay);
            read.interval = readInt("IntervalMessage", read.interval);
        }
    }
    return read;
}
