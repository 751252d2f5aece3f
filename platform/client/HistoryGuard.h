#pragma once

#include "VrkExport.h"

#include <memory>
#include <QObject>
#include <QPointer>
#include <QTimer>

class CVrkCliSes;
class HistoryMemory;

/// Compares the history of the session's store with what this workstation has seen of it: at the start, when the link
/// or another history comes, and now and then; each change in between must continue the one before it. The journal works on while an alarm stands.
class VRK_EXPORT HistoryGuard : public QObject
{
    Q_OBJECT

public:
    /// What has become of the history, in the user's words; an empty text means no alarm.
    struct Alarm {
        QString text;
        QString remembered; ///< what this workstation has seen
        QString found;      ///< what the store has instead
        QString time;       ///< when it was found
    };

    /// The memory is a file of the folder for the store at \a url. Compares for the first time from the event loop.
    HistoryGuard(CVrkCliSes* session, const QString& folder, const QString& url, QObject* parent = nullptr);
    /// Remembers the end of the changes that have arrived.
    ~HistoryGuard() override;

    /// Compares now, unless a request runs or there is no link.
    void look();
    Alarm alarm() const { return m_alarm; }
    /// Whether an administrator gives a password to confirm.
    bool wantsPassword() const;
    /// Ends the alarm: \a user agrees, and \a login has the right "ADMINISTRATOR", which the store confirms. False with
    /// \a reason.
    bool confirm(const QString& login, const QString& password, const QString& user, QString* reason);

signals:
    /// An alarm was raised or confirmed.
    void changed();
    /// Information that needs no answer: a restore, or a memory that cannot be written.
    void noticed(const QString& text);

private:
    void takeBreak(const QByteArray& epoch, qint64 number, const QByteArray& expected,
                   const QByteArray& found);
    void setAlarm(const Alarm& alarm);

    QPointer<CVrkCliSes> m_session;
    QString m_url;
    std::unique_ptr<HistoryMemory> m_memory;
    Alarm m_alarm;
    QTimer m_timer;
    QString m_toldError; ///< the last failure of the memory that was noticed
};
