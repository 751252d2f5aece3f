#include "OpenWorkshiftDialog.h"

#include "CModelTable.h"
#include "CrewTable.h"
#include "CVrkCliMod.h"
#include "CVrkCliSes.h"
#include "Fields.h"
#include "KeptChoice.h"
#include "LastWorkshift.h"
#include "RecordValue.h"
#include "ui_OpenWorkshiftDialog.h"

#include <QSignalBlocker>
#include <QTextCodec>

namespace
{
constexpr int secondsOfDay = 86400;
constexpr int secondsOfHour = 3600;
constexpr int mostOfShifts = 45; ///< percent of the width for the crew and the shifts, at most
} // namespace

OpenWorkshiftDialog::OpenWorkshiftDialog(QWidget* parent, int flag)
    : WorkshiftDialog(parent, flag), m_form(new Ui::OpenWorkshiftDialog)
{
    m_form->setupUi(this);
    // The filled-in text gets the space.
    m_form->splitter_3->setSizes({420, 780});
    m_form->splitter_2->setSizes({280, 580});
    setUpForm({m_form->workersTable, m_form->addWorkerButton, m_form->removeWorkerButton,
               m_form->clearWorkersButton, m_form->templatesWidget, m_form->templateFiller,
               m_form->cancelButton, m_form->applyButton},
              QStringLiteral("open_wshift"));
    createConnections();
}

OpenWorkshiftDialog::~OpenWorkshiftDialog() = default;

void OpenWorkshiftDialog::createConnections()
{
    connect(m_form->workersTable, &QTableWidget::currentCellChanged, this,
            &OpenWorkshiftDialog::updateWorkshiftControls);
    connect(m_form->shiftsTable, &QTableWidget::currentCellChanged, this,
            &OpenWorkshiftDialog::changeSelectedShift);
    connect(m_form->applyButton, &QPushButton::clicked, this, &OpenWorkshiftDialog::apply);
    connect(m_form->changeTemplateCheck, &QCheckBox::clicked, this,
            &OpenWorkshiftDialog::changeIntervalTemplate);
    for (QDateTimeEdit* edit : std::initializer_list<QDateTimeEdit*>{
             m_form->startDateEdit, m_form->startTimeEdit, m_form->endDateEdit, m_form->endTimeEdit}) {
        connect(edit, &QDateTimeEdit::dateTimeChanged, this, &OpenWorkshiftDialog::changeIntervalTemplate);
        connect(edit, &QDateTimeEdit::dateTimeChanged, this, &OpenWorkshiftDialog::updateStateControls);
        connect(edit, &QDateTimeEdit::dateTimeChanged, m_kept, &KeptChoice::touch);
    }
    connect(m_templates, &TemplatesWidget::selectionChanged, this, &OpenWorkshiftDialog::templateSelected);
}

QDateTime OpenWorkshiftDialog::start() const
{
    return QDateTime(m_form->startDateEdit->date(), m_form->startTimeEdit->time());
}

QDateTime OpenWorkshiftDialog::end() const
{
    return QDateTime(m_form->endDateEdit->date(), m_form->endTimeEdit->time());
}

void OpenWorkshiftDialog::showEvent(QShowEvent* event)
{
    m_templates->reloadTemplates();
    m_templates->selectFirstTemplate();
    reloadShifts();
    m_form->shiftsTable->selectRow(0);
    changeSelectedShift();
    changeIntervalTemplate();
    autoFillTemplate();
    setDefaultWorkshiftComposition();
    uploadLastWorkshift();
    updateStateControls();
    updateWorkshiftControls();
    m_proposed = {start(), end()};
    m_kept->begin();
    resize(1200, 600);
    moveToCenter();
    WorkshiftDialog::showEvent(event);
    showIntervals();
}

/// With large letters the times of the shifts take space from the template.
void OpenWorkshiftDialog::showIntervals()
{
    const QTableWidget* view = m_form->shiftsTable;
    int wanted = 0;
    for (int row = 0; row < view->rowCount(); ++row)
        wanted = qMax(wanted, view->sizeHintForIndex(view->model()->index(row, 1)).width() + 1);
    const int missing = wanted - view->columnWidth(1);
    const QList<int> sizes = m_form->splitter_3->sizes();
    const int whole = sizes.at(0) + sizes.at(1);
    const int left = qMin(sizes.at(0) + missing, whole * mostOfShifts / 100);
    if (left > sizes.at(0))
        m_form->splitter_3->setSizes({left, whole - left});
}

