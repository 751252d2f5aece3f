#pragma once

#include "Command.h"

/// Shows and sets what the control of the length of workshifts goes by.
class OptionCommand : public Command
{
public:
    QString name() const override { return QStringLiteral("option"); }
    QString summary() const override;
    QString usage() const override;
    ExitCode run(const QStringList& arguments, Streams& streams) override;
};
