#include "AdminRun.h"
#include "CVrkCliSes.h"
#include "EvidenceLog.h"
#include "Forger.h"
#include "HistoryDialog.h"
#include "HistoryMemory.h"
#include "StatusLine.h"
#include "TestStore.h"

#include <memory>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QTest>
#include <QTimer>
#include <QToolButton>

/// What a workstation remembers of a history, and its alarm in the status line.
class HistoryAlarm_test : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void anAttackWhileOffIsFound_data();
    void anAttackWhileOffIsFound();
    void anAttackOnAnUnsealedStoreIsFound_data();
    void anAttackOnAnUnsealedStoreIsFound();
    void anotherHistoryOfAForkIsFound();
    void anOlderStateIsNoOtherStore();
    void aKeyOfTheAttackerIsFound();
    void removedHeadsAreFound();
    void anotherStoreIsNamedAsSuch();
    void anHonestHistoryRaisesNothing();
    void headsOfAnUnnamedKeyAreNoAlarm();
    void aRotatedKeyIsTaken();
    void aRestoreIsANotice();
    void anEmptiedMemoryBeginsAgain();
    void twoProgramsShareTheMemory();
    void anUnwritableMemoryStopsNothing();
    void theMemoryIsReadByItsUserOnly();
    void theAlarmStaysUntilTwoConfirm();
    void aRewrittenEndIsFoundByTheNextChange_data();
    void aRewrittenEndIsFoundByTheNextChange();
    void aShorterLogIsFoundAtOnce();
    void anEndRewrittenWhileOffIsFoundAtTheStart_data();
    void anEndRewrittenWhileOffIsFoundAtTheStart();
    void anEndRewrittenSinceTheLookIsFound_data();
    void anEndRewrittenSinceTheLookIsFound();
    void honestChangesAfterTheEndSeenAreNoAlarm();
    void aRestoreAfterTheEndSeenIsANotice();

