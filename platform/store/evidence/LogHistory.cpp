#include "LogHistory.h"

#include "ChangeRow.h"
#include "EvidenceLog.h"
#include "Fields.h"
#include "GenGuid32.h"
#include "LogSignature.h"
#include "TableCatalog.h"

#include <algorithm>
#include <QJsonDocument>
#include <QJsonObject>

namespace
{
constexpr int keysAtOnce = 1000;
/// Beginning of the key of a batch that takes a workshift out of the journal; a unique part of this length, a colon
/// and the key of the shift follow.
constexpr char archiving[] = "archive:";
constexpr int uniquePart = 32;

const CatalogTable* tableOf(const QByteArray& name)
{
    for (const CatalogTable& table : TableCatalog::loggedTables())
        if (table.name == name)
            return &table;
    return nullptr;
}

QVariant valueOf(const ChangeRow& row, int place, MDRType type)
{
    const QByteArray raw = row.raw(place);
    if (raw.isEmpty() || row.isNull(place)) // nulls at the end may be missing
        return {};
    if (row.isBlob(place))
        return QJsonDocument::fromJson(raw).object().toVariantMap();
    if (raw.startsWith('"'))
        return QString::fromUtf8(row.text(place));
    return type == mdr_TDouble ? QVariant(row.number(place)) : QVariant(raw.toLongLong());
}

QVector<QVariant> valuesOf(const CatalogTable& table, const QByteArray& json)
{
    QVector<QVariant> values;
    if (json.isNull())
        return values;
    const ChangeRow row(json);
    values.reserve(table.fields.size());
    for (int i = 0; i < table.fields.size(); ++i)
        values.append(valueOf(row, i, table.fields.at(i).type));
    return values;
}

/// What an administrator did, from the key of its batch: "shift:GUID:reason" of a correction, archivingBatch().
QString reasonOf(const QByteArray& batchKey)
{
    if (batchKey.startsWith(archiving))
        return QStringLiteral("смена убрана в архив");
    return batchKey.startsWith("shift:") ? QString::fromUtf8(batchKey).section(QLatin1Char(':'), 2)
                                         : QString();
}
/// The signature of a row in its transaction. \a first is the transaction from which on changes are signed.
RowChange::Signature signatureOf(const LoggedTransaction& transaction, const LoggedRow& row, qint64 first)
{
    RowChange::Signature found;
    const QByteArray meaning = LogSignature::meaningOf(row);
    if (meaning.isEmpty())
        return found;
    found.meaning = LogSignature::words(meaning);
    found.state = transaction.isLoader         ? RowChange::Signature::ByAdministrator
                  : transaction.number < first ? RowChange::Signature::BeforeFirst
                                               : RowChange::Signature::Missing;
    for (const LoggedRow& other : transaction.rows) {
        LogSignature signature;
        if (!LogSignature::read(other, &signature) || !signature.fits(transaction, row))
            continue;
        found.state = RowChange::Signature::Signed;
        found.person = QString::fromUtf8(signature.person);
        found.login = QString::fromUtf8(signature.login);
        found.time = signature.time;
    }
    return found;
}
} // namespace

RowChange LogHistory::change(const LoggedTransaction& transaction, const LoggedRow& row)
{
    RowChange made;
    made.number = transaction.number;
    made.time = transaction.time;
    made.login = QString::fromUtf8(transaction.login);
    made.isAdministrator = transaction.isLoader;
    made.reason = reasonOf(transaction.batchKey);
    made.table = row.table;
    made.key = row.key;
    made.event = static_cast<int>(row.event);
    if (const CatalogTable* table = tableOf(row.table)) {
        for (const CatalogField& field : table->fields)
            made.fields.append(field.name);
        made.before = valuesOf(*table, row.oldRow);
        made.after = valuesOf(*table, row.newRow);
    }
    return made;
}

