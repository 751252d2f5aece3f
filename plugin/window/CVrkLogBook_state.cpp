#include "CVrkLogBook.h"

#include "LogBookWidget.h"

#include <QAction>
#include <QDateTime>
#include <QLabel>
#include <QShortcut>
#include <QToolButton>

namespace
{
const char* const viewingColor = "#169CBA";
const char* const closedColor = "#F7351B";
const char* const editableColor = "#63D945";
} // namespace

void CVrkLogBook::updateActionsOpenWorkshift(LogBookWidget* logbook)
{
    m_openWorkshiftAction->setEnabled(logbook == home() && logbook->mode() == 1 &&
                                      !logbook->isOpenWorkshift());
}

void CVrkLogBook::updateActionsCloseWorkshift(LogBookWidget* logbook)
{
    m_closeWorkshiftAction->setEnabled(logbook == home() && logbook->mode() == 1 &&
                                       logbook->isOpenWorkshift());
}

void CVrkLogBook::updateActionsInfoWorkshift(LogBookWidget* logbook)
{
    m_infoWorkshiftAction->setEnabled((logbook->mode() == 1 || logbook->mode() == 3) &&
                                      !logbook->workshiftKeyLink().isEmpty());
}

void CVrkLogBook::updateActionsAppendWorker(LogBookWidget* logbook)
{
    m_appendWorkerAction->setEnabled(logbook == home() && logbook->mode() == 1 &&
                                     logbook->isOpenWorkshift() && logbook->isWorkerInWorkshift());
}

void CVrkLogBook::updateActionCreateRecord(LogBookWidget* logbook)
{
    m_createButton->setEnabled(logbook == home() && logbook->isRecordCreatable());
    updateCreationRefusal();
}

QString CVrkLogBook::creationRefusal(const LogBookTab* tab) const
{
    const auto* logbook = qobject_cast<const LogBookWidget*>(tab);
    if (logbook != home())
        return tr("Записи создаются в журнале своего подразделения: это вкладка с домиком.");
    if (logbook->mode() == 0)
        return tr("Журнал не загружен.");
    if (logbook->mode() != 1)
        return tr("Показаны прошлые записи. Новые пишутся в текущую смену: к ней ведёт клавиша Home.");
    if (!logbook->isOpenWorkshift())
        return tr("Смена закрыта. Записи пишутся в открытую смену: её открывает кнопка «Смена».");
    if (!logbook->isWorkerInWorkshift())
        return tr(
            "Вас нет в составе этой смены. Добавить вас может любой, кто в ней состоит: кнопка «Смена», "
            "«Добавить диспетчера в смену».");
    return {};
}

void CVrkLogBook::updateCreationRefusal()
{
    m_refusalShortcut->setEnabled(!m_createButton->isEnabled());
    m_statusLabel->setToolTip(creationRefusal(currentTab()));
}

void CVrkLogBook::tellCreationRefusal()
{
    const QString refusal = creationRefusal(currentTab());
    if (!refusal.isEmpty())
        showMessage(tr("Новая запись"), refusal, MessageIconInformation);
}

void CVrkLogBook::updateActionDeleteRecord(LogBookWidget* logbook)
{
    m_deleteButton->setEnabled(false);
    if (logbook != home()) // deliberate: the actions keep their state of the home tab
        return;
    m_deleteRecordAction->setEnabled(logbook->isRecordDeletable());
    m_deleteMyDraftsAction->setEnabled(logbook->isExistMyDrafts());
    m_deleteAllDraftsAction->setEnabled(logbook->isExistDrafts());
    m_deleteButton->setEnabled(m_deleteRecordAction->isEnabled() || m_deleteMyDraftsAction->isEnabled() ||
                               m_deleteAllDraftsAction->isEnabled());
}

void CVrkLogBook::updateActionApproveRecord(LogBookWidget* logbook)
{
    m_approveButton->setEnabled(false);
    if (logbook != home())
        return;
    m_approveRecordAction->setEnabled(logbook->isRecordDraft());
    m_approveMyRecordsAction->setEnabled(logbook->isExistMyDrafts());
    m_approveAllRecordsAction->setEnabled(logbook->isExistDrafts());
    m_approveButton->setEnabled(m_approveRecordAction->isEnabled() || m_approveMyRecordsAction->isEnabled() ||
                                m_approveAllRecordsAction->isEnabled());
}

