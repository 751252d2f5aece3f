#include "CVrkPast.h"

#include "CVrkCliApp.h"
#include "CVrkCliSes.h"
#include "EventRow.h"
#include "HfnTime.h"
#include "LogbookFields.h"
#include "MDRValues.h"
#include "NoticeBar.h"
#include "RecordList.h"
#include "TemplateText.h"
#include "TEventNciParse.h"
#include "ToolBars.h"
#include "VrkTableTool.h"

#include <algorithm>
#include <QAction>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QLabel>
#include <QMap>
#include <QPlainTextEdit>
#include <QSplitter>
#include <QTableView>
#include <QTextCodec>
#include <QToolBar>
#include <QVBoxLayout>

namespace
{
/// A read-only text with its label; long words are broken.
QPlainTextEdit* text(const char* name, const QString& title, QVBoxLayout* layout)
{
    auto* label = new QLabel(title);
    auto* edit = new QPlainTextEdit;
    edit->setObjectName(QLatin1String(name));
    edit->setReadOnly(true);
    edit->setTabChangesFocus(true);
    edit->setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    label->setBuddy(edit);
    layout->addWidget(label);
    layout->addWidget(edit);
    return edit;
}
} // namespace

CVrkPast::CVrkPast(CVrkCliApp* app)
    : CVrkCliMod(app),
      m_departments(new QComboBox(this)),
      m_shifts(new QComboBox(this)),
      m_time(new QDateTimeEdit(this)),
      m_banner(new NoticeBar(this)),
      m_change(new QLabel(this)),
      m_list(std::make_unique<RecordList>(this))
{
    if (objectName().isEmpty())
        setObjectName(QStringLiteral("CVrkPast"));
    resize(1100, 640);
    setContextMenuPolicy(Qt::NoContextMenu);
    setModuleStyle();
    makeBars();

    auto* halves = new QSplitter(Qt::Horizontal, this);
    halves->setObjectName(QStringLiteral("pastSplitter"));
    halves->setChildrenCollapsible(false);
    halves->addWidget(m_list.get());
    auto* side = new QWidget(halves);
    auto* sideLayout = new QVBoxLayout(side);
    sideLayout->setContentsMargins(0, 0, 0, 0);
    m_crew = text("crewText", tr("&Смена и её состав"), sideLayout);
    m_remarks = text("remarkText", tr("&Комментарии и файлы записи"), sideLayout);
    halves->setStretchFactor(0, 3);
    halves->setStretchFactor(1, 1);

    auto* whole = new QWidget(this);
    auto* layout = new QVBoxLayout(whole);
    layout->setContentsMargins(4, 4, 4, 4);
    m_banner->setObjectName(QStringLiteral("pastNotice"));
    m_change->setObjectName(QStringLiteral("changeLabel"));
    m_change->setWordWrap(true);
    m_change->setMargin(4);
    layout->addWidget(m_banner);
    layout->addWidget(m_change);
    layout->addWidget(halves, 1);
    setCentralWidget(whole);
}

CVrkPast::~CVrkPast() = default;

QAction* CVrkPast::addStep(QToolBar* bar, const char* name, const char* icon, const QString& text, int key,
                           void (CVrkPast::*request)())
{
    QAction* action = bar->addAction(CVrkCliMod::icon(QLatin1String(icon)), text);
    action->setObjectName(QLatin1String(name));
    action->setShortcut(key);
    action->setToolTip(text + QLatin1Char(' ') + action->shortcut().toString(QKeySequence::PortableText));
    action->setEnabled(false);
    connect(action, &QAction::triggered, this, request);
    return action;
}

void CVrkPast::makeBars()
{
    QToolBar* where = ToolBars::add(this, "shiftBar");
    m_departments->setObjectName(QStringLiteral("departmentCombo"));
    m_shifts->setObjectName(QStringLiteral("shiftCombo"));
    // Names and times must be readable, also in the smallest window.
    m_departments->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    m_shifts->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    ToolBars::addLabelled(where, tr("&Подразделение"), m_departments);

    addToolBarBreak();
    QToolBar* when = ToolBars::add(this, "timeBar");
    when->setToolButtonStyle(Qt::ToolButtonIconOnly); // narrow screens have room for the times
    ToolBars::addLabelled(when, tr("С&мена"), m_shifts);
    m_time->setObjectName(QStringLiteral("timeEdit"));
    m_time->setDisplayFormat(QStringLiteral("dd.MM.yyyy hh:mm:ss"));
    m_time->setCalendarPopup(true);
    m_time->setKeyboardTracking(false);
    ToolBars::addLabelled(when, tr("М&омент"), m_time);
    m_back = addStep(when, "backAction", "up-arrow", tr("Предыдущее изменение"), Qt::ALT | Qt::Key_Left,
                     &CVrkPast::stepBack);
    m_on = addStep(when, "onAction", "down-arrow", tr("Следующее изменение"), Qt::ALT | Qt::Key_Right,
                   &CVrkPast::stepOn);

    auto* again = new QAction(this);
    again->setObjectName(QStringLiteral("reloadAction"));
    again->setShortcut(QKeySequence::Refresh);
    addAction(again);
    connect(again, &QAction::triggered, this, &CVrkPast::loadShift);
}

