#include "Command.h"

#include "Arguments.h"
#include "HeadBook.h"
#include "JsonList.h"
#include "LogAudit.h"
#include "ReadyCheck.h"
#include "SealFiles.h"
#include "StoreAdmin.h"
#include "StoreZone.h"

namespace
{
Command::ExitCode tellReadiness(const QVector<ReadyCheck::Finding>& findings, JsonList* list,
                                QTextStream& out)
{
    if (list->isWanted()) {
        for (const ReadyCheck::Finding& finding : findings)
            list->add(
                {{QStringLiteral("department"), finding.department}, {QStringLiteral("text"), finding.text}});
        list->print(out);
        return findings.isEmpty() ? Command::Success : Command::FaultsFound;
    }
    QString department;
    for (const ReadyCheck::Finding& finding : findings) {
        if (finding.department != department)
            out << finding.department << QStringLiteral(":\n");
        department = finding.department;
        out << (department.isEmpty() ? QString() : QStringLiteral("  ")) << finding.text << QLatin1Char('\n');
    }
    out << (findings.isEmpty() ? QStringLiteral("Всё готово: смены можно открывать, вести и закрывать.\n")
                               : QStringLiteral("Не хватает: %1\n").arg(findings.size()));
    return findings.isEmpty() ? Command::Success : Command::FaultsFound;
}
/// Compares the change log with the heads in the store, in a file or folder and on paper.
bool audit(const QString& url, const QString& headsPath, const QString& paper,
           QVector<StoreAdmin::Finding>* findings, StoreError* error)
{
    const auto store = Store::open(url, {}, error);
    const auto log = store ? store->evidence(Store::Access::Read, error) : nullptr;
    QByteArray keyLines;
    if (!log || !SealFiles::published(store.get(), &keyLines, error))
        return false;
    const QVector<VerifierKey> keys = VerifierKey::parseAll(keyLines);
    QMap<qint64, QByteArray> stored;
    if (!log->heads(&stored))
        return false;
    QVector<QByteArray> own;
    for (const QByteArray& note : qAsConst(stored))
        own.append(note);
    QVector<LogAudit::Claim> claims = LogAudit::claims(own, keys, QString(), findings);
    if (!headsPath.isNull()) {
        QVector<QByteArray> notes;
        if (!HeadBook::read(headsPath, &notes) || notes.isEmpty()) {
            *error = {StoreError::BadRequest, QStringLiteral("В «%1» нет печатей.").arg(headsPath),
                      QString()};
            return false;
        }
        claims += LogAudit::claims(notes, keys, headsPath, findings);
    }
    if (!paper.isNull()) {
        claims.append(LogAudit::fromPaper(paper));
        if (claims.constLast().root.isEmpty()) {
            *error = {StoreError::BadRequest,
                      QStringLiteral("Печать с бумаги пишется так: число, пробел, 16 знаков."), QString()};
            return false;
        }
    }
    return LogAudit::run(*log, claims, findings);
}
} // namespace

Command::ExitCode Command::check(const QStringList& arguments, Streams& streams)
{
    QStringList rest = arguments;
    JsonList list(&rest);
    const QString heads = Arguments::takeValue(&rest, QStringLiteral("--heads"));
    const QString paper = Arguments::takeValue(&rest, QStringLiteral("--paper"));
    const bool ready = rest.removeAll(QStringLiteral("--ready")) > 0;
    const bool rebuild = rest.removeAll(QStringLiteral("--rebuild-search")) > 0;
    if (rest.size() != 1 || (ready && rebuild))
        return WrongUsage;

    StoreError error;
    if (rebuild) {
        if (!StoreAdmin::rebuildSearch(rest.constFirst(), &error))
            return fail(streams, error);
        (list.isWanted() ? streams.err : streams.out)
            << QStringLiteral("Указатель поиска составлен заново.\n");
    }
    if (ready) {
        const auto store = Store::open(rest.constFirst(), {}, &error);
        Directory directory;
        if (!store || !directory.load(store.get(), &error))
            return fail(streams, error);
        const StoreZone zone(*store);
        const auto findings = ReadyCheck::look(directory, store.get(), &error);
        return error ? fail(streams, error) : tellReadiness(findings, &list, streams.out);
    }
    QVector<StoreAdmin::Finding> findings;
    if (!StoreAdmin::check(rest.constFirst(), &findings, &error) ||
        !audit(rest.constFirst(), heads, paper, &findings, &error))
        return fail(streams, error);
    return report(findings, QStringLiteral("Хранилище в порядке.\n"), streams, &list);
}
