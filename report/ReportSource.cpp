#include "ReportSource.h"

#include "CVrkCliApp.h"
#include "CVrkCliMod.h"
#include "CVrkCliSes.h"
#include "HfnTime.h"
#include "ListOutput.h"
#include "LiveTable.h"
#include "RecordList.h"
#include "RecordNotes.h"
#include "RecordQuery.h"
#include "ReportName.h"
#include "ReportTable.h"
#include "Row.h"
#include "RowChange.h"
#include "ShownJournal.h"
#include "Store.h"
#include "UnfinishedRecords.h"
#include "VrkTableProxyModel.h"

#include <algorithm>
#include <QCoreApplication>
#include <QSet>
#include <QTableView>

namespace
{
constexpr int columnPixels = 100; ///< as in the report dialog
constexpr int secondsADay = 24 * 3600;

QString words(const char* text)
{
    return QCoreApplication::translate("ReportSource", text);
}

QString sqlTime(const QDateTime& time)
{
    return QString::number(DateTime_To_HfnTime(time), 'g', 10);
}

/// The records of a workshift or an interval, in a view that is never shown.
struct RecordsView {
    RecordsView(CVrkCliSes* session, CModelTable* workers, const QString& times)
        : table(&view, session, nullptr)
    {
        table.setWorkersTable(workers, times);
    }
    QTableView view;
    ReportTable table;
};
} // namespace

struct ReportSource::Private {
    bool fail(const QString& text)
    {
        error = text;
        return false;
    }
    CVrkCliSes* session() const { return app.session(); }
    bool load(CModelTable& table, const QString& sql)
    {
        return LiveTable(table, session()).load(sql) ||
               fail(words("Журнал не прочитан: %1").arg(session()->lastErrorText()));
    }
    void finish(VrkPreviewTable* table, const QStringList& about);
    bool finish(ShownJournal* shown, bool all, VrkTableTool::DayLines lines, const QStringList& about,
                ReportDocument* document);
    bool addNotes(const QTableView& view, ReportDocument* document);
    QStringList aboutShift(const ReportShift& shift, ShownJournal* shown);

    CVrkCliApp app;
    std::unique_ptr<CVrkCliMod> module;
    KeyNames names;
    CModelTable workers{LogbookTable::Workers};
    std::unique_ptr<RecordsView> paper;
    std::unique_ptr<RecordsView> sheet;
    std::unique_ptr<RecordList> list; ///< uses the names
    QString seal;
    bool isSealRead = false;
    QString error;
};

ReportSource::ReportSource() : d(std::make_unique<Private>()) {}

ReportSource::~ReportSource()
{
    d->list.reset();
    d->module.reset();
}

bool ReportSource::open(const QString& url)
{
    StoreError error;
    std::unique_ptr<Store> store = Store::open(url, Store::Options(), &error);
    if (!store)
        return d->fail(error.detail.isEmpty()
                           ? error.text
                           : error.text + QStringLiteral("\n(") + error.detail + QLatin1Char(')'));
    d->app.setSession(std::make_unique<CVrkCliSes>(std::move(store)));
    d->module = std::make_unique<CVrkCliMod>(&d->app);
    if (!d->load(d->workers, QStringLiteral("SELECT * FROM Workers")))
        return false;
    d->workers.data.setKeys({Field::KeyLink});
    if (!d->names.load(d->module.get()))
        return d->fail(words("Справочники журнала не прочитаны: %1").arg(d->session()->lastErrorText()));
    d->paper = std::make_unique<RecordsView>(d->session(), &d->workers, QStringLiteral("hh:mm"));
    d->sheet = std::make_unique<RecordsView>(d->session(), &d->workers, QStringLiteral("dd.MM.yyyy hh:mm"));
    d->list = std::make_unique<RecordList>();
    d->list->init(d->module.get(), &d->names);
    return true;
}

QString ReportSource::errorText() const
{
    return d->error;
}

Store* ReportSource::store() const
{
    return d->session()->store();
}

const KeyNames& ReportSource::names() const
{
    return d->names;
}

QDateTime ReportSource::now() const
{
    return d->session()->HfnTimeToSesTime();
}

QString ReportSource::seal()
{
    if (!d->isSealRead)
        d->seal = d->session()->sealOnPaper();
    d->isSealRead = true;
    return d->seal;
}

QString ReportSource::title(const QByteArray& departmentKey) const
{
    const QVector<KeyNames::Entry> all = d->names.departments();
    for (const KeyNames::Entry& department : all)
        if (department.key == departmentKey)
            return department.name;
    return QString();
}

