#pragma once

#include "Csv.h"
#include "Directory.h"
#include "TemplateCells.h"

#include <QSet>

/// Reads the cells of one row of a sheet.
struct SheetRow {
    DirectoryRow row;       ///< its key as given, else empty
    QSet<QByteArray> given; ///< fields that the sheet has a column for
    QStringList rights;     ///< of a user
    bool hasRights = false;
    TemplateCells cells;        ///< of a template
    QSet<QByteArray> textCells; ///< "html" and the template properties that the sheet has columns for
    QStringList faults;         ///< what is wrong with the cells
    bool waits = false;         ///< the only fault is a row of the same sheet that is not there yet
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
