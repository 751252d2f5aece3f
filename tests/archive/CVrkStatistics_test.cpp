#include "CVrkStatistics.h"

#include "../admin/AdminRun.h"
#include "ArchiveBench.h"
#include "Csv.h"
#include "EmptyHint.h"
#include "ExpectedWarning.h"
#include "FailingStore.h"
#include "FiguresModel.h"
#include "ListOutput.h"

#include <QAction>
#include <QComboBox>
#include <QDateEdit>
#include <QLabel>
#include <QProgressBar>
#include <QSpinBox>

/// The window "Статистика", on both engines.
class CVrkStatistics_test : public QObject
{
    Q_OBJECT

    std::unique_ptr<ArchiveBench<CVrkStatistics>> m_bench;
    std::shared_ptr<FailingStore::Plan> m_plan;

    QTableView* table() { return m_bench->child<QTableView>("figuresTable"); }
    QString summary() { return m_bench->child<QLabel>("summaryLabel")->text(); }
    QAction* action(const char* name) { return m_bench->child<QAction>(name); }
    bool isReading() { return action("stopAction")->isEnabled(); }
    QComboBox* periods() { return m_bench->child<QComboBox>("periodCombo"); }
    void choose(const char* combo, const QString& text)
    {
        auto* box = m_bench->child<QComboBox>(combo);
        const int place = box->findText(text, Qt::MatchStartsWith);
        QVERIFY2(place >= 0, qPrintable(text));
        box->setCurrentIndex(place);
        QTRY_VERIFY(!isReading());
    }
    void choose(const QDate& first, const QDate& last)
    {
        m_bench->child<QDateEdit>("fromEdit")->setDate(first);
        m_bench->child<QDateEdit>("toEdit")->setDate(last);
        QTRY_VERIFY(!isReading());
    }
    void start()
    {
        m_bench->start();
        QTRY_VERIFY(!isReading());
    }
    void startOnFailing()
    {
        m_plan = std::make_shared<FailingStore::Plan>();
        m_bench->startOn(
            std::make_unique<FailingStore>(m_bench->store.open(QStringLiteral("ivanov")), m_plan));
        QTRY_VERIFY(!isReading());
    }
    /// Does something from the event loop, behind the select of this number from now on.
    void afterSelect(int number, const std::function<void()>& what)
    {
        m_plan->selects.clear();
        m_plan->onSelect = [this, number, what] {
            if (m_plan->selects.size() == number)
                QMetaObject::invokeMethod(this, what, Qt::QueuedConnection);
        };
    }
    /// Heading, name, count, total of each row, as a table saved from the window has them.
    QVector<QStringList> rows()
    {
        QVector<QStringList> all = ListOutput::rowsOf(table());
        all.removeFirst();
        for (QStringList& row : all)
            row.removeLast();
        std::sort(all.begin(), all.end());
        return all;
    }
    QVector<QStringList> rowsOfTheCommand(const QStringList& options)
    {
        AdminRun admin;
        admin.url = m_bench->store.url();
        const QString path = admin.path(QStringLiteral("figures.csv"));
        if (admin.call("stats", options + QStringList{QStringLiteral("--csv"), path}) != Command::Success)
            qFatal("%s", qUtf8Printable(admin.err));
        QVector<Csv::Row> read;
        QString error;
        if (!Csv::read(admin.bytes(QStringLiteral("figures.csv")), &read, &error))
            qFatal("%s", qUtf8Printable(error));
        QVector<QStringList> all;
        for (const Csv::Row& row : read.mid(1))
            all.append(row.cells);
        std::sort(all.begin(), all.end());
        return all;
    }
    /// "count/total" of the row with this heading and name.
    QString figure(const QString& heading, const QString& name = QString())
    {
        for (const QStringList& row : rows())
            if (row.at(0).startsWith(heading) && row.at(1) == name)
                return row.at(2) + QLatin1Char('/') + row.at(3);
        return {};
    }
    void setTime(const char* record, const QDateTime& time)
    {
        m_bench->write("LogbookRecords", ROW_UPDATE, record,
                       {{"recordTime", double(time.toSecsSinceEpoch())}});
    }

private slots:
    void init() { m_bench = std::make_unique<ArchiveBench<CVrkStatistics>>(); }
    void cleanup() { m_bench.reset(); }

