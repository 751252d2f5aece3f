#pragma once

#include "CPopTemplate.h"

#include <memory>

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

    /// The comment that is changed; empty for a new one.
    void setCommentKey(const QString& key) { m_commentKey = key; }
    void setText(const QString& text);
    /// Empties the text and leaves the key as it is: meant.
    void clear();

signals:
    void commentChanged(const QString& commentKey, const QString& text);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void apply();

    std::unique_ptr<Ui::CommentCreatorDialog> m_form;
    QString m_commentKey;
};
