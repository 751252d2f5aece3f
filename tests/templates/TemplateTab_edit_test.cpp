#include "ConfiguratorBench.h"
#include "FailingStore.h"
#include "TEventNciParse.h"

#include <QCheckBox>
#include <QLabel>
#include <QSignalSpy>
#include <QTextEdit>

/// Unsaved changes: their buffer, checking and saving in one block, failures, and the merging of events.
class TemplateTab_edit_test : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<LogWatch> m_log;
    std::unique_ptr<TestStore> m_store;
    QPair<QString, QString> m_broken;

    static QLineEdit* categoryName(TemplateTab* page)
    {
        return Configurator::in<QLineEdit>(page, "categoryNameEdit");
    }
    static QLineEdit* templateName(TemplateTab* page)
    {
        return Configurator::in<QLineEdit>(page, "templateNameEdit");
    }
    static QCheckBox* openBox(TemplateTab* page)
    {
        return Configurator::in<QCheckBox>(page, "templateOpenBox");
    }
    static QAbstractButton* restoreButton(TemplateTab* page)
    {
        for (QAbstractButton* button : page->findChildren<QAbstractButton*>(QStringLiteral("restoreButton")))
            if (button->isVisible()) // that of an earlier notice is deleted later
                return button;
        return nullptr;
    }
    QString stored(const char* table, const char* key, const char* field = "nameLoc") const
    {
        return m_store
            ->value(QStringLiteral("SELECT %1 FROM %2 WHERE KeyLink='%3'")
                        .arg(QLatin1String(field), QLatin1String(table), QLatin1String(key)))
            .toString();
    }
    /// Makes writes to a table fail.
    void breakTable(const char* table, const char* operation)
    {
        m_broken = {QLatin1String(operation), QLatin1String(table)};
        QCOMPARE(m_store->refuse(m_broken.first, m_broken.second), QString());
    }
    void mendTable() { QCOMPARE(m_store->permit(m_broken.first, m_broken.second), QString()); }
    int writes(const char* key) const
    {
        return m_store
            ->value(
                QStringLiteral("SELECT count(*) FROM ChangeLog WHERE rowKey='%1'").arg(QLatin1String(key)))
            .toInt();
    }
    /// This configurator never receives the events up to now.
    static void loseEvents(Configurator& one)
    {
        one.client().session().pollEvents();
        for (HFNCliParam* block : one.client().session().takeEvents())
            one.client().session().PrmFree(block);
    }
    TemplateTab* openCommon(Configurator& one, const char* key)
    {
        TemplateTab* page = one.show(one.common());
        if (!Configurator::select(page, key))
            qFatal("no row %s", key);
        return page;
    }

