#include "CVrkUnfinished.h"

#include "ArchiveBench.h"
#include "CVrkCliApp.h"
#include "ExpectedWarning.h"
#include "FailingStore.h"
#include "FileSaver.h"
#include "RecordRules.h"
#include "UserSettings.h"
#include "VrkPreviewWindow.h"

#include <QClipboard>
#include <QDir>
#include <QLabel>
#include <QSpinBox>
#include <QToolButton>

class CVrkUnfinished_test : public QObject
{
    Q_OBJECT

    std::unique_ptr<ArchiveBench<CVrkUnfinished>> m_bench;

    static QString order()
    {
        return QStringLiteral(
            "<meta name=\"template\" content=\"time_exec;second_mark=:/markers/worker_blue.png\"><p>Отдано "
            "распоряжение</p>");
    }
    static QString timed()
    {
        return QStringLiteral("<meta name=\"template\" content=\"time_exec\"><p>Выполнить</p>");
    }
    void record(const char* key, const char* shift, const QString& html, int status = 0, double hoursAgo = 1,
                const TestStore::Fields& more = {})
    {
        TestStore::Fields fields{{"ShiftKey", shift},
                                 {"WorkerKey", "WORKER_PETROV"},
                                 {"recordTime", TestStore::now() - hoursAgo * 3600},
                                 {"status", status},
                                 {"html", html}};
        for (const TestStore::Field& field : more)
            fields.push_back(field);
        m_bench->write("LogbookRecords", ROW_INSERT, key, fields);
    }
    QString lacks(const char* key)
    {
        const int row = m_bench->keys().indexOf(QLatin1String(key));
        return row < 0 ? QStringLiteral("-")
                       : m_bench->cell(row, "lacks").toString().replace(QLatin1Char('\n'), QLatin1Char('+'));
    }
    QToolButton* button(const char* name) { return m_bench->child<QToolButton>(name); }
    QString summary() { return m_bench->child<QLabel>("summaryLabel")->text(); }

private slots:
    void init() { m_bench = std::make_unique<ArchiveBench<CVrkUnfinished>>(); }
    void cleanup() { m_bench.reset(); }

    void theListIsPrintedAndSaved()
    {
        record("LEFT", "SHIFT_CDS_PAST", timed(), 0, 20);
        m_bench->start();
        const QTemporaryDir folder;
        m_bench->client().app().settings()->setValue(Setting::reportFolder, folder.path());
        const FileSaver::Asking desktop = FileSaver::asking();
        FileSaver::asking().file = [&](QWidget*, const FileSaver::Kind&, const QString& proposed) {
            return proposed;
        };
        QTest::keyClick(&m_bench->module(), Qt::Key_S, Qt::ControlModifier);
        FileSaver::asking() = desktop;
        const QStringList files = QDir(folder.path()).entryList(QDir::Files);
        QCOMPARE(files.size(), 1);
        QVERIFY2(files[0].startsWith(QStringLiteral("Незавершённое ЦДС 20")), qPrintable(files[0]));
        QTest::keyClick(&m_bench->module(), Qt::Key_P, Qt::ControlModifier);
        const auto* preview = m_bench->module().findChild<VrkPreviewWindow*>();
        QVERIFY(preview && preview->isVisible());
        QVERIFY(
            preview->table().footer.startsWith(QStringLiteral("Незавершённое, ЦДС\nЗа последние 30 дн.")));
        QCOMPARE(preview->table().rows.size(), m_bench->keys().size());
    }

    void listsUnfinishedRecords()
    {
        record("EXECUTED", "SHIFT_CDS_PAST", timed(), 0, 20, {{"executionTime", 5.0}});
        record("DRAFT_LEFT", "SHIFT_CDS_PAST", QStringLiteral("Забытый черновик"), 1, 20);
        record("DRAFT_TIMED", "SHIFT_CDS_PAST", timed(), 1, 20);
        record("DELETED", "SHIFT_CDS_PAST", timed(), 2, 20);
        record("THEIRS", "SHIFT_ZAR_OPEN", timed());
        record("TIMED", "SHIFT_CDS_OPEN", timed());
        record("MARKED", "SHIFT_CDS_OPEN", order(), 0, 1, {{"secondMarkTime", 7.0}, {"executionTime", 8.0}});
        record("NO_MARKER", "SHIFT_CDS_OPEN",
               QStringLiteral("<meta name=\"template\" content=\"second_mark=\"><p>без значка</p>"));
        record("WORDS", "SHIFT_CDS_OPEN", QStringLiteral("О словах time_exec и second_mark"));
        m_bench->start();
        QCOMPARE(lacks("REC_ORDER"), QStringLiteral("Время выполнения+Второй маркер"));
        QCOMPARE(lacks("REC_SUCCESSOR"), QStringLiteral("Второй маркер"));
        QCOMPARE(lacks("TIMED"), QStringLiteral("Время выполнения"));
        QCOMPARE(lacks("DRAFT_LEFT"), QStringLiteral("Черновик"));
        QCOMPARE(lacks("DRAFT_TIMED"), QStringLiteral("Черновик+Время выполнения"));
        QCOMPARE(m_bench->keys().size(), 5);
        QCOMPARE(summary(), QStringLiteral("Записей: 5"));
        QCOMPARE(button("timeButton")->text(), QStringLiteral("Время выполнения: 3"));
        QCOMPARE(button("markerButton")->text(), QStringLiteral("Второй маркер: 2"));
        QCOMPARE(button("draftButton")->text(), QStringLiteral("Черновики: 2"));
    }

