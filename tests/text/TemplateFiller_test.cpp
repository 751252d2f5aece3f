#include "TemplateFiller.h"

#include "FillerSetting.h"
#include "GrowingTextEdit.h"
#include "KeptTexts.h"
#include "LatelyUsed.h"
#include "LogWatch.h"

#include <QLineEdit>
#include <QRandomGenerator>
#include <QSignalSpy>
#include <QTextCodec>
#include <QToolButton>

class TemplateFiller_test : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();

    void withoutATemplateNothingIsFilled();
    void aTemplateWithoutParametersIsFilled();
    void parametersAreFoundByTheirBaseName();
    void settingAValueShowsItAndSignals();
    void aLabelAsTextIsNoValue();
    void aKeyAloneFillsAParameter();
    void optionalParametersMayStayEmpty();
    void wordsAroundAValueGoWithIt();
    void theRecordKeepsPropertiesAndAllElse();
    void anUntouchedTextComesBackToTheLetter();
    void aRecordShowsItsValuesForEditing();
    void aValueThatIsTakenAwayShowsItsLabelAgain();
    void specialCharactersMakeTheRoundTrip();

    void theTextShowsWhatIsFilledAndWhatIsNot();
    void aClickOnAParameterLeadsToItsEditor();
    void tabAndEnterWalkTheEditorsInTheOrderOfTheText();
    void theKeyboardBeginsAtTheFirstGap();

    void typedValuesAreKeptUntilTheyAreWritten();
    void keptValuesCanBeCleared();
    void keptValuesOutliveTheWidget();
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

void TemplateFiller_test::aTemplateWithoutParametersIsFilled()
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

void TemplateFiller_test::wordsAroundAValueGoWithIt()
{
    const QString html =
        QStringLiteral("Готово.") +
        parameter("text", "Номер", {{"optional", ""}, {"before", " Бланк № "}, {"after", "."}}) +
        QStringLiteral(" Конец");
    Setting setting(m_store);
    TemplateFiller& filler = setting.filler;
    filler.setTemplate(html);
    QVERIFY(setting.text()->toPlainText().contains(QStringLiteral("Готово. Бланк № Номер. Конец")));
    QCOMPARE(TemplateText::plain(filler.filledTemplate(true)), QStringLiteral("Готово. Конец"));
    filler.setParameterValue(0, QStringLiteral("7"), QString());
    const QString record = filler.filledTemplate(true);
    QCOMPARE(TemplateText::plain(record), QStringLiteral("Готово. Бланк № 7. Конец"));
    QVERIFY(setting.text()->toPlainText().contains(QStringLiteral("Готово. Бланк № 7. Конец")));

    // The record is changed later: the field contains only the value, and keeps the words around it.
    filler.setTemplate(record);
    QCOMPARE(setting.input<GrowingTextEdit>(0)->toPlainText(), QStringLiteral("7"));
    QCOMPARE(filler.filledTemplate(true), record);
    filler.setParameterValue(0, QString(), QString());
    const QString emptied = filler.filledTemplate(true);
    QCOMPARE(TemplateText::plain(emptied), QStringLiteral("Готово. Конец"));
    filler.setTemplate(emptied);
    filler.setParameterValue(0, QStringLiteral("8"), QString());
    QCOMPARE(TemplateText::plain(filler.filledTemplate(true)), QStringLiteral("Готово. Бланк № 8. Конец"));
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
    QCOMPARE(setting.input<QLineEdit>(0)->text(), QStringLiteral("два"));
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

    // The other direction: the active editor is highlighted in the text and scrolled into view.
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
    setting.input(0)->setFocus();
    QVERIFY(setting.filler.focusMissing());
    QCOMPARE(QApplication::focusWidget(), setting.input(2));
    setting.filler.setParameterValue(2, QStringLiteral("y"), QString());
    setting.input(0)->setFocus();
    QVERIFY(!setting.filler.focusMissing());
    QCOMPARE(QApplication::focusWidget(), setting.input(0));
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

void TemplateFiller_test::keptValuesOutliveTheWidget()
{
    const QString place = QStringLiteral("values/x");
    const QString html = QStringLiteral("a ") + parameter("text", "Цель");
    TestClient client(m_store);
    TestModule module(client);
    const KeptTexts* texts = client.app().keptTexts();
    /// The initial content of the filler; then the text is typed.
    const auto type = [&](TemplateFiller::Keeps keeps, const QString& text) {
        TemplateFiller filler(&module);
        filler.setModule(&module);
        filler.setKept(place, QStringLiteral("закрытие смены"), keeps);
        filler.setTemplate(html);
        auto* input = filler.findChild<GrowingTextEdit*>(QStringLiteral("parameterInput_0"));
        const QString before = input->toPlainText();
        input->setPlainText(text);
        return before;
    };
    QCOMPARE(type(TemplateFiller::Everything, QStringLiteral("тут")), QString());
    QCOMPARE(texts->offered(place).size(), 1);
    QCOMPARE(texts->offered(place).first().values.value(QStringLiteral("caption")),
             QStringLiteral("закрытие смены"));
    QCOMPARE(type(TemplateFiller::OthersOnly, QStringLiteral("там")), QStringLiteral("тут"));
    QCOMPARE(type(TemplateFiller::Everything, QStringLiteral("там")), QStringLiteral("там"));
    QCOMPARE(texts->offered(place).size(), 1);
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
    setting.press(Qt::Key_Return); // nothing is marked: Enter moves on
    QCOMPARE(QApplication::focusWidget(), setting.input(1));
    QCOMPARE(setting.shown(0), QStringLiteral("рем"));
    setting.press(Qt::Key_Down);
    QVERIFY(setting.suggested().isEmpty()); // nothing was written for this label

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
    QVERIFY(other.suggested().isEmpty()); // each user has his own texts
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
    QVERIFY(format.background().color().lightness() < 128); // the background follows the theme
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
