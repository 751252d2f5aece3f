#include "ExpectedWarning.h"
#include "LogbookFields.h"
#include "MDRValues.h"
#include "StoreAdmin.h"
#include "TestClient.h"

#include <QFile>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>
#include <sqlite3.h>

/// Sessions on a real store: how several clients see each other's changes, and the effects of a failing
/// store.
class CVrkCliSesStoreTest : public QObject
{
    Q_OBJECT

private slots:
    void anAnswerHasFieldsKeyAndCodePageTexts();
    void anAnswerWithoutRowsHasFieldsAndKey();
    void aSelectThatWritesIsRefused();
    void aWriteWithoutFlagsMakesNoTransaction();
    void aBlockIsOneTransaction();
    void aFailedBlockWritesNothing();
    void aRefusedWriteHasAReason();
    void rightsAreThoseOfTheLogin();
    void fetchesTheOptionsFile();

    void clientsSeeEachChangeOnceAndInOrder();
    void anEventMarksTheChangedFieldsOfItsRow();
    void anEventOfAWriteInAMessageComesAfterTheDelivery();
    void anOwnWriteComesBackAtOnce();
    void eventsStartWithTheSession();
    void aBurstOfEventsIsCompleteAndInOrder();
    void theBytesOfAFileAreFetchedByKey();

    void aLockOfAnotherFailsOnlyTheWrite();
    void waitingForALockShowsTheStrip();
    void aRemovedFileTakesTheSessionDown();
    void aRestoredFileIsFound();
    void reportsAnotherHistory();

private:
    static bool write(TestClient& client, MDRFlag flag, const QByteArray& key, const QByteArray& text = "x")
    {
        CRowBatch batch(LogbookCommentFields, 6);
        MDRData* row = batch.newRow(flag, key);
        if (flag == ROW_INSERT) {
            batch.SetValF(row, "WorkerKey", MDRValue::text("WORKER_IVANOV"));
            batch.SetValF(row, "RecordKey", MDRValue::text("REC_MESSAGE"));
        }
        if (flag != ROW_DELETE)
            batch.SetValF(row, "text_", MDRValue::text(text, mdr_TMemo));
        batch.RecPost(row);
        return client.session().SqlUpdate("LogbookComments", batch.array, true, nullptr);
    }
    static int comments(const TestStore& store, const QString& key)
    {
        return store.value(QStringLiteral("SELECT count(*) FROM LogbookComments WHERE KeyLink='%1'").arg(key))
            .toInt();
    }
    static int transactions(const TestStore& store)
    {
        return store.value(QStringLiteral("SELECT coalesce(max(number), 0) FROM ChangeTransactions")).toInt();
    }
};

void CVrkCliSesStoreTest::anAnswerHasFieldsKeyAndCodePageTexts()
{
    TestStore store;
    TestClient client(store);
    CMDArray answer;
    answer = client.session().SqlRequest("SELECT * FROM Departments WHERE name_='ЦДС';");
    QVERIFY(answer.array);
    QCOMPARE(answer.RecCount(), 1);
    MDRVar name;
    answer.GetVal(MDARec(answer.array, 0, 0), "name_", name);
    QCOMPARE(MDRValue::copy(name), TestStore::bytes(QStringLiteral("ЦДС")));
}

void CVrkCliSesStoreTest::anAnswerWithoutRowsHasFieldsAndKey()
{
    TestStore store;
    TestClient client(store);
    CMDArray answer;
    answer = client.session().SqlRequest("SELECT * FROM LogbookRecords WHERE KeyLink='none'");
    QVERIFY(answer.array);
    QCOMPARE(MDAFldCount(answer.array), 15);
    QCOMPARE(MDAKeyCount(answer.array), 1);
    QCOMPARE(answer.RecCount(), 0);
}

void CVrkCliSesStoreTest::aSelectThatWritesIsRefused()
{
    expectWarning(QStringLiteral("DELETE FROM LogbookComments"));
    TestStore store;
    TestClient client(store);
    QVERIFY(!client.session().SqlRequest("DELETE FROM LogbookComments"));
    QCOMPARE(client.takeFailures().size(), 1);
    QCOMPARE(comments(store, QStringLiteral("COM_READ")), 1);
}

