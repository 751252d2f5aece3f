#include "EngineStore.h"

#include "StoreErrors.h"

bool EngineStore::takeProperties(const QByteArray& codecName, const QByteArray& timeZone,
                                 const QString& place, StoreError* error)
{
    std::unique_ptr<CodePage> codePage = CodePage::create(codecName);
    if (!codePage || (m_codePage && m_codePage->codec() != codePage->codec()))
        return StoreErrors::raise(error, StoreError::NotAStore, "Кодировка хранилища «%1» не поддерживается.",
                                  place);
    // Sessions and records keep pointers to the first code page, so it stays when the store is opened again.
    if (!m_codePage) {
        m_codePage = std::move(codePage);
        m_packer = std::make_unique<ChangePacker>(m_codePage.get());
        m_timeZone = timeZone;
    }
    return true;
}

bool EngineStore::canWrite(StoreError* error) const
{
    return !m_user.login.isEmpty() || m_options.loader ||
           StoreErrors::raise(error, StoreError::Refused, "Вход в хранилище не выполнен.");
}

QByteArray EngineStore::blobSql(const QByteArray& table, const QByteArray& field, StoreError* error)
{
    const CatalogTable* known = TableCatalog::table(table);
    const int index = known ? known->fieldIndex(field) : -1;
    if (index >= 0 && known->fields.at(index).type == mdr_TBlob)
        return "SELECT " + known->fields.at(index).name + " FROM " + known->name + " WHERE KeyLink = $1";
    StoreErrors::raise(error, StoreError::BadRequest, "Такого двоичного поля в хранилище нет.");
    return QByteArray();
}
