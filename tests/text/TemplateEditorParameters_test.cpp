#include "ParametersBase.h"
#include "TemplateEditorBench.h"

#include <memory>
#include <QAbstractItemModelTester>
#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalSpy>

namespace
{
const MDRFieldDescr CategoryFields[] = {
    {"KeyLink", 32, mdr_TChar}, {"ParentKey", 32, mdr_TChar}, {"nameLoc", 100, mdr_TChar}};
const MDRFieldDescr ParameterFields[] = {{"KeyLink", 32, mdr_TChar},
                                         {"CategoryKey", 32, mdr_TChar},
                                         {"nameLoc", 100, mdr_TChar},
                                         {"html", 0, mdr_TMemo}};

/// An editor with two groups of parameters, "Люди" above "Смена", and one parameter without a group.
struct Bench : TemplateEditorBench {
    Bench()
    {
        categories.add({{"KeyLink", "PEOPLE"}, {"nameLoc", QStringLiteral("Люди")}});
        categories.add({{"KeyLink", "SHIFT"}, {"ParentKey", "PEOPLE"}, {"nameLoc", QStringLiteral("Смена")}});
        add("P1", "PEOPLE", "ФИО", parameter("employee_fio", "ФИО"));
        add("P2", "SHIFT", "Состав", parameter("shift_workers", "Состав смены"));
        add("P3", "", "Срок", parameter("datetime", "Срок", {{"format", "hh:mm"}}));
        editor.setTextCodec(QTextCodec::codecForName("Windows-1251"));
        editor.setCatsParametersTable(&categories);
        editor.setParametersTable(&parameters);
    }
    MDRData* add(const char* key, const char* category, const char* name, const QString& html)
    {
        return parameters.add({{"KeyLink", key},
                               {"CategoryKey", *category ? MadeValue(category) : MadeValue()},
                               {"nameLoc", QString::fromUtf8(name)},
                               {"html", html}});
    }
    /// The shown names from the top down, with two spaces for each level.
    QStringList shown(const QModelIndex& parent = QModelIndex(), const QString& indent = QString())
    {
        QStringList names;
        for (int row = 0; row < tree()->model()->rowCount(parent); ++row) {
            const QModelIndex index = tree()->model()->index(row, 0, parent);
            names << indent + index.data().toString();
            names += shown(index, indent + QStringLiteral("  "));
        }
        return names;
    }
    QModelIndex find(const QString& name)
    {
        return tree()
            ->model()
            ->match(tree()->model()->index(0, 0), Qt::DisplayRole, name, 1,
                    Qt::MatchExactly | Qt::MatchRecursive)
            .value(0);
    }
    QLineEdit* search() { return child<QLineEdit>("parameterSearch"); }

    MadeTable categories{"TemplateParamCategories", CategoryFields, "KeyLink"};
    MadeTable parameters{"TemplateParams", ParameterFields, "KeyLink"};
};
} // namespace

class TemplateEditorParameters_test : public QObject
{
    Q_OBJECT

private slots:
    void theTreeShowsGroupsAndWhatIsInThem();
    void onlyParametersOfTheFilterAreOffered();
    void theBaseParametersAreOffered();
    void groupsThatContainEachOtherEndNothing();
    void searchLeavesWhatMatches();
    void enterInTheSearchInsertsTheFirstMatch();
    void enterAndDoubleClickInTheTreeInsert();
    void enterOnAGroupOpensAndClosesIt();
    void anInsertedParameterReplacesTheSelection();
    void anInsertedParameterIsPartedFromItsNeighbours();
    void aParameterIsDraggedIntoTheText();
    void groupsAreNotDragged();
    void aListWithoutValuesSaysWhereToGetThem();
    void aReadOnlyEditorInsertsNothing();
    void aReloadKeepsClosedGroupsAndTheCurrentRow();
    void aChangedRowIsShownAtOnce();
    void aShortcutLeadsToTheSearch();
    void escapeAndDeleteInTheTreeAreNotForTheWindow();

