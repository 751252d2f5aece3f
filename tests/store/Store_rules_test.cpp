#include "CMDArray.h"
#include "GenGuid32.h"
#include "StoreAdmin.h"
#include "TableCatalog.h"
#include "TestStore.h"
#include "WriterOfRules.h"

#include <QTest>

/// Who may write what: one test for each rule, with each column of a table.
class Store_rules_test : public QObject, private WriterOfRules
{
    Q_OBJECT

    static Fields newWorkshift(const char* department, const char* opener, double start)
    {
        return {{"DepartmentKey", department},
                {"OpenWorkerKey", opener},
                {"createdAt", start},
                {"startTime", start},
                {"endTime", start + 3600}};
    }
    static constexpr const char* notTheAuthor = "Автором записи может быть только тот, кто её вносит.";
    static TestStore::Row gone(const char* key)
    {
        return {"LogbookRecords", ROW_UPDATE, key, {{"status", 2}}};
    }
    /// The rows that the journal writes when the execution time of an approved record is set.
    TestStore::Row successor(const char* origin, const char* key = "NEW") const
    {
        TestStore::Row row{"LogbookRecords", ROW_INSERT, key, {}};
        const auto old = m_files
                             ->rows(QStringLiteral("SELECT * FROM LogbookRecords WHERE KeyLink='%1'")
                                        .arg(QLatin1String(origin)))
                             .value(0);
        const auto& fields = TableCatalog::table("LogbookRecords")->fields;
        for (int i = 1; i < fields.size(); ++i)
            row.fields.push_back({fields.at(i).name.constData(), old.value(i)});
        for (const TestStore::Field& field : Fields{{"status", 0},
                                                    {"OriginRecordKey", origin},
                                                    {"VisaWorkerKey", nullptr},
                                                    {"executionTime", 9}})
            row.fields.push_back(field);
        return row;
    }
    static double openEnd() { return TestStore::now() + 18 * 3600; } ///< of SHIFT_CDS_OPEN

private slots:
    void init() { reset(); }

    void nobodyWritesWithoutSigningIn()
    {
        const auto store = m_files->open(QString());
        StoreError error;
        QVERIFY(!TestStore::write(store.get(), "LogbookComments", ROW_UPDATE, "COM_READ", {{"readedTime", 1}},
                                  &error));
        QCOMPARE(error.code, StoreError::Refused);
        QCOMPARE(error.text, QString::fromUtf8("Вход в хранилище не выполнен."));
    }

    void removedLoginCannotWrite()
    {
        const auto store = m_files->open(QStringLiteral("petrov"));
        const auto comment = [&](const char* key) {
            StoreError error;
            const bool done =
                TestStore::write(store.get(), "LogbookComments", ROW_INSERT, key,
                                 {{"WorkerKey", "WORKER_PETROV"}, {"RecordKey", "REC_ORDER"}}, &error);
            m_refusal = error.text;
            return done;
        };
        QVERIFY(comment("A"));
        load("Users", ROW_UPDATE, "USER_PETROV", {{"deleted_", 1}});
        QVERIFY(!comment("B"));
        QCOMPARE(m_refusal, QString::fromUtf8("Комментарий пишут от своего имени."));
    }

    // Workshifts

    void workshiftIsOpenedForTheOwnDepartmentWithTheOwnKey()
    {
        const char* text = "Смену открывают от своего имени и в своём подразделении.";
        QVERIFY(!write("petrov", "LogbookWorkshifts", ROW_INSERT, "S",
                       newWorkshift("DEP_CDS", "WORKER_IVANOV", openEnd())));
        QCOMPARE(m_refusal, QString::fromUtf8(text));
        QVERIFY(!write("petrov", "LogbookWorkshifts", ROW_INSERT, "S",
                       newWorkshift("DEP_ODS", "WORKER_PETROV", openEnd())));
        QVERIFY(!write("smirnov", "LogbookWorkshifts", ROW_INSERT, "S",
                       newWorkshift("DEP_ODS", "WORKER_SMIRNOV_ZAR", openEnd())));
        QVERIFY(
            !write("viewer", "LogbookWorkshifts", ROW_INSERT, "S", newWorkshift("DEP_ODS", "", openEnd())));
        QVERIFY(!write("kuznetsov", "LogbookWorkshifts", ROW_INSERT, "S",
                       newWorkshift("DEP_CDS", "WORKER_KUZNETSOV", openEnd())));
        QVERIFY(write("smirnov", "LogbookWorkshifts", ROW_INSERT, "S",
                      newWorkshift("DEP_ODS", "WORKER_SMIRNOV_ODS", 1)));
    }

