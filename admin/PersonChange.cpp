#include "PersonChange.h"

#include "CMDArray.h"
#include "Fields.h"
#include "GenGuid32.h"
#include "MDRValues.h"
#include "TableCatalog.h"

#include <algorithm>

namespace
{
// Beginnings of the keys of such transactions.
constexpr char retirement[] = "retire:";
constexpr char reinstatement[] = "reinstate:";
constexpr char merging[] = "merge:";

CRowBatch batchOf(const char* table)
{
    const QVector<MDRFieldDescr> fields = TableCatalog::table(table)->descriptors();
    return CRowBatch(fields.constData(), fields.size());
}

QByteArray list(const QVector<QByteArray>& keys)
{
    QByteArray all;
    for (const QByteArray& key : keys)
        all += (all.isEmpty() ? "" : ", ") + Store::literal(key);
    return '(' + (all.isEmpty() ? QByteArray("''") : all) + ')';
}

QVector<QByteArray> keysOf(const QVector<const DirectoryRow*>& rows)
{
    QVector<QByteArray> keys;
    for (const DirectoryRow* row : rows)
        keys.append(row->key);
    return keys;
}

bool refuse(StoreError* error, const QString& text)
{
    if (!*error)
        *error = {StoreError::BadRequest, text, QString()};
    return false;
}

QVector<QByteArray> column(Store& store, const QByteArray& sql, StoreError* error)
{
    QVector<QByteArray> values;
    CMDArray answer;
    answer = store.select(sql, error);
    for (int i = 0; answer.array && i < answer.RecCount(); ++i) {
        MDRVar value;
        MDRGetVal(MDRFldByNum(answer.array, 0), MDARec(answer.array, 0, i), &value);
        values.append(MDRValue::copy(value));
    }
    return values;
}

QString onDuty()
{
    return QStringLiteral(
        "Человек в открытой смене. Пусть её сперва закроют: потом закрыть её он не сможет.");
}
} // namespace

const DirectoryRow* PersonChange::user(const QString& login) const
{
    const DirectoryRow* found = nullptr;
    for (const DirectoryRow* row : m_directory->rows("Users"))
        if (row->text("login") == login && (!found || found->retired()))
            found = row;
    return found;
}

QVector<const DirectoryRow*> PersonChange::workersOf(const QByteArray& user) const
{
    QVector<const DirectoryRow*> all;
    for (const DirectoryRow* row : m_directory->rows("Workers"))
        if (!user.isEmpty() && row->reference("UserKey") == user)
            all.append(row);
    return all;
}

qint64 PersonChange::number(const QByteArray& sql, StoreError* error) const
{
    return column(*m_store, sql, error).size();
}

bool PersonChange::isOnDuty(const QVector<const DirectoryRow*>& workers, StoreError* error) const
{
    const QByteArray keys = list(keysOf(workers));
    return number(
               "SELECT KeyLink FROM LogbookWorkshifts WHERE coalesce(CloseWorkerKey, '') = '' AND "
               "(OpenWorkerKey IN " +
                   keys +
                   " OR KeyLink IN (SELECT WorkshiftKey FROM LogbookWorkersWorkshift WHERE opening = 1 AND "
                   "WorkerKey IN " +
                   keys + "))",
               error) > 0;
}

bool PersonChange::mark(const DirectoryRow& user, const QVector<QByteArray>& workers, bool removed,
                        const char* deed, StoreError* error)
{
    CRowBatch users = batchOf("Users");
    MDRData* row = users.newRow(ROW_UPDATE, user.key);
    users.SetValF(row, Field::deleted_, MDRValue::boolean(removed));
    users.RecPost(row);
    CRowBatch rows = batchOf("Workers");
    for (const QByteArray& key : workers) {
        row = rows.newRow(ROW_UPDATE, key);
        rows.SetValF(row, Field::deleted_, MDRValue::boolean(removed));
        rows.RecPost(row);
    }
    return m_store->apply({{"Users", users.array}, {"Workers", rows.array}}, deed + GenGuid32(), error);
}

bool PersonChange::retire(const QString& login, StoreError* error)
{
    const DirectoryRow* person = user(login);
    if (!person || person->retired())
        return refuse(error, QStringLiteral("Имени для входа «%1» нет.").arg(login));
    QVector<const DirectoryRow*> workers;
    for (const DirectoryRow* worker : workersOf(person->key))
        if (!worker->retired())
            workers.append(worker);
    if (isOnDuty(workers, error) || *error)
        return refuse(error, onDuty());
    return mark(*person, keysOf(workers), true, retirement, error);
}

bool PersonChange::reinstate(const QString& login, StoreError* error)
{
    const DirectoryRow* person = user(login);
    if (!person || !person->retired())
        return refuse(error, person ? QStringLiteral("Вход «%1» не закрыт.").arg(login)
                                    : QStringLiteral("Имени для входа «%1» нет.").arg(login));
    const QByteArray retirements =
        " FROM ChangeLog AS L JOIN ChangeTransactions AS T ON T.number = L.number WHERE "
        "T.batchKey >= 'retire:' AND T.batchKey < 'retire;'";
    const QVector<QByteArray> workers =
        column(*m_store,
               "SELECT L.rowKey" + retirements +
                   " AND L.tableName = 'Workers' AND L.number = (SELECT max(L.number)" + retirements +
                   " AND L.tableName = 'Users' AND L.rowKey = " + Store::literal(person->key) + ")",
               error);
    return !*error && mark(*person, workers, false, reinstatement, error);
}

