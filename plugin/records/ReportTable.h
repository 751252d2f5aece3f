#pragma once

#include "CModelTable.h"
#include "VrkTableTool.h"

#include <memory>
#include <QObject>

class CVrkCliSes;
class FilterOnlyApprove;
class QTableView;

/// The table of a report: the records of a workshift or an interval in a view. It has a copy of the records, so it does not
/// change with the journal.
class ReportTable : public QObject
{
    Q_OBJECT

public:
    /// Nothing is owned.
    ReportTable(QTableView* view, CVrkCliSes* session, QObject* parent);
    ~ReportTable() override;

    /// Configures the columns: call it once, before there are records. \a times is the format of the times.
    void setWorkersTable(CModelTable* table, const QString& times = QStringLiteral("hh:mm"));
    /// Copies the records; a null table changes nothing and sets the code -3.
    void setRecordsTable(CModelTable* table);
    void setDayLines(VrkTableTool::DayLines lines);
    /// Hides the other records, and with them the column of the status.
    void setOnlyApproved(bool only);
    /// Code of the last copy.
    int lastError() const { return m_records.data.lastError; }

private:
    CVrkCliSes* m_session;
    QTableView* m_view;
    CModelTable m_records;
    std::unique_ptr<VrkTableTool> m_tool; ///< destroyed before the records that it shows
    FilterOnlyApprove* m_filter;
};
