#include "CVrkLogBook.h"
#include "LogBookToolBar.h"
#include "LogBookWidget.h"
#include "ui_CVrkLogBook.h"

#include <QEvent>
#include <QShortcut>
#include <QToolButton>

void CVrkLogBook::configureToolBar()
{
    m_toolBar = new LogBookToolBar(
        home(), [this] { return currentLogBook(); }, this);
    addToolBar(Qt::TopToolBarArea, m_toolBar);
    addToolBarBreak(Qt::TopToolBarArea);
    addToolBar(Qt::TopToolBarArea, m_toolBar->statusRow());
    m_toolBar->statusRow()->hide();
    m_toolBar->placeLabels(width());
    m_refusalShortcut = new QShortcut(m_toolBar->button("createButton")->shortcut(), this);
    connect(m_refusalShortcut, &QShortcut::activated, this, &CVrkLogBook::tellCreationRefusal);
    configurePinnedKeys();
    configurePaneButton();
}

void CVrkLogBook::configurePinnedKeys()
{
    for (int number = 1; number <= 9; ++number) {
        const auto* key = new QShortcut(Qt::ALT | Qt::Key(Qt::Key_0 + number), this);
        connect(key, &QShortcut::activated, this, [this, number] {
            if (m_toolBar->button("createButton")->isEnabled())
                home()->writePinnedRequest(number);
            else
                tellCreationRefusal();
        });
    }
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

void CVrkLogBook::changeEvent(QEvent* event)
{
    CVrkCliMod::changeEvent(event);
    if (event->type() != QEvent::FontChange || !m_toolBar)
        return;
    // Widgets with a style sheet keep their initial font until the sheet is set again.
    const QString sheet = m_form->logbooks->styleSheet();
    m_form->logbooks->setStyleSheet(QString());
    m_form->logbooks->setStyleSheet(sheet);
    QMetaObject::invokeMethod(
        m_toolBar, [this] { m_toolBar->placeLabels(width()); }, Qt::QueuedConnection); // after the bar has it
}

void CVrkLogBook::resizeEvent(QResizeEvent* event)
{
    CVrkCliMod::resizeEvent(event);
    if (m_toolBar)
        m_toolBar->placeLabels(width());
}

void CVrkLogBook::createConnections()
{
    connect(m_form->logbooks, &QTabWidget::tabCloseRequested, this, &CVrkLogBook::closeLogbook);
    connect(m_form->logbooks, &QTabWidget::currentChanged, this, &CVrkLogBook::switchingToLogBook);
    connect(m_addButton, &QToolButton::clicked, this, &CVrkLogBook::requestAppendLogbook);
    connect(m_toolBar->button("commentsButton"), &QToolButton::clicked, this, &CVrkLogBook::commentsRequest);
    connect(m_toolBar->button("searchButton"), &QToolButton::clicked, this, [this] {
        if (LogBookTab* tab = currentTab())
            tab->switchVisibleSearch();
    });
}
