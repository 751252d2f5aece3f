#pragma once

#include "VrkTableModel.h"
#include "VrkTableProxyModel.h"

#include <memory>
#include <QObject>
#include <QVariantMap>
#include <QVector>

class QTableView;

/// Binds a table view to a record array: model, proxy, look, row heights, column widths, day lines and
/// copying. The proxy and the view's selection model stay the same as long as the tool lives.
///
/// Heights are measured for visible rows only, and a little after the change; rows whose neighbour above
/// belongs to another day carry a line with the date while the table is sorted by a time. Ctrl+C copies what
/// is visible.
class VRK_EXPORT VrkTableTool : public QObject
{
    Q_OBJECT

public:
    explicit VrkTableTool(QObject* parent = nullptr);
    ~VrkTableTool() override;

    /// The view to manage; it gets the proxy, with it its selection model, and the delegate of template
    /// texts. Once.
    void setTableView(QTableView* view);
    /// The data; rows are the records of the array, columns its fields. Not owned.
    void setCMDArray(CMDArray* array);
    /// The standard look: whole rows, one at a time, texts wrapped, sorting by a click on a header.
    void setDefaultSettingsView();

    VrkTableModel* model() const;
    VrkTableProxyModel* proxy() const;
    QTableView* tableView() const;

    enum DayLines {
        NoDayLines,      ///< for tables whose cells tell the date
        DayLinesBetween, ///< above the first record of each day but the first
        DayLinesAll,     ///< above that of the first day too, for tables that do not tell it elsewhere
    };
    /// Where lines with the date stand while the table is sorted by a time; between the days when nothing is said.
    void setDayLines(DayLines lines);

    /// The record of the view's current row, or null.
    MDRData* currentRecord() const;
    /// Makes the record's row current and scrolls to it; nothing happens for a record that is not shown.
    /// Called out of a change event while a question box or a small value dialog stands over the view, it
    /// waits until that is closed, so that the answer meets the record that was asked about.
    void setCurrentRecord(MDRData* record);
    /// Makes the first row of the proxy current.
    void setCurrentFirst();
    /// The record of an index of the proxy, or null.
    MDRData* recordByIndex(const QModelIndex& index) const;

    /// Puts the field's column at this visual position. Unknown fields are ignored here and below.
    void setColumnPosition(const QString& field, int position);
    void setColumnVisible(const QString& field, bool visible);
    void sortByColumn(const QString& field, Qt::SortOrder order);
    /// Fits the widths to headers and visible rows; the text of records gets what remains. From then on
    /// columns that turn out too narrow grow by themselves, except those that the user has set.
    void adjustColumnsWidth();
    /// The width in which the visible view shows all columns and the text of records gets lines that read well; 0 before
    /// adjustColumnsWidth() and while the view is hidden.
    int comfortableWidth() const;
    /// The widths that the user has given to columns, by field, in characters; for setUserWidths() at another time, where
    /// letters may have another size.
    QVariantMap userWidths() const;
    void setUserWidths(const QVariantMap& widths);
    /// Tells that the record has changed, in these columns; an empty list means all columns.
    void updateView(MDRData* record, const QVector<int>& columns = {});

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Private;
    std::unique_ptr<Private> d;
};
