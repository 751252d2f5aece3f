#include "CreatorBench.h"
#include "ExpectedWarning.h"
#include "HtmlParser.h"
#include "MDRValues.h"
#include "OrgStructDialog.h"
#include "OrgStructWidget.h"
#include "Typing.h"

#include <QCheckBox>
#include <QCompleter>
#include <QSettings>
#include <QSplitter>
#include <QTemporaryDir>
#include <QTest>
#include <QTreeView>

namespace
{
std::string parameter(const char* name, const char* label, std::vector<HtmlParser::Property> more = {})
{
    std::vector<HtmlParser::Property> properties{{"name", name}, {"locname", label}};
    properties.insert(properties.end(), more.begin(), more.end());
    return HtmlParser::createParameter(properties, label);
}

/// A template of the department with this text.
void addTemplate(const TestStore& store, const char* key, const std::string& html)
{
    const std::unique_ptr<Store> loader = store.openLoader();
    QVERIFY(TestStore::write(
        loader.get(), "LogbookTemplates", ROW_INSERT, key,
        {{"CategoryKey", "CAT_CDS"}, {"nameLoc", key}, {"html", QString::fromStdString(html)}}));
}

QVariant field(const TestStore& store, const char* name, const QString& where)
{
    return store.value(
        QStringLiteral("SELECT %1 FROM LogbookRecords WHERE %2").arg(QLatin1String(name), where));
}

int recordCount(const TestStore& store)
{
    return store.value(QStringLiteral("SELECT count(*) FROM LogbookRecords")).toInt();
}

const QString Newest = QStringLiteral("rowid = (SELECT max(rowid) FROM LogbookRecords)");
} // namespace

