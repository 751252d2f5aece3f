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

    createTable(m_shown, new FilterUnreadedComments(&m_shown.comments, this));
    m_tableTool->setDayLines(VrkTableTool::DayLinesAll);
    configureTableTool(); // before the rows are loaded: each conversion updates its whole column

    m_tableTool->model()->beginResetModel();
    uploadRecords();
    uploadByRecords(m_shown.comments);
    uploadByRecords(m_shown.files);
    m_shown.preparer.prepareRecords();
    m_tableTool->model()->endResetModel();
    m_tableTool->adjustColumnsWidth();

    createAnnex({QStringLiteral("CommentsWidget"), [this] { return m_module->session()->GetHfnTime(); },
                 MDRValue::hasTime});
    createConnections();
    m_commentsPane->updateButtons();
    m_filesPane->updateButtons();
    emit titleChanged();
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
