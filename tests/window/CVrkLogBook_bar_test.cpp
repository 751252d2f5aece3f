#include "AppendWorkerDialog.h"
#include "CVrkLogBook.h"
#include "JournalWindow.h"
#include "MDRValues.h"
#include "RecordCreatorDialog.h"
#include "ReportDialog.h"
#include "Row.h"
#include "SecondMarkerDialog.h"
#include "TemplatesWidget.h"
#include "TestFolder.h"
#include "TimeExecutionDialog.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLayout>
#include <QMenu>
#include <QMimeData>
#include <QSettings>
#include <QShortcut>
#include <QTabBar>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>
#include <QToolBar>
#include <QToolButton>

/// The tool bar and the record menu of the journal window: their state, and the effect of each button and
/// entry.
class CVrkLogBook_bar_test : public QObject
{
    Q_OBJECT

private:
    static QImage picture(const QIcon& icon) { return icon.pixmap(24, 24).toImage(); }
    static QImage picture(const char* path) { return picture(QIcon(QLatin1String(path))); }
    static QLabel* label(JournalWindow& desk, const char* name) { return desk.child<QLabel>(name); }
    static QToolButton* button(JournalWindow& desk, const char* name)
    {
        return desk.child<QToolButton>(name);
    }
    static QMenu* recordMenu(JournalWindow& desk)
    {
        auto* view = JournalWindow::childOf<QTableView>(&desk.home(), "recordsTable");
        emit view->customContextMenuRequested(QPoint(10, 10));
        auto* menu = JournalWindow::childOf<QMenu>(view, "recordMenu");
        menu->close();
        return menu;
    }
    static QAction* entry(JournalWindow& desk, const QString& text)
    {
        for (QAction* action : recordMenu(desk)->actions())
            if (action->text() == text)
                return action;
        return nullptr;
    }
    static void pressKeys(JournalWindow& desk, const QString& keys)
    {
        auto* view = JournalWindow::childOf<QTableView>(&desk.home(), "recordsTable");
        QVERIFY(QTest::qWaitForWindowActive(&desk.window()));
        view->setFocus();
        QTest::keySequence(view, QKeySequence(keys));
    }
    /// The drafts and the visas in the store: "draft of Ivanov, draft of Petrov, visas".
    static QString state(const TestStore& store)
    {
        QStringList words;
        for (const char* key : {"REC_DRAFT_IVANOV", "REC_DRAFT_PETROV"}) {
            const QVariant status =
                store.value(QStringLiteral("SELECT status FROM LogbookRecords WHERE KeyLink='%1'")
                                .arg(QLatin1String(key)));
            words << (status.isValid() ? status.toString() : QStringLiteral("-"));
        }
        for (const char* key : {"REC_ORDER", "REC_TRIP"})
            words << store
                         .value(QStringLiteral("SELECT VisaWorkerKey FROM LogbookRecords WHERE KeyLink='%1'")
                                    .arg(QLatin1String(key)))
                         .toString()
                         .section(QLatin1Char('_'), 1);
        return words.join(QLatin1Char(' '));
    }
    /// Closes the shift of the home tab from another client.
    static void closeShift(const TestStore& store, JournalWindow& desk)
    {
        QVERIFY(TestStore::write(store.openLoader().get(), "LogbookWorkshifts", ROW_UPDATE, "SHIFT_CDS_OPEN",
                                 {{"CloseWorkerKey", "WORKER_IVANOV"}}));
        desk.deliver();
    }

    /// The parts of the bar that can be pressed: the entries of the shift, and the other buttons, each with
    /// its entries.
    static QString pressable(JournalWindow& desk)
    {
        QStringList words;
        const auto isOn = [&desk](const char* entry) { return desk.isEnabled(entry); };
        const std::pair<const char*, const char*> ofShift[] = {{"openWorkshiftAction", "open"},
                                                               {"closeWorkshiftAction", "close"},
                                                               {"appendWorkerAction", "add"},
                                                               {"infoWorkshiftAction", "info"}};
        for (const auto& [entry, word] : ofShift)
            if (isOn(entry))
                words << QLatin1String(word);
        for (const auto& [name, word] :
             {std::pair("workshiftButton", "shift"), std::pair("createButton", "new"),
              std::pair("executionButton", "done")})
            if (button(desk, name)->isEnabled())
                words << QLatin1String(word);
        const struct {
            const char* button;
            const char* current;
            const char* mine;
            const char* all;
        } menus[] = {
            {"deleteButton", "deleteRecordAction", "deleteMyDraftsAction", "deleteAllDraftsAction"},
            {"approveButton", "approveRecordAction", "approveMyRecordsAction", "approveAllRecordsAction"},
            {"signButton", "signRecordAction", nullptr, "signAllRecordsAction"},
        };
        for (const auto& menu : menus) {
            QString word = button(desk, menu.button)->isEnabled() ? QStringLiteral("+") : QStringLiteral("-");
            word += isOn(menu.current) ? QStringLiteral("c") : QString();
            word += menu.mine && isOn(menu.mine) ? QStringLiteral("m") : QString();
            word += isOn(menu.all) ? QStringLiteral("a") : QString();
            words << word;
        }
        return words.join(QLatin1Char(' '));
    }
    /// A record that may be executed, in a shift of the subordinate department, with Ivanov in its crew.
    static void workBelow(const TestStore& store)
    {
        const auto loader = store.openLoader();
        QVERIFY(TestStore::write(
            loader.get(), {{"LogbookWorkersWorkshift",
                            ROW_INSERT,
                            "CREW_ZAR_2",
                            {{"KeyLink", "CREW_ZAR_2"},
                             {"WorkshiftKey", "SHIFT_ZAR_OPEN"},
                             {"WorkerKey", "WORKER_IVANOV"},
                             {"opening", true}}},
                           {"LogbookRecords",
                            ROW_UPDATE,
                            "REC_ZAR",
                            {{"html", store.value(QStringLiteral(
                                          "SELECT html FROM LogbookRecords WHERE KeyLink='REC_ORDER'"))}}}}));
    }