bool ReportSource::department(const QString& name, QByteArray* key)
{
    const QVector<KeyNames::Entry> all = d->names.departments();
    QVector<KeyNames::Entry> fitting;
    QVector<ReportShift> known;
    if (name.isEmpty() && !shifts(QByteArray(), &known))
        return false;
    QSet<QByteArray> active;
    for (const ReportShift& shift : qAsConst(known))
        active.insert(shift.departmentKey);
    QStringList listed;
    for (const KeyNames::Entry& department : all) {
        const bool isNamed =
            department.name.compare(name, Qt::CaseInsensitive) == 0 ||
            d->names.departmentName(department.key).compare(name, Qt::CaseInsensitive) == 0 ||
            department.key == name.toUtf8();
        if (name.isEmpty() ? active.contains(department.key) : isNamed)
            fitting.append(department);
        if (!name.isEmpty() || active.contains(department.key))
            listed << department.name;
    }
    if (fitting.size() == 1) {
        *key = fitting.constFirst().key;
        return true;
    }
    if (name.isEmpty() && fitting.isEmpty())
        return d->fail(words("В журнале ещё нет смен."));
    const QString choice = listed.join(QStringLiteral("; "));
    if (name.isEmpty())
        return d->fail(
            words("Смены ведут несколько подразделений, назовите одно (--department): %1.").arg(choice));
    return d->fail(
        fitting.isEmpty()
            ? words("Подразделения «%1» нет. Есть: %2.").arg(name, choice)
            : words("Подразделений «%1» несколько, назовите и организацию: %2.").arg(name, choice));
}

bool ReportSource::shifts(const QByteArray& departmentKey, QVector<ReportShift>* shifts)
{
    CModelTable table(LogbookTable::Workshifts);
    const QString where =
        departmentKey.isEmpty()
            ? QString()
            : QStringLiteral(" WHERE DepartmentKey = '%1'").arg(QString::fromUtf8(departmentKey));
    if (!d->load(table, QStringLiteral("SELECT * FROM LogbookWorkshifts") + where))
        return false;
    for (int i = 0; i < table.data.RecCount(); ++i) {
        const Row row(MDARec(table.data.array, 0, i));
        shifts->append({row.key(), row.copy(Field::DepartmentKey), row.copy(Field::OpenWorkerKey),
                        row.copy(Field::CloseWorkerKey),
                        d->session()->HfnTimeToSesTime(row.time(Field::startTime)),
                        d->session()->HfnTimeToSesTime(row.time(Field::endTime))});
    }
    std::sort(shifts->begin(), shifts->end());
    return true;
}

bool ReportSource::archivedShifts(QVector<ReportShift>* shifts)
{
    QVector<RowChange> removals;
    if (!d->session()->archivedWorkshifts(QByteArray(), &removals))
        return d->fail(d->session()->lastErrorText());
    for (const RowChange& shift : qAsConst(removals)) {
        const auto key = [&](const char* field) { return shift.was(field).toByteArray(); };
        const auto time = [&](const char* field) {
            return d->session()->HfnTimeToSesTime(shift.was(field).toDouble());
        };
        shifts->append({shift.key, key(Field::DepartmentKey), key(Field::OpenWorkerKey),
                        key(Field::CloseWorkerKey), time(Field::startTime), time(Field::endTime)});
    }
    return true;
}

QString ReportSource::period(const QDateTime& from, const QDateTime& to)
{
    const QString format = QStringLiteral("dd.MM.yyyy hh:mm");
    return QStringLiteral("%1 - %2").arg(from.toString(format), to.toString(format));
}

/// What every report has on paper; widths come from the texts, since the view was never shown.
void ReportSource::Private::finish(VrkPreviewTable* table, const QStringList& about)
{
    table->widths.fill(0);
    table->headerBackground = Qt::lightGray;
    table->footer = about.join(QLatin1Char('\n'));
}

