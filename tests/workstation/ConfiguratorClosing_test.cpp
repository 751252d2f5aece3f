#include "CPopMessageBox.h"
#include "CVrkCliMod.h"
#include "HostBench.h"
#include "KeptTexts.h"
#include "Workstation.h"

#include <memory>
#include <QDir>
#include <QLineEdit>
#include <QPointer>
#include <QTabWidget>
#include <QTest>
#include <QToolButton>
#include <QTreeView>

/// Closing the configurator with unsaved changes: save, drop, or stay. The real plug-in in the real host.
class ConfiguratorClosing_test : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<HostBench> m_bench;
    std::unique_ptr<Workstation> m_host;
    QPointer<CVrkCliMod> m_window;

    QWidget* page() const { return m_window->findChild<QWidget*>(QStringLiteral("publicTemplates")); }
    QTreeView* tree() const { return page()->findChild<QTreeView*>(QStringLiteral("templatesTree")); }
    QLineEdit* name() const { return page()->findChild<QLineEdit*>(QStringLiteral("templateNameEdit")); }
    /// Opens the configurator as the administrator, at the first template of this name.
    void open(const QString& wanted)
    {
        m_host.reset();
        m_host = std::make_unique<Workstation>();
        Options options;
        options.store = m_bench->url();
        options.user = QStringLiteral("admin");
        QVERIFY2(m_host->enter(options), qPrintable(m_host->errorText()));
        m_window = m_host->startModule(QStringLiteral("template"));
        QVERIFY(m_window);
        m_window->findChild<QTabWidget*>(QStringLiteral("templatesTabWidget"))->setCurrentWidget(page());
        page()->findChild<QLineEdit*>(QStringLiteral("searchEdit"))->setText(wanted);
        QCOMPARE(tree()->currentIndex().data().toString(), wanted);
    }
    QString before() const { return QStringLiteral("Сдача смены"); }
    bool isThere(const QString& wanted) const
    {
        const QAbstractItemModel* model = tree()->model();
        return !model
                    ->match(model->index(0, 0), Qt::DisplayRole, wanted, 1,
                            Qt::MatchExactly | Qt::MatchRecursive)
                    .isEmpty();
    }

private slots:
    void initTestCase() { QApplication::setQuitOnLastWindowClosed(false); }
    void init() { m_bench = std::make_unique<HostBench>(); }
    void cleanup()
    {
        m_host.reset();
        m_bench.reset();
    }

    void stayingKeepsWhatWasTyped()
    {
        open(before());
        QTest::keyClicks(name(), QStringLiteral(" x"));
        int asked = 0;
        HostBench::answer(QStringLiteral("Остаться"), &asked);
        QVERIFY(!m_window->close());
        QCOMPARE(asked, 1);
        QVERIFY(m_window->isVisible());
        QVERIFY(name()->text().endsWith(QStringLiteral(" x")));
        QVERIFY(m_window->isEdit());
        QVERIFY(m_window->findChild<QToolButton*>(QStringLiteral("saveButton"))->isEnabled());
    }

    void savingWritesItAndCloses()
    {
        open(before());
        name()->setText(QStringLiteral("Сдача дежурства"));
        int asked = 0;
        HostBench::answer(QStringLiteral("Сохранить"), &asked);
        QVERIFY(m_window->close());
        QCOMPARE(asked, 1);
        QTRY_VERIFY(!m_window);
        open(QStringLiteral("Сдача дежурства"));
        QVERIFY(!isThere(before()));
    }

    void droppingWritesNothingAndCloses()
    {
        open(before());
        name()->setText(QStringLiteral("Сдача дежурства"));
        int asked = 0;
        HostBench::answer(QStringLiteral("Не сохранять"), &asked);
        QVERIFY(m_window->close());
        QCOMPARE(asked, 1);
        QTRY_VERIFY(!m_window);
        open(before());
        QVERIFY(!isThere(QStringLiteral("Сдача дежурства")));
    }

    void aFailedSaveKeepsTheWindowOpen()
    {
        open(before());
        name()->clear();
        int asked = 0;
        HostBench::answer(QStringLiteral("Сохранить"), &asked);
        QVERIFY(!m_window->close());
        QCOMPARE(asked, 1);
        QVERIFY(m_window && m_window->isVisible());
        CPopMessageBox* complaint = nullptr;
        for (CPopMessageBox* box : m_window->findChildren<CPopMessageBox*>())
            if (box->isVisible())
                complaint = box;
        QVERIFY(complaint);
        QCOMPARE(complaint->text(),
                 QStringLiteral("<center>Название шаблона не может быть пустым!</center>"));
        complaint->close();
        // And it asks again.
        QTRY_VERIFY(m_window->isEdit());
        HostBench::answer(QStringLiteral("Не сохранять"), &asked);
        QVERIFY(m_window->close());
        QCOMPARE(asked, 2);
    }

    void aKilledProgramsPageIsOfferedAgain()
    {
        open(before());
        name()->setText(QStringLiteral("Сдача дежурства"));
        KeptTexts* texts = m_host->app()->keptTexts();
        QCOMPARE(texts->held(m_window).size(), 1);
        QVERIFY(texts->flush());
        // The state after a kill: the files without their locks.
        const QString kept = m_bench->path(QStringLiteral("vrk-logbook/kept"));
        const QString copy = m_bench->path(QStringLiteral("copy"));
        QCOMPARE(HostBench::run(QStringLiteral("cp"), {QStringLiteral("-r"), kept, copy}), QString());
        int asked = 0;
        HostBench::answer(QStringLiteral("Не сохранять"), &asked);
        QVERIFY(m_window->close());
        m_host.reset();
        QVERIFY(QDir(kept).removeRecursively() && QDir().rename(copy, kept));

        open(before());
        auto* notice = page()->findChild<QWidget*>(QStringLiteral("keptNotice"));
        QVERIFY(notice->isVisible());
        page()->findChild<QPushButton*>(QStringLiteral("restoreButton"))->click();
        QCOMPARE(name()->text(), QStringLiteral("Сдача дежурства"));
        m_window->findChild<QToolButton*>(QStringLiteral("saveButton"))->click();
        QTRY_VERIFY(isThere(QStringLiteral("Сдача дежурства")));
        QVERIFY(m_window->close());
        open(QStringLiteral("Сдача дежурства"));
        QVERIFY(!page()->findChild<QWidget*>(QStringLiteral("keptNotice"))->isVisible()); // saved: removed
    }

    void nothingChangedAsksNothing()
    {
        open(before());
        QVERIFY(m_window->close());
        QVERIFY(!QApplication::activeModalWidget());
        QTRY_VERIFY(!m_window);
    }
};

QTEST_MAIN(ConfiguratorClosing_test)
#include "ConfiguratorClosing_test.moc"
