#include "AbstractHfnCellConversion.h"

#include "RecordTable.h"
#include "VrkTableModel.h"

#include <QFont>
#include <QTest>

class AbstractHfnCellConversion_test : public QObject
{
    Q_OBJECT

private:
    QVariant cell(const AbstractHfnCellConversion& conversion, const char* field, int role = Qt::DisplayRole)
    {
        const MDRField* handle = MDRFldByName(m_table.array, field);
        return conversion.data({RecordTable::codec(), &m_table, m_record, handle->ordinal, role});
    }

    RecordTable m_table;
    MDRData* m_record = nullptr;

private slots:
    void initTestCase()
    {
        m_record = m_table.add("KEY", 1000.0, QStringLiteral("Линия <b>отключена</b>"));
        m_table.set(m_record, "file", MDRValue::boolean(true));
    }

    void displayRoleGivesThePlainValue()
    {
        const AbstractHfnCellConversion plain;
        QCOMPARE(cell(plain, "KeyLink"), QVariant(QStringLiteral("KEY")));
        QCOMPARE(cell(plain, "recordTime"), QVariant(1000.0));
        QCOMPARE(cell(plain, "status"), QVariant(0));
        QCOMPARE(cell(plain, "file"), QVariant(true));
    }

    void templateTextIsShownWithoutMarkupAndKeptInUserRole()
    {
        const AbstractHfnCellConversion plain;
        QCOMPARE(cell(plain, "html").toString(), QStringLiteral("Линия отключена"));
        QCOMPARE(cell(plain, "html", Qt::UserRole).toString(), QStringLiteral("Линия <b>отключена</b>"));
        QCOMPARE(cell(plain, "recordTime", Qt::UserRole), QVariant(1000.0));
    }

    void nullFieldsAndOtherRolesGiveNothing()
    {
        const AbstractHfnCellConversion plain;
        QVERIFY(!cell(plain, "eventTime").isValid());
        QVERIFY(!cell(plain, "VisaWorkerKey").isValid());
        QVERIFY(!cell(plain, "status", Qt::ToolTipRole).isValid());
        QVERIFY(!cell(plain, "status", Qt::FontRole).isValid());
    }

    void blobsAreNeverFetchedForACell()
    {
        class Source : public MDRBlobSource
        {
        public:
            bool read(QByteArray& bytes) const override
            {
                fetched = true;
                bytes = "bytes";
                return true;
            }
            mutable bool fetched = false;
        };
        CMDArray files;
        MDACreate(&files.array, 0);
        MDAFldAdd(files.array, fieldCount(LogbookFilesFields), LogbookFilesFields);
        files.KeyAdd("", 0);
        MDRData* record = MDARecNew(files.array);
        const auto source = std::make_shared<Source>();
        const MDRField* data = MDRFldByName(files.array, "fileData");
        QCOMPARE(MDRSetBlobSource(data, record, 5, source), int(mdr_Ok));
        record = files.RecPost(record);

        const AbstractHfnCellConversion plain;
        for (int role : {Qt::DisplayRole, Qt::UserRole})
            QVERIFY(!plain.data({nullptr, &files, record, data->ordinal, role}).isValid());
        QVERIFY(!source->fetched);
    }

    void aRedirectedRoleIsAnsweredByTheOther()
    {
        AbstractHfnCellConversion conversion;
        FixedCell grey(Qt::ForegroundRole, QStringLiteral("grey"));
        conversion.setRoleRedirect(Qt::ForegroundRole, &grey);
        QCOMPARE(cell(conversion, "status", Qt::ForegroundRole).toString(), QStringLiteral("grey"));
        QVERIFY(!cell(conversion, "status", Qt::FontRole).isValid());
        QCOMPARE(cell(conversion, "status"), QVariant(0));

        conversion.setRoleRedirect(Qt::ForegroundRole, nullptr);
        QVERIFY(!cell(conversion, "status", Qt::ForegroundRole).isValid());
    }

    void aRedirectEndsWithItsTarget()
    {
        AbstractHfnCellConversion conversion;
        {
            FixedCell grey(Qt::ForegroundRole, QStringLiteral("grey"));
            conversion.setRoleRedirect(Qt::ForegroundRole, &grey);
        }
        QVERIFY(!cell(conversion, "status", Qt::ForegroundRole).isValid());
    }

    void aRedirectToItselfIsNone()
    {
        AbstractHfnCellConversion conversion;
        conversion.setRoleRedirect(Qt::DisplayRole, &conversion);
        QCOMPARE(cell(conversion, "status"), QVariant(0));
    }

    void missingFieldOrRecordGivesNothing()
    {
        const AbstractHfnCellConversion plain;
        QVERIFY(!plain.data({nullptr, &m_table, m_record, 99, Qt::DisplayRole}).isValid());
        QVERIFY(!plain.data({nullptr, &m_table, nullptr, 0, Qt::DisplayRole}).isValid());
        QVERIFY(!plain.data({nullptr, nullptr, m_record, 0, Qt::DisplayRole}).isValid());
    }
};

QTEST_GUILESS_MAIN(AbstractHfnCellConversion_test)
#include "AbstractHfnCellConversion_test.moc"
