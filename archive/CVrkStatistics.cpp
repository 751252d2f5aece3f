#include "CVrkStatistics.h"

#include "BarDelegate.h"
#include "CVrkCliApp.h"
#include "CVrkCliSes.h"
#include "EmptyHint.h"
#include "FiguresModel.h"
#include "FileSaver.h"
#include "HfnTime.h"
#include "ListOutput.h"
#include "ToolBars.h"

#include <QAction>
#include <QComboBox>
#include <QDateEdit>
#include <QHeaderView>
#include <QLabel>
#include <QProgressBar>
#include <QSettings>
#include <QSpinBox>
#include <QTableView>
#include <QToolBar>
#include <QVBoxLayout>

namespace
{
const char periodKey[] = "Statistics/days";
const char lateKey[] = "Statistics/lateMinutes";
constexpr int wholeTime = 0;
constexpr int ownPeriod = -1;
constexpr int usualDays = 30;
constexpr int mostLateMinutes = 7 * 24 * 60;

QString folded(const QString& name)
{
    return name.simplified().toCaseFolded();
}

QString shownDate(const QDate& date)
{
    return date.toString(QStringLiteral("dd.MM.yyyy"));
}
} // namespace

CVrkStatistics::CVrkStatistics(CVrkCliApp* app)
    : CVrkCliMod(app),
      m_model(new FiguresModel(this)),
      m_table(new QTableView(this)),
      m_departments(new QComboBox(this)),
      m_periods(new QComboBox(this)),
      m_from(new QDateEdit(this)),
      m_to(new QDateEdit(this)),
      m_late(new QSpinBox(this)),
      m_progress(new QProgressBar(this)),
      m_summary(new QLabel(this))
{
    if (objectName().isEmpty())
        setObjectName(QStringLiteral("CVrkStatistics"));
    resize(1000, 640);
    setContextMenuPolicy(Qt::NoContextMenu);
    setModuleStyle();
    m_next.setSingleShot(true);
    makeChoice();
    makePage();
    makeActions();
}

CVrkStatistics::~CVrkStatistics() = default;

void CVrkStatistics::makeChoice()
{
    QToolBar* bar = ToolBars::add(this, "choiceBar");
    m_departments->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    const QVector<QPair<QString, int>> periods{{tr("Сегодня"), 1},
                                               {tr("7 дней"), 7},
                                               {tr("30 дней"), usualDays},
                                               {tr("90 дней"), 90},
                                               {tr("Год"), 365},
                                               {tr("Всё время"), wholeTime},
                                               {tr("Свой период"), ownPeriod}};
    for (const auto& period : periods)
        m_periods->addItem(period.first, period.second);
    for (QDateEdit* edit : {m_from, m_to}) {
        edit->setDisplayFormat(QStringLiteral("dd.MM.yyyy"));
        edit->setCalendarPopup(true);
        edit->setKeyboardTracking(false);
    }
    m_departments->setObjectName(QStringLiteral("departmentCombo"));
    ToolBars::addLabelled(bar, tr("&Подразделение"), m_departments);
    m_periods->setObjectName(QStringLiteral("periodCombo"));
    ToolBars::addLabelled(bar, tr("П&ериод"), m_periods);
    addToolBarBreak();
    bar = ToolBars::add(this, "daysBar");
    m_from->setObjectName(QStringLiteral("fromEdit"));
    ToolBars::addLabelled(bar, tr("&с"), m_from);
    m_to->setObjectName(QStringLiteral("toEdit"));
    ToolBars::addLabelled(bar, tr("п&о"), m_to);
    m_late->setRange(0, mostLateMinutes);
    m_late->setKeyboardTracking(false);
    m_late->setSuffix(tr(" мин"));
    m_late->setToolTip(
        tr("Запись внесена поздно, если она сделана позже события более чем на столько минут"));
    m_late->setObjectName(QStringLiteral("lateSpin"));
    ToolBars::addLabelled(bar, tr("Внесено поз&же на"), m_late);
    m_from->setAccessibleName(tr("Первый день"));
    m_to->setAccessibleName(tr("Последний день"));
}

