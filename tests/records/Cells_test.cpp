#include "HfnTime.h"
#include "HtmlParser.h"
#include "IconCells.h"
#include "MadeTable.h"
#include "MarkerCells.h"
#include "TestClient.h"
#include "TextCells.h"

#include <QBrush>
#include <QTest>
#include <QTextCodec>

/// The conversions of single cells: their answer for each role.
class Cells_test : public QObject
{
    Q_OBJECT

private:
    MadeTable m_records{"LogbookRecords", LogbookRecordExtFields};
    MadeTable m_workers{"Workers", MadeWorkerFields, "KeyLink"};
    QTextCodec* m_codec = QTextCodec::codecForName("Windows-1251");

    QVariant ask(const AbstractHfnCellConversion& conversion, MDRData* record, const char* field, int role)
    {
        AbstractHfnCellData cell;
        cell.codec = m_codec;
        cell.array = &m_records.data;
        cell.record = record;
        cell.field = MDRFldByName(m_records.data.array, field)->ordinal;
        cell.role = role;
        return conversion.data(cell);
    }
    static QString html(std::initializer_list<std::pair<const char*, const char*>> properties)
    {
        HtmlParser parser("text");
        for (const auto& [property, value] : properties) {
            if (*value)
                parser.setTemplateProperty(property, std::string(value));
            else
                parser.setTemplateProperty(property, true);
        }
        return QString::fromStdString(parser.readyHtml(true));
    }
    static QImage image(const QVariant& icon) { return icon.value<QIcon>().pixmap(16, 16).toImage(); }
    static QImage image(const char* path) { return QIcon(QLatin1String(path)).pixmap(16, 16).toImage(); }
    static double localTime(const char* text)
    {
        return DateTime_To_HfnTime(
            QDateTime::fromString(QLatin1String(text), QStringLiteral("dd.MM.yyyy hh:mm")));
    }

private slots:
    void initTestCase()
    {
        QVERIFY(m_codec);
        m_workers.add({{"KeyLink", "W1"},
                       {"lastName", QStringLiteral("Петров")},
                       {"firstName", QStringLiteral("Пётр")},
                       {"patronymicName", QStringLiteral("Ильич")}});
        m_workers.add(
            {{"KeyLink", "W2"}, {"lastName", QStringLiteral("Ли")}, {"firstName", QStringLiteral("")}});
        m_workers.add({{"KeyLink", "W3"}, {"firstName", QStringLiteral("Анна")}});
    }

    void greysDeletedRecords()
    {
        const ColorCell cell;
        MDRData* deleted = m_records.add({{"status", 2}, {"object", QStringLiteral("ПС")}});
        QCOMPARE(ask(cell, deleted, "object", Qt::ForegroundRole).value<QBrush>(),
                 QBrush(Qt::gray, Qt::SolidPattern));
        QCOMPARE(ask(cell, deleted, "object", Qt::DisplayRole).toString(), QStringLiteral("ПС"));
        for (const MadeValue& status : {MadeValue(0), MadeValue(1), MadeValue()})
            QVERIFY(!ask(cell, m_records.add({{"status", status}}), "object", Qt::ForegroundRole).isValid());
    }

    void strikesDeletedRecordsOut()
    {
        QFont font;
        font.setPointSize(17);
        StrikeOutCell cell(font, nullptr);
        QFont struckOut = font;
        struckOut.setStrikeOut(true);
        MDRData* deleted = m_records.add({{"status", 2}, {"object", QStringLiteral("ПС")}});
        QCOMPARE(ask(cell, deleted, "object", Qt::FontRole).value<QFont>(), struckOut);
        QCOMPARE(ask(cell, m_records.add({{"status", 0}}), "object", Qt::FontRole).value<QFont>(), font);
        QCOMPARE(ask(cell, deleted, "object", Qt::DisplayRole).toString(), QStringLiteral("ПС"));
        font.setPointSize(20);
        cell.setFont(font);
        QCOMPARE(ask(cell, m_records.add({}), "object", Qt::FontRole).value<QFont>(), font);
    }

    void showsTimesInTheirFormat()
    {
        const TestStore store;
        TestClient client(store);
        const DateTimeCell cell(QStringLiteral("hh:mm"), &client.session(), nullptr);
        MDRData* record = m_records.add({{"eventTime", localTime("03.02.2026 23:58")}, {"recordTime", 0.0}});
        QCOMPARE(ask(cell, record, "eventTime", Qt::DisplayRole).toString(), QStringLiteral("23:58"));
        QVERIFY(!ask(cell, record, "recordTime", Qt::DisplayRole).isValid());
        QVERIFY(!ask(cell, record, "executionTime", Qt::DisplayRole).isValid());
        QVERIFY(!ask(cell, record, "eventTime", Qt::ToolTipRole).isValid());
        const DateTimeCell plain(QStringLiteral("hh:mm"), nullptr, nullptr);
        QVERIFY(ask(plain, record, "eventTime", Qt::DisplayRole).toString() != QStringLiteral("23:58"));
    }

