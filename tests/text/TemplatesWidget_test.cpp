#include "TemplatesModel.h"
#include "TemplateTree.h"

#include <ctime>
#include <QAbstractItemModelTester>
#include <QScrollBar>
#include <QSettings>
#include <QSignalSpy>
#include <QTemporaryDir>

/// The tree of templates: levels, restrictions, selection, and their behaviour when the tables change.
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

    void levelsAreOrderedWithCategoriesFirst()
    {
        Tree tree;
        tree.show();
        QCOMPARE(tree.rows(), lines("Подразделение: ЦДС|.Районные|..Паводок: приём сообщения|"
                                    "Тип организации: Диспетчерский центр|.Режим|..Изменение перетока|"
                                    "Общие шаблоны|.Переключения|..Бланки|...Бланк переключений|"
                                    "..Включение линии|..Команда на производство переключений|.Пустая"));
    }

    void aLevelWithoutANameHasAPlainCaption()
    {
        Tree tree;
        tree.widget.setDepartmentsTable(nullptr);
        MDAClearRec(tree.types.data.array);
        tree.show();
        QVERIFY(tree.rows().contains(QStringLiteral("Шаблоны подразделения")));
        QVERIFY(tree.rows().contains(QStringLiteral("Шаблоны типа организации")));
    }

    void withoutKeysOnlyCommonTemplatesAreAvailable()
    {
        Tree tree;
        tree.widget.setRootDepKeyLink(QString());
        tree.widget.setRootOrgKeyLink(QString());
        tree.show();
        QCOMPARE(tree.rows().first(), QStringLiteral("Общие шаблоны"));
    }

    void aForeignCategoryBelowAnOwnOneIsHidden()
    {
        Tree tree;
        tree.category("STRAY", "Заблудшая", "ParentKey", "COMMON");
        MDRData* stray = MDARec(tree.categories.data.array, 0, tree.categories.data.RecCount() - 1);
        tree.set(tree.categories, stray, "DepartmentKey", QStringLiteral("DEP2"));
        tree.show();
        QVERIFY(!tree.find(QStringLiteral("Заблудшая")).isValid());
    }

    void aCycleOfCategoriesIsWalkedOnce()
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

    void propertyFilterRequiresAllProperties()
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
        QCOMPARE(tree.emptyLabel()->text(),
                 QStringLiteral("Нет доступных шаблонов.\nИх заводит администратор в конфигураторе."));
        tree.widget.setTemplateProps({QStringLiteral("open_wshift")}, false);
        QTRY_VERIFY(tree.find(QStringLiteral("Включение линии")).isValid());
        QVERIFY(!tree.find(QStringLiteral("Приём смены")).isValid());
    }

    void theFirstTemplateIsThatOfTheDepartment()
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

    void withoutTemplatesNothingIsSelected()
    {
        Tree tree;
        tree.widget.selectFirstTemplate();
        MDAClearRec(tree.templates.data.array);
        tree.widget.reloadTemplates();
        tree.widget.selectFirstTemplate();
        QVERIFY(!tree.widget.currentTemplate());
        QCOMPARE(tree.widget.currentTemplateKey(), QString());
    }

    void clickingACategoryKeepsTheChosenTemplate()
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

    void aReloadKeepsSelectionAndBranches()
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

    void movingToAnotherLevelClearsTheSelection()
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

    void aHiddenTreeIsReloadedWhenShown()
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

    void tablesMayBeRefilledBelowTheTree()
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

    void aReloadKeepsTheScrollPosition()
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

    void passesTheModelTester()
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

    void workIsLinearInTheSizeOfTheTree()
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
            // Processor time of this process: the load of the machine does not count.
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
