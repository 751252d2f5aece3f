#include "EvidenceBench.h"
#include "EvidenceLog.h"
#include "Forger.h"
#include "LogHistory.h"
#include "OldShifts.h"

#include <QCryptographicHash>
#include <QDateTime>
#include <QTimeZone>

namespace
{
/// A log that notes which removed rows were read.
class CountedLog : public EvidenceLog
{
public:
    explicit CountedLog(EvidenceLog* log) : EvidenceLog(nullptr), m_log(log) {}

    bool removed(const QByteArrayList& tables, qint64 since, qint64 to, QVector<LoggedRow>* rows) override
    {
        const int before = rows->size();
        const bool isRead = m_log->removed(tables, since, to, rows);
        for (int i = before; i < rows->size(); ++i)
            removedKeys.insert(rows->at(i).key);
        return isRead;
    }
    bool end(qint64* number, QByteArray* epoch) override { return m_log->end(number, epoch); }
    bool read(qint64 from, qint64 to, const Take& take) override { return m_log->read(from, to, take); }
    bool numbersOf(const QByteArray& key, const QByteArray& table, QVector<qint64>* numbers) override
    {
        return m_log->numbersOf(key, table, numbers);
    }
    bool rowsOf(const QByteArrayList& keys, qint64 to, const Take& take) override
    {
        return m_log->rowsOf(keys, to, take);
    }
    bool batches(const QByteArray& beginning, QMap<qint64, QByteArray>* keys) override
    {
        return m_log->batches(beginning, keys);
    }
    bool keysOf(const QByteArray& table, const QByteArray& field, const QByteArrayList& values,
                QSet<QByteArray>* keys) override
    {
        return m_log->keysOf(table, field, values, keys);
    }
    bool timeOf(qint64 number, double* time) override { return m_log->timeOf(number, time); }
    bool chainOf(qint64 number, QByteArray* chain) override { return m_log->chainOf(number, chain); }
    bool tile(int level, qint64 place, QByteArray* hashes) override
    {
        return m_log->tile(level, place, hashes);
    }
    bool writeTile(int, qint64, const QByteArray&) override { return false; }
    bool headsFrom(qint64 size, QMap<qint64, QByteArray>* notes) override
    {
        return m_log->headsFrom(size, notes);
    }
    bool newestHead(QByteArray* note) override { return m_log->newestHead(note); }
    bool writeHead(qint64, const QByteArray&) override { return false; }
    bool stamps(QMap<qint64, QByteArray>* responses) override { return m_log->stamps(responses); }
    bool writeStamp(qint64, const QByteArray&) override { return false; }
    bool commit() override { return false; }

    QSet<QByteArray> removedKeys;

private:
    EvidenceLog* m_log;
};
} // namespace

/// Old workshifts leave the journal, and everything about them is kept.
class OldShifts_test : public EvidenceBench
{
    Q_OBJECT

private slots:
    void init();

