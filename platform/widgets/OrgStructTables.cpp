#include "OrgStructTables.h"

#include "CToolLiteModel.h"
#include "CVrkCliMod.h"
#include "CVrkCliSes.h"
#include "EventRow.h"
#include "LiveTable.h"

#include <QSet>
#include <QTextCodec>
#include <utility>

namespace
{
struct Source {
    int type;
    const char* table;
};
constexpr Source sources[] = {
    {OrgStruct::OrgType, "OrgTypes"},
    {OrgStruct::Organization, "Organizations"},
    {OrgStruct::Department, "Departments"},
    {OrgStruct::Person, "Workers"},
};
} // namespace

void OrgStructTables::load(CVrkCliMod* module)
{
    m_codec = module->session() ? module->session()->codec() : QTextCodec::codecForName("UTF-8");
    CToolLiteModel tool(module);
    for (const Source& source : sources)
        tool.m_names.append(QString::fromLatin1(source.table));
    tool.Perform(false);
    m_tables.reset(std::exchange(tool.m_model, nullptr));
}

CModelTable* OrgStructTables::table(int type) const
{
    for (const Source& source : sources) {
        if (source.type == type)
            return m_tables ? m_tables->GetTableByName(source.table) : nullptr;
    }
    return nullptr;
}

MDRData* OrgStructTables::record(int type, const QString& key) const
{
    return recordByKeyLink(table(type), key.toUtf8().constData());
}

OrgStructTables::Row OrgStructTables::read(int type, const MDRData* record) const
{
    Row row;
    if (!record)
        return row;
    const ::Row stored(record);
    row.type = type;
    row.key = stored.text(Field::KeyLink, m_codec);
    if (type != OrgStruct::Person) {
        row.name = stored.text(Field::name_, m_codec);
        return row;
    }
    const QStringList parts{stored.text(Field::lastName, m_codec), stored.text(Field::firstName, m_codec),
                            stored.text(Field::patronymicName, m_codec)};
    row.name = parts.join(QLatin1Char(' ')).simplified();
    row.hidden = stored.isSet(Field::deleted_);
    return row;
}

QVector<OrgStructTables::Row> OrgStructTables::rows(int type) const
{
    QVector<Row> rows;
    const CModelTable* found = table(type);
    for (int i = 0; found && i < found->data.RecCount(); ++i)
        rows.append(read(type, MDARec(found->data.array, 0, i)));
    return rows;
}

OrgStructTables::Row OrgStructTables::row(int type, const QString& key) const
{
    return read(type, record(type, key));
}

OrgStructTables::Row OrgStructTables::directParent(int type, const QString& key) const
{
    const MDRData* found = record(type, key);
    if (!found)
        return Row();
    const ::Row child(found);
    if (type == OrgStruct::Person)
        return row(OrgStruct::Department, child.text(Field::DepartmentKey, m_codec));
    const Row above = type == OrgStruct::OrgType ? Row() : row(type, child.text(Field::ParentKey, m_codec));
    if (above.type != OrgStruct::None)
        return above;
    if (type == OrgStruct::Department)
        return row(OrgStruct::Organization, child.text(Field::OrganizationKey, m_codec));
    if (type == OrgStruct::Organization)
        return row(OrgStruct::OrgType, child.text(Field::OrgTypeKey, m_codec));
    return Row();
}

OrgStructTables::Row OrgStructTables::parent(int type, const QString& key) const
{
    const Row parent = directParent(type, key);
    QSet<QString> seen{key};
    for (Row above = parent; above.type == type; above = directParent(above.type, above.key)) {
        if (seen.contains(above.key))
            return Row();
        seen.insert(above.key);
    }
    return parent;
}

OrgStruct::Worker OrgStructTables::worker(const QString& key) const
{
    OrgStruct::Worker worker;
    const MDRData* found = record(OrgStruct::Person, key);
    if (!found)
        return worker;
    worker.keyLink = key;
    const ::Row stored(found);
    worker.lastName = stored.text(Field::lastName, m_codec);
    worker.firstName = stored.text(Field::firstName, m_codec);
    worker.patronymicName = stored.text(Field::patronymicName, m_codec);
    worker.group = stored.number(Field::safetyGroup, worker.group);
    return worker;
}

int OrgStructTables::apply(const TEventNciParse& event)
{
    int type = OrgStruct::None;
    for (const Source& source : sources) {
        if (EventRow(event).isOf(source.table))
            type = source.type;
    }
    CModelTable* changed = table(type);
    if (!changed || !event.recordKey || !LiveTable(*changed).apply(event))
        return OrgStruct::None;
    return type;
}
