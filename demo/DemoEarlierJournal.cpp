#include "DemoEarlierJournal.h"

#include "DemoKey.h"
#include "DemoNetwork.h"
#include "DemoText.h"
#include "DemoWriter.h"

namespace
{
QVariant orNull(const QString& value)
{
    return value.isEmpty() ? QVariant() : QVariant(value);
}

QByteArray categoryKey(const QString& name)
{
    return demoKey(QStringLiteral("earlier category ") + name);
}

QString inQuotes(const QString& text)
{
    const int open = text.indexOf(QChar(0xab));
    return text.mid(open + 1, text.indexOf(QChar(0xbb)) - open - 1);
}

struct Pattern {
    QString name;
    QStringList values; ///< flags, icon, second icon, command, text
};

/// The content of a file in the notation; rows are written while reading, patterns are kept.
struct Reader {
    DemoWriter* writer;
    const DemoNetwork& network;
    QVector<QByteArray> categories;
    QVector<Pattern> patterns;
    int templates = 0;

    void read(const QString& file);
    void addTemplate(const QByteArray& category, const QString& name, const QStringList& values);
};

void writeCategory(DemoWriter* writer, const DemoNetwork& network, const QString& name, const QString& level)
{
    QVariant parent;
    QVariant type;
    QVariant department;
    if (level.startsWith(QStringLiteral("в ")))
        parent = categoryKey(level.mid(2));
    else if (level.startsWith(QStringLiteral("Тип")))
        type = network.orgTypeKey(inQuotes(level));
    else if (level.startsWith(QStringLiteral("Подразделение")))
        department = network.departmentKey(inQuotes(level));
    writer->insert(
        "OperLogCategories", categoryKey(name),
        {{"ParentKey", parent}, {"OrgTypeKey", type}, {"DepartmentKey", department}, {"name_", name}});
}

void Reader::read(const QString& file)
{
    categories.clear();
    for (const DemoText::Line& line : DemoText::lines(file)) {
        if (line.word == QLatin1String("parameter")) {
            const QStringList values = line.values(5);
            writer->insert("OperLogTemplateParams", demoKey(QStringLiteral("earlier parameter ") + values[0]),
                           {{"nameLat", values[0]},
                            {"nameLoc", orNull(values[1])},
                            {"param", orNull(values[2])},
                            {"TableKey", orNull(values[3])},
                            {"FieldTypeKey", orNull(values[4])}});
        } else if (line.word == QLatin1String("category")) {
            const QStringList values = line.values(2);
            writeCategory(writer, network, values[0], values[1]);
            categories << categoryKey(values[0]);
        } else if (line.word == QLatin1String("template") && !categories.isEmpty()) {
            addTemplate(categories.last(), line.values(6).constFirst(), line.values().mid(1));
        } else if (line.word == QLatin1String("pattern")) {
            patterns.append({line.values(6).constFirst(), line.values().mid(1)});
        } else {
            line.failAtWord();
        }
    }
}

void Reader::addTemplate(const QByteArray& category, const QString& name, const QStringList& values)
{
    QString text = values[4];
    text.replace(QLatin1String("\\n"), QLatin1String("\r\n"));
    writer->insert("OperLogTemplates", demoKey(QStringLiteral("earlier template ") + name),
                   {{"CategoryKey", category},
                    {"name_", name},
                    {"text_", text},
                    {"canStartShift", values[0] == QLatin1String("start")},
                    {"canEndShift", values[0] == QLatin1String("end")},
                    {"isNecessaryFinishTime", values[0] == QLatin1String("time")},
                    {"icon", orNull(values[1])},
                    {"completingIcon", orNull(values[2])},
                    {"completingCommand", orNull(values[3])}});
    ++templates;
}
} // namespace

void DemoEarlierJournal::write(DemoWriter* writer, const DemoNetwork& network)
{
    Reader{writer, network, {}, {}}.read(QStringLiteral("earlier.txt"));
}

void DemoEarlierJournal::writeAll(DemoWriter* writer, const DemoNetwork& network, int templates)
{
    Reader reader{writer, network, {}, {}};
    reader.read(QStringLiteral("earlier.txt"));
    reader.read(QStringLiteral("old.txt"));
    const int categories = reader.categories.size();
    // The pattern moves on by one at each round of the categories, so that each category gets all patterns.
    for (int i = 0; reader.templates < templates; ++i) {
        const Pattern& pattern = reader.patterns.at((i + i / categories) % reader.patterns.size());
        const QString name = QStringLiteral("%1 № %2").arg(pattern.name).arg(i + 1);
        reader.addTemplate(reader.categories.at(i % categories), name, pattern.values);
    }
}
