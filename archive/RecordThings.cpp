#include "RecordThings.h"

#include "Fields.h"
#include "HtmlParser.h"
#include "LogbookFields.h"
#include "Row.h"

#include <algorithm>
#include <QTextCodec>

namespace
{
/// The same as the search by equipment looks at.
constexpr const char* equipmentParameters[] = {"substation", "line", "bay", "equipmentname", "equipmentpath"};

bool isOfEquipment(const std::string& parameter)
{
    return std::any_of(std::begin(equipmentParameters), std::end(equipmentParameters),
                       [&parameter](const char* name) { return qstricmp(name, parameter.c_str()) == 0; });
}
} // namespace

QStringList RecordThings::markers(const Row& record)
{
    const HtmlParser parser(record.bytes(Field::html).toStdString());
    std::string first;
    std::string second;
    parser.templatePropertyValue("first_mark", first);
    if (record.has(Field::secondMarkTime))
        parser.templatePropertyValue("second_mark", second);
    QStringList paths;
    for (const std::string& path : {first, second})
        if (!path.empty())
            paths.append(QString::fromStdString(path));
    paths.removeDuplicates();
    return paths;
}

QStringList RecordThings::equipment(const Row& record, const QTextCodec* codec)
{
    const HtmlParser parser(record.bytes(Field::html).toStdString());
    QStringList names;
    for (unsigned i = 0; i < parser.countParameters(); ++i) {
        if (!isOfEquipment(parser.propertyNameValue(i)))
            continue;
        const QByteArray text = QByteArray::fromStdString(parser.valueText(i));
        const QString name = (codec ? codec->toUnicode(text) : QString::fromUtf8(text)).simplified();
        if (!name.isEmpty())
            names.append(name);
    }
    names.removeDuplicates();
    return names;
}
