#include "AdminRun.h"
#include "DurationOptions.h"
#include "StoreAdmin.h"
#include "TestStore.h"
#include "VisaOption.h"

#include <QTest>

/// vrk-admin option, shift and check --ready: the administrator's settings for shifts, on both engines.
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
        /// Null if the store has no such file.
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

    /// The standard journal; its shift SHIFT_CDS_OPEN will be corrected.
    struct Shifts : AdminRun {
        Shifts() { url = store.url(); }
        Command::ExitCode correct(const QStringList& rest)
        {
            return call("shift",
                        QStringList{QStringLiteral("correct"), QStringLiteral("SHIFT_CDS_OPEN")} + rest);
        }
        void load(const TestStore::Fields& fields) const
        {
            if (!TestStore::write(store.openLoader().get(), "LogbookWorkshifts", ROW_UPDATE, "SHIFT_CDS_OPEN",
                                  fields))
                qFatal("cannot write the shift");
        }
        double number(const char* field) const
        {
            return store
                .value(QStringLiteral("SELECT %1 FROM LogbookWorkshifts WHERE KeyLink = 'SHIFT_CDS_OPEN'")
                           .arg(QLatin1String(field)))
                .toDouble();
        }
        TestStore store;
    };

private slots:
    void wordsOfTheSiteAreKept()
    {
        Options site;
        const auto listed = [&site] {
            site.call("words", {QStringLiteral("list")});
            return site.out;
        };
        QCOMPARE(listed(), QString());
        QCOMPARE(site.call("words",
                           {QStringLiteral("add"), QStringLiteral("телемех"), QStringLiteral("квитировать")}),
                 Command::Success);
        QCOMPARE(listed(), QStringLiteral("квитировать\nтелемех\n"));
        for (const char* bad : {"two words", "1", "-", "<b>"})
            QCOMPARE(site.call("words", {QStringLiteral("add"), QString::fromLatin1(bad)}), Command::Failed);
        QCOMPARE(site.call("words", {QStringLiteral("add")}), Command::WrongUsage);
        QCOMPARE(
            site.call("words", {QStringLiteral("remove"), QStringLiteral("телемех"), QStringLiteral("нет")}),
            Command::Success);
        QCOMPARE(listed(), QStringLiteral("квитировать\n"));
        QCOMPARE(site.call("words", {QStringLiteral("remove"), QStringLiteral("квитировать")}),
                 Command::Success);
        QCOMPARE(listed(), QString());
    }

    void abbreviationsOfTheSiteAreKept()
    {
        Options site;
        const auto run = [&site](const QStringList& arguments) {
            return site.call("abbreviations", arguments);
        };
        const auto listed = [&site, &run] {
            run({QStringLiteral("list")});
            return site.out;
        };
        const QString add = QStringLiteral("add");
        QCOMPARE(listed(), QString());
        QCOMPARE(run({add, QStringLiteral("откл."), QStringLiteral("отключено")}), Command::Success);
        QCOMPARE(run({add, QStringLiteral("пс"), QStringLiteral("подстанция 110 кВ")}), Command::Success);
        QCOMPARE(run({add, QStringLiteral("откл."), QStringLiteral("отключён")}), Command::Success);
        QCOMPARE(listed(), QStringLiteral("откл. = отключён\nпс = подстанция 110 кВ\n"));
        for (const char* bad : {"", "два слова", "1к", "<b>", "а\tб", "а\nб"})
            QCOMPARE(run({add, QString::fromUtf8(bad), QStringLiteral("текст")}), Command::Failed);
        for (const char* bad : {"", "две\nстроки", "а\tб"})
            QCOMPARE(run({add, QStringLiteral("вл"), QString::fromUtf8(bad)}), Command::Failed);
        QCOMPARE(run({add, QStringLiteral("вл")}), Command::WrongUsage);
        QCOMPARE(run({QStringLiteral("remove"), QStringLiteral("пс"), QStringLiteral("нет")}),
                 Command::Success);
        QCOMPARE(listed(), QStringLiteral("откл. = отключён\n"));
        QCOMPARE(run({QStringLiteral("remove"), QStringLiteral("откл.")}), Command::Success);
        QCOMPARE(listed(), QString());
    }

    void setWritesAndListTells()
    {
        Options options;
        QCOMPARE(options.set({QStringLiteral("CheckLengthShift=on"), QStringLiteral("DelayTime=15m"),
                              QStringLiteral("IntervalMessage=5m")}),
                 Command::Success);
        const QString reported = QStringLiteral(
            "CheckLengthShift=on\nDelayTime=15m\nIntervalMessage=5m\nVisaPassword=off\nLongestShift=48h\n");
        QCOMPARE(options.out, reported);
        QCOMPARE(options.err, QString());
        QCOMPARE(options.stored(),
                 QByteArray("<?xml version=\"1.0\" encoding=\"windows-1251\"?>\n"
                            "<Options CheckLengthShift=\"1\" DelayTime=\"900\" IntervalMessage=\"300\"/>\n"));
        QCOMPARE(options.list(), Command::Success);
        QCOMPARE(options.out, reported);
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
        QCOMPARE(options.out, QStringLiteral("CheckLengthShift=off\nDelayTime=1h\nIntervalMessage="
                                             "1m30s\nVisaPassword=off\nLongestShift=48h\n"));
    }

    void withoutAFileEverythingIsOff()
    {
        Options options;
        QCOMPARE(options.list(), Command::Success);
        QCOMPARE(options.out, QStringLiteral("CheckLengthShift=off\nDelayTime=0s\nIntervalMessage="
                                             "0s\nVisaPassword=off\nLongestShift=48h\n"));
        QVERIFY(options.stored().isNull());
    }

    void thePasswordAtTheVisaIsASwitch()
    {
        Options options;
        QCOMPARE(options.set({QStringLiteral("VisaPassword=15m")}), Command::WrongUsage);
        QCOMPARE(options.set({QStringLiteral("VisaPassword=да"), QStringLiteral("DelayTime=15m")}),
                 Command::Success);
        QVERIFY2(options.out.contains(QStringLiteral("VisaPassword=on\n")), qPrintable(options.out));
        QVERIFY(VisaOption::fromXml(TestStore::text(options.stored())));
        QCOMPARE(options.set({QStringLiteral("VisaPassword=off")}), Command::Success);
        QVERIFY(!VisaOption::fromXml(TestStore::text(options.stored())));
        QVERIFY(options.out.contains(QStringLiteral("DelayTime=15m\n")));
    }

    void otherContentIsPreserved()
    {
        Options options;
        options.put("<?xml version=\"1.0\"?><!-- \xEF\xEE\xF0\xFF\xE4\xEE\xEA --><OperLog><Other a=\"\xF4\"/>"
                    "<Options CheckLengthShift=\"1\" Colour=\"red\" DelayTime=\"60\"/></OperLog>");
        QCOMPARE(options.set({QStringLiteral("IntervalMessage=1h30m5s"), QStringLiteral("DelayTime=2ч")}),
                 Command::Success);
        QCOMPARE(options.out, QStringLiteral("CheckLengthShift=on\nDelayTime=2h\nIntervalMessage="
                                             "1h30m5s\nVisaPassword=off\nLongestShift=48h\n"));
        const QString text = TestStore::text(options.stored());
        QVERIFY2(text.contains(QStringLiteral("<!-- порядок -->")), qPrintable(text));
        QVERIFY(text.contains(QStringLiteral("<Other a=\"ф\"/>")));
        QVERIFY(text.contains(QStringLiteral("Colour=\"red\"")));
        QVERIFY(text.contains(QStringLiteral("DelayTime=\"7200\"")));
        QCOMPARE(text.count(QStringLiteral("<Options")), 1);
    }

    void theLongestShiftIsAPropertyOfTheStore()
    {
        Options options;
        QCOMPARE(options.set({QStringLiteral("LongestShift=36h")}), Command::Success);
        QVERIFY(options.out.endsWith(QStringLiteral("LongestShift=36h\n")));
        QVERIFY(options.stored().isNull());
        QCOMPARE(options.list(), Command::Success);
        QVERIFY(options.out.endsWith(QStringLiteral("LongestShift=36h\n")));
        StoreError error;
        QCOMPARE(Store::open(options.url, {}, &error)->longestShift(), 36 * 3600);
        QCOMPARE(options.set({QStringLiteral("LongestShift=0")}), Command::WrongUsage);
        QCOMPARE(options.set({QStringLiteral("LongestShift=12h30m"), QStringLiteral("DelayTime=5m")}),
                 Command::Success);
        QVERIFY(options.stored().contains("DelayTime=\"300\""));
        QVERIFY(!options.stored().contains("LongestShift"));
        QVERIFY(options.out.endsWith(QStringLiteral("LongestShift=12h30m\n")));
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

    void reportsAndKeepsABrokenFile()
    {
        Options options;
        const QByteArray broken = "<OperLog>\n<Options CheckLengthShift=\"1\"/>\n</Oper>";
        options.put(broken);
        QCOMPARE(options.list(), Command::Failed);
        QVERIFY2(options.err.contains(QStringLiteral("испорчен, строка 3")), qPrintable(options.err));
        QCOMPARE(options.set({QStringLiteral("DelayTime=5m")}), Command::Failed);
        QCOMPARE(options.stored(), broken);
    }

    void reportsValuesThatTheJournalReadsAsZero()
    {
        Options options;
        options.put("<Options CheckLengthShift=\"1\" DelayTime=\"soon\" IntervalMessage=\"60\"/>");
        QCOMPARE(options.list(), Command::Success);
        QCOMPARE(options.out, QStringLiteral("CheckLengthShift=on\nDelayTime=0s\nIntervalMessage="
                                             "1m\nVisaPassword=off\nLongestShift=48h\n"));
        QVERIFY(options.err.contains(QStringLiteral("DelayTime: «soon» не число")));
        QVERIFY(options.err.contains(QStringLiteral("молчит")));
    }

    // Mistyped shifts

    void shiftsThatMayBeCorrectedAreListed()
    {
        Shifts shifts;
        QCOMPARE(shifts.call("shift", {QStringLiteral("list")}), Command::Success);
        for (const char* key : {"SHIFT_CDS_OPEN", "SHIFT_ZAR_OPEN"})
            QVERIFY2(shifts.out.contains(QStringLiteral("  %1  открыта  ").arg(QLatin1String(key))),
                     qPrintable(shifts.out));
        QVERIFY(!shifts.out.contains(QStringLiteral("SHIFT_CDS_PAST")));
        QVERIFY(shifts.out.contains(QStringLiteral("ОДС:\n")));
        TestStore::write(shifts.store.openLoader().get(), "LogbookWorkshifts", ROW_UPDATE, "SHIFT_CDS_OPEN",
                         {{"CloseWorkerKey", "WORKER_IVANOV"}});
        QCOMPARE(shifts.call("shift", {QStringLiteral("list")}), Command::Success);
        QVERIFY(shifts.out.contains(QStringLiteral("  SHIFT_CDS_OPEN  закрыта  ")));
    }

    void mistypedEndOfAShiftIsMended()
    {
        Shifts shifts;
        const double start = shifts.number("startTime");
        shifts.load({{"endTime", start + 40 * 365 * 86400.0}});
        QCOMPARE(shifts.call("check", {QStringLiteral("--ready")}), Command::FaultsFound);
        QVERIFY2(shifts.out.contains(QStringLiteral("vrk-admin shift URL correct SHIFT_CDS_OPEN")),
                 qPrintable(shifts.out));
        QCOMPARE(shifts.call("check"), Command::Success); // a note
        QVERIFY(shifts.out.contains(QStringLiteral("SHIFT_CDS_OPEN")));

        const QDateTime end = QDateTime::fromSecsSinceEpoch(qint64(start) / 60 * 60).addSecs(12 * 3600);
        QCOMPARE(shifts.correct({QStringLiteral("--end"), end.toString(QStringLiteral("dd.MM.yyyy hh:mm")),
                                 QStringLiteral("--reason"), QStringLiteral("  опечатка\nв годе: 2066 ")}),
                 Command::Success);
        QCOMPARE(shifts.number("endTime"), double(end.toSecsSinceEpoch()));
        QCOMPARE(shifts.number("startTime"), start);
        // The log keeps role, time and reason; the list shows it.
        QCOMPARE(shifts.store
                     .value(QStringLiteral("SELECT L.rowKey || T.loader FROM ChangeTransactions AS T JOIN "
                                           "ChangeLog AS L ON L.number = T.number WHERE T.batchKey LIKE "
                                           "'%опечатка в годе: 2066'"))
                     .toString(),
                 QStringLiteral("SHIFT_CDS_OPEN1"));
        QCOMPARE(shifts.call("shift", {QStringLiteral("list")}), Command::Success);
        QVERIFY2(shifts.out.contains(QStringLiteral(": опечатка в годе: 2066\n")), qPrintable(shifts.out));
        QCOMPARE(shifts.out.count(QStringLiteral("опечатка")), 1); // below this shift only
        QCOMPARE(shifts.call("check", {QStringLiteral("--ready")}),
                 Command::FaultsFound); // ОДС has no timetable
        QVERIFY(!shifts.out.contains(QStringLiteral("SHIFT_CDS_OPEN")));
    }

    void impossibleCorrectionsAreRefused_data()
    {
        QTest::addColumn<QString>("arguments"); // separated by "|"
        QTest::addColumn<QString>("refusal");
        const auto row = [](const char* arguments, const char* refusal) {
            QTest::newRow(arguments) << QString::fromUtf8(arguments) << QString::fromUtf8(refusal);
        };
        row("SHIFT_NONE|--end|01.01.2001 08:00|--reason|x", "Смены «SHIFT_NONE» нет");
        row("SHIFT_CDS_PAST|--end|01.01.2001 08:00|--reason|x", "только открытую или последнюю");
        row("SHIFT_CDS_OPEN|--end|01.01.2001 08:00|--reason|x", "раньше её конца");
        row("SHIFT_CDS_OPEN|--end|01.01.2101 08:00|--reason|x", "длиннее разрешённого");
        row("SHIFT_CDS_OPEN|--end|32.01.2001 08:00|--reason|x", "не время вида");
        row("SHIFT_CDS_OPEN|--end|08:00|--reason|x", "не время вида");
        row("SHIFT_CDS_OPEN|--end|01.01.2001 08:00|--reason| ", "почему смена исправляется");
        row("SHIFT_CDS_OPEN|--start|$past|--reason|x", "другая смена: SHIFT_CDS_PAST");
        row("SHIFT_CDS_OPEN|--start|$start|--reason|x", "уже начинается и кончается");
    }
    void impossibleCorrectionsAreRefused()
    {
        QFETCH(QString, arguments);
        QFETCH(QString, refusal);
        Shifts shifts;
        const double start = qint64(shifts.number("startTime")) / 60 * 60;
        shifts.load({{"startTime", start}});
        const auto shown = [](double time) {
            return QDateTime::fromSecsSinceEpoch(qint64(time)).toString(QStringLiteral("dd.MM.yyyy hh:mm"));
        };
        arguments.replace(QStringLiteral("$past"), shown(start - 3600))
            .replace(QStringLiteral("$start"), shown(start));
        const QString changes = QStringLiteral("SELECT count(*) FROM ChangeTransactions");
        const QVariant before = shifts.store.value(changes);
        QCOMPARE(
            shifts.call("shift", QStringList{QStringLiteral("correct")} + arguments.split(QLatin1Char('|'))),
            Command::Failed);
        QVERIFY2(shifts.err.contains(refusal), qPrintable(shifts.err));
        QCOMPARE(shifts.store.value(changes), before);
    }

    void aCorrectedShiftMayHaveTheLongestLength()
    {
        Shifts shifts;
        shifts.load({{"startTime", 1e9 - 40}, {"endTime", 1e9 + 3600}}); // from 05:46
        QCOMPARE(shifts.call("option", {QStringLiteral("set"), QStringLiteral("LongestShift=12h")}),
                 Command::Success);
        const auto correct = [&](const char* end) {
            return shifts.correct({QStringLiteral("--end"), QLatin1String(end), QStringLiteral("--reason"),
                                   QStringLiteral("x")});
        };
        QCOMPARE(correct("09.09.2001 17:47"), Command::Failed);
        QVERIFY2(shifts.err.contains(QStringLiteral("длиннее разрешённого")), qPrintable(shifts.err));
        QVERIFY2(correct("09.09.2001 17:46") == Command::Success, qPrintable(shifts.err));
    }

    void aReasonIsKeptWholeOrRefused()
    {
        Shifts shifts;
        const auto correct = [&](int letters, const char* end) {
            return shifts.correct({QStringLiteral("--end"), QLatin1String(end), QStringLiteral("--reason"),
                                   QString(letters, QLatin1Char('x'))});
        };
        shifts.load({{"startTime", 1e9}, {"endTime", 1e9 + 3600}});
        QCOMPARE(correct(501, "09.09.2001 10:00"), Command::Failed);
        QVERIFY(shifts.err.contains(QStringLiteral("длиннее 500 знаков")));
        QCOMPARE(correct(500, "09.09.2001 10:00"), Command::Success);
        QVERIFY(shifts.out.contains(QString(500, QLatin1Char('x'))));
    }

    void wrongArgumentsGetTheUsage()
    {
        Shifts shifts;
        for (const char* wrong :
             {"", "correct", "correct SHIFT_CDS_OPEN", "correct SHIFT_CDS_OPEN --reason x",
              "correct SHIFT_CDS_OPEN --end 1", "correct --end 1 --reason x", "list extra",
              "correct A B --end 1 --reason x", "correct A --end 1 --reason",
              "correct A --end 1 --end 2 --reason x", "correct A --by x --reason x"}) {
            QCOMPARE(
                shifts.call("shift", QString::fromLatin1(wrong).split(QLatin1Char(' '), Qt::SkipEmptyParts)),
                Command::WrongUsage);
            QVERIFY(shifts.err.contains(QStringLiteral("vrk-admin shift URL correct")));
        }
    }

    void tooLongTimetableIsNotReady()
    {
        Shifts shifts;
        QCOMPARE(shifts.call("option", {QStringLiteral("set"), QStringLiteral("LongestShift=11h")}),
                 Command::Success);
        QCOMPARE(shifts.call("check", {QStringLiteral("--ready")}), Command::FaultsFound);
        QCOMPARE(shifts.out.count(QStringLiteral("длиннее разрешённого (shifts.csv")), 3);
        shifts.call("option", {QStringLiteral("set"), QStringLiteral("LongestShift=12h")});
        shifts.call("check", {QStringLiteral("--ready")});
        QVERIFY2(!shifts.out.contains(QStringLiteral("длиннее")), qPrintable(shifts.out));
    }

    void reportsAMissingStore()
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
