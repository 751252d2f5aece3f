#include "CreatorTables.h"

#include "CLiteModel.h"
#include "CToolLiteModel.h"
#include "EventRow.h"
#include "LiveTable.h"
#include "TemplatesWidget.h"

namespace
{
const char* const Names[] = {"Workers",  "Departments",         "Organizations",
                             "OrgTypes", "LogbookCatsTemplate", "LogbookTemplates"};
}

CreatorTables::CreatorTables() = default;
CreatorTables::~CreatorTables() = default;

bool CreatorTables::load(CVrkCliMod* module, TemplatesWidget* tree)
{
    if (!m_isStale)
        return true;
    CToolLiteModel tool(module);
    for (const char* name : Names)
        tool.m_names << QLatin1String(name);
    tool.Perform(false);
    m_isStale = tool.m_loaded.size() != std::size(Names);
    if (m_isStale && m_model)
        return false;
    const std::unique_ptr<CLiteModel> old = std::move(m_model); // until the tree has the new tables
    m_model.reset(tool.m_model);
    tool.m_model = nullptr;

    tree->setCatsTemplateTable(table("LogbookCatsTemplate"));
    tree->setTemplatesTable(table("LogbookTemplates"));
    tree->setDepartmentsTable(table("Departments"));
    tree->setOrgTypesTable(table("OrgTypes"));
    return !m_isStale;
}

void CreatorTables::apply(const TEventNciParse& event, bool shown)
{
    for (const char* name : Names) {
        if (!EventRow(event).isOf(name))
            continue;
        CModelTable* changed = table(name);
        if (shown && changed)
            LiveTable(*changed).apply(event);
        else
            m_isStale = true;
    }
}

CModelTable* CreatorTables::table(const char* name) const
{
    return m_model ? m_model->GetTableByName(name) : nullptr;
}
