#include "CVrkConverter.h"

#include "Contrast.h"
#include "FailingStore.h"
#include "HtmlParser.h"
#include "LoaderIndicator.h"
#include "LogWatch.h"
#include "MDRValues.h"
#include "StoreAdmin.h"
#include "TestClient.h"

#include <memory>
#include <QCheckBox>
#include <QFile>
#include <QFileDialog>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QSplitter>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBlock>
#include <QTextEdit>
#include <QTimer>

namespace
{
const char* const rights[] = {"ADMINISTRATOR", "SQL_EXEC", "SQL_REQUEST", "TBL_REQUEST", "TBL_UPDATE"};

void grant(const TestStore& store, const QString& login, const char* without = "")
{
    for (const char* right : rights) {
        StoreError error;
        if (!StoreAdmin::grant(store.url(), login, right, qstrcmp(right, without) != 0, &error))
            qFatal("%s", qPrintable(error.text));
    }
}

/// A client of an administrator and the converter on it.
struct Desk {
    explicit Desk(const TestStore& store, const std::shared_ptr<FailingStore::Plan>& plan = nullptr)
        : client(plan ? std::make_unique<FailingStore>(store.open(QStringLiteral("ivanov")), plan)
                      : store.open(QStringLiteral("ivanov"))),
          module(&client.app())
    {
    }
    template <typename Widget>
    Widget* find(const char* name)
    {
        return module.findChild<Widget*>(QLatin1String(name));
    }
    QPushButton* convert() { return find<QPushButton>("convertButton"); }
    QPushButton* save() { return find<QPushButton>("saveButton"); }
    QPushButton* report() { return find<QPushButton>("reportButton"); }
    QCheckBox* params() { return find<QCheckBox>("convertParamsCheck"); }
    QCheckBox* templates() { return find<QCheckBox>("convertTemplatesCheck"); }
    QStringList lines() { return find<QTextEdit>("infoEdit")->toPlainText().split(QLatin1Char('\n')); }
    void start()
    {
        QVERIFY(module.ModuleStart());
        module.show();
    }
    void press(QPushButton* button) { QTest::mouseClick(button, Qt::LeftButton); }
    /// Colour of the last line with this text.
    QColor colour(const QString& text)
    {
        QColor found;
        for (QTextBlock block = find<QTextEdit>("infoEdit")->document()->begin(); block.isValid();
             block = block.next())
            if (block.text() == text)
                found = block.begin().fragment().charFormat().foreground().color();
        return found;
    }

    TestClient client;
    CVrkConverter module;
};

bool write(const TestStore& store, const char* table, const char* key, const TestStore::Fields& fields)
{
    return TestStore::write(store.openLoader().get(), table, ROW_INSERT, key, fields);
}

/// Two categories, three templates, three parameters that can all be converted.
void writeEarlierJournal(const TestStore& store)
{
    grant(store, QStringLiteral("ivanov"));
    QVERIFY(write(store, "OperLogCategories", "C1", {{"name_", "Смены"}}));
    QVERIFY(write(store, "OperLogCategories", "C2", {{"name_", "В сменах"}, {"ParentKey", "C1"}}));
    QVERIFY(write(store, "OperLogCategories", "C3", {{"name_", "Сирота"}, {"ParentKey", "GONE"}}));
    QVERIFY(write(store, "OperLogTemplateParams", "P1", {{"nameLat", "prim"}, {"nameLoc", "Примечание"}}));
    QVERIFY(write(store, "OperLogTemplateParams", "P2",
                  {{"nameLat", "podst"}, {"param", "Equipment=Substation;"}}));
    QVERIFY(write(store, "OperLogTemplateParams", "P3",
                  {{"nameLat", "begin"}, {"nameLoc", "Начало"}, {"param", "DateTimeFormat=ShortTime"}}));
    QVERIFY(write(store, "OperLogTemplates", "T1",
                  {{"name_", "Принята"},
                   {"CategoryKey", "C1"},
                   {"text_", "Принята <begin>. <prim>"},
                   {"canStartShift", true}}));
    QVERIFY(write(store, "OperLogTemplates", "T2",
                  {{"name_", "Осмотр"}, {"CategoryKey", "C2"}, {"text_", "На <podst> [x]"}}));
    QVERIFY(write(store, "OperLogTemplates", "T3", {{"name_", "Без текста"}, {"CategoryKey", "C1"}}));
    QVERIFY(
        write(store, "OperLogTemplates", "T4", {{"name_", "Сирота"}, {"CategoryKey", "C3"}, {"text_", "x"}}));
}

/// Counts the delivered mouse moves.
class MouseWatch : public QObject
{
public:
    bool eventFilter(QObject*, QEvent* event) override
    {
        count += event->type() == QEvent::MouseMove;
        return false;
    }
    int count = 0;
};

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}
} // namespace