/// The comments and files of the records in a view, from which the document's table was made.
bool ReportSource::Private::addNotes(const QTableView& view, ReportDocument* document)
{
    const auto* model = qobject_cast<VrkTableProxyModel*>(view.model());
    QVector<QByteArray> keys;
    for (int row = 0; model && row < model->rowCount(); ++row)
        keys.append(Row(model->record(row)).key());
    RecordNotes notes(session(), &names);
    if (!notes.load(keys))
        return fail(words("Журнал не прочитан: %1").arg(session()->lastErrorText()));
    int place = 0;
    for (int row = 0; row < document->table.rows.size(); ++row) {
        VrkPreviewTable::Row& shown = document->table.rows[row];
        if (shown.isDayLine)
            continue;
        const QVector<RecordNotes::Note> found = notes.of(keys.value(place++));
        for (const RecordNotes::Note& note : found) {
            if (!note.fileKey.isEmpty())
                document->files.append({note.fileKey, note.text, row, static_cast<int>(shown.notes.size())});
            shown.notes.append({note.label, note.text});
        }
    }
    return true;
}

bool ReportSource::fileContent(const QByteArray& key, QByteArray* content)
{
    StoreError error;
    return store()->blob(LogbookTable::Files, Field::fileData.name, key, content, &error) ||
           d->fail(words("Файл не прочитан: %1").arg(error.text));
}

bool ReportSource::Private::finish(ShownJournal* shown, bool all, VrkTableTool::DayLines lines,
                                   const QStringList& about, ReportDocument* document)
{
    for (RecordsView* view : {paper.get(), sheet.get()}) {
        view->table.setRecordsTable(&shown->records);
        view->table.setDayLines(lines);
        view->table.setOnlyApproved(!all);
    }
    document->table = VrkPreviewTable::of(&paper->view, columnPixels);
    document->rows = ListOutput::rowsOf(&sheet->view);
    document->rows.first().replaceInStrings(QStringLiteral("\n"), QStringLiteral(" "));
    finish(&document->table, about);
    return addNotes(paper->view, document);
}

/// The lines about a workshift; loads it with its crew.
QStringList ReportSource::Private::aboutShift(const ReportShift& shift, ShownJournal* shown)
{
    const QString key = QString::fromUtf8(shift.key);
    if (!load(shown->workshifts,
              QString::fromLatin1(LogbookSql::ByField)
                  .arg(QLatin1String(LogbookTable::Workshifts), QLatin1String(Field::KeyLink), key)) ||
        !load(shown->crew, QString::fromLatin1(LogbookSql::WorkersWorkshift)
                               .arg(QLatin1String(LogbookTable::WorkersWorkshift), key)) ||
        !load(shown->shifts,
              QString::fromLatin1(LogbookSql::OfDepartment)
                  .arg(QLatin1String(LogbookTable::Shifts), QString::fromUtf8(shift.departmentKey))))
        return {};
    shown->workshift = MDARec(shown->workshifts.data.array, 0, 0);
    QStringList crew;
    for (int i = 0; i < shown->crew.data.RecCount(); ++i)
        crew << names.workerName(Row(MDARec(shown->crew.data.array, 0, i)).copy(Field::WorkerKey));
    crew.removeDuplicates();
    crew.sort();
    QStringList about{words("Смена %1").arg(period(shift.start, shift.end))};
    about << (shift.isOpen() ? words("Открыл %1, смена открыта").arg(names.workerName(shift.openedBy))
                             : words("Открыл %1, закрыл %2")
                                   .arg(names.workerName(shift.openedBy), names.workerName(shift.closedBy)));
    if (!crew.isEmpty())
        about << words("Состав смены: %1").arg(crew.join(QStringLiteral(", ")));
    return about;
}

bool ReportSource::ofShift(const ReportShift& shift, bool all, ReportDocument* document)
{
    ShownJournal shown;
    const QStringList about = d->aboutShift(shift, &shown);
    if (about.isEmpty() ||
        !d->load(shown.records, QString::fromLatin1(LogbookSql::ByField)
                                    .arg(QLatin1String(LogbookTable::Records), QLatin1String(Field::ShiftKey),
                                         QString::fromUtf8(shift.key))))
        return false;
    if (!d->finish(&shown, all, VrkTableTool::DayLinesBetween,
                   QStringList{title(shift.departmentKey)} + about, document))
        return false;
    document->name = reportName(d->names.departmentName(shift.departmentKey), shown, shift.start, shift.end,
                                d->session()->codec());
    return true;
}

