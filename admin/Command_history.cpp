#include "Command.h"

#include "AdminText.h"
#include "EvidenceLog.h"
#include "LogHistory.h"
#include "ShiftBook.h"
#include "SignatureLines.h"
#include "StoreZone.h"

namespace
{
constexpr int longestValue = 300;
constexpr double earliestTime = 1e8; // numbers with a fraction above it are times

/// The names of persons by login.
QHash<QString, QString> namesOf(Store& store)
{
    QHash<QString, QString> names;
    for (const StoreLogin& login : store.logins())
        names.insert(AdminText::printable(login.login), AdminText::printable(login.name));
    return names;
}

QString shown(const QVariant& value)
{
    if (!value.isValid())
        return QStringLiteral("-");
    if (value.type() == QVariant::Double && value.toDouble() >= earliestTime)
        return ShiftBook::shown(value.toDouble());
    const QVariantMap bytes = value.toMap();
    const QString text = bytes.isEmpty() ? value.toString()
                                         : QStringLiteral("SHA-256 %1, байт: %2")
                                               .arg(bytes.value(QStringLiteral("sha256")).toString(),
                                                    bytes.value(QStringLiteral("length")).toString());
    return AdminText::printable(text.size() > longestValue ? text.left(longestValue) + QStringLiteral("…")
                                                           : text);
}

void tell(const RowChange& change, QTextStream& out)
{
    const char* events[] = {"внесена", "изменена", "удалена"};
    out << QStringLiteral("  %1: %2. %3\n")
               .arg(AdminText::printable(QString::fromUtf8(change.table)),
                    QString::fromUtf8(events[qBound(0, change.event - RowChange::Inserted, 2)]),
                    AdminText::printable(change.deed()));
    for (const int i : change.differences()) {
        out << QStringLiteral("    %1: ").arg(QString::fromUtf8(change.fields.at(i)));
        if (change.event == RowChange::Changed)
            out << shown(change.before.value(i)) << QStringLiteral(" -> ");
        out << shown(change.event == RowChange::Removed ? change.before.value(i) : change.after.value(i))
            << QLatin1Char('\n');
    }
}

QString writer(const RowChange& change, const QHash<QString, QString>& names)
{
    const QString login = AdminText::printable(change.login);
    if (change.isAdministrator)
        return QStringLiteral("администратор (%1)").arg(login);
    return names.contains(login) ? QStringLiteral("%1 (%2)").arg(names.value(login), login) : login;
}
} // namespace

Command::ExitCode Command::history(const QStringList& arguments, Streams& streams)
{
    if (arguments.size() != 2)
        return WrongUsage;
    StoreError error;
    const auto store = Store::open(arguments[0], {}, &error);
    const auto log = store ? store->evidence(Store::Access::Read, &error) : nullptr;
    QVector<RowChange> changes;
    if (!log || !LogHistory(log.get()).ofRow(arguments[1].toUtf8(), &changes))
        return fail(streams, error);
    if (changes.isEmpty()) {
        streams.err << QStringLiteral("В журнале изменений нет строки с ключом «%1».\n").arg(arguments[1]);
        return Failed;
    }
    const StoreZone zone(*store);
    const QHash<QString, QString> names = namesOf(*store);
    qint64 number = 0;
    for (const RowChange& change : qAsConst(changes)) {
        if (change.number != number)
            streams.out << QStringLiteral("%1  %2  транзакция %3\n")
                               .arg(ShiftBook::shown(change.time), writer(change, names))
                               .arg(change.number);
        number = change.number;
        tell(change, streams.out);
        streams.out << SignatureLines::of(change, changes);
    }
    return Success;
}