    void withoutTheWordNothingIsWritten();
    void aShiftLeavesWithItsRowsAndIsKept();
    void otherClientsSeeTheRowsLeave();
    void historiesReadNoRowsOfOtherArchivedShifts();
    void archivedShiftsAreThoseOfTheDepartment();
    void filesAreKeptUnderHarmlessNames();
    void whatIsNotSealedStays();
    void theLastShiftOfADepartmentStays();
    void anOpenShiftStays();
    void aLaterShiftStays();
    void aShiftWithAReplacedRecordStays();
    void aShiftThatIsNeededByANeededOneStays();
    void oneDepartmentMayBeChosen();
    void aShiftThatIsChangedMeanwhileStays();
    void aFileThatTheLogDoesNotKnowStays();
    void aFolderThatCannotBeWrittenKeepsTheShift();
    void wrongWordsAreRefused();

private:
    QString folder() const { return m_admin->path(QStringLiteral("kept")); }
    static QString now()
    {
        return QDateTime::currentDateTime()
            .toTimeZone(QTimeZone("Europe/Moscow"))
            .toString(QStringLiteral("dd.MM.yyyy hh:mm"));
    }
    int archive(const QStringList& more = {QStringLiteral("--write")})
    {
        return m_admin->call("archive", QStringList{folder(), QStringLiteral("--before"), now()} + more);
    }
    int count(const char* table, const char* condition) const
    {
        return m_store
            ->value(QStringLiteral("SELECT count(*) FROM %1 WHERE %2")
                        .arg(QLatin1String(table), QLatin1String(condition)))
            .toInt();
    }
    bool isThere(const char* shift) const
    {
        return count("LogbookWorkshifts", QByteArray("KeyLink = '" + QByteArray(shift) + '\'').constData()) ==
               1;
    }
    void add(const std::vector<TestStore::Row>& rows) const
    {
        StoreError error;
        const auto loader = m_store->openLoader();
        QVERIFY2(TestStore::write(loader.get(), rows, &error), qPrintable(error.text + error.detail));
    }
    /// A closed shift of two hours in the department, and a record that replaces \a origin.
    void addShift(const char* key, const char* department, double daysAgo, const char* origin = nullptr) const
    {
        const double start = TestStore::now() - daysAgo * 86400;
        const QByteArray record = QByteArray("REC_OF_") + key;
        add({{"LogbookWorkshifts",
              ROW_INSERT,
              key,
              {{"DepartmentKey", department},
               {"OpenWorkerKey", "WORKER_PETROV"},
               {"CloseWorkerKey", "WORKER_PETROV"},
               {"createdAt", start},
               {"startTime", start},
               {"endTime", start + 7200}}},
             {"LogbookRecords",
              ROW_INSERT,
              record,
              {{"ShiftKey", key},
               {"WorkerKey", "WORKER_PETROV"},
               {"recordTime", start},
               {"eventTime", start},
               {"html", "Запись давней смены"},
               {"status", 0},
               {"OriginRecordKey", origin ? QVariant(QString::fromLatin1(origin)) : QVariant()}}}});
    }
    int check() { return m_admin->call("check", {QStringLiteral("--heads"), book()}); }
};

void OldShifts_test::init()
{
    reset();
    add({{"LogbookFiles",
          ROW_INSERT,
          "FILE_PAST",
          {{"RecordKey", "REC_PAST_1"},
           {"WorkerKey", "WORKER_IVANOV"},
           {"fileName", "../акт; осмотра.PDF"},
           {"fileData", QByteArray("content of the act")}}}});
    QCOMPARE(seal({QStringLiteral("--init")}), 0);
}

void OldShifts_test::withoutTheWordNothingIsWritten()
{
    const int end = m_store->value(QStringLiteral("SELECT max(number) FROM ChangeTransactions")).toInt();
    QCOMPARE(archive({}), 0);
    QVERIFY2(m_admin->out.contains(QStringLiteral("ЦДС: смен 1, с ")), qPrintable(m_admin->out));
    QVERIFY2(m_admin->out.contains(QStringLiteral(", записей 2, комментариев 1, файлов 1\n")),
             qPrintable(m_admin->out));
    QVERIFY(m_admin->out.contains(QStringLiteral("Ничего не записано")));
    QVERIFY(!QFile::exists(folder()));
    QCOMPARE(m_store->value(QStringLiteral("SELECT max(number) FROM ChangeTransactions")).toInt(), end);
}

