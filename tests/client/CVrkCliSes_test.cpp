#include "CVrkCliSes.h"
#include "ExpectedWarning.h"
#include "FakeStore.h"
#include "LogbookFields.h"

#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>
#include <QTextCodec>

/// The session's own rules, on a store that only records its calls.
class CVrkCliSesTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { session.reset(); }

    void passesASelectUnchanged();
    void aFailedSelectGivesNullAndTheReason();
    void aFailedSelectLeavesItsTableAlone();
    void aWriteHasAFreshBatchKey();
    void aRefusedWriteReportsTableAndReason();
    void aWriteWithoutArrayOrTableFails();
    void aSuccessClearsTheLastError();

    void aBlockIsWrittenAtItsEndInOrder();
    void aBlockCopiesRecordsAtTheCall();
    void aDroppedBlockWritesNothing();
    void anEmptyBlockSucceedsWithoutARequest();
    void aNestedBlockIsWrittenWithTheOuterOne();
    void aDroppedInnerBlockDropsOnlyItsPart();
    void aDroppedOuterBlockDropsTheInnerOne();
    void blockEndWithoutABlockFails();
    void aFailedBlockIsClosed();

    void aWriteWithoutAnAnswerIsRepeatedWithItsKey();
    void aRefusedWriteIsNotSentAgain();
    void aWriteAfterTheDeadlineIsNotRepeated();
    void reportsAnUnansweredWriteWhenTheLinkIsBack_data();
    void reportsAnUnansweredWriteWhenTheLinkIsBack();
    void asksForAnUnansweredWriteUntilItIsKnown();
    void withoutEventsTheNextWriteSettlesALostOne();
    void whileTheSessionIsDownRequestsFailAtOnce();
    void theSessionIsUpAgainWhenTheLinkIsBack();
    void withoutEventsEachRequestTriesALostLink();

    void rightsComeFromTheStore();
    void timeComesFromTheStore();
    void computesTheTimeWhileTheStoreIsDown();
    void sessionTimesAreLocalTimes();

    void fileGetReturnsOneRecord();
    void fileGetConvertsItsArgument();
    void aMissingFileIsAnAnswerWithACode();
    void anUnknownPacketIsRefused();
    void aPacketWithoutALinkIsFalse();
    void waitResultRequiresAnAnswer();
    void eachBlockIsFreedOnce();
    void blobsAreFetchedThroughTheSession();

private:
    std::shared_ptr<FakeStore::State> store;
    std::unique_ptr<CVrkCliSes> session;
    std::unique_ptr<QSignalSpy> failed;

    static void addShift(CRowBatch& batch, MDRFlag flag, const QByteArray& key)
    {
        MDRData* row = batch.newRow(flag, key);
        if (flag != ROW_DELETE)
            batch.SetValF(row, "endTime", MDRValue::real(1));
        batch.RecPost(row);
    }
    bool writeShift(const QByteArray& key)
    {
        CRowBatch batch(LogbookWorkshiftFields, 7);
        addShift(batch, ROW_INSERT, key);
        return session->SqlUpdate("LogbookWorkshifts", batch.array, true, nullptr);
    }
    HFNCliParam* getFile(const char* argument)
    {
        HFNCliParam* block = nullptr;
        const QByteArray bytes = session->codec()->fromUnicode(QString::fromUtf8(argument));
        session->PacketExec("FileGet", reinterpret_cast<const unsigned char*>(bytes.constData()),
                            bytes.size(), &block);
        return block;
    }
    static int code(HFNCliParam* block)
    {
        int value = -100;
        MDRGetAsInt32(MDRFldByNum(block->array, 0), block, &value);
        return value;
    }
};

void CVrkCliSesTest::init()
{
    store = std::make_shared<FakeStore::State>();
    session = std::make_unique<CVrkCliSes>(std::make_unique<FakeStore>(store));
    failed = std::make_unique<QSignalSpy>(session.get(), &CVrkCliSes::requestFailed);
}

void CVrkCliSesTest::passesASelectUnchanged()
{
    CMDArray answer;
    answer = session->SqlRequest("SELECT * FROM Workers WHERE name_='Пётр' ;");
    QVERIFY(answer.array);
    QCOMPARE(store->asked, QStringList(QStringLiteral("select SELECT * FROM Workers WHERE name_='Пётр' ;")));
    QCOMPARE(failed->count(), 0);
}

