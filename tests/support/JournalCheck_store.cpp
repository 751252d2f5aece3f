#include "CommentsWidget.h"
#include "JournalCheck.h"
#include "JournalRows.h"
#include "LocationInfo.h"
#include "MessageListDelegate.h"
#include "TableCatalog.h"
#include "VrkTableModel.h"
#include "VrkTableProxyModel.h"
#include <QListWidget>

#include <QIcon>
#include <QTabWidget>

/// Compares windows with the store, and with newly opened windows.

namespace
{
using namespace JournalRows;

QString valueText(const MDRVar& value)
{
    if (value.isNull || value.type == mdr_TNone)
        return QStringLiteral("-");
    if (MDRValue::isText(value))
        return TestStore::text(MDRValue::copy(value));
    if (value.type == mdr_TDouble)
        return QString::number(value.value.real, 'g', 15);
    return QString::number(value.value.number);
}

VrkTableProxyModel* proxyOf(const LogBookTab* tab)
{
    return qobject_cast<VrkTableProxyModel*>(RandomDispatcher::view(tab)->model());
}

QString quotedKeys(const QList<QByteArray>& keys)
{
    return QLatin1Char('\'') + QString::fromUtf8(keys.join("','")) + QLatin1Char('\'');
}

/// All fields of a record that the store has.
QString rowText(const MDRData* record, const char* table)
{
    QStringList values;
    for (const MDRFieldDescr& field : TableCatalog::table(table)->descriptors())
        values << valueText(Row(record).value(field.name));
    return values.join(QLatin1Char('|'));
}

/// The content of a cell in a role, in a comparable form.
QString cellText(const QVariant& value, int role)
{
    if (role == Qt::DecorationRole) {
        const QIcon icon = value.value<QIcon>();
        const QImage image = icon.pixmap(16).toImage();
        return image.isNull()
                   ? QString()
                   : QString::number(qHashBits(image.constBits(), std::size_t(image.sizeInBytes())));
    }
    if (role == Qt::FontRole)
        return value.value<QFont>().strikeOut() ? QStringLiteral("struck out") : QString();
    if (role == Qt::ForegroundRole)
        return value.value<QBrush>().color().name();
    return value.toString();
}

/// The visible rows of a journal by the key of their record, with everything that they show.
QMap<QByteArray, QStringList> cells(LogBookWidget* journal)
{
    QMap<QByteArray, QStringList> rows;
    const VrkTableProxyModel* proxy = proxyOf(journal);
    for (int row = 0; row < proxy->rowCount(); ++row) {
        QStringList texts;
        for (int column = 0; column < proxy->columnCount(); ++column)
            for (int role : {Qt::DisplayRole, Qt::DecorationRole, Qt::ToolTipRole, Qt::FontRole,
                             Qt::ForegroundRole, Qt::UserRole})
                texts << cellText(proxy->index(row, column).data(role), role);
        rows.insert(bytes(proxy->record(row), "KeyLink"), texts);
    }
    return rows;
}
} // namespace

QString JournalCheck::name(LogBookWidget* journal)
{
    return journal->location()->departmentKey() + QStringLiteral(" mode %1").arg(journal->mode());
}

JournalCheck::Rows JournalCheck::rowsOf(const CMDArray& rows, const char* table)
{
    Rows texts;
    for (const MDRData* record : all(rows)) {
        const QByteArray key = bytes(record, "KeyLink");
        texts.insert(texts.contains(key) ? key + " a second time" : key, rowText(record, table));
    }
    return texts;
}

JournalCheck::Rows JournalCheck::stored(const char* table, const QString& where) const
{
    StoreError error;
    CMDArray answer;
    answer = m_reader->select(
        QStringLiteral("SELECT * FROM %1 WHERE %2").arg(QLatin1String(table), where).toUtf8(), &error);
    if (!answer.array)
        qFatal("%s", qPrintable(error.text));
    return rowsOf(answer, table);
}

JournalCheck::Rows JournalCheck::held(LogBookWidget* journal, const char* table)
{
    return rowsOf(journal->table(QLatin1String(table))->data, table);
}

