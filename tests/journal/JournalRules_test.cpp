#include "JournalRules.h"

#include "HtmlParser.h"
#include "MadeTable.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QTest>

/// The rules without a page or a store: each test states a workshift and a record.
class JournalRules_test : public QObject
{
    Q_OBJECT

private:
    /// An open workshift of the user, and one record.
    struct Page : JournalRules {
        Page()
        {
            m_shown.census.setWorkerKey("ME");
            m_shown.mode = ShownJournal::RealTime;
            m_shown.workshift = workshifts.add({{"KeyLink", "SHIFT"}, {"OpenWorkerKey", "ME"}});
        }
        MDRData* currentRecord() const override { return record; }
        ShownJournal& shown() { return m_shown; }
        void shift(const char* field, const MadeValue& value)
        {
            workshifts.set(m_shown.workshift, field, value);
        }
        void member(const char* workshift, const char* worker, int isOpening)
        {
            MadeTable crew("LogbookWorkersWorkshift", LogbookWorkersWorkshiftFields, "KeyLink");
            crew.add({{"KeyLink", "ROW"},
                      {"WorkshiftKey", workshift},
                      {"WorkerKey", worker},
                      {"opening", isOpening}});
            MDACopy(m_shown.crew.data.array, crew.data.array, 1);
        }
        void is(int status, const char* author = "ME", const QString& html = QStringLiteral("text"))
        {
            record = records.add({{"status", status}, {"WorkerKey", author}, {"html", html}});
        }

        MadeTable workshifts{"LogbookWorkshifts", LogbookWorkshiftFields};
        MadeTable records{"LogbookRecords", LogbookRecordExtFields};
        MDRData* record = nullptr;
    };
    static QString html(const char* property)
    {
        HtmlParser parser("text");
        parser.setTemplateProperty(property, std::string("value"));
        return QString::fromStdString(parser.readyHtml(true));
    }

private slots:
    void workshiftIsOpenUntilSomebodyClosesIt()
    {
        Page page;
        QVERIFY(page.isOpenWorkshift() && !page.isCloseWorkshift());
        page.shift("CloseWorkerKey", "");
        QVERIFY(page.isOpenWorkshift() && !page.isCloseWorkshift());
        page.shift("CloseWorkerKey", "ME");
        QVERIFY(!page.isOpenWorkshift() && page.isCloseWorkshift());
        page.shown().workshift = nullptr;
        QVERIFY(!page.isOpenWorkshift() && page.isCloseWorkshift() && !page.isWorkerInWorkshift());
    }

    void crewThatOpenedTheShiftWorksInIt()
    {
        Page page;
        QVERIFY(page.isWorkerInWorkshift());
        page.shift("OpenWorkerKey", "OTHER");
        QVERIFY(!page.isWorkerInWorkshift());
        page.member("SHIFT", "ME", 0);
        QVERIFY(!page.isWorkerInWorkshift());
        page.member("FORMER", "ME", 1);
        QVERIFY(!page.isWorkerInWorkshift());
        page.member("SHIFT", "OTHER", 1);
        QVERIFY(!page.isWorkerInWorkshift());
        page.member("SHIFT", "ME", 1);
        QVERIFY(page.isWorkerInWorkshift());
    }

    void onlyTheShiftOfThePresentIsEditable()
    {
        Page page;
        page.is(StatusDraft);
        for (const ShownJournal::Mode mode :
             {ShownJournal::NothingLoaded, ShownJournal::RealTime, ShownJournal::ArchiveInterval,
              ShownJournal::ArchiveWorkshift}) {
            page.shown().mode = mode;
            const bool isPresent = mode == ShownJournal::RealTime;
            QCOMPARE(page.mode(), static_cast<int>(mode));
            QCOMPARE(page.isEditableWorkshift(), isPresent);
            QCOMPARE(page.isRecordCreatable(), isPresent);
            QCOMPARE(page.isHideDraft(), !isPresent);
            QCOMPARE(page.isRecordDraft(), isPresent);
            QCOMPARE(page.isRecordDeletable(), isPresent);
            QCOMPARE(page.isSelectedWorkshift(), isPresent || mode == ShownJournal::ArchiveWorkshift);
        }
    }

    void statusDecidesWhatARecordAllows()
    {
        Page page;
        QVERIFY(!page.isRecordDraft() && !page.isRecordDeletable() && !page.isRecordSignable());
        page.is(StatusDraft, "OTHER");
        QVERIFY(page.isRecordDraft() && page.isRecordDeletable() && !page.isRecordSignable());
        page.is(StatusApproved, "OTHER");
        QVERIFY(!page.isRecordDraft() && page.isRecordDeletable() && page.isRecordSignable());
        page.is(StatusDeleted, "OTHER");
        QVERIFY(!page.isRecordDraft() && !page.isRecordDeletable() && !page.isRecordSignable());
        page.is(StatusApproved, "ME");
        QVERIFY(!page.isRecordSignable());
    }

    void draftsCountOnlyInAnEditableShift()
    {
        Page page;
        page.is(StatusDraft);
        page.shown().census.put(page.record);
        QVERIFY(page.isExistDrafts() && page.isExistMyDrafts() && !page.isExistNoSign());
        page.shown().mode = ShownJournal::ArchiveWorkshift;
        QVERIFY(!page.isExistDrafts() && !page.isExistMyDrafts());
        page.is(StatusApproved, "OTHER");
        page.shown().census.put(page.record);
        QVERIFY(page.isExistNoSign());
    }

    void propertiesOfTheTemplateAllowMarks()
    {
        Page page;
        page.is(StatusDraft);
        QVERIFY(!page.isFirstMarkSettable() && !page.isSecondMarkSettable() &&
                !page.isTimeExecutionChangable());
        page.is(StatusApproved, "ME", html("first_mark"));
        QVERIFY(page.isFirstMarkSettable());
        page.is(StatusApproved, "ME", html("second_mark"));
        QVERIFY(!page.isSecondMarkSettable());
        page.is(StatusDraft, "ME", html("second_mark"));
        QVERIFY(page.isSecondMarkSettable());
        page.is(StatusApproved, "ME", html("time_exec"));
        QVERIFY(page.isTimeExecutionChangable());
        page.is(StatusDeleted, "ME", html("time_exec"));
        QVERIFY(!page.isTimeExecutionChangable());
    }

    void approvedRecordsAreCopiedExceptThoseOfShifts()
    {
        Page page;
        page.is(StatusApproved);
        QVERIFY(page.isRecordCopyable());
        page.is(StatusDraft);
        QVERIFY(!page.isRecordCopyable());
        page.is(StatusApproved, "ME", html("open_wshift"));
        QVERIFY(!page.isRecordCopyable());
        page.is(StatusApproved, "ME", html("close_wshift"));
        QVERIFY(!page.isRecordCopyable());
    }

    void recordIsPastedOnlyIntoAnEditableShift()
    {
        Page page;
        QGuiApplication::clipboard()->clear();
        QVERIFY(!page.isRecordPastable());
        auto* record = new QMimeData;
        record->setData(QStringLiteral("logbook_record"), "LogbookRecords;KEY");
        QGuiApplication::clipboard()->setMimeData(record);
        QVERIFY(page.isRecordPastable());
        page.shown().mode = ShownJournal::ArchiveWorkshift;
        QVERIFY(!page.isRecordPastable());
    }
};

QTEST_MAIN(JournalRules_test)
#include "JournalRules_test.moc"
