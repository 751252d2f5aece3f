#include "CPopTemplate.h"

#include "CVrkCliMod.h"
#include "Minimised.h"
#include "PopGuard.h"
#include "TestClient.h"

#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>
#include <QWindow>

class CPopTemplate_test : public QObject
{
    Q_OBJECT

private:
    /// A window with a field and a button, like a module, and a pop-up over it.
    struct Setup {
        Setup() : edit(new QLineEdit), button(new QPushButton), pop(&window, -1)
        {
            auto* layout = new QVBoxLayout(&window);
            layout->addWidget(edit);
            layout->addWidget(button);
            window.resize(400, 300);
            window.show();
            pop.resize(100, 80);
        }
        QWidget window;
        QLineEdit* edit;
        QPushButton* button;
        CPopTemplate pop;
    };

private slots:
    void itIsAWindowOfItsOwnAndNotModal()
    {
        Setup s;
        QVERIFY(s.pop.isWindow());
        QVERIFY(!s.pop.isModal());
        QCOMPARE(s.pop.parentWidget(), &s.window);
        QVERIFY(!s.pop.isVisible());
    }

    void escapeClosesIt()
    {
        Setup s;
        s.pop.show();
        QTest::keyClick(&s.pop, Qt::Key_Return);
        QVERIFY(s.pop.isVisible());
        QTest::keyClick(&s.pop, Qt::Key_Escape);
        QVERIFY(!s.pop.isVisible());
    }

    void itIsCentredOverTheWindowOfItsParent()
    {
        Setup s;
        s.window.move(200, 150);
        s.pop.moveToCenter();
        QVERIFY((s.pop.geometry().center() - s.window.geometry().center()).manhattanLength() <= 2);
    }

    void itStaysOnTheScreen()
    {
        Setup s;
        const QRect screen = s.window.screen()->availableGeometry();
        s.window.move(screen.right() - 50, screen.bottom() - 50);
        s.pop.moveToCenter();
        QVERIFY(screen.contains(s.pop.geometry()));
        s.window.move(screen.left() - 350, screen.top() - 250);
        s.pop.moveToCenter();
        QVERIFY(screen.contains(s.pop.geometry()));
    }

    void itIsNoLargerThanTheScreen()
    {
        Setup s;
        const QSize screen = s.window.screen()->availableSize();
        s.pop.resize(screen + QSize(200, 200));
        s.pop.moveToCenter();
        QVERIFY(s.pop.width() <= screen.width() && s.pop.height() <= screen.height());
        s.pop.resize(screen + QSize(200, 200));
        s.pop.show();
        QVERIFY(s.pop.width() <= screen.width() && s.pop.height() <= screen.height());
    }