void OldShifts_test::aShiftLeavesWithItsRowsAndIsKept()
{
    const QString older = lastHead();
    QVERIFY2(archive() == 0, qPrintable(m_admin->out + m_admin->err));
    QVERIFY(m_admin->out.contains(QStringLiteral("Убрано смен: 1\n")));
    QCOMPARE(count("LogbookWorkshifts", "KeyLink LIKE '%PAST%'"), 0);
    QCOMPARE(count("LogbookWorkersWorkshift", "KeyLink LIKE 'CREW_PAST%'"), 0);
    QCOMPARE(count("LogbookRecords", "KeyLink LIKE 'REC_PAST%'"), 0);
    QCOMPARE(count("LogbookComments", "KeyLink = 'COM_PAST'"), 0);
    QCOMPARE(count("LogbookFiles", "KeyLink = 'FILE_PAST'"), 0);
    QCOMPARE(count("LogbookRecords", "1 = 1"), 9);
    QCOMPARE(count("LogbookFiles", "1 = 1"), 2);
    QCOMPARE(seal(), 0);
    QVERIFY2(check() == 0, qPrintable(m_admin->out));

    m_folder = folder() + QStringLiteral("/evidence");
    QVERIFY2(verifyAgain({QStringLiteral("--head"), older}) == 0, qPrintable(m_said));
    const QString lines = exported("log.jsonl");
    for (const char* key :
         {"SHIFT_CDS_PAST", "CREW_PAST_2", "REC_PAST_1", "REC_PAST_2", "COM_PAST", "FILE_PAST"})
        QVERIFY2(lines.contains(QLatin1Char('"') + QLatin1String(key) + QLatin1Char('"')), key);
    QVERIFY(!lines.contains(QStringLiteral("\"key\": \"REC_ORDER\"")));
    QVERIFY(m_admin->bytes(QStringLiteral("kept/README.txt")).contains("ЦДС: смен 1, с "));

    StoreError error;
    const auto store = m_store->open(QStringLiteral("petrov"));
    const auto log = store->evidence(Store::Access::Read, &error);
    QVector<RowChange> changes;
    QVERIFY(LogHistory(log.get()).ofRecord("REC_PAST_1", &changes));
    QCOMPARE(changes.last().reason, QStringLiteral("смена убрана в архив"));
    QVERIFY(!changes.last().was("html").toString().isEmpty());
}

void OldShifts_test::otherClientsSeeTheRowsLeave()
{
    StoreError error;
    const auto client = m_store->open(QStringLiteral("petrov"));
    ChangePosition position;
    QVERIFY(client->position(&position, &error));
    QCOMPARE(archive(), 0);
    QVector<StoreChange> changes;
    QVERIFY2(client->changesAfter(&position, 100, &changes, &error), qPrintable(error.text));
    QMap<QByteArray, int> left;
    for (const StoreChange& change : qAsConst(changes))
        left[change.table] += change.event == 603 ? 1 : 100;
    QCOMPARE(left, (QMap<QByteArray, int>{{"LogbookWorkshifts", 1},
                                          {"LogbookWorkersWorkshift", 3},
                                          {"LogbookRecords", 2},
                                          {"LogbookComments", 1},
                                          {"LogbookFiles", 1}}));
}

void OldShifts_test::historiesReadNoRowsOfOtherArchivedShifts()
{
    // Rows that another client removed before, between and after.
    const auto removeOne = [this](const char* key) {
        add({{"LogbookComments", ROW_INSERT, key, {{"RecordKey", "REC_ORDER"}, {"text_", "Лишнее"}}}});
        add({{"LogbookComments", ROW_DELETE, key, {}}});
    };
    addShift("SHIFT_ODS_1", "DEP_ODS", 500);
    addShift("SHIFT_ODS_2", "DEP_ODS", 450);
    addShift("SHIFT_ODS_3", "DEP_ODS", 400);
    removeOne("COM_1");
    StoreError error;
    const auto loader = m_store->openLoader();
    OldShifts shifts(loader.get());
    QVERIFY(shifts.load(TestStore::now(), "DEP_ODS", &error));
    QCOMPARE(shifts.leaving().size(), 2);
    QVERIFY(shifts.remove(shifts.leaving().at(0), &error) == OldShifts::Outcome::Removed);
    removeOne("COM_2");
    QVERIFY(shifts.remove(shifts.leaving().at(1), &error) == OldShifts::Outcome::Removed);
    removeOne("COM_3");
    const auto store = m_store->open(QStringLiteral("petrov"));
    const auto log = store->evidence(Store::Access::Read, &error);
    QVector<RowChange> changes;
    QVERIFY(LogHistory(log.get()).ofRecord("REC_ORDER", &changes));
    QSet<QByteArray> comments;
    for (const RowChange& change : qAsConst(changes))
        if (change.table == "LogbookComments")
            comments.insert(change.key);
    QCOMPARE(comments, (QSet<QByteArray>{"COM_READ", "COM_1", "COM_2", "COM_3"}));
    CountedLog counted(log.get());
    changes.clear();
    QVERIFY(LogHistory(&counted).ofWorkshift("SHIFT_CDS_OPEN", &changes));
    QCOMPARE(counted.removedKeys, (QSet<QByteArray>{"COM_1", "COM_2", "COM_3"}));
    counted.removedKeys.clear();
    QVERIFY(LogHistory(&counted).ofWorkshift("SHIFT_ODS_1", &changes));
    QVERIFY(counted.removedKeys.contains("REC_OF_SHIFT_ODS_1"));
    QVERIFY(!counted.removedKeys.contains("REC_OF_SHIFT_ODS_2"));
}

