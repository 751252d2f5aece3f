#include "OrgStructWidget.h"

#include "HFNCliParam.h"
#include "OrgStructModel.h"
#include "TestClient.h"
#include "TEventNciParse.h"
#include "Typing.h"

#include <QAbstractItemModelTester>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <QTreeView>

class OrgStructWidget_test : public QObject
{
    Q_OBJECT

private:
    /// The tree on the standard store; colleagues' changes reach it as events.
    struct Setup {
        explicit Setup(int type = OrgStruct::Person) : client(store), module(client)
        {
            widget.init(&module);
            widget.setSelectionType(type);
            tree = widget.findChild<QTreeView*>(QStringLiteral("structTree"));
            search = widget.findChild<QLineEdit*>(QStringLiteral("searchEdit"));
            tester = std::make_unique<QAbstractItemModelTester>(
                tree->model(), QAbstractItemModelTester::FailureReportingMode::QtTest);
            loader = store.openLoader();
            module.onEvent = [this](HFNCliParam* block) { receive(block); };
        }
        ~Setup() { module.onEvent = nullptr; }

        void receive(HFNCliParam* block)
        {
            TEventNciParse event;
            event.parameterBlock = block;
            MDRGetAsInt32(MDRFldByNum(block->array, 1), block, &event.eventNumber);
            MDRGetTextPtr(MDRFldByNum(block->array, 4), block, &event.recordKey);
            event.tableName = module.events.last().table;
            MDRTypInit(&event.recordType);
            MDRRecInit(&event.recordData);
            int length = 0;
            const char* bytes = nullptr;
            if (event.eventNumber != EventDeleted &&
                MDRGetTextRef(MDRFldByNum(block->array, 7), block, &length, &bytes) == mdr_Ok) {
                MDRRecSet(&event.recordData, bytes, length);
                MDRTypGen(&event.recordType, "NCI", &event.recordData);
            }
            widget.MessageData(&event);
            MDRTypFree(&event.recordType);
        }
        void write(const char* table, MDRFlag flag, const char* key, TestStore::Fields fields = {})
        {
            StoreError error;
            QVERIFY2(TestStore::write(loader.get(), table, flag, key, fields, &error),
                     qPrintable(error.text + error.detail));
            client.deliver();
        }
        /// The shown names with one dot for each level, one in a line.
        QString shown() const
        {
            QStringList lines;
            collect(tree->rootIndex(), 0, lines);
            return lines.join(QLatin1Char('\n'));
        }
        void collect(const QModelIndex& parent, int level, QStringList& lines) const
        {
            for (int row = 0; row < tree->model()->rowCount(parent); ++row) {
                const QModelIndex index = tree->model()->index(row, 0, parent);
                lines.append(QString(level, QLatin1Char('.')) + index.data().toString());
                collect(index, level + 1, lines);
            }
        }
        QModelIndex find(const QString& name) const
        {
            const QModelIndexList found = tree->model()->match(
                tree->model()->index(0, 0), Qt::DisplayRole, name, 1, Qt::MatchExactly | Qt::MatchRecursive);
            return found.isEmpty() ? QModelIndex() : found.first();
        }
        void makeCurrent(const QString& name) { tree->setCurrentIndex(find(name)); }
        OrgStruct::SelectedItem select(const char* worker)
        {
            OrgStruct::Worker value;
            value.keyLink = QLatin1String(worker);
            widget.setCurrectItem(value);
            return widget.selectedItem();
        }

