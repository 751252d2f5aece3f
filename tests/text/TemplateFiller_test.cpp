#include "FillerText.h"
#include "GrowingTextEdit.h"
#include "HtmlParser.h"
#include "LatelyUsed.h"
#include "LogWatch.h"
#include "SuggestionModel.h"
#include "TemplateFiller.h"
#include "TestClient.h"
#include "TEventNciParse.h"
#include "Typing.h"

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QRandomGenerator>
#include <QSettings>
#include <QTemporaryDir>
#include <QTextCodec>
#include <QToolButton>
#include <QtTest>

namespace
{
using Properties = std::vector<HtmlParser::Property>;

QString parameter(const char* name, const char* label, Properties more = {})
{
    Properties properties = {{"name", name}, {"locname", label}};
    properties.insert(properties.end(), more.begin(), more.end());
    return QString::fromStdString(HtmlParser::createParameter(properties, label));
}

QString list(const char* label, const std::vector<std::string>& values)
{
    return parameter("list", label, {{"list", HtmlParser::createListProperty(values)}});
}

QStringList latelyUsed(const QString& label)
{
    LatelyUsed texts;
    texts.setUser(QStringLiteral("USER_IVANOV"));
    return texts.texts(label);
}

/// A filler in a window of its own over the session of a login.
struct Setting {
    explicit Setting(const TestStore& store, const QString& login = QStringLiteral("ivanov"))
        : client(store, login), module(client)
    {
        filler.setModule(&module);
        filler.setOrientation(Qt::Vertical);
        filler.resize(640, 560);
        filler.show();
        QApplication::setActiveWindow(&filler);
        if (!QTest::qWaitForWindowExposed(&filler))
            qFatal("the filler does not show");
    }

    template <class Widget = QWidget>
    Widget* input(int index)
    {
        auto* widget = filler.findChild<Widget*>(QStringLiteral("parameterInput_%1").arg(index));
        if (!widget)
            qFatal("no input %d", index);
        return widget;
    }
    QString label(int index)
    {
        return filler.findChild<QLabel*>(QStringLiteral("parameterLabel_%1").arg(index))->text();
    }
    QString complaint(int index)
    {
        auto* editor = filler.findChild<QWidget*>(QStringLiteral("parameterEditor_%1").arg(index));
        auto* found = editor->findChild<QLabel*>(QStringLiteral("complaint"));
        return found->isVisible() ? found->text() : QString();
    }
    /// The list of suggestions that is open, or null.
    QListView* popup()
    {
        for (QListView* view : filler.findChildren<QListView*>(QStringLiteral("suggestionPopup"))) {
            if (view->isVisible())
                return view;
        }
        return nullptr;
    }
    QStringList suggested()
    {
        QStringList texts;
        for (int row = 0; popup() && row < popup()->model()->rowCount(); ++row)
            texts << popup()->model()->index(row, 0).data().toString();
        return texts;
    }
    FillerText* text() { return filler.findChild<FillerText*>(QStringLiteral("fillerText")); }
    /// Types into the input that has the keyboard.
    void type(const QString& typed)
    {
        if (!QApplication::focusWidget())
            qFatal("nothing has the keyboard");
        typeText(QApplication::focusWidget(), typed);
    }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }
    HtmlParser parsed() { return HtmlParser(filler.filledTemplate(true).toStdString()); }
    QString shown(unsigned i) { return QString::fromStdString(parsed().displayText(i)); }
    QString key(unsigned i) { return QString::fromStdString(parsed().propertyData(i)); }

    TestClient client;
    TestModule module;
    TemplateFiller filler;
};
} // namespace

class TemplateFiller_test : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();

    void withoutATemplateNothingIsFilled();
    void aTemplateWithoutParametersIsFilledAsItStands();
    void parametersAreFoundByTheirBaseName();
    void settingAValueShowsItAndSignals();
    void aLabelAsTextIsNoValue();
    void aKeyAloneFillsAParameter();
    void optionalParametersMayStayEmpty();
    void theRecordKeepsPropertiesAndAllElse();
    void anUntouchedTextComesBackToTheLetter();
    void aRecordShowsItsValuesForEditing();
    void aValueThatIsTakenAwayShowsItsLabelAgain();
    void specialCharactersMakeTheRoundTrip();

    void theTextShowsWhatIsFilledAndWhatIsNot();
    void aClickOnAParameterLeadsToItsEditor();
    void tabAndEnterWalkTheEditorsInTheOrderOfTheText();
    void theKeyboardBeginsAtTheFirstGap();

    void shiftEnterBreaksALineOfText();
    void aWholeTextTakesEnterAsLineBreakAndGrows();
    void aDateIsCompletedInItsLayout();
    void anUnreadableDateIsNoValueAndSaysSo();
    void theButtonSetsThePresentTime();
    void aListChoosesByLettersAndNotByTheWheel();
    void aValueThatTheListLacksStays();
    void anIntervalReadsFromTo();
    void anIntervalNeedsBothEndsInOrder();
    void anIntervalOfAnotherFormStaysUntilItIsChanged();

    void aWorkerIsFoundByPartsOfHisName_data();
    void aWorkerIsFoundByPartsOfHisName();
    void deletedWorkersAreNotOffered();
    void tabTakesTheMarkedSuggestionAndEscapeKeepsTheTyping();
    void aNameTypedInFullGetsItsKey();
    void changingATakenTextDropsItsKey();
    void anUnknownNameIsTakenAsTyped();
    void equipmentIsThatOfTheOwnAreaAtFirst();
    void equipmentPathsNameThePlace();
    void voltagesAreThoseOfTheEquipment();
    void departmentsAndOrganizationsAreOffered();
    void theCrewOfTheOpenShiftIsFilledIn();
    void crewNamesAreCompletedOneByOne();
    void changesOfTheReferenceDataArrive();
    void aLostStoreLeavesFreeTyping();

    void typedValuesAreKeptUntilTheyAreWritten();
    void keptValuesCanBeCleared();
    void valuesSetByTheProgramAreNotKept();
    void recordsAreNotKept();
    void writtenTextsAreOfferedAgain();
    void blankAndLongTextsAreNotOffered();

    void valuesMakeTheRoundTripThroughAnyTemplate();
    void bothThemesAndLargeFontsHoldTheWidgets();

private:
    TestStore m_store;
    QTemporaryDir m_settings;
};

void TemplateFiller_test::initTestCase()
{
    QCoreApplication::setOrganizationName(QStringLiteral("filler-test"));
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_settings.path());
}

