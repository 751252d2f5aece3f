#include "CVrkTemplateEditor.h"

#include "CToolLiteModel.h"
#include "CVrkCliApp.h"
#include "CVrkCliSes.h"
#include "DesignedFont.h"
#include "EventRow.h"
#include "LogText.h"
#include "ParametersBase.h"
#include "TemplateTab.h"
#include "ui_CVrkTemplateEditor.h"

#include <QTimer>

CVrkTemplateEditor::CVrkTemplateEditor(CVrkCliApp* app)
    : LogbookModule(app), m_form(new Ui::CVrkTemplateEditor)
{
    setObjectName(QStringLiteral("CVrkTemplateEditor"));
    m_form->setupUi(this);
    QTabWidget* pages = m_form->templatesTabWidget;
    pages->setTabText(0, tr("Общие шаблоны"));
    pages->setTabText(1, tr("Типы организаций"));
    pages->setTabText(2, tr("Подразделение"));
    new DesignedFont(pages, app->settings());
    setModuleStyle();
    m_rights = Rights::View;
}

CVrkTemplateEditor::~CVrkTemplateEditor()
{
    // The pages read the reference tables until they are destroyed.
    m_form->templatesTabWidget->disconnect(this);
    qDeleteAll(tabs());
    if (m_model)
        m_model->Clear();
}

QList<TemplateTab*> CVrkTemplateEditor::tabs() const
{
    return {m_form->publicTemplates, m_form->orgsTemplates, m_form->depsTemplates};
}

TemplateTab* CVrkTemplateEditor::currentTab() const
{
    return qobject_cast<TemplateTab*>(m_form->templatesTabWidget->currentWidget());
}

bool CVrkTemplateEditor::ModuleStart()
{
    if (session()->OperationRights("ADMINISTRATOR"))
        m_rights = Rights::Admin;
    else
        m_rights =
            session()->OperationRights("ADMINISTRATOR_OPERLOG_LOCAL") ? Rights::LocalAdmin : Rights::View;
    setModuleName(tr("Конфигуратор шаболнов Оперативного журнала"));
    uploadHfnTables();
    uploadSqlTables();
    const QString error = errorUpload();
    if (!error.isEmpty()) {
        showError(error);
        writeLog(QStringLiteral("virtual bool CVrkTemplateEditor::ModuleStart()"), error);
        return false;
    }

    for (TemplateTab* tab : tabs()) {
        tab->setTablesTable(m_tablesTable);
        tab->setFieldsTable(m_fieldsTable);
        tab->setOrgTypesTable(m_orgTypes);
        tab->setDepartmentsTable(m_departments);
        tab->setCatsParameterTable(m_parameterCategories);
        tab->setParametersTable(m_parameters);
        tab->setCatsTemplateTable(&m_categories);
        tab->setTemplatesTable(&m_templates);
    }
    for (CModelTable* table : {&m_categories, &m_templates})
        table->data.lastError = MDAClearAll(table->data.array);

    createToolBar();
    createConnections();
    updateStatusView();
    // After the connections: a page may ask to be hidden.
    m_form->publicTemplates->init(this, TemplateTab::Public, m_rights);
    m_form->orgsTemplates->init(this, TemplateTab::Orgs, m_rights);
    m_form->depsTemplates->init(this, TemplateTab::Deps, m_rights);
    for (TemplateTab* tab : tabs())
        tab->selectFirst();
    m_form->templatesTabWidget->setMovable(true);
    updateControls();
    if (TemplateTab* tab = currentTab())
        tab->takeKeyboard(); // the arrow keys are for the tree
    return true;
}