        TestStore store;
        TestClient client;
        TestModule module;
        OrgStructWidget widget;
        QTreeView* tree;
        QLineEdit* search;
        std::unique_ptr<QAbstractItemModelTester> tester;
        std::unique_ptr<Store> loader;
    };

private slots:
    void theTreeHasTypesOrganizationsDepartmentsWorkers()
    {
        Setup s;
        const QString shown = s.shown();
        const QModelIndex ivanov = s.find(QStringLiteral("Иванов Иван Иванович"));
        QVERIFY2(ivanov.isValid(), qPrintable(shown));
        QCOMPARE(ivanov.parent().data().toString(), QStringLiteral("ЦДС"));
        const QModelIndex nets = ivanov.parent().parent();
        QCOMPARE(nets.data(OrgStructModel::KeyRole).toString(), QStringLiteral("ORG_NETS"));
        QCOMPARE(nets.parent().data(OrgStructModel::KeyRole).toString(), QStringLiteral("TYPE_NETS"));
        QVERIFY(!nets.parent().parent().isValid());
        // A department within a department.
        QCOMPARE(s.find(QStringLiteral("Заречная диспетчерская группа")).parent(), ivanov.parent());
    }

    void deletedWorkersAreLeftOut()
    {
        Setup s;
        QVERIFY2(!s.shown().contains(QStringLiteral("Кузнецов")), qPrintable(s.shown()));
    }

    void levelsBelowTheSelectableOnesAreHidden()
    {
        Setup s(OrgStruct::Department);
        QVERIFY(!s.find(QStringLiteral("Иванов Иван Иванович")).isValid());
        QVERIFY(s.find(QStringLiteral("Заречная диспетчерская группа")).isValid());
        s.widget.setSelectionType(OrgStruct::Organization);
        QVERIFY(!s.find(QStringLiteral("ЦДС")).isValid());
        s.widget.setSelectionType(OrgStruct::OrgType);
        QCOMPARE(s.tree->model()->rowCount(s.tree->model()->index(0, 0)), 0);
        s.widget.setSelectionType(OrgStruct::Department | OrgStruct::Person);
        QVERIFY(s.find(QStringLiteral("Иванов Иван Иванович")).isValid());
    }

    void onlyTheTypesAskedForAreSelected()
    {
        Setup s(OrgStruct::Department);
        s.makeCurrent(QStringLiteral("ЦДС"));
        const OrgStruct::SelectedItem department = s.widget.selectedItem();
        QCOMPARE(department.type, int(OrgStruct::Department));
        QCOMPARE(department.departmentKey, QStringLiteral("DEP_CDS"));
        QCOMPARE(department.organizationKey, QStringLiteral("ORG_NETS"));
        QCOMPARE(department.orgTypeKey, QStringLiteral("TYPE_NETS"));
        QVERIFY(department.worker.keyLink.isEmpty());

        s.tree->setCurrentIndex(s.find(QStringLiteral("ЦДС")).parent());
        QCOMPARE(s.widget.selectedItem().type, int(OrgStruct::None));
        s.widget.setSelectionType(OrgStruct::Organization | OrgStruct::Department);
        QCOMPARE(s.widget.selectedItem().type, int(OrgStruct::Organization));
        QCOMPARE(s.widget.selectedItem().organizationKey, QStringLiteral("ORG_NETS"));
        QVERIFY(s.widget.selectedItem().departmentKey.isEmpty());
    }

    void aDepartmentWithinADepartmentHasItsOwnKey()
    {
        Setup s(OrgStruct::Department);
        s.makeCurrent(QStringLiteral("Заречная диспетчерская группа"));
        QCOMPARE(s.widget.selectedItem().departmentKey, QStringLiteral("DEP_ZAR"));
        QCOMPARE(s.widget.selectedItem().organizationKey, QStringLiteral("ORG_NETS"));
    }

