#include "AppendWorkerDialog.h"
#include "CommentCreatorDialog.h"
#include "FailingStore.h"
#include "JournalWindow.h"
#include "OrgStructDialog.h"
#include "RecordCreatorDialog.h"
#include "SecondMarkerDialog.h"
#include "TimeExecutionDialog.h"

#include <QDateEdit>
#include <QPushButton>
#include <QTableView>
#include <QTableWidget>
#include <QTabWidget>
#include <QTest>
#include <QTextEdit>
#include <QTimeEdit>

/// The initial and written times of the dialogs are those of the server, whose clock is days ahead of the
/// workstation's here.
class ServerClock_test : public QObject
{
    Q_OBJECT

private:
    static constexpr int ahead = 3 * 86400 + 5 * 3600;

    static QDateTime now() { return QDateTime::currentDateTime().addSecs(ahead); }
    static bool isNow(const QDateTime& time) { return qAbs(time.secsTo(now())) < 120; }
    /// The time that a date and a time edit of a dialog show together.
    static QDateTime shown(const QWidget* dialog, const char* date, const char* time)
    {
        return QDateTime(JournalWindow::childOf<QDateEdit>(dialog, date)->date(),
                         JournalWindow::childOf<QTimeEdit>(dialog, time)->time());
    }
    QDateTime stored(const char* field, const char* table, const QString& where) const
    {
        const QString sql = QStringLiteral("SELECT %1 FROM %2 WHERE %3 ORDER BY rowid DESC LIMIT 1");
        return QDateTime::fromSecsSinceEpoch(
            m_store->value(sql.arg(QLatin1String(field), QLatin1String(table), where)).toLongLong());
    }
    void start(const char* login, const char* department, const char* organization)
    {
        m_store = std::make_unique<TestStore>();
        const auto plan = std::make_shared<FailingStore::Plan>();
        plan->clockAhead = ahead;
        m_window = std::make_unique<JournalWindow>(
            std::make_unique<FailingStore>(m_store->open(QLatin1String(login)), plan), QLatin1String(login),
            QLatin1String(department), QLatin1String(organization));
    }
    template <class Dialog>
    Dialog* dialog() const
    {
        return m_window->window().findChild<Dialog*>();
    }

private slots:
    void cleanup()
    {
        m_window.reset();
        m_store.reset();
    }

    void anOpeningIsOfNow()
    {
        start("smirnov", "DEP_ODS", "ORG_CENTER");
        m_window->trigger("openWorkshiftAction");
        QVERIFY(isNow(shown(m_window->opening(), "startDateEdit", "startTimeEdit")));
        QVERIFY(isNow(shown(m_window->opening(), "endDateEdit", "endTimeEdit").addSecs(-3600)));
        auto* apply = JournalWindow::childOf<QPushButton>(m_window->opening(), "applyButton");
        QVERIFY(apply->isEnabled());
        apply->click();
        const QString shift =
            m_store
                ->value(QStringLiteral("SELECT KeyLink FROM LogbookWorkshifts WHERE DepartmentKey='DEP_ODS'"))
                .toString();
        QVERIFY(isNow(stored("createdAt", "LogbookWorkshifts", QStringLiteral("KeyLink='%1'").arg(shift))));
        const QString ofShift = QStringLiteral("ShiftKey='%1'").arg(shift);
        QVERIFY(isNow(stored("recordTime", "LogbookRecords", ofShift)));
        QVERIFY(isNow(stored("eventTime", "LogbookRecords", ofShift)));
    }

    void theTimetableIsThatOfTheServersDay()
    {
        start("ivanov", "DEP_CDS", "ORG_NETS");
        m_window->home().openWorkshiftRequest();
        const auto* shifts = JournalWindow::childOf<QTableWidget>(m_window->opening(), "shiftsTable");
        QVERIFY(shifts->rowCount() > 0);
        const QString day = now().date().toString(QStringLiteral("dd.MM"));
        QVERIFY2(shifts->item(0, 1)->text().startsWith(day), qPrintable(shifts->item(0, 1)->text()));
        QCOMPARE(shown(m_window->opening(), "startDateEdit", "startTimeEdit").date(), now().date());
    }

