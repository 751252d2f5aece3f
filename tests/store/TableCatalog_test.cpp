#include "LogbookFields.h"
#include "SqliteSchema.h"
#include "TableCatalog.h"
#include "TestStore.h"

#include <QTest>

class TableCatalog_test : public QObject
{
    Q_OBJECT

private slots:
    void findsTablesInAnyCase()
    {
        QCOMPARE(TableCatalog::table("logbookRECORDS")->name, QByteArray("LogbookRecords"));
        QVERIFY(!TableCatalog::table("ChangeLog"));
        QVERIFY(!TableCatalog::table(""));
        QCOMPARE(TableCatalog::table("Workers")->fieldIndex("keyLink"), 0);
        QCOMPARE(TableCatalog::table("Workers")->fieldIndex("file"), -1);
    }

    void journalTablesAreTheDescriptorTables()
    {
        const QVector<MDRFieldDescr> fields = TableCatalog::table("LogbookRecords")->descriptors();
        QCOMPARE(fields.size(), fieldCount(LogbookRecordFields));
        for (int i = 0; i < fields.size(); ++i) {
            QCOMPARE(QByteArray(fields[i].name), QByteArray(LogbookRecordFields[i].name));
            QCOMPARE(fields[i].width, LogbookRecordFields[i].width);
            QCOMPARE(fields[i].type, LogbookRecordFields[i].type);
        }
    }

    void everyTableHasKeyLinkFirstAndAsKey0()
    {
        QCOMPARE(TableCatalog::tables().size(), 24);
        for (const CatalogTable& table : TableCatalog::tables()) {
            QCOMPARE(table.fields.first().name, QByteArray("KeyLink"));
            QCOMPARE(table.keys.first(), QByteArray("KeyLink"));
        }
        QCOMPARE(TableCatalog::table("LogbookWorkshifts")->keys.value(1),
                 QByteArray("DepartmentKey;startTime:0x4"));
    }

    void storeHasExactlyTheDeclaredColumnsInOrder()
    {
        const TestStore store(TestStore::Empty);
        for (const CatalogTable& table : TableCatalog::tables()) {
            const auto rows = store.rows(QStringLiteral("SELECT name, type FROM pragma_table_info('%1')")
                                             .arg(QString::fromLatin1(table.name)));
            QCOMPARE(rows.size(), table.fields.size());
            for (int i = 0; i < rows.size(); ++i) {
                QCOMPARE(rows[i][0].toByteArray(), table.fields[i].name);
                QString type = QStringLiteral("INTEGER");
                if (table.fields[i].type == mdr_TDouble)
                    type = QStringLiteral("REAL");
                else if (table.fields[i].type == mdr_TBlob)
                    type = QStringLiteral("BLOB");
                else if (table.fields[i].type == mdr_TChar || table.fields[i].type == mdr_TMemo)
                    type = QStringLiteral("TEXT");
                QCOMPARE(rows[i][1].toString(), type);
            }
        }
    }
};

QTEST_GUILESS_MAIN(TableCatalog_test)
#include "TableCatalog_test.moc"
