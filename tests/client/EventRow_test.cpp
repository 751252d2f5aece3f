#include "EventRow.h"
#include "LogbookFields.h"

#include <QTest>

/// Change events are copied into tables.
class EventRow_test : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        CRowBatch batch(LogbookRecordFields, fieldCount(LogbookRecordFields));
        MDRData* row = batch.newRow(ROW_UPDATE, "REC_1");
        const MDRVar worker = MDRValue::text("WORKER_1");
        MDRSetVal(MDRFldByName(batch.array, Field::WorkerKey), row, &worker); // without a mark
        batch.SetValF(row, Field::status, MDRValue::number(StatusDeleted));
        batch.SetValF(row, Field::executionTime, MDRValue::null());
        batch.RecPost(row);
        m_block.reset(HFNCliParam::event(EventChanged, "REC_1", "NCI:LogbookRecords,17", MDRRecPack(row)));
        m_event = std::make_unique<TEventNciParse>(m_block.get());
        m_records = std::make_unique<CRowBatch>(LogbookRecordFields, fieldCount(LogbookRecordFields));
    }

    void theRowReadsByTheConstantsOfFields()
    {
        const EventRow row(*m_event);
        QCOMPARE(row.copy(Field::WorkerKey), QByteArray("WORKER_1"));
        QCOMPARE(row.number(Field::status, -1), int(StatusDeleted));
        QVERIFY(!row.has(Field::executionTime));
        QVERIFY(row.isOf("logbookrecords"));
        QVERIFY(!row.isOf("LogbookComments"));
    }

    void markedFieldsAloneAreCopied()
    {
        MDRData* record = changeRecord(m_records.get(), stored(), m_event.get());
        QVERIFY(record);
        QCOMPARE(Row(record).number(Field::status, -1), int(StatusDeleted));
        QVERIFY(!Row(record).has(Field::executionTime)); // null, and marked
        QCOMPARE(Row(record).copy(Field::WorkerKey), QByteArray("WORKER_2"));
    }

    void allFieldsAreCopiedOnRequest()
    {
        MDRData* record = stored();
        EventRow(*m_event).copyTo(record, EventRow::All);
        QCOMPARE(Row(record).copy(Field::WorkerKey), QByteArray("WORKER_1"));
        QCOMPARE(Row(record).number(Field::status, -1), int(StatusDeleted));
        MDARecDel(record);
    }

    void nothingIsChangedWithoutARecord()
    {
        CRowBatch other(LogbookRecordFields, fieldCount(LogbookRecordFields));
        QVERIFY(!changeRecord(m_records.get(), nullptr, m_event.get()));
        QVERIFY(!changeRecord(static_cast<CMDArray*>(nullptr), stored(), m_event.get()));
        QVERIFY(!changeRecord(static_cast<CModelTable*>(nullptr), stored(), m_event.get()));
        QVERIFY(!changeRecord(m_records.get(), MDARecNew(other.array), m_event.get()));
    }

private:
    /// The edited version of a record with other values.
    MDRData* stored()
    {
        MDRData* record = m_records->newRow(ROW_INSERT, "REC_1");
        m_records->SetValF(record, Field::WorkerKey, MDRValue::text("WORKER_2"));
        m_records->SetValF(record, Field::status, MDRValue::number(StatusDraft));
        m_records->SetValF(record, Field::executionTime, MDRValue::real(1.0));
        return MDARecEdit(m_records->RecPost(record));
    }

    std::unique_ptr<HFNCliParam> m_block;
    std::unique_ptr<TEventNciParse> m_event;
    std::unique_ptr<CRowBatch> m_records;
};

QTEST_APPLESS_MAIN(EventRow_test)
#include "EventRow_test.moc"
