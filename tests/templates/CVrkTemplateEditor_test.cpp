#include "ConfiguratorBench.h"
#include "HtmlParser.h"

#include <QLabel>
#include <QLayout>
#include <QMenu>
#include <QToolBar>

/// The window of the configurator on a real store: rights, loading, pages, tool bar, routing of events.
class CVrkTemplateEditor_test : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<LogWatch> m_log;
    std::unique_ptr<TestStore> m_store;

    static QToolButton* button(const Configurator& one, const char* name)
    {
        return one.child<QToolButton>(name);
    }
    static QAction* action(const Configurator& one, const char* name) { return one.child<QAction>(name); }
    static QVector<bool> visible(const Configurator& one)
    {
        return {one.pages()->isTabVisible(0), one.pages()->isTabVisible(1), one.pages()->isTabVisible(2)};
    }

private slots:
    void init()
    {
        m_log = std::make_unique<LogWatch>();
        m_store = std::make_unique<TestStore>();
    }
    void cleanup()
    {
        m_store.reset();
        QCOMPARE(m_log->take().join(QLatin1Char('\n')), QString());
        m_log.reset();
    }

    void hasTheFormBeforeItStarts()
    {
        TestClient client(*m_store, QStringLiteral("sidorova"));
        const CVrkTemplateEditor window(&client.app());
        QCOMPARE(window.objectName(), QStringLiteral("CVrkTemplateEditor"));
        QCOMPARE(window.size(), QSize(1363, 846));
        QCOMPARE(window.contextMenuPolicy(), Qt::NoContextMenu);
        QCOMPARE(window.windowTitle(), QStringLiteral("EventsWindow"));
        const auto* pages = window.findChild<QTabWidget*>(QStringLiteral("templatesTabWidget"));
        QCOMPARE(pages->count(), 3);
        QCOMPARE(pages->tabText(0), QStringLiteral("Общие шаблоны"));
        QCOMPARE(pages->tabText(1), QStringLiteral("Типы организаций"));
        QCOMPARE(pages->tabText(2), QStringLiteral("Подразделение"));
        QCOMPARE(pages->currentIndex(), 2);
        QCOMPARE(pages->font().pointSize(), 9);
        const auto* layout = window.findChild<QLayout*>(QStringLiteral("verticalLayout"));
        QCOMPARE(layout->spacing(), 4);
        QCOMPARE(layout->contentsMargins(), QMargins(2, 4, 2, 4));
        QCOMPARE(window.rights(), Rights::View);
        QCOMPARE(client.takeFailures(), QStringList());
    }

    void theBarIsBuiltInOrder()
    {
        Configurator one(*m_store);
        QVERIFY(one.isStarted());
        QCOMPARE(one.window().moduleTitle(), QStringLiteral("Конфигуратор шаболнов Оперативного журнала"));
        auto* bar = one.child<QToolBar>("toolBar");
        QVERIFY(!bar->isMovable());
        QStringList order;
        for (QAction* part : bar->actions())
            order << (part->isSeparator() ? QStringLiteral("|") : bar->widgetForAction(part)->objectName());
        QCOMPARE(order.join(QLatin1Char(' ')),
                 QStringLiteral("| createButton deleteButton | saveButton cancelButton | statusLabel"));
        const std::pair<const char*, QString> tips[] = {
            {"createButton", QStringLiteral("Создать Ctrl+N")},
            {"deleteButton", QStringLiteral("Удалить Del")},
            {"saveButton", QStringLiteral("Сохранить изменения Ctrl+S")},
            {"cancelButton", QStringLiteral("Отменить изменения Esc")}};
        for (const auto& [name, tip] : tips) {
            QCOMPARE(button(one, name)->toolTip(), tip);
            QVERIFY2(!button(one, name)->icon().isNull(), name);
        }
        QCOMPARE(button(one, "deleteButton")->shortcut(), QKeySequence(Qt::Key_Delete));
        QCOMPARE(button(one, "createButton")->popupMode(), QToolButton::InstantPopup);
        QStringList menu;
        for (const QAction* part : button(one, "createButton")->menu()->actions()) {
            menu << part->text();
            QVERIFY(!part->icon().isNull());
        }
        QCOMPARE(menu, (QStringList{QStringLiteral("Категория"), QStringLiteral("Подкатегория"),
                                    QStringLiteral("Шаблон")}));
        QVERIFY(!button(one, "saveButton")->isEnabled());
        QVERIFY(!button(one, "cancelButton")->isEnabled());
        QVERIFY(one.pages()->isMovable());
    }

    void theTreeHasTheKeyboardFromTheStart()
    {
        Configurator one(*m_store);
        const QWidget* focus = one.window().focusWidget();
        QVERIFY(focus);
        QCOMPARE(focus->objectName(), QStringLiteral("templatesTree"));
        QVERIFY(one.pages()->currentWidget()->isAncestorOf(focus));
    }

    void rightsAreShown_data()
    {
        QTest::addColumn<QString>("login");
        QTest::addColumn<int>("rights");
        QTest::addColumn<QString>("label");
        QTest::addColumn<QString>("colour");
        QTest::newRow("viewer") << QStringLiteral("ivanov") << 0 << QStringLiteral("Просмотр")
                                << QStringLiteral("#169CBA");
        QTest::newRow("local") << QStringLiteral("smirnov") << 1 << QStringLiteral("Администратор локальный")
                               << QStringLiteral("#2ea36a");
        QTest::newRow("admin") << QStringLiteral("sidorova") << 2 << QStringLiteral("Администратор")
                               << QStringLiteral("#63D945");
    }
    void rightsAreShown()
    {
        QFETCH(QString, login);
        QFETCH(int, rights);
        QFETCH(QString, label);
        QFETCH(QString, colour);
        Configurator one(*m_store, login);
        QCOMPARE(int(one.window().rights()), rights);
        auto* status = one.child<QLabel>("statusLabel");
        QCOMPARE(status->text(), label);
        QCOMPARE(
            status->styleSheet(),
            QStringLiteral("border: 2px solid %1; border-radius: 3px; border-style: inset;").arg(colour));
        QCOMPARE(status->alignment(), Qt::AlignCenter);
        QVERIFY(status->minimumWidth() >= 160);
    }

    void aViewerOnlyReads()
    {
        Configurator one(*m_store, QStringLiteral("ivanov"));
        QCOMPARE(visible(one), (QVector<bool>{true, false, true})); // a department page remains
        for (TemplateTab* page : {one.common(), one.deps()}) {
            one.show(page);
            QVERIFY(!page->isRootCreatable() && !page->isFolderCreatable() && !page->isTemplateCreatable() &&
                    !page->isItemDeletable());
            for (const char* name : {"createButton", "deleteButton", "saveButton", "cancelButton"})
                QVERIFY2(!button(one, name)->isEnabled(), name);
        }
    }

    void aUserWithoutADepartmentLosesThePage()
    {
        auto client = std::make_unique<TestClient>(m_store->open(QStringLiteral("sidorova")));
        Configurator one(std::move(client));
        QVERIFY(one.isStarted());
        QCOMPARE(visible(one), (QVector<bool>{true, true, false})); // an administrator too
        QCOMPARE(m_log
                     ->take(QStringLiteral(
                         "not found department key in {m_app->m_user_params} by key DEPARTMENTKEY"))
                     .size(),
                 2); // the message log and the log sink
    }

    void reportsEverythingThatDidNotLoad()
    {
        QCOMPARE(m_store->dropTables({QStringLiteral("OrgTypes"), QStringLiteral("TemplateParams"),
                                      QStringLiteral("LogbookTemplates")}),
                 QString());
        Configurator one(*m_store);
        QVERIFY(!one.isStarted());
        QCOMPARE(
            one.boxText(),
            QStringLiteral("<center>Не удалось загрузить таблицу OrgTypes!<br/>Не удалось загрузить таблицу "
                           "TemplateParams!<br/>Таблица LogbookTemplates не содержит полей!</center>"));
        QVERIFY(!one.child<QToolBar>("toolBar"));
        QCOMPARE(m_log->take(QStringLiteral("virtual bool CVrkTemplateEditor::ModuleStart()")).size(), 2);
        m_log->take();
        one.answer("okButton");
        QVERIFY(!one.box());
    }

    void controlsFollowTheUnsavedState()
    {
        Configurator one(*m_store);
        TemplateTab* page = one.show(one.common());
        QVERIFY(Configurator::select(page, "CAT_COMMON"));
        QVERIFY(button(one, "createButton")->isEnabled());
        QVERIFY(button(one, "deleteButton")->isEnabled());
        QVERIFY(!one.window().isEdit());

        Configurator::in<QLineEdit>(page, "categoryNameEdit")->setText(QStringLiteral("Иначе"));
        QVERIFY(one.window().isEdit());
        QVERIFY(button(one, "saveButton")->isEnabled() && button(one, "cancelButton")->isEnabled());
        QVERIFY(!button(one, "createButton")->isEnabled() && !button(one, "deleteButton")->isEnabled());
        QVERIFY(one.pages()->isTabEnabled(0) && !one.pages()->isTabEnabled(1) &&
                !one.pages()->isTabEnabled(2));
        QCOMPARE(visible(one), (QVector<bool>{true, true, true}));

        button(one, "cancelButton")->click();
        QVERIFY(!one.window().isEdit());
        QVERIFY(one.pages()->isTabEnabled(1) && one.pages()->isTabEnabled(2));
        QVERIFY(!button(one, "saveButton")->isEnabled() && button(one, "createButton")->isEnabled());
        QCOMPARE(Configurator::in<QLineEdit>(page, "categoryNameEdit")->text(),
                 QStringLiteral("Оперативная смена"));
    }

    void keysOfTheBarWorkWhereverTheKeyboardIs_data()
    {
        QTest::addColumn<QString>("editor");
        for (const char* name : {"templateNameEdit", "templateTimeBox", "templateFirstMarkBox",
                                 "templateText", "parameterSearch", "templatesTree"})
            QTest::newRow(name) << QString::fromLatin1(name);
    }
    void keysOfTheBarWorkWhereverTheKeyboardIs()
    {
        QFETCH(QString, editor);
        Configurator one(*m_store);
        QApplication::setActiveWindow(&one.window());
        TemplateTab* page = one.show(one.common());
        QVERIFY(Configurator::select(page, "TPL_ORDER"));
        auto* name = Configurator::in<QLineEdit>(page, "templateNameEdit");
        auto* keyboard = page->findChild<QWidget*>(editor);
        QTRY_VERIFY(button(one, "cancelButton")->isVisible()); // the bar has its layout
        keyboard->setFocus();
        QVERIFY(keyboard->hasFocus());
        if (editor != QLatin1String("parameterSearch")) { // there the key ends the search
            name->setText(QStringLiteral("Иначе"));
            QTest::keyClick(keyboard, Qt::Key_Escape);
            QTRY_VERIFY(!page->isExistUnsaved());
            QCOMPARE(name->text(), QStringLiteral("Команда на производство переключений"));
        }
        name->setText(QStringLiteral("Иначе"));
        QTest::keyClick(keyboard, Qt::Key_S, Qt::ControlModifier);
        QTRY_VERIFY(!button(one, "saveButton")->isDown());
        one.deliver();
        QVERIFY(!page->isExistUnsaved());
        QCOMPARE(Configurator::currentName(page), QStringLiteral("Иначе"));
    }

    void createOffersWhatThePageAllows()
    {
        Configurator one(*m_store);
        one.show(one.common());
        QVERIFY(action(one, "createRootFolderAction")->isEnabled());
        TemplateTab* orgs = one.show(one.orgs());
        QVERIFY(Configurator::selectRoot(orgs, QStringLiteral("TYPE_NETS")));
        QVERIFY(!action(one, "createRootFolderAction")->isEnabled());
        QVERIFY(action(one, "createFolderAction")->isEnabled());
        QVERIFY(!action(one, "createTemplateAction")->isEnabled());
        QVERIFY(!button(one, "deleteButton")->isEnabled());
        QVERIFY(Configurator::select(orgs, "CAT_NETS"));
        QVERIFY(action(one, "createTemplateAction")->isEnabled());
        QVERIFY(button(one, "deleteButton")->isEnabled());
    }

    void eachEntryAndButtonDoesItsWork()
    {
        Configurator one(*m_store);
        TemplateTab* page = one.show(one.common());
        QVERIFY(Configurator::select(page, "CAT_COMMON"));
        const std::pair<const char*, QString> entries[] = {
            {"createRootFolderAction", QStringLiteral("Новая категория")},
            {"createFolderAction", QStringLiteral("Новая подкатегория")},
            {"createTemplateAction", QStringLiteral("Новый шаблон")}};
        for (const auto& [name, made] : entries) {
            action(one, name)->trigger();
            QCOMPARE(Configurator::currentName(page), made);
            page->cancelChanges();
            QVERIFY(Configurator::select(page, "CAT_COMMON"));
        }
        button(one, "deleteButton")->click();
        QVERIFY(one.boxText().endsWith(QStringLiteral("Удалить категорию?")));
        one.answer("noButton");
    }

    void theHostSavesAndDrops()
    {
        Configurator one(*m_store);
        TemplateTab* page = one.show(one.common());
        QVERIFY(Configurator::select(page, "CAT_COMMON"));
        auto* name = Configurator::in<QLineEdit>(page, "categoryNameEdit");
        name->setText(QStringLiteral("Первое"));
        one.window().ModDataEditCancel();
        QVERIFY(!one.window().isEdit());
        QCOMPARE(name->text(), QStringLiteral("Оперативная смена"));

        name->setText(QStringLiteral("Второе"));
        one.window().ModDataEditPost();
        QVERIFY(!one.window().isEdit());
        one.settle();
        QVERIFY(!one.window().isEdit());
        QCOMPARE(
            m_store
                ->value(QStringLiteral("SELECT nameLoc FROM LogbookCatsTemplate WHERE KeyLink='CAT_COMMON'"))
                .toString(),
            QStringLiteral("Второе"));
    }

    void asksAgainAfterAFailedSave()
    {
        Configurator one(*m_store);
        TemplateTab* page = one.show(one.common());
        QVERIFY(Configurator::select(page, "CAT_COMMON"));
        Configurator::in<QLineEdit>(page, "categoryNameEdit")->clear();
        one.window().ModDataEditPost();
        QCOMPARE(one.boxText(), QStringLiteral("<center>Название категории не может быть пустым!</center>"));
        QTRY_VERIFY(one.window().isEdit());
    }

    void parametersFollowTheirEvents()
    {
        Configurator one(*m_store);
        const auto store = m_store->openLoader();
        HFNCliParam* odd = HFNCliParam::event(601, "PAR_TEXT", "NCI:TemplateParams,1", QByteArray());
        QCOMPARE(one.window().MessageData(odd), 0); // known already
        one.client().session().PrmFree(odd);
        HFNCliParam* unknown = HFNCliParam::event(603, "PAR_NONE", "NCI:TemplateParams,1", QByteArray());
        QCOMPARE(one.window().MessageData(unknown), 0);
        one.client().session().PrmFree(unknown);

        // The choice of parameters is updated on all pages, also on hidden ones.
        const auto offered = [&one](const QString& name) {
            int pages = 0;
            for (TemplateTab* page : {one.common(), one.orgs(), one.deps()}) {
                const QAbstractItemModel* rows = Configurator::in<QTreeView>(page, "parametersTree")->model();
                pages += rows->match(rows->index(0, 0), Qt::DisplayRole, name, -1,
                                     Qt::MatchExactly | Qt::MatchRecursive)
                             .size();
            }
            return pages;
        };
        const QString html =
            QString::fromStdString(HtmlParser::createParameter({{"name", "text"}, {"locname", "x"}}, "x"));
        QVERIFY(TestStore::write(store.get(), "TemplateParamCategories", ROW_INSERT, "GROUP_NEW",
                                 {{"nameLoc", "Новая группа"}}));
        QVERIFY(
            TestStore::write(store.get(), "TemplateParams", ROW_INSERT, "PAR_NEW",
                             {{"CategoryKey", "GROUP_NEW"}, {"nameLoc", "Новый параметр"}, {"html", html}}));
        one.deliver();
        QCOMPARE(offered(QStringLiteral("Новая группа")), 3);
        QCOMPARE(offered(QStringLiteral("Новый параметр")), 3);
        QVERIFY(
            TestStore::write(store.get(), "TemplateParams", ROW_UPDATE, "PAR_NEW", {{"nameLoc", "Он же"}}));
        one.deliver();
        QCOMPARE(offered(QStringLiteral("Новый параметр")), 0);
        QCOMPARE(offered(QStringLiteral("Он же")), 3);
        QVERIFY(TestStore::write(store.get(), "TemplateParams", ROW_DELETE, "PAR_NEW"));
        one.deliver();
        QCOMPARE(offered(QStringLiteral("Он же")), 0);
        HFNCliParam* gone = HFNCliParam::event(602, "PAR_NEW", "NCI:TemplateParams,1", QByteArray());
        QCOMPARE(one.window().MessageData(gone), 0);
        one.client().session().PrmFree(gone);
    }

    void otherMessagesAreNotForIt()
    {
        Configurator one(*m_store);
        HFNCliParam* other = HFNCliParam::event(631, "K", "NCI:LogbookTemplates,1", QByteArray());
        QCOMPARE(one.window().MessageData(other), 1);
        HFNCliParam* records = HFNCliParam::event(603, "K", "NCI:LogbookRecords,1", QByteArray());
        QCOMPARE(one.window().MessageData(records), 1);
        for (HFNCliParam* block : {other, records})
            one.client().session().PrmFree(block);
    }
};

QTEST_MAIN(CVrkTemplateEditor_test)
#include "CVrkTemplateEditor_test.moc"
