#include "ConfiguratorBench.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QMenu>
#include <QMimeData>
#include <QSignalSpy>
#include <QSplitter>

/// The tree of a page: its form, the actions that each level allows, selection, search, keys, and the
/// operations on it.
class TemplateTab_tree_test : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<LogWatch> m_log;
    std::unique_ptr<TestStore> m_store;
    QPair<QString, QString> m_broken;

    static QLineEdit* searchEdit(TemplateTab* page)
    {
        return Configurator::in<QLineEdit>(page, "searchEdit");
    }
    static QToolButton* up(TemplateTab* page)
    {
        return Configurator::in<QToolButton>(page, "upSearchButton");
    }
    static QToolButton* down(TemplateTab* page)
    {
        return Configurator::in<QToolButton>(page, "downSearchButton");
    }
    static QAction* action(TemplateTab* page, const char* name)
    {
        return Configurator::in<QAction>(page, name);
    }
    int count(const QString& from) const
    {
        return m_store->value(QStringLiteral("SELECT count(*) FROM ") + from).toInt();
    }
    void breakTable(const char* table, const char* operation)
    {
        m_broken = {QLatin1String(operation), QLatin1String(table)};
        QCOMPARE(m_store->refuse(m_broken.first, m_broken.second), QString());
    }
    void mendTable() { QCOMPARE(m_store->permit(m_broken.first, m_broken.second), QString()); }
    /// Drags a row onto another, through the models like the view does.
    static void drag(TemplateTab* page, const char* key, const QModelIndex& target)
    {
        const QModelIndex row = page->proxy()->mapFromSource(Configurator::source(page, key));
        const std::unique_ptr<QMimeData> mime(page->proxy()->mimeData({row}));
        const QModelIndex over = page->proxy()->mapFromSource(target);
        if (page->proxy()->canDropMimeData(mime.get(), Qt::MoveAction, -1, -1, over))
            page->proxy()->dropMimeData(mime.get(), Qt::MoveAction, -1, -1, over);
    }
    static QModelIndex root(TemplateTab* page, const char* key)
    {
        for (int i = 0; i < page->model()->rowCount(); ++i)
            if (page->model()->index(i, 0).data(Qt::UserRole).toString() == QLatin1String(key))
                return page->model()->index(i, 0);
        return {};
    }