    void aClosingIsOfNow()
    {
        start("ivanov", "DEP_CDS", "ORG_NETS");
        m_window->requestClosing();
        QVERIFY(isNow(shown(m_window->closing(), "eventDateEdit", "eventTimeEdit")));
    }

    void marksAreOfNow()
    {
        start("ivanov", "DEP_CDS", "ORG_NETS");
        for (CPopTemplate* mark : std::initializer_list<CPopTemplate*>{dialog<SecondMarkerDialog>(),
                                                                       dialog<TimeExecutionDialog>()}) {
            mark->show();
            QVERIFY(isNow(shown(mark, "dateEdit", "timeEdit")));
            mark->close();
        }
    }

    void aRecordIsOfNow()
    {
        start("ivanov", "DEP_CDS", "ORG_NETS");
        m_window->home().createRecordRequest();
        QVERIFY(isNow(JournalWindow::childOf<QDateTimeEdit>(dialog<RecordCreatorDialog>(), "eventTimeEdit")
                          ->dateTime()));
    }

    void theRecordAboutTheAddedIsOfNow()
    {
        start("ivanov", "DEP_CDS", "ORG_NETS");
        m_window->home().appendWorkerRequest();
        auto* adding = dialog<AppendWorkerDialog>();
        JournalWindow::childOf<QAbstractButton>(adding, "addButton")->click();
        for (OrgStructDialog* structure : m_window->window().findChildren<OrgStructDialog*>()) {
            if (!structure->isVisible())
                continue;
            OrgStruct::SelectedItem item;
            item.type = OrgStruct::Person;
            item.worker.keyLink = QStringLiteral("WORKER_SIDOROVA");
            structure->hide();
            emit structure->itemSelected(item);
        }
        JournalWindow::childOf<QPushButton>(adding, "applyButton")->click();
        const QString about = QStringLiteral("html LIKE '%employee_fio%' AND ShiftKey='SHIFT_CDS_OPEN'");
        QVERIFY(isNow(stored("recordTime", "LogbookRecords", about)));
        QVERIFY(isNow(stored("eventTime", "LogbookRecords", about)));
    }

    void commentsAndTheirReadingAreOfNow()
    {
        start("ivanov", "DEP_CDS", "ORG_NETS");
        m_window->select("REC_OPENING");
        JournalWindow::childOf<QAbstractButton>(&m_window->home(), "readedCommentButton")->click();
        QVERIFY(isNow(stored("readedTime", "LogbookComments", QStringLiteral("KeyLink='COM_UNREAD'"))));
        QWidget* page = &m_window->home();
        for (const QString& text :
             {QStringLiteral("На вкладке журнала"), QStringLiteral("На вкладке комментариев")}) {
            if (page == nullptr) {
                m_window->child<QAbstractButton>("commentsButton")->click();
                page = m_window->child<QTabWidget>("logbooks")->currentWidget();
                JournalWindow::childOf<QTableView>(page, "recordsTable")->selectRow(0);
            }
            JournalWindow::childOf<QAbstractButton>(page, "createCommentButton")->click();
            for (auto* editor : m_window->window().findChildren<CommentCreatorDialog*>()) {
                if (!editor->isVisible())
                    continue;
                JournalWindow::childOf<QTextEdit>(editor, "commentEdit")->setPlainText(text);
                JournalWindow::childOf<QAbstractButton>(editor, "applyButton")->click();
            }
            QVERIFY(isNow(stored("commentTime", "LogbookComments", QStringLiteral("text_='%1'").arg(text))));
            page = nullptr;
        }
    }

private:
    std::unique_ptr<TestStore> m_store;
    std::unique_ptr<JournalWindow> m_window;
};

QTEST_MAIN(ServerClock_test)
#include "ServerClock_test.moc"