    void showsWorkersByTheirShortNames()
    {
        const WorkerCell cell(&m_workers, nullptr);
        const auto shown = [&](const MadeValue& key) {
            return ask(cell, m_records.add({{"WorkerKey", key}}), "WorkerKey", Qt::DisplayRole);
        };
        QCOMPARE(shown("W1").toString(), QStringLiteral("Петров П. И."));
        QCOMPARE(shown("W2").toString(), QStringLiteral("Ли"));
        QCOMPARE(shown("W3").toString(), QStringLiteral("А."));
        QVERIFY(!shown("W_UNKNOWN").isValid());
        QVERIFY(!shown("").isValid());
        QVERIFY(!shown(MadeValue()).isValid());
        QCOMPARE(ask(WorkerCell(nullptr, nullptr), m_records.add({{"WorkerKey", "W1"}}), "WorkerKey",
                     Qt::DisplayRole)
                     .toString(),
                 QStringLiteral("W1"));
    }

    void handsRolesOver()
    {
        ColorCell color;
        StrikeOutCell strikeOut(QFont(), nullptr);
        WorkerCell worker(&m_workers, nullptr);
        worker.setRoleRedirect(Qt::ForegroundRole, &color);
        worker.setRoleRedirect(Qt::FontRole, &strikeOut);
        MDRData* deleted = m_records.add({{"status", 2}, {"WorkerKey", "W1"}});
        QCOMPARE(ask(worker, deleted, "WorkerKey", Qt::DisplayRole).toString(),
                 QStringLiteral("Петров П. И."));
        QCOMPARE(ask(worker, deleted, "WorkerKey", Qt::ForegroundRole).value<QBrush>().color(),
                 QColor(Qt::gray));
        QVERIFY(ask(worker, deleted, "WorkerKey", Qt::FontRole).value<QFont>().strikeOut());
        // Columns of icons have no redirection: a deleted record's icons are unchanged.
        const FileCell file(nullptr);
        QVERIFY(!ask(file, deleted, "file", Qt::ForegroundRole).isValid());
        QVERIFY(!ask(file, deleted, "file", Qt::FontRole).isValid());
    }

    void showsTheStatusAsAnIcon()
    {
        const StatusCell cell(nullptr);
        const char* const icons[] = {":/icons/apply.png", ":/icons/draft.png", ":/icons/deleted.png"};
        for (int status = 0; status < 3; ++status) {
            MDRData* record = m_records.add({{"status", status}});
            QVERIFY(!ask(cell, record, "status", Qt::DisplayRole).isValid());
            QCOMPARE(image(ask(cell, record, "status", Qt::DecorationRole)), image(icons[status]));
        }
        QVERIFY(!ask(cell, m_records.add({{"status", 3}}), "status", Qt::DecorationRole).isValid());
        QVERIFY(!ask(cell, m_records.add({}), "status", Qt::DecorationRole).isValid());
    }

    void showsTheVisaAndWhoPutIt()
    {
        const SignCell cell(&m_workers, nullptr);
        MDRData* signed_ = m_records.add({{"VisaWorkerKey", "W1"}});
        QVERIFY(!ask(cell, signed_, "VisaWorkerKey", Qt::DisplayRole).isValid());
        QCOMPARE(image(ask(cell, signed_, "VisaWorkerKey", Qt::DecorationRole)), image(":/icons/sign.png"));
        QCOMPARE(ask(cell, signed_, "VisaWorkerKey", Qt::ToolTipRole).toString(),
                 QStringLiteral("Петров П. И."));
        for (const MadeValue& none : {MadeValue(""), MadeValue()}) {
            MDRData* record = m_records.add({{"VisaWorkerKey", none}});
            QVERIFY(!ask(cell, record, "VisaWorkerKey", Qt::DecorationRole).isValid());
            QVERIFY(!ask(cell, record, "VisaWorkerKey", Qt::ToolTipRole).isValid());
        }
    }

    void showsThatThereAreCommentsAndFiles()
    {
        const CommentCell comment(nullptr);
        const FileCell file(nullptr);
        MDRData* both = m_records.add({{"comment", true}, {"file", true}});
        QCOMPARE(image(ask(comment, both, "comment", Qt::DecorationRole)), image(":/icons/comment.png"));
        QCOMPARE(image(ask(file, both, "file", Qt::DecorationRole)), image(":/icons/affix.png"));
        QVERIFY(!ask(comment, both, "comment", Qt::DisplayRole).isValid());
        QVERIFY(!ask(file, both, "file", Qt::DisplayRole).isValid());
        MDRData* neither = m_records.add({{"comment", false}});
        QVERIFY(!ask(comment, neither, "comment", Qt::DecorationRole).isValid());
        QVERIFY(!ask(file, neither, "file", Qt::DecorationRole).isValid());
    }

    void showsTheDirection()
    {
        const DirectionCell cell(nullptr);
        QCOMPARE(image(ask(cell, m_records.add({{"direction", 1}}), "direction", Qt::DecorationRole)),
                 image(":/icons/arrow_left.png"));
        QCOMPARE(image(ask(cell, m_records.add({{"direction", 2}}), "direction", Qt::DecorationRole)),
                 image(":/icons/arrow_right.png"));
        for (const MadeValue& none : {MadeValue(0), MadeValue(3), MadeValue()})
            QVERIFY(
                !ask(cell, m_records.add({{"direction", none}}), "direction", Qt::DecorationRole).isValid());
        QVERIFY(!ask(cell, m_records.add({{"direction", 1}}), "direction", Qt::DisplayRole).isValid());
    }

