#include "CVrkUnfinished.h"

#include "CVrkCliApp.h"
#include "CVrkCliSes.h"
#include "FileSaver.h"
#include "ListOutput.h"
#include "LogbookFields.h"
#include "MDRValues.h"
#include "RecordList.h"
#include "RecordRules.h"
#include "Row.h"
#include "TEventNciParse.h"
#include "UnfinishedFilter.h"
#include "UnfinishedRecords.h"
#include "VrkTableProxyModel.h"
#include "VrkTableTool.h"

#include <QAction>
#include <QLabel>
#include <QSettings>
#include <QSpinBox>
#include <QToolBar>
#include <QToolButton>
#include <QVBoxLayout>

namespace
{
const char daysKey[] = "Unfinished/days";
const char kindsKey[] = "Unfinished/kinds";
constexpr int secondsADay = 24 * 3600;
constexpr int allKinds = RecordRules::ExecutionTime | RecordRules::SecondMarker | RecordRules::Approval;
} // namespace

CVrkUnfinished::CVrkUnfinished(CVrkCliApp* app)
    : CVrkCliMod(app),
      m_list(std::make_unique<RecordList>(this)),
      m_filter(new UnfinishedFilter(this)),
      m_days(new QSpinBox(this)),
      m_summary(new QLabel(this))
{
    if (objectName().isEmpty())
        setObjectName(QStringLiteral("CVrkUnfinished"));
    resize(1000, 600);
    setContextMenuPolicy(Qt::NoContextMenu);
    setModuleStyle();
    makeOutput();
    makeBar();
}

CVrkUnfinished::~CVrkUnfinished() = default;

void CVrkUnfinished::makeOutput()
{
    m_output = new ListOutput(this, m_list->view(), [this] {
        const QString title = tr("Незавершённое");
        const QString department = m_names.departmentName(m_departmentKey);
        const QDateTime now = session()->HfnTimeToSesTime();
        QStringList kinds;
        for (const QToolButton* button : m_kinds)
            if (button->isChecked())
                kinds << button->text();
        ListOutput::About about;
        about.title = tr("Печать: %1").arg(title);
        about.name =
            QStringLiteral("%1 %2 %3").arg(title, department, now.toString(QStringLiteral("yyyy-MM-dd")));
        about.content =
            QStringLiteral("%1, %2\n%3, %4 %5\n%6")
                .arg(title, department, m_days->text(), tr("на"),
                     now.toString(QStringLiteral("dd.MM.yyyy hh:mm")), kinds.join(QStringLiteral(", ")));
        return about;
    });
    auto* page = new QWidget(this);
    auto* column = new QVBoxLayout(page);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(m_output->saver());
    column->addWidget(m_list.get(), 1);
    setCentralWidget(page);
}

void CVrkUnfinished::makeBar()
{
    auto* bar = new QToolBar(this);
    bar->setObjectName(QStringLiteral("toolBar"));
    bar->setFloatable(false);
    bar->setMovable(false);
    bar->setContextMenuPolicy(Qt::PreventContextMenu);
    addToolBar(Qt::TopToolBarArea, bar);

    m_days->setObjectName(QStringLiteral("daysSpin"));
    m_days->setAccessibleName(tr("За сколько дней"));
    m_days->setRange(1, 3660);
    m_days->setPrefix(tr("За последние "));
    m_days->setSuffix(tr(" дн."));
    m_days->setKeyboardTracking(false);
    m_days->setToolTip(tr("За сколько дней смотреть записи"));
    bar->addWidget(m_days);
    bar->addSeparator();

    struct Kind {
        const char* name;
        const char* icon;
        QString tip;
    };
    const Kind kinds[] = {
        {"timeButton", "time", tr("Записи, которым нужно время выполнения, а его нет")},
        {"markerButton", "marker", tr("Записи, у которых не поставлен второй маркер")},
        {"draftButton", "draft", tr("Черновики, оставшиеся в закрытых сменах")},
    };
    for (const Kind& kind : kinds) {
        auto* button = new QToolButton(this);
        button->setObjectName(QLatin1String(kind.name));
        button->setIcon(QIcon(QStringLiteral(":/archive/%1.png").arg(QLatin1String(kind.icon))));
        button->setToolTip(kind.tip);
        button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
        button->setCheckable(true);
        button->setFocusPolicy(Qt::TabFocus);
        bar->addWidget(button);
        m_kinds.append(button);
        connect(button, &QToolButton::clicked, this, [this] {
            int chosen = 0;
            for (int i = 0; i < m_kinds.size(); ++i)
                chosen |= m_kinds.at(i)->isChecked() ? 1 << i : 0;
            setKinds(chosen);
            QSettings().setValue(QLatin1String(kindsKey), chosen);
        });
    }
    bar->addSeparator();
    bar->addAction(m_output->printAction());
    bar->addAction(m_output->tableAction());
    auto* gap = new QWidget(this);
    gap->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    bar->addWidget(gap);
    m_summary->setObjectName(QStringLiteral("summaryLabel"));
    m_summary->setMargin(4);
    bar->addWidget(m_summary);

    auto* again = new QAction(this);
    again->setObjectName(QStringLiteral("reloadAction"));
    again->setShortcut(QKeySequence::Refresh);
    addAction(again);
    connect(again, &QAction::triggered, this, &CVrkUnfinished::reload);
}