/// The window of the converter over a store: rights, loading, the guard, the run, saving.
class CVrkConverter_test : public QObject
{
    Q_OBJECT

private slots:
    void showsTheInitialWindow()
    {
        const TestStore store;
        Desk desk(store);
        QCOMPARE(desk.module.objectName(), text("CVrkConverter"));
        QCOMPARE(desk.convert()->text(), text("Конверировать"));
        QCOMPARE(desk.save()->text(), text("Сохранить в БД"));
        QCOMPARE(desk.params()->text(), text("Конвертировать параметры"));
        QCOMPARE(desk.templates()->text(), text("Конвертировать шаблоны"));
        QVERIFY(desk.params()->isChecked() && desk.templates()->isChecked());
        QVERIFY(desk.convert()->isEnabled());
        QVERIFY(!desk.save()->isEnabled());
        QVERIFY(!desk.report()->isEnabled());
        QVERIFY(desk.find<QTextEdit>("htmlEdit")->isReadOnly());
        QCOMPARE(desk.find<QSplitter>("splitter")->count(), 2);
    }

    void reportsEachMissingRightAndLoadsNothing()
    {
        const TestStore store;
        Desk desk(store);
        desk.start();
        QCOMPARE(desk.lines(), (QStringList{text("Нет прав: ADMINISTRATOR"), text("Нет прав: SQL_EXEC"),
                                            text("Нет прав: SQL_REQUEST"), text("Нет прав: TBL_REQUEST"),
                                            text("Нет прав: TBL_UPDATE")}));
        QCOMPARE(desk.colour(text("Нет прав: SQL_EXEC")), QColor(Qt::darkRed));
        QVERIFY(!desk.convert()->isEnabled());
        QVERIFY(!desk.params()->isEnabled());
        QVERIFY(!desk.templates()->isEnabled());
        QVERIFY(!desk.save()->isEnabled());
    }

    void oneMissingRightIsEnough_data()
    {
        QTest::addColumn<int>("right");
        for (int i = 0; i < int(std::size(rights)); ++i)
            QTest::newRow(rights[i]) << i;
    }
    void oneMissingRightIsEnough()
    {
        QFETCH(int, right);
        const TestStore store;
        grant(store, QStringLiteral("ivanov"), rights[right]);
        Desk desk(store);
        desk.start();
        QCOMPARE(desk.lines(), QStringList{text("Нет прав: ") + QLatin1String(rights[right])});
        QVERIFY(!desk.convert()->isEnabled());
    }

    void reportsLoadedTablesInOrder()
    {
        const TestStore store;
        writeEarlierJournal(store);
        Desk desk(store);
        desk.start();
        QCOMPARE(desk.lines(), (QStringList{text("Загружено: OperLogCategories - 2 записей"),
                                            text("Загружено: OperLogTemplates - 2 записей"),
                                            text("Загружено: OperLogTemplateParams - 3 записей"),
                                            text("Загружено: TemplateParamCategories - 1 записей"),
                                            text("Загружено: TemplateParams - 2 записей"),
                                            text("Загружено: LogbookCatsTemplate - 5 записей"),
                                            text("Загружено: LogbookTemplates - 5 записей")}));
        QCOMPARE(desk.colour(desk.lines().first()), QColor(Qt::darkGreen));
        QVERIFY(desk.convert()->isEnabled());
        QVERIFY(!desk.save()->isEnabled());
    }

    void reportsAnEmptyEarlierJournal()
    {
        const TestStore store;
        grant(store, QStringLiteral("ivanov"));
        Desk desk(store);
        desk.start();
        QCOMPARE(desk.lines().last(),
                 text("Конвертировать нечего: в таблицах прежнего журнала нет разделов или шаблонов."));
        QCOMPARE(desk.colour(desk.lines().last()), QColor(Qt::darkMagenta));
        QVERIFY(!desk.convert()->isEnabled());
        QVERIFY(!desk.params()->isEnabled());
        QVERIFY(!desk.templates()->isEnabled());
    }

