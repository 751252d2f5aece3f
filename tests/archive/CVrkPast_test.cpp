#include "CVrkPast.h"

#include "ArchiveBench.h"
#include "ExpectedWarning.h"
#include "FailingStore.h"
#include "HfnTime.h"
#include "NoticeBar.h"
#include "OldShifts.h"

#include <QAction>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QLabel>
#include <QPlainTextEdit>

/// Past states of a workshift, read from the change log of a real store.
class CVrkPast_test : public QObject
{
    Q_OBJECT

    std::unique_ptr<ArchiveBench<CVrkPast>> m_bench;

    void write(const char* login, const char* table, MDRFlag flag, const char* key,
               const TestStore::Fields& fields)
    {
        StoreError error;
        QVERIFY2(TestStore::write(m_bench->store.open(QLatin1String(login)).get(), table, flag, key, fields,
                                  &error),
                 qPrintable(error.text + error.detail));
    }
    void step(const char* name) { m_bench->child<QAction>(name)->trigger(); }
    QString banner() { return m_bench->child<NoticeBar>("pastNotice")->text(); }
    QString change() { return m_bench->child<QLabel>("changeLabel")->text(); }
    QString empty() { return m_bench->child<QLabel>("emptyLabel")->text(); }
    QString text(const char* key)
    {
        const int row = m_bench->keys().indexOf(QLatin1String(key));
        return row < 0 ? QStringLiteral("-") : m_bench->cell(row, "html").toString();
    }
    QString shown(const char* name) { return m_bench->child<QPlainTextEdit>(name)->toPlainText(); }

private slots:
    void init() { m_bench = std::make_unique<ArchiveBench<CVrkPast>>(); }
    void cleanup() { m_bench.reset(); }

    void stepsShowEachStateOfTheShift()
    {
        write("ivanov", "LogbookRecords", ROW_UPDATE, "REC_DRAFT_IVANOV",
              {{"html", "<p>второй вариант</p>"}});
        write("petrov", "LogbookRecords", ROW_DELETE, "REC_DRAFT_PETROV", {});
        m_bench->start();
        QCOMPARE(text("REC_DRAFT_PETROV"), QStringLiteral("-"));
        QVERIFY2(change().contains(QStringLiteral("Черновик удалён")), qPrintable(change()));
        QVERIFY(!m_bench->child<QAction>("onAction")->isEnabled());
        step("backAction");
        QVERIFY(text("REC_DRAFT_PETROV") != QStringLiteral("-"));
        QCOMPARE(text("REC_DRAFT_IVANOV"), QStringLiteral("второй вариант"));
        step("backAction");
        QVERIFY(text("REC_DRAFT_IVANOV") != QStringLiteral("второй вариант"));
        QVERIFY(text("REC_DRAFT_IVANOV") != QStringLiteral("-"));
        step("onAction");
        QCOMPARE(text("REC_DRAFT_IVANOV"), QStringLiteral("второй вариант"));
        QVERIFY2(banner().startsWith(QStringLiteral("Это прошлое")), qPrintable(banner()));
    }

    void anArchivedShiftIsShownAsItWas()
    {
        m_bench->start();
        auto* shifts = m_bench->child<QComboBox>("shiftCombo");
        QCOMPARE(shifts->count(), 2);
        m_bench->module().slot_modNotify(QStringLiteral("showRecord"), QStringLiteral("REC_PAST_1"));
        QCOMPARE(shifts->currentIndex(), 1);
        const QString crew = shown("crewText");
        const QString name = shifts->currentText();
        const auto loader = m_bench->store.openLoader();
        StoreError error;
        OldShifts old(loader.get());
        QVERIFY(old.load(TestStore::now(), QByteArray(), &error));
        QCOMPARE(old.leaving().size(), 1);
        QVERIFY(old.remove(old.leaving().constFirst(), &error) == OldShifts::Outcome::Removed);
        QTRY_COMPARE(shifts->currentText(), name + QStringLiteral(" (в архиве)"));
        QCOMPARE(shifts->count(), 2);
        QCOMPARE(m_bench->keys(), (QStringList{QStringLiteral("REC_PAST_2"), QStringLiteral("REC_PAST_1")}));
        QCOMPARE(m_bench->cell(1, "comments").toInt(), 1);
        QCOMPARE(shown("crewText"), crew);
        QVERIFY(banner().startsWith(QStringLiteral("Это прошлое")));
        step("onAction");
        QCOMPARE(m_bench->keys(), QStringList());
        QVERIFY2(change().contains(QStringLiteral("смена убрана в архив")), qPrintable(change()));
        step("backAction");
        QCOMPARE(m_bench->keys().size(), 2);
    }

    void theWholeShiftIsShown()
    {
        m_bench->start();
        QCOMPARE(m_bench->keys().size(), 8);
        const int row = m_bench->keys().indexOf(QStringLiteral("REC_TRIP"));
        QCOMPARE(m_bench->cell(row, "files").toInt(), 2);
        QCOMPARE(m_bench->cell(m_bench->keys().indexOf(QStringLiteral("REC_ORDER")), "comments").toInt(), 1);
        const QString crew = shown("crewText");
        for (const char* name : {"Иванов И. И.", "Петров П. П.", "Смена открыта"})
            QVERIFY2(crew.contains(QString::fromUtf8(name)), qPrintable(crew));
        m_bench->list()->makeCurrent("REC_TRIP");
        const QString remarks = shown("remarkText");
        QVERIFY2(remarks.contains(QStringLiteral("осциллограмма.txt")), qPrintable(remarks));
        QVERIFY(remarks.contains(QStringLiteral("SHA-256 ")));
    }

