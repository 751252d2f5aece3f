#pragma once

#include "Command.h"

/// Lists, grants and revokes rights of a login.
class RightCommand : public Command
{
public:
    QString name() const override { return QStringLiteral("right"); }
    QString summary() const override;
    QString usage() const override;
    ExitCode run(const QStringList& arguments, Streams& streams) override;
};
