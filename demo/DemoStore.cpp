#include "DemoStore.h"

#include "DemoClock.h"
#include "DemoEarlierJournal.h"
#include "DemoJournal.h"
#include "DemoKey.h"
#include "DemoNetwork.h"
#include "DemoPast.h"
#include "DemoReference.h"
#include "DemoState.h"
#include "DemoStory.h"
#include "DemoWriter.h"
#include "MDRValues.h"
#include "StoreAdmin.h"
#include "TableCatalog.h"

#include <QTimeZone>

namespace
{
const char codePage[] = "Windows-1251";

bool refuse(StoreError* error, const QString& text)
{
    *error = {StoreError::Refused, text, QString()};
    return false;
}

/// True if no table has a row.
bool isEmpty(Store* store, StoreError* error)
{
    for (const CatalogTable& table : TableCatalog::tables()) {
        CMDArray answer;
        answer = store->select("SELECT KeyLink FROM " + table.name + " LIMIT 1", error);
        if (!answer.array || answer.RecCount() > 0)
            return false;
    }
    return true;
}

QByteArray options()
{
    return "<?xml version=\"1.0\" encoding=\"windows-1251\"?>\n"
           "<Options CheckLengthShift=\"1\" DelayTime=\"900\" IntervalMessage=\"300\"/>\n";
}

void writeJournal(DemoWriter* writer, const DemoNetwork& network, const QVector<DemoTemplate>& templates,
                  qint64 now)
{
    const DemoClock::Story clock = DemoClock::story(now);
    DemoJournal journal(writer, network, templates);
    DemoPast past(&journal);
    past.write(now, clock);
    DemoStory(&journal, clock).write(past, now);
}

/// Remembers the current end of the log as the demo's own work.
bool remember(Store* store, const QString& url, qint64 now, StoreError* error)
{
    ChangePosition position;
    if (!store->position(&position, error))
        return false;
    DemoState state;
    state.number = position.number;
    state.end = DemoClock::story(now).end;
    return state.write(url, error);
}

/// Marks all rows of a table for removal; false if they cannot be read.
bool removeAll(DemoWriter* writer, Store* store, const char* table, StoreError* error)
{
    CMDArray rows;
    rows = store->select(QByteArray("SELECT KeyLink FROM ") + table, error);
    if (!rows.array)
        return false;
    const MDRField* key = MDRFldByNum(rows.array, 0);
    for (int i = 0; i < rows.RecCount(); ++i) {
        MDRVar value;
        MDRGetVal(key, MDARec(rows.array, 0, i), &value);
        writer->remove(table, MDRValue::copy(value));
    }
    return true;
}

bool writeAnew(Store* store, const QString& url, qint64 now, StoreError* error)
{
    DemoWriter writer(store);
    for (const char* table : {"LogbookFiles", "LogbookComments", "LogbookRecords", "LogbookWorkersWorkshift",
                              "LogbookWorkshifts"}) {
        if (!removeAll(&writer, store, table, error))
            return false;
    }
    writer.barrier();
    const DemoNetwork network;
    writeJournal(&writer, network, DemoTemplates::builtIn(), now);
    return writer.write(error) && remember(store, url, now, error);
}

/// The rows of a select on LogbookWorkshifts.
struct OpenShift {
    QByteArray key;
    QByteArray department;
    QByteArray opener;
    qint64 end = 0;
};

QVector<OpenShift> openShifts(Store* store, StoreError* error)
{
    QVector<OpenShift> shifts;
    CMDArray rows;
    rows = store->select(
        "SELECT * FROM LogbookWorkshifts WHERE (CloseWorkerKey IS NULL OR CloseWorkerKey = '')", error);
    for (int i = 0; rows.array && i < rows.RecCount(); ++i) {
        const MDRData* row = MDARec(rows.array, 0, i);
        MDRVar key;
        MDRVar department;
        MDRVar opener;
        MDRVar end;
        rows.GetVal(row, "KeyLink", key);
        rows.GetVal(row, "DepartmentKey", department);
        rows.GetVal(row, "OpenWorkerKey", opener);
        rows.GetVal(row, "endTime", end);
        shifts.append({MDRValue::copy(key), MDRValue::copy(department), MDRValue::copy(opener),
                       static_cast<qint64>(end.value.real)});
    }
    return shifts;
}

/// Closes the ended shift of a department and opens its next one, unless one is running.
void reopen(DemoWriter* writer, DemoJournal* journal, int department, const QVector<OpenShift>& open,
            qint64 now)
{
    DemoFiller filler(journal->network(), static_cast<quint32>(now));
    const DemoDepartment& owner = journal->network().department(department);
    qint64 start = DemoClock::shiftStart(now);
    for (const OpenShift& old : open)
        if (old.department == owner.key && old.end > now)
            return;
    for (const OpenShift& old : open) {
        if (old.department != owner.key)
            continue;
        DemoShift ended = journal->plan(department, 0, old.end, 0);
        ended.key = old.key;
        for (const DemoPerson& person : owner.people)
            if (person.key == old.opener)
                ended.crew[0] = &person;
        journal->closing(ended, &filler, old.end);
        writer->update("LogbookWorkshifts", old.key, {{"CloseWorkerKey", ended.crew.first()->key}});
        start = std::max(start, old.end);
    }
    DemoShift next = journal->plan(department, start, DemoClock::story(now).end, 0);
    next.open = true;
    writer->barrier();
    journal->add(next);
    journal->opening(next, &filler, start);
}

bool goOn(Store* store, const QString& url, qint64 now, StoreError* error)
{
    const QVector<OpenShift> open = openShifts(store, error);
    if (*error)
        return false;
    const DemoNetwork network;
    DemoWriter writer(store);
    DemoJournal journal(&writer, network, DemoTemplates::builtIn());
    for (int department : {DemoNetwork::Ods, DemoNetwork::Cds, DemoNetwork::Zarechnaya})
        reopen(&writer, &journal, department, open, now);
    DemoState state;
    state.number = -1; // somebody has worked here: this state is kept
    state.end = DemoClock::story(now).end;
    return writer.write(error) && state.write(url, error);
}
} // namespace

