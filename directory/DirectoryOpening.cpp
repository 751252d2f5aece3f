#include "DirectoryOpening.h"

#include "StoreAdmin.h"

std::unique_ptr<Store> DirectoryOpening::open(const QString& url, StoreError* error) const
{
    for (;;) {
        error->clear();
        std::unique_ptr<Store> store = StoreAdmin::openLoader(url, error);
        if (store || error->code != StoreError::Password)
            return store;
        const QString password = m_ask(error->text);
        if (password.isNull()) {
            error->clear();
            return nullptr;
        }
        qputenv("PGPASSWORD", password.toUtf8());
    }
}
