#include "CVrkToolCalcExec.h"
#include "ExpectedWarning.h"
#include "FakeStore.h"
#include "GenGuid32.h"
#include "TestClient.h"

#include <QElapsedTimer>
#include <QFile>
#include <QRegularExpression>
#include <QTest>

namespace
{
/// The script that finds the end of a department's last workshift, as sent when a workshift is opened.
const char* const lastWorkshiftEnd = R"script(
( DepartmentKey )
{
// ***************************************************************************** //
// Функция возвращает времея конца последней смены в подразделении DepartmentKey //
// ***************************************************************************** //
    var table       ,
        keySeek     ,
        record      ,
        idx         ,
        WorkshiftKey,
        endTime     ;
    keySeek = 1; // ключ ["DepartmentKey;startTime:0x4"] - Определен на сервере в CimModel
    table   = _ModelTableByName( "LogbookWorkshifts" );
    // Для таблицы LogbookWorkshifts на сервере добавлен ключ [1 = "DepartmentKey;startTime:0x4"].
    // По этому ключу записи отсортированы в обратно порядке по подразделению и времени начала смены
    // (т.е. сначала будут самые новые смены).
    // Для поиска самой последней смены передаем очень большое число '5е10', которые в этой таблице
    // не будет найдено и тогда вернется индекс самого близкого числа к '5e10' - эта запись и будет
    // последней сменой.
    // Т.к. CTblRecSeek() возвращается 2 значения - указатель на запись и индекс, берем индекс.
    idx = CTblRecSeek( table, keySeek, [DepartmentKey, 5e10] )[1];
    if( idx >= CTblRecCount(table) ) {
        exit;
    }
    record = CTblRec( table, keySeek, idx );
    if( CRecFldGet(record, "DepartmentKey") != DepartmentKey ) {
        exit;
    }
    endTime = CRecFldGet(record, "endTime");
    // Если не указано время конца смены, то это какая-то ошибка
    if( type(endTime) != var_Dbl ) {
        exit;
    }
    Result = endTime;
})script";
} // namespace

class CVrkToolCalcExecTest : public QObject
{
    Q_OBJECT

private slots:
    void findsTheEndOfTheOnlyWorkshift();
    void findsTheEndOfTheLatestWorkshift();
    void theLatestIsTheOneThatBeganLast();
    void aDepartmentWithoutWorkshiftsHasNoEnd();
    void aDepartmentAfterAllOthersHasNoEnd();
    void anEmptyTableHasNoEnd();
    void aWorkshiftWithoutAnEndHasNone();
    void theWorkshiftOfANeighbourIsNotTaken();
    void eachRunReadsAgain();

    void theLanguageKnowsItsTypes();
    void textsAreUnicode();
    void nullFieldsAreNil();
    void indexesOutsideTheTableGiveNil();
    void anExactSeekGivesRecordAndIndex();
    void valuesOfAllTypesComeBack();
    void exitEndsTheRunWithoutAResult();
    void aCommentMayEndTheScript();
    void errorsEndTheRun_data();
    void errorsEndTheRun();
    void anEndlessRunIsInterrupted_data();
    void anEndlessRunIsInterrupted();
    void anErrorClearsThePreviousOutput();
    void scriptsAreIndependent();
    void withoutAStoreTheRunFails();
    void theReadEndsOnEveryPath();
    void theToolHasItsName();

private:
    struct Answer {
        int state;
        CVar output;
    };
    static Answer run(CVrkCliMod* module, const QString& script, const QByteArray& argument = "DEP_CDS")
    {
        CVrkToolCalcExec tool(module);
        tool.m_script = QLatin1Char('_') + QString::fromLatin1(GenGuid32()) + script;
        CVarSetArr(&tool.m_input, 1);
        CVarSetStr(&tool.m_input.elements[0], argument.constData(), argument.size());
        const int state = tool.Perform(false);
        return {state, tool.m_output};
    }
    static Answer end(TestModule& module, const QByteArray& department)
    {
        return run(&module, QString::fromUtf8(lastWorkshiftEnd), department);
    }
    static bool addShift(TestStore& store, const char* key, const char* department, double start,
                         const QVariant& endTime)
    {
        return TestStore::write(store.openLoader().get(), "LogbookWorkshifts", ROW_INSERT, key,
                                {{"DepartmentKey", department},
                                 {"OpenWorkerKey", "W"},
                                 {"createdAt", start},
                                 {"startTime", start},
                                 {"endTime", endTime}});
    }
    static QString body(const char* text)
    {
        return QStringLiteral("( x )\n{\n%1\n}").arg(QString::fromUtf8(text));
    }
};

