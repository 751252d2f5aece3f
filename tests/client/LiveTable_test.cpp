#include "EventRow.h"
#include "LiveTable.h"
#include "LogbookFields.h"

#include <QTest>

/// Change events keep a table current.
class LiveTable_test : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_comments = std::make_unique<CModelTable>("LogbookComments", LogbookCommentFields, ""); }

    void insertedRowIsFoundByItsEvent()
    {
        const Event event(EventInserted, "A", "one");
        QVERIFY(!table().find(*event));
        const MDRData* row = table().insert(*event);
        QVERIFY(row);
        QCOMPARE(table().find(*event), row);
        QCOMPARE(texts(), QByteArray("A:one"));
    }

    void changedRowKeepsItsAddress()
    {
        const MDRData* row = table().insert(*Event(EventInserted, "A", "one"));
        QCOMPARE(table().change(*Event(EventChanged, "A", "two")), row);
        QCOMPARE(texts(), QByteArray("A:two"));
        QVERIFY(!table().change(*Event(EventChanged, "B", "two")));
        QCOMPARE(texts(), QByteArray("A:two"));
    }

    void eventsApplyAsTheySay()
    {
        QVERIFY(table().apply(*Event(EventInserted, "A", "one")));
        QVERIFY(table().apply(*Event(EventInserted, "B", "one")));
        QVERIFY(table().apply(*Event(EventChanged, "B", "two")));
        QCOMPARE(texts(), QByteArray("A:one B:two"));
        QVERIFY(table().apply(*Event(EventDeleted, "A", "")));
        QCOMPARE(texts(), QByteArray("B:two"));
    }

    void insertionOfAKnownRowChangesIt()
    {
        table().apply(*Event(EventInserted, "A", "one"));
        QVERIFY(table().apply(*Event(EventInserted, "A", "two")));
        QCOMPARE(texts(), QByteArray("A:two"));
    }

    void eventsOfUnknownRowsDoNothing()
    {
        QVERIFY(!table().apply(*Event(EventChanged, "A", "one")));
        QVERIFY(!table().apply(*Event(EventDeleted, "A", "")));
        QCOMPARE(texts(), QByteArray());
    }

    void answersAreAppended()
    {
        CModelTable answer("LogbookComments", LogbookCommentFields, "");
        QVERIFY(!table().append(answer));
        table().insert(*Event(EventInserted, "A", "one"));
        LiveTable(answer).insert(*Event(EventInserted, "B", "two"));
        LiveTable(answer).insert(*Event(EventInserted, "C", "three"));
        QCOMPARE(Row(table().append(answer)).key(), QByteArray("C"));
        QCOMPARE(texts(), QByteArray("A:one B:two C:three"));
    }

    void removedRowIsGone()
    {
        MDRData* row = table().insert(*Event(EventInserted, "A", "one"));
        table().remove(row);
        QCOMPARE(m_comments->data.lastError, int(mdr_Ok));
        QCOMPARE(texts(), QByteArray());
    }

private:
    /// An event about a comment.
    class Event
    {
    public:
        Event(EventNumber number, const QByteArray& key, const QByteArray& text)
        {
            CRowBatch batch(LogbookCommentFields);
            MDRData* row = batch.newRow(ROW_INSERT, key);
            batch.SetValF(row, Field::KeyLink, MDRValue::text(key));
            batch.SetValF(row, Field::text_, MDRValue::text(text));
            batch.RecPost(row);
            m_block.reset(HFNCliParam::event(number, key, "NCI:LogbookComments,17", MDRRecPack(row)));
            m_event = std::make_unique<TEventNciParse>(m_block.get());
        }
        const TEventNciParse& operator*() const { return *m_event; }

    private:
        std::unique_ptr<HFNCliParam> m_block;
        std::unique_ptr<TEventNciParse> m_event;
    };

    LiveTable table() const { return LiveTable(*m_comments); }
    /// "key:text" of the rows, in order of entry.
    QByteArray texts() const
    {
        QByteArray all;
        for (int i = 0; i < m_comments->data.RecCount(); ++i) {
            const Row row(MDARec(m_comments->data.array, 0, i));
            all += (i > 0 ? " " : "") + row.key() + ':' + row.copy(Field::text_);
        }
        return all;
    }

    std::unique_ptr<CModelTable> m_comments;
};

QTEST_APPLESS_MAIN(LiveTable_test)
#include "LiveTable_test.moc"
