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

class EvidenceLog;
class QTextCodec;

/// A position in the change log. Numbers are contiguous within an epoch, one for each transaction, in order
/// of commit; the epoch changes when the history changes (a restore).
struct ChangePosition {
    /// A transaction that does not continue the log as it was read before it.
    struct Break {
        qint64 number = 0;   ///< 0: none
        QByteArray expected; ///< its chain hash, computed from what was read
        QByteArray found;    ///< the one in the log
    };

    QByteArray epoch;
    qint64 number = 0;
    QByteArray chain; ///< the chain hash after the transaction; empty if unknown: then the next one counts
    Break broken;     ///< the first one found; the reader of the log takes it away
};

/// One changed row of the change log.
struct StoreChange {
    qint64 number = 0; ///< of the transaction
    int event = 0;     ///< 601 inserted, 602 changed, 603 deleted
    QByteArray table;  ///< its declared name
    QByteArray key;    ///< KeyLink of the row
    /// For MDRRecSet: all fields in order, marks on the changed ones; empty for 603. Blobs are null, and
    /// marked if they changed: Store::blob fetches the bytes by key.
    QByteArray packedRecord;
};

/// A login that the store knows.
struct StoreLogin {
    QByteArray key; ///< row of Users
    QString login;
    QString name; ///< person's name as shown
};

/// A department in which a login has a current row in Workers.
struct StoreDepartment {
    QByteArray key;
    QString name;
    QByteArray organizationKey;
    QString organizationName;
};

/// Flagged records of one table, in the order in which they will be written.
struct StoreWrite {
    QByteArray table;
    const MDArray* records = nullptr;
};

/// Everything that a session needs from a database. One connection, one thread. Texts in records are bytes
/// of the store's code page; the database holds Unicode, and the store converts both ways.
class Store
{
public:
    struct Options {
        int deadlineMs = 15000;     ///< of one request
        bool createMissing = false; ///< only StoreAdmin::init creates stores
        bool loader = false;        ///< the role of imports and demo data; the rules of the journal do not
                                    ///< apply
        QString login;              ///< for a server: replaces the one in the address unless empty
        QString
            password; ///< for a server; empty: the one that the machine keeps for it (.pgpass, PGPASSWORD),
                      ///< or none
        qint64 memoryGuard = Q_INT64_C(2) << 30; ///< maximum size of one select's answer in bytes
    };

    /// Opens "sqlite:///absolute/path" or "postgresql://...". Null with \a error on failure.
    static std::unique_ptr<Store> open(const QString& url, const Options& options, StoreError* error);
    virtual ~Store() = default;

    /// Called on this thread repeatedly during a long request, to show activity on the screen. It must not
    /// call the store or run an event loop.
    void setProgress(std::function<void()> progress) { m_progress = std::move(progress); }

    /// Code page of the texts in records; a property of the store.
    virtual QTextCodec* codec() const = 0;
    /// IANA name of the time zone in which the store's times are shown and typed.
    virtual QByteArray timeZone() const = 0;

    /// Information for the user about this connection, in two or three words, such as "только просмотр";
    /// empty if there is none.
    virtual QString caution() const { return QString(); }

    /// The logins that may be chosen without a password; empty if the engine has its own authentication,
    /// unless the address is that of its administrator, who may act as anybody.
    virtual QVector<StoreLogin> logins() = 0;
    /// Makes \a login the one that writes are judged by and logged under. False: no such login. An empty
    /// login means the one in the address.
    virtual bool signIn(const QString& login, StoreLogin* user, StoreError* error) = 0;
    /// Whether a password opened this connection, so that provePassword() can ask for it again.
    virtual bool hasPassword() const { return false; }
    /// Proves over a connection of its own that \a password is the one of this connection's login. False with
    /// Password if it is not.
    virtual bool provePassword(const QString& password, StoreError* error);
    /// Departments of a login, sorted by name.
    virtual QVector<StoreDepartment> departments(const QByteArray& userKey) = 0;
    virtual bool hasRight(const QByteArray& right) = 0;
    /// The server's current time as HfnTime; 0 if unavailable.
    virtual double serverTime() = 0;
    /// The longest workshift that the store accepts, in seconds; 0 if unavailable.
    virtual int longestShift();

