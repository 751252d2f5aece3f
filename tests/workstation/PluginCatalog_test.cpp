#include "PluginCatalog.h"

#include "CVrkCliMod.h"
#include "HostBench.h"
#include "Options.h"
#include "PluginLoader.h"
#include "Workstation.h"

#include <QDir>
#include <QMenu>
#include <QProcess>
#include <QTableView>
#include <QTest>

/// The plug-ins that the host finds, and how their modules open one another.
class PluginCatalog_test : public QObject
{
    Q_OBJECT

    QTemporaryDir m_folder{testFolderTemplate()};

    void write(const char* file, const char* text)
    {
        QDir(m_folder.path()).mkpath(QStringLiteral("plugins"));
        QFile out(m_folder.filePath(QStringLiteral("plugins/") + QLatin1String(file)));
        QVERIFY(out.open(QIODevice::WriteOnly));
        out.write(text);
    }
    PluginCatalog catalog() const { return PluginCatalog(m_folder.filePath(QStringLiteral("plugins"))); }
    static QStringList names(const PluginCatalog& catalog)
    {
        QStringList all;
        for (const PluginCatalog::Module& module : catalog.modules())
            all.append(module.name);
        return all;
    }

private slots:
    void initTestCase() { QApplication::setQuitOnLastWindowClosed(false); }

    void theBuiltOnesAreFound()
    {
        const PluginCatalog built;
        QCOMPARE(
            names(built),
            QStringLiteral("logbook template converter unfinished archive bookmarks history past statistics")
                .split(QLatin1Char(' ')));
        QCOMPARE(built.module(QStringLiteral("ARCHIVE"))->title, QStringLiteral("Поиск по архиву"));
        QCOMPARE(built.module(QStringLiteral("converter"))->right, QStringLiteral("ADMINISTRATOR"));
        QCOMPARE(built.recordModules().size(), 1);
        QCOMPARE(built.recordModules().constFirst().name, QStringLiteral("history"));
        QCOMPARE(QKeySequence(built.recordModules().constFirst().key), QKeySequence(Qt::CTRL | Qt::Key_H));
        for (const PluginCatalog::Module& module : built.modules())
            QVERIFY2(QFileInfo(module.library).isAbsolute() && QFile::exists(module.library),
                     qPrintable(module.library));
    }

    void descriptionsAreTakenInTheOrderOfTheirNames()
    {
        write("20-b.json", R"({"library": "libB.so.1", "modules": [{"name": "b", "title": "Б"}]})");
        write("10-a.json",
              R"({"library": "libA.so.1", "modules": [{"name": "a", "title": "А", "right": "X"}]})");
        write("readme.txt", "not a plug-in");
        const PluginCatalog found = catalog();
        QCOMPARE(names(found), QStringList({QStringLiteral("a"), QStringLiteral("b")}));
        QCOMPARE(found.module(QStringLiteral("a"))->library,
                 QStringLiteral("libA.so.1")); // found by the dynamic loader
        QDir(m_folder.path()).mkpath(QStringLiteral("lib"));
        QFile library(m_folder.filePath(QStringLiteral("lib/libB.so.1")));
        QVERIFY(library.open(QIODevice::WriteOnly));
        QCOMPARE(catalog().module(QStringLiteral("b"))->library, library.fileName());
    }