    void theDialogOpensByDoubleClickEnterAndF2();
    void theDialogChangesTheLabelAndTheShownText();
    void aShownTextOfItsOwnStays();
    void theDialogChangesTheFormat();
    void theDialogChangesTheValuesOfAList();
    void theDialogChangesOptional();
    void theDialogSetsTheWordsAroundAValue();
    void theDialogKeepsAllOtherProperties();
    void aDialogWithoutChangesChangesNothing();
    void aDialogThatIsCancelledChangesNothing();
    void refusesSettingsThatCannotBeStored();
    void oneUndoTakesTheDialogBack();
    void aNewTextClosesTheDialog();
    void aChipThatMovesWhileTheDialogIsOpenIsStillChanged();
};

void TemplateEditorParameters_test::theTreeShowsGroupsAndWhatIsInThem()
{
    Bench bench;
    QAbstractItemModelTester tester(bench.tree()->model(),
                                    QAbstractItemModelTester::FailureReportingMode::QtTest);
    QCOMPARE(bench.shown(),
             QStringList({QStringLiteral("Люди"), QStringLiteral("  Смена"), QStringLiteral("    Состав"),
                          QStringLiteral("  ФИО"), QStringLiteral("Срок")}));
    QVERIFY(bench.tree()->isExpanded(bench.find(QStringLiteral("Смена"))));
    bench.search()->setText(QStringLiteral("со"));
    bench.editor.reloadParameters();
    bench.search()->clear();
}

void TemplateEditorParameters_test::onlyParametersOfTheFilterAreOffered()
{
    Bench bench;
    bench.add("P4", "SHIFT", "Пусто", QString());
    bench.add("P5", "SHIFT", "Слова", QStringLiteral("слова"));
    bench.editor.setParameterFilter({QStringLiteral("datetime"), QStringLiteral("employee_fio")});
    QCOMPARE(bench.shown(),
             QStringList({QStringLiteral("Люди"), QStringLiteral("  ФИО"), QStringLiteral("Срок")}));
    bench.editor.setParameterFilter({});
    QCOMPARE(bench.shown().size(), 5); // rows without a parameter are not offered
}

void TemplateEditorParameters_test::theBaseParametersAreOffered()
{
    Bench bench;
    bench.editor.setTextCodec(QTextCodec::codecForName("UTF-8")); // the codec of a module without a session
    ParametersBase(nullptr).createBaseParameters(&bench.categories, &bench.parameters, true);
    bench.editor.reloadParameters();
    QVERIFY(bench.find(QStringLiteral("Подстанция")).parent().data().toString() ==
            QStringLiteral("Оборудование"));
    QVERIFY(bench.find(QStringLiteral("Дата и время")).isValid());
}

void TemplateEditorParameters_test::groupsThatContainEachOtherEndNothing()
{
    Bench bench;
    bench.categories.add({{"KeyLink", "A"}, {"ParentKey", "B"}, {"nameLoc", QStringLiteral("А")}});
    bench.categories.add({{"KeyLink", "B"}, {"ParentKey", "A"}, {"nameLoc", QStringLiteral("Б")}});
    bench.categories.add({{"KeyLink", "C"}, {"ParentKey", "GONE"}, {"nameLoc", QStringLiteral("В")}});
    bench.add("P4", "A", "В круге", Bench::parameter("text", "x"));
    bench.add("P5", "C", "Без родителя", Bench::parameter("text", "x"));
    bench.editor.reloadParameters();
    QVERIFY(bench.find(QStringLiteral("В круге")).isValid());
    QVERIFY(bench.find(QStringLiteral("Без родителя")).isValid());
}

void TemplateEditorParameters_test::searchLeavesWhatMatches()
{
    Bench bench;
    typeText(bench.search(), QStringLiteral("СМЕНА сост"));
    QCOMPARE(bench.shown(),
             QStringList({QStringLiteral("Люди"), QStringLiteral("  Смена"), QStringLiteral("    Состав")}));
    QVERIFY(bench.tree()->isExpanded(bench.find(QStringLiteral("Смена"))));
    bench.search()->clear();
    QCOMPARE(bench.shown().size(), 5);
    typeText(bench.search(), QStringLiteral("нет такого"));
    QCOMPARE(bench.shown(), QStringList());
    QTest::keyClick(bench.search(), Qt::Key_Return);
    QCOMPARE(bench.now(), QString());
}

