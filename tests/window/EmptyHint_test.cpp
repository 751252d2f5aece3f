#include "EmptyHint.h"

#include "CVrkLogBook.h"
#include "ExpectedWarning.h"
#include "LogBookWidget.h"
#include "TestClient.h"

#include <memory>
#include <QAction>
#include <QListWidget>
#include <QTableView>
#include <QTest>

/// The hint in an empty list, alone and in the journal on a real store.
class EmptyHint_test : public QObject
{
    Q_OBJECT

private slots:
    void itShowsWhileThereIsNoRow();
    void theJournalSaysWhyItIsEmpty();
    void onlyTheCrewIsAskedToWrite();
    void theKeyboardIsAtTheRecordsFromTheStart();
    void panesSayThatNothingIsThere();

private:
    void start(const QString& login, const QByteArray& department);
    QTableView* table() const { return home()->findChild<QTableView*>(QStringLiteral("recordsTable")); }
    LogBookWidget* home() const { return m_window->findChild<LogBookWidget*>(QStringLiteral("homeLogbook")); }
    static EmptyHint* hint(const QAbstractItemView* view)
    {
        return view->viewport()->findChild<EmptyHint*>();
    }

    std::unique_ptr<TestStore> m_store;
    std::unique_ptr<TestClient> m_client;
    std::unique_ptr<CVrkLogBook> m_window;
};

void EmptyHint_test::start(const QString& login, const QByteArray& department)
{
    m_window.reset();
    m_client.reset();
    m_store = std::make_unique<TestStore>();
    m_client = std::make_unique<TestClient>(*m_store, login, department);
    m_window = std::make_unique<CVrkLogBook>(&m_client->app());
    m_window->show();
    QVERIFY(m_window->ModuleStart());
    QApplication::setActiveWindow(m_window.get());
}

void EmptyHint_test::itShowsWhileThereIsNoRow()
{
    QListWidget list;
    list.resize(200, 100);
    QString text = QStringLiteral("Пусто");
    auto* hint = new EmptyHint(&list, [&text] { return text; });
    list.show();
    QVERIFY(hint->isVisible());
    QCOMPARE(hint->text(), QStringLiteral("Пусто"));
    QCOMPARE(hint->geometry(), list.viewport()->rect());
    QCOMPARE(list.accessibleDescription(), QStringLiteral("Пусто"));
    list.resize(300, 200);
    QTRY_COMPARE(hint->geometry(), list.viewport()->rect());

    list.addItem(QStringLiteral("row"));
    QVERIFY(!hint->isVisible());
    QCOMPARE(list.accessibleDescription(), QString());
    delete list.takeItem(0);
    QVERIFY(hint->isVisible());
    text.clear();
    hint->refresh();
    QVERIFY(!hint->isVisible());
}

void EmptyHint_test::theJournalSaysWhyItIsEmpty()
{
    expectWarning(QStringLiteral("no such table: LogbookRecords"));
    expectWarning(QStringLiteral("error SQL query execution"));
    start(QStringLiteral("smirnov"), "DEP_ODS"); // no shift is open there
    QVERIFY(hint(table())->isVisible());
    QVERIFY2(hint(table())->text().startsWith(QStringLiteral("Открытой смены нет.")),
             qPrintable(hint(table())->text()));
    home()->uploadRecordsIn(QDateTime(QDate(1999, 1, 1), QTime(0, 0)),
                            QDateTime(QDate(1999, 1, 2), QTime(0, 0)));
    QCOMPARE(hint(table())->text(), QStringLiteral("За это время записей нет"));
    home()->uploadRecordsIn(QStringLiteral("NO_SUCH_SHIFT"));
    QCOMPARE(hint(table())->text(), QStringLiteral("В этой смене записей нет"));
    QCOMPARE(m_store->dropTables({QStringLiteral("LogbookRecords")}), QString());
    home()->uploadRecordsIn(QDateTime(QDate(1999, 1, 1), QTime(0, 0)),
                            QDateTime(QDate(1999, 1, 2), QTime(0, 0)));
    QVERIFY2(hint(table())->text().startsWith(QStringLiteral("Записи не прочитаны")),
             qPrintable(hint(table())->text()));
    home()->uploadRecordsIn(QStringLiteral("NO_SUCH_SHIFT")); // does not ask for records
    QCOMPARE(hint(table())->text(), QStringLiteral("В этой смене записей нет"));

    start(QStringLiteral("ivanov"), "DEP_CDS");
    QVERIFY(table()->model()->rowCount() > 0);
    QVERIFY(!hint(table())->isVisible());
}

void EmptyHint_test::onlyTheCrewIsAskedToWrite()
{
    start(QStringLiteral("smirnov"), "DEP_ODS");
    const auto loader = m_store->openLoader();
    QVERIFY(TestStore::write(loader.get(), "LogbookWorkshifts", ROW_INSERT, "SHIFT_ODS",
                             {{"DepartmentKey", "DEP_ODS"},
                              {"OpenWorkerKey", "WORKER_SIDOROVA"},
                              {"createdAt", TestStore::now()},
                              {"startTime", TestStore::now()},
                              {"endTime", TestStore::now() + 3600}}));
    m_client->deliver();
    QCOMPARE(hint(table())->text(), QStringLiteral("В смене ещё нет записей"));
    QVERIFY(TestStore::write(
        loader.get(), "LogbookWorkersWorkshift", ROW_INSERT, "CREW_ODS",
        {{"WorkshiftKey", "SHIFT_ODS"}, {"WorkerKey", "WORKER_SMIRNOV_ODS"}, {"opening", true}}));
    m_client->deliver();
    QCOMPARE(hint(table())->text(), QStringLiteral("В смене ещё нет записей.\nНовая запись: Ctrl + N"));
}

void EmptyHint_test::theKeyboardIsAtTheRecordsFromTheStart()
{
    start(QStringLiteral("ivanov"), "DEP_CDS");
    QCOMPARE(m_window->focusWidget(), table());
    const int row = table()->currentIndex().row();
    QTest::keyClick(m_window->focusWidget(), Qt::Key_Down);
    QCOMPARE(table()->currentIndex().row(), row + 1);
}

void EmptyHint_test::panesSayThatNothingIsThere()
{
    start(QStringLiteral("ivanov"), "DEP_CDS");
    auto* comments = home()->findChild<QListWidget*>(QStringLiteral("commentsList"));
    int without = 0;
    int with = 0;
    for (int row = 0; row < table()->model()->rowCount(); ++row) {
        table()->selectRow(row);
        const bool isEmpty = comments->count() == 0;
        QCOMPARE(hint(comments)->text(), isEmpty ? QStringLiteral("Комментариев нет") : QString());
        ++(isEmpty ? without : with);
    }
    QVERIFY(without > 0 && with > 0);
}

QTEST_MAIN(EmptyHint_test)
#include "EmptyHint_test.moc"
