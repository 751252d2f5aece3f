#include "ConfiguratorBench.h"
#include "TemplateEditor.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QSignalSpy>
#include <QTextCodec>
#include <QTextEdit>
#include <QTreeWidget>

/// The passport: its rows and editors, filling them, and the effect of each change on the edit record.
class TemplateTab_passport_test : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<LogWatch> m_log;
    std::unique_ptr<TestStore> m_store;

    static QTreeWidget* tree(TemplateTab* page)
    {
        return Configurator::in<QTreeWidget>(page, "templatePropsTree");
    }
    static QCheckBox* box(TemplateTab* page, const char* name)
    {
        return Configurator::in<QCheckBox>(page, name);
    }
    static QComboBox* combo(TemplateTab* page, const char* name)
    {
        return Configurator::in<QComboBox>(page, name);
    }
    static QLineEdit* edit(TemplateTab* page, const char* name)
    {
        return Configurator::in<QLineEdit>(page, name);
    }
    static TemplateEditor* html(TemplateTab* page)
    {
        return Configurator::in<TemplateEditor>(page, "templateHtmlEditor");
    }
    /// The text of the edit record.
    static HtmlParser edited(TemplateTab* page)
    {
        return templateOf(Row(MDARec(page->tables().templatesEdit.data.array, 0, 0)).value("html"));
    }
    static QString property(const HtmlParser& parser, const char* name)
    {
        std::string value;
        parser.templatePropertyValue(name, value);
        return TestStore::text(QByteArray::fromStdString(value));
    }
    TemplateTab* open(Configurator& one, const char* key)
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
    }

    void hasItsRows()
    {
        Configurator one(*m_store);
        TemplateTab* page = open(one, "TPL_ORDER");
        QStringList rows;
        for (int i = 0; i < tree(page)->topLevelItemCount(); ++i) {
            const QTreeWidgetItem* item = tree(page)->topLevelItem(i);
            rows << item->text(0);
            QCOMPARE(item->sizeHint(0), QSize(1, i == 6 ? 400 : 30));
        }
        QCOMPARE(rows, (QStringList{QStringLiteral("Наименование"), QStringLiteral("Открытие смены"),
                                    QStringLiteral("Закрытие смены"),
                                    QStringLiteral("Требует введения времени выполнения"),
                                    QStringLiteral("Первый маркер"), QStringLiteral("Второй маркер"),
                                    QStringLiteral("Шаблон")}));
        QCOMPARE(tree(page)->topLevelItem(5)->child(0)->text(0), QStringLiteral("Команда"));
        QCOMPARE(tree(page)->headerItem()->text(0), QStringLiteral("Наименование"));
        QCOMPARE(tree(page)->headerItem()->text(1), QStringLiteral("Значение"));
        const QHeaderView* header = tree(page)->header();
        QVERIFY(!header->sectionsClickable() && !header->sectionsMovable() && !header->stretchLastSection());
        QCOMPARE(header->sectionResizeMode(0), QHeaderView::Interactive);
        QCOMPARE(header->sectionResizeMode(1), QHeaderView::Stretch);
        QCOMPARE(header->defaultAlignment(), Qt::AlignCenter);
        const QFontMetrics metrics(tree(page)->font());
        QCOMPARE(header->minimumSectionSize(),
                 metrics.horizontalAdvance(QStringLiteral("Требует введения времени выполнения")) +
                     6 * metrics.horizontalAdvance(QLatin1Char('W')));
        QVERIFY(!edit(page, "templateNameEdit")->hasFrame());
        QCOMPARE(edit(page, "templateNameEdit")->maxLength(), 100);
        QCOMPARE(edit(page, "categoryNameEdit")->maxLength(), 100);
    }

    void offersTheMarkers()
    {
        Configurator one(*m_store);
        TemplateTab* page = open(one, "TPL_ORDER");
        const std::pair<QString, QString> markers[] = {
            {QStringLiteral("нет"), QString()},
            {QStringLiteral("Авария"), QStringLiteral(":/markers/exclamation_mark.png")},
            {QStringLiteral("Допуск бригады"), QStringLiteral(":/markers/worker_red.png")},
            {QStringLiteral("Завершение работ бригады"), QStringLiteral(":/markers/worker_blue.png")},
            {QStringLiteral("Передача вышестоящей организации"),
             QStringLiteral(":/markers/arrow_up_blue.png")},
            {QStringLiteral("Передача от вышестоящей организации"),
             QStringLiteral(":/markers/arrow_down_red.png")},
            {QStringLiteral("Снято заземление"), QStringLiteral(":/markers/thunder_blue.png")},
            {QStringLiteral("Установлено заземление"), QStringLiteral(":/markers/thunder_red.png")}};
        for (const char* name : {"templateFirstMarkBox", "templateSecondMarkBox"}) {
            const QComboBox* list = combo(page, name);
            QCOMPARE(list->count(), 8);
            for (int i = 0; i < 8; ++i) {
                QCOMPARE(list->itemText(i), markers[i].first);
                QCOMPARE(list->itemData(i).toString(), markers[i].second);
                QCOMPARE(list->itemData(i).isValid(), i > 0);
                QCOMPARE(list->itemIcon(i).isNull(), i == 0);
            }
        }
    }

    void showsTheRecord()
    {
        Configurator one(*m_store);
        TemplateTab* page = open(one, "TPL_ORDER");
        QCOMPARE(edit(page, "templateNameEdit")->text(),
                 QStringLiteral("Команда на производство переключений"));
        QVERIFY(box(page, "templateTimeBox")->isChecked());
        QVERIFY(!box(page, "templateOpenBox")->isChecked() && !box(page, "templateCloseBox")->isChecked());
        QCOMPARE(combo(page, "templateFirstMarkBox")->currentIndex(), 0);
        QVERIFY(combo(page, "templateSecondMarkBox")->currentIndex() > 0);
        QVERIFY(!edit(page, "templateCommandEdit")->text().isEmpty());
        QVERIFY(tree(page)->topLevelItem(5)->isExpanded() && tree(page)->itemsExpandable());
        QVERIFY(html(page)->templateText().contains(QStringLiteral("Отдана команда")));

        QVERIFY(Configurator::select(page, "TPL_OPEN"));
        QVERIFY(box(page, "templateOpenBox")->isChecked() && !box(page, "templateTimeBox")->isChecked());
        QCOMPARE(combo(page, "templateSecondMarkBox")->currentIndex(), 0);
        QVERIFY(edit(page, "templateCommandEdit")->text().isEmpty());
        QVERIFY(!tree(page)->topLevelItem(5)->isExpanded() && !tree(page)->itemsExpandable());
        QVERIFY(!page->isExistUnsaved()); // filling causes no change
        QVERIFY(Configurator::select(page, "CAT_COMMON_SUB"));
        QCOMPARE(edit(page, "categoryNameEdit")->text(), QStringLiteral("Команды и переключения"));
    }

    void aMarkerOutsideOfTheListStaysInTheText()
    {
        const auto loader = m_store->openLoader();
        HtmlParser parser("Текст");
        parser.setTemplateProperty("first_mark", std::string(":/markers/unknown.png"));
        QVERIFY(TestStore::write(loader.get(), "LogbookTemplates", ROW_UPDATE, "TPL_OPEN",
                                 {{"html", QByteArray::fromStdString(parser.readyHtml(true))}}));
        Configurator one(*m_store);
        TemplateTab* page = open(one, "TPL_OPEN");
        QCOMPARE(combo(page, "templateFirstMarkBox")->currentIndex(), 0);
        box(page, "templateTimeBox")->click();
        QCOMPARE(property(edited(page), "first_mark"), QStringLiteral(":/markers/unknown.png"));
    }

    void aCommandIsReadWithItsMarkerOnly()
    {
        const auto loader = m_store->openLoader();
        HtmlParser parser("Текст");
        parser.setTemplateProperty("command", std::string("close"));
        QVERIFY(TestStore::write(loader.get(), "LogbookTemplates", ROW_UPDATE, "TPL_OPEN",
                                 {{"html", QByteArray::fromStdString(parser.readyHtml(true))}}));
        Configurator one(*m_store);
        TemplateTab* page = open(one, "TPL_OPEN");
        QCOMPARE(edit(page, "templateCommandEdit")->text(), QString());
    }

    void flagsAreSetAndRemoved_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("flag");
        QTest::newRow("open") << QStringLiteral("templateOpenBox") << QStringLiteral("open_wshift");
        QTest::newRow("close") << QStringLiteral("templateCloseBox") << QStringLiteral("close_wshift");
        QTest::newRow("time") << QStringLiteral("templateTimeBox") << QStringLiteral("time_exec");
    }
    void flagsAreSetAndRemoved()
    {
        QFETCH(QString, name);
        QFETCH(QString, flag);
        Configurator one(*m_store);
        TemplateTab* page = one.show(one.deps());
        QVERIFY(Configurator::select(page, "TPL_TEXT"));
        const QString before = html(page)->templateText();
        QCheckBox* flagBox = box(page, name.toLatin1().constData());
        flagBox->click();
        QVERIFY(edited(page).isExistTemplateProperty(flag.toStdString()));
        QVERIFY(html(page)->templateText().contains(flag)); // the editor has the property too
        flagBox->click();
        QVERIFY(!edited(page).isExistTemplateProperty(flag.toStdString()));
        QCOMPARE(html(page)->templateText(), before);
    }

    void markersAndCommandGoTogether()
    {
        Configurator one(*m_store);
        TemplateTab* page = one.show(one.deps());
        QVERIFY(Configurator::select(page, "TPL_TEXT"));
        combo(page, "templateFirstMarkBox")->setCurrentIndex(1);
        QCOMPARE(property(edited(page), "first_mark"), QStringLiteral(":/markers/exclamation_mark.png"));
        combo(page, "templateFirstMarkBox")->setCurrentIndex(0);
        QVERIFY(!edited(page).isExistTemplateProperty("first_mark"));

        combo(page, "templateSecondMarkBox")->setCurrentIndex(3);
        QVERIFY(tree(page)->topLevelItem(5)->isExpanded());
        edit(page, "templateCommandEdit")->setText(QStringLiteral("Работы завершены, бригада удалена"));
        QCOMPARE(property(edited(page), "second_mark"), QStringLiteral(":/markers/worker_blue.png"));
        QCOMPARE(property(edited(page), "command"), QStringLiteral("Работы завершены, бригада удалена"));

        // The words are stored and read back in the code page.
        page->applyChanges();
        one.deliver();
        QVERIFY(Configurator::select(page, "CAT_CDS"));
        QVERIFY(Configurator::select(page, "TPL_TEXT"));
        QCOMPARE(edit(page, "templateCommandEdit")->text(),
                 QStringLiteral("Работы завершены, бригада удалена"));

        edit(page, "templateCommandEdit")->clear();
        QVERIFY(!edited(page).isExistTemplateProperty("command")); // no property is stored empty
        QCOMPARE(property(edited(page), "second_mark"), QStringLiteral(":/markers/worker_blue.png"));
        edit(page, "templateCommandEdit")->setText(QStringLiteral("Работы завершены, бригада удалена"));

        combo(page, "templateSecondMarkBox")->setCurrentIndex(0);
        QVERIFY(!edited(page).isExistTemplateProperty("second_mark"));
        QVERIFY(!edited(page).isExistTemplateProperty("command"));
        QVERIFY(!tree(page)->topLevelItem(5)->isExpanded());
        QCOMPARE(edit(page, "templateCommandEdit")->text(),
                 QStringLiteral("Работы завершены, бригада удалена"));
    }

    void aPropertyAloneIsAText()
    {
        Configurator one(*m_store);
        TemplateTab* page = open(one, "CAT_COMMON");
        page->createTemplate();
        box(page, "templateOpenBox")->click();
        QVERIFY(edited(page).isExistTemplateProperty("open_wshift"));
        box(page, "templateOpenBox")->click();
        const MDRData* record = page->currentRecord();
        QVERIFY(Row(record).value("html").isNull); // an empty result is stored as null
        page->cancelChanges();
    }

    void theNameOfANewRowFollowsTheTyping()
    {
        Configurator one(*m_store);
        TemplateTab* page = open(one, "CAT_COMMON");
        page->createTemplate();
        QCOMPARE(edit(page, "templateNameEdit")->selectedText(), QStringLiteral("Новый шаблон"));
        QSignalSpy painted(page->model(), &QAbstractItemModel::dataChanged);
        edit(page, "templateNameEdit")->setText(QStringLiteral("Аварийная заявка"));
        QCOMPARE(Configurator::currentName(page), QStringLiteral("Аварийная заявка"));
        QCOMPARE(painted.size(), 1); // the view gets the signal
        page->cancelChanges();
    }

    void aHandlerWithoutItsRecordWarns()
    {
        Configurator one(*m_store);
        TemplateTab* page = one.show(one.deps());
        QVERIFY(Configurator::selectRoot(page, QStringLiteral("DEP_CDS")));
        edit(page, "templateNameEdit")->setText(QStringLiteral("x"));
        edit(page, "categoryNameEdit")->setText(QStringLiteral("x"));
        edit(page, "templateCommandEdit")->setText(QStringLiteral("x"));
        box(page, "templateOpenBox")->click();
        box(page, "templateCloseBox")->click();
        box(page, "templateTimeBox")->click();
        combo(page, "templateFirstMarkBox")->setCurrentIndex(1);
        combo(page, "templateSecondMarkBox")->setCurrentIndex(1);
        emit html(page)->templateChanged(QStringLiteral("x"));
        QVERIFY(!page->isExistUnsaved());
        for (const char* name :
             {"templateName", "templateOpen", "templateClose", "templateTime", "templateFirstMark",
              "templateSecondMark", "templateCommand", "templateHtml"}) {
            const QString line =
                QStringLiteral("void TemplateTab::%1Changed() not found record edited template!")
                    .arg(QLatin1String(name));
            QCOMPARE(m_log->take(line), QStringList{line});
        }
        const QString line =
            QStringLiteral("void TemplateTab::categoryNameChanged() not found record edited category!");
        QCOMPARE(m_log->take(line), QStringList{line});
    }

    void undoStaysWithinOneTemplate()
    {
        Configurator one(*m_store);
        TemplateTab* page = open(one, "TPL_OPEN");
        auto* text = Configurator::in<QTextEdit>(page, "templateText");
        QTest::keyClicks(text, QStringLiteral("x"));
        QVERIFY(text->document()->isUndoAvailable());
        page->applyChanges();
        one.deliver();
        QVERIFY(text->document()->isUndoAvailable()); // saved, and still the same template
        // A copy has exactly the same text.
        page->copyItem();
        page->pasteItem();
        QVERIFY(!text->document()->isUndoAvailable());
        QTest::keyClick(text, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(TestStore::text(QByteArray::fromStdString(edited(page).readyHtml(true))),
                 html(page)->templateText());
        page->cancelChanges();
        QVERIFY(Configurator::select(page, "TPL_CLOSE"));
        QVERIFY(!text->document()->isUndoAvailable());
    }

    void theTextTakesTheRoomOfAHighWindow()
    {
        Configurator one(*m_store);
        TemplateTab* page = open(one, "TPL_ORDER");
        QTreeWidget* rows = tree(page);
        const auto textHeight = [&] { return rows->visualItemRect(rows->topLevelItem(6)).height(); };
        one.window().resize(1300, 1200);
        QTRY_VERIFY(textHeight() > 500);
        QTRY_COMPARE(rows->visualItemRect(rows->topLevelItem(6)).bottom(), rows->viewport()->rect().bottom());
        const int wide = textHeight();
        QComboBox* second = combo(page, "templateSecondMarkBox");
        // the row of the command is shown or hidden
        second->setCurrentIndex(second->currentIndex() > 0 ? 0 : 1);
        QTRY_COMPARE(qAbs(textHeight() - wide), 30);
        one.window().resize(1300, 500); // scrolled, it keeps its height
        QTRY_COMPARE(textHeight(), 400);
        page->cancelChanges();
    }

    void aReaderChangesNothing()
    {
        Configurator one(*m_store, QStringLiteral("ivanov"));
        TemplateTab* page = open(one, "TPL_ORDER");
        for (const char* name :
             {"templateNameEdit", "templateCommandEdit", "categoryNameEdit", "templateOpenBox",
              "templateCloseBox", "templateTimeBox", "templateFirstMarkBox", "templateSecondMarkBox"})
            QVERIFY2(!Configurator::in<QWidget>(page, name)->isEnabled(), name);
        QVERIFY(!html(page)->isEnabled());
    }

    void offersTheKnownParameters()
    {
        Configurator one(*m_store);
        const QStringList names = one.common()->parameterFilter();
        QCOMPARE(names.mid(0, 17).join(QLatin1Char(' ')),
                 QStringLiteral(
                     "datetime text list signalName signalNum baseVoltage organization department "
                     "employee_fio employee_fio_role employee_fio_group employee_fio_dep_org equipmentName "
                     "equipmentPath interval shift_workers shift_workers_groups"));
        QVERIFY(names.contains(QStringLiteral("substation")) && names.contains(QStringLiteral("line")));
    }

    void namesComeFromTheDirectory()
    {
        const auto loader = m_store->openLoader();
        QVERIFY(TestStore::write(loader.get(), "Tables", ROW_INSERT, "TAB",
                                 {{"nameLat", "LogbookTemplates"}, {"nameLoc", "Шаблоны"}}));
        QVERIFY(TestStore::write(loader.get(), "Fields", ROW_INSERT, "FLD",
                                 {{"TablesKey", "TAB"}, {"nameLat", "nameLoc"}, {"nameLoc", "Имя шаблона"}}));
        QVERIFY(TestStore::write(loader.get(), "Tables", ROW_INSERT, "TAB2",
                                 {{"nameLat", "LogbookCatsTemplate"}, {"nameLoc", "Категории"}}));
        QVERIFY(
            TestStore::write(loader.get(), "Fields", ROW_INSERT, "FLD2",
                             {{"TablesKey", "TAB2"}, {"nameLat", "nameLoc"}, {"nameLoc", "Имя категории"}}));
        Configurator one(*m_store);
        TemplateTab* page = one.common();
        QCOMPARE(tree(page)->topLevelItem(0)->text(0), QStringLiteral("Имя шаблона"));
        QCOMPARE(Configurator::in<QTreeWidget>(page, "categoryPropsTree")->topLevelItem(0)->text(0),
                 QStringLiteral("Имя категории"));
        QCOMPARE(page->fieldLocalName(QStringLiteral("nameLoc"), QStringLiteral("LogbookTemplates")),
                 QStringLiteral("Имя шаблона"));
        QCOMPARE(page->fieldLocalName(QStringLiteral("html"), QStringLiteral("LogbookTemplates")), QString());
        QCOMPARE(page->fieldLocalName(QStringLiteral("nameLoc"), QStringLiteral("Nowhere")), QString());
    }

    void dumpsTellArraysAndRecords()
    {
        Configurator one(*m_store);
        CMDArray& rows = const_cast<CMDArray&>(one.common()->tables().templatesEdit.data);
        TemplateTab::printStructTable(nullptr, QStringLiteral("t"));
        TemplateTab::printTable(&one.window(), &rows, QStringLiteral("t")); // empty
        QCOMPARE(m_log->takeDebug(QStringLiteral("TemplateTab::print")), QStringList());

        TemplateTab::printStructTable(&rows, QStringLiteral("поля"));
        TemplateTab::printKeysTable(&rows, QStringLiteral("ключи"));
        QStringList lines = m_log->takeDebug();
        lines = lines.mid(lines.indexOf(
            QStringLiteral("void TemplateTab::printStructTable(CMDArray*, const QString&) поля")));
        QCOMPARE(lines.mid(1),
                 (QStringList{
                     QStringLiteral(" 0 -              KeyLink"), QStringLiteral(" 1 -          CategoryKey"),
                     QStringLiteral(" 2 -              nameLoc"), QStringLiteral(" 3 -                 html"),
                     QStringLiteral("void TemplateTab::printKeysTable(CMDArray*, const QString&) ключи"),
                     QStringLiteral("key: 0")}));

        TemplateTab* page = open(one, "TPL_OPEN");
        edit(page, "templateNameEdit")->setText(QStringLiteral("Имя"));
        m_log->takeDebug();
        TemplateTab::printTable(&one.window(), &rows, QStringLiteral("правки"));
        lines = m_log->takeDebug();
        QCOMPARE(lines.size(), 7);
        QCOMPARE(lines.at(0),
                 QStringLiteral("void TemplateTab::printRecordTable(CVrkCliMod*, CMDArray*, MDArrayRec*, "
                                "const QString&) idx = 0. правки"));
        QVERIFY(lines.at(1).startsWith(QStringLiteral("record address: 0x")));
        QCOMPARE(lines.at(2), QStringLiteral("record is ROW_UPDATE"));
        QCOMPARE(lines.at(3), QStringLiteral("KeyLink      (mdr_TChar) = TPL_OPEN"));
        QCOMPARE(lines.at(5), QStringLiteral("nameLoc      (mdr_TChar) = Имя"));
        QVERIFY(lines.at(6).startsWith(QStringLiteral("html         (mdr_TMemo) = ")));
        page->cancelChanges();
        TemplateTab::printRecordTable(&one.window(), &rows, MDARecNew(rows.array), QStringLiteral("пусто"));
        QVERIFY(m_log->takeDebug().contains(QStringLiteral("html         (mdr_TMemo) = NULL")));
    }
};

QTEST_MAIN(TemplateTab_passport_test)
#include "TemplateTab_passport_test.moc"
