#include "DemoReference.h"

#include "DemoKey.h"
#include "DemoNetwork.h"
#include "DemoText.h"
#include "DemoWriter.h"
#include "TableCatalog.h"

#include <QSet>

namespace
{
QVector<DemoText::Line> reference()
{
    return DemoText::lines(QStringLiteral("reference.txt"));
}

/// The Russian names of tables or fields.
QHash<QString, QString> russianNames(const QString& word)
{
    QHash<QString, QString> names;
    for (const DemoText::Line& line : reference())
        if (line.word == word) {
            const QStringList values = line.values(2);
            names.insert(values[0], values[1]);
        }
    return names;
}
} // namespace

void DemoReference::writeTemplates(DemoWriter* writer, const DemoNetwork& network,
                                   const QVector<DemoTemplate>& templates)
{
    QSet<QByteArray> written;
    for (const DemoTemplate& record : templates) {
        QString path = QStringLiteral("category %1 %2").arg(record.level).arg(record.owner);
        QByteArray parent;
        for (const QString& name : record.categories) {
            path += QStringLiteral(" / ") + name;
            const QByteArray key = demoKey(path);
            if (!written.contains(key)) {
                written.insert(key);
                QVariant type;
                QVariant department;
                if (parent.isEmpty() && record.level == DemoTemplate::OrgType)
                    type = network.orgTypeKey(record.owner);
                if (parent.isEmpty() && record.level == DemoTemplate::Department)
                    department = network.departmentKey(record.owner);
                writer->insert("LogbookCatsTemplate", key,
                               {{"ParentKey", parent.isEmpty() ? QVariant() : parent},
                                {"OrgTypeKey", type},
                                {"DepartmentKey", department},
                                {"nameLoc", name}});
            }
            parent = key;
        }
        writer->insert("LogbookTemplates", demoKey(QStringLiteral("template %1 %2").arg(path, record.name)),
                       {{"CategoryKey", parent},
                        {"nameLoc", record.name},
                        {"html", QString::fromStdString(record.html)}});
    }
}

void DemoReference::writeParameters(DemoWriter* writer)
{
    QByteArray group;
    for (const DemoText::Line& line : reference()) {
        if (line.word == QLatin1String("==")) {
            group = demoKey(QStringLiteral("parameters ") + line.value);
            writer->insert("TemplateParamCategories", group, {{"nameLoc", line.value}});
        } else if (line.word == QLatin1String("~")) {
            QString error;
            const std::string html = DemoTemplates::html(line.value, &error);
            if (!error.isEmpty())
                line.fail(error);
            writer->insert(
                "TemplateParams", demoKey(QStringLiteral("parameter ") + line.label),
                {{"CategoryKey", group}, {"nameLoc", line.label}, {"html", QString::fromStdString(html)}});
        }
    }
}

void DemoReference::writeDirectories(DemoWriter* writer)
{
    const QHash<QString, QString> tableNames = russianNames(QStringLiteral("table"));
    const QHash<QString, QString> fieldNames = russianNames(QStringLiteral("field"));
    for (const CatalogTable& table : TableCatalog::tables()) {
        const QString latin = QString::fromLatin1(table.name);
        const QByteArray key = demoKey(QStringLiteral("table ") + latin);
        writer->insert("Tables", key, {{"nameLat", latin}, {"nameLoc", tableNames.value(latin, latin)}});
        for (const CatalogField& declared : table.fields) {
            const QString field = QString::fromLatin1(declared.name);
            writer->insert(
                "Fields", demoKey(QStringLiteral("field %1 %2").arg(latin, field)),
                {{"TablesKey", key}, {"nameLat", field}, {"nameLoc", fieldNames.value(field, field)}});
        }
    }
}
