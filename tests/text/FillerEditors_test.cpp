#include "FillerEditors.h"

#include "FillerSetting.h"
#include "LatelyUsed.h"
#include "SuggestionModel.h"
#include "TEventNciParse.h"

#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QSignalSpy>
#include <QSyntaxHighlighter>
#include <QToolButton>
#include <QWindow>

namespace
{
QStringList latelyUsed(const QString& label)
{
    LatelyUsed texts;
    texts.setUser(QStringLiteral("USER_IVANOV"));
    return texts.texts(label);
}
} // namespace

/// The editors of the filler, one kind after another: their keys, suggestions and errors.
class FillerEditors_test : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();

    void shiftEnterBreaksALineOfText();
    void marksOfTheSpellingChangeNoValue();
    void aWholeTextTakesEnterAsLineBreakAndGrows();
    void aDateIsCompletedInItsLayout();
    void anUnreadableDateIsNoValueAndSaysSo();
    void theButtonSetsThePresentTime();
    void aListChoosesByLettersAndNotByTheWheel();
    void aListIsFoundByPartsAndHoldsNothingElse();
    void aValueThatTheListLacksStays();
    void theCursorIsAfterTheTakenSuggestion();
    void anIntervalReadsFromTo();
    void anIntervalGrowsWithItsLetters();
    void anIntervalNeedsBothEndsInOrder();
    void anIntervalOfAnotherFormStaysUntilItIsChanged();
    void aWorkerIsFoundByPartsOfHisName_data();
    void aWorkerIsFoundByPartsOfHisName();
    void deletedWorkersAreNotOffered();
    void tabTakesTheMarkedSuggestionAndEscapeKeepsTheTyping();
    void aNameTypedInFullGetsItsKey();
    void changingATakenTextDropsItsKey();
    void anUnknownNameIsTakenAsTyped();
    void marksAnUnknownName();
    void equipmentIsThatOfTheOwnAreaAtFirst();
    void equipmentPathsNameThePlace();
    void voltagesAreThoseOfTheEquipment();
    void departmentsAndOrganizationsAreOffered();
    void theCrewOfTheOpenShiftIsFilledIn();
    void crewNamesAreCompletedOneByOne();
    void changesOfTheReferenceDataArrive();
    void aLostStoreLeavesFreeTyping();
    void aLongListIsShownAndLeavesNoWindow();

private:
    TestStore m_store;
    QTemporaryDir m_settings;
};

void FillerEditors_test::initTestCase()
{
    QCoreApplication::setOrganizationName(QStringLiteral("filler-editors-test"));
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_settings.path());
}

void FillerEditors_test::init()
{
    QSettings().clear();
}

void FillerEditors_test::shiftEnterBreaksALineOfText()
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

void FillerEditors_test::marksOfTheSpellingChangeNoValue()
{
    struct Marks : QSyntaxHighlighter {
        using QSyntaxHighlighter::QSyntaxHighlighter;
        void highlightBlock(const QString& text) override { setFormat(0, text.size(), Qt::red); }
    };
    Setting setting(m_store);
    setting.filler.setTemplate(parameter("text", "Описание") + parameter("text", "Меры"));
    setting.filler.setFocus();
    setting.type(QStringLiteral("течь масла"));
    auto* edit = setting.input<QPlainTextEdit>(0);
    int changes = 0;
    connect(edit, &QPlainTextEdit::textChanged, this, [&changes] { ++changes; });
    setting.filler.valuesWritten();
    QSignalSpy edited(&setting.filler, &TemplateFiller::templateChanged);
    Marks marks(edit->document());
    marks.rehighlight(); // as when the dictionary was read
    QVERIFY(changes > 0);
    QCOMPARE(edited.count(), 0);
    setting.filler.setTemplate(QString());
    setting.filler.setTemplate(parameter("text", "Описание") + parameter("text", "Меры"));
    QVERIFY(setting.input<QPlainTextEdit>(0)->document()->isEmpty()); // what was written is not offered again
}

void FillerEditors_test::aWholeTextTakesEnterAsLineBreakAndGrows()
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

void FillerEditors_test::aDateIsCompletedInItsLayout()
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

void FillerEditors_test::anUnreadableDateIsNoValueAndSaysSo()
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

void FillerEditors_test::theButtonSetsThePresentTime()
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