#define COMPARE_END(answer, expected)                                                                        \
    QCOMPARE((answer).state, 2);                                                                             \
    QCOMPARE((answer).output.type, 2);                                                                       \
    QCOMPARE((answer).output.number, double(expected))
#define COMPARE_NO_END(answer)                                                                               \
    QCOMPARE((answer).state, 2);                                                                             \
    QCOMPARE((answer).output.type, 0)

void CVrkToolCalcExecTest::findsTheEndOfTheOnlyWorkshift()
{
    TestStore store;
    TestClient client(store);
    TestModule module(client);
    COMPARE_END(
        end(module, "DEP_ZAR"),
        store.value(QStringLiteral("SELECT endTime FROM LogbookWorkshifts WHERE KeyLink='SHIFT_ZAR_OPEN'"))
            .toDouble());
}

void CVrkToolCalcExecTest::findsTheEndOfTheLatestWorkshift()
{
    TestStore store;
    TestClient client(store);
    TestModule module(client);
    COMPARE_END(
        end(module, "DEP_CDS"),
        store.value(QStringLiteral("SELECT endTime FROM LogbookWorkshifts WHERE KeyLink='SHIFT_CDS_OPEN'"))
            .toDouble());
}

void CVrkToolCalcExecTest::theLatestIsTheOneThatBeganLast()
{
    TestStore store(TestStore::Empty);
    QVERIFY(addShift(store, "A", "D", 3000, 3500.0));
    QVERIFY(addShift(store, "B", "D", 1000, 9000.0));
    QVERIFY(addShift(store, "C", "D", 2000, 2500.0));
    TestClient client(store.openLoader());
    TestModule module(client);
    COMPARE_END(end(module, "D"), 3500.0);
}

void CVrkToolCalcExecTest::aDepartmentWithoutWorkshiftsHasNoEnd()
{
    TestStore store;
    TestClient client(store);
    TestModule module(client);
    COMPARE_NO_END(end(module, "DEP_ODS"));
    COMPARE_NO_END(end(module, "A"));
    COMPARE_NO_END(end(module, ""));
}

void CVrkToolCalcExecTest::aDepartmentAfterAllOthersHasNoEnd()
{
    TestStore store;
    TestClient client(store);
    TestModule module(client);
    COMPARE_NO_END(end(module, "DEP_ZZZ"));
}

void CVrkToolCalcExecTest::anEmptyTableHasNoEnd()
{
    TestStore store(TestStore::Empty);
    TestClient client(store.openLoader());
    TestModule module(client);
    COMPARE_NO_END(end(module, "DEP_CDS"));
}

void CVrkToolCalcExecTest::aWorkshiftWithoutAnEndHasNone()
{
    TestStore store(TestStore::Empty);
    QVERIFY(addShift(store, "A", "D", 1000, 1500.0));
    QVERIFY(addShift(store, "B", "D", 2000, QVariant()));
    TestClient client(store.openLoader());
    TestModule module(client);
    COMPARE_NO_END(end(module, "D"));
}

