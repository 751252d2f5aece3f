#pragma once

#include "MDArray.h"
#include "RecordQuery.h"
#include "StoreError.h"

#include <functional>
#include <memory>
#include <QByteArray>
#include <QString>
#include <QVariant>
#include <QVector>
#include <vector>

class QTextCodec;

/// Where a reader of the change log stands. Numbers are contiguous within an epoch, one for each transaction,
/// in the order of commits; the epoch changes when the history is another (a restore).
struct ChangePosition {
    QByteArray epoch;
    qint64 number = 0;
};

/// One changed row out of the change log.
struct StoreChange {
    qint64 number = 0; ///< of the transaction
    int event = 0;     ///< 601 inserted, 602 changed, 603 deleted
    QByteArray table;  ///< its declared name
    QByteArray key;    ///< KeyLink of the row
    /// For MDRRecSet: all fields in order, marks on the changed ones; empty for 603. Blobs are null in it,
    /// marked when they changed: Store::blob fetches the bytes by key.
    QByteArray packedRecord;
};

/// A login that the store knows.
struct StoreLogin {
    QByteArray key; ///< row of Users
    QString login;
    QString name; ///< person's name as shown
};

/// A department in which a login has a live row in Workers.
struct StoreDepartment {
    QByteArray key;
    QString name;
    QByteArray organizationKey;
    QString organizationName;
};

/// Flagged records of one table, in the order in which they are to be written.
struct StoreWrite {
    QByteArray table;
    const MDArray* records = nullptr;
};

/// Everything that a session asks of a database. One connection, one thread. Texts in records are bytes of
/// the store's code page; the database holds Unicode, and the store converts both ways.
class Store
{
public:
    struct Options {
        int deadlineMs = 15000;     ///< of one request
        bool createMissing = false; ///< only StoreAdmin::init makes new stores
        bool loader = false;        ///< the role of imports and demo data, outside the rules of the journal
        QString login;              ///< for a server, instead of the one in the address; empty: that one
        QString
            password; ///< for a server; empty: what the machine keeps for it (.pgpass, PGPASSWORD), or none
        qint64 memoryGuard = Q_INT64_C(2) << 30; ///< bytes that the answer of one select may hold
    };

    /// Opens "sqlite:///absolute/path" or "postgresql://...". Null, and \a error says why.
    static std::unique_ptr<Store> open(const QString& url, const Options& options, StoreError* error);
    virtual ~Store() = default;

    /// Called on this thread now and then while a request takes its time, for a sign of life on the screen.
    /// It must not call the store and run no event loop.
    void setProgress(std::function<void()> progress) { m_progress = std::move(progress); }

    /// Code page of the texts in records; a property of the store.
    virtual QTextCodec* codec() const = 0;
    /// IANA name of the time zone in which the store's times are shown and typed.
    virtual QByteArray timeZone() const = 0;

    /// What the user should know of this connection as long as it lasts, in two or three words, such as "только
    /// просмотр"; empty when there is nothing to know.
    virtual QString caution() const { return QString(); }

    /// The logins that may be chosen without a password; empty where the engine has its own authentication, unless
    /// the address is that of its administrator, who may be anybody.
    virtual QVector<StoreLogin> logins() = 0;
    /// Makes \a login the one that writes are judged by and logged under. False: no such login. An empty one stands
    /// for that of the address.
    virtual bool signIn(const QString& login, StoreLogin* user, StoreError* error) = 0;
    /// Departments of a login, by name.
    virtual QVector<StoreDepartment> departments(const QByteArray& userKey) = 0;
    virtual bool hasRight(const QByteArray& right) = 0;
    /// The server's present time as HfnTime; 0 when it cannot be had.
    virtual double serverTime() = 0;
    /// The longest workshift that the store takes, in seconds; 0 when it cannot be had.
    virtual int longestShift();

    /// Runs one select, read-only, as it stands. The answer, owned by the caller, has the declared field
    /// names and types and the order-of-entry key, also when it has no rows. Blobs stay in the store until
    /// they are read.
    virtual MDArray* select(const QByteArray& sqlUtf8, StoreError* error) = 0;
    /// The records that answer a query, of all departments that the query lets in, the newest first. The answer, owned
    /// by the caller, has the fields of LogbookRecords in their order, then DepartmentKey, startTime and endTime of the
    /// workshift; and the order-of-entry key.
    virtual MDArray* search(const RecordQuery& query, StoreError* error) = 0;
    /// Fetches the bytes of one blob, such as "fileData" of "LogbookFiles"; a null one is a null QByteArray.
    /// False when there is no such row or the store does not answer.
    virtual bool blob(const QByteArray& table, const QByteArray& field, const QByteArray& key,
                      QByteArray* bytes, StoreError* error) = 0;
    /// Writes all batches in one transaction, in their order. \a batchKey is kept in the change log and makes
    /// a repeated call with the same key do nothing. Success means: on the disk. Without a flagged record
    /// there is nothing to do: success, and no transaction.
    virtual bool apply(const std::vector<StoreWrite>& writes, const QByteArray& batchKey,
                       StoreError* error) = 0;
    /// What has become of a batch whose apply() has ended with Unsettled. The answer is final: what is not written by
    /// then never will be. False when the store cannot be reached.
    virtual bool isWritten(const QByteArray& batchKey, bool* written, StoreError* error) = 0;

    /// The end of the change log at this moment.
    virtual bool position(ChangePosition* position, StoreError* error) = 0;
    /// Appends the changes after \a position, whole transactions in order of commit, at most about \a limit
    /// rows, and moves the position on. False with Lost, or with NotAStore when the history is another one or the
    /// log no longer reaches back that far.
    virtual bool changesAfter(ChangePosition* position, int limit, QVector<StoreChange>* changes,
                              StoreError* error) = 0;
    /// Cheap: true when somebody may have written since the last call.
    virtual bool hasNews() = 0;
    /// Readable when hasNews() should be asked; the same for the store's life. -1 where there is none, so that it has
    /// to be asked again and again.
    virtual int newsDescriptor() const { return -1; }

    /// A named file of the store, such as folder "options", name "OperLogOptions". False when it is not
    /// there.
    virtual bool file(const QString& folder, const QString& name, QByteArray* content, StoreError* error) = 0;
    /// Writes a named file whole; a null \a content removes it. Only for who has the right "ADMINISTRATOR".
    virtual bool writeFile(const QString& folder, const QString& name, const QByteArray& content,
                           StoreError* error) = 0;

    /// \name What server scripts see: a table ordered by one of the keys that the store declares for it (key
    /// 0 is KeyLink, key 1 of LogbookWorkshifts is "DepartmentKey;startTime:0x4"), within one consistent
    /// read.
    /// @{
    virtual bool beginRead(StoreError* error) = 0;
    virtual void endRead() = 0;
    virtual qint64 rowCount(const QByteArray& table) = 0;
    /// Index of the first row that is not ordered before \a values; rowCount() when all are.
    virtual qint64 seek(const QByteArray& table, int key, const QVariantList& values, bool* exact) = 0;
    /// Fields of the row at an index by declared name; texts as Unicode, null fields invalid.
    virtual QVariantMap row(const QByteArray& table, int key, qint64 index) = 0;
    /// @}

protected:
    std::function<void()> m_progress; ///< may be empty
};
