#pragma once

#include "ReportSource.h"
#include "Store.h"

#include <QDir>
#include <QHash>
#include <QSet>

/// A folder of HTML pages for reading without the program: index.html leads to a page for each month, and that to a page
/// for each workshift, with the comments on its records. All links are relative. A hidden file keeps the position in the change log up to which the pages
/// are current, so the next update reads and writes only what has changed since. Pages of workshifts that an administrator
/// has taken out of the journal stay; those of others that are gone are removed.
class ShiftArchive
{
public:
    /// \a source must be open and outlive this object. The folder is created if its parent exists. \a withFiles: the
    /// files attached to the records are beside the pages; otherwise these only name them.
    ShiftArchive(ReportSource* source, const QString& folder, bool withFiles = false)
        : m_source(source), m_folder(folder), m_withFiles(withFiles)
    {
    }

    /// False with errorText(); the pages written so far are complete, and the next update continues.
    bool update();
    QString errorText() const { return m_error; }

    int shiftCount() const { return m_shifts.size(); }
    /// Pages of workshifts that the last update wrote; pages of months do not count.
    int writtenCount() const { return m_written; }
    int removedCount() const { return m_removed; }

    /// The name of a workshift's page in the folder of its month.
    static QString pageName(const ReportShift& shift);
    /// The name of an attached file in the archive: only Latin letters and digits, made of the content, so that the
    /// same name always has the same content. A file that a browser or a desktop might run has the suffix "bin".
    static QString fileName(const QString& name, const QByteArray& content);

private:
    bool fail(const QString& text);
    ChangePosition readPosition() const;
    bool writePosition(const ChangePosition& position);
    /// The workshifts that have changed since \a position; false if they cannot be told apart.
    bool changedSince(ChangePosition position, QSet<QByteArray>* shifts) const;
    bool ownersOf(const QByteArray& table, const QByteArray& field, const QSet<QByteArray>& keys,
                  QSet<QByteArray>* owners) const;
    QByteArray mark() const;
    bool writeShift(const ReportShift& shift, const QString& file);
    bool writeFiles(const QString& folder, ReportDocument* document, QSet<QString>* names);
    void removeFiles(const QString& folder, const QSet<QString>& wanted) const;
    bool writeMonth(const QString& month, const QVector<ReportShift>& shifts);
    /// Adds the workshifts that have left the journal and have a page: it stays as it is.
    bool addArchived(QMap<QString, QVector<ReportShift>>* months);
    bool writeStart(const QMap<QString, QVector<ReportShift>>& months);
    void removeOthers(const QString& month, const QVector<ReportShift>& shifts);
    QString imprint();

    ReportSource* m_source;
    QDir m_folder;
    bool m_withFiles;
    QVector<ReportShift> m_shifts;
    QString m_error;
    int m_written = 0;
    int m_removed = 0;
};
