#include "CPopTemplate.h"
#include "CVrkCliApp.h"
#include "CVrkCliMod.h"
#include "ExpectedWarning.h"
#include "HostBench.h"
#include "Options.h"
#include "PasswordDialog.h"
#include "SettingsWindow.h"
#include "SignIn.h"
#include "SignInDialog.h"
#include "StoreDialog.h"
#include "Theme.h"
#include "UserSettings.h"
#include "WindowContrast.h"
#include "Workstation.h"

#include <QListWidget>
#include <QPushButton>
#include <QTest>

/// Every text in every window, as it is drawn, against its background, in the themes with their own colours.
class WindowContrast_test : public QObject, private WindowContrast
{
    Q_OBJECT

private:
    void start(const QString& theme, const QString& user)
    {
        Options options;
        options.store = m_bench->url();
        options.user = user;
        options.department = QStringLiteral("ЦДС");
        m_host = std::make_unique<Workstation>();
        QVERIFY2(m_host->enter(options), qPrintable(m_host->errorText()));
        m_journal = m_host->startModule(QStringLiteral("logbook"));
        QVERIFY(m_journal);
        m_journal->app()->settings()->setValue(Setting::theme, theme);
        QCOMPARE(Theme::current(), theme);
    }
    std::unique_ptr<HostBench> m_bench;
    std::unique_ptr<Workstation> m_host;
    CVrkCliMod* m_journal = nullptr;

private slots:
    void initTestCase()
    {
        m_bench = std::make_unique<HostBench>();
        QFont font = QApplication::font(); // smooth letters are not drawn in their full colour
        font.setStyleStrategy(QFont::NoAntialias);
        QApplication::setFont(font);
    }
    void cleanup() { m_host.reset(); }
    void cleanupTestCase() { m_bench.reset(); }

    void textsOfModulesAreLegible_data() { themes(); }
    void textsOfModulesAreLegible()
    {
        QFETCH(QString, theme);
        start(theme, QStringLiteral("admin"));
        QStringList found;
        int measured = 0;
        for (const char* name : {"logbook", "template", "converter", "unfinished", "archive", "bookmarks",
                                 "history", "past", "statistics"}) {
            CVrkCliMod* module = m_host->startModule(QString::fromLatin1(name));
            QVERIFY2(module, qPrintable(m_host->errorText()));
            module->resize(1600, 900);
            module->show();
            found += faults(module, &measured);
            if (qstrcmp(name, "logbook") == 0) // the list of shifts, shown without a department
                expectWarning(QStringLiteral("department keyLink is empty!"));
            for (CPopTemplate* dialog : module->findChildren<CPopTemplate*>()) {
                dialog->show();
                found += faults(dialog, &measured);
                dialog->hide();
            }
        }
        compare(found, measured, 300);
    }

    void textsOfSettingsAreLegible_data() { themes(); }
    void textsOfSettingsAreLegible()
    {
        QFETCH(QString, theme);
        start(theme, QStringLiteral("ozerov"));
        m_host->showSettings(m_journal);
        auto* settings = m_journal->findChild<SettingsWindow*>();
        auto* pages = settings->findChild<QListWidget*>(QStringLiteral("pageList"));
        QStringList found;
        int measured = 0;
        for (int i = 0; i < pages->count(); ++i) {
            pages->setCurrentRow(i);
            found += faults(settings, &measured);
        }
        found += faults(m_journal, &measured);
        compare(found, measured, 60);
    }

    void textsOfSigningInAreLegible_data() { themes(); }
    void textsOfSigningInAreLegible()
    {
        QFETCH(QString, theme);
        QVERIFY(Theme::apply(theme));
        SignIn signIn;
        QVERIFY(signIn.open(m_bench->url()));
        StoreDialog::remember(m_bench->url());
        SignInDialog choice(&signIn, QString(), QString());
        PasswordDialog password(&signIn, QStringLiteral("postgresql://server/journal"), QString());
        StoreDialog store;
        QStringList found;
        int measured = 0;
        for (QWidget* dialog : {static_cast<QWidget*>(&choice), static_cast<QWidget*>(&password),
                                static_cast<QWidget*>(&store)}) {
            dialog->show();
            found += faults(dialog, &measured);
        }
        compare(found, measured, 12);
    }
};

QTEST_MAIN(WindowContrast_test)
#include "WindowContrast_test.moc"
