#include "CVrkCliMod.h"
#include "HostBench.h"
#include "LogWriter.h"
#include "PasswordDialog.h"
#include "PrivateCluster.h"
#include "Workstation.h"

#include <memory>
#include <QDialogButtonBox>
#include <QDirIterator>
#include <QLabel>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>

namespace
{
const char* const answers = "Диспетчерский центр\n"
                            "Электросети\n"
                            "ЦДС\n"
                            "Дневная 08:00-20:00\n"
                            "\n"
                            "Диспетчер\n"
                            "\n"
                            "orlov; Орлов Олег Олегович; Диспетчер; 5\n"
                            "пароль Орлова\n"
                            "belova; Белова Анна Сергеевна; Диспетчер; 5\n"
                            "пароль Беловой\n"
                            "\n"
                            "\n";
} // namespace

/// Persons who sign in at a server with passwords: with the shared libraries and the real plug-in.
class Workstation_password_test : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void thePasswordIsAskedForAndHidden();
    void aWrongPasswordIsReportedAndAskedAgain();
    void thePasswordThatTheMachineKeepsIsTakenWithoutAsking_data();
    void thePasswordThatTheMachineKeepsIsTakenWithoutAsking();
    void aWrongKeptPasswordIsAskedFor();
    void escapeCallsItOff();
    void anybodyMayComeIn();
    void anAddressWithoutANameAsksForBoth();
    void withoutANameNothingIsTried();
    void reportsARoleWithoutALogin();
    void reportsALostServer();
    void theUserIsChangedByItsKeyThePasswordAndReturn();
    void passwordsAreWrittenNowhere();

private:
    Options options(const QString& login) const;
    static QLineEdit* edit(PasswordDialog* dialog, const char* name)
    {
        return dialog->findChild<QLineEdit*>(QLatin1String(name));
    }
    static QString notice(PasswordDialog* dialog)
    {
        return dialog->findChild<QLabel*>(QStringLiteral("noticeLabel"))->text();
    }
    /// Calls \a act when the dialog is shown; a failure closes it, so that the test ends.
    static void whenAsked(const std::function<void(PasswordDialog*)>& act)
    {
        HostBench::whenShown<PasswordDialog>([act](PasswordDialog* dialog) {
            if (QTest::qWaitForWindowActive(dialog))
                act(dialog);
            if (dialog->isVisible()) {
                QTest::qFail(qPrintable(QStringLiteral("it still asks: ") + notice(dialog)), __FILE__,
                             __LINE__);
                dialog->reject();
            }
        });
    }
    /// Types into the focus widget, and presses Return.
    static void type(PasswordDialog* dialog, const char* password)
    {
        for (const QChar letter : QString::fromUtf8(password))
            QTest::sendKeyEvent(QTest::Click, dialog->focusWidget(), Qt::Key_unknown, letter, Qt::NoModifier);
        QTest::keyClick(dialog->focusWidget(), Qt::Key_Return);
    }
    QString userShown() const
    {
        return m_host->module(QStringLiteral("logbook"))
            ->findChild<QLabel*>(QStringLiteral("userLabel"))
            ->text();
    }

    std::unique_ptr<PrivateCluster> m_cluster;
    std::unique_ptr<HostBench> m_bench;
    std::unique_ptr<LogWriter> m_log;
    std::unique_ptr<Workstation> m_host;
};

void Workstation_password_test::initTestCase()
{
    QApplication::setQuitOnLastWindowClosed(false);
    m_cluster = std::make_unique<PrivateCluster>();
    m_cluster->requirePasswords();
    QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("answers")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(answers);
    file.close();
    QCOMPARE(HostBench::admin({QStringLiteral("setup"), m_cluster->url(QStringLiteral("site")),
                               QStringLiteral("--answers"), file.fileName(), QStringLiteral("--time-zone"),
                               QStringLiteral("Europe/Moscow")}),
             QString());
}

void Workstation_password_test::init()
{
    m_bench = std::make_unique<HostBench>();
    m_log = std::make_unique<LogWriter>(m_bench->path(QStringLiteral("host.log")));
    m_host = std::make_unique<Workstation>(m_log.get());
}

void Workstation_password_test::cleanup()
{
    m_host.reset();
    m_log.reset();
    m_bench.reset();
}

Options Workstation_password_test::options(const QString& login) const
{
    Options options;
    options.store = m_cluster->url(QStringLiteral("site"), login);
    return options;
}

void Workstation_password_test::thePasswordIsAskedForAndHidden()
{
    bool asked = false;
    whenAsked([&](PasswordDialog* dialog) {
        asked = true;
        QCOMPARE(dialog->windowTitle(), QStringLiteral("Вход в оперативный журнал"));
        QCOMPARE(dialog->login(), QStringLiteral("orlov"));
        QVERIFY(notice(dialog).endsWith(QStringLiteral("спрашивает пароль.")));
        QCOMPARE(edit(dialog, "passwordEdit")->echoMode(), QLineEdit::Password);
        QCOMPARE(dialog->focusWidget(), edit(dialog, "passwordEdit"));
        type(dialog, "пароль Орлова");
    });
    QVERIFY(m_host->enter(options(QStringLiteral("orlov"))));
    QVERIFY(asked);
    QVERIFY(m_host->startModule(QStringLiteral("logbook")));
    QVERIFY(userShown().contains(QStringLiteral("Орлов")));
}

