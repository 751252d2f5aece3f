#include "GenGuid32.h"
#include "MDRValues.h"
#include "TableCatalog.h"
#include "TestStore.h"

#include <limits>
#include <QTest>

namespace
{
std::unique_ptr<CRowBatch> batchOf(const char* table)
{
    const QVector<MDRFieldDescr> fields = TableCatalog::table(table)->descriptors();
    return std::make_unique<CRowBatch>(fields.constData(), fields.size());
}

/// A row with a key and some texts, posted.
void row(CRowBatch& batch, MDRFlag flag, const QByteArray& key, const TestStore::Fields& texts = {})
{
    MDRData* record = batch.newRow(flag, key);
    for (const TestStore::Field& field : texts) {
        const QByteArray bytes = TestStore::bytes(field.value.toString());
        batch.SetValF(record, field.name, field.value.isValid() ? MDRValue::text(bytes) : MDRValue::null());
    }
    batch.RecPost(record);
}
} // namespace

class Store_apply_test : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestStore> m_files;
    std::unique_ptr<Store> m_store;
    StoreError m_error;

    bool write(const char* table, MDRFlag flag, const QByteArray& key, const TestStore::Fields& fields = {})
    {
        m_error.clear();
        return TestStore::write(m_store.get(), table, flag, key, fields, &m_error);
    }
    qint64 transactions() const
    {
        return m_files->value(QStringLiteral("SELECT count(*) FROM ChangeTransactions")).toLongLong();
    }
    QString name(const char* role) const
    {
        return m_files
            ->value(
                QStringLiteral("SELECT name_ FROM Roles WHERE KeyLink = '%1'").arg(QString::fromUtf8(role)))
            .toString();
    }

