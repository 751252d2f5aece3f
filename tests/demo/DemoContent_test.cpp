#include "DemoFile.h"
#include "HtmlParser.h"
#include "LogbookFields.h"
#include "TableCatalog.h"

#include <QSet>
#include <QXmlStreamReader>
#include <set>

namespace
{
std::string templateProperty(const QString& html, const char* name)
{
    std::string value;
    HtmlParser(html.toStdString()).templatePropertyValue(name, value);
    return value;
}
} // namespace

/// The content of the demo journal.
class DemoContent_test : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        now = at("20.11.2026 03:10");
        fill(demo, now);
    }

    void checkFindsNothing() { QCOMPARE(demo.findings(), QString()); }

    void hasWhatWasPromised()
    {
        QCOMPARE(demo.count(QStringLiteral("Departments")), 5);
        QCOMPARE(demo.count(QStringLiteral("Departments WHERE ParentKey IS NULL")), 3);
        QCOMPARE(demo.count(QStringLiteral("Equipment WHERE kind = 'substation'")), 12);
        QCOMPARE(demo.count(QStringLiteral("Equipment WHERE kind = 'line'")), 18);
        QCOMPARE(demo.count(QStringLiteral("Equipment WHERE kind = 'bay'")), 120);
        QVERIFY(demo.count(QStringLiteral("LogbookTemplates")) >= 40);
        QVERIFY(demo.count(QStringLiteral("TemplateParams")) >= 8);
        QCOMPARE(
            demo.value(QStringLiteral(
                           "SELECT F.nameLoc FROM Fields AS F JOIN Tables AS T ON T.KeyLink = F.TablesKey "
                           "WHERE T.nameLat = 'LogbookTemplates' AND F.nameLat = 'nameLoc'"))
                .toString(),
            QStringLiteral("Наименование"));
        QVERIFY(demo.count(QStringLiteral("Fields WHERE nameLoc = nameLat")) == 0);
        QVERIFY(demo.count(QStringLiteral("Tables WHERE nameLoc = nameLat")) == 0);
    }

    void categoriesHaveThreeLevels()
    {
        QVERIFY(demo.count(QStringLiteral("LogbookCatsTemplate WHERE OrgTypeKey IS NOT NULL")) >= 4);
        QVERIFY(demo.count(QStringLiteral("LogbookCatsTemplate WHERE DepartmentKey IS NOT NULL")) >= 4);
        QVERIFY(demo.count(QStringLiteral("LogbookCatsTemplate WHERE ParentKey IS NOT NULL")) >= 2);
        QCOMPARE(demo.count(QStringLiteral(
                     "LogbookCatsTemplate WHERE (OrgTypeKey IS NOT NULL) + (DepartmentKey IS NOT "
                     "NULL) + (ParentKey IS NOT NULL) > 1")),
                 0);
    }

    void theEarlierJournalHasWorkForTheConverter()
    {
        QVERIFY(demo.count(QStringLiteral("OperLogTemplateParams")) >= 20);
        QVERIFY(demo.count(QStringLiteral("OperLogCategories WHERE ParentKey IS NOT NULL")) >= 1);
        QVERIFY(demo.count(QStringLiteral("OperLogCategories WHERE OrgTypeKey IS NOT NULL")) >= 1);
        QVERIFY(demo.count(QStringLiteral("OperLogCategories WHERE DepartmentKey IS NOT NULL")) >= 1);
        QVERIFY(demo.count(QStringLiteral("OperLogTemplates")) >= 10);
        // The converter refuses to work when it finds the old names in the new tables.
        QCOMPARE(demo.count(QStringLiteral(
                     "OperLogTemplates WHERE name_ IN (SELECT nameLoc FROM LogbookTemplates)")),
                 0);
        QCOMPARE(demo.count(QStringLiteral(
                     "OperLogCategories WHERE name_ IN (SELECT nameLoc FROM LogbookCatsTemplate)")),
                 0);
        // A "<" without a ">" would make it loop forever.
        for (const QVariantList& row : demo.rows(QStringLiteral("SELECT text_ FROM OperLogTemplates")))
            QCOMPARE(row[0].toString().count(QLatin1Char('<')), row[0].toString().count(QLatin1Char('>')));
    }

    void fortnightOfShiftsInEveryDepartment()
    {
        const auto departments = demo.rows(QStringLiteral("SELECT KeyLink, name_ FROM Departments"));
        for (const QVariantList& department : departments) {
            const auto counts = demo.rows(
                QStringLiteral(
                    "SELECT W.startTime, W.endTime, count(*) FROM LogbookWorkshifts AS W JOIN LogbookRecords "
                    "AS R ON R.ShiftKey = W.KeyLink WHERE W.DepartmentKey = '%1' AND "
                    "coalesce(W.CloseWorkerKey, "
                    "'') <> '' AND W.startTime > %2 GROUP BY W.KeyLink ORDER BY W.startTime")
                    .arg(department[0].toString())
                    .arg(now - 30 * 86400));
            QVERIFY2(counts.size() >= 27 && counts.size() <= 28, qPrintable(department[1].toString()));
            for (int i = 0; i < counts.size(); ++i) {
                const int records = counts[i][2].toInt();
                QVERIFY2((records >= 8 && records <= 60) || records == 400,
                         qPrintable(QString::number(records)));
                if (i > 0)
                    QVERIFY(counts[i][0].toDouble() >= counts[i - 1][1].toDouble());
            }
        }
    }

    void theNextShiftIsTheFirstOfTheTimetable()
    {
        const int hour = QDateTime::fromSecsSinceEpoch(now).time().hour();
        const double next = (hour >= 8 && hour < 20 ? 20 : 8) * 3600; // the shifts change at 8 and at 20
        for (const QVariantList& department : demo.rows(QStringLiteral("SELECT KeyLink FROM Departments"))) {
            const auto rows =
                demo.rows(QStringLiteral("SELECT startTime FROM Shifts WHERE DepartmentKey = '%1' "
                                         "ORDER BY KeyLink")
                              .arg(department[0].toString()));
            QCOMPARE(rows.size(), 3);
            QCOMPARE(rows[0][0].toDouble(), next);
        }
    }

    void oneStormNightOfFourHundredRecords()
    {
        QCOMPARE(demo.count(QStringLiteral(
                     "(SELECT ShiftKey FROM LogbookRecords GROUP BY ShiftKey HAVING count(*) = 400)")),
                 1);
    }

    void repairCrossesThreeDays()
    {
        const auto steps =
            demo.rows(QStringLiteral("SELECT R.eventTime FROM LogbookRecords AS R WHERE R.html LIKE "
                                     "'%Мельничная / В-110 Луговая%' AND (R.html LIKE '%>88<%' OR "
                                     "R.html LIKE '%>412<%') ORDER BY R.eventTime"));
        QVERIFY2(steps.size() >= 6, qPrintable(QString::number(steps.size())));
        QVERIFY(steps.last()[0].toDouble() - steps.first()[0].toDouble() > 2 * 86400);
    }

    void hasAMonthOneYearAgoWithAFormerWorker()
    {
        const qint64 from = now - 396 * 86400;
        QCOMPARE(demo.count(QStringLiteral("LogbookWorkshifts WHERE startTime BETWEEN %1 AND %2")
                                .arg(from)
                                .arg(from + 33 * 86400)),
                 60);
        QVERIFY(demo.count(
                    QStringLiteral("LogbookRecords AS R JOIN Workers AS W ON W.KeyLink = R.WorkerKey WHERE "
                                   "W.deleted_ = 1")) > 50);
    }

    void oneDepartmentHasNoOpenShiftAndOneIsOverdue()
    {
        const auto open = demo.rows(QStringLiteral(
            "SELECT D.name_, W.endTime FROM Departments AS D LEFT JOIN LogbookWorkshifts AS W ON "
            "W.DepartmentKey = D.KeyLink AND coalesce(W.CloseWorkerKey, '') = '' ORDER BY D.name_"));
        QCOMPARE(open.size(), 5);
        int without = 0;
        int overdue = 0;
        for (const QVariantList& row : open) {
            without += row[1].isNull();
            overdue += !row[1].isNull() && row[1].toDouble() < now;
        }
        QCOMPARE(without, 1);
        QCOMPARE(overdue, 1);
    }

    void theStoryShowsEveryState()
    {
        const int records = demo.count(inStory("1"));
        QVERIFY2(records >= 33 && records <= 40, qPrintable(QString::number(records)));
        QVERIFY(demo.count(inStory("status = 0")) > 20);
        QVERIFY(demo.count(inStory("status = 1")) >= 4);
        QCOMPARE(demo.count(inStory("status = 2")), 2);
        QCOMPARE(demo.count(inStory("direction = 1")), 1);
        QCOMPARE(demo.count(inStory("direction = 2")), 1);
        QVERIFY(demo.count(inStory("ReceiverWorkerKey IS NOT NULL")) >= 2);
        QVERIFY(demo.count(inStory("VisaWorkerKey IS NOT NULL AND status = 0")) >= 2);
        QVERIFY(demo.count(inStory("html LIKE '%line-through%'")) >= 1);
        QVERIFY(demo.count(inStory("html LIKE '%1.%<br%2.%<br%3.%<br%4.%<br%5.%'")) == 1);
    }

    void theStoryReplacesAnOrderByItsSuccessor()
    {
        const auto pair = demo.rows(QStringLiteral(
            "SELECT old.status, old.executionTime, new.status, new.executionTime, old.html = new.html, "
            "new.VisaWorkerKey FROM LogbookRecords AS new JOIN LogbookRecords AS old ON old.KeyLink = "
            "new.OriginRecordKey"));
        QCOMPARE(pair.size(), 1);
        QCOMPARE(pair[0][0].toInt(), int(StatusDeleted));
        QVERIFY(pair[0][1].isNull());
        QCOMPARE(pair[0][2].toInt(), int(StatusApproved));
        QVERIFY(pair[0][3].toDouble() > 0);
        QCOMPARE(pair[0][4].toInt(), 1);
        QVERIFY(pair[0][5].isNull());
    }

    void theStoryHasAnUnexecutedOrderAndADraftOfOne()
    {
        int approved = 0;
        int drafts = 0;
        const auto rows =
            demo.rows(QStringLiteral("SELECT html, status FROM ") + inStory("executionTime IS NULL"));
        for (const QVariantList& row : rows)
            if (HtmlParser(row[0].toString().toStdString()).isExistTemplateProperty("time_exec")) {
                approved += row[1].toInt() == StatusApproved;
                drafts += row[1].toInt() == StatusDraft;
            }
        QVERIFY(approved >= 1);
        QVERIFY(drafts >= 1);
    }

    void theStoryShowsMarkersOpenAndSet()
    {
        std::set<std::string> first;
        int set = 0;
        int open = 0;
        const auto rows = demo.rows(
            QStringLiteral("SELECT html, firstMarkTime, secondMarkTime, SecondMarkWorkerKey FROM ") +
            inStory("status = 0"));
        for (const QVariantList& row : rows) {
            const std::string mark = templateProperty(row[0].toString(), "first_mark");
            QCOMPARE(row[1].toDouble() > 0, !mark.empty());
            if (!mark.empty())
                first.insert(mark);
            QCOMPARE(row[2].isNull(), row[3].isNull());
            if (templateProperty(row[0].toString(), "second_mark").empty())
                QVERIFY(row[2].isNull());
            else
                (row[2].isNull() ? open : set) += 1;
        }
        QVERIFY2(first.size() >= 6, qPrintable(QString::number(static_cast<int>(first.size()))));
        QVERIFY(set >= 4);
        QVERIFY(open >= 3);
    }

    void theAccidentHasFilesCommentsAndAVisa()
    {
        const auto trip =
            demo.rows(QStringLiteral("SELECT R.KeyLink, R.WorkerKey, R.VisaWorkerKey FROM ") +
                      QStringLiteral("LogbookRecords AS R WHERE R.KeyLink IN (SELECT RecordKey FROM "
                                     "LogbookFiles)"));
        QCOMPARE(trip.size(), 1);
        QVERIFY(!trip[0][2].isNull());
        QVERIFY(trip[0][1] != trip[0][2]);
        const QString key = trip[0][0].toString();
        const auto files = demo.rows(
            QStringLiteral("SELECT KeyLink, fileName, length(fileData) FROM LogbookFiles ORDER BY fileName"));
        QCOMPARE(files.size(), 3);
        QCOMPARE(files[1][1].toString(), QStringLiteral("Схема сети 110 кВ после отключения (вар. 2).pdf"));
        for (const QVariantList& file : files)
            QVERIFY(file[2].toInt() > 1000);
        QCOMPARE(demo.count(QStringLiteral("LogbookComments WHERE RecordKey = '%1'").arg(key)), 3);
        QCOMPARE(
            demo.count(QStringLiteral("LogbookComments WHERE RecordKey = '%1' AND readedTime = 0").arg(key)),
            2);
        QCOMPARE(demo.count(QStringLiteral("LogbookComments WHERE RecordKey = '%1' AND WorkerKey = '%2'")
                                .arg(key, trip[0][1].toString())),
                 1);
    }

    void aDeletedRecordSaysWhy()
    {
        QCOMPARE(demo.count(QStringLiteral(
                     "LogbookComments AS C JOIN LogbookRecords AS R ON R.KeyLink = C.RecordKey WHERE "
                     "R.status = 2 AND C.text_ LIKE 'Удалено:%'")),
                 1);
    }

    void aDraftWasPastedFromTheNeighbours()
    {
        const auto pairs = demo.rows(
            QStringLiteral(
                "SELECT copy.status, copy.recordTime = source.recordTime FROM LogbookRecords AS copy JOIN "
                "LogbookRecords AS source ON source.html = copy.html AND source.eventTime = copy.eventTime "
                "AND "
                "source.ShiftKey <> copy.ShiftKey WHERE copy.ShiftKey = %1")
                .arg(QString::fromUtf8(storyShift)));
        QCOMPARE(pairs.size(), 1);
        QCOMPARE(pairs[0][0].toInt(), int(StatusDraft));
        QCOMPARE(pairs[0][1].toInt(), 1);
    }

    void loginsAreWhatTheyAreSaidToBe()
    {
        StoreError error;
        const auto store = Store::open(demo.url(), Store::Options(), &error);
        QVERIFY(store);
        const auto departments = [&](const QString& login) {
            StoreLogin user;
            return store->signIn(login, &user, &error) ? store->departments(user.key).size() : -1;
        };
        QCOMPARE(departments(DemoStore::dispatcher()), 2);
        QCOMPARE(departments(DemoStore::colleague()), 1);
        QCOMPARE(departments(DemoStore::chief()), 1);
        QCOMPARE(departments(DemoStore::viewer()), 1);
        QVERIFY(!store->hasRight("ADMINISTRATOR_OPERLOG_LOCAL"));
        QCOMPARE(departments(DemoStore::localAdministrator()), 1);
        QVERIFY(store->hasRight("ADMINISTRATOR_OPERLOG_LOCAL"));
        QVERIFY(!store->hasRight("ADMINISTRATOR"));
        QCOMPARE(departments(DemoStore::administrator()), 1);
        for (const char* right : {"ADMINISTRATOR", "ADMINISTRATOR_OPERLOG_LOCAL", "SQL_EXEC", "SQL_REQUEST",
                                  "TBL_REQUEST", "TBL_UPDATE"})
            QVERIFY2(store->hasRight(right), right);
        QCOMPARE(departments(DemoStore::loginWithoutWorker()), 0);
    }

    void threeUnreadCommentsWaitForTheChief()
    {
        QCOMPARE(
            demo.count(QStringLiteral(
                           "LogbookComments AS C JOIN LogbookRecords AS R ON R.KeyLink = C.RecordKey JOIN "
                           "Workers AS W ON W.KeyLink = R.WorkerKey JOIN Users AS U ON U.KeyLink = "
                           "W.UserKey WHERE U.login = '%1' AND C.readedTime = 0")
                           .arg(DemoStore::chief())),
            3);
    }

    void authorsAreInTheirShiftAndVisasAreOfOthers()
    {
        QCOMPARE(demo.count(QStringLiteral(
                     "LogbookRecords AS R WHERE NOT EXISTS (SELECT 1 FROM LogbookWorkersWorkshift AS "
                     "C WHERE C.WorkshiftKey = R.ShiftKey AND C.WorkerKey = R.WorkerKey AND "
                     "C.opening = 1)")),
                 0);
        QCOMPARE(demo.count(QStringLiteral("LogbookRecords WHERE VisaWorkerKey = WorkerKey")), 0);
    }

    void everyRecordIsInItsShiftAndNoneInTheFuture()
    {
        QCOMPARE(demo.count(QStringLiteral(
                     "LogbookRecords AS R JOIN LogbookWorkshifts AS W ON W.KeyLink = R.ShiftKey WHERE "
                     "R.eventTime < W.startTime OR R.eventTime >= W.endTime OR R.recordTime < "
                     "R.eventTime")),
                 0);
        QCOMPARE(
            demo.count(
                QStringLiteral("LogbookRecords WHERE max(recordTime, eventTime, coalesce(secondMarkTime, 0), "
                               "coalesce(executionTime, 0)) > %1")
                    .arg(now)),
            0);
        QCOMPARE(
            demo.count(QStringLiteral("LogbookComments WHERE max(commentTime, readedTime) > %1").arg(now)),
            0);
        QCOMPARE(demo.count(QStringLiteral("LogbookWorkshifts WHERE createdAt > %1").arg(now)), 0);
    }

    void everyParameterOfEveryRecordIsFilled()
    {
        const auto rows = demo.rows(QStringLiteral("SELECT html FROM LogbookRecords"));
        QVERIFY(rows.size() > 3000);
        for (const QVariantList& row : rows) {
            QVERIFY(!row[0].toString().contains(QLatin1Char('?')));
            const HtmlParser parser(row[0].toString().toStdString());
            for (unsigned i = 0; i < parser.countParameters(); ++i)
                if (!parser.isExistProperty(i, "optional"))
                    QVERIFY2(!parser.displayText(i).empty() &&
                                 parser.displayText(i) != parser.propertyValue(i, "locname"),
                             qPrintable(row[0].toString()));
        }
    }

    void namesOfPeopleAndEquipmentCarryTheirKeys()
    {
        QSet<QString> keys;
        for (const char* table : {"Workers", "Equipment", "Departments", "Organizations"})
            for (const QVariantList& row :
                 demo.rows(QStringLiteral("SELECT KeyLink FROM ") + QLatin1String(table)))
                keys.insert(row[0].toString());
        int found = 0;
        for (const QVariantList& row :
             demo.rows(QStringLiteral("SELECT html FROM LogbookRecords LIMIT 500"))) {
            const HtmlParser parser(row[0].toString().toStdString());
            for (unsigned i = 0; i < parser.countParameters(); ++i) {
                const QString key = QString::fromStdString(parser.propertyData(i));
                if (parser.propertyNameValue(i) == "substation" || parser.propertyNameValue(i) == "line")
                    QVERIFY2(!key.isEmpty() || parser.displayText(i).empty(), parser.displayText(i).c_str());
                if (!key.isEmpty()) {
                    QVERIFY2(keys.contains(key), parser.displayText(i).c_str());
                    ++found;
                }
            }
        }
        QVERIFY(found > 500);
    }

    void optionsOfTheDurationControlAreThere()
    {
        StoreError error;
        const auto store = Store::open(demo.url(), Store::Options(), &error);
        QByteArray content;
        QVERIFY(store->file(QStringLiteral("options"), QStringLiteral("OperLogOptions"), &content, &error));
        QXmlStreamReader reader(content);
        QVERIFY(reader.readNextStartElement());
        QCOMPARE(reader.name().toString(), QStringLiteral("Options"));
        QCOMPARE(reader.attributes().value(QLatin1String("CheckLengthShift")).toInt(), 1);
        QCOMPARE(reader.attributes().value(QLatin1String("DelayTime")).toInt(), 900);
        QCOMPARE(reader.attributes().value(QLatin1String("IntervalMessage")).toInt(), 300);
    }

    void comesOutTheSameAgain()
    {
        const DemoFile again;
        fill(again, now);
        const QString sql =
            QStringLiteral("SELECT KeyLink, html, recordTime FROM LogbookRecords ORDER BY KeyLink");
        QVERIFY(again.rows(sql) == demo.rows(sql));
    }

    void everyTextFitsTheCodePage()
    {
        for (const CatalogTable& table : TableCatalog::tables())
            for (const CatalogField& field : table.fields)
                if (field.type == mdr_TChar || field.type == mdr_TMemo)
                    QCOMPARE(demo.count(
                                 QStringLiteral("%1 WHERE %2 LIKE '%?%'")
                                     .arg(QString::fromLatin1(table.name), QString::fromLatin1(field.name))),
                             0);
    }

private:
    DemoFile demo;
    qint64 now = 0;
};

QTEST_GUILESS_MAIN(DemoContent_test)
#include "DemoContent_test.moc"
