#include "Command.h"

#include "EvidenceLog.h"
#include "HeadBook.h"
#include "LogHead.h"
#include "StoreAdmin.h"

namespace
{
/// Leaves the newest head of the store beside the copy, where it outlives both.
void tellHead(const QString& url, const QString& file, Streams& streams)
{
    StoreError error;
    const auto store = Store::open(url, {}, &error);
    const auto log = store ? store->evidence(Store::Access::Read, &error) : nullptr;
    QByteArray note;
    if (!log || !log->newestHead(&note) || note.isEmpty())
        return; // an older store, or one that nobody seals
    const SignedNote newest(note);
    if (!newest.isValid() || !HeadBook(file).append(note))
        streams.err << QStringLiteral("Печать рядом с копией не записана: %1\n").arg(file);
    else
        streams.out << QStringLiteral("Печать копии: %1 (%2)\n")
                           .arg(QString::fromUtf8(newest.head().onPaper()), file);
}
} // namespace

Command::ExitCode Command::backup(const QStringList& arguments, Streams& streams)
{
    if (arguments.size() != 2)
        return WrongUsage;
    StoreError error;
    if (!StoreAdmin::backup(arguments[0], arguments[1], &error))
        return fail(streams, error);
    streams.out << QStringLiteral("Копия проверена: %1\n").arg(arguments[1]);
    tellHead(arguments[0], arguments[1] + QStringLiteral(".head"), streams);
    return Success;
}
