#include "CrewTable.h"

#include "AppendWorkerDialog.h"
#include "JournalWindow.h"
#include "OrgStructDialog.h"
#include "OrgStructWidget.h"
#include "WorkshiftInfoDialog.h"

#include <QHeaderView>
#include <QTableWidget>
#include <QTest>
#include <QToolButton>
#include <QTreeView>

/// The crew in the three shift dialogs: the offered workers, and the effects of a choice.
class CrewTable_test : public QObject
{
    Q_OBJECT

private:
    static OrgStructDialog* structure(JournalWindow& journal)
    {
        for (OrgStructDialog* one : journal.window().findChildren<OrgStructDialog*>())
            if (one->isVisible())
                return one;
        return nullptr;
    }
    static QStringList names(const QAbstractItemModel* model, const QModelIndex& parent = QModelIndex())
    {
        QStringList found;
        for (int row = 0; row < model->rowCount(parent); ++row) {
            const QModelIndex index = model->index(row, 0, parent);
            found << index.data().toString() << names(model, index);
        }
        return found;
    }
    static QStringList offered(OrgStructDialog* dialog)
    {
        return names(JournalWindow::childOf<QTreeView>(dialog, "structTree")->model());
    }
    static bool has(const QStringList& names, const char* begin)
    {
        return names.indexOf(QRegularExpression(QLatin1Char('^') + QString::fromUtf8(begin) +
                                                QStringLiteral(".*"))) >= 0;
    }
    /// The dialog by the name of its action, shown.
    static QWidget* show(JournalWindow& journal, const QString& action)
    {
        if (action == QLatin1String("closeWorkshiftAction"))
            journal.requestClosing();
        else
            journal.trigger(qPrintable(action));
        if (action == QLatin1String("openWorkshiftAction"))
            return journal.opening();
        if (action == QLatin1String("closeWorkshiftAction"))
            return journal.closing();
        return journal.window().findChild<AppendWorkerDialog*>();
    }

private slots:
    void workersOfTheDepartmentAreOffered_data()
    {
        QTest::addColumn<QString>("action");
        QTest::addColumn<QString>("button");
        QTest::newRow("opening") << "openWorkshiftAction"
                                 << "addWorkerButton";
        QTest::newRow("closing") << "closeWorkshiftAction"
                                 << "addWorkerButton";
        QTest::newRow("adding") << "appendWorkerAction"
                                << "addButton";
    }
    void workersOfTheDepartmentAreOffered()
    {
        QFETCH(QString, action);
        QFETCH(QString, button);
        const TestStore store;
        if (action == QLatin1String("openWorkshiftAction"))
            QVERIFY(TestStore::write(store.openLoader().get(), "LogbookWorkshifts", ROW_UPDATE,
                                     "SHIFT_CDS_OPEN", {{"CloseWorkerKey", "WORKER_IVANOV"}}));
        JournalWindow journal(store, QStringLiteral("ivanov"));
        QWidget* dialog = show(journal, action);
        QVERIFY(dialog && dialog->isVisible());
        const auto* crew = JournalWindow::childOf<QTableWidget>(dialog, "workersTable");
        QCOMPARE(crew->columnCount(), 2);
        QCOMPARE(crew->horizontalHeaderItem(0)->text(), QStringLiteral("ФИО"));
        QCOMPARE(crew->horizontalHeaderItem(1)->text(), QStringLiteral("Должность"));
        QVERIFY(crew->verticalHeader()->isHidden());
        QCOMPARE(crew->selectionMode(), QAbstractItemView::SingleSelection);
        QCOMPARE(crew->selectionBehavior(), QAbstractItemView::SelectRows);
        const int before = crew->rowCount();

        JournalWindow::childOf<QToolButton>(dialog, qPrintable(button))->click();
        OrgStructDialog* choice = structure(journal);
        QVERIFY(choice);
        QStringList workers = offered(choice);
        QVERIFY(has(workers, "Сидорова"));
        QVERIFY(has(workers, "Заречная")); // a subordinate department
        QVERIFY(!has(workers, "ОДС"));
        QCOMPARE(choice->widget()->selectionType(), int(OrgStruct::Person));

        OrgStruct::Worker wanted;
        wanted.keyLink = QStringLiteral("WORKER_SIDOROVA");
        choice->widget()->setCurrectItem(wanted);
        QTest::mouseClick(JournalWindow::childOf<QAbstractButton>(choice, "applyButton"), Qt::LeftButton);
        QVERIFY(!choice->isVisible());
        QCOMPARE(crew->rowCount(), before + 1);
        QCOMPARE(crew->item(before, 0)->data(Qt::UserRole).toString(), wanted.keyLink);
        // Other dialogs use the organization tree, too: it is complete again.
        workers = offered(choice);
        QVERIFY(has(workers, "ОДС"));
    }

