#pragma once

#include "Command.h"

/// Writes the reference tables of a store as sheets for a spreadsheet.
class ExportCommand : public Command
{
public:
    QString name() const override { return QStringLiteral("export"); }
    QString summary() const override;
    QString usage() const override;
    ExitCode run(const QStringList& arguments, Streams& streams) override;
};
