#include "Theme.h"

#include "AbstractHfnCellConversion.h"
#include "CMDArray.h"
#include "VrkTableModel.h"
#include "VrkTableTool.h"

#include "../support/TestFolder.h"

#include <cmath>
#include <functional>
#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QIcon>
#include <QLineEdit>
#include <QListWidget>
#include <QPainter>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSettings>
#include <QSpinBox>
#include <QStyle>
#include <QStyleOption>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>
#include <QVBoxLayout>

/// Painted widgets are compared with their background, according to the accessibility guidelines: contrast
/// 3 for marks and frames, 4.5 for texts.
class ThemeStyle_test : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void textsStandOut_data() { themes(); }
    void textsStandOut();
    void marksStandOut_data();
    void marksStandOut();
    void theClearButtonIsVisible_data() { themes(); }
    void theClearButtonIsVisible();
    void theCrossFollowsTheTheme();
    void theIconOfASelectedRowHasItsOwnBackground_data() { themes(); }
    void theIconOfASelectedRowHasItsOwnBackground();
    void theWidgetWithTheKeyboardIsSeen_data();
    void theWidgetWithTheKeyboardIsSeen();
    void aButtonThatIsDownIsSeen_data() { themes(); }
    void aButtonThatIsDownIsSeen();
    void framesOfFieldsAreSeen_data();
    void framesOfFieldsAreSeen();
    void deletedTextIsLegibleInTheSelection_data() { themes(); }
    void deletedTextIsLegibleInTheSelection();

private:
    static void themes();
    static double luminance(const QColor& color);
    static double contrast(const QColor& first, const QColor& second);
    /// The largest contrast of a pixel inside \a place with \a ground.
    static double strongest(const QImage& image, const QRect& place, const QColor& ground);
    static QImage picture(QWidget* widget) { return widget->grab().toImage(); }

    QTemporaryDir m_folder{testFolderTemplate()};
};

void ThemeStyle_test::initTestCase()
{
    QCoreApplication::setOrganizationName(QStringLiteral("vrk-test"));
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_folder.path());
}

void ThemeStyle_test::themes()
{
    QTest::addColumn<QString>("theme");
    QTest::newRow("light") << QStringLiteral("light");
    QTest::newRow("dark") << QStringLiteral("dark");
}