    void showsTheFirstMarkerOnceItIsSet()
    {
        const FirstMarkerCell cell(nullptr);
        const QString marked = html({{"first_mark", ":/markers/worker_red.png"}});
        MDRData* record = m_records.add({{"firstMarkTime", 5.0}, {"html", marked}});
        QCOMPARE(image(ask(cell, record, "firstMarkTime", Qt::DecorationRole)),
                 image(":/markers/worker_red.png"));
        QVERIFY(!ask(cell, record, "firstMarkTime", Qt::DisplayRole).isValid());
        QVERIFY(!ask(cell, m_records.add({{"html", marked}}), "firstMarkTime", Qt::DecorationRole).isValid());
        QVERIFY(!ask(cell, m_records.add({{"firstMarkTime", 0.0}, {"html", marked}}), "firstMarkTime",
                     Qt::DecorationRole)
                     .isValid());
        QVERIFY(!ask(cell, m_records.add({{"firstMarkTime", 5.0}}), "firstMarkTime", Qt::DecorationRole)
                     .isValid());
    }

    void showsTheSecondMarkerWithCommandTimeAndWorker()
    {
        const SecondMarkerCell cell(&m_workers, nullptr);
        const double time = localTime("03.02.2026 00:10");
        HtmlParser parser("text");
        parser.setTemplateProperty("second_mark", std::string(":/markers/thunder_blue.png"));
        MDRData* plain = m_records.add({{"SecondMarkWorkerKey", "W1"},
                                        {"secondMarkTime", time},
                                        {"html", QString::fromStdString(parser.readyHtml(true))}});
        QCOMPARE(image(ask(cell, plain, "secondMarkTime", Qt::DecorationRole)),
                 image(":/markers/thunder_blue.png"));
        QCOMPARE(ask(cell, plain, "secondMarkTime", Qt::ToolTipRole).toString(),
                 QStringLiteral("Петров П. И.: 03.02.2026 00:10"));

        parser.setTemplateProperty("command", m_codec->fromUnicode(QStringLiteral("Снято %2")).toStdString());
        MDRData* commanded = m_records.add({{"SecondMarkWorkerKey", "W1"},
                                            {"secondMarkTime", time},
                                            {"html", QByteArray::fromStdString(parser.readyHtml(true))}});
        QCOMPARE(ask(cell, commanded, "secondMarkTime", Qt::ToolTipRole).toString(),
                 QStringLiteral("Снято %2: 03.02.2026 00:10\nПетров П. И."));

        // A time of zero is no marker, even with a worker.
        MDRData* zero = m_records.add({{"SecondMarkWorkerKey", "W1"},
                                       {"secondMarkTime", 0.0},
                                       {"html", QByteArray::fromStdString(parser.readyHtml(true))}});
        QVERIFY(!ask(cell, zero, "secondMarkTime", Qt::DecorationRole).isValid());
        QVERIFY(!ask(cell, m_records.add({{"secondMarkTime", time}}), "secondMarkTime", Qt::ToolTipRole)
                     .isValid());
        QVERIFY(!ask(cell, plain, "secondMarkTime", Qt::DisplayRole).isValid());
    }

    void showsTheExecutionTimeWhereOneIsNeeded()
    {
        const TimeExecutionCell cell(nullptr);
        const QString needing = html({{"time_exec", ""}});
        MDRData* done = m_records.add({{"executionTime", localTime("03.02.2026 09:05")}, {"html", needing}});
        QCOMPARE(ask(cell, done, "executionTime", Qt::DisplayRole).toString(), QStringLiteral("09:05"));
        QCOMPARE(ask(cell, done, "executionTime", Qt::ToolTipRole).toString(),
                 QStringLiteral("03.02.2026 09:05"));
        for (const MadeValue& none : {MadeValue(0.0), MadeValue()}) {
            MDRData* open = m_records.add({{"executionTime", none}, {"html", needing}});
            QCOMPARE(ask(cell, open, "executionTime", Qt::DisplayRole).toString(),
                     QStringLiteral("Не выполнено"));
            QCOMPARE(ask(cell, open, "executionTime", Qt::ToolTipRole).toString(),
                     QStringLiteral("Не выполнено"));
        }
        MDRData* other = m_records.add({{"executionTime", 5.0}, {"html", html({{"open_wshift", ""}})}});
        QVERIFY(!ask(cell, other, "executionTime", Qt::DisplayRole).isValid());
        QVERIFY(
            !ask(cell, m_records.add({{"executionTime", 5.0}}), "executionTime", Qt::DisplayRole).isValid());
        QVERIFY(!ask(cell, done, "executionTime", Qt::DecorationRole).isValid());
    }
};

QTEST_MAIN(Cells_test)
#include "Cells_test.moc"
