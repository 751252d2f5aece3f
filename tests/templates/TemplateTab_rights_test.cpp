#include "ConfiguratorBench.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMenu>
#include <QMimeData>

/// Who may do what on which level, item by item; and the messages if an item cannot be created.
class TemplateTab_rights_test : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<LogWatch> m_log;
    std::unique_ptr<TestStore> m_store;

    static void putOnClipboard(const QByteArray& key)
    {
        auto* mime = new QMimeData;
        mime->setData(QStringLiteral("logbook_template"), key);
        QGuiApplication::clipboard()->setMimeData(mime);
    }
    static bool select(TemplateTab* page, const QString& key)
    {
        return Configurator::selectRoot(page, key) || Configurator::select(page, key.toLatin1().constData());
    }
    /// The actions that the page allows its user on the current item, in words.
    static QString allowed(Configurator& one, TemplateTab* page)
    {
        QStringList words;
        const auto add = [&words](bool isAllowed, const char* word) {
            if (isAllowed)
                words << QLatin1String(word);
        };
        add(page->isRootCreatable(), "root");
        add(page->isFolderCreatable(), "folder");
        add(page->isTemplateCreatable(), "template");
        add(page->isItemDeletable(), "delete");
        auto* menu = Configurator::in<QMenu>(page, "contextMenu");
        emit Configurator::tree(page)->customContextMenuRequested(QPoint(5, 5));
        add(menu->isVisible(), "menu");
        add(menu->isVisible() && Configurator::in<QAction>(page, "copyAction")->isEnabled(), "copy");
        add(menu->isVisible() && Configurator::in<QAction>(page, "pasteAction")->isEnabled(), "paste");
        menu->close();
        QTest::keyClick(page, Qt::Key_Delete);
        add(one.box() != nullptr, "key");
        one.answer("noButton");
        add(Configurator::in<QWidget>(page, "categoryNameEdit")->isEnabled() &&
                Configurator::in<QWidget>(page, "templateTimeBox")->isEnabled(),
            "edit");
        const QTreeView* tree = Configurator::tree(page);
        add(tree->dragEnabled() && tree->viewport()->acceptDrops(), "drag");
        add(tree->model()->flags(tree->currentIndex()) & Qt::ItemIsDropEnabled, "drop");
        return words.join(QLatin1Char(' '));
    }
    int lastInserted(const char* table) const
    {
        return m_store
            ->value(QStringLiteral("SELECT max(entry) FROM ChangeLog WHERE event=601 AND tableName='%1'")
                        .arg(QLatin1String(table)))
            .toInt();
    }

