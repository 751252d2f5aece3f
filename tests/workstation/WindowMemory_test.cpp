#include "WindowMemory.h"

#include "CVrkCliMod.h"
#include "HostBench.h"
#include "HostSettings.h"
#include "ModuleMenu.h"
#include "StatusLine.h"
#include "Workstation.h"

#include <QHeaderView>
#include <QMainWindow>
#include <QScreen>
#include <QSplitter>
#include <QTableView>
#include <QTest>
#include <QToolBar>

/// What the host remembers of windows, with real modules and separate settings.
class WindowMemory_test : public QObject
{
    Q_OBJECT

private:
    CVrkCliMod* start(const QString& user = QStringLiteral("ozerov"),
                      const QString& module = QStringLiteral("logbook"))
    {
        Options options;
        options.store = m_bench->url();
        options.user = user;
        options.department = QStringLiteral("ЦДС");
        m_host = std::make_unique<Workstation>();
        if (!m_host->enter(options))
            qFatal("%s", qPrintable(m_host->errorText()));
        CVrkCliMod* window = m_host->startModule(module);
        if (!window)
            qFatal("%s", qPrintable(m_host->errorText()));
        QCoreApplication::processEvents();
        return window;
    }
    /// The configurator, whose panes fit on any screen.
    QSplitter* startWithPanes()
    {
        CVrkCliMod* window = start(QStringLiteral("admin"), QStringLiteral("template"));
        for (QSplitter* splitter : window->findChildren<QSplitter*>()) {
            if (splitter->isVisible() && splitter->count() == 2 && splitter->orientation() == Qt::Horizontal)
                return splitter;
        }
        qFatal("no panes");
    }
    static QTableView* table(const QWidget* window)
    {
        return window->findChild<QWidget*>(QStringLiteral("homeLogbook"))
            ->findChild<QTableView*>(QStringLiteral("recordsTable"));
    }
    /// The column of authors.
    static int author(const QWidget* window)
    {
        const QAbstractItemModel* model = table(window)->model();
        for (int column = 0; column < model->columnCount(); ++column) {
            if (model->headerData(column, Qt::Horizontal).toString() == QStringLiteral("Автор"))
                return column;
        }
        return -1;
    }
    static void arrange(CVrkCliMod* window)
    {
        window->resize(780, 520);
        window->move(12, 34);
        table(window)->setColumnWidth(author(window), 123);
        QCoreApplication::processEvents();
    }

    std::unique_ptr<HostBench> m_bench;
    std::unique_ptr<Workstation> m_host;

private slots:
    void init()
    {
        m_bench = std::make_unique<HostBench>();
        QSettings().clear();
    }
    void toolBarsAreSeenWhole()
    {
        QMainWindow window;
        QToolBar* bar = window.addToolBar(QStringLiteral("wide"));
        auto* button = new QWidget;
        button->setFixedWidth(300);
        bar->addWidget(button);
        WindowMemory memory(&window, QStringLiteral("ozerov"), QStringLiteral("wide"));
        memory.restorePlace();
        window.show();
        memory.restoreInside();
        const int least = window.minimumWidth();
        QVERIFY(least < 700);
        button->setFixedWidth(730);
        QTRY_VERIFY(window.minimumWidth() >= 730);
        button->setFixedWidth(9000); // no screen has room
        QTRY_COMPARE(window.minimumWidth(), least);
    }

    void cleanup()
    {
        m_host.reset();
        m_bench.reset();
    }

