#include "AdminRun.h"
#include "TestStore.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QRegularExpression>
#include <QTest>

/// The lists of vrk-admin for programs, on both engines.
class AdminJson_test : public QObject
{
    Q_OBJECT

private:
    struct Site : AdminRun {
        Site() { url = store.url(); }
        /// The list of a command; fails the program unless two parsers read it.
        QJsonArray list(const char* command, const QStringList& rest = {},
                        Command::ExitCode expected = Command::Success)
        {
            const Command::ExitCode code = call(command, rest + QStringList{QStringLiteral("--json")});
            if (code != expected)
                qFatal("%s: exit code %d: %s", command, code, qUtf8Printable(err));
            QProcess python;
            python.start(QStringLiteral("python3"), {QStringLiteral("-m"), QStringLiteral("json.tool")});
            python.write(out.toUtf8());
            python.closeWriteChannel();
            if (!python.waitForFinished() || python.exitCode() != 0)
                qFatal("%s: no JSON: %s", command, qUtf8Printable(out));
            QJsonParseError fault;
            const QJsonDocument document = QJsonDocument::fromJson(out.toUtf8(), &fault);
            if (!document.isArray())
                qFatal("%s: %s", command, qUtf8Printable(fault.errorString()));
            return document.array();
        }
        TestStore store;
    };
    /// The object whose field has this text.
    static QJsonObject with(const QJsonArray& list, const char* field, const char* text)
    {
        for (const QJsonValue& value : list)
            if (value.toObject().value(QLatin1String(field)).toString() == QString::fromUtf8(text))
                return value.toObject();
        return {};
    }
    static QStringList names(const QJsonObject& object) { return object.keys(); }
    static bool isTime(const QJsonValue& value)
    {
        static const QRegularExpression form(QStringLiteral("^\\d{4}-\\d\\d-\\d\\dT\\d\\d:\\d\\d:\\d\\dZ$"));
        return form.match(value.toString()).hasMatch();
    }
    static QDateTime moment(double time) { return QDateTime::fromSecsSinceEpoch(qint64(time), Qt::UTC); }

private slots:
    void usersAndTheirRights()
    {
        Site site;
        const QJsonObject ivanov = with(site.list("user", {QStringLiteral("list")}), "login", "ivanov");
        QCOMPARE(names(ivanov), (QStringList{QStringLiteral("login"), QStringLiteral("name")}));
        QVERIFY(ivanov.value(QStringLiteral("name")).toString().contains(QStringLiteral("Иванов")));
        const QStringList of{QStringLiteral("list"), QStringLiteral("sidorova")};
        QCOMPARE(site.list("right", of),
                 (QJsonArray{QJsonObject{{QStringLiteral("right"), QStringLiteral("ADMINISTRATOR")}}}));
        QCOMPARE(site.list("right", {QStringLiteral("list"), QStringLiteral("ivanov")}), QJsonArray());
    }

    void textListsAreUnchanged()
    {
        Site site;
        QCOMPARE(site.call("right", {QStringLiteral("list"), QStringLiteral("sidorova")}), Command::Success);
        QCOMPARE(site.out, QStringLiteral("ADMINISTRATOR\n"));
    }

    void wordsAndFiles()
    {
        Site site;
        QCOMPARE(site.list("words", {QStringLiteral("list")}), QJsonArray());
        QCOMPARE(site.call("words", {QStringLiteral("add"), QStringLiteral("телемех")}), Command::Success);
        QCOMPARE(site.list("words", {QStringLiteral("list")}),
                 (QJsonArray{QJsonObject{{QStringLiteral("word"), QStringLiteral("телемех")}}}));
        QCOMPARE(with(site.list("file", {QStringLiteral("list")}), "name", "words/ru").size(), 1);
    }