private:
    /// A workstation with its session, from sign-in to sign-out.
    struct Desk {
        Desk(const TestStore& store, const QString& folder)
            : session(store.open(QStringLiteral("ivanov"))),
              guard(&session, folder, store.url()),
              line(&session, QStringLiteral("Иванов"), QStringLiteral("ЦДС"))
        {
            line.setHistoryGuard(&guard);
            line.resize(1200, 30);
            line.show();
            guard.look();
        }
        QToolButton* button() const { return line.findChild<QToolButton*>(QStringLiteral("historyButton")); }
        bool isAlarmed() const { return button()->isVisible(); }

        CVrkCliSes session;
        HistoryGuard guard;
        StatusLine line;
    };
    QString folder() const { return m_admin->path(QStringLiteral("history")); }
    std::unique_ptr<Desk> desk() const { return std::make_unique<Desk>(*m_store, folder()); }
    /// What a memory of this name says about the store at the address.
    HistoryMemory::Report look(const char* memory) const
    {
        StoreError error;
        QByteArray keys;
        HistoryMemory::Report report;
        const auto store = Store::open(m_admin->url, {}, &error);
        StoreError missing;
        if (!store->file(QStringLiteral("evidence"), QStringLiteral("keys"), &keys, &missing))
            keys.clear();
        const auto log = store->evidence(Store::Access::Read, &error);
        if (!HistoryMemory(folder() + QLatin1Char('/') + QLatin1String(memory)).check(*log, keys, &report))
            qFatal("%s", qPrintable(error.text + error.detail));
        return report;
    }
    void seal(const QStringList& more = {}, const char* name = "seal.key") const
    {
        const int code = m_admin->call(
            "seal", more + QStringList{QStringLiteral("--key"), m_admin->path(QLatin1String(name))});
        QVERIFY2(code == Command::Success, qPrintable(m_admin->err));
    }
    void write(const char* html) const
    {
        const auto store = Store::open(m_admin->url, {}, &m_error);
        StoreLogin login;
        QVERIFY(store->signIn(QStringLiteral("ivanov"), &login, &m_error));
        QVERIFY2(TestStore::write(store.get(), "LogbookRecords", ROW_UPDATE, "REC_DRAFT_IVANOV",
                                  {{"html", html}}, &m_error),
                 qPrintable(m_error.text + m_error.detail));
    }
    qint64 end() const
    {
        return m_store->value(QStringLiteral("SELECT max(number) FROM ChangeTransactions")).toLongLong();
    }
    /// Rewrites the end of the log: its last text, or its last transaction as another or as none.
    void rewriteEnd(const QString& how) const
    {
        if (how == QLatin1String("row")) {
            Forger(*m_store).forge(
                QStringLiteral("UPDATE ChangeLog SET newRow = replace(newRow, 'увиденное', 'другое')"), true);
            return;
        }
        rollBack(end() - 1);
        if (how == QLatin1String("replaced"))
            write("другое");
    }
    static void endRows()
    {
        QTest::addColumn<QString>("how");
        for (const char* how : {"row", "replaced", "removed"})
            QTest::newRow(how) << QString::fromLatin1(how);
    }
    /// A workstation at work, with a change that came after its comparison.
    std::unique_ptr<Desk> deskAfterAChange() const
    {
        auto one = desk();
        if (!one->session.startEvents())
            qFatal("no events");
        write("увиденное");
        if (one->session.pollEvents() == 0 || one->isAlarmed())
            qFatal("the change has not arrived");
        return one;
    }
    QByteArray memoryBytes() const
    {
        QFile file(QDir(folder()).entryInfoList(QDir::Files).value(0).filePath());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    /// Puts the store back to the state after a transaction, with everything that belongs to it.
    void rollBack(qint64 number) const
    {
        Forger(*m_store).forge(QStringLiteral("DELETE FROM ChangeLog WHERE number > %1;"
                                              "DELETE FROM ChangeTransactions WHERE number > %1;"
                                              "DELETE FROM LogHeads WHERE size > %1")
                                   .arg(number),
                               true);
    }
    void restore(const QString& copy)
    {
        QStringList arguments{copy};
        if (!TestStore::isSqlite()) {
            arguments << QStringLiteral("--replaces") << m_admin->url;
            m_admin->url = QString(m_store->url())
                               .replace(QRegularExpression(QStringLiteral("/(\\w+)(\\?|$)")),
                                        QStringLiteral("/restored_%1\\2").arg(++m_restores));
        }
        QVERIFY2(m_admin->call("restore", arguments) == 0, qPrintable(m_admin->err));
    }

    std::unique_ptr<TestStore> m_store;
    std::unique_ptr<AdminRun> m_admin;
    mutable StoreError m_error;
    int m_restores = 0;
};

void HistoryAlarm_test::init()
{
    m_store = std::make_unique<TestStore>();
    m_admin = std::make_unique<AdminRun>();
    m_admin->url = m_store->url();
}

void HistoryAlarm_test::anAttackWhileOffIsFound_data()
{
    QTest::addColumn<QString>("sql");
    Forger::eachAttack(
        [](const char* name, const char* sql) { QTest::newRow(name) << QString::fromUtf8(sql); });
}

void HistoryAlarm_test::anAttackWhileOffIsFound()
{
    QFETCH(QString, sql);
    seal({QStringLiteral("--init")});
    write("второй вариант");
    write("последний вариант");
    seal();
    QVERIFY(!desk()->isAlarmed());
    QCOMPARE(look("tree").finding, HistoryMemory::FirstSeen);
    Forger(*m_store).forge(sql, false);
    const auto again = desk();
    QVERIFY(again->isAlarmed());
    QVERIFY(!again->guard.alarm().remembered.isEmpty() && !again->guard.alarm().found.isEmpty());
    Forger(*m_store).forge(QStringLiteral("SELECT 1"), true);
    QCOMPARE(look("tree").finding, HistoryMemory::Altered);
}

void HistoryAlarm_test::anAttackOnAnUnsealedStoreIsFound_data()
{
    anAttackWhileOffIsFound_data();
}

