#include "CVrkLogBook.h"

#include "CModelTable.h"
#include "CommentInbox.h"
#include "CommentsWidget.h"
#include "LocationInfo.h"
#include "LogBookToolBar.h"
#include "LogBookWidget.h"
#include "OrgStructDialog.h"
#include "OrgStructWidget.h"
#include "ShownText.h"
#include "ui_CVrkLogBook.h"

#include <QAction>
#include <QTabBar>
#include <QToolButton>

namespace
{
/// Type of the department items of the organisation structure.
constexpr int departmentType = 4;
} // namespace

void CVrkLogBook::configureAddButton()
{
    m_addButton = new QToolButton(m_form->logbooks);
    m_addButton->setObjectName(QStringLiteral("addButton"));
    m_addButton->setIcon(QIcon(QStringLiteral(":/icons/add_blue.png")));
    m_addButton->setIconSize(QSize(25, 24));
    m_addButton->setToolTip(tr("Добавить журнал подразделения"));
    m_addButton->setStyleSheet(QStringLiteral("QToolButton {border: none; background-color: transparent;}"));

    m_form->logbooks->setMovable(true);
    m_form->logbooks->setTabsClosable(true);
    m_form->logbooks->setStyleSheet(QStringLiteral("QTabBar::tab { height: 27px; }"));
    m_form->logbooks->setCornerWidget(m_addButton, Qt::TopLeftCorner);
}

void CVrkLogBook::configureTabBar()
{
    m_form->logbooks->setTabText(0, ShownText::entry(home()->title()));
    m_form->logbooks->setTabIcon(0, QIcon(QStringLiteral(":/icons/home.png")));
    for (QTabBar::ButtonPosition side : {QTabBar::LeftSide, QTabBar::RightSide})
        m_form->logbooks->tabBar()->setTabButton(0, side, nullptr);
    switchingToLogBook(0);
}

void CVrkLogBook::createDialogs()
{
    m_orgStructDialog = new OrgStructDialog(this, -1);
    m_orgStructDialog->setObjectName(QStringLiteral("departmentDialog")); // the tabs have their own
    m_orgStructDialog->widget()->init(this);
}

void CVrkLogBook::requestAppendLogbook()
{
    // A cancelled choice leaves its connection, which would also receive the next choice.
    disconnect(m_orgStructDialog, &OrgStructDialog::itemSelected, this, nullptr);
    connect(m_orgStructDialog, &OrgStructDialog::itemSelected, this,
            [this](const OrgStruct::SelectedItem& item) {
                disconnect(m_orgStructDialog, &OrgStructDialog::itemSelected, this, nullptr);
                if (item.type == departmentType)
                    appendLogbook(item.organizationKey, item.departmentKey);
            });
    m_orgStructDialog->widget()->setSelectionType(departmentType);
    m_orgStructDialog->widget()->setSelectionMode(QAbstractItemView::SingleSelection);
    m_orgStructDialog->show();
}

void CVrkLogBook::appendLogbook(const QString& organizationKey, const QString& departmentKey)
{
    for (int i = 0; i < m_form->logbooks->count(); ++i) {
        auto* logbook = qobject_cast<LogBookWidget*>(m_form->logbooks->widget(i));
        if (logbook && logbook->location()->organizationKey() == organizationKey &&
            logbook->location()->departmentKey() == departmentKey) {
            m_form->logbooks->setCurrentWidget(logbook);
            return;
        }
    }

    auto* logbook = new LogBookWidget(this);
    auto* location = new LocationInfo(logbook);
    location->setWorkersTable(m_workers);
    location->setDepartmentsTable(m_departments);
    location->setOrganizationsTable(m_organizations);
    location->setWorkerKey(home()->location()->workerKey());
    location->setOrganizationKey(organizationKey);
    location->setDepartmentKey(departmentKey);
    location->printInfo();
    logbook->init(this, location);

    const int index =
        m_form->logbooks->insertTab(m_form->logbooks->count(), logbook, ShownText::entry(logbook->title()));
    m_form->logbooks->setCurrentIndex(index);
}

