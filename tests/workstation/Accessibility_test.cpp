#include "AboutDialog.h"
#include "AccessibleWindow.h"
#include "CPopTemplate.h"
#include "CVrkCliMod.h"
#include "ExpectedWarning.h"
#include "HelpWindow.h"
#include "HistoryDialog.h"
#include "HistoryGuard.h"
#include "HostBench.h"
#include "PasswordDialog.h"
#include "SettingsWindow.h"
#include "SignIn.h"
#include "SignInDialog.h"
#include "StoreDialog.h"
#include "Workstation.h"

#include <QListWidget>
#include <QTest>

/// Every window and dialog of the program, checked for users who see badly or have no mouse.
class Accessibility_test : public QObject, private AccessibleWindow
{
    Q_OBJECT

private:
    static void press(QWidget* window, const QKeySequence& key)
    {
        activate(window);
        QTest::keySequence(window->focusWidget() ? window->focusWidget() : window, key);
    }
    static QWidget* shown(const char* name)
    {
        for (QWidget* window : QApplication::topLevelWidgets())
            if (window->isVisible() && window->inherits(name))
                return window;
        return nullptr;
    }
    CVrkCliMod* startJournal()
    {
        Options options;
        options.store = m_bench->url();
        options.user = QStringLiteral("ozerov");
        options.department = QStringLiteral("ЦДС");
        m_host = std::make_unique<Workstation>();
        return m_host->enter(options) ? m_host->startModule(QStringLiteral("logbook")) : nullptr;
    }

    std::unique_ptr<HostBench> m_bench;
    std::unique_ptr<Workstation> m_host;

private slots:
    void initTestCase()
    {
        m_bench = std::make_unique<HostBench>();
        const QString failure = HostBench::admin(
            {QStringLiteral("demo"), m_bench->url(QStringLiteral("old.sqlite")), QStringLiteral("--old"),
             QStringLiteral("--old-templates"), QStringLiteral("5")});
        QCOMPARE(failure, QString());
    }
    void cleanup() { m_host.reset(); }
    void cleanupTestCase() { m_bench.reset(); }

    void windowsCanBeUsedWithoutMouseAndSight_data()
    {
        QTest::addColumn<QString>("module");
        for (const char* module : {"logbook", "template", "converter", "unfinished", "archive", "bookmarks",
                                   "history", "past", "statistics"})
            QTest::newRow(module) << QString::fromLatin1(module);
    }
    void windowsCanBeUsedWithoutMouseAndSight()
    {
        QFETCH(QString, module);
        Options options;
        options.store = m_bench->url(QStringLiteral("old.sqlite"));
        options.user =
            module == QLatin1String("logbook") ? QStringLiteral("ozerov") : QStringLiteral("admin");
        options.department = QStringLiteral("ЦДС");
        m_host = std::make_unique<Workstation>();
        QVERIFY2(m_host->enter(options), qPrintable(m_host->errorText()));
        CVrkCliMod* window = m_host->startModule(module);
        QVERIFY2(window, qPrintable(m_host->errorText()));
        QStringList found = faults(window);
        int dialogs = 0;
        if (module == QLatin1String("logbook")) // the list of shifts, shown without a department
            expectWarning(QStringLiteral("department keyLink is empty!"));
        for (CPopTemplate* dialog : window->findChildren<CPopTemplate*>()) {
            dialog->show();
            ++dialogs;
            const QString title = dialog->windowTitle() + QStringLiteral(": ");
            for (const QString& fault : faults(dialog))
                found << title + fault;
            dialog->hide();
        }
        if (module == QLatin1String("logbook"))
            QVERIFY2(dialogs >= 12, qPrintable(QString::number(dialogs)));
        compare(found);
    }

    void settingsCanBeChangedWithoutMouseAndSight()
    {
        CVrkCliMod* journal = startJournal();
        QVERIFY(journal);
        m_host->showSettings(journal);
        auto* settings = journal->findChild<SettingsWindow*>();
        settings->setAttribute(Qt::WA_DeleteOnClose, false); // Escape closes it again and again
        auto* pages = settings->findChild<QListWidget*>(QStringLiteral("pageList"));
        QStringList found;
        for (int i = 0; i < pages->count(); ++i) {
            pages->setCurrentRow(i);
            for (const QString& fault : faults(settings))
                found << pages->item(i)->text() + QStringLiteral(": ") + fault;
        }
        compare(found);
    }

    void recordsCanBeWrittenWithoutMouseAndSight()
    {
        CVrkCliMod* journal = startJournal();
        QVERIFY(journal);
        press(journal, Qt::CTRL | Qt::Key_F);
        QStringList found = faults(journal); // with the line of the search
        press(journal, Qt::CTRL | Qt::Key_N);
        QTRY_VERIFY(shown("RecordCreatorDialog"));
        QWidget* dialog = shown("RecordCreatorDialog");
        QVERIFY(dialog);
        const auto fields = [dialog] {
            return dialog->findChildren<QWidget*>(QStringLiteral("parameterInput_0")).size();
        };
        auto* tree = dialog->findChild<QAbstractItemView*>(QStringLiteral("templatesTree"));
        tree->setFocus();
        for (int row = 0; row < 40 && fields() == 0; ++row)
            QTest::keyClick(tree, row % 2 == 0 ? Qt::Key_Down : Qt::Key_Right);
        QVERIFY(fields() > 0);
        found += faults(dialog);
        compare(found);
    }

    void reportsCanBePrintedWithoutMouseAndSight()
    {
        CVrkCliMod* journal = startJournal();
        QVERIFY(journal);
        press(journal, Qt::CTRL | Qt::Key_P);
        QTRY_VERIFY(shown("ReportDialog"));
        QWidget* report = shown("ReportDialog");
        QVERIFY(report);
        report->findChild<QAbstractButton*>(QStringLiteral("printButton"))->click();
        QWidget* preview = shown("VrkPreviewWindow");
        QVERIFY(preview);
        compare(faults(preview));
    }

    void helpCanBeReadWithoutMouseAndSight()
    {
        CVrkCliMod* journal = startJournal();
        QVERIFY(journal);
        HelpWindow help;
        help.showSection(0);
        QStringList found = faults(&help);
        AboutDialog about(m_bench->url(), QStringLiteral("SQLite"), nullptr);
        about.show();
        found += faults(&about);
        HistoryGuard guard(journal->session(), m_bench->path(QStringLiteral("memory")), m_bench->url());
        HistoryDialog alarm(&guard, QStringLiteral("ozerov"));
        alarm.show();
        found += faults(&alarm);
        compare(found);
    }

    void signingInCanBeDoneWithoutMouseAndSight()
    {
        SignIn signIn;
        QVERIFY(signIn.open(m_bench->url()));
        SignInDialog choice(&signIn, QString(), QString());
        choice.show();
        QStringList found = faults(&choice);
        PasswordDialog password(&signIn, QStringLiteral("postgresql://server/journal"), QString());
        password.show();
        found += faults(&password);
        StoreDialog::remember(m_bench->url());
        StoreDialog store;
        store.show();
        found += faults(&store);
        compare(found);
    }
};

QTEST_MAIN(Accessibility_test)
#include "Accessibility_test.moc"
