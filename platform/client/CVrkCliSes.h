#pragma once

#include "HFNCliParam.h"
#include "HfnTime.h"
#include "MDArray.h"
#include "RowChange.h"
#include "VrkExport.h"

#include <memory>
#include <QObject>
#include <vector>

class ChangeFeed;
class QTextCodec;
class Store;
class WrittenRows;
struct RecordQuery;
struct StoreError;

/// The session: the only access to the server. All requests are synchronous and end within the session's
/// deadline; a long one shows the wait cursor. No event is delivered during a request. After a missed
/// deadline the session is down, and requests fail at once until the link is restored.
///
/// SignIn creates it: it opens a store, signs a person in, and gives the application its session.
class VRK_EXPORT CVrkCliSes : public QObject
{
    Q_OBJECT

public:
    /// Takes ownership of the store; a login must be signed in there. SignIn::enter does both.
    explicit CVrkCliSes(std::unique_ptr<Store> store, QObject* parent = nullptr);
    ~CVrkCliSes() override;

    /// Code page of all texts in records.
    QTextCodec* codec() const;

    /// Runs one select (UTF-8, passed unchanged) and returns an array that the caller owns, or null.
    MDArray* SqlRequest(const char* sql);
    /// Searches the records of all workshifts with the server's full-text index. The caller owns the
    /// answer. It has the fields of LogbookRecordFields in their order, then DepartmentKey, startTime and
    /// endTime of the record's workshift; the newest record comes first. Null on failure.
    MDArray* SearchRecords(const RecordQuery& query);
    /// Writes every flagged record of \a array in order of entry, in one transaction; inside a block the
    /// records are copied and written at the end of the block. \a flag is true and \a result null in all
    /// calls. True: the rows are on the disk.
    bool SqlUpdate(const char* table, MDArray* array, bool flag, HFNCliParam** result);
    /// Sends a named packet and fills \a result at once. The only packet is "FileGet" with
    /// "<folder>;<name>" in the code page: it returns an array of one record with folder, name, size,
    /// content, or a code other than 0 if there is no such file. False: no packet has this name, or the
    /// server cannot be reached; \a result is then null.
    bool PacketExec(const char* name, const unsigned char* data, int length, HFNCliParam** result);
    /// Writes a whole named file of the server, which "FileGet" then fetches; a null \a content removes it.
    /// Requires the right "ADMINISTRATOR".
    bool writeFile(const QString& folder, const QString& name, const QByteArray& content);
    /// True when the answer has arrived; -1 waits as long as the session's deadline. Answers arrive with
    /// PacketExec, so there is nothing left to wait for.
    bool WaitResult(HFNCliParam** result, int timeout);
    /// Frees a block returned by PacketExec or takeEvents. Ignores null and blocks that are already free.
    void PrmFree(HFNCliParam* block);
    /// Opens a block: SqlUpdate calls are collected until BlockEnd. A nested block is part of the outer
    /// one: its end writes nothing yet, and dropping it drops only its own part.
    void BlockBeg();
    /// Writes the block in one transaction, in the given order, or drops it if \a commit is false. False:
    /// no block is open, or nothing was written; the block is closed in either case.
    bool BlockEnd(bool commit, HFNCliParam** result);
    /// Non-zero when the user has the right.
    int OperationRights(const char* right);
    /// Whether the server asked for a password when this session began.
    bool hasPassword() const;
    /// Asks the server whether \a password is the one of the person who is signed in. False with
    /// lastErrorText() if it is not, or if the server cannot be reached.
    bool provePassword(const QString& password);
    /// The server's current time. While the server cannot be reached, computed from its last answer.
    double GetHfnTime();
    /// The server's current time in the zone of the process.
    QDateTime HfnTimeToSesTime();
    QDateTime HfnTimeToSesTime(double time);
    /// The longest workshift that the server accepts, in seconds; 0 while unknown.
    int longestShift();
    /// The newest seal of the change log as it stands on paper: size and the first digits of the root, such as
    /// "1375 e442d9c1a0b35f77". Empty if nobody seals the store, or while the server cannot be reached.
    QString sealOnPaper();

    /// Starts the delivery of change events.
    bool startEvents();
    /// Events that wait for delivery; the receiver owns the blocks and frees them with PrmFree. Used by
    /// CVrkCliApp.
    std::vector<HFNCliParam*> takeEvents();
    /// Asks the server at once for changes; the events then wait for takeEvents. Returns their number.
    int pollEvents();
    bool isConnected() const;
    /// Information for the user about the connection, in two or three words, such as "только просмотр";
    /// usually empty.
    QString caution() const;
    /// True inside a request.
    bool isBusy() const;
    /// Number of blocks that were returned and not freed yet.
    int openBlocks() const;
    /// Fetches the bytes of one blob, such as "fileData" of "LogbookFiles"; null if the blob is null.
    bool readBlob(const QByteArray& table, const QByteArray& field, const QByteArray& key, QByteArray* bytes);
    /// The source of the bytes of a row's blob, for MDRSetBlobSource. Rows that arrive with an event have
    /// none.
    std::shared_ptr<const MDRBlobSource> blobSource(const QByteArray& table, const QByteArray& field,
                                                    const QByteArray& key);
    /// Appends all changes of a record, its comments and files from the change log, in order; also of removed
    /// ones. False on failure.
    bool recordHistory(const QByteArray& key, QVector<RowChange>* changes);
    /// The same of a workshift, with its crew and records, and the comments and files of these.
    bool workshiftHistory(const QByteArray& key, QVector<RowChange>* changes);
    /// Appends the removals of the workshifts that an administrator took out of the journal, of one department unless
    /// it is empty. What they were is in the values before. False on failure.
    bool archivedWorkshifts(const QByteArray& department, QVector<RowChange>* changes);
    /// Why the last failed request failed, in the user's words; empty after a success.
    QString lastErrorText() const;
    /// For the server scripts (CVrkToolCalcExec) and HistoryGuard only.
    Store* store() const;

signals:
    /// Change events are waiting; emitted from the event loop, never during a request.
    void eventsWaiting();
    void connectionChanged(bool connected);
    /// A request failed: \a write is true for a refused or failed write; \a reason is in Russian.
    void requestFailed(bool write, const QString& table, const QString& reason);
    /// A write has ended; comes after requestFailed if it failed. For receivers that track an unsaved text
    /// until it is written.
    void writeEnded(bool written, const WrittenRows& rows);
    /// The link broke during a write, which was reported as failed; now it is known whether the server has
    /// written it. Emitted before any other request goes to the server.
    void writeSettled(bool written);
    /// The server has a different history: modules must restart.
    void historyChanged();
    /// The changes up to the end of this transaction have arrived; \a chain is its chain hash in the log.
    void changesRead(const QByteArray& epoch, qint64 number, const QByteArray& chain);
    /// The change with this transaction number does not continue the history as the session has read it before: its
    /// chain hash is not the expected one. The change itself arrives as any other.
    void chainBroken(const QByteArray& epoch, qint64 number, const QByteArray& expected,
                     const QByteArray& found);

private:
    void connectFeed();

    struct Private;
    std::unique_ptr<Private> d;
};
