#pragma once

#include "CMDArray.h"

#include <QString>

class QTextCodec;
class VrkTableModel;

/// What the table model passes to a cell conversion: one field of one record, and the requested role.
struct AbstractHfnCellData {
    const QTextCodec* codec = nullptr; ///< of the texts in the record; null: UTF-8
    CMDArray* array = nullptr;
    MDRData* record = nullptr;
    int field = -1; ///< number of the field in the array
    int role = Qt::DisplayRole;
    const VrkTableModel* model = nullptr; ///< caches decoded texts; null outside a table
};