void TemplateFiller_test::init()
{
    QSettings().clear();
}

void TemplateFiller_test::withoutATemplateNothingIsFilled()
{
    TemplateFiller filler;
    QSignalSpy changes(&filler, &TemplateFiller::templateChanged);
    QVERIFY(!filler.isFilled());
    QCOMPARE(filler.filledTemplate(true), QString());
    filler.setTemplate(QString());
    QCOMPARE(changes.size(), 1);
    filler.setParameterValue(0, QStringLiteral("x"), QString());
    filler.MessageData(nullptr);
    filler.valuesWritten();
    QVERIFY(filler.findParameter(QStringLiteral("text")).isEmpty());
}

void TemplateFiller_test::aTemplateWithoutParametersIsFilledAsItStands()
{
    TemplateFiller filler;
    filler.setTemplate(QStringLiteral("<b>Готово</b>"));
    QVERIFY(filler.isFilled());
    QCOMPARE(filler.filledTemplate(true), QStringLiteral("<b>Готово</b>"));
}

void TemplateFiller_test::parametersAreFoundByTheirBaseName()
{
    TemplateFiller filler;
    filler.setTemplate(parameter("text", "a") + parameter("interval", "b") + parameter("text", "c"));
    const QVector<unsigned int> expected{0, 2};
    QCOMPARE(filler.findParameter(QStringLiteral("text")), expected);
    QCOMPARE(filler.findParameter(QStringLiteral("interval")), QVector<unsigned int>{1});
    QVERIFY(filler.findParameter(QStringLiteral("line")).isEmpty());
}

void TemplateFiller_test::settingAValueShowsItAndSignals()
{
    Setting setting(m_store);
    setting.filler.setTemplate(parameter("employee_fio", "ФИО"));
    QSignalSpy changes(&setting.filler, &TemplateFiller::templateChanged);
    QVERIFY(!setting.filler.isFilled());
    setting.filler.setParameterValue(0, QStringLiteral("Иванов"), QStringLiteral("KEY"));
    QCOMPARE(changes.size(), 1);
    QVERIFY(setting.filler.isFilled());
    QCOMPARE(setting.shown(0), QStringLiteral("Иванов"));
    QCOMPARE(setting.key(0), QStringLiteral("KEY"));
    QCOMPARE(setting.input<QLineEdit>(0)->text(), QStringLiteral("Иванов"));
    setting.filler.setParameterValue(0, QStringLiteral("Иванов"), QStringLiteral("KEY"));
    setting.filler.setParameterValue(1, QStringLiteral("x"), QString());
    QCOMPARE(changes.size(), 1);
}

void TemplateFiller_test::aLabelAsTextIsNoValue()
{
    TemplateFiller filler;
    filler.setTemplate(parameter("text", "Цель"));
    filler.setParameterValue(0, QStringLiteral("Цель"), QString());
    QVERIFY(!filler.isFilled());
    filler.setParameterValue(0, QStringLiteral("  "), QString());
    QVERIFY(!filler.isFilled());
}

void TemplateFiller_test::aKeyAloneFillsAParameter()
{
    TemplateFiller filler;
    filler.setTemplate(parameter("employee_fio", "ФИО"));
    filler.setParameterValue(0, QString(), QStringLiteral("KEY"));
    QVERIFY(filler.isFilled());
    QVERIFY(filler.filledTemplate(true).contains(QStringLiteral(">ФИО</a>")));
}

void TemplateFiller_test::optionalParametersMayStayEmpty()
{
    TemplateFiller filler;
    const QString html =
        QStringLiteral("Бланк № ") + parameter("text", "Номер", {{"optional", ""}}) + QStringLiteral(".");
    filler.setTemplate(html);
    QVERIFY(filler.isFilled());
    QCOMPARE(TemplateText::plain(filler.filledTemplate(true)), QStringLiteral("Бланк № ."));
    QCOMPARE(filler.filledTemplate(false), html);
    filler.setTemplate(filler.filledTemplate(true));
    QVERIFY(filler.isFilled());
    filler.setParameterValue(0, QStringLiteral("7"), QString());
    QCOMPARE(TemplateText::plain(filler.filledTemplate(true)), QStringLiteral("Бланк № 7."));
}

void TemplateFiller_test::theRecordKeepsPropertiesAndAllElse()
{
    HtmlParser source((QStringLiteral("<p>Вывести <s>") + parameter("substation", "ПС", {{"idx", "0"}}) +
                       QStringLiteral("</s> и &laquo;x&raquo;</p>"))
                          .toStdString());
    source.setTemplateProperty("time_exec", true);
    source.setTemplateProperty("command", "Доложено");
    TemplateFiller filler;
    filler.setTemplate(QString::fromStdString(source.readyHtml(true)));
    filler.setParameterValue(0, QStringLiteral("Заречная"), QStringLiteral("K"));
    HtmlParser expected(source.readyHtml(true));
    expected.setDisplayText(0, "Заречная");
    expected.setPropertyData(0, "K");
    QCOMPARE(filler.filledTemplate(true), QString::fromStdString(expected.readyHtml(true)));
    const HtmlParser record(filler.filledTemplate(true).toStdString());
    QVERIFY(record.isExistTemplateProperty("time_exec"));
    QCOMPARE(record.propertyValue(0, "idx"), std::string("0"));
}

void TemplateFiller_test::anUntouchedTextComesBackToTheLetter()
{
    TemplateFiller filler;
    const QString html =
        QStringLiteral("a < b &nbsp; <a href='parameter:name=text;locname=x'>y &laquo;z&raquo;  w</a>"
                       "<!-- c --> [d]\r\n<a href=\"parameter:name=text;locname=&quot;\">v");
    filler.setTemplate(html);
    QCOMPARE(filler.filledTemplate(true), html);
}