void CVrkCliSesTest::aFailedSelectGivesNullAndTheReason()
{
    store->failures = {FakeStore::error(StoreError::BadRequest, QStringLiteral("Запрос не понят."))};
    QTest::ignoreMessage(QtWarningMsg,
                         QRegularExpression(QStringLiteral("SqlRequest.*Запрос не понят.*SELECT 1x")));
    QVERIFY(!session->SqlRequest("SELECT 1x"));
    QCOMPARE(session->lastErrorText(), QStringLiteral("Запрос не понят."));
    QCOMPARE(failed->count(), 1);
    QCOMPARE(failed->at(0), (QVariantList{false, QString(), QStringLiteral("Запрос не понят.")}));
    QVERIFY(session->isConnected());
}

void CVrkCliSesTest::aFailedSelectLeavesItsTableAlone()
{
    expectWarning(QStringLiteral("Запрос не понят"));
    CMDArray table;
    MDACreate(&table.array, 0);
    MDArray* const before = table.array;
    store->failures = {FakeStore::error(StoreError::BadRequest, QStringLiteral("Запрос не понят."))};
    table = session->SqlRequest("SELECT 1x");
    QCOMPARE(table.lastError, -3);
    QCOMPARE(table.array, before);
}

void CVrkCliSesTest::aWriteHasAFreshBatchKey()
{
    CRowBatch batch(LogbookWorkshiftFields, 7);
    addShift(batch, ROW_INSERT, "A");
    addShift(batch, ROW_UPDATE, "B");
    addShift(batch, ROW_DELETE, "C");
    QVERIFY(session->SqlUpdate("LogbookWorkshifts", batch.array, true, nullptr));
    QVERIFY(writeShift("D"));
    QCOMPARE(store->asked,
             (QStringList{QStringLiteral("apply LogbookWorkshifts 1:A[endTime] 2:B[endTime] 4:C[]"),
                          QStringLiteral("apply LogbookWorkshifts 1:D[endTime]")}));
    QCOMPARE(store->batchKeys.at(0).size(), 32);
    QVERIFY(store->batchKeys.at(0) != store->batchKeys.at(1));
}

void CVrkCliSesTest::aRefusedWriteReportsTableAndReason()
{
    expectWarning(QStringLiteral("Запись запрещена"));
    store->failures = {FakeStore::refused()};
    QVERIFY(!writeShift("A"));
    QCOMPARE(failed->count(), 1);
    QCOMPARE(failed->at(0),
             (QVariantList{true, QStringLiteral("LogbookWorkshifts"), QStringLiteral("Запись запрещена.")}));
    QVERIFY(session->isConnected());
}

void CVrkCliSesTest::aWriteWithoutArrayOrTableFails()
{
    expectWarning(QStringLiteral("Запрос на запись составлен неверно"), 2);
    CRowBatch batch(LogbookWorkshiftFields, 7);
    QVERIFY(!session->SqlUpdate("LogbookWorkshifts", nullptr, true, nullptr));
    QVERIFY(!session->SqlUpdate(nullptr, batch.array, true, nullptr));
    QCOMPARE(failed->count(), 2);
    QCOMPARE(store->asked, QStringList());
}

void CVrkCliSesTest::aSuccessClearsTheLastError()
{
    expectWarning(QStringLiteral("Запись запрещена"), 2);
    store->failures = {FakeStore::refused()};
    QVERIFY(!writeShift("A"));
    QVERIFY(!session->lastErrorText().isEmpty());
    QVERIFY(writeShift("A"));
    QCOMPARE(session->lastErrorText(), QString());

    store->failures = {FakeStore::refused()};
    QVERIFY(!writeShift("A"));
    CMDArray answer;
    answer = session->SqlRequest("SELECT 1");
    QCOMPARE(session->lastErrorText(), QString());
}