    void ignoresUnreadableDescriptions()
    {
        write("30-c.json", "{ broken");
        write("40-d.json", R"({"modules": [{"name": "d", "title": "Д"}]})");
        write(
            "50-e.json",
            R"({"library": "libE.so", "modules": [{"name": "e"}, {"name": "A", "title": "again"}, {"name": "f", "title": "Ф"}]})");
        for (const char* warning : {"30-c.json", "40-d.json", "50-e.json", "50-e.json"})
            QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QLatin1String(warning)));
        QCOMPARE(names(catalog()),
                 QStringList({QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("f")}));
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("no plug-in is described in")));
        QVERIFY(PluginCatalog(m_folder.filePath(QStringLiteral("nowhere"))).modules().isEmpty());
    }

    void refusesTheOtherVersionOfTheToolkit()
    {
        write("60-g.json", R"({"library": "libG.so", "qt": 99, "modules": [{"name": "g", "title": "Г"}]})");
        for (const char* warning :
             {"30-c.json", "40-d.json", "50-e.json", "50-e.json", "libG.so is built for Qt 99"})
            QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QLatin1String(warning)));
        QVERIFY(!catalog().module(QStringLiteral("g")));
    }

    void theProgramTellsWhichModulesLoad()
    {
        QProcess program;
        program.start(QCoreApplication::applicationDirPath() + QStringLiteral("/vrk-workstation"),
                      {QStringLiteral("--modules")});
        QVERIFY(program.waitForFinished(60000));
        QCOMPARE(program.exitCode(), 0);
        const QString reported = QString::fromUtf8(program.readAllStandardOutput());
        QCOMPARE(reported.count(QLatin1Char('\n')), 9);
        QVERIFY(reported.contains(
            QRegularExpression(QStringLiteral("unfinished +Незавершённое: .*libVrkArchive\\.so\\.1"))));
    }

    void questionsAboutTheProgramWantNoDisplay()
    {
        QProcessEnvironment bare = QProcessEnvironment::systemEnvironment();
        for (const char* choice : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
            bare.remove(QLatin1String(choice));
        for (const char* question : {"--help", "--version", "--modules"}) {
            QProcess program;
            program.setProcessEnvironment(bare);
            program.start(QCoreApplication::applicationDirPath() + QStringLiteral("/vrk-workstation"),
                          {QLatin1String(question)});
            QVERIFY(program.waitForFinished(60000));
            QCOMPARE(program.exitStatus(), QProcess::NormalExit);
            QCOMPARE(program.exitCode(), 0);
            QVERIFY(!program.readAllStandardOutput().isEmpty());
        }
    }

    void theMenuOfARecordEndsWithItsHistory()
    {
        HostBench bench;
        Options options;
        options.store = bench.url(QStringLiteral("menu.sqlite"));
        options.user = QStringLiteral("ozerov");
        options.department = QStringLiteral("ЦДС");
        QCOMPARE(HostBench::admin({QStringLiteral("demo"), options.store}), QString());
        Workstation host;
        QVERIFY2(host.enter(options), qPrintable(host.errorText()));
        CVrkCliMod* journal = host.startModule(QStringLiteral("logbook"));
        QVERIFY(journal);
        auto* menu = journal->findChild<QMenu*>(QStringLiteral("recordMenu"));
        QVERIFY(menu);
        // The journal's own entries keep their places.
        QCOMPARE(menu->actions().size(), 12);
        QCOMPARE(menu->actions().at(8)->text(), QStringLiteral("Вставить запись"));
        QVERIFY(menu->actions().at(9)->isSeparator());
        QCOMPARE(menu->actions().at(10)->text(), QStringLiteral("Закладка"));
        QCOMPARE(menu->actions().at(11)->text(), QStringLiteral("История записи"));
        menu->actions().at(11)->trigger();
        CVrkCliMod* history = host.module(QStringLiteral("history"));
        QVERIFY(history);
        auto* changes = history->findChild<QTableView*>(QStringLiteral("changeTable"));
        QVERIFY(changes->model()->rowCount() > 0);
    }

    void aHitLeadsIntoTheJournalThatWasNotOpen()
    {
        const HostBench bench;
        Options options;
        options.store = bench.url();
        options.user = QStringLiteral("ozerov");
        options.department = QStringLiteral("ЦДС");
        Workstation host;
        QVERIFY(host.enter(options));
        CVrkCliMod* archive = host.startModule(QStringLiteral("archive"));
        QVERIFY(archive);
        QVERIFY(!host.module(QStringLiteral("logbook")));
        auto* table = archive->findChild<QTableView*>(QStringLiteral("foundTable"));
        QVERIFY(table->model()->rowCount() > 0);
        const QString text = table->currentIndex().siblingAtColumn(12).data().toString();
        QVERIFY(!text.isEmpty());
        QTest::keyClick(table, Qt::Key_Return);
        const CVrkCliMod* journal = host.module(QStringLiteral("logbook"));
        QVERIFY(journal && journal->isVisible());
        const auto* records = journal->findChild<QTableView*>(QStringLiteral("recordsTable"));
        QCOMPARE(records->currentIndex().siblingAtColumn(12).data().toString(), text);
        // The next one is already open.
        QTest::keyClick(table, Qt::Key_Down);
        QTest::keyClick(table, Qt::Key_Return);
        QCOMPARE(host.module(QStringLiteral("logbook")), journal);
        QCOMPARE(records->currentIndex().siblingAtColumn(12).data().toString(),
                 table->currentIndex().siblingAtColumn(12).data().toString());
    }
};

QTEST_MAIN(PluginCatalog_test)
#include "PluginCatalog_test.moc"
