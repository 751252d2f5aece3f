#include "ReportTable.h"

#include "CVrkCliSes.h"
#include "Filters.h"
#include "IconCells.h"
#include "LogbookFields.h"
#include "LogbookTables.h"
#include "Row.h"
#include "TextCells.h"
#include "VrkTableModel.h"
#include "VrkTableProxyModel.h"

#include <QTableView>

namespace
{
/// What an icon says, for files and screen readers.
class MeaningCell : public AbstractHfnCellConversion
{
public:
    MeaningCell(const NumberField& field, const QStringList& words, QObject* parent)
        : AbstractHfnCellConversion(parent), m_field(field), m_words(words)
    {
    }
    QVariant data(const AbstractHfnCellData& cell) const override
    {
        return m_words.value(Row(cell.record).number(m_field, -1));
    }

private:
    const NumberField& m_field;
    QStringList m_words;
};
} // namespace

ReportTable::ReportTable(QTableView* view, CVrkCliSes* session, QObject* parent)
    : QObject(parent),
      m_session(session),
      m_view(view),
      m_records(LogbookTable::Records, LogbookRecordExtFields, ""),
      m_tool(std::make_unique<VrkTableTool>(this)),
      m_filter(new FilterOnlyApprove(this))
{
    m_tool->setTableView(view);
    m_tool->setCMDArray(&m_records.data);
    m_tool->setDefaultSettingsView();
    m_tool->proxy()->setFilterRows(m_filter);
}

ReportTable::~ReportTable() = default;

void ReportTable::setWorkersTable(CModelTable* table, const QString& times)
{
    auto* color = new ColorCell(this);
    auto* time = new DateTimeCell(times, m_session, this);
    auto* worker = new WorkerCell(table, this);
    auto* status = new StatusCell(this);
    auto* direction = new DirectionCell(this);
    auto* text = new StrikeOutCell(m_view->font(), this);
    text->setRoleRedirect(Qt::ForegroundRole, color);
    for (AbstractHfnCellConversion* cell : std::initializer_list<AbstractHfnCellConversion*>{time, worker}) {
        cell->setRoleRedirect(Qt::ForegroundRole, color);
        cell->setRoleRedirect(Qt::FontRole, text);
    }
    status->setRoleRedirect(
        Qt::AccessibleTextRole,
        new MeaningCell(Field::status, {tr("Утверждена"), tr("Черновик"), tr("Удалена")}, this));
    direction->setRoleRedirect(
        Qt::AccessibleTextRole,
        new MeaningCell(Field::direction, {QString(), QStringLiteral("←"), QStringLiteral("→")}, this));

    const auto twoLines = [](const QString& first, const QString& second) {
        return first + QLatin1Char('\n') + second;
    };
    m_tool->model()->setTextCodec(m_session->codec());
    m_tool->setColumns({
        {Field::status, status, tr("Статус")},
        {Field::recordTime, time, twoLines(tr("Время"), tr("записи"))},
        {Field::eventTime, time, twoLines(tr("Время"), tr("события"))},
        {Field::WorkerKey, worker, tr("Автор")},
        {Field::direction, direction, QString(), ":/icons/direction.png", tr("Направление")},
        {Field::ReceiverWorkerKey, worker, twoLines(tr("Кто"), tr("Кому"))},
        {Field::VisaWorkerKey, worker, tr("Виза")},
        {Field::executionTime, time, twoLines(tr("Время"), tr("выполнения"))},
        {Field::html, text, tr("Текст")},
    });
    m_tool->sortByColumn(QLatin1String(Field::recordTime), Qt::AscendingOrder);
    m_tool->adjustColumnsWidth();
}

void ReportTable::setRecordsTable(CModelTable* table)
{
    constexpr int noTable = -3;
    CMDArray& records = m_records.data;
    m_tool->model()->beginResetModel();
    records.lastError = table ? MDACopy(records.array, table->data.array, 1) : noTable;
    m_tool->model()->endResetModel();
}

void ReportTable::setDayLines(VrkTableTool::DayLines lines)
{
    m_tool->setDayLines(lines);
}

void ReportTable::setOnlyApproved(bool only)
{
    m_filter->setEnabled(only);
    m_tool->setColumnVisible(QLatin1String(Field::status), !only);
}
