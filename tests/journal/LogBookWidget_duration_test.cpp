#include "FileAnswer.h"
#include "HFNCliParam.h"
#include "JournalWindow.h"
#include "LogWatch.h"
#include "MadeTable.h"
#include "StoreAdmin.h"
#include "StoreError.h"
#include "TestJournal.h"

#include <limits>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

/// The reminder that a workshift has exceeded its end.
class LogBookWidget_duration_test : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<LogWatch> m_log;
    static constexpr int overrun = 100; ///< seconds since the end of the shift of late()

    static void putOptions(const TestStore& store, const QByteArray& xml)
    {
        StoreError error;
        QVERIFY(StoreAdmin::putFile(store.url(), QStringLiteral("options"), QStringLiteral("OperLogOptions"),
                                    xml, &error));
    }
    /// A store whose open workshift has exceeded its end, with these options.
    static void makeLate(const TestStore& store, const QByteArray& options,
                         const QVariant& end = QVariant(-1))
    {
        putOptions(store, options);
        const QVariant endTime = end == QVariant(-1) ? QVariant(TestStore::now() - overrun) : end;
        QVERIFY(TestStore::write(store.openLoader().get(), "LogbookWorkshifts", ROW_UPDATE, "SHIFT_CDS_OPEN",
                                 {{"endTime", endTime}}));
    }
    static QByteArray options(int check, int delay, int interval)
    {
        return QStringLiteral("<OperLog><Options CheckLengthShift=\"%1\" DelayTime=\"%2\" "
                              "IntervalMessage=\"%3\"/></OperLog>")
            .arg(check)
            .arg(delay)
            .arg(interval)
            .toLatin1();
    }
    /// Intervals of the page's running timers: the control first, then the repetition.
    static QVector<int> running(TestJournal& journal)
    {
        QVector<int> intervals;
        for (const char* timer : {"controlTimer", "repeatTimer"}) {
            const auto* found = journal.child<QTimer>(timer);
            intervals.append(found->isActive() ? found->interval() : 0);
        }
        return intervals;
    }
    /// Runs the control once, without waiting for its second.
    static void look(TestJournal& journal) { emitTimeout(journal.child<QTimer>("controlTimer")); }
    static void emitTimeout(QTimer* timer) { QMetaObject::invokeMethod(timer, "timeout"); }

    static QByteArray packedFiles(std::initializer_list<QByteArray> contents)
    {
        static const MDRFieldDescr fields[] = {{"folder", 100, mdr_TChar},
                                               {"name", 100, mdr_TChar},
                                               {"size", 0, mdr_TInt32},
                                               {"content", 0, mdr_TMemo}};
        MadeTable files("Files", fields);
        for (const QByteArray& content : contents)
            files.add({{"content", content}});
        return HFNArrayPack(files.data.array);
    }

