#include "ReportDialog.h"

#include "CVrkCliApp.h"
#include "CVrkLogBook.h"
#include "FileSaver.h"
#include "GenGuid32.h"
#include "HfnTime.h"
#include "RecordValue.h"
#include "TestJournal.h"
#include "UserSettings.h"
#include "VrkPreviewWindow.h"
#include "VrkTableDelegate.h"
#include "VrkTableProxyModel.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QHeaderView>
#include <QLabel>
#include <QProcess>
#include <QSettings>
#include <QStandardPaths>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>
#include <QToolBar>
#include <QToolButton>

class ReportDialog_test : public QObject
{
    Q_OBJECT

private:
    struct Report {
        explicit Report(const TestStore& store) : journal(store) {}
        ReportDialog* dialog() { return journal.module().findChild<ReportDialog*>(); }
        template <class Widget>
        Widget* child(const char* name)
        {
            return dialog()->findChild<Widget*>(QLatin1String(name));
        }
        QTableView* view() { return child<QTableView>("recordsTable"); }
        const VrkTableProxyModel* proxy() { return qobject_cast<VrkTableProxyModel*>(view()->model()); }
        int column(const char* field) { return proxy()->tableModel()->idxField(QLatin1String(field)); }
        QString title() { return child<QLabel>("titleLabel")->text(); }
        /// Texts of the headers of the visible columns, from left to right.
        QStringList headers()
        {
            QStringList all;
            const QHeaderView* header = view()->horizontalHeader();
            for (int visual = 0; visual < header->count(); ++visual)
                if (!header->isSectionHidden(header->logicalIndex(visual)))
                    all.append(proxy()->headerData(header->logicalIndex(visual), Qt::Horizontal).toString());
            return all;
        }
        void onlyApproved(bool on)
        {
            if (child<QToolButton>("onlyApprovedButton")->isChecked() != on)
                QTest::mouseClick(child<QToolButton>("onlyApprovedButton"), Qt::LeftButton);
        }
        VrkPreviewWindow* print()
        {
            QTest::mouseClick(child<QToolButton>("printButton"), Qt::LeftButton);
            return preview();
        }
        static VrkPreviewWindow* preview()
        {
            for (QWidget* window : QApplication::topLevelWidgets())
                if (auto* found = qobject_cast<VrkPreviewWindow*>(window))
                    return found;
            return nullptr;
        }

        TestJournal journal;
    };

    static QString stamp(double time)
    {
        return HfnTime_to_DateTime(time, -1).toString(QStringLiteral("dd.MM.yyyy hh:mm"));
    }

    static const VrkTableDelegate* dayLines(Report& report)
    {
        return qobject_cast<const VrkTableDelegate*>(report.view()->itemDelegate());
    }