    void aWorkerIsKnownByHisKeyAlone()
    {
        Setup s;
        const OrgStruct::SelectedItem item = s.select("WORKER_PETROV");
        QCOMPARE(item.type, int(OrgStruct::Person));
        QCOMPARE(item.worker.keyLink, QStringLiteral("WORKER_PETROV"));
        QCOMPARE(item.worker.lastName, QStringLiteral("Петров"));
        QCOMPARE(item.worker.firstName, QStringLiteral("Пётр"));
        QCOMPARE(item.worker.patronymicName, QStringLiteral("Петрович"));
        QCOMPARE(item.worker.group, 4);
        QCOMPARE(item.departmentKey, QStringLiteral("DEP_CDS"));
        QCOMPARE(item.worker.path.last(), QStringLiteral("ЦДС"));
        QCOMPARE(item.worker.path.size(), 3);
        QCOMPARE(s.tree->currentIndex(), s.find(QStringLiteral("Петров Пётр Петрович")));
    }

    void anUnknownKeySelectsNobody()
    {
        Setup s;
        s.select("WORKER_PETROV");
        QCOMPARE(s.select("NOBODY").type, int(OrgStruct::None));
        QVERIFY(!s.tree->currentIndex().isValid());
        QCOMPARE(s.select("").type, int(OrgStruct::None));
    }

    void aWorkerWhomTheTreeDoesNotShowIsKnownAllTheSame()
    {
        Setup s;
        s.widget.setRootDepartment(QStringLiteral("DEP_ZAR"));
        QCOMPARE(s.select("WORKER_PETROV").worker.lastName, QStringLiteral("Петров"));
        QVERIFY(!s.tree->currentIndex().isValid());
        s.widget.resetRoot();
        QCOMPARE(s.select("WORKER_KUZNETSOV").worker.keyLink, QStringLiteral("WORKER_KUZNETSOV"));
        s.makeCurrent(QStringLiteral("Петров Пётр Петрович"));
        QCOMPARE(s.widget.selectedItem().worker.keyLink, QStringLiteral("WORKER_PETROV"));
        s.widget.setSelectionType(OrgStruct::Department);
        QCOMPARE(s.select("WORKER_KUZNETSOV").type, int(OrgStruct::None));
    }

    void aSearchThatHidesHimIsCleared()
    {
        Setup s;
        s.search->setText(QStringLiteral("иванов"));
        QCOMPARE(s.select("WORKER_PETROV").worker.keyLink, QStringLiteral("WORKER_PETROV"));
        QCOMPARE(s.search->text(), QString());
        QVERIFY(s.tree->currentIndex().isValid());
    }

    void theTreeCanBeRestrictedToADepartment()
    {
        Setup s;
        s.widget.setRootDepartment(QStringLiteral("DEP_ZAR"));
        const QStringList zarechnaya = s.shown().split(QLatin1Char('\n'));
        QCOMPARE(zarechnaya.first(), QStringLiteral("Заречная диспетчерская группа"));
        QVERIFY(!s.shown().contains(QStringLiteral("Иванов")));
        QVERIFY(s.shown().contains(QStringLiteral(".Смирнов")));

        s.widget.setRootDepartment(QStringLiteral("DEP_CDS"));
        QCOMPARE(s.shown().split(QLatin1Char('\n')).first(), QStringLiteral("ЦДС"));
        QVERIFY(s.shown().contains(QStringLiteral(".Заречная диспетчерская группа")));

        s.widget.resetRoot();
        QVERIFY(s.shown().contains(QStringLiteral("ОДС")));
    }

    void anUnknownRootShowsNothing()
    {
        Setup s;
        s.widget.setRootDepartment(QStringLiteral("NOWHERE"));
        QCOMPARE(s.shown(), QString());
        s.widget.setRootDepartment(QString());
        QCOMPARE(s.shown(), QString());
        s.widget.resetRoot();
        QVERIFY(!s.shown().isEmpty());
    }

