#include "MDRValues.h"
#include "StoreAdmin.h"
#include "TestStore.h"

#include <QFile>
#include <QTest>

class StoreAdmin_test : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestStore> m_files;
    StoreError m_error;

    QStringList findings(const QString& url, StoreAdmin::Finding::Grade grade)
    {
        QVector<StoreAdmin::Finding> all;
        m_error.clear();
        if (!StoreAdmin::check(url, &all, &m_error))
            return {QStringLiteral("failed: ") + m_error.text};
        QStringList texts;
        for (const StoreAdmin::Finding& finding : qAsConst(all))
            if (finding.grade == grade)
                texts.append(finding.text);
        return texts;
    }
    QStringList faults() { return findings(m_files->url(), StoreAdmin::Finding::Fault); }
    QStringList notes() { return findings(m_files->url(), StoreAdmin::Finding::Note); }

    /// Changes data without the store: removes the triggers, makes the change, restores the triggers.
    void tamper(const QString& sql, const QStringList& triggers = {})
    {
        QString whole = QStringLiteral("PRAGMA foreign_keys = OFF;");
        QString back;
        for (const QString& trigger : triggers) {
            const QString text =
                m_files->value(QStringLiteral("SELECT sql FROM sqlite_schema WHERE name = '%1'").arg(trigger))
                    .toString();
            QVERIFY(!text.isEmpty());
            whole += QStringLiteral("DROP TRIGGER %1;").arg(trigger);
            back += text + QLatin1Char(';');
        }
        QCOMPARE(m_files->exec(whole + sql + QLatin1Char(';') + back), QString());
    }
    void load(const char* table, MDRFlag flag, const char* key, const TestStore::Fields& fields = {})
    {
        QVERIFY2(TestStore::write(m_files->openLoader().get(), table, flag, key, fields, &m_error),
                 qPrintable(m_error.text));
    }

