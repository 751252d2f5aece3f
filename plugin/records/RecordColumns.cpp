#include "RecordColumns.h"

#include "CVrkCliSes.h"
#include "Fields.h"
#include "IconCells.h"
#include "MarkerCells.h"
#include "TextCells.h"
#include "VrkTableModel.h"
#include "VrkTableTool.h"

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
    tool->model()->setTextCodec(m_session->codec());
    tool->setColumns({
        {Field::status, m_status, tr("Статус")},
        {Field::file, m_file, QString(), ":/icons/affix.png", tr("Файлы")},
        {Field::VisaWorkerKey, m_sign, QString(), ":/icons/sign.png", tr("Виза")},
        {Field::comment, m_comment, QString(), ":/icons/comment.png", tr("Комментарии")},
        {Field::recordTime, m_time, tr("Время") + QLatin1Char('\n') + tr("записи")},
        {Field::eventTime, m_time, tr("Время") + QLatin1Char('\n') + tr("события")},
        {Field::WorkerKey, m_worker, tr("Автор")},
        {Field::direction, m_direction, QString(), ":/icons/direction.png", tr("Направление")},
        {Field::ReceiverWorkerKey, m_worker, tr("Кто") + QLatin1Char('\n') + tr("Кому")},
        {Field::executionTime, m_execution, tr("Время") + QLatin1Char('\n') + tr("выполнения")},
        {Field::object, m_strikeOut, tr("Линия") + QLatin1Char('\n') + tr("Подстанция")},
        {Field::firstMarkTime, m_firstMarker, QString(), ":/icons/one.png", tr("Первый маркер")},
        {Field::secondMarkTime, m_secondMarker, QString(), ":/icons/two.png", tr("Второй маркер")},
        {Field::html, m_strikeOut, tr("Текст")},
    });
    tool->model()->setCellConversion(QLatin1String(Field::KeyLink), m_strikeOut);
    tool->sortByColumn(QLatin1String(Field::recordTime), Qt::AscendingOrder);
}
