#include "JournalCheck.h"

#include "CommentsWidget.h"
#include "HtmlParser.h"
#include "JournalRows.h"
#include "LocationInfo.h"
#include "LogbookFields.h"
#include "MessageListDelegate.h"
#include "VrkTableModel.h"
#include "VrkTableProxyModel.h"

#include <QHeaderView>
#include <QIcon>
#include <QListWidget>
#include <QTableView>
#include <QTableWidget>
#include <QTabWidget>
#include <QTextCodec>
#include <QToolButton>

namespace
{
using namespace JournalRows;

std::vector<MDRData*> all(const CModelTable* table)
{
    return JournalRows::all(table->data);
}

VrkTableProxyModel* proxyOf(const LogBookTab* tab)
{
    return qobject_cast<VrkTableProxyModel*>(RandomDispatcher::view(tab)->model());
}

QString timeText(const MDRVar& time)
{
    return HfnTime_to_DateTime(time.value.real, -1).toString(QStringLiteral("dd.MM.yyyy hh:mm"));
}

/// The rules for the allowed actions, written a second time, from the rows alone.
struct Rules {
    explicit Rules(LogBookWidget* journal)
        : me(journal->location()->workerKey().toUtf8()),
          mode(journal->mode()),
          shift(journal->currentWorkshift()),
          record(journal->currentRecord()),
          records(all(journal->table(QStringLiteral("LogbookRecords"))))
    {
        isOpen = shift && !hasText(shift, "CloseWorkerKey");
        isIn = shift && bytes(shift, "OpenWorkerKey") == me;
        for (const MDRData* row : all(journal->table(QStringLiteral("LogbookWorkersWorkshift"))))
            isIn = isIn || (shift && isSet(Row(row).value("opening")) && bytes(row, "WorkerKey") == me &&
                            bytes(row, "WorkshiftKey") == bytes(shift, "KeyLink"));
        isWorking = mode == 1 && isOpen && isIn;
        for (const MDRData* one : records) {
            drafts += status(one) == 1;
            mine += status(one) == 1 && bytes(one, "WorkerKey") == me;
            unsigned_ += isSignable(one);
        }
    }
    bool isSignable(const MDRData* one) const
    {
        return one && status(one) == 0 && hasText(one, "WorkerKey") && bytes(one, "WorkerKey") != me;
    }
    bool hasProperty(const char* name) const
    {
        HtmlParser parser(bytes(record, "html").toStdString());
        return record && parser.isExistTemplateProperty(name);
    }

    QByteArray me;
    int mode;
    const MDRData* shift;
    const MDRData* record;
    std::vector<MDRData*> records;
    bool isOpen = false;
    bool isIn = false;
    bool isWorking = false;
    int drafts = 0;
    int mine = 0;
    int unsigned_ = 0;
};
} // namespace

JournalCheck::JournalCheck(const TestStore& store) : m_reader(store.openLoader()) {}

JournalCheck::~JournalCheck() = default;

void JournalCheck::follow(RandomDispatcher& person)
{
    for (LogBookWidget* journal : person.journals()) {
        if (m_loaded.contains(journal))
            continue;
        m_loaded.insert(journal, {});
        rememberLoad(journal);
        connect(proxyOf(journal)->tableModel(), &QAbstractItemModel::modelReset, this,
                [this, journal] { rememberLoad(journal); });
        connect(journal, &QObject::destroyed, this, [this](QObject* gone) { m_loaded.remove(gone); });
    }
}

void JournalCheck::rememberLoad(LogBookWidget* journal)
{
    QSet<QByteArray> keys;
    for (const MDRData* record : all(journal->table(QStringLiteral("LogbookRecords"))))
        keys.insert(bytes(record, "KeyLink"));
    m_loaded.insert(journal, keys);
    const Rows fresh = stored("LogbookRecords", recordsWhere(journal));
    const QSet<QByteArray> wanted(fresh.keyBegin(), fresh.keyEnd());
    if (keys != wanted && !m_loadsFail)
        m_loadFaults << QStringLiteral("%1 was loaded with %2 records instead of %3")
                            .arg(name(journal))
                            .arg(keys.size())
                            .arg(wanted.size());
}

