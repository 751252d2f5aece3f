#include "LogBookWidget.h"

#include "CVrkCliMod.h"
#include "CVrkCliSes.h"
#include "EmptyHint.h"
#include "Filters.h"
#include "HfnWrapper.h"
#include "JournalDialogs.h"
#include "JournalLoader.h"
#include "LocationInfo.h"
#include "LogText.h"
#include "MDRValues.h"
#include "PageMessages.h"
#include "RecordEntries.h"
#include "RecordMenu.h"
#include "RecordValue.h"
#include "Row.h"
#include "SecondMarkerDialog.h"
#include "ShiftClock.h"
#include "TemplateMarkers.h"
#include "TimeExecutionDialog.h"
#include "ui_LogBookTab.h"
#include "VisaPasswordDialog.h"
#include "VrkTableProxyModel.h"
#include "VrkTableTool.h"
#include "WorkshiftsDialog.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QTextCodec>

namespace
{
/// A property of the record's template as text.
QString templateProperty(const MDRData* record, const char* name, const QTextCodec* codec)
{
    const MDRVar html = Row(record).value(Field::html);
    if (!MDRValue::hasText(html))
        return {};
    HtmlParser parser(codec->toUnicode(MDRValue::bytes(html)).toStdString());
    std::string value;
    parser.templatePropertyValue(name, value);
    return QString::fromStdString(value);
}
} // namespace

LogBookWidget::LogBookWidget(QWidget* parent) : EditablePage(parent), m_clock(new ShiftClock(*this, this)) {}

LogBookWidget::~LogBookWidget()
{
    dropAnnex();
}

void LogBookWidget::init(CVrkCliMod* module, LocationInfo* location)
{
    m_module = module;
    m_location = location;
    m_isInit = true;
    m_shown.census.setWorkerKey(location->workerKey().toUtf8());
    m_loader = std::make_unique<JournalLoader>(module->session(), location, m_shown);

    m_draftsFilter = new FilterByStatus(this);
    m_draftsFilter->setEnabled(false);
    createTable(m_shown, m_draftsFilter);
    configurePanes();
    connect(m_ui->recordsTable->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this] { emit changedSelectedRecord(currentRecord()); });

    configureTableTool(); // before the rows are loaded: each conversion updates its whole column
    uploadRealTimeWorkshift();
    m_tableTool->adjustColumnsWidth();
    m_dialogs = std::make_unique<JournalDialogs>(module, location, m_shown);
    createConnections();
    auto* hint = new EmptyHint(m_ui->recordsTable, [this] { return emptyText(); });
    connect(this, &LogBookWidget::statusChanged, hint, &EmptyHint::refresh);
    reloadPanes(currentRecord()); // the load changed the current row before anything was connected
    m_clock->start();
}

void LogBookWidget::configurePanes()
{
    createAnnex({QStringLiteral("LogBookWidget"),
                 [this] { return DateTime_To_HfnTime(m_module->session()->HfnTimeToSesTime()); },
                 [](const MDRVar& time) { return MDRValue::hasTime(time) && time.value.real > 0.0; }});
}

void LogBookWidget::createConnections()
{
    auto* menu = new RecordMenu(this, m_ui->recordsTable);
    RecordEntries::append(menu, m_ui->recordsTable, m_module->app(),
                          [this] { return Row(currentRecord()).key(); });
    connect(m_clock, &ShiftClock::limitExceeded, this, &LogBookWidget::showNotifyWorkshiftLimit);
    connect(m_dialogs->secondMarker, &SecondMarkerDialog::setMarker, this,
            &LogBookWidget::setSecondMarkRequest);
    connect(m_dialogs->secondMarker, &SecondMarkerDialog::removeMarker, this,
            &LogBookWidget::removeSecondMarkRequest);
    connect(m_dialogs->timeExecution, &TimeExecutionDialog::setTime, this,
            &LogBookWidget::setTimeExecRequest);
    connect(m_dialogs->timeExecution, &TimeExecutionDialog::removeTime, this,
            &LogBookWidget::removeTimeExecRequest);
    connect(this, &LogBookWidget::visaPasswordWanted, this,
            [this](const MDRData* record, int count) { m_dialogs->showVisaPassword(record, count); });
    connect(m_dialogs->visaPassword, &VisaPasswordDialog::proved, this, &LogBookWidget::signAfterPassword);
    connect(m_dialogs->workshifts, &WorkshiftsDialog::workshiftSelected, this,
            qOverload<const QString&>(&LogBookWidget::uploadRecordsIn));
    connect(m_ui->recordsTable, &QAbstractItemView::doubleClicked, this, [this] {
        // the same rule: a record that is not deleted, in an open workshift with the user in it
        if (isRecordDeletable())
            editRecordRequest();
    });
    connect(m_ui->recordsTable->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex& index) {
                MDRData* record = m_tableTool->recordByIndex(index);
                reloadPanes(record);
                m_dialogs->nameRecord(record);
            });
}

