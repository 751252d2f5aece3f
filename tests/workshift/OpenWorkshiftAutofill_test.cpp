#include "HFNCliParam.h"
#include "HfnTime.h"
#include "HtmlParser.h"
#include "JournalWindow.h"
#include "LogWatch.h"
#include "TemplatesWidget.h"
#include "TEventNciParse.h"

#include <QPushButton>
#include <QTableWidget>
#include <QTest>
#include <QTreeView>

/// What the opening dialog fills in automatically, and its messages if it cannot.
class OpenWorkshiftAutofill_test : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<LogWatch> m_log;

    static void change(const TestStore& store, const char* table, const char* key, TestStore::Fields fields)
    {
        QVERIFY(TestStore::write(store.openLoader().get(), table, ROW_UPDATE, key, fields));
    }
    /// Closes the department's shift and gives the opening template these parameters.
    static void prepare(const TestStore& store, const std::vector<const char*>& parameters)
    {
        change(store, "LogbookWorkshifts", "SHIFT_CDS_OPEN", {{"CloseWorkerKey", "WORKER_IVANOV"}});
        std::string html;
        for (std::size_t i = 0; i < parameters.size(); ++i)
            html += HtmlParser::createParameter(
                        {{"name", parameters[i]}, {"idx", std::to_string(i)}, {"locname", "?"}}, "?") +
                    " ";
        HtmlParser parser(html);
        parser.setTemplateProperty("open_wshift", std::string());
        change(store, "LogbookTemplates", "TPL_OPEN",
               {{"html", QString::fromStdString(parser.readyHtml(true))}});
    }
    /// Shown texts and keys of the parameters in the form to be written: "text|key".
    static QStringList filled(JournalWindow& journal)
    {
        const HtmlParser parser(JournalWindow::filled(journal.opening()).toStdString());
        QStringList values;
        for (unsigned i = 0; i < parser.countParameters(); ++i)
            values << QString::fromStdString(parser.displayText(i)) + QLatin1Char('|') +
                          QString::fromStdString(parser.propertyValue(i, "data"));
        return values;
    }
    QStringList takeLines() { return m_log->take(QStringLiteral("OpenWorkshiftDialog")); }

