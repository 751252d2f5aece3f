#include "TemplateEditorDialog.h"

#include "AccessibleWindow.h"

/// The window of a parameter's properties for users who see badly or have no mouse.
class TemplateEditorDialog_test : public QObject, private AccessibleWindow
{
    Q_OBJECT

private slots:
    void canBeUsedWithoutMouseAndSight_data()
    {
        QTest::addColumn<QString>("kind");
        for (const char* kind : {"text", "datetime", "list", "employee_fio"})
            QTest::newRow(kind) << QString::fromLatin1(kind);
    }
    void canBeUsedWithoutMouseAndSight()
    {
        QFETCH(QString, kind);
        TemplateEditorChip chip;
        chip.setProperty("name", kind);
        chip.setProperty("locname", QStringLiteral("Цель"));
        TemplateEditorDialog dialog(chip, nullptr);
        dialog.show();
        compare(faults(&dialog));
    }
};

QTEST_MAIN(TemplateEditorDialog_test)
#include "TemplateEditorDialog_test.moc"
