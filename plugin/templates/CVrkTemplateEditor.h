#pragma once

#include "CLiteModel.h"
#include "LogbookModule.h"
#include "Rights.h"

#include <memory>

class QLabel;
class QToolBar;
class QToolButton;
class TemplateTab;
struct TEventNciParse;
namespace Ui
{
class CVrkTemplateEditor;
}

/// The configurator of record templates: three pages, one for each level of templates, under a tool bar for
/// the current page. It reads the user's rights, loads the tables, passes them to the pages, and then only
/// routes events.
class CVrkTemplateEditor : public LogbookModule
{
    Q_OBJECT

public:
    explicit CVrkTemplateEditor(CVrkCliApp* app);
    ~CVrkTemplateEditor() override;

    /// False, with an error box, if a table could not be loaded; the pages then stay empty.
    bool ModuleStart() override;
    /// Returns 0 for an event of the parameter tables with an unexpected key; otherwise 1.
    int MessageData(HFNCliParam* block) override;
    void ModDataEditPost() override;
    void ModDataEditCancel() override;

    Rights::AdminRights rights() const { return m_rights; }
    TemplateTab* currentTab() const;

private:
    void writeLog(const QString& func, const QString& text);

    void uploadHfnTables();
    void uploadSqlTables();
    void uploadSqlTable(CModelTable* table);
    /// The text of all load failures, one line each; empty if there are none.
    QString errorUpload() const;

    void createToolBar();
    /// Carries out an operation of the current page.
    void request(void (TemplateTab::*operation)());
    void createConnections();
    void connectTab(TemplateTab* tab);
    void hideTab(TemplateTab* tab);
    void updateStatusView();
    void updateControls();

    int parametersChanged(CModelTable* table, TEventNciParse* event);
    QList<TemplateTab*> tabs() const;

    std::unique_ptr<Ui::CVrkTemplateEditor> m_form;
    Rights::AdminRights m_rights = Rights::View;
    QToolBar* m_toolBar = nullptr;
    QLabel* m_statusLabel = nullptr;
    QToolButton* m_createButton = nullptr;

    std::unique_ptr<CLiteModel> m_model;
    CModelTable* m_tablesTable = nullptr;
    CModelTable* m_fieldsTable = nullptr;
    CModelTable* m_orgTypes = nullptr;
    CModelTable* m_departments = nullptr;
    CModelTable* m_parameterCategories = nullptr;
    CModelTable* m_parameters = nullptr;
    /// These two only pass the first load to the pages.
    CModelTable m_categories{"LogbookCatsTemplate"};
    CModelTable m_templates{"LogbookTemplates"};
};
