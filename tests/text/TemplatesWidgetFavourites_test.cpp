#include "TemplateTree.h"

#include <QAction>
#include <QMenu>
#include <QSettings>
#include <QSignalSpy>
#include <QTemporaryDir>

/// Pinned and recently used templates come first in the tree.
class TemplatesWidgetFavourites_test : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QCoreApplication::setOrganizationName(QStringLiteral("test"));
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_settings.path());
    }
    void init() { QSettings().clear(); }

    void usedTemplatesComeFirstForWorkerAndDepartment()
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

    void anUnavailableUsedTemplateIsHidden()
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

    void keepsAtMostEightUsedTemplates()
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

    void pinsTemplatesByKeyAndUnpinsByMenu()
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
        QCOMPARE(menu->actions().value(1)->shortcut(), QKeySequence(QStringLiteral("Alt+1")));
        QSignalSpy activated(&tree.widget, &TemplatesWidget::templateActivated);
        menu->actions().value(1)->trigger();
        QCOMPARE(activated.count(), 1);
        menu->actions().value(0)->trigger();
        QVERIFY(tree.rows().filter(QStringLiteral("Закреплённые")).isEmpty());
        menu->close();
    }

    void theFirstNinePinnedTemplatesHaveKeys()
    {
        Tree tree;
        tree.widget.setUserKey(QStringLiteral("W1"));
        for (int i = 1; i <= 10; ++i) {
            const QByteArray key = "T_MANY" + QByteArray::number(i);
            tree.templateRow(key.constData(), "COMMON", ("Многие " + QByteArray::number(i)).constData());
        }
        tree.widget.reloadTemplates();
        tree.show();
        for (int i = 10; i >= 1; --i) {
            tree.click(QStringLiteral("Многие %1").arg(i));
            tree.view()->setFocus();
            QTest::keyClick(tree.view(), Qt::Key_D, Qt::ControlModifier);
        }
        const QAbstractItemModel* model = tree.view()->model();
        QCOMPARE(model->index(0, 0).data().toString(), QStringLiteral("Закреплённые"));
        for (int row = 0; row < 10; ++row) {
            const QModelIndex index = model->index(row, 0, model->index(0, 0));
            QCOMPARE(index.data().toString(), QStringLiteral("Многие %1").arg(10 - row));
            const QString key = QStringLiteral("(Alt+%1)").arg(row + 1);
            QCOMPARE(index.data(Qt::ToolTipRole).toString().contains(key), row < 9);
        }
        QSignalSpy activated(&tree.widget, &TemplatesWidget::templateActivated);
        QVERIFY(tree.widget.activatePinned(2));
        QCOMPARE(tree.widget.currentTemplateKey(), QStringLiteral("T_MANY9"));
        tree.search()->setText(QStringLiteral("перетока"));
        QVERIFY(tree.widget.activatePinned(9));
        QCOMPARE(tree.widget.currentTemplateKey(), QStringLiteral("T_MANY2"));
        QCOMPARE(activated.count(), 2);
        QVERIFY(!tree.widget.activatePinned(11));
        QCOMPARE(activated.count(), 2);
    }

    void withoutAUserNothingIsPinnedOrRecent()
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

private:
    QTemporaryDir m_settings;
};

QTEST_MAIN(TemplatesWidgetFavourites_test)
#include "TemplatesWidgetFavourites_test.moc"
