#pragma once

#include "DraftRow.h"

#include <memory>
#include <QWidget>

class CreatorTables;
class CVrkCliMod;
class OrgStructDialog;
class RecordPrefill;
class TemplateFiller;
struct TEventNciParse;
namespace Ui
{
class RecordFields;
}

/// The fields of the record that is written: time of the event, direction, counterpart, text. They show a
/// draft and return it as the user has changed it.
class RecordFields : public QWidget
{
    Q_OBJECT

public:
    explicit RecordFields(QWidget* parent = nullptr);
    ~RecordFields() override;

    /// Sets the module, which gives access to the session, and the tables with the names of known values.
    /// Call it once, before everything else.
    void init(CVrkCliMod* module, const CreatorTables* tables);
    /// The field of the text.
    TemplateFiller* filler() const;

    /// Shows the draft; its text is then untouched.
    void setDraft(const RecordDraft& draft);
    /// Shows a draft that the user has typed earlier: untouched remains the text shown before.
    void restoreDraft(const RecordDraft& draft);
    /// Shows the draft without its text.
    void setValues(const RecordDraft& draft);
    /// Shows the text of a template, with the values that are known filled in. Values typed earlier for
    /// this template are shown again, and are still unsaved.
    void startText(const QString& html, const DraftRow::Author& author);
    /// \a before with the values of the fields. An untouched text is the shown one, byte for byte, even if
    /// the filler's output differs. The first mark follows the time of the event, unless it was set to
    /// another time.
    RecordDraft draft(const RecordDraft& before) const;
    /// Whether the text differs from the one that was shown.
    bool isTextTouched() const;
    /// The shown text counts as touched until another one is shown.
    void setTextTouched() { m_isTouched = true; }

    /// Disabled fields stay as readable as enabled ones.
    void setWritable(bool writable);
    /// Which field must still be filled, in a sentence for the user; empty if none.
    QString missing() const;
    /// Moves the focus to the field that must still be filled; false if there is none.
    bool focusMissing();
    /// Moves the focus to the text, or to the time of the event if the text has no parameters.
    void focusText();
    /// From the fields around the text, moves the focus to the next one; false if it is elsewhere.
    bool focusNext();

    /// Applies changes of the reference data.
    void MessageData(TEventNciParse* event);
    /// Closes the tree of the organization.
    void closeTree();

signals:
    /// Emitted at every edit, also while a draft is shown.
    void changed();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void changeTime();
    void chooseCounterpart();
    void showCounterpart(const QString& key);
    void showMarker();
    QString text() const;

    std::unique_ptr<Ui::RecordFields> m_form;
    CVrkCliMod* m_module = nullptr;
    const CreatorTables* m_tables = nullptr;
    OrgStructDialog* m_orgStruct = nullptr;
    std::unique_ptr<RecordPrefill> m_prefill;
    QString m_shownHtml; ///< text before it was filled
    QString m_cleanText; ///< filled text before the user touched it
    bool m_isTouched = false;
    bool m_isFilling = false; ///< the fields are being changed by the program
};
