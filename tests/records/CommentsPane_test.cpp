#include "CommentsPane.h"

#include "HfnTime.h"
#include "LocationInfo.h"
#include "LogWatch.h"
#include "MadeTable.h"
#include "MessageListDelegate.h"
#include "PageMessages.h"
#include "TestClient.h"

#include <QAction>
#include <QListWidget>
#include <QTest>
#include <QToolButton>

class CommentsPane_test : public QObject
{
    Q_OBJECT

private:
    struct Fixture {
        Fixture()
        {
            workers.add({{"KeyLink", "ME"},
                         {"lastName", QStringLiteral("Иванов")},
                         {"firstName", QStringLiteral("Пётр")}});
            location.setWorkersTable(&workers);
            location.setWorkerKey(QStringLiteral("ME"));
        }
        static double time(const char* text)
        {
            return DateTime_To_HfnTime(
                QDateTime::fromString(QLatin1String(text), QStringLiteral("dd.MM.yyyy hh:mm:ss")));
        }

        const TestStore store{TestStore::Empty};
        MadeTable records{"LogbookRecords", LogbookRecordExtFields};
        MadeTable comments{"LogbookComments", LogbookCommentFields};
        MadeTable workers{"Workers", MadeWorkerFields, "KeyLink"};
        LocationInfo location;
        TestClient client{store.openLoader()};
        CVrkCliMod module{&client.app()};
        PageMessages messages{&module};
        QListWidget list;
        QToolButton create, remove, readed;
        QAction allReaded;
        MDRData* current = nullptr;
        CommentsPane pane{{&list, &create, &remove, &readed, &allReaded},
                          {QStringLiteral("LogBookWidget"), &module, &location, &comments, &messages,
                           [this] { return current; }},
                          {[] { return 0.0; }, MDRValue::hasTime},
                          nullptr};
    };

private slots:
    void listsTheCommentsOfTheRecordInTheirOrder()
    {
        Fixture f;
        MDRData* record = f.records.add({{"KeyLink", "R1"}});
        f.comments.add({{"KeyLink", "C1"},
                        {"RecordKey", "R1"},
                        {"WorkerKey", "ME"},
                        {"commentTime", Fixture::time("03.02.2026 23:59:01")},
                        {"text_", QStringLiteral("Проверьте № 5")},
                        {"readedTime", Fixture::time("04.02.2026 00:10:00")}});
        f.comments.add({{"KeyLink", "C_OTHER"}, {"RecordKey", "R2"}});
        f.comments.add(
            {{"KeyLink", "C2"}, {"RecordKey", "R1"}, {"WorkerKey", "NOBODY"}, {"readedTime", 0.0}});
        f.comments.add({{"KeyLink", "C3"}, {"RecordKey", "R1"}});
        f.pane.reload(record);

        QCOMPARE(f.list.count(), 3);
        const QListWidgetItem* mine = f.list.item(0);
        QCOMPARE(mine->text(), QStringLiteral("Проверьте № 5"));
        QCOMPARE(mine->toolTip(), QStringLiteral("Прочитано 04.02.2026 00:10:00"));
        QCOMPARE(mine->data(256).toString(), QStringLiteral("C1"));
        QCOMPARE(mine->data(257).toString(), QStringLiteral("Иванов П."));
        QCOMPARE(mine->data(258).toString(), QStringLiteral("03.02.2026 23:59:01"));
        QCOMPARE(mine->data(259), QVariant(true));
        QCOMPARE(mine->data(260), QVariant(true));
        const QListWidgetItem* other = f.list.item(1);
        QCOMPARE(other->data(CommentKeyRole).toString(), QStringLiteral("C2"));
        QCOMPARE(other->text(), QString());
        QCOMPARE(other->toolTip(), QString());
        QCOMPARE(other->data(CommentAuthorRole).toString(), QString());
        QVERIFY(!other->data(CommentIsMineRole).isValid());
        QCOMPARE(other->data(CommentIsReadRole), QVariant(false));
        QVERIFY(!f.list.item(2)->data(CommentIsMineRole).isValid());
        QCOMPARE(f.list.currentRow(), 0);
    }

    void isEmptyWithoutARecord()
    {
        Fixture f;
        MDRData* record = f.records.add({{"KeyLink", "R1"}});
        f.comments.add({{"KeyLink", "C1"}, {"RecordKey", "R1"}});
        f.pane.reload(record);
        QCOMPARE(f.list.count(), 1);
        QVERIFY(f.readed.isEnabled());
        f.pane.reload(nullptr);
        QCOMPARE(f.list.count(), 0);
        QVERIFY(!f.create.isEnabled() && !f.remove.isEnabled() && !f.readed.isEnabled());
    }

    void logsARecordWithoutAKey()
    {
        Fixture f;
        LogWatch log;
        f.comments.add({{"KeyLink", "C1"}});
        f.pane.reload(f.records.add({}));
        f.pane.reload(f.records.add({{"KeyLink", ""}}));
        const QString line =
            QStringLiteral("void LogBookWidget::reloadComments(MDRData*) can not reload comments - "
                           "KeyLink is empty!");
        QCOMPARE(log.take(), QStringList({line, line}));
        QCOMPARE(f.list.count(), 0);
    }
};

QTEST_MAIN(CommentsPane_test)
#include "CommentsPane_test.moc"