/// Creating records.
class RecordCreatorDialog_test : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QCoreApplication::setOrganizationName(QStringLiteral("test"));
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_settings.path());
    }
    void init() { QSettings().clear(); }

    void aNewRecordIsOneDraftWithAllFields()
    {
        TestStore store;
        CreatorBench bench(store);
        const int before = recordCount(store);
        bench.create();
        QCOMPARE(bench.dialog->windowTitle(), QStringLiteral("Новая запись"));
        bench.choose("TPL_ORDER", {{"substation", QStringLiteral("ПС 110 кВ Заречная")},
                                   {"text", QStringLiteral("В 110 Полевая")}});
        const QDateTime event = QDateTime::currentDateTime().addSecs(-3600);
        bench.eventTime()->setDateTime(event);
        const double earliest = bench.client.session().GetHfnTime();
        bench.click("saveButton");

        QVERIFY(!bench.dialog->isVisible());
        QCOMPARE(recordCount(store), before + 1);
        QCOMPARE(bench.plan->writes, 1);
        const auto written = [&](const char* name) { return field(store, name, Newest); };
        QVERIFY(QRegularExpression(QStringLiteral("^[0-9A-F]{32}$"))
                    .match(written("KeyLink").toString())
                    .hasMatch());
        QCOMPARE(written("ShiftKey").toString(), QStringLiteral("SHIFT_CDS_OPEN"));
        QCOMPARE(written("WorkerKey").toString(), QStringLiteral("WORKER_IVANOV"));
        QVERIFY(written("recordTime").toDouble() >= earliest);
        QVERIFY(written("recordTime").toDouble() <= bench.client.session().GetHfnTime());
        QCOMPARE(written("eventTime").toDouble(), DateTime_To_HfnTime(event));
        QCOMPARE(written("status").toInt(), 1);
        QCOMPARE(written("direction").toInt(), 0);
        for (const char* name : {"VisaWorkerKey", "ReceiverWorkerKey", "OriginRecordKey",
                                 "SecondMarkWorkerKey", "firstMarkTime", "secondMarkTime", "executionTime"})
            QVERIFY2(written(name).isNull(), name);
        const HtmlParser html(written("html").toString().toStdString());
        QCOMPARE(QString::fromStdString(html.displayText(0)), QStringLiteral("ПС 110 кВ Заречная"));
        QCOMPARE(QString::fromStdString(html.displayText(1)), QStringLiteral("В 110 Полевая"));
        QVERIFY(html.isExistTemplateProperty("time_exec"));

        bench.client.deliver();
        QCOMPARE(bench.module.takeEvents().size(), 1);
    }

    void everyFieldIsMarkedAsSet()
    {
        TestStore store;
        CreatorBench bench(store);
        bench.create();
        bench.choose("TPL_TEXT");
        bench.click("saveButton");
        bench.client.deliver();
        QCOMPARE(bench.module.events.size(), 1);
        QCOMPARE(bench.module.events.first().marked.size(), 15);
    }

    void theFirstMarkIsTheTimeOfTheEvent()
    {
        TestStore store;
        CreatorBench bench(store);
        bench.create();
        QVERIFY(!bench.find<QLabel>("markerLabel")->isVisible());
        bench.choose("TPL_TRIP",
                     {{"line", QStringLiteral("ВЛ 110 кВ")}, {"substation", QStringLiteral("ПС Заречная")}});
        QVERIFY(bench.find<QLabel>("markerLabel")->isVisible());
        QVERIFY(!bench.find<QLabel>("markerIconLabel")->pixmap(Qt::ReturnByValue).isNull());
        bench.eventTime()->setDateTime(QDateTime::currentDateTime().addSecs(-600));
        bench.click("saveButton");
        QCOMPARE(field(store, "firstMarkTime", Newest), field(store, "eventTime", Newest));
        QVERIFY(field(store, "firstMarkTime", Newest).toDouble() > 0);
    }

    void anEmptyFirstMarkIsIgnored()
    {
        TestStore store;
        HtmlParser html("Текст");
        html.setTemplateProperty("first_mark", std::string());
        addTemplate(store, "TPL_EMPTY_MARK", html.readyHtml(true));
        CreatorBench bench(store);
        bench.create();
        bench.choose("TPL_EMPTY_MARK");
        bench.click("saveButton");
        QVERIFY(field(store, "firstMarkTime", Newest).isNull());
    }

    void writesDirectionAndTypedCounterpart()
    {
        TestStore store;
        CreatorBench bench(store);
        bench.create();
        bench.choose("TPL_TEXT");
        bench.click("fromButton");
        QVERIFY(!bench.button("fromButton")->icon().isNull());
        QVERIFY(!bench.button("toButton")->icon().isNull());
        bench.counterpartLine()->setFocus();
        typeText(bench.counterpartLine(), QStringLiteral("олег зареч"));
        QVERIFY(!bench.button("saveButton")->isEnabled());
        QCOMPARE(bench.holdText(), QStringLiteral("Выберите собеседника из списка"));
        QTest::keyClick(bench.counterpartLine(), Qt::Key_Return);
        QCOMPARE(bench.counterpart()->workerKey(), QByteArray("WORKER_SMIRNOV_ZAR"));
        bench.click("saveButton");
        QCOMPARE(field(store, "direction", Newest).toInt(), 1);
        QCOMPARE(field(store, "ReceiverWorkerKey", Newest).toString(), QStringLiteral("WORKER_SMIRNOV_ZAR"));
    }

    void aDeletedWorkerIsNotOfferedAsCounterpart()
    {
        TestStore store;
        CreatorBench bench(store);
        bench.create();
        bench.counterpartLine()->setFocus();
        typeText(bench.counterpartLine(), QStringLiteral("кузнецов"));
        QTest::keyClick(bench.counterpartLine(), Qt::Key_Return);
        QVERIFY(!bench.counterpart()->isResolved());
        bench.counterpartLine()->clear();
        QVERIFY(bench.counterpart()->isResolved());
    }

    void writesACounterpartChosenInTheTree()
    {
        TestStore store;
        CreatorBench bench(store);
        bench.create();
        bench.choose("TPL_TEXT");
        bench.click("toButton");
        bench.click("workerTreeButton");
        auto* tree = bench.dialog->findChild<OrgStructDialog*>();
        QVERIFY(tree && tree->isVisible());
        OrgStruct::Worker worker;
        worker.keyLink = QStringLiteral("WORKER_PETROV");
        tree->widget()->setCurrectItem(worker);
        OrgStruct::SelectedItem item = tree->widget()->selectedItem();
        QCOMPARE(item.worker.keyLink, worker.keyLink);
        emit tree->itemSelected(item);
        tree->close();
        QVERIFY(bench.counterpartLine()->text().startsWith(QStringLiteral("Петров Пётр Петрович")));
        bench.click("saveButton");
        QCOMPARE(field(store, "direction", Newest).toInt(), 2);
        QCOMPARE(field(store, "ReceiverWorkerKey", Newest).toString(), QStringLiteral("WORKER_PETROV"));
    }

    void fillsInKnownValues()
    {
        TestStore store;
        addTemplate(store, "TPL_KNOWN",
                    "В " + parameter("datetime", "Время команды", {{"format", "hh:mm"}}) + " " +
                        parameter("employee_fio", "Отдал") + " " + parameter("employee_fio", "Принял") + " " +
                        parameter("department", "Подразделение") + " " +
                        parameter("organization", "Организация"));
        CreatorBench bench(store);
        bench.create();
        const QDateTime now = bench.eventTime()->dateTime();
        QVERIFY(qAbs(now.secsTo(bench.client.session().HfnTimeToSesTime())) < 5);
        bench.choose("TPL_KNOWN");
        QCOMPARE(bench.shown("datetime"), now.toString(QStringLiteral("hh:mm")));
        QCOMPARE(bench.shown("employee_fio"), QStringLiteral("Иванов Иван Иванович"));
        QCOMPARE(bench.shown("department"), QStringLiteral("ЦДС"));
        QCOMPARE(bench.shown("organization"), QStringLiteral("Электросети «Ключевой край»"));
        QCOMPARE(bench.holdText(), QStringLiteral("Не заполнено: Принял")); // only the first of a kind
        const HtmlParser html(bench.filler()->filledTemplate(true).toStdString());
        QCOMPARE(html.propertyData(1), std::string("WORKER_IVANOV"));
        QCOMPARE(html.propertyData(3), std::string("DEP_CDS"));
        QCOMPARE(html.propertyData(4), std::string("ORG_NETS"));
    }

    void aTimeWithoutAFormatShowsDateAndTime()
    {
        TestStore store;
        addTemplate(store, "TPL_TIME", "В " + parameter("datetime", "Время"));
        CreatorBench bench(store);
        bench.create();
        bench.choose("TPL_TIME");
        QCOMPARE(bench.shown("datetime"),
                 bench.eventTime()->dateTime().toString(QStringLiteral("dd.MM.yyyy hh:mm")));
    }

    void aDeadlineIsNotFilledWithTheCurrentTime()
    {
        TestStore store;
        addTemplate(store, "TPL_TERM", "До " + parameter("datetime", "Срок исполнения"));
        CreatorBench bench(store);
        bench.create();
        bench.choose("TPL_TERM");
        QCOMPARE(bench.holdText(), QStringLiteral("Не заполнено: Срок исполнения"));
    }

    void aFilledTimeFollowsTheEventUntilChanged()
    {
        TestStore store;
        addTemplate(store, "TPL_TIME", "В " + parameter("datetime", "Время", {{"format", "hh:mm"}}));
        CreatorBench bench(store);
        bench.create();
        bench.choose("TPL_TIME");
        bench.eventTime()->setDateTime(QDateTime(QDate(2026, 3, 1), QTime(21, 8)));
        QCOMPARE(bench.shown("datetime"), QStringLiteral("21:08"));
        bench.set("datetime", QStringLiteral("20:00"));
        bench.eventTime()->setDateTime(QDateTime(QDate(2026, 3, 1), QTime(22, 9)));
        QCOMPARE(bench.shown("datetime"), QStringLiteral("20:00"));
        bench.click("nowButton");
        QVERIFY(qAbs(bench.eventTime()->dateTime().secsTo(bench.client.session().HfnTimeToSesTime())) < 5);
    }

    void emptyRequiredParametersPreventSaving()
    {
        TestStore store;
        addTemplate(
            store, "TPL_MANY",
            parameter("text", "Первый") + " " + parameter("text", "Второй", {{"optional", "1"}}) + " " +
                parameter("list", "Третий", {{"list", HtmlParser::createListProperty({"да", "нет"})}}) + " " +
                parameter("signalName", "Четвёртый") + " " + parameter("signalNum", "Пятый") + " " +
                parameter("baseVoltage", "Шестой") + " " + parameter("line", "Седьмой"));
        CreatorBench bench(store);
        bench.create();
        QCOMPARE(bench.holdText(), QStringLiteral("Выберите шаблон"));
        bench.choose("TPL_MANY");
        const QString reason = QStringLiteral("Не заполнено: Первый, Третий, Четвёртый, Пятый и ещё 2");
        QCOMPARE(bench.holdText(), reason);
        QCOMPARE(bench.button("saveButton")->toolTip(), reason);
        QVERIFY(!bench.button("saveButton")->isEnabled());
        QTest::keyClick(bench.dialog, Qt::Key_Return, Qt::ControlModifier);
        QCOMPARE(bench.plan->writes, 0);
        for (const char* name : {"text", "list", "signalName", "signalNum", "baseVoltage", "line"})
            bench.set(name, QStringLiteral("да"));
        QCOMPARE(bench.holdText(), QString());
        QVERIFY(bench.button("saveButton")->isEnabled());
    }

    void withoutAShiftOrAWorkerNothingIsSaved()
    {
        TestStore store;
        CreatorBench bench(store);
        bench.dialog->setCurrentRecord(nullptr);
        bench.dialog->setWorkshiftKey(QString());
        bench.dialog->show();
        bench.choose("TPL_TEXT");
        QCOMPARE(bench.holdText(), QStringLiteral("Нет открытой смены"));
        bench.dialog->setWorkshiftKey(QStringLiteral("SHIFT_CDS_OPEN"));
        QCOMPARE(bench.holdText(), QString());
        bench.dialog->close();
        bench.dialog->setWorkshiftKey(QStringLiteral("SHIFT_CDS_OPEN"));
        bench.dialog->setWorkerKey(QString());
        bench.create();
        bench.choose("TPL_TEXT");
        QCOMPARE(bench.holdText(), QStringLiteral("Не известен автор записи"));
    }

    void controlEnterSavesAndEnterDoesNot()
    {
        TestStore store;
        CreatorBench bench(store);
        bench.create();
        bench.choose("TPL_TEXT");
        QTest::keyClick(bench.dialog, Qt::Key_Return);
        QCOMPARE(bench.plan->writes, 0);
        QTest::keyClick(bench.dialog, Qt::Key_Enter, Qt::ControlModifier);
        QCOMPARE(bench.plan->writes, 1);
        QVERIFY(!bench.dialog->isVisible());
    }

    void staysReadyForTheNextRecordIfKeptOpen()
    {
        TestStore store;
        CreatorBench bench(store);
        const int before = recordCount(store);
        bench.create();
        bench.find<QCheckBox>("keepOpenCheck")->setChecked(true);
        bench.choose("TPL_TEXT");
        bench.click("fromButton");
        bench.click("saveButton");
        const QString first = field(store, "KeyLink", Newest).toString();
        QVERIFY(bench.dialog->isVisible());
        QVERIFY(bench.notice().startsWith(QStringLiteral("Запись сохранена в ")));
        QVERIFY(!bench.templates()->currentTemplate());
        QVERIFY(bench.button("noDirectionButton")->isChecked());
        QVERIFY(bench.find<QLineEdit>("searchEdit")->hasFocus());
        bench.client.deliver(); // its own event changes nothing
        QVERIFY(bench.dialog->isVisible());
        bench.choose("TPL_TEXT");
        bench.click("saveButton");
        QCOMPARE(recordCount(store), before + 2);
        QVERIFY(field(store, "KeyLink", Newest).toString() != first);
    }

    void aUsedTemplateComesFirstNextTime()
    {
        TestStore store;
        CreatorBench bench(store);
        bench.create();
        bench.choose("TPL_TEXT");
        bench.click("saveButton");
        bench.create();
        const QAbstractItemModel* tree = bench.find<QTreeView>("templatesTree")->model();
        QCOMPARE(tree->index(0, 0).data().toString(), QStringLiteral("Недавние"));
        QCOMPARE(tree->index(0, 0, tree->index(0, 0)).data().toString(),
                 QStringLiteral("Штормовое предупреждение"));
    }

    void templatesOfOtherDepartmentsAreNotOffered()
    {
        TestStore store;
        const std::unique_ptr<Store> loader = store.openLoader();
        QVERIFY(TestStore::write(loader.get(), "LogbookTemplates", ROW_INSERT, "TPL_ZAR",
                                 {{"CategoryKey", "CAT_ZAR"}, {"nameLoc", "Чужой"}, {"html", "Чужой"}}));
        CreatorBench bench(store);
        bench.create();
        QVERIFY(!bench.templates()->selectTemplate(QStringLiteral("TPL_ZAR")));
        QVERIFY(bench.templates()->selectTemplate(QStringLiteral("TPL_TRIP")));
    }

    void aChangedOrDeletedTemplateKeepsTypedText()
    {
        TestStore store;
        CreatorBench bench(store);
        bench.create();
        bench.choose("TPL_ORDER",
                     {{"substation", QStringLiteral("ПС Заречная")}, {"text", QStringLiteral("В-110")}});
        const std::unique_ptr<Store> loader = store.openLoader();
        QVERIFY(TestStore::write(loader.get(), "LogbookTemplates", ROW_INSERT, "TPL_NEW",
                                 {{"CategoryKey", "CAT_CDS"}, {"nameLoc", "Новый"}, {"html", "Новый"}}));
        QVERIFY(TestStore::write(loader.get(), "LogbookTemplates", ROW_UPDATE, "TPL_ORDER",
                                 {{"html", "Иной текст"}}));
        bench.client.deliver();
        QCOMPARE(bench.templates()->currentTemplateKey(), QStringLiteral("TPL_ORDER"));
        QCOMPARE(bench.shown("text"), QStringLiteral("В-110"));
        QVERIFY(TestStore::write(loader.get(), "LogbookTemplates", ROW_DELETE, "TPL_ORDER"));
        bench.client.deliver();
        QCOMPARE(bench.templates()->currentTemplateKey(), QString());
        QCOMPARE(bench.shown("text"), QStringLiteral("В-110"));
        bench.click("saveButton");
        QVERIFY(field(store, "html", Newest).toString().contains(QStringLiteral("В-110")));
        bench.create();
        QVERIFY(bench.templates()->selectTemplate(QStringLiteral("TPL_NEW")));
    }

    void templatesCreatedWhileHiddenAreShownNextTime()
    {
        TestStore store;
        CreatorBench bench(store);
        bench.create();
        bench.dialog->close();
        addTemplate(store, "TPL_NEW", "Новый");
        bench.client.deliver();
        bench.create();
        QVERIFY(bench.templates()->selectTemplate(QStringLiteral("TPL_NEW")));
    }

    void reportsMissingTemplatesAndReloadsOnRequest()
    {
        expectWarning(QStringLiteral("Диск хранилища переполнен"), 6);
        TestStore store;
        CreatorBench bench(store);
        bench.plan->failedSelects = 6;
        bench.create();
        QCOMPARE(bench.failure(),
                 QStringLiteral("Не удалось загрузить шаблоны: %1").arg(FailingStore::refusal()));
        bench.click("reloadTablesButton");
        QCOMPARE(bench.failure(), QString());
        QVERIFY(bench.templates()->selectTemplate(QStringLiteral("TPL_TEXT")));
    }

    void fitsTheScreenAndRemembersTheSplitter()
    {
        TestStore store;
        QList<int> sizes;
        {
            CreatorBench bench(store);
            bench.create();
            QVERIFY(bench.dialog->width() <= 1200 && bench.dialog->height() <= 650);
            auto* splitter = bench.find<QSplitter>("splitter");
            splitter->setSizes({400, splitter->width() - 400});
            sizes = splitter->sizes();
            bench.dialog->close();
        }
        CreatorBench bench(store);
        bench.create();
        QCOMPARE(bench.find<QSplitter>("splitter")->sizes(), sizes);
    }

private:
    QTemporaryDir m_settings;
};

QTEST_MAIN(RecordCreatorDialog_test)
#include "RecordCreatorDialog_test.moc"