    void workshiftBeginsNotBeforeTheEndOfTheLatestOne()
    {
        QVERIFY(!write("petrov", "LogbookWorkshifts", ROW_INSERT, "S",
                       newWorkshift("DEP_CDS", "WORKER_PETROV", openEnd() - 1)));
        QCOMPARE(m_refusal, QString::fromUtf8(
                                "Смена не может начаться раньше окончания предыдущей смены подразделения."));
        // At its very end it is allowed, and two shifts may be open.
        QVERIFY(write("petrov", "LogbookWorkshifts", ROW_INSERT, "S",
                      newWorkshift("DEP_CDS", "WORKER_PETROV", openEnd())));
        QCOMPARE(value("SELECT count(*) FROM LogbookWorkshifts WHERE DepartmentKey='DEP_CDS' AND "
                       "CloseWorkerKey IS NULL")
                     .toInt(),
                 2);
    }

    void workshiftIsNoLongerThanTheLimit()
    {
        const auto open = [this](double seconds) {
            Fields fields = newWorkshift("DEP_ODS", "WORKER_SMIRNOV_ODS", 1000);
            fields.back() = {"endTime", 1000 + seconds};
            const bool done = write("smirnov", "LogbookWorkshifts", ROW_INSERT, "S", fields);
            if (done)
                load("LogbookWorkshifts", ROW_DELETE, "S");
            return done;
        };
        QVERIFY(open(48 * 3600));
        QVERIFY(!open(48 * 3600 + 1));
        QCOMPARE(m_refusal, QString::fromUtf8(
                                "Смена длиннее, чем разрешено в этом журнале. Проверьте её начало и конец."));
        QVERIFY(!open(1e300));
        QCOMPARE(m_files->open(QStringLiteral("smirnov"))->longestShift(), 48 * 3600);
        StoreError error;
        QVERIFY2(StoreAdmin::setLongestShift(m_files->url(), 3600, &error), qPrintable(error.text));
        QVERIFY(!open(3601));
        QVERIFY(open(3600));
        QCOMPARE(m_files->open(QStringLiteral("smirnov"))->longestShift(), 3600);
        // Without a start its length is the time since 1970.
        Fields endless = newWorkshift("DEP_ODS", "WORKER_SMIRNOV_ODS", 1000);
        endless[3] = {"startTime", nullptr};
        endless.back() = {"endTime", 4e9};
        QVERIFY(!write("smirnov", "LogbookWorkshifts", ROW_INSERT, "S", endless));
    }

    void workshiftIsNotInsertedClosed()
    {
        Fields fields = newWorkshift("DEP_CDS", "WORKER_PETROV", openEnd());
        fields.push_back({"CloseWorkerKey", "WORKER_PETROV"});
        QVERIFY(!write("petrov", "LogbookWorkshifts", ROW_INSERT, "S", fields));
        fields.back() = {"CloseWorkerKey", ""};
        QVERIFY(write("petrov", "LogbookWorkshifts", ROW_INSERT, "S", fields));
    }

    void workshiftIsClosedOnceByAWorkerOfIt()
    {
        const auto close = [this](const char* login, const char* worker) {
            return write(login, "LogbookWorkshifts", ROW_UPDATE, "SHIFT_CDS_OPEN",
                         {{"CloseWorkerKey", worker}});
        };
        QVERIFY(!close("sidorova", "WORKER_SIDOROVA")); // in the department, not in the shift
        QVERIFY(!close("petrov", "WORKER_IVANOV"));
        QVERIFY(!close("smirnov", "WORKER_SMIRNOV_ZAR"));
        QVERIFY(close("petrov", "WORKER_PETROV"));
        QVERIFY(!close("ivanov", "WORKER_IVANOV"));
        QCOMPARE(m_refusal, QString::fromUtf8("Смена уже закрыта."));
        QVERIFY(!close("petrov", ""));
        QVERIFY(
            write("petrov", "LogbookWorkshifts", ROW_UPDATE, "SHIFT_CDS_OPEN")); // an update without a change
    }

    void crewRowWithoutOpeningIsNotInTheShift()
    {
        load("LogbookWorkersWorkshift", ROW_INSERT, "C",
             {{"WorkshiftKey", "SHIFT_CDS_OPEN"}, {"WorkerKey", "WORKER_SIDOROVA"}, {"opening", 0}});
        QVERIFY(!write("sidorova", "LogbookWorkshifts", ROW_UPDATE, "SHIFT_CDS_OPEN",
                       {{"CloseWorkerKey", "WORKER_SIDOROVA"}}));
        QVERIFY(!write("sidorova", "LogbookRecords", ROW_INSERT, "R",
                       newRecord("SHIFT_CDS_OPEN", "WORKER_SIDOROVA", 1)));
        QVERIFY(!write("sidorova", "LogbookRecords", ROW_DELETE, "REC_DRAFT_IVANOV"));
    }

    void openerNeedsNoCrewRow()
    {
        load("LogbookWorkersWorkshift", ROW_DELETE, "CREW_CDS_1");
        QVERIFY(write("ivanov", "LogbookWorkshifts", ROW_UPDATE, "SHIFT_CDS_OPEN",
                      {{"CloseWorkerKey", "WORKER_IVANOV"}}));
    }

