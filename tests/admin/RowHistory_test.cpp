#include "EvidenceBench.h"
#include "EvidenceLog.h"
#include "Forger.h"
#include "LogHistory.h"

/// What the change log says about a row, and about a past state.
class RowHistory_test : public EvidenceBench
{
    Q_OBJECT

private slots:
    void init() { reset(); }

    void historyNamesWhoChangedWhat();
    void historyOfAnUnknownKeyFails();
    void historyOfARecordHasItsLostParts();
    void historyTakesNoForeignRowOfTheSameKey();
    void aShiftHasTheHistoryOfItsRows();
    void anExportShowsAPastState();
    void anExportOfNoPastTimeIsRefused();
};

void RowHistory_test::historyNamesWhoChangedWhat()
{
    write("второй вариант");
    QCOMPARE(int(m_admin->call("history", {QStringLiteral("REC_DRAFT_IVANOV")})), 0);
    const QStringList lines = m_admin->out.split(QLatin1Char('\n'));
    QCOMPARE(lines.filter(QStringLiteral("транзакция")).size(), 2);
    QCOMPARE(lines.filter(QStringLiteral("LogbookRecords: внесена")).size(), 1);
    QCOMPARE(lines.filter(QStringLiteral("LogbookRecords: изменена")).size(), 1);
    QVERIFY2(lines.filter(QStringLiteral("ivanov")).value(0).contains(QStringLiteral("Иванов")),
             qPrintable(m_admin->out));
    QVERIFY2(lines.filter(QStringLiteral("html: ")).value(1).endsWith(QStringLiteral(" -> второй вариант")),
             qPrintable(m_admin->out));
}

void RowHistory_test::historyOfAnUnknownKeyFails()
{
    QCOMPARE(int(m_admin->call("history", {QStringLiteral("NOBODY")})), int(Command::Failed));
    QVERIFY(m_admin->err.contains(QStringLiteral("NOBODY")));
    QCOMPARE(int(m_admin->call("history")), int(Command::WrongUsage));
}

void RowHistory_test::historyOfARecordHasItsLostParts()
{
    StoreError error;
    const auto store = m_store->open(QStringLiteral("petrov"));
    QVERIFY(TestStore::write(store.get(), "LogbookComments", ROW_INSERT, "COM_GONE",
                             {{"RecordKey", "REC_ORDER"},
                              {"WorkerKey", "WORKER_PETROV"},
                              {"commentTime", TestStore::now()},
                              {"text_", "лишнее"}}));
    QVERIFY(TestStore::write(store.get(), "LogbookComments", ROW_DELETE, "COM_GONE"));
    const auto log = store->evidence(Store::Access::Read, &error);
    QVector<RowChange> changes;
    QVERIFY2(LogHistory(log.get()).ofRecord("REC_ORDER", &changes), qPrintable(error.text + error.detail));
    QStringList deeds;
    for (const RowChange& change : qAsConst(changes))
        deeds << change.deed();
    QCOMPARE(deeds,
             (QStringList{QStringLiteral("Внесена запись"), QStringLiteral("Добавлен комментарий"),
                          QStringLiteral("Добавлен комментарий"), QStringLiteral("Комментарий удалён")}));
    QCOMPARE(changes.last().was("text_").toString(), QStringLiteral("лишнее"));
    QCOMPARE(changes.last().login, QStringLiteral("petrov"));
    changes.clear();
    QVERIFY(LogHistory(log.get()).ofRecord("REC_TRIP", &changes));
    const QVariantMap content = changes.last().is("fileData").toMap();
    QCOMPARE(content.value(QStringLiteral("sha256")).toString().size(), 64);
    QVERIFY(content.value(QStringLiteral("length")).toInt() > 0);
}

void RowHistory_test::historyTakesNoForeignRowOfTheSameKey()
{
    StoreError error;
    const auto store = m_store->open(QStringLiteral("petrov"));
    QVERIFY(
        TestStore::write(store.get(), "LogbookComments", ROW_INSERT, "REC_ORDER",
                         {{"RecordKey", "REC_OPENING"}, {"WorkerKey", "WORKER_PETROV"}, {"text_", "чужое"}}));
    const auto log = store->evidence(Store::Access::Read, &error);
    QVector<RowChange> changes;
    QVERIFY(LogHistory(log.get()).ofRecord("REC_ORDER", &changes));
    for (const RowChange& change : qAsConst(changes))
        QVERIFY(change.is("text_").toString() != QStringLiteral("чужое"));
    QCOMPARE(changes.size(), 2);
}