private slots:
    void init()
    {
        m_files = std::make_unique<TestStore>();
        m_error.clear();
    }

    // Making

    void initMakesAnEmptyCleanStore()
    {
        const QTemporaryDir folder;
        const QString file = folder.filePath(QStringLiteral("new.vrk"));
        const QString url = QStringLiteral("sqlite://") + file;
        QVERIFY(StoreAdmin::init(url, "Windows-1251", "Asia/Irkutsk", &m_error));
        QCOMPARE(findings(url, StoreAdmin::Finding::Fault), QStringList());
        const auto store = Store::open(url, Store::Options(), &m_error);
        QVERIFY(store);
        QCOMPARE(store->timeZone(), QByteArray("Asia/Irkutsk"));
        QVERIFY(store->logins().isEmpty());
        ChangePosition position;
        QVERIFY(store->position(&position, &m_error));
        QCOMPARE(position.number, 1); // the creation itself
        QCOMPARE(position.epoch.size(), 32);
    }

    void initTouchesNothingThatIsThere()
    {
        QVERIFY(!StoreAdmin::init(m_files->url(), "Windows-1251", "Europe/Moscow", &m_error));
        QCOMPARE(m_error.code, StoreError::BadRequest);
        QCOMPARE(m_error.text, QString::fromUtf8("Файл «%1» уже существует.").arg(m_files->path()));
        QCOMPARE(m_files->value(QStringLiteral("SELECT count(*) FROM Workers")).toInt(), 6);
    }

    void initRefusesWhatItDoesNotKnow()
    {
        const QTemporaryDir folder;
        const QString url = QStringLiteral("sqlite://") + folder.filePath(QStringLiteral("new.vrk"));
        QVERIFY(!StoreAdmin::init(url, "UTF-16", "Europe/Moscow", &m_error));
        QCOMPARE(m_error.text, QString::fromUtf8("Кодировка «UTF-16» не поддерживается."));
        QVERIFY(!StoreAdmin::init(url, "Windows-1251", "Mars/Olympus", &m_error));
        QCOMPARE(m_error.text, QString::fromUtf8("Часовой пояс «Mars/Olympus» неизвестен."));
        QVERIFY(!StoreAdmin::init(QStringLiteral("sqlite:///no/such/folder/x"), "Windows-1251",
                                  "Europe/Moscow", &m_error));
        QCOMPARE(m_error.code, StoreError::Missing);
        QVERIFY(QDir(folder.path()).isEmpty());
    }

    void initThatCannotFillItsStoreLeavesNone()
    {
        const QString file = m_files->path() + QStringLiteral(".half");
        const QString url = QStringLiteral("sqlite://") + file;
        StoreError error;
        const auto fill = [](Store* store, StoreError* reason) {
            if (!TestStore::write(store, "Roles", ROW_INSERT, "A"))
                qFatal("the store cannot be written");
            *reason = {StoreError::Full, QStringLiteral("Места нет."), QString()};
            return false;
        };
        QVERIFY(!StoreAdmin::init(url, "Windows-1251", "Europe/Moscow", &error, fill));
        QCOMPARE(error.text, QStringLiteral("Места нет."));
        for (const char* suffix : {"", "-wal", "-shm"})
            QVERIFY(!QFile::exists(file + QLatin1String(suffix)));
        const auto filled = [](Store* store, StoreError*) {
            return TestStore::write(store, "Roles", ROW_INSERT, "A");
        };
        QVERIFY(StoreAdmin::init(url, "Windows-1251", "Europe/Moscow", &error, filled));
        QVector<StoreAdmin::Finding> findings;
        QVERIFY(StoreAdmin::check(url, &findings, &error));
        QVERIFY(findings.isEmpty());
    }

    void storeInUtf8HoldsEveryCharacter()
    {
        const QTemporaryDir folder;
        const QString url = QStringLiteral("sqlite://") + folder.filePath(QStringLiteral("new.vrk"));
        QVERIFY(StoreAdmin::init(url, "UTF-8", "Europe/Moscow", &m_error));
        Store::Options options;
        options.loader = true;
        const auto store = Store::open(url, options, &m_error);
        const QByteArray text = QString::fromUtf8("Смена → 😀").toUtf8();
        QVERIFY(TestStore::write(store.get(), "Roles", ROW_INSERT, "A", {{"name_", text}}));
        CMDArray answer;
        answer = store->select("SELECT name_ FROM Roles", &m_error);
        MDRVar value;
        MDRGetVal(MDRFldByNum(answer.array, 0), MDARec(answer.array, 0, 0), &value);
        QCOMPARE(MDRValue::copy(value), text);
    }

    // Checking

    void storeAfterManyWritesIsClean()
    {
        load("LogbookRecords", ROW_UPDATE, "REC_ORDER", {{"status", 2}});
        load("LogbookFiles", ROW_UPDATE, "FILE_TEXT", {{"fileData", QByteArray("new")}});
        load("LogbookRecords", ROW_DELETE, "REC_TRIP");
        QCOMPARE(faults(), QStringList());
        QCOMPARE(notes(), QStringList());
    }

    void changedRowIsFound()
    {
        tamper(QStringLiteral("UPDATE LogbookRecords SET html = 'forged' WHERE KeyLink = 'REC_ORDER'"),
               {QStringLiteral("Log_LogbookRecords_update"), QStringLiteral("Sign_LogbookRecords_update"),
                QStringLiteral("Rule_Records_update"), QStringLiteral("Rule_Records_visa"),
                QStringLiteral("Rule_Records_secondMark"), QStringLiteral("Search_Records_update")});
        QCOMPARE(faults(),
                 (QStringList{
                     QString::fromUtf8("Поиск по архиву не видит записи такими, какие они есть: 1, например "
                                       "«REC_ORDER». Исправит vrk-admin check --rebuild-search."),
                     QString::fromUtf8("Строка «REC_ORDER» таблицы «LogbookRecords» изменена в обход журнала "
                                       "изменений.")}));
    }

    void removedRowIsFound()
    {
        tamper(QStringLiteral("DELETE FROM LogbookComments WHERE KeyLink = 'COM_READ'"),
               {QStringLiteral("Log_LogbookComments_delete")});
        QCOMPARE(faults(), QStringList{QString::fromUtf8(
                               "Строка «COM_READ» таблицы «LogbookComments» исчезла в обход журнала "
                               "изменений.")});
    }

    void changedLogBreaksTheChain()
    {
        tamper(
            QStringLiteral("UPDATE ChangeLog SET newRow = replace(newRow, 'Петров', 'Иванов') WHERE rowKey = "
                           "'USER_PETROV'"),
            {QStringLiteral("Log_noUpdate")});
        const qint64 number =
            m_files->value(QStringLiteral("SELECT number FROM ChangeLog WHERE rowKey = 'USER_PETROV'"))
                .toLongLong();
        QVERIFY(faults().contains(
            QString::fromUtf8("Транзакция %1 журнала изменений изменена после записи.").arg(number)));
    }

    void changedAuthorOfATransactionBreaksTheChain()
    {
        for (const char* column : {"login = 'petrov'", "loader = 0", "time = time + 1", "batchKey = 'X'"}) {
            init();
            tamper(QStringLiteral("UPDATE ChangeTransactions SET %1 WHERE number = 5")
                       .arg(QLatin1String(column)),
                   {QStringLiteral("Transactions_noUpdate")});
            QCOMPARE(faults(),
                     QStringList{QString::fromUtf8("Транзакция 5 журнала изменений изменена после записи.")});
        }
    }

    void removedTransactionIsFound()
    {
        tamper(QStringLiteral("DELETE FROM ChangeTransactions WHERE number = 5"),
               {QStringLiteral("Transactions_noDelete")});
        const QStringList found = faults();
        QVERIFY(found.contains(QString::fromUtf8("В журнале изменений нет транзакций с 5 по 5.")));
        QVERIFY(found.contains(QString::fromUtf8("Транзакция 6 журнала изменений изменена после записи.")));
        QVERIFY(found.contains(
            QString::fromUtf8("Строки журнала изменений не принадлежат ни одной транзакции (5).")));
    }

    void removedOrChangedTriggerIsFound()
    {
        tamper(QStringLiteral("DROP TRIGGER Rule_Records_visa"));
        QCOMPARE(faults(),
                 QStringList{QString::fromUtf8("В схеме хранилища недостаёт «trigger Rule_Records_visa».")});
        tamper(QStringLiteral("CREATE TRIGGER Rule_Records_visa AFTER UPDATE ON Roles BEGIN SELECT 1; END"));
        QCOMPARE(faults(),
                 QStringList{QString::fromUtf8("В схеме хранилища изменено «trigger Rule_Records_visa».")});
        init();
        tamper(QStringLiteral("CREATE TABLE Extra (x)"));
        QCOMPARE(faults(), QStringList{QString::fromUtf8("В схеме хранилища есть лишнее «table Extra».")});
    }

    void changedPropertiesAndFilesAreFound()
    {
        const QString options = QStringLiteral("options");
        for (const char* name : {"A", "B", "C"})
            QVERIFY(StoreAdmin::putFile(m_files->url(), options, QLatin1String(name), "1", &m_error));
        QVERIFY(StoreAdmin::putFile(m_files->url(), options, QStringLiteral("A"), "2", &m_error));
        QVERIFY(StoreAdmin::removeFile(m_files->url(), options, QStringLiteral("C"), &m_error));
        QCOMPARE(faults(), QStringList());
        QCOMPARE(m_files
                     ->value(QStringLiteral(
                         "SELECT group_concat(rowKey || ' ' || event, ', ') FROM (SELECT * FROM "
                         "ChangeLog WHERE tableName = 'StoreFiles' ORDER BY entry)"))
                     .toString(),
                 QStringLiteral("options/A 601, options/B 601, options/C 601, options/A 602, options/C 603"));
        for (const char* sql : {"UPDATE StoreProperties SET value = 'UTF-8' WHERE name = 'codec'",
                                "UPDATE StoreFiles SET content = x'31' WHERE name = 'A'",
                                "DELETE FROM StoreFiles WHERE name = 'B'",
                                "INSERT INTO StoreFiles VALUES ('options', 'D', x'31')"})
            QVERIFY2(!m_files->exec(QLatin1String(sql)).isEmpty(), sql);
        tamper(QStringLiteral("UPDATE StoreProperties SET value = 'UTF-8' WHERE name = 'codec';"
                              "UPDATE StoreFiles SET content = x'31' WHERE name = 'A';"
                              "DELETE FROM StoreFiles WHERE name = 'B';"
                              "INSERT INTO StoreFiles VALUES ('options', 'D', x'31')"),
               {QStringLiteral("Log_StoreProperties_update"), QStringLiteral("Log_StoreFiles_update"),
                QStringLiteral("Log_StoreFiles_delete"), QStringLiteral("Log_StoreFiles_insert")});
        QStringList found = faults();
        found.sort();
        QCOMPARE(
            found,
            (QStringList{QStringLiteral("Строка «codec» таблицы «StoreProperties» изменена в обход журнала "
                                        "изменений."),
                         QStringLiteral("Строка «options/A» таблицы «StoreFiles» изменена в обход журнала "
                                        "изменений."),
                         QStringLiteral("Строка «options/B» таблицы «StoreFiles» исчезла в обход журнала "
                                        "изменений."),
                         QStringLiteral("Строка «options/D» таблицы «StoreFiles» изменена в обход журнала "
                                        "изменений.")}));
    }

    void danglingReferencesAreFound()
    {
        tamper(QStringLiteral("DELETE FROM LogbookCatsTemplate WHERE KeyLink = 'CAT_NETS'"),
               {QStringLiteral("Log_LogbookCatsTemplate_delete")});
        QVERIFY(faults().contains(QString::fromUtf8("Строка таблицы «LogbookTemplates» ссылается на строку "
                                                    "таблицы «LogbookCatsTemplate», которой нет.")));
        init();
        load("Departments", ROW_DELETE, "DEP_ODS"); // no reference of the engine keeps it
        QVERIFY(faults().contains(QString::fromUtf8(
            "Поле «Workers.DepartmentKey» строки «WORKER_SMIRNOV_ODS» указывает на строку, которой нет.")));
    }

    void unknownWorkersAreOnlyNoted()
    {
        load("WorkerRoles", ROW_DELETE, "WROLE_PETROV");
        load("Workers", ROW_DELETE, "WORKER_PETROV");
        QCOMPARE(faults(), QStringList());
        QVERIFY(notes().contains(QString::fromUtf8(
            "Поле «LogbookRecords.WorkerKey» строки «REC_ORDER» указывает на строку, которой нет.")));
    }

    void statesThatCannotBeAreFound()
    {
        load("LogbookRecords", ROW_UPDATE, "REC_ORDER", {{"status", 5}});
        load("LogbookRecords", ROW_UPDATE, "REC_ZAR", {{"status", nullptr}});
        load("LogbookRecords", ROW_UPDATE, "REC_PAST_1", {{"ShiftKey", nullptr}});
        const QStringList found = faults();
        QCOMPARE(found.size(), 3);
        QVERIFY(found.contains(QString::fromUtf8("У записи «REC_ORDER» недопустимое состояние 5.")));
        QVERIFY(found.contains(QString::fromUtf8("У записи «REC_ZAR» недопустимое состояние NULL.")));
        QVERIFY(found.contains(QString::fromUtf8("Запись «REC_PAST_1» не принадлежит ни одной смене.")));
    }

    void circlesAreFound()
    {
        load("Departments", ROW_UPDATE, "DEP_CDS", {{"ParentKey", "DEP_ZAR"}});
        const QStringList found = faults();
        QCOMPARE(found.size(), 2);
        QVERIFY(found.contains(
            QString::fromUtf8("Строка «DEP_CDS» таблицы «Departments» лежит внутри самой себя.")));
    }

    void workshiftWithoutCrewOrRecordIsANote()
    {
        load("LogbookWorkshifts", ROW_INSERT, "S",
             {{"DepartmentKey", "DEP_ODS"}, {"OpenWorkerKey", "WORKER_SMIRNOV_ODS"}});
        QCOMPARE(faults(), QStringList());
        QCOMPARE(notes(),
                 QStringList{QString::fromUtf8("Смена «S» не имеет состава или записей: её открытие было "
                                               "прервано.")});
    }

    void unfinishedTransactionIsFound()
    {
        tamper(QStringLiteral("INSERT INTO CurrentTransaction VALUES (7, 'x', 'y', 0)"));
        QCOMPARE(faults(), QStringList{QString::fromUtf8("Осталась строка незавершённой транзакции 7.")});
    }

    void damagedPagesAreFound()
    {
        QCOMPARE(m_files->exec(QStringLiteral("PRAGMA wal_checkpoint(TRUNCATE)")), QString());
        QFile file(m_files->path());
        QVERIFY(file.open(QIODevice::ReadWrite));
        const qint64 size = file.size();
        for (qint64 page = 20; page < size / 4096; page += 5) {
            file.seek(page * 4096 + 8);
            file.write(QByteArray(200, '\xAA'));
        }
        file.close();
        QVERIFY(!faults().isEmpty());
    }

    // Copying

    void backupIsAWholeStoreWithAHistoryOfItsOwn()
    {
        const QString copy = m_files->path() + QStringLiteral(".copy");
        const auto inUse = m_files->openLoader();
        QVERIFY2(StoreAdmin::backup(m_files->url(), copy, &m_error),
                 qPrintable(m_error.text + m_error.detail));
        QVERIFY(QFile::exists(copy));
        QVERIFY(!QFile::exists(copy + QStringLiteral("-wal")));
        const QString url = QStringLiteral("sqlite://") + copy;
        QCOMPARE(findings(url, StoreAdmin::Finding::Fault), QStringList());
        const auto other = Store::open(url, Store::Options(), &m_error);
        QVERIFY(other);
        ChangePosition here;
        ChangePosition there;
        QVERIFY(inUse->position(&here, &m_error) && other->position(&there, &m_error));
        QCOMPARE(there.number, here.number + 1); // the creation of the copy
        QVERIFY(there.epoch != here.epoch);
        QVERIFY(TestStore::write(inUse.get(), "Roles", ROW_INSERT, "A"));
        CMDArray answer;
        answer = other->select("SELECT * FROM Roles", &m_error);
        QCOMPARE(answer.RecCount(), 3);
    }

    void backupNeverOverwrites()
    {
        const QString copy = m_files->path() + QStringLiteral(".copy");
        QFile file(copy);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("mine");
        file.close();
        QVERIFY(!StoreAdmin::backup(m_files->url(), copy, &m_error));
        QCOMPARE(m_error.text, QString::fromUtf8("Файл «%1» уже существует.").arg(copy));
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll(), QByteArray("mine"));
        QVERIFY(!StoreAdmin::backup(m_files->url(), m_files->path(), &m_error));
    }

    void backupOfATamperedLogIsRefused()
    {
        tamper(QStringLiteral("UPDATE ChangeTransactions SET login = 'x' WHERE number = 5"),
               {QStringLiteral("Transactions_noUpdate")});
        const QString copy = m_files->path() + QStringLiteral(".copy");
        QVERIFY(!StoreAdmin::backup(m_files->url(), copy, &m_error));
        QVERIFY(m_error.text.startsWith(QString::fromUtf8("Копия не прошла проверку: ")));
        QVERIFY(!QFile::exists(copy));
    }

    void backupNeedsAFolder()
    {
        QVERIFY(!StoreAdmin::backup(m_files->url(), QStringLiteral("/no/such/folder/copy"), &m_error));
        QVERIFY(!m_error.text.isEmpty());
    }

    // Logins and rights

    void addedUserSignsIn()
    {
        QVERIFY(StoreAdmin::addUser(m_files->url(), QStringLiteral("новиков"),
                                    QString::fromUtf8("Новиков Н.Н."), &m_error));
        StoreLogin user;
        QVERIFY(m_files->open(QString())->signIn(QStringLiteral("новиков"), &user, &m_error));
        QCOMPARE(user.name, QString::fromUtf8("Новиков Н.Н."));
        QVERIFY(!StoreAdmin::addUser(m_files->url(), QStringLiteral("новиков"), QString(), &m_error));
        QCOMPARE(m_error.text, QString::fromUtf8("Пользователь «новиков» уже есть."));
        QVERIFY(!StoreAdmin::addUser(m_files->url(), QStringLiteral(" "), QString(), &m_error));
        QCOMPARE(m_error.code, StoreError::BadRequest);
    }

    void removedUserComesBackAsTheSame()
    {
        QVERIFY(StoreAdmin::removeUser(m_files->url(), QStringLiteral("petrov"), &m_error));
        QVERIFY(!StoreAdmin::removeUser(m_files->url(), QStringLiteral("petrov"), &m_error));
        QCOMPARE(m_error.code, StoreError::NoSuchRow);
        m_error.clear();
        QVERIFY(StoreAdmin::addUser(m_files->url(), QStringLiteral("petrov"), QStringLiteral("P"), &m_error));
        StoreLogin user;
        QVERIFY(m_files->open(QString())->signIn(QStringLiteral("petrov"), &user, &m_error));
        QCOMPARE(user.key, QByteArray("USER_PETROV"));
        QCOMPARE(faults(), QStringList());
    }

    void rightsAreGivenAndTakenOnce()
    {
        const QString url = m_files->url();
        const QString login = QStringLiteral("ivanov");
        QVERIFY(StoreAdmin::grant(url, login, "TBL_UPDATE", true, &m_error));
        QVERIFY(StoreAdmin::grant(url, login, "TBL_UPDATE", true, &m_error));
        QVERIFY(StoreAdmin::grant(url, login, "SQL_EXEC", true, &m_error));
        QCOMPARE(StoreAdmin::rights(url, login, &m_error), (QVector<QByteArray>{"SQL_EXEC", "TBL_UPDATE"}));
        QVERIFY(StoreAdmin::grant(url, login, "TBL_UPDATE", false, &m_error));
        QVERIFY(StoreAdmin::grant(url, login, "TBL_UPDATE", false, &m_error));
        QCOMPARE(StoreAdmin::rights(url, login, &m_error), QVector<QByteArray>{"SQL_EXEC"});
        QVERIFY(!StoreAdmin::grant(url, QStringLiteral("nobody"), "X", true, &m_error));
        QCOMPARE(m_error.text, QString::fromUtf8("Пользователь «nobody» не найден."));
        m_error.clear();
        QVERIFY(StoreAdmin::rights(url, QStringLiteral("o'brien"), &m_error).isEmpty());
        QCOMPARE(m_error.code, StoreError::NoSuchRow);
    }

    // Files

    void filesArePutListedReplacedAndRemoved()
    {
        const QString url = m_files->url();
        const QString folder = QStringLiteral("options");
        QVERIFY(StoreAdmin::putFile(url, folder, QStringLiteral("B"), "1", &m_error));
        QVERIFY(StoreAdmin::putFile(url, folder, QStringLiteral("A"), QByteArray(), &m_error));
        QVERIFY(StoreAdmin::putFile(url, folder, QStringLiteral("B"), "2", &m_error));
        QCOMPARE(StoreAdmin::files(url, &m_error),
                 (QStringList{QStringLiteral("options/A"), QStringLiteral("options/B")}));
        QByteArray content;
        QVERIFY(m_files->open(QString())->file(folder, QStringLiteral("B"), &content, &m_error));
        QCOMPARE(content, QByteArray("2"));
        QVERIFY(StoreAdmin::removeFile(url, folder, QStringLiteral("B"), &m_error));
        QVERIFY(!StoreAdmin::removeFile(url, folder, QStringLiteral("B"), &m_error));
        QCOMPARE(m_error.code, StoreError::NoSuchRow);
        QCOMPARE(m_error.text, QString::fromUtf8("В хранилище нет файла «options/B»."));
    }
};

QTEST_GUILESS_MAIN(StoreAdmin_test)
#include "StoreAdmin_test.moc"
