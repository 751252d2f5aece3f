#pragma once

#include "Command.h"

/// Checks a whole store.
class CheckCommand : public Command
{
public:
    QString name() const override { return QStringLiteral("check"); }
    QString summary() const override;
    QString usage() const override;
    ExitCode run(const QStringList& arguments, Streams& streams) override;
};
