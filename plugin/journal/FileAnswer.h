#pragma once

#include <QByteArray>
#include <QString>

class CVrkCliSes;
struct HFNCliParam;

/// The server's answer to the packet "FileGet".
struct FileAnswer {
    QByteArray content;
    QString failure; ///< why there is no content, for the log; empty after a success

    /// Fetches a file; \a argument is "folder;name".
    static FileAnswer fetch(CVrkCliSes* session, const QString& argument);
    /// Unpacks an answer; \a argument is that of the request.
    static FileAnswer read(const HFNCliParam* answer, const QString& argument);
};