    void optionsHaveTypes()
    {
        Site site;
        QCOMPARE(site.call("option", {QStringLiteral("set"), QStringLiteral("VisaPassword=on"),
                                      QStringLiteral("DelayTime=15m")}),
                 Command::Success);
        const QJsonArray options = site.list("option", {QStringLiteral("list")});
        const QString value = QStringLiteral("value");
        QCOMPARE(options.size(), 5);
        QCOMPARE(with(options, "name", "VisaPassword").value(value), QJsonValue(true));
        QCOMPARE(with(options, "name", "CheckLengthShift").value(value), QJsonValue(false));
        QCOMPARE(with(options, "name", "DelayTime").value(value), QJsonValue(900));
        QCOMPARE(with(options, "name", "LongestShift").value(value), QJsonValue(172800));
    }

    void shiftsHaveTheirTimesInUtc()
    {
        Site site;
        QCOMPARE(site.call("shift", {QStringLiteral("correct"), QStringLiteral("SHIFT_CDS_OPEN"),
                                     QStringLiteral("--end"),
                                     QDateTime::fromSecsSinceEpoch(qint64(TestStore::now()) + 7200)
                                         .toString(QStringLiteral("d.M.yyyy h:mm")),
                                     QStringLiteral("--reason"), QStringLiteral("опечатка")}),
                 Command::Success);
        const QJsonObject shift = with(site.list("shift", {QStringLiteral("list")}), "key", "SHIFT_CDS_OPEN");
        QCOMPARE(shift.value(QStringLiteral("open")), QJsonValue(true));
        QVERIFY(shift.value(QStringLiteral("department")).toString().contains(QStringLiteral("ЦДС")));
        QVERIFY(isTime(shift.value(QStringLiteral("start"))));
        const double start =
            site.store
                .value(QStringLiteral(
                    "SELECT startTime FROM LogbookWorkshifts WHERE KeyLink = 'SHIFT_CDS_OPEN'"))
                .toDouble();
        QCOMPARE(QDateTime::fromString(shift.value(QStringLiteral("start")).toString(), Qt::ISODate),
                 moment(start));
        const QJsonArray corrections = shift.value(QStringLiteral("corrections")).toArray();
        QCOMPARE(corrections.size(), 1);
        QCOMPARE(corrections.at(0).toObject().value(QStringLiteral("reason")).toString(),
                 QStringLiteral("опечатка"));
        QVERIFY(isTime(corrections.at(0).toObject().value(QStringLiteral("time"))));
    }

    void historyKeepsTheTypesOfValues()
    {
        Site site;
        const auto petrov = site.store.open(QStringLiteral("petrov"));
        QVERIFY(TestStore::write(petrov.get(), "LogbookRecords", ROW_UPDATE, "REC_DRAFT_PETROV",
                                 {{"html", "строка\nвторая \"в кавычках\""}}));
        const QJsonArray changes = site.list("history", {QStringLiteral("REC_DRAFT_PETROV")});
        QCOMPARE(changes.size(), 2);
        const QJsonObject change = changes.at(1).toObject();
        QCOMPARE(change.value(QStringLiteral("event")).toString(), QStringLiteral("changed"));
        QCOMPARE(change.value(QStringLiteral("login")).toString(), QStringLiteral("petrov"));
        QCOMPARE(change.value(QStringLiteral("table")).toString(), QStringLiteral("LogbookRecords"));
        QCOMPARE(change.value(QStringLiteral("signature")), QJsonValue(QJsonValue::Null));
        QVERIFY(isTime(change.value(QStringLiteral("time"))));
        QVERIFY(change.value(QStringLiteral("transaction")).toInt() > 0);
        const QJsonArray fields = change.value(QStringLiteral("changes")).toArray();
        QCOMPARE(with(fields, "field", "html").value(QStringLiteral("after")).toString(),
                 QStringLiteral("строка\nвторая \"в кавычках\""));
        const QJsonArray first = changes.at(0).toObject().value(QStringLiteral("changes")).toArray();
        QCOMPARE(with(first, "field", "status").value(QStringLiteral("after")), QJsonValue(1));
        QCOMPARE(with(first, "field", "status").value(QStringLiteral("before")),
                 QJsonValue(QJsonValue::Null));
        QVERIFY(isTime(with(first, "field", "recordTime").value(QStringLiteral("after"))));
    }

