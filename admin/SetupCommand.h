#pragma once

#include "Command.h"

/// Makes a site ready to work out of the answers to a row of questions.
class SetupCommand : public Command
{
public:
    QString name() const override { return QStringLiteral("setup"); }
    QString summary() const override;
    QString usage() const override;
    ExitCode run(const QStringList& arguments, Streams& streams) override;
};
