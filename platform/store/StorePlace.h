#pragma once

#include "StoreError.h"

/// The place of a store's file, held for another file that is to stand there. While it is held no program can open the
/// file, and what has it open already keeps it from being held.
class StorePlace
{
public:
    explicit StorePlace(const QString& file);
    ~StorePlace();
    StorePlace(const StorePlace&) = delete;
    StorePlace& operator=(const StorePlace&) = delete;

    /// Where the file lies, links followed.
    QString file() const { return m_file; }
    /// False with Locked while a program has the store open. A place without a file is free.
    bool hold(StoreError* error);
    /// Puts \a draft into the place. What stood there, its log included, lies under the name \a kept afterwards, which is
    /// empty when nothing did. At every moment, whatever happens, the place has the one file or the other.
    bool take(const QString& draft, QString* kept, StoreError* error);

private:
    bool keepFormer(const QString& kept, StoreError* error) const;
    StoreError failure() const;

    QString m_file;
    int m_lock = -1;
};