bool ReportSource::ofPeriod(const QByteArray& departmentKey, const QDateTime& from, const QDateTime& to,
                            bool all, ReportDocument* document)
{
    ShownJournal shown;
    const QString sql =
        QString::fromLatin1(LogbookSql::RecordsInterval)
            .arg(QLatin1String(LogbookTable::Records), QLatin1String(LogbookTable::Workshifts),
                 QLatin1String(Field::KeyLink), QLatin1String(Field::ShiftKey),
                 QLatin1String(Field::DepartmentKey), QString::fromUtf8(departmentKey),
                 QLatin1String(Field::recordTime), sqlTime(from), sqlTime(to));
    if (!d->load(shown.records, sql))
        return false;
    if (!d->finish(&shown, all, VrkTableTool::DayLinesAll, {title(departmentKey), period(from, to)},
                   document))
        return false;
    document->name =
        reportName(d->names.departmentName(departmentKey), shown, from, to, d->session()->codec());
    return true;
}

bool ReportSource::found(const RecordQuery& query, ReportDocument* document)
{
    CMDArray answer;
    RecordQuery more = query;
    ++more.limit; // an extra record shows that there are more
    answer = d->session()->SearchRecords(more);
    if (!answer.array)
        return d->fail(words("Поиск не удался: %1").arg(d->session()->lastErrorText()));
    const bool isMore = answer.RecCount() > query.limit;
    if (isMore)
        MDARecDel(MDARec(answer.array, 0, answer.RecCount() - 1));
    QStringList parts;
    for (const QString& part : {query.words, query.equipment})
        if (!part.trimmed().isEmpty())
            parts << part.simplified();
    parts << (query.departmentKey.isEmpty() ? words("Все подразделения") : title(query.departmentKey));
    d->list->setColumnVisible(Field::lacks, false);
    d->list->setColumnVisible(Field::status, true);
    d->list->setColumnVisible(Field::DepartmentKey, query.departmentKey.isEmpty());
    d->list->replace(answer.array, SearchWords::terms(query.words) + SearchWords::terms(query.equipment));
    document->table = VrkPreviewTable::of(d->list->view());
    document->rows = ListOutput::rowsOf(d->list->view());
    d->finish(&document->table, {words("Поиск по архиву: %1").arg(parts.join(QStringLiteral(", "))),
                                 isMore ? words("Показаны последние %1, есть и более ранние").arg(query.limit)
                                        : words("Найдено записей: %1").arg(answer.RecCount())});
    document->name = QStringLiteral("%1 %2 %3")
                         .arg(words("Поиск"), query.words, now().toString(QStringLiteral("yyyy-MM-dd")));
    return d->addNotes(*d->list->view(), document);
}

bool ReportSource::handover(const QByteArray& departmentKey, int days, ReportDocument* document)
{
    QVector<ReportShift> known;
    if (!shifts(departmentKey, &known))
        return false;
    if (known.isEmpty())
        return d->fail(words("У подразделения «%1» нет смен.").arg(title(departmentKey)));
    const auto open =
        std::find_if(known.crbegin(), known.crend(), [](const ReportShift& shift) { return shift.isOpen(); });
    ShownJournal shown;
    const QStringList about = d->aboutShift(open == known.crend() ? known.constLast() : *open, &shown);
    if (about.isEmpty())
        return false;
    CMDArray answer;
    const double since = d->session()->GetHfnTime() - static_cast<double>(days) * secondsADay;
    answer = d->session()->SqlRequest(UnfinishedRecords::selectSince(departmentKey, since).toUtf8());
    if (!answer.array)
        return d->fail(words("Журнал не прочитан: %1").arg(d->session()->lastErrorText()));
    CMDArray judged;
    MDACreate(&judged.array, 0);
    MDACopy(judged.array, d->list->records().array, 0);
    UnfinishedRecords::judge(answer.array, &judged);
    d->list->setColumnVisible(Field::lacks, true);
    d->list->setColumnVisible(Field::status, false);
    d->list->setColumnVisible(Field::DepartmentKey, false);
    d->list->replace(judged.array);
    document->table = VrkPreviewTable::of(d->list->view());
    document->rows = ListOutput::rowsOf(d->list->view());
    d->finish(&document->table, QStringList{words("Сдача смены: %1").arg(title(departmentKey))} + about +
                                    QStringList{words("Незавершённое за последние %1 дн. на %2: %3")
                                                    .arg(days)
                                                    .arg(now().toString(QStringLiteral("dd.MM.yyyy hh:mm")))
                                                    .arg(judged.RecCount())});
    document->name = QStringLiteral("%1 %2 %3")
                         .arg(words("Сдача смены"), d->names.departmentName(departmentKey),
                              now().toString(QStringLiteral("yyyy-MM-dd")));
    return d->addNotes(*d->list->view(), document);
}
