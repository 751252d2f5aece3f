#include "Command.h"

#include "AdminText.h"
#include "Arguments.h"
#include "PersonChange.h"
#include "StoreAdmin.h"

namespace
{
/// The row of Workers that is named by its key or by a name; empty with a message unless there is exactly one.
QByteArray workerOf(const Directory& directory, const QString& name, QTextStream& err)
{
    if (directory.row("Workers", name.toUtf8()))
        return name.toUtf8();
    const QVector<QByteArray> found = directory.resolve("Workers", name);
    if (found.size() == 1)
        return found.constFirst();
    err << (found.isEmpty() ? QStringLiteral("Сотрудника «%1» нет.\n").arg(name)
                            : QStringLiteral("Сотрудников «%1» несколько, назовите код:\n").arg(name));
    for (const QByteArray& key : found) {
        const DirectoryRow& row = *directory.row("Workers", key);
        const DirectoryRow* user = directory.row("Users", row.reference("UserKey"));
        err << QStringLiteral("  %1  %2  %3\n")
                   .arg(QString::fromUtf8(key), AdminText::printable(directory.label("Workers", row)),
                        user ? AdminText::printable(user->text("login")) : QString());
    }
    return {};
}
} // namespace

Command::ExitCode Command::merge(const QStringList& arguments, Streams& streams)
{
    QStringList rest = arguments;
    const bool isWritten = Arguments::takeFlag(&rest, QStringLiteral("--write"));
    if (rest.size() != 3 || rest[1].startsWith(QLatin1String("--")))
        return WrongUsage;
    StoreError error;
    const auto store = StoreAdmin::openLoader(rest[0], &error);
    Directory directory;
    if (!store || !directory.load(store.get(), &error))
        return fail(streams, error);
    PersonChange change(store.get(), &directory);
    PersonChange::Merge merge;
    merge.keep = workerOf(directory, rest[1], streams.err);
    merge.lose = workerOf(directory, rest[2], streams.err);
    if (merge.keep.isEmpty() || merge.lose.isEmpty())
        return Failed;
    if (!change.plan(&merge, &error))
        return fail(streams, error);
    if (!merge.refusal.isEmpty()) {
        streams.err << merge.refusal << QLatin1Char('\n');
        return Failed;
    }
    for (const QString& effect : qAsConst(merge.effects))
        streams.out << AdminText::printable(effect) << QLatin1Char('\n');
    if (!isWritten) {
        streams.out << QStringLiteral("Ничего не записано. Записать: --write\n");
        return Success;
    }
    if (!change.write(merge, &error))
        return fail(streams, error);
    return outcome(merge.closedLogin.isEmpty() ||
                       StoreAdmin::admit(rest[0], merge.closedLogin, false, &error),
                   streams, error);
}
