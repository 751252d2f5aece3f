#include "Alerts.h"

#include "CVrkCliApp.h"
#include "CVrkCliMod.h"
#include "HostBench.h"
#include "NoticeSound.h"
#include "StatusLine.h"
#include "Tray.h"
#include "UserSettings.h"
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

namespace
{
/// Settings of their own for the life of the object.
struct SettingsFolder {
    SettingsFolder()
    {
        QCoreApplication::setOrganizationName(QStringLiteral("vrk-test"));
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, folder.path());
    }
    QTemporaryDir folder{testFolderTemplate()};
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

    void onlyWantedKindsAlert_data()
    {
        QTest::addColumn<QByteArray>("setting");
        QTest::addColumn<int>("kind");
        QTest::newRow("shift") << QByteArray(Setting::noticeShift) << int(CVrkCliMod::Attention::Shift);
        QTest::newRow("comment") << QByteArray(Setting::noticeComments)
                                 << int(CVrkCliMod::Attention::Comment);
        QTest::newRow("record") << QByteArray(Setting::noticeRecords) << int(CVrkCliMod::Attention::Record);
        QTest::newRow("message") << QByteArray(Setting::noticeFailures)
                                 << int(CVrkCliMod::Attention::Message);
    }
    void onlyWantedKindsAlert()
    {
        QFETCH(QByteArray, setting);
        QFETCH(int, kind);
        const SettingsFolder folder;
        Desk desk;
        UserSettings settings;
        desk.alerts->setSettings(&settings);
        desk.activate(&desk.other);
        for (bool isWanted : {true, false}) {
            for (const char* name : {Setting::noticeShift, Setting::noticeComments, Setting::noticeRecords,
                                     Setting::noticeFailures})
                settings.setValue(name, (setting == name) == isWanted);
            desk.module.CallAttention(QStringLiteral("Запись."), CVrkCliMod::Attention(kind));
            QCOMPARE(desk.blinked.size(), 1);
        }
    }

    void aSoundIsPlayedIfWanted()
    {
        const SettingsFolder folder;
        Desk desk;
        UserSettings settings;
        int played = 0;
        desk.alerts->setSettings(&settings);
        desk.alerts->setSound([&played] { ++played; });
        desk.activate(&desk.other);
        desk.module.CallAttention(QStringLiteral("Первая."));
        QCOMPARE(played, 0);
        settings.setValue(Setting::noticeSound, true);
        desk.module.CallAttention(QStringLiteral("Вторая."));
        QCOMPARE(played, 1);
    }

    void quietHoursLeaveOnlyTheBlinking_data()
    {
        QTest::addColumn<QString>("from");
        QTest::addColumn<QString>("to");
        QTest::addColumn<QTime>("now");
        QTest::addColumn<bool>("isQuiet");
        const QString late = QStringLiteral("22:00");
        const QString early = QStringLiteral("07:00");
        QTest::newRow("begins") << late << early << QTime(22, 0) << true;
        QTest::newRow("before it") << late << early << QTime(21, 59, 59) << false;
        QTest::newRow("after midnight") << late << early << QTime(3, 0) << true;
        QTest::newRow("ends") << late << early << QTime(7, 0) << false;
        QTest::newRow("in the day") << early << late << QTime(12, 0) << true;
        QTest::newRow("at night") << early << late << QTime(3, 0) << false;
        QTest::newRow("the whole day") << early << early << QTime(15, 0) << true;
    }
    void quietHoursLeaveOnlyTheBlinking()
    {
        QFETCH(QString, from);
        QFETCH(QString, to);
        QFETCH(QTime, now);
        QFETCH(bool, isQuiet);
        const SettingsFolder folder;
        Desk desk;
        UserSettings settings;
        int played = 0;
        settings.setValue(Setting::noticeSound, true);
        settings.setValue(Setting::quietHours, true);
        settings.setValue(Setting::quietFrom, from);
        settings.setValue(Setting::quietTo, to);
        desk.alerts->setSettings(&settings);
        desk.alerts->setSound([&played] { ++played; });
        desk.alerts->setClock([now] { return QDateTime(QDate(2026, 11, 23), now); });
        desk.activate(&desk.other);
        desk.module.CallAttention(QStringLiteral("Сдайте смену."), CVrkCliMod::Attention::Shift);
        QCOMPARE(desk.blinked.size(), 1);
        QCOMPARE(desk.reported.size(), isQuiet ? 0 : 1);
        QCOMPARE(played, isQuiet ? 0 : 1);
    }

    void aStormOfRecordsIsOneNotice()
    {
        Desk desk;
        QDateTime now(QDate(2026, 11, 23), QTime(12, 0));
        desk.alerts->setClock([&now] { return now; });
        desk.activate(&desk.other);
        for (int i = 0; i < 50; ++i)
            desk.module.CallAttention(QStringLiteral("Запись."), CVrkCliMod::Attention::Record);
        QCOMPARE(desk.reported.size(), 1);
        now = now.addSecs(11);
        desk.module.CallAttention(QStringLiteral("Запись."), CVrkCliMod::Attention::Record);
        QCOMPARE(desk.reported.size(), 2);
    }

    void aFoundPlayerGetsTheSound()
    {
        const QTemporaryDir folder(testFolderTemplate());
        const QString heard = folder.filePath(QStringLiteral("heard"));
        QFile player(folder.filePath(QStringLiteral("paplay")));
        QVERIFY(player.open(QIODevice::WriteOnly));
        player.write("#!/bin/sh\ncp \"$1\" " + heard.toLocal8Bit() + ".part && mv " + heard.toLocal8Bit() +
                     ".part " + heard.toLocal8Bit() + "\n");
        player.close();
        player.setPermissions(QFile::Permissions(0x7777));
        QVERIFY(NoticeSound({folder.path()}).play());
        QTRY_VERIFY(QFile::exists(heard));
        QFile file(heard);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll(), NoticeSound::wave());
        QVERIFY(NoticeSound::wave().startsWith("RIFF"));
        QVERIFY(!NoticeSound({folder.filePath(QStringLiteral("none"))}).play());
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