void TemplateFiller_test::aRecordShowsItsValuesForEditing()
{
    Setting setting(m_store);
    setting.filler.setTemplate(list("Вид", {"один", "два"}) + parameter("text", "Цель") +
                               parameter("employee_fio", "ФИО") +
                               parameter("datetime", "Время", {{"format", "hh:mm"}}));
    setting.filler.setParameterValue(0, QStringLiteral("два"), QString());
    setting.filler.setParameterValue(1, QStringLiteral("одна\nдве"), QString());
    setting.filler.setParameterValue(2, QStringLiteral("Петров"), QStringLiteral("WORKER_PETROV"));
    setting.filler.setParameterValue(3, QStringLiteral("21:08"), QString());
    const QString record = setting.filler.filledTemplate(true);
    setting.filler.setTemplate(QString());
    setting.filler.setTemplate(record);
    QVERIFY(setting.filler.isFilled());
    QCOMPARE(setting.input<QComboBox>(0)->currentText(), QStringLiteral("два"));
    QCOMPARE(setting.input<GrowingTextEdit>(1)->toPlainText(), QStringLiteral("одна\nдве"));
    QCOMPARE(setting.input<QLineEdit>(2)->text(), QStringLiteral("Петров"));
    QCOMPARE(setting.input<QLineEdit>(3)->text(), QStringLiteral("21:08"));
    QCOMPARE(setting.filler.filledTemplate(true), record);
    QCOMPARE(setting.key(2), QStringLiteral("WORKER_PETROV"));
}

void TemplateFiller_test::aValueThatIsTakenAwayShowsItsLabelAgain()
{
    Setting setting(m_store);
    const QString html = QStringLiteral("x ") + parameter("text", "Цель");
    setting.filler.setTemplate(html);
    setting.filler.setParameterValue(0, QStringLiteral("v"), QStringLiteral("K"));
    setting.filler.setTemplate(setting.filler.filledTemplate(true));
    setting.filler.setFocus();
    setting.press(Qt::Key_A, Qt::ControlModifier);
    setting.press(Qt::Key_Delete);
    QVERIFY(!setting.filler.isFilled());
    QCOMPARE(setting.filler.filledTemplate(true), html);
}

void TemplateFiller_test::specialCharactersMakeTheRoundTrip()
{
    TemplateFiller filler;
    const QString text = QStringLiteral(", <b> & \"x\" [y]  z\n. №«»—…\u00a0|%;=");
    filler.setTemplate(QStringLiteral("a ") + parameter("text", "Цель") + QStringLiteral(" b"));
    filler.setParameterValue(0, text, QStringLiteral("k;=\"%"));
    const QString record = filler.filledTemplate(true);
    QTextCodec* codec = QTextCodec::codecForName("Windows-1251");
    filler.setTemplate(codec->toUnicode(codec->fromUnicode(record)));
    const HtmlParser parser(filler.filledTemplate(true).toStdString());
    QCOMPARE(QString::fromStdString(parser.displayText(0)), text);
    QCOMPARE(parser.propertyData(0), std::string("k;=\"%"));
}

void TemplateFiller_test::theTextShowsWhatIsFilledAndWhatIsNot()
{
    Setting setting(m_store);
    setting.filler.setTemplate(QStringLiteral("На ") + parameter("text", "Место") + QStringLiteral(", № ") +
                               parameter("text", "Номер", {{"optional", ""}}) + QStringLiteral(", <b>") +
                               parameter("text", "Цель") + QStringLiteral("</b>"));
    setting.filler.setParameterValue(2, QStringLiteral("ремонт"), QString());
    QCOMPARE(setting.text()->toPlainText(), QStringLiteral("На Место *, № Номер, ремонт"));
    const auto formatAt = [&setting](const QString& found) {
        return setting.text()->document()->find(found).charFormat();
    };
    QVERIFY(formatAt(QStringLiteral("Место")).fontItalic());
    QVERIFY(formatAt(QStringLiteral("Номер")).fontItalic());
    QVERIFY(!formatAt(QStringLiteral("ремонт")).fontItalic());
    QVERIFY(formatAt(QStringLiteral("ремонт")).fontUnderline());
    QCOMPARE(formatAt(QStringLiteral("ремонт")).fontWeight(), int(QFont::Bold));
    QVERIFY(formatAt(QStringLiteral("Место")).background() != formatAt(QStringLiteral("Номер")).background());
    QCOMPARE(setting.label(0), QStringLiteral("● Место"));
    QCOMPARE(setting.label(1), QStringLiteral("○ Номер"));
    QCOMPARE(setting.label(2), QStringLiteral("✓ Цель"));
}

void TemplateFiller_test::aClickOnAParameterLeadsToItsEditor()
{
    Setting setting(m_store);
    QString html;
    for (int i = 0; i < 30; ++i)
        html += QStringLiteral("слова ") + parameter("text", qPrintable(QStringLiteral("П%1").arg(i)));
    setting.filler.setTemplate(html);
    QSignalSpy requests(&setting.filler, &TemplateFiller::requestEditor);
    FillerText* text = setting.text();
    const QRect place = text->parameterRect(2);
    QVERIFY(place.isValid());
    QTest::mouseClick(text->viewport(), Qt::LeftButton, Qt::NoModifier, place.center() + QPoint(4, 0));
    QCOMPARE(requests.size(), 1);
    QCOMPARE(requests.first().at(0).toString(), QStringLiteral("text"));
    QCOMPARE(requests.first().at(1).toUInt(), 2u);
    QCOMPARE(QApplication::focusWidget(), setting.input(2));

    // The other way round: the editor in use is marked in the text and scrolled into view.
    setting.input(29)->setFocus();
    const QTextCharFormat marked = text->document()->find(QStringLiteral("П29")).charFormat();
    QCOMPARE(marked.background(), text->palette().brush(QPalette::Active, QPalette::Highlight));
    QVERIFY(text->viewport()->rect().contains(text->parameterRect(29)));
    QVERIFY(!setting.input(29)->visibleRegion().isEmpty());
}

void TemplateFiller_test::tabAndEnterWalkTheEditorsInTheOrderOfTheText()
{
    LogWatch log;
    Setting setting(m_store);
    setting.filler.setTemplate(parameter("text", "a") + parameter("datetime", "b") + list("c", {"x"}) +
                               parameter("substation", "d") + parameter("interval", "e") +
                               parameter("shift_workers", "f"));
    for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_Return, Qt::Key_Enter}) {
        setting.input(0)->setFocus();
        for (int i = 1; i < 5; ++i) {
            setting.press(key);
            QCOMPARE(QApplication::focusWidget(), setting.input(i));
        }
        setting.press(key); // the end of the interval
        QVERIFY(QApplication::focusWidget() != setting.input(5));
        setting.press(key);
        QCOMPARE(QApplication::focusWidget(), setting.input(5));
    }
    setting.press(Qt::Key_Backtab);
    setting.press(Qt::Key_Backtab);
    QCOMPARE(QApplication::focusWidget(), setting.input(4));
    QCOMPARE(log.take(), QStringList());
}