bool DemoStore::state(const QString& url, qint64 now, State* state, StoreError* error)
{
    const std::unique_ptr<Store> store = StoreAdmin::openLoader(url, error);
    if (!store)
        return false;
    DemoState known;
    ChangePosition position;
    if (known.read(store.get())) {
        if (!store->position(&position, error))
            return false;
        const bool untouched = position.number == known.number;
        *state = now < known.end ? State::Current : untouched ? State::Ended : State::Touched;
        return true;
    }
    const bool empty = isEmpty(store.get(), error);
    *state = empty ? State::Empty : State::Foreign;
    return !*error;
}

bool DemoStore::fill(const QString& url, qint64 now, StoreError* error)
{
    State present = State::Empty;
    if (!state(url, now, &present, error)) {
        if (error->code != StoreError::Missing)
            return false;
        error->clear();
        if (!StoreAdmin::init(url, codePage, QTimeZone::systemTimeZoneId(), error))
            return false;
    }
    if (present != State::Empty)
        return refuse(error,
                      QStringLiteral("В хранилище уже есть данные: демонстрационный журнал записывается "
                                     "только в пустое."));
    const std::unique_ptr<Store> store = StoreAdmin::openLoader(url, error);
    if (!store)
        return false;
    const DemoNetwork network;
    const QVector<DemoTemplate> templates = DemoTemplates::builtIn();
    DemoWriter writer(store.get());
    network.write(&writer, now);
    DemoReference::writeTemplates(&writer, network, templates);
    DemoReference::writeParameters(&writer);
    DemoReference::writeDirectories(&writer);
    DemoEarlierJournal::write(&writer, network);
    writeJournal(&writer, network, templates, now);
    return writer.write(error) &&
           StoreAdmin::putFile(url, QStringLiteral("options"), QStringLiteral("OperLogOptions"), options(),
                               error) &&
           remember(store.get(), url, now, error);
}