void CVrkCliSesStoreTest::aWriteWithoutFlagsMakesNoTransaction()
{
    TestStore store;
    TestClient client(store);
    const int before = transactions(store);
    CRowBatch empty(LogbookCommentFields, 6);
    QVERIFY(client.session().SqlUpdate("LogbookComments", empty.array, true, nullptr));
    CRowBatch unflagged(LogbookCommentFields, 6);
    unflagged.RecPost(MDARecNew(unflagged.array));
    QVERIFY(client.session().SqlUpdate("LogbookComments", unflagged.array, true, nullptr));
    client.session().BlockBeg();
    QVERIFY(client.session().SqlUpdate("LogbookComments", empty.array, true, nullptr));
    QVERIFY(client.session().BlockEnd(true, nullptr));
    QCOMPARE(transactions(store), before);
}

void CVrkCliSesStoreTest::aBlockIsOneTransaction()
{
    TestStore store;
    TestClient client(store);
    const int before = transactions(store);
    client.session().BlockBeg();
    QVERIFY(write(client, ROW_INSERT, "C1"));
    QVERIFY(write(client, ROW_DELETE, "C1"));
    QVERIFY(write(client, ROW_INSERT, "C1", "again"));
    QCOMPARE(comments(store, QStringLiteral("C1")), 0);
    QVERIFY(client.session().BlockEnd(true, nullptr));
    QCOMPARE(store.value(QStringLiteral("SELECT text_ FROM LogbookComments WHERE KeyLink='C1'")).toString(),
             QStringLiteral("again"));
    QCOMPARE(transactions(store), before + 1);
}

void CVrkCliSesStoreTest::aFailedBlockWritesNothing()
{
    expectWarning(QStringLiteral("NO_SUCH_ROW LogbookComments"));
    TestStore store;
    TestClient client(store);
    client.session().BlockBeg();
    QVERIFY(write(client, ROW_INSERT, "C1"));
    QVERIFY(write(client, ROW_UPDATE, "NO_SUCH_ROW"));
    QVERIFY(!client.session().BlockEnd(true, nullptr));
    QCOMPARE(comments(store, QStringLiteral("C1")), 0);
    QCOMPARE(client.takeFailures().size(), 1);
}

void CVrkCliSesStoreTest::aRefusedWriteHasAReason()
{
    expectWarning(QStringLiteral("Комментарий удаляет только его автор"));
    TestStore store;
    TestClient client(store);
    QSignalSpy failed(&client.session(), &CVrkCliSes::requestFailed);
    QVERIFY(!write(client, ROW_DELETE, "COM_UNREAD")); // the comment of another
    QCOMPARE(failed.count(), 1);
    QCOMPARE(failed.at(0).at(0).toBool(), true);
    QCOMPARE(failed.at(0).at(1).toString(), QStringLiteral("LogbookComments"));
    QVERIFY(failed.at(0).at(2).toString().contains(QRegularExpression(QStringLiteral("[а-я]{3}"))));
    QVERIFY(client.session().isConnected());
}

void CVrkCliSesStoreTest::rightsAreThoseOfTheLogin()
{
    TestStore store;
    TestClient chief(store, QStringLiteral("sidorova"));
    TestClient local(store, QStringLiteral("smirnov"));
    TestClient dispatcher(store);
    QVERIFY(chief.session().OperationRights("ADMINISTRATOR") != 0);
    QCOMPARE(chief.session().OperationRights("ADMINISTRATOR_OPERLOG_LOCAL"), 0);
    QVERIFY(local.session().OperationRights("ADMINISTRATOR_OPERLOG_LOCAL") != 0);
    QCOMPARE(dispatcher.session().OperationRights("ADMINISTRATOR"), 0);
}

