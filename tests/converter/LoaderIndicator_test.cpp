#include "LoaderIndicator.h"

#include <QLabel>
#include <QMainWindow>
#include <QMovie>
#include <QTest>

class LoaderIndicator_test : public QObject
{
    Q_OBJECT

private slots:
    void staysHiddenWhenItsWindowIsShown()
    {
        QMainWindow window;
        const LoaderIndicator indicator(&window);
        window.show();
        QVERIFY(!indicator.isVisible());
        QVERIFY(window.isEnabled());
    }

    void coversAndDisablesItsWindowUntilItCloses()
    {
        QMainWindow window;
        window.resize(700, 300);
        LoaderIndicator indicator(&window);
        window.show();
        indicator.show(QStringLiteral("Конвертация"));
        QVERIFY(!window.isEnabled());
        QVERIFY(indicator.isEnabled());
        QCOMPARE(indicator.geometry(), QRect(0, 0, 700, 300));
        QCOMPARE(text(indicator)->text(), QStringLiteral("Конвертация"));
        QCOMPARE(text(indicator)->font().pointSize(), 16);
        QVERIFY(movie(indicator)->isValid());
        QCOMPARE(movie(indicator)->state(), QMovie::Running);

        indicator.setText(QStringLiteral("50%"));
        QCOMPARE(text(indicator)->text(), QStringLiteral("50%"));

        indicator.close();
        QVERIFY(window.isEnabled());
        QVERIFY(!indicator.isVisible());
        QVERIFY(text(indicator)->text().isEmpty());
        QCOMPARE(movie(indicator)->state(), QMovie::NotRunning);
    }

    void ignoresOtherParentsAndKeepsItsGeometry()
    {
        QWidget parent;
        parent.resize(700, 300);
        LoaderIndicator indicator(&parent);
        indicator.setGeometry(10, 20, 200, 150);
        parent.show();
        indicator.show(QString());
        QVERIFY(parent.isEnabled());
        QCOMPARE(indicator.geometry(), QRect(10, 20, 200, 150));
        indicator.close();
        QVERIFY(parent.isEnabled());
    }

    void thePictureGrowsWithTheLongerSide_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::addColumn<int>("side");
        QTest::newRow("raised to the least side") << QSize(1000, 400) << 50;
        QTest::newRow("three hundredths") << QSize(3000, 1000) << 90;
        QTest::newRow("of the height when that is longer") << QSize(500, 2500) << 75;
        QTest::newRow("whole hundreds count") << QSize(2099, 100) << 60;
    }
    void thePictureGrowsWithTheLongerSide()
    {
        QFETCH(QSize, size);
        QFETCH(int, side);
        QMainWindow window;
        window.resize(size);
        LoaderIndicator indicator(&window);
        window.show();
        indicator.show(QString());
        QCOMPARE(movie(indicator)->scaledSize(), QSize(side, side));
        indicator.resize(4000, 100);
        QCOMPARE(movie(indicator)->scaledSize(), QSize(120, 120));
    }

    void aClickDismissesIt()
    {
        QMainWindow window;
        window.resize(400, 300);
        LoaderIndicator indicator(&window);
        window.show();
        indicator.show(QStringLiteral("Долгая работа"));
        QTest::mouseClick(window.windowHandle(), Qt::LeftButton, Qt::NoModifier, QPoint(20, 20));
        QVERIFY(!indicator.isVisible());
        QVERIFY(window.isEnabled());
    }

    void aClickOnTheTextDismissesIt()
    {
        QMainWindow window;
        window.resize(400, 300);
        LoaderIndicator indicator(&window);
        window.show();
        indicator.show(QStringLiteral("Долгая работа"));
        QCoreApplication::sendPostedEvents();
        const QPoint middle = text(indicator)->mapTo(&window, text(indicator)->rect().center());
        QTest::mouseClick(window.windowHandle(), Qt::LeftButton, Qt::NoModifier, middle);
        QVERIFY(!indicator.isVisible());
    }

private:
    static QLabel* text(const LoaderIndicator& indicator)
    {
        return indicator.findChild<QLabel*>(QStringLiteral("loaderText"));
    }
    static QMovie* movie(const LoaderIndicator& indicator) { return indicator.findChild<QMovie*>(); }
};

QTEST_MAIN(LoaderIndicator_test)
#include "LoaderIndicator_test.moc"
