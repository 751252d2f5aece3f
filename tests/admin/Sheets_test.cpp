#include "AdminRun.h"
#include "CMDArray.h"
#include "Csv.h"
#include "MDRValues.h"
#include "PrivateCluster.h"
#include "Sheet.h"
#include "Store.h"

#include <memory>
#include <QTest>
#include <QTextCodec>

/// Import and export of the reference tables, called like an administrator does.
class Sheets_test : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void anEmptyStoreGivesBlankForms();
    void theHelpTellsEveryFileAndColumn();
    void theDemoGoesThroughSheetsUnchanged();
    void sheetsWithoutCodesChangeNothing();
    void aSiteIsFilledFromSheets();
    void commasAndTheOldCodePageAreRead();
    void aDryRunTellsAndWritesNothing();
    void rowsOutOfTheFileStay();
    void columnsOutOfTheFileChangeNothing();
    void aCodeAllowsToRename();
    void peopleAreRetiredAndComeBack();
    void rightsFollowTheirCell();
    void rowsMayStandInFrontOfTheirOwners();
    void propertiesWithoutAColumnStay();
    void equalNamesAreDistinguishedByTheirOwners();
    void emptyCellsTakeAReferenceAway();
    void timesAreWrittenAsPeopleDo_data();
    void timesAreWrittenAsPeopleDo();
    void faultsNameFileAndLine_data();
    void faultsNameFileAndLine();
    void oneFaultKeepsEverythingOut();
    void aTextBeyondTheNotationStaysAsItIs();
    void aServerTakesTheSheetsAndTheirUsers();
    void tablesOfAnEarlierJournalComeToTheLetter();
    void reportsFaultsInAnEarlierJournal();
    void starterGivesASiteThatNeedsPeopleOnly();
    void reportsReadinessByDepartment();
    void withoutATemplateOfRecordsNoShiftIsReady();

private:
    void site();
    QString exported(const char* file);

    std::unique_ptr<AdminRun> m_admin;
};

void Sheets_test::init()
{
    m_admin = std::make_unique<AdminRun>();
    QCOMPARE(m_admin->call("init", {QStringLiteral("--time-zone"), QStringLiteral("Asia/Yekaterinburg")}),
             Command::Success);
}

/// One organization with one department and one dispatcher.
void Sheets_test::site()
{
    m_admin->sheet("organizations.csv", "Название\nСети\n");
    m_admin->sheet("departments.csv", "Организация;Название\nСети;ЦДС\n");
    m_admin->sheet("users.csv", "Логин;Имя\nivanov;Иванов И. И.\n");
    m_admin->sheet("workers.csv",
                   "Подразделение;Фамилия;Имя;Отчество;Логин;Группа\nЦДС;Иванов;Иван;Иванович;ivanov;5\n");
    QVERIFY2(m_admin->call("import", {m_admin->sheets}) == Command::Success, qPrintable(m_admin->err));
    QDir(m_admin->sheets).removeRecursively();
}

QString Sheets_test::exported(const char* file)
{
    const QString folder = m_admin->path(QStringLiteral("exported"));
    if (m_admin->call("export", {folder}) != Command::Success)
        return m_admin->err;
    return QString::fromUtf8(m_admin->bytes(QStringLiteral("exported/") + QLatin1String(file)));
}

void Sheets_test::anEmptyStoreGivesBlankForms()
{
    QCOMPARE(m_admin->call("export", {m_admin->sheets}), Command::Success);
    QVERIFY(m_admin->out.contains(QStringLiteral("workers.csv: строк 0 (сотрудники)")));
    QCOMPARE(m_admin->bytes(QStringLiteral("sheets/shifts.csv")),
             QByteArray("\xEF\xBB\xBF") +
                 QStringLiteral("Подразделение;Название;Начало;Конец;Код\r\n").toUtf8());
    int forms = 0;
    for (const Sheet& sheet : Sheets::all())
        forms += sheet.earlier ? 0 : 1; // none for tables of an earlier journal
    QCOMPARE(QDir(m_admin->sheets).entryList(QDir::Files).size(), forms);
    QCOMPARE(m_admin->call("import", {m_admin->sheets}), Command::Success);
}

void Sheets_test::theHelpTellsEveryFileAndColumn()
{
    QCOMPARE(m_admin->run({QStringLiteral("import"), QStringLiteral("--help")}), Command::Success);
    for (const Sheet& sheet : Sheets::all()) {
        QVERIFY2(m_admin->out.contains(sheet.file), qPrintable(sheet.file));
        for (const SheetColumn& column : sheet.columns)
            QVERIFY2(m_admin->out.contains(column.heading), qPrintable(column.heading));
    }
}

