#include "GenGuid32.h"
#include "MDRValues.h"
#include "TableCatalog.h"
#include "TestStore.h"

#include <QTest>

namespace
{
/// The parsed record of an event.
struct Row {
    MDRData record;
    MDRRecordType type;

    explicit Row(const StoreChange& change)
    {
        MDRRecInit(&record);
        MDRTypInit(&type);
        if (MDRRecSet(&record, change.packedRecord.constData(), change.packedRecord.size()) == mdr_Ok)
            MDRTypGen(&type, "NCI", &record);
    }
    ~Row() { MDRTypFree(&type); }
    Row(const Row&) = delete;
    Row& operator=(const Row&) = delete;

    bool isMarked(const char* name) const
    {
        bool mark = false;
        MDRIsUser(MDRFldByName(&type, name), &record, &mark);
        return mark;
    }
    int marks() const
    {
        int count = 0;
        for (int i = 0; i < type.count; ++i)
            count += isMarked(type.fields[i].name) ? 1 : 0;
        return count;
    }
    MDRVar value(const char* name) const
    {
        MDRVar found;
        MDRGetVal(MDRFldByName(&type, name), &record, &found);
        return found;
    }
};
} // namespace

class Store_changes_test : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestStore> m_files;
    std::unique_ptr<Store> m_store;
    ChangePosition m_position;
    StoreError m_error;

    void write(const char* table, MDRFlag flag, const QByteArray& key, const TestStore::Fields& fields = {})
    {
        if (!TestStore::write(m_store.get(), table, flag, key, fields, &m_error))
            qFatal("%s", qPrintable(m_error.text));
    }
    QVector<StoreChange> changes(int limit = 1000)
    {
        QVector<StoreChange> all;
        m_error.clear();
        m_store->changesAfter(&m_position, limit, &all, &m_error);
        return all;
    }

