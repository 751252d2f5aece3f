#pragma once

#include "Command.h"
#include "ShiftBook.h"

#include <QMap>

/// Shows the shifts that may be corrected, and corrects mistyped bounds of one.
class ShiftCommand : public Command
{
public:
    QString name() const override { return QStringLiteral("shift"); }
    QString summary() const override;
    QString usage() const override;
    ExitCode run(const QStringList& arguments, Streams& streams) override;

private:
    static ExitCode correct(Store& store, const ShiftBook& book, const ShiftBook::Shift& shift,
                            const QMap<QString, QString>& options, Streams& streams);
};
