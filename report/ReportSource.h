#pragma once

#include "KeyNames.h"
#include "VrkPreviewTable.h"

#include <memory>
#include <QDateTime>

class Store;
struct RecordQuery;

/// A file that a report names.
struct ReportFileNote {
    QByteArray key; ///< in the store
    QString name;
    int row;  ///< of the document's table
    int note; ///< of that row
};

/// One report, ready to be written.
struct ReportDocument {
    VrkPreviewTable table;         ///< with its texts at the end, for pages
    QVector<QStringList> rows;     ///< the same for spreadsheets: the headings, then the records
    QVector<ReportFileNote> files; ///< attached to the records
    QString name;                  ///< proposed for a file, without suffix
};

/// A workshift as reports name it.
struct ReportShift {
    QByteArray key;
    QByteArray departmentKey;
    QByteArray openedBy; ///< a worker
    QByteArray closedBy; ///< empty while it is open
    QDateTime start;
    QDateTime end;

    bool isOpen() const { return closedBy.isEmpty(); }
    /// In order of time.
    bool operator<(const ReportShift& other) const
    {
        return start != other.start ? start < other.start : key < other.key;
    }
};

/// Makes reports from a store, with the tables of the journal's windows. It only reads. Every operation that fails
/// returns false and sets errorText(), in the user's words. While it exists, the process has the store's time zone.
class ReportSource
{
public:
    ReportSource();
    ~ReportSource();
    ReportSource(const ReportSource&) = delete;
    ReportSource& operator=(const ReportSource&) = delete;

    /// Opens a store by its address; on a server with its login, and the password that the machine keeps for it.
    bool open(const QString& url);
    QString errorText() const;
    Store* store() const;
    const KeyNames& names() const;
    QDateTime now() const;
    /// The newest seal, read once; empty if there is none.
    QString seal();

    /// The department of this name or key; without a name the only one that has workshifts.
    bool department(const QString& name, QByteArray* key);
    /// Its name and that of its organization.
    QString title(const QByteArray& departmentKey) const;
    /// The workshifts of a department or, for an empty key, of all, by their start.
    bool shifts(const QByteArray& departmentKey, QVector<ReportShift>* shifts);
    /// Those of all departments that an administrator took out of the journal, in the order in which he did.
    bool archivedShifts(QVector<ReportShift>* shifts);

    /// \name Reports. \a all: also drafts and deleted records
    /// The rows have the comments and names of files of their records as notes.
    /// @{
    bool ofShift(const ReportShift& shift, bool all, ReportDocument* document);
    bool ofPeriod(const QByteArray& departmentKey, const QDateTime& from, const QDateTime& to, bool all,
                  ReportDocument* document);
    bool found(const RecordQuery& query, ReportDocument* document);
    bool handover(const QByteArray& departmentKey, int days, ReportDocument* document);
    /// @}
    /// The content of an attached file.
    bool fileContent(const QByteArray& key, QByteArray* content);
    /// "22.11.2026 08:00 - 22.11.2026 20:00"
    static QString period(const QDateTime& from, const QDateTime& to);

private:
    struct Private;
    std::unique_ptr<Private> d;
};