bool LogHistory::read(const Rows& rows, qint64 to, QVector<RowChange>* changes)
{
    const int begin = changes->size();
    QSet<QByteArray> keys;
    for (const QSet<QByteArray>& ofTable : rows)
        keys.unite(ofTable);
    const QByteArrayList all = keys.values();
    // A key may exist in several tables: somebody can give his comment the key of another's record.
    const auto take = [&](const LoggedTransaction& transaction) {
        for (const LoggedRow& row : transaction.rows)
            if (rows.value(row.table).contains(row.key))
                changes->append(change(transaction, row));
        return true;
    };
    for (int i = 0; i < all.size(); i += keysAtOnce)
        if (!m_log->rowsOf(all.mid(i, keysAtOnce), to, take))
            return false;
    std::stable_sort(changes->begin() + begin, changes->end(),
                     [](const RowChange& a, const RowChange& b) { return a.number < b.number; });
    return true;
}

bool LogHistory::end(qint64* number)
{
    QByteArray epoch;
    return m_log->end(number, &epoch);
}

bool LogHistory::ofRow(const QByteArray& key, QVector<RowChange>* changes)
{
    Rows rows;
    for (const CatalogTable& table : TableCatalog::loggedTables())
        rows[table.name].insert(key);
    qint64 last = 0;
    const int begin = changes->size();
    return end(&last) && read(rows, last, changes) && sign(begin, changes);
}

bool LogHistory::ofRecord(const QByteArray& key, QVector<RowChange>* changes)
{
    Rows rows{{"LogbookRecords", {key}}};
    QVector<LoggedRow> removed;
    qint64 last = 0;
    qint64 first = 0;
    const int begin = changes->size();
    return end(&last) && firstOf("LogbookRecords", key, &first) &&
           removedWith(key, {"LogbookComments", "LogbookFiles"}, first, &removed) &&
           addRemarks({key}, removed, &rows) && read(rows, last, changes) && sign(begin, changes);
}

bool LogHistory::removedWith(const QByteArray& key, const QByteArrayList& tables, qint64 since,
                             QVector<LoggedRow>* rows)
{
    // Archived shifts may have taken a million rows along.
    QMap<qint64, QByteArray> archived;
    QVector<qint64> own;
    qint64 last = 0;
    if (!m_log->batches(archiving, &archived) || !m_log->numbersOf(key, QByteArray(), &own) || !end(&last))
        return false;
    for (const qint64 number : qAsConst(own))
        archived.remove(number);
    archived.insert(last + 1, QByteArray());
    for (auto next = archived.upperBound(since); next != archived.end(); ++next) {
        if (next.key() > since + 1 && !m_log->removed(tables, since, next.key() - 1, rows))
            return false;
        since = next.key();
    }
    return true;
}

QByteArray LogHistory::archivingBatch(const QByteArray& shift)
{
    return archiving + GenGuid32() + ':' + shift;
}

bool LogHistory::archivedShifts(const QByteArray& department, QVector<RowChange>* changes)
{
    QMap<qint64, QByteArray> archived;
    qint64 last = 0;
    if (!m_log->batches(archiving, &archived) || !end(&last))
        return false;
    Rows rows;
    for (const QByteArray& batch : qAsConst(archived))
        rows["LogbookWorkshifts"].insert(batch.mid(int(sizeof archiving) + uniquePart));
    QVector<RowChange> all;
    if (!rows.isEmpty() && !read(rows, last, &all))
        return false;
    for (const RowChange& change : qAsConst(all))
        if (archived.contains(change.number) && change.event == RowChange::Removed &&
            (department.isEmpty() || change.was(Field::DepartmentKey).toByteArray() == department))
            changes->append(change);
    return true;
}