    void typingNarrowsTheTreeAndChoosesTheFirst()
    {
        Setup s;
        s.widget.show();
        typeText(s.search, QStringLiteral("пе"));
        QVERIFY(s.find(QStringLiteral("Петров Пётр Петрович")).isValid());
        s.search->setText(QStringLiteral("ПЕТР цдс")); // words of the name and of the levels above it
        QVERIFY(!s.find(QStringLiteral("Иванов Иван Иванович")).isValid());
        QCOMPARE(s.widget.selectedItem().worker.keyLink, QStringLiteral("WORKER_PETROV"));
        QVERIFY(s.tree->isExpanded(s.find(QStringLiteral("ЦДС"))));

        s.search->setText(QStringLiteral("заречная")); // a department shows its workers
        QVERIFY(s.shown().contains(QStringLiteral("Смирнов")));
        s.search->setText(QStringLiteral("нет такого"));
        QCOMPARE(s.shown(), QString());
        s.search->clear();
        QVERIFY(s.find(QStringLiteral("Иванов Иван Иванович")).isValid());
    }

    void arrowsAndEnterWorkFromTheSearchLine()
    {
        Setup s;
        s.widget.show();
        QSignalSpy activated(&s.widget, &OrgStructWidget::itemActivated);
        QTest::keyClick(s.search, Qt::Key_Return);
        QCOMPARE(activated.count(), 0); // nothing is chosen yet
        s.widget.setRootDepartment(QStringLiteral("DEP_CDS"));
        s.search->setText(QStringLiteral("цдс"));
        const QModelIndex first = s.tree->currentIndex();
        QCOMPARE(first.data(OrgStructModel::TypeRole).toInt(), int(OrgStruct::Person));
        QTest::keyClick(s.search, Qt::Key_Down);
        QCOMPARE(s.tree->currentIndex(), s.tree->indexBelow(first));
        QTest::keyClick(s.search, Qt::Key_Return);
        QCOMPARE(activated.count(), 1);
        QTest::keyClick(s.tree, Qt::Key_Enter);
        QCOMPARE(activated.count(), 2);
        s.makeCurrent(QStringLiteral("ЦДС")); // not of a selectable type
        QTest::keyClick(s.tree, Qt::Key_Return);
        QCOMPARE(activated.count(), 2);
    }

    void aDoubleClickChooses()
    {
        Setup s;
        s.widget.resize(400, 600);
        s.widget.show();
        QSignalSpy activated(&s.widget, &OrgStructWidget::itemActivated);
        s.tree->expandAll();
        const auto doubleClick = [&s](const QString& name) {
            const QModelIndex index = s.find(name);
            s.tree->scrollTo(index);
            const QPoint at = s.tree->visualRect(index).center();
            QTest::mouseClick(s.tree->viewport(), Qt::LeftButton, Qt::NoModifier, at);
            QTest::mouseDClick(s.tree->viewport(), Qt::LeftButton, Qt::NoModifier, at);
        };
        doubleClick(QStringLiteral("ЦДС"));
        QCOMPARE(activated.count(), 0);
        s.tree->expandAll();
        doubleClick(QStringLiteral("Петров Пётр Петрович"));
        QCOMPARE(activated.count(), 1);
    }

    void aNewWorkerAppearsAndTheSelectionStays()
    {
        Setup s;
        s.select("WORKER_PETROV");
        s.write("Workers", ROW_INSERT, "WORKER_NEW",
                {{"lastName", QStringLiteral("Абрамов")},
                 {"firstName", QStringLiteral("Олег")},
                 {"DepartmentKey", QStringLiteral("DEP_CDS")}});
        const QModelIndex added = s.find(QStringLiteral("Абрамов Олег"));
        QVERIFY(added.isValid());
        QCOMPARE(added.row(), 0); // by name
        QCOMPARE(s.widget.selectedItem().worker.keyLink, QStringLiteral("WORKER_PETROV"));
    }