void OldShifts_test::archivedShiftsAreThoseOfTheDepartment()
{
    addShift("SHIFT_ODS_1", "DEP_ODS", 500);
    addShift("SHIFT_ODS_2", "DEP_ODS", 400);
    QCOMPARE(seal(), 0);
    QCOMPARE(archive(), 0);
    StoreError error;
    const auto store = m_store->open(QStringLiteral("petrov"));
    const auto log = store->evidence(Store::Access::Read, &error);
    const auto found = [&](const char* department) {
        QVector<RowChange> shifts;
        QByteArrayList keys;
        if (!LogHistory(log.get()).archivedShifts(department, &shifts))
            qFatal("the log cannot be read");
        for (const RowChange& shift : qAsConst(shifts))
            keys.append(shift.key);
        return keys;
    };
    QCOMPARE(found("DEP_ODS"), QByteArrayList{"SHIFT_ODS_1"});
    QCOMPARE(found("DEP_CDS"), QByteArrayList{"SHIFT_CDS_PAST"});
    QCOMPARE(found("DEP_ZAR"), QByteArrayList());
    QCOMPARE(found("").size(), 2);
}

void OldShifts_test::filesAreKeptUnderHarmlessNames()
{
    add({{"LogbookFiles",
          ROW_INSERT,
          "FILE_PAST_2",
          {{"RecordKey", "REC_PAST_2"}, {"fileName", "=без окончания"}, {"fileData", QByteArray("other")}}},
         {"LogbookFiles", ROW_INSERT, "FILE_PAST_3", {{"RecordKey", "REC_PAST_2"}, {"fileName", "a.b/c"}}}});
    QCOMPARE(seal(), 0);
    QCOMPARE(archive(), 0);
    QCOMPARE(m_admin->bytes(QStringLiteral("kept/files/000001.pdf")), QByteArray("content of the act"));
    QCOMPARE(m_admin->bytes(QStringLiteral("kept/files/000002")), QByteArray("other"));
    QVERIFY(QFile::exists(folder() + QStringLiteral("/files/000003")));
    QVERIFY(m_admin->bytes(QStringLiteral("kept/files.csv")).contains("'=без окончания"));
    const QByteArray hash =
        QCryptographicHash::hash("content of the act", QCryptographicHash::Sha256).toHex();
    QVERIFY(m_admin->bytes(QStringLiteral("kept/evidence/log.jsonl")).contains(hash));
    QProcess sums;
    sums.setWorkingDirectory(folder());
    sums.start(QStringLiteral("sha256sum"), {QStringLiteral("-c"), QStringLiteral("SHA256SUMS")});
    QVERIFY(sums.waitForFinished());
    QCOMPARE(sums.exitCode(), 0);
    QCOMPARE(sums.readAllStandardOutput().count(": OK\n"), 3);
}

void OldShifts_test::whatIsNotSealedStays()
{
    add({{"LogbookComments",
          ROW_INSERT,
          "COM_LATE",
          {{"RecordKey", "REC_PAST_1"}, {"WorkerKey", "WORKER_PETROV"}, {"text_", "Позднее"}}}});
    QCOMPARE(archive(), int(Command::Failed));
    QVERIFY2(m_admin->err.contains(QStringLiteral("ещё не опечатаны")), qPrintable(m_admin->err));
    QVERIFY(isThere("SHIFT_CDS_PAST"));
    QCOMPARE(seal(), 0);
    QVERIFY(QDir(folder()).removeRecursively());
    QCOMPARE(archive(), 0);
    QVERIFY(!isThere("SHIFT_CDS_PAST"));
}

void OldShifts_test::theLastShiftOfADepartmentStays()
{
    addShift("SHIFT_ODS_1", "DEP_ODS", 500);
    addShift("SHIFT_ODS_2", "DEP_ODS", 400);
    QCOMPARE(seal(), 0);
    QCOMPARE(archive(), 0);
    QVERIFY(!isThere("SHIFT_ODS_1"));
    QVERIFY(isThere("SHIFT_ODS_2"));
}