void OpenWorkshiftDialog::reloadShifts()
{
    QTableWidget* view = m_form->shiftsTable;
    const QSignalBlocker blocker(view);
    view->clear();
    view->setRowCount(0);
    if (m_departmentKey.isEmpty())
        return;

    view->setColumnCount(2);
    view->setHorizontalHeaderLabels({tr("Наименование"), tr("Интервал")});
    view->verticalHeader()->hide();
    CModelTable* shifts = table(QLatin1String(LogbookTable::Shifts));
    const QByteArray department = m_departmentKey.toUtf8();
    const QDateTime now = module()->session()->HfnTimeToSesTime();
    for (int position = 0; shifts && position < shifts->data.RecCount(); ++position) {
        const MDRData* shift = MDARec(shifts->data.array, 0, position);
        if (Row(shift).bytes(Field::DepartmentKey) != department)
            continue;
        const auto interval = toCurrentInterval(Row(shift).value(Field::startTime).value.real,
                                                Row(shift).value(Field::endTime).value.real, now);
        const QString format = QStringLiteral("dd.MM hh:mm");
        const QString texts[] = {Row(shift).text(Field::name_, codec()),
                                 interval.first.toString(format) + QStringLiteral(" - ") +
                                     interval.second.toString(format)};
        const int row = view->rowCount();
        view->insertRow(row);
        for (int column = 0; column < 2; ++column) {
            auto* item = new QTableWidgetItem(texts[column]);
            item->setData(Qt::UserRole, QString::fromLatin1(Row(shift).bytes(Field::KeyLink)));
            item->setFlags(Qt::ItemIsSelectable | Qt::ItemIsEnabled);
            view->setItem(row, column, item);
        }
    }
    view->resizeColumnToContents(0);
}

std::pair<QDateTime, QDateTime> OpenWorkshiftDialog::toCurrentInterval(double start, double end,
                                                                       const QDateTime& now)
{
    const QDateTime midnight(now.date(), QTime(0, 0));
    QDateTime from(midnight);
    QDateTime to(midnight);
    if (start < 0) {
        from.setTime(HfnTime_to_DateTime(start, -1).time());
        to.setTime(HfnTime_to_DateTime(end, -1).time());
    } else {
        const double today = DateTime_To_HfnTime(midnight);
        from = HfnTime_to_DateTime(start + today, -1);
        to = HfnTime_to_DateTime(end + today, -1);
    }
    if (start > end)
        to = to.addSecs(secondsOfDay);
    return {from, to};
}

void OpenWorkshiftDialog::changeSelectedShift()
{
    const QDateTime now = module()->session()->HfnTimeToSesTime();
    std::pair<QDateTime, QDateTime> interval(now, now.addSecs(secondsOfHour));

    const QTableWidgetItem* item = m_form->shiftsTable->item(m_form->shiftsTable->currentRow(), 1);
    const QByteArray key = item ? item->data(Qt::UserRole).toString().toLatin1() : QByteArray();
    if (const MDRData* shift = recordByKeyLink(table(QLatin1String(LogbookTable::Shifts)), key.constData()))
        interval = toCurrentInterval(Row(shift).value(Field::startTime).value.real,
                                     Row(shift).value(Field::endTime).value.real, now);
    setInterval(interval);
}

void OpenWorkshiftDialog::setInterval(const std::pair<QDateTime, QDateTime>& interval)
{
    m_form->startDateEdit->setDate(interval.first.date());
    m_form->startTimeEdit->setTime(interval.first.time());
    m_form->endDateEdit->setDate(interval.second.date());
    m_form->endTimeEdit->setTime(interval.second.time());
}