void Workstation_password_test::aWrongPasswordIsReportedAndAskedAgain()
{
    QString reported;
    whenAsked([&](PasswordDialog* dialog) {
        type(dialog, "не тот пароль");
        reported = notice(dialog);
        QVERIFY(dialog->isVisible());
        QVERIFY(edit(dialog, "passwordEdit")->text().isEmpty());
        QCOMPARE(dialog->focusWidget(), edit(dialog, "passwordEdit"));
        type(dialog, "пароль Орлова");
    });
    QVERIFY(m_host->enter(options(QStringLiteral("orlov"))));
    QVERIFY2(reported.startsWith(QStringLiteral("Сервер «")), qPrintable(reported));
    QVERIFY2(reported.endsWith(QStringLiteral("» не принял имя или пароль.")), qPrintable(reported));
}

void Workstation_password_test::thePasswordThatTheMachineKeepsIsTakenWithoutAsking_data()
{
    QTest::addColumn<bool>("inFile");
    QTest::newRow(".pgpass") << true;
    QTest::newRow("PGPASSWORD") << false;
}

void Workstation_password_test::thePasswordThatTheMachineKeepsIsTakenWithoutAsking()
{
    QFETCH(bool, inFile);
    QFile file(m_bench->path(QStringLiteral("passwords")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("*:*:site:belova:пароль Беловой\n");
    file.setPermissions(QFile::ReadOwner | QFile::WriteOwner);
    file.close();
    qputenv(inFile ? "PGPASSFILE" : "PGPASSWORD",
            inFile ? file.fileName().toUtf8() : QByteArray("пароль Беловой"));
    bool asked = false;
    QTimer watch;
    connect(&watch, &QTimer::timeout, this, [&] {
        if (auto* dialog = qobject_cast<PasswordDialog*>(QApplication::activeModalWidget())) {
            asked = true;
            dialog->reject();
        }
    });
    watch.start(1);
    const bool isIn = m_host->enter(options(QStringLiteral("belova")));
    qunsetenv("PGPASSFILE");
    qunsetenv("PGPASSWORD");
    QVERIFY(isIn);
    QVERIFY(!asked);
}

void Workstation_password_test::aWrongKeptPasswordIsAskedFor()
{
    qputenv("PGPASSWORD", "старый пароль");
    QString reported;
    whenAsked([&](PasswordDialog* dialog) {
        reported = notice(dialog);
        type(dialog, "пароль Орлова");
    });
    const bool isIn = m_host->enter(options(QStringLiteral("orlov")));
    qunsetenv("PGPASSWORD");
    QVERIFY(isIn);
    QVERIFY2(reported.endsWith(QStringLiteral("» не принял имя или пароль.")), qPrintable(reported));
}

void Workstation_password_test::escapeCallsItOff()
{
    whenAsked([](PasswordDialog* dialog) { QTest::keyClick(dialog->focusWidget(), Qt::Key_Escape); });
    QVERIFY(!m_host->enter(options(QStringLiteral("orlov"))));
    QCOMPARE(m_host->errorText(), QString());
}

void Workstation_password_test::anybodyMayComeIn()
{
    whenAsked([](PasswordDialog* dialog) {
        QTest::keyClick(dialog->focusWidget(), Qt::Key_Backtab);
        QCOMPARE(dialog->focusWidget(), edit(dialog, "loginEdit"));
        QTest::keyClicks(dialog->focusWidget(), QStringLiteral("belova"));
        QTest::keyClick(dialog->focusWidget(), Qt::Key_Tab);
        type(dialog, "пароль Беловой");
    });
    QVERIFY(m_host->enter(options(QStringLiteral("orlov"))));
    QVERIFY(m_host->startModule(QStringLiteral("logbook")));
    QVERIFY(userShown().contains(QStringLiteral("Белова")));
}

void Workstation_password_test::anAddressWithoutANameAsksForBoth()
{
    Options nameless = options(QString());
    nameless.store.remove(QLatin1Char('@'));
    whenAsked([](PasswordDialog* dialog) {
        QCOMPARE(dialog->login(), QString());
        QCOMPARE(dialog->focusWidget(), edit(dialog, "loginEdit"));
        QTest::keyClicks(dialog->focusWidget(), QStringLiteral("belova"));
        QTest::keyClick(dialog->focusWidget(), Qt::Key_Tab);
        type(dialog, "пароль Беловой");
    });
    QVERIFY(m_host->enter(nameless));
    // The next time the last user is known.
    whenAsked([](PasswordDialog* dialog) {
        QCOMPARE(dialog->login(), QStringLiteral("belova"));
        type(dialog, "пароль Беловой");
    });
    m_host = std::make_unique<Workstation>(m_log.get());
    QVERIFY(m_host->enter(nameless));
}

void Workstation_password_test::withoutANameNothingIsTried()
{
    whenAsked([](PasswordDialog* dialog) {
        edit(dialog, "loginEdit")->clear();
        const auto* box = dialog->findChild<QDialogButtonBox*>(QStringLiteral("buttonBox"));
        QVERIFY(!box->button(QDialogButtonBox::Ok)->isEnabled());
        const QString reported = notice(dialog);
        type(dialog, "пароль Орлова");
        QVERIFY(dialog->isVisible());
        QCOMPARE(notice(dialog), reported);
        dialog->reject();
    });
    QVERIFY(!m_host->enter(options(QStringLiteral("orlov"))));
}

void Workstation_password_test::reportsARoleWithoutALogin()
{
    QCOMPARE(m_cluster->exec(
                 QStringLiteral("CREATE ROLE stranger LOGIN PASSWORD 'чужой пароль' IN ROLE vrk_client")),
             QString());
    QString reported;
    whenAsked([&](PasswordDialog* dialog) {
        type(dialog, "чужой пароль");
        reported = notice(dialog);
        dialog->reject();
    });
    QVERIFY(!m_host->enter(options(QStringLiteral("stranger"))));
    QCOMPARE(reported, QStringLiteral("Пользователь «stranger» не найден."));
}

void Workstation_password_test::reportsALostServer()
{
    QString reported;
    whenAsked([&](PasswordDialog* dialog) {
        m_cluster->stop();
        type(dialog, "пароль Орлова");
        reported = notice(dialog);
        m_cluster->start();
        type(dialog, "пароль Орлова");
    });
    QVERIFY(m_host->enter(options(QStringLiteral("orlov"))));
    QVERIFY2(reported.startsWith(QStringLiteral("Нет связи с сервером «")), qPrintable(reported));
}

void Workstation_password_test::theUserIsChangedByItsKeyThePasswordAndReturn()
{
    const auto comesIn = [this](const char* password, bool* isKnown) {
        whenAsked([password, isKnown](PasswordDialog* dialog) {
            *isKnown = !dialog->login().isEmpty();
            if (!*isKnown) {
                QCOMPARE(dialog->focusWidget(), edit(dialog, "loginEdit"));
                QTest::keyClicks(dialog->focusWidget(), QStringLiteral("belova"));
                QTest::keyClick(dialog->focusWidget(), Qt::Key_Tab);
            }
            type(dialog, password);
        });
    };
    bool isKnown = false;
    comesIn("пароль Орлова", &isKnown);
    QVERIFY(m_host->enter(options(QStringLiteral("orlov"))));
    QVERIFY(m_host->startModule(QStringLiteral("logbook")));
    QVERIFY(isKnown);
    // The first change must name the other user; later ones preset the user who worked here before.
    const char* const passwords[] = {"пароль Беловой", "пароль Орлова", "пароль Беловой"};
    const char* const names[] = {"Белова", "Орлов", "Белова"};
    for (int i = 0; i < 3; ++i) {
        CVrkCliMod* journal = m_host->module(QStringLiteral("logbook"));
        journal->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(journal));
        comesIn(passwords[i], &isKnown);
        QTest::keyClick(journal, Qt::Key_U, Qt::ControlModifier | Qt::ShiftModifier);
        QTRY_VERIFY(m_host->module(QStringLiteral("logbook")) &&
                    userShown().contains(QString::fromUtf8(names[i])));
        QCOMPARE(isKnown, i > 0);
    }
}

void Workstation_password_test::passwordsAreWrittenNowhere()
{
    whenAsked([](PasswordDialog* dialog) {
        type(dialog, "тайное слово");
        type(dialog, "пароль Орлова");
    });
    QVERIFY(m_host->enter(options(QStringLiteral("orlov"))));
    QVERIFY(m_host->startModule(QStringLiteral("logbook")));
    m_cluster->stop();
    m_cluster->start(); // the session's messages about a lost server are logged
    QSettings().sync();
    m_host.reset();
    QDirIterator files(m_bench->folder.path(), QDir::Files, QDirIterator::Subdirectories);
    int count = 0;
    while (files.hasNext()) {
        QFile file(files.next());
        if (file.fileName().endsWith(QLatin1String(".sqlite")))
            continue;
        ++count;
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QString text = QString::fromUtf8(file.readAll());
        for (const char* password : {"тайное", "пароль Орлова", "Орлова"})
            QVERIFY2(!text.contains(QString::fromUtf8(password)), qPrintable(file.fileName()));
    }
    QVERIFY(count >= 2); // the log and the settings
    QCOMPARE(m_cluster->exec(QStringLiteral(
                 "DO $$ BEGIN ASSERT pg_read_file(current_setting('data_directory') || '/../log') "
                 "NOT LIKE '%Орлова%'; END $$")),
             QString());
}

QTEST_MAIN(Workstation_password_test)
#include "Workstation_password_test.moc"
