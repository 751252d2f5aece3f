#include "ExpectedWarning.h"
#include "Workstation.h"

#include "CPopMessageBox.h"
#include "CRowBatch.h"
#include "CVrkCliMod.h"
#include "CVrkCliSes.h"
#include "LogbookFields.h"
#include "MDRValues.h"
#include "SignIn.h"
#include "StatusLine.h"
#include "TemplateFiller.h"

#include <functional>
#include <memory>
#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QFile>
#include <QLabel>
#include <QMessageBox>
#include <QPointer>
#include <QProcess>
#include <QStandardPaths>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QToolButton>

/// The host with the real libraries and the demo journal: signing in, loading modules, the status line,
/// closing.
class Workstation_test : public QObject
{
    Q_OBJECT

private:
    Options options(const QString& user = QStringLiteral("ozerov")) const
    {
        Options options;
        options.store = m_url;
        options.user = user;
        options.department = QStringLiteral("ЦДС");
        return options;
    }
    /// Opens the journal of the demo's dispatcher.
    void start()
    {
        m_host = std::make_unique<Workstation>();
        QVERIFY2(m_host->enter(options()), qPrintable(m_host->errorText()));
        m_journal = m_host->startModule(QStringLiteral("logbook"));
        QVERIFY(m_journal);
    }
    QString shownMessage() const { return label("messageLabel")->text(); }
    const QLabel* label(const char* name) const
    {
        return m_host->statusLine(m_journal)->findChild<QLabel*>(QLatin1String(name));
    }
    /// Closes the window and answers the question about unsaved changes.
    void closeAnd(const QString& answer)
    {
        bool isAsked = false;
        QTimer::singleShot(0, m_journal, [&isAsked, answer] {
            const auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            for (QAbstractButton* button : box ? box->buttons() : QList<QAbstractButton*>()) {
                if (button->text() == answer) {
                    isAsked = true;
                    button->click();
                }
            }
        });
        m_journal->close();
        QVERIFY(isAsked);
    }

    QTemporaryDir m_folder;
    QString m_url;
    std::unique_ptr<Workstation> m_host;
    QPointer<CVrkCliMod> m_journal;

private slots:
    void initTestCase()
    {
        QStandardPaths::setTestModeEnabled(true);
        m_url = QStringLiteral("sqlite://") + m_folder.filePath(QStringLiteral("demo.sqlite"));
        QProcess admin;
        admin.start(QCoreApplication::applicationDirPath() + QStringLiteral("/vrk-admin"),
                    {QStringLiteral("demo"), m_url});
        QVERIFY(admin.waitForFinished(120000));
        QCOMPARE(admin.exitCode(), 0);
    }

    void cleanup() { m_host.reset(); }

    void theJournalOpensAtItsShift()
    {
        start();
        QVERIFY(m_journal->isVisible());
        QCOMPARE(m_journal->moduleTitle(), QStringLiteral("Оперативный журнал"));
        QVERIFY(m_journal->findChild<QTableView*>(QStringLiteral("recordsTable"))->model()->rowCount() > 0);
        QCOMPARE(label("connectionLabel")->text(), QStringLiteral("Подключено"));
        QVERIFY(label("userLabel")->text().endsWith(QStringLiteral(", ЦДС")));
        m_journal->resize(1219, 602); // the screen of the tests is smaller, and the line shortens its texts
        QCoreApplication::processEvents();
        QTRY_VERIFY(QDateTime::fromString(label("clockLabel")->text(), QStringLiteral("dd.MM.yyyy hh:mm:ss"))
                        .isValid());
        QCOMPARE(shownMessage(), QString());
    }

