#include "Command.h"

#include "Arguments.h"
#include "LogHead.h"
#include "Seal.h"
#include "SealFiles.h"
#include "ShiftWatch.h"
#include "Stamping.h"

#include <QSysInfo>

namespace
{
constexpr int stampSeconds = 60; // for the command that asks the authority

/// Lets an account seal, or no longer.
Command::ExitCode admit(const QString& url, const QString& login, bool admitted, Streams& streams)
{
    StoreError error;
    if (!StoreAdmin::admitSealer(url, login, admitted, &error))
        return Command::fail(streams, error);
    streams.out << (admitted ? QStringLiteral("Опечатывать может %1.\n")
                             : QStringLiteral("Больше не опечатывает %1.\n"))
                       .arg(login);
    return Command::Success;
}
Command::ExitCode sealNow(Store& store, const std::vector<std::unique_ptr<SealKey>>& keys,
                          const SealFiles& files, Streams& streams)
{
    StoreError error;
    const auto log = store.evidence(Store::Access::Write, &error);
    QByteArray note;
    if (!log || !Seal::make(*log, keys, files.heads().notes(), &note, &error))
        return Command::fail(streams, error);
    if (!files.heads().append(note))
        streams.err << QStringLiteral("Печать не записана рядом с ключом: нет места или прав.\n");
    streams.out
        << QStringLiteral("Опечатано: %1\n").arg(QString::fromUtf8(SignedNote(note).head().onPaper()));
    streams.out.flush();
    return Command::Success;
}
} // namespace

Command::ExitCode Command::seal(const QStringList& arguments, Streams& streams)
{
    QStringList rest = arguments;
    for (const bool admitted : {true, false})
        if (const QString login = Arguments::takeValue(&rest, admitted ? QStringLiteral("--admit")
                                                                       : QStringLiteral("--dismiss"));
            !login.isNull())
            return rest.size() == 1 ? admit(rest.constFirst(), login, admitted, streams) : WrongUsage;
    const SealFiles files(Arguments::takeValue(&rest, QStringLiteral("--key")));
    const QString name = Arguments::takeValue(&rest, QStringLiteral("--name"));
    const bool isFirst = Arguments::takeFlag(&rest, QStringLiteral("--init"));
    const bool isReplaced = Arguments::takeFlag(&rest, QStringLiteral("--rotate"));
    const bool isWatching = Arguments::takeFlag(&rest, QStringLiteral("--at-closings"));
    const QString authority = Arguments::takeValue(&rest, QStringLiteral("--tsa"));
    const QString certificates = Arguments::takeValue(&rest, QStringLiteral("--tsa-ca"));
    const QString patience = Arguments::takeValue(&rest, QStringLiteral("--tsa-seconds"));
    const Stamping stamping(authority, certificates, patience.isNull() ? stampSeconds : patience.toInt());
    if (rest.size() != 1 || (isFirst && isReplaced) || (!name.isEmpty() && !isFirst) ||
        !stamping.isComplete() || (stamping.isWanted() && isWatching) ||
        (!patience.isNull() && patience.toInt() < 1))
        return WrongUsage;

    StoreError error;
    const auto store = StoreAdmin::openLoader(rest.constFirst(), &error);
    if (!store)
        return fail(streams, error);
    if (stamping.isResponse())
        return stamping.run(*store, streams);
    const QString machine = QStringLiteral("seal-") + QSysInfo::machineHostName();
    if (isFirst && !files.create((name.isEmpty() ? machine : name).toUtf8(), &error))
        return fail(streams, error);
    if (isReplaced && !files.replace(&error))
        return fail(streams, error);
    const bool isNew = isFirst || isReplaced;
    std::vector<std::unique_ptr<SealKey>> keys;
    if (!files.load(&keys, &error) || !files.publish(store.get(), keys, &error)) {
        if (isNew)
            files.takeBack();
        return fail(streams, error);
    }
    if (isNew)
        streams.out << QStringLiteral("Ключ: %1\nПроверочный ключ: %2\n")
                           .arg(files.keyFile(), QString::fromUtf8(keys.front()->verifier().text()));

    ShiftWatch watch(*store);
    if (!watch.start(&error))
        return fail(streams, error);
    do {
        if (const ExitCode code = sealNow(*store, keys, files, streams); code != Success)
            return code;
    } while (isWatching && watch.wait(&error));
    if (stamping.isWanted())
        return stamping.run(*store, streams);
    return isWatching ? fail(streams, error) : Success;
}
