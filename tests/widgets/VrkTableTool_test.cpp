#include "VrkTableTool.h"

#include "TableSetup.h"
#include "VrkTableFilterRow.h"

#include <memory>
#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QScrollBar>
#include <QSignalSpy>

class VrkTableTool_test : public QObject
{
    Q_OBJECT

private slots:
    void currentRecordFollowsTheView()
    {
        Setup s;
        QCOMPARE(s.tool.currentRecord(), nullptr);
        MDRData* second = s.append("B", QStringLiteral("20.11.2026 10:00"), QString());
        MDRData* first = s.append("A", QStringLiteral("20.11.2026 09:00"), QString());
        s.configure();
        s.tool.setCurrentFirst();
        QCOMPARE(s.tool.currentRecord(), first);
        s.tool.setCurrentRecord(second);
        QCOMPARE(s.tool.currentRecord(), second);
        QCOMPARE(s.view.currentIndex().row(), 1);
        QCOMPARE(s.tool.recordByIndex(s.view.currentIndex()), second);
        QCOMPARE(s.tool.recordByIndex(QModelIndex()), nullptr);
        QCOMPARE(s.tool.recordByIndex(s.tool.model()->index(0, 0)), nullptr); // not of the proxy
    }

    void theSelectionModelIsThereFromTheStartAndStays()
    {
        Setup s;
        QItemSelectionModel* selection = s.view.selectionModel();
        QVERIFY(selection);
        QSignalSpy current(selection, &QItemSelectionModel::currentChanged);
        s.append("A", QStringLiteral("20.11.2026 09:00"), QString());
        s.configure();
        s.tool.setCMDArray(&s.table);
        s.tool.setCurrentFirst();
        QCOMPARE(s.view.selectionModel(), selection);
        QCOMPARE(current.count(), 1);
    }

    void aHiddenRecordDoesNotBecomeCurrent()
    {
        class NoDrafts : public VrkTableFilterRow
        {
        public:
            bool isAcceptRow(const CMDArray* array, MDRData* record) const override
            {
                MDRVar status;
                array->GetVal(record, "status", status);
                return status.value.number != StatusDraft;
            }
        } filter;
        Setup s;
        MDRData* shown = s.append("A", QStringLiteral("20.11.2026 09:00"), QString());
        MDRData* hidden = s.append("D", QStringLiteral("20.11.2026 09:01"), QString(), StatusDraft);
        s.configure();
        s.tool.proxy()->setFilterRows(&filter);
        s.tool.setCurrentRecord(shown);
        s.tool.setCurrentRecord(hidden);
        QCOMPARE(s.tool.currentRecord(), shown);
        s.tool.setCurrentRecord(nullptr);
        QCOMPARE(s.tool.currentRecord(), shown);
    }

    void aResetLeavesNoCurrentRecordAndSaysSo()
    {
        Setup s;
        MDRData* record = s.append("A", QStringLiteral("20.11.2026 09:00"), QString());
        s.configure();
        s.tool.setCurrentRecord(record);
        QVector<MDRData*> heard;
        connect(s.view.selectionModel(), &QItemSelectionModel::currentChanged, this,
                [&] { heard.append(s.tool.currentRecord()); });
        s.tool.model()->beginResetModel();
        QCOMPARE(heard, QVector<MDRData*>{nullptr});
        MDAClearRec(s.table.array);
        s.tool.model()->endResetModel();
        QCOMPARE(s.tool.currentRecord(), nullptr);
        s.tool.setCurrentFirst();
        QCOMPARE(s.tool.currentRecord(), nullptr);
        disconnect(s.view.selectionModel(), nullptr, this, nullptr);
    }

    void theCurrentRecordMayBeChosenWithinAReset()
    {
        Setup s;
        s.configure();
        s.tool.model()->beginResetModel();
        s.table.add("B", QStringLiteral("20.11.2026 10:00"), QString());
        MDRData* first = s.table.add("A", QStringLiteral("20.11.2026 09:00"), QString());
        s.tool.setCurrentFirst();
        s.tool.model()->endResetModel();
        QCOMPARE(s.tool.currentRecord(), first);

        s.tool.model()->beginResetModel();
        MDRData* third = s.table.add("C", QStringLiteral("20.11.2026 11:00"), QString());
        s.tool.setCurrentRecord(third);
        s.tool.model()->endResetModel();
        QCOMPARE(s.tool.currentRecord(), third);
    }

