#include "Csv.h"
#include "Reports.h"

#include <QApplication>
#include <QDate>
#include <QRegularExpression>
#include <QTest>

/// Signs that mean something in HTML, in a template's markup and in a spreadsheet.
static const QString hostile = QStringLiteral("<script>alert(1)</script>&\"'<img src=x onerror=y>");

class ReportCommand_test : public QObject
{
    Q_OBJECT

    /// The row of a page's table that contains a text.
    static QString rowWith(const QString& page, const QString& text)
    {
        const QRegularExpression row(
            QStringLiteral("<tr>(?:(?!</tr>).)*%1(?:(?!</tr>).)*</tr>").arg(QRegularExpression::escape(text)),
            QRegularExpression::DotMatchesEverythingOption);
        return row.match(page).captured();
    }

private slots:
    void aShiftIsPrintedAsInTheJournal()
    {
        const TestStore store;
        QCOMPARE(Reports::seal(store), QString());
        Reports reports(store);
        QVERIFY2(reports.call("shift", QStringLiteral("a.pdf"), {QStringLiteral("--open")}) ==
                     ReportCommand::Success,
                 qPrintable(reports.err));
        QCOMPARE(reports.out, QStringLiteral("Записано: %1\n").arg(reports.path(QStringLiteral("a.pdf"))));
        const QString text = reports.printed(QStringLiteral("a.pdf"));
        for (const char* part :
             {"Иванов И. И.", "Страница 1 из 1", "Опечатано: 12 abababababababab", "ЦДС,",
              "Открыл Иванов И. И., смена открыта", "Состав смены: Иванов И. И., Петров П. П.", "Смена "})
            QVERIFY2(text.contains(QString::fromUtf8(part)), qPrintable(text));
        QVERIFY2(!text.contains(QStringLiteral("Статус")), qPrintable(text));
        QCOMPARE(reports.files(), QStringList{QStringLiteral("a.pdf")});
    }

    void aPageHasTheSameRecordsAndTheSeal()
    {
        const TestStore store;
        QCOMPARE(Reports::seal(store), QString());
        Reports reports(store);
        QCOMPARE(reports.call("shift", QStringLiteral("a.html"), {QStringLiteral("--open")}),
                 ReportCommand::Success);
        QCOMPARE(reports.checked(QStringLiteral("a.html"), {QStringLiteral("Иванов И. И.")}),
                 QStringLiteral("1 pages"));
        QCOMPARE(reports.text(QStringLiteral("a.html")).count(QStringLiteral("<tr><td")),
                 5); // the approved records
        QVERIFY(reports.text(QStringLiteral("a.html"))
                    .contains(QStringLiteral("Опечатано: 12 abababababababab")));
        QVERIFY(!reports.text(QStringLiteral("a.html")).contains(QStringLiteral("class=\"code\"")));
        QCOMPARE(reports.call("shift", QStringLiteral("b.html"),
                              {QStringLiteral("--open"), QStringLiteral("--all"), QStringLiteral("--code")}),
                 ReportCommand::Success);
        const QString all = reports.text(QStringLiteral("b.html"));
        QCOMPARE(all.count(QStringLiteral("<tr><td")), 8);
        QVERIFY(all.contains(QStringLiteral("aria-label=\"Черновик\"")));
        QVERIFY(all.contains(QStringLiteral("<s>"))); // deleted
        QVERIFY(all.contains(QStringLiteral("class=\"code\"")));
    }

    void aTableOpensInASpreadsheet()
    {
        const TestStore store;
        Reports reports(store);
        QCOMPARE(reports.call("shift", QStringLiteral("a.csv"),
                              {QStringLiteral("--open"), QStringLiteral("--all")}),
                 ReportCommand::Success);
        QVector<Csv::Row> rows;
        QString error;
        QVERIFY(Csv::read(reports.bytes(QStringLiteral("a.csv")), &rows, &error));
        QCOMPARE(rows.size(), 9);
        QCOMPARE(rows[0].cells.mid(0, 3),
                 QStringList({QStringLiteral("Статус"), QStringLiteral("Время записи"),
                              QStringLiteral("Время события")}));
        QCOMPARE(rows[1].cells[0], QStringLiteral("Утверждена"));
        QCOMPARE(rows[1].cells[1].size(), 16); // with the date: there are no day lines here
        QCOMPARE(rows[2].cells[4], QStringLiteral("←"));
    }