QString PersonChange::conflict(const Merge& merge, StoreError* error) const
{
    const DirectoryRow* keep = m_directory->row("Workers", merge.keep);
    const DirectoryRow* lose = m_directory->row("Workers", merge.lose);
    if (merge.keep == merge.lose)
        return QStringLiteral("Это одна и та же строка.");
    if (keep->retired())
        return QStringLiteral("Первая строка помечена как удалённая: оставляют действующую.");
    if (keep->reference("UserKey").isEmpty())
        return QStringLiteral("У первой строки нет имени для входа: оставляют ту, у которой оно есть.");
    if (keep->reference("DepartmentKey") != lose->reference("DepartmentKey"))
        return QStringLiteral("Строки разных подразделений: в каждом у человека своя, это не повтор.");
    if (isOnDuty({lose}, error))
        return onDuty();
    const QByteArray comments =
        "SELECT C.KeyLink FROM LogbookComments AS C JOIN LogbookRecords AS R ON R.KeyLink = "
        "C.RecordKey WHERE coalesce(C.readedTime, 0) = 0 AND R.WorkerKey = ";
    if (const qint64 unread = number(comments + Store::literal(lose->key), error))
        return QStringLiteral(
                   "К записям второй строки есть непрочитанные комментарии (%1): потом их не увидит никто.")
            .arg(unread);
    if (keep->reference("UserKey") == lose->reference("UserKey"))
        return {};
    // The rules call both rows one person from now on, and nobody countersigns his own record.
    const QByteArray one = list(keysOf(workersOf(keep->reference("UserKey"))));
    const QByteArray other = list({lose->key});
    const auto signedBy = [&](const QByteArray& author, const QByteArray& visa) {
        return number("SELECT KeyLink FROM LogbookRecords WHERE WorkerKey IN " + author +
                          " AND VisaWorkerKey IN " + visa,
                      error);
    };
    const qint64 visas = signedBy(one, other) + signedBy(other, one);
    return visas
               ? QStringLiteral(
                     "Одна из строк визировала записи другой (%1): вышло бы, что человек завизировал своё, а "
                     "подписанное не переделывается.")
                     .arg(visas)
               : QString();
}

bool PersonChange::plan(Merge* merge, StoreError* error)
{
    merge->refusal = conflict(*merge, error);
    if (*error || !merge->refusal.isEmpty())
        return !*error;
    const DirectoryRow* keep = m_directory->row("Workers", merge->keep);
    const DirectoryRow* lose = m_directory->row("Workers", merge->lose);
    merge->effects << QStringLiteral("Остаётся: %1 (%2)")
                          .arg(m_directory->label("Workers", *keep), QString::fromUtf8(keep->key))
                   << QStringLiteral("Помечается удалённой: %1 (%2)")
                          .arg(m_directory->label("Workers", *lose), QString::fromUtf8(lose->key));
    const QByteArray former = lose->reference("UserKey");
    if (former != keep->reference("UserKey") && !former.isEmpty()) {
        const auto rows = workersOf(former);
        const DirectoryRow* login = m_directory->row("Users", former);
        if (login && !login->retired() && std::all_of(rows.begin(), rows.end(), [&](const DirectoryRow* row) {
                return row->retired() || row->key == lose->key;
            }))
            merge->closedLogin = login->text("login");
    }
    if (!merge->closedLogin.isEmpty())
        merge->effects << QStringLiteral("Закрывается вход: %1; его права первой строке не переходят")
                              .arg(merge->closedLogin);
    const qint64 records =
        number("SELECT KeyLink FROM LogbookRecords WHERE WorkerKey = " + Store::literal(lose->key), error);
    merge->effects
        << QStringLiteral("Записи второй строки (%1) не меняются: их автором остаётся она").arg(records);
    return !*error;
}

bool PersonChange::write(const Merge& merge, StoreError* error)
{
    const DirectoryRow* keep = m_directory->row("Workers", merge.keep);
    const QByteArray person = keep->reference("UserKey");
    CRowBatch workers = batchOf("Workers");
    MDRData* row = workers.newRow(ROW_UPDATE, merge.lose);
    workers.SetValF(row, Field::UserKey, MDRValue::text(person));
    workers.SetValF(row, Field::deleted_, MDRValue::boolean(true));
    workers.RecPost(row);
    CRowBatch users = batchOf("Users");
    if (!merge.closedLogin.isEmpty()) {
        row = users.newRow(ROW_UPDATE, user(merge.closedLogin)->key);
        users.SetValF(row, Field::deleted_, MDRValue::boolean(true));
        users.RecPost(row);
    }
    QSet<QByteArray> roles;
    for (const DirectoryRow* role : m_directory->rows("WorkerRoles"))
        if (role->reference("WorkerKey") == merge.keep)
            roles.insert(role->reference("RoleKey"));
    CRowBatch moved = batchOf("WorkerRoles");
    for (const DirectoryRow* role : m_directory->rows("WorkerRoles")) {
        if (role->reference("WorkerKey") != merge.lose || roles.contains(role->reference("RoleKey")))
            continue;
        roles.insert(role->reference("RoleKey"));
        row = moved.newRow(ROW_UPDATE, role->key);
        moved.SetValF(row, Field::WorkerKey, MDRValue::text(merge.keep));
        moved.RecPost(row);
    }
    return m_store->apply({{"Users", users.array}, {"Workers", workers.array}, {"WorkerRoles", moved.array}},
                          merging + GenGuid32(), error);
}
