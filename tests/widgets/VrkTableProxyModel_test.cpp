#include "VrkTableProxyModel.h"

#include "RecordTable.h"
#include "VrkTableFilterRow.h"

#include <memory>
#include <QAbstractItemModelTester>
#include <QTest>

namespace
{
/// Hides drafts.
class NoDrafts : public VrkTableFilterRow
{
public:
    bool isAcceptRow(const CMDArray* array, MDRData* record) const override
    {
        ++asked;
        MDRVar status;
        array->GetVal(record, "status", status);
        return !isEnabled() || status.value.number != StatusDraft;
    }
    mutable int asked = 0;
};
} // namespace

class VrkTableProxyModel_test : public QObject
{
    Q_OBJECT

private:
    struct Setup {
        Setup() : tester(&proxy, QAbstractItemModelTester::FailureReportingMode::QtTest)
        {
            proxy.setSourceModel(&model);
            model.setTextCodec(RecordTable::codec());
            model.setCMDArray(&table);
        }
        QString keys() const
        {
            QStringList keys;
            for (int row = 0; row < proxy.rowCount(); ++row)
                keys.append(proxy.index(row, 0).data().toString());
            return keys.join(QLatin1Char(' '));
        }
        void sort(const char* field, Qt::SortOrder order = Qt::AscendingOrder)
        {
            proxy.sort(model.idxField(QLatin1String(field)), order);
        }
        MDRData* append(const char* key, double time, int status = StatusApproved)
        {
            model.beginAppendRows(1);
            MDRData* record = table.add(key, time, QString(), status);
            model.endAppendRows();
            return record;
        }

        RecordTable table;
        VrkTableModel model;
        VrkTableProxyModel proxy;
        QAbstractItemModelTester tester;
    };

private slots:
    void timesSortByValueNotByWhatIsShown()
    {
        Setup s;
        TimeCell time;
        s.model.setCellConversion(QStringLiteral("recordTime"), &time);
        s.append("NIGHT", RecordTable::at(QStringLiteral("20.11.2026 00:06")));
        s.append("EVENING", RecordTable::at(QStringLiteral("19.11.2026 23:58")));
        s.sort("recordTime");
        QCOMPARE(s.keys(), QStringLiteral("EVENING NIGHT"));
        s.sort("recordTime", Qt::DescendingOrder);
        QCOMPARE(s.keys(), QStringLiteral("NIGHT EVENING"));
    }

    void numbersSortByValueAndNullComesFirst()
    {
        Setup s;
        s.append("TEN", 1, 10);
        s.append("NINE", 1, 9);
        MDRData* none = s.append("NONE", 1);
        s.table.set(none, "status", MDRValue::null());
        s.model.updateRecord(none);
        s.sort("status");
        QCOMPARE(s.keys(), QStringLiteral("NONE NINE TEN"));
    }

    void equalOnesStandInOrderOfEntryBothWays()
    {
        Setup s;
        s.append("A", 5);
        s.append("B", 5);
        s.append("C", 4);
        s.append("D", 5);
        s.sort("recordTime");
        QCOMPARE(s.keys(), QStringLiteral("C A B D"));
        s.sort("recordTime", Qt::DescendingOrder);
        QCOMPARE(s.keys(), QStringLiteral("A B D C"));
    }

    void aRecordThatBecomesEqualTakesItsPlaceByEntry()
    {
        Setup s;
        MDRData* first = s.append("A", 9);
        s.append("B", 5);
        s.append("C", 5);
        s.sort("recordTime");
        QCOMPARE(s.keys(), QStringLiteral("B C A"));
        s.table.set(first, "recordTime", MDRValue::real(5));
        s.model.updateRecord(first);
        QCOMPARE(s.keys(), QStringLiteral("A B C"));
    }

    void textsSortByWhatIsShown()
    {
        Setup s;
        s.model.beginResetModel();
        s.table.add("1", 1, QStringLiteral("<b>яма</b>"));
        s.table.add("2", 1, QStringLiteral("Ёлка"));
        s.table.add("3", 1, QStringLiteral("<i>ель</i>"));
        s.table.add("4", 1, QStringLiteral("Анкер"));
        s.model.endResetModel();
        s.sort("html");
        QCOMPARE(s.keys(), QStringLiteral("4 2 3 1"));
    }

