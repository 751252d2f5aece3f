#include "Command.h"

#include "JsonList.h"
#include "StoreAdmin.h"

Command::ExitCode Command::doctor(const QStringList& all, Streams& streams)
{
    QStringList arguments = all;
    JsonList list(&arguments);
    if (arguments.size() != 1)
        return WrongUsage;
    const QVector<StoreAdmin::Symptom> symptoms = StoreAdmin::examine(arguments.constFirst());
    for (const StoreAdmin::Symptom& symptom : symptoms) {
        if (list.isWanted())
            list.add({{QStringLiteral("fault"), symptom.fault}, {QStringLiteral("cure"), symptom.cure}});
        else
            streams.out
                << QStringLiteral("Не в порядке: %1\n    Средство: %2\n").arg(symptom.fault, symptom.cure);
    }
    if (list.isWanted())
        list.print(streams.out);
    else if (symptoms.isEmpty())
        streams.out << QStringLiteral("Всё в порядке.\n");
    return symptoms.isEmpty() ? Success : FaultsFound;
}