    void itsFiguresAreThoseOfTheCommand()
    {
        setTime("REC_PAST_1", QDateTime(QDate(2024, 5, 5), QTime(12, 0)));
        m_bench->write("LogbookRecords", ROW_UPDATE, "REC_TRIP", {{"eventTime", TestStore::now() - 20 * 60}});
        start();
        choose("periodCombo", QStringLiteral("Всё время"));
        const QVector<QStringList> all = rows();
        QCOMPARE(all, rowsOfTheCommand({}));
        QCOMPARE(figure(QStringLiteral("Подразделения"), QStringLiteral("ЦДС")), QStringLiteral("7/8"));
        m_bench->child<QSpinBox>("lateSpin")->setValue(1);
        QTRY_VERIFY(!isReading());
        QCOMPARE(rows(), rowsOfTheCommand({QStringLiteral("--late"), QStringLiteral("1")}));
        QVERIFY(rows() != all);
        choose("departmentCombo", QStringLiteral("Заречная"));
        QCOMPARE(figure(QStringLiteral("Часы суток")).isNull(), true);
        QCOMPARE(rows(), rowsOfTheCommand({QStringLiteral("--late"), QStringLiteral("1"),
                                           QStringLiteral("--department"),
                                           QStringLiteral("Заречная диспетчерская группа")}));
        QVERIFY(summary().contains(QStringLiteral("Заречная")));
    }

    void departmentsOfOneNameAreCountedApart_data()
    {
        QTest::addColumn<QString>("organization");
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("twin");
        QTest::newRow("two organizations") << "ORG_CENTER"
                                           << "Электросети «Ключевой край» / ЦДС"
                                           << "ДЦ «Северная дуга» / ЦДС";
        QTest::newRow("one organization") << "ORG_NETS"
                                          << "DEP_CDS"
                                          << "DEP_TWIN";
    }
    void departmentsOfOneNameAreCountedApart()
    {
        QFETCH(QString, organization);
        QFETCH(QString, name);
        QFETCH(QString, twin);
        m_bench->write("Departments", ROW_INSERT, "DEP_TWIN",
                       {{"OrganizationKey", organization}, {"name_", QStringLiteral("ЦДС")}});
        m_bench->write("LogbookWorkshifts", ROW_UPDATE, "SHIFT_ZAR_OPEN", {{"DepartmentKey", "DEP_TWIN"}});
        start();
        choose("periodCombo", QStringLiteral("Всё время"));
        QCOMPARE(figure(QStringLiteral("Подразделения"), name), QStringLiteral("7/8"));
        QCOMPARE(figure(QStringLiteral("Подразделения"), twin), QStringLiteral("1/8"));
        QCOMPARE(rows(), rowsOfTheCommand({}));
    }

    void onlyTheOwnSignatureOfAShiftCounts()
    {
        const auto close = [this](const QString& login, const char* worker) {
            QVERIFY(TestStore::write(m_bench->store.open(login).get(), "LogbookWorkshifts", ROW_UPDATE,
                                     "SHIFT_CDS_OPEN", {{"CloseWorkerKey", worker}}));
        };
        close(QStringLiteral("ivanov"), "WORKER_IVANOV");
        m_bench->write("LogbookWorkshifts", ROW_UPDATE, "SHIFT_CDS_OPEN", {{"CloseWorkerKey", QVariant()}});
        close(QStringLiteral("ivanov"), "WORKER_IVANOV");
        QCOMPARE(m_bench->store
                     .value(QStringLiteral("SELECT COUNT(*) FROM LogSignatures WHERE meaning = 'closing'"))
                     .toInt(),
                 2);
        start();
        choose("periodCombo", QStringLiteral("Всё время"));
        QCOMPARE(figure(QStringLiteral("Подписано")), QStringLiteral("1/2"));
        choose("departmentCombo", QStringLiteral("Заречная"));
        QCOMPARE(figure(QStringLiteral("Подписано")), QStringLiteral("0/0"));
    }