void CVrkTemplateEditor::uploadHfnTables()
{
    CToolLiteModel tool(this);
    tool.setObjectName(QStringLiteral("LiteModel"));
    tool.m_names << QStringLiteral("Tables") << QStringLiteral("Fields") << QStringLiteral("OrgTypes")
                 << QStringLiteral("Departments") << QStringLiteral("TemplateParamCategories")
                 << QStringLiteral("TemplateParams");
    tool.Perform(false);
    m_model.reset(tool.m_model);
    tool.m_model = nullptr;
    if (!m_model)
        return;
    m_tablesTable = m_model->GetTableByName("Tables");
    m_fieldsTable = m_model->GetTableByName("Fields");
    m_orgTypes = m_model->GetTableByName("OrgTypes");
    m_departments = m_model->GetTableByName("Departments");
    m_parameterCategories = m_model->GetTableByName("TemplateParamCategories");
    m_parameters = m_model->GetTableByName("TemplateParams");
    ParametersBase(this).createBaseParameters(m_parameterCategories, m_parameters, true);
}

void CVrkTemplateEditor::uploadSqlTables()
{
    uploadSqlTable(&m_categories);
    uploadSqlTable(&m_templates);
}

void CVrkTemplateEditor::uploadSqlTable(CModelTable* table)
{
    const QString sql = QStringLiteral("SELECT * FROM %1;").arg(QLatin1String(table->name.c_str()));
    table->data =
        session()->SqlRequest(sql.toUtf8().constData()); // null: mdr_Assign, and the array stays empty
    MDAUnpackForWrite(table->data.array);
}

QString CVrkTemplateEditor::errorUpload() const
{
    QStringList lines;
    const auto notLoaded = [&lines](const QString& name) {
        lines << LogText::fill(QStringLiteral("%1 %2!"), {tr("Не удалось загрузить таблицу"), name});
    };
    const std::pair<const CModelTable*, QString> light[] = {
        {m_orgTypes, QStringLiteral("OrgTypes")},
        {m_departments, QStringLiteral("Departments")},
        {m_parameterCategories, QStringLiteral("TemplateParamCategories")},
        {m_parameters, QStringLiteral("TemplateParams")}};
    for (const auto& [table, name] : light)
        if (!table)
            notLoaded(name);
    for (const CModelTable* table : {&m_categories, &m_templates}) {
        const QString name = QLatin1String(table->name.c_str());
        if (!table->data.array)
            notLoaded(name);
        else if (MDAFldCount(table->data.array) == 0)
            lines << tr("Таблица %1 не содержит полей!").arg(name);
    }
    return lines.join(QStringLiteral("<br/>"));
}

int CVrkTemplateEditor::MessageData(HFNCliParam* block)
{
    TEventNciParse event(block);
    if (!event.isChange())
        return 1;
    int result = 1;
    if (event.tableName == QLatin1String("TemplateParamCategories"))
        result = parametersChanged(m_parameterCategories, &event);
    else if (event.tableName == QLatin1String("TemplateParams"))
        result = parametersChanged(m_parameters, &event);
    else
        for (TemplateTab* tab : tabs())
            tab->MessageData(&event);
    MDRTypFree(&event.recordType);
    return result;
}

int CVrkTemplateEditor::parametersChanged(CModelTable* table, TEventNciParse* event)
{
    MDRData* record = recordByKeyLink(table, event->recordKey);
    const bool isExpected = (event->eventNumber == EventInserted) == (record == nullptr);
    if (!table || !isExpected)
        return 0;
    switch (event->eventNumber) {
    case EventInserted:
        changeRecord(table, MDARecNew(table->data.array), event);
        break;
    case EventChanged:
        record = changeRecord(table, MDARecEdit(record), event);
        for (TemplateTab* tab : tabs())
            tab->updateParameters(record);
        return 1;
    default:
        TemplateTables::deleteRecord(table, record);
        break;
    }
    for (TemplateTab* tab : tabs())
        tab->reloadParameters();
    return 1;
}

void CVrkTemplateEditor::ModDataEditPost()
{
    currentTab()->applyChanges();
    SetIsEdit(false);
    // Text that could not be saved is asked about again at the next closing.
    QTimer::singleShot(0, this, &CVrkTemplateEditor::updateControls);
}

void CVrkTemplateEditor::ModDataEditCancel()
{
    currentTab()->cancelChanges();
}

void CVrkTemplateEditor::writeLog(const QString& func, const QString& text)
{
    LogText::warn(func, text);
    LogbookModule::writeLog(func, text);
}
