#include "MDRValues.h"
#include "StoreAdmin.h"
#include "TestStore.h"

#include <QTest>

class Store_select_test : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestStore> m_files;
    std::unique_ptr<Store> m_store;

    std::unique_ptr<CMDArray> select(const QByteArray& sql)
    {
        StoreError error;
        auto answer = std::make_unique<CMDArray>();
        *answer = m_store->select(sql, &error);
        if (!answer->array)
            qWarning("%s (%s)", qPrintable(error.text), qPrintable(error.detail));
        return answer;
    }
    StoreError refusal(const QByteArray& sql)
    {
        StoreError error;
        CMDArray answer;
        answer = m_store->select(sql, &error);
        return answer.array ? StoreError() : error;
    }

private slots:
    void init()
    {
        m_files = std::make_unique<TestStore>();
        m_store = m_files->open(QStringLiteral("ivanov"));
    }
    void cleanup()
    {
        m_store.reset();
        m_files.reset();
    }

    void answerHasDeclaredFieldsAndOrderOfEntry()
    {
        const auto answer = select("SELECT * FROM logbookrecords WHERE ShiftKey='SHIFT_CDS_OPEN'");
        QCOMPARE(answer->RecCount(), 8);
        QCOMPARE(MDAKeyCount(answer->array), 1);
        QCOMPARE(MDAFldCount(answer->array), 15);
        const MDRField* html = MDRFldByNum(answer->array, 12);
        QCOMPARE(html->name, "html");
        QCOMPARE(int(html->type), int(mdr_TMemo));
        QCOMPARE(int(MDRFldByNum(answer->array, 0)->width), 32);
        QCOMPARE(TestStore::field(answer->array, "KeyLink", 0).toString(), QStringLiteral("REC_OPENING"));
        QCOMPARE(TestStore::field(answer->array, "status", 2).toInt(), 2);
        QVERIFY(!TestStore::field(answer->array, "VisaWorkerKey", 0).isValid());
    }

    void namesAreTheDeclaredOnesHoweverTheyAreTyped()
    {
        const auto answer = select("SELECT keylink, LASTNAME, lastName AS shown FROM workers");
        QCOMPARE(MDRFldByNum(answer->array, 0)->name, "KeyLink");
        QCOMPARE(MDRFldByNum(answer->array, 1)->name, "lastName");
        QCOMPARE(MDRFldByNum(answer->array, 2)->name, "shown");
        QCOMPARE(int(MDRFldByNum(answer->array, 2)->type), int(mdr_TChar));
    }

    void answerWithoutRowsHasAllFieldsAndItsKey()
    {
        const auto answer = select("SELECT * FROM LogbookFiles WHERE KeyLink='NOWHERE'");
        QCOMPARE(answer->RecCount(), 0);
        QCOMPARE(MDAFldCount(answer->array), 5);
        QCOMPARE(MDAKeyCount(answer->array), 1);
        QCOMPARE(int(MDRFldByNum(answer->array, 4)->type), int(mdr_TBlob));
    }

    void textsComeInTheCodePage()
    {
        const auto answer = select("SELECT name_ FROM Departments WHERE KeyLink='DEP_CDS'");
        MDRVar value;
        MDRGetVal(MDRFldByNum(answer->array, 0), MDARec(answer->array, 0, 0), &value);
        QCOMPARE(MDRValue::copy(value), QByteArray("\xD6\xC4\xD1"));
        QCOMPARE(value.value.text.data[value.value.text.length], '\0');
    }

    void literalsInTheTextAreUtf8()
    {
        const auto answer = select("SELECT KeyLink FROM Departments WHERE name_='ЦДС'");
        QCOMPARE(TestStore::field(answer->array, "KeyLink").toString(), QStringLiteral("DEP_CDS"));
    }

    void computedColumnsTakeTheTypeOfTheFirstRow()
    {
        const auto answer =
            select("SELECT count(*) AS n, 2.5 AS r, 'x' AS t, 5000000000 AS big, NULL AS z FROM Workers");
        QCOMPARE(int(MDRFldByName(answer->array, "n")->type), int(mdr_TInt32));
        QCOMPARE(TestStore::field(answer->array, "n").toInt(), 6);
        QCOMPARE(TestStore::field(answer->array, "r").toDouble(), 2.5);
        QCOMPARE(TestStore::field(answer->array, "t").toString(), QStringLiteral("x"));
        QCOMPARE(TestStore::field(answer->array, "big").toDouble(), 5e9);
        QVERIFY(!TestStore::field(answer->array, "z").isValid());
    }

    void computedNumberThatGrowsTooLargeFailsWhole()
    {
        QCOMPARE(refusal("SELECT 1 AS n UNION ALL SELECT 5000000000").code, StoreError::BadRequest);
    }

    void selectsOfTheJournal_data()
    {
        QTest::addColumn<QByteArray>("sql");
        QTest::addColumn<int>("rows");
        const QByteArray now = QByteArray::number(TestStore::now(), 'g', 10);
        const QByteArray yesterday = QByteArray::number(TestStore::now() - 200000, 'g', 10);
        QTest::newRow("open workshift")
            << QByteArray("SELECT * FROM LogbookWorkshifts WHERE DepartmentKey='DEP_CDS' AND "
                          "(CloseWorkerKey IS NULL OR CloseWorkerKey='')")
            << 1;
        QTest::newRow("closed workshifts")
            << QByteArray("SELECT * FROM LogbookWorkshifts WHERE DepartmentKey = 'DEP_CDS'        AND "
                          "CloseWorkerKey <> "
                          "''        AND CloseWorkerKey IS NOT NULL;")
            << 1;
        QTest::newRow("worker roles")
            << QByteArray("SELECT * FROM WorkerRoles WHERE RoleKey IN ('ROLE_CDS_SENIOR','ROLE_ZAR');") << 2;
        QTest::newRow("all templates") << QByteArray("SELECT * FROM LogbookTemplates ;") << 5;
        QTest::newRow("interval") << "SELECT LogbookRecords.* FROM LogbookRecords INNER JOIN "
                                     "LogbookWorkshifts ON LogbookWorkshifts.KeyLink = "
                                     "LogbookRecords.ShiftKey WHERE LogbookWorkshifts.DepartmentKey = "
                                     "'DEP_CDS' AND recordTime >= " +
                                         yesterday + " AND recordTime <= " + now + ";"
                                  << 10;
        QTest::newRow("unread comments")
            << QByteArray("SELECT * FROM LogbookRecords WHERE KeyLink IN (SELECT LogbookRecords.KeyLink      "
                          "        FROM "
                          "LogbookRecords              INNER JOIN LogbookComments                 ON "
                          "LogbookRecords.KeyLink = LogbookComments.RecordKey              WHERE "
                          "LogbookRecords.WorkerKey "
                          "= 'WORKER_IVANOV'                    AND LogbookComments.readedTime = 0           "
                          "   GROUP BY "
                          "LogbookRecords.KeyLink);")
            << 2;
        QTest::newRow("earlier journal")
            << QByteArray("SELECT *                         FROM OperLogCategories           WHERE ParentKey "
                          "IS NULL      "
                          "          OR ParentKey IN                  (                                    "
                          "SELECT KeyLink "
                          "                  FROM OperLogCategories       )                          ")
            << 0;
    }
    void selectsOfTheJournal()
    {
        QFETCH(QByteArray, sql);
        QFETCH(int, rows);
        const auto answer = select(sql);
        QVERIFY(answer->array);
        QCOMPARE(answer->RecCount(), rows);
    }

    void onlyOneSelectIsTaken_data()
    {
        QTest::addColumn<QByteArray>("sql");
        for (const char* sql : {"DELETE FROM LogbookRecords",
                                "INSERT INTO Roles (KeyLink) VALUES ('X')",
                                "UPDATE Roles SET name_ = ''",
                                "DROP TABLE Roles",
                                "CREATE TABLE x (y)",
                                "CREATE TEMP TABLE x (y)",
                                "PRAGMA user_version = 7",
                                "PRAGMA table_info(Roles)",
                                "ATTACH DATABASE ':memory:' AS other",
                                "BEGIN",
                                "COMMIT",
                                "VACUUM",
                                "SELECT 1; SELECT 2",
                                "SELECT 1; DELETE FROM Roles",
                                "",
                                " ",
                                ";",
                                "-- nothing",
                                "EXPLAIN SELECT 1",
                                "EXPLAIN QUERY PLAN SELECT 1",
                                "SELECT load_extension('x')",
                                "SELECT",
                                "SELECT * FROM NoSuchTable",
                                "WITH x AS (SELECT 1) DELETE FROM Roles",
                                "REPLACE INTO Roles (KeyLink) VALUES ('X')",
                                "SELECT 1; garbage",
                                "SELECT * FROM LogbookFiles WHERE KeyLink IN ('a','b'); DELETE FROM Roles",
                                "SELECT * FROM LogbookFiles WHERE KeyLink IN ('a','b') garbage",
                                "SELECT * FROM LogbookFiles WHERE KeyLink IN ('a','b",
                                "SELECT * FROM LogbookFiles) SELECT c0 FROM answer; DELETE FROM Roles --"})
            QTest::newRow(sql) << QByteArray(sql);
    }
    void onlyOneSelectIsTaken()
    {
        QFETCH(QByteArray, sql);
        // A long text is handled differently.
        const QByteArray longOne = "/*" + QByteArray(5000, 'x') + "*/ " + sql;
        for (const QByteArray& text : {sql, longOne}) {
            const StoreError error = refusal(text);
            QCOMPARE(error.code, StoreError::BadRequest);
            QVERIFY(!error.text.isEmpty());
        }
        QCOMPARE(m_files->value(QStringLiteral("SELECT count(*) FROM Roles")).toInt(), 3);
        if (TestStore::isSqlite())
            QCOMPARE(m_files->value(QStringLiteral("PRAGMA user_version")).toInt(),
                     StoreAdmin::schemaVersion());
    }

    void endsAndRemarksAreAccepted_data()
    {
        QTest::addColumn<QByteArray>("sql");
        for (const char* sql : {"SELECT * FROM LogbookFiles;", "SELECT * FROM LogbookFiles ; ; ",
                                "SELECT * FROM LogbookFiles -- all", "SELECT * FROM LogbookFiles; -- all",
                                "/* all */ SELECT * FROM LogbookFiles /* of them */ ;\n"})
            QTest::newRow(sql) << QByteArray(sql);
    }
    void endsAndRemarksAreAccepted()
    {
        QFETCH(QByteArray, sql);
        const QByteArray longOne = "/* x IN (" + QByteArray(5000, 'x') + "*/ " + sql;
        for (const QByteArray& text : {sql, longOne}) {
            const auto answer = select(text);
            QVERIFY(answer->array);
            QCOMPARE(answer->RecCount(), 2);
        }
    }

    void longListsOfKeysAreTakenWhole()
    {
        QByteArray keys = "'REC_TRIP'";
        for (int i = 0; i < 1000; ++i)
            keys += ",'NO''SUCH(" + QByteArray::number(i) + "'";
        for (const QByteArray& list : {QByteArray(keys + ",'REC_OPENING'"), "'REC_OPENING'," + keys}) {
            const QByteArray records = "SELECT * FROM LogbookRecords WHERE KeyLink in (" + list + ")";
            QCOMPARE(select(records)->RecCount(), 2);
            const QByteArray named = "SELECT 'a','b', KeyLink FROM LogbookRecords WHERE KeyLink NOT IN (" +
                                     list +
                                     ") AND KeyLink IN ('REC_TRIP','REC_OPENING','REC_DRAFT') -- ('a','b'";
            QCOMPARE(MDAFldCount(select(named)->array), 3);
        }
        // Contents stay in the store here, too.
        const auto answer = select("SELECT * FROM LogbookFiles WHERE RecordKey IN (" + keys + ");");
        QCOMPARE(answer->RecCount(),
                 select("SELECT * FROM LogbookFiles WHERE RecordKey='REC_TRIP'")->RecCount());
        QCOMPARE(MDAFldCount(answer->array), 5);
        QVERIFY(TestStore::write(m_files->openLoader().get(), "LogbookFiles", ROW_UPDATE, "FILE_TEXT",
                                 {{"fileData", QByteArray("later")}}));
        QCOMPARE(TestStore::field(answer->array, "fileData", 0).toByteArray(), QByteArray("later"));
    }

    void blobsStayInTheStoreUntilTheyAreRead()
    {
        const auto answer = select("SELECT * FROM LogbookFiles WHERE RecordKey IN ('REC_TRIP')");
        const MDRField* data = MDRFldByName(answer->array, "fileData");
        const MDRData* record = MDARec(answer->array, 0, 0);
        std::int32_t length = 0;
        MDRBlobLength(data, record, &length);
        QCOMPARE(length, 40);
        // The content at the time of reading is returned, so nothing was read before.
        QVERIFY(TestStore::write(m_files->openLoader().get(), "LogbookFiles", ROW_UPDATE, "FILE_TEXT",
                                 {{"fileData", QByteArray("later")}}));
        MDRVar value;
        QCOMPARE(MDRGetVal(data, record, &value), int(mdr_Ok));
        QCOMPARE(QByteArray(value.value.text.data, value.value.text.length), QByteArray("later"));
    }

    void blobOfADeletedRowOrAClosedStoreIsACode()
    {
        const auto answer = select("SELECT * FROM LogbookFiles ORDER BY fileName DESC");
        const MDRField* data = MDRFldByName(answer->array, "fileData");
        QVERIFY(TestStore::write(m_files->openLoader().get(), "LogbookFiles", ROW_DELETE, "FILE_IMAGE"));
        MDRVar value;
        QCOMPARE(MDRGetVal(data, MDARec(answer->array, 0, 0), &value), int(mdr_Source));
        m_store.reset();
        QCOMPARE(MDRGetVal(data, MDARec(answer->array, 0, 1), &value), int(mdr_Source));
    }

    void blobsWithoutTheirKeyComeAtOnce()
    {
        const auto answer = select("SELECT fileData FROM LogbookFiles WHERE KeyLink='FILE_TEXT'");
        m_store.reset();
        QVERIFY(TestStore::field(answer->array, "fileData").toByteArray().startsWith("t;Ia"));
    }

    void blobsOfATableTakenTwiceAreNotMixedUp()
    {
        const auto answer =
            select("SELECT A.KeyLink, B.fileData FROM LogbookFiles A JOIN LogbookFiles B ON A.KeyLink <> "
                   "B.KeyLink WHERE A.KeyLink='FILE_IMAGE'");
        QVERIFY(TestStore::field(answer->array, "fileData").toByteArray().startsWith("t;Ia"));
    }

    void blobsInAJoinStayInTheStore()
    {
        const auto answer =
            select("SELECT LogbookFiles.* FROM LogbookFiles INNER JOIN LogbookRecords ON "
                   "LogbookRecords.KeyLink = LogbookFiles.RecordKey ORDER BY LogbookFiles.fileName;");
        QCOMPARE(answer->RecCount(), 2);
        QCOMPARE(MDRFldByNum(answer->array, 4)->name, "fileData");
        QCOMPARE(TestStore::field(answer->array, "fileName").toString(),
                 QString::fromUtf8("осциллограмма.txt"));
        std::int32_t length = 0;
        MDRBlobLength(MDRFldByNum(answer->array, 4), MDARec(answer->array, 0, 0), &length);
        QCOMPARE(length, 40);
        QVERIFY(TestStore::write(m_files->openLoader().get(), "LogbookFiles", ROW_DELETE, "FILE_TEXT"));
        MDRVar value;
        QCOMPARE(MDRGetVal(MDRFldByNum(answer->array, 4), MDARec(answer->array, 0, 0), &value),
                 int(mdr_Source));
    }

    void oneBlobByKey()
    {
        StoreError error;
        QByteArray bytes;
        QVERIFY(m_store->blob("LogbookFiles", "fileData", "FILE_TEXT", &bytes, &error));
        QVERIFY(bytes.startsWith("t;Ia"));
        QVERIFY(!m_store->blob("LogbookFiles", "fileData", "NOWHERE", &bytes, &error));
        QCOMPARE(error.code, StoreError::NoSuchRow);
        QVERIFY(!m_store->blob("LogbookFiles", "fileName", "FILE_TEXT", &bytes, &error));
        QCOMPARE(error.code, StoreError::BadRequest);
        QVERIFY(!m_store->blob("ChangeLog", "newRow", "1", &bytes, &error));
        QCOMPARE(error.code, StoreError::BadRequest);
    }

    void answerBeyondTheMemoryGuardFailsWhole()
    {
        Store::Options options;
        options.memoryGuard = 1000000;
        m_store = m_files->open(QStringLiteral("ivanov"), options);
        const StoreError error =
            refusal("WITH RECURSIVE n (i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 1000000) "
                    "SELECT i, 'text text text' FROM n");
        QCOMPARE(error.code, StoreError::TooLarge);
        QVERIFY(select("SELECT * FROM Workers")->array);
    }

    void selectThatOutlivesItsDeadlineIsBrokenOff()
    {
        Store::Options options;
        options.deadlineMs = 1000; // enough for a busy server to take the next connection
        m_store = m_files->open(QStringLiteral("ivanov"), options);
        int signs = 0;
        m_store->setProgress([&signs] { ++signs; });
        QElapsedTimer clock;
        clock.start();
        const StoreError error = refusal(
            "WITH RECURSIVE n (i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n) SELECT count(*) FROM n");
        QCOMPARE(error.code, StoreError::Lost);
        QVERIFY(clock.elapsed() < 10000);
        QVERIFY(signs > 0);
        QVERIFY(select("SELECT * FROM Workers")->array);
    }

    void moreFieldsThanARecordCanHaveAreRefused()
    {
        QByteArray sql = "SELECT 1";
        for (int i = 0; i < 255; ++i)
            sql += ", 1";
        QCOMPARE(refusal(sql).code, StoreError::BadRequest);
    }
};

QTEST_GUILESS_MAIN(Store_select_test)
#include "Store_select_test.moc"