void Sheets_test::theDemoGoesThroughSheetsUnchanged()
{
    AdminRun demo;
    QCOMPARE(demo.call("demo"), Command::Success);
    QCOMPARE(demo.call("export", {demo.sheets}), Command::Success);
    QVERIFY(!demo.bytes(QStringLiteral("sheets/templates.csv")).contains("html:"));
    QCOMPARE(demo.call("import", {demo.sheets}), Command::Success);
    for (const QString& line : demo.out.split(QLatin1Char('\n'), Qt::SkipEmptyParts))
        QVERIFY2(line.endsWith(QStringLiteral("добавлено 0, изменено 0, нет в файле 0")), qPrintable(line));

    QVERIFY2(m_admin->call("import", {demo.sheets}) == Command::Success, qPrintable(m_admin->err));
    QCOMPARE(m_admin->call("export", {m_admin->sheets}), Command::Success);
    for (const Sheet& sheet : Sheets::all())
        QCOMPARE(m_admin->bytes(QStringLiteral("sheets/") + sheet.file),
                 demo.bytes(QStringLiteral("sheets/") + sheet.file));
    QCOMPARE(m_admin->call("check"), Command::Success);
}

void Sheets_test::sheetsWithoutCodesChangeNothing()
{
    AdminRun demo;
    QCOMPARE(demo.call("demo"), Command::Success);
    QCOMPARE(demo.call("export", {demo.sheets}), Command::Success);
    for (const Sheet& sheet : Sheets::all()) {
        if (sheet.earlier)
            continue; // only the key distinguishes their rows
        QVector<Csv::Row> rows;
        QString error;
        QVERIFY(Csv::read(demo.bytes(QStringLiteral("sheets/") + sheet.file), &rows, &error));
        QVector<QStringList> bare;
        for (const Csv::Row& row : qAsConst(rows))
            bare << row.cells.mid(0, row.cells.size() - 1);
        demo.sheet(sheet.file.toLatin1().constData(), Csv::write(bare));
    }
    QVERIFY2(demo.call("import", {demo.sheets}) == Command::Success, qPrintable(demo.err));
    for (const QString& line : demo.out.split(QLatin1Char('\n'), Qt::SkipEmptyParts))
        QVERIFY2(line.endsWith(QStringLiteral("добавлено 0, изменено 0, нет в файле 0")), qPrintable(line));
}

void Sheets_test::aSiteIsFilledFromSheets()
{
    site();
    QVERIFY(m_admin->out.contains(QStringLiteral("workers.csv: добавлено 1, изменено 0, нет в файле 0")));
    const QString workers = exported("workers.csv");
    QVERIFY2(workers.contains(QStringLiteral("\r\nЦДС;Иванов;Иван;Иванович;ivanov;5;")), qPrintable(workers));
    QCOMPARE(m_admin->call("user", {QStringLiteral("list")}), Command::Success);
    QCOMPARE(m_admin->out, QStringLiteral("ivanov\tИванов И. И.\n"));
    QCOMPARE(m_admin->call("check"), Command::Success);
}

void Sheets_test::commasAndTheOldCodePageAreRead()
{
    m_admin->sheet(
        "organizations.csv",
        QTextCodec::codecForName("Windows-1251")
            ->fromUnicode(QStringLiteral("НАЗВАНИЕ,\"Входит в\"\r\nСети,\r\n\"Район, северный\",Сети\r\n")));
    QVERIFY2(m_admin->call("import", {m_admin->sheets}) == Command::Success, qPrintable(m_admin->err));
    QVERIFY(exported("organizations.csv").contains(QStringLiteral("Район, северный;;Сети;")));
}

void Sheets_test::aDryRunTellsAndWritesNothing()
{
    site();
    m_admin->sheet("workers.csv", "Подразделение;Фамилия;Имя;Отчество;Группа\nЦДС;Петров;Пётр;Петрович;4\n");
    m_admin->sheet("users.csv", "Логин;Имя\nivanov;Иванов Иван\n");
    const QString before = exported("workers.csv");
    QCOMPARE(m_admin->call("import", {m_admin->sheets, QStringLiteral("--dry-run")}), Command::Success);
    QCOMPARE(m_admin->out, QStringLiteral("users.csv: добавлено 0, изменено 1, нет в файле 0\n"
                                          "  ~ ivanov: Имя\n"
                                          "workers.csv: добавлено 1, изменено 0, нет в файле 1\n"
                                          "  + Сети / ЦДС / Петров Пётр Петрович\n"
                                          "  - Сети / ЦДС / Иванов Иван Иванович\n"
                                          "Ничего не записано.\n"));
    QCOMPARE(exported("workers.csv"), before);
}

void Sheets_test::rowsOutOfTheFileStay()
{
    site();
    m_admin->sheet("workers.csv", "Подразделение;Фамилия\nЦДС;Петров\n");
    QCOMPARE(m_admin->call("import", {m_admin->sheets}), Command::Success);
    QVERIFY(m_admin->out.contains(QStringLiteral("добавлено 1, изменено 0, нет в файле 1")));
    const QString workers = exported("workers.csv");
    QVERIFY(workers.contains(QStringLiteral("Иванов")) && workers.contains(QStringLiteral("Петров")));
}

