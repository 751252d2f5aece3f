#include "LogBookToolBar.h"

#include "LogBookWidget.h"
#include "RecordKeys.h"

#include <QFontMetrics>
#include <QLabel>
#include <QLayout>
#include <QMenu>
#include <QShortcut>
#include <QToolButton>

namespace
{
enum Kind {
    Button,     ///< a click carries out its request, or triggers its first entry if that is enabled
    NextButton, ///< a click triggers its first enabled entry
    Entry,      ///< of the button above
    MenuLine,
    Line
};
/// On which pages an item acts.
enum Where {
    Current,
    Home,      ///< disabled on other pages
    HomeKept,  ///< deliberate: on other pages the entries keep their state, only their button is disabled
    HomeStays, ///< deliberate: on a page that is no journal the button keeps its state
};
using Page = const LogBookWidget&;

bool isAlways(Page)
{
    return true;
}

QLabel* statusPanel(const char* name, QWidget* parent)
{
    auto* label = new QLabel(parent);
    label->setObjectName(QLatin1String(name));
    label->setAlignment(Qt::AlignCenter);
    label->setMargin(4);
    return label;
}
} // namespace

struct LogBookToolBar::Item {
    Kind kind;
    const char* name = nullptr;
    const char* text = nullptr; ///< of a button: its tool tip
    const char* icon = nullptr;
    Where where = Current;
    bool (*isEnabled)(Page page) = nullptr;     ///< null: never changes
    void (LogBookWidget::*request)() = nullptr; ///< null: connected by the window
    char key = 0;                               ///< with Ctrl; the tool tip has it
    /// Another key, of an entry or of a button's first enabled entry.
    const char* keys = nullptr;
    bool isKeyElsewhere = false; ///< the page handles this key
};

const LogBookToolBar::Item LogBookToolBar::items[] = {
    {Button, "timeButton", QT_TR_NOOP("Перейти к текущей смене"), ":/icons/clock.png", Current, isAlways,
     nullptr, 0, "Home", true},
    {Entry, "currentWorkshiftAction", QT_TR_NOOP("Текущая смена"), nullptr, Current, isAlways,
     &LogBookWidget::uploadRealTimeWorkshift},
    {Entry, "chooseWorkshiftAction", QT_TR_NOOP("Выбрать смену"), ":/icons/workshift.png", Current, nullptr,
     &LogBookWidget::showWorkshiftsDialog, 0, "Ctrl+J"},
    {Entry, "chooseIntervalAction", QT_TR_NOOP("Выбрать интервал"), ":/icons/clock_blue.png", Current,
     nullptr, &LogBookWidget::showDateTimeDialog, 0, "Ctrl+I"},
    {NextButton, "workshiftButton", QT_TR_NOOP("Смена"), ":/icons/workshift.png", Current, isAlways, nullptr,
     0, "Ctrl+Shift+S"},
    {Entry, "openWorkshiftAction", QT_TR_NOOP("Открыть смену"), nullptr, Home,
     [](Page page) { return page.mode() == ShownJournal::RealTime && !page.isOpenWorkshift(); },
     &LogBookWidget::openWorkshiftRequest},
    {Entry, "closeWorkshiftAction", QT_TR_NOOP("Закрыть смену"), nullptr, Home,
     [](Page page) { return page.mode() == ShownJournal::RealTime && page.isOpenWorkshift(); },
     &LogBookWidget::closeWorkshiftRequest},
    {Entry, "appendWorkerAction", QT_TR_NOOP("Добавить диспетчера в смену"), nullptr, Home,
     [](Page page) { return page.isEditableWorkshift(); }, &LogBookWidget::appendWorkerRequest, 0,
     "Ctrl+Shift+W"},
    {MenuLine},
    {Entry, "infoWorkshiftAction", QT_TR_NOOP("Информация о смене"), ":/icons/info.png", Current,
     [](Page page) { return page.isSelectedWorkshift() && !page.workshiftKeyLink().isEmpty(); },
     &LogBookWidget::showWorkshiftInfoDialog, 0, "Ctrl+Shift+I"},
    {Line},
    {Button, "createButton", QT_TR_NOOP("Добавить новую запись"), ":/icons/add.png", Home,
     [](Page page) { return page.isRecordCreatable(); }, &LogBookWidget::createRecordRequest, 'N'},
    {Button, "deleteButton", QT_TR_NOOP("Удалить"), ":/icons/delete.png", HomeKept, isAlways, nullptr, 0,
     "Del", true},
    {Entry, "deleteRecordAction", QT_TR_NOOP("Удалить текущую запись"), nullptr, HomeKept,
     [](Page page) { return page.isRecordDeletable(); }, &LogBookWidget::deleteRecordRequest},
    {Entry, "deleteMyDraftsAction", QT_TR_NOOP("Удалить мои черновые записи"), nullptr, HomeKept,
     [](Page page) { return page.isExistMyDrafts(); }, &LogBookWidget::deleteMyDraftsRequest},
    {Entry, "deleteAllDraftsAction", QT_TR_NOOP("Удалить все черновые записи"), nullptr, HomeKept,
     [](Page page) { return page.isExistDrafts(); }, &LogBookWidget::deleteAllDraftsRequest},
    {Line},
    {Button, "approveButton", QT_TR_NOOP("Утвердить"), ":/icons/apply.png", HomeKept, isAlways, nullptr, 0,
     RecordKey::approve, true},
    {Entry, "approveRecordAction", QT_TR_NOOP("Утвердить текущую запись"), nullptr, HomeKept,
     [](Page page) { return page.isRecordDraft(); }, &LogBookWidget::approveRecordRequest},
    {Entry, "approveMyRecordsAction", QT_TR_NOOP("Утвердить мои записи"), nullptr, HomeKept,
     [](Page page) { return page.isExistMyDrafts(); }, &LogBookWidget::approveMyRecordsRequest},
    {Entry, "approveAllRecordsAction", QT_TR_NOOP("Утвердить все записи"), nullptr, HomeKept,
     [](Page page) { return page.isExistDrafts(); }, &LogBookWidget::approveAllRecordsRequest},
    {Button, "signButton", QT_TR_NOOP("Поставить визу на текущую запись"), ":/icons/sign.png", Current,
     isAlways, nullptr, 0, RecordKey::visa, true},
    {Entry, "signRecordAction", QT_TR_NOOP("Поставить визу на текущую запись"), nullptr, Current,
     [](Page page) { return page.isRecordSignable(); }},
    {Entry, "signAllRecordsAction", QT_TR_NOOP("Поставить визу на все записи"), nullptr, Current,
     [](Page page) { return page.isExistNoSign(); }},
    {Button, "executionButton", QT_TR_NOOP("Время выполнения..."), ":/icons/hour_glass.png", HomeStays,
     [](Page page) { return page.isTimeExecutionChangable(); }, &LogBookWidget::changeTimeExecRequest, 0,
     RecordKey::execution, true},
    {Line},
    {Button, "commentsButton", QT_TR_NOOP("Комментарии"), ":/icons/comment.png", Current, nullptr, nullptr, 0,
     "Ctrl+M"},
    {Button, "reportButton", QT_TR_NOOP("Отчет..."), ":/icons/report.png", Current, isAlways,
     &LogBookWidget::showReportDialog, 'P'},
    {Line},
    {Button, "searchButton", QT_TR_NOOP("Поиск"), ":/icons/search.png", Current, nullptr, nullptr, 'F'},
    {Line},
};

