#pragma once

#include "EvidenceLog.h"
#include "Store.h"

#include <functional>
#include <QList>

/// A real store whose next requests fail on request, and whose clock may differ from that of the
/// workstation.
class FailingStore : public Store
{
public:
    /// Shared by the test and the store, which belongs to the session.
    struct Plan {
        int refusedWrites = 0;          ///< number of next writes to be refused; nothing is written
        int lostAnswers = 0;            ///< number of next writes to be done without an answer
        int failedSelects = 0;          ///< number of next selects to fail
        int writes = 0;                 ///< number of writes so far
        double clockAhead = 0;          ///< seconds that the server's clock is ahead of the real one
        QList<QByteArray> selects;      ///< selects so far
        std::function<void()> onSelect; ///< called at each select, before it fails or not
    };

    FailingStore(std::unique_ptr<Store> store, std::shared_ptr<Plan> plan)
        : m_store(std::move(store)), m_plan(std::move(plan))
    {
    }

    static QString refusal() { return QStringLiteral("Диск хранилища переполнен."); }
    static QString loss() { return QStringLiteral("Нет связи с хранилищем."); }

    QTextCodec* codec() const override { return m_store->codec(); }
    QByteArray timeZone() const override { return m_store->timeZone(); }
    QVector<StoreLogin> logins() override { return m_store->logins(); }
    bool signIn(const QString& login, StoreLogin* user, StoreError* error) override
    {
        return m_store->signIn(login, user, error);
    }
    bool hasPassword() const override { return m_store->hasPassword(); }
    bool provePassword(const QString& password, StoreError* error) override
    {
        return m_store->provePassword(password, error);
    }
    QVector<StoreDepartment> departments(const QByteArray& userKey) override
    {
        return m_store->departments(userKey);
    }
    bool hasRight(const QByteArray& right) override { return m_store->hasRight(right); }
    double serverTime() override { return m_store->serverTime() + m_plan->clockAhead; }
    int longestShift() override { return m_store->longestShift(); }
    MDArray* select(const QByteArray& sql, StoreError* error) override
    {
        m_plan->selects.append(sql);
        if (m_plan->onSelect)
            m_plan->onSelect();
        if (m_plan->failedSelects-- > 0) {
            *error = {StoreError::Locked, refusal(), QString()};
            return nullptr;
        }
        m_plan->failedSelects = 0;
        return m_store->select(sql, error);
    }
    MDArray* search(const RecordQuery& query, StoreError* error) override
    {
        if (m_plan->failedSelects-- > 0) {
            *error = {StoreError::Locked, refusal(), QString()};
            return nullptr;
        }
        m_plan->failedSelects = 0;
        return m_store->search(query, error);
    }
    bool blob(const QByteArray& table, const QByteArray& field, const QByteArray& key, QByteArray* bytes,
              StoreError* error) override
    {
        return m_store->blob(table, field, key, bytes, error);
    }
    bool apply(const std::vector<StoreWrite>& writes, const QByteArray& batchKey, StoreError* error) override
    {
        ++m_plan->writes;
        if (m_plan->refusedWrites > 0) {
            --m_plan->refusedWrites;
            *error = {StoreError::Full, refusal(), QString()};
            return false;
        }
        if (!m_store->apply(writes, batchKey, error))
            return false;
        if (m_plan->lostAnswers > 0) {
            --m_plan->lostAnswers;
            *error = {StoreError::Lost, loss(), QString()};
            return false;
        }
        return true;
    }
    bool isWritten(const QByteArray& batchKey, bool* written, StoreError* error) override
    {
        return m_store->isWritten(batchKey, written, error);
    }
    bool position(ChangePosition* position, StoreError* error) override
    {
        return m_store->position(position, error);
    }
    bool changesAfter(ChangePosition* position, int limit, QVector<StoreChange>* changes,
                      StoreError* error) override
    {
        return m_store->changesAfter(position, limit, changes, error);
    }
    bool hasNews() override { return m_store->hasNews(); }
    std::unique_ptr<EvidenceLog> evidence(Access access, StoreError* error) override
    {
        if (m_plan->failedSelects-- > 0) {
            *error = {StoreError::Locked, refusal(), QString()};
            return nullptr;
        }
        m_plan->failedSelects = 0;
        return m_store->evidence(access, error);
    }
    bool file(const QString& folder, const QString& name, QByteArray* content, StoreError* error) override
    {
        return m_store->file(folder, name, content, error);
    }
    bool writeFile(const QString& folder, const QString& name, const QByteArray& content,
                   StoreError* error) override
    {
        return m_store->writeFile(folder, name, content, error);
    }
    bool beginRead(StoreError* error) override { return m_store->beginRead(error); }
    void endRead() override { m_store->endRead(); }
    qint64 rowCount(const QByteArray& table) override { return m_store->rowCount(table); }
    qint64 seek(const QByteArray& table, int key, const QVariantList& values, bool* exact) override
    {
        return m_store->seek(table, key, values, exact);
    }
    QVariantMap row(const QByteArray& table, int key, qint64 index) override
    {
        return m_store->row(table, key, index);
    }

private:
    std::unique_ptr<Store> m_store;
    std::shared_ptr<Plan> m_plan;
};
