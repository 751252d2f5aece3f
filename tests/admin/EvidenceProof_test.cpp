#include "EvidenceBench.h"
#include "Forger.h"
#include "MerkleTree.h"

#include <QJsonDocument>
#include <QJsonObject>

namespace
{
constexpr int limit = 1500; // bytes of the proof of one record

/// A tree of any size whose hashes are all the same.
class FlatTree : public MerkleTree
{
public:
    explicit FlatTree(qint64 size) : m_size(size) {}
    qint64 size() const override { return m_size; }

protected:
    TreeHash complete(int, qint64) const override { return emptyRoot(); }

private:
    qint64 m_size;
};
} // namespace

/// What an export of one record contains beside its rows.
class EvidenceProof_test : public EvidenceBench
{
    Q_OBJECT

private slots:
    void init() { reset(); }

    void theProofOfARecordIsShort();
    void aProofAlsoNamesRestores();

private:
    /// More transactions, without rows.
    void fill(int count) const
    {
        Forger(*m_store).forge(
            QStringLiteral(
                "INSERT INTO ChangeTransactions (number, batchKey, login, loader, time, chain) "
                "WITH RECURSIVE n (i) AS (SELECT max(number) + 1 FROM ChangeTransactions UNION ALL "
                "SELECT i + 1 FROM n WHERE i < (SELECT max(number) + %1 FROM ChangeTransactions)) "
                "SELECT i, 'filled-' || i, login, loader, time, chain FROM n, ChangeTransactions "
                "WHERE number = 1")
                .arg(count),
            false);
    }
    QJsonObject proof() const { return QJsonDocument::fromJson(exported("proof.json").toUtf8()).object(); }
};

void EvidenceProof_test::theProofOfARecordIsShort()
{
    fill(2500);
    write("второй вариант");
    fill(2500);
    QCOMPARE(seal({QStringLiteral("--init")}), 0);
    const QStringList ofRecord{QStringLiteral("--record"), QStringLiteral("REC_DRAFT_IVANOV")};
    QVERIFY2(verify(ofRecord, {QStringLiteral("--head"), lastHead()}) == 0, qPrintable(m_said));
    QVERIFY(exported("log.jsonl").contains(QStringLiteral("второй вариант")));
    QVector<qint64> changes;
    for (const QVariantList& row : m_store->rows(QStringLiteral(
             "SELECT DISTINCT number FROM ChangeLog WHERE rowKey = 'REC_DRAFT_IVANOV' ORDER BY number")))
        changes.append(row[0].toLongLong() - 1);
    QCOMPARE(changes.size(), 2);
    const qint64 size = proof().value(QStringLiteral("size")).toInt();
    QVERIFY(size > 5000);
    const QByteArray hidden = proof().value(QStringLiteral("hidden")).toString().toLatin1();
    QCOMPARE(QByteArray::fromBase64(hidden).size(), 32 * FlatTree(size).hidden(changes, size).size());
    const int frame = exported("proof.json").size() - hidden.size();
    QVERIFY2(frame + hidden.size() < limit, qPrintable(exported("proof.json")));

    // As long in a store of 2,000,000 transactions, but for the digits of the size and the number of hashes.
    const FlatTree tall(2000000);
    const auto length = [&](const QVector<qint64>& shown) {
        const int bytes = 32 * tall.hidden(shown, tall.size()).size();
        return frame + 3 + QByteArray(bytes, '\0').toBase64().size();
    };
    for (const qint64 place : {0, 1, 999999, 1234567, 1999999})
        QVERIFY2(length({place}) < limit, qPrintable(QString::number(place)));
    QCOMPARE(tall.hidden({1234567}, tall.size()).size(), 21);
    QVERIFY2(length({1234567, 1234600}) < limit, "written and signed within a shift");
}

void EvidenceProof_test::aProofAlsoNamesRestores()
{
    QCOMPARE(seal({QStringLiteral("--init")}), 0);
    const QString copy = m_admin->path(QStringLiteral("copy"));
    QCOMPARE(int(m_admin->call("backup", {copy})), 0);
    const QStringList ofRecord{QStringLiteral("--record"), QStringLiteral("REC_DRAFT_IVANOV")};
    QCOMPARE(verify(ofRecord, {}), 0);
    // The first epoch was begun, not changed.
    QVERIFY(!exported("log.jsonl").contains(QStringLiteral("epoch")));
    restoreCopy(copy);
    QVERIFY2(seal() == 0, qPrintable(m_admin->err));
    QCOMPARE(verify(ofRecord, {}), 0);
    QVERIFY2(m_said.contains(QStringLiteral("restored as transaction")), qPrintable(m_said));
}

QTEST_GUILESS_MAIN(EvidenceProof_test)
#include "EvidenceProof_test.moc"
