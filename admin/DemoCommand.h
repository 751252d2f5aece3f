#pragma once

#include "Command.h"

/// Creates the demo journal or updates it to the current time; with --live keeps writing like a second
/// workstation.
class DemoCommand : public Command
{
public:
    QString name() const override { return QStringLiteral("demo"); }
    QString summary() const override;
    QString usage() const override;
    ExitCode run(const QStringList& arguments, Streams& streams) override;
};
