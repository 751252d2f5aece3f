#include "CVar.h"

#include <QTest>

class CVarTest : public QObject
{
    Q_OBJECT

private slots:
    void aFreshValueHasNoType();
    void aNewArrayHasEmptyElements();
    void aTextIsCopied();
    void clearingResetsAllElements();
    void nullPointersAreHarmless();
};

void CVarTest::aFreshValueHasNoType()
{
    CVar var;
    CVarInit(&var, 1);
    QCOMPARE(var.type, 0);
    QCOMPARE(int(CVar::Double), 2); // the numbers are those of the script language
    QCOMPARE(int(CVar::Array), 4);
}

void CVarTest::aNewArrayHasEmptyElements()
{
    CVar var;
    CVarSetArr(&var, 2);
    QCOMPARE(var.type, 4);
    QCOMPARE(var.elements.size(), std::size_t(2));
    QCOMPARE(var.elements[1].type, 0);
    CVarSetArr(&var, 0);
    QCOMPARE(var.type, 4);
    QVERIFY(var.elements.empty());
}

void CVarTest::aTextIsCopied()
{
    char bytes[] = "DEP_CDS and more";
    CVar var;
    CVarSetStr(&var, bytes, 7);
    bytes[0] = 'X';
    QCOMPARE(var.type, int(CVar::String));
    QCOMPARE(var.text, QByteArray("DEP_CDS"));
    CVarSetStr(&var, nullptr, 0);
    QCOMPARE(var.type, int(CVar::String));
    QCOMPARE(var.text, QByteArray());
}

void CVarTest::clearingResetsAllElements()
{
    CVar vars[2];
    CVarSetArr(&vars[0], 3);
    CVarSetStr(&vars[1], "x", 1);
    CVarClear(vars, 2);
    QCOMPARE(vars[0].type, 0);
    QVERIFY(vars[0].elements.empty());
    QCOMPARE(vars[1].type, 0);
    QVERIFY(vars[1].text.isEmpty());
}

void CVarTest::nullPointersAreHarmless()
{
    CVarInit(nullptr, 1);
    CVarClear(nullptr, 1);
    CVarSetArr(nullptr, 1);
    CVarSetStr(nullptr, "x", 1);
    CVar var;
    CVarSetArr(&var, -1);
    QVERIFY(var.elements.empty());
}

QTEST_APPLESS_MAIN(CVarTest)
#include "CVar_test.moc"
