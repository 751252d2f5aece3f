#include "BackupCommand.h"

#include "StoreAdmin.h"

QString BackupCommand::summary() const
{
    return QStringLiteral("сделать проверенную копию, не останавливая работу");
}

QString BackupCommand::usage() const
{
    return QStringLiteral("vrk-admin backup URL FILE\n"
                          "  Копирует хранилище в новый файл, пока с ним работают, и проверяет копию.\n"
                          "  Существующий файл не перезаписывает.\n");
}

Command::ExitCode BackupCommand::run(const QStringList& arguments, Streams& streams)
{
    if (arguments.size() != 2)
        return wrongUsage(streams);
    StoreError error;
    if (!StoreAdmin::backup(arguments[0], arguments[1], &error))
        return fail(streams, error);
    streams.out << QStringLiteral("Копия проверена: %1\n").arg(arguments[1]);
    return Success;
}