void CVrkCliSesStoreTest::fetchesTheOptionsFile()
{
    TestStore store;
    StoreError error;
    const QByteArray options = "<Options CheckLengthShift=\"1\"/>";
    QVERIFY(StoreAdmin::putFile(store.url(), QStringLiteral("options"), QStringLiteral("OperLogOptions"),
                                options, &error));
    TestClient client(store);
    HFNCliParam* block = nullptr;
    const auto* argument = reinterpret_cast<const unsigned char*>("options;OperLogOptions");
    QVERIFY(client.session().PacketExec("FileGet", argument, 22, &block));
    QVERIFY(client.session().WaitResult(&block, -1));
    char* packed = nullptr;
    MDRGetTextPtr(MDRFldByNum(block->array, 2), block, &packed);
    CMDArray file;
    MDACreate(&file.array, 0);
    QCOMPARE(HFNArrayUnPack(file.array, packed, 1), 0);
    MDRVar content;
    MDRGetVal(MDRFldByNum(file.array, 3), MDARec(file.array, 0, 0), &content);
    QCOMPARE(MDRValue::copy(content), options);
    client.session().PrmFree(block);
    QCOMPARE(client.session().openBlocks(), 0);
}

void CVrkCliSesStoreTest::clientsSeeEachChangeOnceAndInOrder()
{
    TestStore store;
    TestClient ivanov(store);
    TestClient petrov(store, QStringLiteral("petrov"));
    TestModule first(ivanov);
    TestModule second(petrov);
    QVERIFY(write(ivanov, ROW_INSERT, "C1"));
    QVERIFY(write(ivanov, ROW_UPDATE, "C1", "y"));
    CRowBatch read(LogbookCommentFields, 6);
    MDRData* row = read.newRow(ROW_UPDATE, "C1");
    read.SetValF(row, "readedTime", MDRValue::real(TestStore::now()));
    read.RecPost(row);
    QVERIFY(petrov.session().SqlUpdate("LogbookComments", read.array, true, nullptr));
    QVERIFY(write(ivanov, ROW_DELETE, "C1"));
    QCOMPARE(first.events.size(), 0); // never during a request

    const QStringList all{QStringLiteral("601 LogbookComments C1"), QStringLiteral("602 LogbookComments C1"),
                          QStringLiteral("602 LogbookComments C1"), QStringLiteral("603 LogbookComments C1")};
    QVERIFY(first.waitForEvents(4));
    QVERIFY(second.waitForEvents(4));
    ivanov.deliver();
    petrov.deliver();
    QCOMPARE(first.takeEvents(), all);
    QCOMPARE(second.takeEvents(), all);
}

void CVrkCliSesStoreTest::anEventMarksTheChangedFieldsOfItsRow()
{
    TestStore store;
    TestClient client(store);
    TestModule module(client);
    QVERIFY(write(client, ROW_INSERT, "C1", TestStore::bytes(QStringLiteral("первый"))));
    QVERIFY(write(client, ROW_UPDATE, "C1", TestStore::bytes(QStringLiteral("второй"))));
    client.deliver();
    QCOMPARE(module.events.size(), 2);
    QCOMPARE(module.events[0].marked.size(), 6);
    QCOMPARE(module.events[1].marked, QStringList(QStringLiteral("text_")));
    const QByteArray number = QByteArray::number(transactions(store));
    QCOMPARE(module.events[1].source, QByteArray("NCI:LogbookComments," + number));
}

void CVrkCliSesStoreTest::anEventOfAWriteInAMessageComesAfterTheDelivery()
{
    TestStore store;
    TestClient client(store);
    TestModule module(client);
    int depth = 0;
    module.onEvent = [&](HFNCliParam*) {
        QCOMPARE(++depth, 1);
        if (module.events.size() == 1) {
            QVERIFY(write(client, ROW_INSERT, "C2"));
            QCOMPARE(client.app().fetchEvents(), 0);
            QCoreApplication::processEvents();
        }
        --depth;
    };
    QVERIFY(write(client, ROW_INSERT, "C1"));
    QVERIFY(module.waitForEvents(2));
    QCOMPARE(module.takeEvents(), (QStringList{QStringLiteral("601 LogbookComments C1"),
                                               QStringLiteral("601 LogbookComments C2")}));
}

