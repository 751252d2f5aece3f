#pragma once

#include "Command.h"

/// Lists, adds and removes logins.
class UserCommand : public Command
{
public:
    QString name() const override { return QStringLiteral("user"); }
    QString summary() const override;
    QString usage() const override;
    ExitCode run(const QStringList& arguments, Streams& streams) override;
};