void TemplateFiller_test::theKeyboardBeginsAtTheFirstGap()
{
    Setting setting(m_store);
    setting.filler.setTemplate(parameter("text", "a", {{"optional", ""}}) + parameter("text", "b") +
                               parameter("text", "c"));
    setting.filler.setParameterValue(1, QStringLiteral("x"), QString());
    setting.filler.setFocus();
    QCOMPARE(QApplication::focusWidget(), setting.input(2));
}

void TemplateFiller_test::shiftEnterBreaksALineOfText()
{
    Setting setting(m_store);
    setting.filler.setTemplate(QStringLiteral("Цель: ") + parameter("text", "Цель") + QStringLiteral("."));
    setting.filler.setFocus();
    QSignalSpy changes(&setting.filler, &TemplateFiller::templateChanged);
    const int height = setting.input(0)->height();
    setting.type(QStringLiteral("одна"));
    setting.press(Qt::Key_Return, Qt::ShiftModifier);
    setting.type(QStringLiteral("две"));
    QVERIFY(changes.size() >= 2);
    QVERIFY(setting.input(0)->height() > height);
    QVERIFY(setting.filler.filledTemplate(true).contains(QStringLiteral(">одна<br/>две</a>.")));
}

void TemplateFiller_test::aWholeTextTakesEnterAsLineBreakAndGrows()
{
    Setting setting(m_store);
    setting.filler.setTemplate(QStringLiteral("<meta name=\"template\" content=\"time_exec\"> ") +
                               parameter("text", "Текст записи"));
    setting.filler.setFocus();
    const int height = setting.input(0)->height();
    for (int i = 0; i < 6; ++i) {
        setting.type(QStringLiteral("строка"));
        setting.press(Qt::Key_Return);
    }
    QVERIFY(setting.input(0)->height() > height);
    QCOMPARE(setting.shown(0).count(QLatin1Char('\n')), 5);
    setting.press(Qt::Key_Return, Qt::ControlModifier);
    QCOMPARE(setting.shown(0).count(QLatin1Char('\n')), 5);
}

void TemplateFiller_test::blankAndLongTextsAreNotOffered()
{
    LatelyUsed texts;
    const QString label = QStringLiteral("Место/номер");
    texts.add(label, QStringLiteral(" "));
    texts.add(label, QString(301, QLatin1Char('x')));
    QVERIFY(texts.texts(label).isEmpty());
    for (int i = 0; i < LatelyUsed::keptAtMost + 5; ++i)
        texts.add(label, QString::number(i));
    texts.add(label, QStringLiteral("10"));
    QCOMPARE(texts.texts(label).size(), LatelyUsed::keptAtMost);
    QCOMPARE(texts.texts(label).first(), QStringLiteral("10"));
    QCOMPARE(texts.texts(label).count(QStringLiteral("10")), 1);
    QCOMPARE(texts.texts(QStringLiteral("место/НОМЕР")), texts.texts(label));
    QVERIFY(texts.texts(QStringLiteral("Место")).isEmpty());
}

void TemplateFiller_test::aDateIsCompletedInItsLayout()
{
    Setting setting(m_store);
    setting.filler.setTemplate(parameter("datetime", "Время", {{"format", "hh:mm"}}) +
                               parameter("datetime", "Срок", {{"format", "dd.MM.yyyy hh:mm:ss"}}));
    setting.filler.setFocus();
    setting.type(QStringLiteral("2108"));
    QCOMPARE(setting.shown(0), QStringLiteral("21:08"));
    setting.press(Qt::Key_Return);
    QCOMPARE(setting.input<QLineEdit>(0)->text(), QStringLiteral("21:08"));
    setting.type(QStringLiteral("31.12.26 235959"));
    setting.press(Qt::Key_Tab);
    QCOMPARE(setting.shown(1), QStringLiteral("31.12.2026 23:59:59"));
    QVERIFY(setting.filler.isFilled());
}

void TemplateFiller_test::anUnreadableDateIsNoValueAndSaysSo()
{
    Setting setting(m_store);
    setting.filler.setTemplate(parameter("datetime", "Время", {{"format", "hh:mm"}}) +
                               parameter("text", "x"));
    setting.filler.setParameterValue(1, QStringLiteral("y"), QString());
    setting.input(0)->setFocus();
    setting.type(QStringLiteral("25:00"));
    QCOMPARE(setting.complaint(0), QString());
    setting.press(Qt::Key_Return);
    QCOMPARE(setting.complaint(0), QStringLiteral("⚠ Ожидается чч:мм"));
    QVERIFY(!setting.filler.isFilled());
    QVERIFY(setting.filler.filledTemplate(true).contains(QStringLiteral(">Время</a>")));
    setting.input(0)->setFocus();
    setting.press(Qt::Key_A, Qt::ControlModifier);
    setting.type(QStringLiteral("9"));
    QCOMPARE(setting.complaint(0), QString());
    QVERIFY(setting.filler.isFilled());
}

void TemplateFiller_test::theButtonSetsThePresentTime()
{
    Setting setting(m_store);
    setting.filler.setTemplate(parameter("datetime", "Время", {{"format", "dd.MM.yyyy hh:mm"}}));
    auto* editor = setting.filler.findChild<QWidget*>(QStringLiteral("parameterEditor_0"));
    const QDateTime before = setting.client.session().HfnTimeToSesTime();
    QTest::mouseClick(editor->findChild<QToolButton*>(), Qt::LeftButton);
    const QDateTime set = QDateTime::fromString(setting.shown(0), QStringLiteral("dd.MM.yyyy hh:mm"));
    QVERIFY(qAbs(set.secsTo(before)) <= 60);
    QCOMPARE(QApplication::focusWidget(), setting.input(0));
}