void CVrkCliSesTest::aBlockIsWrittenAtItsEndInOrder()
{
    session->BlockBeg();
    CRowBatch removal(LogbookWorkshiftFields, 7);
    addShift(removal, ROW_DELETE, "A");
    QVERIFY(session->SqlUpdate("LogbookWorkshifts", removal.array, true, nullptr));
    CRowBatch crew(LogbookWorkersWorkshiftFields, 4);
    crew.RecPost(crew.newRow(ROW_DELETE, "C"));
    QVERIFY(session->SqlUpdate("LogbookWorkersWorkshift", crew.array, true, nullptr));
    QVERIFY(writeShift("A"));
    QCOMPARE(store->asked, QStringList());
    QVERIFY(session->BlockEnd(true, nullptr));
    QCOMPARE(store->asked,
             QStringList(QStringLiteral("apply LogbookWorkshifts 4:A[] | LogbookWorkersWorkshift 4:C[] | "
                                        "LogbookWorkshifts 1:A[endTime]")));
}

void CVrkCliSesTest::aBlockCopiesRecordsAtTheCall()
{
    session->BlockBeg();
    {
        CRowBatch batch(LogbookWorkshiftFields, 7);
        addShift(batch, ROW_INSERT, "A");
        QVERIFY(session->SqlUpdate("LogbookWorkshifts", batch.array, true, nullptr));
        MDAClearRec(batch.array);
        addShift(batch, ROW_DELETE, "B");
    }
    QVERIFY(session->BlockEnd(true, nullptr));
    QCOMPARE(store->asked, QStringList(QStringLiteral("apply LogbookWorkshifts 1:A[endTime]")));
}

void CVrkCliSesTest::aDroppedBlockWritesNothing()
{
    session->BlockBeg();
    QVERIFY(writeShift("A"));
    QVERIFY(session->BlockEnd(false, nullptr));
    QCOMPARE(store->asked, QStringList());
    QVERIFY(writeShift("B"));
    QCOMPARE(store->asked, QStringList(QStringLiteral("apply LogbookWorkshifts 1:B[endTime]")));
}

void CVrkCliSesTest::anEmptyBlockSucceedsWithoutARequest()
{
    session->BlockBeg();
    QVERIFY(session->BlockEnd(true, nullptr));
    QCOMPARE(store->asked, QStringList());
}

void CVrkCliSesTest::aNestedBlockIsWrittenWithTheOuterOne()
{
    session->BlockBeg();
    QVERIFY(writeShift("A"));
    session->BlockBeg();
    QVERIFY(writeShift("B"));
    QVERIFY(session->BlockEnd(true, nullptr));
    QCOMPARE(store->asked, QStringList());
    QVERIFY(writeShift("C"));
    QVERIFY(session->BlockEnd(true, nullptr));
    QCOMPARE(store->asked, QStringList(QStringLiteral(
                               "apply LogbookWorkshifts 1:A[endTime] | LogbookWorkshifts 1:B[endTime] | "
                               "LogbookWorkshifts 1:C[endTime]")));
}

void CVrkCliSesTest::aDroppedInnerBlockDropsOnlyItsPart()
{
    session->BlockBeg();
    QVERIFY(writeShift("A"));
    session->BlockBeg();
    QVERIFY(writeShift("B"));
    QVERIFY(session->BlockEnd(false, nullptr));
    QVERIFY(session->BlockEnd(true, nullptr));
    QCOMPARE(store->asked, QStringList(QStringLiteral("apply LogbookWorkshifts 1:A[endTime]")));
}

void CVrkCliSesTest::aDroppedOuterBlockDropsTheInnerOne()
{
    session->BlockBeg();
    session->BlockBeg();
    QVERIFY(writeShift("B"));
    QVERIFY(session->BlockEnd(true, nullptr));
    QVERIFY(session->BlockEnd(false, nullptr));
    QCOMPARE(store->asked, QStringList());
}

void CVrkCliSesTest::blockEndWithoutABlockFails()
{
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("BlockEnd.*no block is open")));
    QVERIFY(!session->BlockEnd(true, nullptr));
    QCOMPARE(store->asked, QStringList());
}