void Sheets_test::columnsOutOfTheFileChangeNothing()
{
    site();
    // Spreadsheets leave empty columns at the end.
    m_admin->sheet("workers.csv",
                   "Фамилия;Имя;Отчество;Подразделение;Группа;;\nИванов;Иван;Иванович;ЦДС;4;;\n");
    QCOMPARE(m_admin->call("import", {m_admin->sheets}), Command::Success);
    QVERIFY(exported("workers.csv").contains(QStringLiteral(";ivanov;4;")));
}

void Sheets_test::aCodeAllowsToRename()
{
    site();
    QString sheet = exported("departments.csv");
    sheet.replace(QStringLiteral(";ЦДС;"), QStringLiteral(";Центральная служба;"));
    m_admin->sheet("departments.csv", sheet.toUtf8());
    QCOMPARE(m_admin->call("import", {m_admin->sheets}), Command::Success);
    QCOMPARE(m_admin->out, QStringLiteral("departments.csv: добавлено 0, изменено 1, нет в файле 0\n"));
    QVERIFY(exported("workers.csv").contains(QStringLiteral("Центральная служба;Иванов")));
}

void Sheets_test::peopleAreRetiredAndComeBack()
{
    site();
    m_admin->sheet("users.csv", "Логин;Удалён\nivanov;да\n");
    QCOMPARE(m_admin->call("import", {m_admin->sheets}), Command::Success);
    m_admin->call("user", {QStringLiteral("list")});
    QVERIFY(m_admin->out.isEmpty());
    m_admin->sheet("users.csv", "Логин\npetrov\n"); // the retired one is not missed
    QCOMPARE(m_admin->call("import", {m_admin->sheets, QStringLiteral("--dry-run")}), Command::Success);
    QVERIFY2(m_admin->out.contains(QStringLiteral("users.csv: добавлено 1, изменено 0, нет в файле 0")),
             qPrintable(m_admin->out));
    m_admin->sheet("users.csv", "Логин;Удалён\nivanov;\n");
    QCOMPARE(m_admin->call("import", {m_admin->sheets}), Command::Success);
    m_admin->call("user", {QStringLiteral("list")});
    QCOMPARE(m_admin->out, QStringLiteral("ivanov\tИванов И. И.\n"));
}

void Sheets_test::rightsFollowTheirCell()
{
    site();
    const auto rights = [this](const QByteArray& cell) {
        m_admin->sheet("users.csv", "Логин;Права\nivanov;" + cell + "\n");
        m_admin->call("import", {m_admin->sheets});
        const QString reported = m_admin->out + m_admin->err;
        m_admin->call("right", {QStringLiteral("list"), QStringLiteral("ivanov")});
        return qMakePair(m_admin->out, reported.contains(QStringLiteral("изменено 1")));
    };
    QCOMPARE(rights("administrator,sql_exec"), qMakePair(QStringLiteral("ADMINISTRATOR\nSQL_EXEC\n"), true));
    QCOMPARE(rights("SQL_EXEC, ADMINISTRATOR"),
             qMakePair(QStringLiteral("ADMINISTRATOR\nSQL_EXEC\n"), false));
    QCOMPARE(rights("SQL_EXEC"), qMakePair(QStringLiteral("SQL_EXEC\n"), true));
    m_admin->sheet("users.csv", "Логин\nivanov\n"); // a missing column changes nothing
    QCOMPARE(m_admin->call("import", {m_admin->sheets}), Command::Success);
    m_admin->call("right", {QStringLiteral("list"), QStringLiteral("ivanov")});
    QCOMPARE(m_admin->out, QStringLiteral("SQL_EXEC\n"));
}

void Sheets_test::rowsMayStandInFrontOfTheirOwners()
{
    site();
    m_admin->sheet("equipment.csv", "Подразделение;Вид;Входит в;Название;Класс напряжения\n"
                                    "ЦДС;присоединение;ПС Луговая;В-110;0,4\n"
                                    "ЦДС;Подстанция;;ПС Луговая;110\n");
    QVERIFY2(m_admin->call("import", {m_admin->sheets}) == Command::Success, qPrintable(m_admin->err));
    const QString sheet = exported("equipment.csv");
    QVERIFY(sheet.contains(QStringLiteral("ЦДС;присоединение;ПС Луговая;В-110;0,4;")));
    QVERIFY(sheet.contains(QStringLiteral("ЦДС;подстанция;;ПС Луговая;110;")));
    m_admin->sheet("organizations.csv", "Название;Входит в\nУчасток;Район\nРайон;Область\nОбласть;\n");
    QVERIFY2(m_admin->call("import", {m_admin->sheets}) == Command::Success, qPrintable(m_admin->err));
}

void Sheets_test::propertiesWithoutAColumnStay()
{
    site();
    m_admin->sheet("template-categories.csv", "Название\nОбщее\n");
    m_admin->sheet("templates.csv", "Категория;Название;Текст;Открывает смену\nОбщее;Приём;Принял;да\n");
    QVERIFY2(m_admin->call("import", {m_admin->sheets}) == Command::Success, qPrintable(m_admin->err));
    const QString before = exported("templates.csv");
    QVERIFY2(before.contains(QStringLiteral(";Принял;")), qPrintable(before));
    m_admin->sheet("templates.csv", "Категория;Название;Текст\nОбщее;Приём;Принял смену\n");
    QVERIFY2(m_admin->call("import", {m_admin->sheets}) == Command::Success, qPrintable(m_admin->err));
    QCOMPARE(exported("templates.csv"),
             QString(before).replace(QStringLiteral(";Принял;"), QStringLiteral(";Принял смену;")));
}

