#include "ReportDialog.h"

#include "CVrkCliApp.h"
#include "CVrkCliMod.h"
#include "CVrkCliSes.h"
#include "Filters.h"
#include "IconCells.h"
#include "LogbookFields.h"
#include "LogbookTables.h"
#include "TextCells.h"
#include "ui_ReportDialog.h"
#include "UserSettings.h"
#include "VrkPreview.h"
#include "VrkTableModel.h"
#include "VrkTableProxyModel.h"

#include <QKeyEvent>
#include <QToolBar>
#include <QToolButton>

ReportDialog::ReportDialog(QWidget* parent, int flag)
    : CPopTemplate(parent, flag),
      m_form(new Ui::ReportDialog),
      m_records(LogbookTable::Records, LogbookRecordExtFields, ""),
      m_preview(new VrkPreview(this)),
      m_tableTool(std::make_unique<VrkTableTool>(this)),
      m_filter(new FilterOnlyApprove(this))
{
    m_form->setupUi(this);
    setWindowIcon(QIcon(QStringLiteral(":/icons/report.png")));
    createToolBar();

    m_tableTool->setTableView(m_form->recordsTable);
    m_tableTool->setCMDArray(&m_records.data);
    m_tableTool->setDefaultSettingsView();
    m_tableTool->proxy()->setFilterRows(m_filter);

    m_preview->setWindowIcon(QIcon(QStringLiteral(":/icons/preview.png")));
    m_preview->setWindowTitle(tr("Печать отчета"));
    m_preview->setHeaderBackgroundColor(Qt::gray);
    m_preview->setView(m_form->recordsTable);
}

ReportDialog::~ReportDialog() = default;

void ReportDialog::createToolBar()
{
    auto* bar = new QToolBar(this);
    bar->setObjectName(QStringLiteral("reportBar"));
    const auto append = [bar](const char* name, const char* icon, const QString& tip) {
        auto* button = new QToolButton(bar);
        button->setObjectName(QLatin1String(name));
        button->setIcon(QIcon(QLatin1String(icon)));
        button->setToolTip(tip);
        button->setFocusPolicy(Qt::StrongFocus);
        bar->addWidget(button);
        return button;
    };
    m_approveButton = append("onlyApprovedButton", ":/icons/apply.png", tr("Только утвержденные записи"));
    m_approveButton->setCheckable(true);
    m_approveButton->setChecked(true);
    QToolButton* print = append("printButton", ":/icons/preview.png", tr("Печать"));
    m_form->verticalLayout->insertWidget(0, bar);
    connect(m_approveButton, &QToolButton::clicked, this, &ReportDialog::updateApprove);
    connect(print, &QToolButton::clicked, this, &ReportDialog::showPreview);
}

void ReportDialog::setWorkersTable(CModelTable* table)
{
    m_workers = table;
    createTableColumns();
    updateApprove();
}

void ReportDialog::createTableColumns()
{
    CVrkCliSes* session = module()->session();
    auto* color = new ColorCell(this);
    auto* time = new DateTimeCell(QStringLiteral("hh:mm"), session, this);
    auto* worker = new WorkerCell(m_workers, this);
    auto* status = new StatusCell(this);
    auto* direction = new DirectionCell(this);
    auto* text = new StrikeOutCell(m_form->recordsTable->font(), this);
    text->setRoleRedirect(Qt::ForegroundRole, color);
    for (AbstractHfnCellConversion* cell : std::initializer_list<AbstractHfnCellConversion*>{time, worker}) {
        cell->setRoleRedirect(Qt::ForegroundRole, color);
        cell->setRoleRedirect(Qt::FontRole, text);
    }

    const auto twoLines = [](const QString& first, const QString& second) {
        return first + QLatin1Char('\n') + second;
    };
    m_tableTool->model()->setTextCodec(session->codec());
    m_tableTool->setColumns({
        {Field::status, status, tr("Статус")},
        {Field::recordTime, time, twoLines(tr("Время"), tr("записи"))},
        {Field::eventTime, time, twoLines(tr("Время"), tr("события"))},
        {Field::WorkerKey, worker, tr("Автор")},
        {Field::direction, direction, QString(), ":/icons/direction.png"},
        {Field::ReceiverWorkerKey, worker, twoLines(tr("Кто"), tr("Кому"))},
        {Field::VisaWorkerKey, worker, tr("Виза")},
        {Field::executionTime, time, twoLines(tr("Время"), tr("выполнения"))},
        {Field::html, text, tr("Текст")},
    });
    m_tableTool->sortByColumn(QLatin1String(Field::recordTime), Qt::AscendingOrder);
    m_tableTool->adjustColumnsWidth();
}

void ReportDialog::setRecordsTable(CModelTable* table)
{
    constexpr int noTable = -3;
    CMDArray& records = m_records.data;
    m_tableTool->model()->beginResetModel();
    records.lastError = table ? MDACopy(records.array, table->data.array, 1) : noTable;
    m_tableTool->model()->endResetModel();
}

void ReportDialog::setDayLines(VrkTableTool::DayLines lines)
{
    m_tableTool->setDayLines(lines);
}

void ReportDialog::setReportTitle(const QString& title, const QString& period)
{
    m_form->titleLabel->setText(title + QLatin1Char('\n') + period);
}

void ReportDialog::updateApprove()
{
    const bool isOnlyApproved = m_approveButton->isChecked();
    m_filter->setEnabled(isOnlyApproved);
    m_tableTool->setColumnVisible(QLatin1String(Field::status), !isOnlyApproved);
}

void ReportDialog::showPreview()
{
    m_preview->setMaxColummnWidth(100);
    m_preview->setFooter(m_form->titleLabel->text());
    const QString seal = module()->session()->sealOnPaper();
    m_preview->setImprint(seal.isEmpty() ? QString() : tr("Опечатано: %1").arg(seal));
    m_preview->setCode(module()->app()->settings()->value(Setting::reportCode).toBool() ? seal.toLatin1()
                                                                                        : QByteArray());
    m_preview->setFile(module()->app()->settings()->reportFolder(), m_fileName);
    m_preview->showDocument();
}

void ReportDialog::keyPressEvent(QKeyEvent* event)
{
    if (event->matches(QKeySequence::Print))
        showPreview();
    CPopTemplate::keyPressEvent(event);
}

void ReportDialog::showEvent(QShowEvent* event)
{
    resize(900, 500);
    moveToCenter();
    CPopTemplate::showEvent(event);
}