void CVrkStatistics::makePage()
{
    m_table->setObjectName(QStringLiteral("figuresTable"));
    m_table->setAccessibleName(tr("Показатели"));
    m_table->setModel(m_model);
    m_table->setItemDelegateForColumn(FiguresModel::Share, new BarDelegate(m_table));
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setTabKeyNavigation(false);
    m_table->setWordWrap(false);
    m_table->setCornerButtonEnabled(false);
    m_table->verticalHeader()->hide();
    m_table->verticalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    m_table->verticalHeader()->setMinimumSectionSize(0);
    QHeaderView* header = m_table->horizontalHeader();
    header->setSectionResizeMode(QHeaderView::ResizeToContents);
    header->setSectionResizeMode(FiguresModel::Name, QHeaderView::Stretch);
    header->setSectionResizeMode(FiguresModel::Share, QHeaderView::Stretch);
    header->setHighlightSections(false);
    m_summary->setObjectName(QStringLiteral("summaryLabel"));
    m_summary->setMargin(4);
    m_summary->setWordWrap(true);
    m_output = new ListOutput(this, m_table, [this] {
        ListOutput::About about;
        about.title = tr("Печать: %1").arg(m_name);
        about.name = QStringLiteral("%1 %2").arg(m_name, m_about);
        about.content = QStringLiteral("%1, %2\n%3").arg(m_name, m_about, m_summary->text());
        return about;
    });
    auto* page = new QWidget(this);
    auto* column = new QVBoxLayout(page);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(m_output->saver());
    column->addWidget(m_summary);
    column->addWidget(m_table, 1);
    setCentralWidget(page);
}

void CVrkStatistics::makeActions()
{
    addToolBarBreak();
    QToolBar* bar = ToolBars::add(this, "actionBar");
    const auto add = [&](const char* name, const QString& text, const QKeySequence& key, auto request) {
        QAction* action = bar->addAction(text, this, request);
        action->setObjectName(QLatin1String(name));
        action->setShortcut(key);
        action->setToolTip(text + QLatin1Char(' ') + key.toString(QKeySequence::PortableText));
        return action;
    };
    add("reloadAction", tr("Обновить"), QKeySequence(QKeySequence::Refresh), &CVrkStatistics::reload);
    m_stop = add("stopAction", tr("Прервать"), Qt::Key_Escape, &CVrkStatistics::interrupt);
    bar->addAction(m_output->printAction());
    bar->addAction(m_output->tableAction());
    for (QAction* action : bar->actions())
        if (!action->text().isEmpty())
            bar->widgetForAction(action)->setFocusPolicy(Qt::TabFocus);
    m_progress->setObjectName(QStringLiteral("readProgress"));
    m_progress->setAccessibleName(tr("Прочитано записей"));
    m_progress->setMaximumWidth(220);
    m_progressPlace = bar->addWidget(m_progress);
    setReading(false);
}

bool CVrkStatistics::ModuleStart()
{
    m_name = tr("Статистика");
    SetModTitle(m_name, QString());
    new EmptyHint(m_table, [this] { return m_summary->text(); });
    if (!m_names.load(this)) {
        tell(tr("Не удалось загрузить данные!"));
        return false;
    }
    m_departments->addItem(tr("Все подразделения"), QByteArray());
    for (const KeyNames::Entry& department : m_names.departments())
        m_departments->addItem(department.name, department.key);
    QSettings settings;
    m_late->setValue(settings.value(QLatin1String(lateKey), m_choice.lateMinutes).toInt());
    const int days = settings.value(QLatin1String(periodKey), usualDays).toInt();
    m_periods->setCurrentIndex(qMax(0, m_periods->findData(days == ownPeriod ? usualDays : days)));
    m_isStarted = true;
    setPeriod();
    createConnections();
    m_table->setFocus();
    return true;
}

void CVrkStatistics::createConnections()
{
    const auto chosen = QOverload<int>::of(&QComboBox::currentIndexChanged);
    connect(m_departments, chosen, this, &CVrkStatistics::reload);
    connect(m_periods, chosen, this, &CVrkStatistics::setPeriod);
    for (QDateEdit* edit : {m_from, m_to})
        connect(edit, &QDateEdit::dateChanged, this, &CVrkStatistics::periodTyped);
    connect(m_late, QOverload<int>::of(&QSpinBox::valueChanged), this, [this](int minutes) {
        QSettings().setValue(QLatin1String(lateKey), minutes);
        reload();
    });
    connect(&m_next, &QTimer::timeout, this, &CVrkStatistics::readOn);
}

/// Fills in the dates of the chosen period.
void CVrkStatistics::setPeriod()
{
    const int days = m_periods->currentData().toInt();
    QSettings().setValue(QLatin1String(periodKey), days);
    for (QDateEdit* edit : {m_from, m_to})
        edit->setEnabled(days != wholeTime);
    if (days > 0) {
        const QDate today = session()->HfnTimeToSesTime().date();
        const QSignalBlocker first(m_from);
        const QSignalBlocker last(m_to);
        m_from->setDate(today.addDays(1 - days));
        m_to->setDate(today);
    }
    reload();
}