private slots:
    void init()
    {
        m_files = std::make_unique<TestStore>();
        m_store = m_files->openLoader();
    }
    void cleanup()
    {
        m_store.reset();
        m_files.reset();
    }

    void insertWritesMarkedFieldsAndTheKey()
    {
        auto batch = batchOf("Roles");
        MDRData* record = batch->newRow(ROW_INSERT, "ROLE_NEW");
        batch->SetValF(record, "name_", MDRValue::text("abc"));
        const MDRVar unmarked = MDRValue::text("DEP_CDS");
        MDRSetVal(MDRFldByName(batch->array, "DepartmentKey"), record, &unmarked);
        batch->RecPost(record);
        QVERIFY(m_store->apply({{"Roles", batch->array}}, GenGuid32(), &m_error));
        const auto rows = m_files->rows(
            QStringLiteral("SELECT DepartmentKey, name_ FROM Roles WHERE KeyLink = 'ROLE_NEW'"));
        QVERIFY(rows.value(0).value(0).isNull());
        QCOMPARE(rows.value(0).value(1).toString(), QStringLiteral("abc"));
    }

    void updateWritesMarkedFieldsOnly()
    {
        auto batch = batchOf("Roles");
        MDRData* record = batch->newRow(ROW_UPDATE, "ROLE_ZAR");
        batch->SetValF(record, "name_", MDRValue::text("new"));
        const MDRVar unmarked = MDRValue::text("ELSEWHERE");
        MDRSetVal(MDRFldByName(batch->array, "DepartmentKey"), record, &unmarked);
        batch->RecPost(record);
        QVERIFY(m_store->apply({{"Roles", batch->array}}, GenGuid32(), &m_error));
        const auto rows = m_files->rows(
            QStringLiteral("SELECT DepartmentKey, name_ FROM Roles WHERE KeyLink = 'ROLE_ZAR'"));
        QCOMPARE(rows.value(0).value(0).toString(), QStringLiteral("DEP_ZAR"));
        QCOMPARE(rows.value(0).value(1).toString(), QStringLiteral("new"));
    }

    void markedKeyChangesNothing()
    {
        auto batch = batchOf("Roles");
        MDRData* record = batch->newRow(ROW_UPDATE, "ROLE_ZAR");
        MDRSetUser(MDRFldByName(batch->array, "KeyLink"), record, 1);
        batch->SetValF(record, "name_", MDRValue::text("new"));
        batch->RecPost(record);
        QVERIFY(m_store->apply({{"Roles", batch->array}}, GenGuid32(), &m_error));
        QCOMPARE(name("ROLE_ZAR"), QStringLiteral("new"));
    }

    void updateOfAnAbsentRowFailsWhole()
    {
        auto batch = batchOf("Roles");
        row(*batch, ROW_UPDATE, "ROLE_ZAR", {{"name_", "new"}});
        row(*batch, ROW_UPDATE, "NOWHERE", {{"name_", "new"}});
        QVERIFY(!m_store->apply({{"Roles", batch->array}}, GenGuid32(), &m_error));
        QCOMPARE(m_error.code, StoreError::NoSuchRow);
        QCOMPARE(m_error.text,
                 QString::fromUtf8("Строки, которую нужно изменить, уже нет (таблица «Roles»)."));
        QCOMPARE(name("ROLE_ZAR"), QString::fromUtf8("Диспетчер группы"));
        QVERIFY(!write("Roles", ROW_UPDATE, "NOWHERE"));
        QCOMPARE(m_error.code, StoreError::NoSuchRow);
    }

    void deletionOfAnAbsentRowSucceeds() { QVERIFY(write("Roles", ROW_DELETE, "NOWHERE")); }

    void updateWithoutMarkedFieldsChecksTheRow() { QVERIFY(write("Roles", ROW_UPDATE, "ROLE_ZAR")); }

    void keyThatIsThereAlreadyIsRefused()
    {
        QVERIFY(!write("Roles", ROW_INSERT, "ROLE_ZAR"));
        QCOMPARE(m_error.code, StoreError::BadRequest);
        QCOMPARE(m_error.text, QString::fromUtf8("Строка с таким ключом уже есть."));
    }

    void batchesAreOneTransactionInTheirOrder()
    {
        auto first = batchOf("Roles");
        row(*first, ROW_INSERT, "ROLE_1");
        auto second = batchOf("WorkerRoles");
        row(*second, ROW_INSERT, "WR_1", {{"RoleKey", "ROLE_1"}});
        auto third = batchOf("Roles");
        row(*third, ROW_DELETE, "ROLE_1");
        row(*third, ROW_INSERT, "ROLE_1", {{"name_", "again"}});
        const qint64 before = transactions();
        QVERIFY(
            m_store->apply({{"Roles", first->array}, {"WorkerRoles", second->array}, {"Roles", third->array}},
                           GenGuid32(), &m_error));
        QCOMPARE(transactions(), before + 1);
        QCOMPARE(name("ROLE_1"), QStringLiteral("again"));
        const auto events =
            m_files->rows(QStringLiteral("SELECT tableName, event FROM ChangeLog WHERE number = "
                                         "(SELECT max(number) FROM ChangeTransactions) ORDER BY entry"));
        QCOMPARE(events.size(), 4);
        QCOMPARE(events[0][1].toInt(), 601);
        QCOMPARE(events[1][0].toString(), QStringLiteral("WorkerRoles"));
        QCOMPARE(events[2][1].toInt(), 603);
        QCOMPARE(events[3][1].toInt(), 601);
    }

    void failureInALaterBatchUndoesTheEarlierOnes()
    {
        auto first = batchOf("Roles");
        row(*first, ROW_INSERT, "ROLE_1");
        auto second = batchOf("Roles");
        row(*second, ROW_UPDATE, "NOWHERE");
        const qint64 before = transactions();
        QVERIFY(!m_store->apply({{"Roles", first->array}, {"Roles", second->array}}, GenGuid32(), &m_error));
        QCOMPARE(transactions(), before);
        QVERIFY(write("Roles", ROW_INSERT, "ROLE_1")); // and the store continues to work
    }

    void writesRecordsInOrderOfEntryDespiteKeys()
    {
        auto batch = batchOf("Roles");
        row(*batch, ROW_INSERT, "ZZZ");
        row(*batch, ROW_INSERT, "AAA");
        MDRKeyDescr key = {};
        qstrcpy(key.fields, "KeyLink");
        MDAKeyAdd(batch->array, 1, &key);
        MDAKeyDel(batch->array, 0);
        QVERIFY(m_store->apply({{"Roles", batch->array}}, GenGuid32(), &m_error));
        QCOMPARE(
            m_files->value(QStringLiteral("SELECT rowKey FROM ChangeLog ORDER BY entry DESC")).toString(),
            QStringLiteral("AAA"));
    }

    void unflaggedRecordsAreSkippedAndCostNoTransaction()
    {
        auto batch = batchOf("Roles");
        MDRData* record = batch->newRow(ROW_INSERT, "ROLE_1");
        MDRSetFlags(record, 0);
        batch->RecPost(record);
        const qint64 before = transactions();
        QVERIFY(m_store->apply({{"Roles", batch->array}}, GenGuid32(), &m_error));
        QVERIFY(m_store->apply({}, GenGuid32(), &m_error));
        QCOMPARE(transactions(), before);
        QVERIFY(name("ROLE_1").isEmpty());
    }

    void repeatedBatchKeyDoesNothingAndSucceeds()
    {
        auto batch = batchOf("Roles");
        row(*batch, ROW_INSERT, "ROLE_1");
        const QByteArray batchKey = GenGuid32();
        QVERIFY(m_store->apply({{"Roles", batch->array}}, batchKey, &m_error));
        const qint64 before = transactions();
        QVERIFY(m_store->apply({{"Roles", batch->array}}, batchKey, &m_error));
        QCOMPARE(transactions(), before);
        const auto other = m_files->openLoader();
        QVERIFY(other->apply({{"Roles", batch->array}}, batchKey, &m_error));
        QCOMPARE(transactions(), before);
    }

    void unknownFieldsFailOnlyIfMarked()
    {
        const MDRFieldDescr fields[] = {
            {"KeyLink", 32, mdr_TChar}, {"name_", 100, mdr_TChar}, {"file", 0, mdr_TBool}};
        CRowBatch batch(fields, 3);
        MDRData* record = batch.newRow(ROW_INSERT, "ROLE_1");
        const MDRVar yes = MDRValue::boolean(true);
        MDRSetVal(MDRFldByName(batch.array, "file"), record, &yes);
        batch.RecPost(record);
        QVERIFY(m_store->apply({{"Roles", batch.array}}, GenGuid32(), &m_error));
        CRowBatch other(fields, 3);
        record = other.newRow(ROW_INSERT, "ROLE_2");
        other.SetValF(record, "file", yes);
        other.RecPost(record);
        QVERIFY(!m_store->apply({{"Roles", other.array}}, GenGuid32(), &m_error));
        QCOMPARE(m_error.code, StoreError::BadRequest);
        QCOMPARE(m_error.text, QString::fromUtf8("В таблице «Roles» нет такого поля."));
    }

    void unknownTablesAndRowsWithoutKeyAreRefused()
    {
        auto batch = batchOf("Roles");
        row(*batch, ROW_INSERT, "X");
        for (const char* table : {"NoSuchTable", "ChangeLog", "StoreFiles", "Roles; DROP TABLE Roles"}) {
            QVERIFY(!m_store->apply({{table, batch->array}}, GenGuid32(), &m_error));
            QCOMPARE(m_error.code, StoreError::BadRequest);
        }
        QVERIFY(!write("Roles", ROW_INSERT, ""));
        QCOMPARE(m_error.code, StoreError::BadRequest);
        const MDRFieldDescr fields[] = {{"name_", 100, mdr_TChar}};
        CMDArray keyless;
        MDACreate(&keyless.array, 0);
        MDAFldAdd(keyless.array, 1, fields);
        MDRData* record = MDARecNew(keyless.array);
        MDRSetFlags(record, ROW_DELETE);
        MDARecPost(record, nullptr);
        QVERIFY(!m_store->apply({{"Roles", keyless.array}}, GenGuid32(), &m_error));
        QCOMPARE(m_error.code, StoreError::BadRequest);
    }

    void keysWithForbiddenCharactersAreRefused_data()
    {
        QTest::addColumn<QByteArray>("key");
        QTest::addColumn<bool>("allowed");
        QTest::newRow("quote") << QByteArray("a'b") << false;
        QTest::newRow("double quote") << QByteArray("a\"b") << false;
        QTest::newRow("backslash") << QByteArray("a\\b") << false;
        QTest::newRow("line end") << QByteArray("a\nb") << false;
        QTest::newRow("first control character") << QByteArray("\x01") << false;
        QTest::newRow("last control character") << QByteArray("\x1f") << false;
        QTest::newRow("zero byte") << QByteArray("a\0b", 3) << false;
        QTest::newRow("name of a parameter") << QByteArray("$AutoConvertFromDelphi") << true;
        QTest::newRow("brackets and marks") << QByteArray("[a]*?-^ b") << true;
        QTest::newRow("longer than 32") << QByteArray(200, 'k') << true;
        QTest::newRow("Russian letters") << TestStore::bytes(QString::fromUtf8("ключ № 1")) << true;
    }
    void keysWithForbiddenCharactersAreRefused()
    {
        QFETCH(QByteArray, key);
        QFETCH(bool, allowed);
        QCOMPARE(write("Roles", ROW_INSERT, key), allowed);
        if (!allowed)
            QVERIFY(m_error.code == StoreError::Refused || m_error.code == StoreError::BadRequest);
    }

    void everyByteOfATextComesBack()
    {
        QByteArray all;
        for (int byte = 1; byte < 256; ++byte)
            all.append(static_cast<char>(byte));
        QVERIFY(write("LogbookTemplates", ROW_UPDATE, "TPL_TEXT", {{"html", all}}));
        CMDArray answer;
        answer = m_store->select("SELECT html FROM LogbookTemplates WHERE KeyLink='TPL_TEXT'", &m_error);
        MDRVar value;
        MDRGetVal(MDRFldByNum(answer.array, 0), MDARec(answer.array, 0, 0), &value);
        QCOMPARE(MDRValue::copy(value), all);
    }

    void valuesAreParametersNeverText()
    {
        const QString text = QStringLiteral("'); DROP TABLE Roles; --");
        QVERIFY(write("Roles", ROW_UPDATE, "ROLE_ZAR", {{"name_", text}}));
        QCOMPARE(name("ROLE_ZAR"), text);
    }

    void doublesAndBlobsComeBackExactly()
    {
        const double time = 1763600000.1234567;
        QByteArray bytes(300000, '\0');
        for (int i = 0; i < bytes.size(); ++i)
            bytes[i] = static_cast<char>(i * 7);
        QVERIFY(write("Shifts", ROW_UPDATE, "TIMETABLE_CDS_DAY", {{"startTime", time}}));
        QVERIFY(write("LogbookFiles", ROW_UPDATE, "FILE_TEXT", {{"fileData", bytes}}));
        CMDArray answer;
        answer = m_store->select("SELECT startTime FROM Shifts WHERE KeyLink='TIMETABLE_CDS_DAY'", &m_error);
        QCOMPARE(TestStore::field(answer.array, "startTime").toDouble(), time);
        answer = m_store->select("SELECT * FROM LogbookFiles WHERE KeyLink='FILE_TEXT'", &m_error);
        QCOMPARE(TestStore::field(answer.array, "fileData").toByteArray(), bytes);
    }

    void emptyTextsAndEmptyFilesAreNotNull()
    {
        QVERIFY(write("LogbookWorkshifts", ROW_UPDATE, "SHIFT_CDS_OPEN", {{"CloseWorkerKey", ""}}));
        const auto length = [this](const char* column, const char* table, const char* key) {
            return m_files->value(QStringLiteral("SELECT length(%1) FROM %2 WHERE KeyLink = '%3'")
                                      .arg(QLatin1String(column), QLatin1String(table), QLatin1String(key)));
        };
        QCOMPARE(length("CloseWorkerKey", "LogbookWorkshifts", "SHIFT_CDS_OPEN"), QVariant(0LL));
        QVERIFY(write("LogbookFiles", ROW_UPDATE, "FILE_TEXT", {{"fileData", QByteArray("")}}));
        QCOMPARE(length("fileData", "LogbookFiles", "FILE_TEXT"), QVariant(0LL));
        QVERIFY(write("LogbookFiles", ROW_UPDATE, "FILE_TEXT", {{"fileData", nullptr}}));
        QVERIFY(
            m_files->value(QStringLiteral("SELECT fileData FROM LogbookFiles WHERE KeyLink = 'FILE_TEXT'"))
                .isNull());
    }

    void readedTimeIsNeverNull()
    {
        const QString sql = QStringLiteral("SELECT readedTime FROM LogbookComments WHERE KeyLink = '%1'");
        QCOMPARE(m_files->value(sql.arg(QStringLiteral("COM_UNREAD"))), QVariant(0.0)); // never set
        QVERIFY(write("LogbookComments", ROW_INSERT, "COM_1",
                      {{"RecordKey", "REC_ZAR"}, {"readedTime", nullptr}}));
        QCOMPARE(m_files->value(sql.arg(QStringLiteral("COM_1"))), QVariant(0.0));
        QVERIFY(write("LogbookComments", ROW_UPDATE, "COM_READ", {{"readedTime", nullptr}}));
        QCOMPARE(m_files->value(sql.arg(QStringLiteral("COM_READ"))), QVariant(0.0));
    }

    void valuesOfAnotherKindAreRefused()
    {
        const MDRFieldDescr fields[] = {{"KeyLink", 32, mdr_TChar}, {"startTime", 100, mdr_TChar}};
        CRowBatch batch(fields, 2);
        MDRData* record = batch.newRow(ROW_UPDATE, "TIMETABLE_CDS_DAY");
        batch.SetValF(record, "startTime", MDRValue::text("now"));
        batch.RecPost(record);
        QVERIFY(!m_store->apply({{"Shifts", batch.array}}, GenGuid32(), &m_error));
        QCOMPARE(m_error.code, StoreError::BadRequest);
        QVERIFY(!write("Shifts", ROW_UPDATE, "TIMETABLE_CDS_DAY",
                       {{"startTime", std::numeric_limits<double>::infinity()}}));
        QCOMPARE(m_error.code, StoreError::BadRequest);
        QVERIFY(!write("Shifts", ROW_UPDATE, "TIMETABLE_CDS_DAY",
                       {{"startTime", std::numeric_limits<double>::quiet_NaN()}}));
        QCOMPARE(m_error.code, StoreError::BadRequest);
    }

    void numbersConvertAmongThemselves()
    {
        const MDRFieldDescr fields[] = {
            {"KeyLink", 32, mdr_TChar}, {"safetyGroup", 0, mdr_TDouble}, {"deleted_", 0, mdr_TInt32}};
        CRowBatch batch(fields, 3);
        MDRData* record = batch.newRow(ROW_UPDATE, "WORKER_PETROV");
        batch.SetValF(record, "safetyGroup", MDRValue::real(3.0));
        batch.SetValF(record, "deleted_", MDRValue::number(7));
        batch.RecPost(record);
        QVERIFY(m_store->apply({{"Workers", batch.array}}, GenGuid32(), &m_error));
        const auto rows = m_files->rows(
            QStringLiteral("SELECT safetyGroup, deleted_ FROM Workers WHERE KeyLink = 'WORKER_PETROV'"));
        QCOMPARE(rows[0][0].toInt(), 3);
        QCOMPARE(rows[0][1].toInt(), 1);
    }

    void commentsAndFilesGoWithTheirRecord()
    {
        QVERIFY(write("LogbookRecords", ROW_DELETE, "REC_TRIP"));
        QCOMPARE(m_files->value(QStringLiteral("SELECT count(*) FROM LogbookFiles")).toInt(), 0);
        QCOMPARE(m_files->value(QStringLiteral("SELECT count(*) FROM ChangeLog WHERE event = 603")).toInt(),
                 3);
    }

    void crewGoesWithItsWorkshiftRecordsHoldIt()
    {
        QVERIFY(!write("LogbookWorkshifts", ROW_DELETE, "SHIFT_ZAR_OPEN"));
        QCOMPARE(m_error.code, StoreError::Refused);
        QVERIFY(write("LogbookRecords", ROW_DELETE, "REC_ZAR"));
        QVERIFY(write("LogbookWorkshifts", ROW_DELETE, "SHIFT_ZAR_OPEN"));
        QCOMPARE(m_files
                     ->value(QStringLiteral(
                         "SELECT count(*) FROM LogbookWorkersWorkshift WHERE KeyLink = 'CREW_ZAR_1'"))
                     .toInt(),
                 0);
    }

    void referencesMustLeadSomewhere()
    {
        QVERIFY(!write("LogbookRecords", ROW_INSERT, "REC_1", {{"ShiftKey", "NOWHERE"}}));
        QCOMPARE(m_error.code, StoreError::Refused);
        QVERIFY(!write("LogbookComments", ROW_INSERT, "COM_1", {{"RecordKey", "NOWHERE"}}));
        QVERIFY(!write("LogbookTemplates", ROW_INSERT, "TPL_1", {{"CategoryKey", "NOWHERE"}}));
        QVERIFY(!write("LogbookCatsTemplate", ROW_INSERT, "CAT_1", {{"ParentKey", "NOWHERE"}}));
        QVERIFY(
            // it would leave templates and a child without a parent
            !write("LogbookCatsTemplate", ROW_DELETE, "CAT_COMMON"));
        QVERIFY(write("LogbookRecords", ROW_INSERT, "REC_1",
                      {{"ShiftKey", "SHIFT_ZAR_OPEN"}, {"WorkerKey", "NOBODY"}}));
    }

    void categoryMovesByDeletionAndInsertionInOneBlock_data()
    {
        QTest::addColumn<QByteArray>("table");
        QTest::addColumn<QByteArray>("things");
        QTest::addColumn<QByteArray>("child"); // with a thing and no child of its own
        QTest::addColumn<QByteArray>("parent");
        QTest::newRow("templates") << QByteArray("LogbookCatsTemplate") << QByteArray("LogbookTemplates")
                                   << QByteArray("CAT_COMMON_SUB") << QByteArray("CAT_COMMON");
        QTest::newRow("parameters") << QByteArray("TemplateParamCategories") << QByteArray("TemplateParams")
                                    << QByteArray("SUB") << QByteArray("ABOVE");
    }
    void categoryMovesByDeletionAndInsertionInOneBlock()
    {
        QFETCH(QByteArray, table);
        QFETCH(QByteArray, things);
        QFETCH(QByteArray, child);
        QFETCH(QByteArray, parent);
        if (child == "SUB") {
            QVERIFY(write(table, ROW_INSERT, parent));
            QVERIFY(write(table, ROW_INSERT, child, {{"ParentKey", "ABOVE"}}));
        }
        QVERIFY(write(table, ROW_INSERT, "TARGET"));
        QVERIFY(write(things, ROW_INSERT, "THING", {{"CategoryKey", QString::fromUtf8(child)}}));
        // The child with its thing, then the parent with its child.
        for (const QByteArray& moved : {child, parent}) {
            auto gone = batchOf(table);
            row(*gone, ROW_DELETE, moved);
            auto back = batchOf(table);
            row(*back, ROW_INSERT, moved,
                {{"ParentKey", moved == child ? QString::fromUtf8(parent) : QStringLiteral("TARGET")},
                 {"nameLoc", "moved"}});
            QVERIFY2(m_store->apply({{table, gone->array}, {table, back->array}}, GenGuid32(), &m_error),
                     qPrintable(m_error.text + m_error.detail));
            QCOMPARE(m_files
                         ->value(QStringLiteral("SELECT nameLoc FROM %1 WHERE KeyLink = '%2'")
                                     .arg(QString::fromUtf8(table), QString::fromUtf8(moved)))
                         .toString(),
                     QStringLiteral("moved"));
        }
        QCOMPARE(m_files
                     ->value(QStringLiteral("SELECT CategoryKey FROM %1 WHERE KeyLink = 'THING'")
                                 .arg(QString::fromUtf8(things)))
                     .toString(),
                 QString::fromUtf8(child));
    }

    void cyclesOfCategoriesAreRefused()
    {
        QVERIFY(!write("LogbookCatsTemplate", ROW_UPDATE, "CAT_COMMON", {{"ParentKey", "CAT_COMMON_SUB"}}));
        QCOMPARE(m_error.code, StoreError::Refused);
        QCOMPARE(m_error.text, QString::fromUtf8("Категория не может лежать внутри самой себя."));
        QVERIFY(!write("LogbookCatsTemplate", ROW_UPDATE, "CAT_CDS", {{"ParentKey", "CAT_CDS"}}));
        auto batch = batchOf("LogbookCatsTemplate");
        row(*batch, ROW_DELETE, "CAT_COMMON");
        row(*batch, ROW_INSERT, "CAT_COMMON", {{"ParentKey", "CAT_COMMON_SUB"}});
        QVERIFY(!m_store->apply({{"LogbookCatsTemplate", batch->array}}, GenGuid32(), &m_error));
        QCOMPARE(m_error.code, StoreError::Refused);
        QVERIFY(!write("TemplateParamCategories", ROW_UPDATE, "PARCAT_MAIN", {{"ParentKey", "PARCAT_MAIN"}}));
        QVERIFY(write("LogbookCatsTemplate", ROW_UPDATE, "CAT_COMMON_SUB", {{"ParentKey", "CAT_CDS"}}));
    }

    void otherStoreSeesWhatIsAcknowledged()
    {
        const auto other = m_files->open(QStringLiteral("petrov"));
        QVERIFY(write("Roles", ROW_UPDATE, "ROLE_ZAR", {{"name_", "new"}}));
        CMDArray answer;
        answer = other->select("SELECT name_ FROM Roles WHERE KeyLink='ROLE_ZAR'", &m_error);
        QCOMPARE(TestStore::field(answer.array, "name_").toString(), QStringLiteral("new"));
    }
};

QTEST_GUILESS_MAIN(Store_apply_test)
#include "Store_apply_test.moc"
