#pragma once

#include "Command.h"

/// Brings the reference tables of a store to what a folder of sheets says.
class ImportCommand : public Command
{
public:
    QString name() const override { return QStringLiteral("import"); }
    QString summary() const override;
    QString usage() const override;
    ExitCode run(const QStringList& arguments, Streams& streams) override;
};
