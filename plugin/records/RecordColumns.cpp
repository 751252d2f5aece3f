#include "RecordColumns.h"

#include "CVrkCliSes.h"
#include "Fields.h"
#include "IconCells.h"
#include "MarkerCells.h"
#include "TextCells.h"
#include "VrkTableModel.h"
#include "VrkTableTool.h"

#include <QIcon>

RecordColumns::RecordColumns(CVrkCliSes* session, CModelTable* workers, const QFont& font, QObject* parent)
    : QObject(parent), m_session(session)
{
    auto* color = new ColorCell(this);
    m_time = new DateTimeCell(QStringLiteral("hh:mm"), session, this);
    m_worker = new WorkerCell(workers, this);
    m_status = new StatusCell(this);
    m_strikeOut = new StrikeOutCell(font, this);
    m_sign = new SignCell(workers, this);
    m_comment = new CommentCell(this);
    m_file = new FileCell(this);
    m_direction = new DirectionCell(this);
    m_firstMarker = new FirstMarkerCell(this);
    m_secondMarker = new SecondMarkerCell(workers, this);
    m_execution = new TimeExecutionCell(this);

    m_strikeOut->setRoleRedirect(Qt::ForegroundRole, color);
    for (AbstractHfnCellConversion* text : {m_time, m_worker}) {
        text->setRoleRedirect(Qt::ForegroundRole, color);
        text->setRoleRedirect(Qt::FontRole, m_strikeOut);
    }
}

void RecordColumns::setFont(const QFont& font)
{
    m_strikeOut->setFont(font);
}

void RecordColumns::configure(VrkTableTool* tool)
{
    struct Column {
        const char* field;
        AbstractHfnCellConversion* conversion;
        QString text;
        const char* icon;
    };
    const Column columns[] = {
        // in the order of their positions
        {Field::status, m_status, tr("Статус"), nullptr},
        {Field::file, m_file, QString(), ":/icons/affix.png"},
        {Field::VisaWorkerKey, m_sign, QString(), ":/icons/sign.png"},
        {Field::comment, m_comment, QString(), ":/icons/comment.png"},
        {Field::recordTime, m_time, tr("Время") + QLatin1Char('\n') + tr("записи"), nullptr},
        {Field::eventTime, m_time, tr("Время") + QLatin1Char('\n') + tr("события"), nullptr},
        {Field::WorkerKey, m_worker, tr("Автор"), nullptr},
        {Field::direction, m_direction, QString(), ":/icons/direction.png"},
        {Field::ReceiverWorkerKey, m_worker, tr("Кто") + QLatin1Char('\n') + tr("Кому"), nullptr},
        {Field::executionTime, m_execution, tr("Время") + QLatin1Char('\n') + tr("выполнения"), nullptr},
        {Field::object, m_strikeOut, tr("Линия") + QLatin1Char('\n') + tr("Подстанция"), nullptr},
        {Field::firstMarkTime, m_firstMarker, QString(), ":/icons/one.png"},
        {Field::secondMarkTime, m_secondMarker, QString(), ":/icons/two.png"},
        {Field::html, m_strikeOut, tr("Текст"), nullptr},
    };

    VrkTableModel* model = tool->model();
    model->setTextCodec(m_session->codec());
    // all columns at once: otherwise the header recomputes its layout for each column
    model->beginResetModel();
    int position = 0;
    for (const Column& column : columns) {
        const QString field = QLatin1String(column.field);
        model->setCellConversion(field, column.conversion);
        model->setHeaderData(field, Qt::Horizontal, column.text, Qt::DisplayRole);
        if (column.icon)
            model->setHeaderData(field, Qt::Horizontal, QIcon(QLatin1String(column.icon)),
                                 Qt::DecorationRole);
        tool->setColumnPosition(field, position++);
    }
    model->setCellConversion(QLatin1String(Field::KeyLink), m_strikeOut);
    for (const char* field :
         fieldNames(Field::KeyLink, Field::ShiftKey, Field::SecondMarkWorkerKey, Field::OriginRecordKey))
        tool->setColumnVisible(QLatin1String(field), false);
    model->endResetModel();
    tool->sortByColumn(QLatin1String(Field::recordTime), Qt::AscendingOrder);
}
