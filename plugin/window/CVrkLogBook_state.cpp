#include "CVrkLogBook.h"

#include "LogBookToolBar.h"
#include "LogBookWidget.h"

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

QString CVrkLogBook::creationRefusal(const LogBookTab* tab) const
{
    const auto* logbook = qobject_cast<const LogBookWidget*>(tab);
    if (logbook != home())
        return tr("Записи создаются в журнале своего подразделения: это вкладка с домиком.");
    if (logbook->mode() == ShownJournal::NothingLoaded)
        return tr("Журнал не загружен.");
    if (logbook->mode() != ShownJournal::RealTime)
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
    m_refusalShortcut->setEnabled(!m_toolBar->button("createButton")->isEnabled());
    m_toolBar->statusLabel()->setToolTip(creationRefusal(currentTab()));
}

void CVrkLogBook::tellCreationRefusal()
{
    const QString refusal = creationRefusal(currentTab());
    if (!refusal.isEmpty())
        showMessage(tr("Новая запись"), refusal, MessageIconInformation);
}

void CVrkLogBook::updateControlsState(LogBookWidget* logbook)
{
    m_toolBar->updateControls(*logbook);
    updateCreationRefusal();
}

void CVrkLogBook::updateStatusWorkshift(LogBookTab* tab)
{
    QString text;
    QString color = QLatin1String(viewingColor);
    const auto* logbook = qobject_cast<LogBookWidget*>(tab);
    if (!logbook) {
        text = tr("Просмотр комментариев");
    } else if (logbook->mode() == ShownJournal::ArchiveInterval) {
        text = tr("Просмотр архива записей");
    } else if (logbook->mode() == ShownJournal::ArchiveWorkshift) {
        text = tr("Просмотр записей смены");
    } else if (logbook->mode() != ShownJournal::RealTime) {
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
    m_toolBar->statusLabel()->setText(text);
    m_toolBar->statusLabel()->setStyleSheet(
        QStringLiteral("border: 2px solid %1; border-radius: 3px; border-style: inset;").arg(color));
}

void CVrkLogBook::updateIntervalWorkshift(LogBookWidget* logbook)
{
    m_toolBar->intervalLabel()->clear();
    if (logbook->mode() == ShownJournal::RealTime && !logbook->currentWorkshift())
        return;
    const QString format = QStringLiteral("dd.MM.yyyy hh:mm");
    const QString period = QStringLiteral("%1 - %2").arg(logbook->displayedPeriodStart().toString(format),
                                                         logbook->displayedPeriodEnd().toString(format));
    const bool isShift = logbook->isSelectedWorkshift();
    m_toolBar->intervalLabel()->setText((isShift ? tr("Смена: %1") : tr("Время: %1")).arg(period));
}

void CVrkLogBook::updateLogBookState(LogBookWidget* logbook)
{
    updateStatusWorkshift(logbook);
    updateIntervalWorkshift(logbook);
    updateControlsState(logbook);
}

void CVrkLogBook::disableToolBar()
{
    m_toolBar->disable();
    updateCreationRefusal();
}