void CVrkToolCalcExecTest::theWorkshiftOfANeighbourIsNotTaken()
{
    TestStore store(TestStore::Empty);
    QVERIFY(addShift(store, "A", "DEP", 1000, 1500.0));
    QVERIFY(addShift(store, "B", "DEP_2", 2000, 2500.0));
    TestClient client(store.openLoader());
    TestModule module(client);
    COMPARE_END(end(module, "DEP"), 1500.0);
    COMPARE_END(end(module, "DEP_2"), 2500.0);
    COMPARE_NO_END(end(module, "DEP_"));
    COMPARE_NO_END(end(module, "dep"));
}

void CVrkToolCalcExecTest::eachRunReadsAgain()
{
    TestStore store(TestStore::Empty);
    TestClient client(store.openLoader());
    TestModule module(client);
    COMPARE_NO_END(end(module, "D"));
    QVERIFY(addShift(store, "A", "D", 1000, 1500.0));
    COMPARE_END(end(module, "D"), 1500.0);
}

void CVrkToolCalcExecTest::theLanguageKnowsItsTypes()
{
    TestStore store;
    TestClient client(store);
    TestModule module(client);
    const Answer answer = run(
        &module,
        body("Result = [type(1), type(0.5), type('a'), type([1]), type(null), type(undefined), type(true)];"
             "if (type(1) != var_Dbl || type('a') != var_Str || type([]) != var_Arr || type(null) != "
             "var_Nil || type(true) != var_Int) Result = 0;"));
    QCOMPARE(answer.state, 2);
    QCOMPARE(answer.output.type, 4);
    QVector<int> codes;
    for (const CVar& code : answer.output.elements)
        codes.append(static_cast<int>(code.number));
    QCOMPARE(codes, (QVector<int>{2, 2, 3, 4, 0, 0, 1}));
}

void CVrkToolCalcExecTest::textsAreUnicode()
{
    TestStore store;
    TestClient client(store);
    TestModule module(client);
    const Answer answer = run(&module, body("var t = _ModelTableByName('Departments');"
                                            "Result = CRecFldGet(CTblRecSeek(t, 0, [x])[0], 'name_');"));
    QCOMPARE(answer.output.type, int(CVar::String));
    QCOMPARE(QString::fromUtf8(answer.output.text), QStringLiteral("ЦДС"));
}

void CVrkToolCalcExecTest::nullFieldsAreNil()
{
    TestStore store;
    TestClient client(store);
    TestModule module(client);
    const Answer answer =
        run(&module, body("var t = _ModelTableByName('LogbookWorkshifts');"
                          "var r = CTblRecSeek(t, 0, ['SHIFT_CDS_OPEN'])[0];"
                          "Result = [type(CRecFldGet(r, 'CloseWorkerKey')),"
                          " type(CRecFldGet(r, 'noSuchField')), type(CRecFldGet(r, 'toString'))];"));
    QCOMPARE(answer.output.elements.size(), std::size_t(3));
    for (const CVar& code : answer.output.elements)
        QCOMPARE(code.number, 0.0);
}

void CVrkToolCalcExecTest::indexesOutsideTheTableGiveNil()
{
    TestStore store;
    TestClient client(store);
    TestModule module(client);
    const Answer answer = run(
        &module, body("var t = _ModelTableByName('LogbookWorkshifts'); var n = CTblRecCount(t);"
                      "var past = CTblRecSeek(t, 0, ['Z']);"
                      "Result = [n, past[1], type(past[0]), type(CTblRec(t, 0, n)), type(CTblRec(t, 0, -1)),"
                      " _ModelTableByName('NoSuchTable') === null ? 1 : 0];"));
    QVector<double> numbers;
    for (const CVar& number : answer.output.elements)
        numbers.append(number.number);
    QCOMPARE(numbers, (QVector<double>{3, 3, 0, 0, 0, 1}));
}

