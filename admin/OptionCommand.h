#pragma once

#include "Command.h"

/// Shows and sets the options for the control of the length of workshifts.
class OptionCommand : public Command
{
public:
    QString name() const override { return QStringLiteral("option"); }
    QString summary() const override;
    QString usage() const override;
    ExitCode run(const QStringList& arguments, Streams& streams) override;
};
