#include "DoctorCommand.h"

#include "StoreAdmin.h"

QString DoctorCommand::summary() const
{
    return QStringLiteral("найти, что мешает работе, и назвать средство");
}

QString DoctorCommand::usage() const
{
    return QStringLiteral("vrk-admin doctor URL\n"
                          "  Проверяет доступ, шифрование, кодировку, версию, защиту данных и часы.\n"
                          "  Код завершения 3, если что-то найдено.\n");
}

Command::ExitCode DoctorCommand::run(const QStringList& arguments, Streams& streams)
{
    if (arguments.size() != 1)
        return wrongUsage(streams);
    const QVector<StoreAdmin::Symptom> symptoms = StoreAdmin::examine(arguments.constFirst());
    for (const StoreAdmin::Symptom& symptom : symptoms)
        streams.out
            << QStringLiteral("Не в порядке: %1\n    Средство: %2\n").arg(symptom.fault, symptom.cure);
    if (symptoms.isEmpty())
        streams.out << QStringLiteral("Всё в порядке.\n");
    return symptoms.isEmpty() ? Success : FaultsFound;
}