    void nothingElseOfAWorkshiftChanges()
    {
        for (const CatalogField& field : TableCatalog::table("LogbookWorkshifts")->fields) {
            if (field.name == "KeyLink" || field.name == "CloseWorkerKey")
                continue;
            QVERIFY2(!write("ivanov", "LogbookWorkshifts", ROW_UPDATE, "SHIFT_CDS_OPEN",
                            {other(field.name.constData(), field.type)}),
                     field.name.constData());
            QCOMPARE(m_refusal, QString::fromUtf8("У смены меняется только отметка о её закрытии."));
        }
    }

    void workshiftIsDeletedByItsOpenerWhileOpenAndEmpty()
    {
        load("LogbookWorkshifts", ROW_INSERT, "S", newWorkshift("DEP_CDS", "WORKER_IVANOV", openEnd()));
        QVERIFY(!write("petrov", "LogbookWorkshifts", ROW_DELETE, "S"));
        QVERIFY(!write("ivanov", "LogbookWorkshifts", ROW_DELETE, "SHIFT_CDS_OPEN")); // has records
        load("LogbookWorkshifts", ROW_UPDATE, "S", {{"CloseWorkerKey", "WORKER_IVANOV"}});
        QVERIFY(!write("ivanov", "LogbookWorkshifts", ROW_DELETE, "S"));
        load("LogbookWorkshifts", ROW_UPDATE, "S", {{"CloseWorkerKey", nullptr}});
        load("LogbookWorkersWorkshift", ROW_INSERT, "C",
             {{"WorkshiftKey", "S"}, {"WorkerKey", "WORKER_PETROV"}, {"opening", 1}});
        QVERIFY(write("ivanov", "LogbookWorkshifts", ROW_DELETE, "S"));
        QCOMPARE(value("SELECT count(*) FROM LogbookWorkersWorkshift WHERE KeyLink='C'").toInt(), 0);
    }

    // Crew

    void crewOfTheOpenShiftIsChangedFromWithin()
    {
        const Fields row = {
            {"WorkshiftKey", "SHIFT_CDS_OPEN"}, {"WorkerKey", "WORKER_SIDOROVA"}, {"opening", 1}};
        QVERIFY(!write("sidorova", "LogbookWorkersWorkshift", ROW_INSERT, "C", row));
        QVERIFY(!write("smirnov", "LogbookWorkersWorkshift", ROW_INSERT, "C", row));
        QVERIFY(write("petrov", "LogbookWorkersWorkshift", ROW_INSERT, "C", row)); // for any worker
        QVERIFY(!write("smirnov", "LogbookWorkersWorkshift", ROW_DELETE, "C"));
        QVERIFY(write("sidorova", "LogbookWorkersWorkshift", ROW_DELETE, "C")); // who belongs to it now
        const Fields past = {
            {"WorkshiftKey", "SHIFT_CDS_PAST"}, {"WorkerKey", "WORKER_SIDOROVA"}, {"opening", 1}};
        QVERIFY(!write("ivanov", "LogbookWorkersWorkshift", ROW_INSERT, "C", past));
    }

    void closingWorkerNamesHisSuccessor()
    {
        const Fields row = {
            {"WorkshiftKey", "SHIFT_CDS_OPEN"}, {"WorkerKey", "WORKER_SIDOROVA"}, {"opening", 0}};
        QVERIFY(!write("petrov", "LogbookWorkersWorkshift", ROW_INSERT, "C", row)); // not closed yet
        QVERIFY(write("petrov", "LogbookWorkshifts", ROW_UPDATE, "SHIFT_CDS_OPEN",
                      {{"CloseWorkerKey", "WORKER_PETROV"}}));
        QVERIFY(!write("ivanov", "LogbookWorkersWorkshift", ROW_INSERT, "C", row));
        QVERIFY(write("petrov", "LogbookWorkersWorkshift", ROW_INSERT, "C", row));
        QVERIFY(!write("ivanov", "LogbookWorkersWorkshift", ROW_DELETE, "C"));
        QVERIFY(write("petrov", "LogbookWorkersWorkshift", ROW_DELETE, "C"));
    }

    void crewRowsDoNotChange()
    {
        for (const TestStore::Field& field :
             Fields{{"WorkshiftKey", "SHIFT_ZAR_OPEN"}, {"WorkerKey", "WORKER_SIDOROVA"}, {"opening", 0}})
            QVERIFY2(!write("ivanov", "LogbookWorkersWorkshift", ROW_UPDATE, "CREW_CDS_2", {field}),
                     field.name);
        QVERIFY(write("ivanov", "LogbookWorkersWorkshift", ROW_UPDATE, "CREW_CDS_2"));
    }

    // Records

