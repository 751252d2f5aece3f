#include "Options.h"

#include <QTest>

/// The command line of the workstation.
class Options_test : public QObject
{
    Q_OBJECT

private slots:
    void readsEveryOption();
    void theStoreMayBeLeftOpen();
    void aTourNeedsNoStore();
    void helpAndVersionEndTheProgram();
    void wrongArgumentsAreRefused_data();
    void wrongArgumentsAreRefused();

private:
    bool parse(const QStringList& arguments)
    {
        m_options = Options();
        m_message.clear();
        return m_options.parse(QStringList{QStringLiteral("vrk-workstation")} + arguments, &m_message,
                               &m_exitCode);
    }

    Options m_options;
    QString m_message;
    int m_exitCode = -1;
};

void Options_test::readsEveryOption()
{
    QVERIFY(parse({QStringLiteral("--store"), QStringLiteral("sqlite:///a"), QStringLiteral("--user"),
                   QStringLiteral("petrov"), QStringLiteral("--department"), QStringLiteral("ЦДС"),
                   QStringLiteral("--module"), QStringLiteral("template"), QStringLiteral("--theme"),
                   QStringLiteral("dark"), QStringLiteral("--plugin"), QStringLiteral("x.so")}));
    QCOMPARE(m_options.store, QStringLiteral("sqlite:///a"));
    QCOMPARE(m_options.user, QStringLiteral("petrov"));
    QCOMPARE(m_options.department, QStringLiteral("ЦДС"));
    QCOMPARE(m_options.module, QStringLiteral("template"));
    QCOMPARE(m_options.theme, QStringLiteral("dark"));
    QCOMPARE(m_options.plugin, QStringLiteral("x.so"));

    QVERIFY(parse({QStringLiteral("--store=sqlite:///a")}));
    QCOMPARE(m_options.module, QString());
}

void Options_test::theStoreMayBeLeftOpen()
{
    qunsetenv("VRK_STORE");
    QVERIFY(parse({}));
    QVERIFY(m_options.store.isEmpty());
}

void Options_test::aTourNeedsNoStore()
{
    QVERIFY(parse({QStringLiteral("--tour"), QStringLiteral("/tmp/tour")}));
    QCOMPARE(m_options.tour, QStringLiteral("/tmp/tour"));
}

void Options_test::helpAndVersionEndTheProgram()
{
    QVERIFY(!parse({QStringLiteral("--help")}));
    QCOMPARE(m_exitCode, 0);
    for (const char* option : {"--store", "--user", "--department", "--module", "--theme", "--tour"})
        QVERIFY2(m_message.contains(QLatin1String(option)), option);
    QVERIFY(!parse({QStringLiteral("--version")}));
    QCOMPARE(m_exitCode, 0);
    QVERIFY(m_message.startsWith(QStringLiteral("vrk-workstation ")));
}

void Options_test::wrongArgumentsAreRefused_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("unknown option") << QStringList{QStringLiteral("--nonsense")};
    QTest::newRow("no value") << QStringList{QStringLiteral("--store")};
    QTest::newRow("positional") << QStringList{QStringLiteral("--store=sqlite:///a"), QStringLiteral("more")};
}

void Options_test::wrongArgumentsAreRefused()
{
    QFETCH(QStringList, arguments);
    QVERIFY(!parse(arguments));
    QCOMPARE(m_exitCode, 2);
    QVERIFY(!m_message.isEmpty());
}

QTEST_GUILESS_MAIN(Options_test)
#include "Options_test.moc"
