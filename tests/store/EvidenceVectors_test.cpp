#include "LogHead.h"
#include "LogLeaf.h"
#include "SourceFile.h"

#include <cstring>
#include <QCryptographicHash>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

/// The hashes, proofs and heads of tests/evidence/vectors.json, which was made from the description of the
/// format alone, without this code.
class EvidenceVectors_test : public QObject
{
    Q_OBJECT

    QJsonObject m_vectors;

    static QByteArray bytes(const QJsonValue& value)
    {
        return value.isNull() ? QByteArray() : QByteArray("").append(value.toString().toUtf8());
    }
    static LoggedRow row(const QJsonObject& json)
    {
        return {bytes(json[QLatin1String("table")]), bytes(json[QLatin1String("key")]),
                static_cast<qint64>(json[QLatin1String("event")].toDouble()),
                bytes(json[QLatin1String("old")]), bytes(json[QLatin1String("new")])};
    }
    static QByteArray hex(const TreeHash& hash) { return hash.bytes().toHex(); }
    static QVector<TreeHash> hashes(const QJsonArray& array)
    {
        QVector<TreeHash> list;
        for (const auto& value : array)
            list.append(TreeHash::at(QByteArray::fromHex(value.toString().toLatin1()).constData()));
        return list;
    }
    static MerkleLeaves numbered(int count)
    {
        MerkleLeaves leaves;
        for (int i = 0; i < count; ++i)
            leaves.append(leaf(QByteArray::number(i)));
        return leaves;
    }
    static TreeHash leaf(const QByteArray& data)
    {
        const QByteArray hash =
            QCryptographicHash::hash(QByteArray(1, '\0') + data, QCryptographicHash::Sha256);
        return TreeHash::at(hash.constData());
    }

private slots:
    void initTestCase()
    {
        QFile file(sourceFile("tests/evidence/vectors.json"));
        QVERIFY(file.open(QIODevice::ReadOnly));
        m_vectors = QJsonDocument::fromJson(file.readAll()).object();
        QVERIFY(!m_vectors.isEmpty());
    }

    void rowsHaveTheirLeaves()
    {
        const QJsonArray rows = m_vectors[QLatin1String("rows")].toArray();
        QVERIFY(rows.size() >= 10);
        for (const auto& json : rows)
            QCOMPARE(hex(LogLeaf::ofRow(row(json.toObject()))),
                     bytes(json.toObject()[QLatin1String("leaf")]));
    }

    void transactionsHaveTheirLeaves()
    {
        const QJsonArray transactions = m_vectors[QLatin1String("transactions")].toArray();
        QVERIFY(transactions.size() >= 10);
        for (const auto& value : transactions) {
            const QJsonObject json = value.toObject();
            LoggedTransaction transaction;
            transaction.number = static_cast<qint64>(json[QLatin1String("number")].toDouble());
            transaction.batchKey = bytes(json[QLatin1String("batchKey")]);
            transaction.login = bytes(json[QLatin1String("login")]);
            transaction.isLoader = json[QLatin1String("role")].toString() == QLatin1String("loader");
            const quint64 bits = json[QLatin1String("timeBits")].toString().toULongLong(nullptr, 16);
            std::memcpy(&transaction.time, &bits, sizeof bits);
            for (const auto& one : json[QLatin1String("rows")].toArray())
                transaction.rows.append(row(one.toObject()));
            QCOMPARE(hex(LogLeaf::ofTransaction(transaction)), bytes(json[QLatin1String("leaf")]));
        }
    }

    void treesHaveTheirRoots()
    {
        for (const auto& value : m_vectors[QLatin1String("trees")].toArray()) {
            const int size = value.toObject()[QLatin1String("size")].toInt();
            MerkleStack stack;
            for (int i = 0; i < size; ++i)
                stack.append(leaf(QByteArray::number(i)));
            QCOMPARE(hex(numbered(size).root()), bytes(value.toObject()[QLatin1String("root")]));
            QCOMPARE(hex(stack.root()), bytes(value.toObject()[QLatin1String("root")]));
        }
    }

    void publicVectorsOfOtherProgramsHold()
    {
        const QJsonObject known = m_vectors[QLatin1String("public")].toObject();
        const QJsonArray inputs = known[QLatin1String("inputs")].toArray();
        QCOMPARE(inputs.size(), 8);
        MerkleLeaves leaves;
        for (int i = 0; i < inputs.size(); ++i) {
            leaves.append(leaf(QByteArray::fromHex(bytes(inputs[i]))));
            QCOMPARE(hex(leaves.root()), bytes(known[QLatin1String("roots")].toArray()[i]));
        }
        QVERIFY(hex(leaves.root()).startsWith("5dc9da79"));
    }

    void prunedTreesHaveTheirHashes()
    {
        for (const auto& value : m_vectors[QLatin1String("pruned")].toArray()) {
            const QJsonObject json = value.toObject();
            const int size = json[QLatin1String("size")].toInt();
            QVector<qint64> shown;
            for (const auto& place : json[QLatin1String("shown")].toArray())
                shown.append(place.toInt());
            QCOMPARE(numbered(size).hidden(shown, size), hashes(json[QLatin1String("hidden")].toArray()));
        }
    }