void TemplateFiller_test::aListChoosesByLettersAndNotByTheWheel()
{
    Setting setting(m_store);
    setting.filler.setTemplate(list("Операция", {"отключить", "включить", "вывести"}) +
                               parameter("text", "x"));
    setting.filler.setFocus();
    auto* combo = setting.input<QComboBox>(0);
    setting.type(QStringLiteral("в"));
    QCOMPARE(setting.shown(0), QStringLiteral("включить"));
    setting.press(Qt::Key_Down);
    QCOMPARE(setting.shown(0), QStringLiteral("вывести"));
    QWheelEvent wheel(QPointF(5, 5), combo->mapToGlobal(QPoint(5, 5)), QPoint(), QPoint(0, 120), Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(combo, &wheel);
    QCOMPARE(setting.shown(0), QStringLiteral("вывести"));
    setting.press(Qt::Key_Return);
    QCOMPARE(QApplication::focusWidget(), setting.input(1));
    combo->setFocus();
    setting.press(Qt::Key_Home);
    QVERIFY(setting.filler.filledTemplate(true).contains(QStringLiteral(">Операция</a>")));
}

void TemplateFiller_test::aValueThatTheListLacksStays()
{
    Setting setting(m_store);
    setting.filler.setTemplate(list("Вид", {"один"}));
    setting.filler.setParameterValue(0, QStringLiteral("свой"), QString());
    QCOMPARE(setting.input<QComboBox>(0)->currentText(), QStringLiteral("свой"));
    setting.filler.setTemplate(parameter("list", "Пустой список"));
    setting.filler.setFocus();
    setting.type(QStringLiteral("свободно"));
    QCOMPARE(setting.shown(0), QStringLiteral("свободно"));
    setting.filler.valuesWritten();
    QCOMPARE(latelyUsed(QStringLiteral("Пустой список")), QStringList{QStringLiteral("свободно")});
}

void TemplateFiller_test::anIntervalReadsFromTo()
{
    Setting setting(m_store);
    setting.filler.setTemplate(parameter("interval", "Период"));
    setting.filler.setFocus();
    setting.type(QStringLiteral("20.11.2026 2000"));
    setting.press(Qt::Key_Return);
    QCOMPARE(setting.complaint(0), QString());
    setting.type(QStringLiteral("21.11.2026 800"));
    setting.press(Qt::Key_Tab);
    QCOMPARE(setting.shown(0), QStringLiteral("с 20.11.2026 20:00 по 21.11.2026 08:00"));

    setting.filler.setTemplate(setting.filler.filledTemplate(true));
    QCOMPARE(setting.input<QLineEdit>(0)->text(), QStringLiteral("20.11.2026 20:00"));
    QVERIFY(setting.filler.isFilled());
}

void TemplateFiller_test::anIntervalNeedsBothEndsInOrder()
{
    Setting setting(m_store);
    setting.filler.setTemplate(parameter("interval", "Период") + parameter("text", "x"));
    setting.filler.setParameterValue(1, QStringLiteral("y"), QString());
    setting.input(0)->setFocus();
    setting.type(QStringLiteral("20.11.2026 2000"));
    setting.press(Qt::Key_Tab);
    setting.press(Qt::Key_Tab);
    QCOMPARE(setting.complaint(0), QStringLiteral("⚠ Укажите начало и конец"));
    QVERIFY(!setting.filler.isFilled());
    setting.press(Qt::Key_Backtab);
    setting.type(QStringLiteral("19.11.2026 2000"));
    setting.press(Qt::Key_Tab);
    QCOMPARE(setting.complaint(0), QStringLiteral("⚠ Конец раньше начала"));
    QVERIFY(!setting.filler.isFilled());
}

void TemplateFiller_test::anIntervalOfAnotherFormStaysUntilItIsChanged()
{
    Setting setting(m_store);
    setting.filler.setTemplate(parameter("interval", "Период"));
    setting.filler.setParameterValue(0, QStringLiteral("до утра"), QString());
    QVERIFY(setting.filler.isFilled());
    QCOMPARE(setting.complaint(0), QStringLiteral("⚠ В тексте: до утра"));
    setting.filler.setFocus();
    setting.press(Qt::Key_Tab);
    QCOMPARE(setting.shown(0), QStringLiteral("до утра"));
    setting.filler.setFocus();
    setting.type(QStringLiteral("1"));
    QVERIFY(!setting.filler.isFilled());
}

void TemplateFiller_test::aWorkerIsFoundByPartsOfHisName_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<QString>("detail");
    const QString name = QStringLiteral("Петров Пётр Петрович");
    const QString place = QStringLiteral("Диспетчер · ЦДС");
    QTest::newRow("full name") << QByteArray("employee_fio") << name << place;
    QTest::newRow("with role") << QByteArray("employee_fio_role") << name + QStringLiteral(", Диспетчер")
                               << QStringLiteral("ЦДС");
    QTest::newRow("with group") << QByteArray("employee_fio_group") << name + QStringLiteral(" гр.IV")
                                << place;
    QTest::newRow("with place") << QByteArray("employee_fio_dep_org")
                                << name + QStringLiteral(", ЦДС, Электросети «Ключевой край»")
                                << QStringLiteral("Диспетчер");
    QTest::newRow("crew") << QByteArray("shift_workers") << QStringLiteral("Петров П. П.") << place;
    QTest::newRow("crew with groups")
        << QByteArray("shift_workers_groups") << QStringLiteral("Петров П. П. гр.IV") << place;
}

void TemplateFiller_test::aWorkerIsFoundByPartsOfHisName()
{
    QFETCH(QByteArray, name);
    QFETCH(QString, shown);
    Setting setting(m_store);
    setting.filler.setTemplate(parameter(name.constData(), "Кто") + parameter("text", "x"));
    setting.filler.setFocus();
    setting.type(QStringLiteral("петр"));
    QVERIFY(setting.popup());
    QCOMPARE(setting.suggested().first(), shown);
    QTEST(setting.popup()->model()->index(0, 0).data(SuggestionModel::DetailRole).toString(), "detail");
    setting.press(Qt::Key_Return);
    QVERIFY(!setting.popup());
    QCOMPARE(QApplication::focusWidget(), setting.input(0)); // Enter took the suggestion and no more
    QCOMPARE(setting.shown(0), shown);
    QCOMPARE(setting.key(0), QStringLiteral("WORKER_PETROV"));
    setting.press(Qt::Key_Return);
    QCOMPARE(QApplication::focusWidget(), setting.input(1));
    QCOMPARE(setting.shown(0), shown);
}

void TemplateFiller_test::deletedWorkersAreNotOffered()
{
    Setting setting(m_store);
    setting.filler.setTemplate(parameter("employee_fio", "Кто"));
    setting.filler.setFocus();
    setting.press(Qt::Key_Down);
    QCOMPARE(setting.suggested().size(), 5);
    QVERIFY(setting.suggested().filter(QStringLiteral("Кузнецов")).isEmpty());
    // Those of the own department and below it come before the others.
    QCOMPARE(setting.suggested().first(), QStringLiteral("Иванов Иван Иванович"));
    QVERIFY(
        setting.popup()->model()->index(4, 0).data(Qt::UserRole).toString().contains(QStringLiteral("ОДС")));
}

