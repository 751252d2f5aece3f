#include "Theme.h"

#include "../support/TestFolder.h"
#include "Contrast.h"

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
    void systemGivesTheColoursOfTheDesktopBack();
    void textsOfAllThemesAreLegible_data();
    void textsOfAllThemesAreLegible();
    void dimTextsAreLegible_data();
    void dimTextsAreLegible();
    void tabsCanBeSeenToClose_data();
    void tabsCanBeSeenToClose();
    void theToggleRemembersTheChoice();
    void nothingIsRememberedAtFirst();
    void aDamagedChoiceIsNotTaken();

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

void Theme_test::systemGivesTheColoursOfTheDesktopBack()
{
    QVERIFY(Theme::apply(QStringLiteral("system")));
    const QPalette desktop = QApplication::palette();
    const QString style = QApplication::style()->objectName();
    for (const char* other : {"dark", "contrast"}) {
        QVERIFY(Theme::apply(QLatin1String(other)));
        QVERIFY(QApplication::palette() != desktop);
        QVERIFY(Theme::apply(QStringLiteral("system")));
        QCOMPARE(QApplication::palette(), desktop);
        QCOMPARE(QApplication::style()->objectName(), style);
    }
}

void Theme_test::textsOfAllThemesAreLegible_data()
{
    QTest::addColumn<QString>("theme");
    QTest::addColumn<double>("least");
    for (const QString& name : Theme::names()) {
        const bool isHigh = name == QLatin1String("contrast");
        QTest::newRow(qPrintable(name)) << name << (isHigh ? 7.0 : Contrast::forTexts);
    }
}

void Theme_test::textsOfAllThemesAreLegible()
{
    QFETCH(QString, theme);
    QFETCH(double, least);
    QVERIFY(Theme::apply(theme));
    const QPalette palette = QApplication::palette();
    const QVector<QPair<QPalette::ColorRole, QPalette::ColorRole>> pairs = {
        {QPalette::WindowText, QPalette::Window},         {QPalette::Text, QPalette::Base},
        {QPalette::Text, QPalette::AlternateBase},        {QPalette::ButtonText, QPalette::Button},
        {QPalette::PlaceholderText, QPalette::Base},      {QPalette::PlaceholderText, QPalette::Window},
        {QPalette::ToolTipText, QPalette::ToolTipBase},   {QPalette::Link, QPalette::Base},
        {QPalette::HighlightedText, QPalette::Highlight},
    };
    for (const auto& pair : pairs) {
        for (QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
            const bool isOfUse = group != QPalette::Disabled || pair.first != QPalette::Link;
            const double found =
                Contrast::between(palette.color(group, pair.first), palette.color(group, pair.second));
            const double wanted = group == QPalette::Disabled ? Contrast::forTexts : least;
            QVERIFY2(!isOfUse || found >= wanted, qPrintable(QStringLiteral("%1 on %2 in %3: %4")
                                                                 .arg(pair.first)
                                                                 .arg(pair.second)
                                                                 .arg(group)
                                                                 .arg(found)));
        }
    }
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

void Theme_test::aDamagedChoiceIsNotTaken()
{
    QSettings().setValue(QStringLiteral("theme"), QStringLiteral("pink"));
    QCOMPARE(Theme::remembered(), QStringLiteral("system"));
}

QTEST_MAIN(Theme_test)
#include "Theme_test.moc"