QString JournalCheck::recordsWhere(LogBookWidget* journal) const
{
    if (journal->mode() == ShownJournal::ArchiveInterval) {
        const auto seconds = [](const QDateTime& time) { return QString::number(time.toSecsSinceEpoch()); };
        return QStringLiteral("recordTime >= %1 AND recordTime <= %2 AND ShiftKey IN (SELECT KeyLink FROM "
                              "LogbookWorkshifts WHERE DepartmentKey='%3')")
            .arg(seconds(journal->displayedPeriodStart()), seconds(journal->displayedPeriodEnd()),
                 journal->location()->departmentKey());
    }
    return QStringLiteral("ShiftKey='%1'").arg(journal->workshiftKeyLink());
}

// ---- the window alone

QStringList JournalCheck::byItself(RandomDispatcher& person)
{
    QStringList faults = std::exchange(m_loadFaults, {});
    for (LogBookWidget* journal : person.journals()) {
        const QString name = this->name(journal);
        faults += rows(name, journal, journal->table(QStringLiteral("LogbookRecords")));
        faults += filledFields(name, journal);
        faults += panes(name, journal);
        faults += rules(name, journal);
    }
    faults += bar(person);
    return faults;
}

QStringList JournalCheck::rows(const QString& name, LogBookTab* tab, CModelTable* records) const
{
    QStringList faults;
    const VrkTableProxyModel* proxy = proxyOf(tab);
    const VrkTableModel* model = proxy->tableModel();
    if (model->rowCount() != records->data.RecCount())
        faults << QStringLiteral("%1: the model has %2 rows, the table %3")
                      .arg(name)
                      .arg(model->rowCount())
                      .arg(records->data.RecCount());
    const bool hidesDrafts = !Rules(static_cast<LogBookWidget*>(tab)).isWorking;
    QSet<const MDRData*> wanted;
    for (const MDRData* record : all(records))
        if (!hidesDrafts || status(record) != 1)
            wanted.insert(record);
    QSet<const MDRData*> shown;
    for (int row = 0; row < proxy->rowCount(); ++row)
        shown.insert(proxy->record(row));
    if (shown != wanted)
        faults << QStringLiteral("%1: %2 rows are shown instead of %3")
                      .arg(name)
                      .arg(shown.size())
                      .arg(wanted.size());

    const QTableView* view = RandomDispatcher::view(tab);
    const int column = proxy->sortColumn();
    const MDRField* field = model->field(column);
    for (int row = 1; row < proxy->rowCount() && field && field->type == mdr_TDouble; ++row) {
        const auto value = [&](int of) {
            const MDRVar time = Row(proxy->record(of)).value(field->name);
            return time.isNull ? -1.0 : time.value.real;
        };
        const bool isRight = proxy->sortOrder() == Qt::AscendingOrder ? value(row - 1) <= value(row)
                                                                      : value(row - 1) >= value(row);
        if (!isRight)
            faults << QStringLiteral("%1: row %2 is out of order").arg(name).arg(row);
    }
    const QModelIndexList selected = view->selectionModel()->selectedRows();
    const int current = view->currentIndex().isValid() ? view->currentIndex().row() : -1;
    const int lit = selected.isEmpty() ? -1 : selected.constFirst().row();
    if (selected.size() > 1 || lit != current)
        faults << QStringLiteral("%1: row %2 is current, row %3 is selected").arg(name).arg(current).arg(lit);
    MDRData* const record = tab->currentRecord();
    if (record && !shown.contains(record))
        faults << name + QStringLiteral(": the current record is not shown");
    return faults;
}

