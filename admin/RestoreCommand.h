#pragma once

#include "Command.h"

/// Restores a copy of a store.
class RestoreCommand : public Command
{
public:
    QString name() const override { return QStringLiteral("restore"); }
    QString summary() const override;
    QString usage() const override;
    ExitCode run(const QStringList& arguments, Streams& streams) override;
};