    void aPlaceIsFittedToTheScreens_data()
    {
        QTest::addColumn<QRect>("wanted");
        QTest::addColumn<QRect>("shown");
        QTest::newRow("on the screen") << QRect(100, 100, 800, 600) << QRect(100, 100, 800, 600);
        QTest::newRow("across both screens") << QRect(1500, 100, 900, 600) << QRect(1500, 100, 900, 600);
        QTest::newRow("above the screen") << QRect(100, -300, 800, 600) << QRect(100, 0, 800, 600);
        QTest::newRow("partly right of all") << QRect(2800, 100, 800, 600) << QRect(2400, 100, 800, 600);
        QTest::newRow("far from all") << QRect(9000, 9000, 800, 600) << QRect(1120, 600, 800, 600);
        QTest::newRow("too small") << QRect(10, 10, 20, 20) << QRect(10, 10, 680, 400);
        QTest::newRow("too large") << QRect(10, 10, 5000, 5000) << QRect(0, 0, 1920, 1200);
    }
    void aPlaceIsFittedToTheScreens()
    {
        QFETCH(QRect, wanted);
        QFETCH(QRect, shown);
        const QVector<QRect> screens{QRect(0, 0, 1920, 1200), QRect(1920, 0, 1280, 1024)};
        QCOMPARE(WindowMemory::fitted(wanted, screens), shown);
        QCOMPARE(WindowMemory::fitted(wanted, {}), wanted);
    }

    void smallestWindowHasRoomForItsBars()
    {
        CVrkCliMod* window = start();
        window->resize(1, 1);
        QCoreApplication::processEvents();
        for (const QToolBar* bar : window->findChildren<QToolBar*>()) {
            for (QAction* action : bar->actions()) {
                const QWidget* widget = bar->widgetForAction(action);
                if (bar->isVisible() && action->isVisible() && widget)
                    QVERIFY2(bar->rect().contains(widget->geometry()), qPrintable(widget->objectName()));
            }
        }
    }

    void theWindowComesBackAsItWasLeft()
    {
        CVrkCliMod* window = start();
        arrange(window);
        const QRect place = window->geometry();
        QCOMPARE(table(window)->columnWidth(author(window)), 123);
        window->close();

        window = start();
        QCOMPARE(window->geometry(), place);
        const int width = table(window)->columnWidth(author(window));
        QVERIFY2(qAbs(width - 123) <= 1, qPrintable(QString::number(width)));
        // It remains the user's: new content does not change it.
        QVERIFY(table(window)->horizontalHeader()->sectionResizeMode(author(window)) ==
                QHeaderView::Interactive);
    }

    void eachUserAndEachModuleHasItsOwn()
    {
        arrange(start());
        m_host.reset(); // also when the program ends with its windows open
        const QSize own = QSize(1219, 602).boundedTo(QGuiApplication::primaryScreen()->size());
        CVrkCliMod* other = start(QStringLiteral("roshchin"));
        QVERIFY(other->size() != QSize(780, 520));
        QVERIFY(other->width() >= qMin(own.width(), 781));
        CVrkCliMod* archive = m_host->startModule(QStringLiteral("archive"));
        QVERIFY(archive);
        QVERIFY(archive->size() != QSize(780, 520));
        m_host.reset();
        QCOMPARE(start()->size(), QSize(780, 520));
    }

    void theMenuSetsItBack()
    {
        CVrkCliMod* window = start();
        const QSize ownSize = window->size().boundedTo(window->screen()->availableSize());
        QVERIFY(table(window)->columnWidth(author(window)) < 100);
        arrange(window);
        window->close();

        window = start();
        QCOMPARE(window->size(), QSize(780, 520));
        auto* menu = m_host->statusLine(window)->findChild<ModuleMenu*>();
        emit menu->aboutToShow();
        QAction* back = nullptr;
        for (QAction* action : menu->actions()) {
            if (action->text() == QStringLiteral("Вид по умолчанию"))
                back = action;
        }
        QVERIFY(back && back->isEnabled());
        back->trigger();
        QTRY_VERIFY(window->width() > 780);
        QTRY_VERIFY(window->height() > ownSize.height() - 30); // a frame takes its part of a small screen
        const QSize size = window->size();
        QTRY_VERIFY(table(window)->columnWidth(author(window)) < 100);
        window->close();

        window = start();
        QCOMPARE(window->size(), size);
        QVERIFY(table(window)->columnWidth(author(window)) < 100);
    }