bool CVrkUnfinished::ModuleStart()
{
    m_name = tr("Незавершённое");
    SetModTitle(m_name, QString());
    m_departmentKey = m_app->m_user_params.getValue(QStringLiteral("DEPARTMENTKEY"), QString()).toUtf8();
    if (!m_names.load(this) || m_departmentKey.isEmpty()) {
        m_list->setEmptyText(m_departmentKey.isEmpty() ? tr("Не выбрано подразделение.")
                                                       : tr("Не удалось загрузить данные!"));
        return false;
    }
    SetModTitle(m_name, m_names.departmentName(m_departmentKey));
    m_list->init(this, &m_names);
    m_list->setColumnVisible(Field::DepartmentKey, false);
    m_list->setColumnVisible(Field::status, false);
    m_list->tool()->proxy()->setFilterRows(m_filter);

    const QSettings settings;
    m_days->setValue(settings.value(QLatin1String(daysKey), usualDays).toInt());
    setKinds(settings.value(QLatin1String(kindsKey), allKinds).toInt() & allKinds);
    connect(m_days, QOverload<int>::of(&QSpinBox::valueChanged), this, [this](int days) {
        QSettings().setValue(QLatin1String(daysKey), days);
        reload();
    });
    m_isStarted = true;
    reload();
    m_list->setFocus();
    return true;
}

void CVrkUnfinished::setKinds(int kinds)
{
    for (int i = 0; i < m_kinds.size(); ++i)
        m_kinds.at(i)->setChecked(kinds & (1 << i));
    m_filter->setKinds(kinds);
    showCounts();
}

double CVrkUnfinished::firstTime() const
{
    return session()->GetHfnTime() - static_cast<double>(m_days->value()) * secondsADay;
}

void CVrkUnfinished::reload()
{
    if (!m_isStarted)
        return;
    CMDArray answer;
    answer = session()->SqlRequest(UnfinishedRecords::selectSince(m_departmentKey, firstTime()).toUtf8());
    m_failure.clear();
    if (!answer.array) { // the shown records stay: that is better than an empty list, which would say that
                         // nothing is unfinished
        m_failure = tr("Список не прочитан: %1").arg(session()->lastErrorText());
        showCounts();
        return;
    }
    m_shifts.clear();
    for (int i = 0; i < answer.RecCount(); ++i) {
        const Row row(MDARec(answer.array, 0, i));
        m_shifts[row.copy(Field::ShiftKey)] = shiftOf(row);
    }
    // The list copies its content by position. Compute first what each record is missing (column `lacks`).
    CMDArray judged;
    MDACreate(&judged.array, 0);
    MDACopy(judged.array, m_list->records().array, 0);
    UnfinishedRecords::judge(answer.array, &judged);
    m_list->replace(judged.array);
    showCounts();
}

int CVrkUnfinished::MessageData(HFNCliParam* block)
{
    TEventNciParse event(block);
    if (!event.isChange() || !m_isStarted)
        return 0;
    if (event.tableName.compare(QLatin1String("LogbookRecords"), Qt::CaseInsensitive) == 0)
        recordEvent(event);
    else if (event.tableName.compare(QLatin1String("LogbookWorkshifts"), Qt::CaseInsensitive) == 0)
        shiftEvent(event);
    MDRTypFree(&event.recordType);
    return 1;
}