void LogBookWidget::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Delete) {
        // A list with the focus handles the key, even if it has nothing to delete.
        if (!deleteInPanes() && isRecordDeletable())
            deleteRecordRequest();
    }
    if (event->key() == Qt::Key_Home || event->key() == Qt::Key_HomePage)
        uploadRealTimeWorkshift();
    QWidget::keyPressEvent(event);
}

void LogBookWidget::uploadWorkshiftDurationControl()
{
    m_clock->upload(m_module->session());
}

void LogBookWidget::showNotifyWorkshiftLimit()
{
    m_messages->showMsgBox(tr("Предупреждение"),
                           LogText::centered(tr("Превышена допустимая длительность смены.") +
                                             QStringLiteral("<br/>") +
                                             tr("Необходимо провести сдачу/прием смены.")),
                           MessageIconWarning, MessageTypeOk, this, SLOT(closeMsgBox(QAbstractButton*)));
    m_module->CallAttention(tr("Превышена допустимая длительность смены.") + QLatin1Char(' ') +
                                tr("Необходимо провести сдачу/прием смены."),
                            CVrkCliMod::Attention::Shift);
}

void LogBookWidget::closeMsgBox(QAbstractButton* button)
{
    m_messages->isConfirmed(button);
}

QString LogBookWidget::departmentName() const
{
    return HfnWrapper::nameOf(m_module->session()->codec(),
                              m_location->table(QLatin1String(LogbookTable::Departments)),
                              m_location->departmentKey());
}

QString LogBookWidget::title() const
{
    const QString organization = HfnWrapper::nameOf(
        m_module->session()->codec(), m_location->table(QLatin1String(LogbookTable::Organizations)),
        m_location->organizationKey());
    return QStringLiteral("%1, %2").arg(departmentName(), organization);
}

QDateTime LogBookWidget::displayedPeriodStart() const
{
    if (m_shown.mode == ShownJournal::ArchiveInterval)
        return m_shown.intervalStart;
    return m_shown.workshift ? m_module->session()->HfnTimeToSesTime(
                                   Row(m_shown.workshift).value(Field::startTime).value.real)
                             : QDateTime();
}

QDateTime LogBookWidget::displayedPeriodEnd() const
{
    if (m_shown.mode == ShownJournal::ArchiveInterval)
        return m_shown.intervalEnd;
    return m_shown.workshift ? m_module->session()->HfnTimeToSesTime(
                                   Row(m_shown.workshift).value(Field::endTime).value.real)
                             : QDateTime();
}

CModelTable* LogBookWidget::table(const QString& name)
{
    CModelTable* own = m_shown.table(name);
    return own || !m_location ? own : m_location->table(name);
}

QString LogBookWidget::secondMarkCommand() const
{
    return isSecondMarkSettable() ? templateProperty(currentRecord(), "command", m_module->session()->codec())
                                  : QString();
}

QString LogBookWidget::secondMarkIconPath() const
{
    return isSecondMarkSettable()
               ? templateProperty(currentRecord(), "second_mark", m_module->session()->codec())
               : QString();
}

QString LogBookWidget::iconPathToName(const QString& path) const
{
    for (const TemplateMarker& marker : templateMarkers)
        if (marker.icon && path == QLatin1String(marker.icon))
            return QCoreApplication::translate("TemplateMarkers", marker.label);
    return {};
}

QString LogBookWidget::emptyText() const
{
    if (m_loader->hasFailed())
        return tr("Записи не прочитаны: причина названа внизу окна.\nВыберите другой период и вернитесь: они "
                  "будут прочитаны снова.");
    switch (m_shown.mode) {
    case ShownJournal::ArchiveInterval:
        return tr("За это время записей нет");
    case ShownJournal::ArchiveWorkshift:
        return tr("В этой смене записей нет");
    case ShownJournal::RealTime:
        break;
    default:
        return {};
    }
    if (!m_shown.workshift)
        return tr("Открытой смены нет.\nЕё открывает диспетчер подразделения: кнопка «Смена» вверху.");
    return isRecordCreatable() ? tr("В смене ещё нет записей.\nНовая запись: Ctrl + N")
                               : tr("В смене ещё нет записей");
}

void LogBookWidget::updateRecordsFilter()
{
    m_draftsFilter->setEnabled(isHideDraft());
}

/// An interval may begin on any day; the date of a shift is shown above the table.
VrkTableTool::DayLines LogBookWidget::dayLines() const
{
    return m_shown.mode == ShownJournal::ArchiveInterval ? VrkTableTool::DayLinesAll
                                                         : VrkTableTool::DayLinesBetween;
}