QStringList JournalCheck::compare(const QString& what, const Rows& held, const Rows& stored)
{
    QStringList faults;
    for (auto row = held.begin(); row != held.end(); ++row) {
        if (!stored.contains(row.key()))
            faults << QStringLiteral("%1 %2 is held, a load brings no such row: %3")
                          .arg(what, QString::fromUtf8(row.key()), row.value());
        else if (stored.value(row.key()) != row.value())
            faults << QStringLiteral("%1 %2 is held as\n  %3\n  and stored as\n  %4")
                          .arg(what, QString::fromUtf8(row.key()), row.value(), stored.value(row.key()));
    }
    for (auto row = stored.begin(); row != stored.end(); ++row)
        if (!held.contains(row.key()))
            faults << QStringLiteral("%1 %2 is missing: %3")
                          .arg(what, QString::fromUtf8(row.key()), row.value());
    return faults;
}

QStringList JournalCheck::workshifts(const QString& name, LogBookWidget* journal) const
{
    const Rows shifts = held(journal, "LogbookWorkshifts");
    if (journal->mode() == ShownJournal::ArchiveInterval)
        return compare(name + QStringLiteral(" shift"), shifts, {});
    const QString current = journal->workshiftKeyLink();
    if (journal->mode() == ShownJournal::ArchiveWorkshift)
        return compare(name + QStringLiteral(" shift"), shifts,
                       stored("LogbookWorkshifts", QStringLiteral("KeyLink='%1'").arg(current)));

    // An open page keeps the shifts that it has shown, including closed ones: those in addition to the open
    // ones are compared with themselves.
    const Rows open =
        stored("LogbookWorkshifts",
               QStringLiteral("DepartmentKey='%1' AND (CloseWorkerKey IS NULL OR CloseWorkerKey='')")
                   .arg(journal->location()->departmentKey()));
    Rows wanted =
        stored("LogbookWorkshifts", QStringLiteral("KeyLink IN (%1)").arg(quotedKeys(shifts.keys())));
    for (auto row = open.begin(); row != open.end(); ++row)
        wanted.insert(row.key(), row.value());
    QStringList faults = compare(name + QStringLiteral(" shift"), shifts, wanted);
    // A shift that was closed or undone stays visible until the user switches to another period: see
    // leaveStale().
    if (!open.isEmpty() && !open.contains(current.toUtf8()))
        faults << QStringLiteral("%1 shows the shift %2, while %3 is open")
                      .arg(name, current, QString::fromUtf8(open.keys().join(',')));
    return faults;
}

/// The tab of comments: the user's own records with unread comments, and others' records with a new
/// comment.
QStringList JournalCheck::inbox(CommentsWidget* page) const
{
    const QString name = QStringLiteral("comments");
    const QString unread =
        QStringLiteral("KeyLink IN (SELECT RecordKey FROM LogbookComments WHERE readedTime=0)");
    const QString me = page->location()->workerKey();
    Rows visible;
    QStringList faults;
    const VrkTableProxyModel* proxy = proxyOf(page);
    for (int row = 0; row < proxy->rowCount(); ++row)
        visible.insert(bytes(proxy->record(row), "KeyLink"), rowText(proxy->record(row), "LogbookRecords"));
    Rows wanted = stored("LogbookRecords", QStringLiteral("WorkerKey='%1' AND %2").arg(me, unread));
    const Rows others = stored("LogbookRecords", QStringLiteral("WorkerKey<>'%1' AND %2").arg(me, unread));
    for (auto row = others.begin(); row != others.end(); ++row)
        if (visible.contains(row.key()))
            wanted.insert(row.key(), row.value());
    faults += compare(name + QStringLiteral(" record"), visible, wanted);

    const MDRData* current = page->currentRecord();
    const QString ofCurrent =
        QStringLiteral("RecordKey='%1'").arg(QString::fromUtf8(bytes(current, "KeyLink")));
    QStringList listed;
    const auto* list = page->findChild<QListWidget*>(QStringLiteral("commentsList"));
    for (int i = 0; i < list->count(); ++i)
        listed << list->item(i)->data(CommentKeyRole).toString() + QLatin1Char(' ') + list->item(i)->text();
    QStringList there;
    const Rows comments = stored("LogbookComments", ofCurrent);
    for (auto row = comments.begin(); row != comments.end(); ++row)
        there << QString::fromUtf8(row.key()) + QLatin1Char(' ') +
                     row.value().section(QLatin1Char('|'), 4, 4);
    listed.sort();
    there.sort();
    if (listed != there)
        faults << QStringLiteral("comments of %1: %2 instead of %3")
                      .arg(ofCurrent, listed.join(QLatin1Char(',')), there.join(QLatin1Char(',')));
    if (current && isSet(Row(current).value("file")) != !stored("LogbookFiles", ofCurrent).isEmpty())
        faults << QStringLiteral("comments: the mark of files with ") + ofCurrent;
    return faults;
}