void HistoryAlarm_test::anAttackOnAnUnsealedStoreIsFound()
{
    QFETCH(QString, sql);
    write("второй вариант");
    write("последний вариант");
    QVERIFY(!look("memory").isAlarm());
    Forger(*m_store).forge(sql, false);
    write("после подмены"); // a tail that was cut has grown again
    write("и ещё раз");
    QCOMPARE(look("memory").finding, HistoryMemory::Altered);
    QCOMPARE(look("memory").finding, HistoryMemory::Altered);
}

void HistoryAlarm_test::anotherHistoryOfAForkIsFound()
{
    const qint64 common = end();
    write("история первого");
    QVERIFY(!look("first").isAlarm());
    rollBack(common);
    write("история второго");
    write("и дальше");
    QVERIFY(!look("second").isAlarm());
    QCOMPARE(look("first").finding, HistoryMemory::Altered);
    QCOMPARE(look("second").finding, HistoryMemory::AsBefore);
}

void HistoryAlarm_test::anOlderStateIsNoOtherStore()
{
    seal({QStringLiteral("--init")});
    const qint64 older = end();
    write("потом пропало");
    seal();
    QVERIFY(!desk()->isAlarmed());
    rollBack(older);
    const auto again = desk();
    QVERIFY(again->isAlarmed());
    QVERIFY2(again->guard.alarm().text.contains(QStringLiteral("короче")),
             qPrintable(again->guard.alarm().text));
}

void HistoryAlarm_test::aKeyOfTheAttackerIsFound()
{
    seal({QStringLiteral("--init")});
    QCOMPARE(look("memory").finding, HistoryMemory::FirstSeen);
    QCOMPARE(m_store->exec(QStringLiteral("DELETE FROM LogHeads")), QString());
    QCOMPARE(
        m_admin->call("seal", {QStringLiteral("--init"), QStringLiteral("--name"), QStringLiteral("other"),
                               QStringLiteral("--key"), m_admin->path(QStringLiteral("own.key"))}),
        0);
    const HistoryMemory::Report report = look("memory");
    QCOMPARE(report.finding, HistoryMemory::Altered);
    QVERIFY2(report.text.contains(QStringLiteral("ключ подменили")), qPrintable(report.text));
}

void HistoryAlarm_test::removedHeadsAreFound()
{
    seal({QStringLiteral("--init")});
    QVERIFY(!look("memory").isAlarm());
    const QVariantList head = m_store->rows(QStringLiteral("SELECT size, note FROM LogHeads")).value(0);
    QCOMPARE(m_store->exec(QStringLiteral("DELETE FROM LogHeads")), QString());
    const HistoryMemory::Report report = look("memory");
    QCOMPARE(report.finding, HistoryMemory::Altered);
    // The alarm stays when the attacker has put everything back.
    QCOMPARE(m_store->exec(QStringLiteral("INSERT INTO LogHeads (size, note) VALUES (%1, '%2')")
                               .arg(head[0].toString(), head[1].toString())),
             QString());
    QCOMPARE(look("memory").finding, HistoryMemory::Altered);
    QCOMPARE(look("memory").time, report.time);
    QCOMPARE(look("other").finding, HistoryMemory::FirstSeen);
}

void HistoryAlarm_test::anotherStoreIsNamedAsSuch()
{
    QVERIFY(!look("memory").isAlarm());
    const TestStore other;
    const QString own = m_admin->url;
    m_admin->url = other.url();
    Forger(other).forge(QStringLiteral("UPDATE StoreProperties SET value = 'OTHER' WHERE name = 'epoch'"),
                        false);
    const HistoryMemory::Report report = look("memory");
    QCOMPARE(report.finding, HistoryMemory::OtherStore);
    QVERIFY(report.text.contains(QStringLiteral("другое хранилище")));
    m_admin->url = own;
}

void HistoryAlarm_test::anHonestHistoryRaisesNothing()
{
    QCOMPARE(look("memory").finding, HistoryMemory::FirstSeen);
    QCOMPARE(look("memory").finding, HistoryMemory::AsBefore);
    write("без печати");
    QCOMPARE(look("memory").finding, HistoryMemory::AsBefore);
    seal({QStringLiteral("--init")});
    QCOMPARE(look("memory").finding, HistoryMemory::AsBefore);
    for (const char* text : {"один", "два", "три"}) {
        write(text);
        seal();
        QCOMPARE(look("memory").finding, HistoryMemory::AsBefore);
    }
}

