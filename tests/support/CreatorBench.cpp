#include "CreatorBench.h"

#include "HtmlParser.h"
#include "LogbookFields.h"
#include "MDRValues.h"
#include "NoticeBar.h"

#include <QApplication>
#include <QTest>

namespace
{
std::unique_ptr<Store> failing(const TestStore& store, const QString& login,
                               const std::shared_ptr<FailingStore::Plan>& plan)
{
    return std::make_unique<FailingStore>(store.open(login), plan);
}
} // namespace

CreatorBench::CreatorBench(const TestStore& store, const QString& login)
    : plan(std::make_shared<FailingStore::Plan>()),
      client(failing(store, login, plan)),
      module(client),
      records("LogbookRecords"),
      dialog(nullptr)
{
    client.app().m_user_params.setValue(QStringLiteral("ORGANIZATIONKEY"), QStringLiteral("ORG_NETS"));
    client.app().m_user_params.setValue(QStringLiteral("DEPARTMENTKEY"), QStringLiteral("DEP_CDS"));
    client.app().m_user_params.setValue(QStringLiteral("KEYLINK"), QStringLiteral("USER_") + login.toUpper());
    client.session().startEvents();
    MDAFldAdd(records.data.array, fieldCount(LogbookRecordExtFields), LogbookRecordExtFields);
    records.data.KeyAdd("", 0);

    dialog = new RecordCreatorDialog(&module, -1);
    dialog->init(&module);
    dialog->setRecordsTable(&records);
    dialog->setWorkerKey(QStringLiteral("WORKER_") + login.toUpper());
    dialog->setDepartmentKey(QStringLiteral("DEP_CDS"));
    dialog->setOrgTypeKey(QStringLiteral("TYPE_NETS"));
    module.onEvent = [this](HFNCliParam* block) {
        TEventNciParse event(block);
        dialog->MessageData(&event);
        if (event.tableName == QLatin1String("LogbookTemplates") ||
            event.tableName == QLatin1String("LogbookCatsTemplate"))
            dialog->reloadTemplates();
    };
    loadRecords();
}

CreatorBench::~CreatorBench() = default;

void CreatorBench::loadRecords()
{
    CMDArray answer;
    answer = client.session().SqlRequest("SELECT * FROM LogbookRecords WHERE ShiftKey = 'SHIFT_CDS_OPEN'");
    MDAClearRec(records.data.array);
    for (int position = 0; position < answer.RecCount(); ++position) {
        const MDRData* source = MDARec(answer.array, 0, position);
        MDRData* row = MDARecNew(records.data.array);
        for (int number = 0; number < MDAFldCount(answer.array); ++number) {
            MDRVar value;
            MDRGetVal(MDRFldByNum(answer.array, number), source, &value);
            MDRSetVal(MDRFldByNum(records.data.array, number), row, &value);
        }
        records.data.RecPost(row);
    }
}

MDRData* CreatorBench::record(const QByteArray& key)
{
    const MDRRange found = MDARecsWith(records.data.array, "KeyLink", key.constData());
    return found.count > 0 ? *found.begin() : nullptr;
}

void CreatorBench::create()
{
    dialog->setCurrentRecord(nullptr);
    dialog->setWorkshiftKey(QStringLiteral("SHIFT_CDS_OPEN"));
    dialog->show();
    // The offscreen platform activates a window only the first time it is shown.
    QApplication::setActiveWindow(dialog);
    QVERIFY(QTest::qWaitForWindowActive(dialog));
}

void CreatorBench::edit(const QByteArray& key)
{
    dialog->setCurrentRecord(record(key));
    dialog->setWorkshiftKey(QStringLiteral("SHIFT_CDS_OPEN"));
    dialog->show();
    // The offscreen platform activates a window only the first time it is shown.
    QApplication::setActiveWindow(dialog);
    QVERIFY(QTest::qWaitForWindowActive(dialog));
}

void CreatorBench::click(const char* name)
{
    QAbstractButton* pressed = button(name);
    QVERIFY2(pressed && pressed->isVisible() && pressed->isEnabled(), name);
    QTest::mouseClick(pressed, Qt::LeftButton);
}

QString CreatorBench::bar(const char* name)
{
    const auto* bar = find<NoticeBar>(name);
    return bar->isVisible() ? bar->text() : QString();
}

void CreatorBench::choose(const char* templateKey,
                          std::initializer_list<std::pair<const char*, QString>> values)
{
    QVERIFY(templates()->selectTemplate(QLatin1String(templateKey)));
    for (const auto& [name, text] : values)
        set(name, text);
}

void CreatorBench::set(const char* parameter, const QString& text, const QString& key)
{
    const QVector<unsigned int> found = filler()->findParameter(QLatin1String(parameter));
    QVERIFY2(!found.isEmpty(), parameter);
    filler()->setParameterValue(found.first(), text, key);
}

QString CreatorBench::shown(const char* parameter)
{
    const QVector<unsigned int> found = filler()->findParameter(QLatin1String(parameter));
    const HtmlParser parser(filler()->filledTemplate(false).toStdString());
    return found.isEmpty() ? QString() : QString::fromStdString(parser.displayText(found.first()));
}
