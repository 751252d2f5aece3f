#pragma once

#include "KeptEdits.h"
#include "SentEdits.h"
#include "TemplatePageRules.h"

#include <memory>
#include <QModelIndex>
#include <QWidget>

class CPopMessageBox;
class CVrkCliMod;
class KeptDraft;
class NoticeBar;
class QAbstractButton;
class QMenu;
class QTextCodec;
class TemplateMoves;
class TemplatePassport;
class TemplatesEditSourceModel;
class TemplatesProxyModel;
namespace Ui
{
class TemplateTab;
}

/// One page of the configurator: the tree of one level of templates with its search line, and the passport
/// of the selected item. The user's changes go into edit tables; saving sends them in one block; the page's
/// copies of the server's tables change only by change events.
class TemplateTab : public QWidget, public TemplatePageRules
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
    /// Selects the record's row without handling the change of selection, and shows its passport, or that
    /// of its unsaved change.
    void setFocusOn(MDRData* record, MDRData* edit = nullptr);
    MDRData* currentRecord() const override;
    /// Handles a change event of the server.
    void MessageData(TEventNciParse* event);
    /// One row of the parameter tables has changed.
    void updateParameters(MDRData* record);
    /// Rows of the parameter tables were added or removed.
    void reloadParameters();

    TemplatesEditSourceModel* model() const { return m_model; }
    TemplatesProxyModel* proxy() const { return m_proxy; }

    /// Names of the parameters that the template editor offers.
    QStringList parameterFilter() const;
    /// A field's name in the user's language; empty if the directory does not have it.
    QString fieldLocalName(QString field, QString table);

    /// \name Dumps to the message log, for debugging
    /// @{
    static void printStructTable(CMDArray* table, const QString& title);
    static void printKeysTable(CMDArray* table, const QString& title);
    static void printRecordTable(CVrkCliMod* module, CMDArray* table, MDRData* record, const QString& title);
    static void printTable(CVrkCliMod* module, CMDArray* table, const QString& title);
    /// @}

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
    // The page
    void configureForm();
    void createConnections();
    QTextCodec* codec() const;
    QString userParameter(const char* name) const;
    QModelIndex currentSource() const;
    void reloadFor(const QModelIndex& current, const QModelIndex& previous);
    void putBack(const QPersistentModelIndex& previous);
    void showError(const QString& text);
    void contextMenuRequest(const QPoint& pos);

    // The level: TemplateTab_level.cpp
    void applyTemplateFilter_Orgs();
    void applyTemplateFilter_Deps();
    QString levelSignature(const char* function) const;

    QModelIndexList matcheIndexes(const QString& text) const;

    // Editing and saving
    MDRData* editedCategory();
    MDRData* editedTemplate();
    MDRData* editedRecord(CModelTable* table, CModelTable* edits, std::initializer_list<const char*> copied);
    bool sendChangesToServer();
    void sendEdits(const CModelTable& edits);
    void clearEditTables();
    void removePending();
    void dropUnsaved(const QString& reason);
    void updateEditStatus();
    void writeLogUnsaved(const QString& func, const QString& text);
    void tellKept(const QString& text);
    void forgetOffer();
    KeptTexts::Values unsaved() const;
    void offerLeft();
    void restoreKept();
    void restoreFrom(const CModelTable& kept, const CModelTable& table, CModelTable* edits,
                     MDRData** restored);
    MDRData* restoreRecord(const CModelTable& table, CModelTable* edits, const MDRData* kept);
    QModelIndex placeOf(const MDRData* kept) const;

    // Events
    void rowChanged(CModelTable* table, CModelTable* edits, TEventNciParse* event);
    void rowDeleted(CModelTable* table, CModelTable* edits, TEventNciParse* event);
    void rowInserted(CModelTable* table, CModelTable* edits, CModelTable* moved, TEventNciParse* event);
    bool deleteEditRecord(CModelTable* table, TEventNciParse* event);
    void removeRow(CModelTable* table, MDRData* record);
    /// Turns a new record that the server has received in the meantime into a change.
    void becomeChange(CModelTable* edits, MDRData* pending);
    /// The position of an event's row in this page's tree; \a row stays negative if it does not belong
    /// there.
    void whereInsert(int& row, QModelIndex& parent, TEventNciParse* event);
    void moveRow(CModelTable* table, MDRData* record, TEventNciParse* event);

    // Tree operations
    MDRData* newCategory(const QModelIndex& parent, const QString& name, const QByteArray& parentKey,
                         const QByteArray& orgTypeKey, const QByteArray& departmentKey);
    void newFolder(const QModelIndex& index, MDRData* record);
    void newTemplate(QModelIndex index, MDRData* record);
    void insertTemplate(const QModelIndex& parent, const QByteArray& category, const QByteArray& name,
                        const MDRVar& html);
    void pasteTemplate(MDRData* record);

    void createPassport();
    void raiseUpPassport(const QModelIndex& proxyIndex);

    std::unique_ptr<Ui::TemplateTab> m_form;
    CVrkCliMod* m_module = nullptr;
    TemplatesEditSourceModel* m_model = nullptr;
    TemplatesProxyModel* m_proxy = nullptr;
    TemplatePassport* m_passport = nullptr; ///< created by init
    CPopMessageBox* m_messageBox = nullptr;
    NoticeBar* m_notice = nullptr;
    QMenu* m_menu = nullptr;

    CModelTable* m_tablesTable = nullptr;
    CModelTable* m_fieldsTable = nullptr;
    CModelTable* m_catsParameterTable = nullptr;
    CModelTable* m_parametersTable = nullptr;
    KeptEdits m_kept;
    KeptDraft* m_unsaved =
        nullptr; ///< created by init: the edit tables and kept edits, in case the program ends
    bool m_isPassingOffer = false; ///< the kept edits were cancelled by the user, and are dropped when he
                                   ///< continues
    SentEdits m_sent;
    std::unique_ptr<TemplateMoves> m_moves; ///< created by init
    bool m_isSent = false; ///< the unsaved records were written, their events have not arrived yet
};