void CVrkLogBook::updateActionSignRecord(LogBookWidget* logbook)
{
    m_signRecordAction->setEnabled(logbook->isRecordSignable());
    m_signAllRecordsAction->setEnabled(logbook->isExistNoSign());
    m_signButton->setEnabled(m_signRecordAction->isEnabled() || m_signAllRecordsAction->isEnabled());
}

void CVrkLogBook::updateActionTimeExec(LogBookWidget* logbook)
{
    m_executionButton->setEnabled(logbook == home() && logbook->isTimeExecutionChangable());
}

void CVrkLogBook::updateControlsState(LogBookWidget* logbook)
{
    updateActionsOpenWorkshift(logbook);
    updateActionsCloseWorkshift(logbook);
    updateActionsInfoWorkshift(logbook);
    updateActionsAppendWorker(logbook);
    updateActionCreateRecord(logbook);
    updateActionDeleteRecord(logbook);
    updateActionApproveRecord(logbook);
    updateActionSignRecord(logbook);
    updateActionTimeExec(logbook);
    m_workshiftButton->setEnabled(m_openWorkshiftAction->isEnabled() || m_closeWorkshiftAction->isEnabled() ||
                                  m_appendWorkerAction->isEnabled() || m_infoWorkshiftAction->isEnabled());
}

void CVrkLogBook::updateStatusWorkshift(LogBookTab* tab)
{
    m_statusLabel->clear();
    QString text;
    QString color = QLatin1String(viewingColor);
    const auto* logbook = qobject_cast<LogBookWidget*>(tab);
    if (!logbook) {
        text = tr("Просмотр комментариев");
    } else if (logbook->mode() == 2) {
        text = tr("Просмотр архива записей");
    } else if (logbook->mode() == 3) {
        text = tr("Просмотр записей смены");
    } else if (logbook->mode() != 1) {
        color = QLatin1String(closedColor);
    } else if (logbook->isCloseWorkshift()) {
        text = tr("Смена закрыта");
        color = QLatin1String(closedColor);
    } else if (logbook == home() && logbook->isEditableWorkshift()) {
        text = tr("Смена открыта") + QStringLiteral(", ") + tr("редактирование разрешено");
        color = QLatin1String(editableColor);
    } else {
        text = tr("Смена открыта") + QStringLiteral(", ") + tr("редактирование запрещено");
    }
    m_statusLabel->setText(text);
    m_statusLabel->setStyleSheet(
        QStringLiteral("border: 2px solid %1; border-radius: 3px; border-style: inset;").arg(color));
}

void CVrkLogBook::updateIntervalWorkshift(LogBookWidget* logbook)
{
    m_intervalLabel->clear();
    if (logbook->mode() == 1 && !logbook->currentWorkshift())
        return;
    const QString format = QStringLiteral("dd.MM.yyyy hh:mm");
    const QString period = QStringLiteral("%1 - %2").arg(logbook->displayedPeriodStart().toString(format),
                                                         logbook->displayedPeriodEnd().toString(format));
    const bool workshift = logbook->mode() == 1 || logbook->mode() == 3;
    m_intervalLabel->setText((workshift ? tr("Смена: %1") : tr("Время: %1")).arg(period));
}

void CVrkLogBook::updateLogBookState(LogBookWidget* logbook)
{
    updateStatusWorkshift(logbook);
    updateIntervalWorkshift(logbook);
    updateControlsState(logbook);
}

void CVrkLogBook::disableToolBar()
{
    m_intervalLabel->clear();
    m_statusLabel->clear();
    for (QToolButton* button : {m_timeButton, m_workshiftButton, m_createButton, m_deleteButton,
                                m_approveButton, m_signButton, m_reportButton})
        button->setEnabled(false);
    updateCreationRefusal();
}
