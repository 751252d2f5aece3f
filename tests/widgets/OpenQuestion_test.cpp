// A question box is open over a table while change events arrive.

#include "CPopMessageBox.h"
#include "PopGuard.h"
#include "RecordTable.h"
#include "TestClient.h"
#include "VrkTableFilterRow.h"
#include "VrkTableTool.h"

#include <QPushButton>
#include <QTableView>
#include <QTest>

/// A module with a record table that adds every inserted record and makes it current, like the journal, and
/// asks a question about the current record.
class QuestionModule : public TestModule
{
    Q_OBJECT

public:
    explicit QuestionModule(TestClient& client) : TestModule(client), view(new QTableView), box(this)
    {
        setCentralWidget(view);
        tool.setTableView(view);
        tool.setCMDArray(&table);
        tool.setDefaultSettingsView();
        onEvent = [this](HFNCliParam*) {
            if (events.last().number != 601 || events.last().table != QStringLiteral("LogbookRecords"))
                return;
            tool.model()->beginAppendRows(1);
            MDRData* record = table.add(events.last().key.constData(), 100.0 + table.RecCount(), QString());
            tool.model()->endAppendRows();
            tool.setCurrentRecord(record);
        };
        resize(400, 300);
        show();
    }

    MDRData* append(const char* key)
    {
        tool.model()->beginAppendRows(1);
        MDRData* record = table.add(key, table.RecCount(), QString());
        tool.model()->endAppendRows();
        return record;
    }
    void ask()
    {
        box.setMessage(QStringLiteral("Вопрос"), QString(), MessageIconQuestion, MessageTypeYesNo,
                       SLOT(answer(QAbstractButton*)));
        box.show();
    }
    static QByteArray key(MDRData* record)
    {
        MDRVar value;
        if (record)
            MDRGetVal(MDRFldByName(record->owner, "KeyLink"), record, &value);
        return MDRValue::copy(value);
    }
    QByteArray currentKey() const { return key(tool.currentRecord()); }

    RecordTable table;
    QTableView* view;
    VrkTableTool tool;
    CPopMessageBox box;
    QByteArray answered; ///< key of the record that was current at the answer

public slots:
    void answer(QAbstractButton* button)
    {
        disconnect(box.buttonBox(), SIGNAL(clicked(QAbstractButton*)), nullptr, nullptr);
        box.close();
        if (button && box.ButtonRole(button) == 5)
            answered = currentKey();
    }
};

class OpenQuestion_test : public QObject
{
    Q_OBJECT

private:
    struct Setup {
        Setup() : client(store), module(client), colleague(store.open(QStringLiteral("petrov")))
        {
            asked = module.append("ASKED");
            module.append("OTHER");
            module.tool.setCurrentRecord(asked);
        }
        void colleagueWrites(const char* key)
        {
            const double now = TestStore::now();
            QVERIFY(TestStore::write(colleague.get(), "LogbookRecords", ROW_INSERT, key,
                                     {{"ShiftKey", QStringLiteral("SHIFT_CDS_OPEN")},
                                      {"WorkerKey", QStringLiteral("WORKER_PETROV")},
                                      {"recordTime", now},
                                      {"eventTime", now},
                                      {"html", QStringLiteral("текст")},
                                      {"status", 1},
                                      {"direction", 0}}));
            client.deliver();
        }
        void press(const char* button)
        {
            QTest::mouseClick(module.box.findChild<QPushButton*>(QLatin1String(button)), Qt::LeftButton);
        }

        TestStore store;
        TestClient client;
        QuestionModule module;
        std::unique_ptr<Store> colleague;
        MDRData* asked = nullptr;
    };

private slots:
    void withoutAQuestionANewRecordBecomesCurrentAtOnce()
    {
        Setup s;
        s.colleagueWrites("NEW");
        QCOMPARE(s.module.currentKey(), QByteArray("NEW"));
    }

    void theAnswerMeetsTheRecordThatWasAskedAbout()
    {
        Setup s;
        s.module.ask();
        s.colleagueWrites("NEW");
        QCOMPARE(s.module.tool.proxy()->rowCount(), 3);       // it is shown,
        QCOMPARE(s.module.currentKey(), QByteArray("ASKED")); // but not current
        s.press("yesButton");
        QCOMPARE(s.module.answered, QByteArray("ASKED"));
        QTRY_COMPARE(s.module.currentKey(), QByteArray("NEW"));
    }

