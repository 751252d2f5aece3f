#pragma once

#include "Store.h"

/// Fetches the bytes of one blob by its row's key, as long as the store exists.
class StoreBlobSource : public MDRBlobSource
{
public:
    /// \a store points to null after the store is destroyed.
    StoreBlobSource(std::shared_ptr<Store*> store, const QByteArray& table, const QByteArray& field,
                    const QByteArray& key)
        : m_store(std::move(store)), m_table(table), m_field(field), m_key(key)
    {
    }

    bool read(QByteArray& bytes) const override
    {
        StoreError error;
        return *m_store && (*m_store)->blob(m_table, m_field, m_key, &bytes, &error);
    }

private:
    std::shared_ptr<Store*> m_store;
    QByteArray m_table;
    QByteArray m_field;
    QByteArray m_key;
};