    void historyNamesSignatures()
    {
        Site site;
        const auto sidorova = site.store.open(QStringLiteral("sidorova"));
        QVERIFY(TestStore::write(sidorova.get(), "LogbookRecords", ROW_UPDATE, "REC_ORDER",
                                 {{"VisaWorkerKey", "WORKER_SIDOROVA"}}));
        const QJsonArray changes = site.list("history", {QStringLiteral("REC_ORDER")});
        const QJsonObject signature = changes.last().toObject().value(QStringLiteral("signature")).toObject();
        QCOMPARE(signature.value(QStringLiteral("state")).toString(), QStringLiteral("signed"));
        QCOMPARE(signature.value(QStringLiteral("login")).toString(), QStringLiteral("sidorova"));
        QVERIFY(isTime(signature.value(QStringLiteral("time"))));
    }

    void findingsHaveTheirGrade()
    {
        Site site;
        QVERIFY(!site.list("check", {QStringLiteral("--ready")}, Command::FaultsFound).isEmpty());
        QVERIFY(with(site.list("check"), "grade", "fault").isEmpty());
        if (!TestStore::isSqlite())
            return; // the store of a server refuses the damage
        QCOMPARE(site.store.exec(QStringLiteral("DROP TRIGGER Rule_Records_update")), QString());
        const QJsonArray findings = site.list("check", {}, Command::FaultsFound);
        QVERIFY(!with(findings, "grade", "fault").value(QStringLiteral("text")).toString().isEmpty());
    }

    void symptomsHaveCures()
    {
        Site site;
        site.url = QStringLiteral("sqlite:///nowhere/at/all.sqlite");
        const QJsonArray symptoms = site.list("doctor", {}, Command::FaultsFound);
        QVERIFY(!symptoms.isEmpty());
        QCOMPARE(names(symptoms.at(0).toObject()),
                 (QStringList{QStringLiteral("cure"), QStringLiteral("fault")}));
    }

    void sheetsAreCounted()
    {
        Site site;
        const QJsonObject people = with(site.list("export", {site.sheets}), "file", "users.csv");
        QCOMPARE(people.value(QStringLiteral("rows")),
                 QJsonValue(site.store.value(QStringLiteral("SELECT count(*) FROM Users")).toInt()));
        site.sheet("roles.csv", QStringLiteral("Подразделение;Название\nЦДС;Стажёр\n").toUtf8());
        const QJsonObject roles =
            with(site.list("import", {site.sheets, QStringLiteral("--dry-run")}), "file", "roles.csv");
        QCOMPARE(roles.value(QStringLiteral("added")).toArray().size(), 1);
        QVERIFY(!roles.value(QStringLiteral("missing")).toArray().isEmpty());
    }

    void onlyListsHaveThisForm()
    {
        Site site;
        const QString json = QStringLiteral("--json");
        QCOMPARE(site.call("user", {QStringLiteral("remove"), QStringLiteral("viewer"), json}),
                 Command::WrongUsage);
        QCOMPARE(site.call("right", {QStringLiteral("grant"), QStringLiteral("viewer"),
                                     QStringLiteral("ADMINISTRATOR"), json}),
                 Command::WrongUsage);
        QCOMPARE(site.call("words", {QStringLiteral("add"), QStringLiteral("слово"), json}),
                 Command::WrongUsage);
        QCOMPARE(site.call("option", {QStringLiteral("set"), QStringLiteral("VisaPassword=on"), json}),
                 Command::WrongUsage);
        QCOMPARE(site.call("history", {QStringLiteral("NOBODY"), json}), Command::Failed);
        QCOMPARE(site.out, QString());
        QVERIFY(!site.err.isEmpty());
    }
};

QTEST_GUILESS_MAIN(AdminJson_test)
#include "AdminJson_test.moc"
