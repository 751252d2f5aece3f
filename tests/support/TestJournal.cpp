#include "TestJournal.h"

#include "CLiteModel.h"
#include "CToolLiteModel.h"
#include "RecordValue.h"
#include "TEventNciParse.h"
#include "VrkTableProxyModel.h"

#include <QApplication>
#include <QPushButton>
#include <QTest>

class TestJournal::Module : public CVrkCliMod
{
public:
    using CVrkCliMod::CVrkCliMod;

    int MessageOn() override { return MessageGet(); }
    int MessageData(HFNCliParam* block) override
    {
        TEventNciParse event(block);
        if (!tab || !event.isChange())
            return 0;
        const bool isDone = tab->MessageData(&event);
        answers.append(QStringLiteral("%1 %2 %3").arg(event.eventNumber).arg(event.tableName).arg(isDone));
        return 1;
    }

    LogBookWidget* tab = nullptr;
    QStringList answers;
};

TestJournal::TestJournal(const TestStore& store, const QString& login, const QByteArray& department,
                         bool isStarted)
    : m_client(store, login, department), m_module(new Module(&m_client.app()))
{
    CToolLiteModel tool(m_module.get());
    tool.setObjectName(QStringLiteral("LiteModel"));
    tool.m_names = QStringList{QStringLiteral("Workers"), QStringLiteral("Departments"),
                               QStringLiteral("Organizations"), QStringLiteral("OrgTypes")};
    tool.Perform(false);
    m_tables.reset(tool.m_model);
    tool.m_model = nullptr;

    m_location = new LocationInfo(m_module.get());
    m_location->setWorkersTable(m_tables->GetTableByName("Workers"));
    m_location->setDepartmentsTable(m_tables->GetTableByName("Departments"));
    m_location->setOrganizationsTable(m_tables->GetTableByName("Organizations"));
    m_location->setOrgTypesTable(m_tables->GetTableByName("OrgTypes"));
    m_location->init(m_client.app().m_user_params);

    m_tab = new LogBookWidget(m_module.get());
    m_module->setCentralWidget(m_tab);
    m_module->resize(1600, 600); // space for the panes next to the table, for any font
    if (isStarted)
        start();
}

TestJournal::~TestJournal()
{
    delete m_tab;
}

void TestJournal::start()
{
    m_tab->init(m_module.get(), m_location);
    m_module->tab = m_tab;
    m_module->show();
    if (!QTest::qWaitForWindowExposed(m_module.get()))
        qFatal("the window does not show");
}

CVrkCliMod& TestJournal::module()
{
    return *m_module;
}

QStringList TestJournal::deliver()
{
    m_client.deliver();
    return std::exchange(m_module->answers, QStringList());
}

bool TestJournal::send(int number, const QByteArray& key, const QByteArray& source,
                       const QByteArray& packedRecord)
{
    const std::unique_ptr<HFNCliParam> block(HFNCliParam::event(number, key, source, packedRecord));
    TEventNciParse event(block.get());
    if (!event.isChange())
        qFatal("no change event");
    return m_tab->MessageData(&event);
}

MDRData* TestJournal::record(const char* key)
{
    const MDRRange found =
        MDARecsWith(m_tab->table(QStringLiteral("LogbookRecords"))->data.array, "KeyLink", key);
    return found.count > 0 ? found.data[0] : nullptr;
}

QStringList TestJournal::shownKeys()
{
    const auto* proxy = qobject_cast<VrkTableProxyModel*>(view()->model());
    QStringList keys;
    for (int row = 0; row < proxy->rowCount(); ++row)
        keys.append(QString::fromUtf8(MDRValue::copy(Row(proxy->record(row)).value("KeyLink"))));
    return keys;
}

QString TestJournal::currentKey()
{
    return QString::fromUtf8(MDRValue::copy(Row(m_tab->currentRecord()).value("KeyLink")));
}

void TestJournal::select(const char* key)
{
    const int row = shownKeys().indexOf(QLatin1String(key));
    if (row < 0)
        qFatal("record %s is not shown", key);
    view()->setCurrentIndex(view()->model()->index(row, 4));
}

QVariant TestJournal::cell(const char* key, const char* field, int role)
{
    const auto* proxy = qobject_cast<VrkTableProxyModel*>(view()->model());
    const int row = shownKeys().indexOf(QLatin1String(key));
    if (row < 0)
        qFatal("record %s is not shown", key);
    return proxy->index(row, proxy->tableModel()->idxField(QLatin1String(field))).data(role);
}

CPopMessageBox* TestJournal::box()
{
    for (QWidget* window : QApplication::topLevelWidgets())
        if (auto* found = qobject_cast<CPopMessageBox*>(window))
            if (found->isVisible() && found->parentWidget() == m_module.get())
                return found;
    return nullptr;
}

void TestJournal::press(QDialogButtonBox::ButtonRole role)
{
    QDialogButtonBox* buttons = box()->buttonBox();
    for (QAbstractButton* button : buttons->buttons())
        if (buttons->buttonRole(button) == role) {
            QTest::mouseClick(button, Qt::LeftButton);
            return;
        }
    qFatal("no such button");
}