void CVrkToolCalcExecTest::anExactSeekGivesRecordAndIndex()
{
    TestStore store;
    TestClient client(store);
    TestModule module(client);
    const Answer answer = run(&module, body("var t = _ModelTableByName('LogbookWorkshifts');"
                                            "var found = CTblRecSeek(t, 0, ['SHIFT_CDS_PAST']);"
                                            "Result = [CRecFldGet(found[0], 'KeyLink'), found[1],"
                                            " CRecFldGet(CTblRec(t, 0, found[1]), 'KeyLink')];"));
    QCOMPARE(answer.output.elements.size(), std::size_t(3));
    QCOMPARE(answer.output.elements[0].text, QByteArray("SHIFT_CDS_PAST"));
    QCOMPARE(answer.output.elements[1].number, 1.0); // after SHIFT_CDS_OPEN
    QCOMPARE(answer.output.elements[2].text, QByteArray("SHIFT_CDS_PAST"));
}

void CVrkToolCalcExecTest::valuesOfAllTypesComeBack()
{
    TestStore store;
    TestClient client(store);
    TestModule module(client);
    QCOMPARE(run(&module, body("Result = 'текст ' + x;")).output.text, QByteArray("текст DEP_CDS"));
    const CVar truth = run(&module, body("Result = true;")).output;
    QCOMPARE(truth.type, int(CVar::Int));
    QCOMPARE(truth.number, 1.0);
    QCOMPARE(run(&module, body("Result = null;")).output.type, int(CVar::None));
    QCOMPARE(run(&module, body("Result = [[1], 'a'];")).output.elements.at(0).elements.at(0).number, 1.0);
    QCOMPARE(run(&module, body("")).output.type, int(CVar::None));
}

void CVrkToolCalcExecTest::exitEndsTheRunWithoutAResult()
{
    TestStore store;
    TestClient client(store);
    TestModule module(client);
    COMPARE_NO_END(run(&module, body("exit; Result = 5;")));
    COMPARE_END(run(&module, body("Result = 5; exit; Result = 6;")), 5);
}

void CVrkToolCalcExecTest::aCommentMayEndTheScript()
{
    TestStore store;
    TestClient client(store);
    TestModule module(client);
    COMPARE_END(run(&module, body("Result = 5;") + QStringLiteral(" // \"конец\"")), 5);
}

void CVrkToolCalcExecTest::errorsEndTheRun_data()
{
    QTest::addColumn<QString>("script");
    QTest::newRow("syntax") << body("Result = ;");
    QTest::newRow("no function") << QStringLiteral(" = 5");
    QTest::newRow("unknown name") << body("Result = 1; unknownFunction();");
    QTest::newRow("thrown text") << body("Result = 1; throw 'broken';");
    QTest::newRow("thrown nothing") << body("Result = 1; throw '';");
    QTest::newRow("thrown number") << body("Result = 1; throw 0;");
    QTest::newRow("count of no table") << body("Result = CTblRecCount(null);");
    QTest::newRow("seek in no table") << body("Result = CTblRecSeek(null, 0, ['A'])[1];");
    QTest::newRow("no such key") << body("Result = CTblRecSeek(_ModelTableByName('Workers'), 7, ['A'])[1];");
    QTest::newRow("field of no record") << body("Result = CRecFldGet(null, 'KeyLink');");
}

void CVrkToolCalcExecTest::errorsEndTheRun()
{
    QFETCH(QString, script);
    TestStore store;
    TestClient client(store);
    TestModule module(client);
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("CVrkToolCalcExec::Perform")));
    const Answer answer = run(&module, script);
    QVERIFY(answer.state != 2);
    QCOMPARE(answer.output.type, 0);
}

void CVrkToolCalcExecTest::anEndlessRunIsInterrupted_data()
{
    QTest::addColumn<QString>("script");
    QTest::newRow("a loop") << body("Result = 1; for (;;) {}");
    QTest::newRow("a loop that catches") << body("Result = 1; for (;;) { try { x = x + 1; } catch (e) {} }");
    QTest::newRow("functions") << body("function f() { return 1; } while (f()) {} Result = 1;");
    QTest::newRow("the store") << body("for (;;) CTblRecCount(_ModelTableByName('Workers'));");
    QTest::newRow("before the call") << QStringLiteral("(x) {})(function () { for (;;) {} }()");
    QTest::newRow("in the result") << body(
        "Result = [1]; Object.defineProperty(Result, 0, { get: function () { for (;;) {} } });");
    QTest::newRow("a result that holds itself") << body("Result = []; Result.push(Result, Result);");
    QTest::newRow("a vast result") << body("Result = []; Result.length = 4000000000;");
}

