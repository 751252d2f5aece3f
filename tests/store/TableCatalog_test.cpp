#include "LogbookFields.h"
#include "TableCatalog.h"
#include "TestStore.h"

#include <QTest>

class TableCatalog_test : public QObject
{
    Q_OBJECT

    /// The columns of the table %1: name and type.
    static QString columnsSql()
    {
        return TestStore::isSqlite()
                   ? QStringLiteral("SELECT name, type FROM pragma_table_info('%1')")
                   : QStringLiteral("SELECT attname::text, concat_ws(' ', format_type(atttypid, atttypmod), "
                                    "nullif(attcollation, 0)::regcollation) FROM pg_attribute "
                                    "WHERE attrelid = '%1'::regclass AND attnum > 0 AND NOT attisdropped "
                                    "ORDER BY attnum");
    }
    static QByteArray columnType(MDRType type)
    {
        switch (type) {
        case mdr_TChar:
        case mdr_TMemo:
            return TestStore::isSqlite() ? "TEXT" : "text \"C\"";
        case mdr_TDouble:
            return TestStore::isSqlite() ? "REAL" : "double precision";
        case mdr_TBlob:
            return TestStore::isSqlite() ? "BLOB" : "bytea";
        case mdr_TInt32:
            return TestStore::isSqlite() ? "INTEGER" : "integer";
        default:
            return TestStore::isSqlite() ? "INTEGER" : "smallint";
        }
    }

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

    void newStoreHasTheFieldsOfTheCatalogInOrder()
    {
        const TestStore store(TestStore::Empty);
        for (const CatalogTable& table : TableCatalog::loggedTables()) {
            QStringList declared;
            for (const CatalogField& field : table.fields)
                declared += QString::fromLatin1(field.name + ' ' + columnType(field.type));
            QStringList present;
            for (const QVariantList& column : store.rows(columnsSql().arg(QString::fromLatin1(table.name))))
                present += column.value(0).toString() + QLatin1Char(' ') + column.value(1).toString();
            if (!TestStore::isSqlite()) // the server keeps names in lower case
                for (QString& column : declared)
                    column.replace(0, column.indexOf(QLatin1Char(' ')),
                                   column.section(QLatin1Char(' '), 0, 0).toLower());
            QCOMPARE(present, declared);
        }
    }
};

QTEST_GUILESS_MAIN(TableCatalog_test)
#include "TableCatalog_test.moc"
