#pragma once

#include "Command.h"

/// Names what is wrong with a store's surroundings, and the cure.
class DoctorCommand : public Command
{
public:
    QString name() const override { return QStringLiteral("doctor"); }
    QString summary() const override;
    QString usage() const override;
    ExitCode run(const QStringList& arguments, Streams& streams) override;
};
