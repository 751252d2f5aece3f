#include "CVrkLogBook.h"

#include "LogBookWidget.h"
#include "ui_CVrkLogBook.h"

#include <QEvent>
#include <QFontMetrics>
#include <QLabel>
#include <QLayout>
#include <QMenu>
#include <QShortcut>
#include <QToolBar>
#include <QToolButton>

namespace
{
QAction* appendAction(QToolButton* button, const QString& name, const QString& text,
                      const QString& icon = QString())
{
    if (!button->menu()) {
        button->setMenu(new QMenu(button));
        button->setPopupMode(QToolButton::MenuButtonPopup);
    }
    QAction* action = button->menu()->addAction(text);
    action->setObjectName(name);
    if (!icon.isEmpty())
        action->setIcon(QIcon(icon));
    return action;
}

QLabel* statusPanel(const QString& name, QWidget* parent)
{
    auto* label = new QLabel(parent);
    label->setObjectName(name);
    label->setAlignment(Qt::AlignCenter);
    label->setMargin(4);
    return label;
}
} // namespace

QToolButton* CVrkLogBook::appendButton(const QString& name, const QString& icon, const QString& toolTip)
{
    auto* button = new QToolButton(m_toolBar);
    button->setObjectName(name);
    button->setIcon(QIcon(icon));
    button->setToolTip(toolTip);
    m_toolBar->addWidget(button);
    return button;
}

void CVrkLogBook::configureToolBar()
{
    m_toolBar = new QToolBar(this);
    m_toolBar->setObjectName(QStringLiteral("toolBar"));
    m_toolBar->setContextMenuPolicy(Qt::NoContextMenu);
    m_toolBar->setFloatable(false);
    m_toolBar->setMovable(false);
    m_toolBar->layout()->setSpacing(6);
    addToolBar(Qt::TopToolBarArea, m_toolBar);

    const QString workshiftIcon = QStringLiteral(":/icons/workshift.png");

    m_timeButton = appendButton(QStringLiteral("timeButton"), QStringLiteral(":/icons/clock.png"),
                                tr("Перейти к текущей смене"));
    m_currentWorkshiftAction =
        appendAction(m_timeButton, QStringLiteral("currentWorkshiftAction"), tr("Текущая смена"));
    m_chooseWorkshiftAction = appendAction(m_timeButton, QStringLiteral("chooseWorkshiftAction"),
                                           tr("Выбрать смену"), workshiftIcon);
    m_chooseIntervalAction = appendAction(m_timeButton, QStringLiteral("chooseIntervalAction"),
                                          tr("Выбрать интервал"), QStringLiteral(":/icons/clock_blue.png"));
    m_intervalLabel = statusPanel(QStringLiteral("intervalLabel"), m_toolBar);
    m_intervalAction = m_toolBar->addWidget(m_intervalLabel);
    m_afterInterval = m_toolBar->addSeparator();

    m_workshiftButton = appendButton(QStringLiteral("workshiftButton"), workshiftIcon, tr("Смена"));
    m_openWorkshiftAction =
        appendAction(m_workshiftButton, QStringLiteral("openWorkshiftAction"), tr("Открыть смену"));
    m_closeWorkshiftAction =
        appendAction(m_workshiftButton, QStringLiteral("closeWorkshiftAction"), tr("Закрыть смену"));
    m_appendWorkerAction = appendAction(m_workshiftButton, QStringLiteral("appendWorkerAction"),
                                        tr("Добавить диспетчера в смену"));
    m_workshiftButton->menu()->addSeparator();
    m_infoWorkshiftAction = appendAction(m_workshiftButton, QStringLiteral("infoWorkshiftAction"),
                                         tr("Информация о смене"), QStringLiteral(":/icons/info.png"));
    m_toolBar->addSeparator();

    m_createButton = appendButton(QStringLiteral("createButton"), QStringLiteral(":/icons/add.png"),
                                  tr("Добавить новую запись") + QStringLiteral(" (Ctrl + N)"));
    m_createButton->setShortcut(Qt::CTRL + Qt::Key_N);
    m_refusalShortcut = new QShortcut(m_createButton->shortcut(), this);
    connect(m_refusalShortcut, &QShortcut::activated, this, &CVrkLogBook::tellCreationRefusal);
    m_deleteButton =
        appendButton(QStringLiteral("deleteButton"), QStringLiteral(":/icons/delete.png"), tr("Удалить"));
    m_deleteRecordAction =
        appendAction(m_deleteButton, QStringLiteral("deleteRecordAction"), tr("Удалить текущую запись"));
    m_deleteMyDraftsAction = appendAction(m_deleteButton, QStringLiteral("deleteMyDraftsAction"),
                                          tr("Удалить мои черновые записи"));
    m_deleteAllDraftsAction = appendAction(m_deleteButton, QStringLiteral("deleteAllDraftsAction"),
                                           tr("Удалить все черновые записи"));
    m_toolBar->addSeparator();

    m_approveButton =
        appendButton(QStringLiteral("approveButton"), QStringLiteral(":/icons/apply.png"), tr("Утвердить"));
    m_approveRecordAction =
        appendAction(m_approveButton, QStringLiteral("approveRecordAction"), tr("Утвердить текущую запись"));
    m_approveMyRecordsAction =
        appendAction(m_approveButton, QStringLiteral("approveMyRecordsAction"), tr("Утвердить мои записи"));
    m_approveAllRecordsAction =
        appendAction(m_approveButton, QStringLiteral("approveAllRecordsAction"), tr("Утвердить все записи"));
    m_signButton = appendButton(QStringLiteral("signButton"), QStringLiteral(":/icons/sign.png"),
                                tr("Поставить визу на текущую запись"));
    m_signRecordAction = appendAction(m_signButton, QStringLiteral("signRecordAction"),
                                      tr("Поставить визу на текущую запись"));
    m_signAllRecordsAction = appendAction(m_signButton, QStringLiteral("signAllRecordsAction"),
                                          tr("Поставить визу на все записи"));
    m_executionButton = appendButton(QStringLiteral("executionButton"),
                                     QStringLiteral(":/icons/hour_glass.png"), tr("Время выполнения..."));
    m_toolBar->addSeparator();

    m_commentsButton = appendButton(QStringLiteral("commentsButton"), QStringLiteral(":/icons/comment.png"),
                                    tr("Комментарии"));
    m_reportButton = appendButton(QStringLiteral("reportButton"), QStringLiteral(":/icons/report.png"),
                                  tr("Отчет...") + QStringLiteral(" (Ctrl + P)"));
    m_reportButton->setShortcut(Qt::CTRL + Qt::Key_P);
    m_toolBar->addSeparator();

    m_searchButton = appendButton(QStringLiteral("searchButton"), QStringLiteral(":/icons/search.png"),
                                  tr("Поиск") + QStringLiteral(" (Ctrl + F)"));
    m_searchButton->setShortcut(Qt::CTRL + Qt::Key_F);
    m_toolBar->addSeparator();

    m_statusLabel = statusPanel(QStringLiteral("statusLabel"), m_toolBar);
    m_statusAction = m_toolBar->addWidget(m_statusLabel);

    m_statusRow = new QToolBar(this);
    m_statusRow->setObjectName(QStringLiteral("statusRow"));
    m_statusRow->setContextMenuPolicy(Qt::NoContextMenu);
    m_statusRow->setMovable(false);
    addToolBarBreak(Qt::TopToolBarArea);
    addToolBar(Qt::TopToolBarArea, m_statusRow);
    m_statusRow->hide();
    placeLabels();
    configurePaneButton();
}

