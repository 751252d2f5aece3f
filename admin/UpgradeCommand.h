#pragma once

#include "Command.h"

class UpgradeCommand : public Command
{
public:
    QString name() const override { return QStringLiteral("upgrade"); }
    QString summary() const override;
    QString usage() const override;
    ExitCode run(const QStringList& arguments, Streams& streams) override;
};