    void aFailedRequestLeavesItsTableEmpty()
    {
        const TestStore store;
        writeEarlierJournal(store);
        const LogWatch log;
        auto plan = std::make_shared<FailingStore::Plan>();
        Desk desk(store, plan);
        plan->failedSelects = 1;
        desk.start();
        QCOMPARE(desk.lines().first(), text("Загружено: OperLogCategories - 0 записей"));
        QVERIFY(!desk.convert()->isEnabled());
    }

    void uncheckingBothBoxesDisablesTheRun()
    {
        const TestStore store;
        writeEarlierJournal(store);
        Desk desk(store);
        desk.start();
        desk.params()->click();
        QVERIFY(desk.convert()->isEnabled());
        desk.templates()->click();
        QVERIFY(!desk.convert()->isEnabled());
        desk.params()->click();
        QVERIFY(desk.convert()->isEnabled());
    }

    void aCleanRunMayBeSavedOnce()
    {
        const TestStore store;
        writeEarlierJournal(store);
        Desk desk(store);
        desk.start();
        const int loaded = desk.lines().size();
        desk.press(desk.convert());
        QCOMPARE(desk.lines().mid(loaded),
                 (QStringList{text(""), text("Конвертация параметров"), text("Конвертация шаблонов"),
                              text(""), text("Обработано 2 из 2 шаблонов"), text("Предупреждений: 0"),
                              text("Ошибок: 0"), text(""), text("Конвертация закончена")}));
        for (const char* line :
             {"Обработано 2 из 2 шаблонов", "Предупреждений: 0", "Ошибок: 0", "Конвертация закончена"})
            QCOMPARE(desk.colour(text(line)), QColor(Qt::darkGreen));
        QVERIFY(!desk.convert()->isEnabled());
        QVERIFY(!desk.params()->isEnabled());
        QVERIFY(!desk.templates()->isEnabled());
        QVERIFY(desk.save()->isEnabled());
        QVERIFY(desk.module.isEnabled());
        QVERIFY(!desk.module.findChild<LoaderIndicator*>()->isVisible());
        QCOMPARE(store.value(text("SELECT count(*) FROM LogbookTemplates")).toInt(), 5);

        desk.press(desk.save());
        QVERIFY(!desk.save()->isEnabled());
        QCOMPARE(desk.lines().mid(loaded + 9),
                 (QStringList{text("Параметры успешно сохранены"), text("Шаблоны успешно сохранены")}));
        QCOMPARE(store.rows(text("SELECT KeyLink, CategoryKey, nameLoc FROM TemplateParams WHERE KeyLink NOT "
                                 "LIKE 'PAR_%' ORDER BY KeyLink")),
                 (QVector<QVariantList>{{text("begin"), text("$AutoConvertFromDelphi"), text("Начало")},
                                        {text("prim"), text("$AutoConvertFromDelphi"), text("Примечание")}}));
        QCOMPARE(store
                     .value(text("SELECT nameLoc FROM TemplateParamCategories WHERE KeyLink = "
                                 "'$AutoConvertFromDelphi'"))
                     .toString(),
                 text("Параметры"));
        QCOMPARE(store.rows(text("SELECT T.nameLoc, C.nameLoc, P.nameLoc FROM LogbookTemplates AS T JOIN "
                                 "LogbookCatsTemplate AS C ON C.KeyLink = T.CategoryKey LEFT JOIN "
                                 "LogbookCatsTemplate AS P ON P.KeyLink = C.ParentKey WHERE T.KeyLink NOT "
                                 "LIKE 'TPL_%' ORDER BY T.nameLoc")),
                 (QVector<QVariantList>{{text("Осмотр"), text("В сменах"), text("Смены")},
                                        {text("Принята"), text("Смены"), QVariant()}}));
        const HtmlParser html(store.value(text("SELECT html FROM LogbookTemplates WHERE nameLoc = 'Принята'"))
                                  .toString()
                                  .toStdString());
        QVERIFY(html.isExistTemplateProperty("open_wshift"));
        QCOMPARE(html.propertyNameValue(0), std::string("datetime"));
        QCOMPARE(html.propertyValue(0, "format"), std::string("hh:mm:ss"));
        QCOMPARE(html.displayText(1), std::string("Примечание"));
        QCOMPARE(store.value(text("SELECT count(*) FROM TemplateParams WHERE KeyLink LIKE '$base%'")).toInt(),
                 0);
    }