void TemplateFiller_test::tabTakesTheMarkedSuggestionAndEscapeKeepsTheTyping()
{
    Setting setting(m_store);
    setting.filler.setTemplate(parameter("employee_fio", "Кто") + parameter("employee_fio", "Кому"));
    setting.filler.setFocus();
    setting.type(QStringLiteral("сидо"));
    setting.press(Qt::Key_Tab);
    QCOMPARE(QApplication::focusWidget(), setting.input(1));
    QCOMPARE(setting.key(0), QStringLiteral("WORKER_SIDOROVA"));
    setting.type(QStringLiteral("сидо"));
    setting.press(Qt::Key_Escape);
    QVERIFY(!setting.popup());
    setting.press(Qt::Key_Return);
    QCOMPARE(setting.shown(1), QStringLiteral("сидо"));
    QCOMPARE(setting.key(1), QString());
}

void TemplateFiller_test::aNameTypedInFullGetsItsKey()
{
    Setting setting(m_store);
    setting.filler.setTemplate(parameter("employee_fio", "Кто") + parameter("text", "x"));
    setting.filler.setFocus();
    setting.type(QStringLiteral("петров петр петрович"));
    setting.press(Qt::Key_Escape);
    setting.press(Qt::Key_Return);
    QCOMPARE(setting.shown(0), QStringLiteral("Петров Пётр Петрович"));
    QCOMPARE(setting.key(0), QStringLiteral("WORKER_PETROV"));
}

void TemplateFiller_test::changingATakenTextDropsItsKey()
{
    Setting setting(m_store);
    setting.filler.setTemplate(parameter("substation", "ПС"));
    setting.filler.setParameterValue(0, QStringLiteral("ПС 110 кВ Заречная"),
                                     QStringLiteral("EQ_SUBSTATION"));
    setting.filler.setFocus();
    setting.press(Qt::Key_End);
    setting.type(QStringLiteral(", ОРУ"));
    QCOMPARE(setting.shown(0), QStringLiteral("ПС 110 кВ Заречная, ОРУ"));
    QCOMPARE(setting.key(0), QString());
}

void TemplateFiller_test::anUnknownNameIsTakenAsTyped()
{
    Setting setting(m_store);
    setting.filler.setTemplate(parameter("employee_fio", "Кто"));
    setting.filler.setFocus();
    setting.type(QStringLiteral("Туманов И. К."));
    QVERIFY(!setting.popup());
    QVERIFY(setting.filler.isFilled());
    QCOMPARE(setting.shown(0), QStringLiteral("Туманов И. К."));
}

void TemplateFiller_test::equipmentIsThatOfTheOwnAreaAtFirst()
{
    Setting setting(m_store, QStringLiteral("smirnov")); // ЗДГ: the line belongs to the department above
    setting.filler.setTemplate(parameter("equipmentName", "Оборудование") + parameter("line", "Линия") +
                               parameter("substation", "ПС") + parameter("bay", "Присоединение"));
    if (setting.client.app().m_user_params.getValue(QStringLiteral("DEPARTMENTKEY"), QString()) !=
        QStringLiteral("DEP_ZAR"))
        setting.client.app().m_user_params.setValue(QStringLiteral("DEPARTMENTKEY"),
                                                    QStringLiteral("DEP_ZAR"));
    setting.filler.setFocus();
    setting.type(QStringLiteral("полевая"));
    const QStringList expected{QStringLiteral("В 110 Полевая I цепь"),
                               QStringLiteral("Искать во всех подразделениях: ещё 1")};
    QCOMPARE(setting.suggested(), expected);
    setting.press(Qt::Key_Down);
    setting.press(Qt::Key_Return);
    QCOMPARE(setting.suggested().size(), 2);
    QVERIFY(setting.suggested().contains(QStringLiteral("ВЛ 110 кВ Полевая – Заречная")));
    setting.press(Qt::Key_Escape);

    setting.input(2)->setFocus();
    setting.press(Qt::Key_Down);
    QCOMPARE(setting.suggested(), QStringList{QStringLiteral("ПС 110 кВ Заречная")});
    setting.press(Qt::Key_Return);
    QCOMPARE(setting.key(2), QStringLiteral("EQ_SUBSTATION"));
    setting.input(3)->setFocus();
    setting.press(Qt::Key_Down);
    QCOMPARE(setting.suggested(), QStringList{QStringLiteral("В 110 Полевая I цепь")});
    setting.press(Qt::Key_Escape);
    setting.input(1)->setFocus();
    setting.press(Qt::Key_Down);
    QCOMPARE(setting.suggested(), QStringList{QStringLiteral("Искать во всех подразделениях: ещё 1")});
    setting.press(Qt::Key_Down);
    setting.press(Qt::Key_Return);
    QCOMPARE(setting.suggested(), QStringList{QStringLiteral("ВЛ 110 кВ Полевая – Заречная")});
}

void TemplateFiller_test::equipmentPathsNameThePlace()
{
    Setting setting(m_store);
    setting.filler.setTemplate(parameter("equipmentPath", "Место"));
    setting.filler.setFocus();
    setting.type(QStringLiteral("цепь зареч"));
    setting.press(Qt::Key_Return);
    QCOMPARE(setting.shown(0), QStringLiteral("ПС 110 кВ Заречная, В 110 Полевая I цепь"));
    QCOMPARE(setting.key(0), QStringLiteral("EQ_BAY"));
}

void TemplateFiller_test::voltagesAreThoseOfTheEquipment()
{
    Setting setting(m_store);
    setting.filler.setTemplate(
        parameter("baseVoltage", "Класс") +
        parameter("basevoltage", "Класс", {{"list", HtmlParser::createListProperty({"6 кВ"})}}));
    setting.filler.setFocus();
    setting.press(Qt::Key_Down);
    QCOMPARE(setting.suggested(), QStringList{QStringLiteral("110 кВ")});
    setting.press(Qt::Key_Return);
    QCOMPARE(setting.shown(0), QStringLiteral("110 кВ"));
    QCOMPARE(setting.input<QComboBox>(1)->count(), 2);
}

