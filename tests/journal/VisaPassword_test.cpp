#include "Minimised.h"
#include "StoreAdmin.h"
#include "TestJournal.h"
#include "Typing.h"
#include "VisaPasswordDialog.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

// The password before a visa, where the site asks for it and the server has passwords.

namespace
{
const QString ownPassword = QStringLiteral("пароль Иванова");

struct Site {
    explicit Site(const QByteArray& options = "<Options VisaPassword=\"1\"/>",
                  bool hasPassword = !TestStore::isSqlite())
    {
        StoreError error;
        if (!StoreAdmin::putFile(store.url(), QStringLiteral("options"), QStringLiteral("OperLogOptions"),
                                 options, &error))
            qFatal("%s", qPrintable(error.text));
        if (hasPassword)
            store.givePassword(QStringLiteral("ivanov"), ownPassword);
        journal = std::make_unique<TestJournal>(store);
    }

    QString visa(const char* key) const
    {
        return store
            .value(QStringLiteral("SELECT VisaWorkerKey FROM LogbookRecords WHERE KeyLink='%1'")
                       .arg(QLatin1String(key)))
            .toString();
    }
    VisaPasswordDialog* dialog() const { return journal->module().findChild<VisaPasswordDialog*>(); }
    QLineEdit* edit() const { return dialog()->findChild<QLineEdit*>(QStringLiteral("passwordEdit")); }
    QString notice() const { return dialog()->findChild<QLabel*>(QStringLiteral("noticeLabel"))->text(); }
    void answer(const QString& password) const
    {
        typeText(edit(), password);
        QTest::keyClick(edit(), Qt::Key_Return);
    }

    TestStore store;
    std::unique_ptr<TestJournal> journal;
};
} // namespace

class VisaPassword_test : public QObject
{
    Q_OBJECT

private slots:
    void withoutTheOptionNobodyIsAsked()
    {
        const Site site("<Options VisaPassword=\"0\" DelayTime=\"60\"/>");
        site.journal->select("REC_ORDER");
        site.journal->tab().signRecordRequest();
        QCOMPARE(site.visa("REC_ORDER"), QStringLiteral("WORKER_IVANOV"));
        QVERIFY(!site.dialog()->isVisible());
    }

    void whereNobodyNeedsAPasswordNoneIsAskedFor()
    {
        const Site site("<Options VisaPassword=\"1\"/>", false);
        QVERIFY(!site.journal->session().hasPassword());
        QVERIFY(!site.journal->session().provePassword(ownPassword));
        site.journal->select("REC_ORDER");
        site.journal->tab().signRecordRequest();
        QCOMPARE(site.visa("REC_ORDER"), QStringLiteral("WORKER_IVANOV"));
        QVERIFY(!site.dialog()->isVisible());
    }

    void thePasswordThatTheMachineKeepsProvesNothing()
    {
        if (TestStore::isSqlite())
            QSKIP("A file has no passwords.");
        const Site site;
        qputenv("PGPASSWORD", ownPassword.toUtf8());
        const bool isProved = site.journal->session().provePassword(QString());
        qunsetenv("PGPASSWORD");
        QVERIFY(!isProved);
        QVERIFY(site.journal->session().provePassword(ownPassword));
    }

    void theVisaWaitsForThePassword()
    {
        if (TestStore::isSqlite())
            QSKIP("A file has no passwords.");
        const Site site;
        site.journal->select("REC_ORDER");
        site.journal->tab().signRecordRequest();
        QVERIFY(site.dialog()->isVisible());
        QVERIFY(site.visa("REC_ORDER").isEmpty());
        QCOMPARE(site.edit()->echoMode(), QLineEdit::Password);
        auto* apply = site.dialog()->findChild<QPushButton*>(QStringLiteral("applyButton"));
        QVERIFY(!apply->isEnabled());

        site.answer(QStringLiteral("не тот"));
        QVERIFY(site.dialog()->isVisible());
        QCOMPARE(site.notice(), QStringLiteral("Пароль не подошёл."));
        QVERIFY(site.edit()->text().isEmpty());
        QVERIFY(site.visa("REC_ORDER").isEmpty());
        QCOMPARE(site.journal->client().takeFailures(), QStringList());

        site.answer(ownPassword);
        QVERIFY(!site.dialog()->isVisible());
        QVERIFY(site.edit()->text().isEmpty());
        QCOMPARE(site.visa("REC_ORDER"), QStringLiteral("WORKER_IVANOV"));
        QCOMPARE(site.journal->deliver(), QStringList{QStringLiteral("602 LogbookRecords 1")});
    }

    void escapeLeavesTheRecordWithoutAVisa()
    {
        if (TestStore::isSqlite())
            QSKIP("A file has no passwords.");
        const Site site;
        site.journal->select("REC_ORDER");
        site.journal->tab().signRecordRequest();
        typeText(site.edit(), ownPassword);
        QTest::keyClick(site.edit(), Qt::Key_Escape);
        QVERIFY(!site.dialog()->isVisible());
        QVERIFY(site.visa("REC_ORDER").isEmpty());
        site.journal->tab().signRecordRequest();
        QVERIFY(site.edit()->text().isEmpty());
    }

    void onePasswordIsEnoughForAllRecords()
    {
        if (TestStore::isSqlite())
            QSKIP("A file has no passwords.");
        const Site site;
        const QString signedSql =
            QStringLiteral("SELECT count(*) FROM LogbookRecords WHERE VisaWorkerKey='WORKER_IVANOV'");
        const int before = site.store.value(signedSql).toInt();
        site.journal->tab().signAllRecordsRequest();
        const QString count = site.dialog()->findChild<QLabel*>(QStringLiteral("countLabel"))->text();
        site.answer(ownPassword);
        const int made = site.store.value(signedSql).toInt() - before;
        QVERIFY(made > 1);
        QCOMPARE(count, QStringLiteral("Записей: %1").arg(made));
    }

    void aRecordDeletedMeanwhileGetsNoVisa()
    {
        if (TestStore::isSqlite())
            QSKIP("A file has no passwords.");
        const Site site;
        site.journal->select("REC_ORDER");
        site.journal->tab().signRecordRequest();
        TestJournal colleague(site.store, QStringLiteral("petrov"));
        colleague.select("REC_ORDER");
        colleague.tab().deleteRecordRequest();
        colleague.press(QDialogButtonBox::YesRole);
        site.journal->deliver();
        site.answer(ownPassword);
        QVERIFY(site.visa("REC_ORDER").isEmpty());
        QVERIFY(site.journal->box());
        QVERIFY2(site.journal->box()->text().contains(QStringLiteral("запись удалили")),
                 qPrintable(site.journal->box()->text()));
    }

    void aMinimisedDialogKeepsWhatWasTyped()
    {
        if (TestStore::isSqlite())
            QSKIP("A file has no passwords.");
        const Site site;
        site.journal->select("REC_ORDER");
        site.journal->tab().signRecordRequest();
        typeText(site.edit(), ownPassword);
        QVERIFY(minimiseAndRestore(site.dialog()));
        QCOMPARE(site.edit()->text(), ownPassword);
    }
};

QTEST_MAIN(VisaPassword_test)
#include "VisaPassword_test.moc"
