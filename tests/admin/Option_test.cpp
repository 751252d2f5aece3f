#include "AdminRun.h"
#include "DurationOptions.h"
#include "StoreAdmin.h"
#include "TestStore.h"

#include <QTest>

/// vrk-admin option, on a store of either engine.
class Option_test : public QObject
{
    Q_OBJECT

private:
    struct Options : AdminRun {
        Options() { url = store.url(); }
        Command::ExitCode set(const QStringList& values)
        {
            return call("option", QStringList{QStringLiteral("set")} + values);
        }
        Command::ExitCode list() { return call("option", {QStringLiteral("list")}); }
        void put(const QByteArray& content) const
        {
            StoreError error;
            if (!StoreAdmin::putFile(url, QStringLiteral("options"), QStringLiteral("OperLogOptions"),
                                     content, &error))
                qFatal("%s", qUtf8Printable(error.text));
        }
        /// Null when the store has no such file.
        QByteArray stored() const
        {
            StoreError error;
            QByteArray content;
            const auto opened = Store::open(url, {}, &error);
            return opened && opened->file(QStringLiteral("options"), QStringLiteral("OperLogOptions"),
                                          &content, &error)
                       ? content
                       : QByteArray();
        }
        TestStore store{TestStore::Empty};
    };

private slots:
    void setWritesAndListTells()
    {
        Options options;
        QCOMPARE(options.set({QStringLiteral("CheckLengthShift=on"), QStringLiteral("DelayTime=15m"),
                              QStringLiteral("IntervalMessage=5m")}),
                 Command::Success);
        const QString told = QStringLiteral("CheckLengthShift=on\nDelayTime=15m\nIntervalMessage=5m\n");
        QCOMPARE(options.out, told);
        QCOMPARE(options.err, QString());
        QCOMPARE(options.stored(),
                 QByteArray("<?xml version=\"1.0\" encoding=\"windows-1251\"?>\n"
                            "<Options CheckLengthShift=\"1\" DelayTime=\"900\" IntervalMessage=\"300\"/>\n"));
        QCOMPARE(options.list(), Command::Success);
        QCOMPARE(options.out, told);
    }

    void theJournalReadsWhatWasSet()
    {
        Options options;
        const auto read = [&options] { return DurationOptions::fromXml(TestStore::text(options.stored())); };
        QCOMPARE(options.set({QStringLiteral("CheckLengthShift=on"), QStringLiteral("DelayTime=1h"),
                              QStringLiteral("IntervalMessage=90")}),
                 Command::Success);
        QVERIFY(read().isOn);
        QCOMPARE(read().delay, 3600);
        QCOMPARE(read().interval, 90);
        QCOMPARE(options.set({QStringLiteral("CheckLengthShift=нет")}), Command::Success);
        QVERIFY(!read().isOn);
        QCOMPARE(options.out, QStringLiteral("CheckLengthShift=off\nDelayTime=1h\nIntervalMessage=1m30s\n"));
    }

    void withoutAFileEverythingIsOff()
    {
        Options options;
        QCOMPARE(options.list(), Command::Success);
        QCOMPARE(options.out, QStringLiteral("CheckLengthShift=off\nDelayTime=0s\nIntervalMessage=0s\n"));
        QVERIFY(options.stored().isNull());
    }

    void whatIsNotNamedStays()
    {
        Options options;
        options.put("<?xml version=\"1.0\"?><!-- \xEF\xEE\xF0\xFF\xE4\xEE\xEA --><OperLog><Other a=\"\xF4\"/>"
                    "<Options CheckLengthShift=\"1\" Colour=\"red\" DelayTime=\"60\"/></OperLog>");
        QCOMPARE(options.set({QStringLiteral("IntervalMessage=1h30m5s"), QStringLiteral("DelayTime=2ч")}),
                 Command::Success);
        QCOMPARE(options.out, QStringLiteral("CheckLengthShift=on\nDelayTime=2h\nIntervalMessage=1h30m5s\n"));
        const QString text = TestStore::text(options.stored());
        QVERIFY2(text.contains(QStringLiteral("<!-- порядок -->")), qPrintable(text));
        QVERIFY(text.contains(QStringLiteral("<Other a=\"ф\"/>")));
        QVERIFY(text.contains(QStringLiteral("Colour=\"red\"")));
        QVERIFY(text.contains(QStringLiteral("DelayTime=\"7200\"")));
        QCOMPARE(text.count(QStringLiteral("<Options")), 1);
    }