private slots:
    void init()
    {
        m_log.reset();
        m_log = std::make_unique<LogWatch>();
        m_store = std::make_unique<TestStore>();
        QGuiApplication::clipboard()->clear();
    }
    void cleanup()
    {
        QCOMPARE(m_log->take().join(QLatin1Char('\n')), QString());
        m_store.reset();
    }

    void hasItsForm()
    {
        Configurator one(*m_store);
        TemplateTab* page = one.common();
        const QTreeView* tree = Configurator::tree(page);
        QVERIFY(tree->isHeaderHidden() && tree->isAnimated() && tree->isSortingEnabled());
        QCOMPARE(tree->contextMenuPolicy(), Qt::CustomContextMenu);
        QCOMPARE(page->proxy()->sortColumn(), 0);
        QCOMPARE(page->proxy()->sortOrder(), Qt::AscendingOrder);
        QVERIFY(page->proxy()->dynamicSortFilter());
        QVERIFY(tree->dragEnabled() && tree->acceptDrops() && tree->viewport()->acceptDrops());
        QCOMPARE(tree->dragDropMode(), QAbstractItemView::DragDrop);
        QCOMPARE(tree->defaultDropAction(), Qt::MoveAction);
        QVERIFY(!tree->dragDropOverwriteMode() && tree->showDropIndicator());

        QVERIFY(!searchEdit(page)->hasFrame());
        QCOMPARE(searchEdit(page)->placeholderText(), QStringLiteral("Поиск..."));
        QVERIFY(searchEdit(page)->isClearButtonEnabled());
        QCOMPARE(searchEdit(page)->minimumHeight(), 27);
        QVERIFY(!searchEdit(page)->actions().isEmpty());
        for (QToolButton* button : {up(page), down(page)}) {
            QCOMPARE(button->minimumSize(), QSize(27, 27));
            QCOMPARE(button->maximumSize(), QSize(27, 27));
            QVERIFY(!button->isEnabled() && !button->icon().isNull());
        }
        const auto* splitter = Configurator::in<QSplitter>(page, "splitter");
        QCOMPARE(splitter->widget(0)->sizePolicy().horizontalStretch(), 1);
        QCOMPARE(splitter->widget(1)->sizePolicy().horizontalStretch(), 3);
        const auto* tabs = Configurator::in<QTabWidget>(page, "propertiesTabWidget");
        QCOMPARE(tabs->tabText(0), QStringLiteral("Свойства"));
        QStringList menu;
        for (const QAction* entry : Configurator::in<QMenu>(page, "contextMenu")->actions())
            menu << (entry->isSeparator() ? QStringLiteral("|") : entry->text());
        QCOMPARE(menu.join(QLatin1Char(' ')),
                 QStringLiteral("Категория Подкатегория Шаблон | Копировать Вставить"));
    }

    void theTreesShowTheirLevels()
    {
        Configurator one(*m_store);
        QCOMPARE(Configurator::shown(one.common()),
                 (QStringList{QStringLiteral("Оперативная смена"), QStringLiteral("  Команды и переключения"),
                              QStringLiteral("    Команда на производство переключений"),
                              QStringLiteral("  Приём смены"), QStringLiteral("  Сдача смены")}));
        QCOMPARE(
            Configurator::shown(one.orgs()),
            (QStringList{QStringLiteral("Диспетчерский центр"), QStringLiteral("Электросетевая организация"),
                         QStringLiteral("  Технологические нарушения"),
                         QStringLiteral("    Автоматическое отключение линии")}));
        QCOMPARE(Configurator::shown(one.deps()),
                 (QStringList{QStringLiteral("Заречная диспетчерская группа"), QStringLiteral("  Сообщения"),
                              QStringLiteral("ОДС"), QStringLiteral("ЦДС"), QStringLiteral("  Погода"),
                              QStringLiteral("    Штормовое предупреждение")}));
        for (TemplateTab* page : {one.common(), one.orgs(), one.deps()})
            QVERIFY(page->currentRecord()); // the first row is selected
    }

    void aLocalAdministratorSeesHisOwn()
    {
        Configurator one(*m_store, QStringLiteral("smirnov"), "DEP_ZAR");
        QCOMPARE(Configurator::shown(one.orgs()).first(), QStringLiteral("Электросетевая организация"));
        QCOMPARE(one.orgs()->proxy()->rowCount(), 1);
        TemplateTab* page = one.show(one.deps());
        QCOMPARE(Configurator::shown(page), (QStringList{QStringLiteral("Заречная диспетчерская группа"),
                                                         QStringLiteral("  Сообщения")}));
        QCOMPARE(Configurator::currentName(page), QStringLiteral("Заречная диспетчерская группа"));
        QVERIFY(page->isFolderCreatable() && !page->isRootCreatable() && !page->isTemplateCreatable() &&
                !page->isItemDeletable());
        QVERIFY(Configurator::select(page, "CAT_ZAR"));
        QVERIFY(page->isTemplateCreatable() && page->isItemDeletable());
        // The other pages are read-only for him.
        TemplateTab* common = one.show(one.common());
        QVERIFY(Configurator::select(common, "CAT_COMMON"));
        QVERIFY(!common->isFolderCreatable() && !common->isItemDeletable());
        QVERIFY(!Configurator::tree(common)->dragEnabled());
        QVERIFY(!Configurator::in<QLineEdit>(common, "categoryNameEdit")->isEnabled());
    }

    void aPageWithoutItsScopeHides_data()
    {
        QTest::addColumn<QString>("organization");
        QTest::addColumn<QString>("line");
        QTest::newRow("no organization") << QString() << QString();
        QTest::newRow("unknown organization")
            << QStringLiteral("ORG_GONE")
            << QStringLiteral("void TemplateTab::applyTemplateFilter_Orgs() SQL "
                              "request {%1} return 0 records. Failed check ");
        QTest::newRow("organization without type") << QStringLiteral("ORG_BARE") << QString();
    }
    void aPageWithoutItsScopeHides()
    {
        QFETCH(QString, organization);
        QFETCH(QString, line);
        const auto loader = m_store->openLoader();
        QVERIFY(
            TestStore::write(loader.get(), "Organizations", ROW_INSERT, "ORG_BARE", {{"name_", "Без типа"}}));
        auto made = std::make_unique<TestClient>(*m_store, QStringLiteral("smirnov"), "DEP_ZAR");
        made->app().m_user_params.setValue(QStringLiteral("ORGANIZATIONKEY"), organization);
        Configurator one(std::move(made));
        QVERIFY(!one.pages()->isTabVisible(1));
        QCOMPARE(m_log->take(QStringLiteral("applyTemplateFilter_Orgs")),
                 line.isEmpty() ? QStringList() : (QStringList{line, line}));
    }

    void selectingShowsThePassport()
    {
        Configurator one(*m_store);
        TemplateTab* page = one.show(one.orgs());
        QSignalSpy changed(page, &TemplateTab::itemChanged);
        QVERIFY(Configurator::selectRoot(page, QStringLiteral("TYPE_NETS")));
        QCOMPARE(Configurator::passport(page), 0); // a root row has none
        QVERIFY(Configurator::select(page, "CAT_NETS"));
        QCOMPARE(Configurator::passport(page), 1);
        QVERIFY(Configurator::select(page, "TPL_TRIP"));
        QCOMPARE(Configurator::passport(page), 2);
        QCOMPARE(changed.size(), 3);
    }

    void anEmptyTreeShowsTheEmptyPage()
    {
        const auto loader = m_store->openLoader();
        for (const char* key : {"TPL_OPEN", "TPL_CLOSE", "TPL_ORDER"})
            QVERIFY(TestStore::write(loader.get(), "LogbookTemplates", ROW_DELETE, key));
        for (const char* key : {"CAT_COMMON_SUB", "CAT_COMMON"})
            QVERIFY(TestStore::write(loader.get(), "LogbookCatsTemplate", ROW_DELETE, key));
        Configurator one(*m_store);
        QVERIFY(one.isStarted());
        QVERIFY(!one.common()->currentRecord());
        QCOMPARE(Configurator::passport(one.common()), 0);
        one.show(one.common());
        QVERIFY(one.common()->isRootCreatable());
        one.common()->deleteSelected();
        QCOMPARE(one.boxText(), QStringLiteral("<center>Не выбран элемент для удаления!</center>"));
    }

    void searchWalksThroughTheWholeTree()
    {
        Configurator one(*m_store);
        TemplateTab* page = one.show(one.common());
        searchEdit(page)->setText(QStringLiteral("СМЕНЫ"));
        QCOMPARE(Configurator::currentKey(page), QStringLiteral("TPL_OPEN"));
        QVERIFY(down(page)->isEnabled() && !up(page)->isEnabled());
        QTest::keyClick(searchEdit(page), Qt::Key_Return);
        QCOMPARE(Configurator::currentKey(page), QStringLiteral("TPL_CLOSE"));
        QVERIFY(!down(page)->isEnabled() && up(page)->isEnabled());
        QTest::keyClick(searchEdit(page), Qt::Key_Return); // back to the first
        QCOMPARE(Configurator::currentKey(page), QStringLiteral("TPL_OPEN"));
        down(page)->click();
        up(page)->click();
        QCOMPARE(Configurator::currentKey(page), QStringLiteral("TPL_OPEN"));
        QVERIFY(!up(page)->isEnabled() && down(page)->isEnabled());

        searchEdit(page)->setText(QStringLiteral("производство"));
        QCOMPARE(Configurator::currentKey(page), QStringLiteral("TPL_ORDER"));
        QVERIFY(!down(page)->isEnabled() && !up(page)->isEnabled()); // the only one
        QTest::keyClick(searchEdit(page), Qt::Key_Return);
        QCOMPARE(Configurator::currentKey(page), QStringLiteral("TPL_ORDER"));

        searchEdit(page)->setText(QStringLiteral("ничего такого"));
        QCOMPARE(searchEdit(page)->palette().color(QPalette::Active, QPalette::Text),
                 QColor(0xdc, 0x14, 0x3c));
        QCOMPARE(searchEdit(page)->palette().color(QPalette::Inactive, QPalette::Text),
                 QColor(0xdc, 0x14, 0x3c));
        QCOMPARE(Configurator::currentKey(page), QStringLiteral("TPL_ORDER"));
        searchEdit(page)->clear();
        QCOMPARE(searchEdit(page)->palette().color(QPalette::Text), page->palette().color(QPalette::Text));
        QVERIFY(!down(page)->isEnabled() && !up(page)->isEnabled());
    }

    void theWayUpStaysOpenForTheOnlyHit()
    {
        Configurator one(*m_store);
        TemplateTab* page = one.show(one.common());
        searchEdit(page)->setText(QStringLiteral("СМЕНЫ"));
        const auto loader = m_store->openLoader();
        QVERIFY(TestStore::write(loader.get(), "LogbookTemplates", ROW_DELETE, "TPL_CLOSE"));
        one.deliver();
        QVERIFY(Configurator::select(page, "TPL_ORDER"));
        down(page)->click();
        QCOMPARE(Configurator::currentKey(page), QStringLiteral("TPL_OPEN"));
        QVERIFY(up(page)->isEnabled() && !down(page)->isEnabled());
    }

    void foundAndCreatedItemsStayVisible()
    {
        const auto loader = m_store->openLoader();
        for (int i = 0; i < 40; ++i) {
            const QByteArray key = QByteArray("CAT_") + QByteArray::number(1000 + i);
            QVERIFY(
                TestStore::write(loader.get(), "LogbookCatsTemplate", ROW_INSERT, key, {{"nameLoc", key}}));
            for (int j = 0; j < 3; ++j)
                QVERIFY(TestStore::write(loader.get(), "LogbookTemplates", ROW_INSERT,
                                         key + "_" + QByteArray::number(j),
                                         {{"CategoryKey", key},
                                          {"nameLoc", QByteArray("t" + QByteArray::number(j) + key)},
                                          {"html", "x"}}));
        }
        Configurator one(*m_store);
        one.window().resize(900, 400);
        TemplateTab* page = one.show(one.common());
        QTreeView* view = Configurator::tree(page);
        const auto isInSight = [view] {
            const QRect row = view->visualRect(view->currentIndex());
            return row.isValid() && view->viewport()->rect().contains(row);
        };
        QVERIFY(view->isAnimated());
        for (const char* name : {"t1CAT_1020", "t2CAT_1039", "t0CAT_1005"}) {
            searchEdit(page)->setText(QLatin1String(name)); // branches expand
            QCoreApplication::processEvents();
            QVERIFY2(isInSight(), name);
        }
        QVERIFY(view->isAnimated());
        view->collapseAll();
        QVERIFY(Configurator::select(page, "CAT_1030"));
        page->createTemplate();
        QCoreApplication::processEvents();
        QVERIFY(isInSight());
        page->cancelChanges();
    }

    void searchSkipsWhatTheFilterHides()
    {
        Configurator one(*m_store, QStringLiteral("smirnov"), "DEP_ZAR");
        TemplateTab* page = one.show(one.deps());
        searchEdit(page)->setText(QStringLiteral("Штормовое"));
        QCOMPARE(searchEdit(page)->palette().color(QPalette::Text), QColor(0xdc, 0x14, 0x3c));
    }

    void foldersAreMadeUnderTheirPlace()
    {
        Configurator one(*m_store);
        TemplateTab* page = one.show(one.common());
        QVERIFY(Configurator::select(page, "TPL_ORDER")); // a template represents its category
        page->createFolder();
        QCOMPARE(Configurator::source(page, "CAT_COMMON_SUB"),
                 page->model()->indexByRecord(page->currentRecord()).parent());
        QCOMPARE(Configurator::currentName(page), QStringLiteral("Новая подкатегория"));
        QCOMPARE(Configurator::in<QLineEdit>(page, "categoryNameEdit")->selectedText(),
                 QStringLiteral("Новая подкатегория"));
        QVERIFY(!page->isFolderCreatable() && !page->isTemplateCreatable() && !page->isItemDeletable());
        page->cancelChanges();

        TemplateTab* deps = one.show(one.deps());
        QVERIFY(Configurator::selectRoot(deps, QStringLiteral("DEP_ODS")));
        deps->createFolder();
        const MDRData* folder = deps->currentRecord();
        QCOMPARE(MDRValue::copy(Row(folder).value("DepartmentKey")), QByteArray("DEP_ODS"));
        QVERIFY(Row(folder).value("ParentKey").isNull && Row(folder).value("OrgTypeKey").isNull);
        deps->applyChanges();
        one.deliver();
        QCOMPARE(count(QStringLiteral("LogbookCatsTemplate WHERE DepartmentKey='DEP_ODS'")), 1);
        QVERIFY(TemplateTables::isContains(&deps->tables().categories, deps->currentRecord()));

        TemplateTab* orgs = one.show(one.orgs());
        QVERIFY(Configurator::select(orgs, "CAT_NETS"));
        orgs->createFolder();
        QCOMPARE(MDRValue::copy(Row(orgs->currentRecord()).value("ParentKey")), QByteArray("CAT_NETS"));
        QVERIFY(Row(orgs->currentRecord()).value("OrgTypeKey").isNull);
        orgs->cancelChanges();
    }

    void onlyWhatIsNoRootCanBeDeleted()
    {
        Configurator one(*m_store);
        TemplateTab* page = one.show(one.deps());
        QVERIFY(Configurator::selectRoot(page, QStringLiteral("DEP_CDS")));
        QVERIFY(!page->isItemDeletable());
        QTest::keyClick(page, Qt::Key_Delete);
        QVERIFY(!one.box());
        QVERIFY(Configurator::select(page, "CAT_CDS"));
        QVERIFY(page->isItemDeletable());
        QVERIFY(Configurator::select(page, "TPL_TEXT"));
        QVERIFY(page->isItemDeletable());
    }

    void withoutAParentNothingIsMade()
    {
        Configurator one(*m_store);
        TemplateTab* orgs = one.show(one.orgs());
        QVERIFY(Configurator::selectRoot(orgs, QStringLiteral("TYPE_CENTER")));
        orgs->createTemplate();
        QVERIFY(!orgs->isExistUnsaved());
        QCOMPARE(m_log
                     ->take(QStringLiteral(
                         "void TemplateTab::newTemplate_Orgs(QModelIndex, MDArrayRec*) failed get "
                         "record by index. Can't find parent category record."))
                     .size(),
                 2);
    }

    void deletionAsks()
    {
        Configurator one(*m_store);
        TemplateTab* page = one.show(one.common());
        QVERIFY(Configurator::select(page, "TPL_OPEN"));
        page->deleteSelected();
        QCOMPARE(one.boxText(), QStringLiteral("Удалить шаблон?"));
        QCOMPARE(one.box()->title(), QStringLiteral("Удаление"));
        QCOMPARE(one.box()->icon(), MessageIconQuestion);
        QCOMPARE(one.box()->type(), MessageTypeYesNo);
        one.answer("noButton");
        QVERIFY(!one.box());
        one.deliver();
        QVERIFY(Configurator::record(page, "TPL_OPEN"));

        page->deleteSelected();
        one.answer("yesButton");
        QVERIFY(Configurator::record(page, "TPL_OPEN")); // until the event arrives
        QVERIFY(!page->isExistUnsaved());
        one.deliver();
        QVERIFY(!Configurator::record(page, "TPL_OPEN"));
        QCOMPARE(count(QStringLiteral("LogbookTemplates WHERE KeyLink='TPL_OPEN'")), 0);
        QVERIFY(page->currentRecord());
    }

    void aCategoryGoesWithAllBelowIt()
    {
        Configurator one(*m_store);
        TemplateTab* page = one.show(one.common());
        QVERIFY(Configurator::select(page, "CAT_COMMON"));
        page->deleteSelected();
        QCOMPARE(one.boxText(),
                 QStringLiteral("Категория не пуста, удалится также содержимой этой категории.\n"
                                "Удалить категорию?"));
        one.answer("yesButton");
        one.deliver();
        QCOMPARE(Configurator::shown(page), QStringList());
        QCOMPARE(count(QStringLiteral("LogbookCatsTemplate")), 3);
        QCOMPARE(count(QStringLiteral("LogbookTemplates")), 2);
        QCOMPARE(Configurator::passport(page), 0);

        TemplateTab* deps = one.show(one.deps());
        QVERIFY(Configurator::select(deps, "CAT_ZAR"));
        deps->deleteSelected();
        QCOMPARE(one.boxText(), QStringLiteral("Удалить категорию?"));
        one.answer("yesButton");
        one.deliver();
        QVERIFY(!Configurator::record(deps, "CAT_ZAR"));
    }

    void reportsAFailedDeletion()
    {
        Configurator one(*m_store);
        TemplateTab* page = one.show(one.common());
        QVERIFY(Configurator::select(page, "CAT_COMMON"));
        const QStringList before = Configurator::shown(page);
        breakTable("LogbookCatsTemplate", "DELETE");
        page->deleteSelected();
        one.answer("yesButton");
        QCOMPARE(one.boxText(),
                 QStringLiteral("<center>При изменения данных возникла ошибка.\nДанные не были "
                                "изменены!</center>"));
        one.answer("okButton");
        one.deliver();
        QCOMPARE(Configurator::shown(page), before);
        QVERIFY(!page->isExistUnsaved());
        QCOMPARE(count(QStringLiteral("LogbookTemplates")), 5); // the block is one
        m_log->take(QStringLiteral("CVrkCliSes::BlockEnd"));
        one.client().takeFailures();
    }

    void theDeleteKeyDoesNotLookAtUnsavedChanges()
    {
        Configurator one(*m_store);
        TemplateTab* page = one.show(one.common());
        QVERIFY(Configurator::select(page, "CAT_COMMON"));
        page->createTemplate();
        QTest::keyClick(page, Qt::Key_Delete); // a pending record
        QCOMPARE(one.boxText(),
                 QStringLiteral("<center>Не удалось определить элемент для удаления</center>"));
        QCOMPARE(
            m_log
                ->take(QStringLiteral("void TemplateTab::deleteSelected() index contains unknown record in "
                                      "internalPointer()."))
                .size(),
            1);
        one.answer("okButton");
        page->cancelChanges();

        // Unsaved changes of an existing one are sent in the same block.
        QVERIFY(Configurator::select(page, "TPL_OPEN"));
        Configurator::in<QLineEdit>(page, "templateNameEdit")->setText(QStringLiteral("Напоследок"));
        QTest::keyClick(page, Qt::Key_Delete);
        one.answer("yesButton");
        QVERIFY(!page->isExistUnsaved());
        one.deliver();
        QVERIFY(!Configurator::record(page, "TPL_OPEN"));
    }

    void aCopyPastesOnce()
    {
        Configurator one(*m_store);
        TemplateTab* page = one.show(one.common());
        QVERIFY(Configurator::select(page, "TPL_ORDER"));
        QTest::keyClick(Configurator::tree(page), Qt::Key_C, Qt::ControlModifier);
        const QMimeData* mime = QGuiApplication::clipboard()->mimeData();
        QCOMPARE(mime->data(QStringLiteral("logbook_template")), QByteArray("TPL_ORDER"));
        QVERIFY(Configurator::select(page, "TPL_CLOSE")); // next to it
        QTest::keyClick(page, Qt::Key_V, Qt::ControlModifier);
        const MDRData* copy = page->currentRecord();
        QCOMPARE(MDRValue::copy(Row(copy).value("CategoryKey")), QByteArray("CAT_COMMON"));
        QVERIFY(MDRValue::copy(Row(copy).value("KeyLink")) != "TPL_ORDER");
        QCOMPARE(Configurator::currentName(page), QStringLiteral("Команда на производство переключений"));
        QCOMPARE(MDRValue::copy(Row(copy).value("html")),
                 MDRValue::copy(Row(Configurator::record(page, "TPL_ORDER")).value("html")));
        page->applyChanges();
        one.deliver();
        QCOMPARE(count(QStringLiteral("LogbookTemplates")), 6);
        QTest::keyClick(page, Qt::Key_V, Qt::ControlModifier);
        QVERIFY(!page->isExistUnsaved());
    }

    void refusesToPasteAMissingTemplate()
    {
        Configurator one(*m_store);
        TemplateTab* common = one.show(one.common());
        QVERIFY(Configurator::select(common, "TPL_OPEN"));
        common->copyItem();
        common->pasteItem();
        common->applyChanges();
        one.deliver();
        common->copyItem(); // created after the pages were loaded: the other pages do not have it
        TemplateTab* page = one.show(one.deps());
        QVERIFY(Configurator::select(page, "CAT_CDS"));
        QTest::keyClick(page, Qt::Key_V, Qt::ControlModifier);
        QVERIFY(!page->isExistUnsaved());
        auto* notice = Configurator::in<QLabel>(page, "noticeText");
        QVERIFY(notice->isVisible());
        QVERIFY(notice->text().startsWith(QStringLiteral("Вставить нечего: ")));
        Configurator::in<QAbstractButton>(page, "dismissButton")->click();
        QVERIFY(!notice->isVisible());
    }

    void aCopyCrossesPages()
    {
        Configurator one(*m_store, QStringLiteral("smirnov"), "DEP_ZAR");
        TemplateTab* common = one.show(one.common());
        QVERIFY(Configurator::select(common, "TPL_OPEN"));
        common->copyItem();
        TemplateTab* page = one.show(one.deps());
        QTest::keyClick(page, Qt::Key_V, Qt::ControlModifier); // not on a root row
        QVERIFY(!page->isExistUnsaved());
        QVERIFY(Configurator::select(page, "CAT_ZAR"));
        QTest::keyClick(page, Qt::Key_V, Qt::ControlModifier);
        QVERIFY(page->isExistUnsaved());
        page->applyChanges();
        one.deliver();
        QCOMPARE(count(QStringLiteral("LogbookTemplates WHERE CategoryKey='CAT_ZAR'")), 1);
    }

    void aViewerCopiesNothing()
    {
        Configurator one(*m_store, QStringLiteral("ivanov"));
        TemplateTab* page = one.show(one.common());
        QVERIFY(Configurator::select(page, "TPL_OPEN"));
        QTest::keyClick(page, Qt::Key_C, Qt::ControlModifier);
        const QMimeData* mime = QGuiApplication::clipboard()->mimeData();
        QVERIFY(!mime || !mime->hasFormat(QStringLiteral("logbook_template")));
        auto* copied = new QMimeData;
        copied->setData(QStringLiteral("logbook_template"), "TPL_OPEN");
        QGuiApplication::clipboard()->setMimeData(copied);
        QTest::keyClick(page, Qt::Key_V, Qt::ControlModifier);
        page->pasteItem();
        QVERIFY(!page->isExistUnsaved());
        QCOMPARE(QGuiApplication::clipboard()->mimeData()->data(QStringLiteral("logbook_template")),
                 QByteArray("TPL_OPEN"));
        QTest::keyClick(page, Qt::Key_F, Qt::ControlModifier);
        QTRY_VERIFY(searchEdit(page)->hasFocus() || !one.window().isActiveWindow());
        emit Configurator::tree(page)->customContextMenuRequested(QPoint(5, 5));
        QVERIFY(!Configurator::in<QMenu>(page, "contextMenu")->isVisible());
    }

    void theContextMenuOffersWhatIsAllowed()
    {
        Configurator one(*m_store);
        TemplateTab* page = one.show(one.orgs());
        QVERIFY(Configurator::select(page, "TPL_TRIP"));
        auto* menu = Configurator::in<QMenu>(page, "contextMenu");
        emit Configurator::tree(page)->customContextMenuRequested(QPoint(5, 5));
        QVERIFY(menu->isVisible());
        QVERIFY(!action(page, "rootFolderAction")->isEnabled());
        QVERIFY(action(page, "folderAction")->isEnabled() && action(page, "templateAction")->isEnabled());
        QVERIFY(action(page, "copyAction")->isEnabled() && !action(page, "pasteAction")->isEnabled());
        action(page, "copyAction")->trigger();
        menu->close();
        emit Configurator::tree(page)->customContextMenuRequested(QPoint(5, 5));
        QVERIFY(action(page, "pasteAction")->isEnabled());
        action(page, "pasteAction")->trigger();
        menu->close();
        QVERIFY(page->isExistUnsaved());
        emit Configurator::tree(page)->customContextMenuRequested(QPoint(5, 5)); // not with unsaved changes
        QVERIFY(!menu->isVisible());
        page->cancelChanges();
    }

    void aMoveKeepsTheKeyAndTheSubtree()
    {
        Configurator one(*m_store);
        TemplateTab* page = one.show(one.orgs());
        QVERIFY(Configurator::select(page, "CAT_NETS"));
        drag(page, "CAT_NETS", root(page, "TYPE_CENTER"));
        QCOMPARE(page->tables().categoriesMoved.data.RecCount(), 1);
        one.deliver();
        QCOMPARE(page->tables().categoriesMoved.data.RecCount(), 0);
        QCOMPARE(
            Configurator::shown(page),
            (QStringList{QStringLiteral("Диспетчерский центр"), QStringLiteral("  Технологические нарушения"),
                         QStringLiteral("    Автоматическое отключение линии"),
                         QStringLiteral("Электросетевая организация")}));
        QCOMPARE(Configurator::currentKey(page), QStringLiteral("CAT_NETS"));
        QVERIFY(Configurator::tree(page)->isExpanded(Configurator::tree(page)->currentIndex()));
        QCOMPARE(count(QStringLiteral("LogbookTemplates WHERE CategoryKey='CAT_NETS'")), 1);

        TemplateTab* common = one.show(one.common());
        drag(common, "TPL_OPEN", Configurator::source(common, "CAT_COMMON_SUB"));
        one.deliver();
        QCOMPARE(Configurator::source(common, "TPL_OPEN").parent(),
                 Configurator::source(common, "CAT_COMMON_SUB"));
        QCOMPARE(Configurator::currentKey(common), QStringLiteral("TPL_OPEN"));
        QVERIFY(m_store->value(QStringLiteral("SELECT html FROM LogbookTemplates WHERE KeyLink='TPL_OPEN'"))
                    .toString()
                    .contains(QStringLiteral("open_wshift")));
    }

    void aCategoryDroppedOnNothingStays()
    {
        Configurator one(*m_store);
        TemplateTab* page = one.show(one.common());
        drag(page, "CAT_COMMON_SUB", QModelIndex());
        QCOMPARE(
            m_log
                ->take(QStringLiteral("void TemplateTab::moveCategory(MDArrayRec*, MDArrayRec*) Can not find "
                                      "destination parent"))
                .size(),
            2);
        one.deliver();
        QVERIFY(Configurator::source(page, "CAT_COMMON_SUB").parent().isValid());
    }

    void aRefusedMoveChangesNothingAndIsNotSentAgain()
    {
        Configurator one(*m_store);
        TemplateTab* page = one.show(one.common());
        const QStringList before = Configurator::shown(page);
        drag(page, "CAT_COMMON", Configurator::source(page, "CAT_COMMON_SUB")); // into its own subtree
        one.deliver();
        QCOMPARE(Configurator::shown(page), before);
        QCOMPARE(one.client().takeFailures().size(), 1); // for the status line
        QCOMPARE(page->tables().categoriesMoved.data.RecCount(), 1);
        QVERIFY(!page->isExistUnsaved());
        m_log->take(QStringLiteral("CVrkCliSes::BlockEnd"));

        page->createRootFolder();
        page->applyChanges();
        one.deliver();
        drag(page, "CAT_COMMON_SUB", page->model()->indexByRecord(page->currentRecord()));
        one.deliver();
        QCOMPARE(one.client().takeFailures(), QStringList());
        QCOMPARE(Configurator::source(page, "CAT_COMMON_SUB").parent().data().toString(),
                 QStringLiteral("Новая категория"));
    }

    void theDepartmentTreeTakesNoDrop()
    {
        Configurator one(*m_store);
        TemplateTab* page = one.show(one.deps());
        const QStringList before = Configurator::shown(page);
        drag(page, "CAT_CDS", root(page, "DEP_ODS"));
        drag(page, "TPL_TEXT", Configurator::source(page, "CAT_ZAR"));
        one.deliver();
        QCOMPARE(Configurator::shown(page), before);
    }
};

QTEST_MAIN(TemplateTab_tree_test)
#include "TemplateTab_tree_test.moc"
