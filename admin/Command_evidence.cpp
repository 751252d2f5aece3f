#include "Command.h"

#include "Arguments.h"
#include "EvidenceExport.h"
#include "SealFiles.h"
#include "StoreZone.h"

namespace
{
/// Reads a time into \a time unless the text is null; false if it is none.
bool read(const QString& text, double* time)
{
    *time = text.isNull() ? 0 : Arguments::timeOf(text);
    return text.isNull() || *time != 0;
}
} // namespace

Command::ExitCode Command::exportEvidence(const QStringList& arguments, Streams& streams)
{
    QStringList rest = arguments;
    const QString from = Arguments::takeValue(&rest, QStringLiteral("--from"));
    const QString to = Arguments::takeValue(&rest, QStringLiteral("--to"));
    const QString heads = Arguments::takeValue(&rest, QStringLiteral("--heads"));
    EvidenceExport::Choice choice;
    const QByteArray record = Arguments::takeValue(&rest, QStringLiteral("--record")).toUtf8();
    if (!record.isEmpty())
        choice.rows.insert(record);
    if (rest.size() != 2 || rest.constLast().startsWith(QLatin1String("--")))
        return WrongUsage;

    StoreError error;
    const auto store = Store::open(rest.constFirst(), {}, &error);
    if (!store)
        return fail(streams, error);
    const StoreZone zone(*store);
    if (!read(from, &choice.from) || !read(to, &choice.to)) {
        streams.err << QStringLiteral("Время пишется так: дд.ММ.гггг чч:мм.\n");
        return Failed;
    }
    if (!heads.isNull() && (!HeadBook::read(heads, &choice.heads) || choice.heads.isEmpty())) {
        streams.err << QStringLiteral("В «%1» нет печатей.\n").arg(heads);
        return Failed;
    }
    QByteArray keys;
    if (!SealFiles::published(store.get(), &keys, &error))
        return fail(streams, error);
    const auto log = store->evidence(Store::Access::Read, &error);
    if (!log)
        return fail(streams, error);
    EvidenceExport evidence(*log, keys, choice);
    if (!evidence.write(QDir(rest[1]), &error))
        return fail(streams, error);
    streams.out << QStringLiteral("Транзакций: %1, печать %2\nПроверить: python3 %3\n")
                       .arg(evidence.count())
                       .arg(QString::fromUtf8(evidence.head().onPaper()),
                            QDir(rest[1]).filePath(QStringLiteral("verify.py")));
    return Success;
}
