#pragma once

#include "CPopTemplate.h"
#include "KeptTexts.h"
#include "RecordDraft.h"
#include "TEventNciParse.h"
#include "VrkExport.h"

#include <memory>
#include <QString>

class CLiteModel;
class CModelTable;
class CVrkCliMod;
class HtmlParser;
class KeptDraft;
class OrgStructDialog;
namespace Ui
{
class RecordCreatorDialog;
}

/// The dialog in which a journal record is written: a template chosen on the left, its text filled in on the
/// right, time of the event, direction and counterpart below. It writes the row by itself as a draft and says
/// nothing to its caller: the row comes back as a change event. It keeps keys and looks records up when it
/// needs them.
///
/// Shown with a record it edits that draft and writes only what was changed; an approved or deleted record
/// opens for reading. Unsaved text is never dropped without a question: Esc, Cancel and the frame ask, a
/// programmatic close() keeps the text and offers it at the next opening. What is typed is kept at once (KeptTexts), so
/// that the end of the program does not lose it either.
class VRK_EXPORT RecordCreatorDialog : public CPopTemplate
{
    Q_OBJECT

public:
    explicit RecordCreatorDialog(QWidget* parent, int flag = -1);
    ~RecordCreatorDialog() override;

    /// Takes the module, through which it reaches the session. Once, before everything else.
    void init(CVrkCliMod* module);
    /// The table of the journal tab that records to edit come from. It is read, never changed.
    void setRecordsTable(CModelTable* table);
    /// The author of new records.
    void setWorkerKey(const QString& key);
    /// Department and type of organization: they narrow the templates on offer.
    void setDepartmentKey(const QString& key);
    void setOrgTypeKey(const QString& key);
    /// The workshift that a new record goes into.
    void setWorkshiftKey(const QString& key);
    /// What the next showing is for: null to create, the record to edit. While the dialog is visible with
    /// unsaved text it asks what becomes of that text before it goes over to the other record.
    void setCurrentRecord(MDRData* record);

    /// The template tables have changed. Visible: the tree is renewed from the events given to MessageData,
    /// selection and filled text stay. Hidden: the tables are loaded again at the next showing.
    void reloadTemplates();
    /// Every change event: templates, the record in work, and its own new record are followed.
    void MessageData(TEventNciParse* event);

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    /// What is being done with the record in work.
    enum class Mode {
        Nothing,  ///< not opened yet, or left
        Create,   ///< a new row
        Edit,     ///< a draft
        Read,     ///< approved, deleted, or not to be found
        Orphaned, ///< was open as a draft and may not be written any more: only a new record can take the text
    };
    /// Answers of the bars.
    enum Answer { SaveText, DropText, Stay, KeepMine, TakeTheirs, SaveAsNew, DropRestored, ReloadTables };
    struct Kept;

    // RecordCreatorDialog.cpp: the window
    void connectWidgets();
    void updateControls();
    QVector<QWidget*> fields() const;
    QString holdReason() const;
    void saveByKey();
    bool goToMissing();
    bool goOn();
    void requestClose();
    void leave();
    void answer(int answer);
    void askUnsaved();
    void chooseCounterpart();
    void hideBars();
    void restoreLayout();
    void saveLayout() const;

    // RecordCreatorDialog_open.cpp: what is shown
    void open();
    void loadTables();
    void openNew();
    void openRecord(const QByteArray& key);
    bool restoreKept(const KeptTexts::Text& text);
    void restoreNew();
    void restoreEdit();
    KeptTexts::Values unsaved() const;
    void keepUnsaved();
    void dropRestored();
    void chooseTemplate();
    void showDraft(const RecordDraft& draft);
    void showFields(const RecordDraft& draft);
    void showCounterpart(const QByteArray& key);
    void showMarker();
    void focusText();
    void tellReadOnly();
    CModelTable* table(const char* name) const;
    RecordDraft draft() const;
    bool isDirty() const;

    // RecordCreatorDialog_fill.cpp: what is known already
    void prefill();
    void prefillTime();
    void prefillParameter(const QString& name, const QString& text, const QString& key);
    void writeAutoTime(const HtmlParser& parser, unsigned index);
    void eventTimeEdited();

    // RecordCreatorDialog_save.cpp: writing
    void save();
    bool insert();
    bool update();
    bool findOwnRow(bool* found);
    void askConflict();
    void saved();
    void showFailure(const QString& text);

    // RecordCreatorDialog_events.cpp: what others do
    void recordEvent(const TEventNciParse* event);
    void recordArrived(const TEventNciParse* event);
    void recordChanged(const TEventNciParse* event);
    void takeUntouched(const RecordDraft& theirs);
    void recordLost(const QString& what);
    void saveAsNew();
    void takeTheirs();
    QString whoAndWhen(const TEventNciParse* event) const;

    std::unique_ptr<Ui::RecordCreatorDialog> m_form;
    CVrkCliMod* m_module = nullptr;
    CModelTable* m_records = nullptr;
    OrgStructDialog* m_orgStruct = nullptr;
    std::unique_ptr<CLiteModel> m_tables; ///< templates, categories and reference tables of its own
    bool m_tablesStale = true;
    QString m_workerKey;
    QString m_departmentKey;
    QString m_workshiftKey;

    Mode m_mode = Mode::Nothing;
    QByteArray m_requestedKey; ///< record to edit at the next opening, empty to create
    bool m_openAsked = false;  ///< waits for the answer about unsaved text
    QByteArray m_key;          ///< of the record in work, kept over retries
    bool m_attempted = false; ///< a row with this key may have been written although the answer was a failure
    RecordDraft m_sent;       ///< what the last attempt tried to write
    RecordDraft m_before;     ///< what the record held when it was opened, or last by others
    QString m_cleanText;      ///< filled text before the user touched it
    QString m_autoTime;       ///< what prefilling wrote into the time parameter
    bool m_restored = false;  ///< the window shows text that was kept
    bool m_lostUnsaved = false; ///< there was unsaved text when the record was lost
    bool m_conflict = false;    ///< others changed the record under unsaved text
    bool m_filling = false;     ///< the window changes its own fields
    KeptDraft* m_unsaved;       ///< kept texts are offered one after the other, the last first
};
