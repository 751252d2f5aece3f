#include "FilesPane.h"

#include "LocationInfo.h"
#include "LogWatch.h"
#include "MadeTable.h"
#include "PageMessages.h"
#include "TestClient.h"

#include <QApplication>
#include <QHeaderView>
#include <QPixmap>
#include <QProxyStyle>
#include <QTableWidget>
#include <QTest>
#include <QToolButton>

class FilesPane_test : public QObject
{
    Q_OBJECT

private:
    struct Fixture {
        const TestStore store{TestStore::Empty};
        MadeTable records{"LogbookRecords", LogbookRecordExtFields};
        MadeTable files{"LogbookFiles", LogbookFilesFields};
        LocationInfo location;
        TestClient client{store.openLoader()};
        CVrkCliMod module{&client.app()};
        PageMessages messages{&module};
        QTableWidget table;
        QToolButton create, remove, save;
        FilesPane pane{
            {&table, &create, &remove, &save},
            {QStringLiteral("LogBookWidget"), &module, &location, &files, &messages, [] { return nullptr; }},
            &table,
            nullptr};
    };

private slots:
    void listsTheFilesOfTheRecord()
    {
        Fixture f;
        MDRData* record = f.records.add({{"KeyLink", "R1"}});
        const QStringList names{QStringLiteral("схема.pdf"), QStringLiteral("без точки"),
                                QStringLiteral("точка."), QStringLiteral("вторая схема.pdf")};
        for (const QString& name : names)
            f.files.add({{"KeyLink", QByteArray("F") + name.right(1).toUtf8()},
                         {"RecordKey", "R1"},
                         {"fileName", name}});
        f.files.add({{"KeyLink", "F_OTHER"}, {"RecordKey", "R2"}, {"fileName", "other.txt"}});
        f.files.add({{"KeyLink", "F_NULL"}, {"RecordKey", "R1"}});

        f.pane.reload(record);

        QCOMPARE(f.table.columnCount(), 1);
        QCOMPARE(f.table.horizontalHeaderItem(0)->text(), QStringLiteral("Наименование"));
        QCOMPARE(f.table.rowCount(), 5);
        for (int row = 0; row < names.size(); ++row) {
            QCOMPARE(f.table.item(row, 0)->text(), names.at(row));
            QCOMPARE(f.table.item(row, 0)->flags(), Qt::ItemIsSelectable | Qt::ItemIsEnabled);
            QCOMPARE(f.table.item(row, 0)->data(Qt::DecorationRole).value<QPixmap>().size(), QSize(16, 16));
        }
        QCOMPARE(f.table.item(4, 0)->text(), QString());
        QCOMPARE(f.table.item(4, 0)->data(Qt::UserRole).toString(), QStringLiteral("F_NULL"));
        QVERIFY(f.table.verticalHeader()->isHidden());
        QVERIFY(f.table.horizontalHeader()->stretchLastSection());
        QCOMPARE(f.table.selectionBehavior(), QAbstractItemView::SelectRows);
        QCOMPARE(f.table.selectionMode(), QAbstractItemView::SingleSelection);
        QVERIFY(f.table.alternatingRowColors());
        QCOMPARE(f.table.currentRow(), 0);
    }

    void isEmptyWithoutARecordAndWithoutFiles()
    {
        Fixture f;
        MDRData* record = f.records.add({{"KeyLink", "R1"}});
        f.files.add({{"KeyLink", "F1"}, {"RecordKey", "R1"}, {"fileName", "a.txt"}});
        f.pane.reload(record);
        QCOMPARE(f.table.rowCount(), 1);
        f.pane.reload(nullptr);
        QCOMPARE(f.table.rowCount(), 0);
        f.pane.reload(f.records.add({{"KeyLink", "R2"}}));
        QCOMPARE(f.table.rowCount(), 0);
    }

    void aFileWithoutAnIconGetsTheStandardOne()
    {
        struct NoFileIcon : QProxyStyle {
            QIcon standardIcon(StandardPixmap icon, const QStyleOption* option,
                               const QWidget* widget) const override
            {
                return icon == SP_FileIcon ? QIcon() : QProxyStyle::standardIcon(icon, option, widget);
            }
        };
        struct RedFileIcon : QProxyStyle {
            QIcon standardIcon(StandardPixmap, const QStyleOption*, const QWidget*) const override
            {
                QPixmap red(16, 16);
                red.fill(Qt::red);
                return QIcon(red);
            }
        };
        const QString usual = QApplication::style()->objectName();
        QApplication::setStyle(new NoFileIcon); // used by the icon provider
        RedFileIcon red;
        {
            Fixture f;
            f.table.setStyle(&red);
            f.files.add({{"KeyLink", "F1"}, {"RecordKey", "R1"}, {"fileName", "a.nothing"}});
            f.pane.reload(f.records.add({{"KeyLink", "R1"}}));
            const QPixmap icon = f.table.item(0, 0)->data(Qt::DecorationRole).value<QPixmap>();
            QCOMPARE(icon.size(), QSize(16, 16));
            QCOMPARE(icon.toImage().pixelColor(8, 8), QColor(Qt::red));
        }
        QApplication::setStyle(usual);
    }

    void logsARecordWithoutAKey()
    {
        Fixture f;
        LogWatch log;
        f.pane.reload(f.records.add({}));
        QCOMPARE(log.take(), QStringList{QStringLiteral(
                                 "void LogBookWidget::reloadFiles(MDRData*) can not reload files - KeyLink "
                                 "is empty!")});
        QCOMPARE(f.table.rowCount(), 0);
    }
};

QTEST_MAIN(FilesPane_test)
#include "FilesPane_test.moc"
