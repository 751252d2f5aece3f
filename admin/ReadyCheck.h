#pragma once

#include "Directory.h"

/// Whether people can work with the journal of a store as it is filled.
namespace ReadyCheck
{
struct Finding {
    QString department; ///< its full name; empty for the store as a whole
    QString text;       ///< what is missing, and in which sheet it belongs
};
/// What is missing to open, to work and to close a shift, department by department; and what the rules of the store would
/// refuse: shifts of the timetable that are too long, and openings before the end of a last shift that lies far ahead.
/// \a error is set when the store cannot be read.
QVector<Finding> look(const Directory& directory, Store* store, StoreError* error);
} // namespace ReadyCheck
