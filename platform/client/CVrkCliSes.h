#pragma once

#include "HFNCliParam.h"
#include "HfnTime.h"
#include "MDArray.h"
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

/// The session: the only road to the server. All requests are synchronous and answer within the session's
/// deadline; a long one shows the wait cursor and no event is delivered from inside it. After a missed
/// deadline the session is down and requests fail at once until the link is found again.
///
/// SignIn is the door to it: it opens a store, signs a person in, and gives the application its session.
class VRK_EXPORT CVrkCliSes : public QObject
{
    Q_OBJECT

public:
    /// Takes the store over; a login must be signed in there. SignIn::enter does both.
    explicit CVrkCliSes(std::unique_ptr<Store> store, QObject* parent = nullptr);
    ~CVrkCliSes() override;

    /// Code page of all texts in records.
    QTextCodec* codec() const;

    /// Runs one select (UTF-8) as it stands and returns an array that the caller owns, or null.
    MDArray* SqlRequest(const char* sql);
    /// Looks for records in all workshifts by the server's full-text index. The answer, which the caller owns, has the
    /// fields of LogbookRecordFields in their order, then DepartmentKey, startTime and endTime of the record's
    /// workshift; the newest record comes first. Null on failure.
    MDArray* SearchRecords(const RecordQuery& query);
    /// Writes every flagged record of \a array in order of entry, in one transaction; inside a block the
    /// records are copied and written at its end. \a flag is true and \a result null in all calls. True: the
    /// rows are on the disk.
    bool SqlUpdate(const char* table, MDArray* array, bool flag, HFNCliParam** result);
    /// Sends a named packet and fills \a result at once. The only packet is "FileGet" with "<folder>;<name>"
    /// in the code page: an array of one record with folder, name, size, content; a code other than 0 when
    /// there is no such file. False: no packet of this name, or the server cannot be reached; \a result is
    /// null then.
    bool PacketExec(const char* name, const unsigned char* data, int length, HFNCliParam** result);
    /// Writes a named file of the server whole, which "FileGet" then fetches; a null \a content removes it. Only for who
    /// has the right "ADMINISTRATOR".
    bool writeFile(const QString& folder, const QString& name, const QByteArray& content);
    /// True when the answer is there; -1 waits as long as the session's deadline. Answers arrive with
    /// PacketExec, so there is nothing left to wait for.
    bool WaitResult(HFNCliParam** result, int timeout);
    /// Frees a block that PacketExec or takeEvents gave out. Null, and a block that is free already, are
    /// passed over.
    void PrmFree(HFNCliParam* block);
    /// Opens a block: SqlUpdate calls are collected until BlockEnd. A block inside a block is a part of it:
    /// its end writes nothing yet, and dropping it drops its own part only.
    void BlockBeg();
    /// Writes the block in one transaction, in the order given, or drops it when \a commit is false. False:
    /// no block is open, or nothing was written; the block is closed either way.
    bool BlockEnd(bool commit, HFNCliParam** result);
    /// Non-zero when the user has the right.
    int OperationRights(const char* right);
    /// The server's present time. While the server cannot be reached: reckoned on from the last answer.
    double GetHfnTime();
    /// The server's present time in the zone of the process.
    QDateTime HfnTimeToSesTime();
    QDateTime HfnTimeToSesTime(double time);
    /// The longest workshift that the server takes, in seconds; 0 while it is not known.
    int longestShift();

    /// Starts the delivery of change events.
    bool startEvents();
    /// Events that wait for delivery; the receiver owns the blocks and frees them with PrmFree. Used by
    /// CVrkCliApp.
    std::vector<HFNCliParam*> takeEvents();
    /// Asks the server at once what has changed; the events then wait for takeEvents. Returns their number.
    int pollEvents();
    bool isConnected() const;
    /// What the user should know of the connection, in two or three words, such as "только просмотр"; mostly empty.
    QString caution() const;
    /// True inside a request.
    bool isBusy() const;
    /// Blocks that were given out and not freed yet.
    int openBlocks() const;
    /// Fetches the bytes of one blob, such as "fileData" of "LogbookFiles"; null for a null one.
    bool readBlob(const QByteArray& table, const QByteArray& field, const QByteArray& key, QByteArray* bytes);
    /// For MDRSetBlobSource: where the bytes of a row's blob come from. Rows that arrive with an event carry
    /// none.
    std::shared_ptr<const MDRBlobSource> blobSource(const QByteArray& table, const QByteArray& field,
                                                    const QByteArray& key);
    /// Why the last failed request failed, in the user's words; empty after a success.
    QString lastErrorText() const;
    /// For the server scripts (CVrkToolCalcExec) only.
    Store* store() const;

signals:
    /// Change events wait; sent from the event loop, never from inside a request.
    void eventsWaiting();
    void connectionChanged(bool connected);
    /// A request failed: \a write tells a refused or failed write; \a reason is in Russian.
    void requestFailed(bool write, const QString& table, const QString& reason);
    /// A write has ended, after requestFailed when it failed: for whoever follows what was not written until it is.
    void writeEnded(bool written, const WrittenRows& rows);
    /// The link broke while the server was writing, and the write was told as failed: now it is known whether the server
    /// had written it. Sent before any other request goes to the server.
    void writeSettled(bool written);
    /// The history of the server is another one: modules must start anew.
    void historyChanged();

private:
    void connectFeed();

    struct Private;
    std::unique_ptr<Private> d;
};
