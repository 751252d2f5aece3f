#pragma once

#include "Command.h"

/// The part of the command seal that keeps time stamps beside the heads of a store.
class Stamping
{
public:
    /// \a way leads to the authority: a name ending in ".tsq" is the file that receives the request, one in ".tsr"
    /// has the response that a courier brought; anything else is a command that reads the request and writes the
    /// response. \a caFile has the certificates of the authority.
    Stamping(const QString& way, const QString& caFile, int seconds)
        : m_way(way), m_ca(caFile), m_seconds(seconds)
    {
    }

    bool isWanted() const { return !m_way.isEmpty(); }
    /// Whether the options belong together.
    bool isComplete() const { return !isWanted() || isRequest() || !m_ca.isEmpty(); }
    bool isResponse() const { return m_way.endsWith(QLatin1String(".tsr")); }

    /// Stamps the newest head, or keeps the response for the head that it stamps.
    Command::ExitCode run(Store& store, Streams& streams) const;

private:
    bool isRequest() const { return m_way.endsWith(QLatin1String(".tsq")); }
    Command::ExitCode writeRequest(const QMap<qint64, QByteArray>& heads, Streams& streams) const;
    /// Obtains the response for one of the heads, \a size.
    bool obtain(const QMap<qint64, QByteArray>& heads, qint64* size, QByteArray* response,
                StoreError* error) const;

    QString m_way;
    QString m_ca;
    int m_seconds;
};