void CVrkToolCalcExecTest::anEndlessRunIsInterrupted()
{
    QFETCH(QString, script);
    TestStore store;
    TestClient client(store);
    TestModule module(client);
    CVrkToolCalcExec tool(&module);
    tool.setDeadline(50);
    tool.m_script = QStringLiteral("_a") + script;
    tool.m_input.type = CVar::Array;
    tool.m_input.elements = {CVar()};
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("CVrkToolCalcExec::Perform")));
    QElapsedTimer clock;
    clock.start();
    QVERIFY(tool.Perform(false) != 2);
    QVERIFY(clock.elapsed() < 10000);
    QCOMPARE(tool.m_output.type, 0);
    tool.m_script = QStringLiteral("_b") + body("Result = 5;");
    QCOMPARE(tool.Perform(false), 2);
    QCOMPARE(tool.m_output.number, 5.0);
}

void CVrkToolCalcExecTest::anErrorClearsThePreviousOutput()
{
    expectWarning(QStringLiteral("SyntaxError"));
    TestStore store;
    TestClient client(store);
    TestModule module(client);
    CVrkToolCalcExec tool(&module);
    tool.m_script = QStringLiteral("_a") + body("Result = 5;");
    QCOMPARE(tool.Perform(false), 2);
    QCOMPARE(tool.m_output.number, 5.0);
    tool.m_script = QStringLiteral("_b") + body("Result = ;");
    QVERIFY(tool.Perform(false) != 2);
    QCOMPARE(tool.m_output.type, 0);
}

void CVrkToolCalcExecTest::scriptsAreIndependent()
{
    TestStore store;
    TestClient client(store);
    TestModule module(client);
    QCOMPARE(run(&module, body("leftOver = 1; Result = 1;")).state, 2);
    const Answer answer =
        run(&module, body("Result = type(Result) + (typeof leftOver === 'undefined' ? 0 : 10);"));
    QCOMPARE(answer.output.number, 0.0);
}

void CVrkToolCalcExecTest::withoutAStoreTheRunFails()
{
    if (!TestStore::isSqlite())
        QSKIP("Of a store in a file");
    expectWarning(QStringLiteral("исчез"));
    TestStore store;
    TestClient client(store);
    TestModule module(client);
    QVERIFY(QFile::remove(store.path()));
    const Answer answer = run(&module, body("Result = 5;"));
    QVERIFY(answer.state != 2);
    QCOMPARE(answer.output.type, 0);
    QVERIFY(run(nullptr, body("Result = 5;")).state != 2);
}

void CVrkToolCalcExecTest::theReadEndsOnEveryPath()
{
    expectWarning(QStringLiteral("script error: 5"));
    expectWarning(QStringLiteral("Сбой."));
    const auto state = std::make_shared<FakeStore::State>();
    TestClient client(std::make_unique<FakeStore>(state));
    TestModule module(client);
    QCOMPARE(run(&module, body("Result = 5;")).state, 2);
    QVERIFY(!state->reading);
    QVERIFY(run(&module, body("throw 5;")).state != 2);
    QVERIFY(!state->reading);
    state->failures = {FakeStore::error(StoreError::Internal, QStringLiteral("Сбой."))};
    QVERIFY(run(&module, body("Result = 5;")).state != 2);
    QVERIFY(!state->reading);
}

void CVrkToolCalcExecTest::theToolHasItsName()
{
    TestModule module(static_cast<CVrkCliApp*>(nullptr));
    QCOMPARE(CVrkToolCalcExec(&module).objectName(), QStringLiteral("CalcExec"));
}

QTEST_MAIN(CVrkToolCalcExecTest)
#include "CVrkToolCalcExec_test.moc"
