#include "ExpectedWarning.h"
#include "ScreenScale.h"

#include <QGuiApplication>
#include <QProcessEnvironment>
#include <QTest>

namespace
{
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
void enlarge()
{
    // The test's program has an application already.
    expectWarning(QStringLiteral("HighDpiScaling must be set before"), 3);
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
}
bool isEnlarged()
{
    return QCoreApplication::testAttribute(Qt::AA_EnableHighDpiScaling) ||
           !QCoreApplication::testAttribute(Qt::AA_DisableHighDpiScaling);
}
#else
using Rounding = Qt::HighDpiScaleFactorRoundingPolicy;

void enlarge()
{
    QGuiApplication::setHighDpiScaleFactorRoundingPolicy(Rounding::PassThrough);
}
bool isEnlarged()
{
    return QGuiApplication::highDpiScaleFactorRoundingPolicy() != Rounding::Floor;
}
#endif
} // namespace

class ScreenScale_test : public QObject
{
    Q_OBJECT

private slots:
    void factorsAreQuarters_data()
    {
        QTest::addColumn<double>("dots");
        QTest::addColumn<double>("factor");
        QTest::newRow("smaller than usual") << 72.0 << 1.0;
        QTest::newRow("usual") << 96.0 << 1.0;
        QTest::newRow("100 dots an inch") << 100.0 << 1.0;
        QTest::newRow("just below") << 107.9 << 1.0;
        QTest::newRow("112 %") << 108.0 << 1.25;
        QTest::newRow("125 %") << 120.0 << 1.25;
        QTest::newRow("130 dots an inch") << 130.0 << 1.25;
        QTest::newRow("150 %") << 144.0 << 1.5;
        QTest::newRow("175 %") << 168.0 << 1.75;
        QTest::newRow("200 %") << 192.0 << 2.0;
    }
    void factorsAreQuarters()
    {
        QFETCH(double, dots);
        QFETCH(double, factor);
        QCOMPARE(ScreenScale::rounded(dots / 96), factor);
    }

    void eachScreenHasItsOwnFactor()
    {
        QCOMPARE(ScreenScale::setting({{"eDP-1", 1.04}, {"DP=2", 1.56}}), QByteArray("eDP-1=1;DP=2=1.5"));
        QCOMPARE(ScreenScale::setting({{"eDP-1", 1.04}, {"DP-2", 1}}), QByteArray()); // nothing is scaled
        QCOMPARE(ScreenScale::setting({}), QByteArray());
    }

    void theScreensOfTheProgramAreAsked()
    {
        QByteArray name = "test";
        char* arguments[] = {name.data(), nullptr};
        qunsetenv("QT_SCREEN_SCALE_FACTORS");
        enlarge();
        ScreenScale::roundToQuarters(1, arguments); // the screen of the offscreen platform has 96
        QVERIFY(!qEnvironmentVariableIsSet("QT_SCREEN_SCALE_FACTORS"));
        QVERIFY(!isEnlarged());

        qputenv("QT_SCREEN_SCALE_FACTORS", "1.3");
        ScreenScale::roundToQuarters(1, arguments);
        ScreenScale::forget();
        QCOMPARE(qgetenv("QT_SCREEN_SCALE_FACTORS"), QByteArray("1.3")); // the user's own setting is kept
    }
};

QTEST_GUILESS_MAIN(ScreenScale_test)
#include "ScreenScale_test.moc"