/// The user's reaction if the page shows a shift that has ended while another one is open, or that was
/// undone: he switches to another period and back.
void JournalCheck::leaveStale(LogBookWidget* journal)
{
    const QString current = journal->workshiftKeyLink();
    const Rows open =
        stored("LogbookWorkshifts",
               QStringLiteral("DepartmentKey='%1' AND (CloseWorkerKey IS NULL OR CloseWorkerKey='')")
                   .arg(journal->location()->departmentKey()));
    const Rows shown = stored("LogbookWorkshifts", QStringLiteral("KeyLink='%1'").arg(current));
    const bool isGone = !current.isEmpty() && shown.isEmpty();
    if (!isGone && (open.isEmpty() || open.contains(current.toUtf8())))
        return;
    journal->uploadRecordsIn(current);
    journal->uploadRealTimeWorkshift();
}

/// New rows of a shift that is kept in addition to the shown one are also added, until the next load.
void JournalCheck::takeRowsOfOthers(LogBookWidget* journal, Rows* crew, Rows* records) const
{
    QStringList others;
    for (const QByteArray& key : held(journal, "LogbookWorkshifts").keys())
        if (key != journal->workshiftKeyLink().toUtf8())
            others << QLatin1Char('\'') + QString::fromUtf8(key) + QLatin1Char('\'');
    if (others.isEmpty())
        return;
    const auto take = [&](const char* table, const char* field, Rows* wanted) {
        const Rows there = held(journal, table);
        const Rows theirs = stored(
            table, QStringLiteral("%1 IN (%2)").arg(QLatin1String(field), others.join(QLatin1Char(','))));
        for (auto row = theirs.begin(); row != theirs.end(); ++row)
            if (there.contains(row.key()))
                wanted->insert(row.key(), row.value());
    };
    take("LogbookWorkersWorkshift", "WorkshiftKey", crew);
    take("LogbookRecords", "ShiftKey", records);
}

