#include "ProcessZone.h"

std::weak_ptr<const ProcessZone>& ProcessZone::present()
{
    static std::weak_ptr<const ProcessZone> zone;
    return zone;
}

std::shared_ptr<const ProcessZone> ProcessZone::hold(const QByteArray& zone)
{
    std::shared_ptr<const ProcessZone> kept = present().lock();
    if (kept && kept->m_zone != zone)
        return nullptr;
    if (!kept) {
        kept.reset(new ProcessZone(zone));
        present() = kept;
    }
    return kept;
}

QByteArray ProcessZone::held()
{
    const std::shared_ptr<const ProcessZone> kept = present().lock();
    return kept ? kept->m_zone : QByteArray();
}
