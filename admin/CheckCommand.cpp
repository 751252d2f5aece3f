#include "CheckCommand.h"

#include "StoreAdmin.h"

QString CheckCommand::summary() const
{
    return QStringLiteral("проверить хранилище целиком");
}

QString CheckCommand::usage() const
{
    return QStringLiteral("vrk-admin check URL\n"
                          "  Проверяет файл, ссылки между таблицами, состояния записей и журнал изменений.\n"
                          "  Код завершения 3, если найдены ошибки; примечания ошибками не считаются.\n");
}

Command::ExitCode CheckCommand::run(const QStringList& arguments, Streams& streams)
{
    if (arguments.size() != 1)
        return wrongUsage(streams);

    StoreError error;
    QVector<StoreAdmin::Finding> findings;
    if (!StoreAdmin::check(arguments.constFirst(), &findings, &error))
        return fail(streams, error);
    int faults = 0;
    for (const StoreAdmin::Finding& finding : findings) {
        const bool fault = finding.grade == StoreAdmin::Finding::Fault;
        faults += fault ? 1 : 0;
        streams.out << (fault ? QStringLiteral("Ошибка: ") : QStringLiteral("Примечание: ")) << finding.text
                    << QLatin1Char('\n');
    }
    streams.out << (faults ? QStringLiteral("Найдено ошибок: %1\n").arg(faults)
                           : QStringLiteral("Хранилище в порядке.\n"));
    return faults ? FaultsFound : Success;
}
