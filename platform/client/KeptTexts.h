#pragma once

#include "VrkExport.h"

#include <memory>
#include <QByteArray>
#include <QMap>
#include <QObject>
#include <QString>
#include <QVector>

class QWidget;

/// The texts that the user has typed and that are written nowhere yet: whatever ends a window or the program, they are
/// offered again until they are written or dropped. A text stands at a place ("record/DEP_1"), under which its kind of
/// window finds it.
///
/// Texts are in memory always. Between open() and close() they are on disk as well, in a folder of the user's own, at
/// most two seconds behind the keys; a thread of its own writes them, so that a slow or full disk stops nobody. Each
/// text is a file that its process has locked: another process of the same login passes it over, and takes it over at
/// its start when that process has ended.
class VRK_EXPORT KeptTexts : public QObject
{
    Q_OBJECT

public:
    /// What a window needs to have its text back, by names of its own. "caption" says in the user's words what it is.
    using Values = QMap<QString, QString>;
    struct Text {
        QByteArray id;
        QString place;
        Values values;
        qint64 time = 0;     ///< of the last change, in milliseconds since 1970, rising from text to text
        bool isLeft = false; ///< by a program that has ended, and no window has shown it since
    };
    /// Whether a text needs a file; one that has a file keeps it.
    enum Where { OnDisk, InMemory };

    explicit KeptTexts(QObject* parent = nullptr);
    /// Waits a few seconds at most for what is still to be written.
    ~KeptTexts() override;

    /// The texts of the application that \a object belongs to (as a module, or below one). Without an application a list
    /// of the topmost parent's own, in memory.
    static KeptTexts* of(QObject* object);

    /// Keeps texts in \a folder from now on, apart for each login and store, and takes over what ended programs have left
    /// there. What cannot be read is left where it is, with a line in the log.
    void open(const QString& folder, const QString& login, const QString& store);
    /// Writes what is waiting and forgets all texts: the next login must not see them.
    void close();
    /// Why the texts cannot be kept on disk at present; empty when they can.
    QString errorText() const;
    /// Waits some seconds at most until everything is on disk; false when it is not.
    bool flush();

    /// Keeps a new text and returns its id; with an \a id, puts it in the place of the text of that id.
    QByteArray keep(const QString& place, const Values& values, const QByteArray& id = QByteArray(),
                    Where where = OnDisk);
    /// The text was written or dropped. An unknown id is passed over.
    void forget(const QByteArray& id);
    /// The text is in \a window, which offers it to nobody else; null: in none any more.
    void hold(const QByteArray& id, QWidget* window);
    /// The text is offered after all others from now on.
    void putBehind(const QByteArray& id);

    /// What is kept at this place and stands in no window, the latest last.
    QVector<Text> offered(const QString& place) const;
    /// What ended programs have left and no window has shown since, the latest last.
    QVector<Text> left() const;
    /// What stands in visible windows below \a ancestor, as it is at this moment.
    QVector<Text> held(const QObject* ancestor);
    /// Forgets what held() says: the user does not want it. Its windows keep it again when it is typed on.
    void dropHeld(const QObject* ancestor);

signals:
    /// Texts were kept, forgotten, put into a window or left by it.
    void changed();
    /// Texts cannot be kept on disk at present; \a reason is for the user. Comes once until it works again.
    void failed(const QString& reason);
    /// For those who hold texts: what was typed is wanted now.
    void settling();
    /// For those who hold texts: the user has dropped the text with this id.
    void heldDropped(const QByteArray& id);

private:
    struct Private;
    std::unique_ptr<Private> d;
};