void CVrkCliSesStoreTest::anOwnWriteComesBackAtOnce()
{
    const TestStore store;
    TestClient client(store);
    TestModule module(client);
    client.deliver();
    QVERIFY(write(client, ROW_INSERT, "MINE"));
    for (int i = 0; i < 5; ++i) // no poll of others' writes is due so soon
        QCoreApplication::processEvents();
    QCOMPARE(module.takeEvents(), QStringList{QStringLiteral("601 LogbookComments MINE")});
}

void CVrkCliSesStoreTest::eventsStartWithTheSession()
{
    TestStore store;
    TestClient early(store);
    QVERIFY(write(early, ROW_INSERT, "C1"));
    TestClient late(store, QStringLiteral("petrov"));
    TestModule module(late);
    QVERIFY(write(early, ROW_INSERT, "C2"));
    QVERIFY(module.waitForEvents(1));
    late.deliver();
    QCOMPARE(module.takeEvents(), QStringList(QStringLiteral("601 LogbookComments C2")));
}

void CVrkCliSesStoreTest::aBurstOfEventsIsCompleteAndInOrder()
{
    TestStore store;
    TestClient writer(store);
    TestClient reader(store, QStringLiteral("petrov"));
    TestModule module(reader);
    QStringList expected;
    CRowBatch batch(LogbookCommentFields, 6);
    for (int i = 0; i < 2500; ++i) { // more than the feed reads at once
        const QByteArray key = "C" + QByteArray::number(i);
        MDRData* row = batch.newRow(ROW_INSERT, key);
        batch.SetValF(row, "WorkerKey", MDRValue::text("WORKER_IVANOV"));
        batch.SetValF(row, "RecordKey", MDRValue::text("REC_MESSAGE"));
        batch.RecPost(row);
        expected.append(QStringLiteral("601 LogbookComments ") + QString::fromLatin1(key));
    }
    QVERIFY(writer.session().SqlUpdate("LogbookComments", batch.array, true, nullptr));
    QVERIFY(module.waitForEvents(2500));
    QCOMPARE(module.takeEvents(), expected);
}

void CVrkCliSesStoreTest::theBytesOfAFileAreFetchedByKey()
{
    expectWarning(QStringLiteral("LogbookFiles.fileData NONE"));
    TestStore store;
    TestClient client(store);
    TestModule module(client);
    const QByteArray bytes("\0\1content", 9);
    CRowBatch batch(LogbookFilesFields, 5);
    MDRData* row = batch.newRow(ROW_INSERT, "F1");
    batch.SetValF(row, "WorkerKey", MDRValue::text("WORKER_IVANOV"));
    batch.SetValF(row, "RecordKey", MDRValue::text("REC_MESSAGE"));
    batch.SetValF(row, "fileName", MDRValue::text("a.bin"));
    batch.SetValF(row, "fileData", MDRValue::text(bytes, mdr_TBlob));
    batch.RecPost(row);
    QVERIFY(client.session().SqlUpdate("LogbookFiles", batch.array, true, nullptr));
    client.deliver();
    QCOMPARE(module.takeEvents(), QStringList(QStringLiteral("601 LogbookFiles F1")));
    QByteArray fetched;
    QVERIFY(client.session().blobSource("LogbookFiles", "fileData", "F1")->read(fetched));
    QCOMPARE(fetched, bytes);
    QVERIFY(!client.session().blobSource("LogbookFiles", "fileData", "NONE")->read(fetched));
}

void CVrkCliSesStoreTest::aLockOfAnotherFailsOnlyTheWrite()
{
    if (!TestStore::isSqlite())
        QSKIP("Of a store in a file");
    expectWarning(QStringLiteral("слишком долго занят другой программой"));
    TestStore store;
    Store::Options options;
    options.deadlineMs = 200;
    TestClient client(store.open(QStringLiteral("ivanov"), options));
    sqlite3* other = nullptr;
    QCOMPARE(sqlite3_open(store.path().toUtf8().constData(), &other), SQLITE_OK);
    QCOMPARE(sqlite3_exec(other, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr), SQLITE_OK);

    QVERIFY(!write(client, ROW_INSERT, "C1"));
    QCOMPARE(client.takeFailures().size(), 1);
    QVERIFY(client.session().isConnected());
    CMDArray answer;
    answer = client.session().SqlRequest("SELECT * FROM LogbookComments");
    QVERIFY(answer.array);

    sqlite3_exec(other, "ROLLBACK", nullptr, nullptr, nullptr);
    sqlite3_close(other);
    QVERIFY(write(client, ROW_INSERT, "C1"));
    QCOMPARE(comments(store, QStringLiteral("C1")), 1);
}

