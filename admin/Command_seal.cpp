#include "Command.h"

#include "Arguments.h"
#include "LogHead.h"
#include "Seal.h"
#include "SealFiles.h"

#include <algorithm>
#include <QSysInfo>

namespace
{
/// Adds the public keys to those in the store, unless they are there.
bool publish(const QString& url, const std::vector<std::unique_ptr<SealKey>>& keys, StoreError* error)
{
    const auto store = StoreAdmin::openLoader(url, error);
    if (!store)
        return false;
    QByteArray content;
    if (!store->file(SealFiles::keysFolder(), SealFiles::keysName(), &content, error) &&
        error->code != StoreError::NoSuchRow)
        return false;
    error->clear();
    const QVector<VerifierKey> known = VerifierKey::parseAll(content);
    QByteArray lines = content;
    for (const auto& key : keys) {
        const QByteArray text = key->verifier().text();
        if (std::none_of(known.begin(), known.end(),
                         [&](const VerifierKey& other) { return other.text() == text; }))
            lines += text + '\n';
    }
    return lines == content || store->writeFile(SealFiles::keysFolder(), SealFiles::keysName(), lines, error);
}

} // namespace

Command::ExitCode Command::seal(const QStringList& arguments, Streams& streams)
{
    QStringList rest = arguments;
    const SealFiles files(Arguments::takeValue(&rest, QStringLiteral("--key")));
    const QString name = Arguments::takeValue(&rest, QStringLiteral("--name"));
    const bool isFirst = Arguments::takeFlag(&rest, QStringLiteral("--init"));
    const bool isReplaced = Arguments::takeFlag(&rest, QStringLiteral("--rotate"));
    if (rest.size() != 1 || (isFirst && isReplaced) || (!name.isEmpty() && !isFirst))
        return WrongUsage;
    const QString& url = rest.constFirst();

    StoreError error;
    if (StoreAdmin::version(url, &error) < 0)
        return fail(streams, error);
    const QString machine = QStringLiteral("seal-") + QSysInfo::machineHostName();
    if (isFirst && !files.create((name.isEmpty() ? machine : name).toUtf8(), &error))
        return fail(streams, error);
    if (isReplaced && !files.replace(&error))
        return fail(streams, error);
    std::vector<std::unique_ptr<SealKey>> keys;
    const bool isNew = isFirst || isReplaced;
    if (!files.load(&keys, &error) || (isNew && !publish(url, keys, &error)))
        return fail(streams, error);
    if (isNew)
        streams.out << QStringLiteral("Ключ: %1\nПроверочный ключ: %2\n")
                           .arg(files.keyFile(), QString::fromUtf8(keys.front()->verifier().text()));

    const auto log = StoreAdmin::openEvidence(url, EvidenceLog::Write, &error);
    QByteArray note;
    if (!log || !Seal::make(*log, keys, files.heads().notes(), &note, &error))
        return fail(streams, error);
    if (!files.heads().append(note))
        streams.err << QStringLiteral("Печать не записана рядом с ключом: нет места или прав.\n");
    streams.out
        << QStringLiteral("Опечатано: %1\n").arg(QString::fromUtf8(SignedNote(note).head().onPaper()));
    return Success;
}
