#pragma once

#include "HFNCliParam.h"
#include "HfnTime.h"
#include "MDArray.h"
#include "VrkExport.h"

#include <QObject>
#include <memory>
#include <vector>

class ChangeFeed;
class QTextCodec;
class Store;
struct StoreError;

/// The session: the only road to the server. All requests are synchronous and answer within the session's deadline; a
/// long one shows the wait cursor and no event is delivered from inside it. After a missed deadline the session is
/// down and requests fail at once until the link is found again.
class VRK_EXPORT CVrkCliSes : public QObject
{
    Q_OBJECT

public:
    /// Takes the store over; a login must be signed in there.
    explicit CVrkCliSes(std::unique_ptr<Store> store, QObject* parent = nullptr);
    ~CVrkCliSes() override;

    /// Code page of all texts in records.
    QTextCodec* codec() const;

    /// Runs a select (UTF-8) and returns an array that the caller owns, or null.
    MDArray* SqlRequest(const char* sql);
    /// Writes every flagged record of \a array in order of entry, in one transaction; inside a block the records are
    /// copied and written at its end. \a flag is true and \a result null in all calls. True: the rows are on the disk.
    bool SqlUpdate(const char* table, MDArray* array, bool flag, HFNCliParam** result);
    /// Sends a named packet; \a result is filled at once or by WaitResult. The only packet is "FileGet".
    bool PacketExec(const char* name, const unsigned char* data, int length, HFNCliParam** result);
    /// Waits for the answer; -1 waits as long as the session's deadline.
    bool WaitResult(HFNCliParam** result, int timeout);
    /// Frees a block of PacketExec or WaitResult.
    void PrmFree(HFNCliParam* block);
    /// Opens a block: SqlUpdate calls are collected until BlockEnd.
    void BlockBeg();
    /// Writes the block in one transaction, or drops it when \a commit is false. False: nothing was written.
    bool BlockEnd(bool commit, HFNCliParam** result);
    /// Non-zero when the user has the right.
    int OperationRights(const char* right);
    /// The server's present time.
    double GetHfnTime();
    /// The server's present time in the zone of the process.
    QDateTime HfnTimeToSesTime();
    QDateTime HfnTimeToSesTime(double time);

    /// Starts the delivery of change events.
    bool startEvents();
    /// Events that wait for delivery; the receiver owns the blocks and frees them with PrmFree. Used by CVrkCliApp.
    std::vector<HFNCliParam*> takeEvents();
    bool isConnected() const;
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
    /// The history of the server is another one: modules must start anew.
    void historyChanged();

private:
    struct Private;
    std::unique_ptr<Private> d;
};