void HistoryAlarm_test::headsOfAnUnnamedKeyAreNoAlarm()
{
    seal({QStringLiteral("--init")});
    Forger(*m_store).forge(QStringLiteral("DELETE FROM StoreFiles"), false);
    QCOMPARE(look("memory").finding, HistoryMemory::FirstSeen);
    QCOMPARE(look("memory").finding, HistoryMemory::AsBefore);
}

void HistoryAlarm_test::aRotatedKeyIsTaken()
{
    seal({QStringLiteral("--init")});
    QVERIFY(!look("memory").isAlarm());
    write("перед сменой");
    seal({QStringLiteral("--rotate")});
    QFile::remove(m_admin->path(QStringLiteral("seal.key.former")));
    write("после смены");
    seal(); // by the new key alone: the workstation was off while both signed
    QCOMPARE(look("memory").finding, HistoryMemory::AsBefore);
    write("дальше");
    seal();
    QCOMPARE(look("memory").finding, HistoryMemory::AsBefore);
}

void HistoryAlarm_test::aRestoreIsANotice()
{
    seal({QStringLiteral("--init")});
    const QString copy = m_admin->path(QStringLiteral("copy"));
    QCOMPARE(int(m_admin->call("backup", {copy})), 0);
    for (const char* lost : {"после копии", "между возвратами"}) {
        write(lost);
        seal();
        QVERIFY(!look("memory").isAlarm());
        restore(copy);
        const HistoryMemory::Report report = look("memory");
        QVERIFY2(report.finding == HistoryMemory::Restored, qPrintable(report.text));
        QVERIFY(report.text.contains(QStringLiteral("возвращено из копии")));
        QCOMPARE(look("memory").finding, HistoryMemory::AsBefore);
        seal();
        QCOMPARE(look("memory").finding, HistoryMemory::AsBefore);
    }
}

void HistoryAlarm_test::anEmptiedMemoryBeginsAgain()
{
    QVERIFY(!desk()->isAlarmed());
    rollBack(end() - 1);
    QVERIFY(QDir(folder()).removeRecursively());
    QVERIFY(!desk()->isAlarmed());
}

