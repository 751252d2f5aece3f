#include "FileNames.h"

#include <QTest>
#include <QTextCodec>

class FileNames_test : public QObject
{
    Q_OBJECT

private slots:
    void fitsNamesIntoTheCodePage_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("fitted");
        QTest::newRow("carried") << QStringLiteral("Схема № 5.pdf") << QStringLiteral("Схема № 5.pdf");
        QTest::newRow("another script") << QStringLiteral("図面.txt") << QStringLiteral("__.txt");
        QTest::newRow("beyond 16 bits") << QStringLiteral("a\U0001F600b.txt") << QStringLiteral("a_b.txt");
        QTest::newRow("half a pair") << QString(QChar(0xD83D)) << QStringLiteral("_");
        QTest::newRow("composed of two") << QStringLiteral("и\u0306.txt") << QStringLiteral("й.txt");
        QTest::newRow("question mark") << QStringLiteral("a?.txt") << QStringLiteral("a?.txt");
        QTest::newRow("empty") << QString() << QString();
    }
    void fitsNamesIntoTheCodePage()
    {
        QFETCH(QString, name);
        QFETCH(QString, fitted);
        QCOMPARE(FileNames::fitted(name, QTextCodec::codecForName("Windows-1251")), fitted);
    }

    void keepsAllCharactersWhereTheCodePageIsUnicode()
    {
        const QString name = QStringLiteral("図面\U0001F600.txt");
        QCOMPARE(FileNames::fitted(name, QTextCodec::codecForName("UTF-8")), name);
    }

    void neverLeavesItsFolder_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("local");
        QTest::newRow("plain") << QStringLiteral("схема.pdf") << QStringLiteral("схема.pdf");
        QTest::newRow("upwards") << QStringLiteral("../../x") << QStringLiteral("x");
        QTest::newRow("absolute") << QStringLiteral("/etc/passwd") << QStringLiteral("passwd");
        QTest::newRow("backslashes") << QStringLiteral("C:\\dir\\x.txt") << QStringLiteral("x.txt");
        QTest::newRow("the parent") << QStringLiteral("..") << QStringLiteral("file");
        QTest::newRow("the parent of a folder") << QStringLiteral("a/..") << QStringLiteral("file");
        QTest::newRow("itself") << QStringLiteral(".") << QStringLiteral("file");
        QTest::newRow("a folder") << QStringLiteral("dir/") << QStringLiteral("file");
        QTest::newRow("empty") << QString() << QStringLiteral("file");
        QTest::newRow("hidden") << QStringLiteral(".profile") << QStringLiteral(".profile");
        QTest::newRow("zero") << QStringLiteral("a") + QChar(QChar::Null) + QStringLiteral("b")
                              << QStringLiteral("ab");
    }
    void neverLeavesItsFolder()
    {
        QFETCH(QString, name);
        QFETCH(QString, local);
        QCOMPARE(FileNames::local(name), local);
    }

    void cutsWhatAFileSystemDoesNotTake()
    {
        const QString cut = FileNames::local(QStringLiteral("ж").repeated(300) + QStringLiteral(".pdf"));
        QVERIFY(cut.toUtf8().size() <= 255);
        QVERIFY(cut.toUtf8().size() > 250);
        QVERIFY(cut.endsWith(QStringLiteral("ж.pdf")));
        QCOMPARE(FileNames::local(QStringLiteral("a.") + QStringLiteral("b").repeated(400)).size(), 255);
        const QString pairs = FileNames::local(QStringLiteral("\U0001F600").repeated(100));
        QVERIFY(pairs.toUtf8().size() <= 255);
        QVERIFY(pairs.at(pairs.size() - 1).isLowSurrogate());
    }

    void signsWithoutAWidthAreNotShown()
    {
        QCOMPARE(FileNames::shown(QStringLiteral("отчёт\u202Etxt.\u200Bsh\n")),
                 QStringLiteral("отчётtxt.sh"));
    }
};

QTEST_MAIN(FileNames_test)
#include "FileNames_test.moc"