void FillerEditors_test::aListChoosesByLettersAndNotByTheWheel()
{
    Setting setting(m_store);
    setting.filler.setTemplate(list("Операция", {"отключить", "включить", "вывести"}) +
                               parameter("text", "x"));
    setting.filler.setFocus();
    auto* line = setting.input<QLineEdit>(0);
    setting.type(QStringLiteral("в"));
    QCOMPARE(setting.suggested(), QStringList({QStringLiteral("включить"), QStringLiteral("вывести")}));
    setting.press(Qt::Key_Return);
    QCOMPARE(setting.shown(0), QStringLiteral("включить"));
    QCOMPARE(QApplication::focusWidget(), setting.input(1));
    line->setFocus(Qt::TabFocusReason);
    setting.press(Qt::Key_Down); // the whole list, starting at the value
    QCOMPARE(setting.suggested().size(), 3);
    setting.press(Qt::Key_Down);
    setting.press(Qt::Key_Tab);
    QCOMPARE(setting.shown(0), QStringLiteral("вывести"));
    QCOMPARE(QApplication::focusWidget(), setting.input(1));
    QWheelEvent wheel(QPointF(5, 5), line->mapToGlobal(QPoint(5, 5)), QPoint(), QPoint(0, 120), Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(line, &wheel);
    QCOMPARE(setting.shown(0), QStringLiteral("вывести"));
    line->setFocus(Qt::TabFocusReason);
    setting.press(Qt::Key_Delete);
    QVERIFY(setting.filler.filledTemplate(true).contains(QStringLiteral(">Операция</a>")));
}

void FillerEditors_test::aListIsFoundByPartsAndHoldsNothingElse()
{
    Setting setting(m_store);
    setting.filler.setTemplate(list("Операция", {"отключить", "включить", "вывести в ремонт"}) +
                               parameter("text", "x"));
    setting.filler.setFocus();
    setting.type(QStringLiteral("рем"));
    QCOMPARE(setting.suggested(), QStringList{QStringLiteral("вывести в ремонт")});
    QVERIFY(!setting.filler.isFilled());
    setting.press(Qt::Key_Escape);
    setting.press(Qt::Key_Return);
    QCOMPARE(setting.complaint(0), QStringLiteral("⚠ Такого значения нет в списке"));
    QVERIFY(setting.filler.filledTemplate(true).contains(QStringLiteral(">Операция</a>")));
    setting.input(0)->setFocus(Qt::TabFocusReason);
    setting.type(QStringLiteral("Включить")); // typed in full, without the list
    QCOMPARE(setting.complaint(0), QString());
    setting.press(Qt::Key_Escape);
    setting.press(Qt::Key_Return);
    QCOMPARE(setting.shown(0), QStringLiteral("включить"));
    QCOMPARE(setting.input<QLineEdit>(0)->text(), QStringLiteral("включить"));
}

void FillerEditors_test::theCursorIsAfterTheTakenSuggestion()
{
    Setting setting(m_store);
    setting.filler.setTemplate(parameter("shift_workers", "Смена") + parameter("employee_fio", "Кто"));
    setting.filler.setFocus();
    setting.type(QStringLiteral("петр"));
    setting.press(Qt::Key_Return);
    auto* crew = setting.input<QLineEdit>(0);
    QCOMPARE(QApplication::focusWidget(), crew); // another name may follow
    QCOMPARE(crew->cursorPosition(), crew->text().size());
    auto* who = setting.input<QLineEdit>(1);
    who->setFocus();
    setting.type(QStringLiteral("петр"));
    const QModelIndex first = setting.popup()->model()->index(0, 0);
    QTest::mouseClick(setting.popup()->viewport(), Qt::LeftButton, Qt::NoModifier,
                      setting.popup()->visualRect(first).center());
    QCOMPARE(setting.key(1), QStringLiteral("WORKER_PETROV"));
    QCOMPARE(who->cursorPosition(), who->text().size());
    QFocusEvent left(QEvent::FocusOut, Qt::ActiveWindowFocusReason); // to another window and back
    QApplication::sendEvent(who, &left);
    QCOMPARE(who->cursorPosition(), who->text().size());
    crew->setFocus();
    QCOMPARE(who->cursorPosition(), 0); // shows the beginning of a long name
}

void FillerEditors_test::aValueThatTheListLacksStays()
{
    Setting setting(m_store);
    setting.filler.setTemplate(list("Вид", {"один"}));
    setting.filler.setParameterValue(0, QStringLiteral("свой"), QString());
    QCOMPARE(setting.input<QLineEdit>(0)->text(), QStringLiteral("свой"));
    QVERIFY(setting.filler.isFilled());
    setting.filler.setFocus();
    setting.press(Qt::Key_Return);
    QCOMPARE(setting.complaint(0), QString());
    QCOMPARE(setting.shown(0), QStringLiteral("свой"));
    setting.filler.setTemplate(parameter("list", "Пустой список"));
    setting.filler.setFocus();
    setting.type(QStringLiteral("свободно"));
    QCOMPARE(setting.shown(0), QStringLiteral("свободно"));
    setting.filler.valuesWritten();
    QCOMPARE(latelyUsed(QStringLiteral("Пустой список")), QStringList{QStringLiteral("свободно")});
}

void FillerEditors_test::anIntervalReadsFromTo()
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

void FillerEditors_test::anIntervalGrowsWithItsLetters()
{
    Setting setting(m_store);
    setting.filler.setTemplate(parameter("interval", "Период") + parameter("text", "x"));
    QFont font = setting.filler.font();
    font.setPixelSize(QFontInfo(font).pixelSize() * 2);
    setting.filler.setFont(font);
    setting.filler.resize(10, 400);
    QCoreApplication::processEvents();
    QCoreApplication::processEvents();
    int captions = 0;
    auto* editor = setting.filler.findChild<QWidget*>(QStringLiteral("parameterEditor_0"));
    for (const auto* label : editor->findChildren<QLabel*>()) {
        if (!label->isHidden() && !label->text().isEmpty()) {
            QVERIFY2(label->width() >= label->fontMetrics().horizontalAdvance(label->text()),
                     qPrintable(label->text()));
            ++captions;
        }
    }
    QCOMPARE(captions, 2);
    for (const auto* line : editor->findChildren<QLineEdit*>())
        QVERIFY(line->width() > line->fontMetrics().horizontalAdvance(QStringLiteral("00.00.0000 00:00")));
}

void FillerEditors_test::anIntervalNeedsBothEndsInOrder()
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

void FillerEditors_test::anIntervalOfAnotherFormStaysUntilItIsChanged()
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

void FillerEditors_test::aWorkerIsFoundByPartsOfHisName_data()
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

void FillerEditors_test::aWorkerIsFoundByPartsOfHisName()
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
    QCOMPARE(setting.shown(0), shown);
    QCOMPARE(setting.key(0), QStringLiteral("WORKER_PETROV"));
    if (name.startsWith("shift_workers")) {
        QCOMPARE(QApplication::focusWidget(), setting.input(0)); // another name may follow
        setting.press(Qt::Key_Return);
    }
    QCOMPARE(QApplication::focusWidget(), setting.input(1));
    QCOMPARE(setting.shown(0), shown);
}

