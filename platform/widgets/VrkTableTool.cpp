#include "VrkTableTool.h"

#include "CVrkCliApp.h"
#include "CVrkCliMod.h"
#include "PopGuard.h"
#include "VrkTableDelegate.h"
#include "VrkTableHeader.h"
#include "VrkTableLayout.h"

#include <algorithm>
#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QIcon>
#include <QKeyEvent>
#include <QPointer>
#include <QScrollBar>
#include <QTableView>
#include <utility>

struct VrkTableTool::Private {
    struct Column {
        QString field;
        int position = -1; ///< not set
        bool visible = true;
        bool hidden = false; ///< by the user
    };
    enum class AfterReset { Nothing, First, Record };

    explicit Private(VrkTableTool* tool) : model(tool), proxy(tool) {}

    Column& settings(const QString& field);
    void applyColumns();
    bool isHidden(const Column& column, int index) const
    {
        return !column.visible || (column.hidden && !model.isTemplateText(index));
    }
    QModelIndex indexOf(const MDRData* record) const;
    void makeCurrent(const QModelIndex& index);
    bool isDelivering() const;
    void waitFor(PopGuard* guard, VrkTableTool* tool);
    QString selectedText() const;

    VrkTableModel model;
    VrkTableProxyModel proxy;
    QPointer<QTableView> view;
    QPointer<VrkTableLayout> layout; ///< owned by the view, like the delegate
    QVector<Column> columns;         ///< in the order in which they were added
    QStringList userOrder;           ///< fields; empty: the positions of the columns
    AfterReset afterReset = AfterReset::Nothing;
    MDRData* wanted = nullptr;       ///< to become current after the reset, or when the box over the table
                                     ///< is closed
    QMetaObject::Connection waiting; ///< to the box over the table
};

VrkTableTool::Private::Column& VrkTableTool::Private::settings(const QString& field)
{
    for (Column& column : columns) {
        if (column.field.compare(field, Qt::CaseInsensitive) == 0)
            return column;
    }
    columns.append({field});
    return columns.last();
}

void VrkTableTool::Private::applyColumns()
{
    QHeaderView* header = view ? view->horizontalHeader() : nullptr;
    QVector<QPair<int, int>> positions;
    for (const Column& column : qAsConst(columns)) {
        const int index = header ? model.idxField(column.field) : -1;
        if (index < 0)
            continue;
        header->setSectionHidden(index, isHidden(column, index));
        if (column.position >= 0)
            positions.append({column.position, index});
    }
    std::stable_sort(positions.begin(), positions.end(),
                     [](const auto& left, const auto& right) { return left.first < right.first; });
    for (const auto& position : qAsConst(positions))
        header->moveSection(header->visualIndex(position.second), qMin(position.first, header->count() - 1));
    int next = 0;
    for (const QString& field : qAsConst(userOrder)) {
        const int index = header ? model.idxField(field) : -1;
        if (index >= 0)
            header->moveSection(header->visualIndex(index), next++);
    }
}

// The index of the record's row, in the current column or, if that is hidden, in the first visible one.
QModelIndex VrkTableTool::Private::indexOf(const MDRData* record) const
{
    const QModelIndex row = proxy.mapFromSource(model.indexOf(record));
    const QHeaderView* header = view ? view->horizontalHeader() : nullptr;
    if (!row.isValid() || !header)
        return row;
    int column = view->currentIndex().column();
    for (int visual = 0; (column < 0 || header->isSectionHidden(column)) && visual < header->count();
         ++visual)
        column = header->logicalIndex(visual);
    return row.sibling(row.row(), qMax(column, 0));
}

void VrkTableTool::Private::makeCurrent(const QModelIndex& index)
{
    if (!view || !index.isValid())
        return;
    // Scrolls only vertically: a user who has scrolled sideways to the text continues reading there.
    QScrollBar* sideways = view->horizontalScrollBar();
    const int position = sideways->value();
    view->setCurrentIndex(index);
    layout->showRow(index);
    sideways->setValue(position);
}

bool VrkTableTool::Private::isDelivering() const
{
    for (const QWidget* widget = view; widget; widget = widget->parentWidget()) {
        if (const auto* module = qobject_cast<const CVrkCliMod*>(widget))
            return module->app() && module->app()->isDelivering();
    }
    return false;
}

// Makes the wanted record current when the guard, and any guard raised in the meantime, is lowered.
void VrkTableTool::Private::waitFor(PopGuard* guard, VrkTableTool* tool)
{
    QObject::disconnect(waiting);
    waiting = QObject::connect(guard, &PopGuard::lowered, tool, [this, tool] {
        if (PopGuard* next = PopGuard::over(view)) {
            waitFor(next, tool);
            return;
        }
        QObject::disconnect(waiting);
        makeCurrent(indexOf(wanted));
        wanted = nullptr;
    });
}

