#pragma once

#include <QHash>
#include <QObject>
#include <QPersistentModelIndex>
#include <QVector>

class QTableView;
class VrkTableDelegate;
class VrkTableProxyModel;
struct MDRData;

/// Keeps the row heights and column widths of a record table. Heights are measured for visible rows only, gathered
/// until control returns to the event loop, at once while scrolling; what the user looks at stays in its place.
class VrkTableLayout : public QObject
{
    Q_OBJECT

public:
    VrkTableLayout(VrkTableProxyModel* model, QTableView* view, VrkTableDelegate* delegate);
    ~VrkTableLayout() override;

    /// Fits all widths anew, those that the user has set too.
    void fitColumns();
    /// What the view needs to show all columns beside a text of readable lines; 0 when that is not known.
    int comfortableWidth();
    /// The widths that the user has set, in characters, by column.
    QHash<int, double> userWidths() const;
    /// Sets widths as if the user had; columns that are not there or take what remains are passed over.
    void setUserWidths(const QHash<int, double>& widths);
    /// Scrolls so that the row is seen as a whole, measuring on the way.
    void showRow(const QModelIndex& index);
    /// Measures the visible rows now.
    void measure();
    /// Takes the sizes of icons and of rows not measured yet from the view's font.
    void applyFont();

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Width {
        int natural = 0; ///< needed by header and contents in one line
        int least = 0;   ///< needed by the header and the longest word that is not broken
        bool byUser = false;
    };

    void schedule();
    void forget(const QModelIndex& first, const QModelIndex& last);
    void forgetHeights();
    bool measureOnce();
    int contentHeight(int row);
    int fillColumn() const;
    int headerWidth(int column) const;
    void readWidths(bool anew);
    void distribute();
    void sectionResized(int column, int before, int now);

    VrkTableProxyModel* m_model;
    QTableView* m_view;
    VrkTableDelegate* m_delegate;
    QHash<const MDRData*, int> m_heights; ///< without the day line, at the present widths
    QVector<Width> m_widths;
    QPersistentModelIndex m_shown; ///< to be kept in sight until it is measured
    bool m_scheduled = false;
    bool m_measuring = false;
    bool m_distributing = false;
    bool m_fitted = false; ///< widths are ours to keep
};