void CVrkCliSesTest::aFailedBlockIsClosed()
{
    expectWarning(QStringLiteral("Запись запрещена"));
    store->failures = {FakeStore::refused()};
    session->BlockBeg();
    QVERIFY(writeShift("A"));
    QVERIFY(!session->BlockEnd(true, nullptr));
    QCOMPARE(failed->count(), 1);
    QCOMPARE(failed->at(0).at(1).toString(), QStringLiteral("LogbookWorkshifts"));
    store->asked.clear();
    QVERIFY(writeShift("B"));
    QCOMPARE(store->asked, QStringList(QStringLiteral("apply LogbookWorkshifts 1:B[endTime]")));
}

void CVrkCliSesTest::aWriteWithoutAnAnswerIsRepeatedWithItsKey()
{
    QVERIFY(session->startEvents());
    store->failures = {FakeStore::lost()};
    QVERIFY(writeShift("A"));
    QCOMPARE(store->batchKeys.size(), 2);
    QCOMPARE(store->batchKeys.at(0), store->batchKeys.at(1));
    QCOMPARE(failed->count(), 0);
    QVERIFY(session->isConnected());
}

void CVrkCliSesTest::aRefusedWriteIsNotSentAgain()
{
    expectWarning(QStringLiteral("Запись запрещена"));
    store->failures = {FakeStore::refused()};
    QVERIFY(!writeShift("A"));
    QCOMPARE(store->batchKeys.size(), 1);
}

void CVrkCliSesTest::aWriteAfterTheDeadlineIsNotRepeated()
{
    expectWarning(QStringLiteral("Связь потеряна"));
    store->failures = {FakeStore::lost()};
    store->during = [](const std::function<void()>&) { QTest::qSleep(1100); }; // the server does not answer
    QVERIFY(!writeShift("A"));
    QCOMPARE(store->batchKeys.size(), 1);
}

void CVrkCliSesTest::reportsAnUnansweredWriteWhenTheLinkIsBack_data()
{
    QTest::addColumn<bool>("written");
    QTest::newRow("written") << true;
    QTest::newRow("not written") << false;
}

void CVrkCliSesTest::reportsAnUnansweredWriteWhenTheLinkIsBack()
{
    expectWarning(QStringLiteral("Подтверждения нет"));
    QFETCH(bool, written);
    QVERIFY(session->startEvents());
    QSignalSpy settled(session.get(), &CVrkCliSes::writeSettled);
    bool wasDown = false;
    connect(session.get(), &CVrkCliSes::writeSettled, this, [&] { wasDown = !session->isConnected(); });
    store->failures = {FakeStore::unsettled()};
    store->isWritten = written;
    QVERIFY(!writeShift("A"));
    QCOMPARE(store->batchKeys.size(), 1);
    QVERIFY(!session->isConnected());
    QVERIFY(settled.isEmpty());
    QTRY_VERIFY(session->isConnected());
    QCOMPARE(settled.count(), 1);
    QCOMPARE(settled.at(0).at(0).toBool(), written);
    QVERIFY(wasDown);
    QCOMPARE(store->askedFor, store->batchKeys);

    QVERIFY(writeShift("B"));
    QCOMPARE(store->askedFor.size(), 1);
    QCOMPARE(settled.count(), 1);
}

void CVrkCliSesTest::asksForAnUnansweredWriteUntilItIsKnown()
{
    expectWarning(QStringLiteral("Подтверждения нет"));
    QVERIFY(session->startEvents());
    QSignalSpy settled(session.get(), &CVrkCliSes::writeSettled);
    // The write; then reading changes finds the link; then the link is lost again at the query.
    store->failures = {FakeStore::unsettled(), StoreError(), FakeStore::lost()};
    QVERIFY(!writeShift("A"));
    QTRY_VERIFY(session->isConnected());
    QCOMPARE(store->askedFor.size(), 2);
    QCOMPARE(settled.count(), 1);
}

void CVrkCliSesTest::withoutEventsTheNextWriteSettlesALostOne()
{
    expectWarning(QStringLiteral("Подтверждения нет"));
    QSignalSpy settled(session.get(), &CVrkCliSes::writeSettled);
    store->failures = {FakeStore::unsettled()};
    QVERIFY(!writeShift("A"));
    QVERIFY(settled.isEmpty());
    QVERIFY(writeShift("B"));
    QCOMPARE(store->askedFor, QByteArrayList{store->batchKeys.at(0)});
    QCOMPARE(settled.count(), 1);
}