private slots:
    void init()
    {
        m_log.reset();
        m_log = std::make_unique<LogWatch>();
        m_store = std::make_unique<TestStore>();
    }
    void cleanup()
    {
        QCOMPARE(m_log->take().join(QLatin1Char('\n')), QString());
        m_store.reset();
        m_log.reset();
    }

    void theFirstKeystrokeMakesTheChange()
    {
        Configurator one(*m_store);
        TemplateTab* page = openCommon(one, "TPL_ORDER");
        QSignalSpy edited(page, &TemplateTab::dataEdited);
        QVERIFY(!page->isExistUnsaved());
        templateName(page)->setText(QStringLiteral("Иначе"));
        templateName(page)->setText(QStringLiteral("Иначе!"));
        QCOMPARE(edited.size(), 1);
        QCOMPARE(page->tables().templatesEdit.data.RecCount(), 1);
        const MDRData* edit = MDARec(page->tables().templatesEdit.data.array, 0, 0);
        QCOMPARE(int(edit->flags), int(ROW_UPDATE));
        for (const char* field : {"KeyLink", "CategoryKey", "nameLoc", "html"}) {
            bool isMarked = false;
            MDRIsUser(MDRFldByName(MDARecArr(edit), field), edit, &isMarked);
            QCOMPARE(isMarked, qstrcmp(field, "nameLoc") == 0); // only what the user changed is written
        }
        QCOMPARE(MDRValue::copy(Row(edit).value("html")),
                 MDRValue::copy(Row(Configurator::record(page, "TPL_ORDER")).value("html")));
        // The row keeps its name until the change event arrives.
        QCOMPARE(Configurator::currentName(page), QStringLiteral("Команда на производство переключений"));
    }

    void aChangedTopLevelCategoryKeepsItsLevel()
    {
        Configurator one(*m_store);
        TemplateTab* page = one.show(one.deps());
        QVERIFY(Configurator::select(page, "CAT_CDS"));
        categoryName(page)->setText(QStringLiteral("Погода и дороги"));
        const MDRData* edit = MDARec(page->tables().categoriesEdit.data.array, 0, 0);
        QVERIFY(Row(edit).value("DepartmentKey").isNull);
        page->applyChanges();
        one.deliver();
        QCOMPARE(stored("LogbookCatsTemplate", "CAT_CDS"), QStringLiteral("Погода и дороги"));
        QCOMPARE(stored("LogbookCatsTemplate", "CAT_CDS", "DepartmentKey"), QStringLiteral("DEP_CDS"));
        QCOMPARE(Configurator::currentName(page), QStringLiteral("Погода и дороги"));
        QCOMPARE(Configurator::currentKey(page), QStringLiteral("CAT_CDS"));
    }

    void savingWaitsForItsEvent()
    {
        Configurator one(*m_store);
        TemplateTab* page = openCommon(one, "TPL_OPEN");
        templateName(page)->setText(QStringLiteral("Приём"));
        page->applyChanges();
        QVERIFY(page->isExistUnsaved()); // sent, and unsaved until the event arrives
        QCOMPARE(writes("TPL_OPEN"), 2);
        QVERIFY(Configurator::select(page, "TPL_CLOSE")); // continuing does not send it again
        QVERIFY(Configurator::select(page, "TPL_OPEN"));
        QCOMPARE(writes("TPL_OPEN"), 2);
        QSignalSpy reset(page, &TemplateTab::editDataReseted);
        QSignalSpy painted(page->model(), &QAbstractItemModel::dataChanged);
        one.deliver();
        QCOMPARE(painted.size(), 1); // the view receives the signal
        QVERIFY(!page->isExistUnsaved());
        QCOMPARE(reset.size(), 1);
        QCOMPARE(Configurator::currentName(page), QStringLiteral("Приём"));
        QCOMPARE(stored("LogbookTemplates", "TPL_OPEN"), QStringLiteral("Приём"));
    }

    void aSaveWithoutEventsCanBeRepeated_data()
    {
        QTest::addColumn<bool>("isNew");
        QTest::newRow("a change") << false;
        QTest::newRow("a new category") << true;
    }
    void aSaveWithoutEventsCanBeRepeated()
    {
        QFETCH(bool, isNew);
        Configurator one(*m_store);
        TemplateTab* page = openCommon(one, "CAT_COMMON");
        if (isNew)
            page->createRootFolder();
        const QByteArray key = Configurator::currentKey(page).toLatin1();
        categoryName(page)->setText(QStringLiteral("Раз"));
        page->applyChanges();
        loseEvents(one);
        QVERIFY(page->isExistUnsaved());
        categoryName(page)->setText(QStringLiteral("Два"));
        one.child<QToolButton>("saveButton")->click();
        one.child<QToolButton>("saveButton")->click();
        QCOMPARE(stored("LogbookCatsTemplate", key.constData()), QStringLiteral("Два"));
        one.deliver();
        QVERIFY(!page->isExistUnsaved());
        QVERIFY(!restoreButton(page));
        QCOMPARE(one.client().takeFailures(), QStringList());
    }

    void typingOnAfterASaveGoesOn()
    {
        Configurator one(*m_store);
        TemplateTab* page = openCommon(one, "TPL_OPEN");
        QLineEdit* name = templateName(page);
        name->setText(QStringLiteral("Приём"));
        page->applyChanges();
        name->end(false);
        name->insert(QStringLiteral(" и"));
        name->setCursorPosition(2);
        one.deliver();
        QCOMPARE(name->text(), QStringLiteral("Приём и"));
        QCOMPARE(name->cursorPosition(), 2);
        QVERIFY(!restoreButton(page)); // nobody else was involved
        QVERIFY(page->isExistUnsaved());
        QVERIFY(one.window().isEdit());
        QCOMPARE(Configurator::currentName(page), QStringLiteral("Приём"));
        QCOMPARE(stored("LogbookTemplates", "TPL_OPEN"), QStringLiteral("Приём"));
        page->applyChanges();
        one.deliver();
        QVERIFY(!page->isExistUnsaved());
        QCOMPARE(stored("LogbookTemplates", "TPL_OPEN"), QStringLiteral("Приём и"));
    }

    void typingOnInASavedNewItemGoesOn_data()
    {
        QTest::addColumn<bool>("isCategory");
        QTest::newRow("category") << true;
        QTest::newRow("template") << false;
    }
    void typingOnInASavedNewItemGoesOn()
    {
        QFETCH(bool, isCategory);
        Configurator one(*m_store);
        TemplateTab* page = openCommon(one, "CAT_COMMON");
        if (isCategory) {
            page->createFolder();
        } else {
            page->createTemplate();
            openBox(page)->click();
        }
        const QByteArray key = Configurator::currentKey(page).toLatin1();
        QLineEdit* name = isCategory ? categoryName(page) : templateName(page);
        name->setText(QStringLiteral("Погода"));
        page->applyChanges();
        name->end(false);
        name->insert(QStringLiteral(" и дороги"));
        name->setCursorPosition(3);
        one.deliver();
        QCOMPARE(name->text(), QStringLiteral("Погода и дороги"));
        QCOMPARE(name->cursorPosition(), 3);
        QVERIFY(page->isExistUnsaved());
        QCOMPARE(Configurator::currentKey(page).toLatin1(), key);
        QCOMPARE(Configurator::shown(page).filter(QStringLiteral("Погода")),
                 QStringList{QStringLiteral("  Погода")}); // one row, with the server's state
        page->applyChanges();
        one.deliver();
        QVERIFY(!page->isExistUnsaved());
        const char* table = isCategory ? "LogbookCatsTemplate" : "LogbookTemplates";
        QCOMPARE(stored(table, key.constData()), QStringLiteral("Погода и дороги"));
        QCOMPARE(stored(table, key.constData(), isCategory ? "ParentKey" : "CategoryKey"),
                 QStringLiteral("CAT_COMMON"));
        QCOMPARE(one.client().takeFailures(), QStringList());
    }

    void aNewItemThatIsTypedOnIsSavedByGoingOn()
    {
        Configurator one(*m_store);
        TemplateTab* page = openCommon(one, "CAT_COMMON");
        page->createFolder();
        const QByteArray key = Configurator::currentKey(page).toLatin1();
        page->applyChanges();
        categoryName(page)->setText(QStringLiteral("Погода"));
        QVERIFY(Configurator::select(page, "TPL_CLOSE")); // before the event of its insertion
        one.deliver();
        QCOMPARE(stored("LogbookCatsTemplate", key.constData()), QStringLiteral("Погода"));
        QCOMPARE(Configurator::record(page, key.constData())
                     ? Configurator::source(page, key.constData()).data().toString()
                     : QString(),
                 QStringLiteral("Погода"));
        QVERIFY(!page->isExistUnsaved());
        QVERIFY(!restoreButton(page));
        QCOMPARE(one.client().takeFailures(), QStringList());
    }

    void anothersSaveBeforeOnesOwnIsNoLoss()
    {
        Configurator one(*m_store);
        Configurator other(*m_store);
        TemplateTab* page = openCommon(one, "TPL_OPEN");
        TemplateTab* theirs = openCommon(other, "TPL_OPEN");
        templateName(page)->setText(QStringLiteral("Моё"));
        templateName(theirs)->setText(QStringLiteral("Их"));
        theirs->applyChanges();
        page->applyChanges();
        one.deliver();
        QVERIFY(!page->isExistUnsaved());
        QVERIFY(!restoreButton(page));
        QCOMPARE(templateName(page)->text(), QStringLiteral("Моё"));
        QCOMPARE(stored("LogbookTemplates", "TPL_OPEN"), QStringLiteral("Моё"));
    }

    void aMoveLeavesWhatIsUnsaved()
    {
        Configurator one(*m_store);
        TemplateTab* page = openCommon(one, "TPL_OPEN");
        templateName(page)->setText(QStringLiteral("Правка"));
        page->moveItem(QStringLiteral("TPL_OPEN"), Configurator::source(page, "CAT_COMMON_SUB"));
        one.deliver();
        QCOMPARE(stored("LogbookTemplates", "TPL_OPEN"), QStringLiteral("Приём смены"));
        QCOMPARE(stored("LogbookTemplates", "TPL_OPEN", "CategoryKey"), QStringLiteral("CAT_COMMON_SUB"));
        QCOMPARE(Configurator::currentKey(page), QStringLiteral("TPL_OPEN"));
        QVERIFY(page->isExistUnsaved());
        QCOMPARE(templateName(page)->text(), QStringLiteral("Правка"));
        QVERIFY(!restoreButton(page));
        page->applyChanges();
        one.deliver();
        QCOMPARE(stored("LogbookTemplates", "TPL_OPEN"), QStringLiteral("Правка"));
        QCOMPARE(stored("LogbookTemplates", "TPL_OPEN", "CategoryKey"), QStringLiteral("CAT_COMMON_SUB"));
        QVERIFY(!page->isExistUnsaved());
    }

    void aMoveOverASaveOnItsWayKeepsIt()
    {
        Configurator one(*m_store);
        TemplateTab* page = openCommon(one, "TPL_OPEN");
        templateName(page)->setText(QStringLiteral("Правка"));
        page->applyChanges();
        page->moveItem(QStringLiteral("TPL_OPEN"), Configurator::source(page, "CAT_COMMON_SUB"));
        one.deliver();
        QCOMPARE(stored("LogbookTemplates", "TPL_OPEN"), QStringLiteral("Правка"));
        QCOMPARE(Configurator::currentName(page), QStringLiteral("Правка"));
        QVERIFY(!page->isExistUnsaved());
    }

    void aChangeToTheSameValueIsSavedToo()
    {
        Configurator one(*m_store);
        TemplateTab* page = openCommon(one, "TPL_OPEN");
        templateName(page)->setText(QStringLiteral("x"));
        templateName(page)->setText(QStringLiteral("Приём смены"));
        page->applyChanges();
        one.deliver();
        QVERIFY(!page->isExistUnsaved());
    }

    void selectingAnotherItemSaves()
    {
        Configurator one(*m_store);
        TemplateTab* page = openCommon(one, "TPL_OPEN");
        openBox(page)->click();
        QVERIFY(page->isExistUnsaved());
        QVERIFY(Configurator::select(page, "TPL_CLOSE"));
        QVERIFY(!stored("LogbookTemplates", "TPL_OPEN", "html").contains(QStringLiteral("open_wshift")));
        one.deliver();
        QVERIFY(!page->isExistUnsaved());
        QCOMPARE(Configurator::currentKey(page), QStringLiteral("TPL_CLOSE"));
    }

    void onlyCategoriesAreSentWhenOnlyTheyChanged()
    {
        Configurator one(*m_store);
        TemplateTab* page = openCommon(one, "CAT_COMMON");
        categoryName(page)->setText(QStringLiteral("Смена"));
        breakTable("LogbookTemplates", "UPDATE");
        page->applyChanges();
        mendTable();
        one.deliver();
        QCOMPARE(stored("LogbookCatsTemplate", "CAT_COMMON"), QStringLiteral("Смена"));
        QVERIFY(!page->isExistUnsaved());
    }

    void reportsOneFaultAtATime_data()
    {
        QTest::addColumn<QString>("key");
        QTest::addColumn<QString>("text");
        QTest::newRow("category") << QStringLiteral("CAT_COMMON")
                                  << QStringLiteral("Название категории не может быть пустым!");
        QTest::newRow("template") << QStringLiteral("TPL_OPEN")
                                  << QStringLiteral("Название шаблона не может быть пустым!");
    }
    void reportsOneFaultAtATime()
    {
        QFETCH(QString, key);
        QFETCH(QString, text);
        Configurator one(*m_store);
        TemplateTab* page = openCommon(one, key.toLatin1().constData());
        (key.startsWith(QLatin1String("CAT")) ? categoryName(page) : templateName(page))->clear();
        page->applyChanges();
        QCOMPARE(one.boxText(), QStringLiteral("<center>%1</center>").arg(text));
        QCOMPARE(one.box()->title(), QStringLiteral("Ошибка"));
        QCOMPARE(one.box()->icon(), MessageIconError);
        QCOMPARE(one.box()->type(), MessageTypeOk);
        one.answer("okButton");
        QVERIFY(!one.box());
        QVERIFY(page->isExistUnsaved()); // all edits survive

        // Selecting another item is cancelled.
        Configurator::select(page, "TPL_CLOSE");
        QVERIFY(one.box());
        QTRY_COMPARE(Configurator::currentKey(page), key);
        QVERIFY(page->isExistUnsaved());
        QCOMPARE(Configurator::tree(page)->selectionModel()->selectedIndexes(),
                 QModelIndexList{Configurator::tree(page)->currentIndex()});
        one.answer("okButton");
        page->cancelChanges();
        QVERIFY(!page->isExistUnsaved());
    }

    void aNewTemplateNeedsAText()
    {
        Configurator one(*m_store);
        TemplateTab* page = openCommon(one, "CAT_COMMON");
        page->createTemplate();
        QVERIFY(page->isExistUnsaved());
        page->applyChanges();
        QCOMPARE(one.boxText(), QStringLiteral("<center>Шаблон не может быть пустым!</center>"));
        one.answer("okButton");
        openBox(page)->click(); // a property is enough
        page->applyChanges();
        one.deliver();
        QVERIFY(!page->isExistUnsaved());
        QCOMPARE(
            m_store
                ->value(QStringLiteral("SELECT count(*) FROM LogbookTemplates WHERE nameLoc='Новый шаблон'"))
                .toInt(),
            1);
    }

    void aNewCategoryIsSavedUnderItsDefaultName()
    {
        Configurator one(*m_store);
        TemplateTab* page = openCommon(one, "CAT_COMMON");
        page->createRootFolder();
        const QString key = Configurator::currentKey(page);
        QCOMPARE(Configurator::currentName(page), QStringLiteral("Новая категория"));
        page->applyChanges();
        QVERIFY(!Configurator::record(page, key.toLatin1().constData()));
        one.deliver();
        QCOMPARE(Configurator::currentKey(page), key); // the inserted row is selected
        QCOMPARE(page->currentRecord(), Configurator::record(page, key.toLatin1().constData()));
        QCOMPARE(Configurator::shown(page).filter(QStringLiteral("Новая категория")).size(), 1);
        QVERIFY(!page->isExistUnsaved());
    }

    void cancelBringsTheStoredValuesBack()
    {
        Configurator one(*m_store);
        TemplateTab* page = openCommon(one, "CAT_COMMON");
        const QStringList before = Configurator::shown(page);
        page->createFolder();
        categoryName(page)->setText(QStringLiteral("Лишняя"));
        // a new row follows the typed name
        QCOMPARE(Configurator::currentName(page), QStringLiteral("Лишняя"));
        page->cancelChanges();
        QCOMPARE(Configurator::shown(page), before);
        QVERIFY(!page->isExistUnsaved());

        QVERIFY(Configurator::select(page, "TPL_OPEN"));
        templateName(page)->setText(QStringLiteral("Правка"));
        openBox(page)->click();
        page->cancelChanges();
        QCOMPARE(templateName(page)->text(), QStringLiteral("Приём смены"));
        QVERIFY(openBox(page)->isChecked());
    }

    void aCancellationCanBeTakenBackUntilTheUserGoesOn()
    {
        Configurator one(*m_store);
        TemplateTab* page = openCommon(one, "TPL_OPEN");
        templateName(page)->setText(QStringLiteral("Длинная правка"));
        page->cancelChanges(); // as by a mistaken Escape
        QVERIFY(!page->isExistUnsaved());
        QTRY_VERIFY(restoreButton(page));
        QCOMPARE(page->findChild<QLabel*>(QStringLiteral("noticeText"))->text(),
                 QStringLiteral("Изменения отменены."));
        restoreButton(page)->click();
        QVERIFY(page->isExistUnsaved());
        QCOMPARE(templateName(page)->text(), QStringLiteral("Длинная правка"));
        QVERIFY(!restoreButton(page));

        page->cancelChanges();
        QTRY_VERIFY(restoreButton(page));
        QVERIFY(Configurator::select(page, "TPL_CLOSE"));
        QVERIFY(!restoreButton(page));
        QVERIFY(Configurator::select(page, "TPL_OPEN"));
        QVERIFY(!restoreButton(page));
        QCOMPARE(templateName(page)->text(), QStringLiteral("Приём смены"));
    }

    void refusedChangesAreOfferedLonger()
    {
        Configurator one(*m_store);
        TemplateTab* page = openCommon(one, "TPL_OPEN");
        templateName(page)->setText(QStringLiteral("Первое"));
        breakTable("LogbookTemplates", "UPDATE");
        page->applyChanges();
        mendTable();
        QVERIFY(Configurator::select(page, "TPL_CLOSE"));
        QVERIFY(restoreButton(page));
        templateName(page)->setText(QStringLiteral("Второе"));
        page->cancelChanges();
        QVERIFY(Configurator::select(page, "CAT_COMMON"));
        QTRY_VERIFY(restoreButton(page));
        m_log->take();
        one.client().takeFailures();
    }

    void aRefusedSaveDropsTheChangesAndOffersThemAgain()
    {
        Configurator one(*m_store);
        TemplateTab* page = openCommon(one, "TPL_OPEN");
        templateName(page)->setText(QStringLiteral("Длинная правка"));
        breakTable("LogbookTemplates", "UPDATE");
        page->applyChanges();
        QVERIFY(!page->isExistUnsaved());
        QVERIFY(!one.window().isEdit());
        QVERIFY(!one.box()); // no message box
        QCOMPARE(templateName(page)->text(), QStringLiteral("Приём смены"));
        QCOMPARE(one.client().takeFailures(), QStringList{QStringLiteral("broken")}); // for the status line
        const QStringList log = m_log->take(QStringLiteral("bool TemplateTab::sendChangesToServer()"));
        QCOMPARE(log.size(), 2);
        // Deliberate: under the heading of categories, and the records are those of categories: none.
        QCOMPARE(log.first(),
                 QStringLiteral("bool TemplateTab::sendChangesToServer() CVrkCliSes::BlockEnd returned "
                                "FALSE\nTable LogbookCatsTemplate contains:\n\n"));
        QCOMPARE(m_log->take(QStringLiteral("CVrkCliSes::BlockEnd")).size(), 1);
        QCOMPARE(page->findChild<QLabel*>(QStringLiteral("noticeText"))->text(),
                 QStringLiteral("Изменения не сохранены. broken"));

        mendTable();
        QVERIFY(restoreButton(page));
        restoreButton(page)->click();
        QVERIFY(page->isExistUnsaved());
        QCOMPARE(templateName(page)->text(), QStringLiteral("Длинная правка"));
        QVERIFY(!restoreButton(page));
        page->applyChanges();
        one.deliver();
        QCOMPARE(stored("LogbookTemplates", "TPL_OPEN"), QStringLiteral("Длинная правка"));
        QVERIFY(!page->isExistUnsaved());
    }

    void aRefusedNewRowLeavesTheTreeAndComesBack()
    {
        Configurator one(*m_store);
        TemplateTab* page = openCommon(one, "CAT_COMMON");
        const QStringList before = Configurator::shown(page);
        page->createFolder();
        categoryName(page)->setText(QStringLiteral("Новое место"));
        const QString key = Configurator::currentKey(page);
        breakTable("LogbookCatsTemplate", "INSERT");
        Configurator::select(page, "TPL_CLOSE"); // which saves
        QCoreApplication::processEvents();
        QCOMPARE(Configurator::shown(page), before);
        QVERIFY(!page->isExistUnsaved());
        const QStringList log = m_log->take(QStringLiteral("sendChangesToServer"));
        QCOMPARE(log.size(), 2);
        QCOMPARE(m_log->take(QStringLiteral("CVrkCliSes::BlockEnd")).size(), 1);
        QVERIFY2(log.first().contains(
                     QStringLiteral("Table LogbookCatsTemplate contains:\nrecord has flags: "
                                    "ROW_INSERT \nKeyLink: %1;\nParentKey: CAT_COMMON;\nOrgTypeKey:  "
                                    "NULL;\nDepartmentKey:  NULL;\nnameLoc: Новое место;\n\n")
                         .arg(key)),
                 qPrintable(log.first()));
        mendTable();
        restoreButton(page)->click();
        QCOMPARE(Configurator::currentKey(page), key);
        QCOMPARE(Configurator::currentName(page), QStringLiteral("Новое место"));
        page->applyChanges();
        one.deliver();
        QCOMPARE(stored("LogbookCatsTemplate", key.toLatin1().constData()), QStringLiteral("Новое место"));
        QCOMPARE(Configurator::currentKey(page), key);
        one.client().takeFailures();
    }

    void aFailedSaveReturnsTheSelection()
    {
        Configurator one(*m_store);
        TemplateTab* page = openCommon(one, "TPL_OPEN");
        templateName(page)->setText(QStringLiteral("Правка"));
        breakTable("LogbookTemplates", "UPDATE");
        Configurator::select(page, "TPL_CLOSE");
        QTRY_COMPARE(Configurator::currentKey(page), QStringLiteral("TPL_OPEN"));
        QCOMPARE(templateName(page)->text(), QStringLiteral("Приём смены"));
        m_log->take();
        one.client().takeFailures();
    }

    void aLostAnswerLosesNothing()
    {
        auto plan = std::make_shared<FailingStore::Plan>();
        auto client = std::make_unique<TestClient>(
            std::make_unique<FailingStore>(m_store->open(QStringLiteral("sidorova")), plan));
        Configurator one(std::move(client));
        m_log->take(); // no department: the page of departments is hidden
        TemplateTab* page = openCommon(one, "TPL_OPEN");
        templateName(page)->setText(QStringLiteral("Через обрыв"));
        plan->lostAnswers = 1;
        page->applyChanges();
        one.settle();
        QCOMPARE(stored("LogbookTemplates", "TPL_OPEN"), QStringLiteral("Через обрыв"));
        QCOMPARE(Configurator::currentName(page), QStringLiteral("Через обрыв"));
        QVERIFY(!page->isExistUnsaved());
        m_log->take();
    }

    void anothersSaveWinsOverAPendingEdit()
    {
        Configurator one(*m_store);
        Configurator other(*m_store);
        TemplateTab* page = openCommon(one, "TPL_OPEN");
        TemplateTab* theirs = openCommon(other, "TPL_OPEN");
        templateName(page)->setText(QStringLiteral("Моё"));
        templateName(theirs)->setText(QStringLiteral("Их"));
        theirs->applyChanges();
        one.deliver();
        QVERIFY(!page->isExistUnsaved());
        QVERIFY(!one.box());
        QCOMPARE(templateName(page)->text(), QStringLiteral("Их"));
        QCOMPARE(Configurator::currentName(page), QStringLiteral("Их"));
        // The dropped changes can be restored.
        QVERIFY(restoreButton(page));
        restoreButton(page)->click();
        QCOMPARE(templateName(page)->text(), QStringLiteral("Моё"));
        page->applyChanges();
        one.deliver();
        other.deliver();
        QCOMPARE(stored("LogbookTemplates", "TPL_OPEN"), QStringLiteral("Моё"));
        QCOMPARE(templateName(theirs)->text(), QStringLiteral("Моё"));
        QVERIFY(!restoreButton(theirs));
    }

    void anothersDeletionTakesThePendingEditAlong()
    {
        Configurator one(*m_store);
        Configurator other(*m_store);
        TemplateTab* page = openCommon(one, "TPL_OPEN");
        TemplateTab* theirs = openCommon(other, "TPL_OPEN");
        templateName(page)->setText(QStringLiteral("Моё"));
        theirs->deleteSelected();
        other.answer("yesButton");
        one.deliver();
        QVERIFY(!page->isExistUnsaved());
        QVERIFY(!Configurator::record(page, "TPL_OPEN"));
        QVERIFY(!Configurator::shown(page).contains(QStringLiteral("  Приём смены")));
        QVERIFY(page->currentRecord());
        QVERIFY(!one.window().isEdit());
        // The typed changes are restored as a new item at the old place.
        restoreButton(page)->click();
        QVERIFY(page->isExistUnsaved());
        QCOMPARE(templateName(page)->text(), QStringLiteral("Моё"));
        QCOMPARE(Configurator::currentName(page), QStringLiteral("Моё"));
        QVERIFY(!restoreButton(page));
        page->applyChanges();
        one.deliver();
        other.deliver();
        QCOMPARE(stored("LogbookTemplates", "TPL_OPEN"), QStringLiteral("Моё"));
        QVERIFY(stored("LogbookTemplates", "TPL_OPEN", "html").contains(QStringLiteral("open_wshift")));
        QCOMPARE(Configurator::shown(theirs), Configurator::shown(page));
    }

    void typedChangesOutliveTheirPlace()
    {
        Configurator one(*m_store);
        Configurator other(*m_store);
        TemplateTab* page = openCommon(one, "TPL_OPEN");
        page->createRootFolder(); // for later
        page->applyChanges();
        one.deliver();
        other.deliver();
        const QString place = Configurator::currentKey(page);
        QVERIFY(Configurator::select(page, "TPL_OPEN"));
        templateName(page)->setText(QStringLiteral("Моё"));
        TemplateTab* theirs = openCommon(other, "CAT_COMMON");
        theirs->deleteSelected();
        other.answer("yesButton");
        one.deliver();
        QVERIFY(!page->isExistUnsaved());
        Configurator::tree(page)->setCurrentIndex(QModelIndex());
        restoreButton(page)->click();
        QCOMPARE(one.boxText(),
                 QStringLiteral("<center>Места, где был шаблон, больше нет. Выберите категорию, в "
                                "которую его вернуть.</center>"));
        one.answer("okButton");
        QVERIFY(restoreButton(page)); // trying loses nothing
        QVERIFY(Configurator::select(page, place.toLatin1().constData()));
        restoreButton(page)->click();
        QCOMPARE(templateName(page)->text(), QStringLiteral("Моё"));
        page->applyChanges();
        one.deliver();
        QCOMPARE(stored("LogbookTemplates", "TPL_OPEN"), QStringLiteral("Моё"));
        QCOMPARE(stored("LogbookTemplates", "TPL_OPEN", "CategoryKey"), place);
    }

    void aCategoryComesBackOnItsLevel()
    {
        Configurator one(*m_store);
        Configurator other(*m_store);
        TemplateTab* page = one.show(one.deps());
        QVERIFY(Configurator::select(page, "CAT_ZAR"));
        categoryName(page)->setText(QStringLiteral("Моё"));
        TemplateTab* theirs = other.show(other.deps());
        QVERIFY(Configurator::select(theirs, "CAT_ZAR"));
        theirs->deleteSelected();
        other.answer("yesButton");
        one.deliver();
        QVERIFY(restoreButton(page));
        restoreButton(page)->click();
        page->applyChanges();
        one.deliver();
        QCOMPARE(stored("LogbookCatsTemplate", "CAT_ZAR"), QStringLiteral("Моё"));
        QCOMPARE(stored("LogbookCatsTemplate", "CAT_ZAR", "DepartmentKey"), QStringLiteral("DEP_ZAR"));
        QCOMPARE(Configurator::currentKey(page), QStringLiteral("CAT_ZAR"));
    }

    void severalDroppedChangesAreAllKeptAndSavedAsOne()
    {
        Configurator one(*m_store);
        TemplateTab* page = openCommon(one, "TPL_OPEN");
        breakTable("LogbookTemplates", "UPDATE");
        templateName(page)->setText(QStringLiteral("Первое"));
        page->applyChanges();
        QVERIFY(Configurator::select(page, "TPL_CLOSE"));
        templateName(page)->setText(QStringLiteral("Второе"));
        page->applyChanges();
        mendTable();
        breakTable("LogbookCatsTemplate", "UPDATE");
        QVERIFY(Configurator::select(page, "CAT_COMMON"));
        categoryName(page)->setText(QStringLiteral("Третье"));
        page->applyChanges();
        mendTable();
        QTRY_VERIFY(restoreButton(page));
        restoreButton(page)->click();
        page->applyChanges();
        one.deliver();
        QCOMPARE(stored("LogbookTemplates", "TPL_OPEN"), QStringLiteral("Первое"));
        QCOMPARE(stored("LogbookTemplates", "TPL_CLOSE"), QStringLiteral("Второе"));
        QCOMPARE(stored("LogbookCatsTemplate", "CAT_COMMON"), QStringLiteral("Третье"));
        // Both tables in one block.
        QCOMPARE(m_store
                     ->value(QStringLiteral(
                         "SELECT count(DISTINCT number) FROM ChangeLog WHERE event=602 AND rowKey "
                         "IN ('TPL_OPEN', 'TPL_CLOSE', 'CAT_COMMON')"))
                     .toInt(),
                 1);
        QVERIFY(!restoreButton(page));
        QVERIFY(!page->isExistUnsaved());
        m_log->take();
        one.client().takeFailures();
    }

    void blanksAreNoText_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("one") << QStringLiteral(" ");
        QTest::newRow("several") << QStringLiteral("   ");
        QTest::newRow("empty lines") << QStringLiteral("\r\r");
    }
    void blanksAreNoText()
    {
        QFETCH(QString, text);
        Configurator one(*m_store);
        TemplateTab* page = openCommon(one, "CAT_COMMON");
        page->createTemplate();
        QTest::keyClicks(Configurator::in<QTextEdit>(page, "templateText"), text);
        page->applyChanges();
        QCOMPARE(one.boxText(), QStringLiteral("<center>Шаблон не может быть пустым!</center>"));
        one.answer("okButton");
        QVERIFY(page->isExistUnsaved());
        page->cancelChanges();
    }

    void anothersMoveTakesTheSelectionAway()
    {
        Configurator one(*m_store);
        Configurator other(*m_store);
        TemplateTab* page = openCommon(one, "CAT_COMMON_SUB");
        other.show(other.common())->createRootFolder();
        other.common()->applyChanges();
        other.deliver();
        other.common()->moveItem(QStringLiteral("CAT_COMMON_SUB"),
                                 other.common()->model()->indexByRecord(other.common()->currentRecord()));
        one.deliver();
        other.deliver();
        QCOMPARE(Configurator::shown(page), Configurator::shown(other.common()));
        QVERIFY(page->currentRecord());
        QVERIFY(Configurator::source(page, "TPL_ORDER").isValid()); // the subtree was moved along
        QCOMPARE(Configurator::currentKey(other.common()), QStringLiteral("CAT_COMMON_SUB"));
    }

    void anothersMoveKeepsWhatIsBeingTyped()
    {
        Configurator one(*m_store);
        Configurator other(*m_store);
        TemplateTab* page = openCommon(one, "TPL_OPEN");
        TemplateTab* theirs = openCommon(other, "TPL_OPEN");
        templateName(page)->setText(QStringLiteral("Моё"));
        theirs->moveItem(QStringLiteral("TPL_OPEN"), Configurator::source(theirs, "CAT_COMMON_SUB"));
        one.deliver();
        other.deliver();
        QVERIFY(!page->isExistUnsaved());
        QCOMPARE(Configurator::source(page, "TPL_OPEN").parent(),
                 Configurator::source(page, "CAT_COMMON_SUB"));
        QCOMPARE(Configurator::shown(page), Configurator::shown(theirs));
        QVERIFY(page->currentRecord());
        restoreButton(page)->click();
        QCOMPARE(Configurator::currentKey(page), QStringLiteral("TPL_OPEN"));
        QCOMPARE(templateName(page)->text(), QStringLiteral("Моё"));
        page->applyChanges();
        one.deliver();
        QCOMPARE(stored("LogbookTemplates", "TPL_OPEN"), QStringLiteral("Моё"));
        QCOMPARE(stored("LogbookTemplates", "TPL_OPEN", "CategoryKey"), QStringLiteral("CAT_COMMON_SUB"));
    }

    void anothersRowsComeWithoutMovingTheSelection()
    {
        Configurator one(*m_store);
        Configurator other(*m_store);
        TemplateTab* page = openCommon(one, "TPL_CLOSE");
        openCommon(other, "CAT_COMMON")->createFolder();
        other.common()->applyChanges();
        one.deliver();
        QCOMPARE(Configurator::currentKey(page), QStringLiteral("TPL_CLOSE"));
        QVERIFY(Configurator::shown(page).contains(QStringLiteral("  Новая подкатегория")));
        // The other levels do not use it.
        QCOMPARE(one.orgs()->tables().categories.data.RecCount(), 5);
        QCOMPARE(one.common()->tables().categories.data.RecCount(), 6);
    }

    void eachPageTakesTheCategoriesOfItsLevelOnly()
    {
        Configurator one(*m_store);
        const auto store = m_store->openLoader();
        const auto count = [](TemplateTab* page) { return page->tables().categories.data.RecCount(); };
        for (const auto& [field, key] : {std::pair("OrgTypeKey", "TYPE_NETS"), {"DepartmentKey", "DEP_ODS"}})
            QVERIFY(TestStore::write(store.get(), "LogbookCatsTemplate", ROW_INSERT, field,
                                     {{"nameLoc", "Новая"}, {field, key}}));
        one.deliver();
        QCOMPARE(count(one.common()), 5);
        QCOMPARE(count(one.orgs()), 6);
        QCOMPARE(count(one.deps()), 6);
        QVERIFY(Configurator::record(one.orgs(), "OrgTypeKey"));
        QVERIFY(Configurator::record(one.deps(), "DepartmentKey"));
    }

    void aKnownKeyNeverGivesASecondRow()
    {
        Configurator one(*m_store);
        TemplateTab* page = openCommon(one, "CAT_COMMON");
        const auto store = m_store->openLoader();
        QVERIFY(TestStore::write(store.get(), "LogbookCatsTemplate", ROW_INSERT, "CAT_NEW",
                                 {{"nameLoc", "Новая"}}));
        one.client().session().pollEvents();
        const std::vector<HFNCliParam*> events = one.client().session().takeEvents();
        QCOMPARE(events.size(), std::size_t(1));
        for (int times = 0; times < 2; ++times) // as if a load already contained the row
            one.window().MessageData(events.front());
        one.client().session().PrmFree(events.front());
        QCOMPARE(Configurator::shown(page).filter(QStringLiteral("Новая")).size(), 1);
        QCOMPARE(page->tables().categories.data.RecCount(), 6);
    }

    void eventsOfUnknownKeysAndTablesChangeNothing()
    {
        Configurator one(*m_store);
        TemplateTab* page = openCommon(one, "CAT_COMMON");
        const QStringList before = Configurator::shown(page);
        for (int number : {602, 603}) {
            HFNCliParam* block = HFNCliParam::event(number, "NOBODY", "NCI:LogbookTemplates,1", QByteArray());
            QCOMPARE(one.window().MessageData(block), 1);
            one.client().session().PrmFree(block);
        }
        HFNCliParam* lower = HFNCliParam::event(603, "TPL_OPEN", "NCI:logbooktemplates,1", QByteArray());
        one.window().MessageData(lower); // the name is compared exactly
        one.client().session().PrmFree(lower);
        QCOMPARE(Configurator::shown(page), before);
    }

    void aMovedCategoryIsShownAtItsNewPlace()
    {
        Configurator one(*m_store);
        TemplateTab* page = openCommon(one, "CAT_COMMON_SUB");
        const auto store = m_store->openLoader();
        QVERIFY(TestStore::write(store.get(), "LogbookCatsTemplate", ROW_UPDATE, "CAT_COMMON_SUB",
                                 {{"ParentKey", nullptr}}));
        one.deliver();
        QVERIFY(!Configurator::source(page, "CAT_COMMON_SUB").parent().isValid());
        QCOMPARE(Configurator::currentKey(page), QStringLiteral("CAT_COMMON_SUB"));
        QVERIFY(Configurator::source(page, "TPL_ORDER").isValid());
    }

    void aLocalAdministratorIsConfinedByTheStoreToo()
    {
        Configurator one(*m_store, QStringLiteral("smirnov"), "DEP_ZAR");
        TemplateTab* page = one.show(one.deps());
        QVERIFY(Configurator::select(page, "CAT_ZAR"));
        page->createTemplate();
        openBox(page)->click();
        page->applyChanges();
        one.deliver();
        QVERIFY(!page->isExistUnsaved());
        QCOMPARE(
            m_store
                ->value(QStringLiteral("SELECT count(*) FROM LogbookTemplates WHERE CategoryKey='CAT_ZAR'"))
                .toInt(),
            1);
    }
};

QTEST_MAIN(TemplateTab_edit_test)
#include "TemplateTab_edit_test.moc"