void FillerEditors_test::deletedWorkersAreNotOffered()
{
    Setting setting(m_store);
    setting.filler.setTemplate(parameter("employee_fio", "Кто"));
    setting.filler.setFocus();
    setting.press(Qt::Key_Down);
    QCOMPARE(setting.suggested().size(), 5);
    QVERIFY(setting.suggested().filter(QStringLiteral("Кузнецов")).isEmpty());
    // Those of the user's department and below it come before the others.
    QCOMPARE(setting.suggested().first(), QStringLiteral("Иванов Иван Иванович"));
    QVERIFY(
        setting.popup()->model()->index(4, 0).data(Qt::UserRole).toString().contains(QStringLiteral("ОДС")));
}

void FillerEditors_test::tabTakesTheMarkedSuggestionAndEscapeKeepsTheTyping()
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

void FillerEditors_test::aNameTypedInFullGetsItsKey()
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

void FillerEditors_test::changingATakenTextDropsItsKey()
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

void FillerEditors_test::anUnknownNameIsTakenAsTyped()
{
    Setting setting(m_store);
    setting.filler.setTemplate(parameter("employee_fio", "Кто"));
    setting.filler.setFocus();
    setting.type(QStringLiteral("Туманов И. К."));
    QVERIFY(!setting.popup());
    QVERIFY(setting.filler.isFilled());
    QCOMPARE(setting.shown(0), QStringLiteral("Туманов И. К."));
}

void FillerEditors_test::marksAnUnknownName()
{
    Setting setting(m_store);
    setting.filler.setTemplate(parameter("employee_fio", "Кто") + parameter("shift_workers", "Смена"));
    setting.filler.setFocus();
    const auto underline = [&setting](int index) {
        const QRect at = setting.text()->parameterRect(index);
        QTextCursor cursor = setting.text()->cursorForPosition(at.center());
        cursor.movePosition(QTextCursor::NextCharacter, QTextCursor::KeepAnchor);
        return cursor.charFormat().underlineStyle();
    };
    setting.type(QStringLiteral("Туманов И. К."));
    QCOMPARE(setting.complaint(0), QString()); // not while he is typing
    setting.press(Qt::Key_Return);
    QCOMPARE(setting.complaint(0), QStringLiteral("Нет в справочнике: будет записано, как введено"));
    QCOMPARE(setting.label(0), QStringLiteral("✎ Кто"));
    QCOMPARE(underline(0), QTextCharFormat::WaveUnderline);

    setting.type(QStringLiteral("петр"));
    setting.press(Qt::Key_Return);
    setting.type(QStringLiteral(", Туманов"));
    setting.press(Qt::Key_Tab);
    QCOMPARE(setting.complaint(1), QStringLiteral("Нет в справочнике: Туманов"));

    setting.input(0)->setFocus(Qt::TabFocusReason);
    setting.type(QStringLiteral("петр"));
    QCOMPARE(setting.complaint(0), QString());
    setting.press(Qt::Key_Return);
    QCOMPARE(setting.complaint(0), QString());
    QCOMPARE(setting.label(0), QStringLiteral("✓ Кто"));
    QVERIFY(underline(0) != QTextCharFormat::WaveUnderline);

    // A record with such a name reports it when it is opened.
    const QString record = setting.filler.filledTemplate(true);
    setting.filler.setTemplate(QString());
    setting.filler.setTemplate(record);
    QCOMPARE(setting.label(0), QStringLiteral("✓ Кто"));
    QCOMPARE(setting.label(1), QStringLiteral("✎ Смена"));
}