void CVrkCliSesTest::whileTheSessionIsDownRequestsFailAtOnce()
{
    expectWarning(QStringLiteral("Связь потеряна"));
    expectWarning(QStringLiteral("Нет связи с сервером"), 3);
    QVERIFY(session->startEvents());
    QSignalSpy connection(session.get(), &CVrkCliSes::connectionChanged);
    store->failures = {FakeStore::lost()};
    QVERIFY(!session->SqlRequest("SELECT 1"));
    QVERIFY(!session->isConnected());
    QCOMPARE(connection.count(), 1);
    QCOMPARE(connection.at(0).at(0).toBool(), false);

    store->asked.clear();
    QVERIFY(!session->SqlRequest("SELECT 2"));
    QVERIFY(!writeShift("A"));
    QVERIFY(!getFile("options;OperLogOptions"));
    QCOMPARE(session->OperationRights("ADMINISTRATOR"), 0);
    QCOMPARE(store->asked, QStringList());
    QCOMPARE(session->lastErrorText(), QStringLiteral("Нет связи с сервером."));
    QCOMPARE(failed->count(), 4);
}

void CVrkCliSesTest::theSessionIsUpAgainWhenTheLinkIsBack()
{
    expectWarning(QStringLiteral("Связь потеряна"));
    QVERIFY(session->startEvents());
    QSignalSpy connection(session.get(), &CVrkCliSes::connectionChanged);
    store->failures = {FakeStore::lost(), FakeStore::lost()};
    QVERIFY(!session->SqlRequest("SELECT 1"));
    QTRY_VERIFY_WITH_TIMEOUT(session->isConnected(), 10000);
    QCOMPARE(connection.count(), 2);
    QCOMPARE(connection.at(1).at(0).toBool(), true);
    QVERIFY(writeShift("A"));
}

void CVrkCliSesTest::withoutEventsEachRequestTriesALostLink()
{
    expectWarning(QStringLiteral("Связь потеряна"));
    store->failures = {FakeStore::lost()};
    QVERIFY(!session->SqlRequest("SELECT 1"));
    CMDArray answer;
    answer = session->SqlRequest("SELECT 1");
    QVERIFY(answer.array);
}

void CVrkCliSesTest::rightsComeFromTheStore()
{
    store->rights = {"ADMINISTRATOR"};
    QVERIFY(session->OperationRights("ADMINISTRATOR") != 0);
    QCOMPARE(session->OperationRights("ADMINISTRATOR_OPERLOG_LOCAL"), 0);
    QCOMPARE(session->OperationRights(nullptr), 0);
}

void CVrkCliSesTest::timeComesFromTheStore()
{
    QCOMPARE(session->GetHfnTime(), 1700000000.0);
}

void CVrkCliSesTest::computesTheTimeWhileTheStoreIsDown()
{
    QCOMPARE(session->GetHfnTime(), 1700000000.0);
    store->time = 0;
    const double computed = session->GetHfnTime();
    QVERIFY(computed >= 1700000000.0 && computed < 1700000100.0);
}

void CVrkCliSesTest::sessionTimesAreLocalTimes()
{
    QCOMPARE(session->HfnTimeToSesTime(1700000000.0), QDateTime::fromSecsSinceEpoch(1700000000));
    QCOMPARE(session->HfnTimeToSesTime(1700000000.0).timeSpec(), Qt::LocalTime);
    QCOMPARE(session->HfnTimeToSesTime(), QDateTime::fromSecsSinceEpoch(1700000000));
}