void RowHistory_test::aShiftHasTheHistoryOfItsRows()
{
    StoreError error;
    const auto store = m_store->open(QStringLiteral("petrov"));
    QVERIFY(TestStore::write(store.get(), "LogbookRecords", ROW_DELETE, "REC_DRAFT_PETROV"));
    const auto log = store->evidence(Store::Access::Read, &error);
    QVector<RowChange> changes;
    QVERIFY(LogHistory(log.get()).ofWorkshift("SHIFT_CDS_OPEN", &changes));
    QMap<QByteArray, int> counts;
    for (const RowChange& change : qAsConst(changes))
        ++counts[change.table];
    QCOMPARE(counts, (QMap<QByteArray, int>{{"LogbookWorkshifts", 1},
                                            {"LogbookWorkersWorkshift", 2},
                                            {"LogbookRecords", 9},
                                            {"LogbookComments", 2},
                                            {"LogbookFiles", 2}}));
    QCOMPARE(changes.last().deed(), QStringLiteral("Черновик удалён"));
}

void RowHistory_test::anExportShowsAPastState()
{
    // A log with known times: two seconds between what was and what is.
    const auto loader = m_store->openLoader();
    QVERIFY(
        TestStore::write(loader.get(), "Departments", ROW_UPDATE, "DEP_ODS", {{"name_", "Переименован"}}));
    QVERIFY(TestStore::write(loader.get(), "Roles", ROW_DELETE, "ROLE_ZAR"));
    QVERIFY(TestStore::write(loader.get(), "OrgTypes", ROW_INSERT, "TYPE_NEW", {{"name_", "Новый тип"}}));
    Forger(*m_store).forge(QStringLiteral("UPDATE ChangeTransactions SET time = CASE WHEN number + 3 >"
                                          " (SELECT max(number) FROM ChangeTransactions) THEN 1700003600"
                                          " ELSE 1700000000 END"),
                           false);
    const QString folder = m_admin->path(QStringLiteral("past"));
    const QStringList at{folder, QStringLiteral("--at")};
    QCOMPARE(m_admin->call("export", at + QStringList{QStringLiteral("15.11.2023 01:30")}), 0);
    const auto sheet = [&](const char* name) {
        return QString::fromUtf8(m_admin->bytes(QStringLiteral("past/") + QLatin1String(name)));
    };
    QVERIFY(sheet("departments.csv").contains(QStringLiteral("ОДС")));
    QVERIFY(!sheet("departments.csv").contains(QStringLiteral("Переименован")));
    QVERIFY2(sheet("roles.csv").contains(QStringLiteral("ROLE_ZAR")), qPrintable(sheet("roles.csv")));
    QVERIFY(!sheet("organization-types.csv").contains(QStringLiteral("Новый тип")));
    // Of what the log knows at its end, the sheets are those of today.
    QCOMPARE(m_admin->call("export", at + QStringList{QStringLiteral("15.11.2023 03:00")}), 0);
    QCOMPARE(m_admin->call("export", {m_admin->path(QStringLiteral("now"))}), 0);
    for (const QString& name : QDir(folder).entryList(QDir::Files))
        QCOMPARE(m_admin->bytes(QStringLiteral("past/") + name),
                 m_admin->bytes(QStringLiteral("now/") + name));
}

void RowHistory_test::anExportOfNoPastTimeIsRefused()
{
    const QString folder = m_admin->path(QStringLiteral("past"));
    const auto fails = [&](const char* time, const char* reason) {
        return m_admin->call("export", {folder, QStringLiteral("--at"), QLatin1String(time)}) ==
                   Command::Failed &&
               m_admin->err.contains(QString::fromUtf8(reason)) && !QFile::exists(folder);
    };
    QVERIFY2(fails("1.1.2001 08:00", "начинается позже"), qPrintable(m_admin->err));
    QVERIFY2(fails("1.1.2090 08:00", "ещё не наступило"), qPrintable(m_admin->err));
    QVERIFY2(fails("yesterday", "не разобрано"), qPrintable(m_admin->err));
}

QTEST_GUILESS_MAIN(RowHistory_test)
#include "RowHistory_test.moc"