    void columnsTakeTheirPlacesAndKeepThemOverOtherFields()
    {
        Setup s;
        s.configure();
        const QHeaderView* header = s.view.horizontalHeader();
        QCOMPARE(header->visualIndex(s.column(keyLink)), 0);
        QCOMPARE(header->visualIndex(s.column(html)), 2);
        QVERIFY(header->isSectionHidden(s.column(QStringLiteral("status"))));
        s.tool.setColumnPosition(QStringLiteral("nothing"), 3);
        s.tool.setColumnVisible(QStringLiteral("nothing"), false);
        s.tool.sortByColumn(QStringLiteral("nothing"), Qt::AscendingOrder);

        // A table without fields for a moment, as after a failed request.
        s.tool.model()->beginResetModel();
        MDAClearAll(s.table.array);
        s.tool.model()->endResetModel();
        s.tool.model()->beginResetModel();
        MDAFldAdd(s.table.array, fieldCount(LogbookRecordExtFields), LogbookRecordExtFields);
        s.tool.model()->endResetModel();
        QCOMPARE(header->visualIndex(s.column(keyLink)), 0);
        QCOMPARE(header->visualIndex(s.column(recordTime)), 1);
        QCOMPARE(header->visualIndex(s.column(html)), 2);
        QVERIFY(header->isSectionHidden(s.column(QStringLiteral("status"))));
        QVERIFY(!header->isSectionHidden(s.column(html)));
    }

    void aClickOnAHeaderSorts()
    {
        Setup s;
        s.append("A", QStringLiteral("20.11.2026 09:00"), QStringLiteral("б"));
        s.append("B", QStringLiteral("20.11.2026 10:00"), QStringLiteral("а"));
        s.configure();
        s.show();
        const QHeaderView* header = s.view.horizontalHeader();
        QTest::mouseClick(header->viewport(), Qt::LeftButton, Qt::NoModifier,
                          QPoint(header->sectionViewportPosition(s.column(html)) + 20, header->height() / 2));
        QCOMPARE(s.tool.proxy()->index(0, 0).data().toString(), QStringLiteral("B"));
    }

    void noHeaderMeasuresAllItsContents()
    {
        Setup s;
        s.append("A", QStringLiteral("20.11.2026 09:00"), longText(3));
        s.configure();
        s.show();
        for (const QHeaderView* header : {s.view.horizontalHeader(), s.view.verticalHeader()}) {
            for (int i = 0; i < header->count(); ++i)
                QVERIFY(header->sectionResizeMode(i) != QHeaderView::ResizeToContents);
        }
    }

    void onlyRowsInSightGrow()
    {
        Setup s;
        s.tool.model()->beginResetModel();
        for (int i = 0; i < 300; ++i)
            s.table.add("K", QStringLiteral("20.11.2026 09:00"), longText(40));
        s.tool.model()->endResetModel();
        s.configure();
        s.show();
        const int grown = s.view.rowHeight(0);
        const int plain = s.view.verticalHeader()->defaultSectionSize();
        QVERIFY(grown > 3 * plain);
        QCOMPARE(s.view.rowHeight(200), plain);

        s.view.verticalScrollBar()->setValue(s.view.verticalScrollBar()->maximum() / 2);
        const int middle = s.view.rowAt(s.view.viewport()->height() / 2);
        QCOMPARE(s.view.rowHeight(middle), grown); // at once
        QCOMPARE(s.view.rowHeight(299), plain);
    }

    void theLastRowIsSeenAsAWholeWhenItBecomesCurrent()
    {
        Setup s;
        s.tool.model()->beginResetModel();
        for (int i = 0; i < 60; ++i)
            s.table.add("K", QStringLiteral("20.11.2026 09:00"), longText(30));
        s.tool.model()->endResetModel();
        s.configure();
        s.show();
        s.tool.setCurrentRecord(s.table.row(59));
        s.settle();
        const int bottom = s.view.rowViewportPosition(59) + s.view.rowHeight(59);
        QVERIFY(s.view.rowHeight(59) > s.view.verticalHeader()->defaultSectionSize());
        QVERIFY2(bottom <= s.view.viewport()->height(), qPrintable(QString::number(bottom)));
        QCOMPARE(s.view.verticalScrollBar()->value(), s.view.verticalScrollBar()->maximum());
    }

    void scrollingUpKeepsTheVisibleRowsInPlace()
    {
        Setup s;
        s.tool.model()->beginResetModel();
        for (int i = 0; i < 60; ++i)
            s.table.add("K", QStringLiteral("20.11.2026 09:00"), longText(30));
        s.tool.model()->endResetModel();
        s.configure();
        s.show();
        s.tool.setCurrentRecord(s.table.row(59));
        s.settle();
        const int first = s.view.rowAt(0);
        const int at = s.view.rowViewportPosition(first + 1);
        QScrollBar* bar = s.view.verticalScrollBar();
        bar->setValue(bar->value() - 120);
        QCOMPARE(s.view.rowViewportPosition(first + 1), at + 120);
    }