void TemplateFiller_test::departmentsAndOrganizationsAreOffered()
{
    Setting setting(m_store);
    setting.filler.setTemplate(parameter("department", "Подразделение") +
                               parameter("organization", "Организация"));
    setting.filler.setFocus();
    setting.type(QStringLiteral("зареч"));
    setting.press(Qt::Key_Tab);
    setting.type(QStringLiteral("северная"));
    setting.press(Qt::Key_Tab);
    QCOMPARE(setting.key(0), QStringLiteral("DEP_ZAR"));
    QCOMPARE(setting.shown(0), QStringLiteral("Заречная диспетчерская группа"));
    QCOMPARE(setting.key(1), QStringLiteral("ORG_CENTER"));
}

void TemplateFiller_test::theCrewOfTheOpenShiftIsFilledIn()
{
    Setting setting(m_store);
    setting.filler.setTemplate(parameter("shift_workers", "Смена") +
                               parameter("shift_workers_groups", "С группами"));
    setting.filler.setFocus();
    setting.press(Qt::Key_F5);
    QCOMPARE(setting.shown(0), QStringLiteral("Иванов И. И., Петров П. П."));
    QCOMPARE(setting.key(0), QString()); // several names have no record behind them
    auto* editor = setting.filler.findChild<QWidget*>(QStringLiteral("parameterEditor_1"));
    QTest::mouseClick(editor->findChild<QToolButton*>(QStringLiteral("crewButton")), Qt::LeftButton);
    QCOMPARE(setting.shown(1), QStringLiteral("Иванов И. И. гр.V, Петров П. П. гр.IV"));
}

void TemplateFiller_test::crewNamesAreCompletedOneByOne()
{
    Setting setting(m_store);
    setting.filler.setTemplate(parameter("shift_workers", "Смена"));
    setting.filler.setFocus();
    setting.type(QStringLiteral("ив"));
    setting.press(Qt::Key_Return);
    QCOMPARE(setting.key(0), QStringLiteral("WORKER_IVANOV"));
    setting.type(QStringLiteral(",сид"));
    setting.press(Qt::Key_Return);
    QCOMPARE(setting.shown(0), QStringLiteral("Иванов И. И., Сидорова А. С."));
    QCOMPARE(setting.key(0), QString());
}

void TemplateFiller_test::changesOfTheReferenceDataArrive()
{
    TestStore store;
    Setting setting(store);
    setting.module.onEvent = [&setting](HFNCliParam* block) {
        TEventNciParse event(block);
        setting.filler.MessageData(&event);
    };
    setting.filler.setTemplate(parameter("employee_fio", "Кто"));
    setting.filler.setFocus();
    setting.type(QStringLiteral("нов"));
    QVERIFY(setting.suggested().filter(QStringLiteral("Новиков")).isEmpty());
    setting.press(Qt::Key_Escape);
    const std::unique_ptr<Store> loader = store.openLoader();
    QVERIFY(TestStore::write(
        loader.get(), "Workers", ROW_INSERT, "WORKER_NOVIKOV",
        {{"lastName", QStringLiteral("Новиков")}, {"DepartmentKey", "DEP_CDS"}, {"deleted_", 0}}));
    setting.client.deliver();
    setting.press(Qt::Key_Backspace);
    QCOMPARE(setting.suggested().filter(QStringLiteral("Новиков")).size(), 1);
}

void TemplateFiller_test::aLostStoreLeavesFreeTyping()
{
    TemplateFiller filler; // no module: no session, no reference data
    filler.setTemplate(parameter("employee_fio", "Кто") +
                       parameter("datetime", "Время", {{"format", "hh:mm"}}) +
                       parameter("shift_workers", "Смена"));
    filler.show();
    QApplication::setActiveWindow(&filler);
    auto* who = filler.findChild<QLineEdit*>(QStringLiteral("parameterInput_0"));
    typeText(who, QStringLiteral("Петров"));
    QTest::keyClick(who, Qt::Key_Down);
    QTest::keyClick(filler.findChild<QLineEdit*>(QStringLiteral("parameterInput_1")), Qt::Key_F5);
    QTest::keyClick(filler.findChild<QLineEdit*>(QStringLiteral("parameterInput_2")), Qt::Key_F5);
    const HtmlParser parser(filler.filledTemplate(true).toStdString());
    QCOMPARE(parser.displayText(0), std::string("Петров"));
    QCOMPARE(parser.displayText(1).size(), std::size_t(5));
}

void TemplateFiller_test::typedValuesAreKeptUntilTheyAreWritten()
{
    Setting setting(m_store);
    const QString html = QStringLiteral("a ") + parameter("text", "Цель") + parameter("text", "Место");
    auto* bar = setting.filler.findChild<QWidget*>(QStringLiteral("keptValuesBar"));
    setting.filler.setTemplate(html);
    QVERIFY(!bar->isVisible());
    setting.input(1)->setFocus();
    setting.type(QStringLiteral("тут"));
    setting.filler.setTemplate(QStringLiteral("другой"));
    QVERIFY(!bar->isVisible());
    setting.filler.setTemplate(html);
    QVERIFY(bar->isVisible());
    QCOMPARE(setting.shown(1), QStringLiteral("тут"));
    QCOMPARE(setting.input<GrowingTextEdit>(1)->toPlainText(), QStringLiteral("тут"));
    setting.filler.valuesWritten();
    QVERIFY(!bar->isVisible());
    setting.filler.setTemplate(html);
    QCOMPARE(setting.filler.filledTemplate(false), html);
}

void TemplateFiller_test::keptValuesCanBeCleared()
{
    Setting setting(m_store);
    const QString html = QStringLiteral("a ") + parameter("text", "Цель");
    setting.filler.setTemplate(html);
    setting.filler.setFocus();
    setting.type(QStringLiteral("x"));
    setting.filler.setTemplate(QString());
    setting.filler.setTemplate(html);
    QSignalSpy changes(&setting.filler, &TemplateFiller::templateChanged);
    QTest::mouseClick(setting.filler.findChild<QToolButton*>(QStringLiteral("clearKeptButton")),
                      Qt::LeftButton);
    QCOMPARE(changes.size(), 1);
    QVERIFY(!setting.filler.findChild<QWidget*>(QStringLiteral("keptValuesBar"))->isVisible());
    QCOMPARE(setting.filler.filledTemplate(true), html);
    QCOMPARE(setting.input<GrowingTextEdit>(0)->toPlainText(), QString());
    setting.filler.setTemplate(html);
    QVERIFY(!setting.filler.isFilled());
    setting.filler.setFocus();
    setting.type(QStringLiteral("y"));
    setting.filler.forgetValues();
    setting.filler.setTemplate(html);
    QVERIFY(!setting.filler.isFilled());
}

