#pragma once

#include "RecordTable.h"
#include "VrkTableDelegate.h"
#include "VrkTableModel.h"
#include "VrkTableProxyModel.h"
#include "VrkTableTool.h"

#include <QAbstractItemModelTester>
#include <QTableView>
#include <QTest>

namespace
{
const QString html = QStringLiteral("html");
const QString recordTime = QStringLiteral("recordTime");
const QString keyLink = QStringLiteral("KeyLink");

QString longText(int words)
{
    return QStringLiteral("переключение ").repeated(words);
}

/// A table configured like in a page: key, time and text visible.
struct Setup {
    Setup() : tester(tool.proxy(), QAbstractItemModelTester::FailureReportingMode::QtTest)
    {
        tool.setTableView(&view);
        tool.setCMDArray(&table);
        tool.setDefaultSettingsView();
        tool.model()->setTextCodec(RecordTable::codec());
        tool.model()->setCellConversion(recordTime, &time);
        view.resize(600, 400);
    }
    void configure()
    {
        for (int i = 0; i < 18; ++i)
            tool.setColumnVisible(QString::fromLatin1(MDRFldByNum(table.array, i)->name), false);
        int position = 0;
        for (const QString& field : {keyLink, recordTime, html}) {
            tool.setColumnVisible(field, true);
            tool.setColumnPosition(field, position++);
        }
        tool.sortByColumn(recordTime, Qt::AscendingOrder);
        tool.adjustColumnsWidth();
    }
    MDRData* append(const char* key, const QString& at, const QString& text, int status = StatusApproved)
    {
        tool.model()->beginAppendRows(1);
        MDRData* record = table.add(key, at, text, status);
        tool.model()->endAppendRows();
        return record;
    }
    void show()
    {
        view.show();
        QVERIFY(QTest::qWaitForWindowExposed(&view));
        settle();
    }
    /// Runs queued work.
    static void settle() { QCoreApplication::sendPostedEvents(); }
    int column(const QString& field) const { return tool.model()->idxField(field); }
    VrkTableDelegate* delegate() const { return qobject_cast<VrkTableDelegate*>(view.itemDelegate()); }

    RecordTable table;
    TimeCell time;
    QTableView view;
    VrkTableTool tool;
    QAbstractItemModelTester tester;
};
} // namespace
