#include "ConfiguratorBench.h"
#include "FaultVfs.h"
#include "PgConnection.h"
#include "PrivateCluster.h"

#include <QFile>
#include <QLabel>
#include <QMimeData>
#include <sqlite3.h>

/// A store that fails while the configurator saves, deletes or moves: it is read-only, locked by somebody,
/// or lost. Then nothing changes, the status line shows a message, and the typed changes can be restored.
class TemplateTab_failures_test : public QObject
{
    Q_OBJECT

private:
    enum Failure { ReadOnly, Locked, Gone };

    std::unique_ptr<LogWatch> m_log;
    std::unique_ptr<TestStore> m_store;
    sqlite3* m_holder = nullptr;
    std::unique_ptr<PgConnection> m_serverHolder;
    std::unique_ptr<Configurator> m_one;

    static QLineEdit* name(TemplateTab* page)
    {
        return Configurator::in<QLineEdit>(page, "templateNameEdit");
    }
    static QAbstractButton* restoreButton(TemplateTab* page)
    {
        auto* button = Configurator::in<QAbstractButton>(page, "restoreButton");
        return button && button->isVisible() ? button : nullptr;
    }
    QString stored(const QString& field) const
    {
        return m_store
            ->value(QStringLiteral("SELECT %1 FROM LogbookTemplates WHERE KeyLink='TPL_OPEN'").arg(field))
            .toString();
    }
    /// Opens the page of common templates at this item. Requests have a short deadline.
    TemplateTab* open(const char* key)
    {
        Store::Options options;
        options.deadlineMs = 700;
        m_one = std::make_unique<Configurator>(
            std::make_unique<TestClient>(m_store->open(QStringLiteral("sidorova"), options)));
        m_log->take(
            QStringLiteral("applyTemplateFilter_Deps")); // a login without parameters has no department
        TemplateTab* page = m_one->show(m_one->common());
        if (!Configurator::select(page, key))
            qFatal("no row %s", key);
        return page;
    }
    void begin(int failure)
    {
        if (failure == Gone) {
            if (TestStore::isSqlite())
                QVERIFY(QFile::rename(m_store->path(), m_store->path() + QStringLiteral(".away")));
            else
                PrivateCluster::shared().stop();
        } else if (TestStore::isSqlite()) {
            if (failure == ReadOnly) {
                FaultVfs::arm(FaultVfs::Write, 1, SQLITE_READONLY, true);
                return;
            }
            QCOMPARE(sqlite3_open(m_store->path().toUtf8().constData(), &m_holder), SQLITE_OK);
            QCOMPARE(sqlite3_exec(m_holder, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr), SQLITE_OK);
        } else {
            m_serverHolder = std::make_unique<PgConnection>(m_store->url(), 5000);
            StoreError error;
            QVERIFY2(m_serverHolder->connect(5000, &error), qPrintable(error.detail));
            for (const char* sql :
                 {"BEGIN", "LOCK TABLE LogbookTemplates, LogbookCatsTemplate IN EXCLUSIVE MODE"})
                QVERIFY2(m_serverHolder->run(sql, &error), qPrintable(error.detail));
        }
    }
    void end(int failure)
    {
        if (failure == Gone && TestStore::isSqlite())
            QVERIFY(QFile::rename(m_store->path() + QStringLiteral(".away"), m_store->path()));
        else if (failure == Gone)
            PrivateCluster::shared().start();
        FaultVfs::disarm();
        sqlite3_close(m_holder);
        m_holder = nullptr;
        m_serverHolder.reset();
        QTRY_VERIFY(m_one->client().session().isConnected());
        m_log->take();
    }
    /// The messages in the status line, one for each failed request.
    QString word()
    {
        const QStringList words = m_one->client().takeFailures();
        return words.size() == 1 ? words.first() : words.join(QLatin1Char('|'));
    }
    static void addFailures()
    {
        QTest::addColumn<int>("failure");
        if (TestStore::isSqlite()) // a standby server does not support listening: it counts as lost
            QTest::newRow("only readable") << int(ReadOnly);
        QTest::newRow("held by another") << int(Locked);
        QTest::newRow("gone") << int(Gone);
    }
    static void drop(TemplateTab* page, const char* key, const char* target)
    {
        const std::unique_ptr<QMimeData> mime(page->model()->mimeData({Configurator::source(page, key)}));
        QVERIFY(page->model()->dropMimeData(mime.get(), Qt::MoveAction, -1, -1,
                                            Configurator::source(page, target)));
    }

private slots:
    void initTestCase() { FaultVfs::install(); }
    void init()
    {
        m_log.reset();
        m_log = std::make_unique<LogWatch>();
        m_store = std::make_unique<TestStore>();
    }
    void cleanup()
    {
        m_one.reset();
        QCOMPARE(m_log->take().join(QLatin1Char('\n')), QString());
        m_store.reset();
    }

