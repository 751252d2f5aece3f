#include "Theme.h"

#include "../support/TestFolder.h"

#include <QApplication>
#include <QHeaderView>
#include <QImage>
#include <QLabel>
#include <QPainter>
#include <QPalette>
#include <QSettings>
#include <QStyle>
#include <QStyleOption>
#include <QTableWidget>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>

class Theme_test : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init() { QSettings().clear(); }

    void anUnknownThemeChangesNothing();
    void lightAndDarkColourTheWholeApplication();
    void aSwitchReachesWidgetsWithStyleSheets();
    void systemLeavesTheColours();
    void dimTextsAreLegible_data();
    void dimTextsAreLegible();
    void tabsCanBeSeenToClose_data();
    void tabsCanBeSeenToClose();
    void theToggleRemembersTheChoice();
    void nothingIsRememberedAtFirst();

private:
    static int lightness(QPalette::ColorRole role, QPalette::ColorGroup group = QPalette::Active)
    {
        return QApplication::palette().color(group, role).lightness();
    }

    QTemporaryDir m_folder{testFolderTemplate()};
};

void Theme_test::initTestCase()
{
    QCoreApplication::setOrganizationName(QStringLiteral("vrk-test"));
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_folder.path());
}

void Theme_test::anUnknownThemeChangesNothing()
{
    QVERIFY(Theme::apply(QStringLiteral("light")));
    const QPalette before = QApplication::palette();
    QVERIFY(!Theme::apply(QStringLiteral("pink")));
    QCOMPARE(Theme::current(), QStringLiteral("light"));
    QCOMPARE(QApplication::palette(), before);
}

void Theme_test::lightAndDarkColourTheWholeApplication()
{
    QVERIFY(Theme::apply(QStringLiteral("dark")));
    QCOMPARE(Theme::current(), QStringLiteral("dark"));
    QVERIFY(lightness(QPalette::Base) < 64 && lightness(QPalette::Text) > 192);
    QVERIFY(Theme::apply(QStringLiteral("light")));
    QVERIFY(lightness(QPalette::Base) > 192 && lightness(QPalette::Text) < 64);
    QCOMPARE(QApplication::style()->objectName(), QStringLiteral("fusion"));
}

void Theme_test::aSwitchReachesWidgetsWithStyleSheets()
{
    QVERIFY(Theme::apply(QStringLiteral("light")));
    QTabWidget tabs;
    tabs.setStyleSheet(QStringLiteral("QTabBar::close-button { width: 9px; }"));
    auto* page = new QTableWidget(2, 2);
    tabs.addTab(page, QStringLiteral("ЦДС"));
    QLabel label(QStringLiteral("Смена открыта"));
    label.setStyleSheet(QStringLiteral("border: 2px solid green;"));
    tabs.show();
    label.show();
    for (const bool isDark : {true, false, true}) {
        QVERIFY(Theme::apply(isDark ? QStringLiteral("dark") : QStringLiteral("light")));
        QCOMPARE(page->palette().color(QPalette::Base).lightness() < 128, isDark);
        QCOMPARE(page->horizontalHeader()->palette().color(QPalette::Button).lightness() < 128, isDark);
        QCOMPARE(label.palette().color(QPalette::WindowText).lightness() > 128, isDark);
    }
}

void Theme_test::systemLeavesTheColours()
{
    QVERIFY(Theme::apply(QStringLiteral("light")));
    const QPalette before = QApplication::palette();
    QVERIFY(Theme::apply(QStringLiteral("system")));
    QCOMPARE(QApplication::palette(), before);
    QCOMPARE(Theme::current(), QStringLiteral("system"));
}

void Theme_test::dimTextsAreLegible_data()
{
    QTest::addColumn<QString>("theme");
    QTest::newRow("light") << QStringLiteral("light");
    QTest::newRow("dark") << QStringLiteral("dark");
}

void Theme_test::dimTextsAreLegible()
{
    QFETCH(QString, theme);
    QVERIFY(Theme::apply(theme));
    const int contrast = qAbs(lightness(QPalette::Text, QPalette::Disabled) - lightness(QPalette::Base));
    QVERIFY2(contrast > 50, qPrintable(QString::number(contrast)));
    QVERIFY(lightness(QPalette::Text, QPalette::Disabled) != lightness(QPalette::Text));
    QVERIFY(qAbs(lightness(QPalette::HighlightedText) - lightness(QPalette::Highlight)) > 80);
}

void Theme_test::tabsCanBeSeenToClose_data()
{
    QTest::addColumn<QString>("theme");
    QTest::newRow("light") << QStringLiteral("light");
    QTest::newRow("dark") << QStringLiteral("dark");
}

void Theme_test::tabsCanBeSeenToClose()
{
    QFETCH(QString, theme);
    QVERIFY(Theme::apply(theme));
    const QColor ground = QApplication::palette().color(QPalette::Window);
    QImage image(16, 16, QImage::Format_RGB32);
    image.fill(ground);
    QPainter painter(&image);
    QStyleOption option;
    option.rect = image.rect();
    option.palette = QApplication::palette();
    QApplication::style()->drawPrimitive(QStyle::PE_IndicatorTabClose, &option, &painter);
    painter.end();
    int contrast = 0;
    for (int x = 0; x < 16; ++x)
        contrast = qMax(contrast, qAbs(qGray(image.pixel(x, x)) - qGray(ground.rgb())));
    QVERIFY2(contrast > 100, qPrintable(QString::number(contrast)));
}

void Theme_test::theToggleRemembersTheChoice()
{
    QVERIFY(Theme::apply(QStringLiteral("light")));
    Theme::toggle();
    QCOMPARE(Theme::current(), QStringLiteral("dark"));
    QCOMPARE(Theme::remembered(), QStringLiteral("dark"));
    Theme::toggle();
    QCOMPARE(Theme::remembered(), QStringLiteral("light"));
}

void Theme_test::nothingIsRememberedAtFirst()
{
    QCOMPARE(Theme::remembered(), QStringLiteral("system"));
}

QTEST_MAIN(Theme_test)
#include "Theme_test.moc"