void CVrkLogBook::commentsRequest()
{
    for (int i = 0; i < m_form->logbooks->count(); ++i) {
        if (qobject_cast<CommentsWidget*>(m_form->logbooks->widget(i))) {
            m_form->logbooks->setCurrentIndex(i);
            return;
        }
    }

    auto* comments = new CommentsWidget(this);
    connect(comments, &CommentsWidget::titleChanged, this, &CVrkLogBook::updateTitleComments);
    auto* location = new LocationInfo(comments);
    location->setWorkersTable(m_workers);
    location->setDepartmentsTable(m_departments);
    location->setOrganizationsTable(m_organizations);
    location->setWorkerKey(home()->location()->workerKey());
    location->setOrganizationKey(home()->location()->organizationKey());
    location->setDepartmentKey(home()->location()->departmentKey());
    comments->init(this, location);

    const int index = m_form->logbooks->insertTab(m_form->logbooks->count(), comments,
                                                  QIcon(QStringLiteral(":/icons/comment.png")),
                                                  ShownText::entry(comments->title()));
    m_form->logbooks->setCurrentIndex(index);
}

/// The host shows the number of unread comments even if the tab of comments is not open.
void CVrkLogBook::createInbox()
{
    m_inbox = new CommentInbox(this, m_location, this);
    connect(m_inbox, &CommentInbox::countChanged, this, &CVrkCliMod::SetUnreadComments);
    connect(m_inbox, &CommentInbox::arrived, this,
            [this](const QString& text) { CallAttention(text, Attention::Comment); });
    connect(this, &CVrkCliMod::unreadCommentsRequested, this, &CVrkLogBook::commentsRequest);
    m_inbox->upload();
}

void CVrkLogBook::updateTitleComments()
{
    for (int i = 0; i < m_form->logbooks->count(); ++i)
        if (auto* comments = qobject_cast<CommentsWidget*>(m_form->logbooks->widget(i)))
            m_form->logbooks->setTabText(i, ShownText::entry(comments->title()));
}

void CVrkLogBook::closeLogbook(int index)
{
    QWidget* tab = m_form->logbooks->widget(index);
    if (!tab || tab == home())
        return;
    m_form->logbooks->removeTab(index);
    delete tab;
}

void CVrkLogBook::switchingToLogBook(int index)
{
    // Deliberate: nothing is connected in this direction, so nothing is disconnected here. The connections
    // of tabs visited earlier stay, and a visa reaches all of them.
    QAction* const sign = m_toolBar->action("signRecordAction");
    QAction* const signAll = m_toolBar->action("signAllRecordsAction");
    for (QAction* action : {sign, signAll})
        QObject::disconnect(this, nullptr, action, nullptr);
    for (int i = 0; i < m_form->logbooks->count(); ++i) {
        if (auto* other = qobject_cast<LogBookWidget*>(m_form->logbooks->widget(i)))
            QObject::disconnect(this, nullptr, other, nullptr);
    }

    auto* logbook = qobject_cast<LogBookWidget*>(m_form->logbooks->widget(index));
    if (!logbook) {
        disableToolBar();
        if (auto* tab = qobject_cast<LogBookTab*>(m_form->logbooks->widget(index)))
            updateStatusWorkshift(tab);
        return;
    }

    updateLogBookState(logbook);

    connect(logbook, &LogBookWidget::statusChanged, logbook, [this] {
        if (LogBookWidget* current = currentLogBook())
            updateLogBookState(current);
    });
    const auto refreshControls = [this] {
        if (LogBookWidget* current = currentLogBook())
            updateControlsState(current);
    };
    connect(logbook, &LogBookWidget::recordUpdated, logbook, refreshControls);
    connect(logbook, &LogBookWidget::recordAdded, logbook, refreshControls);
    connect(logbook, &LogBookWidget::recordRemoved, logbook, refreshControls);
    connect(logbook, &LogBookWidget::changedSelectedRecord, logbook, refreshControls);
    connect(sign, &QAction::triggered, logbook, &LogBookWidget::signRecordRequest);
    connect(signAll, &QAction::triggered, logbook, &LogBookWidget::signAllRecordsRequest);
}