    void savingIntoAFailingStoreLosesNothing_data() { addFailures(); }
    void savingIntoAFailingStoreLosesNothing()
    {
        QFETCH(int, failure);
        TemplateTab* page = open("TPL_OPEN");
        const QStringList before = Configurator::shown(page);
        name(page)->setText(QStringLiteral("Длинная правка"));
        begin(failure);
        page->applyChanges();
        const QString reason = word();
        QVERIFY(!reason.isEmpty());
        QVERIFY(!page->isExistUnsaved());
        QVERIFY(!m_one->box());
        QCOMPARE(Configurator::shown(page), before);
        QCOMPARE(name(page)->text(), QStringLiteral("Приём смены"));
        QCOMPARE(page->findChild<QLabel*>(QStringLiteral("noticeText"))->text(),
                 QStringLiteral("Изменения не сохранены. ") + reason);
        QCOMPARE(m_log->take(QStringLiteral("CVrkCliSes::BlockEnd returned FALSE")).size(), 2);
        end(failure);
        QCOMPARE(stored(QStringLiteral("nameLoc")), QStringLiteral("Приём смены"));

        restoreButton(page)->click();
        QCOMPARE(name(page)->text(), QStringLiteral("Длинная правка"));
        page->applyChanges();
        m_one->deliver();
        QCOMPARE(word(), QString());
        QVERIFY(!page->isExistUnsaved());
        QCOMPARE(stored(QStringLiteral("nameLoc")), QStringLiteral("Длинная правка"));
        QCOMPARE(Configurator::currentName(page), QStringLiteral("Длинная правка"));
    }

    void aFailedDeletionIsReportedAndLosesNothing_data() { addFailures(); }
    void aFailedDeletionIsReportedAndLosesNothing()
    {
        QFETCH(int, failure);
        TemplateTab* page = open("TPL_OPEN");
        const QStringList before = Configurator::shown(page);
        name(page)->setText(QStringLiteral("Правка"));
        QTest::keyClick(page, Qt::Key_Delete); // which ignores unsaved changes
        QCOMPARE(m_one->boxText(), QStringLiteral("Удалить шаблон?"));
        begin(failure);
        m_one->answer("yesButton");
        QCOMPARE(m_one->boxText(),
                 QStringLiteral("<center>При изменения данных возникла ошибка.\nДанные не были "
                                "изменены!</center>"));
        m_one->answer("okButton");
        QVERIFY(!word().isEmpty());
        QCOMPARE(Configurator::shown(page), before);
        QVERIFY(!page->isExistUnsaved());
        end(failure);
        m_one->deliver();
        QCOMPARE(stored(QStringLiteral("nameLoc")), QStringLiteral("Приём смены"));

        restoreButton(page)->click(); // the changes typed before the deletion
        QCOMPARE(name(page)->text(), QStringLiteral("Правка"));
        page->cancelChanges();
        page->deleteSelected();
        m_one->answer("yesButton");
        m_one->deliver();
        QCOMPARE(word(), QString());
        QVERIFY(!Configurator::record(page, "TPL_OPEN"));
        QCOMPARE(stored(QStringLiteral("count(*)")), QStringLiteral("0"));
    }

    void movingInAFailingStoreLosesNothing_data() { addFailures(); }
    void movingInAFailingStoreLosesNothing()
    {
        QFETCH(int, failure);
        TemplateTab* page = open("TPL_OPEN");
        const QStringList before = Configurator::shown(page);
        name(page)->setText(QStringLiteral("Правка"));
        begin(failure);
        drop(page, "TPL_OPEN", "CAT_COMMON_SUB");
        QVERIFY(!word().isEmpty());
        QVERIFY(!m_one->box());
        QCOMPARE(Configurator::shown(page), before);
        QVERIFY(page->isExistUnsaved()); // the typed changes are still there
        QCOMPARE(name(page)->text(), QStringLiteral("Правка"));
        QCOMPARE(page->tables().templatesMoved.data.RecCount(), 1);
        end(failure);
        m_one->deliver();
        QCOMPARE(stored(QStringLiteral("CategoryKey")), QStringLiteral("CAT_COMMON"));

        drop(page, "TPL_OPEN", "CAT_COMMON_SUB");
        m_one->deliver();
        QCOMPARE(word(), QString());
        QCOMPARE(stored(QStringLiteral("CategoryKey")), QStringLiteral("CAT_COMMON_SUB"));
        QCOMPARE(stored(QStringLiteral("nameLoc")), QStringLiteral("Приём смены")); // a move saves nothing
        QCOMPARE(page->tables().templatesMoved.data.RecCount(), 0);
        QCOMPARE(Configurator::currentKey(page), QStringLiteral("TPL_OPEN"));
        QVERIFY(page->isExistUnsaved());
        QCOMPARE(name(page)->text(), QStringLiteral("Правка"));
    }
};

QTEST_MAIN(TemplateTab_failures_test)
#include "TemplateTab_failures_test.moc"
