#include "EarlierTables.h"

#include <QTest>

/// Keys, the guard against a second run, and the rows sent to the server.
class ConverterTables_test : public QObject
{
    Q_OBJECT

private slots:
    void everyTableIsFoundByItsKeys()
    {
        EarlierTables tables;
        for (const CModelTable* table :
             {&tables.oldCategories, &tables.oldTemplates, &tables.paramCategories, &tables.params})
            QCOMPARE(MDAKeyCount(table->data.array), 1);
        for (const CModelTable* table : {&tables.categories, &tables.templates, &tables.oldParams})
            QCOMPARE(MDAKeyCount(table->data.array), 2);
        MDRData* category = tables.add(tables.categories, "C", {{"nameLoc", "Смены"}});
        MDRData* old = tables.add(tables.oldParams, "P", {{"nameLat", "prim"}, {"nameLoc", "Примечание"}});
        QCOMPARE(tables.seek(tables.categories, 0, QStringLiteral("C")), category);
        QCOMPARE(tables.seek(tables.categories, 1, QStringLiteral("Смены")), category);
        QCOMPARE(tables.seek(tables.oldParams, 1, QStringLiteral("prim")), old);
        QCOMPARE(tables.seek(tables.oldParams, 1, QStringLiteral("Prim")), nullptr);
        QCOMPARE(tables.text(old, "nameLoc"), QStringLiteral("Примечание"));
        QCOMPARE(tables.text(old, "param"), QString());
        QCOMPARE(tables.text(old, "no such field"), QString());
    }

    void refusesASecondRun_data()
    {
        QTest::addColumn<int>("rows");
        QTest::addColumn<int>("categories");
        QTest::addColumn<int>("templates");
        QTest::addColumn<bool>("converted");
        QTest::newRow("nothing is there") << 100 << 0 << 0 << false;
        QTest::newRow("all is there") << 100 << 100 << 100 << true;
        QTest::newRow("ninety of both") << 100 << 90 << 90 << true;
        QTest::newRow("one category too few") << 100 << 89 << 100 << false;
        QTest::newRow("one template too few") << 100 << 100 << 89 << false;
        QTest::newRow("whole percents count") << 1000 << 899 << 1000 << false;
        QTest::newRow("nine of ten") << 10 << 9 << 9 << true;
        QTest::newRow("eight of nine are 88") << 9 << 8 << 9 << false;
    }
    void refusesASecondRun()
    {
        QFETCH(int, rows);
        QFETCH(int, categories);
        QFETCH(int, templates);
        QFETCH(bool, converted);
        EarlierTables tables;
        for (int i = 0; i < rows; ++i) {
            const QByteArray name = "n" + QByteArray::number(i);
            tables.add(tables.oldCategories, name.constData(), {{"name_", name}});
            tables.add(tables.oldTemplates, name.constData(), {{"name_", name}});
            if (i < categories)
                tables.add(tables.categories, name.constData(), {{"nameLoc", name}});
            if (i < templates)
                tables.add(tables.templates, name.constData(), {{"nameLoc", name}});
        }
        QVERIFY(!hasNothingToConvert(tables));
        QCOMPARE(isAlreadyConverted(tables), converted);
    }

    void rowsWithoutANameCountAsFound()
    {
        EarlierTables tables;
        tables.add(tables.oldCategories, "C1", {});
        tables.add(tables.oldCategories, "C2", {{"name_", ""}});
        tables.add(tables.oldTemplates, "T1", {});
        QVERIFY(isAlreadyConverted(tables));
    }

    void emptyTablesAreNothingToConvert()
    {
        EarlierTables tables;
        QVERIFY(hasNothingToConvert(tables));
        QVERIFY(!isAlreadyConverted(tables));
        tables.add(tables.oldCategories, "C", {{"name_", "Смены"}});
        QVERIFY(hasNothingToConvert(tables));
        QVERIFY(!isAlreadyConverted(tables));
        tables.add(tables.oldTemplates, "T", {{"name_", "Принята"}});
        QVERIFY(!hasNothingToConvert(tables));
    }

    void sendsCreatedAndChangedRows()
    {
        EarlierTables tables;
        tables.add(tables.params, "loaded", {{"nameLoc", "a"}});
        MDRSetFlags(tables.add(tables.params, "made", {{"nameLoc", "b"}}), ROW_INSERT);
        MDRSetFlags(tables.add(tables.params, "changed", {{"nameLoc", "c"}}), ROW_UPDATE);
        MDRSetFlags(tables.add(tables.params, "gone", {{"nameLoc", "d"}}), ROW_DELETE);
        CModelTable sent("sent");
        copyEdited(&tables.params, &sent.data);
        QCOMPARE(sent.data.RecCount(), 2);
        const MDRVar made = MDRValue::text("made");
        const MDRVar changed = MDRValue::text("changed");
        MDRData* first = MDARecSeekV(sent.data.array, 0, &made, 0);
        MDRData* second = MDARecSeekV(sent.data.array, 0, &changed, 0);
        QVERIFY(first && second);
        QCOMPARE(int(first->flags), int(ROW_INSERT));
        QCOMPARE(int(second->flags), int(ROW_UPDATE));
        QCOMPARE(tables.text(second, "nameLoc"), QStringLiteral("c"));
        for (int f = 0; f < MDAFldCount(sent.data.array); ++f) {
            bool marked = false;
            MDRIsUser(MDRFldByNum(sent.data.array, f), second, &marked);
            QVERIFY(marked);
        }
        QVERIFY(Row(second).value("html").isNull);
    }
};

QTEST_MAIN(ConverterTables_test)
#include "ConverterTables_test.moc"