void OldShifts_test::anOpenShiftStays()
{
    addShift("SHIFT_ODS_1", "DEP_ODS", 500);
    addShift("SHIFT_ODS_2", "DEP_ODS", 400);
    add({{"LogbookWorkshifts", ROW_UPDATE, "SHIFT_ODS_1", {{"CloseWorkerKey", nullptr}}}});
    QCOMPARE(seal(), 0);
    QCOMPARE(archive(), 0);
    QVERIFY(isThere("SHIFT_ODS_1"));
    QVERIFY(!isThere("SHIFT_CDS_PAST"));
}

void OldShifts_test::aLaterShiftStays()
{
    const QDateTime limit = QDateTime::fromSecsSinceEpoch(qint64(TestStore::now()) - 100 * 86400);
    addShift("SHIFT_CDS_1", "DEP_CDS", 200);
    QCOMPARE(seal(), 0);
    const QString day = limit.toTimeZone(QTimeZone("Europe/Moscow")).toString(QStringLiteral("dd.MM.yyyy"));
    QCOMPARE(
        int(m_admin->call("archive", {folder(), QStringLiteral("--before"), day, QStringLiteral("--write")})),
        0);
    QVERIFY(!isThere("SHIFT_CDS_1"));
    QVERIFY(isThere("SHIFT_CDS_PAST"));
}

void OldShifts_test::aShiftWithAReplacedRecordStays()
{
    add({{"LogbookRecords", ROW_UPDATE, "REC_ORDER", {{"OriginRecordKey", "REC_PAST_1"}}}});
    QCOMPARE(seal(), 0);
    QCOMPARE(archive(), 0);
    QVERIFY2(
        m_admin->out.startsWith(QStringLiteral("Убирать нечего.\nОстаются, потому что их записи заменены")),
        qPrintable(m_admin->out));
    QVERIFY(m_admin->out.contains(QStringLiteral("ЦДС: смен 1, с ")));
    QVERIFY(isThere("SHIFT_CDS_PAST"));
    QVERIFY(!QFile::exists(folder()));
}

void OldShifts_test::aShiftThatIsNeededByANeededOneStays()
{
    addShift("SHIFT_CDS_1", "DEP_CDS", 300);
    addShift("SHIFT_CDS_2", "DEP_CDS", 200, "REC_OF_SHIFT_CDS_1");
    addShift("SHIFT_CDS_3", "DEP_CDS", 250);
    addShift("SHIFT_CDS_4", "DEP_CDS", 240, "REC_OF_SHIFT_CDS_3");
    add({{"LogbookRecords", ROW_UPDATE, "REC_ORDER", {{"OriginRecordKey", "REC_OF_SHIFT_CDS_2"}}}});
    QCOMPARE(seal(), 0);
    QCOMPARE(archive(), 0);
    QVERIFY(isThere("SHIFT_CDS_1"));
    QVERIFY(isThere("SHIFT_CDS_2"));
    QVERIFY(!isThere("SHIFT_CDS_3"));
    QVERIFY(!isThere("SHIFT_CDS_4"));
    QCOMPARE(seal(), 0);
    QVERIFY2(check() == 0, qPrintable(m_admin->out));
}

void OldShifts_test::oneDepartmentMayBeChosen()
{
    addShift("SHIFT_ODS_1", "DEP_ODS", 500);
    addShift("SHIFT_ODS_2", "DEP_ODS", 400);
    QCOMPARE(seal(), 0);
    QCOMPARE(archive({QStringLiteral("--department"), QStringLiteral("ОДС"), QStringLiteral("--write")}), 0);
    QVERIFY(!isThere("SHIFT_ODS_1"));
    QVERIFY(isThere("SHIFT_CDS_PAST"));
}

