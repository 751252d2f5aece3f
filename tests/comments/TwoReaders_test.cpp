#include "CommentCreatorDialog.h"
#include "CommentsWidget.h"
#include "Desktop.h"
#include "JournalWindow.h"
#include "LogWatch.h"
#include "MessageListDelegate.h"
#include "RecordValue.h"
#include "VrkTableProxyModel.h"

#include <QListWidget>
#include <QPushButton>
#include <QTableView>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QTextEdit>
#include <QToolButton>

namespace
{
/// A workstation with its tab of comments open.
struct Desk : JournalWindow {
    Desk(const TestStore& store, const char* login) : JournalWindow(store, QLatin1String(login))
    {
        QTest::mouseClick(child<QToolButton>("commentsButton"), Qt::LeftButton);
        comments = window().findChild<CommentsWidget*>();
        bringHome();
    }
    QTabWidget* tabs() { return child<QTabWidget>("logbooks"); }
    void bringHome() { tabs()->setCurrentWidget(&home()); }
    QString caption() { return tabs()->tabText(tabs()->indexOf(comments)); }
    QListWidget* list(const QWidget* tab) { return childOf<QListWidget>(tab, "commentsList"); }
    QTableWidget* files() { return childOf<QTableWidget>(&home(), "filesTable"); }

    /// Writes a comment on the current record of the home tab.
    void comment(const QString& text)
    {
        QTest::mouseClick(childOf<QToolButton>(&home(), "createCommentButton"), Qt::LeftButton);
        for (auto* editor : window().findChildren<CommentCreatorDialog*>()) {
            if (!editor->isVisible())
                continue;
            childOf<QTextEdit>(editor, "commentEdit")->setPlainText(text);
            QTest::mouseClick(childOf<QPushButton>(editor, "applyButton"), Qt::LeftButton);
        }
    }
    /// Makes a row of the tab of comments current; false if it is not shown.
    bool selectComment(const QString& key)
    {
        tabs()->setCurrentWidget(comments);
        auto* view = childOf<QTableView>(comments, "recordsTable");
        const auto* proxy = qobject_cast<VrkTableProxyModel*>(view->model());
        for (int row = 0; row < proxy->rowCount(); ++row) {
            if (MDRValue::copy(Row(proxy->record(row)).value("KeyLink")) != key.toUtf8())
                continue;
            view->setCurrentIndex(proxy->index(row, 4));
            return true;
        }
        return false;
    }
    QByteArray value(const char* record, const char* field)
    {
        return MDRValue::copy(Row(this->record(QLatin1String(record))).value(field));
    }
    bool hasStatusOf(const char* record, int status)
    {
        return hasStatus(this->record(QLatin1String(record)), status);
    }
    /// A flag of a record in the tab of comments.
    bool flag(const char* record, const char* field)
    {
        const auto* view = childOf<QTableView>(comments, "recordsTable");
        const auto* model = qobject_cast<VrkTableProxyModel*>(view->model())->tableModel();
        for (int row = 0; row < model->rowCount(); ++row)
            if (MDRValue::copy(Row(model->record(row)).value("KeyLink")) == record)
                return isSet(Row(model->record(row)).value(field));
        qFatal("no record %s among the comments", record);
        return false;
    }

    CommentsWidget* comments;
};

QString captionOf(int count)
{
    return QStringLiteral("Комментарии (%1)").arg(count);
}
} // namespace

/// Two users at two workstations see each other's changes of a record.
class TwoReaders_test : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<LogWatch> m_log;