    void recordsAreInsertedInTheOpenShiftByItsWorkers()
    {
        QVERIFY(write("ivanov", "LogbookRecords", ROW_INSERT, "R1",
                      newRecord("SHIFT_CDS_OPEN", "WORKER_IVANOV", 1)));
        QVERIFY(write("petrov", "LogbookRecords", ROW_INSERT, "R2",
                      newRecord("SHIFT_CDS_OPEN", "WORKER_PETROV", 0)));
        QVERIFY(!write("sidorova", "LogbookRecords", ROW_INSERT, "R3",
                       newRecord("SHIFT_CDS_OPEN", "WORKER_SIDOROVA", 1)));
        QCOMPARE(m_refusal, QString::fromUtf8("Записи вносят работники открытой смены."));
        QVERIFY(!write("ivanov", "LogbookRecords", ROW_INSERT, "R3",
                       newRecord("SHIFT_CDS_PAST", "WORKER_IVANOV", 1)));
        QVERIFY(!write("ivanov", "LogbookRecords", ROW_INSERT, "R3",
                       newRecord("SHIFT_ZAR_OPEN", "WORKER_IVANOV", 1)));
        QVERIFY(!write("viewer", "LogbookRecords", ROW_INSERT, "R3", newRecord("SHIFT_CDS_OPEN", "", 1)));
    }

    void recordsAreInsertedAsDraftsOrApproved()
    {
        QVERIFY(!write("ivanov", "LogbookRecords", ROW_INSERT, "R",
                       newRecord("SHIFT_CDS_OPEN", "WORKER_IVANOV", 2)));
        QCOMPARE(m_refusal, QString::fromUtf8("Новая запись может быть только черновиком или утверждённой."));
        QVERIFY(!write("ivanov", "LogbookRecords", ROW_INSERT, "R",
                       newRecord("SHIFT_CDS_OPEN", "WORKER_IVANOV", 3)));
        QVERIFY(!write("ivanov", "LogbookRecords", ROW_INSERT, "R",
                       {{"ShiftKey", "SHIFT_CDS_OPEN"}, {"WorkerKey", "WORKER_IVANOV"}}));
    }

    void authorIsTheWriter()
    {
        Fields record = newRecord("SHIFT_CDS_OPEN", "WORKER_PETROV", 0);
        QVERIFY(!write("ivanov", "LogbookRecords", ROW_INSERT, "R", record));
        QCOMPARE(m_refusal, QString::fromUtf8(notTheAuthor));
        record[1] = {"WorkerKey", nullptr};
        QVERIFY(!write("ivanov", "LogbookRecords", ROW_INSERT, "R", record));
    }

    void newRecordCarriesNoVisaButOldTimesAndForeignMarkers()
    {
        Fields record = newRecord("SHIFT_CDS_OPEN", "WORKER_IVANOV", 1);
        record.push_back({"SecondMarkWorkerKey", "WORKER_SMIRNOV_ZAR"});
        record.push_back({"secondMarkTime", 5});
        record.push_back({"recordTime", 5});
        record.push_back({"OriginRecordKey", "NOWHERE"});
        record.push_back({"VisaWorkerKey", "WORKER_IVANOV"});
        QVERIFY(!write("ivanov", "LogbookRecords", ROW_INSERT, "R", record));
        QCOMPARE(m_refusal, QString::fromUtf8("Новая запись не может нести визу."));
        record.back() = {"VisaWorkerKey", nullptr};
        QVERIFY(write("ivanov", "LogbookRecords", ROW_INSERT, "R", record));
    }

    void draftsAreEditedByAnybodyInTheOpenShift()
    {
        const Fields edit = {{"html", "edited"},   {"eventTime", 5}, {"firstMarkTime", 6},
                             {"executionTime", 7}, {"direction", 2}, {"ReceiverWorkerKey", "WORKER_IVANOV"},
                             {"recordTime", 8}};
        for (const TestStore::Field& field : edit) {
            QVERIFY2(write("petrov", "LogbookRecords", ROW_UPDATE, "REC_DRAFT_IVANOV", {field}), field.name);
            QVERIFY2(!write("sidorova", "LogbookRecords", ROW_UPDATE, "REC_DRAFT_PETROV", {field}),
                     field.name);
            QCOMPARE(m_refusal, QString::fromUtf8("Записи изменяют работники открытой смены."));
        }
        QVERIFY(!write("petrov", "LogbookRecords", ROW_UPDATE, "REC_DRAFT_IVANOV",
                       {{"WorkerKey", "WORKER_PETROV"}}));
        QVERIFY(!write("petrov", "LogbookRecords", ROW_UPDATE, "REC_DRAFT_IVANOV",
                       {{"ShiftKey", "SHIFT_ZAR_OPEN"}}));
        QVERIFY(!write("sidorova", "LogbookRecords", ROW_UPDATE, "REC_DRAFT_IVANOV",
                       {{"VisaWorkerKey", "WORKER_SIDOROVA"}}));
    }

