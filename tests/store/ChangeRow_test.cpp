#include "ChangePacker.h"
#include "ChangeRow.h"
#include "CodePage.h"
#include "MDRValues.h"

#include <cmath>
#include <limits>
#include <QRandomGenerator>
#include <QTest>
#include <sqlite3.h>

class ChangeRow_test : public QObject
{
    Q_OBJECT

    sqlite3* m_db = nullptr;

    /// The result of vrk_row for SQL expressions, or for bound values.
    QByteArray rowOf(const QByteArray& expressions, double bound = 0)
    {
        sqlite3_stmt* statement = nullptr;
        sqlite3_prepare_v2(m_db, "SELECT vrk_row(" + expressions + ")", -1, &statement, nullptr);
        sqlite3_bind_double(statement, 1, bound);
        sqlite3_step(statement);
        const QByteArray row(reinterpret_cast<const char*>(sqlite3_column_text(statement, 0)),
                             sqlite3_column_bytes(statement, 0));
        sqlite3_finalize(statement);
        return row;
    }

private slots:
    void initTestCase()
    {
        sqlite3_open(":memory:", &m_db);
        ChangeRow::installFunction(m_db);
    }
    void cleanupTestCase() { sqlite3_close(m_db); }

    void valuesSurvive()
    {
        const QByteArray json = rowOf("'a\"b\\c' || char(10) || 'Ж]', NULL, -7, 1.5, '', ',{['");
        const ChangeRow row(json);
        QCOMPARE(row.count(), 6);
        QCOMPARE(row.text(0), QByteArray("a\"b\\c\n\xD0\x96]"));
        QVERIFY(row.isNull(1));
        QCOMPARE(row.number(2), -7.0);
        QCOMPARE(row.number(3), 1.5);
        QVERIFY(!row.isNull(4) && row.text(4).isEmpty());
        QCOMPARE(row.text(5), QByteArray(",{["));
    }

    void everyControlCharacterSurvives()
    {
        for (int code = 1; code < 0x20; ++code) {
            const QByteArray json = rowOf("char(" + QByteArray::number(code) + ")");
            QCOMPARE(ChangeRow(json).text(0), QByteArray(1, static_cast<char>(code)));
        }
    }

    void doublesSurviveExactly()
    {
        QRandomGenerator random(7);
        QVector<double> numbers = {0.1,
                                   1.0 / 3,
                                   1763600000,
                                   1763600000.123456,
                                   5e10,
                                   1e300,
                                   5e-324,
                                   -0.5,
                                   0,
                                   std::numeric_limits<double>::max(),
                                   4503599627370497.5};
        for (int i = 0; i < 2000; ++i)
            numbers.append((random.generateDouble() - 0.5) * std::pow(10.0, random.bounded(600) - 300));
        for (const double number : qAsConst(numbers)) {
            const QByteArray json = rowOf("?1", number);
            QCOMPARE(ChangeRow(json).number(0), number);
        }
    }

    void blobsStandByHashAndLength()
    {
        const QByteArray json = rowOf("x'616263', zeroblob(0)");
        const ChangeRow row(json);
        QCOMPARE(row.raw(0),
                 QByteArray("{\"sha256\":\"ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad"
                            "\",\"length\":3}"));
        QVERIFY(row.isBlob(0) && row.isBlob(1) && !row.isNull(1));
        QVERIFY(row.text(0).isNull());
    }

    void damagedTextsGiveNoRow()
    {
        for (const char* text : {"", "[", "]", "null", "[1", "[\"a]", "[\"a\\\"]", "[{]"})
            QCOMPARE(ChangeRow(text).count(), 0);
    }

    void packedRecordHasAllFieldsAndMarksOnTheDifferentOnes()
    {
        const auto page = CodePage::create("Windows-1251");
        ChangePacker packer(page.get());
        const CatalogTable& table = *TableCatalog::table("LogbookComments");
        const QByteArray before = rowOf("'K', 'W', 'R', 10.0, 'Смена', 0.0");
        const QByteArray after = rowOf("'K', 'W', NULL, 10.0, 'Смена', 20.0");
        const QByteArray packed = packer.pack(table, before, after);
        MDRData record;
        MDRRecordType type;
        MDRRecInit(&record);
        MDRTypInit(&type);
        QCOMPARE(MDRRecSet(&record, packed.constData(), packed.size()), int(mdr_Ok));
        QCOMPARE(MDRTypGen(&type, "NCI", &record), int(mdr_Ok));
        QCOMPARE(type.count, 6);
        const QVector<bool> marks = {false, false, true, false, false, true};
        for (int i = 0; i < 6; ++i) {
            bool marked = false;
            MDRIsUser(MDRFldByNum(&type, i), &record, &marked);
            QCOMPARE(marked, marks[i]);
        }
        MDRVar value;
        MDRGetVal(MDRFldByName(&type, "text_"), &record, &value);
        QCOMPARE(MDRValue::copy(value), QByteArray("\xD1\xEC\xE5\xED\xE0"));
        MDRGetVal(MDRFldByName(&type, "RecordKey"), &record, &value);
        QVERIFY(value.isNull);
        MDRGetVal(MDRFldByName(&type, "readedTime"), &record, &value);
        QCOMPARE(value.value.real, 20.0);
        MDRTypFree(&type);
    }

    void insertedRowsAreMarkedWhole()
    {
        const auto page = CodePage::create("Windows-1251");
        ChangePacker packer(page.get());
        const QByteArray packed = packer.pack(*TableCatalog::table("LogbookFiles"), QByteArray(),
                                              rowOf("'K', 'W', 'R', 'x.txt', x'00'"));
        MDRData record;
        MDRRecordType type;
        MDRRecInit(&record);
        MDRTypInit(&type);
        QCOMPARE(MDRRecSet(&record, packed.constData(), packed.size()), int(mdr_Ok));
        MDRTypGen(&type, "NCI", &record);
        for (int i = 0; i < 5; ++i) {
            bool marked = false;
            MDRIsUser(MDRFldByNum(&type, i), &record, &marked);
            QVERIFY(marked);
        }
        bool null = false;
        MDRIsNull(MDRFldByName(&type, "fileData"), &record, &null);
        QVERIFY(null); // bytes are fetched by key
        MDRTypFree(&type);
        QVERIFY(packer.pack(*TableCatalog::table("LogbookFiles"), "[]", QByteArray()).isEmpty());
    }
};

QTEST_GUILESS_MAIN(ChangeRow_test)
#include "ChangeRow_test.moc"
