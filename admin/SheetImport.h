#pragma once

#include "Csv.h"
#include "SheetRow.h"

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

    /// What is wrong, and where.
    struct Fault {
        QString file;
        int line = 0; ///< of the file, the headings are line 1; 0: the file as a whole
        CellFault fault;

        /// "file:line: fault"
        QString text() const;
    };

    explicit SheetImport(Store* store) : m_store(store) {}

    /// Reads the sheets of a folder. False if there are faults; errors() lists them.
    bool read(const QDir& folder);
    /// Reads rows of a sheet, headings first, as if they came from its file.
    bool take(const Sheet& sheet, const QVector<QStringList>& rows);
    /// Compares the sheets with the store. False if it cannot be read (\a error) or a cell is wrong
    /// (errors()).
    bool compare(StoreError* error);
    /// The same with a store that is already read.
    bool compareWith(const Directory& stored);
    /// Writes the differences that compare() found, in one transaction.
    bool write(StoreError* error);
    /// The same, and where logins have their own roles, enables those that were added before, and disables the
    /// retired ones after it. \a url is the address of the store. On failure, \a isWritten says whether the
    /// differences are written all the same.
    bool carryOut(const QString& url, StoreError* error, bool* isWritten = nullptr);

    /// In the order of the files.
    const QVector<Fault>& faults() const { return m_faults; }
    /// The texts of the faults.
    QStringList errors() const;
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
    /// The fault of a text that the field of a row cannot take; its text is empty if there is none.
    CellFault unfit(const Sheet& sheet, const DirectoryRow& row) const;

    Store* m_store;
    Directory m_directory;
    QVector<File> m_files;
    QVector<Change> m_changes;
    QVector<QPair<QByteArray, QString>> m_grants; ///< user, right
    QVector<QByteArray> m_revoked;                ///< rows of UserRights
    QVector<Report> m_reports;
    QVector<Fault> m_faults;
    QStringList m_admitted;
    QStringList m_retired;
};