bool CVrkPast::ModuleStart()
{
    m_name = tr("Журнал на момент");
    SetModTitle(m_name, QString());
    if (!m_names.load(this) || !m_text.load(this, &m_names)) {
        m_list->setEmptyText(tr("Не удалось загрузить данные!"));
        return false;
    }
    m_list->init(this, &m_names);
    m_list->setColumnVisible(Field::lacks, false);
    m_list->setColumnVisible(Field::DepartmentKey, false);
    m_list->setColumnVisible(Field::comments, true);
    m_list->setColumnVisible(Field::files, true);
    for (const KeyNames::Entry& department : m_names.departments())
        m_departments->addItem(department.name, department.key);
    const QByteArray own = m_app->m_user_params.getValue(QStringLiteral("DEPARTMENTKEY"), QString()).toUtf8();
    m_departments->setCurrentIndex(qMax(0, m_departments->findData(own)));
    createConnections();
    m_isStarted = true;
    fillShifts();
    m_list->setFocus();
    return true;
}

void CVrkPast::createConnections()
{
    const auto chosen = QOverload<int>::of(&QComboBox::currentIndexChanged);
    connect(m_departments, chosen, this, &CVrkPast::fillShifts);
    connect(m_shifts, chosen, this, &CVrkPast::loadShift);
    connect(m_time, &QDateTimeEdit::dateTimeChanged, this, &CVrkPast::goToTime);
    connect(m_list->view()->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            &CVrkPast::showRemarks);
}

QByteArray CVrkPast::shiftKey() const
{
    return m_shifts->currentData().toByteArray();
}

void CVrkPast::fillShifts()
{
    const QByteArray former = shiftKey();
    CMDArray answer;
    answer = session()->SqlRequest("SELECT * FROM LogbookWorkshifts WHERE DepartmentKey = '" +
                                   m_departments->currentData().toByteArray() + "' ORDER BY startTime DESC");
    m_failure = answer.array ? QString() : session()->lastErrorText();
    const bool wasBlocked = m_shifts->blockSignals(true);
    m_shifts->clear();
    const auto add = [this](double start, double end, const QString& state, const QByteArray& key) {
        m_shifts->addItem(ChangeText::time(start).left(16) + QStringLiteral(" - ") +
                              ChangeText::time(end).left(16) + state,
                          key);
    };
    for (int i = 0; i < answer.RecCount(); ++i) {
        const Row row(MDARec(answer.array, 0, i));
        add(row.time(Field::startTime), row.time(Field::endTime),
            row.has(Field::CloseWorkerKey) ? QString() : tr(" (открыта)"), row.key());
    }
    for (const RowChange& shift : archivedShifts())
        add(shift.was(Field::startTime).toDouble(), shift.was(Field::endTime).toDouble(), tr(" (в архиве)"),
            shift.key);
    m_shifts->setCurrentIndex(qMax(0, m_shifts->findData(former)));
    m_shifts->blockSignals(wasBlocked);
    loadShift();
}

QVector<RowChange> CVrkPast::archivedShifts()
{
    QVector<RowChange> shifts;
    if (m_failure.isEmpty() &&
        !session()->archivedWorkshifts(m_departments->currentData().toByteArray(), &shifts))
        m_failure = session()->lastErrorText();
    std::stable_sort(shifts.begin(), shifts.end(), [](const RowChange& one, const RowChange& other) {
        return one.was(Field::startTime).toDouble() > other.was(Field::startTime).toDouble();
    });
    return shifts;
}

void CVrkPast::loadShift()
{
    if (!m_isStarted)
        return;
    QVector<RowChange> changes;
    if (!shiftKey().isEmpty())
        m_failure =
            session()->workshiftHistory(shiftKey(), &changes) ? QString() : session()->lastErrorText();
    if (!m_failure.isEmpty())
        changes.clear();
    m_past = ShiftPast(changes);
    const int last = changes.size() - 1;
    const bool isArchived = last >= 0 && m_past.rows("LogbookWorkshifts", last).isEmpty();
    goTo(isArchived ? m_past.previous(last) : last);
}

