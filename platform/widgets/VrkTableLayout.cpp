#include "VrkTableLayout.h"

#include "VrkTableDelegate.h"
#include "VrkTableProxyModel.h"

#include <QEvent>
#include <QHeaderView>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QStyle>
#include <QTableView>

VrkTableLayout::VrkTableLayout(VrkTableProxyModel* model, QTableView* view, VrkTableDelegate* delegate)
    : QObject(view), m_model(model), m_view(view), m_delegate(delegate)
{
    view->viewport()->installEventFilter(this);
    view->installEventFilter(this);
    connect(view->verticalScrollBar(), &QScrollBar::valueChanged, this, &VrkTableLayout::measure);
    connect(view->horizontalHeader(), &QHeaderView::sectionResized, this, &VrkTableLayout::sectionResized);
    connect(view->horizontalHeader(), &QHeaderView::sortIndicatorChanged, this, &VrkTableLayout::schedule);
    connect(view->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex& current) {
                m_shown = current;
                schedule();
            });
    connect(model, &QAbstractItemModel::rowsInserted, this, &VrkTableLayout::schedule);
    connect(model, &QAbstractItemModel::rowsRemoved, this, &VrkTableLayout::schedule);
    connect(model, &QAbstractItemModel::layoutChanged, this, &VrkTableLayout::schedule);
    connect(model, &QAbstractItemModel::modelReset, this, [this] {
        m_delegate->forgetAll();
        forgetContents();
        forgetHeights();
    });
    // Cached heights of hidden records must be dropped, too, so the source model is watched.
    connect(model->tableModel(), &QAbstractItemModel::dataChanged, this, &VrkTableLayout::forget);
    connect(model->tableModel(), &QAbstractItemModel::rowsAboutToBeRemoved, this,
            [this](const QModelIndex&, int first, int last) {
                const QAbstractItemModel* source = m_model->tableModel();
                forget(source->index(first, 0), source->index(last, 0));
            });
}

VrkTableLayout::~VrkTableLayout() = default;

void VrkTableLayout::schedule()
{
    if (m_scheduled)
        return;
    m_scheduled = true;
    QMetaObject::invokeMethod(
        this,
        [this] {
            m_scheduled = false;
            measure();
        },
        Qt::QueuedConnection);
}

void VrkTableLayout::forget(const QModelIndex& first, const QModelIndex& last)
{
    if (last.row() - first.row() + 1 >= m_heights.size()) {
        m_delegate->forgetAll();
        m_heights.clear();
        m_contentRead.clear();
    } else {
        for (int row = first.row(); row <= last.row(); ++row) {
            const MDRData* record = m_model->tableModel()->record(row);
            m_delegate->forget(record);
            m_heights.remove(record);
            m_contentRead.remove(record);
        }
    }
    schedule();
}

void VrkTableLayout::forgetHeights()
{
    m_heights.clear();
    schedule();
}

int VrkTableLayout::contentHeight(int row)
{
    const MDRData* record = m_model->record(row);
    const auto known = m_heights.constFind(record);
    if (known != m_heights.constEnd())
        return *known;
    int height = 0;
    for (int column = 0; column < m_model->columnCount(); ++column) {
        if (!m_view->isColumnHidden(column))
            height = qMax(
                height, m_delegate->heightForWidth(m_model->index(row, column), m_view->columnWidth(column)));
    }
    m_heights.insert(record, height);
    return height;
}

void VrkTableLayout::measure()
{
    if (m_measuring || !m_view->isVisible())
        return;
    const QScopedValueRollback<bool> guard(m_measuring, true);
    // When rows shrink, further ones become visible, with words that need wider columns; when rows grow,
    // others are pushed out of view.
    for (int pass = 0; pass < 8; ++pass) {
        readWidths(false);
        if (m_model->rowCount() == 0 || (!measureOnce() && !readContents()))
            break;
    }
}

// Sets the heights of the visible rows; false if nothing changed.
bool VrkTableLayout::measureOnce()
{
    const int rows = m_model->rowCount();
    const int first = qMax(0, m_view->rowAt(0));
    const int below = m_view->rowAt(m_view->viewport()->height() - 1);
    const int last = below < 0 ? rows - 1 : below;

    // The first measured row is what the user looks at: it keeps its position.
    int anchor = first;
    while (anchor < last && !m_heights.contains(m_model->record(anchor)))
        ++anchor;
    if (!m_heights.contains(m_model->record(anchor)))
        anchor = first;
    const int anchorAt = m_view->rowViewportPosition(anchor);

    QVector<QPair<int, int>> changes;
    for (int row = first; row <= last; ++row) {
        const int height = contentHeight(row) + m_delegate->dayLineHeight(row);
        if (m_view->rowHeight(row) != height)
            changes.append({row, height});
    }
    for (const auto& change : qAsConst(changes))
        m_view->setRowHeight(change.first, change.second);
    if (!changes.isEmpty()) {
        // The range of the scroll bar must be updated before anything scrolls.
        QMetaObject::invokeMethod(m_view, "updateGeometries");
        QScrollBar* bar = m_view->verticalScrollBar();
        bar->setValue(bar->value() + m_view->rowViewportPosition(anchor) - anchorAt);
    }
    if (m_shown.isValid())
        m_view->scrollTo(m_shown);
    if (changes.isEmpty())
        m_shown = QPersistentModelIndex();
    return !changes.isEmpty();
}

void VrkTableLayout::showRow(const QModelIndex& index)
{
    m_view->scrollTo(index);
    m_shown = index;
    if (m_view->isVisible())
        measure();
    else
        schedule();
}

bool VrkTableLayout::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_view->viewport() && event->type() == QEvent::Resize) {
        distribute();
        schedule();
    } else if (watched == m_view && event->type() == QEvent::Show) {
        schedule();
    } else if (watched == m_view &&
               (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)) {
        m_delegate->forgetAll();
        applyFont();
        if (m_fitted)
            fitColumns();
        forgetHeights();
    }
    return false;
}

void VrkTableLayout::applyFont()
{
    const int line = m_view->fontMetrics().height();
    const int side = qMax(m_view->style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, m_view), line);
    m_view->setIconSize(QSize(side, side));
    m_view->verticalHeader()->setDefaultSectionSize(line + 6);
}

void VrkTableLayout::sectionResized(int column, int before, int now)
{
    if (!m_distributing && m_fitted && column < m_widths.size()) {
        if (before == 0 || now == 0) {
            m_widths[column] = Width(); // shown or hidden
            m_contentRead.clear();
        } else if (column != fillColumn()) {
            m_widths[column].byUser = true;
        }
    }
    forgetHeights();
}
