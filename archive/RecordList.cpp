#include "RecordList.h"

#include "AbstractHfnCellConversion.h"
#include "CModelTable.h"
#include "CVrkCliApp.h"
#include "CVrkCliMod.h"
#include "CVrkCliSes.h"
#include "HfnTime.h"
#include "KeyNames.h"
#include "LogbookFields.h"
#include "MarkedText.h"
#include "RecordEntries.h"
#include "RecordRules.h"
#include "Row.h"
#include "VrkTableModel.h"
#include "VrkTableProxyModel.h"
#include "VrkTableTool.h"

#include <QAction>
#include <QBrush>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QStackedLayout>
#include <QTableView>
#include <QTextCodec>

namespace
{
const MDRFieldDescr moreFields[] = {
    Field::DepartmentKey, Field::startTime, Field::endTime, Field::lacks, Field::comments, Field::files,
};

MDRVar own(const AbstractHfnCellData& cell)
{
    MDRVar value;
    MDRGetVal(MDRFldByNum(cell.array->array, cell.field), cell.record, &value);
    return value;
}

bool isDeleted(const AbstractHfnCellData& cell)
{
    return Row(cell.record).number(Field::status, StatusApproved) == StatusDeleted;
}

/// Deleted records are grey and struck out, like in the journal.
class Cell : public AbstractHfnCellConversion
{
public:
    QVariant data(const AbstractHfnCellData& cell) const override
    {
        if (cell.role == Qt::ForegroundRole)
            return isDeleted(cell) ? QBrush(Qt::gray) : QVariant();
        if (cell.role != Qt::FontRole || !isDeleted(cell))
            return AbstractHfnCellConversion::data(cell);
        QFont font;
        font.setStrikeOut(true);
        return font;
    }
};

class NameCell : public Cell
{
public:
    using Name = QString (KeyNames::*)(const QByteArray&) const;
    NameCell(const KeyNames* names, Name name) : m_names(names), m_name(name) {}
    QVariant data(const AbstractHfnCellData& cell) const override
    {
        return cell.role == Qt::DisplayRole ? QVariant((m_names->*m_name)(MDRValue::copy(own(cell))))
                                            : Cell::data(cell);
    }

private:
    const KeyNames* m_names;
    Name m_name;
};

class TimeCell : public Cell
{
public:
    QVariant data(const AbstractHfnCellData& cell) const override
    {
        const MDRVar time = own(cell);
        if (cell.role != Qt::DisplayRole || !MDRValue::hasTime(time))
            return cell.role == Qt::DisplayRole ? QVariant() : Cell::data(cell);
        return HfnTime_to_DateTime(time.value.real, -1).toString(QStringLiteral("dd.MM.yyyy hh:mm"));
    }
};

class StateCell : public Cell
{
public:
    QVariant data(const AbstractHfnCellData& cell) const override
    {
        const MDRVar status = own(cell);
        const int state = status.isNull ? -1 : status.value.number;
        if (cell.role == Qt::DecorationRole) {
            const QStringList icons{QStringLiteral("apply"), QStringLiteral(":/archive/draft.png"),
                                    QStringLiteral(":/archive/deleted.png")};
            return state >= 0 && state < icons.size() ? CVrkCliMod::icon(icons.at(state)) : QVariant();
        }
        if (cell.role != Qt::ToolTipRole && cell.role != Qt::AccessibleTextRole)
            return cell.role == Qt::DisplayRole ? QVariant() : Cell::data(cell);
        const QStringList names{RecordList::tr("Утверждена"), RecordList::tr("Черновик"),
                                RecordList::tr("Удалена")};
        return names.value(state);
    }
};

class LacksCell : public Cell
{
public:
    QVariant data(const AbstractHfnCellData& cell) const override
    {
        const MDRVar value = own(cell);
        const int lacks = value.isNull ? 0 : value.value.number;
        if (cell.role == Qt::DisplayRole) {
            QStringList names;
            if (lacks & RecordRules::Approval)
                names << RecordList::tr("Черновик");
            if (lacks & RecordRules::ExecutionTime)
                names << RecordList::tr("Время выполнения");
            if (lacks & RecordRules::SecondMarker)
                names << RecordList::tr("Второй маркер");
            return names.join(QLatin1Char('\n'));
        }
        if (cell.role != Qt::DecorationRole)
            return Cell::data(cell);
        const char* icon = lacks & RecordRules::Approval        ? "draft"
                           : lacks & RecordRules::ExecutionTime ? "time"
                                                                : "marker";
        return QIcon(QStringLiteral(":/archive/%1.png").arg(QLatin1String(icon)));
    }
};

/// A zero is shown as nothing.
class CountCell : public Cell
{
public:
    QVariant data(const AbstractHfnCellData& cell) const override
    {
        const QVariant count = Cell::data(cell);
        return cell.role == Qt::DisplayRole && count.toInt() == 0 ? QVariant() : count;
    }
};

class TextCell : public Cell
{
public:
    explicit TextCell(const QVector<SearchWords::Term>& terms) : m_terms(terms) {}
    QVariant data(const AbstractHfnCellData& cell) const override
    {
        const QVariant stored = Cell::data(cell);
        if (cell.role != Qt::UserRole || m_terms.isEmpty())
            return stored;
        return MarkedText::html(stored.toString(), m_terms);
    }

private:
    const QVector<SearchWords::Term>& m_terms;
};
} // namespace

