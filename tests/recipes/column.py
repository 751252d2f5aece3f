"""A column of the record table that exists only in the client."""
TITLES = ["A client-only column"]
NAME = "LetterColumn_test"
EDITS = {
    "platform/hfn/Fields.h": [('inline constexpr NumberField status("status");',
                               'inline constexpr NumberField status("status");\n'
                               'inline constexpr NumberField letters("letters");')],
    "platform/hfn/LogbookFields.h": [("LogbookRecordExtFields[18]", "LogbookRecordExtFields[19]"),
                                     ("then three that exist only in the client: file, comment, object",
                                      "then those that exist only in the client")],
    "platform/hfn/LogbookFields.cpp": [("LogbookRecordExtFields[18]", "LogbookRecordExtFields[19]"),
                                       ("    Field::object,\n", "    Field::object,\n    Field::letters,\n")],
    "plugin/records/RecordPreparer.h": [("        const MDRField* object;\n",
                                         "        const MDRField* object;\n        const MDRField* letters;\n")],
    "plugin/records/RecordPreparer.cpp": [
        ("      object(MDRFldByName(records, Field::object)),\n",
         "      object(MDRFldByName(records, Field::object)),\n      letters(MDRFldByName(records, Field::letters)),\n"),
        ("    const HtmlParser parser = templateOf(value);\n",
         "    const MDRVar letters = MDRValue::number(value.value.text.length);\n"
         "    MDRSetVal(fields.letters, record, &letters);\n"
         "    const HtmlParser parser = templateOf(value);\n")],
    "plugin/records/RecordColumns.cpp": [
        ('        {Field::html, m_strikeOut, tr("Текст")},\n',
         '        {Field::letters, m_strikeOut, tr("Знаков")},\n'
         '        {Field::html, m_strikeOut, tr("Текст")},\n')],
    f"tests/records/{NAME}.cpp": f"""#include "RecordValue.h"
#include "TestJournal.h"
#include "VrkTableModel.h"
#include "VrkTableProxyModel.h"

#include <QHeaderView>
#include <QTest>

class {NAME} : public QObject
{{
    Q_OBJECT

private slots:
    void showsTheLengthOfEachText()
    {{
        const TestStore store;
        TestJournal journal(store);
        const QAbstractItemModel* model = journal.view()->model();
        int shown = -1;
        for (int i = 0; i < model->columnCount(); ++i)
            if (model->headerData(i, Qt::Horizontal).toString() == QStringLiteral("Знаков"))
                shown = i;
        QVERIFY(shown >= 0);
        QVERIFY(!journal.view()->isColumnHidden(shown));
        const int length = MDRValue::copy(Row(journal.record("REC_DRAFT_IVANOV")).value("html")).size();
        QVERIFY(length > 0);
        QCOMPARE(journal.cell("REC_DRAFT_IVANOV", "letters").toInt(), length);
    }}
}};

QTEST_MAIN({NAME})
#include "{NAME}.moc"
""",
}


def carry_out(kitchen):
    kitchen.scratch.edit(EDITS)
    kitchen.scratch.build(NAME)
    kitchen.scratch.run(NAME)
