#pragma once

#include "../support/TestFolder.h"
#include "Command.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

/// vrk-admin with its own streams, store and folder of sheets.
struct AdminRun {
    Command::ExitCode run(const QStringList& arguments)
    {
        out.clear();
        err.clear();
        QTextStream outStream(&out);
        QTextStream errStream(&err);
        Streams streams{outStream, errStream};
        return runAdmin(arguments, streams);
    }
    /// Runs the command with the store's address as its first argument; the other arguments are separated
    /// by spaces.
    Command::ExitCode call(const char* command, const QStringList& rest = {})
    {
        return run(QStringList{QLatin1String(command), url} + rest);
    }
    QString path(const QString& name) const { return folder.filePath(name); }
    /// Writes a sheet into the folder "sheets".
    void sheet(const char* name, const QByteArray& bytes) const
    {
        QDir(folder.path()).mkpath(QStringLiteral("sheets"));
        QFile file(path(QStringLiteral("sheets/") + QLatin1String(name)));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("cannot write a sheet");
    }
    QByteArray bytes(const QString& name) const
    {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    QTemporaryDir folder{testFolderTemplate()};
    QString url = QStringLiteral("sqlite://") + folder.filePath(QStringLiteral("store.sqlite"));
    QString sheets = folder.filePath(QStringLiteral("sheets"));
    QString out;
    QString err;
};