QStringList JournalCheck::againstStore(RandomDispatcher& person)
{
    QStringList faults;
    for (CommentsWidget* page : person.window().window().findChildren<CommentsWidget*>())
        faults += inbox(page);
    const QString me = person.window().home().location()->workerKey();
    const int unread =
        stored("LogbookComments",
               QStringLiteral("readedTime=0 AND RecordKey IN (SELECT KeyLink FROM LogbookRecords WHERE "
                              "WorkerKey='%1')")
                   .arg(me))
            .size();
    // A failed request is repeated a little later.
    if (!TestClient::waitUntil([&] { return person.window().window().unreadComments() == unread; },
                               m_loadsFail ? 4000 : 0))
        faults << QStringLiteral("%1 unread comments are reported instead of %2")
                      .arg(person.window().window().unreadComments())
                      .arg(unread);
    for (LogBookWidget* journal : person.journals()) {
        if (journal->mode() == ShownJournal::RealTime)
            leaveStale(journal);
        const QString name = this->name(journal);
        faults += workshifts(name, journal);

        const QString shift = journal->workshiftKeyLink();
        const bool isInterval = journal->mode() == ShownJournal::ArchiveInterval;
        Rows crew = isInterval
                        ? Rows()
                        : stored("LogbookWorkersWorkshift", QStringLiteral("WorkshiftKey='%1'").arg(shift));
        Rows heldCrew = held(journal, "LogbookWorkersWorkshift");
        Rows records = stored("LogbookRecords", recordsWhere(journal));
        const Rows heldRecords = held(journal, "LogbookRecords");
        if (journal->mode() != ShownJournal::RealTime) {
            const QSet<QByteArray> loaded = m_loaded.value(journal); // an archive gets no new rows
            for (auto row = records.begin(); row != records.end();)
                row = loaded.contains(row.key()) ? row + 1 : records.erase(row);
        }
        if (journal->mode() == ShownJournal::RealTime)
            takeRowsOfOthers(journal, &crew, &records);
        faults += compare(name + QStringLiteral(" crew"), heldCrew, crew);
        faults += compare(name + QStringLiteral(" record"), heldRecords, records);
        const QString ofRecords = QStringLiteral("RecordKey IN (%1)").arg(quotedKeys(records.keys()));
        faults += compare(name + QStringLiteral(" comment"), held(journal, "LogbookComments"),
                          stored("LogbookComments", ofRecords));
        faults += compare(name + QStringLiteral(" file"), held(journal, "LogbookFiles"),
                          stored("LogbookFiles", ofRecords));
    }
    return faults;
}

QStringList JournalCheck::againstFresh(RandomDispatcher& person, JournalWindow& fresh)
{
    QStringList faults;
    for (LogBookWidget* journal : person.journals()) {
        const QString name = this->name(journal);
        fresh.window().appendLogbook(journal->location()->organizationKey(),
                                     journal->location()->departmentKey());
        auto* tabs = fresh.child<QTabWidget>("logbooks");
        auto* page = qobject_cast<LogBookWidget*>(tabs->currentWidget());
        if (page->title() != journal->title())
            faults << QStringLiteral("%1: the title is %2").arg(name, journal->title());
        // A fresh page shows an open shift live by itself; any other period must be set.
        if (journal->mode() == ShownJournal::ArchiveInterval)
            page->uploadRecordsIn(journal->displayedPeriodStart(), journal->displayedPeriodEnd());
        else if (page->workshiftKeyLink() != journal->workshiftKeyLink() ||
                 journal->mode() == ShownJournal::ArchiveWorkshift)
            page->uploadRecordsIn(journal->workshiftKeyLink());

        Rows crew;
        Rows foreign;
        if (journal->mode() == ShownJournal::RealTime)
            takeRowsOfOthers(journal, &crew, &foreign);
        const auto here = cells(journal);
        const auto there = cells(page);
        const VrkTableModel* model = proxyOf(page)->tableModel();
        for (auto row = here.begin(); row != here.end(); ++row) {
            if (!there.contains(row.key())) {
                if (foreign.contains(row.key()))
                    continue;
                if (journal->isHideDraft() == page->isHideDraft())
                    faults << QStringLiteral("%1: a fresh page does not show %2")
                                  .arg(name, QString::fromUtf8(row.key()));
                continue;
            }
            for (int i = 0; i < row->size(); ++i)
                if (row->at(i) != there[row.key()].at(i))
                    faults << QStringLiteral("%1: %2 shows %3 in %4 (part %5), a fresh page %6")
                                  .arg(name, QString::fromUtf8(row.key()), row->at(i),
                                       QLatin1String(model->field(i / 6)->name))
                                  .arg(i % 6)
                                  .arg(there[row.key()].at(i));
        }
        for (int column = 0; column < model->columnCount(); ++column) {
            const QVariant shownText = proxyOf(journal)->headerData(column, Qt::Horizontal);
            if (shownText != proxyOf(page)->headerData(column, Qt::Horizontal))
                faults << QStringLiteral("%1: column %2 is headed %3")
                              .arg(name)
                              .arg(column)
                              .arg(shownText.toString());
        }
    }
    return faults;
}
