#include "Filters.h"

#include "MadeTable.h"

#include <QSignalSpy>
#include <QTest>

class Filters_test : public QObject
{
    Q_OBJECT

private:
    MadeTable m_records{"LogbookRecords", LogbookRecordExtFields};

    QVector<bool> accepted(const VrkTableFilterRow& filter)
    {
        QVector<bool> answers;
        for (int status = 0; status < 3; ++status)
            answers.append(filter.isAcceptRow(&m_records.data, m_records.add({{"status", status}})));
        return answers;
    }

private slots:
    void areOnAtFirst() { QVERIFY(FilterByStatus().isEnabled()); }

    void hidesDrafts()
    {
        FilterByStatus filter;
        QCOMPARE(accepted(filter), QVector<bool>({true, false, true}));
        filter.setEnabled(false);
        QCOMPARE(accepted(filter), QVector<bool>({true, true, true}));
    }

    void showsTheOneDraftThatIsAskedFor()
    {
        FilterByStatus filter;
        MDRData* asked = m_records.add({{"KeyLink", QByteArray("ASKED")}, {"status", 1}});
        MDRData* other = m_records.add({{"KeyLink", QByteArray("OTHER")}, {"status", 1}});
        QSignalSpy again(&filter, &VrkTableFilterRow::enabledChanged);
        filter.setShown("ASKED");
        QCOMPARE(again.count(), 1);
        QVERIFY(filter.isAcceptRow(&m_records.data, asked));
        QVERIFY(!filter.isAcceptRow(&m_records.data, other));
        filter.setShown("ASKED");
        QCOMPARE(again.count(), 1);
        filter.forgetShown();
        QVERIFY(!filter.isAcceptRow(&m_records.data, asked));
    }

    void showsApprovedRecordsOnly()
    {
        FilterOnlyApprove filter;
        QCOMPARE(accepted(filter), QVector<bool>({true, false, false}));
        filter.setEnabled(false);
        QCOMPARE(accepted(filter), QVector<bool>({true, true, true}));
    }

    void showsRecordsWithAnUnreadComment()
    {
        MadeTable comments("LogbookComments", LogbookCommentFields);
        comments.add({{"KeyLink", "C1"}, {"RecordKey", "READ"}, {"readedTime", 5.0}});
        comments.add({{"KeyLink", "C2"}, {"RecordKey", "MIXED"}, {"readedTime", 5.0}});
        comments.add({{"KeyLink", "C3"}, {"RecordKey", "MIXED"}, {"readedTime", 0.0}});
        comments.add({{"KeyLink", "C4"}, {"RecordKey", "NULL"}});
        comments.add({{"KeyLink", "C5"}});
        FilterUnreadedComments filter(&comments, nullptr);
        const auto isShown = [&](const MadeValue& key) {
            return filter.isAcceptRow(&m_records.data, m_records.add({{"KeyLink", key}}));
        };
        QVERIFY(!isShown("READ"));
        QVERIFY(isShown("MIXED"));
        QVERIFY(isShown("NULL"));
        QVERIFY(!isShown("NONE"));
        QVERIFY(!isShown(""));
        QVERIFY(!isShown(MadeValue()));
        filter.setEnabled(false);
        QVERIFY(isShown("READ"));
        QVERIFY(isShown(MadeValue()));
    }
};

QTEST_GUILESS_MAIN(Filters_test)
#include "Filters_test.moc"
