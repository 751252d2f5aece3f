#pragma once

#include "Command.h"

/// Puts a copy of a store back.
class RestoreCommand : public Command
{
public:
    QString name() const override { return QStringLiteral("restore"); }
    QString summary() const override;
    QString usage() const override;
    ExitCode run(const QStringList& arguments, Streams& streams) override;
};