void TemplateEditorParameters_test::enterInTheSearchInsertsTheFirstMatch()
{
    Bench bench;
    bench.type(QStringLiteral("до "));
    typeText(bench.search(), QStringLiteral("срок"));
    QTest::keyClick(bench.search(), Qt::Key_Return);
    QCOMPARE(bench.now(),
             QStringLiteral("до ") + Bench::parameter("datetime", "Срок", {{"format", "hh:mm"}}));
    QVERIFY(bench.text()->hasFocus()); // the author can continue typing
    bench.type(QStringLiteral("!"));
    QVERIFY(bench.now().endsWith(QLatin1String("</a>!")));
}

void TemplateEditorParameters_test::enterAndDoubleClickInTheTreeInsert()
{
    Bench bench;
    bench.search()->setFocus();
    QTest::keyClick(bench.search(), Qt::Key_Down);
    QVERIFY(bench.tree()->hasFocus());
    bench.tree()->setCurrentIndex(bench.find(QStringLiteral("ФИО")));
    QTest::keyClick(bench.tree(), Qt::Key_Enter, Qt::KeypadModifier);
    QCOMPARE(bench.now(), Bench::parameter("employee_fio", "ФИО"));
    const QPoint place = bench.tree()->visualRect(bench.find(QStringLiteral("Состав"))).center();
    QTest::mouseClick(bench.tree()->viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(bench.tree()->viewport(), Qt::LeftButton, {}, place);
    QCOMPARE(bench.now(), Bench::parameter("employee_fio", "ФИО") + QStringLiteral(" ") +
                              Bench::parameter("shift_workers", "Состав смены"));
    QCOMPARE(bench.changes.count(), 2);
    bench.press(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(bench.now(), Bench::parameter("employee_fio", "ФИО")); // one step
}

void TemplateEditorParameters_test::enterOnAGroupOpensAndClosesIt()
{
    Bench bench;
    bench.tree()->setCurrentIndex(bench.find(QStringLiteral("Смена")));
    QTest::keyClick(bench.tree(), Qt::Key_Return);
    QVERIFY(!bench.tree()->isExpanded(bench.find(QStringLiteral("Смена"))));
    QTest::keyClick(bench.tree(), Qt::Key_Return);
    QVERIFY(bench.tree()->isExpanded(bench.find(QStringLiteral("Смена"))));
    QCOMPARE(bench.changes.count(), 0);
}

void TemplateEditorParameters_test::anInsertedParameterReplacesTheSelection()
{
    Bench bench;
    bench.editor.setTemplateText(QStringLiteral("<b>до срока</b>"));
    bench.press(Qt::Key_Right, Qt::NoModifier, 3);
    bench.press(Qt::Key_End, Qt::ShiftModifier);
    typeText(bench.search(), QStringLiteral("фио"));
    QTest::keyClick(bench.search(), Qt::Key_Return);
    QCOMPARE(bench.now(),
             QStringLiteral("<b>до ") + Bench::parameter("employee_fio", "ФИО") + QStringLiteral("</b>"));
}

void TemplateEditorParameters_test::anInsertedParameterIsPartedFromItsNeighbours()
{
    const QString chip = Bench::parameter("text", "x");
    const QString name = Bench::parameter("employee_fio", "ФИО");
    Bench bench;
    bench.editor.setTemplateText(chip + chip);
    bench.press(Qt::Key_Right);
    typeText(bench.search(), QStringLiteral("фио"));
    QTest::keyClick(bench.search(), Qt::Key_Return);
    QCOMPARE(bench.now(), chip + QStringLiteral(" ") + name + QStringLiteral(" ") + chip);
    bench.type(QStringLiteral(",")); // typing continues right after the new one
    QCOMPARE(bench.now(), chip + QStringLiteral(" ") + name + QStringLiteral("&#44; ") + chip);
}

void TemplateEditorParameters_test::aParameterIsDraggedIntoTheText()
{
    const QString chip = Bench::parameter("text", "x");
    const QString name = Bench::parameter("employee_fio", "ФИО");
    Bench bench;
    bench.add("P4", "", "Список", Bench::list("Список", {}));
    bench.editor.reloadParameters();
    bench.editor.setTemplateText(QStringLiteral("ab") + chip);
    const auto drop = [&bench](const QString& what, int position) {
        QAbstractItemModel* model = bench.tree()->model();
        QCOMPARE(model->supportedDragActions(), Qt::CopyAction); // a move would remove the row from the tree
        const std::unique_ptr<QMimeData> mime(model->mimeData({bench.find(what)}));
        QTextCursor cursor(bench.text()->document());
        cursor.setPosition(position);
        const QPoint target = bench.text()->cursorRect(cursor).center();
        QDragEnterEvent enter(target, Qt::CopyAction, mime.get(), Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(bench.text()->viewport(), &enter);
        QVERIFY(enter.isAccepted());
        QDropEvent event(target, Qt::CopyAction, mime.get(), Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(bench.text()->viewport(), &event);
        QVERIFY(event.isAccepted());
    };
    QVERIFY(bench.tree()->dragEnabled());
    QVERIFY(bench.find(QStringLiteral("ФИО")).flags() & Qt::ItemIsDragEnabled);
    drop(QStringLiteral("ФИО"), 1);
    QCOMPARE(bench.now(), QStringLiteral("a") + name + QStringLiteral("b") + chip);
    drop(QStringLiteral("ФИО"), 4); // after the other chip: separated from it
    QCOMPARE(bench.now(), QStringLiteral("a") + name + QStringLiteral("b") + chip + QLatin1Char(' ') + name);
    bench.press(Qt::Key_Z, Qt::ControlModifier); // one step each
    QCOMPARE(bench.now(), QStringLiteral("a") + name + QStringLiteral("b") + chip);
    drop(QStringLiteral("Список"), 0);
    QTRY_COMPARE(bench.notice(), QStringLiteral("Список пока пуст: значения задаются в окне параметра (F2)"));
}

void TemplateEditorParameters_test::groupsAreNotDragged()
{
    Bench bench;
    QVERIFY(!(bench.find(QStringLiteral("Люди")).flags() & Qt::ItemIsDragEnabled));
    bench.editor.setEnabled(false);
    QVERIFY(!bench.tree()->dragEnabled());
}

void TemplateEditorParameters_test::aListWithoutValuesSaysWhereToGetThem()
{
    Bench bench;
    bench.add("P4", "", "Список", Bench::list("Список", {}));
    bench.editor.reloadParameters();
    typeText(bench.search(), QStringLiteral("список"));
    QTest::keyClick(bench.search(), Qt::Key_Return);
    QTRY_COMPARE(bench.notice(), QStringLiteral("Список пока пуст: значения задаются в окне параметра (F2)"));
}

void TemplateEditorParameters_test::aReadOnlyEditorInsertsNothing()
{
    Bench bench;
    bench.editor.setEnabled(false);
    typeText(bench.search(), QStringLiteral("фио"));
    QTest::keyClick(bench.search(), Qt::Key_Return);
    QCOMPARE(bench.now(), QString());
    bench.editor.setEnabled(true);
    QTest::keyClick(bench.search(), Qt::Key_Return);
    QCOMPARE(bench.now(), Bench::parameter("employee_fio", "ФИО"));
}

void TemplateEditorParameters_test::aReloadKeepsClosedGroupsAndTheCurrentRow()
{
    Bench bench;
    bench.tree()->collapse(bench.find(QStringLiteral("Смена")));
    bench.tree()->setCurrentIndex(bench.find(QStringLiteral("ФИО")));
    bench.add("P4", "SHIFT", "Старший", Bench::parameter("text", "Старший"));
    bench.editor.reloadParameters();
    QVERIFY(bench.find(QStringLiteral("Старший")).isValid());
    QVERIFY(!bench.tree()->isExpanded(bench.find(QStringLiteral("Смена"))));
    QVERIFY(bench.tree()->isExpanded(bench.find(QStringLiteral("Люди"))));
    QCOMPARE(bench.tree()->currentIndex(), bench.find(QStringLiteral("ФИО")));
    // a search expands its results, and restores the state
    typeText(bench.search(), QStringLiteral("старший"));
    QVERIFY(bench.tree()->isExpanded(bench.find(QStringLiteral("Смена"))));
    bench.search()->clear();
    QVERIFY(!bench.tree()->isExpanded(bench.find(QStringLiteral("Смена"))));
}

void TemplateEditorParameters_test::aChangedRowIsShownAtOnce()
{
    Bench bench;
    MDRData* row = bench.add("P4", "SHIFT", "Старший", Bench::parameter("text", "Старший"));
    bench.editor.updateParameters(row); // not known yet
    QCOMPARE(bench.find(QStringLiteral("Старший")).parent(), bench.find(QStringLiteral("Смена")));
    bench.parameters.set(row, "html", Bench::parameter("text", "Главный"));
    bench.editor.updateParameters(row);
    typeText(bench.search(), QStringLiteral("старший"));
    QTest::keyClick(bench.search(), Qt::Key_Return);
    QCOMPARE(bench.now(), Bench::parameter("text", "Главный"));
    bench.search()->clear();
    bench.parameters.set(row, "nameLoc", QStringLiteral("Главный"));
    bench.parameters.set(row, "CategoryKey", "PEOPLE");
    bench.editor.updateParameters(row);
    QCOMPARE(bench.find(QStringLiteral("Главный")).parent(), bench.find(QStringLiteral("Люди")));
    QVERIFY(!bench.find(QStringLiteral("Старший")).isValid());
    MDRData* group = MDARec(bench.categories.data.array, 0, 0);
    bench.categories.set(group, "nameLoc", QStringLiteral("Персонал"));
    bench.editor.updateParameters(group);
    QVERIFY(bench.find(QStringLiteral("Персонал")).isValid());
    bench.editor.updateParameters(nullptr);
}

void TemplateEditorParameters_test::aShortcutLeadsToTheSearch()
{
    Bench bench;
    bench.press(Qt::Key_P, Qt::ControlModifier | Qt::ShiftModifier);
    QVERIFY(bench.search()->hasFocus());
}

void TemplateEditorParameters_test::escapeAndDeleteInTheTreeAreNotForTheWindow()
{
    Bench bench;
    QAction drop;
    drop.setShortcuts({Qt::Key_Escape, Qt::Key_Delete});
    bench.editor.addAction(&drop);
    QSignalSpy dropped(&drop, &QAction::triggered);
    bench.search()->setFocus();
    typeText(bench.search(), QStringLiteral("фио"));
    QTest::keyClick(bench.search(), Qt::Key_Escape);
    QCOMPARE(bench.search()->text(), QString());
    QVERIFY(bench.text()->hasFocus());
    bench.tree()->setFocus();
    QTest::keyClick(bench.tree(), Qt::Key_Delete);
    QTest::keyClick(bench.tree(), Qt::Key_Escape);
    QVERIFY(bench.text()->hasFocus());
    QCOMPARE(dropped.count(), 0);
    bench.press(Qt::Key_Escape); // in the text the key belongs to the window
    QCOMPARE(dropped.count(), 1);
}

void TemplateEditorParameters_test::theDialogOpensByDoubleClickEnterAndF2()
{
    Bench bench;
    bench.editor.setTemplateText(QStringLiteral("a ") + Bench::parameter("text", "Кто"));
    QTest::mouseDClick(bench.text()->viewport(), Qt::LeftButton, {}, bench.middleOf(2));
    QVERIFY(bench.dialog() && bench.dialog()->isVisible());
    bench.pressInDialog(Qt::Key_Escape);
    QTRY_VERIFY(!bench.dialog());
    bench.press(Qt::Key_Home);
    bench.press(Qt::Key_Right, Qt::NoModifier, 2);
    bench.press(Qt::Key_Right, Qt::ShiftModifier);
    bench.press(Qt::Key_Return);
    QVERIFY(bench.dialog());
    bench.pressInDialog(Qt::Key_Escape);
    QTRY_VERIFY(!bench.dialog());
    bench.press(Qt::Key_End); // beside the chip, nothing selected
    bench.press(Qt::Key_F2);
    QVERIFY(bench.dialog());
    bench.pressInDialog(Qt::Key_Escape);
    QTRY_VERIFY(!bench.dialog());
    bench.press(Qt::Key_Home);
    bench.press(Qt::Key_F2); // no chip here
    QVERIFY(!bench.dialog());
    bench.press(Qt::Key_Return); // and Enter breaks the line
    QVERIFY(bench.now().startsWith(QLatin1String("<br/>a ")));
}

void TemplateEditorParameters_test::theDialogChangesTheLabelAndTheShownText()
{
    Bench bench;
    bench.editor.setTemplateText(Bench::parameter("text", "Кто"));
    bench.press(Qt::Key_F2);
    typeText(bench.dialog()->focusWidget(), QStringLiteral("Кому; 100%"));
    bench.pressInDialog(Qt::Key_Return);
    QCOMPARE(bench.now(), Bench::parameter("text", "Кому; 100%"));
    QCOMPARE(bench.changes.count(), 1);
    QTRY_VERIFY(bench.text()->hasFocus());
}

void TemplateEditorParameters_test::aShownTextOfItsOwnStays()
{
    Bench bench;
    bench.editor.setTemplateText(QStringLiteral("<a href=\"parameter:name=text;locname=Кто\">Иванов</a>"));
    bench.press(Qt::Key_F2);
    QCOMPARE(bench.dialog()->findChild<QLineEdit*>(QStringLiteral("parameterLabel"))->text(),
             QStringLiteral("Кто"));
    typeText(bench.dialog()->focusWidget(), QStringLiteral("Кому"));
    bench.pressInDialog(Qt::Key_Return);
    QCOMPARE(bench.now(), QStringLiteral("<a href=\"parameter:name=text;locname=Кому\">Иванов</a>"));
}

void TemplateEditorParameters_test::theDialogChangesTheFormat()
{
    Bench bench;
    bench.editor.setTemplateText(Bench::parameter("datetime", "Срок", {{"format", "hh:mm"}, {"idx", "1"}}));
    bench.press(Qt::Key_F2);
    auto* format = bench.dialog()->findChild<QComboBox*>(QStringLiteral("parameterFormat"));
    QCOMPARE(format->currentText(), QStringLiteral("hh:mm"));
    format->lineEdit()->selectAll();
    typeText(format->lineEdit(), QStringLiteral("yyyy"));
    QCOMPARE(bench.dialog()->findChild<QLabel*>(QStringLiteral("parameterSample"))->text(),
             QString::number(QDate::currentDate().year()));
    QTest::mouseClick(bench.dialog()->findChild<QPushButton*>(QStringLiteral("parameterApply")),
                      Qt::LeftButton);
    QCOMPARE(bench.now(), Bench::parameter("datetime", "Срок", {{"format", "yyyy"}, {"idx", "1"}}));
    QTRY_VERIFY(!bench.dialog());
    bench.press(Qt::Key_F2);
    bench.dialog()->findChild<QComboBox*>(QStringLiteral("parameterFormat"))->lineEdit()->clear();
    bench.pressInDialog(Qt::Key_Return);
    QCOMPARE(bench.now(), Bench::parameter("datetime", "Срок", {{"idx", "1"}})); // that of the journal
}

void TemplateEditorParameters_test::theDialogChangesTheValuesOfAList()
{
    Bench bench;
    bench.editor.setTemplateText(Bench::list("Да", {"да", "н|е;т"}));
    bench.press(Qt::Key_F2);
    auto* values = bench.dialog()->findChild<QPlainTextEdit*>(QStringLiteral("parameterValues"));
    QCOMPARE(values->toPlainText(), QStringLiteral("да\nн|е;т"));
    values->setFocus();
    QTest::keyClick(values, Qt::Key_End, Qt::ControlModifier);
    QTest::keyClick(values, Qt::Key_Return);
    QTest::keyClick(values, Qt::Key_Return);
    typeText(values, QStringLiteral(" быть может "));
    QTest::mouseClick(bench.dialog()->findChild<QPushButton*>(QStringLiteral("parameterApply")),
                      Qt::LeftButton);
    QCOMPARE(bench.now(), Bench::list("Да", {"да", "н|е;т", "быть может"}));
}

void TemplateEditorParameters_test::theDialogChangesOptional()
{
    Bench bench;
    bench.editor.setTemplateText(Bench::parameter("text", "Кто"));
    for (const bool optional : {true, false}) {
        bench.press(Qt::Key_F2);
        auto* box = bench.dialog()->findChild<QCheckBox*>(QStringLiteral("parameterOptional"));
        QCOMPARE(box->isChecked(), !optional);
        QTest::keyClick(box, Qt::Key_Space);
        bench.pressInDialog(Qt::Key_Return);
        QCOMPARE(HtmlParser(bench.now().toStdString()).isExistProperty(0, "optional"), optional);
        QTRY_VERIFY(!bench.dialog());
    }
    QCOMPARE(bench.now(), Bench::parameter("text", "Кто"));
}

void TemplateEditorParameters_test::theDialogSetsTheWordsAroundAValue()
{
    Bench bench;
    bench.editor.setTemplateText(Bench::parameter("text", "Номер"));
    bench.press(Qt::Key_F2);
    typeText(bench.dialog()->findChild<QLineEdit*>(QStringLiteral("parameterBefore")),
             QStringLiteral(" Бланк № "));
    typeText(bench.dialog()->findChild<QLineEdit*>(QStringLiteral("parameterAfter")), QStringLiteral("<"));
    bench.pressInDialog(Qt::Key_Return);
    QVERIFY(bench.dialog()); // such a sign cannot be stored
    auto* after = bench.dialog()->findChild<QLineEdit*>(QStringLiteral("parameterAfter"));
    after->clear();
    typeText(after, QStringLiteral("."));
    bench.pressInDialog(Qt::Key_Return);
    const QString worded = Bench::parameter("text", "Номер", {{"before", " Бланк № "}, {"after", "."}});
    QCOMPARE(bench.now(), worded);
    QTRY_VERIFY(!bench.dialog());
    bench.press(Qt::Key_F2);
    bench.dialog()->findChild<QLineEdit*>(QStringLiteral("parameterBefore"))->clear();
    bench.dialog()->findChild<QLineEdit*>(QStringLiteral("parameterAfter"))->clear();
    bench.pressInDialog(Qt::Key_Return);
    QCOMPARE(bench.now(), Bench::parameter("text", "Номер"));
}

void TemplateEditorParameters_test::theDialogKeepsAllOtherProperties()
{
    const std::vector<HtmlParser::Property> more = {
        {"own", "a;b=<\">"}, {"param_key", "k"}, {"data", "D"}, {"optional", "yes"}};
    Bench bench;
    bench.editor.setTemplateText(QStringLiteral("<b>") + Bench::parameter("line", "ВЛ", more) +
                                 QStringLiteral("</b>"));
    bench.press(Qt::Key_F2);
    typeText(bench.dialog()->focusWidget(), QStringLiteral("Линия"));
    bench.pressInDialog(Qt::Key_Return);
    QCOMPARE(bench.now(),
             QStringLiteral("<b>") + Bench::parameter("line", "Линия", more) + QStringLiteral("</b>"));
}

void TemplateEditorParameters_test::aDialogWithoutChangesChangesNothing()
{
    const QString html = QStringLiteral("<a HREF='parameter:name=text;locname=x'>x</A>");
    Bench bench;
    bench.editor.setTemplateText(html);
    bench.press(Qt::Key_F2);
    bench.pressInDialog(Qt::Key_Return);
    QTRY_VERIFY(!bench.dialog());
    QCOMPARE(bench.now(), html);
    QCOMPARE(bench.changes.count(), 0);
}

void TemplateEditorParameters_test::aDialogThatIsCancelledChangesNothing()
{
    Bench bench;
    bench.editor.setTemplateText(Bench::parameter("text", "Кто"));
    bench.press(Qt::Key_F2);
    typeText(bench.dialog()->focusWidget(), QStringLiteral("Кому"));
    QTest::mouseClick(bench.dialog()->findChild<QPushButton*>(QStringLiteral("parameterCancel")),
                      Qt::LeftButton);
    QTRY_VERIFY(!bench.dialog());
    QCOMPARE(bench.now(), Bench::parameter("text", "Кто"));
    QCOMPARE(bench.changes.count(), 0);
}

void TemplateEditorParameters_test::refusesSettingsThatCannotBeStored()
{
    Bench bench;
    bench.editor.setTemplateText(Bench::list("Да", {"да"}));
    bench.press(Qt::Key_F2);
    auto* notice = bench.dialog()->findChild<QLabel*>(QStringLiteral("parameterNotice"));
    auto* label = bench.dialog()->findChild<QLineEdit*>(QStringLiteral("parameterLabel"));
    auto* values = bench.dialog()->findChild<QPlainTextEdit*>(QStringLiteral("parameterValues"));
    auto* apply = bench.dialog()->findChild<QPushButton*>(QStringLiteral("parameterApply"));
    const auto refusal = [&] {
        QTest::mouseClick(apply, Qt::LeftButton);
        return notice->isVisible() ? notice->text() : QString();
    };
    label->setText(QStringLiteral("  "));
    QCOMPARE(refusal(), QStringLiteral("Название не может быть пустым"));
    label->setText(QStringLiteral("a<b"));
    QCOMPARE(refusal(), QStringLiteral("Символы < > \" в параметре не хранятся"));
    label->setText(QStringLiteral("Да"));
    values->setPlainText(QStringLiteral("да\n\"нет\""));
    QCOMPARE(refusal(), QStringLiteral("Символы < > \" в параметре не хранятся"));
    values->setPlainText(QStringLiteral(" \n"));
    QCOMPARE(refusal(), QStringLiteral("Список не может быть пустым"));
    QCOMPARE(bench.changes.count(), 0);
    values->setPlainText(QStringLiteral("нет"));
    QCOMPARE(refusal(), QString());
    QCOMPARE(bench.now(), Bench::list("Да", {"нет"}));
}

void TemplateEditorParameters_test::oneUndoTakesTheDialogBack()
{
    const QString html = QStringLiteral("<a HREF='parameter:name=text;locname=x'>x</A>");
    Bench bench;
    bench.editor.setTemplateText(html);
    bench.press(Qt::Key_F2);
    typeText(bench.dialog()->focusWidget(), QStringLiteral("Кому"));
    QTest::keyClick(bench.dialog()->findChild<QCheckBox*>(QStringLiteral("parameterOptional")),
                    Qt::Key_Space);
    bench.pressInDialog(Qt::Key_Return);
    QCOMPARE(bench.now(), Bench::parameter("text", "Кому", {{"optional", "1"}}));
    bench.press(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(bench.now(), html);
}

void TemplateEditorParameters_test::aNewTextClosesTheDialog()
{
    Bench bench;
    bench.editor.setTemplateText(Bench::parameter("text", "Кто"));
    bench.press(Qt::Key_F2);
    QVERIFY(bench.dialog());
    bench.editor.setTemplateText(Bench::parameter("text", "Другой"));
    QTRY_VERIFY(!bench.dialog());
    QCOMPARE(bench.now(), Bench::parameter("text", "Другой"));
}

void TemplateEditorParameters_test::aChipThatMovesWhileTheDialogIsOpenIsStillChanged()
{
    Bench bench;
    bench.editor.setTemplateText(QStringLiteral("a") + Bench::parameter("text", "Кто"));
    bench.press(Qt::Key_End);
    bench.press(Qt::Key_F2);
    QTextCursor(bench.text()->document()).insertText(QStringLiteral("xx"));
    typeText(bench.dialog()->focusWidget(), QStringLiteral("Кому"));
    bench.pressInDialog(Qt::Key_Return);
    QCOMPARE(bench.now(), QStringLiteral("xxa") + Bench::parameter("text", "Кому"));
}

QTEST_MAIN(TemplateEditorParameters_test)
#include "TemplateEditorParameters_test.moc"
