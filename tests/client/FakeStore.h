#pragma once

#include "CMDArray.h"
#include "EvidenceLog.h"
#include "MDRValues.h"
#include "Store.h"

#include <QSignalSpy>
#include <QStringList>
#include <QTextCodec>

/// A store without a database: it records its calls and answers as the test says.
class FakeStore : public Store
{
public:
    /// Shared by the test and the store, which belongs to the session.
    struct State {
        QStringList asked;                ///< "select ...", "apply Table 1:KEY[field,...] | ...", in order
        QByteArrayList batchKeys;         ///< of all calls of apply
        QByteArrayList askedFor;          ///< batch keys, by isWritten
        bool isWritten = false;           ///< its answer
        QVector<StoreError> failures;     ///< results of the next calls, in order; None succeeds
        QVector<StoreChange> log;         ///< changes that changesAfter will return
        QHash<QString, QByteArray> files; ///< "folder/name"
        QByteArrayList rights;
        double time = 1700000000;
        std::function<void(const std::function<void()>& progress)> during; ///< runs inside select and apply
        bool reading = false;
    };

    explicit FakeStore(std::shared_ptr<State> state) : m_state(std::move(state)) {}

    static StoreError error(StoreError::Code code, const QString& text) { return {code, text, QString()}; }
    static StoreError lost() { return error(StoreError::Lost, QStringLiteral("Связь потеряна.")); }
    static StoreError unsettled()
    {
        return error(StoreError::Unsettled, QStringLiteral("Подтверждения нет."));
    }
    static StoreError refused() { return error(StoreError::Refused, QStringLiteral("Запись запрещена.")); }

    QTextCodec* codec() const override { return QTextCodec::codecForName("Windows-1251"); }
    QByteArray timeZone() const override { return "Europe/Moscow"; }
    QVector<StoreLogin> logins() override { return {}; }
    bool signIn(const QString&, StoreLogin*, StoreError*) override { return true; }
    QVector<StoreDepartment> departments(const QByteArray&) override { return {}; }
    bool hasRight(const QByteArray& right) override
    {
        m_state->asked.append(QStringLiteral("right ") + QString::fromLatin1(right));
        return m_state->rights.contains(right);
    }
    double serverTime() override { return m_state->time; }

    MDArray* select(const QByteArray& sql, StoreError* failure) override
    {
        m_state->asked.append(QStringLiteral("select ") + QString::fromUtf8(sql));
        if (m_state->during)
            m_state->during(m_progress);
        if (fails(failure))
            return nullptr;
        MDArray* answer = nullptr;
        MDACreate(&answer, 0);
        return answer;
    }
    MDArray* search(const RecordQuery& query, StoreError* failure) override
    {
        return select("search " + query.words.toUtf8(), failure);
    }
    bool blob(const QByteArray&, const QByteArray&, const QByteArray& key, QByteArray* bytes,
              StoreError* failure) override
    {
        *bytes = "bytes of " + key;
        return !fails(failure);
    }
    bool apply(const std::vector<StoreWrite>& writes, const QByteArray& batchKey,
               StoreError* failure) override
    {
        QStringList batches;
        for (const StoreWrite& write : writes)
            batches.append(described(write));
        m_state->asked.append(QStringLiteral("apply ") + batches.join(QStringLiteral(" | ")));
        m_state->batchKeys.append(batchKey);
        if (m_state->during)
            m_state->during(m_progress);
        return !fails(failure);
    }
    bool isWritten(const QByteArray& batchKey, bool* written, StoreError* failure) override
    {
        m_state->askedFor.append(batchKey);
        *written = m_state->isWritten;
        return !fails(failure);
    }
    bool position(ChangePosition*, StoreError* failure) override { return !fails(failure); }
    bool changesAfter(ChangePosition* position, int, QVector<StoreChange>* changes,
                      StoreError* failure) override
    {
        if (fails(failure))
            return false;
        *changes += m_state->log;
        if (!m_state->log.isEmpty())
            position->number = m_state->log.last().number;
        m_state->log.clear();
        return true;
    }
    bool hasNews() override { return !m_state->log.isEmpty(); }
    std::unique_ptr<EvidenceLog> evidence(Access, StoreError* error) override
    {
        *error = {StoreError::Missing, QStringLiteral("no evidence"), QString()};
        return nullptr;
    }
    bool file(const QString& folder, const QString& name, QByteArray* content, StoreError* failure) override
    {
        if (fails(failure))
            return false;
        const auto found = m_state->files.constFind(folder + QLatin1Char('/') + name);
        if (found == m_state->files.constEnd()) {
            *failure = error(StoreError::NoSuchRow, QStringLiteral("Нет файла."));
            return false;
        }
        *content = *found;
        return true;
    }
    bool writeFile(const QString& folder, const QString& name, const QByteArray& content,
                   StoreError* failure) override
    {
        if (fails(failure))
            return false;
        m_state->files.insert(folder + QLatin1Char('/') + name, content);
        return true;
    }
    bool beginRead(StoreError* failure) override
    {
        m_state->reading = !fails(failure);
        return m_state->reading;
    }
    void endRead() override { m_state->reading = false; }
    qint64 rowCount(const QByteArray&) override { return 0; }
    qint64 seek(const QByteArray&, int, const QVariantList&, bool* exact) override
    {
        *exact = false;
        return 0;
    }
    QVariantMap row(const QByteArray&, int, qint64) override { return {}; }

private:
    bool fails(StoreError* failure)
    {
        if (m_state->failures.isEmpty())
            return false;
        *failure = m_state->failures.takeFirst();
        return static_cast<bool>(*failure);
    }

    static QString described(const StoreWrite& write)
    {
        QStringList rows;
        for (MDRData* row : MDARecsByEntry(write.records)) {
            MDRVar key;
            MDRGetVal(MDRFldByName(write.records, "KeyLink"), row, &key);
            QStringList marked;
            for (int i = 0; i < MDAFldCount(write.records); ++i) {
                const MDRField* field = MDRFldByNum(write.records, i);
                bool mark = false;
                MDRIsUser(field, row, &mark);
                if (mark)
                    marked.append(QString::fromLatin1(field->name));
            }
            rows.append(QStringLiteral("%1:%2[%3]")
                            .arg(row->flags)
                            .arg(QString::fromUtf8(MDRValue::copy(key)), marked.join(QLatin1Char(','))));
        }
        return QString::fromLatin1(write.table) + QLatin1Char(' ') + rows.join(QLatin1Char(' '));
    }

    std::shared_ptr<State> m_state;
};
