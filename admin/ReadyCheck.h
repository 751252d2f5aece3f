#pragma once

#include "Directory.h"

/// Checks whether people can work with the journal of a store in its current state.
namespace ReadyCheck
{
struct Finding {
    QString department; ///< its full name; empty for the whole store
    QString text;       ///< the problem, and the sheet in which to correct it
};
/// Lists what is missing to open, to work in and to close a shift, department by department, and what the
/// rules of the store would refuse: shifts of the timetable that are too long, and openings before the end
/// of a last shift that is far in the future. \a error is set if the store cannot be read.
QVector<Finding> look(const Directory& directory, Store* store, StoreError* error);
} // namespace ReadyCheck
