#include "Alerts.h"

#include "CVrkCliApp.h"
#include "CVrkCliMod.h"
#include "HostBench.h"
#include "StatusLine.h"
#include "Tray.h"
#include "Workstation.h"

#include <QDialog>
#include <QTabWidget>
#include <QTest>
#include <QToolButton>

namespace
{
/// Records the calls of the tray.
class ToldTray : public Tray
{
public:
    explicit ToldTray(QStringList* reported) : m_told(reported) {}
    void show(const QString& title, const QString& text) override
    {
        m_told->append(title + QStringLiteral(": ") + text);
    }
    void hide() override { m_told->append(QStringLiteral("-")); }

private:
    QStringList* m_told;
};
} // namespace

/// The user is alerted when a module needs him and he is elsewhere.
class Alerts_test : public QObject
{
    Q_OBJECT

private:
    struct Desk {
        Desk()
        {
            auto own = std::make_unique<ToldTray>(&reported);
            tray = own.get();
            alerts =
                std::make_unique<Alerts>(std::move(own), [this](QWidget* window) { blinked.append(window); });
            module.SetModTitle(QStringLiteral("Оперативный журнал"), QString());
            alerts->watch(&module);
            module.show();
            other.show();
        }
        void activate(QWidget* window)
        {
            window->activateWindow();
            QApplication::setActiveWindow(window);
            QVERIFY(QTest::qWaitForWindowActive(window));
            reported.clear();
        }

        CVrkCliApp app;
        CVrkCliMod module{&app};
        QWidget other;
        QStringList reported;
        QVector<QWidget*> blinked;
        Tray* tray;
        std::unique_ptr<Alerts> alerts;
    };

private slots:
    void alertsAUserInAnotherWindow()
    {
        Desk desk;
        desk.activate(&desk.other);
        desk.module.CallAttention(QStringLiteral("Сдайте смену."));
        QCOMPARE(desk.reported, QStringList{QStringLiteral("Оперативный журнал: Сдайте смену.")});
        QCOMPARE(desk.blinked, QVector<QWidget*>{&desk.module});
    }

    void doesNotAlertAUserInTheModule()
    {
        Desk desk;
        desk.activate(&desk.module);
        desk.module.CallAttention(QStringLiteral("Сдайте смену."));
        QDialog dialog(&desk.module); // its dialogs are the module as well
        dialog.show();
        desk.activate(&dialog);
        desk.module.CallAttention(QStringLiteral("Сдайте смену."));
        QCOMPARE(desk.reported, QStringList());
        QVERIFY(desk.blinked.isEmpty());
    }

    void aClickBringsTheWindowUp()
    {
        Desk desk;
        desk.module.showMinimized();
        desk.activate(&desk.other);
        desk.module.CallAttention(QStringLiteral("Сдайте смену."));
        emit desk.tray->clicked();
        QVERIFY(desk.module.isVisible());
        QVERIFY(!desk.module.isMinimized());
        QTRY_COMPARE(QApplication::activeWindow(), &desk.module);
        QCOMPARE(desk.reported.last(), QStringLiteral("-"));
    }

    void comingBackTakesTheIconAway()
    {
        Desk desk;
        desk.activate(&desk.other);
        desk.module.CallAttention(QStringLiteral("Сдайте смену."));
        desk.module.activateWindow();
        QTRY_COMPARE(desk.reported.last(), QStringLiteral("-"));
    }

    void aLongTextIsCutForTheTray()
    {
        Desk desk;
        desk.activate(&desk.other);
        desk.module.CallAttention(QString(1000, QLatin1Char('x')));
        QVERIFY(desk.reported[0].size() < 300);
        QVERIFY(desk.reported[0].endsWith(QStringLiteral("…")));
    }

    void aTextIsNoMarkupInTheTray()
    {
        Desk desk;
        desk.activate(&desk.other);
        desk.module.CallAttention(QStringLiteral("<img src=\"//srv/a.png\">"));
        QVERIFY(!desk.reported[0].contains(QLatin1Char('<')));
        QVERIFY(desk.reported[0].contains(QStringLiteral("img src")));
    }

    void aModuleThatIsGoneIsNotBroughtUp()
    {
        QStringList reported;
        auto own = std::make_unique<ToldTray>(&reported);
        Tray* tray = own.get();
        Alerts alerts(std::move(own), [](QWidget*) {});
        CVrkCliApp app;
        auto module = std::make_unique<CVrkCliMod>(&app);
        alerts.watch(module.get());
        module->CallAttention(QStringLiteral("Сдайте смену."));
        module.reset();
        QCOMPARE(reported.last(), QStringLiteral("-"));
        emit tray->clicked();
    }

    /// Through the real journal: a colleague's comment is counted in the status line, and a click there
    /// shows it.
    void theStatusLineCountsUnreadComments()
    {
        HostBench bench;
        Options options;
        options.store = bench.url();
        options.user = QStringLiteral("ozerov");
        options.department = QStringLiteral("ЦДС");
        Workstation host;
        QVERIFY(host.enter(options));
        CVrkCliMod* journal = host.startModule(QStringLiteral("logbook"));
        auto* button = host.statusLine(journal)->findChild<QToolButton*>(QStringLiteral("unreadButton"));
        const int waiting = journal->unreadComments();
        QCOMPARE(button->isVisible(), waiting > 0);
        journal->SetUnreadComments(waiting + 2);
        QVERIFY(button->isVisible());
        // The screen of the tests is small, so the line uses fewer words.
        QTRY_COMPARE(button->text(), QStringLiteral("Комментарии: %1").arg(waiting + 2));
        journal->resize(1600, 600);
        QTRY_COMPARE(button->text(), QStringLiteral("Непрочитанных комментариев: %1").arg(waiting + 2));
        auto* tabs = journal->findChild<QTabWidget*>(QStringLiteral("logbooks"));
        QCOMPARE(tabs->count(), 1);
        QTest::mouseClick(button, Qt::LeftButton);
        QCOMPARE(tabs->count(), 2);
        QVERIFY(tabs->tabText(tabs->currentIndex()).startsWith(QStringLiteral("Комментарии")));
        journal->SetUnreadComments(0);
        QVERIFY(!button->isVisible());
    }
};

QTEST_MAIN(Alerts_test)
#include "Alerts_test.moc"