void HistoryAlarm_test::twoProgramsShareTheMemory()
{
    HistoryMemory running(folder() + QStringLiteral("/memory"));
    look("memory");
    QVERIFY(!running.alarm().isAlarm());
    rollBack(end() - 1);
    QVERIFY(look("memory").isAlarm());
    // A part of a line that another program is writing is read again when it is complete.
    QFile file(folder() + QStringLiteral("/memory"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray whole = file.readAll();
    file.close();
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(whole.left(whole.size() - 20));
    file.close();
    QVERIFY(!running.alarm().isAlarm());
    QVERIFY(file.open(QIODevice::Append));
    file.write(whole.right(20));
    file.close();
    QVERIFY(running.alarm().isAlarm());
    QVERIFY(HistoryMemory(file.fileName()).confirm(QStringLiteral("admin"), QStringLiteral("ivanov")));
    QVERIFY(!running.alarm().isAlarm());
}

void HistoryAlarm_test::anUnwritableMemoryStopsNothing()
{
    QFile file(folder());
    QVERIFY(file.open(QIODevice::WriteOnly)); // a file instead of the folder
    const auto one = desk();
    QVERIFY(!one->isAlarmed());
    QCOMPARE(one->line.failures().size(), 1);
    QVERIFY2(one->line.failures().constFirst().contains(QStringLiteral("не запоминается")),
             qPrintable(one->line.failures().constFirst()));
    one->guard.look();
    QCOMPARE(one->line.failures().size(), 1);
}

void HistoryAlarm_test::theMemoryIsReadByItsUserOnly()
{
    look("memory");
    const auto others = QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther;
    QVERIFY(QFile::exists(folder() + QStringLiteral("/memory")));
    QCOMPARE(QFile::permissions(folder() + QStringLiteral("/memory")) & others, QFile::Permissions());
    QCOMPARE(QFile::permissions(folder()) & others, QFile::Permissions());
}

void HistoryAlarm_test::theAlarmStaysUntilTwoConfirm()
{
    QVERIFY(!desk()->isAlarmed());
    rollBack(end() - 1);
    auto again = desk();
    QVERIFY(again->isAlarmed());
    write("журнал работает дальше");
    write("и ещё раз");
    again = desk(); // over a restart, though the log is long enough again
    QVERIFY(again->isAlarmed());

    const HistoryGuard::Alarm alarm = again->guard.alarm();
    QStringList reasons;
    QTimer::singleShot(0, this, [&] {
        auto* dialog = qobject_cast<HistoryDialog*>(QApplication::activeModalWidget());
        QCOMPARE(dialog->findChild<QLabel*>(QStringLiteral("rememberedLabel"))->text(), alarm.remembered);
        QCOMPARE(dialog->findChild<QLabel*>(QStringLiteral("foundLabel"))->text(), alarm.found);
        auto* confirm = dialog->findChild<QPushButton*>(QStringLiteral("confirmButton"));
        auto* login = dialog->findChild<QLineEdit*>(QStringLiteral("administratorEdit"));
        const auto* reason = dialog->findChild<QLabel*>(QStringLiteral("reasonLabel"));
        QTest::keyClicks(login, QStringLiteral("petrov"));
        QVERIFY(!confirm->isEnabled()); // the user has not agreed
        dialog->findChild<QCheckBox*>(QStringLiteral("agreeCheck"))->setChecked(true);
        confirm->click();
        reasons << reason->text();
        login->setText(QStringLiteral("nobody"));
        confirm->click();
        reasons << reason->text();
        QVERIFY(again->isAlarmed());
        login->setText(QStringLiteral("sidorova"));
        confirm->click();
    });
    again->button()->click();
    QVERIFY2(reasons.value(0).contains(QStringLiteral("не администратор")), qPrintable(reasons.value(0)));
    QVERIFY(!reasons.value(1).isEmpty());
    QVERIFY(!again->isAlarmed());
    again.reset();
    QVERIFY(!desk()->isAlarmed());
    QFile file(QDir(folder()).entryInfoList(QDir::Files).value(0).filePath());
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QString kept = QString::fromUtf8(file.readAll());
    QVERIFY(kept.contains(alarm.remembered) && kept.contains(alarm.found));
    QVERIFY(kept.contains(QStringLiteral("sidorova")) && kept.contains(QStringLiteral("Иванов")));
}

void HistoryAlarm_test::aRewrittenEndIsFoundByTheNextChange_data()
{
    QTest::addColumn<bool>("isReplaced");
    QTest::newRow("a row and the chain rewritten") << false;
    QTest::newRow("the last transaction replaced by another") << true;
}

void HistoryAlarm_test::aRewrittenEndIsFoundByTheNextChange()
{
    QFETCH(bool, isReplaced);
    auto one = desk();
    QVERIFY(one->session.startEvents());
    write("увиденное");
    QVERIFY(one->session.pollEvents() > 0);
    QVERIFY(!one->isAlarmed());
    if (isReplaced) {
        rollBack(end() - 1);
        write("другое");
    } else {
        Forger(*m_store).forge(
            QStringLiteral("UPDATE ChangeLog SET newRow = replace(newRow, 'увиденное', 'другое')"), true);
    }
    QVERIFY(!one->isAlarmed());
    const qint64 known = end();
    write("следующее");
    QVERIFY(one->session.pollEvents() > 0); // the change itself arrives
    QVERIFY(one->isAlarmed());
    const HistoryGuard::Alarm alarm = one->guard.alarm();
    QVERIFY2(alarm.text.startsWith(QStringLiteral("Транзакция %1 не продолжает").arg(known + 1)),
             qPrintable(alarm.text));
    QVERIFY(alarm.remembered != alarm.found);
    write("журнал работает дальше");
    QVERIFY(one->session.pollEvents() > 0);
    QCOMPARE(one->guard.alarm().text, alarm.text);
    one.reset();
    QVERIFY(desk()->isAlarmed()); // over a restart
    // When two have confirmed, the present history counts.
    one = desk();
    QVERIFY(one->session.startEvents());
    QString reason;
    const QString password = m_store->passwordOf(QStringLiteral("sidorova"));
    QVERIFY2(one->guard.confirm(QStringLiteral("sidorova"), password, QStringLiteral("Иванов"), &reason),
             qPrintable(reason));
    write("после подтверждения");
    QVERIFY(one->session.pollEvents() > 0);
    QVERIFY(!one->isAlarmed());
}

void HistoryAlarm_test::aShorterLogIsFoundAtOnce()
{
    write("до входа");
    const auto one = desk();
    QVERIFY(one->session.startEvents());
    rollBack(end() - 1);
    one->session.pollEvents();
    QTRY_VERIFY(one->isAlarmed());
    QVERIFY2(one->guard.alarm().text.contains(QStringLiteral("короче")), qPrintable(one->guard.alarm().text));
}

void HistoryAlarm_test::anEndRewrittenWhileOffIsFoundAtTheStart_data()
{
    endRows();
}

void HistoryAlarm_test::anEndRewrittenWhileOffIsFoundAtTheStart()
{
    QFETCH(QString, how);
    auto one = deskAfterAChange();
    const QByteArray before = memoryBytes();
    one.reset();
    QVERIFY(memoryBytes().startsWith(before)); // only appended
    QVERIFY(memoryBytes().size() > before.size());
    rewriteEnd(how);
    QVERIFY(desk()->isAlarmed());
    QVERIFY(desk()->isAlarmed());
}

void HistoryAlarm_test::anEndRewrittenSinceTheLookIsFound_data()
{
    endRows();
}

void HistoryAlarm_test::anEndRewrittenSinceTheLookIsFound()
{
    QFETCH(QString, how);
    const auto one = deskAfterAChange();
    rewriteEnd(how);
    one->guard.look();
    QVERIFY(one->isAlarmed());
    // When two have confirmed, what was seen before does not count any more.
    QString reason;
    const QString password = m_store->passwordOf(QStringLiteral("sidorova"));
    QVERIFY2(one->guard.confirm(QStringLiteral("sidorova"), password, QStringLiteral("Иванов"), &reason),
             qPrintable(reason));
    one->guard.look();
    QVERIFY(!one->isAlarmed());
}

void HistoryAlarm_test::honestChangesAfterTheEndSeenAreNoAlarm()
{
    auto one = deskAfterAChange();
    one.reset();
    const QByteArray kept = memoryBytes();
    QVERIFY(kept.contains("followed"));
    write("пока рабочее место выключено");
    one = desk();
    QVERIFY(!one->isAlarmed());
    QVERIFY(one->session.startEvents());
    one.reset(); // nothing arrived: nothing to remember
    QCOMPARE(memoryBytes().count("followed"), kept.count("followed"));
    QVERIFY(!desk()->isAlarmed());
}

void HistoryAlarm_test::aRestoreAfterTheEndSeenIsANotice()
{
    const QString copy = m_admin->path(QStringLiteral("copy"));
    QCOMPARE(int(m_admin->call("backup", {copy})), 0);
    QVERIFY(!look("memory").isAlarm());
    write("после копии");
    ChangePosition seen;
    auto store = Store::open(m_admin->url, {}, &m_error);
    QVERIFY2(store && store->position(&seen, &m_error), qPrintable(m_error.text));
    store.reset();
    HistoryMemory running(folder() + QStringLiteral("/memory"));
    running.follow(seen.epoch, seen.number, seen.chain);
    running.keepFollowed();
    QVERIFY(memoryBytes().contains("followed"));
    restore(copy);
    write("после возврата"); // as long as the log that was seen
    write("и ещё раз");
    const HistoryMemory::Report report = look("memory");
    QVERIFY2(report.finding == HistoryMemory::Restored, qPrintable(report.text));
    QCOMPARE(look("memory").finding, HistoryMemory::AsBefore);
}

QTEST_MAIN(HistoryAlarm_test)
#include "HistoryAlarm_test.moc"