    void draftsOfAClosedShiftStay()
    {
        load("LogbookWorkshifts", ROW_UPDATE, "SHIFT_CDS_OPEN", {{"CloseWorkerKey", "WORKER_IVANOV"}});
        QVERIFY(!write("ivanov", "LogbookRecords", ROW_UPDATE, "REC_DRAFT_IVANOV", {{"html", "x"}}));
        QVERIFY(!write("ivanov", "LogbookRecords", ROW_UPDATE, "REC_DRAFT_IVANOV", {{"status", 0}}));
        QVERIFY(!write("ivanov", "LogbookRecords", ROW_DELETE, "REC_DRAFT_IVANOV"));
        QVERIFY(!write("ivanov", "LogbookRecords", ROW_UPDATE, "REC_ORDER", {{"status", 2}}));
    }

    void statusGoesFromDraftToApprovedToDeletedOnly_data()
    {
        QTest::addColumn<int>("from");
        QTest::addColumn<int>("to");
        QTest::addColumn<bool>("allowed");
        for (int from = 0; from < 3; ++from)
            for (int to = -1; to < 4; ++to)
                QTest::addRow("%d to %d", from, to)
                    << from << to << (from == to || (from == 1 && to == 0) || (from == 0 && to == 2));
    }
    void statusGoesFromDraftToApprovedToDeletedOnly()
    {
        QFETCH(int, from);
        QFETCH(int, to);
        QFETCH(bool, allowed);
        const char* keys[] = {"REC_ORDER", "REC_DRAFT_PETROV", "REC_REPLACED"};
        QCOMPARE(write("ivanov", "LogbookRecords", ROW_UPDATE, keys[from], {{"status", to}}), allowed);
        if (!allowed)
            QCOMPARE(m_refusal, QString::fromUtf8("Такая смена состояния записи недопустима."));
    }

    void onlyDraftsAreDeleted()
    {
        QVERIFY(!write("petrov", "LogbookRecords", ROW_DELETE, "REC_ORDER"));
        QCOMPARE(m_refusal, QString::fromUtf8("Удалить можно только черновик."));
        QVERIFY(!write("ivanov", "LogbookRecords", ROW_DELETE, "REC_REPLACED"));
        QVERIFY(!write("sidorova", "LogbookRecords", ROW_DELETE, "REC_DRAFT_PETROV"));
        QVERIFY(write("ivanov", "LogbookRecords", ROW_DELETE, "REC_DRAFT_PETROV"));
    }

    void approvedRecordsDoNotChange()
    {
        for (const CatalogField& field : TableCatalog::table("LogbookRecords")->fields) {
            const QByteArray name = field.name;
            if (name == "KeyLink" || name == "status" || name == "VisaWorkerKey" ||
                name == "SecondMarkWorkerKey" || name == "secondMarkTime")
                continue;
            for (const char* key : {"REC_SUCCESSOR", "REC_REPLACED"})
                QVERIFY2(!write("ivanov", "LogbookRecords", ROW_UPDATE, key,
                                {other(name.constData(), field.type)}),
                         name.constData());
        }
    }

    void executionTimeOfAnApprovedRecordMayGo()
    {
        QVERIFY(
            !write("sidorova", "LogbookRecords", ROW_UPDATE, "REC_SUCCESSOR", {{"executionTime", nullptr}}));
        QVERIFY(write("petrov", "LogbookRecords", ROW_UPDATE, "REC_SUCCESSOR", {{"executionTime", nullptr}}));
        QVERIFY(!write("petrov", "LogbookRecords", ROW_UPDATE, "REC_SUCCESSOR", {{"executionTime", 5}}));
    }

    // A record in the name of another replaces one of his

    void successorKeepsTheAuthorOfWhatItReplaces()
    {
        QVERIFY2(write("ivanov", {gone("REC_ORDER"), successor("REC_ORDER")}), qPrintable(m_refusal));
        QCOMPARE(value("SELECT WorkerKey FROM LogbookRecords WHERE KeyLink='NEW'").toString(),
                 QStringLiteral("WORKER_PETROV"));
        // And again, in the other order; with a second marker and without an author.
        load("LogbookRecords", ROW_UPDATE, "REC_TRIP",
             {{"SecondMarkWorkerKey", "WORKER_SIDOROVA"}, {"secondMarkTime", 5}, {"WorkerKey", nullptr}});
        QVERIFY2(write("ivanov", {successor("REC_TRIP", "NEW2"), gone("REC_TRIP")}), qPrintable(m_refusal));
        // The chain may continue, also within one transaction.
        QVERIFY2(write("ivanov", {gone("NEW"), successor("NEW", "NEW3")}), qPrintable(m_refusal));
        auto next = successor("NEW3", "NEW4");
        auto nextButOne = successor("NEW3", "NEW5");
        nextButOne.fields.push_back({"OriginRecordKey", "NEW4"});
        QVERIFY2(write("ivanov", {gone("NEW3"), next, gone("NEW4"), nextButOne}), qPrintable(m_refusal));
    }