LogBookToolBar::LogBookToolBar(LogBookWidget* home, std::function<LogBookWidget*()> current, QWidget* window)
    : QToolBar(window),
      m_home(home),
      m_current(std::move(current)),
      m_statusRow(new QToolBar(window)),
      m_intervalLabel(statusPanel("intervalLabel", this)),
      m_statusLabel(statusPanel("statusLabel", this))
{
    setObjectName(QStringLiteral("toolBar"));
    m_statusRow->setObjectName(QStringLiteral("statusRow"));
    for (QToolBar* bar : {static_cast<QToolBar*>(this), m_statusRow}) {
        bar->setContextMenuPolicy(Qt::NoContextMenu);
        bar->setMovable(false);
    }
    setFloatable(false);
    layout()->setSpacing(6);
    m_statusRow->hide();

    for (const Item& item : items)
        append(item);
    // The interval follows the first button, which chooses it.
    m_afterInterval = insertSeparator(actions().at(1));
    m_intervalAction = insertWidget(m_afterInterval, m_intervalLabel);
    m_statusAction = addWidget(m_statusLabel);
}

void LogBookToolBar::append(const Item& item)
{
    QToolButton* const button = m_items.isEmpty() ? nullptr : m_items.last().button;
    switch (item.kind) {
    case Button:
    case NextButton:
        m_items.append({newButton(item), nullptr});
        return;
    case Entry:
        m_items.append({button, newEntry(item, button)});
        return;
    case MenuLine:
        m_items.append({button, button->menu()->addSeparator()});
        return;
    case Line:
        m_items.append({nullptr, addSeparator()});
        return;
    }
}

