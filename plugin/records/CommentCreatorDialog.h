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

/// The dialog in which the text of a comment is written. It knows no record: the receiver uses the record
/// that is current when the text is applied. Ctrl+Enter applies, Escape cancels.
class CommentCreatorDialog : public CPopTemplate
{
    Q_OBJECT

public:
    explicit CommentCreatorDialog(QWidget* parent, int flag = -1);
    ~CommentCreatorDialog() override;

    /// Shows the record of the comment.
    RecordTitle* recordTitle() const { return m_recordTitle; }
    /// The comment that is changed; empty for a new one.
    void setCommentKey(const QString& key) { m_commentKey = key; }
    QString commentKey() const { return m_commentKey; }
    void setText(const QString& text);
    /// Clears the text. Deliberate: the key is kept.
    void clear();

    /// Information about the text, shown above it the next time, with a button that makes it a new comment;
    /// an empty text shows nothing.
    void warn(const QString& text) { m_warning = text; }
    /// The record of the next text; a kept text is restored by it.
    void setRecordKey(const QString& key) { m_recordKey = key; }
    /// Keeps a text until it is written: while there are kept texts, each dialog of this application offers
    /// the last one when shown.
    void keep(const QString& text);
    void forget(const QString& text);
    /// Shows the dialog with this kept text.
    void showKept(const KeptTexts::Text& text);
    /// The place of kept comments.
    static QString keptPlace() { return QStringLiteral("comment"); }

signals:
    void commentChanged(const QString& commentKey, const QString& text);

protected:
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
    QString m_clean; ///< the editor's content before the user changed it
    KeptTexts* m_kept;
    KeptDraft* m_unsaved;
    KeptTexts::Text m_taken; ///< the kept text in the editor, until it is applied
};
