#include "EvidenceBench.h"
#include "Forger.h"

/// Heads that were made before a copy took the place of the store.
class EvidenceRestores_test : public EvidenceBench
{
    Q_OBJECT

private slots:
    void init() { reset(); }

    void aRestoredStoreIsNoAttack();
    void headsBeforeARestoreAreNamed();
    void aHeadBeforeARestoreThatDiffersIsFound();
    void headsOfALaterKeyAreNamedAfterARestore();
    void aRestoredStoreLearnsAllKeysThatSigned();
};

void EvidenceRestores_test::aRestoredStoreIsNoAttack()
{
    QCOMPARE(seal({QStringLiteral("--init")}), 0);
    const QString copy = m_admin->path(QStringLiteral("copy"));
    QCOMPARE(int(m_admin->call("backup", {copy})), 0);
    write("после копии");
    QCOMPARE(seal(), 0);
    const QString lost = lastHead();
    const QStringList withBook{QStringLiteral("--heads"), book()};
    restoreCopy(copy);
    QCOMPARE(int(m_admin->call("check", withBook)), 0);
    QVERIFY2(m_admin->out.contains(QStringLiteral("до возврата копии")), qPrintable(m_admin->out));
    QVERIFY2(seal() == 0, qPrintable(m_admin->err));
    QCOMPARE(verify({}, {QStringLiteral("--head"), lost}), 0);
    QVERIFY2(m_said.contains(QStringLiteral("restored as transaction")), qPrintable(m_said));
    // The same copy once more: what was sealed in between is no head of another store.
    write("между возвратами");
    QCOMPARE(seal(), 0);
    const QString between = lastHead();
    restoreCopy(copy);
    QCOMPARE(int(m_admin->call("check", withBook)), 0);
    QVERIFY2(seal() == 0, qPrintable(m_admin->err));
    QCOMPARE(verify({}, {QStringLiteral("--head"), lost, QStringLiteral("--head"), between}), 0);
    // The copy of a file has an epoch of its own.
    QCOMPARE(m_said.count(QStringLiteral("restored as transaction")), TestStore::isSqlite() ? 2 : 1);
}

void EvidenceRestores_test::headsBeforeARestoreAreNamed()
{
    QCOMPARE(seal({QStringLiteral("--init")}), 0);
    const QString kept = paper().section(QLatin1Char(' '), 0, 0);
    const QString copy = m_admin->path(QStringLiteral("copy"));
    QCOMPARE(int(m_admin->call("backup", {copy})), 0);
    write("после копии");
    QCOMPARE(seal(), 0);
    const QString lost = paper().section(QLatin1Char(' '), 0, 0);
    restoreCopy(copy);
    write("после возврата");
    QVERIFY2(seal() == 0, qPrintable(m_admin->err));
    const QStringList withBook{QStringLiteral("--heads"), book()};
    QCOMPARE(int(m_admin->call("check", withBook)), 0);
    for (const QString& text : {QStringLiteral("сошлись с журналом: %1;").arg(kept),
                                QStringLiteral("записанное после копии не вернулось: %1.").arg(lost)})
        QVERIFY2(m_admin->out.contains(text), qPrintable(m_admin->out));
    QVERIFY2(!m_admin->out.contains(QStringLiteral("подпис")), qPrintable(m_admin->out));
    // Without heads from outside a restore is no news.
    QCOMPARE(int(m_admin->call("check")), 0);
    QVERIFY2(!m_admin->out.contains(QStringLiteral("эпох")), qPrintable(m_admin->out));
}

void EvidenceRestores_test::aHeadBeforeARestoreThatDiffersIsFound()
{
    QCOMPARE(seal({QStringLiteral("--init")}), 0);
    const QString size = paper().section(QLatin1Char(' '), 0, 0);
    Forger(*m_store).forge(QStringLiteral("UPDATE ChangeTransactions SET login = 'petrov' WHERE number = 2"),
                           true);
    QCOMPARE(m_store->exec(QStringLiteral("DELETE FROM LogHeads")), QString());
    const QString copy = m_admin->path(QStringLiteral("copy"));
    QCOMPARE(int(m_admin->call("backup", {copy})), 0);
    restoreCopy(copy);
    QCOMPARE(int(m_admin->call("check", {QStringLiteral("--heads"), book()})), int(Command::FaultsFound));
    const QString found =
        QStringLiteral("переписан между транзакциями 1 и %1 \\(.*, эпоха .* до возврата копии\\)").arg(size);
    QVERIFY2(m_admin->out.contains(QRegularExpression(found)), qPrintable(m_admin->out));
}

void EvidenceRestores_test::headsOfALaterKeyAreNamedAfterARestore()
{
    const QString copy = m_admin->path(QStringLiteral("copy"));
    QCOMPARE(int(m_admin->call("backup", {copy})), 0);
    const QString end =
        m_store->value(QStringLiteral("SELECT max(number) FROM ChangeTransactions")).toString();
    QCOMPARE(seal({QStringLiteral("--init")}), 0);
    const QString head = lastHead();
    const QString size = paper().section(QLatin1Char(' '), 0, 0);
    QVERIFY(size.toInt() > end.toInt());
    restoreCopy(copy);
    const QStringList withHead{QStringLiteral("--heads"), head};
    QVERIFY2(m_admin->call("check", withHead) == 0, qPrintable(m_admin->out));
    QVERIFY2(m_admin->out.contains(QStringLiteral("не вернулось: %1; подпись не проверена, ключа в хранилище "
                                                  "нет: %1.")
                                       .arg(size)),
             qPrintable(m_admin->out));
    // A wrong signature of a key that the store names is no head of another key.
    QVERIFY2(seal() == 0, qPrintable(m_admin->err));
    QCOMPARE(int(m_admin->call("check", withHead)), 0);
    const QByteArray note = HeadBook(head).notes().constLast();
    const auto checkNote = [&](const QByteArray& text) {
        QFile file(m_admin->path(QStringLiteral("other")));
        if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size())
            qFatal("a head cannot be written");
        file.close();
        return m_admin->call("check", {QStringLiteral("--heads"), file.fileName()});
    };
    QCOMPARE(int(checkNote(QByteArray(note).replace("\ntime 20", "\ntime 21"))), int(Command::FaultsFound));
    QVERIFY2(m_admin->out.contains(QStringLiteral("не подписана известным ключом")),
             qPrintable(m_admin->out));
    // Another store does not name the epoch.
    reset();
    QCOMPARE(int(checkNote(note)), int(Command::FaultsFound));
    QVERIFY2(m_admin->out.contains(QStringLiteral("не подписана известным ключом")),
             qPrintable(m_admin->out));
}

void EvidenceRestores_test::aRestoredStoreLearnsAllKeysThatSigned()
{
    QCOMPARE(seal({QStringLiteral("--init")}), 0);
    const QString copy = m_admin->path(QStringLiteral("copy"));
    QVERIFY2(m_admin->call("backup", {copy}) == 0, qPrintable(m_admin->err));
    for (int keys = 0; keys < 2; ++keys) {
        QCOMPARE(seal({QStringLiteral("--rotate")}), 0);
        QVERIFY(QFile::remove(key() + QStringLiteral(".former")));
        write("после замены ключа");
        QCOMPARE(seal(), 0);
    }
    restoreCopy(copy);
    QCOMPARE(seal(), 0);
    QVERIFY2(m_admin->call("check", {QStringLiteral("--heads"), book()}) == 0, qPrintable(m_admin->out));
}

QTEST_GUILESS_MAIN(EvidenceRestores_test)
#include "EvidenceRestores_test.moc"