bool DemoStore::renew(const QString& url, qint64 now, StoreError* error)
{
    State present = State::Foreign;
    if (!state(url, now, &present, error))
        return false;
    if (present == State::Empty || present == State::Foreign)
        return refuse(error, QStringLiteral("В хранилище нет демонстрационного журнала."));
    if (present == State::Current)
        return true;
    const std::unique_ptr<Store> store = StoreAdmin::openLoader(url, error);
    if (!store)
        return false;
    return present == State::Ended ? writeAnew(store.get(), url, now, error)
                                   : goOn(store.get(), url, now, error);
}

bool DemoStore::writeLiveRecord(const QString& url, qint64 now, int number, StoreError* error)
{
    const std::unique_ptr<Store> store = Store::open(url, Store::Options(), error);
    StoreLogin user;
    if (!store || !store->signIn(colleague(), &user, error))
        return false;
    const DemoNetwork network;
    const DemoPerson& author = network.person(colleague());
    DemoShift shift;
    for (const OpenShift& open : openShifts(store.get(), error))
        if (open.department == storyDepartment() && open.end >= shift.end) {
            shift = DemoShift{open.key, DemoNetwork::Cds, now, open.end, {&author}, true, {}};
        }
    if (*error)
        return false;
    if (shift.key.isEmpty())
        return refuse(error, QStringLiteral("Открытой смены в подразделении нет: писать некуда."));

    DemoWriter writer(store.get());
    DemoJournal journal(&writer, network, DemoTemplates::builtIn());
    DemoFiller filler(network, static_cast<quint32>(number));
    DemoRecord record;
    record.key = demoKey(QStringLiteral("live %1 %2").arg(now).arg(number));
    record.author = &author;
    record.eventTime = now;
    record.recordTime = now;
    record.status = number % 3 == 2 ? StatusDraft : StatusApproved;
    const QVector<const DemoTemplate*> kinds = journal.everydayRecords(QStringLiteral("live"));
    record.html = filler.fill(*kinds.at(number % kinds.size()), shift.scene(now, &author));
    journal.add(shift, record);
    return writer.write(error);
}

bool DemoStore::writeEarlierJournal(const QString& url, qint64 now, int templates, StoreError* error)
{
    State present = State::Foreign;
    if (!state(url, now, &present, error))
        return false;
    if (present == State::Empty || present == State::Foreign)
        return refuse(error, QStringLiteral("В хранилище нет демонстрационного журнала."));
    const std::unique_ptr<Store> store = StoreAdmin::openLoader(url, error);
    DemoState known;
    ChangePosition before;
    if (!store || !known.read(store.get()) || !store->position(&before, error))
        return false;
    DemoWriter writer(store.get());
    for (const char* table : {"OperLogTemplates", "OperLogCategories", "OperLogTemplateParams"})
        if (!removeAll(&writer, store.get(), table, error))
            return false;
    writer.barrier();
    DemoEarlierJournal::writeAll(&writer, DemoNetwork(), templates);
    ChangePosition after;
    if (!writer.write(error) || !store->position(&after, error))
        return false;
    if (before.number != known.number)
        return true; // somebody has worked here: this state is kept
    known.number = after.number;
    return known.write(url, error);
}

QByteArray DemoStore::storyDepartment()
{
    return DemoNetwork().department(DemoNetwork::Cds).key;
}

QString DemoStore::dispatcher()
{
    return QStringLiteral("ozerov");
}
QString DemoStore::colleague()
{
    return QStringLiteral("roshchin");
}
QString DemoStore::chief()
{
    return QStringLiteral("klenov");
}
QString DemoStore::localAdministrator()
{
    return QStringLiteral("listov");
}
QString DemoStore::administrator()
{
    return QStringLiteral("admin");
}
QString DemoStore::viewer()
{
    return QStringLiteral("snegina");
}
QString DemoStore::loginWithoutWorker()
{
    return QStringLiteral("stazher");
}
