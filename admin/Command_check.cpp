#include "Command.h"

#include "ReadyCheck.h"
#include "StoreAdmin.h"
#include "StoreZone.h"

namespace
{
Command::ExitCode tellReadiness(const QVector<ReadyCheck::Finding>& findings, QTextStream& out)
{
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
} // namespace

Command::ExitCode Command::check(const QStringList& arguments, Streams& streams)
{
    QStringList rest = arguments;
    const bool ready = rest.removeAll(QStringLiteral("--ready")) > 0;
    const bool rebuild = rest.removeAll(QStringLiteral("--rebuild-search")) > 0;
    if (rest.size() != 1 || (ready && rebuild))
        return WrongUsage;

    StoreError error;
    if (rebuild) {
        if (!StoreAdmin::rebuildSearch(rest.constFirst(), &error))
            return fail(streams, error);
        streams.out << QStringLiteral("Указатель поиска составлен заново.\n");
    }
    if (ready) {
        const auto store = Store::open(rest.constFirst(), {}, &error);
        Directory directory;
        if (!store || !directory.load(store.get(), &error))
            return fail(streams, error);
        const StoreZone zone(*store);
        const auto findings = ReadyCheck::look(directory, store.get(), &error);
        return error ? fail(streams, error) : tellReadiness(findings, streams.out);
    }
    QVector<StoreAdmin::Finding> findings;
    if (!StoreAdmin::check(rest.constFirst(), &findings, &error))
        return fail(streams, error);
    return report(findings, QStringLiteral("Хранилище в порядке.\n"), streams);
}