void FillerEditors_test::equipmentIsThatOfTheOwnAreaAtFirst()
{
    Setting setting(m_store, QStringLiteral("smirnov")); // ЗДГ: the line belongs to the parent department
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

void FillerEditors_test::equipmentPathsNameThePlace()
{
    Setting setting(m_store);
    setting.filler.setTemplate(parameter("equipmentPath", "Место"));
    setting.filler.setFocus();
    setting.type(QStringLiteral("цепь зареч"));
    setting.press(Qt::Key_Return);
    QCOMPARE(setting.shown(0), QStringLiteral("ПС 110 кВ Заречная, В 110 Полевая I цепь"));
    QCOMPARE(setting.key(0), QStringLiteral("EQ_BAY"));
}

void FillerEditors_test::voltagesAreThoseOfTheEquipment()
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
    QCOMPARE(QApplication::focusWidget(), setting.input(1));
    setting.press(Qt::Key_Down);
    QCOMPARE(setting.suggested(), QStringList{QStringLiteral("6 кВ")});
}

void FillerEditors_test::departmentsAndOrganizationsAreOffered()
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

void FillerEditors_test::theCrewOfTheOpenShiftIsFilledIn()
{
    Setting setting(m_store);
    setting.filler.setTemplate(parameter("shift_workers", "Смена") +
                               parameter("shift_workers_groups", "С группами"));
    setting.filler.setFocus();
    setting.press(Qt::Key_F5);
    QCOMPARE(setting.shown(0), QStringLiteral("Иванов И. И., Петров П. П."));
    QCOMPARE(setting.key(0), QString()); // several names have no single record
    auto* editor = setting.filler.findChild<QWidget*>(QStringLiteral("parameterEditor_1"));
    QTest::mouseClick(editor->findChild<QToolButton*>(QStringLiteral("crewButton")), Qt::LeftButton);
    QCOMPARE(setting.shown(1), QStringLiteral("Иванов И. И. гр.V, Петров П. П. гр.IV"));
}

void FillerEditors_test::crewNamesAreCompletedOneByOne()
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

void FillerEditors_test::changesOfTheReferenceDataArrive()
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

void FillerEditors_test::aLostStoreLeavesFreeTyping()
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

void FillerEditors_test::aLongListIsShownAndLeavesNoWindow()
{
    TestStore store;
    const std::unique_ptr<Store> loader = store.openLoader();
    for (int i = 0; i < 30; ++i) {
        QVERIFY(TestStore::write(loader.get(), "Workers", ROW_INSERT, "WORKER_LONG" + QByteArray::number(i),
                                 {{"lastName", QStringLiteral("Длинный%1").arg(i)},
                                  {"DepartmentKey", "DEP_CDS"},
                                  {"deleted_", 0}}));
    }
    Setting setting(store);
    setting.filler.setTemplate(parameter("employee_fio", "Кто"));
    setting.filler.setFocus();
    setting.press(Qt::Key_Down);
    QListView* list = setting.popup();
    QVERIFY(list);
    QVERIFY(list->windowHandle()->isVisible());
    QVERIFY(list->verticalScrollBar()->isVisible());
    const auto below = [&] { return setting.input(0)->mapToGlobal(QPoint(0, setting.input(0)->height())); };
    QCOMPARE(list->pos(), below());
    setting.type(QStringLiteral("длинный1")); // eleven of them: still too many for the list
    QVERIFY(setting.popup());
    setting.press(Qt::Key_PageDown);
    setting.press(Qt::Key_Return);
    QCOMPARE(setting.shown(0), QStringLiteral("Длинный19"));
    QVERIFY(!list->isVisible());
    QVERIFY(!list->windowHandle()->isVisible());

    setting.filler.setFocus();
    setting.press(Qt::Key_Down);
    QVERIFY(setting.popup());
    setting.filler.move(setting.filler.pos() + QPoint(40, 40)); // the list moves along
    QVERIFY(!setting.popup());
    QVERIFY(!list->windowHandle()->isVisible());
}

QTEST_MAIN(FillerEditors_test)
#include "FillerEditors_test.moc"
