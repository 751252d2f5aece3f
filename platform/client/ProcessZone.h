#pragma once

#include <memory>
#include <QByteArray>

/// The time zone in which the process shows and reads all times. A process has only one; all stores that
/// are open in it share it.
class ProcessZone
{
public:
    /// Keeps the zone for the process as long as the returned object exists. Null while another zone is
    /// kept.
    static std::shared_ptr<const ProcessZone> hold(const QByteArray& zone);
    /// The zone that is kept; empty if there is none.
    static QByteArray held();

private:
    explicit ProcessZone(const QByteArray& zone) : m_zone(zone) {}
    static std::weak_ptr<const ProcessZone>& present();

    QByteArray m_zone;
};
