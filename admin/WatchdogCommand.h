#pragma once

#include "Command.h"

/// Ends requests that run too long on a server.
class WatchdogCommand : public Command
{
public:
    QString name() const override { return QStringLiteral("watchdog"); }
    QString summary() const override;
    QString usage() const override;
    ExitCode run(const QStringList& arguments, Streams& streams) override;
};
