#include "RecordPreparer.h"

#include "HtmlParser.h"
#include "MadeTable.h"
#include "RecordValue.h"

#include <QTest>

class RecordPreparer_test : public QObject
{
    Q_OBJECT

private:
    struct Fixture {
        MadeTable records{"LogbookRecords", LogbookRecordExtFields};
        MadeTable comments{"LogbookComments", LogbookCommentFields};
        MadeTable files{"LogbookFiles", LogbookFilesFields};
        RecordPreparer preparer{records, comments, files};
    };

    static QByteArray parameter(const char* name, const QString& text)
    {
        return QByteArray::fromStdString(
            HtmlParser::createParameter({{"name", name}}, TestStore::bytes(text).toStdString()));
    }
    static QString object(const MDRData* record)
    {
        return TestStore::text(MDRValue::copy(Row(record).value("object")));
    }

private slots:
    void joinsSubstationAndLine()
    {
        Fixture f;
        MDRData* record = f.records.add({{"html", parameter("line", QStringLiteral("ВЛ 1")) +
                                                      parameter("substation", QStringLiteral("ПС 2"))}});
        f.preparer.prepareRecordHtml(record);
        QCOMPARE(object(record), QStringLiteral("ПС 2/ВЛ 1"));
        bool isMarked = true;
        MDRIsUser(MDRFldByName(f.records.data.array, "object"), record, &isMarked);
        QVERIFY(!isMarked);
    }

    void takesTheOneThatIsThere()
    {
        Fixture f;
        MDRData* line = f.records.add({{"html", parameter("LINE", QStringLiteral("ВЛ 1"))}});
        f.preparer.prepareRecordHtml(line);
        QCOMPARE(object(line), QStringLiteral("ВЛ 1"));
        MDRData* substation = f.records.add({{"html", parameter("Substation", QStringLiteral("ПС 2"))}});
        f.preparer.prepareRecordHtml(substation);
        QCOMPARE(object(substation), QStringLiteral("ПС 2"));
    }

    void stopsAsSoonAsBothAreThere()
    {
        Fixture f;
        MDRData* record = f.records.add(
            {{"html", parameter("line", QStringLiteral("А")) + parameter("line", QStringLiteral("Б")) +
                          parameter("substation", QStringLiteral("В")) +
                          parameter("line", QStringLiteral("Г"))}});
        f.preparer.prepareRecordHtml(record);
        QCOMPARE(object(record), QStringLiteral("В/Б"));
    }

    void leavesTheObjectAloneWithoutEither()
    {
        Fixture f;
        MDRData* plain = f.records.add({{"html", parameter("text", QStringLiteral("слово"))}});
        f.preparer.prepareRecordHtml(plain);
        QVERIFY(Row(plain).value("object").isNull);
        MDRData* none = f.records.add({});
        f.preparer.prepareRecordHtml(none);
        QVERIFY(Row(none).value("object").isNull);
    }

    void marksRecordsWithCommentsAndFiles()
    {
        Fixture f;
        MDRData* first = f.records.add({{"KeyLink", "R1"}});
        MDRData* second = f.records.add({{"KeyLink", "R2"}});
        MDRData* keyless = f.records.add({});
        MDRData* comment = f.comments.add({{"KeyLink", "C1"}, {"RecordKey", "R1"}});
        f.comments.add({{"KeyLink", "C2"}});
        f.files.add({{"KeyLink", "F1"}, {"RecordKey", "R2"}});
        f.preparer.prepareRecords();
        QVERIFY(isSet(Row(first).value("comment")) && !isSet(Row(first).value("file")));
        QVERIFY(!isSet(Row(second).value("comment")) && isSet(Row(second).value("file")));
        QVERIFY(!Row(keyless).value("comment").isNull);
        QVERIFY(!isSet(Row(keyless).value("comment")));

        MDARecDel(comment);
        f.preparer.prepareRecordComment(first);
        QVERIFY(!isSet(Row(first).value("comment")));
    }

    void doesNotTouchRecordsOfOtherTables()
    {
        Fixture f;
        MadeTable other("LogbookRecords", LogbookRecordExtFields);
        MDRData* record = other.add({{"KeyLink", "R1"}, {"html", parameter("line", QStringLiteral("А"))}});
        f.preparer.prepareRecord(record);
        QVERIFY(Row(record).value("object").isNull);
        QVERIFY(Row(record).value("comment").isNull);
    }
};

QTEST_GUILESS_MAIN(RecordPreparer_test)
#include "RecordPreparer_test.moc"