    void theSecondStartRefuses()
    {
        const TestStore store;
        writeEarlierJournal(store);
        {
            Desk desk(store);
            desk.start();
            desk.press(desk.convert());
            desk.press(desk.save());
        }
        Desk desk(store);
        desk.start();
        QCOMPARE(desk.lines().mid(7), (QStringList{text(""), text("Ранее шаблоны уже были сконвертированы."),
                                                   text("Повторная конвертация недоступна!")}));
        QVERIFY(!desk.convert()->isEnabled());
        QVERIFY(!desk.params()->isEnabled());
        QVERIFY(!desk.templates()->isEnabled());
        const QTextCharFormat format =
            desk.find<QTextEdit>("infoEdit")->document()->lastBlock().begin().fragment().charFormat();
        QCOMPARE(format.fontPointSize(), 12.0);
        QCOMPARE(format.background().color(), QColor(0xed, 0x51, 0x51));
        QVERIFY(format.fontUnderline());
    }

    void convertsOnlyTheCheckedParts()
    {
        const TestStore store;
        writeEarlierJournal(store);
        Desk desk(store);
        desk.start();
        desk.templates()->click();
        desk.press(desk.convert());
        QVERIFY(!desk.lines().contains(text("Конвертация шаблонов")));
        QVERIFY(desk.lines().contains(text("Обработано 0 из 2 шаблонов")));
        desk.press(desk.save());
        QCOMPARE(desk.lines().last(), text("Параметры успешно сохранены"));
        QCOMPARE(store.value(text("SELECT count(*) FROM LogbookTemplates")).toInt(), 5);
        QCOMPARE(store.value(text("SELECT count(*) FROM TemplateParams")).toInt(), 4);
    }

    void templatesAloneHaveNoParameters()
    {
        const TestStore store;
        writeEarlierJournal(store);
        Desk desk(store);
        desk.start();
        desk.params()->click();
        desk.press(desk.convert());
        QVERIFY(!desk.lines().contains(text("Конвертация параметров")));
        QCOMPARE(desk.lines().mid(9, 4),
                 (QStringList{text(""), text(""), text("Не удалось преобразовать параметры (2шт.):"),
                              text("<begin>")}));
        QVERIFY(!desk.save()->isEnabled());
    }

    void warningsAndErrorsDecideTheResult_data()
    {
        QTest::addColumn<bool>("warning");
        QTest::addColumn<bool>("error");
        QTest::addColumn<QColor>("closing"); // invalid: there is none
        QTest::newRow("warning") << true << false << QColor(Qt::darkMagenta);
        QTest::newRow("error") << false << true << QColor(Qt::darkRed);
        QTest::newRow("both") << true << true << QColor();
    }
    void warningsAndErrorsDecideTheResult()
    {
        QFETCH(bool, warning);
        QFETCH(bool, error);
        QFETCH(QColor, closing);
        const TestStore store;
        writeEarlierJournal(store);
        if (warning) {
            QVERIFY(write(store, "OperLogTemplates", "T8",
                          {{"name_", "w"}, {"CategoryKey", "C1"}, {"text_", "<nobody> <other>"}}));
            QVERIFY(write(store, "OperLogTemplates", "T9",
                          {{"name_", "w2"}, {"CategoryKey", "C1"}, {"text_", "<nobody>"}}));
        }
        if (error)
            QVERIFY(write(store, "OperLogTemplateParams", "P9",
                          {{"nameLat", "bad"}, {"param", "DateTimeFormat=Never"}}));
        Desk desk(store);
        desk.start();
        desk.press(desk.convert());
        QCOMPARE(desk.lines().contains(text("Обнаружены несуществующие параметры (2шт.):")), warning);
        QCOMPARE(desk.lines().filter(text("<nobody>")).size(), warning ? 1 : 0);
        QCOMPARE(desk.lines().contains(text("Не удалось преобразовать параметры (1шт.):")), error);
        const QString warnings = warning ? text("Предупреждений: 2") : text("Предупреждений: 0");
        const QString errors = error ? text("Ошибок: 1") : text("Ошибок: 0");
        QCOMPARE(desk.colour(warnings), QColor(warning ? Qt::darkMagenta : Qt::darkGreen));
        QCOMPARE(desk.colour(errors), QColor(error ? Qt::darkRed : Qt::darkGreen));
        const QString end = text("Конвертация закончена");
        QCOMPARE(desk.lines().contains(end), closing.isValid());
        QCOMPARE(desk.colour(end), closing);
        QCOMPARE(desk.save()->isEnabled(), !error);
    }