    void foreignAuthorNeedsAReplacedRecord()
    {
        // The old record stays, or was replaced before, with any other changes in the transaction.
        QVERIFY(!write("ivanov", {successor("REC_ORDER")}));
        QCOMPARE(m_refusal, QString::fromUtf8(notTheAuthor));
        QVERIFY(!write("ivanov", {{"LogbookRecords", ROW_UPDATE, "REC_ORDER", {}}, successor("REC_ORDER")}));
        QVERIFY(!write("petrov", {successor("REC_REPLACED")}));
        QVERIFY(!write("petrov",
                       {{"LogbookRecords", ROW_UPDATE, "REC_REPLACED", {}}, successor("REC_REPLACED")}));
        auto marked = successor("REC_REPLACED");
        marked.fields.push_back({"SecondMarkWorkerKey", "WORKER_PETROV"});
        marked.fields.push_back({"secondMarkTime", 5});
        QVERIFY(!write("petrov", {{"LogbookRecords",
                                   ROW_UPDATE,
                                   "REC_REPLACED",
                                   {{"SecondMarkWorkerKey", "WORKER_PETROV"}, {"secondMarkTime", 5}}},
                                  marked}));
        QVERIFY(write("ivanov", {gone("REC_ORDER")}));
        QVERIFY(!write("ivanov", {successor("REC_ORDER")}));
        // Another record is deleted in its place.
        QVERIFY(!write("ivanov", {successor("REC_TRIP"), gone("REC_MESSAGE")}));
        QCOMPARE(value("SELECT count(*) FROM LogbookRecords WHERE KeyLink='NEW'").toInt(), 0);
    }

    void oldRecordOfAnotherPlaceMakesNobodyAnAuthor()
    {
        // The named record is in a past shift, or in another department.
        for (const char* origin : {"REC_PAST_2", "REC_ZAR"}) {
            auto made = successor(origin);
            made.fields.push_back({"ShiftKey", "SHIFT_CDS_OPEN"});
            QVERIFY2(!write("ivanov", {made}), origin);
            QVERIFY2(!write("ivanov", {gone(origin), made}), origin);
        }
        // Both shifts are open and the writer is in both.
        load("LogbookWorkersWorkshift", ROW_INSERT, "C",
             {{"WorkshiftKey", "SHIFT_ZAR_OPEN"}, {"WorkerKey", "WORKER_IVANOV"}, {"opening", 1}});
        auto made = successor("REC_ZAR");
        made.fields.push_back({"ShiftKey", "SHIFT_CDS_OPEN"});
        QVERIFY(!write("ivanov", {gone("REC_ZAR"), made}));
        QCOMPARE(m_refusal, QString::fromUtf8(notTheAuthor));
        QVERIFY2(write("ivanov", {gone("REC_ZAR"), successor("REC_ZAR")}), qPrintable(m_refusal));
    }

    void successorSaysWhatTheReplacedRecordSaid()
    {
        const Fields altered = {{"html", "forged"},
                                {"eventTime", 7},
                                {"recordTime", 7},
                                {"firstMarkTime", 7},
                                {"direction", 2},
                                {"ReceiverWorkerKey", "WORKER_IVANOV"},
                                {"secondMarkTime", 7},
                                {"html", nullptr},
                                {"SecondMarkWorkerKey", "WORKER_IVANOV"},
                                {"WorkerKey", "WORKER_SIDOROVA"},
                                {"status", 1}};
        for (const TestStore::Field& field : altered) {
            auto made = successor("REC_ORDER");
            made.fields.push_back(field);
            QVERIFY2(!write("ivanov", {gone("REC_ORDER"), made}), field.name);
            QCOMPARE(m_refusal, QString::fromUtf8(notTheAuthor));
        }
        // The original must not be a draft, whose text may still change.
        QVERIFY(!write("ivanov", {successor("REC_DRAFT_PETROV"),
                                  {"LogbookRecords", ROW_UPDATE, "REC_DRAFT_PETROV", {{"status", 0}}},
                                  gone("REC_DRAFT_PETROV")}));
    }

    void recordIsReplacedByOneOnly()
    {
        QVERIFY(
            !write("ivanov", {gone("REC_ORDER"), successor("REC_ORDER"), successor("REC_ORDER", "NEW2")}));
        QCOMPARE(m_refusal, QString::fromUtf8("Запись заменяется одной новой."));
        // Own copies are not counted: a copy of a successor keeps its origin.
        auto pasted = successor("REC_SUCCESSOR", "NEW2");
        pasted.fields.push_back({"OriginRecordKey", "REC_ORDER"});
        QVERIFY2(write("ivanov", {gone("REC_ORDER"), successor("REC_ORDER"), pasted}), qPrintable(m_refusal));
    }