    void commentsStandInTheOrderOfTheirTime()
    {
        for (const auto& [key, text, hours] : {std::tuple("COM_1", "последний", 3),
                                               {"COM_2", "первый", 1},
                                               {"COM_3", "средний", 2},
                                               {"COM_4", "ему вслед", 2}})
            write("petrov", "LogbookComments", ROW_INSERT, key,
                  {{"RecordKey", "REC_TRIP"},
                   {"WorkerKey", "WORKER_PETROV"},
                   {"text_", text},
                   {"commentTime", TestStore::now() + hours * 3600}});
        m_bench->start();
        m_bench->list()->makeCurrent("REC_TRIP");
        const QString remarks = shown("remarkText");
        QVERIFY2(remarks.indexOf(QStringLiteral("первый")) < remarks.indexOf(QStringLiteral("средний")),
                 qPrintable(remarks));
        QVERIFY2(remarks.indexOf(QStringLiteral("средний")) < remarks.indexOf(QStringLiteral("ему вслед")),
                 qPrintable(remarks));
        QVERIFY2(remarks.indexOf(QStringLiteral("ему вслед")) < remarks.indexOf(QStringLiteral("последний")),
                 qPrintable(remarks));
    }

    void aTimeThatHasNotComeYetIsCalledSo()
    {
        m_bench->start();
        auto* time = m_bench->child<QDateTimeEdit>("timeEdit");
        time->setDateTime(HfnTime_to_DateTime(TestStore::now(), -1));
        QVERIFY2(banner().startsWith(QStringLiteral("Это прошлое")), qPrintable(banner()));
        time->setDateTime(time->dateTime().addDays(40));
        QVERIFY2(banner().contains(QStringLiteral("ещё не наступил")), qPrintable(banner()));
    }

    void aTimeBeforeTheShiftHasNone()
    {
        m_bench->start();
        m_bench->child<QDateTimeEdit>("timeEdit")
            ->setDateTime(HfnTime_to_DateTime(TestStore::now(), -1).addDays(-1));
        QCOMPARE(m_bench->keys().size(), 0);
        QVERIFY2(empty().contains(QStringLiteral("ещё не было")), qPrintable(empty()));
        QVERIFY(!m_bench->child<QAction>("backAction")->isEnabled());
        step("onAction");
        QVERIFY(shown("crewText").contains(QStringLiteral("Смена открыта")));
        QVERIFY(!change().isEmpty());
    }

    void aRecordOpensItsShift()
    {
        m_bench->start();
        m_bench->module().slot_modNotify(QStringLiteral("showRecord"), QStringLiteral("REC_ZAR"));
        QCOMPARE(m_bench->child<QComboBox>("departmentCombo")->currentData().toByteArray(),
                 QByteArray("DEP_ZAR"));
        QCOMPARE(m_bench->child<QComboBox>("shiftCombo")->currentData().toByteArray(),
                 QByteArray("SHIFT_ZAR_OPEN"));
        QCOMPARE(m_bench->keys(), QStringList{QStringLiteral("REC_ZAR")});
    }

    void aDepartmentWithoutShiftsSaysSo()
    {
        m_bench->start();
        auto* departments = m_bench->child<QComboBox>("departmentCombo");
        departments->setCurrentIndex(departments->findData(QByteArray("DEP_ODS")));
        QVERIFY2(empty().contains(QStringLiteral("ещё не было смен")), qPrintable(empty()));
        QCOMPARE(m_bench->keys().size(), 0);
    }

    void laterChangesAreAnnouncedNotMixedIn()
    {
        m_bench->start();
        write("ivanov", "LogbookRecords", ROW_UPDATE, "REC_DRAFT_IVANOV",
              {{"html", "<p>второй вариант</p>"}});
        m_bench->client().deliver();
        QVERIFY(text("REC_DRAFT_IVANOV") != QStringLiteral("второй вариант"));
        QVERIFY2(change().contains(QStringLiteral("F5")), qPrintable(change()));
        step("reloadAction");
        QCOMPARE(text("REC_DRAFT_IVANOV"), QStringLiteral("второй вариант"));
    }

    void anUnreadableLogIsReported()
    {
        auto plan = std::make_shared<FailingStore::Plan>();
        m_bench->startOn(std::make_unique<FailingStore>(m_bench->store.open(QStringLiteral("ivanov")), plan));
        plan->failedSelects = 1;
        expectWarning(FailingStore::refusal());
        step("reloadAction");
        QVERIFY2(empty().contains(FailingStore::refusal()), qPrintable(empty()));
        QCOMPARE(m_bench->keys().size(), 0);
    }
};

QTEST_MAIN(CVrkPast_test)
#include "CVrkPast_test.moc"
