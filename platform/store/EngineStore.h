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
    MDArray* search(const RecordQuery& query, StoreError* error) final;

protected:
    explicit EngineStore(const Options& options) : m_options(options) {}

    /// Takes the store's properties when it is opened, also again: then only the time zone may differ, which
    /// stays.
    bool takeProperties(const QByteArray& codecName, const QByteArray& timeZone, const QString& place,
                        StoreError* error);
    /// The records that the index finds: it knows words and exclusions, but no phrases.
    virtual MDArray* searchIndex(const RecordQuery& query, StoreError* error) = 0;
    /// Whether somebody is signed in, or nobody needs to be.
    bool canWrite(StoreError* error) const;

    /// \name Selects that both engines understand: their parameters are numbered as they occur.
    /// @{
    static constexpr char loginsSql[] =
        "SELECT KeyLink, login, name_ FROM Users WHERE coalesce(deleted_, 0) = 0 ORDER BY login";
    static constexpr char loginSql[] =
        "SELECT KeyLink, login, name_ FROM Users WHERE login = $1 AND coalesce(deleted_, 0) = 0";
    static constexpr char departmentsSql[] =
        "SELECT DISTINCT D.KeyLink, D.name_, O.KeyLink, O.name_ FROM Workers AS W"
        " JOIN Departments AS D ON D.KeyLink = W.DepartmentKey"
        " LEFT JOIN Organizations AS O ON O.KeyLink = D.OrganizationKey"
        " WHERE W.UserKey = $1 AND coalesce(W.deleted_, 0) = 0 ORDER BY D.name_, D.KeyLink";
    static constexpr char rightSql[] = "SELECT 1 FROM UserRights WHERE UserKey = $1 AND rightName = $2";
    static constexpr char fileSql[] = "SELECT content FROM StoreFiles WHERE folder = $1 AND name = $2";
    static constexpr char batchSql[] = "SELECT 1 FROM ChangeTransactions WHERE batchKey = $1";
    /// Of one blob; empty with the reason if there is no such field.
    static QByteArray blobSql(const QByteArray& table, const QByteArray& field, StoreError* error);
    /// @}

    /// Rows of these selects.
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
