#include "VrkPreview.h"

#include "RecordTable.h"
#include "VrkPreviewDocument.h"
#include "VrkPreviewWindow.h"
#include "VrkTableTool.h"

#include <QAction>
#include <QHeaderView>
#include <QProgressDialog>
#include <QTableView>
#include <QTemporaryDir>
#include <QTextDocument>
#include <QTextTable>
#include <QtTest>

class VrkPreview_test : public QObject
{
    Q_OBJECT

private:
    struct Setup {
        explicit Setup(int rows = 2)
        {
            for (int i = 0; i < rows; ++i)
                table.add("K", QStringLiteral("20.11.2026 0%1:00").arg(i % 10),
                          QStringLiteral("Запись <b>номер</b> %1").arg(i));
            tool.setTableView(&view);
            tool.setCMDArray(&table);
            tool.setDefaultSettingsView();
            tool.model()->setTextCodec(RecordTable::codec());
            tool.model()->setCellConversion(QStringLiteral("recordTime"), &time);
            for (int i = 0; i < 18; ++i)
                tool.setColumnVisible(QString::fromLatin1(MDRFldByNum(table.array, i)->name), false);
            int position = 0;
            for (const char* field : {"status", "recordTime", "html"}) {
                tool.setColumnVisible(QLatin1String(field), true);
                tool.setColumnPosition(QLatin1String(field), position++);
            }
            tool.model()->setHeaderData(QStringLiteral("recordTime"), Qt::Horizontal,
                                        QStringLiteral("Время\nзаписи"), Qt::DisplayRole);
            source.view = &view;
            source.footer = QStringLiteral("ЦДС\nСмена");
        }
        QTextTable* fill()
        {
            source.fill(&document);
            return qobject_cast<QTextTable*>(document.rootFrame()->childFrames().value(0));
        }
        static QString text(QTextTable* printed, int row, int column)
        {
            QTextCursor cursor = printed->cellAt(row, column).firstCursorPosition();
            cursor.setPosition(printed->cellAt(row, column).lastPosition(), QTextCursor::KeepAnchor);
            return cursor.selectedText();
        }

        RecordTable table;
        TimeCell time;
        QTableView view;
        VrkTableTool tool;
        VrkPreviewDocument source;
        QTextDocument document;
    };
    static VrkPreviewWindow* window()
    {
        for (QWidget* widget : QApplication::topLevelWidgets()) {
            if (auto* found = qobject_cast<VrkPreviewWindow*>(widget))
                return found;
        }
        return nullptr;
    }

private slots:
    void theColumnsInSightArePrintedInTheirOrder()
    {
        Setup s;
        QTextTable* printed = s.fill();
        QVERIFY(printed);
        QCOMPARE(printed->columns(), 3);
        QCOMPARE(printed->rows(), 3);
        QCOMPARE(printed->format().headerRowCount(), 1);
        QCOMPARE(s.text(printed, 0, 0), QStringLiteral("status"));
        QCOMPARE(s.text(printed, 0, 1), QStringLiteral("Время\u2028записи"));
        QCOMPARE(s.text(printed, 1, 1), QStringLiteral("00:00"));
        QCOMPARE(s.text(printed, 2, 2), QStringLiteral("Запись номер 1"));
    }

    void sortingAndFiltersOfTheViewHold()
    {
        Setup s;
        s.tool.sortByColumn(QStringLiteral("recordTime"), Qt::DescendingOrder);
        QCOMPARE(s.text(s.fill(), 1, 1), QStringLiteral("01:00"));
        s.tool.setColumnVisible(QStringLiteral("status"), false);
        QCOMPARE(s.fill()->columns(), 2);
    }

    void templateTextIsPrintedRendered()
    {
        Setup s;
        QTextTable* printed = s.fill();
        QTextCursor cursor = printed->cellAt(1, 2).firstCursorPosition();
        cursor.movePosition(QTextCursor::Right, QTextCursor::MoveAnchor, 9);
        QVERIFY(cursor.charFormat().fontWeight() > QFont::Normal);
        cursor = printed->cellAt(1, 2).firstCursorPosition();
        cursor.movePosition(QTextCursor::Right);
        QVERIFY(cursor.charFormat().fontWeight() <= QFont::Normal);
    }

    void greyAndStruckOutRecordsArePrintedSo()
    {
        Setup s;
        QFont font;
        font.setStrikeOut(true);
        FixedCell struck(Qt::FontRole, font);
        FixedCell grey(Qt::ForegroundRole, QBrush(Qt::gray));
        struck.setRoleRedirect(Qt::ForegroundRole, &grey);
        s.tool.model()->setCellConversion(QStringLiteral("html"), &struck);
        QTextCursor cursor = s.fill()->cellAt(1, 2).firstCursorPosition();
        cursor.movePosition(QTextCursor::Right);
        QVERIFY(cursor.charFormat().fontStrikeOut());
        QCOMPARE(cursor.charFormat().foreground().color(), QColor(Qt::gray));
    }

    void iconsArePrinted()
    {
        Setup s;
        QPixmap pixmap(16, 16);
        pixmap.fill(Qt::green);
        FixedCell icon(Qt::DecorationRole, QIcon(pixmap));
        s.tool.model()->setCellConversion(QStringLiteral("status"), &icon);
        QTextTable* printed = s.fill();
        QTextCursor cursor = printed->cellAt(1, 0).firstCursorPosition();
        cursor.movePosition(QTextCursor::Right);
        QVERIFY(cursor.charFormat().isImageFormat());
        const QUrl name(cursor.charFormat().toImageFormat().name());
        QVERIFY(!s.document.resource(QTextDocument::ImageResource, name).isNull());
    }

