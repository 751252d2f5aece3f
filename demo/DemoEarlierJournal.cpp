#include "DemoEarlierJournal.h"

#include "DemoKey.h"
#include "DemoNetwork.h"
#include "DemoWriter.h"

#include <QFile>

namespace
{
QVariant orNull(const QString& value)
{
    return value == QLatin1String("-") ? QVariant() : QVariant(value);
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
} // namespace

void DemoEarlierJournal::write(DemoWriter* writer, const DemoNetwork& network)
{
    QFile file(QStringLiteral(":/demo/earlier.txt"));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("The demo has lost the templates of the earlier journal");
    QByteArray category;
    for (const QString& line : QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'))) {
        const int colon = line.indexOf(QLatin1String(": "));
        if (colon < 0 || line.startsWith(QLatin1Char('#')))
            continue;
        const QString word = line.left(colon);
        const QStringList values = line.mid(colon + 2).split(QStringLiteral(" | "));
        if (word == QLatin1String("parameter") && values.size() == 5) {
            writer->insert("OperLogTemplateParams", demoKey(QStringLiteral("earlier parameter ") + values[0]),
                           {{"nameLat", values[0]},
                            {"nameLoc", values[1]},
                            {"param", orNull(values[2])},
                            {"TableKey", orNull(values[3])},
                            {"FieldTypeKey", orNull(values[4])}});
        } else if (word == QLatin1String("category") && values.size() == 2) {
            writeCategory(writer, network, values[0], values[1]);
            category = categoryKey(values[0]);
        } else if (word == QLatin1String("template") && values.size() == 6) {
            writer->insert("OperLogTemplates", demoKey(QStringLiteral("earlier template ") + values[0]),
                           {{"CategoryKey", category},
                            {"name_", values[0]},
                            {"text_", values[5]},
                            {"canStartShift", values[1] == QLatin1String("start")},
                            {"canEndShift", values[1] == QLatin1String("end")},
                            {"isNecessaryFinishTime", values[1] == QLatin1String("time")},
                            {"icon", orNull(values[2])},
                            {"completingIcon", orNull(values[3])},
                            {"completingCommand", orNull(values[4])}});
        } else {
            qFatal("The earlier journal of the demo cannot be read: %s", qPrintable(line));
        }
    }
}
