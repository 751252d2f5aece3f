#include "Csv.h"

#include <QTest>
#include <QTextCodec>

class Csv_test : public QObject
{
    Q_OBJECT

private slots:
    void separatorsAreFoundOut_data();
    void separatorsAreFoundOut();
    void encodingsAreFoundOut_data();
    void encodingsAreFoundOut();
    void quotedCellsHoldAnything();
    void blankRowsAreLeftOutAndLinesCounted();
    void brokenQuotesNameTheirLine_data();
    void brokenQuotesNameTheirLine();
    void aSpreadsheetOpensWhatIsWritten();
    void writtenTablesReadBackUnchanged();
    void commasInTheFirstRowStayInTheirCell();
    void formulasBecomeTexts();

private:
    static QVector<Csv::Row> rows(const QByteArray& bytes)
    {
        QVector<Csv::Row> found;
        QString error;
        return Csv::read(bytes, &found, &error) ? found : QVector<Csv::Row>();
    }
};

void Csv_test::separatorsAreFoundOut_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("semicolon") << QByteArray("a;b,c;d\n1;2;3\n");
    QTest::newRow("comma") << QByteArray("a,\"b,c\",d\r\n1,2,3");
    QTest::newRow("tab") << QByteArray("a\tb,c\td\r1\t2\t3\r");
    QTest::newRow("separators in quotes do not count") << QByteArray("a;\"b,c\";d\n1;2;3");
}

void Csv_test::separatorsAreFoundOut()
{
    QFETCH(QByteArray, bytes);
    const QVector<Csv::Row> found = rows(bytes);
    QCOMPARE(found.size(), 2);
    QCOMPARE(found[0].cells, QStringList({QStringLiteral("a"), QStringLiteral("b,c"), QStringLiteral("d")}));
    QCOMPARE(found[1].cells, QStringList({QStringLiteral("1"), QStringLiteral("2"), QStringLiteral("3")}));
}

void Csv_test::encodingsAreFoundOut_data()
{
    QTest::addColumn<QByteArray>("bytes");
    const QString text = QStringLiteral("Смена;Ёж\n");
    QTest::newRow("utf-8") << text.toUtf8();
    QTest::newRow("utf-8 with a mark") << "\xEF\xBB\xBF" + text.toUtf8();
    QTest::newRow("Windows-1251") << QTextCodec::codecForName("Windows-1251")->fromUnicode(text);
    QTest::newRow("utf-16") << "\xFF\xFE" + QByteArray(reinterpret_cast<const char*>(text.utf16()),
                                                       int(2 * text.size()));
}

void Csv_test::encodingsAreFoundOut()
{
    QFETCH(QByteArray, bytes);
    const QVector<Csv::Row> found = rows(bytes);
    QCOMPARE(found.size(), 1);
    QCOMPARE(found[0].cells, QStringList({QStringLiteral("Смена"), QStringLiteral("Ёж")}));
}

void Csv_test::quotedCellsHoldAnything()
{
    const QVector<Csv::Row> found = rows("\"a;b\";\"c \"\"d\"\"\";\"e\r\nf\"\r\ng\"h;i");
    QCOMPARE(found.size(), 2);
    QCOMPARE(found[0].cells,
             QStringList({QStringLiteral("a;b"), QStringLiteral("c \"d\""), QStringLiteral("e\nf")}));
    QCOMPARE(found[1].cells, QStringList({QStringLiteral("g\"h"), QStringLiteral("i")}));
    QCOMPARE(found[1].line, 3);
}

void Csv_test::blankRowsAreLeftOutAndLinesCounted()
{
    const QVector<Csv::Row> found = rows("a;b\n\n;;\n  \nc;\n");
    QCOMPARE(found.size(), 2);
    QCOMPARE(found[1].line, 5);
    QCOMPARE(found[1].cells, QStringList({QStringLiteral("c"), QString()}));
    QVERIFY(rows(QByteArray()).isEmpty());
}

void Csv_test::brokenQuotesNameTheirLine_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("error");
    QTest::newRow("open") << QByteArray("a\n\"b;\nc") << QStringLiteral("2: кавычка не закрыта");
    QTest::newRow("behind") << QByteArray("a\nb\n\"c\"d")
                            << QStringLiteral("3: текст после закрывающей кавычки");
}

void Csv_test::brokenQuotesNameTheirLine()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, error);
    QVector<Csv::Row> found;
    QString reported;
    QVERIFY(!Csv::read(bytes, &found, &reported));
    QCOMPARE(reported, error);
}

void Csv_test::aSpreadsheetOpensWhatIsWritten()
{
    QCOMPARE(
        Csv::write({{QStringLiteral("Имя"), QStringLiteral("а;б")}, {QStringLiteral("\"в\""), QString()}}),
        QByteArray("\xEF\xBB\xBF") + QStringLiteral("Имя;\"а;б\"\r\n\"\"\"в\"\"\";\r\n").toUtf8());
}

void Csv_test::writtenTablesReadBackUnchanged()
{
    const QVector<QStringList> table{{QStringLiteral("a"), QStringLiteral("b, c")},
                                     {QStringLiteral("строка\nвторая;"), QStringLiteral("\"")},
                                     {QString(), QStringLiteral("=1")}};
    const QVector<Csv::Row> found = rows(Csv::write(table));
    QCOMPARE(found.size(), table.size());
    for (int i = 0; i < table.size(); ++i)
        QCOMPARE(found[i].cells, table[i]);
}

void Csv_test::commasInTheFirstRowStayInTheirCell()
{
    const QStringList row{QStringLiteral("a, b, c"), QStringLiteral("d\te\tf")};
    QCOMPARE(rows(Csv::write({row})).value(0).cells, row);
}

void Csv_test::formulasBecomeTexts()
{
    for (const char* formula : {"=1+1", "+7", "-5", "@SUM(A1)", "\t=1", "\r=1", "\n=1"})
        QCOMPARE(Csv::harmless(QString::fromLatin1(formula)),
                 QLatin1Char('\'') + QString::fromLatin1(formula));
    for (const char* text : {"", "ЦДС", "1-2", "a=b", " =1"})
        QCOMPARE(Csv::harmless(QString::fromUtf8(text)), QString::fromUtf8(text));
}

QTEST_GUILESS_MAIN(Csv_test)
#include "Csv_test.moc"
