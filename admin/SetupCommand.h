#pragma once

#include "Command.h"

/// Prepares a site for work from the answers to a series of questions.
class SetupCommand : public Command
{
public:
    QString name() const override { return QStringLiteral("setup"); }
    QString summary() const override;
    QString usage() const override;
    ExitCode run(const QStringList& arguments, Streams& streams) override;
};