    void aChangedWorkerIsRenamedMovedAndTakenAway()
    {
        Setup s;
        s.select("WORKER_PETROV");
        s.write("Workers", ROW_UPDATE, "WORKER_PETROV", {{"patronymicName", QStringLiteral("Ильич")}});
        QVERIFY(s.find(QStringLiteral("Петров Пётр Ильич")).isValid());
        QCOMPARE(s.widget.selectedItem().worker.patronymicName, QStringLiteral("Ильич"));

        s.write("Workers", ROW_UPDATE, "WORKER_PETROV", {{"DepartmentKey", QStringLiteral("DEP_ODS")}});
        QCOMPARE(s.find(QStringLiteral("Петров Пётр Ильич")).parent().data().toString(),
                 QStringLiteral("ОДС"));

        s.write("Workers", ROW_UPDATE, "WORKER_PETROV", {{"deleted_", true}});
        QVERIFY(!s.find(QStringLiteral("Петров Пётр Ильич")).isValid());
        s.write("Workers", ROW_UPDATE, "WORKER_PETROV", {{"deleted_", false}});
        QVERIFY(s.find(QStringLiteral("Петров Пётр Ильич")).isValid());
    }

    void departmentsComeAndGoWithTheirWorkers()
    {
        Setup s;
        s.write("Departments", ROW_INSERT, "DEP_NEW",
                {{"name_", QStringLiteral("Новая")}, {"OrganizationKey", QStringLiteral("ORG_NETS")}});
        s.write("Workers", ROW_UPDATE, "WORKER_PETROV", {{"DepartmentKey", QStringLiteral("DEP_NEW")}});
        QCOMPARE(s.find(QStringLiteral("Петров Пётр Петрович")).parent().data().toString(),
                 QStringLiteral("Новая"));
        s.write("Departments", ROW_DELETE, "DEP_NEW");
        QVERIFY(!s.find(QStringLiteral("Новая")).isValid());
        // A worker without a department can still be found, at the top.
        QVERIFY(s.find(QStringLiteral("Петров Пётр Петрович")).isValid());
        QVERIFY(!s.find(QStringLiteral("Петров Пётр Петрович")).parent().isValid());
        s.write("Departments", ROW_INSERT, "DEP_NEW",
                {{"name_", QStringLiteral("Новая")}, {"ParentKey", QStringLiteral("DEP_CDS")}});
        QCOMPARE(s.find(QStringLiteral("Петров Пётр Петрович")).parent().parent().data().toString(),
                 QStringLiteral("ЦДС"));
    }

    void departmentsThatHoldEachOtherStandAtTheTop()
    {
        Setup s;
        s.write("Departments", ROW_UPDATE, "DEP_CDS", {{"ParentKey", QStringLiteral("DEP_ZAR")}});
        QVERIFY(s.find(QStringLiteral("ЦДС")).isValid());
        QVERIFY(s.find(QStringLiteral("Заречная диспетчерская группа")).isValid());
        QVERIFY(s.find(QStringLiteral("Иванов Иван Иванович")).isValid());
    }

    void eventsOfOtherTablesAndUnknownRowsChangeNothing()
    {
        Setup s;
        const QString before = s.shown();
        TEventNciParse event;
        char key[] = "NOBODY";
        event.recordKey = key;
        for (int number : {EventChanged, EventDeleted}) {
            event.eventNumber = number;
            for (const char* table : {"Workers", "LogbookRecords", ""}) {
                event.tableName = QLatin1String(table);
                s.widget.MessageData(&event);
            }
        }
        s.widget.MessageData(nullptr);
        QCOMPARE(s.shown(), before);
    }

    void withoutTablesItIsAnEmptyTree()
    {
        OrgStructWidget widget;
        widget.init(nullptr);
        OrgStruct::Worker worker;
        worker.keyLink = QStringLiteral("WORKER_IVANOV");
        widget.setCurrectItem(worker);
        widget.setRootDepartment(QStringLiteral("DEP_CDS"));
        widget.setSelectionType(OrgStruct::Department);
        QCOMPARE(widget.selectedItem().type, int(OrgStruct::None));
    }
};

QTEST_MAIN(OrgStructWidget_test)
#include "OrgStructWidget_test.moc"
