#pragma once

#include "KeptTexts.h"
#include "RecordPane.h"

#include <QPointer>

class CommentCreatorDialog;
class CRowBatch;
class QAction;
class QListWidget;
class QListWidgetItem;
class QToolButton;
struct MDRVar;

/// The pane with the comments of the current record: lists them, writes, changes and deletes the user's
/// own, and marks them as read.
class CommentsPane : public RecordPane
{
    Q_OBJECT

public:
    struct Controls {
        QListWidget* list;
        QToolButton* create;
        QToolButton* remove;
        QToolButton* readed;
        QAction* allReaded;
    };
    /// The operations that differ between the two pages.
    struct Habits {
        std::function<double()> now; ///< the time of a new comment
        std::function<bool(const MDRVar& time)>
            isReaded; ///< a comment with this time is not marked as read again
    };
    CommentsPane(const Controls& controls, const Source& source, const Habits& habits, QObject* parent);
    ~CommentsPane() override;

    /// Lists the comments of a record in the order of their table; null lists none.
    void reload(const MDRData* record);
    /// Updates which actions are enabled.
    void updateButtons();
    /// Shows the editor with a kept text.
    void showKept(const KeptTexts::Text& text);
    /// The action of the Delete key in the list.
    void deleteByKey();

private slots: // connected by name: the message box takes the slot's name
    void deleteCommentAnswer(QAbstractButton* button);

private:
    void list(const MDRData* comment);
    QString keyOf(const QListWidgetItem* item) const;
    QString currentRecordKey() const;
    bool isUnread(const QListWidgetItem* item) const;

    void updateCommentCreate();
    void updateCommentDelete();
    void updateCommentReaded();
    void createCommentRequest();
    void changeCommentRequest();
    void deleteCommentRequest();
    void upsertComment(const QString& commentKey, const QString& text);
    /// The row of a new comment on the current record; null, with a line in the log, if there can be none.
    MDRData* newComment(CRowBatch& batch, double now) const;
    QString replacementWarning(const QString& commentKey) const;
    void showEditor();
    void nameRecord(const MDRData* record);
    void setCommentReaded(const QString& key, CRowBatch& batch);
    void setCommentReaded(const QListWidgetItem* item, CRowBatch& batch);
    void setCurrentCommentReaded();
    void setAllCommentsReaded();

    Controls m_controls;
    Habits m_habits;
    QPointer<CommentCreatorDialog> m_editor; ///< belongs to the module's window, deleted with the pane
};