    void theLastOfSeveralBecomesCurrentAfterwards()
    {
        Setup s;
        s.module.ask();
        s.colleagueWrites("NEW1");
        s.colleagueWrites("NEW2");
        s.press("noButton");
        QTRY_COMPARE(s.module.currentKey(), QByteArray("NEW2"));
        QCOMPARE(s.module.answered, QByteArray());
    }

    void aQuestionThatFollowsAtOnceGoesOnWaiting()
    {
        Setup s;
        s.module.ask();
        s.colleagueWrites("NEW");
        s.press("noButton");
        s.module.ask();
        QCoreApplication::sendPostedEvents();
        QCOMPARE(s.module.currentKey(), QByteArray("ASKED"));
        s.press("yesButton");
        QCOMPARE(s.module.answered, QByteArray("ASKED"));
        QTRY_COMPARE(s.module.currentKey(), QByteArray("NEW"));
    }

    void aChoiceOfTheProgramItselfIsNotPutOff()
    {
        Setup s;
        s.module.ask();
        s.colleagueWrites("NEW");
        s.module.tool.setCurrentRecord(s.module.table.row(1));
        QCOMPARE(s.module.currentKey(), QByteArray("OTHER"));
        s.press("noButton");
        QCoreApplication::sendPostedEvents();
        QCOMPARE(s.module.currentKey(), QByteArray("OTHER")); // and the pending request is dropped
    }

    void aRecordThatLeavesUnderTheQuestionHandsItToNoOther()
    {
        Setup s;
        s.module.ask();
        s.module.tool.model()->beginRemoveRecord(s.asked);
        MDARecDel(s.asked);
        s.module.tool.model()->endRemoveRecord();
        s.press("yesButton");
        QCOMPARE(s.module.answered, QByteArray());
        QCOMPARE(s.module.tool.currentRecord(), nullptr);
    }

    void withoutAQuestionTheNeighbourBecomesCurrent()
    {
        Setup s;
        s.module.tool.model()->beginRemoveRecord(s.asked);
        MDARecDel(s.asked);
        s.module.tool.model()->endRemoveRecord();
        QCOMPARE(s.module.currentKey(), QByteArray("OTHER"));
    }

    void aRecordThatAFilterHidesHandsItToNoOther()
    {
        class NotAsked : public VrkTableFilterRow
        {
        public:
            bool isAcceptRow(const CMDArray*, MDRData* record) const override
            {
                return !isEnabled() || QuestionModule::key(record) != "ASKED";
            }
        } filter;
        Setup s;
        filter.setEnabled(false);
        s.module.tool.proxy()->setFilterRows(&filter);
        s.module.ask();
        filter.setEnabled(true);
        s.press("yesButton");
        QCOMPARE(s.module.answered, QByteArray());
    }

    void theUserCannotLeaveTheRecordUnderTheQuestion()
    {
        Setup s;
        s.module.ask();
        const QModelIndex other = s.module.tool.proxy()->index(1, 0);
        QTest::mouseClick(s.module.view->viewport(), Qt::LeftButton, Qt::NoModifier,
                          s.module.view->visualRect(other).center());
        QTest::keyClick(s.module.view, Qt::Key_Down);
        QCOMPARE(s.module.currentKey(), QByteArray("ASKED"));
        s.press("noButton");
        QTest::keyClick(s.module.view, Qt::Key_Down);
        QCOMPARE(s.module.currentKey(), QByteArray("OTHER"));
    }

    void aRecordThatWasRemovedMeanwhileIsNotWaitedFor()
    {
        Setup s;
        s.module.ask();
        s.colleagueWrites("NEW");
        MDRData* fresh = s.module.table.row(2);
        s.module.tool.model()->beginRemoveRecord(fresh);
        MDARecDel(fresh);
        s.module.tool.model()->endRemoveRecord();
        s.press("noButton");
        QCoreApplication::sendPostedEvents();
        QCOMPARE(s.module.currentKey(), QByteArray("ASKED"));
    }
};

QTEST_MAIN(OpenQuestion_test)
#include "OpenQuestion_test.moc"