    void newRecordsFallIntoTheirPlace()
    {
        Setup s;
        s.append("A", 10);
        s.append("C", 30);
        s.sort("recordTime");
        s.append("B", 20);
        QCOMPARE(s.keys(), QStringLiteral("A B C"));
    }

    void filtersAreEnabledFromTheStartAndSwitched()
    {
        Setup s;
        s.append("A", 1);
        s.append("D", 2, StatusDraft);
        NoDrafts filter;
        QVERIFY(filter.isEnabled());
        s.proxy.setFilterRows(&filter);
        QCOMPARE(s.keys(), QStringLiteral("A"));
        filter.setEnabled(false);
        QCOMPARE(s.keys(), QStringLiteral("A D"));
        filter.setEnabled(true);
        QCOMPARE(s.keys(), QStringLiteral("A"));
    }

    void filtersAreAskedAgainWhenARecordChanges()
    {
        Setup s;
        NoDrafts filter;
        s.proxy.setFilterRows(&filter);
        MDRData* draft = s.append("D", 2, StatusDraft);
        QCOMPARE(s.keys(), QString());
        s.table.set(draft, "status", MDRValue::number(StatusApproved));
        s.model.updateRecord(draft);
        QCOMPARE(s.keys(), QStringLiteral("D"));
        s.table.set(draft, "status", MDRValue::number(StatusDraft));
        s.model.updateRecord(draft);
        QCOMPARE(s.keys(), QString());
    }

    void everyFilterMustKeepTheRow()
    {
        class OnlyB : public VrkTableFilterRow
        {
        public:
            bool isAcceptRow(const CMDArray* array, MDRData* record) const override
            {
                MDRVar key;
                array->GetVal(record, "KeyLink", key);
                return MDRValue::bytes(key).startsWith('B');
            }
        };
        Setup s;
        s.append("A", 1);
        s.append("B", 2);
        s.append("BD", 3, StatusDraft);
        NoDrafts noDrafts;
        s.proxy.setFilterRows(&noDrafts);
        s.proxy.setFilterRows(&noDrafts); // once is enough
        s.proxy.setFilterRows(nullptr);
        auto onlyB = std::make_unique<OnlyB>();
        s.proxy.setFilterRows(onlyB.get());
        QCOMPARE(s.keys(), QStringLiteral("B"));
        onlyB.reset(); // removed when it is destroyed
        QCOMPARE(s.keys(), QStringLiteral("A B"));
    }

    void theBaseFilterKeepsEverything()
    {
        Setup s;
        s.append("A", 1);
        VrkTableFilterRow filter;
        s.proxy.setFilterRows(&filter);
        QCOMPARE(s.keys(), QStringLiteral("A"));
    }

    void aFilterSwitchedDuringAResetIsAskedAtItsEnd()
    {
        Setup s;
        s.append("A", 1);
        s.append("D", 2, StatusDraft);
        NoDrafts filter;
        filter.setEnabled(false);
        s.proxy.setFilterRows(&filter);
        s.model.beginResetModel();
        MDAClearRec(s.table.array);
        s.table.add("X", 1, QString(), StatusDraft);
        s.table.add("Y", 2, QString());
        filter.asked = 0;
        filter.setEnabled(true);
        QCOMPARE(filter.asked, 0);
        s.model.endResetModel();
        QCOMPARE(s.keys(), QStringLiteral("Y"));
    }

    void recordsAreFoundBehindRows()
    {
        Setup s;
        MDRData* late = s.append("B", 2);
        MDRData* early = s.append("A", 1);
        s.sort("recordTime");
        QCOMPARE(s.proxy.record(0), early);
        QCOMPARE(s.proxy.record(1), late);
        QCOMPARE(s.proxy.record(2), nullptr);
        QCOMPARE(s.proxy.record(-1), nullptr);
    }
};

QTEST_GUILESS_MAIN(VrkTableProxyModel_test)
#include "VrkTableProxyModel_test.moc"
