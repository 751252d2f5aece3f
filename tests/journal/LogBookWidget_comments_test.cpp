#include "CommentCreatorDialog.h"
#include "KeptTexts.h"
#include "LogWatch.h"
#include "MessageListDelegate.h"
#include "NoticeBar.h"
#include "RecordTitle.h"
#include "RecordValue.h"
#include "TestJournal.h"

#include <QAction>
#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <QTextEdit>
#include <QTimer>
#include <QToolButton>

/// Writing, changing, deleting and reading comments in the pane of the journal page.
class LogBookWidget_comments_test : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<LogWatch> m_log;

    struct Pane {
        explicit Pane(const TestStore& store, const QString& login = QStringLiteral("ivanov"))
            : journal(store, login)
        {
        }
        QListWidget* list() { return journal.child<QListWidget>("commentsList"); }
        QToolButton* create() { return journal.child<QToolButton>("createCommentButton"); }
        QToolButton* remove() { return journal.child<QToolButton>("deleteCommentButton"); }
        QToolButton* readed() { return journal.child<QToolButton>("readedCommentButton"); }
        CommentCreatorDialog* editor() { return journal.module().findChild<CommentCreatorDialog*>(); }
        QTextEdit* edit() { return editor()->findChild<QTextEdit*>(QStringLiteral("commentEdit")); }
        QString title()
        {
            return editor()->recordTitle()->isVisible() ? editor()->recordTitle()->text() : QString();
        }
        NoticeBar* notice() { return editor()->findChild<NoticeBar*>(QStringLiteral("warningBar")); }
        void doubleClick(int row)
        {
            const QPoint place = list()->visualItemRect(list()->item(row)).center();
            QTest::mouseClick(list()->viewport(), Qt::LeftButton, Qt::NoModifier, place);
            QTest::mouseDClick(list()->viewport(), Qt::LeftButton, Qt::NoModifier, place);
        }
        /// Replaces the text in the open dialog and applies it.
        void write(const QString& text)
        {
            edit()->setPlainText(text);
            QTest::mouseClick(editor()->findChild<QPushButton*>(QStringLiteral("applyButton")),
                              Qt::LeftButton);
        }
        void comment(const QString& text)
        {
            QTest::mouseClick(create(), Qt::LeftButton);
            write(text);
        }
        void readAll() { readed()->actions().first()->trigger(); }

        TestJournal journal;
    };

    static QVariantList stored(const TestStore& store, const QString& text)
    {
        return store
            .rows(QStringLiteral("SELECT KeyLink,WorkerKey,RecordKey,commentTime,readedTime FROM "
                                 "LogbookComments WHERE text_='%1'")
                      .arg(text))
            .value(0);
    }
    static void refuseWrites(const TestStore& store)
    {
        for (const char* operation : {"INSERT", "UPDATE", "DELETE"})
            QCOMPARE(store.refuse(QLatin1String(operation), QStringLiteral("LogbookComments")), QString());
    }
    void compareFailure(Pane& pane, const QString& line, const QString& text)
    {
        QCOMPARE(m_log->take(QStringLiteral("LogBookWidget")), QStringList{line});
        QVERIFY(!m_log->take(QStringLiteral("CVrkCliSes")).isEmpty());
        CPopMessageBox* box = pane.journal.box();
        QVERIFY(box);
        QCOMPARE(box->title(), QStringLiteral("Ошибка"));
        QCOMPARE(box->text(), QStringLiteral("<center>%1</center>").arg(text));
        QCOMPARE(box->icon(), MessageIconError);
        QCOMPARE(box->type(), MessageTypeOk);
        pane.journal.press(QDialogButtonBox::AcceptRole);
        QVERIFY(!pane.journal.box());
    }