double ThemeStyle_test::luminance(const QColor& color)
{
    const auto linear = [](double part) {
        return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

double ThemeStyle_test::contrast(const QColor& first, const QColor& second)
{
    const double a = luminance(first);
    const double b = luminance(second);
    return (qMax(a, b) + 0.05) / (qMin(a, b) + 0.05);
}

double ThemeStyle_test::strongest(const QImage& image, const QRect& place, const QColor& ground)
{
    double most = 1;
    const QRect inside = place & image.rect();
    for (int y = inside.top(); y <= inside.bottom(); ++y)
        for (int x = inside.left(); x <= inside.right(); ++x)
            most = qMax(most, contrast(image.pixelColor(x, y), ground));
    return most;
}

void ThemeStyle_test::textsStandOut()
{
    QFETCH(QString, theme);
    QVERIFY(Theme::apply(theme));
    const QPalette palette = QApplication::palette();
    struct Pair {
        QPalette::ColorRole text;
        QPalette::ColorRole ground;
    };
    const Pair pairs[] = {
        {QPalette::WindowText, QPalette::Window},         {QPalette::Text, QPalette::Base},
        {QPalette::Text, QPalette::AlternateBase},        {QPalette::ButtonText, QPalette::Button},
        {QPalette::HighlightedText, QPalette::Highlight}, {QPalette::ToolTipText, QPalette::ToolTipBase},
        {QPalette::PlaceholderText, QPalette::Base},      {QPalette::Link, QPalette::Base}};
    for (QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        for (const Pair& pair : pairs) {
            const double found = contrast(palette.color(group, pair.text), palette.color(group, pair.ground));
            QVERIFY2(found >= 4.5, qPrintable(QStringLiteral("group %1, text %2 on %3: %4")
                                                  .arg(group)
                                                  .arg(pair.text)
                                                  .arg(pair.ground)
                                                  .arg(found)));
        }
    }
}

void ThemeStyle_test::marksStandOut_data()
{
    QTest::addColumn<QString>("theme");
    QTest::addColumn<bool>("isRound");
    for (const char* theme : {"light", "dark"}) {
        QTest::addRow("%s, check box", theme) << theme << false;
        QTest::addRow("%s, radio button", theme) << theme << true;
    }
}

void ThemeStyle_test::marksStandOut()
{
    QFETCH(QString, theme);
    QFETCH(bool, isRound);
    QVERIFY(Theme::apply(theme));
    QCheckBox box;
    QRadioButton radio;
    QAbstractButton* button = &box;
    if (isRound)
        button = &radio;
    button->resize(24, 24);
    const QColor ground = button->palette().color(QPalette::Window);
    const QImage off = picture(button);
    QVERIFY2(strongest(off, off.rect(), ground) >= 3,
             qPrintable(QString::number(strongest(off, off.rect(), ground))));
    button->setChecked(true);
    const QImage on = picture(button);
    int different = 0;
    double mark = 1;
    for (int y = 0; y < on.height(); ++y) {
        for (int x = 0; x < on.width(); ++x) {
            const double change = contrast(on.pixelColor(x, y), off.pixelColor(x, y));
            mark = qMax(mark, change);
            different += change > 1.5;
        }
    }
    QVERIFY2(mark >= 4.5, qPrintable(QString::number(mark)));
    QVERIFY2(different > 12, qPrintable(QString::number(different)));
}

void ThemeStyle_test::theClearButtonIsVisible()
{
    QFETCH(QString, theme);
    QVERIFY(Theme::apply(theme));
    QLineEdit line;
    line.setClearButtonEnabled(true);
    line.setText(QStringLiteral("x"));
    line.resize(200, line.sizeHint().height());
    QTest::qWait(0);
    const QImage image = picture(&line);
    const QRect cross(line.width() - line.height(), 4, line.height() - 6, line.height() - 8);
    const QColor ground = line.palette().color(QPalette::Base);
    QTRY_VERIFY2(strongest(picture(&line), cross, ground) >= 4.5,
                 qPrintable(QString::number(strongest(image, cross, ground))));
}

void ThemeStyle_test::theCrossFollowsTheTheme()
{
    QVERIFY(Theme::apply(QStringLiteral("light")));
    const QIcon made = QApplication::style()->standardIcon(QStyle::SP_LineEditClearButton);
    QVERIFY(Theme::apply(QStringLiteral("dark")));
    const QImage image = made.pixmap(16, 16).toImage();
    const QColor middle = image.pixelColor(8, 8);
    QVERIFY2(contrast(middle, QApplication::palette().color(QPalette::Base)) >= 4.5,
             qPrintable(middle.name()));
}

void ThemeStyle_test::theIconOfASelectedRowHasItsOwnBackground()
{
    QFETCH(QString, theme);
    QVERIFY(Theme::apply(theme));
    QPixmap drawn(16, 16);
    drawn.fill(Qt::transparent);
    QPainter painter(&drawn);
    painter.fillRect(6, 6, 4, 4, QColor(0x1F, 0x6F, 0xB2)); // as blue as the selection
    painter.end();
    QListWidget list;
    auto* item = new QListWidgetItem(QIcon(drawn), QStringLiteral("text"), &list);
    list.resize(120, 60);
    list.setCurrentItem(item);
    const QRect row = list.visualItemRect(item);
    const QImage image = picture(&list);
    const QPoint corner = list.viewport()->pos() + row.topLeft();
    const QRect icon(corner, QSize(24, row.height()));
    const QColor base = QApplication::palette().color(QPalette::Base);
    // The icon's intended background, around the icon inside the selection.
    int tile = 0;
    int blue = 0;
    for (int y = icon.top(); y <= icon.bottom(); ++y) {
        for (int x = icon.left(); x <= icon.right(); ++x) {
            tile += image.pixelColor(x, y) == base;
            blue += image.pixelColor(x, y) == QColor(0x1F, 0x6F, 0xB2);
        }
    }
    QVERIFY2(tile > 150, qPrintable(QString::number(tile)));
    QVERIFY2(blue >= 16, qPrintable(QString::number(blue)));
}

void ThemeStyle_test::theWidgetWithTheKeyboardIsSeen_data()
{
    QTest::addColumn<QString>("theme");
    QTest::addColumn<QString>("kind");
    for (const char* theme : {"light", "dark"}) {
        for (const char* kind : {"line", "combo", "button", "check", "list"})
            QTest::addRow("%s, %s", theme, kind) << theme << kind;
    }
}

void ThemeStyle_test::theWidgetWithTheKeyboardIsSeen()
{
    QFETCH(QString, theme);
    QFETCH(QString, kind);
    QVERIFY(Theme::apply(theme));
    QWidget window;
    auto* layout = new QVBoxLayout(&window);
    auto* other = new QPushButton(QStringLiteral("other"));
    layout->addWidget(other);
    QWidget* widget = nullptr;
    if (kind == QLatin1String("line"))
        widget = new QLineEdit;
    else if (kind == QLatin1String("combo"))
        widget = new QComboBox;
    else if (kind == QLatin1String("button"))
        widget = new QPushButton(QStringLiteral("Text"));
    else if (kind == QLatin1String("check"))
        widget = new QCheckBox(QStringLiteral("Text"));
    else
        widget = new QListWidget;
    layout->addWidget(widget);
    window.show();
    QApplication::setActiveWindow(&window);
    other->setFocus();
    QTRY_VERIFY(other->hasFocus());
    const QImage without = picture(widget);
    widget->setFocus(Qt::OtherFocusReason); // not by Tab: a question sets the focus to an answer
    QTRY_VERIFY(widget->hasFocus());
    const QImage with = picture(widget);
    const QColor ground = window.palette().color(QPalette::Window);
    int reported = 0;
    for (int y = 0; y < with.height(); ++y)
        for (int x = 0; x < with.width(); ++x)
            reported += contrast(with.pixelColor(x, y), without.pixelColor(x, y)) > 1.5 &&
                        contrast(with.pixelColor(x, y), ground) >= 3;
    QVERIFY2(reported >= 40, qPrintable(QString::number(reported)));
}

void ThemeStyle_test::aButtonThatIsDownIsSeen()
{
    QFETCH(QString, theme);
    QVERIFY(Theme::apply(theme));
    QPushButton button(QStringLiteral("Text"));
    button.setCheckable(true);
    button.resize(80, 28);
    const QImage up = picture(&button);
    button.setChecked(true);
    const QImage down = picture(&button);
    int reported = 0;
    for (int x = 0; x < down.width(); ++x)
        for (int y = 0; y < down.height(); ++y)
            reported += contrast(down.pixelColor(x, y), up.pixelColor(x, y)) > 1.5;
    QVERIFY2(reported > 100, qPrintable(QString::number(reported)));
}

void ThemeStyle_test::framesOfFieldsAreSeen_data()
{
    QTest::addColumn<QString>("theme");
    QTest::addColumn<QString>("kind");
    for (const char* theme : {"light", "dark"}) {
        for (const char* kind : {"line", "text", "number", "combo"})
            QTest::addRow("%s, %s", theme, kind) << theme << kind;
    }
}

void ThemeStyle_test::framesOfFieldsAreSeen()
{
    QFETCH(QString, theme);
    QFETCH(QString, kind);
    QVERIFY(Theme::apply(theme));
    QWidget window;
    auto* layout = new QVBoxLayout(&window);
    QWidget* field = nullptr;
    if (kind == QLatin1String("line"))
        field = new QLineEdit;
    else if (kind == QLatin1String("text"))
        field = new QPlainTextEdit;
    else if (kind == QLatin1String("number"))
        field = new QSpinBox;
    else
        field = new QComboBox;
    layout->addWidget(field);
    window.resize(200, 80);
    window.show();
    const QImage image = picture(&window);
    const QRect place = field->geometry();
    const QColor ground = window.palette().color(QPalette::Window);
    // Along each side of the field, in its middle.
    const QPoint middle = place.center();
    const QRect sides[] = {{place.left(), middle.y(), 2, 1},
                           {place.right() - 1, middle.y(), 2, 1},
                           {middle.x(), place.top(), 1, 2},
                           {middle.x(), place.bottom() - 1, 1, 2}};
    for (const QRect& side : sides)
        QVERIFY2(strongest(image, side, ground) >= 3,
                 qPrintable(QString::number(strongest(image, side, ground))));
}

void ThemeStyle_test::deletedTextIsLegibleInTheSelection()
{
    QFETCH(QString, theme);
    QVERIFY(Theme::apply(theme));
    class Grey : public AbstractHfnCellConversion
    {
    public:
        QVariant data(const AbstractHfnCellData& cell) const override
        {
            return cell.role == Qt::ForegroundRole ? QBrush(Qt::gray) : AbstractHfnCellConversion::data(cell);
        }
    };
    static const MDRFieldDescr fields[] = {{"text", 100, mdr_TChar}};
    CMDArray records;
    MDACreate(&records.array, 0);
    MDAFldAdd(records.array, 1, fields);
    records.KeyAdd("", 0);
    const QByteArray words("IIIIIIII"); // thick strokes
    for (int i = 0; i < 2; ++i) {
        MDRData* row = MDARecNew(records.array);
        MDRVar value;
        value.type = mdr_TChar;
        value.isNull = false;
        value.value.text.data = words.constData();
        value.value.text.length = words.size();
        records.SetValF(row, "text", value);
        records.RecPost(row);
    }
    QTableView view;
    const Grey grey;
    VrkTableTool tool(&view);
    tool.setTableView(&view);
    tool.setCMDArray(&records);
    tool.setDefaultSettingsView();
    tool.model()->setCellConversion(QStringLiteral("text"), const_cast<Grey*>(&grey));
    QFont large = view.font();
    large.setPixelSize(24);
    large.setBold(true);
    view.setFont(large);
    view.resize(300, 200);
    view.show();
    QTest::qWait(0);
    for (int row = 0; row < 2; ++row) { // the second one on the alternate background
        view.setCurrentIndex(view.model()->index(row, 0));
        QTest::qWait(0);
        const QImage image = view.viewport()->grab().toImage();
        const QRect cell = view.visualRect(view.currentIndex()).adjusted(6, 4, -6, -4);
        const QColor ground = image.pixelColor(cell.right() - 4, cell.center().y());
        QVERIFY2(strongest(image, cell, ground) >= 4.5,
                 qPrintable(QString::number(strongest(image, cell, ground))));
    }
}

QTEST_MAIN(ThemeStyle_test)
#include "ThemeStyle_test.moc"