    void textsOfRecordsAreNeverMarkup()
    {
        const TestStore store;
        const auto ivanov = store.open(QStringLiteral("ivanov"));
        QVERIFY(TestStore::write(ivanov.get(), "LogbookRecords", ROW_INSERT, "REC_HOSTILE",
                                 {{"ShiftKey", "SHIFT_CDS_OPEN"},
                                  {"WorkerKey", "WORKER_IVANOV"},
                                  {"status", 1},
                                  {"recordTime", TestStore::now()},
                                  {"eventTime", TestStore::now()},
                                  {"html", hostile.toHtmlEscaped()}}));
        Reports reports(store);
        QCOMPARE(reports.call("shift", QStringLiteral("a.html"),
                              {QStringLiteral("--open"), QStringLiteral("--all")}),
                 ReportCommand::Success);
        QCOMPARE(reports.checked(QStringLiteral("a.html"), {hostile}), QStringLiteral("1 pages"));
    }

    void notesStandAtTheirOwnRecord()
    {
        const TestStore store;
        Reports reports(store);
        QCOMPARE(
            reports.call("period", QStringLiteral("a.html"),
                         {QStringLiteral("--from"), QStringLiteral("01.01.2020"), QStringLiteral("--all")}),
            ReportCommand::Success);
        const QString page = reports.text(QStringLiteral("a.html"));
        QVERIFY(page.contains(QStringLiteral("<tr class=\"day\">")));
        // Each in the row of the text that it belongs to.
        const QString found = rowWith(page, QStringLiteral("Уточните период смены"));
        QVERIFY2(found.contains(QStringLiteral("Смену принял")), qPrintable(found));
        QCOMPARE(page.count(QStringLiteral("<ul class=\"notes\">")), 4);
    }

    void findsTheWantedShift()
    {
        const TestStore store;
        Reports reports(store);
        const auto printed = [&](const QStringList& options) {
            const auto code = reports.call("shift", QStringLiteral("a.html"),
                                           options + QStringList{QStringLiteral("--force")});
            return code == ReportCommand::Success ? reports.text(QStringLiteral("a.html")) : reports.err;
        };
        const QString past = QStringLiteral("закрыл Иванов И. И.");
        QVERIFY(printed({}).contains(past)); // the last closed one
        QVERIFY(printed({QStringLiteral("--key"), QStringLiteral("SHIFT_CDS_PAST")}).contains(past));
        QVERIFY(printed({QStringLiteral("--open")}).contains(QStringLiteral("смена открыта")));
        const QDateTime now = QDateTime::fromSecsSinceEpoch(qint64(TestStore::now()));
        const QString format = QStringLiteral("dd.MM.yyyy hh:mm");
        QVERIFY(printed({QStringLiteral("--at"), now.toString(format)})
                    .contains(QStringLiteral("смена открыта")));
        QVERIFY(printed({QStringLiteral("--at"), now.addSecs(-10 * 3600).toString(format)}).contains(past));
        QCOMPARE(printed({QStringLiteral("--at"), QStringLiteral("01.01.2001 00:00")}),
                 QStringLiteral("Такой смены нет.\n"));
    }

    void aPeriodHasTheRecordsOfItsDays()
    {
        const TestStore store;
        Reports reports(store);
        const QDate day = QDateTime::fromSecsSinceEpoch(qint64(TestStore::now())).date();
        const QString format = QStringLiteral("dd.MM.yyyy");
        QVERIFY2(reports.call("period", QStringLiteral("a.html"),
                              {QStringLiteral("--from"), day.addDays(-3).toString(format),
                               QStringLiteral("--to"), day.toString(format)}) == ReportCommand::Success,
                 qPrintable(reports.err));
        const QString page = reports.text(QStringLiteral("a.html"));
        QCOMPARE(page.count(QStringLiteral("<tr><td")), 7); // of both shifts
        QVERIFY(page.contains(QStringLiteral("<tr class=\"day\">")));
        QVERIFY(page.contains(QStringLiteral("%1 00:00 - %2 23:59")
                                  .arg(day.addDays(-3).toString(format), day.toString(format))));
        QCOMPARE(reports.call("period", QStringLiteral("b.html"),
                              {QStringLiteral("--day"), QStringLiteral("01.02.2001")}),
                 ReportCommand::Success);
        QCOMPARE(reports.text(QStringLiteral("b.html")).count(QStringLiteral("<tr><td")), 0);
    }