void Sheets_test::equalNamesAreDistinguishedByTheirOwners()
{
    m_admin->sheet("organizations.csv", "Название\nСети\nСтанция\n");
    m_admin->sheet("departments.csv", "Организация;Название\nСети;ОДС\nСтанция;ОДС\n");
    m_admin->sheet("roles.csv", "Подразделение;Название\nСтанция / ОДС;Диспетчер\nСети / ОДС;Диспетчер\n");
    QVERIFY2(m_admin->call("import", {m_admin->sheets}) == Command::Success, qPrintable(m_admin->err));
    QVERIFY(exported("roles.csv").contains(QStringLiteral("\r\nСети / ОДС;Диспетчер;")));

    m_admin->sheet("roles.csv", "Подразделение;Название\nОДС;Начальник\n");
    QCOMPARE(m_admin->call("import", {m_admin->sheets}), Command::Failed);
    QVERIFY2(m_admin->err.contains(QStringLiteral(
                 "roles.csv:2: столбец «Подразделение»: «ОДС» неоднозначно: «Сети / ОДС» (код ")),
             qPrintable(m_admin->err));
}

void Sheets_test::emptyCellsTakeAReferenceAway()
{
    site();
    m_admin->sheet("workers.csv", "Подразделение;Фамилия;Имя;Отчество;Логин\nЦДС;Иванов;Иван;Иванович;\n");
    QCOMPARE(m_admin->call("import", {m_admin->sheets}), Command::Success);
    QVERIFY(exported("workers.csv").contains(QStringLiteral("Иванович;;5;")));
    QCOMPARE(m_admin->call("check"), Command::Success);
}

void Sheets_test::timesAreWrittenAsPeopleDo_data()
{
    QTest::addColumn<QByteArray>("typed");
    QTest::addColumn<QString>("shown");
    QTest::newRow("hh:mm") << QByteArray("20:00") << QStringLiteral("20:00");
    QTest::newRow("one digit") << QByteArray("8:30") << QStringLiteral("08:30");
    QTest::newRow("with seconds, as spreadsheets save") << QByteArray("08:30:00") << QStringLiteral("08:30");
    QTest::newRow("end of the day") << QByteArray("24:00") << QStringLiteral("24:00");
    QTest::newRow("a moment in the zone of the store")
        << QByteArray("20.11.2026 08:15") << QStringLiteral("20.11.2026 08:15");
    QTest::newRow("no minute") << QByteArray("20") << QString();
    QTest::newRow("no such minute") << QByteArray("20:70") << QString();
    QTest::newRow("no such day") << QByteArray("31.02.2026 08:00") << QString();
}

void Sheets_test::timesAreWrittenAsPeopleDo()
{
    QFETCH(QByteArray, typed);
    QFETCH(QString, shown);
    site();
    m_admin->sheet("shifts.csv", "Подразделение;Название;Начало;Конец\nЦДС;Смена;" + typed + ";21:00\n");
    if (shown.isEmpty()) {
        QCOMPARE(m_admin->call("import", {m_admin->sheets}), Command::Failed);
        QVERIFY(m_admin->err.startsWith(QStringLiteral("shifts.csv:2: столбец «Начало»: «")));
        return;
    }
    QVERIFY2(m_admin->call("import", {m_admin->sheets}) == Command::Success, qPrintable(m_admin->err));
    const QString sheet = exported("shifts.csv");
    QVERIFY2(sheet.contains(QStringLiteral("Смена;%1;21:00;").arg(shown)), qPrintable(sheet));
}

