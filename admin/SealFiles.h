#pragma once

#include "HeadBook.h"
#include "SealKey.h"
#include "Store.h"

#include <vector>

/// The files of the account that seals: its key, the former key while both sign, the heads that it has
/// signed and the public keys that signed them. None of them belongs to the owner of the database.
class SealFiles
{
public:
    /// An empty \a key means the place given by systemd ($CREDENTIALS_DIRECTORY/vrk-seal, or seal.key in the
    /// folder that was loaded under this name), or the user's own folder. The heads lie in $STATE_DIRECTORY,
    /// or beside the key.
    explicit SealFiles(const QString& key);

    /// The public keys that the store names, a key a line (VerifierKey::parseAll); empty if it names none.
    static bool published(Store* store, QByteArray* lines, StoreError* error);
    /// Adds these keys and all that ever signed, if they are missing there: a restored copy may be older than they.
    bool publish(Store* store, const std::vector<std::unique_ptr<SealKey>>& keys, StoreError* error) const;

    QString keyFile() const { return m_key; }
    QString formerFile() const;
    HeadBook heads() const;

    /// Creates the key.
    bool create(const QByteArray& name, StoreError* error) const;
    /// Creates a new key, which signs together with the former one until that is removed.
    bool replace(StoreError* error) const;
    /// Undoes create(), or replace() if there is a former key.
    void takeBack() const;
    /// The keys that sign, the present one first.
    bool load(std::vector<std::unique_ptr<SealKey>>* keys, StoreError* error) const;

private:
    /// A file that the account may write even where it only reads its key.
    QString beside(const QString& what) const;

    QString m_key;
};
