#pragma once

#include <functional>
#include <QObject>
#include <QPointer>

class CommentCreatorDialog;
class CModelTable;
class CRowBatch;
class CVrkCliMod;
class LocationInfo;
class PageMessages;
class QAbstractButton;
class QAction;
class QListWidget;
class QListWidgetItem;
class QToolButton;
struct MDRData;
struct MDRVar;

/// The pane with the comments of the current record: lists them, writes, changes and deletes the user's own, and marks
/// them read. An action changes nothing here: it writes to the server, and the page reloads by the change event.
class CommentsPane : public QObject
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
    /// What the pane works on; nothing is owned.
    struct Source {
        QString owner; ///< the page's class, for its log lines
        CVrkCliMod* module;
        LocationInfo* location;
        CModelTable* comments; ///< LogbookComments of the page
        PageMessages* messages;
        std::function<MDRData*()> currentRecord;
        std::function<double()> now; ///< time of a comment that is written
        std::function<bool(const MDRVar& time)>
            isReaded; ///< a comment with this time is not marked read again
    };
    CommentsPane(const Controls& controls, const Source& source, QObject* parent);
    ~CommentsPane() override;

    /// Lists the comments of a record in the order of their table; null lists none.
    void reload(const MDRData* record);
    /// Asks anew what may be done.
    void updateButtons();
    /// What the Delete key does in the list.
    void deleteByKey();

private slots: // by name: the message box takes the slot's name
    void deleteCommentAnswer(QAbstractButton* button);

private:
    void list(const MDRData* comment);
    QString signature(const char* function) const;
    QString keyOf(const QListWidgetItem* item) const;
    MDRData* comment(const QString& key) const;
    bool isMine(const MDRData* comment) const;
    bool isUnread(const QListWidgetItem* item) const;
    /// There is a current record that is not deleted.
    bool isChangeable() const;
    bool send(CRowBatch& batch) const;

    void updateCommentCreate();
    void updateCommentDelete();
    void updateCommentReaded();
    void createCommentRequest();
    void changeCommentRequest();
    void deleteCommentRequest();
    void upsertComment(const QString& commentKey, const QString& text);
    /// The row of a new comment on the current record; null, with a line in the log, when there can be none.
    MDRData* newComment(CRowBatch& batch, double now) const;
    void setCommentReaded(const QString& key, CRowBatch& batch);
    void setCommentReaded(const QListWidgetItem* item, CRowBatch& batch);
    void setCurrentCommentReaded();
    void setAllCommentsReaded();

    Controls m_controls;
    Source m_source;
    QPointer<CommentCreatorDialog> m_editor; ///< belongs to the module's window, goes with the pane
    QString m_askedKey; ///< the comment that the open question is about, empty without one
};