void Sheets_test::faultsNameFileAndLine_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QByteArray>("sheet");
    QTest::addColumn<QString>("error");
    QTest::newRow("unknown reference")
        << QByteArray("workers.csv") << QByteArray("Подразделение;Фамилия\nЦДСС;Петров\n")
        << QStringLiteral(
               "workers.csv:2: столбец «Подразделение»: в таблице «подразделения» строки «ЦДСС» нет, "
               "похоже на «ЦДС»");
    QTest::newRow("nothing like it")
        << QByteArray("workers.csv") << QByteArray("Подразделение;Фамилия\n\nСовсем другое;Петров\n")
        << QStringLiteral("workers.csv:3: столбец «Подразделение»: в таблице «подразделения» строки «Совсем "
                          "другое» нет\n");
    QTest::newRow("unknown column") << QByteArray("workers.csv") << QByteArray("Подразделение;Фамилея\n")
                                    << QStringLiteral(
                                           "workers.csv:1: столбца «Фамилея» нет, похоже на «Фамилия»");
    QTest::newRow("missing column") << QByteArray("workers.csv") << QByteArray("Подразделение\nЦДС\n")
                                    << QStringLiteral("workers.csv:1: не хватает столбца «Фамилия»");
    QTest::newRow("column twice") << QByteArray("organizations.csv") << QByteArray("Название;название\n")
                                  << QStringLiteral("organizations.csv:1: столбец «Название» повторён");
    QTest::newRow("unknown file") << QByteArray("worker.csv") << QByteArray("Название\n")
                                  << QStringLiteral(
                                         "worker.csv: таблицы с таким именем нет, похоже на workers.csv");
    QTest::newRow("empty cell") << QByteArray("organizations.csv") << QByteArray("Название;Тип\n;x\n")
                                << QStringLiteral("organizations.csv:2: столбец «Название»: ячейка пуста");
    QTest::newRow("row twice") << QByteArray("organizations.csv") << QByteArray("Название\nДва\nдва\n")
                               << QStringLiteral("organizations.csv:3: повторяет строку 2");
    QTest::newRow("no number") << QByteArray("workers.csv")
                               << QByteArray("Подразделение;Фамилия;Группа\nЦДС;Петров;пятая\n")
                               << QStringLiteral("workers.csv:2: столбец «Группа»: «пятая» не число");
    QTest::newRow("no flag") << QByteArray("users.csv") << QByteArray("Логин;Удалён\npetrov;уволен\n")
                             << QStringLiteral("users.csv:2: столбец «Удалён»: «уволен» не «да» и не «нет»");
    QTest::newRow("unknown right") << QByteArray("users.csv")
                                   << QByteArray("Логин;Права\npetrov;ADMINISTRATR\n")
                                   << QStringLiteral(
                                          "users.csv:2: столбец «Права»: права «ADMINISTRATR» нет, похоже "
                                          "на «ADMINISTRATOR»");
    QTest::newRow("superfluous cell") << QByteArray("organizations.csv") << QByteArray("Название\nСети;110\n")
                                      << QStringLiteral("organizations.csv:2: лишняя ячейка «110»");
    QTest::newRow("another's code") << QByteArray("organizations.csv")
                                    << QByteArray("Название;Код\nСети;НЕТАКОГО\n")
                                    << QStringLiteral("organizations.csv:2: такая строка уже есть, её код ");
    QTest::newRow("owner of itself") << QByteArray("organizations.csv")
                                     << QByteArray("Название;Входит в\nСети;Сети\n")
                                     << QStringLiteral(
                                            "organizations.csv:2: столбец «Входит в»: строка входит "
                                            "сама в себя");
    QTest::newRow("owner that does not come")
        << QByteArray("organizations.csv") << QByteArray("Название;Входит в\nА;Б\n")
        << QStringLiteral("organizations.csv:2: столбец «Входит в»: в таблице «организации» строки «Б» нет");
    QTest::newRow("too long") << QByteArray("organizations.csv") << "Название\n" + QByteArray(101, 'x') + "\n"
                              << QStringLiteral("organizations.csv:2: длиннее 100 знаков: «xxx");
    QTest::newRow("not in the code page")
        << QByteArray("organizations.csv") << QByteArray("Название\nСеть ≈\n")
        << QStringLiteral("organizations.csv:2: знака нет в кодовой странице "
                          "журнала: «Сеть ≈»");
    QTest::newRow("open quote") << QByteArray("organizations.csv") << QByteArray("Название\n\"Сеть\n")
                                << QStringLiteral("organizations.csv:2: кавычка не закрыта");
    QTest::newRow("broken parameter")
        << QByteArray("parameters.csv") << QByteArray("Группа;Название;Текст\nГруппа;Поле;{text:Поле\n")
        << QStringLiteral(
               "parameters.csv:2: столбец «Текст»: параметр без названия или без закрывающей скобки");
    QTest::newRow("unknown kind of parameter")
        << QByteArray("templates.csv")
        << QByteArray("Категория;Название;Текст\nКатегория;Шаблон;\"Вывод {text:Что} в {date:Когда}\"\n")
        << QStringLiteral(
               "templates.csv:2: столбец «Текст»: вида параметра «date» нет, похоже на «datetime»");
    QTest::newRow("misspelt kind of parameter")
        << QByteArray("templates.csv")
        << QByteArray("Категория;Название;Текст\nКатегория;Шаблон;{txet?:Что}\n")
        << QStringLiteral("templates.csv:2: столбец «Текст»: вида параметра «txet» нет, похоже на «text»");
    QTest::newRow("no such safety group")
        << QByteArray("workers.csv") << QByteArray("Подразделение;Фамилия;Группа\nЦДС;Петров;99\n")
        << QStringLiteral("workers.csv:2: столбец «Группа»: группы «99» нет, есть от 1 до 5");
    QTest::newRow("login with a blank")
        << QByteArray("users.csv") << QByteArray("Логин;Имя\nivan petrov;Иван\n")
        << QStringLiteral("users.csv:2: В имени для входа «ivan petrov» есть пробел");
    QTest::newRow("ring of new rows")
        << QByteArray("departments.csv")
        << QByteArray("Организация;Название;Входит в\nСети;А;Б\nСети;Б;В\nСети;В;А\n")
        << QStringLiteral("departments.csv:2: строка и её владельцы входят друг в друга по кругу");
    QTest::newRow("ring closed by a row that is there")
        << QByteArray("organizations.csv") << QByteArray("Название;Входит в\nСети;Новая\nНовая;Сети\n")
        << QStringLiteral("строка и её владельцы входят друг в друга по кругу");
    QTest::newRow("unknown marker")
        << QByteArray("templates.csv")
        << QByteArray("Категория;Название;Текст;Первый маркер\nКатегория;Шаблон;Текст;Аварии\n")
        << QStringLiteral(
               "templates.csv:2: столбец «Первый маркер»: маркера «Аварии» нет, похоже на «Авария»");
}

