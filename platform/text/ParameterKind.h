#pragma once

#include <QString>
#include <QStringList>

class HtmlParser;

/// Base name of a parameter as a value.
enum class ParameterKind {
    Text,
    DateTime,
    List,
    Voltage,
    Organization,
    Department,
    Worker,
    WorkerWithRole,
    WorkerWithGroup,
    WorkerWithPlace,
    EquipmentName,
    EquipmentPath,
    Substation,
    Line,
    Bay,
    Interval,
    Crew,
    CrewWithGroups,
};

/// What stands in a parameter.
struct ParameterValue {
    QString text; ///< empty: no value
    QString key;  ///< KeyLink of the reference record behind the text, or empty

    bool isEmpty() const { return text.trimmed().isEmpty() && key.isEmpty(); }
    bool operator==(const ParameterValue& other) const { return text == other.text && key == other.key; }
    bool operator!=(const ParameterValue& other) const { return !(*this == other); }
};

/// A parameter of a template as its editor needs it.
struct ParameterSpec {
    ParameterKind kind = ParameterKind::Text;
    QString name;       ///< base name
    QString label;      ///< in the user's language
    QString format;     ///< of dates and times, in the notation of the toolkit
    QStringList values; ///< of a list
    QString before;     ///< words that stand in front of the value, and only with it
    QString after;      ///< the same behind it
    bool optional = false;
    bool wholeText = false; ///< the parameter is all there is to the template's text

    /// A value as the text shows it.
    QString shown(const QString& value) const { return before + value + after; }

    /// Case is ignored; names that nobody knows are texts.
    static ParameterKind kindOf(const QString& name);
    /// Parameter \a index of a text in UTF-8. A parameter without a label is called by its place.
    static ParameterSpec read(const HtmlParser& parser, unsigned index);
};
