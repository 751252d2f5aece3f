#pragma once

#include "CPopTemplate.h"
#include "KeptTexts.h"

#include <memory>

class KeptDraft;
class NoticeBar;
class RecordTitle;

namespace Ui
{
class CommentCreatorDialog;
}

/// The dialog in which the text of a comment is written. It knows no record: whoever listens takes the one that is
/// current when the text comes. Ctrl+Enter applies, Escape cancels.
class CommentCreatorDialog : public CPopTemplate
{
    Q_OBJECT

public:
    explicit CommentCreatorDialog(QWidget* parent, int flag = -1);
    ~CommentCreatorDialog() override;

    /// Names the record that the comment goes to.
    RecordTitle* recordTitle() const { return m_recordTitle; }
    /// The comment that is changed; empty for a new one.
    void setCommentKey(const QString& key) { m_commentKey = key; }
    QString commentKey() const { return m_commentKey; }
    void setText(const QString& text);
    /// Empties the text and leaves the key as it is: meant.
    void clear();

    /// What the user must know of the text that he is going to write, told above it at the next showing, with a button
    /// that makes it a new comment; an empty text tells nothing.
    void warn(const QString& text);
    /// The record that the next text is typed for, by which a text that was kept finds its way back.
    void setRecordKey(const QString& key) { m_recordKey = key; }
    /// Keeps a text until it has been written: while texts are kept, each showing of a dialog of this application offers
    /// the last one.
    void keep(const QString& text);
    void forget(const QString& text);
    /// Shows the dialog with this kept text in it.
    void showKept(const KeptTexts::Text& text);
    /// Where comments are kept.
    static QString keptPlace() { return QStringLiteral("comment"); }

signals:
    void commentChanged(const QString& commentKey, const QString& text);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void apply();
    void tellNotices();
    void choose(int choice);
    KeptTexts::Values unsaved() const;
    KeptTexts::Values valuesOf(const QString& text) const;
    void take(const KeptTexts::Text& text);
    void giveBack();

    std::unique_ptr<Ui::CommentCreatorDialog> m_form;
    NoticeBar* m_warningBar;
    NoticeBar* m_keptBar;
    RecordTitle* m_recordTitle;
    QString m_commentKey;
    QString m_warning;
    QString m_recordKey;
    QString m_clean; ///< what the editor showed before the user touched it
    KeptTexts* m_kept;
    KeptDraft* m_unsaved;
    KeptTexts::Text m_taken; ///< the kept text that is in the editor, until it is applied
};
