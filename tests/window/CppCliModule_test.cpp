#include "CppCliModule.h"

#include "CVrkConverter.h"
#include "CVrkLogBook.h"
#include "CVrkTemplateEditor.h"
#include "TestClient.h"

#include <memory>
#include <QTest>

/// The entry point of the plug-in, and the modules' answers to the host.
class CppCliModule_test : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_client = std::make_unique<TestClient>(m_store); }
    void cleanup() { m_client.reset(); }

    void noNameMakesNoModule();
    void anUnknownNameMakesNoModule();
    void theNameIsComparedWithoutCase();
    void theOtherModulesAnswerTheHost();
    void theJournalAnswersTheHost();
    void theConverterTakesEveryMessageUnread();

private:
    template <typename Module>
    static bool makes(CVrkCliApp* app, const char* name)
    {
        const std::unique_ptr<CVrkCliMod> module(CppCliModule(app, name));
        return qobject_cast<Module*>(module.get()) != nullptr;
    }

    TestStore m_store;
    std::unique_ptr<TestClient> m_client;
};

void CppCliModule_test::noNameMakesNoModule()
{
    QVERIFY(!CppCliModule(&m_client->app(), nullptr));
    QVERIFY(!CppCliModule(&m_client->app(), ""));
    QVERIFY(m_client->app().modules().isEmpty());
}

void CppCliModule_test::anUnknownNameMakesNoModule()
{
    QVERIFY(!CppCliModule(&m_client->app(), "logbooks"));
    QVERIFY(!CppCliModule(&m_client->app(), " logbook"));
    QVERIFY(m_client->app().modules().isEmpty());
}

void CppCliModule_test::theNameIsComparedWithoutCase()
{
    QVERIFY(makes<CVrkLogBook>(&m_client->app(), "logbook"));
    QVERIFY(makes<CVrkLogBook>(&m_client->app(), "LOGBOOK"));
    QVERIFY(makes<CVrkTemplateEditor>(&m_client->app(), "Template"));
    QVERIFY(makes<CVrkConverter>(&m_client->app(), "converter"));
}

void CppCliModule_test::theOtherModulesAnswerTheHost()
{
    CVrkTemplateEditor editor(&m_client->app());
    QVERIFY(editor.ModuleStart());
    QCOMPARE(editor.moduleTitle(), QStringLiteral("Конфигуратор шаболнов Оперативного журнала"));
    QCOMPARE(editor.SetParamCommand(QStringLiteral("any")), 0);
    QCOMPARE(editor.SetParamProfile(QStringLiteral("any")), 0);
    QCOMPARE(editor.GetParamProfile(), QString());
    QCOMPARE(editor.GetParamState(), QString());
    QCOMPARE(editor.MessageOn(), 0);

    CVrkConverter converter(&m_client->app());
    QVERIFY(converter.ModuleStart());
    QCOMPARE(converter.moduleTitle(), QStringLiteral("Конвертер шаблонов и параметров ОЖ"));
    QCOMPARE(converter.MessageOn(), 0);
}

void CppCliModule_test::theJournalAnswersTheHost()
{
    CVrkLogBook logbook(&m_client->app());
    QCOMPARE(logbook.SetParamCommand(QStringLiteral("any")), 0);
    QCOMPARE(logbook.SetParamProfile(QStringLiteral("any")), 0);
    logbook.SetParamState(QStringLiteral("any"));
    QCOMPARE(logbook.GetParamProfile(), QString());
    QCOMPARE(logbook.GetParamState(), QString());
    QCOMPARE(logbook.MessageOn(), 0);
}

void CppCliModule_test::theConverterTakesEveryMessageUnread()
{
    CVrkConverter converter(&m_client->app());
    QCOMPARE(converter.MessageData(nullptr), 1);
}

QTEST_MAIN(CppCliModule_test)
#include "CppCliModule_test.moc"