void CVrkStatistics::periodTyped()
{
    const QSignalBlocker blocker(m_periods);
    m_periods->setCurrentIndex(m_periods->findData(ownPeriod));
    reload();
}

QString CVrkStatistics::described() const
{
    const QString period = m_periods->currentData().toInt() == wholeTime
                               ? tr("за всё время")
                               : tr("с %1 по %2").arg(shownDate(m_from->date()), shownDate(m_to->date()));
    return m_departments->currentIndex() <= 0
               ? period
               : QStringLiteral("%1, %2").arg(m_departments->currentText(), period);
}

void CVrkStatistics::reload()
{
    if (!m_isStarted)
        return;
    interrupt();
    m_choice = {};
    m_choice.lateMinutes = m_late->value();
    m_choice.department = m_departments->currentData().toByteArray();
    m_about = described();
    if (m_periods->currentData().toInt() != wholeTime) {
        if (m_from->date() > m_to->date())
            return tell(tr("Первый день позже последнего: %1.").arg(m_about));
        m_choice.from = DateTime_To_HfnTime(m_from->date().startOfDay());
        m_choice.to = DateTime_To_HfnTime(m_to->date().addDays(1).startOfDay());
    }
    m_figures = std::make_unique<JournalFigures>(m_choice, session()->codec());
    tell(tr("Читаются записи %1…").arg(m_about));
    setReading(true);
    m_next.start(0);
}

void CVrkStatistics::readOn()
{
    const QByteArray sql = m_figures->request();
    if (sql.isEmpty()) {
        const auto figures = m_figures->figures(departmentNames());
        const QString summary =
            tr("Утверждённых записей %1: %2. Посчитано %3.")
                .arg(m_about)
                .arg(m_figures->readRecords())
                .arg(session()->HfnTimeToSesTime().toString(QStringLiteral("dd.MM.yyyy hh:mm")));
        setReading(false);
        return tell(summary, figures);
    }
    CMDArray answer;
    answer = session()->SqlRequest(sql);
    if (!answer.array) {
        setReading(false);
        return tell(tr("Записи не прочитаны: %1").arg(session()->lastErrorText()));
    }
    m_figures->take(answer);
    m_progress->setMaximum(int(m_figures->expectedRecords()));
    m_progress->setValue(int(qMin(m_figures->readRecords(), m_figures->expectedRecords())));
    m_next.start(0);
}

void CVrkStatistics::interrupt()
{
    if (!m_figures)
        return;
    setReading(false);
    tell(tr("Прервано. F5 посчитает %1 снова.").arg(m_about));
}

void CVrkStatistics::setReading(bool isReading)
{
    if (!isReading) {
        m_next.stop();
        m_figures.reset();
    }
    m_stop->setEnabled(isReading);
    m_progress->setMaximum(isReading ? 0 : 1); // 0: how many is not known yet
    m_progress->setValue(0);
    m_progressPlace->setVisible(isReading);
}

void CVrkStatistics::tell(const QString& summary, const QVector<JournalFigures::Figure>& figures)
{
    m_summary->setText(summary);
    m_model->setFigures(figures, m_choice.lateMinutes);
    m_output->setEnabled(!figures.isEmpty());
}

/// The names that vrk-admin stats writes: with the organization where the name alone is not clear, and the key where both
/// are not, so departments of one name are never counted as one.
QHash<QByteArray, QString> CVrkStatistics::departmentNames() const
{
    QHash<QByteArray, QStringList> possible;
    QHash<QString, int> bearers;
    for (const KeyNames::Entry& one : m_names.departments()) {
        const QString name = m_names.departmentName(one.key);
        const QString organization = m_names.organizationName(one.key);
        QStringList& names = possible[one.key];
        names.append(name);
        if (!organization.isEmpty())
            names.append(organization + QStringLiteral(" / ") + name);
        for (const QString& each : qAsConst(names))
            ++bearers[folded(each)];
    }
    QHash<QByteArray, QString> names;
    for (auto i = possible.cbegin(); i != possible.cend(); ++i)
        for (const QString& name : i.value())
            if (!names.contains(i.key()) && bearers.value(folded(name)) == 1)
                names.insert(i.key(), name);
    return names;
}
