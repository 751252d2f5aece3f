#pragma once

#include "Command.h"

/// Creates a new, empty store.
class InitCommand : public Command
{
public:
    QString name() const override { return QStringLiteral("init"); }
    QString summary() const override;
    QString usage() const override;
    ExitCode run(const QStringList& arguments, Streams& streams) override;
};
