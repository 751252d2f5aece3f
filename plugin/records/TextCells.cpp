#include "TextCells.h"

#include "CModelTable.h"
#include "CVrkCliSes.h"
#include "LogbookFields.h"
#include "RecordValue.h"

#include <QBrush>
#include <QTextCodec>

namespace
{
MDRVar fieldValue(const AbstractHfnCellData& cell)
{
    MDRVar value;
    MDRGetVal(MDRFldByNum(MDARecArr(cell.record), cell.field), cell.record, &value);
    return value;
}
} // namespace

QVariant ColorCell::data(const AbstractHfnCellData& cell) const
{
    if (cell.role != Qt::ForegroundRole)
        return AbstractHfnCellConversion::data(cell);
    return hasStatus(cell.record, StatusDeleted) ? QBrush(Qt::gray, Qt::SolidPattern) : QVariant();
}

StrikeOutCell::StrikeOutCell(const QFont& font, QObject* parent) : AbstractHfnCellConversion(parent)
{
    setFont(font);
}

void StrikeOutCell::setFont(const QFont& font)
{
    m_font = font;
    m_struckOut = font;
    m_struckOut.setStrikeOut(true);
}

QVariant StrikeOutCell::data(const AbstractHfnCellData& cell) const
{
    if (cell.role != Qt::FontRole)
        return AbstractHfnCellConversion::data(cell);
    return hasStatus(cell.record, StatusDeleted) ? m_struckOut : m_font;
}

DateTimeCell::DateTimeCell(const QString& format, CVrkCliSes* session, QObject* parent)
    : AbstractHfnCellConversion(parent), m_format(format), m_session(session)
{
}

QVariant DateTimeCell::data(const AbstractHfnCellData& cell) const
{
    if (cell.role != Qt::DisplayRole || !m_session)
        return AbstractHfnCellConversion::data(cell);
    const MDRVar time = fieldValue(cell);
    return MDRValue::hasTime(time) ? m_session->HfnTimeToSesTime(time.value.real).toString(m_format)
                                   : QVariant();
}

WorkerCell::WorkerCell(CModelTable* workers, QObject* parent)
    : AbstractHfnCellConversion(parent), m_workers(workers)
{
}

QVariant WorkerCell::data(const AbstractHfnCellData& cell) const
{
    if (cell.role != Qt::DisplayRole || !m_workers)
        return AbstractHfnCellConversion::data(cell);
    const MDRVar key = fieldValue(cell);
    const MDRData* worker = MDRValue::hasText(key) ? MDARecSeekV(m_workers->data.array, 0, &key, 0) : nullptr;
    if (!worker)
        return QVariant();

    const auto text = [&](const char* field) {
        const MDRVar value = Row(worker).value(field);
        return cell.codec ? cell.codec->toUnicode(MDRValue::bytes(value))
                          : QString::fromUtf8(MDRValue::bytes(value));
    };
    QString name = text(Field::lastName);
    // Unlike in HfnWrapper::workerShortName, an empty part gives no initial, not only a null one.
    for (const char* field : fieldNames(Field::firstName, Field::patronymicName)) {
        const QString part = text(field);
        if (part.isEmpty())
            continue;
        if (!name.isEmpty())
            name += QLatin1Char(' ');
        name += part.at(0) + QLatin1Char('.');
    }
    return name;
}
