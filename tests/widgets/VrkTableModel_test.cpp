#include "VrkTableModel.h"

#include "RecordTable.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QTest>

namespace
{
const QString html = QStringLiteral("html");
}

class VrkTableModel_test : public QObject
{
    Q_OBJECT

private:
    /// A model over three records, watched by the tester.
    struct Setup {
        Setup() : tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest)
        {
            table.add("A", 10, QStringLiteral("первая"));
            table.add("B", 20, QStringLiteral("<i>вторая</i>"));
            table.add("C", 30, QStringLiteral("третья"));
            model.setTextCodec(RecordTable::codec());
            model.setCMDArray(&table);
        }
        QString text(int row, const char* field = "html", int role = Qt::DisplayRole) const
        {
            return model.index(row, model.idxField(QLatin1String(field))).data(role).toString();
        }

        RecordTable table;
        VrkTableModel model;
        QAbstractItemModelTester tester;
    };

private slots:
    void rowsAreRecordsAndColumnsFields()
    {
        Setup s;
        QCOMPARE(s.model.rowCount(), 3);
        QCOMPARE(s.model.columnCount(), 18);
        QCOMPARE(s.text(1, "KeyLink"), QStringLiteral("B"));
        QCOMPARE(s.model.record(2), s.table.row(2));
        QCOMPARE(s.model.record(3), nullptr);
        QCOMPARE(s.model.indexOf(s.table.row(1)).row(), 1);
        QVERIFY(!s.model.indexOf(nullptr).isValid());
    }

    void withoutArrayItIsEmpty()
    {
        VrkTableModel model;
        QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        QCOMPARE(model.rowCount(), 0);
        QCOMPARE(model.columnCount(), 0);
        QCOMPARE(model.idxField(html), -1);
        model.setCMDArray(nullptr);
        QCOMPARE(model.rowCount(), 0);
    }

    void anArrayWithoutKeyShowsNoRows()
    {
        CMDArray array;
        MDACreate(&array.array, 0);
        MDAFldAdd(array.array, fieldCount(LogbookRecordFields), LogbookRecordFields);
        array.RecPost(MDARecNew(array.array));
        VrkTableModel model;
        model.setCMDArray(&array);
        QCOMPARE(model.rowCount(), 0);
        QCOMPARE(model.columnCount(), 15);
    }

    void findsFieldsInAnyCase()
    {
        Setup s;
        QCOMPARE(s.model.idxField(QStringLiteral("KeyLink")), 0);
        QCOMPARE(s.model.idxField(QStringLiteral("keyLink")), 0);
        QCOMPARE(s.model.idxField(QStringLiteral("object")), 17);
        QCOMPARE(s.model.idxField(QStringLiteral("nothing")), -1);
    }

    void templateTextIsVisibleTextAndStoredText()
    {
        Setup s;
        QCOMPARE(s.text(1), QStringLiteral("вторая"));
        QCOMPARE(s.text(1, "html", Qt::UserRole), QStringLiteral("<i>вторая</i>"));
        QVERIFY(s.model.isTemplateText(s.model.idxField(html)));
        QVERIFY(!s.model.isTemplateText(s.model.idxField(QStringLiteral("object"))));
    }

    void markupOutsideOfTemplateTextIsText()
    {
        Setup s;
        MDRData* edited = MDARecEdit(s.table.row(0));
        s.table.setText(edited, "object", QStringLiteral("<b>ПС</b>"));
        s.table.RecPost(edited);
        s.model.updateRecord(s.table.row(0));
        QCOMPARE(s.text(0, "object"), QStringLiteral("<b>ПС</b>"));
    }

    void theCodecMayComeLater()
    {
        RecordTable table;
        table.add("A", 10, QStringLiteral("текст"));
        VrkTableModel model;
        model.setCMDArray(&table);
        const QModelIndex cell = model.index(0, model.idxField(html));
        QVERIFY(cell.data().toString() != QStringLiteral("текст"));
        QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
        model.setTextCodec(RecordTable::codec());
        QCOMPARE(changed.count(), 1);
        QCOMPARE(cell.data().toString(), QStringLiteral("текст"));
    }

    void aConversionAnswersForItsColumn()
    {
        Setup s;
        FixedCell fixed(Qt::DisplayRole, QStringLiteral("x"));
        s.model.setCellConversion(QStringLiteral("Html"), &fixed);
        QCOMPARE(s.text(0), QStringLiteral("x"));
        QCOMPARE(s.text(0, "html", Qt::UserRole), QStringLiteral("первая"));
        QCOMPARE(s.text(0, "KeyLink"), QStringLiteral("A"));
        s.model.setCellConversion(html, nullptr);
        QCOMPARE(s.text(0), QStringLiteral("первая"));
    }

    void headersAndConversionsAreKeptOverOtherFields()
    {
        CMDArray array;
        MDACreate(&array.array, 0);
        VrkTableModel model;
        QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        FixedCell fixed(Qt::DisplayRole, QStringLiteral("x"));
        model.setCMDArray(&array);
        model.setCellConversion(html, &fixed);
        model.setHeaderData(html, Qt::Horizontal, QStringLiteral("Текст"), Qt::DisplayRole);

        model.beginResetModel();
        MDAFldAdd(array.array, fieldCount(LogbookTemplatesFields), LogbookTemplatesFields);
        array.KeyAdd("", 0);
        array.RecPost(MDARecNew(array.array));
        model.endResetModel();

        const int column = model.idxField(html);
        QCOMPARE(column, 3);
        QCOMPARE(model.headerData(column, Qt::Horizontal).toString(), QStringLiteral("Текст"));
        QCOMPARE(model.index(0, column).data().toString(), QStringLiteral("x"));
        QCOMPARE(model.headerData(0, Qt::Horizontal).toString(), QStringLiteral("KeyLink"));
    }

    void headerDataGoesByFieldAndRole()
    {
        Setup s;
        qRegisterMetaType<Qt::Orientation>();
        QSignalSpy changed(&s.model, &QAbstractItemModel::headerDataChanged);
        QVERIFY(s.model.setHeaderData(html, Qt::Horizontal, QStringLiteral("Текст"), Qt::DisplayRole));
        QVERIFY(s.model.setHeaderData(html, Qt::Horizontal, 5, Qt::DecorationRole));
        QCOMPARE(changed.count(), 2);
        const int column = s.model.idxField(html);
        QCOMPARE(s.model.headerData(column, Qt::Horizontal, Qt::DecorationRole), QVariant(5));
        QVERIFY(!s.model.setHeaderData(html, Qt::Vertical, QStringLiteral("x"), Qt::DisplayRole));
        QVERIFY(!s.model.headerData(99, Qt::Horizontal).isValid());
    }

    void timesHaveTheFullDateAsTooltip()
    {
        Setup s;
        s.table.set(s.table.row(0), "recordTime",
                    MDRValue::real(RecordTable::at(QStringLiteral("20.11.2026 00:06"))));
        s.table.set(s.table.row(1), "recordTime", MDRValue::real(0));
        TimeCell time;
        s.model.setCellConversion(QStringLiteral("recordTime"), &time);
        QCOMPARE(s.text(0, "recordTime"), QStringLiteral("00:06"));
        QCOMPARE(s.text(0, "recordTime", Qt::ToolTipRole), QStringLiteral("20.11.2026 00:06"));
        QCOMPARE(s.text(1, "recordTime", Qt::ToolTipRole), QString());
        QCOMPARE(s.text(0, "eventTime", Qt::ToolTipRole), QString());
        QCOMPARE(s.text(0, "html", Qt::ToolTipRole), QString());

        FixedCell own(Qt::ToolTipRole, QStringLiteral("иначе"));
        s.model.setCellConversion(QStringLiteral("recordTime"), &own);
        QCOMPARE(s.text(0, "recordTime", Qt::ToolTipRole), QStringLiteral("иначе"));
    }

    void appendedRowsAreAnnounced()
    {
        Setup s;
        QSignalSpy inserted(&s.model, &QAbstractItemModel::rowsInserted);
        QSignalSpy resets(&s.model, &QAbstractItemModel::modelReset);
        s.model.beginAppendRows(2);
        s.table.add("D", 40, QStringLiteral("четвёртая"));
        s.table.add("E", 50, QStringLiteral("пятая"));
        QCOMPARE(s.model.rowCount(), 3); // until they are announced
        s.model.endAppendRows();
        QCOMPARE(inserted.count(), 1);
        QCOMPARE(inserted[0][1].toInt(), 3);
        QCOMPARE(inserted[0][2].toInt(), 4);
        QCOMPARE(s.model.rowCount(), 5);
        QCOMPARE(s.text(4), QStringLiteral("пятая"));
        QCOMPARE(resets.count(), 0);
    }

    void anUnexpectedNumberOfRowsResets()
    {
        Setup s;
        QSignalSpy resets(&s.model, &QAbstractItemModel::modelReset);
        s.model.beginAppendRows(1);
        s.model.endAppendRows(); // nothing came
        QCOMPARE(resets.count(), 1);
        QCOMPARE(s.model.rowCount(), 3);
        s.model.beginAppendRows(0);
        s.model.endAppendRows();
        QCOMPARE(resets.count(), 1);
    }

    void aRowThatDoesNotComeLastResets()
    {
        // Callers must not do this, so the model tester would report the announcement itself.
        RecordTable table;
        table.add("A", 10, QString());
        table.add("C", 30, QString());
        MDAKeyDel(table.array, 0);
        table.KeyAdd("KeyLink", 0);
        VrkTableModel model;
        model.setCMDArray(&table);
        QSignalSpy resets(&model, &QAbstractItemModel::modelReset);
        model.beginAppendRows(1);
        table.add("B", 40, QString());
        model.endAppendRows();
        QCOMPARE(resets.count(), 1);
        QCOMPARE(model.index(1, 0).data().toString(), QStringLiteral("B"));
    }

    void theFirstRowOfAnEmptyTableIsAppended()
    {
        RecordTable table;
        VrkTableModel model;
        QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        model.setCMDArray(&table);
        QSignalSpy resets(&model, &QAbstractItemModel::modelReset);
        model.beginAppendRows(1);
        table.add("A", 1, QStringLiteral("первая"));
        model.endAppendRows();
        QCOMPARE(model.rowCount(), 1);
        QCOMPARE(resets.count(), 0);
    }

    void aRemovedRecordTakesItsRowAway()
    {
        Setup s;
        QSignalSpy removed(&s.model, &QAbstractItemModel::rowsRemoved);
        MDRData* record = s.table.row(1);
        s.model.beginRemoveRecord(record);
        MDARecDel(record);
        s.model.endRemoveRecord();
        QCOMPARE(removed.count(), 1);
        QCOMPARE(removed[0][1].toInt(), 1);
        QCOMPARE(s.model.rowCount(), 2);
        QCOMPARE(s.text(1), QStringLiteral("третья"));
    }

    void removingForeignRecordsAnnouncesNothing()
    {
        Setup s;
        RecordTable other;
        QSignalSpy removed(&s.model, &QAbstractItemModel::rowsRemoved);
        s.model.beginRemoveRecord(other.add("X", 1, QString()));
        s.model.endRemoveRecord();
        s.model.beginRemoveRecord(nullptr);
        s.model.endRemoveRecord();
        QCOMPARE(removed.count(), 0);
        QCOMPARE(s.model.rowCount(), 3);
    }

    void onlyTheOutermostResetCounts()
    {
        Setup s;
        QSignalSpy begun(&s.model, &QAbstractItemModel::modelAboutToBeReset);
        QSignalSpy resets(&s.model, &QAbstractItemModel::modelReset);
        s.model.beginResetModel();
        MDAClearRec(s.table.array);
        s.model.beginResetModel();
        s.table.add("N", 1, QStringLiteral("новая"));
        s.model.endResetModel();
        QCOMPARE(resets.count(), 0);
        QVERIFY(s.model.isResetting());
        s.model.endResetModel();
        s.model.endResetModel(); // an extra call does nothing
        QCOMPARE(begun.count(), 1);
        QCOMPARE(resets.count(), 1);
        QCOMPARE(s.model.rowCount(), 1);
        QCOMPARE(s.text(0), QStringLiteral("новая"));
    }

    void rowsWithinAResetAreNotAnnounced()
    {
        Setup s;
        QSignalSpy inserted(&s.model, &QAbstractItemModel::rowsInserted);
        s.model.beginResetModel();
        s.model.beginAppendRows(1);
        s.table.add("D", 40, QString());
        s.model.endAppendRows();
        s.model.beginRemoveRecord(s.table.row(0));
        MDARecDel(s.table.row(0));
        s.model.endRemoveRecord();
        s.model.updateRecord(s.table.row(0));
        s.model.endResetModel();
        QCOMPARE(inserted.count(), 0);
        QCOMPARE(s.model.rowCount(), 3);
    }

    void aChangedRecordIsReadAgain()
    {
        Setup s;
        QCOMPARE(s.text(0), QStringLiteral("первая"));
        MDRData* edited = MDARecEdit(s.table.row(0));
        s.table.setText(edited, "html", QStringLiteral("иная"));
        s.table.RecPost(edited);
        QSignalSpy changed(&s.model, &QAbstractItemModel::dataChanged);
        s.model.updateRecord(s.table.row(0));
        QCOMPARE(s.text(0), QStringLiteral("иная"));
        QCOMPARE(changed.count(), 1);
        QCOMPARE(changed[0][0].toModelIndex(), s.model.index(0, 0));
        QCOMPARE(changed[0][1].toModelIndex(), s.model.index(0, 17));
        s.model.updateRecord(s.table.row(1), {4, 2});
        QCOMPARE(changed[1][0].toModelIndex(), s.model.index(1, 2));
        QCOMPARE(changed[1][1].toModelIndex(), s.model.index(1, 4));
        s.model.updateRecord(nullptr);
        s.model.updateRecord(s.table.row(1), {99});
        QCOMPARE(changed.count(), 2);
    }
};

QTEST_GUILESS_MAIN(VrkTableModel_test)
#include "VrkTableModel_test.moc"
