#include "Starter.h"

#include "DemoTemplates.h"
#include "SheetCells.h"
#include "SheetImport.h"
#include "TemplateCells.h"

#include <memory>

namespace
{
using Rows = QVector<QStringList>;

QString department()
{
    return QStringLiteral("Диспетчерская служба");
}

void takeDepartment(SheetImport* import)
{
    const QString title = QStringLiteral("Название");
    const QString type = QStringLiteral("Диспетчерский центр");
    const QString organization = QStringLiteral("Наша организация");
    const QString owner = QStringLiteral("Подразделение");
    import->take(Sheets::of("OrgTypes"), {{title}, { type }});
    import->take(Sheets::of("Organizations"), {{title, QStringLiteral("Тип")}, { organization, type }});
    import->take(Sheets::of("Departments"), {{QStringLiteral("Организация"), title},
                                             { organization,
                                               department() }});
    import->take(Sheets::of("Roles"), {{owner, title},
                                       {department(), QStringLiteral("Старший диспетчер")},
                                       { department(),
                                         QStringLiteral("Диспетчер") }});
    import->take(Sheets::of("Shifts"), {{owner, title, QStringLiteral("Начало"), QStringLiteral("Конец")},
                                        {department(), QStringLiteral("Дневная смена"),
                                         QStringLiteral("08:00"), QStringLiteral("20:00")},
                                        { department(),
                                          QStringLiteral("Ночная смена"),
                                          QStringLiteral("20:00"),
                                          QStringLiteral("08:00") }});
}

/// The common templates under their categories.
void takeTemplates(SheetImport* import)
{
    const Sheet& categorySheet = Sheets::of("LogbookCatsTemplate");
    const Sheet& templateSheet = Sheets::of("LogbookTemplates");
    Rows categories{{QStringLiteral("Входит в"), QStringLiteral("Название")}};
    Rows templates{templateSheet.headings()};
    for (const DemoTemplate& one : DemoTemplates::builtIn()) {
        if (one.level != DemoTemplate::Common)
            continue;
        for (int depth = 0; depth < one.categories.size(); ++depth) {
            const QStringList row{one.categories.mid(0, depth).join(QStringLiteral(" / ")),
                                  one.categories.at(depth)};
            if (!categories.contains(row))
                categories << row;
        }
        const TemplateCells cells(QString::fromStdString(one.html));
        QStringList row;
        for (const SheetColumn& column : templateSheet.columns) {
            const QString property = cells.properties.value(column.field);
            row << (column.kind == SheetColumn::Reference  ? one.categories.join(QStringLiteral(" / "))
                    : column.kind == SheetColumn::Text     ? one.name
                    : column.kind == SheetColumn::Notation ? cells.text
                                                           : property);
        }
        templates << row;
    }
    import->take(categorySheet, categories);
    import->take(templateSheet, templates);
}
} // namespace

bool Starter::write(const QString& url, StoreError* error)
{
    Store::Options options;
    options.loader = true;
    const auto store = Store::open(url, options, error);
    if (!store)
        return false;
    SheetImport import(store.get());
    takeDepartment(&import);
    takeTemplates(&import);
    if (import.compare(error))
        return import.write(error);
    if (!*error)
        *error = {StoreError::Internal, import.errors().join(QLatin1Char('\n')), QString()};
    return false;
}
