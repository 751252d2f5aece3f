#include "MarkerCells.h"

#include "CellIcon.h"
#include "Fields.h"
#include "HfnTime.h"
#include "HfnWrapper.h"
#include "MarkerIcon.h"
#include "RecordValue.h"

#include <QTextCodec>

namespace
{
/// The icon at the path in a property of the record's template, if the marker's time is set.
QVariant markerIcon(const MDRData* record, const char* timeField, const char* property,
                    QHash<QString, QIcon>& icons)
{
    if (!MDRValue::hasTime(Row(record).value(timeField)))
        return QVariant();
    const MDRVar html = Row(record).value(Field::html);
    if (!MDRValue::hasText(html))
        return QVariant();
    std::string value;
    templateOf(html).templatePropertyValue(property, value);
    const QString path = QString::fromStdString(value);
    auto icon = icons.find(path);
    if (icon == icons.end())
        icon = icons.insert(path, MarkerIcon::isPath(path) ? cellIcon(path) : QIcon());
    return *icon;
}

QString dateAndTime(const MDRVar& time)
{
    return HfnTime_to_DateTime(time.value.real, -1).toString(QStringLiteral("dd.MM.yyyy hh:mm"));
}
} // namespace

FirstMarkerCell::FirstMarkerCell(QObject* parent) : AbstractHfnCellConversion(parent) {}

QVariant FirstMarkerCell::data(const AbstractHfnCellData& cell) const
{
    if (cell.role == Qt::DisplayRole)
        return QVariant();
    if (cell.role == Qt::DecorationRole)
        return markerIcon(cell.record, Field::firstMarkTime, "first_mark", m_icons);
    return AbstractHfnCellConversion::data(cell);
}

SecondMarkerCell::SecondMarkerCell(CModelTable* workers, QObject* parent)
    : AbstractHfnCellConversion(parent), m_workers(workers)
{
}

QVariant SecondMarkerCell::data(const AbstractHfnCellData& cell) const
{
    if (cell.role == Qt::DisplayRole)
        return QVariant();
    if (cell.role == Qt::DecorationRole)
        return markerIcon(cell.record, Field::secondMarkTime, "second_mark", m_icons);
    if (cell.role == Qt::ToolTipRole)
        return Row(cell.record).has(Field::SecondMarkWorkerKey) ? toolTip(cell) : QVariant();
    return AbstractHfnCellConversion::data(cell);
}

QString SecondMarkerCell::toolTip(const AbstractHfnCellData& cell) const
{
    const MDRVar key = Row(cell.record).value(Field::SecondMarkWorkerKey);
    const QString worker =
        HfnWrapper::workerShortName(cell.codec, m_workers, QString::fromUtf8(MDRValue::bytes(key)));
    const QString time = dateAndTime(Row(cell.record).value(Field::secondMarkTime));
    std::string value;
    templateOf(Row(cell.record).value(Field::html)).templatePropertyValue("command", value);
    const QByteArray bytes = QByteArray::fromStdString(value);
    const QString command = cell.codec ? cell.codec->toUnicode(bytes) : QString::fromUtf8(bytes);
    return command.isEmpty() ? QStringLiteral("%1: %2").arg(worker, time)
                             : QStringLiteral("%1: %2\n%3").arg(command, time, worker);
}

TimeExecutionCell::TimeExecutionCell(QObject* parent) : AbstractHfnCellConversion(parent) {}

QVariant TimeExecutionCell::data(const AbstractHfnCellData& cell) const
{
    if (cell.role != Qt::DisplayRole && cell.role != Qt::ToolTipRole)
        return AbstractHfnCellConversion::data(cell);
    if (!templateOf(Row(cell.record).value(Field::html)).isExistTemplateProperty("time_exec"))
        return QVariant();
    const MDRVar time = Row(cell.record).value(Field::executionTime);
    if (!MDRValue::hasTime(time))
        return tr("Не выполнено");
    if (cell.role == Qt::ToolTipRole)
        return dateAndTime(time);
    return HfnTime_to_DateTime(time.value.real, -1).toString(QStringLiteral("hh:mm"));
}