VrkTableTool::VrkTableTool(QObject* parent) : QObject(parent), d(new Private(this))
{
    // Connected before the proxy, so that the current record is changed before it is removed.
    connect(&d->model, &QAbstractItemModel::modelAboutToBeReset, this, [this] {
        disconnect(d->waiting);
        d->wanted = nullptr;
        if (d->view && d->view->selectionModel())
            d->view->selectionModel()->clearCurrentIndex();
    });
    d->proxy.setSourceModel(&d->model);
    connect(&d->model, &QAbstractItemModel::modelReset, this, [this] {
        d->applyColumns();
        const Private::AfterReset then = std::exchange(d->afterReset, Private::AfterReset::Nothing);
        if (then == Private::AfterReset::First)
            setCurrentFirst();
        else if (then == Private::AfterReset::Record)
            setCurrentRecord(d->wanted);
    });
    // Connected before the view: while a question is open, the removal of its record must not make another
    // one current.
    connect(&d->proxy, &QAbstractItemModel::rowsAboutToBeRemoved, this,
            [this](const QModelIndex&, int first, int last) {
                const int row = d->view ? d->view->currentIndex().row() : -1;
                if (row >= first && row <= last && PopGuard::over(d->view))
                    d->view->selectionModel()->clear();
            });
}

VrkTableTool::~VrkTableTool()
{
    if (!d->view)
        return;
    delete d->layout;
    d->view->setModel(nullptr);
    delete d->view->itemDelegate();
}

void VrkTableTool::setTableView(QTableView* view)
{
    if (!view || d->view)
        return;
    d->view = view;
    auto* header = new VrkTableHeader(view);
    view->setHorizontalHeader(header);
    header->show(); // a child added to a visible view is hidden at first
    view->setModel(&d->proxy);
    auto* delegate = new VrkTableDelegate(&d->proxy, view);
    view->setItemDelegate(delegate);
    d->layout = new VrkTableLayout(&d->proxy, view, delegate);
    view->installEventFilter(this);
    d->applyColumns();
}

void VrkTableTool::setCMDArray(CMDArray* array)
{
    d->model.setCMDArray(array);
}

void VrkTableTool::setDefaultSettingsView()
{
    QTableView* view = d->view;
    if (!view)
        return;
    view->setSelectionBehavior(QAbstractItemView::SelectRows);
    view->setSelectionMode(QAbstractItemView::SingleSelection);
    view->setEditTriggers(QAbstractItemView::NoEditTriggers);
    view->setAlternatingRowColors(true);
    view->setShowGrid(false); // the delegate draws the lines, because day lines have no column separators
    view->setWordWrap(true);
    view->setTabKeyNavigation(false);
    view->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    view->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    view->setCornerButtonEnabled(false);

    QHeaderView* rows = view->verticalHeader();
    rows->setVisible(false);
    rows->setSectionResizeMode(QHeaderView::Interactive);
    rows->setMinimumSectionSize(1);
    QHeaderView* columns = view->horizontalHeader();
    columns->setMinimumSectionSize(1);
    columns->setSectionsClickable(true);
    columns->setSortIndicator(d->proxy.sortColumn(), d->proxy.sortOrder());
    view->setSortingEnabled(true);
    d->layout->applyFont();
}

void VrkTableTool::setDayLines(DayLines lines)
{
    if (auto* delegate = d->view ? qobject_cast<VrkTableDelegate*>(d->view->itemDelegate()) : nullptr)
        delegate->setDayLines(lines != NoDayLines, lines == DayLinesAll);
    if (d->layout)
        d->layout->measure();
}

VrkTableModel* VrkTableTool::model() const
{
    return &d->model;
}
VrkTableProxyModel* VrkTableTool::proxy() const
{
    return &d->proxy;
}
QTableView* VrkTableTool::tableView() const
{
    return d->view;
}

MDRData* VrkTableTool::currentRecord() const
{
    return d->view ? d->proxy.record(d->view->currentIndex().row()) : nullptr;
}

void VrkTableTool::setCurrentRecord(MDRData* record)
{
    disconnect(d->waiting);
    if (d->model.isResetting()) {
        d->wanted = record;
        d->afterReset = Private::AfterReset::Record;
        return;
    }
    PopGuard* guard = d->view ? PopGuard::over(d->view) : nullptr;
    if (!guard || !d->isDelivering()) {
        d->makeCurrent(d->indexOf(record));
        return;
    }
    d->wanted = record;
    d->waitFor(guard, this);
}

void VrkTableTool::setCurrentFirst()
{
    disconnect(d->waiting);
    if (d->model.isResetting())
        d->afterReset = Private::AfterReset::First;
    else
        d->makeCurrent(d->indexOf(d->proxy.record(0)));
}

MDRData* VrkTableTool::recordByIndex(const QModelIndex& index) const
{
    return index.model() == &d->proxy ? d->proxy.record(index.row()) : nullptr;
}

