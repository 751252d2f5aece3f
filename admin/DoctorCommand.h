#pragma once

#include "Command.h"

/// Reports problems of a store's environment, and the remedies.
class DoctorCommand : public Command
{
public:
    QString name() const override { return QStringLiteral("doctor"); }
    QString summary() const override;
    QString usage() const override;
    ExitCode run(const QStringList& arguments, Streams& streams) override;
};