void CVrkPast::goTo(int place)
{
    m_place = place;
    if (place >= 0) {
        const bool wasBlocked = m_time->blockSignals(true);
        m_time->setDateTime(session()->HfnTimeToSesTime(m_past.changes().at(place).time));
        m_time->blockSignals(wasBlocked);
    }
    showPlace();
}

void CVrkPast::goToTime()
{
    m_place = m_past.placeAt(DateTime_To_HfnTime(m_time->dateTime()));
    showPlace();
}

void CVrkPast::showPlace()
{
    const QVector<RowChange>& changes = m_past.changes();
    m_back->setEnabled(m_past.previous(m_place) != m_place);
    m_on->setEnabled(m_past.next(m_place) != m_place);
    showBanner();
    m_change->setText(m_place < 0 ? QString()
                                  : tr("Изменение %1 из %2, %3, %4: %5")
                                        .arg(m_place + 1)
                                        .arg(changes.size())
                                        .arg(ChangeText::time(changes.at(m_place).time),
                                             m_text.who(changes.at(m_place)),
                                             ChangeText::visible(changes.at(m_place).deed())));
    showRecords();
    showCrew();
    showRemarks();
}

void CVrkPast::showBanner()
{
    const QVector<RowChange>& changes = m_past.changes();
    const QString moment = m_time->dateTime().toString(m_time->displayFormat());
    QString empty = tr("В этот момент в смене не было записей.");
    if (!m_failure.isEmpty())
        empty = tr("Журнал изменений не прочитан: %1").arg(m_failure);
    else if (m_shifts->count() == 0)
        empty = tr("У этого подразделения ещё не было смен.");
    else if (changes.isEmpty())
        empty = tr("В журнале изменений этой смены нет.");
    else if (m_place < 0)
        empty = tr("В этот момент смены в журнале ещё не было: она открыта %1.")
                    .arg(ChangeText::time(changes.first().time));
    m_list->setEmptyText(empty);
    if (changes.isEmpty())
        m_banner->tell(NoticeBar::Warning, empty);
    else if (m_time->dateTime() > session()->HfnTimeToSesTime())
        m_banner->tell(
            NoticeBar::Warning,
            tr("Момент %1 ещё не наступил: показано последнее, что записано. Изменить здесь ничего нельзя.")
                .arg(moment));
    else
        m_banner->tell(
            NoticeBar::Warning,
            tr("Это прошлое: смена, какой она была в журнале %1. Изменить здесь ничего нельзя.").arg(moment));
}

MDRData* CVrkPast::recordOf(const RowChange& change, const QHash<QByteArray, int>& comments,
                            const QHash<QByteArray, int>& files, CMDArray& records) const
{
    MDRData* record = MDARecNew(records.array);
    for (int i = 0; i < change.fields.size(); ++i) {
        const QVariant value = change.after.value(i);
        if (!value.isValid())
            continue;
        const QByteArray& field = change.fields.at(i);
        const QByteArray text = session()->codec()->fromUnicode(value.toString());
        if (value.type() == QVariant::Double)
            records.SetValF(record, field, MDRValue::real(value.toDouble()));
        else if (value.type() == QVariant::String)
            records.SetValF(record, field, MDRValue::text(text));
        else
            records.SetValF(record, field, MDRValue::number(value.toInt()));
    }
    records.SetValF(record, Field::comments, MDRValue::number(comments.value(change.key)));
    records.SetValF(record, Field::files, MDRValue::number(files.value(change.key)));
    return record;
}

void CVrkPast::showRecords()
{
    const auto counts = [this](const char* table) {
        QHash<QByteArray, int> byRecord;
        for (const RowChange* row : m_past.rows(table, m_place))
            ++byRecord[row->is(Field::RecordKey).toByteArray()];
        return byRecord;
    };
    const QHash<QByteArray, int> comments = counts("LogbookComments");
    const QHash<QByteArray, int> files = counts("LogbookFiles");
    CMDArray past;
    MDACreate(&past.array, 0);
    MDACopy(past.array, m_list->records().array, 0);
    for (const RowChange* row : m_past.rows("LogbookRecords", m_place))
        past.RecPost(recordOf(*row, comments, files, past));
    m_list->replace(past.array);
    if (m_place < 0)
        return;
    const RowChange& change = m_past.changes().at(m_place);
    const QVariant record =
        change.after.isEmpty() ? change.was(Field::RecordKey) : change.is(Field::RecordKey);
    m_list->makeCurrent(change.table == "LogbookRecords" ? change.key : record.toByteArray());
}

