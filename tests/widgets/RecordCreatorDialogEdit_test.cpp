#include "CreatorBench.h"
#include "ExpectedWarning.h"
#include "HtmlParser.h"

#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

namespace
{
QString message(const char* value)
{
    return QString::fromStdString(
        "Сообщено: " + HtmlParser::createParameter({{"name", "text"}, {"locname", "Содержание"}}, value) +
        ".");
}

/// A store with a draft REC_TEXT of WORKER_PETROV whose one parameter reads "старое".
class Journal : public TestStore
{
public:
    Journal()
    {
        write("LogbookRecords", ROW_INSERT, "REC_TEXT",
              {{"ShiftKey", "SHIFT_CDS_OPEN"},
               {"WorkerKey", "WORKER_PETROV"},
               {"recordTime", now() - 900},
               {"eventTime", now() - 1000},
               {"html", message("старое")},
               {"status", 1},
               {"direction", 0}});
    }
    void write(const char* table, MDRFlag flag, const char* key, const Fields& fields = {})
    {
        const std::unique_ptr<Store> colleague = open(QStringLiteral("petrov"));
        StoreError error;
        if (!TestStore::write(colleague.get(), table, flag, key, fields, &error))
            qFatal("%s %s: %s", table, key, qPrintable(error.text));
    }
    void change(const Fields& fields) { write("LogbookRecords", ROW_UPDATE, "REC_TEXT", fields); }
    QVariant field(const char* name, const char* key = "REC_TEXT") const
    {
        return value(QStringLiteral("SELECT %1 FROM LogbookRecords WHERE KeyLink = '%2'")
                         .arg(QLatin1String(name), QLatin1String(key)));
    }
    int records() const { return value(QStringLiteral("SELECT count(*) FROM LogbookRecords")).toInt(); }
    int transactions() const
    {
        return value(QStringLiteral("SELECT count(*) FROM ChangeTransactions")).toInt();
    }
};

const QString Colleague = QStringLiteral("Петров Пётр Петрович, ");
} // namespace

