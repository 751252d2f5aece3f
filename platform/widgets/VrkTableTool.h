#pragma once

#include "VrkTableModel.h"
#include "VrkTableProxyModel.h"

#include <memory>
#include <QObject>
#include <QVariantMap>
#include <QVector>

class QTableView;

/// Connects a table view to a record array: model, proxy, look, row heights, column widths, day lines and
/// copying. The proxy and the view's selection model stay the same for the tool's lifetime.
///
/// Only visible rows are measured, shortly after the change. While the table is sorted by a time, a row has
/// a line with the date if the row above it belongs to another day. Ctrl+C copies the visible text.
class VRK_EXPORT VrkTableTool : public QObject
{
    Q_OBJECT

public:
    explicit VrkTableTool(QObject* parent = nullptr);
    ~VrkTableTool() override;

    /// Sets the view to manage; it gets the proxy with its selection model, and the delegate of template
    /// texts. Call it once.
    void setTableView(QTableView* view);
    /// Sets the data; rows are the records of the array, columns its fields. Not owned.
    void setCMDArray(CMDArray* array);
    /// Sets the standard look: whole rows, one at a time, wrapped texts, sorting by a click on a header.
    void setDefaultSettingsView();

    VrkTableModel* model() const;
    VrkTableProxyModel* proxy() const;
    QTableView* tableView() const;

    enum DayLines {
        NoDayLines,      ///< for tables whose cells show the date
        DayLinesBetween, ///< above the first record of each day except the first day
        DayLinesAll,     ///< also above the first day, for tables that do not show it elsewhere
    };
    /// Sets where day lines are shown while the table is sorted by a time; the default is between the days.
    void setDayLines(DayLines lines);

    /// The record of the view's current row, or null.
    MDRData* currentRecord() const;
    /// Makes the record's row current and scrolls to it; does nothing for a record that is not shown. If a
    /// change event calls it while a question box or a small value dialog is open over the view, it waits
    /// until that is closed, so that the answer applies to the right record.
    void setCurrentRecord(MDRData* record);
    /// Makes the first row of the proxy current.
    void setCurrentFirst();
    /// The record of an index of the proxy, or null.
    MDRData* recordByIndex(const QModelIndex& index) const;

    struct Column {
        const char* field;
        AbstractHfnCellConversion* conversion;
        QString title;
        const char* icon = nullptr; ///< shown in the header
        QString name = QString();   ///< of a column with only an icon: for screen readers and columnChoices()
    };
    /// Shows these columns in this order, and hides those of all other fields.
    void setColumns(const QVector<Column>& columns);
    /// Moves the field's column to this visual position. Here and below, unknown fields are ignored.
    void setColumnPosition(const QString& field, int position);
    void setColumnVisible(const QString& field, bool visible);
    void sortByColumn(const QString& field, Qt::SortOrder order);
    /// A column that the module shows, as the user may choose it.
    struct Choice {
        QString field;
        QString name;
        bool isShown;
        bool isFixed; ///< the text of records stays visible
    };
    /// In the order of the view.
    QVector<Choice> columnChoices() const;
    /// The user's own order of the module's columns, and those that he hides; empty lists restore the module's.
    /// Fields that the order does not name follow at the end.
    void setUserColumns(const QStringList& order, const QStringList& hidden);
    QStringList userOrder() const;
    QStringList userHidden() const;
    /// Fits the widths to headers and visible rows; the text of records gets the remaining space. From then
    /// on columns that are too narrow grow automatically, except those that the user has set.
    void adjustColumnsWidth();
    /// The width at which the visible view shows all columns and text lines of a readable length; 0 before
    /// adjustColumnsWidth() and while the view is hidden.
    int comfortableWidth() const;
    /// The widths that the user has set, by field, in characters; pass them to setUserWidths() later, even
    /// if the font size has changed.
    QVariantMap userWidths() const;
    void setUserWidths(const QVariantMap& widths);
    /// Announces a change of the record in these columns; an empty list means all columns.
    void updateView(MDRData* record, const QVector<int>& columns = {});

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Private;
    std::unique_ptr<Private> d;
};
