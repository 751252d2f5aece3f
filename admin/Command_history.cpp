#include "Command.h"

#include "AdminText.h"
#include "EvidenceLog.h"
#include "JsonList.h"
#include "LogHistory.h"
#include "LogValue.h"
#include "ShiftBook.h"
#include "SignatureLines.h"
#include "StoreZone.h"

namespace
{
constexpr int longestValue = 300;

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
    if (LogValue::isTime(value))
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

QJsonValue jsonOf(const RowChange::Signature& signature)
{
    if (signature.state == RowChange::Signature::NotNeeded)
        return QJsonValue::Null;
    const char* states[] = {"", "signed", "administrator", "before-first", "missing"};
    return QJsonObject{{QStringLiteral("state"), QLatin1String(states[signature.state])},
                       {QStringLiteral("meaning"), signature.meaning},
                       {QStringLiteral("person"), signature.person},
                       {QStringLiteral("login"), signature.login},
                       {QStringLiteral("time"), JsonList::time(signature.time)}};
}

QJsonObject jsonOf(const RowChange& change, const QHash<QString, QString>& names)
{
    const char* events[] = {"inserted", "changed", "removed"};
    QJsonArray fields;
    for (const int i : change.differences())
        fields.append(QJsonObject{{QStringLiteral("field"), QString::fromUtf8(change.fields.at(i))},
                                  {QStringLiteral("before"), JsonList::value(change.before.value(i))},
                                  {QStringLiteral("after"), JsonList::value(change.after.value(i))}});
    return {
        {QStringLiteral("transaction"), change.number},
        {QStringLiteral("time"), JsonList::time(change.time)},
        {QStringLiteral("login"), change.login},
        {QStringLiteral("name"), names.value(AdminText::printable(change.login))},
        {QStringLiteral("administrator"), change.isAdministrator},
        {QStringLiteral("table"), QString::fromUtf8(change.table)},
        {QStringLiteral("key"), QString::fromUtf8(change.key)},
        {QStringLiteral("event"), QLatin1String(events[qBound(0, change.event - RowChange::Inserted, 2)])},
        {QStringLiteral("deed"), change.deed()},
        {QStringLiteral("changes"), fields},
        {QStringLiteral("signature"), jsonOf(change.signature)}};
}
} // namespace

Command::ExitCode Command::history(const QStringList& all, Streams& streams)
{
    QStringList arguments = all;
    JsonList list(&arguments);
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
    if (list.isWanted()) {
        for (const RowChange& change : qAsConst(changes))
            list.add(jsonOf(change, names));
        list.print(streams.out);
        return Success;
    }
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