    void originNeverChanges()
    {
        for (const char* key : {"REC_DRAFT_IVANOV", "REC_SUCCESSOR", "REC_REPLACED"}) {
            QVERIFY2(!write("ivanov", "LogbookRecords", ROW_UPDATE, key, {{"OriginRecordKey", "REC_ORDER"}}),
                     key);
            QCOMPARE(m_refusal, QString::fromUtf8("Автор, смена и первичная запись не изменяются."));
        }
        QVERIFY(
            !write("ivanov", "LogbookRecords", ROW_UPDATE, "REC_SUCCESSOR", {{"OriginRecordKey", nullptr}}));
    }

    void visaIsPutOnApprovedRecordsByOthersInAnyShift()
    {
        const auto visa = [this](const char* login, const char* key, const char* worker) {
            return write(login, "LogbookRecords", ROW_UPDATE, key, {{"VisaWorkerKey", worker}});
        };
        QVERIFY(visa("sidorova", "REC_OPENING", "WORKER_SIDOROVA"));
        QVERIFY(visa("petrov", "REC_OPENING", "WORKER_PETROV")); // replaces another
        QVERIFY(visa("sidorova", "REC_PAST_1", "WORKER_SIDOROVA"));
        QVERIFY(visa("smirnov", "REC_PAST_2", "WORKER_SMIRNOV_ODS"));
        QVERIFY(!visa("ivanov", "REC_OPENING", "WORKER_IVANOV"));
        QCOMPARE(m_refusal, QString::fromUtf8("Автор не визирует свою запись."));
        QVERIFY(!visa("sidorova", "REC_OPENING", "WORKER_KUZNETSOV"));
        QCOMPARE(m_refusal, QString::fromUtf8("Визу ставят от своего имени."));
        QVERIFY(!visa("sidorova", "REC_OPENING", ""));
        QVERIFY(!visa("viewer", "REC_OPENING", "USER_VIEWER"));
        QVERIFY(!visa("petrov", "REC_DRAFT_IVANOV", "WORKER_PETROV"));
        QCOMPARE(m_refusal, QString::fromUtf8("Виза ставится только на утверждённую запись."));
        QVERIFY(!visa("petrov", "REC_REPLACED", "WORKER_PETROV"));
        load("LogbookRecords", ROW_UPDATE, "REC_ZAR", {{"WorkerKey", nullptr}});
        // an empty worker cannot sign a record without an author
        QVERIFY(!visa("petrov", "REC_ZAR", "WORKER_PETROV"));
    }

    void secondMarkerIsSetInOwnNameInAnyState()
    {
        const auto mark = [this](const char* login, const char* key, const char* worker) {
            return write(login, "LogbookRecords", ROW_UPDATE, key,
                         {{"SecondMarkWorkerKey", worker}, {"secondMarkTime", 5}});
        };
        for (const char* key : {"REC_OPENING", "REC_REPLACED", "REC_DRAFT_IVANOV", "REC_PAST_1"})
            QVERIFY2(mark("sidorova", key, "WORKER_SIDOROVA"), qPrintable(m_refusal));
        QVERIFY(!mark("sidorova", "REC_ORDER", "WORKER_IVANOV"));
        QCOMPARE(m_refusal, QString::fromUtf8("Второй маркер ставят от своего имени."));
        QVERIFY(!mark("ivanov", "REC_DRAFT_PETROV", "WORKER_PETROV"));
        QVERIFY(write("petrov", "LogbookRecords", ROW_UPDATE, "REC_PAST_1",
                      {{"SecondMarkWorkerKey", nullptr}, {"secondMarkTime", nullptr}}));
        QVERIFY(!write("petrov", "LogbookRecords", ROW_UPDATE, "REC_OPENING", {{"secondMarkTime", 6}}));
        // A marker must have a worker.
        QVERIFY(!write("petrov", "LogbookRecords", ROW_UPDATE, "REC_ORDER", {{"secondMarkTime", 6}}));
        QCOMPARE(m_refusal, QString::fromUtf8("Второй маркер ставят от своего имени."));
        load("LogbookRecords", ROW_UPDATE, "REC_ORDER", {{"secondMarkTime", 6}});
        QVERIFY(write("petrov", "LogbookRecords", ROW_UPDATE, "REC_ORDER", {{"secondMarkTime", 0}}));
    }

    void noRuleLooksAtTheClock()
    {
        // A shift in 1970, and a record in the future.
        QVERIFY(write("smirnov", "LogbookWorkshifts", ROW_INSERT, "S",
                      newWorkshift("DEP_ODS", "WORKER_SMIRNOV_ODS", 1)));
        Fields record = newRecord("S", "WORKER_SMIRNOV_ODS", 1);
        for (const char* time : {"recordTime", "eventTime", "firstMarkTime", "executionTime"})
            record.push_back({time, 4e9});
        QVERIFY(write("smirnov", "LogbookRecords", ROW_INSERT, "R", record));
        QVERIFY(write("smirnov", "LogbookRecords", ROW_UPDATE, "R", {{"eventTime", 1}, {"status", 0}}));
        QVERIFY(write("smirnov", "LogbookRecords", ROW_UPDATE, "R",
                      {{"SecondMarkWorkerKey", "WORKER_SMIRNOV_ODS"}, {"secondMarkTime", 4e9}}));
        QVERIFY(write("smirnov", "LogbookWorkshifts", ROW_UPDATE, "S",
                      {{"CloseWorkerKey", "WORKER_SMIRNOV_ODS"}}));
    }