    void everyModuleIsThere_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("title");
        QTest::newRow("journal") << "logbook" << QStringLiteral("Оперативный журнал");
        QTest::newRow("configurator")
            << "template" << QStringLiteral("Конфигуратор шаболнов Оперативного журнала");
        QTest::newRow("converter") << "converter" << QStringLiteral("Конвертер шаблонов и параметров ОЖ");
        QTest::newRow("unfinished") << "unfinished" << QStringLiteral("Незавершённое");
        QTest::newRow("bookmarks") << "bookmarks" << QStringLiteral("Закладки");
        QTest::newRow("archive") << "archive" << QStringLiteral("Поиск по архиву");
        QTest::newRow("history") << "history" << QStringLiteral("История записи");
        QTest::newRow("past") << "past" << QStringLiteral("Журнал на момент");
        QTest::newRow("statistics") << "statistics" << QStringLiteral("Статистика");
    }
    void everyModuleIsThere()
    {
        QFETCH(QString, name);
        QFETCH(QString, title);
        Workstation host;
        QVERIFY(host.enter(options()));
        const CVrkCliMod* module = host.startModule(name);
        QVERIFY(module);
        QCOMPARE(module->moduleTitle(), title);
    }

    void reportsProblemsOfTheStore_data()
    {
        QTest::addColumn<QString>("url");
        QFile text(m_folder.filePath(QStringLiteral("text.sqlite")));
        QVERIFY(text.open(QIODevice::WriteOnly));
        text.write(QByteArray("no database at all ").repeated(100));
        QTest::newRow("missing") << QStringLiteral("sqlite://") +
                                        m_folder.filePath(QStringLiteral("none.sqlite"));
        QTest::newRow("no database") << QStringLiteral("sqlite://") + text.fileName();
        QTest::newRow("no address") << QStringLiteral("ftp://journal");
    }
    void reportsProblemsOfTheStore()
    {
        QFETCH(QString, url);
        Workstation host;
        Options wanted = options();
        wanted.store = url;
        QVERIFY(!host.enter(wanted));
        QVERIFY2(host.errorText().contains(QRegularExpression(QStringLiteral("[А-Яа-я]{4}"))),
                 qPrintable(host.errorText()));
    }

    void aStrangeLoginAndDepartmentAreRefused()
    {
        Workstation host;
        QVERIFY(!host.enter(options(QStringLiteral("nobody"))));
        QCOMPARE(host.errorText(), QStringLiteral("Пользователь «nobody» не найден."));
        Options elsewhere = options();
        elsewhere.department = QStringLiteral("Склад");
        QVERIFY(!host.enter(elsewhere));
        QVERIFY(host.errorText().endsWith(QStringLiteral(" не работает в подразделении «Склад».")));
    }

    void withoutAWorkerTheWindowSaysSo()
    {
        Workstation host;
        Options trainee = options(QStringLiteral("stazher"));
        trainee.department.clear();
        QVERIFY2(host.enter(trainee), qPrintable(host.errorText()));
        const CVrkCliMod* module = host.startModule(QStringLiteral("logbook"));
        QVERIFY(module);
        const auto* box = module->findChild<CPopMessageBox*>();
        QVERIFY(box && box->isVisible());
        QCOMPARE(box->text(), QStringLiteral("<center>Сотрудник не определен!</center>"));
        const QStringList reported = host.statusLine(module)->failures();
        QCOMPARE(reported.size(), 1);
        QVERIFY(reported.constFirst().endsWith(QStringLiteral("это делает администратор журнала.")));
        const auto* user = host.statusLine(module)->findChild<QLabel*>(QStringLiteral("userLabel"));
        QVERIFY2(!user->text().contains(QLatin1Char(',')), qPrintable(user->text()));
    }

    void aPluginThatDoesNotLoadIsNamed()
    {
        Workstation host;
        Options wanted = options();
        wanted.plugin = m_folder.filePath(QStringLiteral("libNothing.so"));
        QVERIFY(host.enter(wanted));
        QVERIFY(!host.startModule(QStringLiteral("logbook")));
        QVERIFY(host.errorText().startsWith(QStringLiteral("Не удалось загрузить библиотеку модулей ")));
        QVERIFY(host.errorText().contains(QStringLiteral("libNothing.so")));
    }

    void aModuleThatIsNotThereIsNamed()
    {
        Workstation host;
        QVERIFY(host.enter(options()));
        QVERIFY(!host.startModule(QStringLiteral("nothing")));
        QVERIFY(host.errorText().endsWith(QStringLiteral("нет модуля «nothing».")));
    }

    void failuresStayUntilTheyAreAcknowledged()
    {
        expectWarning(QStringLiteral("NoSuchTable"));
        expectWarning(QStringLiteral("NOSUCHRECORD LogbookRecords"));
        start();
        QToolButton* acknowledge =
            m_host->statusLine(m_journal)->findChild<QToolButton*>(QStringLiteral("acknowledgeButton"));
        QVERIFY(!acknowledge->isVisible());
        QVERIFY(!m_journal->session()->SqlRequest("SELECT * FROM NoSuchTable"));
        QVERIFY(shownMessage().contains(
            QRegularExpression(QStringLiteral("^\\d\\d:\\d\\d:\\d\\d Не прочитано: .{4}"))));
        QVERIFY(acknowledge->isVisible());

        CRowBatch batch(LogbookRecordFields, fieldCount(LogbookRecordFields));
        MDRData* row = batch.newRow(ROW_UPDATE, "NOSUCHRECORD");
        batch.SetValF(row, "status", MDRValue::number(2));
        batch.RecPost(row);
        QVERIFY(!m_journal->session()->SqlUpdate("LogbookRecords", batch.array, true, nullptr));
        QVERIFY(shownMessage().contains(QStringLiteral(" Не записано (записи): ")));
        QVERIFY(shownMessage().endsWith(QStringLiteral(" (и ещё 1)")));

        m_host->statusLine(m_journal)->showNotice(QStringLiteral("Знак заменён."));
        QVERIFY(shownMessage().contains(QStringLiteral(" Не записано (записи): ")));
        acknowledge->click();
        QVERIFY(!acknowledge->isVisible());
        QCOMPARE(shownMessage(), QStringLiteral("Знак заменён."));
        QVERIFY(m_host->statusLine(m_journal)->failures().isEmpty());
    }

    void closingAWindowWithChangesAsks()
    {
        start();
        m_journal->SetIsEdit(true);
        closeAnd(QStringLiteral("Остаться"));
        QVERIFY(m_journal && m_journal->isVisible());
        QVERIFY(m_journal->isEdit());

        // the journal has nothing to save, and its edit state is unchanged
        closeAnd(QStringLiteral("Сохранить"));
        QVERIFY(m_journal && m_journal->isVisible());

        closeAnd(QStringLiteral("Не сохранять"));
        QTRY_VERIFY(m_journal.isNull());
    }

    void closingAWindowWithoutChangesAsksNothing()
    {
        start();
        m_journal->close();
        QVERIFY(!QApplication::activeModalWidget());
        QTRY_VERIFY(m_journal.isNull());
    }

    // Last: the shift of the demo is closed afterwards.
    void theStatusLineShowsARefusedClosing()
    {
        expectWarning(QStringLiteral("Записи вносят работники открытой смены"));
        expectWarning(QStringLiteral("error create record about closing workshift!"));
        start();
        m_journal->findChild<QAction*>(QStringLiteral("closeWorkshiftAction"))->trigger();
        for (auto* box : m_journal->findChildren<CPopMessageBox*>())
            for (QAbstractButton* button : box->buttonBox()->buttons())
                if (box->isVisible() && box->ButtonRole(button) == QDialogButtonBox::NoRole)
                    button->click();
        auto* dialog = m_journal->findChild<QWidget*>(QStringLiteral("CloseWorkshiftDialog"));
        QVERIFY(dialog && dialog->isVisible());
        auto* filler = dialog->findChild<TemplateFiller*>();
        for (const char* name : {"employee_fio_group", "text"})
            for (unsigned int index : filler->findParameter(QLatin1String(name)))
                filler->setParameterValue(index, QStringLiteral("нет"), QString());
        auto* close = dialog->findChild<QAbstractButton*>(QStringLiteral("closeWorkshiftButton"));
        QVERIFY(close->isEnabled());

        // A colleague closes it in the meantime, and the event has not arrived yet.
        CVrkCliApp other;
        SignIn signIn;
        QVERIFY(signIn.open(m_url) && signIn.signIn(QStringLiteral("roshchin")) &&
                signIn.enter(&other, QByteArray()));
        CMDArray rows;
        rows = other.session()->SqlRequest(
            "SELECT S.KeyLink, W.KeyLink AS workerKey FROM LogbookWorkshifts S, Workers W, Users U WHERE "
            "U.login = 'roshchin' AND W.UserKey = U.KeyLink AND S.DepartmentKey = W.DepartmentKey AND "
            "S.CloseWorkerKey IS NULL");
        QCOMPARE(rows.RecCount(), 1);
        const auto key = [&rows](const char* field) {
            MDRVar value;
            MDRGetVal(MDRFldByName(rows.array, field), MDARec(rows.array, 0, 0), &value);
            return MDRValue::copy(value);
        };
        CRowBatch closing(LogbookWorkshiftFields, fieldCount(LogbookWorkshiftFields));
        const QByteArray shift = key("KeyLink");
        const QByteArray worker = key("workerKey");
        MDRData* row = closing.newRow(ROW_UPDATE, shift);
        closing.SetValF(row, "CloseWorkerKey", MDRValue::text(worker));
        closing.RecPost(row);
        QVERIFY(other.session()->SqlUpdate("LogbookWorkshifts", closing.array, true, nullptr));

        close->click();
        QVERIFY(!dialog->isVisible());
        QVERIFY2(
            QRegularExpression(QStringLiteral("^\\d\\d:\\d\\d:\\d\\d Не записано \\(записи\\): Записи вносят "
                                              "работники открытой смены\\.$"))
                .match(shownMessage())
                .hasMatch(),
            qPrintable(shownMessage()));
    }
};

QTEST_MAIN(Workstation_test)
#include "Workstation_test.moc"