    void aSearchFindsRecordsOfAllShifts()
    {
        const TestStore store;
        Reports reports(store);
        QVERIFY2(reports.run({QStringLiteral("search"), reports.url, reports.path(QStringLiteral("a.html")),
                              QStringLiteral("--words"), QStringLiteral("команда")}) ==
                     ReportCommand::Success,
                 qPrintable(reports.err));
        const QString page = reports.text(QStringLiteral("a.html"));
        QVERIFY2(page.contains(QStringLiteral("Поиск по архиву: команда, Все подразделения")),
                 qPrintable(page));
        const int all = page.count(QStringLiteral("<tr><td"));
        QVERIFY(all > 1);
        QVERIFY(page.contains(QStringLiteral("Найдено записей: %1").arg(all)));
        QVERIFY2(rowWith(page, QStringLiteral("Ольховка")).contains(QStringLiteral("Исполнение доложить")),
                 qPrintable(page));
        QCOMPARE(page.count(QStringLiteral("<ul class=\"notes\">")), 1);
        QCOMPARE(reports.run({QStringLiteral("search"), reports.url, reports.path(QStringLiteral("b.html")),
                              QStringLiteral("--words"), QStringLiteral("команда"), QStringLiteral("--limit"),
                              QStringLiteral("1")}),
                 ReportCommand::Success);
        QCOMPARE(reports.text(QStringLiteral("b.html")).count(QStringLiteral("<tr><td")), 1);
        QVERIFY(reports.text(QStringLiteral("b.html"))
                    .contains(QStringLiteral("Показаны последние 1, есть и более ранние")));
    }

    void aHandoverNamesWhatIsUnfinished()
    {
        const TestStore store;
        Reports reports(store);
        QVERIFY2(reports.call("handover", QStringLiteral("a.html")) == ReportCommand::Success,
                 qPrintable(reports.err));
        const QString page = reports.text(QStringLiteral("a.html"));
        QVERIFY2(page.contains(QStringLiteral("<h1>Сдача смены: ЦДС")), qPrintable(page));
        QVERIFY(page.contains(QStringLiteral("смена открыта")));
        QVERIFY(page.contains(QStringLiteral("Состав смены: Иванов И. И., Петров П. П.")));
        QVERIFY(page.contains(QStringLiteral("Время выполнения<br>Второй маркер"))); // REC_ORDER
        QVERIFY(rowWith(page, QStringLiteral("Ольховка")).contains(QStringLiteral("Исполнение доложить")));
        QVERIFY(!page.contains(QStringLiteral("Черновик"))); // the crew still works on its drafts
        QCOMPARE(reports.checked(QStringLiteral("a.html")), QStringLiteral("1 pages"));
        QCOMPARE(reports.call("handover", QStringLiteral("a.pdf")), ReportCommand::Success);
        QVERIFY(reports.printed(QStringLiteral("a.pdf")).contains(QStringLiteral("Сдача смены: ЦДС")));
    }

    void aFileIsReplacedOnlyByForceOrInAFolder()
    {
        const TestStore store;
        Reports reports(store);
        QFile file(reports.path(QStringLiteral("a.html")));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write("mine") == 4);
        file.close();
        QCOMPARE(reports.call("shift", QStringLiteral("a.html")), ReportCommand::Failed);
        QVERIFY2(reports.err.contains(QStringLiteral("он уже есть, заменяет его --force")),
                 qPrintable(reports.err));
        QCOMPARE(reports.bytes(QStringLiteral("a.html")), QByteArray("mine"));
        QCOMPARE(reports.call("shift", QStringLiteral("a.html"), {QStringLiteral("--force")}),
                 ReportCommand::Success);
        QVERIFY(reports.bytes(QStringLiteral("a.html")).startsWith("<!DOCTYPE html>"));

