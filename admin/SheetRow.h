#pragma once

#include "Csv.h"
#include "Directory.h"
#include "TemplateCells.h"

#include <QSet>

/// Reads the cells of one row of a sheet.
struct SheetRow {
    DirectoryRow row;       ///< its key if given, otherwise empty
    QSet<QByteArray> given; ///< fields for which the sheet has a column
    QStringList rights;     ///< of a user
    bool hasRights = false;
    TemplateCells cells;        ///< of a template
    QSet<QByteArray> textCells; ///< "html" and the template properties for which the sheet has columns
    QStringList faults;         ///< errors in the cells
    bool waits = false;         ///< the only fault is a missing row of the same sheet
    QString owner;              ///< the name of that row

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
