#pragma once

#include "Command.h"

/// Copies a store in use into a file and checks the copy.
class BackupCommand : public Command
{
public:
    QString name() const override { return QStringLiteral("backup"); }
    QString summary() const override;
    QString usage() const override;
    ExitCode run(const QStringList& arguments, Streams& streams) override;
};