QStringList JournalCheck::filledFields(const QString& name, LogBookWidget* journal) const
{
    QStringList faults;
    const auto owners = [&](const char* table) {
        QSet<QByteArray> keys;
        for (const MDRData* row : all(journal->table(QLatin1String(table))))
            keys.insert(bytes(row, "RecordKey"));
        return keys;
    };
    const QSet<QByteArray> commented = owners("LogbookComments");
    const QSet<QByteArray> filed = owners("LogbookFiles");
    for (const MDRData* record : all(journal->table(QStringLiteral("LogbookRecords")))) {
        const QByteArray key = bytes(record, "KeyLink");
        if (isSet(Row(record).value("comment")) != commented.contains(key))
            faults << QStringLiteral("%1: the mark of comments on %2").arg(name, QString::fromUtf8(key));
        if (isSet(Row(record).value("file")) != filed.contains(key))
            faults << QStringLiteral("%1: the mark of files on %2").arg(name, QString::fromUtf8(key));
        const HtmlParser parser(bytes(record, "html").toStdString());
        std::string substation;
        std::string line;
        for (unsigned i = 0; i < parser.countParameters(); ++i) {
            if (substation.empty() && parser.propertyNameValue(i) == "substation")
                substation = parser.displayText(i);
            if (line.empty() && parser.propertyNameValue(i) == "line")
                line = parser.displayText(i);
        }
        const std::string object = substation + (substation.empty() || line.empty() ? "" : "/") + line;
        if (bytes(record, "object").toStdString() != object)
            faults << QStringLiteral("%1: the object of %2").arg(name, QString::fromUtf8(key));
    }
    return faults;
}

QStringList JournalCheck::panes(const QString& name, LogBookWidget* journal) const
{
    QStringList faults;
    const MDRData* record = journal->currentRecord();
    const QByteArray key = bytes(record, "KeyLink");
    const QByteArray me = journal->location()->workerKey().toUtf8();
    const auto ofRecord = [&](const char* table) {
        std::vector<MDRData*> found;
        for (MDRData* row : all(journal->table(QLatin1String(table))))
            if (!key.isEmpty() && bytes(row, "RecordKey") == key)
                found.push_back(row);
        return found;
    };
    const auto keys = [](const std::vector<MDRData*>& rows) {
        QStringList list;
        for (const MDRData* row : rows)
            list << QString::fromUtf8(bytes(row, "KeyLink"));
        return list;
    };
    const bool isChangeable = record && status(record) != 2;
    const auto expect = [&](const char* button, bool isOn) {
        if (journal->findChild<QToolButton*>(QLatin1String(button))->isEnabled() != isOn)
            faults << QStringLiteral("%1: %2 is %3")
                          .arg(name, QLatin1String(button),
                               isOn ? QStringLiteral("off") : QStringLiteral("on"));
    };

    const auto comments = ofRecord("LogbookComments");
    const auto* list = journal->findChild<QListWidget*>(QStringLiteral("commentsList"));
    QStringList shown;
    bool isAnyUnread = false;
    for (int i = 0; i < list->count(); ++i)
        shown << list->item(i)->data(CommentKeyRole).toString();
    if (shown != keys(comments))
        faults << QStringLiteral("%1: the comments %2 are listed instead of %3")
                      .arg(name, shown.join(QLatin1Char(',')), keys(comments).join(QLatin1Char(',')));
    for (std::size_t i = 0; i < comments.size() && shown == keys(comments); ++i) {
        const QListWidgetItem* item = list->item(static_cast<int>(i));
        const bool isRead = MDRValue::hasTime(Row(comments[i]).value("readedTime"));
        isAnyUnread = isAnyUnread || !isRead;
        if (item->text() != TestStore::text(bytes(comments[i], "text_")) ||
            item->data(CommentIsReadRole).toBool() != isRead ||
            !item->data(CommentTimeRole)
                 .toString()
                 .startsWith(timeText(Row(comments[i]).value("commentTime"))))
            faults << QStringLiteral("%1: the comment %2 shows as it was").arg(name, shown.at(int(i)));
    }
    const int row = list->currentRow();
    expect("createCommentButton", isChangeable);
    expect("deleteCommentButton", isChangeable && row >= 0 && row < int(comments.size()) &&
                                      bytes(comments[std::size_t(row)], "WorkerKey") == me);
    expect("readedCommentButton", isAnyUnread);

    const auto files = ofRecord("LogbookFiles");
    const auto* table = journal->findChild<QTableWidget*>(QStringLiteral("filesTable"));
    QStringList names;
    for (int i = 0; i < table->rowCount(); ++i)
        names << table->item(i, 0)->data(Qt::UserRole).toString();
    if (names != keys(files))
        faults << QStringLiteral("%1: the files %2 are listed instead of %3")
                      .arg(name, names.join(QLatin1Char(',')), keys(files).join(QLatin1Char(',')));
    const int fileRow = table->currentRow();
    const bool isFile = fileRow >= 0 && fileRow < int(files.size());
    expect("createFileButton", isChangeable);
    expect("deleteFileButton",
           isChangeable && isFile && bytes(files[std::size_t(fileRow)], "WorkerKey") == me);
    expect("saveFileButton", isFile);
    return faults;
}

