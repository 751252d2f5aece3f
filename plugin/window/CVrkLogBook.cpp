#include "CVrkLogBook.h"

#include "CLiteModel.h"
#include "CommentInbox.h"
#include "CToolLiteModel.h"
#include "CVrkCliApp.h"
#include "Fields.h"
#include "LocationInfo.h"
#include "LogBookWidget.h"
#include "OrgStructDialog.h"
#include "TEventNciParse.h"
#include "ui_CVrkLogBook.h"

#include <QToolButton>

CVrkLogBook::CVrkLogBook(CVrkCliApp* app) : LogbookModule(app), m_form(new Ui::CVrkLogBook)
{
    if (objectName().isEmpty())
        setObjectName(QStringLiteral("CVrkLogBook"));
    resize(1219, 602);
    setContextMenuPolicy(Qt::NoContextMenu);
    setStyleSheet(QString());
    m_form->setupUi(this);
    setModuleStyle();
    configureAddButton();
}

CVrkLogBook::~CVrkLogBook()
{
    // The tabs read the reference tables until they are destroyed.
    m_form->logbooks->disconnect(this);
    while (m_form->logbooks->count() > 0)
        delete m_form->logbooks->widget(0);
}

bool CVrkLogBook::ModuleStart()
{
    setModuleName(tr("Оперативный журнал"));
    uploadHfnTables();
    if (hasErrorUpload()) {
        m_addButton->setEnabled(false);
        showError(tr("Не удалось загрузить данные!"));
        return false;
    }

    m_location = new LocationInfo(this);
    m_location->setWorkersTable(m_workers);
    m_location->setDepartmentsTable(m_departments);
    m_location->setOrganizationsTable(m_organizations);
    m_location->setOrgTypesTable(m_orgTypes);
    m_location->init(m_app->m_user_params);
    if (m_location->hasError()) {
        m_addButton->setEnabled(false);
        showError(m_location->errorString());
        return false;
    }

    home()->init(this, m_location);
    home()->uploadWorkshiftDurationControl();
    configureToolBar();
    configureTabBar();
    createDialogs();
    createConnections();
    createInbox();
    createLeftTexts();
    home()->takeKeyboard(); // the arrow keys are for the records
    return true;
}

int CVrkLogBook::MessageData(HFNCliParam* block)
{
    TEventNciParse event(block);
    if (!event.isChange())
        return 0;
    for (int i = 0; i < m_form->logbooks->count(); ++i) {
        auto* tab = qobject_cast<LogBookTab*>(m_form->logbooks->widget(i));
        if (tab && tab->isInit())
            tab->MessageData(&event);
    }
    if (m_inbox)
        m_inbox->take(event);
    MDRTypFree(&event.recordType);
    return 1;
}

void CVrkLogBook::uploadHfnTables()
{
    CToolLiteModel tool(this);
    tool.setObjectName(QStringLiteral("LiteModel"));
    tool.m_names << QStringLiteral("Workers") << QStringLiteral("Departments")
                 << QStringLiteral("Organizations") << QStringLiteral("OrgTypes");
    tool.Perform(false);
    m_model.reset(tool.m_model);
    tool.m_model = nullptr;
    if (!m_model)
        return;

    m_workers = m_model->GetTableByName("Workers");
    m_departments = m_model->GetTableByName("Departments");
    m_organizations = m_model->GetTableByName("Organizations");
    m_orgTypes = m_model->GetTableByName("OrgTypes");
}

void CVrkLogBook::prepareHfnTables()
{
    for (CModelTable* table : {m_departments, m_organizations, m_workers})
        table->data.setKeys({Field::KeyLink});
}

bool CVrkLogBook::hasErrorUpload()
{
    const std::pair<CModelTable*, const char*> tables[] = {{m_departments, "Departments"},
                                                           {m_organizations, "Organizations"},
                                                           {m_workers, "Workers"},
                                                           {m_orgTypes, "OrgTypes"}};
    for (const auto& [table, name] : tables) {
        if (!table) {
            writeLog(QStringLiteral("bool CVrkLogBook::hasErrorUpload()"),
                     tr("Не удалось загрузить таблицу %1").arg(QLatin1String(name)));
            return true;
        }
    }
    return false;
}

LogBookWidget* CVrkLogBook::home() const
{
    return m_form->homeLogbook;
}

LogBookTab* CVrkLogBook::currentTab() const
{
    return qobject_cast<LogBookTab*>(m_form->logbooks->currentWidget());
}

LogBookWidget* CVrkLogBook::currentLogBook() const
{
    return qobject_cast<LogBookWidget*>(m_form->logbooks->currentWidget());
}
