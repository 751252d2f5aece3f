#include "JsonList.h"

#include "Arguments.h"
#include "HfnTime.h"
#include "LogValue.h"

#include <QJsonDocument>

JsonList::JsonList(QStringList* arguments)
    : m_isWanted(Arguments::takeFlag(arguments, QStringLiteral("--json")))
{
}

void JsonList::print(QTextStream& out) const
{
    out << QString::fromUtf8(QJsonDocument(m_objects).toJson());
}

QJsonValue JsonList::time(double hfnTime)
{
    if (hfnTime == 0)
        return QJsonValue::Null;
    return HfnTime_to_DateTime(hfnTime, -1).toUTC().toString(Qt::ISODate);
}

QJsonValue JsonList::value(const QVariant& value)
{
    return LogValue::isTime(value) ? time(value.toDouble()) : QJsonValue::fromVariant(value);
}