private slots:
    void init()
    {
        m_log.reset();
        m_log = std::make_unique<LogWatch>();
    }
    void cleanup() { QCOMPARE(m_log->take().join(QLatin1Char('\n')), QString()); }

    void remindsOfAWorkshiftThatIsTooLong()
    {
        const TestStore store;
        makeLate(store, options(1, 1, 600));
        TestJournal journal(store);
        const QSignalSpy calls(&journal.module(), &CVrkCliMod::attentionCalled);
        journal.tab().uploadWorkshiftDurationControl();
        QCOMPARE(journal.session().openBlocks(), 0);
        QCOMPARE(running(journal), QVector<int>({1000, 0}));
        QTRY_VERIFY_WITH_TIMEOUT(journal.box(), 5000);
        QCOMPARE(journal.box()->title(), QStringLiteral("Предупреждение"));
        QCOMPARE(journal.box()->text(), QStringLiteral("<center>Превышена допустимая длительность смены.<br/>"
                                                       "Необходимо провести сдачу/прием смены.</center>"));
        QCOMPARE(journal.box()->icon(), MessageIconWarning);
        QCOMPARE(journal.box()->type(), MessageTypeOk);
        QCOMPARE(running(journal), QVector<int>({0, 600000}));
        QCOMPARE(calls.size(), 1);
        QCOMPARE(calls[0][0].toString(), QStringLiteral("Превышена допустимая длительность смены. "
                                                        "Необходимо провести сдачу/прием смены."));

        journal.press(QDialogButtonBox::AcceptRole);
        QVERIFY(!journal.box());
        emitTimeout(journal.child<QTimer>("repeatTimer")); // it is repeated
        QVERIFY(journal.box());
        QCOMPARE(calls.size(), 2);
        journal.tab().uploadRecordsIn(QStringLiteral("SHIFT_CDS_PAST")); // also in the archive
        QCOMPARE(running(journal), QVector<int>({0, 600000}));
    }

    void theWindowReadsTheOptionsAsItStarts()
    {
        const TestStore store;
        makeLate(store, options(1, 1, 600));
        JournalWindow desk(store, QStringLiteral("ivanov"));
        emitTimeout(JournalWindow::childOf<QTimer>(&desk.home(), "controlTimer"));
        QVERIFY(desk.box());
        QCOMPARE(desk.box()->title(), QStringLiteral("Предупреждение"));
    }

    void theLongestIntervalIsOne()
    {
        const TestStore store;
        makeLate(store, options(1, 1, std::numeric_limits<int>::max()));
        TestJournal journal(store);
        journal.tab().uploadWorkshiftDurationControl();
        look(journal);
        QVERIFY(journal.box());
        QVERIFY(running(journal)[1] > 2000000000); // milliseconds, the most that a timer takes
    }

    void startsOverWhenTheWorkshiftChanges()
    {
        const TestStore store;
        makeLate(store, options(1, 1, 600));
        TestJournal journal(store);
        journal.tab().uploadWorkshiftDurationControl();
        look(journal);
        QCOMPARE(running(journal), QVector<int>({0, 600000}));
        QVERIFY(TestStore::write(store.openLoader().get(), "LogbookWorkshifts", ROW_UPDATE, "SHIFT_CDS_OPEN",
                                 {{"endTime", TestStore::now() + 5000}}));
        journal.deliver();
        QCOMPARE(running(journal), QVector<int>({1000, 0}));
        journal.press(QDialogButtonBox::AcceptRole);
        look(journal);
        QVERIFY(!journal.box());
    }

    void staysSilent_data()
    {
        QTest::addColumn<QByteArray>("options");
        QTest::addColumn<QVariant>("end");
        QTest::addColumn<QString>("login");
        const QVariant late(TestStore::now() - overrun);
        QTest::newRow("off") << options(0, 1, 600) << late << QStringLiteral("ivanov");
        QTest::newRow("off in the end")
            << QByteArray("<OperLog><Options CheckLengthShift=\"1\" DelayTime=\"1\" IntervalMessage=\"600\"/>"
                          "<Options CheckLengthShift=\"0\"/></OperLog>")
            << late << QStringLiteral("ivanov");
        QTest::newRow("no delay") << options(1, 0, 600) << late << QStringLiteral("ivanov");
        QTest::newRow("no interval") << options(1, 1, 0) << late << QStringLiteral("ivanov");
        QTest::newRow("within the delay") << options(1, 10000, 600) << late << QStringLiteral("ivanov");
        QTest::newRow("no end") << options(1, 1, 600) << QVariant() << QStringLiteral("ivanov");
        QTest::newRow("an end below one") << options(1, 1, 600) << QVariant(0.5) << QStringLiteral("ivanov");
        QTest::newRow("not in the shift") << options(1, 1, 600) << late << QStringLiteral("sidorova");
    }
    void staysSilent()
    {
        QFETCH(QByteArray, options);
        QFETCH(QVariant, end);
        QFETCH(QString, login);
        const TestStore store;
        makeLate(store, options, end);
        TestJournal journal(store, login);
        journal.tab().uploadWorkshiftDurationControl();
        look(journal);
        QVERIFY(!journal.box());
        QCOMPARE(running(journal), QVector<int>({1000, 0}));
    }

    void staysSilentInTheArchiveAndGoesOnAfterwards()
    {
        const TestStore store;
        makeLate(store, options(1, 1, 600));
        TestJournal journal(store);
        journal.tab().uploadWorkshiftDurationControl();
        journal.tab().uploadRecordsIn(QStringLiteral("SHIFT_CDS_OPEN"));
        look(journal);
        QVERIFY(!journal.box());
        journal.tab().uploadRealTimeWorkshift();
        look(journal);
        QVERIFY(journal.box());
    }

    void isOffUntilTheOptionsAreRead()
    {
        const TestStore store;
        makeLate(store, options(1, 1, 600));
        TestJournal journal(store);
        look(journal);
        QVERIFY(!journal.box());
    }

    void logsThatThereIsNoFile()
    {
        const TestStore store;
        TestJournal journal(store);
        journal.tab().uploadWorkshiftDurationControl();
        const QStringList lines = m_log->takeDebug(QStringLiteral("uploadWorkshiftDurationControl"));
        QCOMPARE(lines.size(), 1);
        QVERIFY(lines.first().startsWith(QStringLiteral(
            "void LogBookWidget::uploadWorkshiftDurationControl() request PacketExec('FileGet', "
            "'options;OperLogOptions') return error code ")));
        QCOMPARE(journal.session().openBlocks(), 0);
        look(journal);
        QVERIFY(!journal.box());
    }

    void logsAnEmptyFile()
    {
        const TestStore store;
        putOptions(store, QByteArray(""));
        TestJournal journal(store);
        journal.tab().uploadWorkshiftDurationControl();
        QCOMPARE(
            m_log->takeDebug(QStringLiteral("uploadWorkshiftDurationControl")),
            QStringList{QStringLiteral("void LogBookWidget::uploadWorkshiftDurationControl() request "
                                       "PacketExec('FileGet', 'options;OperLogOptions') return empty data")});
        QCOMPARE(journal.session().openBlocks(), 0);
    }

    void logsARequestThatFails()
    {
        const TestStore store;
        TestJournal journal(store);
        QCOMPARE(store.exec(QStringLiteral("DROP TABLE StoreFiles")), QString());
        journal.tab().uploadWorkshiftDurationControl();
        QCOMPARE(
            m_log->takeDebug(QStringLiteral("uploadWorkshiftDurationControl")),
            QStringList{QStringLiteral("void LogBookWidget::uploadWorkshiftDurationControl() request "
                                       "PacketExec('FileGet', 'options;OperLogOptions') returned FALSE")});
        QCOMPARE(journal.session().openBlocks(), 0);
        QVERIFY(!m_log->take(QStringLiteral("CVrkCliSes")).isEmpty());
    }

    void readsAnswers()
    {
        const auto read = [](int code, const QByteArray& packed) {
            const std::unique_ptr<HFNCliParam> block(HFNCliParam::answer(code, packed));
            return FileAnswer::read(block.get(), QStringLiteral("a;b"));
        };
        const QString prefix = QStringLiteral("request PacketExec('FileGet', 'a;b') return ");
        QCOMPARE(read(0, packedFiles({"text"})).content, QByteArray("text"));
        QCOMPARE(read(0, packedFiles({"text"})).failure, QString());
        QCOMPARE(read(7, QByteArray()).failure, prefix + QStringLiteral("error code 7"));
        QCOMPARE(read(0, packedFiles({"text", "text"})).failure,
                 prefix + QStringLiteral("empty data (CMDArray::RecCount() == 0)"));
        QCOMPARE(read(0, packedFiles({})).failure,
                 prefix + QStringLiteral("empty data (CMDArray::RecCount() == 0)"));
        QCOMPARE(read(0, "damaged").failure,
                 prefix + QStringLiteral("empty data (CMDArray::RecCount() == 0)"));
        QCOMPARE(read(0, packedFiles({""})).failure, prefix + QStringLiteral("empty data"));
    }
};

QTEST_MAIN(LogBookWidget_duration_test)
#include "LogBookWidget_duration_test.moc"
