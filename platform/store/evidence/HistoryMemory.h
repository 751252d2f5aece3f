#pragma once

#include "LogHead.h"

#include <functional>
#include <QJsonObject>
#include <QString>

class EvidenceLog;
class EpochHistory;

/// What a workstation remembers of the history of a store, in a file of its user that is only ever appended: the
/// keys that sign its heads, signed heads, and ends of the change log with their chain hashes. check() compares the
/// store with it. It reads a number of hashes that grows with the logarithm of the log only.
class HistoryMemory
{
public:
    enum Finding {
        AsBefore,   ///< the history contains everything that was seen
        FirstSeen,  ///< nothing was remembered
        Restored,   ///< the log itself says that a copy took its place
        Altered,    ///< something that was seen is not contained: an alarm
        OtherStore, ///< the history has nothing in common with the remembered one: an alarm
    };
    struct Report {
        Finding finding = AsBefore;
        QString text;       ///< the reason in the user's words; empty for AsBefore and FirstSeen
        QString remembered; ///< heads or ends of the log, for a person to compare
        QString found;
        QString time; ///< when it was found, ISO, UTC

        bool isAlarm() const { return finding == Altered || finding == OtherStore; }
    };

    /// The file, which belongs to one store, need not exist.
    explicit HistoryMemory(const QString& file) : m_file(file) {}

    /// Compares the log with what is remembered, and remembers its present state. \a published are the keys that the
    /// store names (VerifierKey::parseAll). While an alarm stands, it is the answer and nothing is compared or
    /// remembered. False if the log cannot be read. A memory that cannot be written is no failure: errorText().
    bool check(EvidenceLog& log, const QByteArray& published, Report* report);
    /// The change feed read a transaction that does not continue what was read before it: its chain hash should be
    /// \a expected. An alarm, which is remembered; the answer is the one that stood before, if there is one.
    Report takeBreak(const QByteArray& epoch, qint64 number, const QByteArray& expected,
                     const QByteArray& found);
    /// The change feed has read the log up to the end of this transaction: from now on check() compares it too.
    void follow(const QByteArray& epoch, qint64 number, const QByteArray& chain);
    /// Remembers in the file what follow() took last, for the next start. Nothing while an alarm stands, or if the memory
    /// was emptied.
    void keepFollowed();
    /// The alarm that stands; AsBefore if there is none.
    Report alarm();
    /// Ends the alarm: from now on the present history counts. False if it cannot be written.
    bool confirm(const QString& administrator, const QString& user);
    /// Why the file cannot be read or written, in the user's words; empty if it can.
    QString errorText() const { return m_errorText; }

private:
    /// An end of the log as it was seen.
    struct End {
        QByteArray epoch;
        qint64 number = 0;
        QByteArray chain;

        bool operator==(const End& other) const
        {
            return epoch == other.epoch && number == other.number && chain == other.chain;
        }
    };

    /// Takes what was appended since the last time, also by another program of the user.
    void load();
    void forget();
    void take(const QJsonObject& entry);
    bool append(const QVector<QJsonObject>& entries);
    static QJsonObject endEntry(const char* kind, const End& end);
    static QJsonObject alarmEntry(const Report& report);
    bool fail(const QString& reason);
    void raise(Report* report, Finding finding, const QString& text, const QString& remembered,
               const QString& found) const;
    /// Whether the present epoch continues those remembered, or the log names them.
    bool knowsEpochs(const EpochHistory& epochs, Report* report) const;
    bool compareEnds(EvidenceLog& log, const EpochHistory& epochs, const End& present, Report* report) const;
    bool compareEnd(EvidenceLog& log, const End& end, const End& present, Report* report) const;
    bool compareHeads(EvidenceLog& log, const EpochHistory& epochs, const QByteArray& published,
                      const End& present, Report* report, QVector<QJsonObject>* news);
    bool isKnown(const VerifierKey& key) const;
    /// Takes keys that a head with a known signature has signed as well.
    void meetKeys(const SignedNote& note, const QVector<VerifierKey>& offered, QVector<QJsonObject>* news);

    QString m_file;
    qint64 m_read = 0; ///< bytes of the file that are taken
    QString m_errorText;
    bool m_isMet = false; ///< something is remembered
    QVector<VerifierKey> m_keys;
    QVector<LogHead> m_heads;
    QVector<End> m_ends;   ///< compared with the log when they were remembered
    End m_followed;        ///< the end of what the feed has read, not in the file; number 0: none
    End m_kept;            ///< the same of an earlier time, from the file
    QByteArray m_restored; ///< the last epoch that a notice named
    Report m_alarm;
};