private slots:
    void init()
    {
        m_log.reset();
        m_log = std::make_unique<LogWatch>();
    }
    void cleanup() { QCOMPARE(m_log->take().join(QLatin1Char('\n')), QString()); }

    void eachParameterGetsWhatIsKnown()
    {
        const TestStore store;
        prepare(store, {"employee_fio", "department", "organization", "shift_workers", "shift_workers_groups",
                        "interval"});
        const auto name = [&store](const char* table, const char* key) {
            const QString sql = QStringLiteral("SELECT name_ FROM %1 WHERE KeyLink='%2'");
            return store.value(sql.arg(QLatin1String(table), QLatin1String(key))).toString();
        };
        JournalWindow journal(store, QStringLiteral("ivanov"));
        const QDateTime start(QDate(2030, 5, 6), QTime(8, 0));
        journal.requestOpening(start);
        QCOMPARE(filled(journal),
                 QStringList({QStringLiteral("Иванов Иван Иванович|WORKER_IVANOV"),
                              name("Departments", "DEP_CDS") + QStringLiteral("|DEP_CDS"),
                              name("Organizations", "ORG_NETS") + QStringLiteral("|ORG_NETS"),
                              QStringLiteral("Иванов И. И.|WORKER_IVANOV"),
                              QStringLiteral("Иванов И. И. гр.V|WORKER_IVANOV"),
                              QStringLiteral("с 06.05.2030 08:00 по 07.05.2030 08:00|")}));
        QVERIFY(JournalWindow::childOf<QPushButton>(journal.opening(), "applyButton")->isEnabled());
        QCOMPARE(JournalWindow::childOf<QTableWidget>(journal.opening(), "shiftsTable")->rowCount(), 2);
        const auto* crew = JournalWindow::childOf<QTableWidget>(journal.opening(), "workersTable");
        QCOMPARE(crew->item(0, 0)->text(), QStringLiteral("Иванов Иван Иванович"));
        QVERIFY(crew->item(0, 1)->text().contains(QLatin1Char('/'))); // two roles
    }

    void anotherTemplateIsFilledWithWhatIsKnown()
    {
        const TestStore store;
        prepare(store, {"employee_fio", "interval"});
        QVERIFY(
            TestStore::write(store.openLoader().get(), "LogbookTemplates", ROW_INSERT, "TPL_OTHER",
                             {{"CategoryKey", "CAT_COMMON"},
                              {"nameLoc", "Другой приём"},
                              {"html", store
                                           .value(QStringLiteral("SELECT html FROM LogbookTemplates WHERE "
                                                                 "KeyLink='TPL_OPEN'"))
                                           .toString()}}));
        change(store, "LogbookTemplates", "TPL_OPEN", {{"nameLoc", "А"}}); // the first
        JournalWindow journal(store, QStringLiteral("ivanov"));
        journal.requestOpening(QDateTime(QDate(2030, 5, 6), QTime(8, 0)));
        JournalWindow::type(journal.opening(), 0, QStringLiteral("Сидорова"));
        auto* templates = journal.opening()->findChild<TemplatesWidget*>();
        QVERIFY(templates->selectTemplate(QStringLiteral("TPL_OTHER")));
        QCOMPARE(filled(journal), QStringList({QStringLiteral("Иванов Иван Иванович|WORKER_IVANOV"),
                                               QStringLiteral("с 06.05.2030 08:00 по 07.05.2030 08:00|")}));
    }

    void onlyTheFirstOfItsKindIsFilled()
    {
        const TestStore store;
        prepare(store, {"employee_fio", "employee_fio", "interval", "interval"});
        JournalWindow journal(store, QStringLiteral("petrov"));
        journal.requestOpening(QDateTime(QDate(2030, 5, 6), QTime(8, 0)));
        QCOMPARE(
            filled(journal),
            QStringList({QStringLiteral("Петров Пётр Петрович|WORKER_PETROV"), QStringLiteral("?|"),
                         QStringLiteral("с 06.05.2030 08:00 по 07.05.2030 08:00|"), QStringLiteral("?|")}));
        QVERIFY(!JournalWindow::childOf<QPushButton>(journal.opening(), "applyButton")->isEnabled());
    }

    // The crew's other workers are not consulted, in the plural either.
    void theCrewIsNotConsulted()
    {
        const TestStore store;
        prepare(store, {"shift_workers"});
        JournalWindow journal(store, QStringLiteral("ivanov"));
        journal.trigger("openWorkshiftAction");
        journal.choose(journal.opening(), "WORKER_PETROV");
        QCOMPARE(filled(journal), QStringList{QStringLiteral("Иванов И. И.|WORKER_IVANOV")});
    }

    void theGroupFollowsTheName_data()
    {
        QTest::addColumn<int>("group");
        QTest::addColumn<QString>("text");
        QTest::newRow("none") << 0 << QStringLiteral("Иванов И. И.");
        QTest::newRow("four") << 4 << QStringLiteral("Иванов И. И. гр.IV");
        QTest::newRow("six") << 6 << QStringLiteral("Иванов И. И. гр.6");
    }
    void theGroupFollowsTheName()
    {
        QFETCH(int, group);
        QFETCH(QString, text);
        const TestStore store;
        prepare(store, {"shift_workers_groups"});
        change(store, "Workers", "WORKER_IVANOV", {{"safetyGroup", group}});
        JournalWindow journal(store, QStringLiteral("ivanov"));
        journal.trigger("openWorkshiftAction");
        QCOMPARE(filled(journal), QStringList{text + QStringLiteral("|WORKER_IVANOV")});
    }

    void withoutANameNothingIsFilledAndTheLogSaysSo()
    {
        const TestStore store;
        prepare(store, {"employee_fio", "shift_workers", "shift_workers_groups"});
        change(store, "Workers", "WORKER_IVANOV",
               {{"lastName", nullptr}, {"firstName", nullptr}, {"patronymicName", nullptr}});
        JournalWindow journal(store, QStringLiteral("ivanov"));
        journal.trigger("openWorkshiftAction");
        QCOMPARE(filled(journal),
                 QStringList({QStringLiteral("?|"), QStringLiteral("?|"), QStringLiteral("?|")}));
        QStringList lines = takeLines();
        lines.removeDuplicates(); // the template is chosen, and then shown
        QCOMPARE(lines,
                 QStringList({QStringLiteral("void OpenWorkshiftDialog::autoFillWorker() can not auto fill "
                                             "employee: full name is empty!"),
                              QStringLiteral("void OpenWorkshiftDialog::autoFillWorkshiftWorkers() can not "
                                             "auto fill shift_workers: full name is empty!"),
                              QStringLiteral("void OpenWorkshiftDialog::autoFillWorkshiftWorkersGroups() can "
                                             "not auto fill shift_workers_groups: full name is empty!")}));
    }

    void unknownPlacesAreNamedInTheLog()
    {
        const TestStore store;
        prepare(store, {"department", "organization"});
        JournalWindow journal(store, QStringLiteral("ivanov"));
        journal.opening()->setDepartmentKey(QStringLiteral("DEP_NOWHERE"));
        journal.opening()->setOrganizationKey(QStringLiteral("ORG_NOWHERE"));
        journal.trigger("openWorkshiftAction");
        QCOMPARE(filled(journal), QStringList({QStringLiteral("?|"), QStringLiteral("?|")}));
        QStringList lines = takeLines();
        lines.removeDuplicates();
        QCOMPARE(lines,
                 QStringList({QStringLiteral("void OpenWorkshiftDialog::autoFillDepartment() Not found "
                                             "department DEP_NOWHERE!"),
                              QStringLiteral("void OpenWorkshiftDialog::autoFillOrganization() Not found "
                                             "organization ORG_NOWHERE!")}));
    }

    void emptyKeysAndNamesAreLeftOutInSilence()
    {
        const TestStore store;
        prepare(store, {"department", "organization"});
        change(store, "Organizations", "ORG_NETS", {{"name_", nullptr}});
        JournalWindow journal(store, QStringLiteral("ivanov"));
        journal.opening()->setDepartmentKey(QString());
        journal.trigger("openWorkshiftAction");
        QCOMPARE(filled(journal), QStringList({QStringLiteral("?|"), QStringLiteral("?|")}));
        QCOMPARE(takeLines(), QStringList());
        const auto* shifts = JournalWindow::childOf<QTableWidget>(journal.opening(), "shiftsTable");
        QCOMPARE(shifts->rowCount(), 0); // the department of the timetable is unknown
    }

    void templatesOfAllLevelsAreOfferedUnderTheirNames()
    {
        const TestStore store;
        prepare(store, {"interval"});
        const QString html =
            store.value(QStringLiteral("SELECT html FROM LogbookTemplates WHERE KeyLink='TPL_OPEN'"))
                .toString();
        for (const char* category : {"CAT_NETS", "CAT_CDS", "CAT_ZAR"})
            QVERIFY(TestStore::write(store.openLoader().get(), "LogbookTemplates", ROW_INSERT,
                                     QByteArray("OPEN_") + category,
                                     {{"CategoryKey", category}, {"nameLoc", category}, {"html", html}}));
        const auto name = [&store](const char* table, const char* key) {
            const QString sql = QStringLiteral("SELECT name_ FROM %1 WHERE KeyLink='%2'");
            return store.value(sql.arg(QLatin1String(table), QLatin1String(key))).toString();
        };
        JournalWindow journal(store, QStringLiteral("ivanov"));
        journal.trigger("openWorkshiftAction");
        const QAbstractItemModel* model =
            JournalWindow::childOf<QTreeView>(journal.opening(), "templatesTree")->model();
        const auto isThere = [model](const QString& text) {
            return !model
                        ->match(model->index(0, 0), Qt::DisplayRole, text, 1,
                                Qt::MatchExactly | Qt::MatchRecursive)
                        .isEmpty();
        };
        QVERIFY(isThere(QStringLiteral("Подразделение: ") + name("Departments", "DEP_CDS")));
        QVERIFY(isThere(QStringLiteral("Тип организации: ") + name("OrgTypes", "TYPE_NETS")));
        QVERIFY(isThere(QStringLiteral("CAT_CDS")));
        QVERIFY(isThere(QStringLiteral("CAT_NETS")));
        QVERIFY(!isThere(QStringLiteral("CAT_ZAR")));                              // of another department
        QVERIFY(!isThere(QStringLiteral("Команда на производство переключений"))); // opens no shift
    }

    void aNewWorkerComesToTheFields()
    {
        const TestStore store;
        prepare(store, {"employee_fio"});
        JournalWindow journal(store, QStringLiteral("ivanov"));
        journal.trigger("openWorkshiftAction");
        JournalWindow::type(journal.opening(), 0,
                            QStringLiteral("нов")); // the fields have loaded the workers by now
        QVERIFY(TestStore::write(
            store.openLoader().get(), "Workers", ROW_INSERT, "WORKER_NOVIKOV",
            {{"lastName", QStringLiteral("Новиков")}, {"DepartmentKey", "DEP_CDS"}, {"deleted_", 0}}));
        journal.deliver();
        JournalWindow::type(journal.opening(), 0, QStringLiteral("новик"));
        QTest::keyClick(JournalWindow::childOf<QWidget>(journal.opening(), "parameterInput_0"), Qt::Key_Tab);
        QCOMPARE(filled(journal), QStringList{QStringLiteral("Новиков|WORKER_NOVIKOV")});
    }

    // All fields of a window share what they know, so the dialog is asked alone.
    void theFieldsReadAgainAfterAnEvent()
    {
        const TestStore store;
        prepare(store, {"employee_fio"});
        JournalWindow journal(store, QStringLiteral("ivanov"));
        journal.trigger("openWorkshiftAction");
        JournalWindow::type(journal.opening(), 0, QStringLiteral("нов"));
        QVERIFY(TestStore::write(
            store.openLoader().get(), "Workers", ROW_INSERT, "WORKER_NOVIKOV",
            {{"lastName", QStringLiteral("Новиков")}, {"DepartmentKey", "DEP_CDS"}, {"deleted_", 0}}));
        const std::unique_ptr<HFNCliParam> block(
            HFNCliParam::event(EventInserted, "WORKER_NOVIKOV", "NCI:Workers,1", QByteArray()));
        TEventNciParse event(block.get());
        journal.opening()->MessageData(&event);
        JournalWindow::type(journal.opening(), 0, QStringLiteral("новик"));
        QTest::keyClick(JournalWindow::childOf<QWidget>(journal.opening(), "parameterInput_0"), Qt::Key_Tab);
        QCOMPARE(filled(journal), QStringList{QStringLiteral("Новиков|WORKER_NOVIKOV")});
    }

    // Times of day that are negative in a timetable: only the time of day counts.
    void aNegativeTimeOfDayIsTakenForItself()
    {
        const QDateTime now(QDate(2026, 11, 20), QTime(9, 30));
        const QTime six = HfnTime_to_DateTime(-6 * 3600, -1).time();
        const QTime one = HfnTime_to_DateTime(-3600, -1).time();
        auto [from, to] = OpenWorkshiftDialog::toCurrentInterval(-6 * 3600, -3600, now);
        QCOMPARE(from, QDateTime(now.date(), six));
        QCOMPARE(to, QDateTime(now.date(), one));
        std::tie(from, to) = OpenWorkshiftDialog::toCurrentInterval(-3600, -6 * 3600, now);
        QCOMPARE(from, QDateTime(now.date(), one));
        QCOMPARE(to, QDateTime(now.date().addDays(1), six));
    }

    // His row has no key, so he is in the table but in no crew.
    void aWorkerWithoutANameIsARowWithoutItems()
    {
        const TestStore store;
        prepare(store, {"employee_fio"});
        JournalWindow journal(store, QStringLiteral("ivanov"));
        journal.requestOpening(QDateTime::currentDateTime().addDays(3));
        journal.choose(journal.opening(), "WORKER_NOBODY");
        const auto* crew = JournalWindow::childOf<QTableWidget>(journal.opening(), "workersTable");
        QCOMPARE(crew->rowCount(), 2);
        QVERIFY(!crew->item(1, 0));
        const QString rows = QStringLiteral("SELECT count(*) FROM LogbookWorkersWorkshift");
        const int before = store.value(rows).toInt();
        JournalWindow::childOf<QPushButton>(journal.opening(), "applyButton")->click();
        QVERIFY(!journal.opening()->isVisible());
        QCOMPARE(store.value(rows).toInt(), before + 1);
    }
};

QTEST_MAIN(OpenWorkshiftAutofill_test)
#include "OpenWorkshiftAutofill_test.moc"