    void aLongerTextMakesItsRowGrow()
    {
        Setup s;
        MDRData* record = s.append("A", QStringLiteral("20.11.2026 09:00"), QStringLiteral("кратко"));
        s.configure();
        s.show();
        const int before = s.view.rowHeight(0);
        MDRData* edited = MDARecEdit(record);
        s.table.setText(edited, "html", longText(40));
        s.table.RecPost(edited);
        s.tool.updateView(record);
        s.settle();
        QVERIFY(s.view.rowHeight(0) > 3 * before);
    }

    void aWiderColumnMakesRowsShrink()
    {
        Setup s;
        s.append("A", QStringLiteral("20.11.2026 09:00"), longText(40));
        s.configure();
        s.show();
        const int narrow = s.view.rowHeight(0);
        s.view.resize(1200, 400);
        s.settle();
        QVERIFY(s.view.rowHeight(0) < narrow);
    }

    void showsALineWhereTheDayChanges()
    {
        Setup s;
        s.append("A", QStringLiteral("19.11.2026 23:58"), QStringLiteral("вечер"));
        s.append("B", QStringLiteral("20.11.2026 00:06"), QStringLiteral("ночь"));
        s.append("C", QStringLiteral("20.11.2026 01:00"), QStringLiteral("ночь"));
        s.configure();
        s.show();
        QCOMPARE(s.delegate()->dayLine(0), QDate());
        QCOMPARE(s.delegate()->dayLine(1), QDate(2026, 11, 20));
        QCOMPARE(s.delegate()->dayLine(2), QDate());
        QCOMPARE(s.view.rowHeight(1), s.view.rowHeight(2) + s.delegate()->dayLineHeight(1));

        s.tool.setDayLines(VrkTableTool::NoDayLines);
        s.settle();
        QCOMPARE(s.delegate()->dayLine(1), QDate());
        QCOMPARE(s.view.rowHeight(1), s.view.rowHeight(2));
        s.tool.setDayLines(VrkTableTool::DayLinesBetween);

        s.tool.sortByColumn(recordTime, Qt::DescendingOrder);
        s.settle();
        QCOMPARE(s.delegate()->dayLine(2), QDate(2026, 11, 19));
        QCOMPARE(s.view.rowHeight(0), s.view.rowHeight(1));

        s.tool.sortByColumn(html, Qt::AscendingOrder);
        s.settle();
        for (int row = 0; row < 3; ++row)
            QCOMPARE(s.delegate()->dayLine(row), QDate());
    }

    void theFirstDayHasItsLineWhereAsked()
    {
        Setup s;
        s.append("A", QStringLiteral("19.11.2026 23:58"), QStringLiteral("вечер"));
        s.append("B", QStringLiteral("20.11.2026 00:06"), QStringLiteral("ночь"));
        s.configure();
        s.tool.setDayLines(VrkTableTool::DayLinesAll);
        s.show();
        QCOMPARE(s.delegate()->dayLine(0), QDate(2026, 11, 19));
        QCOMPARE(s.delegate()->dayLine(1), QDate(2026, 11, 20));
        QCOMPARE(s.view.rowHeight(0), s.view.rowHeight(1));
        QVERIFY(s.delegate()->dayLineHeight(0) > 0);

        s.append("C", QStringLiteral("18.11.2026 12:00"),
                 QStringLiteral("день")); // a new first row gets the line
        s.settle();
        QCOMPARE(s.delegate()->dayLine(0), QDate(2026, 11, 18));
        QCOMPARE(s.view.rowHeight(0), s.view.rowHeight(1));
        s.tool.setDayLines(VrkTableTool::DayLinesBetween);
        s.settle();
        QCOMPARE(s.delegate()->dayLine(0), QDate());
    }

    void theDayLineMovesWithItsNeighbour()
    {
        Setup s;
        MDRData* evening = s.append("A", QStringLiteral("19.11.2026 23:58"), QString());
        s.append("C", QStringLiteral("20.11.2026 01:00"), QString());
        s.configure();
        s.show();
        const int withLine = s.view.rowHeight(1);
        s.append("B", QStringLiteral("20.11.2026 00:06"), QString());
        s.settle();
        QCOMPARE(s.view.rowHeight(1), withLine);
        QVERIFY(s.view.rowHeight(2) < withLine);
        s.tool.model()->beginRemoveRecord(evening);
        MDARecDel(evening);
        s.tool.model()->endRemoveRecord();
        s.settle();
        QVERIFY(s.view.rowHeight(0) < withLine);
    }

