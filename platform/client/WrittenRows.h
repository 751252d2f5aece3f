#pragma once

#include "MDArray.h"
#include "VrkExport.h"

#include <QByteArrayList>
#include <QVector>

/// Identifies the rows of a write, so that a failed write is recognised when it is repeated later: by their
/// keys and changed fields, or by the text of a new row, which may have another key the next time.
class VRK_EXPORT WrittenRows
{
public:
    /// Adds the posted records of an array, as written to \a table.
    void add(const QByteArray& table, const MDArray* records);
    /// \a done contains all of these rows, with all their changes.
    bool areAllIn(const WrittenRows& done) const;

private:
    struct Row {
        QByteArrayList marks;
        QByteArray text; ///< of a new row; empty if it has no text
    };
    QVector<Row> m_rows;
};