private slots:
    void init()
    {
        m_log.reset();
        m_log = std::make_unique<LogWatch>();
        m_store = std::make_unique<TestStore>();
        QVERIFY(TestStore::write(m_store->openLoader().get(), "LogbookTemplates", ROW_INSERT, "TPL_ZAR",
                                 {{"CategoryKey", "CAT_ZAR"}, {"nameLoc", "Своё"}, {"html", "x"}}));
        QGuiApplication::clipboard()->clear();
    }
    void cleanup()
    {
        QCOMPARE(m_log->take().join(QLatin1Char('\n')), QString());
        m_store.reset();
    }

    void eachLevelAllowsItsOwn_data()
    {
        using Items = QVector<QPair<QString, QString>>; // a key, and what is allowed with it
        QTest::addColumn<QString>("login");
        QTest::addColumn<QString>("page");
        QTest::addColumn<Items>("items");
        const auto row = [](const char* login, const char* page,
                            std::initializer_list<std::pair<const char*, const char*>> items) {
            Items list;
            for (const auto& [key, words] : items)
                list.append({QString::fromLatin1(key), QString::fromLatin1(words)});
            QTest::addRow("%s %s", login, page)
                << QString::fromLatin1(login) << QString::fromLatin1(page) << list;
        };
        const char folder[] = "folder menu edit drag drop";
        const char category[] = "folder template delete menu paste key edit drag drop";
        const char item[] = "folder template delete menu copy paste key edit drag drop";
        row("ivanov", "publicTemplates", {{"CAT_COMMON", ""}, {"TPL_OPEN", ""}});
        row("ivanov", "orgsTemplates", {{"TYPE_NETS", ""}, {"CAT_NETS", ""}, {"TPL_TRIP", ""}});
        row("ivanov", "depsTemplates", {{"DEP_CDS", ""}, {"CAT_CDS", ""}, {"TPL_TEXT", ""}});
        row("smirnov", "publicTemplates", {{"CAT_COMMON", "menu"}, {"TPL_OPEN", "menu copy"}});
        row("smirnov", "orgsTemplates",
            {{"TYPE_NETS", "menu"}, {"CAT_NETS", "menu"}, {"TPL_TRIP", "menu copy"}});
        row("smirnov", "depsTemplates", {{"DEP_ZAR", folder}, {"CAT_ZAR", category}, {"TPL_ZAR", item}});
        row("sidorova", "publicTemplates",
            {{"CAT_COMMON", "root folder template delete menu paste key edit drag drop"},
             {"TPL_OPEN", "root folder template delete menu copy paste key edit drag drop"}});
        row("sidorova", "orgsTemplates", {{"TYPE_NETS", folder}, {"CAT_NETS", category}, {"TPL_TRIP", item}});
        row("sidorova", "depsTemplates", {{"DEP_CDS", folder}, {"CAT_CDS", category}, {"TPL_TEXT", item}});
    }
    void eachLevelAllowsItsOwn()
    {
        using Items = QVector<QPair<QString, QString>>;
        QFETCH(QString, login);
        QFETCH(QString, page);
        QFETCH(Items, items);
        Configurator one(*m_store, login, login == QLatin1String("smirnov") ? "DEP_ZAR" : "DEP_CDS");
        putOnClipboard("TPL_OPEN");
        TemplateTab* shown = one.show(one.page(page.toLatin1().constData()));
        for (const auto& [key, words] : items) {
            QVERIFY2(select(shown, key), qPrintable(key));
            QCOMPARE(key + QLatin1Char(' ') + allowed(one, shown), key + QLatin1Char(' ') + words);
        }
    }

    void aViewerSeesHisDepartmentOnly()
    {
        Configurator one(*m_store, QStringLiteral("ivanov"), "DEP_CDS");
        QCOMPARE(one.deps()->proxy()->rowCount(), 1);
        QCOMPARE(Configurator::shown(one.deps()).first(), QStringLiteral("ЦДС"));
    }

    void aViewerSavesNothing()
    {
        Configurator one(*m_store, QStringLiteral("ivanov"), "DEP_CDS");
        TemplateTab* page = one.show(one.deps());
        QVERIFY(Configurator::select(page, "CAT_CDS"));
        page->createFolder(); // which no button offers him
        page->applyChanges();
        QVERIFY(page->isExistUnsaved());
        QCOMPARE(one.client().takeFailures(), QStringList()); // no request went to the store
        page->cancelChanges();
    }

    void bothRightsMakeAnAdministrator()
    {
        const auto loader = m_store->openLoader();
        QVERIFY(
            TestStore::write(loader.get(), "UserRights", ROW_INSERT, "RIGHT_BOTH",
                             {{"UserKey", "USER_SIDOROVA"}, {"rightName", "ADMINISTRATOR_OPERLOG_LOCAL"}}));
        Configurator one(*m_store);
        QCOMPARE(one.window().rights(), Rights::Admin);
    }

    void baseParametersAreOffered()
    {
        Configurator one(*m_store);
        const QAbstractItemModel* rows = Configurator::in<QTreeView>(one.common(), "parametersTree")->model();
        QCOMPARE(rows->match(rows->index(0, 0), Qt::DisplayRole, QStringLiteral("Дата и время"), -1,
                             Qt::MatchExactly | Qt::MatchRecursive)
                     .isEmpty(),
                 false);
    }

    void categoriesAreWrittenBeforeTemplates()
    {
        Configurator one(*m_store);
        TemplateTab* page = one.show(one.common());
        QVERIFY(Configurator::select(page, "CAT_COMMON"));
        page->createTemplate();
        Configurator::in<QAbstractButton>(page, "templateTimeBox")->click();
        page->createFolder();
        page->applyChanges();
        one.deliver();
        QVERIFY(!page->isExistUnsaved());
        QVERIFY(lastInserted("LogbookCatsTemplate") < lastInserted("LogbookTemplates"));
    }

    void reportsFaultsOfCategoriesFirst()
    {
        Configurator one(*m_store);
        TemplateTab* page = one.show(one.common());
        QVERIFY(Configurator::select(page, "CAT_COMMON"));
        page->createTemplate(); // without a text
        page->createFolder();
        auto* name = Configurator::in<QLineEdit>(page, "categoryNameEdit");
        name->clear();
        page->applyChanges();
        QCOMPARE(one.boxText(), QStringLiteral("<center>Название категории не может быть пустым!</center>"));
        one.answer("okButton");
        name->setText(QStringLiteral("x"));
        page->applyChanges();
        QCOMPARE(one.boxText(), QStringLiteral("<center>Шаблон не может быть пустым!</center>"));
        one.answer("okButton");
        page->cancelChanges();
    }

    void theNameIsAskedForBeforeTheText()
    {
        Configurator one(*m_store);
        TemplateTab* page = one.show(one.common());
        QVERIFY(Configurator::select(page, "CAT_COMMON"));
        page->createTemplate();
        Configurator::in<QLineEdit>(page, "templateNameEdit")->clear();
        page->applyChanges();
        QCOMPARE(one.boxText(), QStringLiteral("<center>Название шаблона не может быть пустым!</center>"));
        one.answer("okButton");
        page->cancelChanges();
    }

    void logsRowsWithoutAPlace_data()
    {
        QTest::addColumn<QString>("page");
        QTest::addColumn<bool>("isFolder");
        QTest::addColumn<QString>("line");
        const QString noCategory =
            QStringLiteral("failed get record by index. Can't find parent category record.");
        const auto row = [](const char* page, bool isFolder, const char* operation, const QString& text) {
            QTest::newRow(operation) << QString::fromLatin1(page) << isFolder
                                     << QStringLiteral("void TemplateTab::%1(QModelIndex, MDArrayRec*) %2")
                                            .arg(QLatin1String(operation), text);
        };
        row("publicTemplates", true, "newFolder_Public", noCategory);
        row("publicTemplates", false, "newTemplate_Public", noCategory);
        row("orgsTemplates", true, "newFolder_Orgs",
            QStringLiteral("Not found organization type or parent key"));
        row("orgsTemplates", false, "newTemplate_Orgs", noCategory);
        row("depsTemplates", true, "newFolder_Deps", QStringLiteral("Not found department or parent key"));
        row("depsTemplates", false, "newTemplate_Deps", noCategory);
    }
    void logsRowsWithoutAPlace()
    {
        QFETCH(QString, page);
        QFETCH(bool, isFolder);
        QFETCH(QString, line);
        Configurator one(*m_store);
        TemplateTab* shown = one.show(one.page(page.toLatin1().constData()));
        // A new, unsaved category has no place.
        if (shown == one.common()) {
            shown->createRootFolder();
        } else {
            QVERIFY(
                select(shown, shown == one.orgs() ? QStringLiteral("TYPE_NETS") : QStringLiteral("DEP_CDS")));
            shown->createFolder();
        }
        const QStringList before = Configurator::shown(shown);
        if (isFolder)
            shown->createFolder();
        else
            shown->createTemplate();
        QCOMPARE(Configurator::shown(shown), before);
        QCOMPARE(m_log->take(line).size(), 2); // the message log and the log sink
        shown->cancelChanges();
    }

    void theClipboardIsEmptyAfterAnyPaste()
    {
        Configurator one(*m_store);
        TemplateTab* page = one.show(one.common());
        QVERIFY(Configurator::select(page, "CAT_COMMON"));
        putOnClipboard("NOBODY");
        page->pasteItem();
        QVERIFY(!page->isExistUnsaved());
        const QMimeData* mime = QGuiApplication::clipboard()->mimeData();
        QVERIFY(!mime || !mime->hasFormat(QStringLiteral("logbook_template")));
    }

    void aKeyOnTheClipboardEndsAtItsZero()
    {
        Configurator one(*m_store);
        TemplateTab* page = one.show(one.common());
        QVERIFY(Configurator::select(page, "CAT_COMMON"));
        putOnClipboard(QByteArray("TPL_OPEN\0rest", 13));
        page->pasteItem();
        QCOMPARE(Configurator::currentName(page), QStringLiteral("Приём смены"));
        page->cancelChanges();
    }
};

QTEST_MAIN(TemplateTab_rights_test)
#include "TemplateTab_rights_test.moc"
