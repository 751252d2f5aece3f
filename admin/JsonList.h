#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QStringList>
#include <QTextStream>
#include <QVariant>

/// The form of a list for programs: an array of objects with English field names, in UTF-8. A command that prints
/// a list takes the option "--json" and then prints nothing else; errors remain texts on the error stream.
class JsonList
{
public:
    /// Removes "--json" from the arguments.
    explicit JsonList(QStringList* arguments);

    bool isWanted() const { return m_isWanted; }
    void add(const QJsonObject& object) { m_objects.append(object); }
    void print(QTextStream& out) const;

    /// "2026-11-23T05:30:00Z"; null for 0, which is no time.
    static QJsonValue time(double hfnTime);
    /// A value of the change log: a text, a number, a truth value, a time, the map of a file's bytes, or null.
    static QJsonValue value(const QVariant& value);

private:
    bool m_isWanted;
    QJsonArray m_objects;
};
