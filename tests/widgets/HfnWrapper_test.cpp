#include "HfnWrapper.h"

#include "MDRValues.h"

#include <initializer_list>
#include <QTest>
#include <QTextCodec>
#include <utility>

class HfnWrapper_test : public QObject
{
    Q_OBJECT

private:
    using Fields = std::initializer_list<std::pair<const char*, QString>>;

    static QTextCodec* codec() { return QTextCodec::codecForName("Windows-1251"); }

    static void makeTable(CModelTable& table, std::initializer_list<const char*> fields)
    {
        for (const char* field : fields) {
            MDRFieldDescr description = {};
            qstrncpy(description.name, field, sizeof(description.name));
            description.type = mdr_TChar;
            MDAFldAdd(table.data.array, 1, &description);
        }
        table.data.KeyAdd("KeyLink", 0);
    }
    /// Fields without a value stay null.
    static void add(CModelTable& table, Fields fields)
    {
        MDRData* record = MDARecNew(table.data.array);
        for (const auto& field : fields) {
            const QByteArray bytes = codec()->fromUnicode(field.second);
            table.data.SetValF(record, field.first, MDRValue::text(bytes));
        }
        table.data.RecPost(record);
    }
    QString shortName(const char* key)
    {
        return HfnWrapper::workerShortName(codec(), &m_workers, QLatin1String(key));
    }
    QString fullName(const char* key)
    {
        return HfnWrapper::workerFullName(codec(), &m_workers, QLatin1String(key));
    }
    QString roles(const char* key)
    {
        return HfnWrapper::workerRoles(codec(), &m_roles, &m_workerRoles, QLatin1String(key));
    }

    CModelTable m_workers{"Workers"};
    CModelTable m_roles{"Roles"};
    CModelTable m_workerRoles{"WorkerRoles"};

private slots:
    void initTestCase()
    {
        makeTable(m_workers, {"KeyLink", "firstName", "lastName", "patronymicName"});
        add(m_workers, {{"KeyLink", QStringLiteral("IVANOV")},
                        {"lastName", QStringLiteral("Иванов")},
                        {"firstName", QStringLiteral("Пётр")},
                        {"patronymicName", QStringLiteral("Ильич")}});
        add(m_workers, {{"KeyLink", QStringLiteral("SURNAME")}, {"lastName", QStringLiteral("Сидорова")}});
        add(m_workers, {{"KeyLink", QStringLiteral("FIRST")}, {"firstName", QStringLiteral("Анна")}});
        add(m_workers, {{"KeyLink", QStringLiteral("EMPTY")},
                        {"lastName", QStringLiteral("Ким")},
                        {"firstName", QStringLiteral("Ли")},
                        {"patronymicName", QString()}});
        makeTable(m_roles, {"KeyLink", "name_"});
        add(m_roles, {{"KeyLink", QStringLiteral("SENIOR")}, {"name_", QStringLiteral("старший")}});
        add(m_roles, {{"KeyLink", QStringLiteral("DISPATCHER")}, {"name_", QStringLiteral("Диспетчер")}});
        add(m_roles, {{"KeyLink", QStringLiteral("NAMELESS")}});
        makeTable(m_workerRoles, {"KeyLink", "RoleKey", "WorkerKey"});
        for (const char* role : {"SENIOR", "DISPATCHER", "NAMELESS", "UNKNOWN", ""})
            add(m_workerRoles, {{"KeyLink", QStringLiteral("W_") + QLatin1String(role)},
                                {"RoleKey", QLatin1String(role)},
                                {"WorkerKey", QStringLiteral("IVANOV")}});
        add(m_workerRoles, {{"KeyLink", QStringLiteral("W_NULL")}, {"WorkerKey", QStringLiteral("IVANOV")}});
        add(m_workerRoles, {{"KeyLink", QStringLiteral("W_OTHER")},
                            {"RoleKey", QStringLiteral("SENIOR")},
                            {"WorkerKey", QStringLiteral("SURNAME")}});
    }

    void shortNameIsSurnameAndInitials()
    {
        QCOMPARE(shortName("IVANOV"), QStringLiteral("Иванов П. И."));
        QCOMPARE(shortName("SURNAME"), QStringLiteral("Сидорова"));
        QCOMPARE(shortName("FIRST"), QStringLiteral("А."));
    }

    void anEmptyPartLeavesItsPointInTheShortName()
    {
        QCOMPARE(shortName("EMPTY"), QStringLiteral("Ким Л. ."));
    }

    void fullNameIsSurnameFirstNameAndPatronymic()
    {
        QCOMPARE(fullName("IVANOV"), QStringLiteral("Иванов Пётр Ильич"));
        QCOMPARE(fullName("SURNAME"), QStringLiteral("Сидорова"));
        QCOMPARE(fullName("FIRST"), QStringLiteral("Анна"));
        QCOMPARE(fullName("EMPTY"), QStringLiteral("Ким Ли"));
    }

    void rolesAreSortedWithoutRegardToCase()
    {
        QCOMPARE(roles("IVANOV"), QStringLiteral("Диспетчер/старший"));
        QCOMPARE(roles("SURNAME"), QStringLiteral("старший"));
        QCOMPARE(roles("FIRST"), QString());
    }

    void withoutKeyWorkerOrTableThereIsNoText()
    {
        for (const char* key : {"", "NOBODY"}) {
            QCOMPARE(shortName(key), QString());
            QCOMPARE(fullName(key), QString());
            QCOMPARE(roles(key), QString());
        }
        const QString ivanov = QStringLiteral("IVANOV");
        QCOMPARE(HfnWrapper::workerShortName(codec(), nullptr, ivanov), QString());
        QCOMPARE(HfnWrapper::workerFullName(codec(), nullptr, ivanov), QString());
        QCOMPARE(HfnWrapper::workerRoles(codec(), nullptr, &m_workerRoles, ivanov), QString());
        QCOMPARE(HfnWrapper::workerRoles(codec(), &m_roles, nullptr, ivanov), QString());
    }
};

QTEST_GUILESS_MAIN(HfnWrapper_test)
#include "HfnWrapper_test.moc"