    QTemporaryDir m_settings{testFolderTemplate()};

private slots:
    void initTestCase()
    {
        QCoreApplication::setOrganizationName(QStringLiteral("vrk-test"));
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_settings.path());
    }

    void theBarOffersWhatMayBeDone_data()
    {
        QTest::addColumn<QByteArray>("login");
        QTest::addColumn<QByteArray>("department");
        QTest::addColumn<QString>("steps");
        QTest::addColumn<QByteArray>("record");
        QTest::addColumn<QString>("offers");
        const QByteArray none;
        // For the three menus: whether the button is enabled, and the entries for the current record, mine
        // and all.
        QTest::newRow("a colleague's draft")
            << QByteArray("ivanov") << none << "" << QByteArray("REC_DRAFT_PETROV")
            << "close add info shift new +cma +cma +a";
        QTest::newRow("a record that may be executed")
            << QByteArray("ivanov") << none << "" << QByteArray("REC_SUCCESSOR")
            << "close add info shift new done +cma +ma +a";
        QTest::newRow("a deleted record") << QByteArray("ivanov") << none << "" << QByteArray("REC_REPLACED")
                                          << "close add info shift new +ma +ma +a";
        QTest::newRow("drafts of others")
            << QByteArray("ivanov") << none << "deleteMyDraftsAction" << QByteArray("REC_REPLACED")
            << "close add info shift new +a +a +a";
        QTest::newRow("no drafts") << QByteArray("ivanov") << none << "deleteAllDraftsAction"
                                   << QByteArray("REC_MESSAGE") << "close add info shift new +c - +a";
        QTest::newRow("not in the crew") << QByteArray("sidorova") << none << "" << QByteArray("REC_MESSAGE")
                                         << "close info shift - - +ca";
        QTest::newRow("the shift in the archive")
            << QByteArray("ivanov") << none << "archive" << QByteArray("REC_ORDER") << "info shift - - +ca";
        QTest::newRow("an interval") << QByteArray("ivanov") << none << "interval" << QByteArray("REC_ORDER")
                                     << "- - +ca";
        QTest::newRow("a closed shift") << QByteArray("ivanov") << none << "closed"
                                        << QByteArray("REC_MESSAGE") << "open info shift - - +a";
        QTest::newRow("no shift") << QByteArray("smirnov") << QByteArray("DEP_ODS") << "" << none
                                  << "open shift - - -";
        QTest::newRow("own records only") << QByteArray("smirnov") << QByteArray("DEP_ZAR") << ""
                                          << QByteArray("REC_ZAR") << "close add info shift new done +c - -";
        // In other departments the entries of deletion and approval keep their state of the home tab.
        QTest::newRow("a shift below") << QByteArray("ivanov") << none << "DEP_ZAR" << QByteArray("REC_ZAR")
                                       << "info shift -cma -ma +ca";
        QTest::newRow("no shift elsewhere")
            << QByteArray("ivanov") << none << "DEP_ODS" << none << "-cma -ma -";
    }
    void theBarOffersWhatMayBeDone()
    {
        QFETCH(QByteArray, login);
        QFETCH(QByteArray, department);
        QFETCH(QString, steps);
        QFETCH(QByteArray, record);
        QFETCH(QString, offers);
        const TestStore store;
        workBelow(store);
        JournalWindow desk(store, QString::fromLatin1(login), department);
        const QDateTime now = QDateTime::currentDateTime();
        if (steps == QLatin1String("archive")) {
            desk.home().uploadRecordsIn(QStringLiteral("SHIFT_CDS_OPEN"));
        } else if (steps == QLatin1String("interval")) {
            desk.home().uploadRecordsIn(now.addDays(-1), now);
        } else if (steps == QLatin1String("closed")) {
            closeShift(store, desk);
        } else if (steps.startsWith(QLatin1String("DEP_"))) {
            desk.select("REC_ORDER");
            desk.window().appendLogbook(steps == QLatin1String("DEP_ODS") ? QStringLiteral("ORG_CENTER")
                                                                          : QStringLiteral("ORG_NETS"),
                                        steps);
        } else if (!steps.isEmpty()) {
            desk.trigger(qPrintable(steps));
            desk.deliver();
        }
        if (steps != QLatin1String("DEP_ZAR") && !record.isEmpty())
            desk.select(record);
        QCOMPARE(pressable(desk), offers);
    }

    void buttonsHaveTheirTipsIconsAndKeys()
    {
        const TestStore store;
        JournalWindow desk(store, QStringLiteral("ivanov"));
        const struct {
            const char* name;
            const char* tip;
            const char* icon;
            QKeySequence key;
            bool hasMenu;
        } buttons[] = {
            {"timeButton", "Перейти к текущей смене", ":/icons/clock.png", {}, true},
            {"workshiftButton", "Смена", ":/icons/workshift.png", {}, true},
            {"createButton", "Добавить новую запись (Ctrl + N)", ":/icons/add.png", Qt::CTRL | Qt::Key_N,
             false},
            {"deleteButton", "Удалить", ":/icons/delete.png", {}, true},
            {"approveButton", "Утвердить", ":/icons/apply.png", {}, true},
            {"signButton", "Поставить визу на текущую запись", ":/icons/sign.png", {}, true},
            {"executionButton", "Время выполнения...", ":/icons/hour_glass.png", {}, false},
            {"commentsButton", "Комментарии", ":/icons/comment.png", {}, false},
            {"reportButton", "Отчет... (Ctrl + P)", ":/icons/report.png", Qt::CTRL | Qt::Key_P, false},
            {"searchButton", "Поиск (Ctrl + F)", ":/icons/search.png", Qt::CTRL | Qt::Key_F, false},
            {"addButton", "Добавить журнал подразделения", ":/icons/add_blue.png", {}, false},
        };
        for (const auto& expected : buttons) {
            const QToolButton* found = button(desk, expected.name);
            QCOMPARE(found->toolTip(), QString::fromUtf8(expected.tip));
            QCOMPARE(picture(found->icon()), picture(expected.icon));
            QCOMPARE(found->shortcut(), expected.key);
            QCOMPARE(found->menu() != nullptr, expected.hasMenu);
            if (expected.hasMenu)
                QCOMPARE(found->popupMode(), QToolButton::MenuButtonPopup);
        }
        QCOMPARE(desk.child<QTabWidget>("logbooks")->cornerWidget(Qt::TopRightCorner),
                 button(desk, "paneButton"));
        QCOMPARE(desk.child<QToolBar>("toolBar")->contextMenuPolicy(), Qt::NoContextMenu);
        QCOMPARE(desk.child<QToolBar>("toolBar")->layout()->spacing(), 6);
        QCOMPARE(picture(desk.child<QTabWidget>("logbooks")->tabIcon(0)), picture(":/icons/home.png"));
        button(desk, "commentsButton")->click();
        QCOMPARE(picture(desk.child<QTabWidget>("logbooks")->tabIcon(1)), picture(":/icons/comment.png"));
    }

    void hiddenPanesGiveTheKeyboardToTheTable()
    {
        const TestStore store;
        JournalWindow desk(store, QStringLiteral("ivanov"));
        desk.window().resize(1600, 700);
        desk.window().show();
        desk.window().activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&desk.window()));
        auto* panes = JournalWindow::childOf<QTabWidget>(&desk.home(), "additionalTab");
        auto* files = JournalWindow::childOf<QTableView>(&desk.home(), "filesTable");
        auto* records = JournalWindow::childOf<QTableView>(&desk.home(), "recordsTable");
        QTRY_VERIFY(panes->isVisible());
        panes->setCurrentIndex(1);
        files->setFocus();
        QVERIFY(files->hasFocus());
        desk.window().resize(700, 700); // no room for them
        QTRY_VERIFY(!panes->isVisible());
        QVERIFY(records->hasFocus());
        button(desk, "paneButton")->click();
        QVERIFY(panes->isVisible());
        files->setFocus();
        button(desk, "paneButton")->click();
        QVERIFY(!panes->isVisible());
        QVERIFY(records->hasFocus());
    }

    void labelsLeaveTheBarWhereItIsNarrow()
    {
        const TestStore store;
        JournalWindow desk(store, QStringLiteral("ivanov"));
        auto* bar = desk.child<QToolBar>("toolBar");
        auto* row = desk.child<QToolBar>("statusRow");
        const auto labels = [](const QToolBar* where) {
            QStringList names;
            for (QAction* action : where->actions())
                if (const QWidget* widget = where->widgetForAction(action))
                    if (widget->objectName().endsWith(QLatin1String("Label")))
                        names << widget->objectName();
            return names.join(QLatin1Char(' '));
        };
        desk.window().resize(2500, 602);
        QCOMPARE(labels(bar), QStringLiteral("intervalLabel statusLabel"));
        QVERIFY(!row->isVisible());
        const int all = bar->sizeHint().width();
        desk.window().resize(all - 10, 602);
        QCOMPARE(labels(bar), QStringLiteral("intervalLabel"));
        QCOMPARE(labels(row), QStringLiteral("statusLabel"));
        QVERIFY(row->isVisible());
        desk.window().resize(bar->sizeHint().width() - 10, 602);
        QCOMPARE(labels(bar), QString());
        QCOMPARE(labels(row), QStringLiteral("intervalLabel statusLabel"));
        desk.window().resize(2500, 602);
        QCOMPARE(labels(bar), QStringLiteral("intervalLabel statusLabel"));
        QVERIFY(!row->isVisible());
    }

    void menusHaveTheirTextsAndIcons()
    {
        const TestStore store;
        JournalWindow desk(store, QStringLiteral("ivanov"));
        const auto expected = [](const QMenu* menu) {
            QStringList lines;
            for (const QAction* action : menu->actions())
                lines << (action->isSeparator() ? QStringLiteral("|") : action->text());
            return lines.join(QLatin1Char(';'));
        };
        const auto menu = [&](const char* name) { return button(desk, name)->menu(); };
        QCOMPARE(expected(menu("timeButton")),
                 QStringLiteral("Текущая смена;Выбрать смену;Выбрать интервал"));
        QCOMPARE(
            expected(menu("workshiftButton")),
            QStringLiteral("Открыть смену;Закрыть смену;Добавить диспетчера в смену;|;Информация о смене"));
        QCOMPARE(expected(menu("deleteButton")), QStringLiteral("Удалить текущую запись;Удалить мои черновые "
                                                                "записи;Удалить все черновые записи"));
        QCOMPARE(expected(menu("approveButton")),
                 QStringLiteral("Утвердить текущую запись;Утвердить мои записи;Утвердить все записи"));
        QCOMPARE(expected(menu("signButton")),
                 QStringLiteral("Поставить визу на текущую запись;Поставить визу на все записи"));
        desk.select("REC_OPENING");
        QCOMPARE(
            expected(recordMenu(desk)),
            QStringLiteral("Время выполнения...;Второй маркер...;|;Утвердить текущую запись;Поставить визу "
                           "на текущую запись;Перейти к первичной записи;|;Копировать запись;Вставить "
                           "запись;|;Закладка"));
        const std::pair<QAction*, const char*> icons[] = {
            {desk.child<QAction>("currentWorkshiftAction"), nullptr},
            {desk.child<QAction>("chooseWorkshiftAction"), ":/icons/workshift.png"},
            {desk.child<QAction>("chooseIntervalAction"), ":/icons/clock_blue.png"},
            {desk.child<QAction>("openWorkshiftAction"), nullptr},
            {desk.child<QAction>("closeWorkshiftAction"), nullptr},
            {desk.child<QAction>("appendWorkerAction"), nullptr},
            {desk.child<QAction>("infoWorkshiftAction"), ":/icons/info.png"},
            {recordMenu(desk)->actions().at(0), ":/icons/hour_glass.png"},
            {recordMenu(desk)->actions().at(1), ":/icons/two.png"},
            {recordMenu(desk)->actions().at(3), ":/icons/apply.png"},
            {recordMenu(desk)->actions().at(4), ":/icons/sign.png"},
            {recordMenu(desk)->actions().at(5), ":/icons/star.png"},
            {recordMenu(desk)->actions().at(7), ":/icons/copy.png"},
            {recordMenu(desk)->actions().at(8), ":/icons/paste.png"},
        };
        for (const auto& [action, icon] : icons) {
            QCOMPARE(picture(action->icon()).isNull(), icon == nullptr);
            if (icon)
                QCOMPARE(picture(action->icon()), picture(icon));
        }
    }

    void labelsNameTheStateInItsColour()
    {
        const TestStore store;
        JournalWindow desk(store, QStringLiteral("ivanov"));
        const auto shows = [&desk](const char* text, const char* color) {
            return desk.status() == QString::fromUtf8(text) &&
                   label(desk, "statusLabel")->styleSheet() ==
                       QStringLiteral("border: 2px solid %1; border-radius: 3px; border-style: inset;")
                           .arg(QLatin1String(color));
        };
        QVERIFY(shows("Смена открыта, редактирование разрешено", "#63D945"));
        JournalWindow other(store, QStringLiteral("sidorova"));
        QCOMPARE(other.status(), QStringLiteral("Смена открыта, редактирование запрещено"));
        QVERIFY(label(other, "statusLabel")->styleSheet().contains(QLatin1String("#169CBA")));
        for (const char* name : {"statusLabel", "intervalLabel"}) {
            QCOMPARE(label(desk, name)->alignment(), Qt::AlignCenter);
            QCOMPARE(label(desk, name)->margin(), 4);
        }
        const QFontMetrics metrics(label(desk, "statusLabel")->font());
        QCOMPARE(label(desk, "statusLabel")->width(),
                 metrics.horizontalAdvance(QStringLiteral("Смена закрыта, редактирование запрещено")) + 20);
        QCOMPARE(
            label(desk, "intervalLabel")->minimumWidth(),
            metrics.horizontalAdvance(QStringLiteral("WWWWW: 01.01.1970 00:00:00 -01.01.1970 00:00:00")) +
                10);

        button(desk, "commentsButton")->click();
        QVERIFY(shows("Просмотр комментариев", "#169CBA"));
        QCOMPARE(desk.interval(), QString());
        desk.child<QTabWidget>("logbooks")->setCurrentIndex(0);
        const QDateTime now = QDateTime::currentDateTime();
        desk.home().uploadRecordsIn(now.addDays(-1), now);
        QVERIFY(shows("Просмотр архива записей", "#169CBA"));
        desk.home().uploadRecordsIn(QStringLiteral("SHIFT_CDS_PAST"));
        QVERIFY(shows("Просмотр записей смены", "#169CBA"));
        desk.trigger("currentWorkshiftAction");
        closeShift(store, desk);
        QVERIFY(shows("Смена закрыта", "#F7351B"));
    }

    void theTabOfCommentsTurnsSevenButtonsOff()
    {
        const TestStore store;
        JournalWindow desk(store, QStringLiteral("ivanov"));
        desk.select("REC_SUCCESSOR");
        QVERIFY(button(desk, "executionButton")->isEnabled());
        button(desk, "commentsButton")->click();
        for (const char* off : {"timeButton", "workshiftButton", "createButton", "deleteButton",
                                "approveButton", "signButton", "reportButton"})
            QVERIFY2(!button(desk, off)->isEnabled(), off);
        for (const char* on : {"executionButton", "commentsButton", "searchButton"})
            QVERIFY2(button(desk, on)->isEnabled(), on);
    }

    void eachButtonWritesWhatItSays_data()
    {
        QTest::addColumn<QString>("presses");
        QTest::addColumn<QString>("after");
        // On the draft of a colleague, so that "current", "mine" and "all" differ.
        QTest::newRow("nothing") << "" << QStringLiteral("1 1  SIDOROVA");
        QTest::newRow("delete, button") << "deleteButton" << QStringLiteral("1 -  SIDOROVA");
        QTest::newRow("delete, current") << "deleteRecordAction" << QStringLiteral("1 -  SIDOROVA");
        QTest::newRow("delete, mine") << "deleteMyDraftsAction" << QStringLiteral("- 1  SIDOROVA");
        QTest::newRow("delete, all") << "deleteAllDraftsAction" << QStringLiteral("- -  SIDOROVA");
        QTest::newRow("approve, button") << "approveButton" << QStringLiteral("1 0  SIDOROVA");
        QTest::newRow("approve, current") << "approveRecordAction" << QStringLiteral("1 0  SIDOROVA");
        QTest::newRow("approve, mine") << "approveMyRecordsAction" << QStringLiteral("0 1  SIDOROVA");
        QTest::newRow("approve, all") << "approveAllRecordsAction" << QStringLiteral("0 0  SIDOROVA");
        QTest::newRow("approve, menu")
            << QStringLiteral("Утвердить текущую запись") << QStringLiteral("1 0  SIDOROVA");
        // On an approved record of his.
        QTest::newRow("visa, button") << "REC_ORDER signButton" << QStringLiteral("1 1 IVANOV SIDOROVA");
        QTest::newRow("visa, current")
            << "REC_ORDER signRecordAction" << QStringLiteral("1 1 IVANOV SIDOROVA");
        QTest::newRow("visa, all") << "REC_ORDER signAllRecordsAction" << QStringLiteral("1 1 IVANOV IVANOV");
        QTest::newRow("visa, menu") << QStringLiteral("REC_ORDER Поставить визу на текущую запись")
                                    << QStringLiteral("1 1 IVANOV SIDOROVA");
    }
    void eachButtonWritesWhatItSays()
    {
        QFETCH(QString, presses);
        QFETCH(QString, after);
        const TestStore store;
        JournalWindow desk(store, QStringLiteral("ivanov"));
        const QString record = QStringLiteral("REC_ORDER ");
        desk.select(presses.startsWith(record) ? "REC_ORDER" : "REC_DRAFT_PETROV");
        presses.remove(record);
        if (auto* pressed = desk.window().findChild<QToolButton*>(presses); pressed && !presses.isEmpty())
            QTest::mouseClick(pressed, Qt::LeftButton, Qt::NoModifier, QPoint(6, 6));
        else if (auto* action = desk.window().findChild<QAction*>(presses); action && !presses.isEmpty())
            action->trigger();
        else if (!presses.isEmpty())
            entry(desk, presses)->trigger();
        QCOMPARE(state(store), after);
    }

    void eachButtonShowsItsWindow_data()
    {
        QTest::addColumn<QString>("presses");
        QTest::addColumn<QByteArray>("shows");
        QTest::newRow("a new record") << "createButton" << QByteArray("RecordCreatorDialog");
        QTest::newRow("the execution time") << "executionButton" << QByteArray("TimeExecutionDialog");
        QTest::newRow("the report") << "reportButton" << QByteArray("ReportDialog");
        QTest::newRow("the execution time, menu")
            << QStringLiteral("Время выполнения...") << QByteArray("TimeExecutionDialog");
        QTest::newRow("the second marker, menu")
            << QStringLiteral("Второй маркер...") << QByteArray("SecondMarkerDialog");
        QTest::newRow("a worker more") << "appendWorkerAction" << QByteArray("AppendWorkerDialog");
        QTest::newRow("closing") << "closeWorkshiftAction"
                                 << QByteArray("CPopMessageBox"); // there are drafts
    }
    void eachButtonShowsItsWindow()
    {
        QFETCH(QString, presses);
        QFETCH(QByteArray, shows);
        const TestStore store;
        JournalWindow desk(store, QStringLiteral("ivanov"));
        desk.select("REC_SUCCESSOR");
        if (auto* pressed = desk.window().findChild<QToolButton*>(presses))
            QTest::mouseClick(pressed, Qt::LeftButton, Qt::NoModifier, QPoint(6, 6));
        else if (auto* action = desk.window().findChild<QAction*>(presses))
            action->trigger();
        else
            entry(desk, presses)->trigger();
        QList<QByteArray> shown;
        for (const CPopTemplate* pop : desk.window().findChildren<CPopTemplate*>()) {
            if (pop->isVisible())
                shown << pop->metaObject()->className();
        }
        QCOMPARE(shown, QList<QByteArray>{shows});
    }

    void aClosedShiftIsOpenedByItsEntry()
    {
        const TestStore store;
        JournalWindow desk(store, QStringLiteral("ivanov"));
        QVERIFY(!desk.isEnabled("openWorkshiftAction"));
        closeShift(store, desk);
        QVERIFY(!desk.isEnabled("closeWorkshiftAction"));
        desk.trigger("openWorkshiftAction");
        QVERIFY(desk.opening()->isVisible());
    }

    void theTimeButtonLeadsBackToTheShift()
    {
        const TestStore store;
        JournalWindow desk(store, QStringLiteral("ivanov"));
        for (const bool byMenu : {false, true}) {
            desk.home().uploadRecordsIn(QStringLiteral("SHIFT_CDS_PAST"));
            QCOMPARE(desk.home().mode(), 3);
            if (byMenu)
                desk.trigger("currentWorkshiftAction");
            else
                QTest::mouseClick(button(desk, "timeButton"), Qt::LeftButton, Qt::NoModifier, QPoint(6, 6));
            QCOMPARE(desk.home().mode(), 1);
        }
    }

    void entriesOfTheRecordMenuCopyPasteAndLead()
    {
        const TestStore store;
        JournalWindow desk(store, QStringLiteral("ivanov"));
        QGuiApplication::clipboard()->clear();
        desk.select("REC_SUCCESSOR");
        QVERIFY(!entry(desk, QStringLiteral("Вставить запись"))->isEnabled());
        entry(desk, QStringLiteral("Копировать запись"))->trigger();
        QCOMPARE(QGuiApplication::clipboard()->mimeData()->data(QStringLiteral("logbook_record")),
                 QByteArray("LogbookRecords;REC_SUCCESSOR"));
        entry(desk, QStringLiteral("Перейти к первичной записи"))->trigger();
        const auto key = [&desk] {
            MDRVar value;
            MDRGetVal(MDRFldByName(MDARecArr(desk.home().currentRecord()), "KeyLink"),
                      desk.home().currentRecord(), &value);
            return MDRValue::copy(value);
        };
        QCOMPARE(key(), QByteArray("REC_REPLACED"));
        const auto count = [&store] {
            return store.value(QStringLiteral("SELECT count(*) FROM LogbookRecords")).toInt();
        };
        const int before = count();
        entry(desk, QStringLiteral("Вставить запись"))->trigger();
        QCOMPARE(count(), before + 1);
    }

    void keysActOnTheCurrentRecord_data()
    {
        QTest::addColumn<QString>("keys");
        QTest::addColumn<QString>("record");
        QTest::addColumn<QString>("shown");
        QTest::newRow("execution") << "F6"
                                   << "REC_ORDER"
                                   << "TimeExecutionDialog";
        QTest::newRow("marker") << "F7"
                                << "REC_ORDER"
                                << "SecondMarkerDialog";
        QTest::newRow("comment") << "F8"
                                 << "REC_ORDER"
                                 << "CommentCreatorDialog";
        QTest::newRow("opening a draft") << "F2"
                                         << "REC_DRAFT_IVANOV"
                                         << "RecordCreatorDialog";
        QTest::newRow("opening by Enter") << "Return"
                                          << "REC_ORDER"
                                          << "RecordCreatorDialog";
        QTest::newRow("shifts") << "Ctrl+J"
                                << "REC_ORDER"
                                << "WorkshiftsDialog";
        QTest::newRow("interval") << "Ctrl+I"
                                  << "REC_ORDER"
                                  << "DateTimeRangeDialog";
        QTest::newRow("crew") << "Ctrl+Shift+I"
                              << "REC_ORDER"
                              << "WorkshiftInfoDialog";
        QTest::newRow("one more worker") << "Ctrl+Shift+W"
                                         << "REC_ORDER"
                                         << "AppendWorkerDialog";
        QTest::newRow("handing over") << "Ctrl+Shift+S"
                                      << "REC_ORDER"
                                      << "CPopMessageBox"; // about the drafts
        QTest::newRow("inbox") << "Ctrl+M"
                               << "REC_ORDER"
                               << "CommentsWidget";
    }
    void keysActOnTheCurrentRecord()
    {
        QFETCH(QString, keys);
        QFETCH(QString, record);
        QFETCH(QString, shown);
        const TestStore store;
        JournalWindow desk(store, QStringLiteral("ivanov"));
        desk.select(record.toLatin1());
        const auto isShown = [&shown] {
            for (const QWidget* widget : QApplication::allWidgets())
                if (widget->isVisible() && widget->inherits(shown.toLatin1()))
                    return true;
            return false;
        };
        QVERIFY(!isShown());
        pressKeys(desk, keys);
        QVERIFY(isShown());
    }

    void keysApproveCopyAndPasteWhereTheMenuWould()
    {
        const TestStore store;
        JournalWindow desk(store, QStringLiteral("ivanov"));
        desk.select("REC_DRAFT_IVANOV");
        entry(desk, QStringLiteral("Копировать запись")); // the menu leaves it disabled for a draft
        pressKeys(desk, QStringLiteral("Ctrl+Shift+A"));
        QVERIFY(state(store).startsWith(QLatin1Char('0')));
        pressKeys(desk, QStringLiteral("Ctrl+Shift+B")); // his own record
        QCOMPARE(store
                     .value(QStringLiteral("SELECT VisaWorkerKey FROM LogbookRecords WHERE KeyLink = "
                                           "'REC_DRAFT_IVANOV'"))
                     .toString(),
                 QString());
        QGuiApplication::clipboard()->clear();
        desk.select("REC_SUCCESSOR");
        pressKeys(desk, QStringLiteral("Ctrl+Shift+C"));
        QCOMPARE(QGuiApplication::clipboard()->mimeData()->data(QStringLiteral("logbook_record")),
                 QByteArray("LogbookRecords;REC_SUCCESSOR"));
        const auto count = [&store] {
            return store.value(QStringLiteral("SELECT count(*) FROM LogbookRecords")).toInt();
        };
        const int before = count();
        pressKeys(desk, QStringLiteral("Ctrl+Shift+V"));
        QCOMPARE(count(), before + 1);
        desk.select("REC_SUCCESSOR");
        pressKeys(desk, QStringLiteral("Ctrl+Shift+O"));
        QCOMPARE(Row(desk.home().currentRecord()).key(), QByteArray("REC_REPLACED"));
    }

    void noTwoActionsOfTheWindowShareAKey()
    {
        const TestStore store;
        JournalWindow desk(store, QStringLiteral("ivanov"));
        QStringList keys;
        for (const QShortcut* one : desk.window().findChildren<QShortcut*>())
            if (one->parentWidget()->window() == &desk.window() && one->context() != Qt::WidgetShortcut)
                keys << one->key().toString();
        for (const QToolButton* one : desk.window().findChildren<QToolButton*>())
            if (!one->shortcut().isEmpty() && one->isEnabled())
                keys << one->shortcut().toString();
        for (const QAction* one : desk.child<QToolBar>("toolBar")->findChildren<QAction*>())
            if (!one->shortcut().isEmpty())
                keys << one->shortcut().toString();
        QVERIFY(keys.size() > 15);
        keys.removeOne(QStringLiteral("Ctrl+N")); // the refusal takes it while the button is disabled
        QCOMPARE(keys.removeDuplicates(), 0);
    }

    void whereNothingCanBeWrittenTheKeySaysWhy_data()
    {
        QTest::addColumn<QString>("login");
        QTest::addColumn<QString>("where");
        QTest::addColumn<QString>("why");
        QTest::newRow("not in the crew") << "sidorova"
                                         << "" << QStringLiteral("Вас нет в составе этой смены");
        QTest::newRow("another department")
            << "ivanov"
            << "department" << QStringLiteral("в журнале своего подразделения");
        QTest::newRow("comments") << "ivanov"
                                  << "comments" << QStringLiteral("в журнале своего подразделения");
        QTest::newRow("a past shift") << "ivanov"
                                      << "past" << QStringLiteral("Показаны прошлые записи");
        QTest::newRow("a closed shift") << "ivanov"
                                        << "closed" << QStringLiteral("Смена закрыта");
    }
    void whereNothingCanBeWrittenTheKeySaysWhy()
    {
        QFETCH(QString, login);
        QFETCH(QString, where);
        QFETCH(QString, why);
        const TestStore store;
        JournalWindow desk(store, login);
        if (where == QLatin1String("department"))
            desk.window().appendLogbook(QStringLiteral("ORG_NETS"), QStringLiteral("DEP_ZAR"));
        else if (where == QLatin1String("comments"))
            button(desk, "commentsButton")->click();
        else if (where == QLatin1String("past"))
            desk.home().uploadRecordsIn(QStringLiteral("SHIFT_CDS_PAST"));
        else if (where == QLatin1String("closed"))
            closeShift(store, desk);
        QVERIFY(!button(desk, "createButton")->isEnabled());
        QVERIFY(label(desk, "statusLabel")->toolTip().contains(why));
        QVERIFY(QTest::qWaitForWindowActive(&desk.window()));
        QTest::keyClick(&desk.window(), Qt::Key_N, Qt::ControlModifier);
        QVERIFY(desk.box());
        QCOMPARE(desk.box()->title(), QStringLiteral("Новая запись"));
        QVERIFY2(desk.box()->text().contains(why), qPrintable(desk.box()->text()));
        desk.answer(QDialogButtonBox::AcceptRole);
        QVERIFY(!desk.box());
        QTest::keyClick(&desk.window(), Qt::Key_1, Qt::AltModifier);
        QVERIFY(desk.box());
        QVERIFY(!desk.window().findChild<RecordCreatorDialog*>()->isVisible());
        desk.answer(QDialogButtonBox::AcceptRole);
    }

    void pinnedTemplatesAreWrittenByTheirKeys()
    {
        const TestStore store;
        JournalWindow desk(store, QStringLiteral("ivanov"));
        auto* dialog = desk.window().findChild<RecordCreatorDialog*>();
        auto* tree = dialog->findChild<TemplatesWidget*>();
        const auto press = [](QWidget* window, Qt::Key key) {
            QVERIFY(QTest::qWaitForWindowActive(window));
            QTest::keyClick(window, key, Qt::AltModifier);
        };
        press(&desk.window(), Qt::Key_1);
        QTRY_VERIFY(dialog->isVisible());
        QCOMPARE(tree->currentTemplateKey(), QString());
        const auto* bar = dialog->findChild<QWidget*>(QStringLiteral("noticeBar"));
        QVERIFY(bar->isVisible());
        for (const char* key : {"TPL_TRIP", "TPL_ORDER"}) {
            QVERIFY(tree->selectTemplate(QLatin1String(key)));
            tree->findChild<QAction*>(QStringLiteral("pinAction"))->trigger();
        }
        tree->clearSelection();
        press(dialog, Qt::Key_2);
        QCOMPARE(tree->currentTemplateKey(), QStringLiteral("TPL_ORDER"));
        QVERIFY(dialog->focusWidget());
        QVERIFY(!tree->isAncestorOf(dialog->focusWidget()));
        dialog->close();
        press(&desk.window(), Qt::Key_1);
        QTRY_VERIFY(dialog->isVisible());
        QCOMPARE(tree->currentTemplateKey(), QStringLiteral("TPL_TRIP"));
        QVERIFY(!bar->isVisible());
    }

    void whereARecordCanBeWrittenTheKeyWritesIt()
    {
        const TestStore store;
        JournalWindow desk(store, QStringLiteral("ivanov"));
        QCOMPARE(label(desk, "statusLabel")->toolTip(), QString());
        QVERIFY(QTest::qWaitForWindowActive(&desk.window()));
        QTest::keyClick(&desk.window(), Qt::Key_N, Qt::ControlModifier);
        QTRY_VERIFY(desk.window().findChild<RecordCreatorDialog*>()->isVisible());
        QVERIFY(!desk.box());
    }
};

QTEST_MAIN(CVrkLogBook_bar_test)
#include "CVrkLogBook_bar_test.moc"