/// The conversions of the columns.
class RecordList::Cells
{
public:
    Cells(const KeyNames* names, const QVector<SearchWords::Term>& terms)
        : worker(names, &KeyNames::workerName), department(names, &KeyNames::departmentName), text(terms)
    {
    }
    StateCell state;
    LacksCell lacks;
    CountCell count;
    TimeCell time;
    NameCell worker;
    NameCell department;
    TextCell text;
};

RecordList::RecordList(QWidget* parent)
    : QWidget(parent),
      m_pages(new QStackedLayout(this)),
      m_view(new QTableView(this)),
      m_empty(new QLabel(this)),
      m_menu(new QMenu(this)),
      m_showAction(m_menu->addAction(tr("Показать в журнале"))),
      m_copyAction(m_menu->addAction(CVrkCliMod::icon(QStringLiteral("copy")), tr("Копировать")))
{
    m_view->setObjectName(QStringLiteral("foundTable"));
    m_view->setAccessibleName(tr("Записи"));
    m_empty->setObjectName(QStringLiteral("emptyLabel"));
    m_empty->setAlignment(Qt::AlignCenter);
    m_empty->setWordWrap(true);
    m_empty->setMargin(24);
    m_pages->addWidget(m_view);
    m_pages->addWidget(m_empty);
    m_pages->setCurrentWidget(m_empty);
    m_empty->setFocusPolicy(Qt::StrongFocus);
    setFocusProxy(m_empty);

    m_showAction->setObjectName(QStringLiteral("showAction"));
    m_showAction->setShortcut(Qt::Key_Return); // shown in the menu; the view handles the key itself
    m_showAction->setShortcutContext(Qt::WidgetShortcut);
    m_copyAction->setObjectName(QStringLiteral("copyAction"));
    m_copyAction->setShortcut(QKeySequence::Copy);
    m_copyAction->setShortcutContext(Qt::WidgetShortcut);
    m_view->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(m_view, &QTableView::customContextMenuRequested, this, &RecordList::showMenu);
    connect(m_view, &QTableView::doubleClicked, this, &RecordList::openCurrent);
    connect(m_showAction, &QAction::triggered, this, &RecordList::openCurrent);
    connect(m_copyAction, &QAction::triggered, this, &RecordList::copyCurrent);
    m_view->installEventFilter(this);
}

RecordList::~RecordList() = default;

