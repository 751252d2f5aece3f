#pragma once

#include "Csv.h"
#include "Directory.h"

#include <QDir>
#include <QSet>

/// Updates the tables of a store from the sheets: missing rows are added, cells that differ are written,
/// rows that the sheets do not contain are kept. A missing column or file changes nothing.
class SheetImport
{
public:
    /// The result for one sheet.
    struct Report {
        const Sheet* sheet;
        QStringList added; ///< names of rows
        QStringList changed;
        QStringList missing; ///< in the store and not in the sheet
    };

    explicit SheetImport(Store* store) : m_store(store) {}

    /// Reads the sheets of a folder. False if there are faults; errors() lists them.
    bool read(const QDir& folder);
    /// Reads rows of a sheet, headings first, as if they came from its file.
    bool take(const Sheet& sheet, const QVector<QStringList>& rows);
    /// Compares the sheets with the store. False if it cannot be read (\a error) or a cell is wrong
    /// (errors()).
    bool compare(StoreError* error);
    /// Writes the differences that compare() found, in one transaction.
    bool write(StoreError* error);

    /// "file:line: fault", in the order of the files.
    const QStringList& errors() const { return m_errors; }
    const QVector<Report>& reports() const { return m_reports; }
    const Directory& directory() const { return m_directory; }
    /// Logins that were added or enabled again, and those that were retired.
    const QStringList& admitted() const { return m_admitted; }
    const QStringList& retired() const { return m_retired; }

private:
    struct File {
        const Sheet* sheet;
        QVector<Csv::Row> rows;              ///< without the headings
        QVector<const SheetColumn*> columns; ///< of its cells
    };
    struct Change {
        QByteArray table;
        DirectoryRow row;
        bool fresh;
        QSet<QByteArray> fields; ///< fields to be written
    };

    bool readFile(const QString& path, const Sheet& sheet);
    bool readHeadings(File* file, const Csv::Row& headings);
    void compareSheet(const File& file);
    /// Removes from the waiting rows those whose owners form a cycle.
    QVector<Csv::Row> ringsIn(const File& file, QVector<Csv::Row>* waiting) const;
    /// False if the row waits for another one of its sheet.
    bool compareRow(const File& file, const Csv::Row& cells, bool last, QHash<QByteArray, int>* seen,
                    Report* report);
    void takeRow(const File& file, DirectoryRow row, const QSet<QByteArray>& given, const QStringList& rights,
                 Report* report);
    /// Records the rights to be granted and revoked, and returns their names.
    QStringList takeRights(const DirectoryRow& user, const QStringList& rights);
    void fault(const QString& file, int line, const QString& text);

    Store* m_store;
    Directory m_directory;
    QVector<File> m_files;
    QVector<Change> m_changes;
    QVector<QPair<QByteArray, QString>> m_grants; ///< user, right
    QVector<QByteArray> m_revoked;                ///< rows of UserRights
    QVector<Report> m_reports;
    QStringList m_errors;
    QStringList m_admitted;
    QStringList m_retired;
};
