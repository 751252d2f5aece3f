#pragma once

#include "MDArray.h"
#include "VrkExport.h"

#include <QByteArrayList>
#include <QVector>

/// What the rows of a write are, so that one that failed is known again when it is done later: by their keys and the
/// fields that were changed, or by the text that a new row carries, which may come under another key the next time.
class VRK_EXPORT WrittenRows
{
public:
    /// Adds the posted records of an array as they go to \a table.
    void add(const QByteArray& table, const MDArray* records);
    /// \a done holds all of these rows, with what was to be changed in them.
    bool areAllIn(const WrittenRows& done) const;

private:
    struct Row {
        QByteArrayList marks;
        QByteArray text; ///< of a new row; empty: it has none
    };
    QVector<Row> m_rows;
};
