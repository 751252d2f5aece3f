#include "Command.h"

#include "ChangeRow.h"
#include "ShiftBook.h"
#include "StoreZone.h"
#include "TableCatalog.h"

namespace
{
constexpr int longestValue = 300;
constexpr double earliestTime = 1e8; // numbers with a fraction above it are times

/// The names of persons by login.
QHash<QString, QString> namesOf(Store& store)
{
    QHash<QString, QString> names;
    for (const StoreLogin& login : store.logins())
        names.insert(login.login, login.name);
    return names;
}

const CatalogTable* tableOf(const QByteArray& name)
{
    for (const CatalogTable& table : TableCatalog::loggedTables())
        if (table.name == name)
            return &table;
    return nullptr;
}

QString shown(const ChangeRow& row, int place, MDRType type)
{
    const QByteArray raw = row.raw(place);
    if (raw.isEmpty() || row.isNull(place))
        return QStringLiteral("-");
    if (type == mdr_TDouble && row.number(place) >= earliestTime)
        return ShiftBook::shown(row.number(place));
    const QString text = QString::fromUtf8(raw.startsWith('"') ? row.text(place) : raw);
    return text.size() > longestValue ? text.left(longestValue) + QStringLiteral("…") : text;
}

void tell(const LoggedRow& row, QTextStream& out)
{
    const CatalogTable* table = tableOf(row.table);
    const ChangeRow before(row.oldRow);
    const ChangeRow after(row.newRow);
    const char* events[] = {"внесена", "изменена", "удалена"};
    out << QStringLiteral("  %1: %2\n")
               .arg(QString::fromUtf8(row.table),
                    QString::fromUtf8(events[qBound(Q_INT64_C(0), row.event - 601, Q_INT64_C(2))]));
    for (int i = 0; table && i < table->fields.size(); ++i) {
        const QByteArray null = "null";
        const QByteArray was = before.raw(i).isEmpty() ? null : before.raw(i);
        const QByteArray is = after.raw(i).isEmpty() ? null : after.raw(i);
        if (was == is)
            continue;
        const CatalogField& field = table->fields[i];
        out << QStringLiteral("    %1: ").arg(QString::fromUtf8(field.name));
        if (row.event == 602)
            out << shown(before, i, field.type) << QStringLiteral(" -> ");
        out << shown(row.event == 603 ? before : after, i, field.type) << QLatin1Char('\n');
    }
}
} // namespace

Command::ExitCode Command::history(const QStringList& arguments, Streams& streams)
{
    if (arguments.size() != 2)
        return WrongUsage;
    StoreError error;
    const auto store = Store::open(arguments[0], {}, &error);
    const auto log = store ? StoreAdmin::openEvidence(arguments[0], EvidenceLog::Read, &error) : nullptr;
    const QByteArray key = arguments[1].toUtf8();
    QVector<qint64> numbers;
    if (!log || !log->numbersOf(key, QByteArray(), &numbers))
        return fail(streams, error);
    if (numbers.isEmpty()) {
        streams.err << QStringLiteral("В журнале изменений нет строки с ключом «%1».\n").arg(arguments[1]);
        return Failed;
    }
    const StoreZone zone(*store);
    const QHash<QString, QString> names = namesOf(*store);
    const auto take = [&](const LoggedTransaction& transaction) {
        const QString login = QString::fromUtf8(transaction.login);
        streams.out << QStringLiteral("%1  %2  транзакция %3\n")
                           .arg(ShiftBook::shown(transaction.time),
                                transaction.isLoader ? QStringLiteral("администратор (%1)").arg(login)
                                : names.contains(login)
                                    ? QStringLiteral("%1 (%2)").arg(names.value(login), login)
                                    : login)
                           .arg(transaction.number);
        for (const LoggedRow& row : transaction.rows)
            if (row.key == key)
                tell(row, streams.out);
        return true;
    };
    for (const qint64 number : qAsConst(numbers))
        if (!log->read(number, number, take))
            return fail(streams, error);
    return Success;
}
