#pragma once

#include <QHash>
#include <QObject>
#include <QPersistentModelIndex>
#include <QSet>
#include <QVector>

class QTableView;
class VrkTableDelegate;
class VrkTableProxyModel;
struct MDRData;

/// Manages the row heights and column widths of a record table. Only visible rows are measured: from the
/// event loop for collected changes, at once while scrolling. The visible content keeps its position.
///
/// While the text of records has less than 45 characters, columns without content in the rows seen so far are
/// narrow; while it has less than 20, the others are as narrow as their contents. The header tells their names.
/// Content, or a wider window, gives them their width back.
class VrkTableLayout : public QObject
{
    Q_OBJECT

public:
    VrkTableLayout(VrkTableProxyModel* model, QTableView* view, VrkTableDelegate* delegate);
    ~VrkTableLayout() override;

    /// Recomputes all widths, including those that the user has set.
    void fitColumns();
    /// Width at which the view shows all columns and text lines of a readable length; 0 if unknown.
    int comfortableWidth();
    /// The widths that the user has set, in characters, by column.
    QHash<int, double> userWidths() const;
    /// Sets widths as if the user had set them; ignores missing columns and the one that takes the
    /// remaining space.
    void setUserWidths(const QHash<int, double>& widths);
    /// Scrolls until the whole row is visible; measures rows as needed.
    void showRow(const QModelIndex& index);
    /// Measures the visible rows now.
    void measure();
    /// Takes the sizes of icons and of unmeasured rows from the view's font.
    void applyFont();

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Width {
        int natural = 0; ///< needed by header and contents in one line
        int least = 0;   ///< needed by the header and the longest unbroken word
        bool byUser = false;
        int content = 0;     ///< needed by the longest word, without the header
        bool filled = false; ///< a row that was on the screen has content here
    };

    void schedule();
    void forget(const QModelIndex& first, const QModelIndex& last);
    void forgetHeights();
    bool measureOnce();
    int contentHeight(int row);
    int fillColumn() const;
    int headerWidth(int column) const;
    void readWidths(bool mayShrink);
    bool readContents();
    void forgetContents();
    int foldedWidth(int column) const;
    QHash<int, int> fold(QVector<int> columns, int wanted, int least, int* rest) const;
    void distribute();
    void sectionResized(int column, int before, int now);

    VrkTableProxyModel* m_model;
    QTableView* m_view;
    VrkTableDelegate* m_delegate;
    QHash<const MDRData*, int> m_heights; ///< without the day line, at the current widths
    QVector<Width> m_widths;
    QSet<const MDRData*> m_contentRead; ///< their contents are noted in m_widths
    QPersistentModelIndex m_shown;      ///< kept visible until it is measured
    bool m_scheduled = false;
    bool m_measuring = false;
    bool m_distributing = false;
    bool m_fitted = false; ///< the widths are managed here
};
