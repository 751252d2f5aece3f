#include "CModelTable.h"
#include "LogbookFields.h"
#include "MDRValues.h"
#include "TemplatesModel.h"
#include "TemplatesWidget.h"
#include "Typing.h"

#include <ctime>
#include <QAbstractItemModelTester>
#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QScrollBar>
#include <QSettings>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTextCodec>
#include <QTreeView>

namespace
{
const MDRFieldDescr NamedFields[] = {{"KeyLink", 32, mdr_TChar}, {"name_", 100, mdr_TChar}};

/// The tables of a tree, to be filled row by row.
class Tables
{
public:
    Tables()
        : categories("LogbookCatsTemplate"),
          templates("LogbookTemplates"),
          departments("Departments"),
          types("OrgTypes")
    {
        MDAFldAdd(categories.data.array, fieldCount(LogbookCatsTemplateFields), LogbookCatsTemplateFields);
        MDAFldAdd(templates.data.array, fieldCount(LogbookTemplatesFields), LogbookTemplatesFields);
        MDAFldAdd(departments.data.array, 2, NamedFields);
        MDAFldAdd(types.data.array, 2, NamedFields);
        for (CModelTable* table : {&categories, &templates, &departments, &types})
            table->data.KeyAdd("", 0);
        add(departments, {{"KeyLink", QStringLiteral("DEP")}, {"name_", QStringLiteral("ЦДС")}});
        add(types, {{"KeyLink", QStringLiteral("TYPE")}, {"name_", QStringLiteral("Диспетчерский центр")}});
    }

    using Fields = std::initializer_list<std::pair<const char*, QString>>;
    MDRData* add(CModelTable& table, Fields fields)
    {
        MDRData* record = MDARecNew(table.data.array);
        for (const auto& [name, text] : fields)
            set(table, record, name, text);
        return table.data.RecPost(record);
    }
    void set(CModelTable& table, MDRData* record, const char* name, const QString& text)
    {
        const QByteArray bytes = codec->fromUnicode(text);
        const MDRVar value = MDRValue::text(bytes, mdr_TMemo);
        MDRSetVal(MDRFldByName(table.data.array, name), record, &value);
    }
    void category(const char* key, const char* name, const char* levelField = nullptr,
                  const char* level = nullptr)
    {
        MDRData* record =
            add(categories, {{"KeyLink", QLatin1String(key)}, {"nameLoc", QString::fromUtf8(name)}});
        if (levelField)
            set(categories, record, levelField, QLatin1String(level));
    }
    MDRData* templateRow(const char* key, const char* category, const char* name,
                         const QString& html = QStringLiteral("text"))
    {
        return add(templates, {{"KeyLink", QLatin1String(key)},
                               {"CategoryKey", QLatin1String(category)},
                               {"nameLoc", QString::fromUtf8(name)},
                               {"html", html}});
    }