    /// The store would refuse the key, and all parameters with it, after writing templates that need them.
    void anInvalidKeyPreventsSaving_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("quote") << QStringLiteral("a'b");
        QTest::newRow("double quote") << QStringLiteral("a\"b");
        QTest::newRow("backslash") << QStringLiteral("a\\b");
        QTest::newRow("control character") << QStringLiteral("a\tb");
    }
    void anInvalidKeyPreventsSaving()
    {
        QFETCH(QString, name);
        const TestStore store;
        writeEarlierJournal(store);
        StoreError error;
        QVERIFY(!TestStore::write(store.openLoader().get(), "TemplateParams", ROW_INSERT,
                                  TestStore::bytes(name), {{"nameLoc", "x"}}, &error));
        QVERIFY(write(store, "OperLogTemplateParams", "P9", {{"nameLat", name}, {"nameLoc", "x"}}));
        QVERIFY(write(store, "OperLogTemplates", "T9",
                      {{"name_", "С ним"},
                       {"CategoryKey", "C1"},
                       {"text_", QString(QLatin1Char('<') + name + QLatin1Char('>'))}}));
        Desk desk(store);
        desk.start();
        desk.press(desk.convert());
        const QString reported =
            text("Параметр '%1' не преобразован: в его латинском имени кавычка, обратная черта "
                 "или управляющий знак")
                .arg(name);
        QVERIFY2(desk.lines().contains(reported), qPrintable(desk.lines().join(QLatin1Char('\n'))));
        QCOMPARE(desk.colour(reported), QColor(Qt::darkRed));
        QVERIFY(desk.lines().contains(text("Ошибок: 2"))); // the parameter, and the template's use of it
        QVERIFY(!desk.save()->isEnabled());
    }

    void dumpsShowArraysAndRecords()
    {
        const TestStore store;
        TestClient client(store);
        CVrkConverter module(&client.app());
        LogWatch log;
        CModelTable table("rows");
        CVrkConverter::printStructTable(nullptr, text("t"));
        CVrkConverter::printKeysTable(nullptr, text("t"));
        CVrkConverter::printRecordTable(&module, nullptr, nullptr, text("t"));
        CVrkConverter::printTable(&module, nullptr, text("t"));
        CVrkConverter::printTable(&module, &table.data, text("t")); // no records
        QCOMPARE(log.takeDebug(), QStringList());
        CVrkConverter::printStructTable(&table.data, text("без полей"));
        QCOMPARE(
            log.takeDebug(),
            QStringList{text("void CVrkConverter::printStructTable(CMDArray*, const QString&) без полей")});

        const MDRFieldDescr fields[] = {{"KeyLink", 32, mdr_TChar}, {"flag", 0, mdr_TBool},
                                        {"small", 0, mdr_TByte},    {"number", 0, mdr_TInt32},
                                        {"time", 0, mdr_TDouble},   {"text", 0, mdr_TMemo},
                                        {"bytes", 0, mdr_TBlob}};
        CMDArray& rows = table.data;
        MDAFldAdd(rows.array, int(std::size(fields)), fields);
        rows.KeyAdd("", 0);
        rows.KeyAdd("KeyLink", 0);
        CVrkConverter::printStructTable(&rows, text("поля"));
        CVrkConverter::printKeysTable(&rows, text("ключи"));
        QCOMPARE(log.takeDebug(),
                 (QStringList{text("void CVrkConverter::printStructTable(CMDArray*, const QString&) поля"),
                              text(" 0 -              KeyLink"), text(" 1 -                 flag"),
                              text(" 2 -                small"), text(" 3 -               number"),
                              text(" 4 -                 time"), text(" 5 -                 text"),
                              text(" 6 -                bytes"),
                              text("void CVrkConverter::printKeysTable(CMDArray*, const QString&) ключи"),
                              text("key: 0"), text("key: 1")}));

        const QByteArray words = TestStore::bytes(text("Ёж"));
        MDRData* full = MDARecNew(rows.array);
        MDRSetFlags(full, ROW_INSERT | ROW_DELETE);
        rows.SetValF(full, "KeyLink", MDRValue::text("K"));
        rows.SetValF(full, "flag", MDRValue::boolean(true));
        rows.SetValF(full, "small", MDRValue::number(7, mdr_TByte));
        rows.SetValF(full, "number", MDRValue::number(-5));
        rows.SetValF(full, "time", MDRValue::real(1763600000.5));
        rows.SetValF(full, "text", MDRValue::text(words, mdr_TMemo));
        rows.SetValF(full, "bytes", MDRValue::text(words, mdr_TBlob));
        rows.RecPost(full);
        rows.RecPost(MDARecNew(rows.array));
        CVrkConverter::printTable(&module, &rows, text("все"));
        QStringList lines = log.takeDebug();
        for (int i : {1, 12}) {
            QVERIFY2(lines.value(i).startsWith(text("record address: 0x")), qPrintable(lines.value(i)));
            lines[i].clear();
        }
        const QString signature = text(
            "void CVrkConverter::printRecordTable(CVrkCliMod*, CMDArray*, MDArrayRec*, const QString&) ");
        QCOMPARE(lines, (QStringList{signature + text("idx = 0. все"),
                                     QString(),
                                     text("record is ROW_INSERT"),
                                     text("record is ROW_DELETE"),
                                     text("KeyLink      (mdr_TChar) = K"),
                                     text("flag         (mdr_TBool) = true"),
                                     text("small        (mdr_TByte) = 7"),
                                     text("number       (mdr_TInt32) = -5"),
                                     text("time         (mdr_TDouble) = 1763600000.5"),
                                     text("text         (mdr_TMemo) = Ёж"),
                                     text("bytes        (mdr_TBlob) = Ёж"),
                                     signature + text("idx = 1. все"),
                                     QString(),
                                     text("KeyLink      (mdr_TChar) = NULL"),
                                     text("flag         (mdr_TBool) = NULL"),
                                     text("small        (mdr_TByte) = NULL"),
                                     text("number       (mdr_TInt32) = NULL"),
                                     text("time         (mdr_TDouble) = NULL"),
                                     text("text         (mdr_TMemo) = NULL"),
                                     text("bytes        (mdr_TBlob) = NULL")}));
    }

    void aFailedBlockDoesNotStopTheOther()
    {
        const TestStore store;
        writeEarlierJournal(store);
        const LogWatch log;
        auto plan = std::make_shared<FailingStore::Plan>();
        Desk desk(store, plan);
        desk.start();
        desk.press(desk.convert());
        plan->refusedWrites = 1;
        desk.press(desk.save());
        QCOMPARE(plan->writes, 2); // one transaction for each pair of tables
        const QString failed = text("CVrkCliSes::BlockEnd для параметров завершился с ошибкой");
        QCOMPARE(desk.lines().mid(desk.lines().size() - 2),
                 (QStringList{failed, text("Шаблоны успешно сохранены")}));
        QCOMPARE(desk.colour(failed), QColor(Qt::darkRed));
        QVERIFY(!desk.save()->isEnabled());
        QCOMPARE(store.value(text("SELECT count(*) FROM TemplateParams")).toInt(), 2);
        QCOMPARE(store.value(text("SELECT count(*) FROM LogbookTemplates")).toInt(), 7);
    }

    void bothBlocksMayFail()
    {
        const TestStore store;
        writeEarlierJournal(store);
        const LogWatch log;
        auto plan = std::make_shared<FailingStore::Plan>();
        Desk desk(store, plan);
        desk.start();
        desk.press(desk.convert());
        plan->refusedWrites = 2;
        desk.press(desk.save());
        QCOMPARE(desk.lines().last(), text("CVrkCliSes::BlockEnd для шаблонов завершился с ошибкой"));
        QCOMPARE(store.value(text("SELECT count(*) FROM LogbookTemplates")).toInt(), 5);
        QCOMPARE(store.value(text("SELECT count(*) FROM LogbookCatsTemplate")).toInt(), 5);
    }

    void aPartlySavedConversionMayRunAgain()
    {
        const TestStore store;
        writeEarlierJournal(store);
        {
            Desk desk(store);
            desk.start();
            desk.templates()->click();
            desk.press(desk.convert());
            desk.press(desk.save());
        }
        Desk desk(store);
        desk.start();
        QVERIFY(desk.convert()->isEnabled());
        desk.press(desk.convert());
        desk.press(desk.save());
        QCOMPARE(desk.lines().last(), text("Шаблоны успешно сохранены"));
        QVERIFY(desk.lines().contains(text("Параметры успешно сохранены")));
        QCOMPARE(store.value(text("SELECT count(*) FROM TemplateParams")).toInt(), 4);
    }

    void theWindowIsCoveredAndStaysOpenDuringTheRun()
    {
        const TestStore store;
        writeEarlierJournal(store);
        Desk desk(store);
        desk.start();
        auto* loader = desk.module.findChild<LoaderIndicator*>();
        QStringList seen;
        bool closed = true;
        QTimer::singleShot(0, &desk.module, [&] { // runs while the first row is shown
            closed = desk.module.close();
            seen << loader->findChild<QLabel*>(QStringLiteral("loaderText"))->text();
            QVERIFY(loader->isVisible());
            QVERIFY(!desk.module.isEnabled());
        });
        desk.convert()->click();
        QCOMPARE(seen, QStringList{text("Конвертация параметров")});
        QVERIFY(!closed);
        QVERIFY(desk.module.isVisible());
        QVERIFY(desk.module.close());
    }

    void inputWaitsForTheEndOfTheRun()
    {
        const TestStore store;
        writeEarlierJournal(store);
        Desk desk(store);
        desk.start();
        MouseWatch watch;
        qApp->installEventFilter(&watch);
        QCursor::setPos(desk.module.mapToGlobal(QPoint(1, 1)));
        QTRY_VERIFY(watch.count > 0); // such a move arrives
        watch.count = 0;
        QTimer::singleShot(0, &desk.module, [&] { // runs while the first row is shown
            QCursor::setPos(desk.module.mapToGlobal(desk.module.rect().center()));
        });
        desk.convert()->click();
        QCOMPARE(watch.count, 0);
        QTRY_VERIFY(watch.count > 0);
        qApp->removeEventFilter(&watch);
    }

    void levelsAreConvertedInTheirOrder()
    {
        const TestStore store;
        writeEarlierJournal(store);
        QVERIFY(write(store, "OperLogCategories", "A1", {{"name_", "ЦДС"}, {"DepartmentKey", "DEP_CDS"}}));
        QVERIFY(write(store, "OperLogCategories", "A2", {{"name_", "Сети"}, {"OrgTypeKey", "TYPE_NETS"}}));
        for (const char* category : {"A1", "A2"})
            QVERIFY(write(store, "OperLogTemplates", (QByteArray("T") + category).constData(),
                          {{"name_", category}, {"CategoryKey", category}, {"text_", "x"}}));
        Desk desk(store);
        desk.start();
        desk.press(desk.convert());
        QTemporaryDir folder;
        desk.module.saveReport(folder.filePath(QStringLiteral("report.txt")));
        QFile file(folder.filePath(QStringLiteral("report.txt")));
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QString saved = QString::fromUtf8(file.readAll());
        const int common = saved.indexOf(text("\nПринята: "));
        const int type = saved.indexOf(text("\nA2: "));
        const int department = saved.indexOf(text("\nA1: "));
        QVERIFY(common > 0 && type > common && department > type);
    }

    void errorsStandOnceAndBeforeWarnings()
    {
        const TestStore store;
        writeEarlierJournal(store);
        QVERIFY(write(store, "OperLogTemplateParams", "P9",
                      {{"nameLat", "bad"}, {"param", "DateTimeFormat=Never"}}));
        for (const char* key : {"T8", "T9"})
            QVERIFY(write(store, "OperLogTemplates", key,
                          {{"name_", key}, {"CategoryKey", "C1"}, {"text_", "<bad> <nobody>"}}));
        Desk desk(store);
        desk.start();
        desk.press(desk.convert());
        const int errors = desk.lines().indexOf(text("Не удалось преобразовать параметры (2шт.):"));
        QVERIFY(errors > 0);
        QCOMPARE(desk.lines().mid(errors + 1, 2), (QStringList{text("bad"), text("<bad>")}));
        QVERIFY(desk.lines().indexOf(text("Обнаружены несуществующие параметры (1шт.):")) > errors);
        QVERIFY(desk.lines().contains(text("Ошибок: 2")));
        QVERIFY(desk.lines().contains(text("Предупреждений: 1")));
    }

    void theEndOfTheReportIsVisible()
    {
        const TestStore store;
        writeEarlierJournal(store);
        for (int i = 0; i < 60; ++i)
            QVERIFY(write(store, "OperLogTemplates", ("X" + QByteArray::number(i)).constData(),
                          {{"name_", "x"}, {"CategoryKey", "C1"}, {"text_", "x"}, {"icon", "Пожар"}}));
        Desk desk(store);
        desk.start();
        desk.press(desk.convert());
        const QScrollBar* bar = desk.find<QTextEdit>("infoEdit")->verticalScrollBar();
        QVERIFY(bar->maximum() > 0);
        QCOMPARE(bar->value(), bar->maximum());
    }

    void theReportIsSavedAsAFile()
    {
        const TestStore store;
        writeEarlierJournal(store);
        QVERIFY(write(store, "OperLogTemplates", "T8",
                      {{"name_", "С потерей"}, {"CategoryKey", "C1"}, {"text_", "<nobody>"}}));
        Desk desk(store);
        desk.start();
        desk.press(desk.convert());
        QVERIFY(desk.report()->isEnabled());
        desk.press(desk.report());
        auto* dialog = desk.find<QFileDialog>("reportFileDialog");
        QVERIFY(dialog);
        QCOMPARE(dialog->acceptMode(), QFileDialog::AcceptSave);
        const QString shown = desk.lines().join(QLatin1Char('\n'));
        QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("report.txt"));
        emit dialog->fileSelected(path);
        dialog->close();
        QCOMPARE(desk.lines().last(), text("Отчёт сохранён: ") + path);
        QCOMPARE(desk.colour(desk.lines().last()), QColor(Qt::darkGreen));
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QString saved = QString::fromUtf8(file.readAll());
        QVERIFY(saved.startsWith(shown + QLatin1Char('\n')));
        QVERIFY(saved.contains(text("С потерей: преобразован\n    параметр <nobody> не существует\n")));
        QVERIFY(saved.contains(text("begin: дата и время\n")));
        QVERIFY(saved.contains(text("podst: ссылка")));
    }

    void reportsThatAFileCannotBeSaved()
    {
        const TestStore store;
        Desk desk(store);
        desk.start();
        desk.module.saveReport(QStringLiteral("/no/such/folder/report.txt"));
        QVERIFY(desk.lines().last().startsWith(text("Не удалось сохранить отчёт: ")));
    }

    void theReportIsLegibleInEveryTheme_data()
    {
        QTest::addColumn<bool>("isDark");
        QTest::newRow("light") << false;
        QTest::newRow("dark") << true;
    }
    void theReportIsLegibleInEveryTheme()
    {
        QFETCH(bool, isDark);
        const TestStore store;
        const QPalette before = QApplication::palette();
        QPalette palette(isDark ? QColor(0x3A, 0x3E, 0x44) : QColor(0xEF, 0xEF, 0xEF));
        palette.setColor(QPalette::Base, isDark ? QColor(0x1F, 0x21, 0x25) : QColor(Qt::white));
        palette.setColor(QPalette::Text, isDark ? QColor(0xE3, 0xE5, 0xE8) : QColor(Qt::black));
        QApplication::setPalette(palette);
        Desk desk(store);
        desk.start();
        const auto* edit = desk.find<QTextEdit>("infoEdit"); // without rights: lines in dark red
        QCoreApplication::processEvents();
        const QColor ground = edit->palette().color(QPalette::Base);
        const QImage image = edit->viewport()->grab().toImage();
        QStringList faint;
        for (QTextBlock block = edit->document()->begin(); block.isValid(); block = block.next()) {
            const QVector<QTextLayout::FormatRange> shown = block.layout()->formats();
            const QColor color = shown.isEmpty() ? block.begin().fragment().charFormat().foreground().color()
                                                 : shown.first().format.foreground().color();
            if (Contrast::between(color, ground) < 4.5)
                faint << block.text() + color.name();
        }
        QApplication::setPalette(before);
        QCOMPARE(faint, QStringList());
        QCOMPARE(image.pixelColor(image.width() / 2, image.height() - 2), ground);
        QCOMPARE(desk.colour(text("Нет прав: SQL_EXEC")), QColor(Qt::darkRed)); // its original colour
    }
};

QTEST_MAIN(CVrkConverter_test)
#include "CVrkConverter_test.moc"
