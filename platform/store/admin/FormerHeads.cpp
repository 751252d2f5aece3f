#include "FormerHeads.h"

#include "EpochHistory.h"

#include <algorithm>

namespace
{
constexpr std::size_t mostNamed = 6;

/// The sizes of heads, the first and the last one of many.
QString listed(const std::set<qint64>& sizes)
{
    if (sizes.size() > mostNamed)
        return QString::fromUtf8("%1 … %2 (всего %3)")
            .arg(*sizes.cbegin())
            .arg(*sizes.crbegin())
            .arg(sizes.size());
    QStringList texts;
    for (const qint64 size : sizes)
        texts << QString::number(size);
    return texts.join(QStringLiteral(", "));
}

QString shown(const QByteArray& epoch)
{
    return QString::fromUtf8(epoch.left(8));
}
} // namespace

bool FormerHeads::isFormer(const LogAudit::Claim& claim) const
{
    return !claim.epoch.isEmpty() && claim.epoch != m_epochs.current() && m_epochs.endOf(claim.epoch) >= 0;
}

FormerHeads::Heads* FormerHeads::of(const LogAudit::Claim& claim)
{
    Heads* heads = &m_heads[claim.epoch];
    if (!claim.isSigned)
        heads->unverified.insert(claim.size);
    return heads;
}

void FormerHeads::addContained(const LogAudit::Claim& claim)
{
    if (claim.isOutside && isFormer(claim))
        of(claim)->contained.insert(claim.size);
}

void FormerHeads::addLost(const LogAudit::Claim& claim)
{
    of(claim)->lost.insert(claim.size);
}

QString FormerHeads::sourceOf(const LogAudit::Claim& claim) const
{
    QString source = claim.source;
    if (isFormer(claim))
        source += QString::fromUtf8(", эпоха %1 до возврата копии").arg(shown(claim.epoch));
    if (!claim.isSigned)
        source += QString::fromUtf8(", подпись не проверена");
    return source;
}

void FormerHeads::report(QVector<StoreAdmin::Finding>* findings) const
{
    for (auto heads = m_heads.cbegin(); heads != m_heads.cend(); ++heads) {
        const auto& changes = m_epochs.changes();
        const auto restore = std::find_if(changes.crbegin(), changes.crend(),
                                          [&](const auto& change) { return change.former == heads.key(); });
        if (restore == changes.crend())
            continue;
        QStringList parts;
        if (!heads->contained.empty())
            parts << QString::fromUtf8("сошлись с журналом: %1").arg(listed(heads->contained));
        if (!heads->lost.empty())
            parts << QString::fromUtf8(
                         "сделаны до возврата копии, но записанное после копии не вернулось: %1")
                         .arg(listed(heads->lost));
        if (!heads->unverified.empty())
            parts << QString::fromUtf8("подпись не проверена, ключа в хранилище нет: %1")
                         .arg(listed(heads->unverified));
        findings->append(
            {StoreAdmin::Finding::Note,
             QString::fromUtf8("Печати эпохи %1, которую закончил возврат копии (транзакция %2): %3.")
                 .arg(shown(heads.key()))
                 .arg(restore->number)
                 .arg(parts.join(QStringLiteral("; ")))});
    }
}