    QTextCodec* codec = QTextCodec::codecForName("Windows-1251");
    CModelTable categories;
    CModelTable templates;
    CModelTable departments;
    CModelTable types;
};

/// A widget over a small tree of all three levels.
class Tree : public Tables
{
public:
    Tree()
    {
        category("COMMON", "Переключения");
        category("SUB", "Бланки", "ParentKey", "COMMON");
        category("OFTYPE", "Режим", "OrgTypeKey", "TYPE");
        category("OFDEP", "Районные", "DepartmentKey", "DEP");
        category("OTHERDEP", "Чужие", "DepartmentKey", "DEP2");
        category("OTHERTYPE", "Чужой тип", "OrgTypeKey", "TYPE2");
        category("VOID", "Пустая");
        templateRow("T_ORDER", "COMMON", "Команда на производство переключений");
        templateRow("T_LINE", "COMMON", "Включение линии");
        templateRow("T_SHEET", "SUB", "Бланк переключений");
        templateRow("T_FLOW", "OFTYPE", "Изменение перетока");
        templateRow("T_FLOOD", "OFDEP", "Паводок: приём сообщения");
        templateRow("T_ALIEN", "OTHERDEP", "Чужой шаблон");
        templateRow("T_ALIEN2", "OTHERTYPE", "Чужого типа");

        widget.setTextCodec(codec);
        widget.setCatsTemplateTable(&categories);
        widget.setTemplatesTable(&templates);
        widget.setDepartmentsTable(&departments);
        widget.setOrgTypesTable(&types);
        widget.setRootDepKeyLink(QStringLiteral("DEP"));
        widget.setRootOrgKeyLink(QStringLiteral("TYPE"));
        widget.resize(360, 480);
    }
    void show()
    {
        widget.show();
        QVERIFY(QTest::qWaitForWindowExposed(&widget));
        widget.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&widget));
    }

    QTreeView* view() { return widget.findChild<QTreeView*>(QStringLiteral("templatesTree")); }
    QLineEdit* search() { return widget.findChild<QLineEdit*>(QStringLiteral("searchEdit")); }
    QLabel* emptyLabel() { return widget.findChild<QLabel*>(QStringLiteral("emptyLabel")); }
    QString current() { return view()->currentIndex().data().toString(); }

    /// All shown rows, indented by one dot a level.
    QStringList rows(const QModelIndex& parent = QModelIndex(), int depth = 0)
    {
        QStringList result;
        const QAbstractItemModel* model = view()->model();
        for (int row = 0; row < model->rowCount(parent); ++row) {
            const QModelIndex index = model->index(row, 0, parent);
            result << QString(depth, u'.') + index.data().toString() << rows(index, depth + 1);
        }
        return result;
    }
    QModelIndex find(const QString& name)
    {
        const QAbstractItemModel* model = view()->model();
        const QModelIndexList found =
            model->match(model->index(0, 0), Qt::DisplayRole, name, 1, Qt::MatchExactly | Qt::MatchRecursive);
        return found.value(0);
    }
    void click(const QString& name)
    {
        const QModelIndex index = find(name);
        QVERIFY(index.isValid());
        view()->scrollTo(index);
        QTest::mouseClick(view()->viewport(), Qt::LeftButton, Qt::NoModifier,
                          view()->visualRect(index).center());
    }

    TemplatesWidget widget;
};

QStringList lines(const char* text)
{
    return QString::fromUtf8(text).split(u'|');
}
} // namespace

