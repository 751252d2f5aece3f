#pragma once

#include "Command.h"

/// Updates the reference tables of a store from a folder of sheets.
class ImportCommand : public Command
{
public:
    QString name() const override { return QStringLiteral("import"); }
    QString summary() const override;
    QString usage() const override;
    ExitCode run(const QStringList& arguments, Streams& streams) override;
};