bool LogHistory::sign(int begin, QVector<RowChange>* changes)
{
    qint64 first = 0;
    if (!firstOf("StoreProperties", "signatures", &first))
        return false;
    for (int i = begin; i < changes->size(); ++i) {
        RowChange& change = (*changes)[i];
        if (change.table != "LogbookRecords" && change.table != "LogbookWorkshifts")
            continue;
        // The whole transaction: the signature is a row of it.
        const auto take = [&](const LoggedTransaction& transaction) {
            for (const LoggedRow& row : transaction.rows)
                if (row.table == change.table && row.key == change.key)
                    change.signature = signatureOf(transaction, row, first);
            return true;
        };
        if (!m_log->read(change.number, change.number, take))
            return false;
    }
    return true;
}

bool LogHistory::ofWorkshift(const QByteArray& key, QVector<RowChange>* changes)
{
    Rows rows{{"LogbookWorkshifts", {key}}};
    QVector<LoggedRow> removed;
    qint64 last = 0;
    qint64 first = 0;
    return end(&last) && firstOf("LogbookWorkshifts", key, &first) &&
           removedWith(key, {"LogbookWorkersWorkshift", "LogbookRecords", "LogbookComments", "LogbookFiles"},
                       first, &removed) &&
           addParts("LogbookWorkersWorkshift", Field::WorkshiftKey, {key}, removed, &rows) &&
           addParts("LogbookRecords", Field::ShiftKey, {key}, removed, &rows) &&
           addRemarks(rows.value("LogbookRecords"), removed, &rows) && read(rows, last, changes);
}

bool LogHistory::addRemarks(const QSet<QByteArray>& records, const QVector<LoggedRow>& removed, Rows* rows)
{
    return addParts("LogbookComments", Field::RecordKey, records, removed, rows) &&
           addParts("LogbookFiles", Field::RecordKey, records, removed, rows);
}

bool LogHistory::addParts(const char* table, const char* field, const QSet<QByteArray>& owners,
                          const QVector<LoggedRow>& removed, Rows* rows)
{
    QSet<QByteArray>& keys = (*rows)[table];
    const QByteArrayList all = owners.values();
    for (int i = 0; i < all.size(); i += keysAtOnce)
        if (!m_log->keysOf(table, field, all.mid(i, keysAtOnce), &keys))
            return false;
    const int place = tableOf(table)->fieldIndex(field);
    for (const LoggedRow& row : removed)
        if (row.table == table && owners.contains(ChangeRow(row.oldRow).text(place)))
            keys.insert(row.key);
    return true;
}

bool LogHistory::firstOf(const QByteArray& table, const QByteArray& key, qint64* number)
{
    QVector<qint64> numbers;
    if (!m_log->numbersOf(key, table, &numbers))
        return false;
    *number = numbers.value(0);
    return true;
}

bool LogHistory::numberAt(double time, qint64* number)
{
    qint64 above = 0;
    if (!end(&above))
        return false;
    qint64 below = 0; // not later than the time; also where the log has been cut off
    double written = 0;
    ++above;
    while (above - below > 1) {
        const qint64 middle = below + (above - below) / 2;
        if (!m_log->timeOf(middle, &written))
            return false;
        (written <= time ? below : above) = middle;
    }
    if (!m_log->timeOf(below, &written))
        return false;
    *number = written > 0 ? below : 0;
    return true;
}

bool LogHistory::tablesAt(const QByteArrayList& tables, qint64 number, QVector<RowChange>* rows)
{
    QVector<LoggedRow> removed;
    qint64 newest = 0;
    if (!end(&newest) || !m_log->removed(tables, number, newest, &removed))
        return false;
    Rows wanted;
    for (const LoggedRow& row : qAsConst(removed))
        wanted[row.table].insert(row.key);
    for (const QByteArray& table : tables)
        if (!m_log->keysOf(table, QByteArray(), {}, &wanted[table]))
            return false;
    QVector<RowChange> changes;
    if (!read(wanted, number, &changes))
        return false;
    QHash<QPair<QByteArray, QByteArray>, RowChange> last;
    for (const RowChange& change : qAsConst(changes))
        last.insert({change.table, change.key}, change);
    for (const RowChange& change : qAsConst(last))
        if (change.event != RowChange::Removed)
            rows->append(change);
    return true;
}