private slots:
    void init()
    {
        m_log.reset();
        m_log = std::make_unique<LogWatch>();
    }
    void cleanup() { QCOMPARE(m_log->take().join(QLatin1Char('\n')), QString()); }

    void aCommentWaitsForTheAuthorAndIsReadThere()
    {
        const TestStore store;
        Desk ivanov(store, "ivanov");
        Desk petrov(store, "petrov");
        QCOMPARE(ivanov.caption(), captionOf(2));
        QCOMPARE(petrov.caption(), captionOf(0));

        petrov.select("REC_MESSAGE");
        petrov.comment(QStringLiteral("Уточните время"));
        petrov.deliver();
        ivanov.deliver();
        QCOMPARE(ivanov.caption(), captionOf(3));
        QCOMPARE(ivanov.window().unreadComments(), 3);
        QCOMPARE(petrov.caption(), captionOf(1)); // a comment adds its record, of any author
        QCOMPARE(petrov.window().unreadComments(), 0);

        QVERIFY(ivanov.selectComment(QStringLiteral("REC_MESSAGE")));
        QListWidgetItem* waiting = ivanov.list(ivanov.comments)->item(0);
        QCOMPARE(ivanov.list(ivanov.comments)->count(), 1);
        QCOMPARE(waiting->text(), QStringLiteral("Уточните время"));
        QCOMPARE(waiting->data(CommentAuthorRole).toString(), QStringLiteral("Петров П. П."));
        QCOMPARE(waiting->data(CommentIsReadRole).toBool(), false);
        QCOMPARE(petrov.list(&petrov.home())->item(0)->toolTip(), QString());

        QTest::mouseClick(Desk::childOf<QToolButton>(ivanov.comments, "readedCommentButton"), Qt::LeftButton);
        ivanov.deliver();
        petrov.deliver();
        QCOMPARE(ivanov.caption(), captionOf(2));
        QCOMPARE(ivanov.window().unreadComments(), 2);
        QCOMPARE(petrov.caption(), captionOf(0));
        QVERIFY(!ivanov.selectComment(QStringLiteral("REC_MESSAGE")));
        QVERIFY(petrov.list(&petrov.home())->item(0)->toolTip().startsWith(QStringLiteral("Прочитано ")));
        QVERIFY(petrov.list(&petrov.home())->item(0)->data(CommentIsReadRole).toBool());
    }

    void anAnswerOfTheAuthorIsBornRead()
    {
        const TestStore store;
        Desk ivanov(store, "ivanov");
        Desk petrov(store, "petrov");
        ivanov.select("REC_MESSAGE");
        petrov.select("REC_MESSAGE");
        ivanov.comment(QStringLiteral("Время верное"));
        ivanov.deliver();
        petrov.deliver();
        QCOMPARE(ivanov.caption(), captionOf(2));
        QCOMPARE(petrov.caption(), captionOf(0));
        QCOMPARE(petrov.list(&petrov.home())->count(), 1);
        QVERIFY(petrov.list(&petrov.home())->item(0)->data(CommentIsReadRole).toBool());
    }

    void anApprovalIsSeen()
    {
        const TestStore store;
        Desk ivanov(store, "ivanov");
        Desk petrov(store, "petrov");
        petrov.select("REC_DRAFT_PETROV");
        petrov.trigger("approveRecordAction");
        QVERIFY(!petrov.box());
        QVERIFY(ivanov.hasStatusOf("REC_DRAFT_PETROV", 1));
        ivanov.deliver();
        QVERIFY(ivanov.hasStatusOf("REC_DRAFT_PETROV", 0));
    }

    void aDeletionIsSeen()
    {
        const TestStore store;
        Desk ivanov(store, "ivanov");
        Desk petrov(store, "petrov");
        petrov.select("REC_OPENING");
        QVERIFY(Desk::childOf<QToolButton>(&petrov.home(), "createCommentButton")->isEnabled());
        ivanov.select("REC_OPENING");
        ivanov.trigger("deleteRecordAction");
        ivanov.answer(QDialogButtonBox::YesRole);
        petrov.deliver();
        QVERIFY(petrov.hasStatusOf("REC_OPENING", 2));
        QVERIFY(!Desk::childOf<QToolButton>(&petrov.home(), "createCommentButton")->isEnabled());
        ivanov.deliver();
        QVERIFY(ivanov.selectComment(QStringLiteral("REC_OPENING"))); // its comment is still unread
        QVERIFY(!Desk::childOf<QToolButton>(ivanov.comments, "createCommentButton")->isEnabled());
    }

    void aVisaIsSeen()
    {
        const TestStore store;
        Desk ivanov(store, "ivanov");
        Desk sidorova(store, "sidorova");
        sidorova.select("REC_MESSAGE");
        sidorova.trigger("signRecordAction");
        QCOMPARE(ivanov.value("REC_MESSAGE", "VisaWorkerKey"), QByteArray());
        ivanov.deliver();
        QCOMPARE(ivanov.value("REC_MESSAGE", "VisaWorkerKey"), QByteArray("WORKER_SIDOROVA"));
    }

    void aFileIsSeenAndOpened()
    {
        const TestStore store;
        Desk ivanov(store, "ivanov");
        Desk petrov(store, "petrov");
        const QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("схема.txt"));
        QFile made(path);
        QVERIFY(made.open(QIODevice::WriteOnly));
        made.write("lines");
        made.close();
        const Desktop real = Desktop::current();
        QList<QUrl> opened;
        Desktop::current() = {[&](QWidget*, const QString&, const QString&) { return path; },
                              [](QWidget*, const QString&, const QString&) { return QString(); },
                              [&](const QUrl& url) { opened.append(url); }};

        QVERIFY(!ivanov.flag("REC_OPENING", "file"));
        ivanov.select("REC_OPENING");
        petrov.select("REC_OPENING");
        QCOMPARE(ivanov.files()->rowCount(), 0);
        Desk::childOf<QTabWidget>(&petrov.home(), "additionalTab")->setCurrentIndex(1);
        QTest::mouseClick(Desk::childOf<QToolButton>(&petrov.home(), "createFileButton"), Qt::LeftButton);
        ivanov.deliver();
        QCOMPARE(ivanov.files()->rowCount(), 1);
        QCOMPARE(ivanov.files()->item(0, 0)->text(), QStringLiteral("схема.txt"));
        QVERIFY(ivanov.flag("REC_OPENING", "file"));
        emit ivanov.files()->cellDoubleClicked(0, 0);
        Desktop::current() = real;
        QCOMPARE(opened.size(), 1);
        QFile copy(opened[0].toLocalFile());
        QVERIFY(copy.open(QIODevice::ReadOnly));
        QCOMPARE(copy.readAll(), QByteArray("lines"));
    }
};

QTEST_MAIN(TwoReaders_test)
#include "TwoReaders_test.moc"