    void rowsReadAsTheJournalDoes()
    {
        m_bench->start();
        const int row = m_bench->keys().indexOf(QStringLiteral("REC_ORDER"));
        QVERIFY(row >= 0);
        QCOMPARE(m_bench->cell(row, "WorkerKey").toString(), QStringLiteral("Петров П. П."));
        QVERIFY(!m_bench->cell(row, "html").toString().contains(QLatin1Char('<')));
        QVERIFY(m_bench->cell(row, "html").toString().contains(QStringLiteral("Ольховка")));
        QVERIFY(QDateTime::fromString(m_bench->cell(row, "recordTime").toString(),
                                      QStringLiteral("dd.MM.yyyy hh:mm"))
                    .isValid());
        QVERIFY(!m_bench->cell(row, "lacks", Qt::DecorationRole).value<QIcon>().isNull());
    }

    void everyChangeIsFollowed()
    {
        m_bench->start();
        const int before = m_bench->keys().size();
        record("NEW", "SHIFT_CDS_OPEN", order());
        QCOMPARE(lacks("NEW"), QStringLiteral("Время выполнения+Второй маркер"));
        QCOMPARE(m_bench->keys().constFirst(), QStringLiteral("NEW")); // the newest first
        m_bench->write("LogbookRecords", ROW_UPDATE, "NEW", {{"executionTime", 100.0}});
        QCOMPARE(lacks("NEW"), QStringLiteral("Второй маркер"));
        m_bench->write("LogbookRecords", ROW_UPDATE, "NEW", {{"secondMarkTime", 100.0}});
        QCOMPARE(lacks("NEW"), QStringLiteral("-"));
        m_bench->write("LogbookRecords", ROW_UPDATE, "NEW", {{"secondMarkTime", nullptr}});
        QCOMPARE(lacks("NEW"), QStringLiteral("Второй маркер"));
        m_bench->write("LogbookRecords", ROW_UPDATE, "NEW", {{"status", 2}});
        QCOMPARE(lacks("NEW"), QStringLiteral("-"));
        QCOMPARE(m_bench->keys().size(), before);
        record("GONE", "SHIFT_CDS_OPEN", timed());
        m_bench->write("LogbookRecords", ROW_DELETE, "GONE");
        QCOMPARE(lacks("GONE"), QStringLiteral("-"));
        QCOMPARE(summary(), QStringLiteral("Записей: %1").arg(before));
    }

    void theCurrentRecordStaysCurrentThroughItsChange()
    {
        record("ONE", "SHIFT_CDS_OPEN", order(), 0, 3);
        record("TWO", "SHIFT_CDS_OPEN", order(), 0, 2);
        m_bench->start();
        m_bench->list()->makeCurrent("ONE");
        m_bench->write("LogbookRecords", ROW_UPDATE, "ONE", {{"executionTime", 100.0}});
        QCOMPARE(m_bench->list()->currentKey(), QByteArray("ONE"));
    }

    void draftsShowWhenTheirShiftIsClosed()
    {
        m_bench->start();
        QCOMPARE(lacks("REC_DRAFT_IVANOV"), QStringLiteral("-"));
        m_bench->write("LogbookWorkshifts", ROW_UPDATE, "SHIFT_CDS_OPEN",
                       {{"CloseWorkerKey", "WORKER_IVANOV"}});
        QCOMPARE(lacks("REC_DRAFT_IVANOV"), QStringLiteral("Черновик"));
        QCOMPARE(lacks("REC_DRAFT_PETROV"), QStringLiteral("Черновик"));
        QCOMPARE(m_bench->keys().count(QStringLiteral("REC_ORDER")), 1);
    }

    void theDaysAreChosenAndKept()
    {
        record("OLD", "SHIFT_CDS_PAST", timed(), 0, 40 * 24);
        m_bench->start();
        auto* days = m_bench->child<QSpinBox>("daysSpin");
        QCOMPARE(days->value(), CVrkUnfinished::usualDays);
        QCOMPARE(lacks("OLD"), QStringLiteral("-"));
        days->setFocus();
        days->selectAll();
        QTest::keyClicks(days, QStringLiteral("60"));
        QTest::keyClick(days, Qt::Key_Return);
        QCOMPARE(lacks("OLD"), QStringLiteral("Время выполнения"));
        m_bench->start();
        QCOMPARE(m_bench->child<QSpinBox>("daysSpin")->value(), 60);
        QCOMPARE(lacks("OLD"), QStringLiteral("Время выполнения"));
    }