    void aFileWithoutTheElementGetsIt()
    {
        Options options;
        options.put("<OperLog><Other/></OperLog>");
        QCOMPARE(options.set({QStringLiteral("CheckLengthShift=off")}), Command::Success);
        QVERIFY(options.stored().contains("<Options CheckLengthShift=\"0\"/></OperLog>"));
    }

    void badValuesAreRefusedAndChangeNothing_data()
    {
        QTest::addColumn<QString>("values");
        QTest::addColumn<QString>("fault");
        QTest::newRow("unknown") << QStringLiteral("DelayTime=1m Delay=5")
                                 << QStringLiteral("Нет настройки «Delay».");
        QTest::newRow("case") << QStringLiteral("delaytime=5")
                              << QStringLiteral("Нет настройки «delaytime».");
        QTest::newRow("no value") << QStringLiteral("DelayTime")
                                  << QStringLiteral("Настройка «DelayTime» не принимает значение «».");
        QTest::newRow("switch") << QStringLiteral("CheckLengthShift=perhaps")
                                << QStringLiteral(
                                       "Настройка «CheckLengthShift» не принимает значение «perhaps».");
        for (const char* typed : {"-5", "5x", "m", "1m2h", "1.5h", "577h", "99999999999999999999"})
            QTest::newRow(typed) << QStringLiteral("IntervalMessage=") + QLatin1String(typed)
                                 << QStringLiteral("Настройка «IntervalMessage» не принимает значение «%1».")
                                        .arg(QLatin1String(typed));
        QTest::newRow("twice") << QStringLiteral("DelayTime=1m DelayTime=2m")
                               << QStringLiteral("Настройка «DelayTime» названа дважды.");
    }
    void badValuesAreRefusedAndChangeNothing()
    {
        QFETCH(QString, values);
        QFETCH(QString, fault);
        Options options;
        QCOMPARE(options.set(values.split(QLatin1Char(' '))), Command::WrongUsage);
        QVERIFY2(options.err.startsWith(fault), qPrintable(options.err));
        QVERIFY(options.err.contains(QStringLiteral("vrk-admin option URL set")));
        QVERIFY(options.stored().isNull());
    }

    void aBrokenFileIsToldAndKept()
    {
        Options options;
        const QByteArray broken = "<OperLog>\n<Options CheckLengthShift=\"1\"/>\n</Oper>";
        options.put(broken);
        QCOMPARE(options.list(), Command::Failed);
        QVERIFY2(options.err.contains(QStringLiteral("испорчен, строка 3")), qPrintable(options.err));
        QCOMPARE(options.set({QStringLiteral("DelayTime=5m")}), Command::Failed);
        QCOMPARE(options.stored(), broken);
    }

    void whatTheJournalTakesForZeroIsTold()
    {
        Options options;
        options.put("<Options CheckLengthShift=\"1\" DelayTime=\"soon\" IntervalMessage=\"60\"/>");
        QCOMPARE(options.list(), Command::Success);
        QCOMPARE(options.out, QStringLiteral("CheckLengthShift=on\nDelayTime=0s\nIntervalMessage=1m\n"));
        QVERIFY(options.err.contains(QStringLiteral("DelayTime: «soon» не число")));
        QVERIFY(options.err.contains(QStringLiteral("молчит")));
    }

    void aMissingStoreIsTold()
    {
        AdminRun run;
        QCOMPARE(run.call("option", {QStringLiteral("list")}), Command::Failed);
        QVERIFY2(run.err.contains(QStringLiteral("store.sqlite")), qPrintable(run.err));
        QCOMPARE(run.call("option", {QStringLiteral("set"), QStringLiteral("DelayTime=5m")}),
                 Command::Failed);
        QVERIFY(!QFile::exists(run.path(QStringLiteral("store.sqlite"))));
    }
};

QTEST_GUILESS_MAIN(Option_test)
#include "Option_test.moc"