void OldShifts_test::aShiftThatIsChangedMeanwhileStays()
{
    addShift("SHIFT_ODS_1", "DEP_ODS", 500);
    addShift("SHIFT_ODS_2", "DEP_ODS", 450);
    addShift("SHIFT_ODS_3", "DEP_ODS", 420);
    addShift("SHIFT_ODS_4", "DEP_ODS", 400);
    add({{"LogbookComments",
          ROW_INSERT,
          "COM_OLD",
          {{"RecordKey", "REC_OF_SHIFT_ODS_3"}, {"text_", "Снятое"}}}});
    StoreError error;
    const auto loader = m_store->openLoader();
    OldShifts shifts(loader.get());
    QVERIFY(shifts.load(TestStore::now(), QByteArray(), &error));
    QCOMPARE(shifts.leaving().size(), 4);
    add({{"LogbookRecords", ROW_UPDATE, "REC_OF_SHIFT_ODS_1", {{"html", "Переписано"}}}});
    add({{"LogbookComments", ROW_INSERT, "COM_NEW", {{"RecordKey", "REC_PAST_2"}, {"text_", "Добавлено"}}}});
    add({{"LogbookComments", ROW_DELETE, "COM_OLD", {}}});
    QCOMPARE(shifts.leaving().at(0).key, QByteArray("SHIFT_ODS_1"));
    QVERIFY(shifts.remove(shifts.leaving().at(0), &error) == OldShifts::Outcome::Changed);
    QVERIFY(shifts.remove(shifts.leaving().at(1), &error) == OldShifts::Outcome::Removed);
    QVERIFY(shifts.remove(shifts.leaving().at(2), &error) == OldShifts::Outcome::Changed);
    QVERIFY(shifts.remove(shifts.leaving().at(3), &error) == OldShifts::Outcome::Changed);
    QVERIFY(!error);
    QVERIFY(isThere("SHIFT_ODS_1"));
    QVERIFY(!isThere("SHIFT_ODS_2"));
    QVERIFY(isThere("SHIFT_ODS_3"));
    QVERIFY(isThere("SHIFT_CDS_PAST"));
}

void OldShifts_test::aFileThatTheLogDoesNotKnowStays()
{
    Forger(*m_store).forge(
        QStringLiteral("UPDATE LogbookFiles SET fileData = %1 WHERE KeyLink = 'FILE_PAST'")
            .arg(TestStore::isSqlite() ? QStringLiteral("x'313233'") : QStringLiteral("'\\x313233'::bytea")),
        false);
    QCOMPARE(archive(), int(Command::Failed));
    QVERIFY2(m_admin->err.contains(QStringLiteral("осмотра.PDF» не тот, что в журнале изменений")),
             qPrintable(m_admin->err));
    QVERIFY(isThere("SHIFT_CDS_PAST"));
}

void OldShifts_test::aFolderThatCannotBeWrittenKeepsTheShift()
{
    QVERIFY(QDir().mkpath(folder()));
    QFile other(folder() + QStringLiteral("/other"));
    QVERIFY(other.open(QIODevice::WriteOnly));
    QCOMPARE(archive(), int(Command::Failed));
    QVERIFY(m_admin->err.contains(QStringLiteral("должна быть новой или пустой")));
    const QString below = folder() + QStringLiteral("/other/kept");
    QCOMPARE(
        int(m_admin->call("archive", {below, QStringLiteral("--before"), now(), QStringLiteral("--write")})),
        int(Command::Failed));
    QVERIFY(isThere("SHIFT_CDS_PAST"));
}

void OldShifts_test::wrongWordsAreRefused()
{
    QCOMPARE(int(m_admin->call("archive", {folder()})), int(Command::WrongUsage));
    QCOMPARE(int(m_admin->call("archive", {QStringLiteral("--before"), now()})), int(Command::WrongUsage));
    const auto before = [&](const char* text) {
        return m_admin->call("archive", {folder(), QStringLiteral("--before"), QString::fromUtf8(text)});
    };
    QCOMPARE(int(before("вчера")), int(Command::Failed));
    QVERIFY(m_admin->err.contains(QStringLiteral("«вчера» не время")));
    QCOMPARE(int(before("01.01.2199")), int(Command::Failed));
    QVERIFY(m_admin->err.contains(QStringLiteral("ещё не наступило")));
    QCOMPARE(archive({QStringLiteral("--department"), QStringLiteral("Нигде")}), int(Command::Failed));
    QVERIFY(m_admin->err.contains(QStringLiteral("Подразделения «Нигде» нет")));
}

QTEST_GUILESS_MAIN(OldShifts_test)
#include "OldShifts_test.moc"