void RecordList::init(CVrkCliMod* module, const KeyNames* names)
{
    m_module = module;
    RecordEntries::append(m_menu, m_view, module->app(), [this] { return currentKey(); });
    MDACreate(&m_records.array, 0);
    MDAFldAdd(m_records.array, fieldCount(LogbookRecordFields), LogbookRecordFields);
    MDAFldAdd(m_records.array, fieldCount(moreFields), moreFields);
    m_records.KeyAdd("", 0);
    m_cells = std::make_unique<Cells>(names, m_terms);

    m_tool = std::make_unique<VrkTableTool>(this);
    m_tool->setTableView(m_view);
    m_tool->setCMDArray(&m_records);
    m_tool->setDefaultSettingsView();
    m_tool->setDayLines(VrkTableTool::NoDayLines);
    m_view->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_tool->model()->setTextCodec(module->session()->codec());
    m_tool->setColumns({
        {Field::status, &m_cells->state, QString()},
        {Field::lacks, &m_cells->lacks, tr("Не хватает")},
        {Field::recordTime, &m_cells->time, tr("Время записи")},
        {Field::DepartmentKey, &m_cells->department, tr("Подразделение")},
        {Field::WorkerKey, &m_cells->worker, tr("Автор")},
        {Field::comments, &m_cells->count, tr("Комментарии")},
        {Field::files, &m_cells->count, tr("Файлы")},
        {Field::html, &m_cells->text, tr("Текст")},
    });
    m_tool->model()->setHeaderData(QLatin1String(Field::status), Qt::Horizontal, tr("Состояние"),
                                   Qt::AccessibleTextRole);
    setColumnVisible(Field::comments, false);
    setColumnVisible(Field::files, false);
    m_tool->sortByColumn(QLatin1String(Field::recordTime), Qt::DescendingOrder);
    for (const auto signal : {&QAbstractItemModel::rowsInserted, &QAbstractItemModel::rowsRemoved})
        connect(m_tool->proxy(), signal, this, &RecordList::showWhatIsThere);
    connect(m_tool->proxy(), &QAbstractItemModel::modelReset, this, &RecordList::showWhatIsThere);
    connect(m_tool->proxy(), &QAbstractItemModel::layoutChanged, this, &RecordList::showWhatIsThere);
}

void RecordList::setColumnVisible(const char* field, bool visible)
{
    m_tool->setColumnVisible(QLatin1String(field), visible);
}

void RecordList::replace(const MDArray* answer, const QVector<SearchWords::Term>& terms)
{
    const QByteArray current = currentKey();
    m_tool->model()->beginResetModel();
    MDAClearRec(m_records.array);
    m_terms = terms;
    MDARecsAppend(m_records.array, answer);
    m_tool->model()->endResetModel();
    const QVariantMap byUser = m_tool->userWidths();
    m_tool->adjustColumnsWidth();
    m_tool->setUserWidths(byUser);
    if (MDRData* again = recordOf(current))
        m_tool->setCurrentRecord(again);
    else
        m_tool->setCurrentFirst();
}

void RecordList::makeCurrent(const QByteArray& recordKey)
{
    if (MDRData* record = recordOf(recordKey))
        m_tool->setCurrentRecord(record);
}

void RecordList::add(MDRData* record)
{
    m_tool->model()->beginAppendRows(1);
    m_records.RecPost(record);
    m_tool->model()->endAppendRows();
}

void RecordList::remove(const QByteArray& recordKey)
{
    MDRData* record = recordOf(recordKey);
    if (!record)
        return;
    m_tool->model()->beginRemoveRecord(record);
    MDARecDel(record);
    m_tool->model()->endRemoveRecord();
}

MDRData* RecordList::recordOf(const QByteArray& key) const
{
    return recordByKeyLink(m_records, key.constData());
}

void RecordList::setEmptyText(const QString& text)
{
    m_empty->setText(text);
}

void RecordList::showWhatIsThere()
{
    QWidget* page = m_tool->proxy()->rowCount() > 0 ? static_cast<QWidget*>(m_view) : m_empty;
    const bool hadFocus = m_view->hasFocus() || m_empty->hasFocus();
    m_pages->setCurrentWidget(page);
    setFocusProxy(page); // Tab must not end at a hidden table
    if (hadFocus)
        page->setFocus();
}

QByteArray RecordList::currentKey() const
{
    return Row(m_tool ? m_tool->currentRecord() : nullptr).key();
}

void RecordList::openCurrent()
{
    const QByteArray key = currentKey();
    if (!key.isEmpty())
        m_module->app()->notifyModule(QStringLiteral("logbook"), QStringLiteral("showRecord"),
                                      QString::fromUtf8(key));
}

void RecordList::copyCurrent()
{
    QKeyEvent copy(QEvent::KeyPress, Qt::Key_C, Qt::ControlModifier);
    QCoreApplication::sendEvent(m_view, &copy);
}

void RecordList::showMenu(const QPoint& place)
{
    if (!currentKey().isEmpty())
        m_menu->popup(m_view->viewport()->mapToGlobal(place));
}

bool RecordList::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_view && event->type() == QEvent::KeyPress) {
        const auto* key = static_cast<QKeyEvent*>(event);
        if ((key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter) &&
            !(key->modifiers() & ~Qt::KeypadModifier)) {
            openCurrent();
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}
