#pragma once

#include "CPopTemplate.h"
#include "KeptTexts.h"
#include "TEventNciParse.h"
#include "VrkExport.h"

#include <memory>
#include <QString>

class CModelTable;
class CreatorTables;
class CVrkCliMod;
class KeptDraft;
struct DraftRow;
struct RecordDraft;
namespace Ui
{
class RecordCreatorDialog;
}

/// The dialog in which a journal record is written: a template chosen on the left, its text filled in on
/// the right, time of the event, direction and counterpart below. It writes the row itself, as a draft, and
/// does not notify its caller: the row arrives as a change event. It keeps keys and looks records up when
/// it needs them.
///
/// Shown with a record it edits that draft and writes only the changes; an approved or deleted record is
/// read-only. Unsaved text is never dropped without a question: Esc, Cancel and the frame ask, a
/// programmatic close() keeps the text and offers it at the next opening. Typed text is kept at once
/// (KeptTexts), so that it is not lost if the program ends.
class VRK_EXPORT RecordCreatorDialog : public CPopTemplate
{
    Q_OBJECT

public:
    explicit RecordCreatorDialog(QWidget* parent, int flag = -1);
    ~RecordCreatorDialog() override;

    /// Sets the module, which gives access to the session. Call it once, before everything else.
    void init(CVrkCliMod* module);
    /// The table of the journal tab with the records to edit. It is read, never changed.
    void setRecordsTable(CModelTable* table);
    /// The author of new records.
    void setWorkerKey(const QString& key);
    /// Department and type of organization: they restrict the available templates.
    void setDepartmentKey(const QString& key);
    void setOrgTypeKey(const QString& key);
    /// The workshift of new records.
    void setWorkshiftKey(const QString& key);
    /// The record to edit the next time the dialog is shown; null creates a new one. While the dialog is
    /// visible with unsaved text it asks what to do with that text before it switches to the other record.
    void setCurrentRecord(MDRData* record);

    /// Chooses a pinned template for the new record, from 1 on, and moves to its text; says so if there is none.
    /// Does nothing while a record is edited or a question is open.
    void choosePinned(int number);

    /// The template tables have changed. If visible, the tree is updated from the events passed to
    /// MessageData; selection and filled text stay. If hidden, the tables are reloaded when it is next
    /// shown.
    void reloadTemplates();
    /// Handles every change event: of templates, of the current record, and of its own new record.
    void MessageData(TEventNciParse* event);

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    /// What the dialog does with the current record.
    enum class Mode {
        Nothing,  ///< not opened yet, or closed
        Create,   ///< a new row
        Edit,     ///< a draft
        Read,     ///< approved, deleted, or not found
        Orphaned, ///< was open as a draft and can no longer be written: the text can only go into a new
                  ///< record
    };
    /// Answers of the bars.
    enum Answer { SaveText, DropText, Stay, KeepMine, TakeTheirs, SaveAsNew, DropRestored, ReloadTables };
    struct Kept;

    // RecordCreatorDialog.cpp: the window
    void connectWidgets();
    void updateControls();
    QString holdReason() const;
    void saveByKey();
    void requestClose();
    void leave();
    void answer(int answer);
    void askUnsaved();
    void restoreLayout();
    void saveLayout() const;

    // RecordCreatorDialog_open.cpp: displayed content
    void open();
    void loadTables();
    void openNew();
    void openRecord(const QByteArray& key);
    void restoreNew();
    void restoreEdit();
    bool restoreKept(const KeptTexts::Text& text);
    KeptTexts::Values unsaved() const;
    void keepUnsaved();
    void dropRestored();
    void chooseTemplate();
    void showDraft(const RecordDraft& draft);
    void focusText();
    void tellReadOnly();
    RecordDraft draft() const;
    bool isDirty() const;

    // RecordCreatorDialog_save.cpp: writing
    void save();
    void askConflict();
    void saved();

    // RecordCreatorDialog_events.cpp: changes by others
    void recordEvent(const TEventNciParse* event);
    void recordArrived(const TEventNciParse* event);
    void recordChanged(const TEventNciParse* event);
    void takeUntouched(const RecordDraft& theirs);
    void recordLost(const QString& what);
    void saveAsNew();
    void takeTheirs();

    std::unique_ptr<Ui::RecordCreatorDialog> m_form;
    CVrkCliMod* m_module = nullptr;
    CModelTable* m_records = nullptr;
    std::unique_ptr<CreatorTables> m_tables;

    Mode m_mode = Mode::Nothing;
    QByteArray m_requestedKey;       ///< record to edit the next time it opens, empty to create
    bool m_openAsked = false;        ///< the question about unsaved text is open
    std::unique_ptr<DraftRow> m_row; ///< the current record
    bool m_restored = false;         ///< the window shows a kept text
    bool m_conflict = false;         ///< others changed the record while it had unsaved text
    KeptDraft* m_unsaved;            ///< kept texts are offered one after another, the last first
};