void CVrkLogBook::configurePaneButton()
{
    auto* button = new QToolButton(m_form->logbooks);
    button->setObjectName(QStringLiteral("paneButton"));
    button->setIcon(QIcon(QStringLiteral(":/vrk/pane.png")));
    button->setAutoRaise(true);
    button->setToolTip(tr("Комментарии и файлы записи: показать или скрыть") + QStringLiteral(" (F4)"));
    button->setShortcut(Qt::Key_F4);
    m_form->logbooks->setCornerWidget(button, Qt::TopRightCorner);
    button->show(); // the window may be visible already
    connect(button, &QToolButton::clicked, this, [this] {
        if (LogBookTab* tab = currentTab())
            tab->switchVisiblePanes();
    });
}

void CVrkLogBook::placeLabels()
{
    m_statusLabel->setFont(m_toolBar->font()); // a label with a style sheet keeps its initial font
    const QFontMetrics metrics(m_statusLabel->font());
    m_statusLabel->setFixedWidth(metrics.horizontalAdvance(tr("Смена закрыта, редактирование запрещено")) +
                                 20);
    m_intervalLabel->setFixedWidth(
        metrics.horizontalAdvance(QStringLiteral("WWWWW: 01.01.1970 00:00:00 -01.01.1970 00:00:00")) + 10);

    // The buttons come first; then the interval, then the status, as far as there is space.
    const int spacing = m_toolBar->layout()->spacing();
    const int interval = m_intervalLabel->width() + spacing;
    const int status = m_statusLabel->width() + spacing;
    const QList<QAction*> bar = m_toolBar->actions();
    const int buttons = m_toolBar->sizeHint().width() - (bar.contains(m_intervalAction) ? interval : 0) -
                        (bar.contains(m_statusAction) ? status : 0);
    placeLabel(m_intervalAction, buttons + interval <= width(), m_afterInterval);
    placeLabel(m_statusAction, buttons + interval + status <= width(), nullptr);
    m_statusRow->setVisible(!m_statusRow->actions().isEmpty());
}

