#include "OldShifts.h"

#include "CMDArray.h"
#include "LogHistory.h"
#include "LongWork.h"
#include "MDRValues.h"
#include "TableCatalog.h"

#include <algorithm>

namespace
{
MDRVar cell(const MDArray* array, int row, int field)
{
    MDRVar value;
    MDRGetVal(MDRFldByNum(array, field), MDARec(array, 0, row), &value);
    return value;
}
} // namespace

const QByteArrayList& OldShifts::tables()
{
    static const QByteArrayList names{"LogbookFiles", "LogbookComments", "LogbookRecords",
                                      "LogbookWorkersWorkshift", "LogbookWorkshifts"};
    return names;
}

QSet<QByteArray> OldShifts::keys(const QByteArray& sql, StoreError* error) const
{
    QSet<QByteArray> found;
    CMDArray answer;
    answer = m_store->select(sql, error);
    for (int i = 0; answer.array && i < answer.RecCount(); ++i)
        found.insert(MDRValue::copy(cell(answer.array, i, 0)));
    return found;
}

bool OldShifts::loadRows(Shift* shift, StoreError* error) const
{
    const QByteArray key = Store::literal(shift->key);
    const auto ofRecords = [&](const QByteArray& table) {
        return keys("SELECT T.KeyLink FROM " + table +
                        " AS T JOIN LogbookRecords AS R ON R.KeyLink = T.RecordKey WHERE R.ShiftKey = " + key,
                    error);
    };
    shift->rows = {ofRecords("LogbookFiles"),
                   ofRecords("LogbookComments"),
                   keys("SELECT KeyLink FROM LogbookRecords WHERE ShiftKey = " + key, error),
                   keys("SELECT KeyLink FROM LogbookWorkersWorkshift WHERE WorkshiftKey = " + key, error),
                   {shift->key}};
    return !*error;
}

bool OldShifts::findNeeded(QVector<Shift>* shifts, StoreError* error) const
{
    CMDArray answer;
    answer = m_store->select("SELECT F.ShiftKey, R.ShiftKey FROM LogbookRecords AS R JOIN LogbookRecords AS F"
                             " ON F.KeyLink = R.OriginRecordKey WHERE R.ShiftKey <> F.ShiftKey",
                             error);
    if (!answer.array)
        return false;
    QHash<QByteArray, Shift*> chosen;
    for (Shift& shift : *shifts)
        chosen.insert(shift.key, &shift);
    for (bool isMore = true; isMore;) {
        isMore = false;
        for (int i = 0; i < answer.RecCount(); ++i) {
            Shift* former = chosen.value(MDRValue::copy(cell(answer.array, i, 0)));
            const Shift* later = chosen.value(MDRValue::copy(cell(answer.array, i, 1)));
            if (!former || former->isNeeded || (later && !later->isNeeded))
                continue;
            former->isNeeded = true;
            isMore = true;
        }
    }
    return true;
}

bool OldShifts::load(double before, const QByteArray& department, StoreError* error)
{
    m_leaving.clear();
    m_staying.clear();
    m_written.clear();
    ChangePosition position;
    if (!m_store->position(&position, error))
        return false;
    m_known = position.number;
    CMDArray answer;
    answer = m_store->select(
        "SELECT KeyLink, DepartmentKey, CloseWorkerKey, startTime, endTime FROM LogbookWorkshifts" +
            (department.isEmpty() ? QByteArray() : " WHERE DepartmentKey = " + Store::literal(department)) +
            " ORDER BY startTime DESC NULLS LAST",
        error);
    if (!answer.array)
        return false;
    QVector<Shift> shifts;
    QSet<QByteArray> departments;
    for (int i = 0; i < answer.RecCount(); ++i) {
        Shift shift;
        shift.key = MDRValue::copy(cell(answer.array, i, 0));
        shift.department = MDRValue::copy(cell(answer.array, i, 1));
        shift.start = cell(answer.array, i, 3).value.real;
        shift.end = cell(answer.array, i, 4).value.real;
        const bool isLast = !departments.contains(shift.department);
        departments.insert(shift.department);
        if (!isLast && MDRValue::hasText(cell(answer.array, i, 2)) && shift.end < before)
            shifts.prepend(shift);
    }
    if (!findNeeded(&shifts, error))
        return false;
    const LongWork work("Чтение смен", shifts.size());
    for (int i = 0; i < shifts.size(); ++i) {
        work.advance(i);
        if (!loadRows(&shifts[i], error))
            return false;
        (shifts[i].isNeeded ? m_staying : m_leaving).append(shifts[i]);
    }
    return true;
}

bool OldShifts::readNews(StoreError* error)
{
    ChangePosition position;
    if (!m_store->position(&position, error))
        return false;
    m_written += keys("SELECT rowKey FROM ChangeLog WHERE number > " + QByteArray::number(m_known) +
                          " AND number <= " + QByteArray::number(position.number),
                      error);
    m_known = position.number;
    return !*error;
}

OldShifts::Outcome OldShifts::remove(const Shift& shift, StoreError* error)
{
    Shift now = shift;
    if (!readNews(error) || !loadRows(&now, error))
        return Outcome::Failed;
    const bool isTouched = std::any_of(now.rows.begin(), now.rows.end(), [&](const QSet<QByteArray>& rows) {
        return rows.intersects(m_written);
    });
    if (isTouched || now.rows != shift.rows)
        return Outcome::Changed;
    std::vector<std::unique_ptr<CRowBatch>> batches;
    std::vector<StoreWrite> writes;
    for (int i = 0; i < tables().size(); ++i) {
        const QVector<MDRFieldDescr> fields = TableCatalog::table(tables().at(i))->descriptors();
        batches.push_back(std::make_unique<CRowBatch>(fields.constData(), fields.size()));
        for (const QByteArray& key : shift.rows.at(i))
            batches.back()->RecPost(batches.back()->newRow(ROW_DELETE, key));
        writes.push_back({tables().at(i), batches.back()->array});
    }
    return m_store->apply(writes, LogHistory::archivingBatch(shift.key), error) ? Outcome::Removed
                                                                                : Outcome::Failed;
}