QStringList JournalCheck::rules(const QString& name, LogBookWidget* journal) const
{
    const Rules is(journal);
    const int state = status(is.record);
    const struct {
        const char* rule;
        bool reported;
        bool wanted;
    } predicates[] = {
        {"isOpenWorkshift", journal->isOpenWorkshift(), is.isOpen},
        {"isCloseWorkshift", journal->isCloseWorkshift(), !is.shift || hasText(is.shift, "CloseWorkerKey")},
        {"isWorkerInWorkshift", journal->isWorkerInWorkshift(), is.isIn},
        {"isEditableWorkshift", journal->isEditableWorkshift(), is.isWorking},
        {"isRecordDraft", journal->isRecordDraft(), is.isWorking && is.record && state == 1},
        {"isRecordDeletable", journal->isRecordDeletable(), is.isWorking && is.record && state != 2},
        {"isRecordSignable", journal->isRecordSignable(), is.isSignable(is.record)},
        {"isExistNoSign", journal->isExistNoSign(), is.unsigned_ > 0},
        {"isExistDrafts", journal->isExistDrafts(), is.isWorking && is.drafts > 0},
        {"isExistMyDrafts", journal->isExistMyDrafts(), is.isWorking && is.mine > 0},
        {"isRecordCopyable", journal->isRecordCopyable(),
         is.record && state == 0 && hasText(is.record, "html") && !is.hasProperty("open_wshift") &&
             !is.hasProperty("close_wshift")},
        {"isTimeExecutionChangable", journal->isTimeExecutionChangable(),
         is.isWorking && is.record && state != 2 && is.hasProperty("time_exec")},
        {"isSecondMarkSettable", journal->isSecondMarkSettable(),
         is.isWorking && is.record && state == 1 && is.hasProperty("second_mark")},
    };
    QStringList faults;
    for (const auto& one : predicates)
        if (one.reported != one.wanted)
            faults << QStringLiteral("%1: %2 says %3").arg(name, QLatin1String(one.rule)).arg(one.reported);
    return faults;
}