    void theDayLinesOfTheViewArePrinted()
    {
        Setup s;
        s.table.add("K", QStringLiteral("21.11.2026 00:30"), QStringLiteral("Утро"));
        s.tool.setCMDArray(&s.table);
        s.tool.sortByColumn(QStringLiteral("recordTime"), Qt::AscendingOrder);
        QTextTable* printed = s.fill();
        QCOMPARE(printed->rows(), 5);
        QCOMPARE(printed->cellAt(3, 0).columnSpan(), 3);
        QCOMPARE(s.text(printed, 3, 0), QStringLiteral("21 ноября 2026, суббота"));
        QCOMPARE(s.text(printed, 4, 2), QStringLiteral("Утро"));
        QCOMPARE(s.text(printed, 2, 2), QStringLiteral("Запись номер 1"));
        s.tool.sortByColumn(QStringLiteral("html"), Qt::AscendingOrder);
        QCOMPARE(s.fill()->rows(), 4);
    }

    void theWidthBoundSparesTheLastColumn()
    {
        Setup s;
        s.view.horizontalHeader()->resizeSection(s.tool.model()->idxField(QStringLiteral("status")), 500);
        s.view.horizontalHeader()->resizeSection(s.tool.model()->idxField(QStringLiteral("html")), 500);
        s.source.maxColumnWidth = 100;
        const QVector<QTextLength> widths = s.fill()->format().columnWidthConstraints();
        QCOMPARE(widths[0].rawValue(), 100.0);
        QCOMPARE(widths[2].type(), QTextLength::VariableLength);
    }

    void theFooterStandsAtTheEndAndTheHeaderHasItsColour()
    {
        Setup s;
        s.source.headerBackground = Qt::gray;
        QTextTable* printed = s.fill();
        QVERIFY(s.document.toPlainText().endsWith(QStringLiteral("ЦДС\nСмена")));
        QCOMPARE(printed->cellAt(0, 0).format().background().color(), QColor(Qt::gray));
    }

    void fillingAgainReplacesTheDocument()
    {
        Setup s;
        s.fill();
        const QString once = s.document.toPlainText();
        s.fill();
        QCOMPARE(s.document.toPlainText(), once);
    }

    void withoutRowsOrViewThereIsStillAFooter()
    {
        Setup s(0);
        QTextTable* printed = s.fill();
        QCOMPARE(printed->rows(), 1);
        QVERIFY(s.document.toPlainText().contains(QStringLiteral("Смена")));
        VrkPreviewDocument none;
        none.fill(&s.document);
        QCOMPARE(s.document.toPlainText(), QString());
    }

    void aLongDocumentShowsItsProgressAndCanBeCancelled()
    {
        Setup s(500);
        VrkPreview preview;
        preview.setView(&s.view);
        preview.showDocument();
        QTRY_VERIFY(window()->pageCount() > 10);

        QTemporaryDir folder;
        const QString file = folder.filePath(QStringLiteral("a.pdf"));
        QTimer canceller;
        int seen = 0;
        bool isCancelling = false;
        connect(&canceller, &QTimer::timeout, this, [&] {
            auto* progress = window()->findChild<QProgressDialog*>(QStringLiteral("pagesProgress"));
            if (!progress || !progress->isVisible())
                return;
            ++seen;
            QCOMPARE(progress->labelText(), QStringLiteral("Подготовка страниц..."));
            if (isCancelling)
                progress->cancel();
        });
        canceller.start(0);
        QVERIFY(window()->savePdf(file));
        QVERIFY(seen > 0);
        QVERIFY(QFileInfo::exists(file));

        isCancelling = true;
        QVERIFY(!window()->savePdf(file));
        QVERIFY(!QFileInfo::exists(file));
        QVERIFY(!window()->findChild<QProgressDialog*>());
    }

    void theWindowShowsPagesAndSavesThemAsPdf()
    {
        Setup s(120);
        VrkPreview preview;
        preview.showDocument(); // without a view nothing happens
        QVERIFY(!window());
        preview.setView(&s.view);
        preview.setWindowTitle(QStringLiteral("Печать отчета"));
        preview.setHeaderBackgroundColor(Qt::gray);
        preview.setMaxColummnWidth(100);
        preview.setFooter(QStringLiteral("ЦДС"));
        preview.showDocument();
        QVERIFY(window() && window()->isVisible());
        QCOMPARE(window()->windowTitle(), QStringLiteral("Печать отчета"));
        QTRY_VERIFY(window()->pageCount() > 1);
        const int landscape = window()->pageCount();
        window()->findChild<QAction*>(QStringLiteral("portraitAction"))->setChecked(true);
        QTRY_VERIFY(window()->pageCount() < landscape); // a page is longer then

        QTemporaryDir folder;
        const QString file = folder.filePath(QStringLiteral("отчет.pdf"));
        QVERIFY(window()->savePdf(file));
        QFile pdf(file);
        QVERIFY(pdf.open(QIODevice::ReadOnly));
        QVERIFY(pdf.read(5) == "%PDF-");
        QVERIFY(!window()->savePdf(folder.filePath(QStringLiteral("nowhere/отчет.pdf"))));

        preview.showDocument(); // the same window again
        int windows = 0;
        for (QWidget* widget : QApplication::topLevelWidgets())
            windows += qobject_cast<VrkPreviewWindow*>(widget) ? 1 : 0;
        QCOMPARE(windows, 1);
    }
};

QTEST_MAIN(VrkPreview_test)
#include "VrkPreview_test.moc"
