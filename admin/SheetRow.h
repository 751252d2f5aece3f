#pragma once

#include "Csv.h"
#include "Directory.h"
#include "TemplateCells.h"

#include <QSet>

/// What is wrong with a cell, or with a row as a whole.
struct CellFault {
    const SheetColumn* column = nullptr; ///< null: the row
    QString text;                        ///< without the name of the column
    bool namesColumn = true;             ///< false: the text is clear without it
    QByteArray other;                    ///< key of the row that this one repeats

    /// With the name of the column, as a line of text needs it.
    QString line() const
    {
        return column && namesColumn ? QStringLiteral("столбец «%1»: %2").arg(column->heading, text) : text;
    }
};

/// Reads the cells of one row of a sheet.
struct SheetRow {
    DirectoryRow row;       ///< its key if given, otherwise empty
    QSet<QByteArray> given; ///< fields for which the sheet has a column
    QStringList rights;     ///< of a user
    bool hasRights = false;
    TemplateCells cells;        ///< of a template
    QSet<QByteArray> textCells; ///< "html" and the template properties for which the sheet has columns
    QVector<CellFault> faults;
    bool waits = false; ///< the only fault is a missing row of the same sheet
    QString owner;      ///< the name of that row

    SheetRow(const Directory& directory, const Sheet& sheet, const QVector<const SheetColumn*>& columns,
             const QStringList& texts);

private:
    void readCell(const SheetColumn& column, const QString& cell);
    void readReference(const SheetColumn& column, const QString& cell);
    void readRights(const QString& cell);
    void readMarker(const SheetColumn& column, const QString& cell);
    void fault(const SheetColumn& column, const QString& text);
    void unknown(const SheetColumn& column, const QString& what, const QString& cell, const QString& nearest);

    const Directory& m_directory;
    const Sheet& m_sheet;
    QByteArray m_department;
};
