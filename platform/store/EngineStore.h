#pragma once

#include "ChangePacker.h"
#include "CodePage.h"
#include "Store.h"

/// What the stores of both engines have in common. An engine's rows are read by "readers" with
///
///     bool isNull(int column); double real(int column); qint64 integer(int column);
///     QByteArray bytes(int column);                 // a copy of a text or blob
///     const char* data(int column), int size(int column); // the bytes in place, as text or as blob
class EngineStore : public Store
{
public:
    ~EngineStore() override { *m_self = nullptr; }

    QTextCodec* codec() const override { return m_codePage->codec(); }
    QByteArray timeZone() const override { return m_timeZone; }

protected:
    explicit EngineStore(const Options& options) : m_options(options) {}

    /// Takes the store's properties when it is opened, also again: then only the time zone may differ, which
    /// stays.
    bool takeProperties(const QByteArray& codecName, const QByteArray& timeZone, const QString& place,
                        StoreError* error);
    /// Whether somebody is signed in, or nobody needs to be.
    bool canWrite(StoreError* error) const;

    /// The select of one blob; empty with the reason if there is no such field.
    static QByteArray blobSql(const QByteArray& table, const QByteArray& field, const char* parameter,
                              StoreError* error);

    /// Users.KeyLink, login, name_.
    template <class Reader>
    static StoreLogin loginOf(const Reader& row)
    {
        return {row.bytes(0), QString::fromUtf8(row.bytes(1)), QString::fromUtf8(row.bytes(2))};
    }
    template <class Reader>
    static StoreDepartment departmentOf(const Reader& row)
    {
        return {row.bytes(0), QString::fromUtf8(row.bytes(1)), row.bytes(2), QString::fromUtf8(row.bytes(3))};
    }

    Options m_options;
    std::unique_ptr<CodePage> m_codePage;
    std::unique_ptr<ChangePacker> m_packer;
    QByteArray m_timeZone;
    StoreLogin m_user;
    bool m_inRead = false;
    /// Used by blob sources: points to null when the store is destroyed.
    std::shared_ptr<Store*> m_self = std::make_shared<Store*>(this);
};