KeptTexts::Values OpenWorkshiftDialog::chosen() const
{
    QStringList workers = m_crew->workerKeys();
    workers.removeAll(m_workerKey); // he is always included
    const std::pair<QDateTime, QDateTime> interval(start(), end());
    if (workers.isEmpty() && interval == m_proposed)
        return {};
    const QString format = QStringLiteral("dd.MM.yyyy hh:mm");
    KeptTexts::Values values = chosenCrew(
        workers, tr("с %1 по %2").arg(interval.first.toString(format), interval.second.toString(format)));
    values.insert(QStringLiteral("start"), interval.first.toString(Qt::ISODate));
    values.insert(QStringLiteral("end"), interval.second.toString(Qt::ISODate));
    return values;
}

bool OpenWorkshiftDialog::isOver(const KeptTexts::Values& kept) const
{
    const QDateTime end = QDateTime::fromString(kept.value(QStringLiteral("end")), Qt::ISODate);
    return !end.isValid() || end <= module()->session()->HfnTimeToSesTime();
}

void OpenWorkshiftDialog::chooseTimes(const KeptTexts::Values& kept)
{
    setInterval({QDateTime::fromString(kept.value(QStringLiteral("start")), Qt::ISODate),
                 QDateTime::fromString(kept.value(QStringLiteral("end")), Qt::ISODate)});
}

void OpenWorkshiftDialog::updateStateControls()
{
    const QDateTime from = start();
    const bool afterLast = !m_lastWorkshiftEnd.isValid() || from >= m_lastWorkshiftEnd;
    m_form->applyButton->setEnabled(m_form->workersTable->rowCount() > 0 && from < end() &&
                                    m_filler->isFilled() && afterLast);
    const QString overlap = afterLast
                                ? QString()
                                : tr("Предыдущая смена заканчивается %1")
                                      .arg(m_lastWorkshiftEnd.toString(QStringLiteral("dd.MM.yyyy hh:mm")));
    m_form->applyButton->setToolTip(overlap.isEmpty() ? QStringLiteral("Ctrl+Enter") : overlap);
    m_form->missingLabel->setText(m_form->workersTable->rowCount() == 0 ? tr("Добавьте сотрудников в смену")
                                  : from >= end() ? tr("Начало смены должно быть раньше конца")
                                  : !tooLongText().isEmpty() ? tooLongText()
                                  : !overlap.isEmpty()       ? overlap
                                  : !m_filler->isFilled()    ? missingText()
                                                             : QString());
}

QString OpenWorkshiftDialog::tooLongText() const
{
    if (m_longestShift <= 0 || start().secsTo(end()) <= m_longestShift)
        return {};
    const int minutes = m_longestShift % secondsOfHour / 60;
    return tr("Смена длиннее разрешённых %1 ч%2: журнал её не примет")
        .arg(m_longestShift / secondsOfHour)
        .arg(minutes > 0 ? tr(" %1 мин").arg(minutes) : QString());
}

QWidget* OpenWorkshiftDialog::wrongField() const
{
    if (m_form->workersTable->rowCount() == 0)
        return m_form->addWorkerButton;
    const bool fits = start() < end() && (!m_lastWorkshiftEnd.isValid() || start() >= m_lastWorkshiftEnd);
    return fits ? nullptr : m_form->startDateEdit;
}

void OpenWorkshiftDialog::updateWorkshiftControls()
{
    const QTableWidgetItem* current = m_form->workersTable->currentItem();
    m_form->clearWorkersButton->setEnabled(m_form->workersTable->rowCount() >= 2);
    m_form->removeWorkerButton->setEnabled(current && current->data(Qt::UserRole).toString() != m_workerKey);
}

void OpenWorkshiftDialog::uploadLastWorkshift()
{
    m_lastWorkshiftEnd = lastWorkshiftEnd(module(), m_departmentKey);
    m_longestShift = module()->session()->longestShift();
}

void OpenWorkshiftDialog::setDefaultWorkshiftComposition()
{
    m_crew->clear();
    m_crew->append(m_workerKey, false); // the user is always in the shift that he opens
}

void OpenWorkshiftDialog::clearWorkers()
{
    setDefaultWorkshiftComposition();
    updateWorkshiftControls();
}

void OpenWorkshiftDialog::templateSelected()
{
    MDRData* record = m_templates->currentTemplate();
    reloadTemplateText(record, QStringLiteral("void OpenWorkshiftDialog::reloadTemplateText(MDArrayRec*)"));
    if (record) {
        changeIntervalTemplate();
        autoFillTemplate();
    }
}
