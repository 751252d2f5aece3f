#include "CreatorBench.h"
#include "ExpectedWarning.h"
#include "KeptTexts.h"
#include "TestFolder.h"
#include "Typing.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QDir>
#include <QDirIterator>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>
#include <QtTest/qtestspontaneevent.h>

namespace
{
int recordCount(const TestStore& store)
{
    return store.value(QStringLiteral("SELECT count(*) FROM LogbookRecords")).toInt();
}

QString newestHtml(const TestStore& store)
{
    return store.value(QStringLiteral("SELECT html FROM LogbookRecords ORDER BY rowid DESC LIMIT 1"))
        .toString();
}

void fillOrder(CreatorBench& bench, const QString& text = QStringLiteral("В-110"))
{
    bench.choose("TPL_ORDER", {{"substation", QStringLiteral("ПС Заречная")}, {"text", text}});
}

void closeByFrame(QWidget* window)
{
    QCloseEvent event;
    QSpontaneKeyEvent::setSpontaneous(&event);
    qApp->notify(window, &event); // sendEvent would make it look like an event of the program
    if (event.isAccepted() && window->isVisible())
        window->hide();
}
void keepIn(CreatorBench& bench, const QString& folder)
{
    bench.client.app().keptTexts()->open(folder, QStringLiteral("ivanov"), QStringLiteral("store"));
}

/// Types into the editor of the first parameter.
bool typeInto(CreatorBench& bench, const QString& text)
{
    bench.filler()->setFocus();
    QWidget* editor = bench.dialog->focusWidget();
    if (!editor)
        return false;
    typeText(editor, text);
    return bench.filler()->filledTemplate(true).contains(text);
}

QStringList filesIn(const QString& folder)
{
    QStringList files;
    QDirIterator found(folder, QDir::Files, QDirIterator::Subdirectories);
    while (found.hasNext())
        files << found.next();
    return files;
}

/// The folder after a kill at this moment: the files without their locks.
void copyAsKilled(CreatorBench& bench, const QString& folder, const QString& copy)
{
    KeptTexts* texts = bench.client.app().keptTexts();
    texts->held(bench.dialog);
    if (!texts->flush())
        qFatal("the texts are not on disk");
    for (const QString& file : filesIn(folder)) {
        const QString target = copy + file.mid(folder.size());
        QDir().mkpath(QFileInfo(target).path());
        if (!QFile::copy(file, target))
            qFatal("cannot copy");
    }
}
} // namespace

