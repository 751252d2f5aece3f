#include "ParametersBase.h"

#include "CModelTable.h"
#include "CVrkCliMod.h"
#include "CVrkCliSes.h"
#include "HtmlParser.h"
#include "MDRValues.h"
#include "ReferenceFields.h"

#include <QTextCodec>

namespace
{
struct Group {
    const char* key;
    const char* label;
};
struct BaseParameter {
    const char* name;
    const char* group;
    const char* label;
};

constexpr char equipmentGroup[] = "$base.group.equipment";
constexpr Group groups[] = {
    {"$base.group.common", "Общие"},
    {"$base.group.people", "Персонал"},
    {"$base.group.structure", "Организации и подразделения"},
    {"$base.group.signals", "Сигналы"},
    {equipmentGroup, "Оборудование"},
};
constexpr BaseParameter baseParameters[] = {
    {"datetime", "$base.group.common", "Дата и время"},
    {"text", "$base.group.common", "Текст"},
    {"list", "$base.group.common", "Список значений"},
    {"signalName", "$base.group.signals", "Наименование сигнала"},
    {"signalNum", "$base.group.signals", "Номер сигнала"},
    {"baseVoltage", equipmentGroup, "Класс напряжения"},
    {"organization", "$base.group.structure", "Организация"},
    {"department", "$base.group.structure", "Подразделение"},
    {"employee_fio", "$base.group.people", "ФИО"},
    {"employee_fio_role", "$base.group.people", "ФИО, должность"},
    {"employee_fio_group", "$base.group.people", "ФИО, группа по электробезопасности"},
    {"employee_fio_dep_org", "$base.group.people", "ФИО, подразделение, организация"},
    {"equipmentName", equipmentGroup, "Наименование оборудования"},
    {"equipmentPath", equipmentGroup, "Оборудование с местом установки"},
    {"interval", "$base.group.common", "Интервал времени"},
    {"shift_workers", "$base.group.people", "Состав смены"},
    {"shift_workers_groups", "$base.group.people", "Состав смены с группами"},
};
constexpr BaseParameter equipmentParameters[] = {
    {"substation", equipmentGroup, "Подстанция"},
    {"line", equipmentGroup, "Линия"},
    {"bay", equipmentGroup, "Присоединение"},
};

/// Adds one row unless its key exists. The row has no flag and no marks.
void addRow(CMDArray& table, const QByteArray& key,
            std::initializer_list<std::pair<const char*, QByteArray>> fields)
{
    const MDRVar keyValue = MDRValue::text(key);
    if (MDARecSeekV(table.array, 0, &keyValue, 0))
        return;
    MDRData* record = MDARecNew(table.array);
    MDRSetVal(MDRFldByName(table.array, Field::KeyLink), record, &keyValue);
    for (const auto& [name, bytes] : fields) {
        const MDRVar value = MDRValue::text(bytes);
        MDRSetVal(MDRFldByName(table.array, name), record, &value);
    }
    table.RecPost(record);
}

void addParameter(CMDArray& table, const BaseParameter& parameter, const QByteArray& category,
                  const QTextCodec* codec)
{
    std::vector<HtmlParser::Property> properties = {{"name", parameter.name}, {"locname", parameter.label}};
    const std::string name = parameter.name;
    if (name == "datetime")
        properties.insert(properties.begin() + 1, {"format", "dd.MM.yyyy hh:mm"});
    if (name == "list")
        properties.insert(properties.begin() + 1, {"list", HtmlParser::createListProperty({})});
    const std::string html = HtmlParser::createParameter(properties, parameter.label);
    addRow(table, QByteArrayLiteral("$base.") + parameter.name,
           {{Field::CategoryKey, category},
            {Field::nameLoc, codec->fromUnicode(QString::fromUtf8(parameter.label))},
            {Field::html, codec->fromUnicode(QString::fromStdString(html))}});
}

const QTextCodec* codecOf(CVrkCliMod* module)
{
    CVrkCliSes* session = module ? module->session() : nullptr;
    return session ? session->codec() : QTextCodec::codecForName("UTF-8");
}
} // namespace

ParametersBase::ParametersBase(CVrkCliMod* module) : m_module(module) {}

void ParametersBase::createBaseParameters(CModelTable* categories, CModelTable* parameters,
                                          bool withEquipment)
{
    if (!categories || !parameters)
        return;
    const QTextCodec* codec = codecOf(m_module);
    for (const Group& group : groups)
        addRow(*categories, group.key,
               {{Field::nameLoc, codec->fromUnicode(QString::fromUtf8(group.label))}});
    for (const BaseParameter& parameter : baseParameters)
        addParameter(*parameters, parameter, parameter.group, codec);
    if (withEquipment)
        createBaseEquipmentsParameter(parameters, equipmentGroup);
}

void ParametersBase::createBaseEquipmentsParameter(CModelTable* table, QByteArray categoryKey)
{
    if (!table)
        return;
    CMDArray& rows = *table;
    if (MDAFldCount(rows.array) == 0) {
        MDAFldAdd(rows.array, fieldCount(TemplateParamsFields), TemplateParamsFields);
        rows.KeyAdd("", 0);
    }
    for (const BaseParameter& parameter : equipmentParameters)
        addParameter(rows, parameter, categoryKey.isEmpty() ? QByteArray(equipmentGroup) : categoryKey,
                     codecOf(m_module));
}
