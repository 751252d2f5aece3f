#include "CommentsWidget.h"

#include "CommentsPane.h"
#include "CVrkCliMod.h"
#include "CVrkCliSes.h"
#include "FilesPane.h"
#include "Filters.h"
#include "LocationInfo.h"
#include "LogbookTables.h"
#include "MDRValues.h"
#include "PageMessages.h"
#include "RecordColumns.h"
#include "ui_LogBookTab.h"
#include "VrkTableProxyModel.h"
#include "VrkTableTool.h"

CommentsWidget::CommentsWidget(QWidget* parent) : LogBookTab(parent) {}

CommentsWidget::~CommentsWidget()
{
    dropAnnex();
}

void CommentsWidget::init(CVrkCliMod* module, LocationInfo* location)
{
    m_ui->additionalTab->removeTab(m_ui->additionalTab->indexOf(m_ui->filesTab));
    m_module = module;
    m_location = location;
    m_isInit = true;

    m_filter = new FilterUnreadedComments(&m_shown.comments, this);
    m_tableTool = new VrkTableTool(this);
    m_tableTool->setTableView(m_ui->recordsTable);
    m_tableTool->setCMDArray(&m_shown.records.data);
    m_tableTool->setDefaultSettingsView();
    m_tableTool->setDayLines(VrkTableTool::DayLinesAll);
    m_tableTool->proxy()->setFilterRows(m_filter);
    configureTableTool(); // before the rows are loaded: each conversion updates its whole column

    m_tableTool->model()->beginResetModel();
    uploadRecords();
    uploadByRecords(m_shown.comments);
    uploadByRecords(m_shown.files);
    m_shown.preparer.prepareRecords();
    m_tableTool->model()->endResetModel();
    m_tableTool->adjustColumnsWidth();

    createAnnex({QStringLiteral("CommentsWidget"), m_shown,
                 [this] { return m_module->session()->GetHfnTime(); }, MDRValue::hasTime});
    createConnections();
    m_commentsPane->updateButtons();
    m_filesPane->updateButtons();
    emit titleChanged();
}

void CommentsWidget::configureTableTool()
{
    m_columns = new RecordColumns(m_module->session(),
                                  m_location->table(QLatin1String(LogbookTable::Workers)), font(), this);
    m_columns->configure(m_tableTool);
}

void CommentsWidget::createConnections()
{
    connect(m_ui->recordsTable->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex& index) { reloadPanes(m_tableTool->recordByIndex(index)); });
}

QString CommentsWidget::title() const
{
    return tr("Комментарии") +
           QStringLiteral(" (%1)").arg(m_tableTool ? m_tableTool->proxy()->rowCount() : 0);
}
