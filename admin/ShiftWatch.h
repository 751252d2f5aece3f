#pragma once

#include "Store.h"

/// Waits for workshifts that are opened, closed or corrected.
class ShiftWatch
{
public:
    explicit ShiftWatch(Store& store) : m_store(store) {}

    /// From now on changes count. False if the store does not answer.
    bool start(StoreError* error) { return m_store.position(&m_position, error); }
    /// Returns after such a change and what is written right after it, such as the record about a closing.
    /// False if the store does not answer or has another history.
    bool wait(StoreError* error);

private:
    Store& m_store;
    ChangePosition m_position;
};