void Sheets_test::faultsNameFileAndLine()
{
    QFETCH(QByteArray, file);
    QFETCH(QByteArray, sheet);
    QFETCH(QString, error);
    site();
    m_admin->sheet("parameter-groups.csv", "Название\nГруппа\n");
    m_admin->sheet("template-categories.csv", "Название\nКатегория\n");
    QCOMPARE(m_admin->call("import", {m_admin->sheets}), Command::Success);
    QDir(m_admin->sheets).removeRecursively();
    m_admin->sheet(file.constData(), sheet);
    QCOMPARE(m_admin->call("import", {m_admin->sheets}), Command::Failed);
    QVERIFY2(m_admin->err.contains(error), qPrintable(m_admin->err));
    QVERIFY(m_admin->err.endsWith(QStringLiteral("Ничего не записано.\n")));
    QVERIFY(m_admin->out.isEmpty());
}

void Sheets_test::oneFaultKeepsEverythingOut()
{
    m_admin->sheet("organizations.csv", "Название\nСети\n");
    m_admin->sheet("departments.csv", "Организация;Название\nСети;ЦДС\nСетки;ОДС\n");
    QCOMPARE(m_admin->call("import", {m_admin->sheets}), Command::Failed);
    QVERIFY(m_admin->err.startsWith(QStringLiteral("departments.csv:3: ")));
    QVERIFY(m_admin->err.endsWith(QStringLiteral("Ошибок: 1. Ничего не записано.\n")));
    QVERIFY(!exported("organizations.csv").contains(QStringLiteral("Сети")));

    QCOMPARE(m_admin->call("import", {m_admin->path(QStringLiteral("nowhere"))}), Command::Failed);
    QVERIFY(m_admin->err.contains(QStringLiteral("nowhere: в папке нет файлов .csv")));
}

void Sheets_test::aTextBeyondTheNotationStaysAsItIs()
{
    m_admin->sheet("template-categories.csv", "Название\nРазное\n");
    m_admin->sheet("templates.csv",
                   "Категория;Название;Текст\nРазное;Таблица;\"html:<table "
                   "border=\"\"1\"\"><tr><td>а</td></tr></table>\"\n"
                   "Разное;Простой;\"*Важно*: {list:Связь;есть|нет}\nвторая строка {text?:Прочее}\"\n");
    QVERIFY2(m_admin->call("import", {m_admin->sheets}) == Command::Success, qPrintable(m_admin->err));
    const QString sheet = exported("templates.csv");
    QVERIFY(sheet.contains(QStringLiteral("\"html:<table border=\"\"1\"\"><tr><td>а</td></tr></table>\"")));
    QVERIFY(
        sheet.contains(QStringLiteral("\"*Важно*: {list:Связь;есть|нет}\nвторая строка {text?:Прочее}\"")));
    QCOMPARE(m_admin->call("import", {m_admin->path(QStringLiteral("exported"))}), Command::Success);
    QVERIFY(m_admin->out.contains(QStringLiteral("templates.csv: добавлено 0, изменено 0")));
}

void Sheets_test::aServerTakesTheSheetsAndTheirUsers()
{
    m_admin->url = PrivateCluster::shared().url(QStringLiteral("sheets"));
    QVERIFY2(m_admin->call("init", {QStringLiteral("--starter")}) == Command::Success,
             qPrintable(m_admin->err));
    site();
    const auto mayLogIn = [] {
        return PrivateCluster::shared().exec(QStringLiteral(
            "DO $$ BEGIN ASSERT (SELECT rolcanlogin FROM pg_roles WHERE rolname = 'ivanov'); END $$"));
    };
    QCOMPARE(mayLogIn(), QString());
    QCOMPARE(m_admin->call("export", {m_admin->sheets}), Command::Success);
    QCOMPARE(m_admin->call("import", {m_admin->sheets}), Command::Success);
    for (const QString& line : m_admin->out.split(QLatin1Char('\n'), Qt::SkipEmptyParts))
        QVERIFY2(line.endsWith(QStringLiteral("добавлено 0, изменено 0, нет в файле 0")), qPrintable(line));
    QDir(m_admin->sheets).removeRecursively();
    m_admin->sheet("users.csv", "Логин;Удалён\nivanov;да\n");
    QCOMPARE(m_admin->call("import", {m_admin->sheets}), Command::Success);
    QVERIFY(!mayLogIn().isEmpty());
    QCOMPARE(m_admin->call("check"), Command::Success);
}