    void aChangeOfAnOldRecordDoesNotListIt()
    {
        record("OLD", "SHIFT_CDS_OPEN", order(), 0, 40 * 24);
        m_bench->start();
        m_bench->write("LogbookRecords", ROW_UPDATE, "OLD", {{"executionTime", 100.0}});
        QCOMPARE(lacks("OLD"), QStringLiteral("-"));
    }

    void aListThatCannotBeReadSaysSoAndStays()
    {
        expectWarning(QStringLiteral("Диск хранилища переполнен"));
        auto plan = std::make_shared<FailingStore::Plan>();
        m_bench->startOn(std::make_unique<FailingStore>(m_bench->store.open(QStringLiteral("ivanov")), plan));
        const QStringList before = m_bench->keys();
        QVERIFY(!before.isEmpty());
        plan->failedSelects = 1;
        QTest::keyClick(m_bench->view(), Qt::Key_F5);
        QCOMPARE(m_bench->keys(), before);
        QCOMPARE(summary(), QStringLiteral("Список не прочитан: ") + FailingStore::refusal());
        QCOMPARE(m_bench->client().takeFailures(), QStringList{FailingStore::refusal()});
        QTest::keyClick(m_bench->view(), Qt::Key_F5);
        QCOMPARE(summary(), QStringLiteral("Записей: %1").arg(before.size()));
    }

    void kindsAreChosenAndKept()
    {
        record("DRAFT_LEFT", "SHIFT_CDS_PAST", QStringLiteral("Забытый черновик"), 1, 20);
        m_bench->start();
        QVERIFY(button("markerButton")->isChecked());
        button("markerButton")->click();
        QCOMPARE(lacks("REC_SUCCESSOR"), QStringLiteral("-"));
        QVERIFY(lacks("REC_ORDER") != QStringLiteral("-")); // its time is missing, too
        QCOMPARE(summary(), QStringLiteral("Записей: 2 из 3"));
        button("timeButton")->click();
        QCOMPARE(m_bench->keys(), QStringList{QStringLiteral("DRAFT_LEFT")});
        m_bench->start();
        QVERIFY(!button("markerButton")->isChecked());
        QCOMPARE(m_bench->keys(), QStringList{QStringLiteral("DRAFT_LEFT")});
        button("draftButton")->click();
        auto* empty = m_bench->child<QLabel>("emptyLabel");
        QVERIFY(empty->isVisible());
        QVERIFY(empty->text().contains(QStringLiteral("скрыто кнопками")));
    }

    void nothingLeftUndoneIsSaid()
    {
        m_bench = std::make_unique<ArchiveBench<CVrkUnfinished>>(QStringLiteral("smirnov"));
        m_bench->start("DEP_ZAR");
        auto* empty = m_bench->child<QLabel>("emptyLabel");
        QVERIFY(empty->isVisible());
        QCOMPARE(empty->text(), QStringLiteral("За последние 30 дн. ничего не осталось незавершённым."));
        record("NEW", "SHIFT_ZAR_OPEN", timed());
        QVERIFY(!empty->isVisible());
        QCOMPARE(m_bench->keys(), QStringList{QStringLiteral("NEW")});
    }

    void enterAndDoubleClickLeadToTheJournal()
    {
        m_bench->start();
        m_bench->list()->makeCurrent("REC_ORDER");
        QTest::keyClick(m_bench->view(), Qt::Key_Return);
        QTest::keyClick(m_bench->view(), Qt::Key_Enter, Qt::KeypadModifier);
        m_bench->doubleClick(m_bench->view()->currentIndex().row());
        const QString once = QStringLiteral("logbook showRecord REC_ORDER");
        QCOMPARE(m_bench->asked, (QStringList{once, once, once}));
    }

    void copiesTheVisibleText()
    {
        m_bench->start();
        m_bench->list()->makeCurrent("REC_ORDER");
        QTest::keyClick(m_bench->view(), Qt::Key_C, Qt::ControlModifier);
        QVERIFY(QGuiApplication::clipboard()->text().contains(QStringLiteral("Ольховка")));
        QVERIFY(!QGuiApplication::clipboard()->text().contains(QLatin1Char('<')));
    }

    void aReconnectReadsEverythingAgain()
    {
        m_bench->start();
        const QStringList before = m_bench->keys();
        m_bench->module().ModSesReconnect();
        QCOMPARE(m_bench->keys(), before);
    }
};

QTEST_MAIN(CVrkUnfinished_test)
#include "CVrkUnfinished_test.moc"