    void panesKeepTheirSizes()
    {
        QSplitter* panes = startWithPanes();
        panes->window()->resize(780, 600);
        QCoreApplication::processEvents();
        const QList<int> own = panes->sizes();
        panes->setSizes({own[0] - 60, own[1] + 60});
        const QList<int> sizes = panes->sizes();
        QVERIFY(sizes != own);
        panes->window()->close();

        panes = startWithPanes();
        QCOMPARE(panes->sizes(), sizes);
        m_host->statusLine(qobject_cast<CVrkCliMod*>(panes->window()))
            ->findChild<ModuleMenu*>()
            ->ownViewAction()
            ->trigger();
        QTRY_VERIFY(panes->sizes() != sizes);
    }

    void aHiddenPaneLeavesTheSizesOfBefore()
    {
        QSplitter* panes = startWithPanes();
        panes->window()->resize(780, 600);
        QCoreApplication::processEvents();
        panes->setSizes({panes->sizes()[0] - 60, panes->sizes()[1] + 60});
        const QList<int> sizes = panes->sizes();
        panes->window()->close();
        panes = startWithPanes();
        panes->widget(0)->hide();
        panes->window()->close();
        QCOMPARE(startWithPanes()->sizes(), sizes);
    }

    void spoiltSettingsDoNoHarm_data()
    {
        QTest::addColumn<QVariant>("value");
        QTest::newRow("text") << QVariant(QStringLiteral("spoilt"));
        QTest::newRow("number") << QVariant(7);
        QTest::newRow("far away") << QVariant(QRect(90000, 90000, 3, 3));
        QTest::newRow("list") << QVariant(QVariantList{-5, 100000});
        QTest::newRow("map") << QVariant(QVariantMap{{QStringLiteral("WorkerKey"), 1e30},
                                                     {QStringLiteral("html"), -3},
                                                     {QStringLiteral("nothing"), 5}});
    }
    void spoiltSettingsDoNoHarm()
    {
        QFETCH(QVariant, value);
        start()->close();
        QSettings settings;
        int spoilt = 0;
        for (const QString& key : settings.allKeys()) {
            if (key.startsWith(QLatin1String("windows/"))) {
                settings.setValue(key, value);
                ++spoilt;
            }
        }
        QVERIFY(spoilt >= 4);
        const CVrkCliMod* window = start();
        const QRect screen = window->screen()->availableGeometry();
        QVERIFY(screen.contains(window->geometry().topLeft()));
        QVERIFY(window->width() >= 600 && window->height() >= 390);
        QVERIFY(table(window)->columnWidth(author(window)) > 5);
        QVERIFY(table(window)->width() > 100);
    }

    void copiesSettingsWithoutAnOrganisation()
    {
        const QString organization = QCoreApplication::organizationName();
        const QString application = QCoreApplication::applicationName();
        QCoreApplication::setOrganizationName(QString());
        QCoreApplication::setApplicationName(QStringLiteral("vrk-logbook"));
        {
            QSettings former;
            former.setValue(QStringLiteral("theme"), QStringLiteral("dark"));
        }
        HostSettings::useOwnPlace();
        QCOMPARE(QCoreApplication::organizationName(), QStringLiteral("vrk"));
        QCOMPARE(QSettings().value(QStringLiteral("theme")).toString(), QStringLiteral("dark"));
        // Only once: a later choice is kept.
        QSettings().setValue(QStringLiteral("theme"), QStringLiteral("light"));
        HostSettings::useOwnPlace();
        QCOMPARE(QSettings().value(QStringLiteral("theme")).toString(), QStringLiteral("light"));
        QCoreApplication::setOrganizationName(organization);
        QCoreApplication::setApplicationName(application);
    }
};

QTEST_MAIN(WindowMemory_test)
#include "WindowMemory_test.moc"
