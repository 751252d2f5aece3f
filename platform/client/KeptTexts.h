#pragma once

#include "VrkExport.h"

#include <memory>
#include <QByteArray>
#include <QMap>
#include <QObject>
#include <QString>
#include <QVector>

class QWidget;

/// The texts that the user has typed and that are not saved yet. If a window or the program ends, they are
/// offered again until they are saved or dropped. Each text has a place ("record/DEP_1"), by which windows
/// of its kind find it.
///
/// Texts are always in memory. Between open() and close() they are also on disk, in a folder of the user,
/// at most two seconds behind the keyboard; a separate thread writes them, so that a slow or full disk
/// blocks nobody. Each text is a file that its process has locked: another process of the same login
/// ignores it, and takes it over at its start if that process has ended.
class VRK_EXPORT KeptTexts : public QObject
{
    Q_OBJECT

public:
    /// Named values that a window needs to restore its text. "caption" describes it for the user.
    using Values = QMap<QString, QString>;
    struct Text {
        QByteArray id;
        QString place;
        Values values;
        qint64 time = 0;     ///< of the last change, in milliseconds since 1970; increases from text to text
        bool isLeft = false; ///< left by an ended program and not shown by a window since
    };
    /// Whether a text needs a file; a text that has a file keeps it.
    enum Where { OnDisk, InMemory };

    explicit KeptTexts(QObject* parent = nullptr);
    /// Waits at most a few seconds for pending writes.
    ~KeptTexts() override;

    /// The texts of the application that \a object belongs to (it is a module or below one). Without an
    /// application, a list of the topmost parent, in memory.
    static KeptTexts* of(QObject* object);

    /// Keeps texts in \a folder from now on, separately for each login and store, and takes over those that
    /// ended programs have left there. Files that cannot be read stay, with a line in the log.
    void open(const QString& folder, const QString& login, const QString& store);
    /// Writes pending texts and forgets all texts: the next login must not see them.
    void close();
    /// Why the texts cannot be kept on disk now; empty when they can.
    QString errorText() const;
    /// Waits at most some seconds until everything is on disk; false if it is not.
    bool flush();

    /// Keeps a new text and returns its id; with an \a id, replaces the text of that id.
    QByteArray keep(const QString& place, const Values& values, const QByteArray& id = QByteArray(),
                    Where where = OnDisk);
    /// The text was saved or dropped. An unknown id is ignored.
    void forget(const QByteArray& id);
    /// The text is shown by \a window and is not offered to others; null: no window shows it any more.
    void hold(const QByteArray& id, QWidget* window);
    /// From now on the text is offered after all others.
    void putBehind(const QByteArray& id);

    /// The texts kept at this place that no window shows, the latest last.
    QVector<Text> offered(const QString& place) const;
    /// The texts that ended programs have left and no window has shown since, the latest last.
    QVector<Text> left() const;
    /// The current texts of visible windows below \a ancestor.
    QVector<Text> held(const QObject* ancestor);
    /// Forgets the texts that held() returns: the user does not want them. Their windows keep them again
    /// when something is typed.
    void dropHeld(const QObject* ancestor);

signals:
    /// Texts were kept or forgotten, or a window has taken or released one.
    void changed();
    /// Texts cannot be kept on disk now; \a reason is for the user. Emitted once until it works again.
    void failed(const QString& reason);
    /// For windows that hold texts: the typed text is needed now.
    void settling();
    /// For windows that hold texts: the user has dropped the text with this id.
    void heldDropped(const QByteArray& id);

private:
    struct Private;
    std::unique_ptr<Private> d;
};
