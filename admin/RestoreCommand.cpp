#include "RestoreCommand.h"

#include "StoreAdmin.h"

QString RestoreCommand::summary() const
{
    return QStringLiteral("вернуть копию на место хранилища");
}

QString RestoreCommand::usage() const
{
    return QStringLiteral("vrk-admin restore URL FILE\n"
                          "  Ставит копию, сделанную vrk-admin backup, на место хранилища и проверяет её. "
                          "Копию прежней версии\n"
                          "  приводит к нынешней. Прежний файл хранилища остаётся рядом под именем с датой; "
                          "пока с ним работает\n"
                          "  хотя бы одна программа, команда отказывает. Просто копировать файл на место "
                          "хранилища нельзя: рядом\n"
                          "  может лежать его журнал «-wal».\n"
                          "  На сервере копия ложится в пустую базу, которую команда создаёт сама; роли "
                          "людей она заводит, пароли\n"
                          "  им нужно задать заново, если сервер другой.\n");
}

Command::ExitCode RestoreCommand::run(const QStringList& arguments, Streams& streams)
{
    if (arguments.size() != 2)
        return wrongUsage(streams);
    StoreError error;
    QStringList notes;
    if (!StoreAdmin::restore(arguments[0], arguments[1], &notes, &error))
        return fail(streams, error);
    streams.out << QStringLiteral("Копия проверена и возвращена: %1\n").arg(arguments[1]);
    for (const QString& note : qAsConst(notes))
        streams.out << note << QLatin1Char('\n');
    return Success;
}
