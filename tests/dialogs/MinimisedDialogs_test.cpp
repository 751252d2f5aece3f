#include "AppendWorkerDialog.h"
#include "CommentCreatorDialog.h"
#include "DateTimeRangeDialog.h"
#include "JournalWindow.h"
#include "Minimised.h"
#include "OrgStructDialog.h"
#include "RecordCreatorDialog.h"
#include "ReportDialog.h"
#include "SecondMarkerDialog.h"
#include "TemplateEditorDialog.h"
#include "TemplatesWidget.h"
#include "TimeExecutionDialog.h"
#include "Typing.h"
#include "WorkshiftInfoDialog.h"
#include "WorkshiftsDialog.h"

#include <functional>
#include <QCheckBox>
#include <QDateEdit>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSettings>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QTextEdit>
#include <QToolButton>

Q_DECLARE_METATYPE(std::function<QWidget*(JournalWindow&)>)

namespace
{
using Opening = std::function<QWidget*(JournalWindow&)>;

QString contentOf(const QWidget* widget)
{
    QString text;
    if (const auto* line = qobject_cast<const QLineEdit*>(widget))
        text = line->text() + QStringLiteral(" @%1").arg(line->cursorPosition());
    else if (const auto* lines = qobject_cast<const QTextEdit*>(widget))
        text = lines->toPlainText() + QStringLiteral(" @%1").arg(lines->textCursor().position());
    else if (const auto* plain = qobject_cast<const QPlainTextEdit*>(widget))
        text = plain->toPlainText() + QStringLiteral(" @%1").arg(plain->textCursor().position());
    else if (const auto* button = qobject_cast<const QAbstractButton*>(widget))
        text = button->text() + (button->isChecked() ? QStringLiteral(" checked") : QString());
    else if (const auto* time = qobject_cast<const QDateTimeEdit*>(widget))
        text = time->dateTime().toString(Qt::ISODate);
    else if (const auto* label = qobject_cast<const QLabel*>(widget))
        text = label->text();
    else if (const auto* view = qobject_cast<const QAbstractItemView*>(widget)) {
        text = QStringLiteral("%1 rows, current %2 '%3'")
                   .arg(view->model() ? view->model()->rowCount() : 0)
                   .arg(view->currentIndex().row())
                   .arg(view->currentIndex().data().toString());
    }
    return text;
}

/// The visible state of a dialog, one line for each widget.
QStringList stateOf(const QWidget* dialog)
{
    QStringList lines{QStringLiteral("at %1,%2 size %3x%4")
                          .arg(dialog->x())
                          .arg(dialog->y())
                          .arg(dialog->width())
                          .arg(dialog->height())};
    for (const QWidget* widget : dialog->findChildren<QWidget*>()) {
        if (widget->window() != dialog || !widget->isVisibleTo(dialog))
            continue;
        lines << QStringLiteral("%1 %2%3: %4")
                     .arg(QLatin1String(widget->metaObject()->className()), widget->objectName(),
                          widget->isEnabled() ? QString() : QStringLiteral(" (off)"), contentOf(widget));
    }
    return lines;
}

template <class Dialog>
Dialog* of(JournalWindow& journal)
{
    auto* dialog = journal.window().findChild<Dialog*>();
    if (!dialog)
        qFatal("there is no such dialog");
    return dialog;
}

template <class Widget>
Widget* in(const QWidget* dialog, const char* name)
{
    return JournalWindow::childOf<Widget>(dialog, name);
}

QWidget* opening(JournalWindow& journal)
{
    journal.home().openWorkshiftRequest();
    OpenWorkshiftDialog* dialog = journal.opening();
    in<QTableWidget>(dialog, "shiftsTable")->selectRow(1);
    in<QDateEdit>(dialog, "endDateEdit")->setDate(QDate(2030, 1, 2));
    journal.choose(dialog, "WORKER_PETROV");
    return dialog;
}

QWidget* closing(JournalWindow& journal)
{
    journal.requestClosing();
    CloseWorkshiftDialog* dialog = journal.closing();
    in<QDateEdit>(dialog, "eventDateEdit")->setDate(QDate(2026, 1, 2));
    journal.choose(dialog, "WORKER_PETROV");
    JournalWindow::type(dialog, 0, QStringLiteral("Петров"));
    return dialog;
}

QWidget* adding(JournalWindow& journal)
{
    journal.home().appendWorkerRequest();
    auto* dialog = of<AppendWorkerDialog>(journal);
    in<QToolButton>(dialog, "addButton")->click();
    for (OrgStructDialog* structure : journal.window().findChildren<OrgStructDialog*>()) {
        if (!structure->isVisible())
            continue;
        OrgStruct::SelectedItem item;
        item.type = OrgStruct::Person;
        item.worker.keyLink = QStringLiteral("WORKER_SIDOROVA");
        structure->hide();
        emit structure->itemSelected(item);
    }
    return dialog;
}

QWidget* information(JournalWindow& journal)
{
    journal.home().showWorkshiftInfoDialog();
    auto* dialog = of<WorkshiftInfoDialog>(journal);
    dialog->resize(400, 350);
    return dialog;
}

QWidget* pastShifts(JournalWindow& journal)
{
    journal.home().showWorkshiftsDialog();
    auto* dialog = of<WorkshiftsDialog>(journal);
    in<QListWidget>(dialog, "workshiftsList")->setCurrentRow(1);
    return dialog;
}

QWidget* range(JournalWindow& journal)
{
    journal.home().showDateTimeDialog();
    auto* dialog = of<DateTimeRangeDialog>(journal);
    in<QDateEdit>(dialog, "startDateEdit")->setDate(QDate(2025, 1, 2));
    in<QDateEdit>(dialog, "endDateEdit")->setFocus();
    return dialog;
}

QWidget* marker(JournalWindow& journal)
{
    auto* dialog = of<SecondMarkerDialog>(journal);
    dialog->show();
    in<QDateEdit>(dialog, "dateEdit")->setDate(QDate(2025, 1, 2));
    return dialog;
}

QWidget* executionTime(JournalWindow& journal)
{
    journal.home().changeTimeExecRequest();
    auto* dialog = of<TimeExecutionDialog>(journal);
    in<QTimeEdit>(dialog, "timeEdit")->setTime(QTime(1, 2));
    in<QDateEdit>(dialog, "dateEdit")->setDate(QDate(2025, 1, 2));
    return dialog;
}

QWidget* comment(JournalWindow& journal)
{
    auto* dialog = of<CommentCreatorDialog>(journal);
    dialog->show();
    auto* edit = in<QTextEdit>(dialog, "commentEdit");
    QTest::keyClicks(edit, QStringLiteral("abc"));
    edit->moveCursor(QTextCursor::Start);
    return dialog;
}

QWidget* report(JournalWindow& journal)
{
    journal.home().showReportDialog();
    auto* dialog = of<ReportDialog>(journal);
    dialog->resize(700, 450);
    return dialog;
}

QWidget* record(JournalWindow& journal)
{
    journal.home().createRecordRequest();
    auto* dialog = of<RecordCreatorDialog>(journal);
    dialog->findChild<TemplatesWidget*>()->selectTemplate(QStringLiteral("TPL_ORDER"));
    JournalWindow::type(dialog, 0, QStringLiteral("Туманная"));
    in<QDateTimeEdit>(dialog, "eventTimeEdit")->setDateTime(QDateTime(QDate(2026, 1, 2), QTime(3, 4)));
    return dialog;
}

QWidget* structure(JournalWindow& journal)
{
    auto* dialog = of<OrgStructDialog>(journal);
    dialog->show();
    for (QLineEdit* line : dialog->findChildren<QLineEdit*>())
        typeText(line, QStringLiteral("сидо"));
    return dialog;
}

QWidget* question(JournalWindow& journal)
{
    journal.select("REC_ORDER");
    journal.home().deleteRecordRequest();
    return journal.box();
}

QWidget* parameter(JournalWindow& journal)
{
    TemplateEditorChip chip;
    chip.setProperty("name", QStringLiteral("text"));
    chip.setProperty("locname", QStringLiteral("Цель"));
    auto* dialog = new TemplateEditorDialog(chip, &journal.window());
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->show();
    in<QLineEdit>(dialog, "parameterLabel")->setText(QStringLiteral("Причина"));
    in<QCheckBox>(dialog, "parameterOptional")->setChecked(true);
    return dialog;
}
} // namespace