    void daysOfThePeriodCountWhole()
    {
        const QDate day(2024, 5, 5);
        setTime("REC_PAST_1", QDateTime(day, QTime(0, 0)));
        setTime("REC_PAST_2", QDateTime(day, QTime(23, 59, 59)));
        setTime("REC_TRIP", QDateTime(day.addDays(1), QTime(0, 0)));
        start();
        choose(day, day);
        QCOMPARE(figure(QStringLiteral("Подразделения"), QStringLiteral("ЦДС")), QStringLiteral("2/2"));
        QCOMPARE(periods()->currentText(), QStringLiteral("Свой период"));
        QVERIFY(summary().contains(QStringLiteral("с 05.05.2024 по 05.05.2024: 2.")));
        choose(day, day.addDays(1));
        QCOMPARE(figure(QStringLiteral("Подразделения"), QStringLiteral("ЦДС")), QStringLiteral("3/3"));
        choose(day.addDays(-1), day.addDays(-1));
        QCOMPARE(figure(QStringLiteral("Внесено")), QStringLiteral("0/0"));
    }

    void aPeriodIsItsDaysUpToToday()
    {
        start();
        const QDate today = m_bench->client().session().HfnTimeToSesTime().date();
        const auto first = [&] { return m_bench->child<QDateEdit>("fromEdit")->date(); };
        QCOMPARE(periods()->currentText(), QStringLiteral("30 дней"));
        QCOMPARE(first(), today.addDays(-29));
        setTime("REC_PAST_1", QDateTime(today.addDays(-7), QTime(23, 59)));
        setTime("REC_PAST_2", QDateTime(today.addDays(-6), QTime(0, 0)));
        choose("periodCombo", QStringLiteral("7 дней"));
        QCOMPARE(first(), today.addDays(-6));
        QCOMPARE(m_bench->child<QDateEdit>("toEdit")->date(), today);
        QCOMPARE(figure(QStringLiteral("Внесено")), QStringLiteral("0/7"));
        choose("periodCombo", QStringLiteral("Всё время"));
        QVERIFY(!m_bench->child<QDateEdit>("fromEdit")->isEnabled());
        QCOMPARE(figure(QStringLiteral("Внесено")), QStringLiteral("0/8"));
    }

    void aPeriodThatEndsBeforeItBeginsIsSaid()
    {
        start();
        choose(QDate(2024, 5, 6), QDate(2024, 5, 5));
        QVERIFY2(summary().startsWith(QStringLiteral("Первый день позже последнего")), qPrintable(summary()));
        QCOMPARE(table()->model()->rowCount(), 0);
        QVERIFY(!action("tableAction")->isEnabled());
        choose(QDate(2024, 5, 4), QDate(2024, 5, 5));
        QVERIFY(action("tableAction")->isEnabled());
    }

    void readingIsInterruptedByAKey()
    {
        startOnFailing();
        bool wasShown = false;
        afterSelect(1, [&] {
            wasShown = isReading() && m_bench->child<QProgressBar>("readProgress")->isVisible();
            QTest::keyClick(table(), Qt::Key_Escape);
        });
        action("reloadAction")->trigger();
        QTRY_VERIFY(!isReading());
        QVERIFY(wasShown);
        QTRY_VERIFY(!m_bench->child<QProgressBar>("readProgress")->isVisible()); // at the next layout
        QVERIFY2(summary().startsWith(QStringLiteral("Прервано.")), qPrintable(summary()));
        QTest::qWait(50);
        QCOMPARE(m_plan->selects.size(), 1);
        QCOMPARE(table()->model()->rowCount(), 0);
        QTest::keyClick(table(), Qt::Key_F5);
        QTRY_VERIFY(table()->model()->rowCount() > 0);
    }