void VrkTableTool::setColumns(const QVector<Column>& columns)
{
    const MDArray* array = d->model.cmdArray()->array;
    // all columns at once: otherwise the header recomputes its layout for each column
    d->model.beginResetModel();
    for (int i = 0; i < MDAFldCount(array); ++i)
        setColumnVisible(QLatin1String(MDRFldByNum(array, i)->name), false);
    for (int i = 0; i < columns.size(); ++i) {
        const Column& column = columns[i];
        const QString field = QLatin1String(column.field);
        d->model.setCellConversion(field, column.conversion);
        d->model.setHeaderData(field, Qt::Horizontal, column.title, Qt::DisplayRole);
        if (column.icon)
            d->model.setHeaderData(field, Qt::Horizontal, QIcon(QLatin1String(column.icon)),
                                   Qt::DecorationRole);
        if (!column.name.isEmpty())
            d->model.setHeaderData(field, Qt::Horizontal, column.name, Qt::AccessibleTextRole);
        setColumnPosition(field, i);
        setColumnVisible(field, true);
    }
    d->model.endResetModel();
}

void VrkTableTool::setColumnPosition(const QString& field, int position)
{
    d->settings(field).position = position;
    if (!d->model.isResetting()) // the end of the reset applies them all
        d->applyColumns();
}

void VrkTableTool::setColumnVisible(const QString& field, bool visible)
{
    Private::Column& settings = d->settings(field);
    settings.visible = visible;
    const int column = d->model.idxField(field);
    if (d->view && column >= 0)
        d->view->setColumnHidden(column, d->isHidden(settings, column));
}

QVector<VrkTableTool::Choice> VrkTableTool::columnChoices() const
{
    QVector<Choice> choices;
    const QHeaderView* header = d->view ? d->view->horizontalHeader() : nullptr;
    for (int visual = 0; header && visual < header->count(); ++visual) {
        const int index = header->logicalIndex(visual);
        const MDRField* field = d->model.field(index);
        const QString name = field ? QString::fromLatin1(field->name) : QString();
        const Private::Column settings = d->settings(name);
        if (!field || !settings.visible)
            continue;
        QString title = d->model.headerData(index, Qt::Horizontal, Qt::AccessibleTextRole).toString();
        if (title.isEmpty())
            title = d->model.headerData(index, Qt::Horizontal).toString().simplified();
        choices.append({name, title, !d->isHidden(settings, index), d->model.isTemplateText(index)});
    }
    return choices;
}

void VrkTableTool::setUserColumns(const QStringList& order, const QStringList& hidden)
{
    d->userOrder = order;
    for (Private::Column& column : d->columns)
        column.hidden = hidden.contains(column.field, Qt::CaseInsensitive);
    if (!d->model.isResetting()) // the end of the reset applies them all
        d->applyColumns();
}

QStringList VrkTableTool::userOrder() const
{
    return d->userOrder;
}

QStringList VrkTableTool::userHidden() const
{
    QStringList hidden;
    for (const Private::Column& column : qAsConst(d->columns)) {
        if (column.hidden)
            hidden << column.field;
    }
    return hidden;
}

void VrkTableTool::sortByColumn(const QString& field, Qt::SortOrder order)
{
    const int column = d->model.idxField(field);
    if (column < 0)
        return;
    if (d->view)
        d->view->sortByColumn(column, order);
    else
        d->proxy.sort(column, order);
}

void VrkTableTool::adjustColumnsWidth()
{
    if (d->layout)
        d->layout->fitColumns();
}

int VrkTableTool::comfortableWidth() const
{
    return d->layout ? d->layout->comfortableWidth() : 0;
}

QVariantMap VrkTableTool::userWidths() const
{
    QVariantMap widths;
    if (!d->layout)
        return widths;
    const QHash<int, double> byColumn = d->layout->userWidths();
    for (auto it = byColumn.begin(); it != byColumn.end(); ++it) {
        if (const MDRField* field = d->model.field(it.key()))
            widths.insert(QString::fromLatin1(field->name), it.value());
    }
    return widths;
}

void VrkTableTool::setUserWidths(const QVariantMap& widths)
{
    QHash<int, double> byColumn;
    for (auto it = widths.begin(); it != widths.end(); ++it)
        byColumn.insert(d->model.idxField(it.key()), it.value().toDouble());
    if (d->layout)
        d->layout->setUserWidths(byColumn);
}

void VrkTableTool::updateView(MDRData* record, const QVector<int>& columns)
{
    d->model.updateRecord(record, columns);
}

// The visible text of the selected rows, cells separated by tabs.
QString VrkTableTool::Private::selectedText() const
{
    QModelIndexList rows = view->selectionModel()->selectedRows();
    std::sort(rows.begin(), rows.end());
    const QHeaderView* header = view->horizontalHeader();
    QStringList lines;
    for (const QModelIndex& row : qAsConst(rows)) {
        QStringList cells;
        for (int visual = 0; visual < header->count(); ++visual) {
            const int column = header->logicalIndex(visual);
            const QString text = row.sibling(row.row(), column).data().toString();
            if (!header->isSectionHidden(column) && !text.isEmpty())
                cells.append(text);
        }
        lines.append(cells.join(QLatin1Char('\t')));
    }
    return lines.join(QLatin1Char('\n'));
}

bool VrkTableTool::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == d->view && event->type() == QEvent::KeyPress &&
        static_cast<QKeyEvent*>(event)->matches(QKeySequence::Copy)) {
        const QString text = d->selectedText();
        if (!text.isEmpty())
            QGuiApplication::clipboard()->setText(text);
        return true;
    }
    return QObject::eventFilter(watched, event);
}
