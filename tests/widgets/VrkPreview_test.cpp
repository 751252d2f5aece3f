#include "VrkPreview.h"

#include "FileSaver.h"
#include "PaintRecord.h"
#include "RecordTable.h"
#include "VrkPreviewPages.h"
#include "VrkPreviewWindow.h"
#include "VrkTableTool.h"

#include <algorithm>
#include <QAction>
#include <QDir>
#include <QHeaderView>
#include <QPrinter>
#include <QProgressDialog>
#include <QRegularExpression>
#include <QScreen>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QToolButton>

namespace
{
const QSizeF pageSize(12000, 8000); // units of 1/1200 inch

/// A page as painted.
class Recording : public PaintRecord
{
public:
    Recording(const VrkPreviewPages& pages, int page) : PaintRecord(pageSize.toSize(), 1200)
    {
        record(pages, page);
    }
    /// The first page of a table.
    explicit Recording(const VrkPreviewTable& table, const QSizeF& size = pageSize)
        : PaintRecord(size.toSize(), 1200)
    {
        VrkPreviewPages pages;
        pages.setTable(table);
        if (!pages.layOut(size, {}))
            qFatal("no pages");
        record(pages, 0);
    }

    /// All words on the page that consist of this prefix and a number, in their order.
    QStringList words(const QString& beginning) const
    {
        QStringList found;
        const QString all = written(); // a passage may end within a word
        QRegularExpressionMatchIterator matches =
            QRegularExpression(beginning + QStringLiteral("[0-9]+")).globalMatch(all);
        while (matches.hasNext())
            found.append(matches.next().captured());
        return found;
    }
    qreal right() const
    {
        qreal edge = 0;
        for (const Rect& rect : rects)
            edge = qMax(edge, rect.rect.right());
        return edge;
    }
    qreal bottomOfTexts() const
    {
        qreal bottom = 0;
        for (const Text& text : texts)
            bottom = qMax(bottom, text.box.bottom());
        return bottom;
    }

private:
    void record(const VrkPreviewPages& pages, int page)
    {
        QPainter painter(this);
        pages.paint(&painter, page);
    }
};
} // namespace

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
        }
        VrkPreviewTable printed() { return VrkPreviewTable::of(&view); }
        QString text(int row, int cell) { return printed().rows.value(row).cells.value(cell).text; }

        RecordTable table;
        TimeCell time;
        QTableView view;
        VrkTableTool tool;
    };
    /// A reduced page.
    static QImage page(const VrkPreviewTable& table)
    {
        VrkPreviewPages pages;
        pages.setTable(table);
        if (!pages.layOut(pageSize, {}))
            qFatal("no pages");
        QImage image(pageSize.toSize() / 10, QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        painter.scale(0.1, 0.1);
        pages.paint(&painter, 0);
        return image;
    }
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
        const VrkPreviewTable printed = s.printed();
        QCOMPARE(printed.header.cells.size(), 3);
        QCOMPARE(printed.rows.size(), 2);
        QCOMPARE(printed.header.cells[0].text, QStringLiteral("status"));
        QCOMPARE(printed.header.cells[1].text, QStringLiteral("Время\u2028записи"));
        QCOMPARE(printed.rows[0].cells[1].text, QStringLiteral("00:00"));
        QCOMPARE(printed.rows[1].cells[2].text, QStringLiteral("Запись номер 1"));
    }

    void sortingAndFiltersOfTheViewHold()
    {
        Setup s;
        s.tool.sortByColumn(QStringLiteral("recordTime"), Qt::DescendingOrder);
        QCOMPARE(s.text(0, 1), QStringLiteral("01:00"));
        s.tool.setColumnVisible(QStringLiteral("status"), false);
        QCOMPARE(s.printed().header.cells.size(), 2);
    }

    void templateTextIsPrintedRendered()
    {
        Setup s;
        const VrkPreviewTable::Cell cell = s.printed().rows[0].cells[2];
        QCOMPARE(cell.text, QStringLiteral("Запись номер 0"));
        QCOMPARE(cell.formats.size(), 1);
        QCOMPARE(cell.formats[0].start, 7);
        QCOMPARE(cell.formats[0].length, 5);
        QCOMPARE(cell.formats[0].format.fontWeight(), int(QFont::Bold));
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
        const VrkPreviewTable::Cell cell = s.printed().rows[0].cells[2];
        QCOMPARE(cell.formats.size(), 3); // before, in and after the bold passage
        for (const QTextLayout::FormatRange& range : cell.formats) {
            QVERIFY(range.format.fontStrikeOut());
            QCOMPARE(range.format.foreground().color(), QColor(Qt::gray));
        }
    }

    void iconsArePrinted()
    {
        Setup s;
        QPixmap pixmap(16, 16);
        pixmap.fill(Qt::green);
        FixedCell icon(Qt::DecorationRole, QIcon(pixmap));
        s.tool.model()->setCellConversion(QStringLiteral("status"), &icon);
        const VrkPreviewTable printed = s.printed();
        QVERIFY(!printed.rows[0].cells[0].icon.isNull());
        const QImage image = page(printed);
        bool isGreen = false;
        for (int x = 0; x < image.width(); ++x)
            for (int y = 0; y < image.height(); ++y)
                isGreen |= image.pixelColor(x, y) == QColor(Qt::green);
        QVERIFY(isGreen);

        // A shrinking column keeps space for them.
        for (const char* field : {"KeyLink", "ShiftKey", "WorkerKey", "recordTime", "eventTime"}) {
            s.tool.setColumnVisible(QLatin1String(field), true);
            s.view.horizontalHeader()->resizeSection(s.tool.model()->idxField(QLatin1String(field)), 400);
        }
        s.tool.model()->setHeaderData(QStringLiteral("status"), Qt::Horizontal, QString(), Qt::DisplayRole);
        s.view.horizontalHeader()->resizeSection(s.tool.model()->idxField(QStringLiteral("status")), 10);
        const Recording narrow(s.printed());
        QVERIFY(!narrow.pixmaps.isEmpty());
        for (const PaintRecord::Pixmap& shown : narrow.pixmaps) {
            const bool isFramed =
                std::any_of(narrow.rects.begin(), narrow.rects.end(), [&](const PaintRecord::Rect& frame) {
                    return !frame.isFilled && frame.rect.contains(shown.rect);
                });
            QVERIFY(isFramed);
        }
    }

    void theDayLinesOfTheViewArePrinted()
    {
        Setup s;
        s.table.add("K", QStringLiteral("21.11.2026 00:30"), QStringLiteral("Утро"));
        s.tool.setCMDArray(&s.table);
        s.tool.sortByColumn(QStringLiteral("recordTime"), Qt::AscendingOrder);
        const VrkPreviewTable printed = s.printed();
        QCOMPARE(printed.rows.size(), 4);
        QVERIFY(printed.rows[2].isDayLine);
        QCOMPARE(printed.rows[2].cells.size(), 1);
        QCOMPARE(printed.rows[2].cells[0].text, QStringLiteral("21 ноября 2026, суббота"));
        QCOMPARE(printed.rows[3].cells[2].text, QStringLiteral("Утро"));
        QCOMPARE(printed.rows[1].cells[2].text, QStringLiteral("Запись номер 1"));
        s.tool.sortByColumn(QStringLiteral("html"), Qt::AscendingOrder);
        QCOMPARE(s.printed().rows.size(), 3);
    }

    void theWidthBoundSparesTheLastColumn()
    {
        Setup s;
        const int status = s.tool.model()->idxField(QStringLiteral("status"));
        s.view.horizontalHeader()->resizeSection(status, 400);
        s.view.horizontalHeader()->resizeSection(s.tool.model()->idxField(QStringLiteral("html")), 500);
        const auto firstFrame = [&s](int bound) {
            return Recording(VrkPreviewTable::of(&s.view, bound)).rects[1];
        };
        QCOMPARE(firstFrame(100).rect.width(), 100 * 1200.0 / s.view.logicalDpiX());
        QCOMPARE(firstFrame(0).rect.width(), 400 * 1200.0 / s.view.logicalDpiX());
        // On the page the last column reaches the edge, for any width in the view.
        QCOMPARE(Recording(VrkPreviewTable::of(&s.view, 100)).right(), pageSize.width());
    }

    void aNarrowColumnGrowsForItsNamesUpToTheBound()
    {
        Setup s;
        const QString name = QStringLiteral("Константинопольская");
        for (int i = 0; i < 2; ++i)
            s.table.setText(s.table.row(i), "WorkerKey", name + QStringLiteral(" А. Б."));
        s.tool.setCMDArray(&s.table);
        s.tool.setColumnVisible(QStringLiteral("WorkerKey"), true);
        int position = 0;
        for (const char* field : {"WorkerKey", "status", "recordTime", "html"})
            s.tool.setColumnPosition(QLatin1String(field), position++);
        s.view.horizontalHeader()->resizeSection(s.tool.model()->idxField(QStringLiteral("WorkerKey")), 20);
        const QStringList whole = Recording(VrkPreviewTable::of(&s.view)).lines();
        QVERIFY2(whole.filter(name + QStringLiteral(" А.\u00A0Б.")).size() == 2,
                 qPrintable(whole.join(QLatin1Char('|')))); // in one line
        const QStringList bounded = Recording(VrkPreviewTable::of(&s.view, 50)).lines();
        QVERIFY2(bounded.filter(name).isEmpty(), qPrintable(bounded.join(QLatin1Char('|'))));
    }

    void everyPageHasTheHeaderTheTitleAndItsNumber()
    {
        Setup s(120);
        VrkPreviewTable printed = s.printed();
        printed.footer = QStringLiteral("ЦДС\nСмена");
        VrkPreviewPages pages;
        pages.setTable(printed);
        QVERIFY(pages.layOut(pageSize, {}));
        QVERIFY(pages.count() > 2);
        int rows = 0;
        for (int i = 0; i < pages.count(); ++i) {
            const Recording page(pages, i);
            QCOMPARE(page.lines().count(QStringLiteral("status")), 1);
            QCOMPARE(page.lines().count(QStringLiteral("ЦДС, Смена")), 1);
            QCOMPARE(page.lines().count(QStringLiteral("Страница %1 из %2").arg(i + 1).arg(pages.count())),
                     1);
            QCOMPARE(page.lines().contains(QStringLiteral("ЦДС")), i == pages.count() - 1);
            rows += page.lines().filter(QRegularExpression(QStringLiteral("^Запись "))).size();
        }
        QCOMPARE(rows, 120);
    }

    void aRowIsNotSplitBetweenPages()
    {
        Setup s(0);
        for (int i = 0; i < 40; ++i)
            s.table.add("K", QStringLiteral("20.11.2026 01:00"),
                        QStringLiteral("слово%1 ").arg(i).repeated(60 + 10 * (i % 7)));
        s.tool.setCMDArray(&s.table);
        VrkPreviewPages pages;
        pages.setTable(s.printed());
        QVERIFY(pages.layOut(pageSize, {}));
        QVERIFY(pages.count() > 2);
        QMap<QString, int> pageOf;
        for (int i = 0; i < pages.count(); ++i) {
            const Recording page(pages, i);
            QVERIFY(page.bottomOfTexts() <= pageSize.height());
            for (const QString& word : page.words(QStringLiteral("слово"))) {
                if (!pageOf.contains(word))
                    pageOf.insert(word, i);
                QCOMPARE(pageOf.value(word), i);
            }
        }
        QCOMPARE(pageOf.size(), 40);
    }

    void aRowHigherThanAPageBreaksBetweenLines()
    {
        Setup s(3);
        QString text;
        for (int i = 0; i < 6000; ++i)
            text += QStringLiteral("слово%1 ").arg(i);
        s.table.add("K", QStringLiteral("20.11.2026 01:00"), text);
        s.tool.setCMDArray(&s.table);
        VrkPreviewPages pages;
        pages.setTable(s.printed());
        QVERIFY(pages.layOut(pageSize, {}));
        QVERIFY(pages.count() > 2);
        QStringList words;
        for (int i = 0; i < pages.count(); ++i) {
            const Recording page(pages, i);
            words += page.words(QStringLiteral("слово"));
            QVERIFY(page.bottomOfTexts() <= pageSize.height());
            QVERIFY(page.lines().contains(QStringLiteral("status")));
        }
        QCOMPARE(words, text.trimmed().split(QLatin1Char(' ')));
    }

    void aDayLineNeverEndsAPage()
    {
        for (int before = 1; before < 60; ++before) {
            Setup s(0);
            for (int i = 0; i < before; ++i)
                s.table.add("K", QStringLiteral("20.11.2026 01:00"), QStringLiteral("Запись"));
            s.table.add("K", QStringLiteral("21.11.2026 01:00"), QStringLiteral("Утро"));
            s.tool.setCMDArray(&s.table);
            s.tool.sortByColumn(QStringLiteral("recordTime"), Qt::AscendingOrder);
            VrkPreviewPages pages;
            pages.setTable(s.printed());
            QVERIFY(pages.layOut(pageSize, {}));
            const Recording last(pages, pages.count() - 1);
            QCOMPARE(last.lines().contains(QStringLiteral("Утро")),
                     last.lines().contains(QStringLiteral("21 ноября 2026, суббота")));
            if (pages.count() > 2)
                return; // the break is now after the day line
        }
    }

    void wideColumnsLeaveRoomForTheText()
    {
        Setup s;
        for (const char* field : {"KeyLink", "ShiftKey", "WorkerKey", "eventTime", "executionTime"})
            s.tool.setColumnVisible(QLatin1String(field), true);
        for (int i = 0; i < 18; ++i)
            s.view.horizontalHeader()->resizeSection(i, 400);
        const Recording page(s.printed());
        QCOMPARE(page.right(), pageSize.width());
        qreal last = 0; // width of the last column
        for (const PaintRecord::Rect& frame : page.rects)
            if (!frame.isFilled && qFuzzyCompare(frame.rect.right(), pageSize.width()))
                last = frame.rect.width();
        QVERIFY2(last > 0.39 * pageSize.width(), qPrintable(QString::number(last)));
    }

    void onANarrowPageTheWordsOfTheColumnsStayWhole()
    {
        Setup s;
        const QStringList fields{QStringLiteral("KeyLink"),   QStringLiteral("ShiftKey"),
                                 QStringLiteral("WorkerKey"), QStringLiteral("eventTime"),
                                 QStringLiteral("status"),    QStringLiteral("html")};
        int position = 0;
        s.tool.setColumnVisible(QStringLiteral("recordTime"), false);
        for (const QString& field : fields) {
            s.tool.setColumnVisible(field, true);
            s.tool.setColumnPosition(field, position++);
        }
        const VrkPreviewTable printed = s.printed();
        const QSizeF roomy(9000, 12000);
        for (qreal width = roomy.width(); width > 4000; width -= 250) {
            const Recording page(printed, QSizeF(width, roomy.height()));
            qreal last = 0;
            for (const PaintRecord::Rect& frame : page.rects)
                if (!frame.isFilled && qFuzzyCompare(frame.rect.right(), width))
                    last = frame.rect.width();
            QVERIFY(last >= 0.28 * width - 1);
            if (last < 0.29 * width)
                return; // from here on there is no space for whole words
            for (const QString& field : fields)
                QVERIFY2(page.lines().contains(field), qPrintable(page.lines().join(QLatin1Char('|'))));
        }
        QFAIL("the page never got too narrow");
    }

    void theFooterIsLastAndTheHeaderHasItsColour()
    {
        Setup s;
        VrkPreviewTable printed = s.printed();
        printed.headerBackground = Qt::gray;
        printed.footer = QStringLiteral("ЦДС\nСмена");
        const Recording page(printed);
        QVERIFY(page.lines().indexOf(QStringLiteral("ЦДС")) >
                page.lines().indexOf(QStringLiteral("Запись ")));
        QVERIFY(page.lines().contains(QStringLiteral("Смена")));
        QCOMPARE(page.rects[0].color, QColor(Qt::gray));
        QVERIFY(page.rects[0].isFilled);
    }

    void paperIsLightInTheDarkToo()
    {
        const QPalette day = QApplication::palette();
        QPalette night = day;
        for (QPalette::ColorRole role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText})
            night.setColor(role, Qt::white);
        QApplication::setPalette(night);
        Setup s;
        VrkPreviewTable printed = s.printed();
        printed.footer = QStringLiteral("ЦДС");
        const Recording page(printed);
        QApplication::setPalette(day);
        QVERIFY(page.texts.size() > 5);
        for (const PaintRecord::Text& text : page.texts)
            QCOMPARE(text.color, QColor(Qt::black));
        for (const PaintRecord::Rect& rect : page.rects)
            QCOMPARE(rect.color, rect.isFilled ? printed.headerBackground : QColor(Qt::black));
    }

    void withoutRowsOrViewThereIsStillAFooter()
    {
        Setup s(0);
        VrkPreviewTable printed = s.printed();
        QCOMPARE(printed.rows.size(), 0);
        printed.footer = QStringLiteral("Смена");
        const Recording page(printed);
        QVERIFY(page.lines().contains(QStringLiteral("status")));
        QVERIFY(page.lines().contains(QStringLiteral("Смена")));
        VrkPreviewTable none = VrkPreviewTable::of(nullptr);
        none.footer = QStringLiteral("Смена");
        QVERIFY(Recording(none).lines().contains(QStringLiteral("Смена")));
    }

    void aLongDocumentShowsProgressAndCanBeCancelled()
    {
        Setup s(2000);
        VrkPreview preview;
        preview.setView(&s.view);
        QTimer canceller;
        QSet<int> values;
        int cancelAt = -1;
        connect(&canceller, &QTimer::timeout, this, [&] {
            QProgressDialog* progress = nullptr;
            for (QWidget* widget : QApplication::topLevelWidgets())
                if (widget->isVisible() && widget->objectName() == QLatin1String("pagesProgress"))
                    progress = qobject_cast<QProgressDialog*>(widget);
            if (!progress)
                return;
            QCOMPARE(progress->labelText(), QStringLiteral("Подготовка страниц..."));
            values.insert(progress->value());
            if (cancelAt >= 0 && progress->value() >= cancelAt)
                progress->cancel();
        });
        canceller.start(0);
        const auto isProgress = [] {
            for (QWidget* widget : QApplication::topLevelWidgets())
                if (widget->objectName() == QLatin1String("pagesProgress"))
                    return true;
            return false;
        };

        cancelAt = 100; // while the rows are being laid out: then there is no preview
        preview.showDocument();
        QVERIFY(!values.isEmpty());
        QVERIFY(!window()->isVisible());
        QVERIFY(*std::max_element(values.begin(), values.end()) < 2000);
        values.clear();
        cancelAt = 3000; // while the pages are painted
        preview.showDocument();
        QVERIFY(!window()->isVisible());
        QVERIFY(*std::max_element(values.begin(), values.end()) >= 3000);

        cancelAt = -1;
        values.clear();
        preview.showDocument();
        QVERIFY(window()->isVisible());
        QVERIFY(values.size() > 20);
        QVERIFY(window()->pageCount() > 10);
        QVERIFY(!isProgress());

        QTemporaryDir folder;
        const QString file = folder.filePath(QStringLiteral("a.pdf"));
        values.clear();
        QVERIFY(window()->savePdf(file));
        QVERIFY(QFileInfo::exists(file));
        QVERIFY(*std::min_element(values.begin(), values.end()) >= 2000); // laid out already
        const qint64 size = QFileInfo(file).size();
        cancelAt = 2500;
        QVERIFY(!window()->savePdf(file));
        QCOMPARE(QFileInfo(file).size(), size); // the existing file is unchanged
        QCOMPARE(QDir(folder.path()).entryList(QDir::Files).size(), 1);
        cancelAt = 0;
        window()->findChild<QAction*>(QStringLiteral("portraitAction"))->setChecked(true);
        QVERIFY(!window()->isVisible()); // a part of the pages would be mistaken for the whole document
        QVERIFY(!isProgress());
    }

    void theButtonsAskAndSaveAndPrint()
    {
        Setup s;
        VrkPreview preview;
        preview.setView(&s.view);
        preview.setWindowTitle(QStringLiteral("Печать отчета"));
        QTemporaryDir folder;
        preview.setFile(folder.path(), QStringLiteral("ЦДС 2026-11-21 ночь"));
        preview.showDocument();
        const VrkPreviewWindow::Asking real = VrkPreviewWindow::asking();
        const FileSaver::Asking desktop = FileSaver::asking();
        QString answer;
        QString proposed;
        bool isPrinting = false;
        FileSaver::asking().file = [&](QWidget*, const FileSaver::Kind& kind, const QString& file) {
            proposed = file;
            return kind.title == QStringLiteral("Сохранение в PDF") || kind.suffix != QLatin1String("pdf")
                       ? answer
                       : QString();
        };
        VrkPreviewWindow::asking() = {[&](QWidget*, QPrinter* printer) {
            printer->setOutputFormat(QPrinter::PdfFormat);
            printer->setOutputFileName(folder.filePath(QStringLiteral("paper.pdf")));
            return isPrinting;
        }};
        const auto press = [](const char* name) {
            window()->findChild<QAction*>(QLatin1String(name))->trigger();
        };
        const auto begins = [&folder](const char* name) {
            QFile file(folder.filePath(QString::fromUtf8(name)));
            return file.open(QIODevice::ReadOnly) ? file.read(5) : QByteArray();
        };
        const auto* notice = window()->findChild<FileSaver*>(QStringLiteral("fileSaver"));

        press("pdfAction"); // cancelled
        QCOMPARE(QDir(folder.path()).entryList(QDir::Files), QStringList());
        QCOMPARE(proposed, folder.filePath(QStringLiteral("ЦДС 2026-11-21 ночь.pdf")));
        QVERIFY(!notice->isVisible());
        answer = folder.filePath(QStringLiteral("отчет"));
        press("pdfAction");
        QCOMPARE(begins("отчет.pdf"), QByteArray("%PDF-"));
        QVERIFY2(notice->text().startsWith(QStringLiteral("Сохранено: «отчет.pdf»")),
                 qPrintable(notice->text()));
        QCOMPARE(QDir(folder.path()).entryList(QDir::Files).size(), 1); // no other file

        press("htmlAction");
        QVERIFY(begins("отчет.html") == "<!DOC");
        const auto* htmlNotice = window()->findChild<FileSaver*>(QStringLiteral("htmlSaver"));
        QVERIFY(htmlNotice->isVisible() && !notice->isVisible()); // one line at a time

        press("tableAction");
        QVERIFY(begins("отчет.csv").startsWith("\xEF\xBB\xBF"));
        const auto* tableNotice = window()->findChild<FileSaver*>(QStringLiteral("tableSaver"));
        QVERIFY(tableNotice->isVisible() && !htmlNotice->isVisible());

        answer = folder.filePath(QStringLiteral("nowhere/отчет.pdf"));
        press("pdfAction");
        QVERIFY(!htmlNotice->isVisible());
        QCOMPARE(notice->text(), QStringLiteral("Файл «отчет.pdf» не сохранён: папки «nowhere» нет."));
        preview.showDocument(); // another document
        QVERIFY(!notice->isVisible());

        press("printAction"); // cancelled
        QVERIFY(!QFile::exists(folder.filePath(QStringLiteral("paper.pdf"))));
        isPrinting = true;
        press("printAction");
        VrkPreviewWindow::asking() = real;
        FileSaver::asking() = desktop;
        QCOMPARE(begins("paper.pdf"), QByteArray("%PDF-"));
    }

    void aNarrowWindowShowsAllItsButtons()
    {
        Setup s(3);
        VrkPreview preview;
        preview.setView(&s.view);
        preview.showDocument();
        for (const int width : {1200, 500, 1}) {
            window()->resize(width, window()->height());
            const auto* bar = window()->findChild<QWidget*>(QStringLiteral("previewBar"));
            const auto buttons = bar->findChildren<QToolButton*>();
            QCOMPARE(buttons.size(), 11);
            QTRY_COMPARE(bar->width(), qMax(width, window()->minimumWidth()));
            for (const QToolButton* button : buttons) {
                QVERIFY(button->isVisible());
                QTRY_VERIFY(bar->rect().contains(button->geometry()));
            }
        }
        window()->close();
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
        const QSize room = window()->screen()->availableSize();
        QVERIFY(window()->width() < room.width() && window()->height() < room.height());
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