void CVrkCliSesStoreTest::waitingForALockShowsTheStrip()
{
    if (!TestStore::isSqlite())
        QSKIP("Of a store in a file");
    TestStore store;
    Store::Options options;
    options.deadlineMs = 60000;
    TestClient client(store.open(QStringLiteral("ivanov"), options));
    sqlite3* other = nullptr;
    QCOMPARE(sqlite3_open(store.path().toUtf8().constData(), &other), SQLITE_OK);
    QCOMPARE(sqlite3_exec(other, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr), SQLITE_OK);
    int looks = 0;
    client.session().store()->setProgress([&] {
        if (++looks == 3)
            sqlite3_exec(other, "ROLLBACK", nullptr, nullptr, nullptr);
    });
    QVERIFY(write(client, ROW_INSERT, "C1"));
    QCOMPARE(looks, 3);
    sqlite3_close(other);
}

void CVrkCliSesStoreTest::aRemovedFileTakesTheSessionDown()
{
    if (!TestStore::isSqlite())
        QSKIP("Of a store in a file");
    expectWarning(QStringLiteral("исчез"));
    expectWarning(QStringLiteral("Нет связи с сервером"));
    TestStore store;
    TestClient client(store);
    QSignalSpy connection(&client.session(), &CVrkCliSes::connectionChanged);
    QVERIFY(QFile::remove(store.path()));
    QVERIFY(!write(client, ROW_INSERT, "C1"));
    QVERIFY(!client.session().isConnected());
    QCOMPARE(connection.count(), 1);
    QCOMPARE(connection.at(0).at(0).toBool(), false);
    QVERIFY(!client.session().SqlRequest("SELECT * FROM Workers"));
    const QStringList failures = client.takeFailures();
    QCOMPARE(failures.size(), 2);
    QVERIFY(failures.at(0).contains(QStringLiteral("исчез")));
    QCOMPARE(failures.at(1), QStringLiteral("Нет связи с сервером."));
}

void CVrkCliSesStoreTest::aRestoredFileIsFound()
{
    if (!TestStore::isSqlite())
        QSKIP("Of a store in a file");
    TestStore store;
    TestClient client(store);
    TestModule module(client);
    QSignalSpy connection(&client.session(), &CVrkCliSes::connectionChanged);
    const QString aside = store.path() + QStringLiteral(".aside");
    QVERIFY(QFile::rename(store.path(), aside));
    QTRY_VERIFY(!client.session().isConnected()); // the feed notices it
    QVERIFY(QFile::rename(aside, store.path()));
    QTRY_VERIFY_WITH_TIMEOUT(client.session().isConnected(), 10000);
    QCOMPARE(connection.count(), 2);
    QVERIFY(write(client, ROW_INSERT, "C1"));
    QVERIFY(module.waitForEvents(1));
    QCOMPARE(module.takeEvents(), QStringList(QStringLiteral("601 LogbookComments C1")));
}

void CVrkCliSesStoreTest::reportsAnotherHistory()
{
    if (!TestStore::isSqlite())
        QSKIP("Of a store in a file");
    TestStore store;
    TestStore another(TestStore::Empty);
    TestClient client(store.openLoader());
    QSignalSpy history(&client.session(), &CVrkCliSes::historyChanged);
    const QString copy = store.path() + QStringLiteral(".copy");
    QVERIFY(QFile::copy(another.path(), copy));
    QVERIFY(QFile::remove(store.path()));
    QVERIFY(QFile::rename(copy, store.path()));
    QTRY_COMPARE_WITH_TIMEOUT(history.count(), 1, 10000);
    QTRY_VERIFY_WITH_TIMEOUT(client.session().isConnected(), 10000);
}

QTEST_MAIN(CVrkCliSesStoreTest)
#include "CVrkCliSes_store_test.moc"