void CVrkCliSesTest::fileGetReturnsOneRecord()
{
    store->files.insert(QStringLiteral("options/OperLogOptions"), "<Options/>");
    HFNCliParam* block = getFile("options;OperLogOptions");
    QVERIFY(block);
    QVERIFY(session->WaitResult(&block, -1));
    QCOMPARE(code(block), 0);

    char* packed = nullptr;
    MDRGetTextPtr(MDRFldByNum(block->array, 2), block, &packed);
    CMDArray file;
    MDACreate(&file.array, 0);
    QCOMPARE(HFNArrayUnPack(file.array, packed, 1), 0);
    QCOMPARE(file.RecCount(), 1);
    QCOMPARE(MDAFldCount(file.array), 4);
    const MDRData* row = MDARec(file.array, 0, 0);
    const auto text = [&](int field) {
        MDRVar value;
        MDRGetVal(MDRFldByNum(file.array, field), row, &value);
        return MDRValue::copy(value);
    };
    QCOMPARE(text(0), QByteArray("options"));
    QCOMPARE(text(1), QByteArray("OperLogOptions"));
    MDRVar size;
    file.GetVal(row, "size", size);
    QCOMPARE(size.value.number, 10);
    QCOMPARE(text(3), QByteArray("<Options/>"));
    session->PrmFree(block);
}

void CVrkCliSesTest::fileGetConvertsItsArgument()
{
    store->files.insert(QStringLiteral("настройки/файл"), "x");
    HFNCliParam* block = getFile("настройки;файл");
    QVERIFY(block);
    QCOMPARE(code(block), 0);
    session->PrmFree(block);

    store->files.insert(QStringLiteral("настройки/а;б"), "x"); // only the first semicolon separates
    block = getFile("настройки;а;б");
    QCOMPARE(code(block), 0);
    session->PrmFree(block);
}

void CVrkCliSesTest::aMissingFileIsAnAnswerWithACode()
{
    for (const char* argument : {"options;OperLogOptions", "options", ""}) {
        HFNCliParam* block = getFile(argument);
        QVERIFY(block);
        QVERIFY(code(block) != 0);
        session->PrmFree(block);
    }
    QCOMPARE(failed->count(), 0);
}

void CVrkCliSesTest::anUnknownPacketIsRefused()
{
    expectWarning(QStringLiteral("Неизвестный запрос к серверу"), 2);
    HFNCliParam* block = nullptr;
    QVERIFY(!session->PacketExec("FilePut", nullptr, 0, &block));
    QVERIFY(!block);
    QVERIFY(!session->PacketExec(nullptr, nullptr, 0, &block));
    QCOMPARE(failed->count(), 2);
}

void CVrkCliSesTest::aPacketWithoutALinkIsFalse()
{
    expectWarning(QStringLiteral("Связь потеряна"));
    store->failures = {FakeStore::lost()};
    HFNCliParam* block = nullptr;
    const auto* argument = reinterpret_cast<const unsigned char*>("options;OperLogOptions");
    QVERIFY(!session->PacketExec("FileGet", argument, 22, &block));
    QVERIFY(!block);
    QCOMPARE(failed->count(), 1);
}

void CVrkCliSesTest::waitResultRequiresAnAnswer()
{
    HFNCliParam* none = nullptr;
    QVERIFY(!session->WaitResult(&none, -1));
    QVERIFY(!session->WaitResult(nullptr, -1));
}

void CVrkCliSesTest::eachBlockIsFreedOnce()
{
    HFNCliParam* first = getFile("options;OperLogOptions");
    HFNCliParam* second = getFile("options;OperLogOptions");
    QCOMPARE(session->openBlocks(), 2);
    session->PrmFree(first);
    QCOMPARE(session->openBlocks(), 1);
    session->PrmFree(first); // already free: ignored
    session->PrmFree(nullptr);
    QCOMPARE(session->openBlocks(), 1);
    session->PrmFree(second);
    QCOMPARE(session->openBlocks(), 0);
}

void CVrkCliSesTest::blobsAreFetchedThroughTheSession()
{
    expectWarning(QStringLiteral("LogbookFiles.fileData F1"));
    const auto source = session->blobSource("LogbookFiles", "fileData", "F1");
    QByteArray bytes;
    QVERIFY(source->read(bytes));
    QCOMPARE(bytes, QByteArray("bytes of F1"));
    store->failures = {FakeStore::error(StoreError::NoSuchRow, QStringLiteral("Нет такой строки."))};
    QVERIFY(!source->read(bytes));
    QCOMPARE(failed->count(), 1);
    session.reset();
    QVERIFY(!source->read(bytes));
}

QTEST_MAIN(CVrkCliSesTest)
#include "CVrkCliSes_test.moc"
