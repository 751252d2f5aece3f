#pragma once

#include "TestStore.h"

/// Common base of the tests of the rules: a fresh standard journal, writes as a login, and the text of the
/// last refusal.
class WriterOfRules
{
protected:
    using Fields = TestStore::Fields;

    void reset()
    {
        m_files = std::make_unique<TestStore>();
        m_refusal.clear();
    }

    /// Writes as a login; keeps the text of a refusal; any other failure ends the test.
    bool write(const char* login, const char* table, MDRFlag flag, const char* key, const Fields& fields = {})
    {
        return write(login, {{table, flag, key, fields}});
    }
    /// The same with several rows, in one transaction.
    bool write(const char* login, const std::vector<TestStore::Row>& rows)
    {
        const auto store = m_files->open(QString::fromLatin1(login));
        StoreError error;
        const bool done = TestStore::write(store.get(), rows, &error);
        m_refusal = error.text;
        if (!done && error.code != StoreError::Refused)
            qFatal("%s", qPrintable(error.text + error.detail));
        return done;
    }
    void load(const char* table, MDRFlag flag, const char* key, const Fields& fields = {})
    {
        StoreError error;
        if (!TestStore::write(m_files->openLoader().get(), table, flag, key, fields, &error))
            qFatal("%s", qPrintable(error.text + error.detail));
    }
    QVariant value(const QByteArray& sql) const { return m_files->value(QString::fromUtf8(sql)); }
    /// A value that differs from that of the standard journal in this column.
    static TestStore::Field other(const char* name, MDRType type)
    {
        if (type == mdr_TChar || type == mdr_TMemo)
            return {name, "OTHER"};
        return {name, type == mdr_TBool ? QVariant() : QVariant(7)};
    }
    static Fields newRecord(const char* shift, const char* worker, int status)
    {
        return {{"ShiftKey", shift}, {"WorkerKey", worker}, {"status", status}, {"html", "x"}};
    }

    std::unique_ptr<TestStore> m_files;
    QString m_refusal;
};