QToolButton* LogBookToolBar::newButton(const Item& item)
{
    auto* button = new QToolButton(this);
    button->setObjectName(QLatin1String(item.name));
    button->setIcon(QIcon(QLatin1String(item.icon)));
    button->setToolTip(tr(item.text));
    if (item.key) {
        button->setShortcut(Qt::CTRL | Qt::Key(item.key));
        button->setToolTip(button->toolTip() + QStringLiteral(" (Ctrl + %1)").arg(QLatin1Char(item.key)));
    }
    if (item.keys)
        button->setProperty(RecordKey::property, QString::fromLatin1(item.keys));
    if (item.keys && !item.isKeyElsewhere) {
        const auto* shortcut = new QShortcut(QKeySequence(QLatin1String(item.keys)), this);
        connect(shortcut, &QShortcut::activated, button, &QAbstractButton::click);
    }
    addWidget(button);
    connect(button, &QToolButton::clicked, this, [this, button, &item] {
        if (item.request)
            request(item);
        else if (button->menu())
            triggerEntry(button, item.kind == NextButton);
    });
    return button;
}

QAction* LogBookToolBar::newEntry(const Item& item, QToolButton* button)
{
    if (!button->menu()) {
        button->setMenu(new QMenu(button));
        button->setPopupMode(QToolButton::MenuButtonPopup);
    }
    QAction* entry = button->menu()->addAction(tr(item.text));
    entry->setObjectName(QLatin1String(item.name));
    if (item.keys)
        entry->setShortcut(QKeySequence(QLatin1String(item.keys)));
    if (item.icon)
        entry->setIcon(QIcon(QLatin1String(item.icon)));
    if (item.request)
        connect(entry, &QAction::triggered, this, [this, &item] { request(item); });
    return entry;
}

void LogBookToolBar::triggerEntry(const QToolButton* button, bool isNext)
{
    for (QAction* entry : button->menu()->actions()) {
        if (entry->isEnabled() && !entry->isSeparator()) {
            entry->trigger();
            return;
        }
        if (!isNext)
            return;
    }
}

void LogBookToolBar::request(const Item& item)
{
    if (LogBookWidget* page = item.where == Current ? m_current() : m_home)
        (page->*item.request)();
}

void LogBookToolBar::updateControls(const LogBookWidget& page)
{
    const bool isHome = &page == m_home;
    bool isAnyEntry = false; // of the button that comes next: upwards
    for (int i = m_items.size() - 1; i >= 0; --i) {
        const Item& item = items[i];
        if (!item.isEnabled)
            continue;
        const bool isAllowed = (isHome || item.where == Current) && item.isEnabled(page);
        if (QAction* entry = m_items[i].entry) {
            if (isHome || item.where != HomeKept)
                entry->setEnabled(isAllowed);
            isAnyEntry = isAnyEntry || entry->isEnabled();
        } else {
            m_items[i].button->setEnabled(isAllowed && (isAnyEntry || item.request));
            isAnyEntry = false;
        }
    }
}

void LogBookToolBar::disable()
{
    m_intervalLabel->clear();
    m_statusLabel->clear();
    for (int i = 0; i < m_items.size(); ++i)
        if (!m_items[i].entry && items[i].isEnabled && items[i].where != HomeStays)
            m_items[i].button->setEnabled(false);
}

QAction* LogBookToolBar::action(const char* name) const
{
    return findChild<QAction*>(QLatin1String(name));
}

QToolButton* LogBookToolBar::button(const char* name) const
{
    return findChild<QToolButton*>(QLatin1String(name));
}

void LogBookToolBar::placeLabels(int width)
{
    m_statusLabel->setFont(font()); // a label with a style sheet keeps its initial font
    const QFontMetrics metrics(m_statusLabel->font());
    m_statusLabel->setFixedWidth(metrics.horizontalAdvance(tr("Смена закрыта, редактирование запрещено")) +
                                 20);
    m_intervalLabel->setFixedWidth(
        metrics.horizontalAdvance(QStringLiteral("WWWWW: 01.01.1970 00:00:00 -01.01.1970 00:00:00")) + 10);

    const int spacing = layout()->spacing();
    const int interval = m_intervalLabel->width() + spacing;
    const int status = m_statusLabel->width() + spacing;
    const QList<QAction*> bar = actions();
    const int buttonsWidth = sizeHint().width() - (bar.contains(m_intervalAction) ? interval : 0) -
                             (bar.contains(m_statusAction) ? status : 0);
    placeLabel(m_intervalAction, buttonsWidth + interval <= width, m_afterInterval);
    placeLabel(m_statusAction, buttonsWidth + interval + status <= width, nullptr);
    m_statusRow->setVisible(!m_statusRow->actions().isEmpty());
}

void LogBookToolBar::placeLabel(QAction* label, bool inBar, QAction* before)
{
    if (actions().contains(label) == inBar)
        return;
    (inBar ? m_statusRow : this)->removeAction(label);
    if (inBar)
        insertAction(before, label);
    else // the interval before the status
        m_statusRow->insertAction(m_statusRow->actions().value(0), label);
}