void CVrkUnfinished::recordEvent(const TEventNciParse& event)
{
    const QByteArray key(event.recordKey);
    const bool wasCurrent = !key.isEmpty() && m_list->currentKey() == key;
    MDRData* record =
        event.eventNumber == EventDeleted ? nullptr : m_list->made(&event.recordType, &event.recordData);
    m_list->remove(key);
    if (record)
        take(record);
    if (wasCurrent)
        m_list->makeCurrent(key);
    showCounts();
}

void CVrkUnfinished::take(MDRData* record)
{
    CMDArray& records = m_list->records();
    const Row row(record);
    const Shift of = shift(row.copy(Field::ShiftKey));
    const bool isListed = of.isOurs && row.time(Field::recordTime) >= firstTime();
    const int lacks = isListed ? UnfinishedRecords::lacksOf(row, of.isClosed) : 0;
    if (lacks == 0) {
        MDARecDel(record);
        return;
    }
    records.SetValF(record, Field::DepartmentKey, MDRValue::text(m_departmentKey));
    records.SetValF(record, Field::startTime, MDRValue::real(of.startTime));
    records.SetValF(record, Field::endTime, MDRValue::real(of.endTime));
    records.SetValF(record, Field::lacks, MDRValue::number(lacks));
    m_list->add(record);
}

CVrkUnfinished::Shift CVrkUnfinished::shiftOf(const Row& row) const
{
    return {row.bytes(Field::DepartmentKey) == m_departmentKey, row.has(Field::CloseWorkerKey),
            row.time(Field::startTime), row.time(Field::endTime)};
}

CVrkUnfinished::Shift CVrkUnfinished::shift(const QByteArray& key)
{
    const auto known = m_shifts.constFind(key);
    if (known != m_shifts.constEnd())
        return *known;
    CMDArray answer;
    answer = session()->SqlRequest("SELECT * FROM LogbookWorkshifts WHERE KeyLink = '" + key + "'");
    Shift of;
    if (!answer.array) // read again at the next event
        return of;
    if (answer.RecCount() > 0)
        of = shiftOf(Row(MDARec(answer.array, 0, 0)));
    m_shifts.insert(key, of);
    return of;
}

void CVrkUnfinished::shiftEvent(const TEventNciParse& event)
{
    const QByteArray key(event.recordKey);
    const bool wasClosed = m_shifts.value(key).isClosed;
    m_shifts.remove(key);
    if (event.eventNumber == EventDeleted)
        return;
    const Shift of = shift(key);
    if (!of.isOurs || of.isClosed == wasClosed)
        return;
    // The shift is closed: its drafts are now unfinished.
    CMDArray answer;
    answer = session()->SqlRequest(
        UnfinishedRecords::select(m_departmentKey,
                                  QStringLiteral("R.ShiftKey = '%1'").arg(QString::fromUtf8(key)))
            .toUtf8());
    for (int i = 0; i < answer.RecCount(); ++i) {
        const MDRData* row = MDARec(answer.array, 0, i);
        if (!m_list->contains(Row(row).key()))
            take(m_list->made(answer.array, row));
    }
    showCounts();
}

void CVrkUnfinished::showCounts()
{
    if (!m_isStarted)
        return;
    int counts[3] = {};
    const CMDArray& records = m_list->records();
    for (int row = 0; row < records.RecCount(); ++row) {
        const int lacks = Row(MDARec(records.array, 0, row)).number(Field::lacks, 0);
        for (int i = 0; i < m_kinds.size(); ++i)
            counts[i] += lacks & (1 << i) ? 1 : 0;
    }
    const QStringList names{tr("Время выполнения: %1"), tr("Второй маркер: %1"), tr("Черновики: %1")};
    for (int i = 0; i < m_kinds.size(); ++i)
        m_kinds.at(i)->setText(names.at(i).arg(counts[i]));
    if (!m_failure.isEmpty()) {
        m_summary->setText(m_failure);
        m_list->setEmptyText(m_failure);
        return;
    }
    const int shown = m_list->tool()->proxy()->rowCount();
    m_output->setEnabled(shown > 0);
    m_summary->setText(shown == m_list->count() ? tr("Записей: %1").arg(shown)
                                                : tr("Записей: %1 из %2").arg(shown).arg(m_list->count()));
    m_list->setEmptyText(
        m_list->count() > 0
            ? tr("Выбранного нет. Остальное скрыто кнопками над списком.")
            : tr("За последние %1 дн. ничего не осталось незавершённым.").arg(m_days->value()));
}