    void anotherChoiceStartsAgain()
    {
        startOnFailing();
        auto* departments = m_bench->child<QComboBox>("departmentCombo");
        afterSelect(3, [&] {
            departments->setCurrentIndex(departments->findText(QStringLiteral("ЦДС"), Qt::MatchStartsWith));
        });
        action("reloadAction")->trigger();
        QTRY_COMPARE(m_plan->selects.size(), 3 + 5);
        QTRY_VERIFY(!isReading());
        QCOMPARE(figure(QStringLiteral("Подразделения"), QStringLiteral("ЦДС")), QStringLiteral("7/7"));
    }

    void aFailureIsSaidAndReadingRepeated_data()
    {
        QTest::addColumn<int>("request");
        QTest::newRow("templates") << 0;
        QTest::newRow("number of records") << 1;
        QTest::newRow("records") << 2;
        QTest::newRow("workshifts") << 3;
        QTest::newRow("signatures") << 4;
    }
    void aFailureIsSaidAndReadingRepeated()
    {
        QFETCH(int, request);
        expectWarning(QStringLiteral("Диск хранилища переполнен"));
        startOnFailing();
        m_plan->selects.clear();
        m_plan->onSelect = [this, request] {
            if (m_plan->selects.size() == request + 1)
                m_plan->failedSelects = 1;
        };
        action("reloadAction")->trigger();
        QTRY_VERIFY(!isReading());
        QVERIFY2(summary().contains(FailingStore::refusal()), qPrintable(summary()));
        QCOMPARE(table()->model()->rowCount(), 0);
        QVERIFY(!action("printAction")->isEnabled());
        QCOMPARE(table()->findChild<EmptyHint*>()->text(), summary());
        QCOMPARE(m_bench->client().takeFailures(), QStringList{FailingStore::refusal()});
        action("reloadAction")->trigger();
        QTRY_VERIFY(!isReading());
        QVERIFY(table()->model()->rowCount() > 0);
    }

    void recordsAreReadPageByPage()
    {
        std::vector<TestStore::Row> many;
        QVector<QByteArray> keys;
        for (int i = 0; i < 5001; ++i)
            keys.append("MANY_" + QByteArray::number(i));
        for (const QByteArray& key : qAsConst(keys))
            many.push_back({"LogbookRecords",
                            ROW_INSERT,
                            key,
                            {{"ShiftKey", "SHIFT_CDS_PAST"},
                             {"WorkerKey", "WORKER_IVANOV"},
                             {"recordTime", TestStore::now()},
                             {"status", 0},
                             {"html", "много"}}});
        StoreError error;
        QVERIFY2(TestStore::write(m_bench->store.openLoader().get(), many, &error), qPrintable(error.text));
        startOnFailing();
        QCOMPARE(figure(QStringLiteral("Подразделения"), QStringLiteral("ЦДС")), QStringLiteral("5008/5009"));
        QCOMPARE(rows(), rowsOfTheCommand({}));
        m_plan->selects.clear(); // those of the start read names, too
        action("reloadAction")->trigger();
        QTRY_VERIFY(!isReading());
        int pages = 0;
        for (const QByteArray& sql : qAsConst(m_plan->selects))
            pages += sql.contains("R.html") ? 1 : 0;
        QCOMPARE(pages, 2);
        // No answer holds the window up, however large the journal is.
        for (const QByteArray& sql : qAsConst(m_plan->selects))
            QVERIFY2(sql.contains("COUNT(*)") || sql.endsWith(" LIMIT 5000"), sql.constData());
    }