    // Comments and files

    void commentsAreWrittenInTheOwnName()
    {
        const auto insert = [this](const char* login, const char* worker, const char* record) {
            return write(login, "LogbookComments", ROW_INSERT, qPrintable(QString::fromLatin1(GenGuid32())),
                         {{"WorkerKey", worker}, {"RecordKey", record}, {"text_", "x"}});
        };
        QVERIFY(insert("sidorova", "WORKER_SIDOROVA", "REC_PAST_1")); // any shift
        QVERIFY(!insert("sidorova", "WORKER_IVANOV", "REC_PAST_1"));
        QVERIFY(!insert("viewer", "", "REC_PAST_1"));
        QVERIFY(!insert("kuznetsov", "WORKER_KUZNETSOV", "REC_PAST_1"));
    }

    void commentsAreChangedAndDeletedByTheirAuthor()
    {
        for (const TestStore::Field& field : Fields{{"text_", "new"}, {"commentTime", 5}}) {
            QVERIFY(!write("ivanov", "LogbookComments", ROW_UPDATE, "COM_UNREAD", {field}));
            QCOMPARE(m_refusal, QString::fromUtf8("Комментарий изменяет только его автор."));
            QVERIFY(write("petrov", "LogbookComments", ROW_UPDATE, "COM_UNREAD", {field}));
        }
        QVERIFY(
            !write("petrov", "LogbookComments", ROW_UPDATE, "COM_UNREAD", {{"WorkerKey", "WORKER_IVANOV"}}));
        QVERIFY(!write("petrov", "LogbookComments", ROW_UPDATE, "COM_UNREAD", {{"RecordKey", "REC_ORDER"}}));
        QVERIFY(!write("ivanov", "LogbookComments", ROW_DELETE, "COM_UNREAD"));
        QCOMPARE(m_refusal, QString::fromUtf8("Комментарий удаляет только его автор."));
        QVERIFY(write("petrov", "LogbookComments", ROW_DELETE, "COM_UNREAD"));
    }

    void commentsAreReadByAnybody()
    {
        QVERIFY(write("smirnov", "LogbookComments", ROW_UPDATE, "COM_UNREAD", {{"readedTime", 9}}));
        QVERIFY(write("viewer", "LogbookComments", ROW_UPDATE, "COM_UNREAD", {{"readedTime", nullptr}}));
    }

    void filesAreAttachedAndDeletedOnlyInOwnName()
    {
        const Fields file = {
            {"WorkerKey", "WORKER_SIDOROVA"}, {"RecordKey", "REC_PAST_1"}, {"fileName", "a"}};
        QVERIFY(!write("ivanov", "LogbookFiles", ROW_INSERT, "F", file));
        QVERIFY(write("sidorova", "LogbookFiles", ROW_INSERT, "F", file));
        QVERIFY(!write("ivanov", "LogbookFiles", ROW_DELETE, "F"));
        QVERIFY(write("sidorova", "LogbookFiles", ROW_DELETE, "F"));
        for (const TestStore::Field& field : Fields{{"fileName", "x"},
                                                    {"fileData", QByteArray("x")},
                                                    {"WorkerKey", "WORKER_IVANOV"},
                                                    {"RecordKey", "REC_ORDER"}})
            QVERIFY2(!write("petrov", "LogbookFiles", ROW_UPDATE, "FILE_TEXT", {field}), field.name);
    }

    void commentsAndFilesOfOthersGoWithTheDraft()
    {
        load("LogbookComments", ROW_INSERT, "C",
             {{"WorkerKey", "WORKER_SIDOROVA"}, {"RecordKey", "REC_DRAFT_PETROV"}});
        load("LogbookFiles", ROW_INSERT, "F",
             {{"WorkerKey", "WORKER_SIDOROVA"}, {"RecordKey", "REC_DRAFT_PETROV"}});
        QVERIFY2(write("ivanov", "LogbookRecords", ROW_DELETE, "REC_DRAFT_PETROV"), qPrintable(m_refusal));
        QCOMPARE(value("SELECT count(*) FROM LogbookComments WHERE KeyLink='C'").toInt(), 0);
        QCOMPARE(value("SELECT count(*) FROM LogbookFiles WHERE KeyLink='F'").toInt(), 0);
        QCOMPARE(value("SELECT count(*) FROM ChangeLog WHERE event=603").toInt(), 3);
    }
};

QTEST_GUILESS_MAIN(Store_rules_test)
#include "Store_rules_test.moc"
