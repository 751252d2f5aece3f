#pragma once

#include "Command.h"

/// Lists, fetches, stores and removes the store's named files.
class FileCommand : public Command
{
public:
    QString name() const override { return QStringLiteral("file"); }
    QString summary() const override;
    QString usage() const override;
    ExitCode run(const QStringList& arguments, Streams& streams) override;
};
