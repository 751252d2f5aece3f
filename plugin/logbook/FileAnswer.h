#pragma once

#include <QByteArray>
#include <QString>

struct HFNCliParam;

/// What the server answered to the packet "FileGet".
struct FileAnswer {
    QByteArray content;
    QString failure; ///< why there is no content, as the log tells it; empty for a success

    /// Unpacks an answer; \a argument is what was asked for.
    static FileAnswer read(const HFNCliParam* answer, const QString& argument);
};