    void theDayLineIsPaintedOverTheWholeRow()
    {
        Setup s;
        QPalette palette = s.view.palette();
        palette.setColor(QPalette::Window, Qt::red);
        s.view.setPalette(palette);
        s.append("A", QStringLiteral("19.11.2026 23:58"), QString());
        s.append("B", QStringLiteral("20.11.2026 00:06"), QString());
        s.configure();
        s.show();
        const QImage image = s.view.viewport()->grab().toImage();
        const int top = s.view.rowViewportPosition(1);
        QCOMPARE(image.pixelColor(3, top + 1), QColor(Qt::red));
        QCOMPARE(image.pixelColor(image.width() - 3, top + 1), QColor(Qt::red));
        QVERIFY(image.pixelColor(3, top - 3) != QColor(Qt::red));
        QVERIFY(image.pixelColor(3, top + s.delegate()->dayLineHeight(1) + 2) != QColor(Qt::red));
    }

    void markupIsPaintedNotShown()
    {
        // Bold text is darker than the same text in plain.
        const auto ink = [](const QString& text) {
            Setup s;
            s.append("A", QStringLiteral("20.11.2026 09:00"), text);
            s.configure();
            s.show();
            const QRect cell = s.view.visualRect(s.tool.proxy()->index(0, s.column(html)));
            const QImage image = s.view.viewport()->grab(cell).toImage();
            qint64 dark = 0;
            for (int y = 0; y < image.height(); ++y) {
                for (int x = 0; x < image.width(); ++x)
                    dark += 255 - qGray(image.pixel(x, y));
            }
            return dark;
        };
        const qint64 plain = ink(QStringLiteral("отключена"));
        const qint64 bold = ink(QStringLiteral("<b>отключена</b>"));
        QVERIFY(bold > plain * 11 / 10);
        QVERIFY(bold < plain * 2); // and no tags next to it
    }

    void greyAndStruckOutRowsAreSoInTemplateTextToo()
    {
        const auto render = [](AbstractHfnCellConversion* conversion) {
            Setup s;
            s.tool.model()->setCellConversion(html, conversion);
            s.append("A", QStringLiteral("20.11.2026 09:00"), QStringLiteral("отключена <b>линия</b>"));
            s.configure();
            s.show();
            return s.view.viewport()
                ->grab(s.view.visualRect(s.tool.proxy()->index(0, s.column(html))))
                .toImage();
        };
        AbstractHfnCellConversion plain;
        QFont font = QApplication::font();
        font.setStrikeOut(true);
        FixedCell struck(Qt::FontRole, font);
        FixedCell red(Qt::ForegroundRole, QBrush(Qt::red));
        const QImage normal = render(&plain);
        QVERIFY(render(&struck) != normal);
        const QImage coloured = render(&red);
        bool hasRed = false;
        for (int y = 0; y < coloured.height(); ++y) {
            for (int x = 0; x < coloured.width(); ++x)
                hasRed = hasRed || coloured.pixelColor(x, y) == QColor(Qt::red);
        }
        QVERIFY(hasRed);
    }

    void copyTakesWhatIsSeen()
    {
        Setup s;
        s.append("A", QStringLiteral("20.11.2026 09:05"), QStringLiteral("Линия <b>отключена</b>"));
        s.configure();
        s.show();
        s.tool.setCurrentFirst();
        QTest::keyClick(&s.view, Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("A\t09:05\tЛиния отключена"));

        s.tool.setColumnVisible(keyLink, false);
        QTest::keyClick(&s.view, Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("09:05\tЛиния отключена"));

        s.view.clearSelection();
        QTest::keyClick(&s.view, Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("09:05\tЛиния отключена"));
    }

    void theToolMayGoBeforeTheView()
    {
        RecordTable table;
        table.add("A", 1, QString());
        QTableView view;
        auto tool = std::make_unique<VrkTableTool>();
        tool->setTableView(&view);
        tool->setCMDArray(&table);
        tool->setDefaultSettingsView();
        tool->adjustColumnsWidth();
        view.show();
        tool.reset();
        view.resize(300, 300);
        QCoreApplication::processEvents();
        QCOMPARE(view.model(), nullptr);
    }

    void withoutAViewItStillSortsAndFilters()
    {
        RecordTable table;
        table.add("B", 2, QString());
        table.add("A", 1, QString());
        VrkTableTool tool;
        tool.setCMDArray(&table);
        tool.setDefaultSettingsView();
        tool.sortByColumn(recordTime, Qt::AscendingOrder);
        tool.adjustColumnsWidth();
        tool.setCurrentFirst();
        tool.setCurrentRecord(table.row(0));
        QCOMPARE(tool.currentRecord(), nullptr);
        QCOMPARE(tool.proxy()->index(0, 0).data().toString(), QStringLiteral("A"));
    }
};

QTEST_MAIN(VrkTableTool_test)
#include "VrkTableTool_test.moc"