/// Unsaved text: questions, failures, retries, closing by the program.
class RecordCreatorDialogUnsaved_test : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QCoreApplication::setOrganizationName(QStringLiteral("test"));
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_settings.path());
    }

    void closesWithoutAQuestionIfNothingIsUnsaved()
    {
        TestStore store;
        CreatorBench bench(store);
        bench.create();
        bench.choose("TPL_ORDER"); // chosen, not filled in
        bench.click("cancelButton");
        QVERIFY(!bench.dialog->isVisible());
        bench.create();
        QTest::keyClick(bench.dialog, Qt::Key_Escape);
        QVERIFY(!bench.dialog->isVisible());
        bench.create();
        closeByFrame(bench.dialog);
        QVERIFY(!bench.dialog->isVisible());
        bench.create();
        QCOMPARE(bench.notice(), QString());
    }

    void asksBeforeUnsavedTextIsDropped()
    {
        TestStore store;
        CreatorBench bench(store);
        bench.create();
        fillOrder(bench);
        bench.click("cancelButton");
        QCOMPARE(bench.question(), QStringLiteral("Текст не сохранён. Сохранить его?"));
        QVERIFY(bench.button("saveTextButton")->hasFocus());
        bench.click("stayButton");
        QVERIFY(bench.dialog->isVisible());
        QCOMPARE(bench.question(), QString());
        QCOMPARE(bench.shown("text"), QStringLiteral("В-110"));

        QTest::keyClick(bench.dialog, Qt::Key_Escape);
        QVERIFY(!bench.question().isEmpty());
        QTest::keyClick(bench.dialog, Qt::Key_Escape); // answers "stay"
        QVERIFY(bench.dialog->isVisible());
        QCOMPARE(bench.question(), QString());

        closeByFrame(bench.dialog);
        QVERIFY(bench.dialog->isVisible());
        QVERIFY(!bench.question().isEmpty());
        bench.click("dropTextButton");
        QVERIFY(!bench.dialog->isVisible());
        QCOMPARE(bench.plan->writes, 0);
        bench.create();
        QCOMPARE(bench.notice(), QString()); // dropped text is not offered
        bench.choose("TPL_ORDER");
        QVERIFY(bench.shown("text") != QStringLiteral("В-110"));
    }

    void theQuestionCanSave()
    {
        TestStore store;
        CreatorBench bench(store);
        const int before = recordCount(store);
        bench.create();
        fillOrder(bench);
        bench.click("cancelButton");
        QTest::keyClick(bench.button("saveTextButton"), Qt::Key_Return);
        QVERIFY(!bench.dialog->isVisible());
        QCOMPARE(recordCount(store), before + 1);
    }

    void incompleteTextCanBeDroppedOrContinued()
    {
        TestStore store;
        CreatorBench bench(store);
        bench.create();
        bench.choose("TPL_ORDER", {{"text", QStringLiteral("В-110")}});
        bench.click("cancelButton");
        QCOMPARE(bench.question(), QStringLiteral("Текст не сохранён и заполнен не полностью."));
        QVERIFY(!bench.button("saveTextButton"));
        QVERIFY(bench.button("stayButton")->hasFocus()); // Enter must not lose anything
        QTest::keyClick(bench.button("stayButton"), Qt::Key_Return);
        QVERIFY(bench.dialog->isVisible());
        QCOMPARE(bench.shown("text"), QStringLiteral("В-110"));
    }

    void aKilledProgramsRecordIsOfferedAgain()
    {
        const TestStore store;
        const QTemporaryDir folder(testFolderTemplate());
        const QString killed = folder.filePath(QStringLiteral("killed"));
        const int before = recordCount(store);
        {
            CreatorBench bench(store);
            keepIn(bench, folder.filePath(QStringLiteral("kept")));
            bench.create();
            bench.choose("TPL_TRIP");
            QVERIFY(typeInto(bench, QStringLiteral("другой шаблон")));
            fillOrder(bench);
            bench.click("fromButton");
            copyAsKilled(bench, folder.filePath(QStringLiteral("kept")), killed);
            bench.click("cancelButton");
            bench.click("dropTextButton");
        }
        QVERIFY(filesIn(folder.filePath(QStringLiteral("kept"))).size() == 1); // of the other template
        CreatorBench next(store);
        keepIn(next, killed);
        QCOMPARE(next.client.app().keptTexts()->left().last().values.value(QStringLiteral("caption")),
                 QStringLiteral("запись «Отдана команда: на ПС Заречная отключить В-110.»"));
        next.create();
        QCOMPARE(next.notice(), QStringLiteral("Восстановлен несохранённый текст"));
        QCOMPARE(next.shown("text"), QStringLiteral("В-110"));
        QVERIFY(next.button("fromButton")->isChecked());
        next.choose("TPL_TRIP"); // texts typed for other templates are restored with them
        QVERIFY(next.filler()->filledTemplate(true).contains(QStringLiteral("другой шаблон")));
        next.click("cancelButton");
        next.click("dropTextButton");
        next.create();
        next.click("saveButton");
        QCOMPARE(recordCount(store), before + 1);
        QVERIFY(next.client.app().keptTexts()->flush());
        QCOMPARE(filesIn(killed), QStringList()); // written or dropped: removed
    }

    void aRecordThatWasWrittenBeforeTheKillIsNotOffered()
    {
        const TestStore store;
        const QTemporaryDir folder(testFolderTemplate());
        const QString killed = folder.filePath(QStringLiteral("killed"));
        CreatorBench bench(store);
        keepIn(bench, folder.filePath(QStringLiteral("kept")));
        bench.create();
        fillOrder(bench);
        copyAsKilled(bench, folder.filePath(QStringLiteral("kept")), killed);
        bench.click("saveButton");
        const int written = recordCount(store);
        CreatorBench next(store);
        keepIn(next, killed);
        next.create();
        QCOMPARE(next.notice(), QString());
        QCOMPARE(next.filler()->filledTemplate(true), QString());
        QCOMPARE(recordCount(store), written);
    }

    void aKilledProgramsEditComesBackToItsRecord()
    {
        const TestStore store;
        const QTemporaryDir folder(testFolderTemplate());
        const QString killed = folder.filePath(QStringLiteral("killed"));
        CreatorBench bench(store);
        keepIn(bench, folder.filePath(QStringLiteral("kept")));
        bench.loadRecords();
        bench.edit("REC_DRAFT_IVANOV");
        bench.click("toButton");
        copyAsKilled(bench, folder.filePath(QStringLiteral("kept")), killed);
        CreatorBench next(store);
        keepIn(next, killed);
        next.loadRecords();
        next.edit("REC_DRAFT_IVANOV");
        QCOMPARE(next.notice(), QStringLiteral("Восстановлен несохранённый текст"));
        QVERIFY(next.button("toButton")->isChecked());
    }

    void aFailedWriteKeepsTheTextAndShowsTheReason()
    {
        expectWarning(QStringLiteral("Диск хранилища переполнен"), 2);
        TestStore store;
        CreatorBench bench(store);
        const int before = recordCount(store);
        bench.create();
        fillOrder(bench);
        bench.click("fromButton");
        bench.plan->refusedWrites = 2;
        for (int attempt = 0; attempt < 2; ++attempt) {
            bench.click("saveButton");
            QVERIFY(bench.dialog->isVisible());
            QCOMPARE(bench.failure(),
                     QStringLiteral("Не удалось сохранить запись: %1").arg(FailingStore::refusal()));
            QCOMPARE(bench.shown("text"), QStringLiteral("В-110"));
            QVERIFY(bench.button("fromButton")->isChecked());
        }
        bench.click("saveButton");
        QVERIFY(!bench.dialog->isVisible());
        QCOMPARE(recordCount(store), before + 1);
    }

    void showsTheTextOfAViolatedRule()
    {
        expectWarning(QStringLiteral("Записи вносят работники открытой смены"));
        TestStore store;
        CreatorBench bench(store, QStringLiteral("sidorova")); // not in the shift
        bench.create();
        bench.choose("TPL_TEXT");
        bench.click("saveButton");
        QVERIFY(bench.dialog->isVisible());
        QVERIFY(bench.failure().startsWith(QStringLiteral("Не удалось сохранить запись: ")));
        QVERIFY(bench.failure().size() > 40);
    }

    void aRetryAfterALostAnswerWritesNoSecondRow()
    {
        expectWarning(QStringLiteral("Нет связи с хранилищем"));
        TestStore store;
        CreatorBench bench(store);
        bench.module.onEvent = nullptr; // the retry comes before the event
        const int before = recordCount(store);
        bench.create();
        fillOrder(bench);
        bench.plan->lostAnswers = 2; // the session sends it a second time
        bench.click("saveButton");
        QVERIFY(bench.dialog->isVisible());
        QVERIFY(!bench.failure().isEmpty());
        QCOMPARE(recordCount(store), before + 1);
        QTRY_VERIFY(bench.client.session().isConnected());
        const int writes = bench.plan->writes;
        bench.click("saveButton");
        QVERIFY(!bench.dialog->isVisible());
        QCOMPARE(recordCount(store), before + 1);
        QCOMPARE(bench.plan->writes, writes); // the row already has the right content
    }

    void aRetryWithAnotherTextChangesTheRow()
    {
        expectWarning(QStringLiteral("Нет связи с хранилищем"));
        expectWarning(QStringLiteral("Диск хранилища переполнен"));
        TestStore store;
        CreatorBench bench(store);
        bench.module.onEvent = nullptr;
        const int before = recordCount(store);
        bench.create();
        fillOrder(bench);
        bench.plan->lostAnswers = 2;
        bench.click("saveButton");
        QTRY_VERIFY(bench.client.session().isConnected());
        bench.set("text", QStringLiteral("В-220"));
        bench.plan->refusedWrites = 1;
        bench.click("saveButton");
        QVERIFY(bench.dialog->isVisible());
        bench.click("saveButton");
        QVERIFY(!bench.dialog->isVisible());
        QCOMPARE(recordCount(store), before + 1);
        QVERIFY(newestHtml(store).contains(QStringLiteral("В-220")));
    }

    void aRetryThatCannotFindTheRowWritesNothing()
    {
        expectWarning(QStringLiteral("Диск хранилища переполнен"), 2);
        TestStore store;
        CreatorBench bench(store);
        const int before = recordCount(store);
        bench.create();
        fillOrder(bench);
        bench.plan->refusedWrites = 1;
        bench.click("saveButton");
        const int writes = bench.plan->writes;
        bench.plan->failedSelects = 1;
        bench.click("saveButton");
        QVERIFY(bench.failure().contains(FailingStore::refusal()));
        QCOMPARE(bench.plan->writes, writes);
        QCOMPARE(recordCount(store), before);
        bench.click("saveButton");
        QCOMPARE(recordCount(store), before + 1);
    }

    void theOwnEventAfterALostAnswerConfirmsTheSave()
    {
        expectWarning(QStringLiteral("Нет связи с хранилищем"));
        TestStore store;
        CreatorBench bench(store);
        bench.create();
        bench.find<QCheckBox>("keepOpenCheck")->setChecked(true);
        fillOrder(bench);
        bench.plan->lostAnswers = 2;
        bench.click("saveButton");
        QVERIFY(!bench.failure().isEmpty());
        QTRY_VERIFY((bench.client.deliver(), bench.failure().isEmpty()));
        QVERIFY(bench.notice().startsWith(QStringLiteral("Запись сохранена в ")));
        QVERIFY(bench.filler()->filledTemplate(true).isEmpty());
    }

    void laterTextAfterALostAnswerBecomesAnEdit()
    {
        expectWarning(QStringLiteral("Нет связи с хранилищем"));
        TestStore store;
        CreatorBench bench(store);
        const int before = recordCount(store);
        bench.create();
        fillOrder(bench);
        bench.plan->lostAnswers = 2;
        bench.click("saveButton");
        bench.set("text", QStringLiteral("В-220"));
        QTRY_VERIFY((bench.client.deliver(), !bench.notice().isEmpty()));
        QCOMPARE(
            bench.notice(),
            QStringLiteral("Запись уже сохранена. То, что вы изменили после этого, сохранится кнопкой."));
        QVERIFY(bench.dialog->isVisible());
        bench.click("saveButton");
        QVERIFY(!bench.dialog->isVisible());
        QCOMPARE(recordCount(store), before + 1);
        QVERIFY(newestHtml(store).contains(QStringLiteral("В-220")));
    }

    void aProgrammaticCloseKeepsTheText()
    {
        TestStore store;
        CreatorBench bench(store);
        bench.create();
        fillOrder(bench);
        bench.click("toButton");
        bench.counterpart()->setWorker("WORKER_PETROV", QStringLiteral("Петров"));
        const QDateTime event = bench.eventTime()->dateTime().addSecs(-300);
        bench.eventTime()->setDateTime(event);
        bench.dialog->close();
        QVERIFY(!bench.dialog->isVisible());
        QCOMPARE(bench.plan->writes, 0);

        bench.create();
        QCOMPARE(bench.notice(), QStringLiteral("Восстановлен несохранённый текст"));
        QCOMPARE(bench.shown("text"), QStringLiteral("В-110"));
        QCOMPARE(bench.templates()->currentTemplateKey(), QStringLiteral("TPL_ORDER"));
        QCOMPARE(bench.eventTime()->dateTime(), event);
        QVERIFY(bench.button("toButton")->isChecked());
        QCOMPARE(bench.counterpart()->workerKey(), QByteArray("WORKER_PETROV"));
        bench.click("saveButton");
        QVERIFY(newestHtml(store).contains(QStringLiteral("В-110")));
        bench.create();
        QCOMPARE(bench.notice(), QString());
    }

    void textOfAnotherTemplateIsRestoredUnsaved()
    {
        TestStore store;
        CreatorBench bench(store);
        bench.create();
        bench.choose("TPL_ORDER");
        auto* input = bench.filler()->findChild<QWidget*>(QStringLiteral("parameterInput_1"));
        input->setFocus();
        typeText(input, QStringLiteral("В-110"));
        bench.choose("TPL_TRIP");
        bench.choose("TPL_ORDER");
        QCOMPARE(bench.shown("text"), QStringLiteral("В-110"));
        bench.click("cancelButton");
        QVERIFY(!bench.question().isEmpty());
    }

    void restoredTextIsKeptIfAnotherTemplateIsChosen()
    {
        TestStore store;
        CreatorBench bench(store);
        const int before = recordCount(store);
        bench.create();
        fillOrder(bench);
        bench.dialog->close();
        bench.create();
        bench.choose("TPL_TEXT");
        QCOMPARE(bench.notice(), QString());
        bench.click("saveButton");
        QVERIFY(newestHtml(store).contains(QStringLiteral("штормовое")));
        bench.create();
        QCOMPARE(bench.notice(), QStringLiteral("Восстановлен несохранённый текст"));
        QCOMPARE(bench.shown("text"), QStringLiteral("В-110"));
        bench.click("saveButton");
        QCOMPARE(recordCount(store), before + 2);
    }

    void keepsSeveralTextsAndOffersEach()
    {
        TestStore store;
        CreatorBench bench(store);
        bench.create();
        fillOrder(bench, QStringLiteral("Первый"));
        bench.dialog->close();
        bench.edit("REC_DRAFT_IVANOV"); // an edit is kept in addition
        bench.click("toButton");
        bench.dialog->close();
        bench.create(); // the last first
        QVERIFY(bench.button("toButton")->isChecked());
        bench.choose("TPL_ORDER", {{"text", QStringLiteral("Второй")}}); // which keeps the shown text
        bench.dialog->close();

        bench.create();
        QCOMPARE(bench.shown("text"), QStringLiteral("Второй"));
        bench.click("dropRestoredButton");
        QVERIFY(bench.button("toButton")->isChecked());
        bench.click("dropRestoredButton");
        QCOMPARE(bench.shown("text"), QStringLiteral("Первый"));
        bench.click("saveButton");
        QVERIFY(newestHtml(store).contains(QStringLiteral("Первый")));
        bench.create();
        QCOMPARE(bench.notice(), QString());
    }

    void restoredTextCanBeDropped()
    {
        TestStore store;
        CreatorBench bench(store);
        bench.create();
        fillOrder(bench);
        bench.dialog->close();
        bench.create();
        bench.click("dropRestoredButton");
        QCOMPARE(bench.notice(), QString());
        QVERIFY(bench.filler()->filledTemplate(true).isEmpty());
        bench.click("cancelButton");
        QVERIFY(!bench.dialog->isVisible());
        bench.create();
        QCOMPARE(bench.notice(), QString());
    }

    void incompleteTextIsRestoredWithoutItsTemplate()
    {
        TestStore store;
        CreatorBench bench(store);
        bench.create();
        bench.choose("TPL_ORDER", {{"text", QStringLiteral("В-110")}});
        bench.dialog->close();
        const std::unique_ptr<Store> loader = store.openLoader();
        QVERIFY(TestStore::write(loader.get(), "LogbookTemplates", ROW_DELETE, "TPL_ORDER"));
        bench.client.deliver();
        bench.create();
        QCOMPARE(bench.shown("text"), QStringLiteral("В-110"));
        QCOMPARE(bench.holdText(), QStringLiteral("Не заполнено: Подстанция"));
        bench.set("substation", QStringLiteral("ПС Луговая"));
        bench.click("saveButton");
        QVERIFY(newestHtml(store).contains(QStringLiteral("ПС Луговая")));
    }

    void anUnsavedEditIsRestoredIntoItsRecord()
    {
        TestStore store;
        CreatorBench bench(store);
        bench.edit("REC_DRAFT_IVANOV");
        bench.click("toButton");
        bench.dialog->close();
        bench.edit("REC_DRAFT_PETROV"); // another record is not affected
        QCOMPARE(bench.notice(), QString());
        QVERIFY(bench.button("noDirectionButton")->isChecked());
        bench.click("cancelButton");
        bench.edit("REC_DRAFT_IVANOV");
        QCOMPARE(bench.notice(), QStringLiteral("Восстановлен несохранённый текст"));
        QVERIFY(bench.button("toButton")->isChecked());
        bench.click("dropRestoredButton");
        QVERIFY(bench.button("noDirectionButton")->isChecked());
    }

    void anUnsavedEditCanBecomeANewDraft()
    {
        TestStore store;
        CreatorBench bench(store);
        const int before = recordCount(store);
        bench.edit("REC_DRAFT_IVANOV");
        bench.click("toButton");
        bench.dialog->close();
        bench.create();
        QCOMPARE(bench.notice(), QStringLiteral("Восстановлен несохранённый текст"));
        bench.click("saveButton");
        QCOMPARE(recordCount(store), before + 1);
        QVERIFY(newestHtml(store).contains(QStringLiteral("осмотр оборудования")));
    }

    void aKeptTextThatWasWrittenIsNotOffered()
    {
        expectWarning(QStringLiteral("Нет связи с хранилищем"));
        TestStore store;
        CreatorBench bench(store);
        bench.create();
        fillOrder(bench);
        bench.plan->lostAnswers = 2;
        bench.click("saveButton");
        bench.dialog->close();
        QTRY_VERIFY((bench.client.deliver(), !bench.module.events.isEmpty()));
        bench.create();
        QCOMPARE(bench.notice(), QString());
    }

    void switchingRecordsAsksAboutUnsavedText()
    {
        TestStore store;
        CreatorBench bench(store);
        bench.create();
        fillOrder(bench);
        bench.edit("REC_DRAFT_IVANOV");
        QCOMPARE(bench.question(), QStringLiteral("Текст не сохранён. Сохранить его?"));
        QCOMPARE(bench.dialog->windowTitle(), QStringLiteral("Новая запись"));
        bench.click("stayButton");
        QCOMPARE(bench.shown("text"), QStringLiteral("В-110"));

        bench.edit("REC_DRAFT_IVANOV");
        bench.click("saveTextButton");
        QVERIFY(newestHtml(store).contains(QStringLiteral("В-110")));
        QVERIFY(bench.dialog->isVisible());
        QCOMPARE(bench.dialog->windowTitle(), QStringLiteral("Правка записи"));
        bench.create(); // nothing is unsaved: at once
        QCOMPARE(bench.dialog->windowTitle(), QStringLiteral("Новая запись"));
    }

    void requestingTheSameRecordChangesNothing()
    {
        TestStore store;
        CreatorBench bench(store);
        bench.create();
        fillOrder(bench);
        bench.create();
        QCOMPARE(bench.question(), QString());
        QCOMPARE(bench.shown("text"), QStringLiteral("В-110"));
    }

private:
    QTemporaryDir m_settings;
};

QTEST_MAIN(RecordCreatorDialogUnsaved_test)
#include "RecordCreatorDialogUnsaved_test.moc"
