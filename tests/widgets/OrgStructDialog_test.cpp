#include "OrgStructDialog.h"

#include "OrgStructWidget.h"
#include "TestClient.h"
#include "Typing.h"

#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTreeView>

class OrgStructDialog_test : public QObject
{
    Q_OBJECT

private:
    struct Setup {
        Setup() : client(store), module(client), dialog(&module, -1)
        {
            module.show();
            dialog.widget()->init(&module);
            dialog.widget()->setSelectionType(OrgStruct::Person);
            QObject::connect(&dialog, &OrgStructDialog::itemSelected, &dialog,
                             [this](const OrgStruct::SelectedItem& item) {
                                 chosen.append(item.worker.keyLink);
                                 wasVisible = dialog.isVisible();
                             });
            dialog.show();
        }
        void choose(const char* key)
        {
            OrgStruct::Worker worker;
            worker.keyLink = QLatin1String(key);
            dialog.widget()->setCurrectItem(worker);
        }
        QPushButton* button(const char* name) { return dialog.findChild<QPushButton*>(QLatin1String(name)); }
        QLineEdit* search() { return dialog.findChild<QLineEdit*>(QStringLiteral("searchEdit")); }

        TestStore store;
        TestClient client;
        TestModule module;
        OrgStructDialog dialog;
        QStringList chosen;
        bool wasVisible = false;
    };

private slots:
    void theButtonChoosesAndClosesFirst()
    {
        Setup s;
        QVERIFY(!s.button("applyButton")->isEnabled());
        s.choose("WORKER_PETROV");
        QVERIFY(s.button("applyButton")->isEnabled());
        QTest::mouseClick(s.button("applyButton"), Qt::LeftButton);
        QCOMPARE(s.chosen, QStringList{QStringLiteral("WORKER_PETROV")});
        QVERIFY(!s.wasVisible);
        QVERIFY(!s.dialog.isVisible());
    }

    void enterInTheSearchLineChooses()
    {
        Setup s;
        QCOMPARE(s.dialog.focusWidget(), s.search()); // typing starts at once
        typeText(s.search(), QStringLiteral("петров"));
        QTest::keyClick(s.search(), Qt::Key_Return);
        QCOMPARE(s.chosen, QStringList{QStringLiteral("WORKER_PETROV")});
    }

    void aDoubleClickChooses()
    {
        Setup s;
        s.choose("WORKER_IVANOV");
        auto* tree = s.dialog.findChild<QTreeView*>(QStringLiteral("structTree"));
        const QPoint at = tree->visualRect(tree->currentIndex()).center();
        QTest::mouseClick(tree->viewport(), Qt::LeftButton, Qt::NoModifier, at);
        QTest::mouseDClick(tree->viewport(), Qt::LeftButton, Qt::NoModifier, at);
        QCOMPARE(s.chosen, QStringList{QStringLiteral("WORKER_IVANOV")});
    }

    void cancelAndEscapeChooseNothing()
    {
        Setup s;
        s.choose("WORKER_PETROV");
        QTest::mouseClick(s.button("cancelButton"), Qt::LeftButton);
        QVERIFY(!s.dialog.isVisible());
        s.dialog.show();
        QTest::keyClick(&s.dialog, Qt::Key_Escape);
        QVERIFY(!s.dialog.isVisible());
        QCOMPARE(s.chosen, QStringList());
    }

    void theSignalIsKnownByItsPlainSignature()
    {
        Setup s;
        QVERIFY(s.dialog.metaObject()->indexOfSignal("itemSelected(OrgStruct::SelectedItem)") >= 0);
        QVERIFY(QObject::disconnect(&s.dialog, "2itemSelected(OrgStruct::SelectedItem)", nullptr, nullptr));
        s.choose("WORKER_PETROV");
        s.button("applyButton")->click();
        QCOMPARE(s.chosen, QStringList());
    }

    void aReceiverMayRestrictTheTreeAndReopenTheDialog()
    {
        Setup s;
        s.dialog.widget()->setRootDepartment(QStringLiteral("DEP_CDS"));
        QObject::connect(&s.dialog, &OrgStructDialog::itemSelected, &s.dialog, [&s] {
            s.dialog.widget()->resetRoot();
            s.dialog.show();
        });
        s.choose("WORKER_PETROV");
        s.button("applyButton")->click();
        QVERIFY(s.dialog.isVisible());
        QCOMPARE(s.chosen, QStringList{QStringLiteral("WORKER_PETROV")});
    }

    void eachShowingBeginsWithAnEmptySearch()
    {
        Setup s;
        s.search()->setText(QStringLiteral("петров"));
        s.dialog.close();
        s.dialog.show();
        QCOMPARE(s.search()->text(), QString());
    }
};

QTEST_MAIN(OrgStructDialog_test)
#include "OrgStructDialog_test.moc"