void TemplateFiller_test::valuesSetByTheProgramAreNotKept()
{
    Setting setting(m_store);
    const QString html = QStringLiteral("a ") + parameter("text", "Цель");
    setting.filler.setTemplate(html);
    setting.filler.setParameterValue(0, QStringLiteral("x"), QString());
    setting.filler.setTemplate(html);
    QVERIFY(!setting.filler.isFilled());
    setting.filler.setFocus();
    setting.type(QStringLiteral("y"));
    setting.filler.setParameterValue(0, QStringLiteral("z"), QString());
    setting.filler.setTemplate(html);
    QVERIFY(!setting.filler.isFilled());
}

void TemplateFiller_test::recordsAreNotKept()
{
    Setting setting(m_store);
    setting.filler.setTemplate(QStringLiteral("a ") + parameter("text", "Цель"));
    setting.filler.setParameterValue(0, QStringLiteral("x"), QString());
    const QString record = setting.filler.filledTemplate(true);
    setting.filler.setTemplate(record);
    setting.filler.setFocus();
    setting.type(QStringLiteral("y"));
    QVERIFY(setting.filler.filledTemplate(true) != record);
    setting.filler.setTemplate(record);
    QCOMPARE(setting.filler.filledTemplate(true), record);
}

void TemplateFiller_test::writtenTextsAreOfferedAgain()
{
    Setting setting(m_store);
    const QString html =
        QStringLiteral("a ") + parameter("text", "Цель переключений") + parameter("text", "Другое");
    for (const char* purpose : {"ремонт линии", "ремонт ввода", "испытания"}) {
        setting.filler.setTemplate(html);
        setting.filler.setFocus();
        setting.type(QString::fromUtf8(purpose));
        setting.filler.valuesWritten();
    }
    setting.filler.setTemplate(html);
    setting.filler.setFocus();
    setting.type(QStringLiteral("рем"));
    const QStringList expected{QStringLiteral("ремонт ввода"), QStringLiteral("ремонт линии")};
    QCOMPARE(setting.suggested(), expected);
    setting.press(Qt::Key_Return); // nothing is marked: Enter leads on
    QCOMPARE(QApplication::focusWidget(), setting.input(1));
    QCOMPARE(setting.shown(0), QStringLiteral("рем"));
    setting.press(Qt::Key_Down);
    QVERIFY(setting.suggested().isEmpty()); // of this label nothing was written

    setting.press(Qt::Key_Backtab);
    setting.press(Qt::Key_A, Qt::ControlModifier);
    setting.press(Qt::Key_Delete);
    setting.press(Qt::Key_Down);
    QCOMPARE(setting.suggested().size(), 3);
    setting.press(Qt::Key_Down);
    setting.press(Qt::Key_Return);
    QCOMPARE(setting.shown(0), QStringLiteral("испытания"));

    Setting other(m_store, QStringLiteral("petrov"));
    other.filler.setTemplate(html);
    other.filler.setFocus();
    other.press(Qt::Key_Down);
    QVERIFY(other.suggested().isEmpty()); // each user has his own
}

void TemplateFiller_test::valuesMakeTheRoundTripThroughAnyTemplate()
{
    static const char* const names[] = {"text",          "datetime",     "list",
                                        "interval",      "employee_fio", "equipmentName",
                                        "shift_workers", "unknown",      "line"};
    static const QString characters = QStringLiteral("абвё АБ\n\t <>&\"'[];=%|.,№«»+/\\");
    QTextCodec* codec = QTextCodec::codecForName("Windows-1251");
    TemplateFiller filler;
    for (unsigned seed = 1; seed <= 150; ++seed) {
        QRandomGenerator random(seed);
        const auto text = [&random] {
            QString made;
            for (int n = random.bounded(1, 20); n > 0; --n)
                made += characters.at(random.bounded(characters.size()));
            return made;
        };
        QString html;
        const int count = random.bounded(0, 6);
        for (int i = 0; i < count; ++i)
            html += QString::fromStdString(HtmlParser::escaped(text().toStdString())) +
                    parameter(names[random.bounded(int(std::size(names)))],
                              qPrintable(QStringLiteral("Label %1").arg(i)));
        filler.setTemplate(html);
        QCOMPARE(filler.filledTemplate(false), html);
        QStringList values;
        for (int i = 0; i < count; ++i) {
            values << QLatin1Char('x') + text();
            filler.setParameterValue(static_cast<unsigned>(i), values.last(), QString::number(i));
        }
        QCOMPARE(filler.isFilled(), !html.isEmpty());
        const QString record = codec->toUnicode(codec->fromUnicode(filler.filledTemplate(true)));
        filler.setTemplate(record);
        QCOMPARE(filler.filledTemplate(true), record);
        const HtmlParser parser(record.toStdString());
        for (int i = 0; i < count; ++i) {
            QCOMPARE(QString::fromStdString(parser.displayText(static_cast<unsigned>(i))), values.at(i));
            QCOMPARE(parser.propertyData(static_cast<unsigned>(i)), std::to_string(i));
        }
    }
}

void TemplateFiller_test::bothThemesAndLargeFontsHoldTheWidgets()
{
    Setting setting(m_store);
    setting.filler.setTemplate(QStringLiteral("На ") + parameter("datetime", "Срок") +
                               parameter("text", "Место"));
    QPalette dark;
    dark.setColor(QPalette::Base, QColor(0x1e, 0x1f, 0x22));
    dark.setColor(QPalette::Text, QColor(0xdf, 0xe1, 0xe5));
    setting.filler.setPalette(dark);
    const QTextCharFormat format = setting.text()->document()->find(QStringLiteral("Место")).charFormat();
    QVERIFY(format.background().color().lightness() < 128); // the ground follows the theme
    QCOMPARE(format.foreground().color(), dark.color(QPalette::Text));
    QFont large = setting.filler.font();
    large.setPointSizeF(large.pointSizeF() * 1.5);
    setting.filler.setFont(large);
    setting.filler.setTemplate(setting.filler.filledTemplate(true));
    QCoreApplication::processEvents();
    auto* line = setting.input<QLineEdit>(0);
    QVERIFY(line->width() >= line->fontMetrics().horizontalAdvance(QStringLiteral("00.00.0000 00:00")));
    QVERIFY(setting.input<GrowingTextEdit>(1)->height() >= setting.input(1)->fontMetrics().lineSpacing());
}

QTEST_MAIN(TemplateFiller_test)
#include "TemplateFiller_test.moc"
