#pragma once

#include <QString>
#include <QStringList>

class HtmlParser;

/// Base name of a parameter as an enum value.
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

/// The value of a parameter.
struct ParameterValue {
    QString text; ///< empty: no value
    QString key;  ///< KeyLink of the reference record behind the text, or empty

    bool isEmpty() const { return text.trimmed().isEmpty() && key.isEmpty(); }
    bool operator==(const ParameterValue& other) const { return text == other.text && key == other.key; }
    bool operator!=(const ParameterValue& other) const { return !(*this == other); }
};

/// The data of a template's parameter that its editor needs.
struct ParameterSpec {
    ParameterKind kind = ParameterKind::Text;
    QString name;       ///< base name
    QString label;      ///< in the user's language
    QString format;     ///< for dates and times, in Qt's notation
    QStringList values; ///< for a list
    QString before;     ///< words before the value, shown only with it
    QString after;      ///< the same after it
    bool optional = false;
    bool wholeText = false; ///< the parameter is the whole text of the template

    /// A value in the form that the text shows.
    QString shown(const QString& value) const { return before + value + after; }

    /// Ignores case; unknown names are texts.
    static ParameterKind kindOf(const QString& name);
    /// Parameter \a index of a text in UTF-8. A parameter without a label is named after its position.
    static ParameterSpec read(const HtmlParser& parser, unsigned index);
};
