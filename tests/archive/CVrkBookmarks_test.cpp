#include "CVrkBookmarks.h"

#include "ArchiveBench.h"
#include "Bookmarks.h"
#include "CVrkCliApp.h"
#include "UserSettings.h"

#include <QAction>
#include <QLabel>
#include <QMenu>

class CVrkBookmarks_test : public QObject
{
    Q_OBJECT

    std::unique_ptr<ArchiveBench<CVrkBookmarks>> m_bench;

    static QStringList list(const char* keys) { return QString::fromLatin1(keys).split(QLatin1Char(' ')); }
    UserSettings* settings() { return m_bench->client().app().settings(); }
    QString summary() { return m_bench->child<QLabel>("summaryLabel")->text(); }

private slots:
    void init() { m_bench = std::make_unique<ArchiveBench<CVrkBookmarks>>(); }
    void cleanup() { m_bench.reset(); }

    void theListFollowsTheBookmarks()
    {
        m_bench->start();
        QCOMPARE(m_bench->keys(), QStringList());
        QVERIFY(m_bench->child<QLabel>("emptyLabel")->isVisible());
        QVERIFY(Bookmarks(settings()).toggle("REC_ORDER"));
        QVERIFY(Bookmarks(settings()).toggle("REC_ZAR")); // of another department
        QVERIFY(Bookmarks(settings()).toggle("NO_SUCH"));
        QStringList keys = m_bench->keys();
        keys.sort();
        QCOMPARE(keys, list("REC_ORDER REC_ZAR"));
        QCOMPARE(summary(), QStringLiteral("Закладок: 2"));
        QVERIFY(!Bookmarks(settings()).toggle("REC_ZAR"));
        QCOMPARE(m_bench->keys(), list("REC_ORDER"));
        QVERIFY(!m_bench->child<QLabel>("emptyLabel")->isVisible());
    }

    void aKeyOpensTheRecordInTheJournalAndAnotherRemovesIt()
    {
        m_bench->start();
        Bookmarks(settings()).toggle("REC_ORDER");
        m_bench->view()->setFocus();
        QTest::keyClick(m_bench->view(), Qt::Key_Return);
        QCOMPARE(m_bench->asked, QStringList{QStringLiteral("logbook showRecord REC_ORDER")});
        QTest::keyClick(m_bench->view(), Qt::Key_B, Qt::ControlModifier);
        QCOMPARE(m_bench->keys(), QStringList());
        QVERIFY(Bookmarks(settings()).keys().isEmpty());
    }

    void theMenuShowsTheBookmark()
    {
        m_bench->start();
        Bookmarks(settings()).toggle("REC_ORDER");
        emit m_bench->view()->customContextMenuRequested(QPoint(10, 10));
        auto* menu = m_bench->list()->findChild<QMenu*>();
        auto* action = menu->findChild<QAction*>(QStringLiteral("bookmarkAction"));
        QVERIFY(action);
        QVERIFY(action->isChecked());
        QVERIFY(action->isEnabled());
        menu->close();
        action->trigger();
        QVERIFY(!Bookmarks(settings()).contains("REC_ORDER"));
        emit menu->aboutToShow();
        QVERIFY(!action->isEnabled());
        QVERIFY(!action->isChecked());
    }

    void aChangedRecordIsReadAgain()
    {
        m_bench->start();
        Bookmarks(settings()).toggle("REC_DRAFT_IVANOV");
        QCOMPARE(m_bench->keys(), list("REC_DRAFT_IVANOV"));
        m_bench->write("LogbookRecords", ROW_UPDATE, "REC_DRAFT_IVANOV", {{"html", "новый текст"}});
        QCOMPARE(m_bench->cell(0, "html").toString(), QStringLiteral("новый текст"));
        m_bench->write("LogbookRecords", ROW_DELETE, "REC_DRAFT_IVANOV");
        QCOMPARE(m_bench->keys(), QStringList());
    }

    void everyLoginHasItsOwn()
    {
        m_bench->start();
        settings()->setUser(QStringLiteral("ivanov"));
        Bookmarks(settings()).toggle("REC_ORDER");
        settings()->setUser(QStringLiteral("petrov"));
        QCOMPARE(m_bench->keys(), QStringList());
        settings()->setUser(QStringLiteral("ivanov"));
        QCOMPARE(m_bench->keys(), list("REC_ORDER"));
    }

    void damagedKeysAreHarmless()
    {
        m_bench->start();
        settings()->setValue(::Setting::bookmarks,
                             QStringList{QStringLiteral("x') OR (''='"), QStringLiteral("REC_ORDER")});
        QCOMPARE(m_bench->keys(), list("REC_ORDER"));
    }

    void theOldestOfTooManyGo()
    {
        m_bench->start();
        const Bookmarks all(settings());
        for (int i = 0; i <= Bookmarks::Most; ++i)
            Bookmarks(settings()).toggle("K" + QByteArray::number(i));
        QCOMPARE(all.keys().size(), int(Bookmarks::Most));
        QCOMPARE(all.keys().constFirst(), "K" + QByteArray::number(int(Bookmarks::Most)));
        QVERIFY(!all.contains("K0"));
    }
};

QTEST_MAIN(CVrkBookmarks_test)
#include "CVrkBookmarks_test.moc"
