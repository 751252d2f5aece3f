#pragma once

#include "Command.h"

/// Lays down the demo journal or brings it up to now; with --live goes on writing as a second workstation
/// would.
class DemoCommand : public Command
{
public:
    QString name() const override { return QStringLiteral("demo"); }
    QString summary() const override;
    QString usage() const override;
    ExitCode run(const QStringList& arguments, Streams& streams) override;
};