class TemplatesWidget_test : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QCoreApplication::setOrganizationName(QStringLiteral("test"));
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_settings.path());
    }
    void init() { QSettings().clear(); }

    void levels_stand_in_order_with_captions_and_categories_before_templates()
    {
        Tree tree;
        tree.show();
        QCOMPARE(tree.rows(), lines("Подразделение: ЦДС|.Районные|..Паводок: приём сообщения|"
                                    "Тип организации: Диспетчерский центр|.Режим|..Изменение перетока|"
                                    "Общие шаблоны|.Переключения|..Бланки|...Бланк переключений|"
                                    "..Включение линии|..Команда на производство переключений|.Пустая"));
    }

    void a_level_without_a_known_name_has_a_plain_caption()
    {
        Tree tree;
        tree.widget.setDepartmentsTable(nullptr);
        MDAClearRec(tree.types.data.array);
        tree.show();
        QVERIFY(tree.rows().contains(QStringLiteral("Шаблоны подразделения")));
        QVERIFY(tree.rows().contains(QStringLiteral("Шаблоны типа организации")));
    }

    void without_keys_of_department_and_type_only_common_templates_are_open()
    {
        Tree tree;
        tree.widget.setRootDepKeyLink(QString());
        tree.widget.setRootOrgKeyLink(QString());
        tree.show();
        QCOMPARE(tree.rows().first(), QStringLiteral("Общие шаблоны"));
    }

    void a_category_of_another_department_below_an_open_one_is_not_open()
    {
        Tree tree;
        tree.category("STRAY", "Заблудшая", "ParentKey", "COMMON");
        MDRData* stray = MDARec(tree.categories.data.array, 0, tree.categories.data.RecCount() - 1);
        tree.set(tree.categories, stray, "DepartmentKey", QStringLiteral("DEP2"));
        tree.show();
        QVERIFY(!tree.find(QStringLiteral("Заблудшая")).isValid());
    }

    void a_ring_of_categories_is_walked_once()
    {
        Tree tree;
        // Both rows are top categories of the department and each other's parents.
        tree.category("RING1", "Кольцо 1", "ParentKey", "RING2");
        tree.category("RING2", "Кольцо 2", "ParentKey", "RING1");
        for (int back : {1, 2})
            tree.set(tree.categories,
                     MDARec(tree.categories.data.array, 0, tree.categories.data.RecCount() - back),
                     "DepartmentKey", QStringLiteral("DEP"));
        tree.category("SELF", "Сама в себе", "ParentKey", "SELF");
        tree.show();
        QCOMPARE(tree.rows().filter(QStringLiteral("Кольцо")).size(), 2);
        QVERIFY(!tree.find(QStringLiteral("Сама в себе")).isValid());
    }

    void a_restriction_to_properties_shows_only_templates_that_carry_all_of_them()
    {
        Tree tree;
        const QString opening =
            QStringLiteral("<meta name=\"template\" content=\"open_wshift\">Смену принял");
        tree.templateRow("T_OPEN", "COMMON", "Приём смены", opening);
        tree.widget.setTemplateProps({QStringLiteral("open_wshift")}, true);
        tree.show();
        QCOMPARE(tree.rows(), lines("Общие шаблоны|.Переключения|..Приём смены"));
        tree.widget.setTemplateProps({QStringLiteral("open_wshift"), QStringLiteral("close_wshift")}, true);
        QTRY_COMPARE(tree.rows(), QStringList());
        QVERIFY(tree.emptyLabel()->isVisible());
        QCOMPARE(tree.emptyLabel()->text(), QStringLiteral("Нет доступных шаблонов"));
        tree.widget.setTemplateProps({QStringLiteral("open_wshift")}, false);
        QTRY_VERIFY(tree.find(QStringLiteral("Включение линии")).isValid());
        QVERIFY(!tree.find(QStringLiteral("Приём смены")).isValid());
    }

    void the_first_template_is_that_of_the_department()
    {
        Tree tree;
        QSignalSpy changed(&tree.widget, &TemplatesWidget::selectionChanged);
        tree.widget.selectFirstTemplate(); // hidden, not built yet
        QCOMPARE(changed.count(), 1);
        QCOMPARE(tree.widget.currentTemplateKey(), QStringLiteral("T_FLOOD"));
        tree.widget.selectFirstTemplate();
        QCOMPARE(changed.count(), 1);
        tree.widget.clearSelection();
        QCOMPARE(changed.count(), 2);
        QVERIFY(!tree.widget.currentTemplate());
        tree.widget.clearSelection();
        QCOMPARE(changed.count(), 2);
    }

    void without_templates_the_first_one_is_none()
    {
        Tree tree;
        tree.widget.selectFirstTemplate();
        MDAClearRec(tree.templates.data.array);
        tree.widget.reloadTemplates();
        tree.widget.selectFirstTemplate();
        QVERIFY(!tree.widget.currentTemplate());
        QCOMPARE(tree.widget.currentTemplateKey(), QString());
    }

    void a_click_chooses_and_a_category_leaves_the_choice()
    {
        Tree tree;
        tree.show();
        QSignalSpy changed(&tree.widget, &TemplatesWidget::selectionChanged);
        tree.click(QStringLiteral("Изменение перетока"));
        QCOMPARE(changed.count(), 1);
        MDRVar key;
        tree.templates.data.GetVal(tree.widget.currentTemplate(), "KeyLink", key);
        QCOMPARE(MDRValue::copy(key), QByteArray("T_FLOW"));
        tree.click(QStringLiteral("Режим"));
        QCOMPARE(changed.count(), 1);
        QCOMPARE(tree.view()->selectionModel()->selectedIndexes().value(0).data().toString(),
                 QStringLiteral("Изменение перетока"));
    }

    void typing_narrows_by_parts_of_words_whatever_case_and_yo()
    {
        Tree tree;
        tree.show();
        tree.widget.startSearch();
        typeText(tree.search(), QStringLiteral("ПЕРЕК ком"));
        QCOMPARE(tree.rows(), lines("Общие шаблоны|.Переключения|..Команда на производство переключений"));
        tree.search()->clear();
        typeText(tree.search(), QStringLiteral("прием"));
        QCOMPARE(tree.current(), QStringLiteral("Паводок: приём сообщения"));
        tree.search()->clear();
        QCOMPARE(tree.rows().last(), QStringLiteral(".Пустая"));
    }

    void the_name_of_a_category_finds_its_templates()
    {
        Tree tree;
        tree.show();
        tree.search()->setText(QStringLiteral("режим"));
        QCOMPARE(tree.rows(), lines("Тип организации: Диспетчерский центр|.Режим|..Изменение перетока"));
    }

    void a_name_in_which_the_word_begins_is_offered_first()
    {
        Tree tree;
        tree.templateRow("T_AIRLINE", "COMMON", "Авиалиния"); // holds "лини", stands before "Включение линии"
        tree.show();
        tree.widget.startSearch();
        typeText(tree.search(), QStringLiteral("лини"));
        QCOMPARE(tree.current(), QStringLiteral("Включение линии"));
    }

    void a_search_without_a_hit_says_so()
    {
        Tree tree;
        tree.show();
        tree.search()->setText(QStringLiteral("такого нет"));
        QVERIFY(tree.emptyLabel()->isVisible());
        QCOMPARE(tree.emptyLabel()->text(), QStringLiteral("Ничего не найдено"));
        tree.search()->clear();
        QVERIFY(!tree.emptyLabel()->isVisible());
    }

    void arrows_move_and_enter_chooses_while_typing()
    {
        Tree tree;
        tree.show();
        tree.widget.startSearch();
        QSignalSpy changed(&tree.widget, &TemplatesWidget::selectionChanged);
        QSignalSpy activated(&tree.widget, &TemplatesWidget::templateActivated);
        typeText(tree.search(), QStringLiteral("перек"));
        QCOMPARE(tree.current(), QStringLiteral("Бланк переключений"));
        QTest::keyClick(tree.search(), Qt::Key_Down);
        QTest::keyClick(tree.search(), Qt::Key_Down);
        QCOMPARE(tree.current(), QStringLiteral("Команда на производство переключений"));
        QTest::keyClick(tree.search(), Qt::Key_Down);
        QCOMPARE(tree.current(), QStringLiteral("Команда на производство переключений"));
        QTest::keyClick(tree.search(), Qt::Key_Up);
        QCOMPARE(tree.current(), QStringLiteral("Включение линии"));
        QCOMPARE(changed.count(), 0); // looked at, not chosen
        QTest::keyClick(tree.search(), Qt::Key_Return);
        QCOMPARE(changed.count(), 1);
        QCOMPARE(activated.count(), 1);
        QCOMPARE(tree.widget.currentTemplateKey(), QStringLiteral("T_LINE"));
        QTest::keyClick(tree.search(), Qt::Key_Enter);
        QCOMPARE(changed.count(), 1);
        QCOMPARE(activated.count(), 2);
    }

    void arrows_reach_templates_in_closed_branches()
    {
        Tree tree;
        tree.show();
        tree.view()->collapseAll();
        tree.widget.startSearch();
        QTest::keyClick(tree.search(), Qt::Key_Down);
        QCOMPARE(tree.current(), QStringLiteral("Паводок: приём сообщения"));
        QTest::keyClick(tree.search(), Qt::Key_PageDown);
        QCOMPARE(tree.current(), QStringLiteral("Команда на производство переключений"));
        QTest::keyClick(tree.search(), Qt::Key_PageUp);
        QCOMPARE(tree.current(), QStringLiteral("Паводок: приём сообщения"));
    }

    void escape_empties_the_search_and_is_left_to_the_window_when_it_is_empty()
    {
        Tree tree;
        tree.show();
        tree.widget.startSearch();
        typeText(tree.search(), QStringLiteral("лин"));
        QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
        QCoreApplication::sendEvent(tree.search(), &escape);
        QVERIFY(tree.search()->text().isEmpty());
        escape.setAccepted(true);
        QCoreApplication::sendEvent(tree.search(), &escape);
        QVERIFY(!escape.isAccepted());
    }

    void letters_typed_in_the_tree_go_to_the_search()
    {
        Tree tree;
        tree.show();
        tree.view()->setFocus();
        QTest::keyClick(tree.view(), Qt::Key_A, Qt::NoModifier);
        QCOMPARE(tree.search()->text(), QStringLiteral("a"));
        QVERIFY(tree.search()->hasFocus());
    }

    void what_was_only_looked_at_is_forgotten_when_the_search_is_left()
    {
        Tree tree;
        QWidget window;
        auto* other = new QLineEdit(&window);
        tree.widget.setParent(&window);
        window.show();
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        QVERIFY(tree.widget.selectTemplate(QStringLiteral("T_FLOW")));
        tree.widget.show();
        tree.widget.startSearch();
        QTest::keyClick(tree.search(), Qt::Key_Down);
        QVERIFY(tree.current() != QStringLiteral("Изменение перетока"));
        other->setFocus();
        QCOMPARE(tree.current(), QStringLiteral("Изменение перетока"));
        tree.widget.setParent(nullptr);
    }

    void reloading_keeps_selection_and_branches_and_tells_only_of_a_selected_template_that_is_gone()
    {
        Tree tree;
        tree.show();
        tree.click(QStringLiteral("Бланк переключений"));
        tree.view()->collapse(tree.find(QStringLiteral("Районные")));
        QSignalSpy changed(&tree.widget, &TemplatesWidget::selectionChanged);
        tree.templateRow("T_NEW", "COMMON", "Авария");
        tree.widget.reloadTemplates();
        QTRY_VERIFY(tree.find(QStringLiteral("Авария")).isValid());
        QCOMPARE(tree.current(), QStringLiteral("Бланк переключений"));
        QVERIFY(!tree.view()->isExpanded(tree.find(QStringLiteral("Районные"))));
        QVERIFY(tree.view()->isExpanded(tree.find(QStringLiteral("Переключения"))));
        QCOMPARE(changed.count(), 0);

        MDARecDel(tree.widget.currentTemplate());
        tree.widget.reloadTemplates();
        QCOMPARE(changed.count(), 1);
        QVERIFY(!tree.widget.currentTemplate());
        QVERIFY(!tree.find(QStringLiteral("Бланк переключений")).isValid());
    }

    void a_selected_template_that_moves_to_a_closed_level_is_gone()
    {
        Tree tree;
        tree.show();
        QVERIFY(tree.widget.selectTemplate(QStringLiteral("T_SHEET")));
        QSignalSpy changed(&tree.widget, &TemplatesWidget::selectionChanged);
        tree.set(tree.templates, tree.widget.currentTemplate(), "CategoryKey", QStringLiteral("OTHERDEP"));
        tree.widget.reloadTemplates();
        QTRY_COMPARE(changed.count(), 1);
        QVERIFY(!tree.widget.currentTemplate());
    }

    void a_hidden_tree_is_renewed_at_the_next_showing()
    {
        Tree tree;
        tree.show();
        tree.widget.hide();
        tree.templateRow("T_NEW", "COMMON", "Авария");
        tree.widget.reloadTemplates();
        QVERIFY(!tree.find(QStringLiteral("Авария")).isValid());
        tree.widget.show();
        QVERIFY(tree.find(QStringLiteral("Авария")).isValid());
    }

    void tables_may_be_refilled_under_the_tree()
    {
        Tree tree;
        tree.show();
        QVERIFY(tree.widget.selectTemplate(QStringLiteral("T_SHEET")));
        MDAClearRec(tree.templates.data.array);
        tree.templateRow("T_SHEET", "SUB", "Бланк переключений новый");
        tree.widget.reloadTemplates();
        tree.view()->viewport()->repaint();
        QTRY_COMPARE(tree.current(), QStringLiteral("Бланк переключений новый"));
        QVERIFY(tree.widget.currentTemplate());
    }

    void a_renewal_while_typing_leaves_the_line_where_it_was()
    {
        Tree tree;
        tree.show();
        tree.widget.startSearch();
        typeText(tree.search(), QStringLiteral("перек"));
        QTest::keyClick(tree.search(), Qt::Key_Down);
        const QString looked = tree.current();
        tree.templateRow("T_NEW", "COMMON", "Аварийные переключения");
        tree.widget.reloadTemplates();
        QTRY_VERIFY(tree.find(QStringLiteral("Аварийные переключения")).isValid());
        QCOMPARE(tree.current(), looked);
    }

    void a_renewal_leaves_the_tree_scrolled_where_it_was()
    {
        Tree tree;
        for (int number = 0; number < 80; ++number)
            tree.templateRow(("T_MORE" + QByteArray::number(number)).constData(), "COMMON",
                             ("Ещё " + QByteArray::number(number)).constData());
        tree.show();
        tree.view()->verticalScrollBar()->setValue(40);
        QCOMPARE(tree.view()->verticalScrollBar()->value(), 40);
        tree.templateRow("T_NEW", "COMMON", "Ящур");
        tree.widget.reloadTemplates();
        QTRY_VERIFY(tree.find(QStringLiteral("Ящур")).isValid());
        QCOMPARE(tree.view()->verticalScrollBar()->value(), 40);
    }

    void used_templates_come_first_the_latest_on_top_and_are_kept_for_worker_and_department()
    {
        {
            Tree tree;
            tree.widget.setUserKey(QStringLiteral("W1"));
            for (const char* key : {"T_LINE", "T_FLOW", "T_LINE", "T_SHEET"}) {
                QVERIFY(tree.widget.selectTemplate(QLatin1String(key)));
                tree.widget.noteUse();
            }
        }
        Tree tree;
        tree.widget.setUserKey(QStringLiteral("W1"));
        tree.show();
        QCOMPARE(tree.rows().mid(0, 4),
                 lines("Недавние|.Бланк переключений|.Включение линии|.Изменение перетока"));
        tree.widget.selectFirstTemplate(); // of the levels
        QCOMPARE(tree.widget.currentTemplateKey(), QStringLiteral("T_FLOOD"));
        tree.widget.setUserKey(QStringLiteral("W2"));
        QTRY_COMPARE(tree.rows().first(), QStringLiteral("Подразделение: ЦДС"));
        tree.widget.setUserKey(QStringLiteral("W1"));
        tree.widget.setRootDepKeyLink(QStringLiteral("DEP2"));
        QTRY_COMPARE(tree.rows().first(), QStringLiteral("Шаблоны подразделения"));
    }

    void a_used_template_that_is_not_open_any_more_is_left_out()
    {
        Tree tree;
        tree.widget.setUserKey(QStringLiteral("W1"));
        QVERIFY(tree.widget.selectTemplate(QStringLiteral("T_FLOOD")));
        tree.widget.noteUse();
        tree.widget.setRootDepKeyLink(QStringLiteral("DEP"));
        MDARecDel(tree.widget.currentTemplate());
        tree.show();
        QVERIFY(tree.rows().filter(QStringLiteral("Недавние")).isEmpty());
    }

    void no_more_than_eight_used_templates_are_kept()
    {
        Tree tree;
        tree.widget.setUserKey(QStringLiteral("W1"));
        for (int i = 0; i < 10; ++i) {
            const QByteArray key = "T_MANY" + QByteArray::number(i);
            tree.templateRow(key.constData(), "COMMON", ("Многие " + QByteArray::number(i)).constData());
            tree.widget.reloadTemplates();
            QVERIFY(tree.widget.selectTemplate(QString::fromLatin1(key)));
            tree.widget.noteUse();
        }
        tree.show();
        const QAbstractItemModel* model = tree.view()->model();
        QCOMPARE(model->index(0, 0).data().toString(), QStringLiteral("Недавние"));
        QCOMPARE(model->rowCount(model->index(0, 0)), 8);
    }

    void templates_are_pinned_by_key_and_unpinned_by_the_menu()
    {
        Tree tree;
        tree.widget.setUserKey(QStringLiteral("W1"));
        tree.show();
        tree.click(QStringLiteral("Включение линии"));
        tree.view()->setFocus();
        QTest::keyClick(tree.view(), Qt::Key_D, Qt::ControlModifier);
        QCOMPARE(tree.rows().mid(0, 2), lines("Закреплённые|.Включение линии"));

        const QModelIndex pinned = tree.find(QStringLiteral("Включение линии"));
        tree.view()->scrollTo(pinned);
        emit tree.view()->customContextMenuRequested(tree.view()->visualRect(pinned).center());
        auto* menu = tree.widget.findChild<QMenu*>();
        QVERIFY(menu);
        QCOMPARE(menu->actions().value(0)->text(), QStringLiteral("Открепить"));
        menu->actions().value(0)->trigger();
        QVERIFY(tree.rows().filter(QStringLiteral("Закреплённые")).isEmpty());
        menu->close();
    }

    void without_a_user_nothing_is_pinned_or_recent()
    {
        Tree tree;
        tree.show();
        tree.click(QStringLiteral("Включение линии"));
        tree.widget.noteUse();
        QTest::keyClick(tree.view(), Qt::Key_D, Qt::ControlModifier);
        tree.widget.reloadTemplates();
        QTest::qWait(0);
        QCOMPARE(tree.rows().first(), QStringLiteral("Подразделение: ЦДС"));
    }

    void the_model_keeps_its_promises()
    {
        Tree tree;
        tree.widget.setUserKey(QStringLiteral("W1"));
        QAbstractItemModelTester tester(tree.view()->model(),
                                        QAbstractItemModelTester::FailureReportingMode::QtTest);
        tree.show();
        tree.click(QStringLiteral("Включение линии"));
        tree.widget.noteUse();
        tree.search()->setText(QStringLiteral("пер"));
        tree.search()->setText(QStringLiteral("нет такого"));
        tree.search()->clear();
        MDARecDel(tree.widget.currentTemplate());
        tree.widget.reloadTemplates();
    }

    void work_grows_with_the_tree_and_no_faster()
    {
        const auto cost = [](int categories) {
            Tree tree;
            for (int category = 0; category < categories; ++category) {
                const QByteArray key = "CAT" + QByteArray::number(category);
                const QByteArray parent = "CAT" + QByteArray::number(category / 4 * 4);
                const bool top = category % 4 == 0;
                tree.category(key.constData(), ("Категория " + key).constData(), top ? nullptr : "ParentKey",
                              top ? nullptr : parent.constData());
                for (int number = 0; number < 10; ++number) {
                    const QByteArray name = key + "_" + QByteArray::number(number);
                    tree.templateRow(name.constData(), key.constData(), ("Шаблон " + name).constData());
                }
            }
            // Time of this process: the load of the machine does not count.
            const std::clock_t begin = std::clock();
            tree.show();
            const QString last = QStringLiteral("CAT%1_7").arg(categories - 1);
            tree.search()->setText(QStringLiteral("шабл ") + last);
            [&] { QCOMPARE(tree.current(), QStringLiteral("Шаблон ") + last); }();
            tree.search()->setText(QStringLiteral("шаблон"));
            tree.search()->clear();
            tree.widget.reloadTemplates();
            tree.widget.selectFirstTemplate();
            return std::clock() - begin;
        };
        const std::clock_t part = std::max<std::clock_t>(cost(200), CLOCKS_PER_SEC / 100);
        // 2,000 categories with 20,000 templates are ten times as many: a linear step a row would cost a hundred.
        QVERIFY2(cost(2000) < part * 40, "the time grows faster than the tree");
    }

private:
    QTemporaryDir m_settings;
};

QTEST_MAIN(TemplatesWidget_test)
#include "TemplatesWidget_test.moc"