QStringList JournalCheck::bar(RandomDispatcher& person) const
{
    QStringList faults;
    QWidget* window = &person.window().window();
    LogBookTab* tab = person.tab();
    auto* journal = qobject_cast<LogBookWidget*>(tab);
    const auto expectText = [&](const char* label, const QString& wanted) {
        const QString reported = window->findChild<QLabel*>(QLatin1String(label))->text();
        if (reported != wanted)
            faults << QStringLiteral("%1 says \"%2\" instead of \"%3\"")
                          .arg(QLatin1String(label), reported, wanted);
    };
    const auto expectButton = [&](const char* name, bool wanted) {
        if (window->findChild<QToolButton*>(QLatin1String(name))->isEnabled() != wanted)
            faults << QStringLiteral("%1 is %2")
                          .arg(QLatin1String(name), wanted ? QStringLiteral("off") : QStringLiteral("on"));
    };
    if (!journal) {
        expectText("statusLabel", QStringLiteral("Просмотр комментариев"));
        for (const char* name : {"timeButton", "workshiftButton", "createButton", "deleteButton",
                                 "approveButton", "signButton", "reportButton"})
            expectButton(name, false);
        return faults;
    }

    const Rules is(journal);
    const bool isHome = journal == &person.window().home();
    const int state = status(is.record);
    const struct {
        const char* action;
        bool wanted;
        bool onlyHome;
    } actions[] = {
        {"openWorkshiftAction", isHome && is.mode == 1 && !is.isOpen, false},
        {"closeWorkshiftAction", isHome && is.mode == 1 && is.isOpen, false},
        {"infoWorkshiftAction", (is.mode == 1 || is.mode == 3) && is.shift, false},
        {"appendWorkerAction", isHome && is.isWorking, false},
        {"deleteRecordAction", is.isWorking && is.record && state != 2, true},
        {"deleteMyDraftsAction", is.isWorking && is.mine > 0, true},
        {"deleteAllDraftsAction", is.isWorking && is.drafts > 0, true},
        {"approveRecordAction", is.isWorking && is.record && state == 1, true},
        {"approveMyRecordsAction", is.isWorking && is.mine > 0, true},
        {"approveAllRecordsAction", is.isWorking && is.drafts > 0, true},
        {"signRecordAction", is.isSignable(is.record), false},
        {"signAllRecordsAction", is.unsigned_ > 0, false},
    };
    for (const auto& one : actions)
        if ((isHome || !one.onlyHome) && person.window().isEnabled(one.action) != one.wanted)
            faults << QStringLiteral("%1 is %2")
                          .arg(QLatin1String(one.action),
                               one.wanted ? QStringLiteral("off") : QStringLiteral("on"));
    expectButton("createButton", isHome && is.isWorking);
    expectButton("deleteButton", isHome && is.isWorking && ((is.record && state != 2) || is.drafts > 0));
    expectButton("approveButton", isHome && is.isWorking && is.drafts > 0);
    expectButton("signButton", is.unsigned_ > 0);
    expectButton("executionButton",
                 isHome && is.isWorking && is.record && state != 2 && is.hasProperty("time_exec"));
    expectButton("timeButton", true);
    expectButton("reportButton", true);

    const QString format = QStringLiteral("dd.MM.yyyy hh:mm");
    const QString period = QStringLiteral("%1 - %2").arg(journal->displayedPeriodStart().toString(format),
                                                         journal->displayedPeriodEnd().toString(format));
    if (is.mode == 2) {
        expectText("statusLabel", QStringLiteral("Просмотр архива записей"));
        expectText("intervalLabel", QStringLiteral("Время: ") + period);
        return faults;
    }
    const QString shift = is.shift ? QStringLiteral("%1 - %2").arg(timeText(Row(is.shift).value("startTime")),
                                                                   timeText(Row(is.shift).value("endTime")))
                                   : QString();
    if (is.shift)
        expectText("intervalLabel", QStringLiteral("Смена: ") + shift);
    else if (is.mode == 1)
        expectText("intervalLabel", QString());
    if (is.mode == 3)
        expectText("statusLabel", QStringLiteral("Просмотр записей смены"));
    else if (!is.isOpen)
        expectText("statusLabel", QStringLiteral("Смена закрыта"));
    else if (isHome && is.isWorking)
        expectText("statusLabel", QStringLiteral("Смена открыта, редактирование разрешено"));
    else
        expectText("statusLabel", QStringLiteral("Смена открыта, редактирование запрещено"));
    return faults;
}
