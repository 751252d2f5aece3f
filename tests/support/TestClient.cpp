#include "TestClient.h"

#include "SignIn.h"
#include "TEventNciParse.h"

#include <QSignalSpy>
#include <QTest>

TestClient::TestClient(const TestStore& store, const QString& login, const QByteArray& department)
{
    SignIn signIn;
    QByteArray chosen = department;
    const QString password = store.passwordOf(login);
    const bool in =
        signIn.open(store.url(), password.isEmpty() ? QString() : login, password) && signIn.signIn(login);
    if (in && chosen.isEmpty() && !signIn.departments().isEmpty())
        chosen = signIn.departments().first().key;
    if (!in || !signIn.enter(&m_app, chosen))
        qFatal("no test client for %s: %s", qPrintable(login), qPrintable(signIn.errorText()));
    m_failures = std::make_unique<QSignalSpy>(m_app.session(), &CVrkCliSes::requestFailed);
}

TestClient::TestClient(std::unique_ptr<Store> store)
{
    m_app.setSession(std::make_unique<CVrkCliSes>(std::move(store)));
    m_failures = std::make_unique<QSignalSpy>(m_app.session(), &CVrkCliSes::requestFailed);
}

TestClient::~TestClient() = default;

void TestClient::deliver()
{
    while (m_app.fetchEvents() > 0) {
    }
}

QStringList TestClient::takeFailures()
{
    QStringList reasons;
    while (!m_failures->isEmpty())
        reasons.append(m_failures->takeFirst().at(2).toString());
    return reasons;
}

bool TestClient::waitUntil(const std::function<bool()>& condition, int timeoutMs)
{
    return QTest::qWaitFor(condition, timeoutMs);
}

int TestModule::MessageData(HFNCliParam* block)
{
    TEventNciParse parse(block);
    Event event{parse.eventNumber, parse.tableName, parse.recordKey, parse.sourceText, {}};
    for (int i = 0; i < parse.recordType.count; ++i) {
        const MDRField* field = MDRFldByNum(&parse.recordType, i);
        bool marked = false;
        MDRIsUser(field, &parse.recordData, &marked);
        if (marked)
            event.marked.append(QString::fromLatin1(field->name));
    }
    events.append(event);
    if (onEvent)
        onEvent(block);
    return 1;
}

QStringList TestModule::takeEvents()
{
    QStringList reported;
    for (const Event& event : qAsConst(events))
        reported.append(
            QStringLiteral("%1 %2 %3").arg(event.number).arg(event.table, QString::fromUtf8(event.key)));
    events.clear();
    return reported;
}

bool TestModule::waitForEvents(int count) const
{
    return TestClient::waitUntil([this, count] { return events.size() >= count; });
}