void CVrkLogBook::placeLabel(QAction* label, bool inBar, QAction* before)
{
    if (m_toolBar->actions().contains(label) == inBar)
        return;
    (inBar ? m_statusRow : m_toolBar)->removeAction(label);
    if (inBar)
        m_toolBar->insertAction(before, label);
    else // the interval before the status
        m_statusRow->insertAction(m_statusRow->actions().value(0), label);
}

void CVrkLogBook::changeEvent(QEvent* event)
{
    CVrkCliMod::changeEvent(event);
    if (event->type() != QEvent::FontChange || !m_statusLabel)
        return;
    // Widgets with a style sheet keep their initial font until the sheet is set again.
    const QString sheet = m_form->logbooks->styleSheet();
    m_form->logbooks->setStyleSheet(QString());
    m_form->logbooks->setStyleSheet(sheet);
    QMetaObject::invokeMethod(this, &CVrkLogBook::placeLabels, Qt::QueuedConnection); // after the bar has it
}

void CVrkLogBook::resizeEvent(QResizeEvent* event)
{
    CVrkCliMod::resizeEvent(event);
    if (m_statusLabel)
        placeLabels();
}

void CVrkLogBook::createConnections()
{
    connect(m_form->logbooks, &QTabWidget::tabCloseRequested, this, &CVrkLogBook::closeLogbook);
    connect(m_form->logbooks, &QTabWidget::currentChanged, this, &CVrkLogBook::switchingToLogBook);
    connect(m_addButton, &QToolButton::clicked, this, &CVrkLogBook::requestAppendLogbook);

    connect(m_currentWorkshiftAction, &QAction::triggered, this, &CVrkLogBook::comeBackRequest);
    connect(m_timeButton, &QToolButton::clicked, m_currentWorkshiftAction, &QAction::trigger);
    connect(m_workshiftButton, &QToolButton::clicked, this, &CVrkLogBook::workshiftButtonClicked);

    connect(m_openWorkshiftAction, &QAction::triggered, home(), &LogBookWidget::openWorkshiftRequest);
    connect(m_closeWorkshiftAction, &QAction::triggered, home(), &LogBookWidget::closeWorkshiftRequest);
    connect(m_appendWorkerAction, &QAction::triggered, home(), &LogBookWidget::appendWorkerRequest);
    connect(m_executionButton, &QToolButton::clicked, home(), &LogBookWidget::changeTimeExecRequest);
    const auto ofCurrent = [this](QAction* action, void (LogBookWidget::*request)()) {
        connect(action, &QAction::triggered, this, [this, request] {
            if (LogBookWidget* logbook = currentLogBook())
                (logbook->*request)();
        });
    };
    ofCurrent(m_chooseIntervalAction, &LogBookWidget::showDateTimeDialog);
    ofCurrent(m_chooseWorkshiftAction, &LogBookWidget::showWorkshiftsDialog);
    ofCurrent(m_infoWorkshiftAction, &LogBookWidget::showWorkshiftInfoDialog);
    connect(m_createButton, &QToolButton::clicked, home(), &LogBookWidget::createRecordRequest);
    connect(m_deleteRecordAction, &QAction::triggered, home(), &LogBookWidget::deleteRecordRequest);
    connect(m_deleteMyDraftsAction, &QAction::triggered, home(), &LogBookWidget::deleteMyDraftsRequest);
    connect(m_deleteAllDraftsAction, &QAction::triggered, home(), &LogBookWidget::deleteAllDraftsRequest);
    connect(m_approveRecordAction, &QAction::triggered, home(), &LogBookWidget::approveRecordRequest);
    connect(m_approveMyRecordsAction, &QAction::triggered, home(), &LogBookWidget::approveMyRecordsRequest);
    connect(m_approveAllRecordsAction, &QAction::triggered, home(), &LogBookWidget::approveAllRecordsRequest);

    // A disabled action does not trigger: QAction itself checks "if it is enabled".
    connect(m_deleteButton, &QToolButton::clicked, m_deleteRecordAction, &QAction::trigger);
    connect(m_approveButton, &QToolButton::clicked, m_approveRecordAction, &QAction::trigger);
    connect(m_signButton, &QToolButton::clicked, m_signRecordAction, &QAction::trigger);

    connect(m_reportButton, &QToolButton::clicked, this, [this] {
        if (LogBookWidget* logbook = currentLogBook())
            logbook->showReportDialog();
    });
    connect(m_commentsButton, &QToolButton::clicked, this, &CVrkLogBook::commentsRequest);
    connect(m_searchButton, &QToolButton::clicked, this, [this] {
        if (LogBookTab* tab = currentTab())
            tab->switchVisibleSearch();
    });
}

void CVrkLogBook::comeBackRequest()
{
    if (LogBookWidget* logbook = currentLogBook())
        logbook->uploadRealTimeWorkshift();
}

void CVrkLogBook::workshiftButtonClicked()
{
    for (QAction* action : {m_openWorkshiftAction, m_closeWorkshiftAction, m_infoWorkshiftAction}) {
        if (action->isEnabled()) {
            action->trigger();
            return;
        }
    }
}