/// The content of a table, row by row in the order of the keys; distinguishes null from empty.
static QVector<QStringList> tableOf(const QString& url, const char* table)
{
    StoreError error;
    Store::Options options;
    options.loader = true;
    const auto store = Store::open(url, options, &error);
    CMDArray answer;
    answer = store->select("SELECT * FROM " + QByteArray(table) + " ORDER BY KeyLink", &error);
    QVector<QStringList> rows;
    for (int i = 0; i < answer.RecCount(); ++i) {
        QStringList cells;
        for (int f = 0; f < MDAFldCount(answer.array); ++f) {
            MDRVar value;
            MDRGetVal(MDRFldByNum(answer.array, f), MDARec(answer.array, 0, i), &value);
            cells << (value.isNull ? QStringLiteral("null")
                      : MDRValue::isText(value)
                          ? QLatin1Char('=') + store->codec()->toUnicode(MDRValue::copy(value))
                          : QString::number(value.value.number));
        }
        rows << cells;
    }
    return rows;
}

void Sheets_test::tablesOfAnEarlierJournalComeToTheLetter()
{
    AdminRun demo;
    QCOMPARE(demo.call("demo", {QStringLiteral("--old")}), Command::Success);
    QCOMPARE(demo.call("export", {demo.sheets}), Command::Success);
    QVERIFY2(demo.out.contains(QStringLiteral("OperLogTemplates.csv: строк 400 (шаблоны прежнего журнала)")),
             qPrintable(demo.out));
    QVERIFY2(m_admin->call("import", {demo.sheets}) == Command::Success, qPrintable(m_admin->err));
    for (const char* table : {"OperLogCategories", "OperLogTemplates", "OperLogTemplateParams"}) {
        const QVector<QStringList> rows = tableOf(demo.url, table);
        QVERIFY(rows.size() >= 50);
        const QVector<QStringList> taken = tableOf(m_admin->url, table);
        QCOMPARE(taken.size(), rows.size());
        for (int i = 0; i < rows.size(); ++i)
            QCOMPARE(taken.at(i).join(QLatin1Char('|')), // files have one kind of line end
                     rows.at(i).join(QLatin1Char('|')).replace(QLatin1String("\r\n"), QLatin1String("\n")));
    }
    QCOMPARE(m_admin->call("import", {demo.sheets}), Command::Success); // nothing is added twice
    QVERIFY2(
        m_admin->out.contains(QStringLiteral("OperLogTemplates.csv: добавлено 0, изменено 0, нет в файле 0")),
        qPrintable(m_admin->out));
}

void Sheets_test::reportsFaultsInAnEarlierJournal()
{
    site();
    m_admin->sheet("OperLogCategories.csv", "KeyLink;ParentKey;OrgTypeKey;DepartmentKey;name_\n"
                                            "C1;;;ЦДС;Наши\n"
                                            "C2;C1;;;Вложенные\n"
                                            "C3;;;Нет такого;Чужие\n"
                                            "C1;;;;Снова\n");
    m_admin->sheet("OperLogTemplates.csv", "KeyLink;CategoryKey;name_;text_;canStartShift\n"
                                           "T1;C2;Имя;\" На <podst>  [x]\n+ \";1\n"
                                           ";C2;Без ключа;x;\n"
                                           "T3;C2;Флаг;x;может быть\n");
    QCOMPARE(m_admin->call("import", {m_admin->sheets}), Command::Failed);
    for (const char* fault :
         {"OperLogCategories.csv:4: столбец «DepartmentKey»: в таблице «подразделения» строки «Нет такого» "
          "нет",
          "OperLogCategories.csv:5: повторяет строку 2",
          "OperLogTemplates.csv:4: столбец «KeyLink»: ячейка пуста",
          "OperLogTemplates.csv:5: столбец «canStartShift»: «может быть» не «да» и не «нет»"})
        QVERIFY2(m_admin->err.contains(QString::fromUtf8(fault)), qPrintable(m_admin->err));
    QCOMPARE(tableOf(m_admin->url, "OperLogCategories").size(), 0);

    m_admin->sheet("OperLogCategories.csv", "KeyLink;ParentKey;OrgTypeKey;DepartmentKey;name_\n"
                                            "C1;;;ЦДС;Наши\nC2;C1;;;Вложенные\n");
    m_admin->sheet("OperLogTemplates.csv", "KeyLink;CategoryKey;name_;text_;canStartShift\n"
                                           "T1;C2;Имя;\" На <podst>  [x]\n+ \";1\n");
    QVERIFY2(m_admin->call("import", {m_admin->sheets}) == Command::Success, qPrintable(m_admin->err));
    const QStringList row = tableOf(m_admin->url, "OperLogTemplates").value(0);
    QCOMPARE(row.mid(0, 5), (QStringList{QStringLiteral("=T1"), QStringLiteral("=C2"), QStringLiteral("=Имя"),
                                         QStringLiteral("= На <podst>  [x]\n+ "), QStringLiteral("1")}));
    QCOMPARE(row.value(7), QStringLiteral("null")); // no column in the file
}