    void aSavedTableNamesEveryRow()
    {
        start();
        const QVector<QStringList> saved = ListOutput::rowsOf(table());
        QCOMPARE(saved.constFirst(),
                 QString::fromUtf8("Показатель Название Число Из Доля").split(QLatin1Char(' ')));
        for (const QStringList& row : saved)
            QVERIFY(!row.constFirst().isEmpty());
        QCOMPARE(saved.at(1).constLast(), QStringLiteral("0,0 %"));
        QCOMPARE(saved.at(4).mid(1), (QStringList{QStringLiteral("ЦДС"), QStringLiteral("7"),
                                                  QStringLiteral("8"), QStringLiteral("87,5 %")}));
        // On the screen a heading stands once.
        const QAbstractItemModel* model = table()->model();
        QCOMPARE(model->index(3, 0).data().toString(), QStringLiteral("Подразделения"));
        QCOMPARE(model->index(4, 0).data().toString(), QString());
        QCOMPARE(model->index(4, 0).data(Qt::AccessibleTextRole).toString(), QStringLiteral("Подразделения"));
    }

    void barsAreAsLongAsTheirFigures()
    {
        start();
        const auto length = [this](int row) {
            const QRect cell = table()->visualRect(table()->model()->index(row, FiguresModel::Share));
            const QImage image = table()->viewport()->grab(cell).toImage();
            const QRgb colour = table()->palette().color(QPalette::Highlight).rgb();
            int pixels = 0;
            for (int x = 0; x < image.width(); ++x)
                pixels += image.pixel(x, image.height() / 2) == colour ? 1 : 0;
            return pixels;
        };
        table()->clearSelection();
        table()->setCurrentIndex({});
        QCOMPARE(length(0), 0); // none is late
        QVERIFY(length(3) > 50);
        QVERIFY2(qAbs(length(4) - length(3) / 7.0) < 4,
                 qPrintable(QString::number(length(4)))); // 7 and 1 of 8
    }

    void itsChoiceIsKept()
    {
        start();
        choose("periodCombo", QStringLiteral("Год"));
        m_bench->child<QSpinBox>("lateSpin")->setValue(45);
        start();
        QCOMPARE(periods()->currentText(), QStringLiteral("Год"));
        QCOMPARE(m_bench->child<QSpinBox>("lateSpin")->value(), 45);
        QVERIFY(!figure(QStringLiteral("Внесено позже события более чем на 45 минут")).isEmpty());
        // Days that were typed are of their day.
        choose(QDate(2024, 5, 4), QDate(2024, 5, 5));
        start();
        QCOMPARE(periods()->currentText(), QStringLiteral("Год"));
        choose("periodCombo", QStringLiteral("Свой период"));
        start();
        QCOMPARE(periods()->currentText(), QStringLiteral("30 дней"));
    }

    void aTipIsTheNameAsItIsWritten()
    {
        const QString name = QStringLiteral("Команда \"включить\" & <b>отключить</b>");
        m_bench->write("LogbookTemplates", ROW_UPDATE, "TPL_ORDER", {{"nameLoc", name}});
        start();
        QStringList tips;
        const QAbstractItemModel* model = table()->model();
        for (int row = 0; row < model->rowCount(); ++row)
            tips << model->index(row, FiguresModel::Name).data(Qt::ToolTipRole).toString();
        QVERIFY(tips.contains(name)); // the application shows every tip as plain text
    }

    void aTemplateWithoutAFolderIsCountedApart()
    {
        m_bench->write("LogbookTemplates", ROW_UPDATE, "TPL_ORDER", {{"CategoryKey", QVariant()}});
        start();
        const int without = figure(QStringLiteral("Шаблоны"), QStringLiteral("Без шаблона"))
                                .section(QLatin1Char('/'), 0, 0)
                                .toInt();
        QCOMPARE(figure(QStringLiteral("Папки"), QStringLiteral("Без шаблона")),
                 QStringLiteral("%1/8").arg(without + 2));
    }

    void aStoreThatIsBackIsReadAgain()
    {
        start();
        setTime("REC_PAST_1", QDateTime(QDate(2020, 1, 1), QTime(0, 0)));
        m_bench->module().ModSesReconnect();
        QTRY_VERIFY(!isReading());
        QCOMPARE(figure(QStringLiteral("Внесено")), QStringLiteral("0/7"));
    }
};

QTEST_MAIN(CVrkStatistics_test)
#include "CVrkStatistics_test.moc"