    /// Without the day lines, which exist if the shift has passed midnight.
    static QVector<VrkPreviewTable::Row> recordsOf(const VrkPreviewTable& table)
    {
        QVector<VrkPreviewTable::Row> records;
        std::copy_if(table.rows.begin(), table.rows.end(), std::back_inserter(records),
                     [](const auto& row) { return !row.isDayLine; });
        return records;
    }

private slots:
    void init()
    {
        // Each test begins with the settings of nobody.
        m_settings = std::make_unique<QTemporaryDir>();
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_settings->path());
    }

    void showsTheApprovedRecordsOfTheShift()
    {
        const TestStore store;
        Report report(store);
        QVERIFY(!report.dialog()->isVisible());
        report.journal.tab().showReportDialog();
        QVERIFY(report.dialog()->isVisible());
        QCOMPARE(report.dialog()->windowTitle(), QStringLiteral("Отчет"));
        QCOMPARE(report.dialog()->size().boundedTo(QSize(900, 500)), report.dialog()->size());
        QCOMPARE(report.dialog()->height(), 500);
        QCOMPARE(report.proxy()->rowCount(), 5);
        QCOMPARE(report.headers(),
                 QStringList({QStringLiteral("Время\nзаписи"), QStringLiteral("Время\nсобытия"),
                              QStringLiteral("Автор"), QString(), QStringLiteral("Кто\nКому"),
                              QStringLiteral("Виза"), QStringLiteral("Время\nвыполнения"),
                              QStringLiteral("Текст")}));
        QVERIFY(report.proxy()
                    ->headerData(report.column("direction"), Qt::Horizontal, Qt::DecorationRole)
                    .isValid());
        const QModelIndex author = report.proxy()->index(0, report.column("WorkerKey"));
        QCOMPARE(author.data().toString(), QStringLiteral("Иванов И. И."));
        QVERIFY(report.child<QLabel>("titleLabel")->font().bold());
        QCOMPARE(report.child<QLabel>("titleLabel")->font().pointSize(), 10);
        QVERIFY(report.child<QLabel>("titleLabel")->minimumHeight() == 60);
    }

    void namesTheJournalAndThePeriod()
    {
        const TestStore store;
        Report report(store);
        report.journal.tab().showReportDialog();
        const MDRData* shift = report.journal.tab().currentWorkshift();
        const QString period = stamp(Row(shift).value("startTime").value.real) + QStringLiteral(" - ") +
                               stamp(Row(shift).value("endTime").value.real);
        QCOMPARE(report.title(), report.journal.tab().title() + QStringLiteral("\nСмена ") + period);

        const QDateTime from(QDate(2026, 1, 2), QTime(3, 4));
        const QDateTime to(QDate(2026, 1, 3), QTime(5, 6));
        report.journal.tab().uploadRecordsIn(from, to);
        report.journal.tab().showReportDialog();
        QCOMPARE(report.title(),
                 report.journal.tab().title() + QStringLiteral("\n02.01.2026 03:04 - 03.01.2026 05:06"));
        QCOMPARE(report.proxy()->rowCount(), 0);

        report.journal.tab().uploadRecordsIn(QStringLiteral("SHIFT_CDS_PAST"));
        report.journal.tab().showReportDialog();
        QVERIFY2(report.title().contains(QStringLiteral("\nСмена ")), qPrintable(report.title()));
        QVERIFY(!dayLines(report)->dayLine(0).isValid());
        report.journal.tab().uploadRecordsIn(QDateTime::currentDateTime().addDays(-3),
                                             QDateTime::currentDateTime());
        report.journal.tab().showReportDialog();
        QVERIFY(dayLines(report)->dayLine(0).isValid()); // an interval may begin on any day
    }

    void comesToTheFrontWhenItIsShownAgain()
    {
        struct Raised : QObject {
            bool eventFilter(QObject*, QEvent* event) override
            {
                count += event->type() == QEvent::ZOrderChange;
                return false;
            }
            int count = 0;
        } raised;
        const TestStore store;
        Report report(store);
        report.journal.tab().showReportDialog();
        report.dialog()->installEventFilter(&raised);
        report.journal.tab().showReportDialog();
        QCOMPARE(raised.count, 1);
    }

    void recordsStandInTheOrderOfTheirTime()
    {
        const TestStore store;
        QVERIFY(TestStore::write(store.openLoader().get(), "LogbookRecords", ROW_UPDATE, "REC_ORDER",
                                 {{"recordTime", TestStore::now() - 7 * 3600}})); // before the first one
        Report report(store);
        report.journal.tab().showReportDialog();
        const QModelIndex author = report.proxy()->index(0, report.column("WorkerKey"));
        QCOMPARE(author.data().toString(), QStringLiteral("Петров П. П."));
    }

    void namesNoPeriodWithoutAShift()
    {
        const TestStore store;
        TestJournal journal(store, QStringLiteral("smirnov"), "DEP_ODS");
        journal.tab().showReportDialog();
        auto* dialog = journal.module().findChild<ReportDialog*>();
        QCOMPARE(dialog->findChild<QLabel*>(QStringLiteral("titleLabel"))->text(),
                 journal.tab().title() + QStringLiteral("\nСмена "));
    }

    void showsAllRecordsWithTheirStatusOnDemand()
    {
        const TestStore store;
        Report report(store);
        report.journal.tab().showReportDialog();
        QVERIFY(report.child<QToolButton>("onlyApprovedButton")->isChecked());
        QCOMPARE(report.child<QToolButton>("onlyApprovedButton")->toolTip(),
                 QStringLiteral("Только утвержденные записи"));
        report.onlyApproved(false);
        QCOMPARE(report.proxy()->rowCount(), 8);
        QCOMPARE(report.headers().first(), QStringLiteral("Статус"));
        const int text = report.column("html");
        bool isStruck = false;
        for (int row = 0; row < 8; ++row)
            isStruck |= report.proxy()->index(row, text).data(Qt::FontRole).value<QFont>().strikeOut();
        QVERIFY(isStruck); // the deleted one
        report.onlyApproved(true);
        QCOMPARE(report.proxy()->rowCount(), 5);
        QCOMPARE(report.headers().size(), 8);
    }

    void staysUnchangedWhileTheJournalChanges()
    {
        const TestStore store;
        Report report(store);
        report.journal.tab().showReportDialog();
        report.journal.select("REC_ORDER");
        report.journal.tab().deleteRecordRequest();
        report.journal.press(QDialogButtonBox::YesRole);
        report.journal.deliver();
        QCOMPARE(report.proxy()->rowCount(), 5);
        report.journal.tab().showReportDialog();
        QCOMPARE(report.proxy()->rowCount(), 4); // each record once
    }

    void keepsItsRecordsWithoutATable()
    {
        const TestStore store;
        Report report(store);
        report.journal.tab().showReportDialog();
        report.dialog()->setRecordsTable(nullptr);
        QCOMPARE(report.dialog()->lastError(), -3);
        QCOMPARE(report.proxy()->rowCount(), 5);
    }

    void printsWhatItShowsWithTheTitleAtTheEnd()
    {
        const TestStore store;
        Report report(store);
        report.journal.tab().showReportDialog();
        QTest::keyClick(report.dialog(), Qt::Key_P, Qt::ControlModifier);
        VrkPreviewWindow* preview = Report::preview();
        QVERIFY(preview && preview->isVisible());
        preview->close();
        preview = report.print();
        QVERIFY(preview && preview->isVisible());
        QCOMPARE(preview->windowTitle(), QStringLiteral("Печать отчета"));
        QCOMPARE(preview->table().footer, report.title());
        QCOMPARE(preview->table().maxColumnWidth, 100);
        QCOMPARE(preview->table().headerBackground, QColor(Qt::gray));
        const VrkPreviewTable approved = preview->table();
        QCOMPARE(recordsOf(approved).size(), 5);
        for (const VrkPreviewTable::Row& row : recordsOf(approved))
            QVERIFY(row.day.isValid() && qAbs(row.day.daysTo(QDate::currentDate())) <= 2);
        QCOMPARE(preview->table().header.cells.size(), 8);
        QCOMPARE(recordsOf(approved)[0].cells[2].text, QStringLiteral("Иванов И.\u00A0И."));
        report.onlyApproved(false);
        const VrkPreviewTable all = report.print()->table();
        QCOMPARE(all.header.cells[0].text, QStringLiteral("Статус"));
        QCOMPARE(recordsOf(all).size(), 8);
        QVERIFY(!recordsOf(all)[0].cells[0].icon.isNull());
    }

    void proposesAFileOfTheShiftInTheReportsFolder()
    {
        const TestStore store;
        const QTemporaryDir folder;
        Report report(store);
        report.journal.client().app().settings()->setValue(Setting::reportFolder, folder.path());
        const FileSaver::Asking desktop = FileSaver::asking();
        QString proposed;
        FileSaver::asking().file = [&](QWidget*, const FileSaver::Kind&, const QString& file) {
            proposed = file;
            return QString();
        };
        const auto proposal = [&] {
            report.journal.tab().showReportDialog();
            report.print()->findChild<QAction*>(QStringLiteral("pdfAction"))->trigger();
            return QDir(folder.path()).relativeFilePath(proposed);
        };
        const auto shiftAt = [&](const QTime& time) {
            const double start = DateTime_To_HfnTime(QDateTime(QDate(2020, 11, 21), time));
            TestStore::write(store.openLoader().get(), "LogbookWorkshifts", ROW_INSERT, GenGuid32(),
                             {{"DepartmentKey", "DEP_CDS"}, {"startTime", start}, {"endTime", start + 3600}});
            const QVariant key =
                store.value(QStringLiteral("SELECT KeyLink FROM LogbookWorkshifts WHERE startTime = %1")
                                .arg(start, 0, 'f', 0));
            report.journal.tab().uploadRecordsIn(key.toString());
            return proposal();
        };
        QCOMPARE(shiftAt(QTime(20, 0)), QStringLiteral("ЦДС 2020-11-21 Ночная.pdf")); // in the timetable
        QCOMPARE(shiftAt(QTime(19, 30)), QStringLiteral("ЦДС 2020-11-21 ночь.pdf"));
        QCOMPARE(shiftAt(QTime(9, 15)), QStringLiteral("ЦДС 2020-11-21 день.pdf"));
        report.journal.tab().uploadRecordsIn(QDateTime(QDate(2026, 1, 2), QTime(3, 4)),
                                             QDateTime(QDate(2026, 1, 3), QTime(5, 6)));
        QCOMPARE(proposal(), QStringLiteral("ЦДС 2026-01-02 - 2026-01-03.pdf"));
        report.journal.tab().uploadRecordsIn(QDateTime(QDate(2026, 1, 2), QTime(3, 4)),
                                             QDateTime(QDate(2026, 1, 2), QTime(5, 6)));
        QCOMPARE(proposal(), QStringLiteral("ЦДС 2026-01-02.pdf"));
        FileSaver::asking() = desktop;
    }

    void givesPdfWithTextThatCanBeFound()
    {
        const QString reader = QStandardPaths::findExecutable(QStringLiteral("pdftotext"));
        if (reader.isEmpty())
            QSKIP("no reader of PDF here");
        const TestStore store;
        Report report(store);
        report.journal.tab().showReportDialog();
        QTemporaryDir folder;
        const QString file = folder.filePath(QStringLiteral("отчет.pdf"));
        VrkPreviewWindow* preview = report.print();
        VrkPreviewTable table = preview->table();
        table.imprint = QStringLiteral("Опечатано: 12 abababababababab");
        QVERIFY(preview->setTable(table) && preview->savePdf(file));
        QProcess process;
        process.start(reader, {file, QStringLiteral("-")});
        QVERIFY(process.waitForFinished());
        const QString text = QString::fromUtf8(process.readAllStandardOutput());
        QVERIFY2(text.contains(QStringLiteral("Иванов")), qPrintable(text));
        QVERIFY(text.contains(QStringLiteral("Страница 1 из 1")));
        QVERIFY(text.contains(table.imprint));
        for (const char* part : {"Время", "Кто", "Кому", "Виза", "Сидорова"})
            QVERIFY2(text.contains(QString::fromUtf8(part)), qPrintable(text));
        for (const QString& line : report.title().split(QLatin1Char('\n')))
            QVERIFY2(text.contains(line), qPrintable(text));
    }

    void namesTheNewestSealOnEachPage()
    {
        const TestStore store;
        Report report(store);
        report.journal.tab().showReportDialog();
        QCOMPARE(report.print()->table().imprint, QString()); // nobody seals
        const QByteArray root = QByteArray(32, '\xAB');
        for (const int size : {7, 12})
            QCOMPARE(store.exec(QStringLiteral(
                                    "INSERT INTO LogHeads (size, note) VALUES (%1, 'vrk-logbook/E\n%1\n%2\n\n"
                                    "\u2014 seal-1 AAAAAAA=\n')")
                                    .arg(size)
                                    .arg(QString::fromLatin1(root.toBase64()))),
                     QString());
        QCOMPARE(report.print()->table().imprint, QStringLiteral("Опечатано: 12 abababababababab"));
        QCOMPARE(report.print()->table().code, QByteArray());
        report.journal.client().app().settings()->setValue(Setting::reportCode, true);
        QCOMPARE(report.print()->table().code, QByteArray("12 abababababababab"));
    }

    void aTelephoneReadsTheSealFromThePaper()
    {
        const TestStore store;
        Report report(store);
        report.journal.tab().showReportDialog();
        VrkPreviewWindow* preview = report.print();
        VrkPreviewTable table = preview->table();
        table.imprint = QStringLiteral("Опечатано: 12 abababababababab");
        table.code = "12 abababababababab";
        const QTemporaryDir folder;
        const QString file = folder.filePath(QStringLiteral("report.pdf"));
        QVERIFY(preview->setTable(table) && preview->savePdf(file));
        QCOMPARE(QProcess::execute(QStringLiteral("pdftoppm"),
                                   {QStringLiteral("-r"), QStringLiteral("150"), QStringLiteral("-png"), file,
                                    folder.filePath(QStringLiteral("page"))}),
                 0);
        const QStringList pages = QDir(folder.path()).entryList({QStringLiteral("page*.png")});
        QVERIFY(!pages.isEmpty());
        for (const QString& page : pages) {
            QProcess camera;
            camera.start(QStringLiteral("zbarimg"),
                         {QStringLiteral("--raw"), QStringLiteral("-q"), folder.filePath(page)});
            QVERIFY(camera.waitForFinished());
            QCOMPARE(camera.readAllStandardOutput().trimmed(), table.code);
        }
    }

    void opensFromTheBarAndByCtrlP()
    {
        const TestStore store;
        TestClient client(store);
        CVrkLogBook window(&client.app());
        QVERIFY(window.ModuleStart());
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        auto* dialog = window.findChild<ReportDialog*>();
        QTest::mouseClick(window.findChild<QToolButton*>(QStringLiteral("reportButton")), Qt::LeftButton);
        QVERIFY(dialog->isVisible());
        QTest::keyClick(dialog, Qt::Key_Escape);
        QVERIFY(!dialog->isVisible());
        window.activateWindow();
        QTRY_COMPARE(QApplication::activeWindow(), &window);
        QTest::keyClick(window.findChild<QTableView*>(QStringLiteral("recordsTable")), Qt::Key_P,
                        Qt::ControlModifier);
        QTRY_VERIFY(dialog->isVisible()); // a shortcut presses the button for a moment
    }

private:
    std::unique_ptr<QTemporaryDir> m_settings;
};

QTEST_MAIN(ReportDialog_test)
#include "ReportDialog_test.moc"