/// Editing records, and changes by others in the meantime.
class RecordCreatorDialogEdit_test : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QCoreApplication::setOrganizationName(QStringLiteral("test"));
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_settings.path());
    }

    void anEditWritesOnlyChangedFields()
    {
        Journal store;
        CreatorBench bench(store);
        bench.edit("REC_TEXT");
        QCOMPARE(bench.dialog->windowTitle(), QStringLiteral("Правка записи"));
        QVERIFY(!bench.templates()->isVisible());
        QCOMPARE(bench.shown("text"), QStringLiteral("старое"));
        const QVariant recordTime = store.field("recordTime");
        bench.set("text", QStringLiteral("новое"));
        bench.click("saveButton");
        QVERIFY(!bench.dialog->isVisible());
        bench.client.deliver();
        QCOMPARE(bench.module.takeEvents(), QStringList{QStringLiteral("602 LogbookRecords REC_TEXT")});
        QCOMPARE(store.field("html").toString(), message("новое"));
        QCOMPARE(store.field("WorkerKey").toString(), QStringLiteral("WORKER_PETROV")); // another's draft
        QCOMPARE(store.field("recordTime"), recordTime);
        QCOMPARE(store.field("status").toInt(), 1);
    }

    void writesEachFieldSeparately()
    {
        Journal store;
        CreatorBench bench(store);
        const auto saveMarked = [&] {
            bench.client.deliver();
            bench.module.takeEvents();
            bench.click("saveButton");
            bench.client.deliver();
            bench.loadRecords();
            return bench.module.events.size() == 1 ? bench.module.events.first().marked : QStringList();
        };
        bench.edit("REC_TEXT");
        bench.click("toButton");
        QCOMPARE(saveMarked(), QStringList{QStringLiteral("direction")});
        bench.edit("REC_TEXT");
        bench.counterpart()->setWorker("WORKER_SIDOROVA", QStringLiteral("Сидорова"));
        QCOMPARE(saveMarked(), QStringList{QStringLiteral("ReceiverWorkerKey")});
        bench.edit("REC_TEXT");
        bench.counterpart()->setWorker(QByteArray(), QString());
        QCOMPARE(saveMarked(), QStringList{QStringLiteral("ReceiverWorkerKey")});
        QVERIFY(store.field("ReceiverWorkerKey").isNull());
        bench.edit("REC_TEXT");
        bench.eventTime()->setDateTime(bench.eventTime()->dateTime().addSecs(-60));
        QCOMPARE(saveMarked(), QStringList{QStringLiteral("eventTime")});
    }

    void writesNothingWithoutAChange()
    {
        Journal store;
        CreatorBench bench(store);
        for (const char* key : {"REC_TEXT", "REC_DRAFT_IVANOV"}) {
            bench.edit(key);
            const int before = store.transactions();
            bench.click("saveButton");
            QVERIFY(!bench.dialog->isVisible());
            QCOMPARE(store.transactions(), before);
        }
        QCOMPARE(bench.plan->writes, 0);
    }

    void writesATextChangedBackAfterOthersWroteIt()
    {
        Journal store;
        CreatorBench bench(store);
        bench.edit("REC_TEXT");
        bench.set("text", QStringLiteral("новое"));
        store.change({{"html", message("новое")}});
        bench.client.deliver();
        QVERIFY(bench.dialog->isVisible());
        bench.set("text", QStringLiteral("старое"));
        bench.click("saveButton");
        QCOMPARE(store.field("html").toString(), message("старое"));
    }

    void theFirstMarkFollowsTheTimeOfTheEvent()
    {
        Journal store;
        HtmlParser html("Допуск");
        html.setTemplateProperty("first_mark", ":/markers/worker_red.png");
        store.change({{"html", QString::fromStdString(html.readyHtml(true))},
                      {"firstMarkTime", TestStore::now() - 1000}});
        CreatorBench bench(store);
        bench.edit("REC_TEXT");
        bench.eventTime()->setDateTime(bench.eventTime()->dateTime().addSecs(-60));
        bench.click("saveButton");
        QCOMPARE(store.field("firstMarkTime").toDouble(), TestStore::now() - 1060);
    }

    void keepsAFirstMarkOfAnotherTime()
    {
        Journal store;
        HtmlParser html("Допуск");
        html.setTemplateProperty("first_mark", ":/markers/worker_red.png");
        store.change({{"html", QString::fromStdString(html.readyHtml(true))},
                      {"firstMarkTime", TestStore::now() - 500}});
        CreatorBench bench(store);
        bench.edit("REC_TEXT");
        bench.eventTime()->setDateTime(bench.eventTime()->dateTime().addSecs(-60));
        bench.click("saveButton");
        QCOMPARE(store.field("firstMarkTime").toDouble(), TestStore::now() - 500);
    }

    void keepsADeletedWorkerAsCounterpart()
    {
        Journal store;
        store.change({{"ReceiverWorkerKey", "WORKER_KUZNETSOV"}, {"direction", 1}});
        CreatorBench bench(store);
        bench.edit("REC_TEXT");
        QVERIFY(bench.counterpartLine()->text().startsWith(QStringLiteral("Кузнецов")));
        bench.set("text", QStringLiteral("новое"));
        bench.click("saveButton");
        QCOMPARE(store.field("ReceiverWorkerKey").toString(), QStringLiteral("WORKER_KUZNETSOV"));
    }

    void approvedAndDeletedRecordsOpenForReading()
    {
        Journal store;
        CreatorBench bench(store);
        const struct {
            const char* key;
            const char* reported;
        } records[] = {{"REC_ORDER", "Запись утверждена и открыта только для чтения."},
                       {"REC_REPLACED", "Запись удалена и открыта только для чтения."}};
        for (const auto& record : records) {
            bench.edit(record.key);
            QCOMPARE(bench.dialog->windowTitle(), QStringLiteral("Просмотр записи"));
            const auto* worker = bench.dialog->findChild<QLineEdit*>(QStringLiteral("workerLine"));
            QVERIFY(!worker->isClearButtonEnabled());
            QCOMPARE(bench.notice(), QString::fromUtf8(record.reported));
            QVERIFY(!bench.filler()->isEnabled());
            QVERIFY(!bench.eventTime()->isEnabled());
            QVERIFY(!bench.counterpart()->isEnabled());
            QVERIFY(!bench.button("fromButton")->isEnabled());
            QVERIFY(!bench.button("saveButton")->isVisible());
            QTest::keyClick(bench.dialog, Qt::Key_Return, Qt::ControlModifier);
            QCOMPARE(bench.plan->writes, 0);
            bench.click("cancelButton");
            QVERIFY(!bench.dialog->isVisible());
        }
    }

    void reportsAMissingRecord()
    {
        Journal store;
        CreatorBench bench(store);
        bench.dialog->setCurrentRecord(bench.record("REC_TEXT"));
        MDARecDel(bench.record("REC_TEXT"));
        bench.dialog->show();
        QCOMPARE(bench.notice(), QStringLiteral("Запись не найдена: возможно, она удалена."));
        QVERIFY(!bench.button("saveButton")->isVisible());
    }

    void theRecordIsKeptByKey()
    {
        Journal store;
        CreatorBench bench(store);
        bench.edit("REC_TEXT");
        bench.set("text", QStringLiteral("новое"));
        MDAClearRec(bench.records.data.array); // the tab loads another shift
        bench.click("saveButton");
        QCOMPARE(store.field("html").toString(), message("новое"));
    }

    void showsAColleaguesChangeWithoutUnsavedText()
    {
        Journal store;
        CreatorBench bench(store);
        bench.edit("REC_TEXT");
        store.change({{"html", message("от коллеги")}, {"direction", 2}});
        bench.client.deliver();
        QCOMPARE(bench.shown("text"), QStringLiteral("от коллеги"));
        QVERIFY(bench.button("toButton")->isChecked());
        QVERIFY2(bench.notice().startsWith(Colleague), qPrintable(bench.notice()));
        QVERIFY2(bench.notice().endsWith(QStringLiteral(": изменено (текст, направление).")),
                 qPrintable(bench.notice()));
        bench.click("cancelButton");
        QVERIFY(!bench.dialog->isVisible());
    }

    void othersMarksCauseNoNotice()
    {
        Journal store;
        CreatorBench bench(store);
        bench.edit("REC_TEXT");
        store.change({{"executionTime", TestStore::now()}});
        bench.client.deliver();
        QCOMPARE(bench.notice(), QString());
    }

    void aConflictCanKeepTheOwnText()
    {
        Journal store;
        CreatorBench bench(store);
        bench.edit("REC_TEXT");
        bench.set("text", QStringLiteral("моё"));
        store.change({{"html", message("от коллеги")}, {"direction", 2}});
        bench.client.deliver();
        QCOMPARE(bench.shown("text"), QStringLiteral("моё"));
        QVERIFY(bench.button("toButton")->isChecked()); // not changed here
        QVERIFY2(bench.notice().startsWith(Colleague), qPrintable(bench.notice()));
        QVERIFY(bench.notice().contains(QStringLiteral("Ваш текст остался в окне")));
        bench.click("saveButton");
        QCOMPARE(bench.question(), QStringLiteral("Запись тем временем изменили. Какой вариант оставить?"));
        QCOMPARE(store.field("html").toString(), message("от коллеги"));
        bench.click("keepMineButton");
        QCOMPARE(store.field("html").toString(), message("моё"));
        QCOMPARE(store.field("direction").toInt(), 2);
        QVERIFY(!bench.dialog->isVisible());
    }

    void aConflictCanTakeTheOthersText()
    {
        Journal store;
        CreatorBench bench(store);
        bench.edit("REC_TEXT");
        bench.set("text", QStringLiteral("моё"));
        store.change({{"html", message("от коллеги")}});
        bench.client.deliver();
        bench.click("saveButton");
        bench.click("takeTheirsButton");
        QCOMPARE(bench.shown("text"), QStringLiteral("от коллеги"));
        QCOMPARE(bench.plan->writes, 0);
        bench.click("cancelButton");
        QVERIFY(!bench.dialog->isVisible());
    }

    void aConflictCanBeLeftOpen()
    {
        Journal store;
        CreatorBench bench(store);
        bench.edit("REC_TEXT");
        bench.set("text", QStringLiteral("моё"));
        store.change({{"html", message("от коллеги")}});
        bench.client.deliver();
        bench.click("saveButton");
        bench.click("stayButton");
        QCOMPARE(bench.question(), QString());
        QCOMPARE(bench.shown("text"), QStringLiteral("моё"));
        bench.click("saveButton");
        QVERIFY(!bench.question().isEmpty());
    }

    void anEqualTextOfAColleagueIsNoConflict()
    {
        Journal store;
        CreatorBench bench(store);
        bench.edit("REC_TEXT");
        bench.set("text", QStringLiteral("одно и то же"));
        store.change({{"html", message("одно и то же")}});
        bench.client.deliver();
        QCOMPARE(bench.notice(), QString());
        bench.click("saveButton");
        QVERIFY(!bench.dialog->isVisible());
        QCOMPARE(bench.plan->writes, 0);
    }

    void textOfADeletedRecordCanBecomeANewDraft()
    {
        Journal store;
        CreatorBench bench(store);
        bench.edit("REC_TEXT");
        bench.set("text", QStringLiteral("моё"));
        store.write("LogbookRecords", ROW_DELETE, "REC_TEXT");
        const int left = store.records();
        bench.client.deliver();
        QVERIFY2(bench.notice().startsWith(QStringLiteral("Запись удалена: ") + Colleague),
                 qPrintable(bench.notice()));
        QCOMPARE(bench.holdText(), QStringLiteral("Эту запись изменить больше нельзя"));
        QVERIFY(!bench.button("saveButton")->isEnabled());
        bench.click("saveAsNewButton");
        QVERIFY(!bench.dialog->isVisible());
        QCOMPARE(store.records(), left + 1);
        const QString newest = QStringLiteral("SELECT %1 FROM LogbookRecords ORDER BY rowid DESC LIMIT 1");
        QCOMPARE(store.value(newest.arg(QStringLiteral("html"))).toString(), message("моё"));
        QCOMPARE(store.value(newest.arg(QStringLiteral("WorkerKey"))).toString(),
                 QStringLiteral("WORKER_IVANOV"));
        QVERIFY(store.value(newest.arg(QStringLiteral("KeyLink"))).toString() != QStringLiteral("REC_TEXT"));
    }

    void aDeletedRecordWithoutUnsavedTextClosesTheDialog()
    {
        Journal store;
        CreatorBench bench(store);
        bench.edit("REC_TEXT");
        store.write("LogbookRecords", ROW_DELETE, "REC_TEXT");
        bench.client.deliver();
        QVERIFY(bench.notice().startsWith(QStringLiteral("Запись удалена: ")));
        bench.click("cancelButton");
        QVERIFY(!bench.dialog->isVisible());
    }

    void leavingTheTextOfADeletedRecordAsks()
    {
        Journal store;
        CreatorBench bench(store);
        bench.edit("REC_TEXT");
        bench.set("text", QStringLiteral("моё"));
        store.write("LogbookRecords", ROW_DELETE, "REC_TEXT");
        bench.client.deliver();
        bench.click("cancelButton");
        QVERIFY(!bench.question().isEmpty());
        bench.click("dropTextButton");
        QVERIFY(!bench.dialog->isVisible());
    }

    void anApprovedRecordBecomesReadOnly()
    {
        Journal store;
        CreatorBench bench(store);
        bench.edit("REC_TEXT");
        store.change({{"status", 0}});
        bench.client.deliver();
        QVERIFY2(bench.notice().startsWith(QStringLiteral("Запись утверждена: ") + Colleague),
                 qPrintable(bench.notice()));
        QVERIFY(!bench.filler()->isEnabled());
        bench.click("cancelButton");

        store.write("LogbookRecords", ROW_INSERT, "REC_TEXT2",
                    {{"ShiftKey", "SHIFT_CDS_OPEN"},
                     {"WorkerKey", "WORKER_PETROV"},
                     {"recordTime", TestStore::now()},
                     {"eventTime", TestStore::now()},
                     {"html", message("старое")},
                     {"status", 1},
                     {"direction", 0}});
        bench.loadRecords();
        bench.edit("REC_TEXT2");
        bench.set("text", QStringLiteral("моё"));
        store.write("LogbookRecords", ROW_UPDATE, "REC_TEXT2", {{"status", 0}});
        bench.client.deliver();
        bench.click("saveAsNewButton");
        QCOMPARE(store.field("html", "REC_TEXT2").toString(), message("старое"));
        QCOMPARE(store.value(QStringLiteral("SELECT html FROM LogbookRecords ORDER BY rowid DESC LIMIT 1"))
                     .toString(),
                 message("моё"));
    }

    void aReadOnlyRecordFollowsItsState()
    {
        Journal store;
        CreatorBench bench(store);
        bench.edit("REC_ORDER");
        store.write("LogbookRecords", ROW_UPDATE, "REC_ORDER", {{"status", 2}});
        bench.client.deliver();
        QCOMPARE(bench.notice(), QStringLiteral("Запись удалена и открыта только для чтения."));
    }

    void aRefusedEditKeepsEverythingAndSaysWhy()
    {
        expectWarning(QStringLiteral("Диск хранилища переполнен"));
        Journal store;
        CreatorBench bench(store);
        bench.edit("REC_TEXT");
        bench.set("text", QStringLiteral("моё"));
        bench.plan->refusedWrites = 1;
        bench.click("saveButton");
        QVERIFY(bench.dialog->isVisible());
        QCOMPARE(bench.failure(),
                 QStringLiteral("Не удалось сохранить запись: %1").arg(FailingStore::refusal()));
        QCOMPARE(bench.shown("text"), QStringLiteral("моё"));
        bench.click("saveButton");
        QCOMPARE(store.field("html").toString(), message("моё"));
    }

    void anEditWithoutAnAnswerIsSavedByItsEvent()
    {
        expectWarning(QStringLiteral("Нет связи с хранилищем"));
        Journal store;
        CreatorBench bench(store);
        bench.edit("REC_TEXT");
        bench.set("text", QStringLiteral("моё"));
        bench.plan->lostAnswers = 2;
        bench.click("saveButton");
        QVERIFY(bench.dialog->isVisible());
        QTRY_VERIFY((bench.client.deliver(), !bench.dialog->isVisible()));
        QCOMPARE(store.field("html").toString(), message("моё"));
    }

private:
    QTemporaryDir m_settings;
};

QTEST_MAIN(RecordCreatorDialogEdit_test)
#include "RecordCreatorDialogEdit_test.moc"
