#pragma once

#include "StoreError.h"

/// The place of a store's file, locked so that another file can replace it. While it is locked no program
/// can open the file; a program that has the file open prevents the lock.
class StorePlace
{
public:
    explicit StorePlace(const QString& file);
    ~StorePlace();
    StorePlace(const StorePlace&) = delete;
    StorePlace& operator=(const StorePlace&) = delete;

    /// The path of the file, links resolved.
    QString file() const { return m_file; }
    /// False with Locked while a program has the store open. A place without a file is free.
    bool hold(StoreError* error);
    /// Moves \a draft into the place. The former file and its log are kept under the name \a kept, which is
    /// empty if there was none. At every moment, even after a crash, the place has one file or the other.
    bool take(const QString& draft, QString* kept, StoreError* error);

private:
    bool keepFormer(const QString& kept, StoreError* error) const;
    StoreError failure() const;

    QString m_file;
    int m_lock = -1;
};
