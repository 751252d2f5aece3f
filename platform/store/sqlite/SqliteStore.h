#pragma once

#include "EngineStore.h"
#include "SqliteConnection.h"
#include "SqliteTransaction.h"

struct AnswerShape;
struct RowStatement;

/// A store in one SQLite file, for the processes of one computer. It has two connections: one that writes,
/// with each transaction locked at its beginning (BEGIN IMMEDIATE), and one that can only read; in a place
/// where nothing can be written it has only the second. If the file or its log is replaced or restored, the
/// next request opens it again.
class SqliteStore : public EngineStore
{
public:
    static std::unique_ptr<Store> open(const QString& file, const Options& options, StoreError* error);

    QString caution() const override
    {
        return m_write || !m_read ? QString() : QString::fromUtf8("только просмотр");
    }

    QVector<StoreLogin> logins() override;
    bool signIn(const QString& login, StoreLogin* user, StoreError* error) override;
    QVector<StoreDepartment> departments(const QByteArray& userKey) override;
    bool hasRight(const QByteArray& right) override;
    double serverTime() override;

    MDArray* select(const QByteArray& sqlUtf8, StoreError* error) override;
    bool blob(const QByteArray& table, const QByteArray& field, const QByteArray& key, QByteArray* bytes,
              StoreError* error) override;
    bool apply(const std::vector<StoreWrite>& writes, const QByteArray& batchKey, StoreError* error) override;
    bool isWritten(const QByteArray& batchKey, bool* written, StoreError* error) override;

    bool position(ChangePosition* position, StoreError* error) override;
    bool changesAfter(ChangePosition* position, int limit, QVector<StoreChange>* changes,
                      StoreError* error) override;
    bool hasNews() override;

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
    SqliteStore(const QString& file, const Options& options) : EngineStore(options), m_file(file) {}

    bool connect(StoreError* error);
    /// Opens the file again if it was moved or replaced. Every request calls it first.
    bool ready(StoreError* error);
    /// Called before the file is opened again because its log is missing: nothing in the log is lost, and
    /// nothing is written to a log that somebody else has put there.
    bool leaveLog(SqliteConnection::Place place, StoreError* error);
    bool readProperties(SqliteConnection& connection, StoreError* error);
    bool findLogin(SqliteConnection& connection, const QString& login, StoreLogin* user,
                   StoreError* error) const;
    bool fail(const SqliteConnection& connection, StoreError* error) const;
    /// The author of these writes in the log.
    QByteArray writerName() const
    {
        return m_user.login.isEmpty() ? SqliteTransaction::account() : m_user.login.toUtf8();
    }

    /// Runs \a work in one transaction of the log; \a work ends with its close().
    bool transact(const std::function<bool(SqliteTransaction&)>& work, StoreError* error);
    bool writeRow(const RowStatement& row, StoreError* error);
    MDArray* answerOf(SqliteStatement& statement, AnswerShape* shape, StoreError* error);

    QString m_file;
    std::unique_ptr<SqliteConnection> m_write;
    std::unique_ptr<SqliteConnection> m_read;
    qint64 m_dataVersion = -1;
};
