#pragma once

#include "EngineStore.h"
#include "PgConnection.h"

struct AnswerShape;
struct RowStatement;

/// A store in a database of a PostgreSQL server, for the workstations of a site. One connection, which also
/// receives the notifications of the change log. Persons are roles of the server, so writes are judged by
/// the name that the connection was authenticated with.
///
/// A lost connection is restored automatically: a request waits for it as long as for an answer, the
/// reading of changes only for a moment, so that a window stays responsive while its server is away.
class PostgresStore : public EngineStore
{
public:
    static std::unique_ptr<Store> open(const QString& url, const Options& options, StoreError* error);

    QString caution() const override { return m_link.caution(); }

    QVector<StoreLogin> logins() override;
    bool signIn(const QString& login, StoreLogin* user, StoreError* error) override;
    bool hasPassword() const override { return m_link.hasUsedPassword(); }
    bool provePassword(const QString& password, StoreError* error) override;
    QVector<StoreDepartment> departments(const QByteArray& userKey) override;
    bool hasRight(const QByteArray& right) override;
    double serverTime() override;

    MDArray* select(const QByteArray& sqlUtf8, StoreError* error) override;
    bool blob(const QByteArray& table, const QByteArray& field, const QByteArray& key, QByteArray* bytes,
              StoreError* error) override;
    /// Tries again after a deadlock, and if the connection is lost and restored within the deadline: the
    /// batch key makes sure that the batch is written once.
    bool apply(const std::vector<StoreWrite>& writes, const QByteArray& batchKey, StoreError* error) override;
    bool isWritten(const QByteArray& batchKey, bool* written, StoreError* error) override;

    bool position(ChangePosition* position, StoreError* error) override;
    bool changesAfter(ChangePosition* position, int limit, QVector<StoreChange>* changes,
                      StoreError* error) override;
    bool hasNews() override;
    int newsDescriptor() const override { return m_link.descriptor(); }

    std::unique_ptr<EvidenceLog> evidence(Access access, StoreError* error) override;

    bool file(const QString& folder, const QString& name, QByteArray* content, StoreError* error) override;
    bool writeFile(const QString& folder, const QString& name, const QByteArray& content,
                   StoreError* error) override;

    bool beginRead(StoreError* error) override;
    void endRead() override;
    qint64 rowCount(const QByteArray& table) override;
    qint64 seek(const QByteArray& table, int key, const QVariantList& values, bool* exact) override;
    QVariantMap row(const QByteArray& table, int key, qint64 index) override;

protected:
    MDArray* searchIndex(const RecordQuery& query, StoreError* error) override;

private:
    PostgresStore(const QString& url, const Options& options);

    /// Connects if needed, for at most \a waitMs, and starts the deadline. Every request calls it first.
    bool ready(StoreError* error, int waitMs, int deadlineMs);
    bool ready(StoreError* error) { return ready(error, m_link.connectMs(), m_options.deadlineMs); }
    /// The same for work that nobody waits for: the window must stay responsive.
    bool readyAside(StoreError* error) { return ready(error, 50, 3000); }
    /// Checks every new connection: it must lead to this store, with the signed-in login.
    bool greet(StoreError* error);
    bool becomePerson(const QString& login, StoreError* error);
    /// Ends the server process of the previous connection if it still exists: a commit sent to it may be
    /// unread. Remembers the server process of this connection.
    bool relieve(StoreError* error);
    /// The error of a batch whose commit was sent and never answered.
    StoreError unsettledError(const StoreError& loss) const;

    /// \a limitMs is the deadline of each row, and of the commit.
    bool writeAll(const std::vector<StoreWrite>& writes, const QByteArray& batchKey, int limitMs,
                  StoreError* error);
    bool writeRow(const RowStatement& row, StoreError* error);

    MDArray* readCursor(const QByteArray& sql, StoreError* error);
    bool declareCursor(const QByteArray& sql, StoreError* error);
    AnswerShape shapeOf(const PgResult& description, const QByteArray& sql) const;

    PgConnection m_link;
    /// Table and field by the server's numbers.
    QHash<QPair<Oid, int>, QPair<QByteArray, QByteArray>> m_columns;
    bool m_isSuperuser = false;
    QString m_loginOfUrl;
    bool m_hasNews = false;
    bool m_isUnsettled = false; ///< the answer to a commit is missing
    qint64 m_backend = 0;       ///< process id of the connection's server process
    QByteArray m_backendStart;  ///< its start time: process ids are reused
    QElapsedTimer m_sinceRead;  ///< of the change log
};