    void aCancelledChoiceIsNotAnsweredLater()
    {
        const TestStore store;
        JournalWindow journal(store, QStringLiteral("ivanov"));
        QWidget* adding = show(journal, QStringLiteral("appendWorkerAction"));
        JournalWindow::childOf<QToolButton>(adding, "addButton")->click();
        structure(journal)->close();
        adding->close();
        journal.requestClosing(QDialogButtonBox::NoRole);
        journal.choose(journal.closing(), "WORKER_SIDOROVA"); // this dialog uses the same organization tree
        QCOMPARE(JournalWindow::childOf<QTableWidget>(journal.closing(), "workersTable")->rowCount(), 1);
    }

    void namelessWorkersStandUnderTheirLogin()
    {
        const TestStore store;
        const auto loader = store.openLoader();
        const TestStore::Fields nameless = {
            {"firstName", nullptr}, {"lastName", nullptr}, {"patronymicName", nullptr}};
        for (const char* key : {"WORKER_PETROV", "WORKER_SIDOROVA"})
            QVERIFY(TestStore::write(loader.get(), "Workers", ROW_UPDATE, key, nameless));
        QVERIFY(
            TestStore::write(loader.get(), "Workers", ROW_UPDATE, "WORKER_SIDOROVA", {{"UserKey", nullptr}}));
        JournalWindow journal(store, QStringLiteral("ivanov"));
        journal.trigger("infoWorkshiftAction");
        const auto* info = journal.window().findChild<WorkshiftInfoDialog*>();
        QCOMPARE(JournalWindow::childOf<QTableWidget>(info, "workersTable")->item(1, 0)->text(),
                 QStringLiteral("petrov"));

        QWidget* adding = show(journal, QStringLiteral("appendWorkerAction"));
        const auto* crew = JournalWindow::childOf<QTableWidget>(adding, "workersTable");
        QCOMPARE(crew->rowCount(), 2);
        QCOMPARE(crew->item(1, 0)->text(), QStringLiteral("petrov"));
        for (const char* key : {"WORKER_PETROV", "WORKER_SIDOROVA", "WORKER_SIDOROVA"}) {
            JournalWindow::childOf<QToolButton>(adding, "addButton")->click();
            OrgStruct::SelectedItem item;
            item.worker.keyLink = QLatin1String(key);
            OrgStructDialog* choice = structure(journal);
            choice->hide();
            emit choice->itemSelected(item);
        }
        QCOMPARE(crew->rowCount(), 3);
        QCOMPARE(crew->item(2, 0)->text(), QStringLiteral("—"));
    }

    void theTimetableHasTwoColumns()
    {
        const TestStore store;
        QVERIFY(TestStore::write(store.openLoader().get(), "LogbookWorkshifts", ROW_UPDATE, "SHIFT_CDS_OPEN",
                                 {{"CloseWorkerKey", "WORKER_IVANOV"}}));
        JournalWindow journal(store, QStringLiteral("ivanov"));
        journal.trigger("openWorkshiftAction");
        const auto* shifts = JournalWindow::childOf<QTableWidget>(journal.opening(), "shiftsTable");
        QCOMPARE(shifts->columnCount(), 2);
        QVERIFY(!shifts->verticalHeader()->isVisible());
    }
};

QTEST_MAIN(CrewTable_test)
#include "CrewTable_test.moc"