        for (int i = 0; i < 2; ++i)
            QVERIFY2(reports.call("shift", QString(), {QStringLiteral("--format"), QStringLiteral("csv")}) ==
                         ReportCommand::Success,
                     qPrintable(reports.err));
        const QStringList tables =
            QDir(reports.folder.path()).entryList({QStringLiteral("ЦДС 20*-*-* *.csv")});
        QCOMPARE(tables.size(), 1);
        QCOMPARE(reports.files().size(), 2);
    }

    void aFailureLeavesNothingBehind()
    {
        const TestStore store;
        Reports reports(store);
        const auto fails = [&](const QStringList& arguments, const char* reason) {
            const auto code = reports.run(arguments);
            return code == ReportCommand::Failed && reports.err.contains(QString::fromUtf8(reason)) &&
                   reports.files().isEmpty();
        };
        const QString file = reports.path(QStringLiteral("a.pdf"));
        const QString shift = QStringLiteral("shift");
        QVERIFY2(fails({shift, reports.url, file}, "Смены ведут несколько подразделений"),
                 qPrintable(reports.err));
        QVERIFY2(fails({shift, reports.url, file, QStringLiteral("--department"), QStringLiteral("Нет")},
                       "Подразделения «Нет» нет. Есть:"),
                 qPrintable(reports.err));
        QVERIFY2(fails({shift, QStringLiteral("sqlite:///nowhere/a.sqlite"), file}, "/nowhere/a.sqlite"),
                 qPrintable(reports.err));
        QVERIFY2(fails({shift, reports.url, reports.path(QStringLiteral("no/a.pdf")),
                        QStringLiteral("--department"), QStringLiteral("ЦДС")},
                       "не записан: папки"),
                 qPrintable(reports.err));
    }

    void wrongArgumentsAreNamedWithTheUsage()
    {
        const TestStore store;
        Reports reports(store);
        const auto refuses = [&](const char* command, const QStringList& rest, const char* reason) {
            const auto code = reports.call(command, QStringLiteral("a.pdf"), rest);
            return code == ReportCommand::WrongUsage && reports.err.startsWith(QString::fromUtf8(reason)) &&
                   reports.err.contains(
                       QStringLiteral("\n\nvrk-report %1 URL FILE").arg(QLatin1String(command))) &&
                   reports.files().isEmpty();
        };
        QVERIFY2(refuses("shift", {QStringLiteral("--words")}, "Неизвестный параметр «--words»"),
                 qPrintable(reports.err));
        QVERIFY2(refuses("shift", {QStringLiteral("more")}, "Лишнее: «more»."), qPrintable(reports.err));
        QVERIFY2(refuses("shift", {QStringLiteral("--at"), QStringLiteral("noon")}, "Не время: «noon»"),
                 qPrintable(reports.err));
        QVERIFY2(
            refuses("shift", {QStringLiteral("--format"), QStringLiteral("csv")}, "Вид «csv» не подходит"),
            qPrintable(reports.err));
        QVERIFY2(refuses("period", {}, "Назовите время"), qPrintable(reports.err));
        QVERIFY2(refuses("period", {QStringLiteral("--day"), QStringLiteral("soon")}, "Назовите один день"),
                 qPrintable(reports.err));
        QVERIFY2(refuses("period",
                         {QStringLiteral("--from"), QStringLiteral("02.01.2026"), QStringLiteral("--to"),
                          QStringLiteral("01.01.2026")},
                         "Конец раньше начала"),
                 qPrintable(reports.err));
        QVERIFY2(refuses("search", {}, "Назовите, что искать"), qPrintable(reports.err));
        QVERIFY2(refuses("handover", {QStringLiteral("--days"), QStringLiteral("0")}, "Не число"),
                 qPrintable(reports.err));
        QCOMPARE(reports.run({QStringLiteral("shift"), reports.url, reports.path(QStringLiteral("a.doc"))}),
                 ReportCommand::WrongUsage);
        QCOMPARE(reports.run({QStringLiteral("print")}), ReportCommand::WrongUsage);
        QCOMPARE(reports.run({}), ReportCommand::WrongUsage);
        QCOMPARE(reports.run({QStringLiteral("--help")}), ReportCommand::Success);
        QVERIFY(reports.out.contains(QStringLiteral("Код завершения")));
    }

    void theStoreStaysAsItWas()
    {
        const TestStore store;
        if (!TestStore::isSqlite())
            QSKIP("a server writes its own files");
        const auto content = [&] {
            QFile file(store.path());
            return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
        };
        const QByteArray before = content();
        Reports reports(store);
        QCOMPARE(reports.call("handover", QStringLiteral("a.pdf")), ReportCommand::Success);
        QCOMPARE(reports.call("period", QStringLiteral("b.csv"),
                              {QStringLiteral("--day"), QStringLiteral("today")}),
                 ReportCommand::Success);
        QVERIFY(!before.isEmpty() && content() == before);
    }
};

QTEST_MAIN(ReportCommand_test)
#include "ReportCommand_test.moc"