    /// \a text as a literal of statements.
    static QByteArray literal(const QByteArray& text);

    /// Runs one select, read-only and unchanged. The answer, owned by the caller, has the declared field
    /// names and types and the order-of-entry key, also if it has no rows. Blobs stay in the store until
    /// they are read.
    virtual MDArray* select(const QByteArray& sqlUtf8, StoreError* error) = 0;
    /// The records that match a query, of all departments that it allows, the newest first. The answer,
    /// owned by the caller, has the fields of LogbookRecords in their order, then DepartmentKey, startTime
    /// and endTime of the workshift; and the order-of-entry key.
    virtual MDArray* search(const RecordQuery& query, StoreError* error) = 0;
    /// Fetches the bytes of one blob, such as "fileData" of "LogbookFiles"; a null blob gives a null
    /// QByteArray. False if there is no such row or the store does not answer.
    virtual bool blob(const QByteArray& table, const QByteArray& field, const QByteArray& key,
                      QByteArray* bytes, StoreError* error) = 0;
    /// Writes all batches in one transaction, in their order. \a batchKey is kept in the change log and
    /// makes a repeated call with the same key do nothing. Success means that the data is on the disk.
    /// Without a flagged record there is nothing to do: success, and no transaction.
    virtual bool apply(const std::vector<StoreWrite>& writes, const QByteArray& batchKey,
                       StoreError* error) = 0;
    /// The outcome of a batch whose apply() ended with Unsettled. The answer is final: if it is not written
    /// by now, it never will be. False if the store cannot be reached.
    virtual bool isWritten(const QByteArray& batchKey, bool* written, StoreError* error) = 0;

    /// The current end of the change log.
    virtual bool position(ChangePosition* position, StoreError* error) = 0;
    /// Appends the changes after \a position, whole transactions in order of commit, about \a limit rows at
    /// most, and advances the position. False with Lost, or with NotAStore if the history is different or
    /// the log no longer reaches back that far.
    virtual bool changesAfter(ChangePosition* position, int limit, QVector<StoreChange>* changes,
                              StoreError* error) = 0;
    /// Cheap: true if somebody may have written since the last call.
    virtual bool hasNews() = 0;
    /// Readable when hasNews() should be called; the same for the store's lifetime. -1 if there is none, so
    /// that hasNews() must be polled.
    virtual int newsDescriptor() const { return -1; }

    enum class Access { Read, Write };
    /// The change log for the evidence, over a connection of its own with the credentials of this one: one
    /// consistent reading from now on, so do not keep it longer than needed. Null with \a error on failure; the
    /// error must outlive the object.
    virtual std::unique_ptr<EvidenceLog> evidence(Access access, StoreError* error) = 0;

    /// A named file of the store, such as folder "options", name "OperLogOptions". False if it does not
    /// exist.
    virtual bool file(const QString& folder, const QString& name, QByteArray* content, StoreError* error) = 0;
    /// Writes a whole named file; a null \a content removes it. Requires the right "ADMINISTRATOR".
    virtual bool writeFile(const QString& folder, const QString& name, const QByteArray& content,
                           StoreError* error) = 0;

    /// \name Access for server scripts: a table ordered by one of the keys that the store declares for it
    /// (key 0 is KeyLink, key 1 of LogbookWorkshifts is "DepartmentKey;startTime:0x4"), within one
    /// consistent read.
    /// @{
    virtual bool beginRead(StoreError* error) = 0;
    virtual void endRead() = 0;
    virtual qint64 rowCount(const QByteArray& table) = 0;
    /// Index of the first row that is not ordered before \a values; rowCount() if there is none.
    virtual qint64 seek(const QByteArray& table, int key, const QVariantList& values, bool* exact) = 0;
    /// Fields of the row at an index by declared name; texts as Unicode, null fields invalid.
    virtual QVariantMap row(const QByteArray& table, int key, qint64 index) = 0;
    /// @}

protected:
    std::function<void()> m_progress; ///< may be empty
};
