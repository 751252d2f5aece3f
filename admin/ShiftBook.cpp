#include "ShiftBook.h"

#include "GenGuid32.h"
#include "HfnTime.h"
#include "MDRValues.h"
#include "TableCatalog.h"

#include <algorithm>
#include <QTextCodec>

namespace
{
// Beginning of the key of such a transaction; a unique part follows, then the reason.
constexpr char mark[] = "shift:";

MDRVar fieldOf(const MDArray* array, int row, int field)
{
    MDRVar value;
    MDRGetVal(MDRFldByNum(array, field), MDARec(array, 0, row), &value);
    return value;
}
} // namespace

bool ShiftBook::load(Store* store, const QByteArray& departmentKey, StoreError* error)
{
    m_shifts.clear();
    CMDArray answer;
    answer = store->select("SELECT KeyLink, CloseWorkerKey, startTime, endTime FROM LogbookWorkshifts"
                           " WHERE DepartmentKey = " +
                               Store::literal(departmentKey) + " ORDER BY startTime DESC NULLS LAST",
                           error);
    if (!answer.array)
        return false;
    for (int i = 0; i < answer.RecCount(); ++i)
        m_shifts.append({MDRValue::copy(fieldOf(answer.array, i, 0)),
                         !MDRValue::hasText(fieldOf(answer.array, i, 1)),
                         fieldOf(answer.array, i, 2).value.real, fieldOf(answer.array, i, 3).value.real});
    return true;
}

const ShiftBook::Shift* ShiftBook::find(const QByteArray& key) const
{
    const auto found =
        std::find_if(m_shifts.begin(), m_shifts.end(), [&](const Shift& shift) { return shift.key == key; });
    return found == m_shifts.end() ? nullptr : &*found;
}

QVector<ShiftBook::Shift> ShiftBook::correctable() const
{
    QVector<Shift> shifts;
    for (const Shift& shift : m_shifts)
        if (shift.isOpen || &shift == last())
            shifts.append(shift);
    return shifts;
}

QString ShiftBook::refusal(const QByteArray& key, double start, double end, int longestShift) const
{
    const auto shifts = correctable();
    if (std::none_of(shifts.begin(), shifts.end(), [&](const Shift& shift) { return shift.key == key; }))
        return QStringLiteral("Исправить можно только открытую или последнюю смену подразделения.");
    if (!(start < end))
        return QStringLiteral("Начало смены должно быть раньше её конца.");
    if (end - start > longestShift)
        return QStringLiteral("Смена длиннее разрешённого (vrk-admin option URL set LongestShift=…).");
    for (const Shift& other : m_shifts)
        if (other.key != key && other.start < end && other.end > start)
            return QStringLiteral("На это время приходится другая смена: %1, %2 - %3.")
                .arg(QString::fromUtf8(other.key), shown(other.start), shown(other.end));
    return {};
}

bool ShiftBook::correct(Store* loader, const QByteArray& key, double start, double end, const QString& reason,
                        StoreError* error)
{
    const QVector<MDRFieldDescr> fields = TableCatalog::table("LogbookWorkshifts")->descriptors();
    CRowBatch batch(fields.constData(), fields.size());
    MDRData* row = batch.newRow(ROW_UPDATE, key);
    batch.SetValF(row, "startTime", MDRValue::real(start));
    batch.SetValF(row, "endTime", MDRValue::real(end));
    batch.RecPost(row);
    return loader->apply({{"LogbookWorkshifts", batch.array}}, mark + GenGuid32() + ':' + reason.toUtf8(),
                         error);
}

QVector<ShiftBook::Correction> ShiftBook::corrections(Store* store, const QByteArray& key, StoreError* error)
{
    QVector<Correction> all;
    CMDArray answer;
    answer = store->select("SELECT T.time, T.batchKey FROM ChangeTransactions AS T JOIN ChangeLog AS L"
                           " ON L.number = T.number WHERE T.batchKey >= 'shift:' AND T.batchKey < 'shift;'"
                           " AND L.tableName = 'LogbookWorkshifts' AND L.rowKey = " +
                               Store::literal(key) + " ORDER BY T.number",
                           error);
    for (int i = 0; answer.array && i < answer.RecCount(); ++i) {
        const QString name = store->codec()->toUnicode(MDRValue::copy(fieldOf(answer.array, i, 1)));
        all.append({fieldOf(answer.array, i, 0).value.real, name.section(QLatin1Char(':'), 2)});
    }
    return all;
}

QString ShiftBook::shown(double time)
{
    const QDateTime moment = HfnTime_to_DateTime(time, -1);
    return moment.isValid() ? moment.toString(QStringLiteral("dd.MM.yyyy hh:mm")) : QStringLiteral("—");
}