void Sheets_test::starterGivesASiteThatNeedsPeopleOnly()
{
    AdminRun fresh;
    QCOMPARE(fresh.call("init", {QStringLiteral("--starter")}), Command::Success);
    QCOMPARE(fresh.call("check"), Command::Success);
    QCOMPARE(fresh.call("check", {QStringLiteral("--ready")}), Command::FaultsFound);
    QCOMPARE(fresh.out,
             QStringLiteral("Наша организация / Диспетчерская служба:\n"
                            "  открыть смену некому: нет сотрудника с логином (users.csv, workers.csv)\n"
                            "Не хватает: 1\n"));
    QCOMPARE(fresh.call("export", {fresh.sheets}), Command::Success);
    const QByteArray shifts = fresh.bytes(QStringLiteral("sheets/shifts.csv"));
    QVERIFY(shifts.contains("Дневная смена;08:00;20:00;") && shifts.contains("Ночная смена;20:00;08:00;"));
    QVERIFY(fresh.bytes(QStringLiteral("sheets/roles.csv")).contains("Старший диспетчер"));
    fresh.sheet("users.csv", "Логин\nivanov\n");
    fresh.sheet("workers.csv", "Подразделение;Фамилия;Логин\nДиспетчерская служба;Иванов;ivanov\n");
    QVERIFY2(fresh.call("import", {fresh.sheets}) == Command::Success, qPrintable(fresh.err));
    QCOMPARE(fresh.call("check", {QStringLiteral("--ready")}), Command::Success);
    QVERIFY(fresh.out.startsWith(QStringLiteral("Всё готово")));
}

void Sheets_test::reportsReadinessByDepartment()
{
    QCOMPARE(m_admin->call("check", {QStringLiteral("--ready")}), Command::FaultsFound);
    QVERIFY(m_admin->out.startsWith(QStringLiteral("нет ни одного подразделения")));
    site();
    m_admin->sheet("departments.csv", "Организация;Название\nСети;ОДС\n");
    m_admin->sheet("shifts.csv", "Подразделение;Название;Начало;Конец\nЦДС;Сутки;08:00;08:00\n");
    // Not offered: a template of another type of organization, retired workers, and workers of a retired login.
    m_admin->sheet("organization-types.csv", "Название\nСтанции\n");
    m_admin->sheet("users.csv", "Логин;Удалён\nivanov;\nsidorov;да\n");
    m_admin->sheet("workers.csv", "Подразделение;Фамилия;Имя;Отчество;Логин;Удалён\n"
                                  "ОДС;Иванов;Иван;Иванович;ivanov;да\nОДС;Сидоров;;;sidorov;\n");
    m_admin->sheet("template-categories.csv",
                   "Подразделение;Тип организации;Название\nЦДС;;Смена\n;;Общее\n;Станции;Чужое\n");
    m_admin->sheet("templates.csv",
                   "Категория;Название;Текст;Открывает смену;Закрывает смену\n"
                   "Смена;Приём;Принял;да;\nОбщее;Запись;{text:Текст};;\nЧужое;Сдача;Сдал;;да\n");
    QVERIFY2(m_admin->call("import", {m_admin->sheets}) == Command::Success, qPrintable(m_admin->err));
    QCOMPARE(m_admin->call("check", {QStringLiteral("--ready")}), Command::FaultsFound);
    QCOMPARE(
        m_admin->out,
        QStringLiteral("Сети / ОДС:\n"
                       "  открыть смену некому: нет сотрудника с логином (users.csv, workers.csv)\n"
                       "  для открытия смены нет расписания (shifts.csv)\n"
                       "  для открытия смены нет шаблона с «да» в столбце «Открывает смену» (templates.csv)\n"
                       "  для закрытия смены нет шаблона с «да» в столбце «Закрывает смену» (templates.csv)\n"
                       "Сети / ЦДС:\n"
                       "  для закрытия смены нет шаблона с «да» в столбце «Закрывает смену» (templates.csv)\n"
                       "Не хватает: 5\n"));
}

void Sheets_test::withoutATemplateOfRecordsNoShiftIsReady()
{
    site();
    m_admin->sheet("template-categories.csv", "Название\nОбщее\n");
    m_admin->sheet("templates.csv", "Категория;Название;Текст;Открывает смену\nОбщее;Приём;Принял;да\n");
    QVERIFY2(m_admin->call("import", {m_admin->sheets}) == Command::Success, qPrintable(m_admin->err));
    QCOMPARE(m_admin->call("check", {QStringLiteral("--ready")}), Command::FaultsFound);
    QVERIFY2(m_admin->out.contains(QStringLiteral("для записей в смене нет ни одного обычного шаблона")),
             qPrintable(m_admin->out));
}

QTEST_GUILESS_MAIN(Sheets_test)
#include "Sheets_test.moc"