void CVrkPast::showCrew()
{
    QStringList lines;
    for (const RowChange* shift : m_past.rows("LogbookWorkshifts", m_place)) {
        const auto line = [&](const char* field) {
            return RowChange::title(field) + QStringLiteral(": ") + m_text.value(field, shift->is(field));
        };
        const bool isClosed = !shift->is(Field::CloseWorkerKey).toString().isEmpty();
        lines << line(Field::startTime) << line(Field::endTime) << line(Field::OpenWorkerKey)
              << (isClosed ? line(Field::CloseWorkerKey) : tr("Смена открыта")) << tr("Состав:");
    }
    for (const RowChange* worker : m_past.rows("LogbookWorkersWorkshift", m_place))
        lines << m_text.value(Field::WorkerKey.name, worker->is(Field::WorkerKey)) +
                     (worker->is(Field::opening).toBool() ? QString() : tr(" (принимает смену)"));
    m_crew->setPlainText(lines.join(QLatin1Char('\n')));
}

void CVrkPast::showRemarks()
{
    const QByteArray record = m_list->currentKey();
    const auto timeOf = [](const RowChange* comment) { return comment->is(Field::commentTime).toDouble(); };
    auto comments = m_past.rows("LogbookComments", m_place).values();
    std::stable_sort(comments.begin(), comments.end(),
                     [&](const RowChange* a, const RowChange* b) { return timeOf(a) < timeOf(b); });
    QStringList remarks;
    for (const RowChange* comment : qAsConst(comments))
        if (comment->is(Field::RecordKey).toByteArray() == record)
            remarks << tr("%1, %2: %3")
                           .arg(m_text.value(Field::WorkerKey.name, comment->is(Field::WorkerKey)),
                                ChangeText::time(timeOf(comment)).left(16),
                                m_text.value(Field::text_.name, comment->is(Field::text_)));
    for (const RowChange* file : m_past.rows("LogbookFiles", m_place))
        if (file->is(Field::RecordKey).toByteArray() == record)
            remarks << tr("Файл %1, %2")
                           .arg(m_text.value(Field::fileName.name, file->is(Field::fileName)),
                                m_text.value(Field::fileData.name, file->is(Field::fileData)));
    m_remarks->setPlainText(remarks.join(QStringLiteral("\n\n")));
}

void CVrkPast::slot_modNotify(QString name, QVariant value)
{
    if (name != QLatin1String("showRecord") || !m_isStarted)
        return;
    CMDArray answer;
    answer = session()->SqlRequest("SELECT W.* FROM LogbookRecords AS R INNER JOIN LogbookWorkshifts AS W "
                                   "ON W.KeyLink = R.ShiftKey WHERE R.KeyLink = '" +
                                   value.toString().toUtf8().replace("'", "''") + "'");
    if (answer.RecCount() == 0)
        return;
    const Row shift(MDARec(answer.array, 0, 0));
    m_departments->setCurrentIndex(m_departments->findData(shift.copy(Field::DepartmentKey)));
    const int place = m_shifts->findData(shift.key());
    if (place < 0)
        fillShifts();
    m_shifts->setCurrentIndex(m_shifts->findData(shift.key()));
    m_list->makeCurrent(value.toString().toUtf8());
    m_list->setFocus();
}

int CVrkPast::MessageData(HFNCliParam* block)
{
    TEventNciParse event(block);
    if (!event.isChange() || !m_isStarted)
        return 0;
    const EventRow row(event);
    const bool isOurs = row.isOf("LogbookRecords") && row.bytes(Field::ShiftKey) == shiftKey();
    const bool isNewShift = row.isOf("LogbookWorkshifts") && event.eventNumber == EventInserted &&
                            row.bytes(Field::DepartmentKey) == m_departments->currentData().toByteArray();
    const bool isGone = row.isOf("LogbookWorkshifts") && event.eventNumber == EventDeleted &&
                        m_shifts->findData(QByteArray(event.recordKey)) >= 0;
    MDRTypFree(&event.recordType);
    if (isNewShift || isGone)
        fillShifts();
    else if (isOurs && !m_change->text().endsWith(QLatin1Char(']')))
        m_change->setText(m_change->text() + tr(" [смена изменилась, F5 покажет]"));
    return isOurs || isNewShift || isGone ? 1 : 0;
}