private slots:
    void init()
    {
        m_log.reset();
        m_log = std::make_unique<LogWatch>();
    }
    void cleanup() { QCOMPARE(m_log->take().join(QLatin1Char('\n')), QString()); }

    void writesACommentOnAColleaguesRecordUnread()
    {
        const TestStore store;
        Pane pane(store);
        pane.journal.select("REC_TRIP");
        QCOMPARE(pane.list()->count(), 0);
        QTest::mouseClick(pane.create(), Qt::LeftButton);
        QVERIFY(pane.editor()->isVisible());
        QCOMPARE(pane.edit()->toPlainText(), QString());
        pane.write(QStringLiteral("Проверьте № 5"));

        const QVariantList row = stored(store, QStringLiteral("Проверьте № 5"));
        QCOMPARE(row.value(0).toString().size(), 32);
        QCOMPARE(row.value(1).toString(), QStringLiteral("WORKER_IVANOV"));
        QCOMPARE(row.value(2).toString(), QStringLiteral("REC_TRIP"));
        QVERIFY(qAbs(row.value(3).toDouble() - pane.journal.session().GetHfnTime()) < 60);
        QCOMPARE(row.value(4).toDouble(), 0.0);
        QCOMPARE(pane.list()->count(), 0); // until the event comes
        QCOMPARE(pane.journal.deliver(), QStringList{QStringLiteral("601 LogbookComments 1")});
        QCOMPARE(pane.list()->count(), 1);
        QVERIFY(pane.remove()->isEnabled());
        QVERIFY(pane.readed()->isEnabled());
        QVERIFY(isSet(Row(pane.journal.record("REC_TRIP")).value("comment")));
    }

    void writesACommentOnAnOwnRecordRead()
    {
        const TestStore store;
        Pane pane(store);
        pane.journal.select("REC_MESSAGE");
        pane.comment(QStringLiteral("Себе"));
        const QVariantList row = stored(store, QStringLiteral("Себе"));
        QVERIFY(row.value(4).toDouble() > 0);
        QCOMPARE(row.value(4), row.value(3));
        pane.journal.deliver();
        QVERIFY(!pane.readed()->isEnabled());
    }

    void commentsTheRecordThatIsCurrentWhenTheTextIsApplied()
    {
        const TestStore store;
        Pane pane(store);
        pane.journal.select("REC_TRIP");
        QTest::mouseClick(pane.create(), Qt::LeftButton);
        QVERIFY(pane.title().contains(QStringLiteral("Петров")));
        pane.journal.select("REC_MESSAGE");
        QVERIFY(pane.title().contains(QStringLiteral("Иванов")));
        pane.write(QStringLiteral("Поздний"));
        QCOMPARE(stored(store, QStringLiteral("Поздний")).value(2).toString(), QStringLiteral("REC_MESSAGE"));
    }

    void keepsTheRecordWhileACommentIsWritten()
    {
        const TestStore store;
        Pane pane(store);
        pane.journal.select("REC_TRIP");
        QTest::mouseClick(pane.create(), Qt::LeftButton);
        QVERIFY(TestStore::write(store.open(QStringLiteral("petrov")).get(), "LogbookRecords", ROW_INSERT,
                                 "NEW",
                                 {{"ShiftKey", QByteArray("SHIFT_CDS_OPEN")},
                                  {"WorkerKey", QByteArray("WORKER_PETROV")},
                                  {"recordTime", TestStore::now()},
                                  {"status", 0}}));
        pane.journal.deliver();
        pane.write(QStringLiteral("К отключению"));
        QCOMPARE(stored(store, QStringLiteral("К отключению")).value(2).toString(),
                 QStringLiteral("REC_TRIP"));
    }

    void changesTheTextAndTheTimeButNotTheReadMark()
    {
        const TestStore store;
        Pane pane(store);
        pane.journal.select("REC_ORDER");
        const QVariant readed =
            store.value(QStringLiteral("SELECT readedTime FROM LogbookComments WHERE KeyLink='COM_READ'"));
        const QString before = pane.list()->item(0)->text();
        pane.doubleClick(0);
        QVERIFY(pane.editor()->isVisible());
        QCOMPARE(pane.edit()->toPlainText(), before);
        pane.write(QStringLiteral("Исправлено"));
        const QVariantList row = stored(store, QStringLiteral("Исправлено"));
        QCOMPARE(row.value(0).toString(), QStringLiteral("COM_READ"));
        QVERIFY(qAbs(row.value(3).toDouble() - pane.journal.session().GetHfnTime()) < 60);
        QCOMPARE(row.value(4), readed);
        QCOMPARE(pane.journal.deliver(), QStringList{QStringLiteral("602 LogbookComments 1")});
        QCOMPARE(pane.list()->item(0)->text(), QStringLiteral("Исправлено"));
    }

    void replacesTheChangedCommentByTheNextNewOne()
    {
        const TestStore store;
        Pane pane(store);
        pane.journal.select("REC_ORDER");
        pane.doubleClick(0);
        pane.write(QStringLiteral("Исправлено"));
        pane.journal.deliver();
        pane.journal.select("REC_TRIP");
        pane.comment(QStringLiteral("Новый"));
        QCOMPARE(stored(store, QStringLiteral("Новый")).value(0).toString(), QStringLiteral("COM_READ"));
        QCOMPARE(stored(store, QStringLiteral("Новый")).value(2).toString(), QStringLiteral("REC_ORDER"));
    }

    void logsThatTheChangedCommentIsGone()
    {
        const TestStore store;
        Pane pane(store);
        pane.journal.select("REC_ORDER");
        pane.doubleClick(0);
        pane.write(QStringLiteral("Исправлено"));
        pane.journal.deliver();
        QTest::mouseClick(pane.remove(), Qt::LeftButton);
        pane.journal.press(QDialogButtonBox::YesRole);
        pane.journal.deliver();
        pane.comment(QStringLiteral("Новый"));
        QCOMPARE(m_log->take(), QStringList{QStringLiteral(
                                    "void LogBookWidget::upsertComment(const QString&, const QString&) error "
                                    "edit comment: comment COM_READ not found in LogbookComments!")});
        QCOMPARE(pane.journal.deliver(), QStringList());
        QVERIFY(!pane.journal.box());
    }

    void opensNobodyElsesCommentForChanging()
    {
        const TestStore store;
        Pane pane(store);
        pane.journal.select("REC_OPENING");
        pane.doubleClick(0);
        QVERIFY(!pane.editor()->isVisible());
    }

    void letsTheWriterChangeACommentOnADeletedRecord()
    {
        const TestStore store;
        Pane pane(store);
        pane.journal.select("REC_ORDER");
        QVERIFY(pane.remove()->isEnabled() && pane.create()->isEnabled());
        pane.journal.tab().deleteRecordRequest();
        pane.journal.press(QDialogButtonBox::YesRole);
        pane.journal.deliver();
        QVERIFY(!pane.remove()->isEnabled());
        QVERIFY(!pane.create()->isEnabled());
        pane.doubleClick(0);
        QVERIFY(pane.editor()->isVisible());
    }

    void logsWhyNothingCanBeCommented()
    {
        const TestStore store;
        Pane pane(store);
        const QString line = QStringLiteral(
            "void LogBookWidget::upsertComment(const QString&, const QString&) can not create or "
            "change comment: record ");
        QTest::mouseClick(pane.create(), Qt::LeftButton);
        pane.journal.view()->setCurrentIndex(QModelIndex());
        QVERIFY(!pane.create()->isEnabled());
        pane.write(QStringLiteral("a"));
        QCOMPARE(m_log->take(), QStringList{line + QStringLiteral("not selected!")});

        pane.journal.select("REC_TRIP");
        MDRData* record = pane.journal.record("REC_TRIP");
        const MDRVar null = MDRValue::null();
        MDRSetVal(MDRFldByName(MDARecArr(record), "WorkerKey"), record, &null);
        pane.comment(QStringLiteral("a"));
        QCOMPARE(m_log->take(), QStringList{line + QStringLiteral("does not contains WorkerKey!")});
        MDRSetVal(MDRFldByName(MDARecArr(record), "KeyLink"), record, &null);
        pane.comment(QStringLiteral("a"));
        QCOMPARE(m_log->take(), QStringList{line + QStringLiteral("does not contains KeyLink!")});
        QCOMPARE(pane.journal.deliver(), QStringList());
    }

    void deletesAfterAQuestion()
    {
        const TestStore store;
        Pane pane(store);
        pane.journal.select("REC_ORDER");
        QTest::mouseClick(pane.remove(), Qt::LeftButton);
        CPopMessageBox* box = pane.journal.box();
        QVERIFY(box);
        QCOMPARE(box->title(), QStringLiteral("Удаление комментария"));
        QCOMPARE(box->text(),
                 QStringLiteral("<center>Вы действительно хотите удалить комментарий?</center>"));
        QCOMPARE(box->icon(), MessageIconQuestion);
        QCOMPARE(box->type(), MessageTypeYesNo);
        pane.journal.press(QDialogButtonBox::NoRole);
        QCOMPARE(pane.journal.deliver(), QStringList());

        pane.list()->setFocus();
        QTest::keyClick(pane.list(), Qt::Key_Delete);
        pane.journal.press(QDialogButtonBox::YesRole);
        QCOMPARE(pane.list()->count(), 1);
        QCOMPARE(pane.journal.deliver(), QStringList{QStringLiteral("603 LogbookComments 1")});
        QCOMPARE(pane.list()->count(), 0);
        QVERIFY(!isSet(Row(pane.journal.record("REC_ORDER")).value("comment")));
    }

    void deletesWhatWasAskedAboutAlsoWhenAColleagueComments()
    {
        const TestStore store;
        Pane pane(store);
        pane.journal.select("REC_ORDER");
        pane.comment(QStringLiteral("Второй"));
        pane.journal.deliver();
        pane.list()->setCurrentRow(1);
        QTest::mouseClick(pane.remove(), Qt::LeftButton);
        QVERIFY(TestStore::write(store.open(QStringLiteral("petrov")).get(), "LogbookComments", ROW_INSERT,
                                 "NEW",
                                 {{"RecordKey", QByteArray("REC_ORDER")},
                                  {"WorkerKey", QByteArray("WORKER_PETROV")},
                                  {"commentTime", TestStore::now()},
                                  {"text_", QStringLiteral("Третий")}}));
        pane.journal.deliver();
        QCOMPARE(pane.list()->currentRow(), 1);
        pane.journal.press(QDialogButtonBox::YesRole);
        pane.journal.deliver();
        QCOMPARE(pane.list()->count(), 2);
        QVERIFY(stored(store, QStringLiteral("Второй")).isEmpty());
        QCOMPARE(pane.list()->currentRow(), 0);
    }

    void deletesOnlyOnesOwn()
    {
        const TestStore store;
        Pane pane(store);
        pane.journal.select("REC_OPENING"); // a colleague's comment
        QVERIFY(!pane.remove()->isEnabled());
        pane.list()->setFocus();
        QTest::keyClick(pane.list(), Qt::Key_Delete);
        QVERIFY(!pane.journal.box());
        pane.comment(QStringLiteral("Мой"));
        pane.journal.deliver();
        QVERIFY(!pane.remove()->isEnabled()); // the first is selected
        pane.list()->setCurrentRow(1);
        QVERIFY(pane.remove()->isEnabled());
        pane.list()->setCurrentRow(-1);
        QVERIFY(!pane.remove()->isEnabled());
    }

    void marksTheSelectedCommentRead()
    {
        const TestStore store;
        Pane pane(store);
        pane.journal.select("REC_OPENING");
        QVERIFY(pane.readed()->isEnabled());
        QCOMPARE(pane.list()->item(0)->toolTip(), QString());
        QTest::mouseClick(pane.readed(), Qt::LeftButton);
        const double time =
            store.value(QStringLiteral("SELECT readedTime FROM LogbookComments WHERE KeyLink='COM_UNREAD'"))
                .toDouble();
        QVERIFY(qAbs(time - pane.journal.session().GetHfnTime()) < 60);
        QCOMPARE(pane.journal.deliver(), QStringList{QStringLiteral("602 LogbookComments 1")});
        QVERIFY(pane.list()->item(0)->data(CommentIsReadRole).toBool());
        QVERIFY(pane.list()->item(0)->toolTip().startsWith(QStringLiteral("Прочитано ")));
        QVERIFY(!pane.readed()->isEnabled());
    }

    void sendsNothingForACommentThatIsRead()
    {
        const TestStore store;
        Pane pane(store);
        pane.journal.select("REC_ORDER");
        pane.comment(QStringLiteral("Непрочитанный"));
        pane.journal.deliver();
        QCOMPARE(pane.list()->currentRow(), 0);
        QVERIFY(pane.readed()->isEnabled()); // for the sake of the other one
        QTest::mouseClick(pane.readed(), Qt::LeftButton);
        QCOMPARE(pane.journal.deliver(), QStringList());
        pane.readAll(); // a read comment keeps its time
        QCOMPARE(pane.journal.deliver(), QStringList{QStringLiteral("602 LogbookComments 1")});
        pane.readAll();
        QCOMPARE(pane.journal.deliver(), QStringList());
    }

    void marksAllRead()
    {
        const TestStore store;
        Pane pane(store, QStringLiteral("sidorova"));
        pane.journal.select("REC_OPENING");
        pane.comment(QStringLiteral("Второй"));
        pane.journal.deliver();
        pane.readAll();
        QCOMPARE(pane.journal.deliver().size(), 2);
        QCOMPARE(
            store
                .value(QStringLiteral("SELECT count(*) FROM LogbookComments WHERE RecordKey='REC_OPENING' "
                                      "AND readedTime = 0"))
                .toInt(),
            0);
    }

    void logsACommentThatIsGone()
    {
        const TestStore store;
        Pane pane(store);
        pane.journal.select("REC_OPENING");
        pane.list()->item(0)->setData(CommentKeyRole, QStringLiteral("GONE"));
        pane.readAll();
        QCOMPARE(m_log->take(),
                 QStringList{QStringLiteral(
                     "void LogBookWidget::setCommentReaded(const QString&, CMDArray*) error read "
                     "comment: comment GONE not found in LogbookComments!")});
        QVERIFY(!pane.journal.box());
    }

    void aTextThatWasNotWrittenIsOfferedAgain()
    {
        const TestStore store;
        Pane pane(store);
        refuseWrites(store);
        pane.journal.select("REC_TRIP");
        pane.comment(QStringLiteral("Важное"));
        pane.journal.press(QDialogButtonBox::AcceptRole);
        m_log->take(QString());
        for (const char* operation : {"INSERT", "UPDATE", "DELETE"})
            store.permit(QLatin1String(operation), QStringLiteral("LogbookComments"));

        QTest::mouseClick(pane.create(), Qt::LeftButton);
        QCOMPARE(pane.edit()->toPlainText(), QString());
        QTest::mouseClick(pane.editor()->findChild<QPushButton*>(QStringLiteral("takeKeptButton")),
                          Qt::LeftButton);
        QCOMPARE(pane.edit()->toPlainText(), QStringLiteral("Важное"));
        QTest::mouseClick(pane.editor()->findChild<QPushButton*>(QStringLiteral("applyButton")),
                          Qt::LeftButton);
        QVERIFY(!pane.journal.box());
        QCOMPARE(stored(store, QStringLiteral("Важное")).value(2).toString(), QStringLiteral("REC_TRIP"));
        QTest::mouseClick(pane.create(), Qt::LeftButton);
        QVERIFY(
            !pane.editor()->findChild<NoticeBar*>(QStringLiteral("keptBar"))->isVisible()); // it was written
    }

    void saysWhichCommentTheNextOneReplaces()
    {
        const TestStore store;
        Pane pane(store);
        pane.journal.select("REC_TRIP");
        QTest::mouseClick(pane.create(), Qt::LeftButton);
        QVERIFY(!pane.notice()->isVisible());
        pane.editor()->close();

        pane.journal.select("REC_ORDER");
        pane.doubleClick(0);
        QVERIFY(!pane.notice()->isVisible()); // here a change is intended
        pane.write(QStringLiteral("Изменённый"));
        pane.journal.deliver();
        QTest::mouseClick(pane.create(), Qt::LeftButton);
        QVERIFY(pane.notice()->isVisible());
        QVERIFY2(pane.notice()->text().contains(QStringLiteral("заменит")) &&
                     pane.notice()->text().contains(QStringLiteral("«Изменённый»")),
                 qPrintable(pane.notice()->text()));
        QTest::mouseClick(pane.editor()->findChild<QPushButton*>(QStringLiteral("asNewButton")),
                          Qt::LeftButton);
        pane.write(QStringLiteral("Новый"));
        pane.journal.deliver();
        QCOMPARE(stored(store, QStringLiteral("Изменённый")).value(0).toString(), QStringLiteral("COM_READ"));
        QVERIFY(!stored(store, QStringLiteral("Новый")).isEmpty());

        pane.doubleClick(0);
        pane.write(QStringLiteral("Ещё раз"));
        pane.journal.deliver();
        QTest::mouseClick(pane.remove(), Qt::LeftButton);
        pane.journal.press(QDialogButtonBox::YesRole);
        pane.journal.deliver();
        QTest::mouseClick(pane.create(), Qt::LeftButton);
        QVERIFY2(pane.notice()->text().contains(QStringLiteral("уже нет")),
                 qPrintable(pane.notice()->text()));
        pane.editor()->close();
    }

    void cutsALongCommentThatIsReplaced()
    {
        const TestStore store;
        Pane pane(store);
        pane.journal.select("REC_ORDER");
        pane.doubleClick(0);
        pane.write(QString(60, QLatin1Char('x')));
        pane.journal.deliver();
        QTest::mouseClick(pane.create(), Qt::LeftButton);
        QVERIFY(pane.notice()->text().contains(QStringLiteral("«%1…»").arg(QString(40, QLatin1Char('x')))));
        pane.editor()->close();
        pane.doubleClick(0);
        QVERIFY(pane.editor()->isVisible());
        QVERIFY(!pane.notice()->isVisible()); // the comment itself is changed
    }

    void aTextThatComesBackNamesItsRecord()
    {
        const TestStore store;
        Pane pane(store);
        pane.journal.select("REC_TRIP");
        QTest::mouseClick(pane.create(), Qt::LeftButton);
        pane.edit()->setPlainText(QStringLiteral("Недописанное"));
        KeptTexts* texts = KeptTexts::of(&pane.journal.module());
        const QVector<KeptTexts::Text> held = texts->held(&pane.journal.module());
        QCOMPARE(held.size(), 1);
        QCOMPARE(held.first().values.value(QStringLiteral("record")), QStringLiteral("REC_TRIP"));
        pane.editor()->close();
        pane.editor()->recordTitle()->hide();
        pane.journal.tab().showKeptComment(held.first());
        QCOMPARE(pane.edit()->toPlainText(), QStringLiteral("Недописанное"));
        QVERIFY(pane.title().contains(QStringLiteral("Петров")));
        pane.editor()->close();
    }

    void theNeighbourOfADeletedRowIsNotDeleted()
    {
        const TestStore store;
        Pane pane(store);
        pane.journal.select("REC_ORDER");
        pane.comment(QStringLiteral("Второй"));
        pane.journal.deliver();
        QTest::mouseClick(pane.remove(), Qt::LeftButton);
        QVERIFY(TestStore::write(store.open(QStringLiteral("ivanov")).get(), "LogbookComments", ROW_DELETE,
                                 "COM_READ"));
        pane.journal.deliver();
        QCOMPARE(pane.list()->count(), 1);
        QCOMPARE(pane.list()->currentRow(), -1);
        pane.journal.press(QDialogButtonBox::YesRole);
        QVERIFY(!stored(store, QStringLiteral("Второй")).isEmpty());
    }

    void aQuestionThatWasClosedLetsTheListGo()
    {
        const TestStore store;
        Pane pane(store);
        pane.journal.select("REC_ORDER");
        pane.comment(QStringLiteral("Второй"));
        pane.journal.deliver();
        pane.list()->setCurrentRow(1);
        QTest::mouseClick(pane.remove(), Qt::LeftButton);
        pane.journal.box()->close(); // by its frame
        pane.comment(QStringLiteral("Третий"));
        pane.journal.deliver();
        QCOMPARE(pane.list()->currentRow(), 0);
    }

    void aQuestionThatWasReplacedLetsTheListGo()
    {
        const TestStore store;
        Pane pane(store);
        pane.journal.select("REC_ORDER");
        pane.comment(QStringLiteral("Второй"));
        pane.journal.deliver();
        pane.list()->setCurrentRow(1);
        QTest::mouseClick(pane.remove(), Qt::LeftButton);
        QMetaObject::invokeMethod(pane.journal.child<QTimer>("repeatTimer"), "timeout"); // takes its box
        pane.journal.press(QDialogButtonBox::AcceptRole);
        pane.comment(QStringLiteral("Третий"));
        pane.journal.deliver();
        QCOMPARE(pane.list()->count(), 3);
        QCOMPARE(pane.list()->currentRow(), 0);
    }

    void saysWhatFailed()
    {
        const TestStore store;
        Pane pane(store);
        refuseWrites(store);

        pane.journal.select("REC_TRIP");
        pane.comment(QStringLiteral("Текст %1"));
        const QStringList lines = m_log->take(QStringLiteral("upsertComment"));
        QCOMPARE(lines.size(), 1);
        const QRegularExpression pattern(
            QStringLiteral("^void LogBookWidget::upsertComment\\(const QString&, const QString&\\) error "
                           "create new comment in "
                           "LogbookComments! Func SqlUpdate returned FALSE! Data: "
                           "KeyLink\\([0-9A-F]{32}\\),WorkerKey\\(WORKER_IVANOV\\),RecordKey\\(REC_TRIP\\),"
                           "commentTime\\([0-9.]+e\\+"
                           "09\\),text_\\(Текст %1\\)$"));
        QVERIFY2(pattern.match(lines.first()).hasMatch(), qPrintable(lines.first()));
        QVERIFY(!m_log->take(QStringLiteral("CVrkCliSes")).isEmpty());
        QCOMPARE(pane.journal.box()->text(),
                 QStringLiteral("<center>Не удалось добавить новый комментарий</center>"));
        pane.journal.press(QDialogButtonBox::AcceptRole);

        pane.journal.select("REC_ORDER");
        pane.doubleClick(0);
        pane.write(QStringLiteral("Другой"));
        QVERIFY(m_log->take(QStringLiteral("upsertComment"))
                    .value(0)
                    .contains(QStringLiteral("KeyLink(COM_READ)")));
        QVERIFY(!m_log->take(QStringLiteral("CVrkCliSes")).isEmpty());
        QCOMPARE(pane.journal.box()->title(), QStringLiteral("Ошибка"));
        QCOMPARE(pane.journal.box()->text(),
                 QStringLiteral("<center>Не удалось изменить комментарий</center>"));
        pane.journal.press(QDialogButtonBox::AcceptRole);

        QTest::mouseClick(pane.remove(), Qt::LeftButton);
        pane.journal.press(QDialogButtonBox::YesRole);
        compareFailure(
            pane,
            QStringLiteral("void LogBookWidget::deleteCommentAnswer(QAbstractButton*) error delete "
                           "comment in LogbookComments! Func SqlUpdate returned FALSE! Data: "
                           "KeyLink(COM_READ)"),
            QStringLiteral("Не удалось удалить комментарий!"));

        pane.journal.select("REC_OPENING");
        QTest::mouseClick(pane.readed(), Qt::LeftButton);
        compareFailure(pane,
                       QStringLiteral("void LogBookWidget::setCurrentCommentReaded() error read comment in "
                                      "LogbookComments! Func SqlUpdate returned FALSE!"),
                       QStringLiteral("Не удалось отметить комментарий как прочитанный!"));
        pane.readAll();
        compareFailure(pane,
                       QStringLiteral("void LogBookWidget::setAllCommentsReaded() error read all comment in "
                                      "LogbookComments! Func SqlUpdate returned FALSE!"),
                       QStringLiteral("Не удалось отметить комментарии как прочитанные!"));
        QCOMPARE(pane.journal.deliver(), QStringList());
    }

    void showsTheOthersCommentAtOnce()
    {
        const TestStore store;
        Pane author(store, QStringLiteral("petrov"));
        Pane reader(store);
        author.journal.select("REC_ORDER");
        reader.journal.select("REC_ORDER");
        reader.comment(QStringLiteral("Вопрос"));
        author.journal.deliver();
        QCOMPARE(author.list()->count(), 2);
        QVERIFY(!author.list()->item(1)->data(CommentIsMineRole).isValid());
        QVERIFY(!author.list()->item(1)->data(CommentIsReadRole).toBool());
        author.readAll();
        reader.journal.deliver();
        QVERIFY(reader.list()->item(1)->data(CommentIsReadRole).toBool());
    }
};

QTEST_MAIN(LogBookWidget_comments_test)
#include "LogBookWidget_comments_test.moc"
