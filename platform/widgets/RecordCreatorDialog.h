#pragma once

#include "CPopTemplate.h"
#include "TEventNciParse.h"
#include "VrkExport.h"

#include <memory>
#include <QString>

class CModelTable;
class CVrkCliMod;

/// The dialog in which a journal record is written: a template chosen on the left, its text filled in on the
/// right, time of the event, direction and counterpart below. It writes the row by itself as a draft and says
/// nothing to its caller: the row comes back as a change event. It keeps keys and looks records up when it
/// needs them.
///
/// Shown with a record it edits that draft and writes only what was changed; an approved or deleted record
/// opens for reading. Unsaved text is never dropped without a question: Esc, Cancel and the frame ask, a
/// programmatic close() keeps the text and offers it at the next opening.
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

private:
    struct Private;
    std::unique_ptr<Private> d;
};
