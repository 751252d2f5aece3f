#pragma once

#include "RecordDumps.h"
#include "TemplatePageRules.h"

#include <memory>
#include <QModelIndex>
#include <QWidget>

class NewItems;
class NoticeBar;
class PageMessages;
class PageTree;
class QAbstractButton;
class QMenu;
class QTextCodec;
class TemplateEdits;
class TemplateEvents;
class TemplateMoves;
class TemplatePassport;
class TemplatesEditSourceModel;
class TemplatesProxyModel;
struct TEventNciParse;
namespace Ui
{
class TemplateTab;
}

/// One page of the configurator: the tree of one level of templates with its search line, and the passport
/// of the selected item. The user's changes go into edit tables; saving sends them in one block; the page's
/// copies of the server's tables change only by change events. Its parts do the work: PageTree,
/// TemplateEdits, NewItems, TemplateMoves, TemplatePassport, TemplateEvents.
class TemplateTab : public QWidget, public TemplatePageRules, public RecordDumps<TemplateTab>
{
    Q_OBJECT

public:
    enum TemplateTypes { Public = 0, Orgs = 1, Deps = 2 };

    explicit TemplateTab(QWidget* parent = nullptr);
    ~TemplateTab() override;

    /// \name Reference tables of the module; not owned. The two template tables are copied.
    /// @{
    void setTablesTable(CModelTable* table) { m_tablesTable = table; }
    void setFieldsTable(CModelTable* table) { m_fieldsTable = table; }
    void setOrgTypesTable(CModelTable* table) { m_orgTypesTable = table; }
    void setDepartmentsTable(CModelTable* table) { m_departmentsTable = table; }
    void setCatsParameterTable(CModelTable* table) { m_catsParameterTable = table; }
    void setParametersTable(CModelTable* table) { m_parametersTable = table; }
    void setCatsTemplateTable(const CModelTable* table);
    void setTemplatesTable(const CModelTable* table);
    /// @}

    /// Initialises the page for this level and a user with these rights; call it once, after setting the
    /// tables.
    void init(CVrkCliMod* module, TemplateTypes type, Rights::AdminRights rights);

    void applyChanges();
    void cancelChanges();
    void createRootFolder();
    void createFolder();
    void createTemplate();
    void deleteSelected();
    void copyItem();
    void pasteItem();
    /// The item was dropped on \a target, an index of the source model.
    void moveItem(const QString& keyLink, const QModelIndex& target);

    /// Moves the focus to the tree.
    void takeKeyboard();
    void selectFirst();
    /// Selects the record's row without handling the change of selection, and shows its passport.
    void setFocusOn(MDRData* record);
    MDRData* currentRecord() const override;
    /// Handles a change event of the server.
    void MessageData(TEventNciParse* event);
    /// One row of the parameter tables has changed.
    void updateParameters(MDRData* record);
    /// Rows of the parameter tables were added or removed.
    void reloadParameters();

    TemplatesEditSourceModel* model() const;
    TemplatesProxyModel* proxy() const;

    /// Names of the parameters that the template editor offers.
    QStringList parameterFilter() const;
    /// A field's name in the user's language; empty if the directory does not have it.
    QString fieldLocalName(QString field, QString table);

public slots:
    /// Handles the answer to the question about a deletion.
    void answerDelete(QAbstractButton* button);
    void closeMsgBox(QAbstractButton* button);

signals:
    void dataEdited();
    void editDataReseted();
    void itemChanged();
    void writeLog(QString func, QString text);
    /// The page has nothing to show for this user.
    void hideMe();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void configureForm();
    void createConnections();
    QTextCodec* codec() const;
    QString userParameter(const char* name) const;
    void createPassport();
    void reloadFor(const QModelIndex& current, const QModelIndex& previous);
    void putBack(const QPersistentModelIndex& previous);
    void raiseUpPassport(const QModelIndex& proxyIndex);
    void showError(const QString& text);
    void contextMenuRequest(const QPoint& pos);

    // What the user sees on the page of his level: TemplateTab_level.cpp
    void applyTemplateFilter_Orgs();
    void applyTemplateFilter_Deps();
    QString levelSignature(const char* function) const;

    std::unique_ptr<Ui::TemplateTab> m_form;
    QMenu* m_menu = nullptr;
    NoticeBar* m_notice = nullptr;

    CModelTable* m_tablesTable = nullptr;
    CModelTable* m_fieldsTable = nullptr;
    CModelTable* m_catsParameterTable = nullptr;
    CModelTable* m_parametersTable = nullptr;

    // Created by init, in this order
    CVrkCliMod* m_module = nullptr;
    std::unique_ptr<PageMessages> m_messages;
    std::unique_ptr<PageTree> m_tree;
    TemplateEdits* m_edits = nullptr;
    std::unique_ptr<NewItems> m_newItems;
    std::unique_ptr<TemplateMoves> m_moves;
    TemplatePassport* m_passport = nullptr;
    TemplateEvents* m_events = nullptr;
};
