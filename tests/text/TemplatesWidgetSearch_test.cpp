#include "TemplateTree.h"
#include "Typing.h"

#include <QSettings>
#include <QSignalSpy>
#include <QTemporaryDir>

/// The search line above the tree of templates.
class TemplatesWidgetSearch_test : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QCoreApplication::setOrganizationName(QStringLiteral("test"));
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_settings.path());
    }
    void init() { QSettings().clear(); }

    void typingFindsPartsOfWordsInAnyCase()
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

    void aCategoryNameFindsItsTemplates()
    {
        Tree tree;
        tree.show();
        tree.search()->setText(QStringLiteral("режим"));
        QCOMPARE(tree.rows(), lines("Тип организации: Диспетчерский центр|.Режим|..Изменение перетока"));
    }

    void namesWithThePrefixAreOfferedFirst()
    {
        Tree tree;
        tree.templateRow("T_AIRLINE", "COMMON", "Авиалиния"); // holds "лини", stands before "Включение линии"
        tree.show();
        tree.widget.startSearch();
        typeText(tree.search(), QStringLiteral("лини"));
        QCOMPARE(tree.current(), QStringLiteral("Включение линии"));
    }

    void aNameThatBeginsSoIsOfferedBeforeOtherWords()
    {
        Tree tree;
        tree.templateRow("T_BEFORE", "COMMON", "Аварийное отключение линии"); // stands before "Отключение..."
        tree.templateRow("T_AFTER", "COMMON", "Отключение линии");
        tree.show();
        tree.widget.startSearch();
        typeText(tree.search(), QStringLiteral("откл лин"));
        QCOMPARE(tree.current(), QStringLiteral("Отключение линии"));
        tree.search()->setText(QStringLiteral("лин откл"));
        QCOMPARE(tree.current(), QStringLiteral("Аварийное отключение линии"));
    }

    void aSearchWithoutAHitSaysSo()
    {
        Tree tree;
        tree.show();
        tree.search()->setText(QStringLiteral("такого нет"));
        QVERIFY(tree.emptyLabel()->isVisible());
        QCOMPARE(tree.emptyLabel()->text(), QStringLiteral("Ничего не найдено"));
        tree.search()->clear();
        QVERIFY(!tree.emptyLabel()->isVisible());
    }

    void arrowsMoveAndEnterChoosesWhileTyping()
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
        QCOMPARE(changed.count(), 0); // current, not chosen
        QTest::keyClick(tree.search(), Qt::Key_Return);
        QCOMPARE(changed.count(), 1);
        QCOMPARE(activated.count(), 1);
        QCOMPARE(tree.widget.currentTemplateKey(), QStringLiteral("T_LINE"));
        QTest::keyClick(tree.search(), Qt::Key_Enter);
        QCOMPARE(changed.count(), 1);
        QCOMPARE(activated.count(), 2);
    }

    void arrowsReachTemplatesInCollapsedBranches()
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

    void escapeClearsTheSearchBeforeItClosesTheWindow()
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

    void lettersTypedInTheTreeGoToTheSearch()
    {
        Tree tree;
        tree.show();
        tree.view()->setFocus();
        QTest::keyClick(tree.view(), Qt::Key_A, Qt::NoModifier);
        QCOMPARE(tree.search()->text(), QStringLiteral("a"));
        QVERIFY(tree.search()->hasFocus());
    }

    void leavingTheSearchRestoresTheChoice()
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

    void aReloadWhileTypingKeepsTheSearchLine()
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

private:
    QTemporaryDir m_settings;
};

QTEST_MAIN(TemplatesWidgetSearch_test)
#include "TemplatesWidgetSearch_test.moc"