/// For every dialog: its content is unchanged after its window was minimised and restored.
class MinimisedDialogs_test : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QCoreApplication::setOrganizationName(QStringLiteral("minimised-dialogs-test"));
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_settings.path());
        const auto loader = m_store.openLoader();
        QVERIFY(TestStore::write(loader.get(), "LogbookWorkshifts", ROW_INSERT, "SHIFT_OLD",
                                 {{"DepartmentKey", "DEP_CDS"},
                                  {"OpenWorkerKey", "WORKER_IVANOV"},
                                  {"CloseWorkerKey", "WORKER_IVANOV"},
                                  {"createdAt", 1000.0},
                                  {"startTime", 1000000.0},
                                  {"endTime", 1003600.0}}));
        m_journal = std::make_unique<JournalWindow>(m_store, QStringLiteral("ivanov"));
    }

    void cleanupTestCase() { m_journal.reset(); }

    void aRestoredDialogIsAsItWas_data()
    {
        QTest::addColumn<Opening>("open");
        QTest::newRow("opening") << Opening(opening);
        QTest::newRow("closing") << Opening(closing);
        QTest::newRow("adding workers") << Opening(adding);
        QTest::newRow("information") << Opening(information);
        QTest::newRow("past shifts") << Opening(pastShifts);
        QTest::newRow("date range") << Opening(range);
        QTest::newRow("second marker") << Opening(marker);
        QTest::newRow("execution time") << Opening(executionTime);
        QTest::newRow("comment") << Opening(comment);
        QTest::newRow("report") << Opening(report);
        QTest::newRow("record") << Opening(record);
        QTest::newRow("structure") << Opening(structure);
        QTest::newRow("question") << Opening(question);
        QTest::newRow("parameter of a template") << Opening(parameter);
    }

    void aRestoredDialogIsAsItWas()
    {
        QFETCH(Opening, open);
        QWidget* dialog = open(*m_journal);
        QVERIFY(dialog && dialog->isVisible());
        dialog->move(dialog->pos() + QPoint(30, 20));
        QCoreApplication::processEvents();
        const QStringList before = stateOf(dialog);
        const QWidget* focus = dialog->focusWidget();
        QVERIFY(minimiseAndRestore(dialog));
        QCoreApplication::processEvents();
        QVERIFY(dialog->isVisible());
        const QStringList after = stateOf(dialog);
        for (int i = 0; i < qMin(before.size(), after.size()); ++i)
            QCOMPARE(after.at(i), before.at(i));
        QCOMPARE(after.size(), before.size());
        QCOMPARE(dialog->focusWidget(), focus);
        dialog->close();
    }

    void returnStillAnswersNoQuestionAfterwards()
    {
        QWidget* box = question(*m_journal);
        QVERIFY(minimiseAndRestore(box));
        for (QPushButton* button : box->findChildren<QPushButton*>()) {
            QVERIFY(!button->isDefault());
            QTest::keyClick(button, Qt::Key_Return);
        }
        QVERIFY(box->isVisible());
        box->close();
    }

private:
    TestStore m_store;
    QTemporaryDir m_settings;
    std::unique_ptr<JournalWindow> m_journal;
};

QTEST_MAIN(MinimisedDialogs_test)
#include "MinimisedDialogs_test.moc"