    void consistencyIsProvenAndOnlyThat()
    {
        for (const auto& value : m_vectors[QLatin1String("consistency")].toArray()) {
            const QJsonObject json = value.toObject();
            const int first = json[QLatin1String("first")].toInt();
            const int second = json[QLatin1String("second")].toInt();
            const MerkleLeaves tree = numbered(second);
            QVector<TreeHash> proof = hashes(json[QLatin1String("path")].toArray());
            QCOMPARE(tree.consistency(first, second), proof);
            QVERIFY(MerkleTree::isConsistent(first, tree.root(first), second, tree.root(), proof));
            QVERIFY(!MerkleTree::isConsistent(first, leaf("x"), second, tree.root(), proof));
            if (first < second)
                QVERIFY(!MerkleTree::isConsistent(first, tree.root(first), second, leaf("x"), proof) ||
                        first == 0);
            for (TreeHash& hash : proof) {
                hash[0] ^= 1;
                QVERIFY(!MerkleTree::isConsistent(first, tree.root(first), second, tree.root(), proof));
                hash[0] ^= 1;
            }
        }
    }

    void headsAreSignedAndVerified()
    {
        const QJsonObject json = m_vectors[QLatin1String("head")].toObject();
        LogHead head;
        head.epoch = bytes(json[QLatin1String("origin")]).mid(int(qstrlen("vrk-logbook/")));
        head.size = json[QLatin1String("size")].toInt();
        head.root = TreeHash::at(QByteArray::fromHex(bytes(json[QLatin1String("root")])).constData());
        head.time = QDateTime::fromString(json[QLatin1String("time")].toString(), Qt::ISODate);
        QCOMPARE(head.onPaper(), bytes(json[QLatin1String("paper")]));
        QVector<VerifierKey> verifiers;
        std::vector<std::unique_ptr<SealKey>> keys;
        for (const auto& value : json[QLatin1String("keys")].toArray()) {
            const QJsonObject key = value.toObject();
            keys.push_back(SealKey::fromSeed(QByteArray::fromHex(bytes(key[QLatin1String("seed")])),
                                             bytes(key[QLatin1String("name")])));
            QCOMPARE(keys.back()->verifier().text(), bytes(key[QLatin1String("line")]));
            QCOMPARE(VerifierKey::parse(bytes(key[QLatin1String("line")])).text(),
                     bytes(key[QLatin1String("line")]));
            verifiers.append(VerifierKey::parse(bytes(key[QLatin1String("line")])));
        }
        const QByteArray both = bytes(json[QLatin1String("noteOfBothKeys")]);
        QCOMPARE(head.note(keys), both);
        keys.resize(1);
        const QByteArray note = bytes(json[QLatin1String("note")]);
        QCOMPARE(head.note(keys), note);

        QVERIFY(SignedNote(note).signer({verifiers[0]}).isValid());
        QVERIFY(!SignedNote(note).signer({verifiers[1]}).isValid());
        QCOMPARE(SignedNote(both).signer({verifiers[1]}).name(), verifiers[1].name());
        QCOMPARE(SignedNote(note).head().root, head.root);
        QCOMPARE(SignedNote(note).head().time, head.time);
        // No byte of a note can be changed.
        for (int i = 0; i < note.size(); ++i) {
            QByteArray forged = note;
            forged[i] = static_cast<char>(forged.at(i) ^ 1);
            QVERIFY2(!SignedNote(forged).signer({verifiers[0]}).isValid(), qPrintable(QString::number(i)));
        }
    }

    void brokenKeysAndNotesAreNone_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("no signature")
            << QByteArray("vrk-logbook/A\n1\n" + QByteArray(32, 'x').toBase64() + "\n\n");
        QTest::newRow("short root") << QByteArray("vrk-logbook/A\n1\nAAAA\n\n\xE2\x80\x94 a AAAAAAAA\n");
        QTest::newRow("leading zero") << QByteArray("vrk-logbook/A\n01\n" + QByteArray(32, 'x').toBase64() +
                                                    "\n\n\xE2\x80\x94 a AAAAAAAA\n");
        QTest::newRow("negative") << QByteArray("vrk-logbook/A\n-1\n" + QByteArray(32, 'x').toBase64() +
                                                "\n\n\xE2\x80\x94 a AAAAAAAA\n");
        QTest::newRow("key of another kind") << QByteArray("a+00000000+") + QByteArray(33, '\x02').toBase64();
        QTest::newRow("key with a wrong id") << QByteArray("a+00000000+") + QByteArray(33, '\x01').toBase64();
    }
    void brokenKeysAndNotesAreNone()
    {
        QFETCH(QByteArray, text);
        QVERIFY(!SignedNote(text).isValid());
        QVERIFY(!VerifierKey::parse(text).isValid());
    }
};

QTEST_GUILESS_MAIN(EvidenceVectors_test)
#include "EvidenceVectors_test.moc"
