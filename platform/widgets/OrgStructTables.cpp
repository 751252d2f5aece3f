#include "OrgStructTables.h"

#include "CToolLiteModel.h"
#include "CVrkCliMod.h"
#include "CVrkCliSes.h"
#include "EventRow.h"
#include "Fields.h"
#include "LiveTable.h"
#include "MDRValues.h"

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
    m_codec = module->session() ? module->session()->codec() : nullptr;
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
    const CModelTable* found = table(type);
    const QByteArray bytes = key.toUtf8();
    const MDRVar value = MDRValue::text(bytes);
    return found && !key.isEmpty() ? MDARecSeekV(found->data.array, 0, &value, 0) : nullptr;
}

QString OrgStructTables::text(int type, const MDRData* record, const char* field) const
{
    MDRVar value;
    table(type)->data.GetVal(record, field, value);
    if (!MDRValue::hasText(value))
        return QString();
    const MDRVar::Text& bytes = value.value.text;
    return m_codec ? m_codec->toUnicode(bytes.data, bytes.length)
                   : QString::fromUtf8(bytes.data, bytes.length);
}

OrgStructTables::Row OrgStructTables::read(int type, const MDRData* record) const
{
    Row row;
    if (!record)
        return row;
    row.type = type;
    row.key = text(type, record, Field::KeyLink);
    if (type != OrgStruct::Person) {
        row.name = text(type, record, Field::name_);
        return row;
    }
    const QStringList parts{text(type, record, Field::lastName), text(type, record, Field::firstName),
                            text(type, record, Field::patronymicName)};
    row.name = parts.join(QLatin1Char(' ')).simplified();
    MDRVar deleted;
    table(type)->data.GetVal(record, Field::deleted_, deleted);
    row.hidden = deleted.type == mdr_TBool && !deleted.isNull && deleted.value.number != 0;
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
    const MDRData* child = record(type, key);
    if (!child)
        return Row();
    if (type == OrgStruct::Person)
        return row(OrgStruct::Department, text(type, child, Field::DepartmentKey));
    const Row above = type == OrgStruct::OrgType ? Row() : row(type, text(type, child, Field::ParentKey));
    if (above.type != OrgStruct::None)
        return above;
    if (type == OrgStruct::Department)
        return row(OrgStruct::Organization, text(type, child, Field::OrganizationKey));
    if (type == OrgStruct::Organization)
        return row(OrgStruct::OrgType, text(type, child, Field::OrgTypeKey));
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
    worker.lastName = text(OrgStruct::Person, found, Field::lastName);
    worker.firstName = text(OrgStruct::Person, found, Field::firstName);
    worker.patronymicName = text(OrgStruct::Person, found, Field::patronymicName);
    MDRVar group;
    table(OrgStruct::Person)->data.GetVal(found, Field::safetyGroup, group);
    if ((group.type == mdr_TInt32 || group.type == mdr_TByte) && !group.isNull)
        worker.group = group.value.number;
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
