#include "Command.h"

#include "StoreAdmin.h"

Command::ExitCode Command::doctor(const QStringList& arguments, Streams& streams)
{
    if (arguments.size() != 1)
        return WrongUsage;
    const QVector<StoreAdmin::Symptom> symptoms = StoreAdmin::examine(arguments.constFirst());
    for (const StoreAdmin::Symptom& symptom : symptoms)
        streams.out
            << QStringLiteral("Не в порядке: %1\n    Средство: %2\n").arg(symptom.fault, symptom.cure);
    if (symptoms.isEmpty())
        streams.out << QStringLiteral("Всё в порядке.\n");
    return symptoms.isEmpty() ? Success : FaultsFound;
}
