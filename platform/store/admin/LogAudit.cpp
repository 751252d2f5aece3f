#include "LogAudit.h"

#include "ContentCheck.h"
#include "EpochHistory.h"
#include "FormerHeads.h"
#include "HashTiles.h"
#include "SignatureAudit.h"

#include <algorithm>
#include <QRegularExpression>

namespace
{
using StoreAdmin::Finding;

constexpr int shortestRoot = 8; // bytes of a root on paper

void refuseUnsigned(const QByteArray& head, const QString& source, QVector<Finding>* findings)
{
    ContentCheck::add(findings, Finding::Fault, "Печать «%1» (%2) не подписана известным ключом.", head,
                      source.toUtf8());
}

/// The claims that the log must contain, by size. The others become findings.
QVector<LogAudit::Claim> due(const QVector<LogAudit::Claim>& claims, const EpochHistory& epochs, qint64 end,
                             FormerHeads* former, QVector<Finding>* findings)
{
    QVector<LogAudit::Claim> due;
    for (const LogAudit::Claim& claim : claims) {
        const qint64 reach = claim.epoch.isEmpty() ? end : epochs.endOf(claim.epoch);
        const QByteArray source = claim.source.toUtf8();
        // The copy may be older than the key: then the store names the epoch, but not the key.
        if (!claim.isSigned && !(claim.isOutside && former->isFormer(claim)))
            refuseUnsigned(LogHead{claim.epoch, 0, {}, {}}.origin() + ' ' + QByteArray::number(claim.size),
                           claim.source, findings);
        else if (reach < 0)
            ContentCheck::add(findings, Finding::Fault, "Печать %1 (%2) принадлежит другому хранилищу.",
                              QByteArray::number(claim.size), source);
        else if (claim.size <= reach)
            due.append(claim);
        else if (former->isFormer(claim))
            former->addLost(claim);
        else
            ContentCheck::add(findings, Finding::Fault,
                              "Журнал изменений обрезан: по печати %1 (%2) он был длиннее.",
                              QByteArray::number(claim.size), source);
    }
    std::sort(due.begin(), due.end(), [](const auto& a, const auto& b) { return a.size < b.size; });
    return due;
}
} // namespace

LogAudit::Claim LogAudit::fromPaper(const QString& text)
{
    static const QRegularExpression paper(QStringLiteral("^([0-9]{1,18}) ([0-9a-fA-F]{16,64})$"));
    const QRegularExpressionMatch match = paper.match(text.simplified());
    if (!match.hasMatch())
        return Claim();
    return {QByteArray(), match.captured(1).toLongLong(), QByteArray::fromHex(match.captured(2).toLatin1()),
            QString::fromUtf8("с бумаги")};
}

QVector<LogAudit::Claim> LogAudit::claims(const QVector<QByteArray>& notes, const QVector<VerifierKey>& keys,
                                          const QString& source, QVector<Finding>* findings)
{
    const bool isOutside = !source.isEmpty();
    const QString place = isOutside ? source : QString::fromUtf8("в хранилище");
    QVector<Claim> claims;
    for (const QByteArray& text : notes) {
        const SignedNote note(text);
        const LogHead& head = note.head();
        const bool isSigned = note.signer(keys).isValid();
        if (isSigned || note.isOfOtherKeys(keys))
            claims.append({head.epoch, head.size, head.root.bytes(), place, isSigned, isOutside});
        else
            refuseUnsigned(text.left(text.indexOf('\n', text.indexOf('\n') + 1)).replace('\n', ' '), place,
                           findings);
    }
    return claims;
}

bool LogAudit::run(EvidenceLog& log, const QVector<Claim>& claims, QVector<Finding>* findings)
{
    EpochHistory epochs;
    QMap<qint64, QByteArray> heads;
    qint64 end = 0;
    QByteArray epoch;
    if (!epochs.load(log) || !log.heads(&heads) || !log.end(&end, &epoch))
        return false;
    FormerHeads former(epochs);
    const QVector<Claim> expected = due(claims, epochs, end, &former, findings);
    const qint64 sealed = heads.isEmpty() ? 0 : qMin(heads.lastKey(), end);
    const HashTiles tiles(log, sealed);

    MerkleStack tree;
    auto next = expected.cbegin();
    qint64 lastSound = 0;
    const auto compare = [&] {
        for (; next != expected.cend() && next->size == tree.size(); ++next) {
            if (next->root.size() >= shortestRoot && tree.root().bytes().startsWith(next->root)) {
                lastSound = tree.size();
                former.addContained(*next);
            } else {
                ContentCheck::add(
                    findings, Finding::Fault, "Журнал изменений переписан между транзакциями %1 и %2.",
                    QByteArray::number(lastSound + 1),
                    QByteArray::number(next->size) + " (" + former.sourceOf(*next).toUtf8() + ')');
            }
        }
    };
    compare();
    bool isSound = true;
    SignatureAudit signatures(findings);
    const bool isRead = log.read(1, end, [&](const LoggedTransaction& transaction) {
        const TreeHash leaf = LogLeaf::ofTransaction(transaction);
        if (const qint64 place = tree.size(); isSound && place < sealed && tiles.leaf(place) != leaf) {
            isSound = false; // what follows a change may differ, too
            ContentCheck::add(findings, Finding::Fault,
                              tiles.isBroken() ? "Дерево журнала изменений повреждено у транзакции %1."
                                               : "Транзакция %1 изменена после печати.",
                              QByteArray::number(place + 1));
        }
        tree.append(leaf);
        compare();
        signatures.take(transaction);
        return true;
    });
    signatures.end();
    former.report(findings);
    if (isRead && isSound && !tiles.agreesAboveTheLeaves())
        ContentCheck::add(findings, Finding::Fault, "Дерево журнала изменений повреждено.");
    return isRead;
}
