#pragma once

#include <memory>
#include <QByteArray>

/// The time zone in which all times of the process are shown and typed. A process has one: the stores that are open in it
/// share it.
class ProcessZone
{
public:
    /// Keeps the zone for the process as long as the answer lives. Null while another zone is kept.
    static std::shared_ptr<const ProcessZone> hold(const QByteArray& zone);
    /// The zone that is kept; empty when there is none.
    static QByteArray held();

private:
    explicit ProcessZone(const QByteArray& zone) : m_zone(zone) {}
    static std::weak_ptr<const ProcessZone>& present();

    QByteArray m_zone;
};