private slots:
    void init()
    {
        m_files = std::make_unique<TestStore>();
        m_store = m_files->openLoader();
        QVERIFY(m_store->position(&m_position, &m_error));
    }
    void cleanup()
    {
        m_store.reset();
        m_files.reset();
    }

    void nothingNewGivesNothing() { QVERIFY(changes().isEmpty() && !m_error); }

    void insertedRowComesWholeWithAllMarks()
    {
        write("LogbookComments", ROW_INSERT, "C", {{"RecordKey", "REC_ZAR"}, {"text_", "Смена"}});
        const auto all = changes();
        QCOMPARE(all.size(), 1);
        QCOMPARE(all[0].event, 601);
        QCOMPARE(all[0].table, QByteArray("LogbookComments"));
        QCOMPARE(all[0].key, QByteArray("C"));
        const Row row(all[0]);
        QCOMPARE(row.type.count, 6);
        QCOMPARE(row.marks(), 6);
        QCOMPARE(MDRValue::copy(row.value("text_")), TestStore::bytes(QString::fromUtf8("Смена")));
        QVERIFY(row.value("WorkerKey").isNull);
        QCOMPARE(row.value("readedTime").value.real, 0.0); // the value stored
        QVERIFY(!row.value("readedTime").isNull);
        QVERIFY(changes().isEmpty()); // once
    }

    void changedRowComesWholeWithMarksOnTheDifferentFields()
    {
        write("LogbookRecords", ROW_UPDATE, "REC_ORDER",
              {{"status", 2}, {"html", "new"}, {"direction", nullptr}});
        const auto all = changes();
        QCOMPARE(all.size(), 1);
        QCOMPARE(all[0].event, 602);
        const Row row(all[0]);
        QCOMPARE(row.type.count, 15);
        QVERIFY(row.isMarked("status") && row.isMarked("html"));
        QCOMPARE(row.marks(), 2); // direction was null already
        QCOMPARE(MDRValue::copy(row.value("ShiftKey")), QByteArray("SHIFT_CDS_OPEN"));
    }

    void everyUpdatedRowGivesAnEventThoughNothingDiffers()
    {
        write("LogbookTemplates", ROW_UPDATE, "TPL_TEXT", {{"nameLoc", "Штормовое предупреждение"}});
        write("LogbookTemplates", ROW_UPDATE, "TPL_TEXT");
        const auto all = changes();
        QCOMPARE(all.size(), 2);
        for (const StoreChange& change : all) {
            QCOMPARE(change.event, 602);
            QCOMPARE(Row(change).marks(), 0);
            QCOMPARE(Row(change).type.count, 4);
        }
    }

    void everyCharacterOfATextArrives()
    {
        QByteArray all;
        for (int byte = 1; byte < 256; ++byte)
            all.append(static_cast<char>(byte));
        write("LogbookRecords", ROW_UPDATE, "REC_ORDER", {{"html", all}});
        QCOMPARE(MDRValue::copy(Row(changes().value(0)).value("html")), all);
    }

    void deletedRowsComeWithoutARecord()
    {
        write("LogbookRecords", ROW_DELETE, "REC_TRIP");
        const auto all = changes();
        QCOMPARE(all.size(), 3); // with two files
        QSet<QByteArray> keys;
        for (const StoreChange& change : all) {
            QCOMPARE(change.event, 603);
            QVERIFY(change.packedRecord.isEmpty());
            QCOMPARE(change.number, all[0].number);
            keys.insert(change.key);
        }
        QCOMPARE(keys, (QSet<QByteArray>{"REC_TRIP", "FILE_TEXT", "FILE_IMAGE"}));
    }

    void deletionOfAnAbsentRowIsNoEvent()
    {
        write("Roles", ROW_DELETE, "NOWHERE");
        QVERIFY(changes().isEmpty());
    }

    void filesComeWithoutTheirBytes()
    {
        write("LogbookFiles", ROW_INSERT, "F",
              {{"RecordKey", "REC_ZAR"}, {"fileData", QByteArray(100000, 'x')}});
        write("LogbookFiles", ROW_UPDATE, "F", {{"fileData", QByteArray(100000, 'y')}});
        write("LogbookFiles", ROW_UPDATE, "F", {{"fileName", "y"}});
        const auto all = changes();
        QCOMPARE(all.size(), 3);
        for (const StoreChange& change : all) {
            QVERIFY(change.packedRecord.size() < 2000);
            QVERIFY(Row(change).value("fileData").isNull);
        }
        QVERIFY(Row(all[1]).isMarked("fileData") && Row(all[1]).marks() == 1);
        QVERIFY(!Row(all[2]).isMarked("fileData"));
        QVERIFY(m_files->value(QStringLiteral("SELECT max(length(newRow)) FROM ChangeLog")).toInt() < 5000);
        QByteArray bytes;
        QVERIFY(m_store->blob(all[2].table, "fileData", all[2].key, &bytes, &m_error));
        QCOMPARE(bytes, QByteArray(100000, 'y'));
    }

    void numbersAreContiguousAndTransactionsWhole()
    {
        const qint64 before = m_position.number;
        const QVector<MDRFieldDescr> fields = TableCatalog::table("Roles")->descriptors();
        for (int batchNumber = 0; batchNumber < 5; ++batchNumber) {
            CRowBatch batch(fields.constData(), fields.size());
            for (int i = 0; i < 4; ++i)
                batch.RecPost(batch.newRow(ROW_INSERT, QByteArray::number(10 * batchNumber + i)));
            QVERIFY(m_store->apply({{"Roles", batch.array}}, GenGuid32(), &m_error));
            // A refused transaction leaves no gap.
            QVERIFY(!TestStore::write(m_store.get(), "Roles", ROW_UPDATE, "NOWHERE"));
        }
        QVector<StoreChange> all;
        for (int read = 0; read < 5; ++read) {
            const auto some = changes(3);
            QCOMPARE(some.size(), 4); // a transaction is never split
            QCOMPARE(m_position.number, before + read + 1);
            all += some;
        }
        QVERIFY(changes().isEmpty());
        for (int i = 0; i < all.size(); ++i) {
            QCOMPARE(all[i].number, before + 1 + i / 4);
            QCOMPARE(all[i].key, QByteArray::number(10 * (i / 4) + i % 4));
        }
    }

    void limitTakesSeveralTransactionsAtOnce()
    {
        for (int i = 0; i < 10; ++i)
            write("Roles", ROW_INSERT, QByteArray::number(i));
        QCOMPARE(changes(6).size(), 6);
        QCOMPARE(changes(6).size(), 4);
    }

    void writesOfOthersArriveInOrderOfCommit()
    {
        const auto other = m_files->openLoader();
        for (int i = 0; i < 20; ++i) {
            QVERIFY(TestStore::write((i % 2 ? other : m_store).get(), "Roles", ROW_UPDATE, "ROLE_ZAR",
                                     {{"name_", QString::number(i)}}));
        }
        const auto all = changes();
        QCOMPARE(all.size(), 20);
        for (int i = 0; i < 20; ++i)
            QCOMPARE(MDRValue::copy(Row(all[i]).value("name_")), QByteArray::number(i));
    }

    void newsAreSeenOnceFromAnyWriter()
    {
        const auto other = m_files->openLoader();
        m_store->hasNews();
        QVERIFY(!m_store->hasNews());
        QVERIFY(TestStore::write(other.get(), "Roles", ROW_INSERT, "A"));
        QVERIFY(QTest::qWaitFor([this] { return m_store->hasNews(); })); // a server reports it with a delay
        QVERIFY(!m_store->hasNews());
        write("Roles", ROW_INSERT, "B");
        QVERIFY(m_store->hasNews());
        if (TestStore::isSqlite())
            QVERIFY(!m_store->hasNews());
    }

    void recognisesAnotherHistory()
    {
        ChangePosition foreign = m_position;
        foreign.epoch = "ANOTHER";
        QVector<StoreChange> all;
        QVERIFY(!m_store->changesAfter(&foreign, 10, &all, &m_error));
        QCOMPARE(m_error.code, StoreError::NotAStore);
        QVERIFY(!m_error.text.isEmpty());
        ChangePosition ahead = m_position;
        ahead.number += 5; // the file was replaced by an earlier state
        QVERIFY(!m_store->changesAfter(&ahead, 10, &all, &m_error));
        QCOMPARE(m_error.code, StoreError::NotAStore);
    }

    void theChainIsFollowedFromTheBeginning()
    {
        write("LogbookComments", ROW_INSERT, "C", {{"RecordKey", "REC_ZAR"}, {"text_", "Смена"}});
        write("LogbookRecords", ROW_UPDATE, "REC_ORDER", {{"html", "«В-110»\n"}, {"direction", nullptr}});
        write("LogbookComments", ROW_DELETE, "C");
        ChangePosition end;
        QVERIFY(m_store->position(&end, &m_error));
        QVERIFY(!end.chain.isEmpty());
        ChangePosition reached{end.epoch, 0, {}, {}};
        while (reached.number < end.number) {
            QVector<StoreChange> some; // a few at a time
            QVERIFY(m_store->changesAfter(&reached, 3, &some, &m_error));
            QCOMPARE(reached.broken.number, 0);
        }
        QCOMPARE(reached.chain.toHex(), end.chain.toHex());
    }

    void aChangeAfterAnotherHistoryIsNotedOnce()
    {
        const ChangePosition before = m_position;
        m_position.chain = QByteArray(32, 'x'); // what was read is not what the store has now
        write("Roles", ROW_INSERT, "A");
        write("Roles", ROW_INSERT, "B");
        QCOMPARE(changes().size(), 2);
        ChangePosition end;
        QVERIFY(m_store->position(&end, &m_error));
        QCOMPARE(m_position.broken.number, before.number + 1);
        QVERIFY(m_position.broken.expected != m_position.broken.found);
        QCOMPARE(m_position.chain, end.chain);
        m_position.broken = {};
        write("Roles", ROW_INSERT, "C");
        QCOMPARE(changes().size(), 1);
        QCOMPARE(m_position.broken.number, 0);
        // A position that was kept without its hash takes the next one.
        m_position.chain.clear();
        write("Roles", ROW_INSERT, "D");
        QCOMPARE(changes().size(), 1);
        QCOMPARE(m_position.broken.number, 0);
        QVERIFY(!m_position.chain.isEmpty());
    }

    void recognisesATruncatedLog()
    {
        const ChangePosition before = m_position;
        for (const char* key : {"A", "B", "C"})
            write("Roles", ROW_INSERT, key);
        // An administrator has archived the oldest changes.
        for (const char* table : {"ChangeLog", "ChangeTransactions"}) {
            const QString unlock =
                TestStore::isSqlite()
                    ? QStringLiteral("DROP TRIGGER %1_noDelete; ")
                          .arg(QLatin1String(qstrcmp(table, "ChangeLog") == 0 ? "Log" : "Transactions"))
                    : QStringLiteral("ALTER TABLE %1 DISABLE TRIGGER USER; ").arg(QLatin1String(table));
            QCOMPARE(m_files->exec(unlock + QStringLiteral("DELETE FROM %1 WHERE number <= %2")
                                                .arg(QLatin1String(table))
                                                .arg(before.number + 1)),
                     QString());
        }
        QVERIFY(changes().isEmpty());
        QCOMPARE(m_error.code, StoreError::NotAStore);
        QVERIFY2(m_error.text.contains(QString::fromUtf8("нужно загрузить заново")),
                 qPrintable(m_error.text));
        QCOMPARE(m_position.number, before.number);
        ++m_position.number; // readers after that position continue
        QCOMPARE(changes().size(), 2);
    }

    void logKeepsBatchLoginAndTime()
    {
        const auto store = m_files->open(QStringLiteral("petrov"));
        const QVector<MDRFieldDescr> fields = TableCatalog::table("LogbookComments")->descriptors();
        CRowBatch batch(fields.constData(), fields.size());
        MDRData* row = batch.newRow(ROW_UPDATE, "COM_UNREAD");
        batch.SetValF(row, "readedTime", MDRValue::real(5));
        batch.RecPost(row);
        QVERIFY(store->apply({{"LogbookComments", batch.array}}, "BATCH", &m_error));
        const auto head = m_files->rows(QStringLiteral(
            "SELECT batchKey, login, loader, time, length(chain) FROM ChangeTransactions ORDER BY number "
            "DESC LIMIT 1"))[0];
        QCOMPARE(head[0].toString(), QStringLiteral("BATCH"));
        QCOMPARE(head[1].toString(), QStringLiteral("petrov"));
        QCOMPARE(head[2].toInt(), 0);
        QVERIFY(qAbs(head[3].toDouble() - store->serverTime()) < 60);
        QCOMPARE(head[4].toInt(), 32);
        QCOMPARE(m_files->value(QStringLiteral("SELECT oldRow FROM ChangeLog ORDER BY entry DESC LIMIT 1"))
                     .toString(),
                 QString::fromUtf8(
                     "[\"COM_UNREAD\",\"WORKER_PETROV\",\"REC_OPENING\",%1,\"Уточните период смены.\",0]")
                     .arg(QString::number(TestStore::now() - 350 * 60, 'f', 0)));
    }
};

QTEST_GUILESS_MAIN(Store_changes_test)
#include "Store_changes_test.moc"
