#include "LogWatch.h"
#include "MessageListDelegate.h"
#include "RecordValue.h"
#include "TestJournal.h"
#include "VrkTableModel.h"
#include "VrkTableProxyModel.h"

#include <QAbstractItemModelTester>
#include <QAction>
#include <QBoxLayout>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QScrollBar>
#include <QSplitter>
#include <QTest>
#include <QToolButton>

/// The form of a page: its widgets, columns, search bar, keys and context menu.
class LogBookTab_test : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<LogWatch> m_log;

    static void compareLayout(const QWidget& parent, const char* name, int spacing, const QMargins& margins)
    {
        const auto* layout = parent.findChild<QLayout*>(QLatin1String(name));
        QVERIFY2(layout, name);
        QCOMPARE(layout->spacing(), spacing);
        QCOMPARE(layout->contentsMargins(), margins);
    }
    static void type(QWidget* edit, const QString& text)
    {
        for (const QChar letter : text)
            QTest::sendKeyEvent(QTest::Click, edit, Qt::Key_unknown, QString(letter), Qt::NoModifier);
    }
    static QColor textColor(const QWidget* widget) { return widget->palette().color(QPalette::Text); }

private slots:
    void init()
    {
        m_log.reset();
        m_log = std::make_unique<LogWatch>();
    }
    void cleanup() { QCOMPARE(m_log->take().join(QLatin1Char('\n')), QString()); }

    void hasItsForm()
    {
        LogBookWidget tab;
        QVERIFY(!tab.isInit());
        QVERIFY(!tab.currentRecord());
        compareLayout(tab, "verticalLayout_4", 4, QMargins(2, 4, 2, 4));
        compareLayout(tab, "horizontalLayout_3", 4, QMargins(2, 4, 2, 4));
        compareLayout(tab, "verticalLayout_2", 2, QMargins(2, 4, 2, 4));
        compareLayout(tab, "verticalLayout_3", 2, QMargins(2, 4, 2, 4));
        QVERIFY(tab.findChild<QLayout*>(QStringLiteral("horizontalLayout")));
        QVERIFY(tab.findChild<QLayout*>(QStringLiteral("horizontalLayout_2")));
        const auto* splitter = tab.findChild<QSplitter*>(QStringLiteral("splitter"));
        QCOMPARE(splitter->handleWidth(), 6);
        QCOMPARE(splitter->orientation(), Qt::Horizontal);
        QCOMPARE(splitter->widget(0)->objectName(), QStringLiteral("recordsTable"));
        QCOMPARE(splitter->widget(0)->sizePolicy().horizontalStretch(), 1);
        const auto* panes = tab.findChild<QTabWidget*>(QStringLiteral("additionalTab"));
        QCOMPARE(panes->tabText(0), QStringLiteral("Комментарии"));
        QCOMPARE(panes->tabText(1), QStringLiteral("Файлы"));
        QVERIFY(!panes->tabIcon(0).isNull() && !panes->tabIcon(1).isNull());
        const auto* edit = tab.findChild<QLineEdit*>(QStringLiteral("searchEdit"));
        QCOMPARE(edit->placeholderText(), QStringLiteral("Поиск..."));
        QVERIFY(edit->isClearButtonEnabled());
        QVERIFY(tab.findChild<QWidget*>(QStringLiteral("searchWidget"))->isHidden());
        const auto* list = tab.findChild<QListWidget*>(QStringLiteral("commentsList"));
        QVERIFY(list->alternatingRowColors());
        QVERIFY(qobject_cast<MessageListDelegate*>(list->itemDelegate()));
    }

    void hasItsButtons()
    {
        LogBookWidget tab;
        struct Button {
            const char* name;
            QString tip;
            const char* icon;
        };
        const Button buttons[] = {
            {"createCommentButton", QStringLiteral("Добавить комментарий"), "add"},
            {"deleteCommentButton", QStringLiteral("Удалить комментарий"), "delete"},
            {"readedCommentButton", QStringLiteral("Отметить как прочитанный"), "readed"},
            {"createFileButton", QStringLiteral("Добавить файл..."), "add"},
            {"deleteFileButton", QStringLiteral("Удалить файл"), "delete"},
            {"saveFileButton", QStringLiteral("Сохранить файл..."), "save"},
            {"upSearchButton", QString(), "up-arrow"},
            {"downSearchButton", QString(), "down-arrow"},
            {"closeSearchButton", QString(), "close"}};
        const auto picture = [](const QIcon& icon) { return icon.pixmap(16, 16).toImage(); };
        const auto named = [picture](const char* icon) {
            return picture(QIcon(QStringLiteral(":/icons/%1.png").arg(QLatin1String(icon))));
        };
        for (const Button& reported : buttons) {
            const auto* button = tab.findChild<QToolButton*>(QLatin1String(reported.name));
            QVERIFY2(button, reported.name);
            QCOMPARE(button->isEnabled(), qstrcmp(reported.name, "closeSearchButton") == 0);
            QCOMPARE(picture(button->icon()), named(reported.icon));
            if (!reported.tip.isEmpty())
                QCOMPARE(button->toolTip(), reported.tip);
        }
        const auto* panes = tab.findChild<QTabWidget*>(QStringLiteral("additionalTab"));
        QCOMPARE(picture(panes->tabIcon(0)), named("comment"));
        QCOMPARE(picture(panes->tabIcon(1)), named("affix"));
        const auto* readed = tab.findChild<QToolButton*>(QStringLiteral("readedCommentButton"));
        QCOMPARE(readed->popupMode(), QToolButton::MenuButtonPopup);
        QCOMPARE(readed->actions().size(), 1);
        QCOMPARE(readed->actions().first()->text(), QStringLiteral("Отметить все как прочитанные"));
    }

    void showsTheColumnsInTheirOrder()
    {
        const TestStore store;
        TestJournal journal(store);
        const QHeaderView* header = journal.view()->horizontalHeader();
        const auto* model = qobject_cast<VrkTableProxyModel*>(journal.view()->model())->tableModel();
        struct Column {
            const char* field;
            QString text;
            const char* icon;
        };
        const Column columns[] = {{"status", QStringLiteral("Статус"), nullptr},
                                  {"file", QString(), ":/icons/affix.png"},
                                  {"VisaWorkerKey", QString(), ":/icons/sign.png"},
                                  {"comment", QString(), ":/icons/comment.png"},
                                  {"recordTime", QStringLiteral("Время\nзаписи"), nullptr},
                                  {"eventTime", QStringLiteral("Время\nсобытия"), nullptr},
                                  {"WorkerKey", QStringLiteral("Автор"), nullptr},
                                  {"direction", QString(), ":/icons/direction.png"},
                                  {"ReceiverWorkerKey", QStringLiteral("Кто\nКому"), nullptr},
                                  {"executionTime", QStringLiteral("Время\nвыполнения"), nullptr},
                                  {"object", QStringLiteral("Линия\nПодстанция"), nullptr},
                                  {"firstMarkTime", QString(), ":/icons/one.png"},
                                  {"secondMarkTime", QString(), ":/icons/two.png"},
                                  {"html", QStringLiteral("Текст"), nullptr}};
        int visible = 0;
        for (const Column& column : columns) {
            const int index = model->idxField(QLatin1String(column.field));
            QCOMPARE(header->visualIndex(index), visible++);
            QVERIFY2(!header->isSectionHidden(index), column.field);
            QCOMPARE(model->headerData(index, Qt::Horizontal).toString(), column.text);
            const auto icon = model->headerData(index, Qt::Horizontal, Qt::DecorationRole).value<QIcon>();
            QCOMPARE(icon.pixmap(16, 16).toImage(),
                     column.icon ? QIcon(QLatin1String(column.icon)).pixmap(16, 16).toImage() : QImage());
        }
        for (const char* hidden : {"KeyLink", "ShiftKey", "SecondMarkWorkerKey", "OriginRecordKey"})
            QVERIFY2(header->isSectionHidden(model->idxField(QLatin1String(hidden))), hidden);
        QCOMPARE(header->sortIndicatorSection(), model->idxField(QStringLiteral("recordTime")));
        QCOMPARE(header->sortIndicatorOrder(), Qt::AscendingOrder);
    }

    void showsRecordsThroughTheConversions()
    {
        const TestStore store;
        TestJournal journal(store);
        QCOMPARE(journal.cell("REC_OPENING", "WorkerKey").toString(), QStringLiteral("Иванов И. И."));
        QCOMPARE(journal.cell("REC_ORDER", "executionTime").toString(), QStringLiteral("Не выполнено"));
        QVERIFY(!journal.cell("REC_SUCCESSOR", "executionTime").toString().isEmpty());
        QVERIFY(!journal.cell("REC_OPENING", "executionTime").isValid());
        QCOMPARE(journal.cell("REC_TRIP", "VisaWorkerKey", Qt::ToolTipRole)
                     .toString()
                     .section(QLatin1Char(' '), 0, 0),
                 QStringLiteral("Сидорова"));
        QVERIFY(!journal.cell("REC_TRIP", "firstMarkTime", Qt::DecorationRole).value<QIcon>().isNull());
        QVERIFY(!journal.cell("REC_MESSAGE", "direction", Qt::DecorationRole).value<QIcon>().isNull());
        for (const char* text : {"recordTime", "eventTime", "WorkerKey", "html", "object"}) {
            QVERIFY(journal.cell("REC_REPLACED", text, Qt::FontRole).value<QFont>().strikeOut());
            QCOMPARE(journal.cell("REC_REPLACED", text, Qt::ForegroundRole).value<QBrush>().color(),
                     QColor(Qt::gray));
            QVERIFY(!journal.cell("REC_OPENING", text, Qt::FontRole).value<QFont>().strikeOut());
        }
        for (const char* icon : {"status", "file", "comment", "firstMarkTime"})
            QVERIFY(!journal.cell("REC_REPLACED", icon, Qt::ForegroundRole).isValid());
    }

    void keepsItsModelsConsistent()
    {
        const TestStore store;
        TestJournal journal(store);
        auto* proxy = qobject_cast<VrkTableProxyModel*>(journal.view()->model());
        const QAbstractItemModelTester model(proxy->tableModel());
        const QAbstractItemModelTester sorted(proxy);
        const auto petrov = store.open(QStringLiteral("petrov"));
        const auto write = [&](MDRFlag flag, TestStore::Fields fields) {
            QVERIFY(TestStore::write(petrov.get(), "LogbookRecords", flag, "NEW", fields));
            QVERIFY(!journal.deliver().isEmpty());
        };
        write(ROW_INSERT, {{"ShiftKey", QByteArray("SHIFT_CDS_OPEN")},
                           {"WorkerKey", QByteArray("WORKER_PETROV")},
                           {"recordTime", TestStore::now() - 3600},
                           {"status", 1}});
        write(ROW_UPDATE, {{"eventTime", TestStore::now()}, {"html", QStringLiteral("Текст")}});
        write(ROW_DELETE, {});
        journal.tab().uploadRecordsIn(QStringLiteral("SHIFT_CDS_PAST"));
        journal.tab().uploadRealTimeWorkshift();
        QCOMPARE(journal.shownKeys().size(), 8);
    }

    void opensAndClosesTheSearchBar()
    {
        const TestStore store;
        TestJournal journal(store);
        auto* bar = journal.child<QWidget>("searchWidget");
        auto* edit = journal.child<QLineEdit>("searchEdit");
        journal.tab().switchVisibleSearch();
        QVERIFY(bar->isVisible());
        QVERIFY(edit->hasFocus());
        type(edit, QStringLiteral("ПС"));
        journal.tab().switchVisibleSearch();
        QVERIFY(!bar->isVisible());
        QVERIFY(edit->text().isEmpty());
        journal.tab().switchVisibleSearch();
        QTest::mouseClick(journal.child<QToolButton>("closeSearchButton"), Qt::LeftButton);
        QVERIFY(!bar->isVisible());
    }

    void escapeClosesTheSearchBar()
    {
        const TestStore store;
        TestJournal journal(store);
        journal.tab().switchVisibleSearch();
        auto* edit = journal.child<QLineEdit>("searchEdit");
        type(edit, QStringLiteral("ПС"));
        // Without this order, the keyboard would come to the records by itself.
        QWidget::setTabOrder(edit, journal.child<QWidget>("commentsList"));
        QTest::keyClick(edit, Qt::Key_Escape);
        QVERIFY(!journal.child<QWidget>("searchWidget")->isVisible());
        QVERIFY(edit->text().isEmpty());
        QVERIFY(journal.child<QWidget>("recordsTable")->hasFocus());
    }

    void searchesFromTheSecondRowOn()
    {
        const TestStore store;
        TestJournal journal(store);
        journal.tab().switchVisibleSearch();
        auto* edit = journal.child<QLineEdit>("searchEdit");
        auto* up = journal.child<QToolButton>("upSearchButton");
        auto* down = journal.child<QToolButton>("downSearchButton");
        // Three records were made from the order's template; the search ignores case.
        type(edit, QStringLiteral("отдана КОМАНДА"));
        QCOMPARE(journal.currentKey(), QStringLiteral("REC_REPLACED"));
        QVERIFY(down->isEnabled() && !up->isEnabled());
        QTest::mouseClick(down, Qt::LeftButton);
        QCOMPARE(journal.currentKey(), QStringLiteral("REC_SUCCESSOR"));
        QVERIFY(down->isEnabled() && up->isEnabled());
        QTest::keyClick(edit, Qt::Key_Return);
        QCOMPARE(journal.currentKey(), QStringLiteral("REC_ORDER"));
        QVERIFY(!down->isEnabled() && up->isEnabled());
        QTest::mouseClick(up, Qt::LeftButton);
        QCOMPARE(journal.currentKey(), QStringLiteral("REC_SUCCESSOR"));
        QVERIFY(down->isEnabled() && up->isEnabled());
        QTest::mouseClick(up, Qt::LeftButton);
        QCOMPARE(journal.currentKey(), QStringLiteral("REC_REPLACED"));
        QVERIFY(down->isEnabled() && !up->isEnabled());
        QTest::mouseClick(down, Qt::LeftButton);
        QTest::mouseClick(down, Qt::LeftButton);
        QTest::keyClick(edit, Qt::Key_Return); // after the last hit Return starts again
        QCOMPARE(journal.currentKey(), QStringLiteral("REC_REPLACED"));
        QTest::keyClick(edit, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(edit, Qt::Key_Delete);
        QVERIFY(!down->isEnabled() && !up->isEnabled());
        QTest::keyClick(edit, Qt::Key_Return);
        QCOMPARE(journal.currentKey(), QStringLiteral("REC_REPLACED"));
    }

    void theFirstRowIsTheLastHit()
    {
        const TestStore store;
        TestJournal journal(store);
        journal.tab().switchVisibleSearch();
        type(journal.child<QLineEdit>("searchEdit"), QStringLiteral("с")); // in every text
        QCOMPARE(journal.currentKey(), QStringLiteral("REC_MESSAGE"));
    }

    void aHitThatIsCurrentComesBackIntoView()
    {
        const TestStore store;
        TestJournal journal(store);
        journal.module().resize(1600, 250);
        journal.tab().switchVisibleSearch();
        auto* edit = journal.child<QLineEdit>("searchEdit");
        type(edit, QStringLiteral("Смену"));
        QScrollBar* bar = journal.view()->verticalScrollBar();
        QTRY_VERIFY(bar->maximum() > 0);
        QCoreApplication::processEvents(); // what scrolls later is over
        bar->setValue(bar->maximum());
        type(edit, QStringLiteral(" "));
        QCOMPARE(journal.currentKey(), QStringLiteral("REC_OPENING"));
        QCOMPARE(bar->value(), 0);
    }

    void reachesTheFirstRowByTheWrap()
    {
        const TestStore store;
        TestJournal journal(store);
        journal.tab().switchVisibleSearch();
        auto* edit = journal.child<QLineEdit>("searchEdit");
        journal.select("REC_TRIP");
        type(edit, QStringLiteral("Смену принял"));
        QCOMPARE(journal.currentKey(), QStringLiteral("REC_OPENING"));
        QVERIFY(!journal.child<QToolButton>("downSearchButton")->isEnabled());
    }

    void findsTheOnlyRow()
    {
        const TestStore store;
        TestJournal journal(store);
        const double time = Row(journal.record("REC_ORDER")).value("recordTime").value.real;
        const QDateTime moment = journal.session().HfnTimeToSesTime(time);
        journal.tab().uploadRecordsIn(moment, moment);
        journal.tab().switchVisibleSearch();
        auto* edit = journal.child<QLineEdit>("searchEdit");
        type(edit, QStringLiteral("команда"));
        QVERIFY(textColor(edit) != QColor(0xDC, 0x14, 0x3C));
        QCOMPARE(journal.currentKey(), QStringLiteral("REC_ORDER"));
    }

    void coloursATextThatIsNotFound()
    {
        const TestStore store;
        TestJournal journal(store);
        journal.tab().switchVisibleSearch();
        auto* edit = journal.child<QLineEdit>("searchEdit");
        const QColor usual = textColor(edit);
        type(edit, QStringLiteral("щщщ"));
        for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled})
            QCOMPARE(edit->palette().color(group, QPalette::Text), QColor(0xDC, 0x14, 0x3C));
        edit->clear();
        QCOMPARE(textColor(edit), usual);
    }

    void neverOffersHiddenDrafts()
    {
        const TestStore store;
        TestJournal journal(store, QStringLiteral("sidorova"));
        QVERIFY(journal.record("REC_DRAFT_IVANOV"));
        journal.tab().switchVisibleSearch();
        auto* edit = journal.child<QLineEdit>("searchEdit");
        type(edit, QStringLiteral("Черновик"));
        QCOMPARE(textColor(edit), QColor(0xDC, 0x14, 0x3C));
    }

    void searchesBeforeItIsLoaded()
    {
        LogBookWidget tab;
        tab.show();
        tab.switchVisibleSearch();
        auto* edit = tab.findChild<QLineEdit*>(QStringLiteral("searchEdit"));
        type(edit, QStringLiteral("x"));
        QCOMPARE(textColor(edit), QColor(0xDC, 0x14, 0x3C));
    }

    void offersWhatMayBeDone()
    {
        const TestStore store;
        TestJournal journal(store);
        journal.select("REC_ORDER");
        const QPoint position(40, 30);
        QWidget* viewport = journal.view()->viewport();
        QContextMenuEvent click(QContextMenuEvent::Mouse, position, viewport->mapToGlobal(position));
        QApplication::sendEvent(viewport, &click);
        auto* menu = journal.view()->findChild<QMenu*>(QStringLiteral("recordMenu"));
        QVERIFY(menu->isVisible());
        QCOMPARE(menu->pos(), journal.view()->viewport()->mapToGlobal(position));
        QStringList enabled;
        QStringList all;
        for (const QAction* action : menu->actions()) {
            all.append(action->text());
            if (action->isEnabled() && !action->isSeparator())
                enabled.append(action->text());
        }
        QCOMPARE(all, QStringList({QStringLiteral("Время выполнения..."), QStringLiteral("Второй маркер..."),
                                   QString(), QStringLiteral("Утвердить текущую запись"),
                                   QStringLiteral("Поставить визу на текущую запись"),
                                   QStringLiteral("Перейти к первичной записи"), QString(),
                                   QStringLiteral("Копировать запись"), QStringLiteral("Вставить запись"),
                                   QString(), QStringLiteral("Закладка")}));
        QCOMPARE(enabled,
                 QStringList({QStringLiteral("Время выполнения..."), QStringLiteral("Второй маркер..."),
                              QStringLiteral("Поставить визу на текущую запись"),
                              QStringLiteral("Копировать запись"), QStringLiteral("Закладка")}));
        menu->close();

        journal.select("REC_DRAFT_IVANOV");
        emit journal.view()->customContextMenuRequested(position);
        enabled.clear();
        for (const QAction* action : menu->actions())
            if (action->isEnabled() && !action->isSeparator())
                enabled.append(action->text());
        QCOMPARE(enabled,
                 QStringList({QStringLiteral("Второй маркер..."), QStringLiteral("Утвердить текущую запись"),
                              QStringLiteral("Закладка")}));
        menu->close();
    }

    void goesToTheRecordThatWasReplaced()
    {
        const TestStore store;
        TestJournal journal(store);
        journal.select("REC_SUCCESSOR");
        journal.tab().goToOriginRecord();
        QCOMPARE(journal.currentKey(), QStringLiteral("REC_REPLACED"));
        journal.tab().goToOriginRecord(); // it has none
        QCOMPARE(journal.currentKey(), QStringLiteral("REC_REPLACED"));
        QVERIFY(!journal.box());
    }

    void saysThatTheOriginIsElsewhere()
    {
        const TestStore store;
        QVERIFY(TestStore::write(store.openLoader().get(), "LogbookRecords", ROW_UPDATE, "REC_SUCCESSOR",
                                 {{"OriginRecordKey", QByteArray("REC_PAST_1")}}));
        TestJournal journal(store);
        journal.select("REC_SUCCESSOR");
        journal.tab().goToOriginRecord();
        QCOMPARE(journal.currentKey(), QStringLiteral("REC_SUCCESSOR"));
        QCOMPARE(journal.box()->title(), QStringLiteral("Ошибка поиска записи"));
        QCOMPARE(journal.box()->text(),
                 QStringLiteral("<center>Не удалось найти первичную запись!</center>"));
        QCOMPARE(journal.box()->icon(), MessageIconError);
        QCOMPARE(journal.box()->type(), MessageTypeOk);
        journal.press(QDialogButtonBox::AcceptRole);
        QVERIFY(!journal.box());
    }

    void followsTheFontOfItsWindow()
    {
        const TestStore store;
        TestJournal journal(store);
        QFont font = journal.tab().font();
        font.setPointSize(font.pointSize() * 3 / 2);
        journal.tab().setFont(font);
        QCOMPARE(journal.cell("REC_OPENING", "html", Qt::FontRole).value<QFont>().pointSize(),
                 font.pointSize());
    }
};

QTEST_MAIN(LogBookTab_test)
#include "LogBookTab_test.moc"