    void aWindowThatIsMovedWhileItAppearsComesBack()
    {
        Setup s;
        const QRect screen = s.window.screen()->availableGeometry();
        s.window.show();
        s.pop.show();
        s.pop.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&s.pop));
        for (int i = 0; i < 5; ++i) // as a window manager may do
            s.pop.move(screen.left() + i, screen.top() - 500);
        QTRY_VERIFY(screen.contains(s.pop.frameGeometry()));
        QTest::qWait(400);
        s.window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&s.window));
        s.pop.move(screen.left(), screen.top() - 100); // the user's own will
        s.pop.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&s.pop));
        QTest::qWait(400);
        QVERIFY(!screen.contains(s.pop.frameGeometry()));
    }

    void itsFrameStaysOnTheScreenToo()
    {
        Setup s;
        const QRect screen = s.window.screen()->availableGeometry();
        s.pop.resize(screen.size());
        s.pop.show();
        QVERIFY(s.pop.frameGeometry() != s.pop.geometry());
        QVERIFY(s.pop.frameGeometry().height() <= screen.height());
        s.pop.moveToCenter();
        QVERIFY(screen.contains(s.pop.frameGeometry()));

        // The frame is unknown before the window system has added it, and no window below has one.
        QWidget bare(nullptr, Qt::FramelessWindowHint);
        bare.show();
        CPopTemplate late(&bare);
        late.setWindowFlag(Qt::FramelessWindowHint);
        late.resize(screen.size());
        late.show();
        QCOMPARE(late.size(), screen.size());
        late.windowHandle()->setFlag(Qt::FramelessWindowHint, false);
        late.windowHandle()->setWindowState(Qt::WindowNoState);
        late.move(screen.topLeft());
        QVERIFY(late.frameGeometry() != late.geometry());
        QVERIFY(screen.contains(late.frameGeometry()));
    }

    void minimisingIsNeitherClosingNorShowing()
    {
        struct Counting : CPopTemplate {
            using CPopTemplate::CPopTemplate;
            void showEvent(QShowEvent* event) override
            {
                ++shown;
                CPopTemplate::showEvent(event);
            }
            void hideEvent(QHideEvent* event) override
            {
                ++hidden;
                CPopTemplate::hideEvent(event);
            }
            int shown = 0;
            int hidden = 0;
        };
        Setup s;
        Counting pop(&s.window);
        pop.setGuarding(true);
        pop.show();
        QVERIFY(minimiseAndRestore(&pop));
        QCOMPARE(pop.shown, 1);
        QCOMPARE(pop.hidden, 0);
        QVERIFY(PopGuard::over(s.edit));
        pop.hide();
        QCOMPARE(pop.hidden, 1);
        pop.show();
        QCOMPARE(pop.shown, 2);
    }

    void theOpenerGetsTheKeyboardBack()
    {
        Setup s;
        CPopTemplate opener(&s.window);
        CPopTemplate opened(&s.window);
        opener.show();
        QVERIFY(QTest::qWaitForWindowActive(&opener));
        opened.show();
        QVERIFY(QTest::qWaitForWindowActive(&opened));
        s.window.activateWindow(); // like a window manager after minimising
        QVERIFY(QTest::qWaitForWindowActive(&s.window));
        opened.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&opened));
        opened.close();
        QTRY_VERIFY(opener.isActiveWindow());
    }

    void withoutAGuardTheWindowUnderItCanBeUsed()
    {
        Setup s;
        s.pop.show();
        QTest::keyClick(s.edit, Qt::Key_A);
        QCOMPARE(s.edit->text(), QStringLiteral("a"));
        QCOMPARE(PopGuard::over(s.edit), nullptr);
    }

    void aGuardSwallowsMouseAndKeysUnderIt()
    {
        Setup s;
        QSignalSpy clicked(s.button, &QPushButton::clicked);
        QShortcut shortcut(QKeySequence(Qt::CTRL | Qt::Key_N), &s.window);
        QSignalSpy activated(&shortcut, &QShortcut::activated);
        s.pop.setGuarding(true);
        QCOMPARE(PopGuard::over(s.edit), nullptr); // not before it is shown
        s.pop.show();
        s.window.activateWindow();
        QVERIFY(PopGuard::over(s.edit));
        QVERIFY(PopGuard::over(&s.window));

        QTest::keyClick(s.edit, Qt::Key_A);
        QTest::keyClick(s.edit, Qt::Key_N, Qt::ControlModifier);
        QTest::mouseClick(s.button, Qt::LeftButton);
        QTest::mouseDClick(s.button, Qt::LeftButton);
        QCOMPARE(s.edit->text(), QString());
        QCOMPARE(clicked.count(), 0);
        QCOMPARE(activated.count(), 0);

        s.pop.hide();
        QTest::keyClick(s.edit, Qt::Key_A);
        QTest::mouseClick(s.button, Qt::LeftButton);
        QCOMPARE(s.edit->text(), QStringLiteral("a"));
        QCOMPARE(clicked.count(), 1);
        QCOMPARE(PopGuard::over(s.edit), nullptr);
    }

    void thePopUpItselfAndOtherWindowsStayUsable()
    {
        Setup s;
        auto* own = new QLineEdit(&s.pop);
        QLineEdit other;
        other.show();
        s.pop.setGuarding(true);
        s.pop.show();
        QTest::keyClick(own, Qt::Key_A);
        QTest::keyClick(&other, Qt::Key_B);
        QCOMPARE(own->text(), QStringLiteral("a"));
        QCOMPARE(other.text(), QStringLiteral("b"));
    }

    void signalsTheEndAfterTheAnswerWasHandled()
    {
        Setup s;
        s.pop.setGuarding(true);
        s.pop.show();
        PopGuard* guard = PopGuard::over(s.edit);
        QSignalSpy lowered(guard, &PopGuard::lowered);
        s.pop.close();
        QVERIFY(!guard->isUp());
        QCOMPARE(lowered.count(), 0); // the slot that closed the box may still be running
        QCoreApplication::sendPostedEvents();
        QCOMPARE(lowered.count(), 1);
    }

    void theGuardCanBeTakenAwayWhileItIsShown()
    {
        Setup s;
        s.pop.show();
        s.pop.setGuarding(true);
        QVERIFY(PopGuard::over(s.edit));
        s.pop.setGuarding(false);
        QCOMPARE(PopGuard::over(s.edit), nullptr);
        s.pop.hide();
        s.pop.show();
        QCOMPARE(PopGuard::over(s.edit), nullptr);
    }

    void aPopUpThatIsDestroyedLeavesNoGuard()
    {
        QWidget window;
        QLineEdit edit(&window);
        window.show();
        {
            CPopTemplate pop(&window);
            pop.setGuarding(true);
            pop.show();
            QVERIFY(PopGuard::over(&edit));
        }
        QCOMPARE(PopGuard::over(&edit), nullptr);
        QTest::keyClick(&edit, Qt::Key_A);
        QCOMPARE(edit.text(), QStringLiteral("a"));
    }

    void aModuleInAHostsWindowIsGuardedAlone()
    {
        CVrkCliApp app;
        QWidget host;
        TestModule module(&app);
        module.setParent(&host, Qt::Widget);
        QLineEdit inModule(&module);
        QLineEdit beside(&host);
        host.show();
        auto* page = new QWidget(&module);
        CPopTemplate pop(page);
        pop.setGuarding(true);
        pop.show();
        QVERIFY(PopGuard::over(&inModule));
        QCOMPARE(PopGuard::over(&beside), nullptr);
    }
};

QTEST_MAIN(CPopTemplate_test)
#include "CPopTemplate_test.moc"
