#include "RandomDispatcher.h"

#include "CommentCreatorDialog.h"
#include "CommentsWidget.h"
#include "Desktop.h"
#include "LocationInfo.h"
#include "MessageListDelegate.h"
#include "OrgStructDialog.h"
#include "PopGuard.h"
#include "RecordCreatorDialog.h"
#include "TemplateFiller.h"
#include "TemplatesWidget.h"

#include <QHeaderView>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QTabBar>
#include <QTableView>
#include <QTableWidget>
#include <QTabWidget>
#include <QTest>
#include <QToolButton>

RandomDispatcher::RandomDispatcher(std::unique_ptr<JournalWindow> window, const TestStore& store,
                                   const QString& login, std::mt19937* random)
    : m_window(std::move(window)), m_store(store), m_login(login), m_random(random)
{
    m_window->window().resize(1700, 700); // space for the panes next to the table
    QFile file(m_files.filePath(QStringLiteral("схема.txt")));
    if (!file.open(QIODevice::WriteOnly) || file.write("ТН-1 в работе") < 0)
        qFatal("no file to attach");
}

RandomDispatcher::~RandomDispatcher() = default;

const std::vector<RandomDispatcher::Choice>& RandomDispatcher::choices()
{
    using Self = RandomDispatcher;
    static const std::vector<Choice> all{
        {"row", 12, &Self::clickRow},
        {"keys", 3, &Self::keyInTable},
        {"double click", 5, &Self::doubleClickRow},
        {"create", 8, &Self::createRecord},
        {"approve", 4, &Self::approve},
        {"delete", 3, &Self::remove},
        {"visa", 2, &Self::sign},
        {"execution time", 2, &Self::changeExecution},
        {"menu", 7, &Self::useRecordMenu},
        {"comment", 3, &Self::createComment},
        {"change comment", 3, &Self::changeComment},
        {"delete comment", 2, &Self::removeComment},
        {"read comment", 2, &Self::readComments},
        {"attach", 2, &Self::attachFile},
        {"file", 2, &Self::useFile},
        {"period", 3, &Self::changePeriod},
        {"tab", 4, &Self::changeTab},
        {"search", 3, &Self::search},
        {"sort", 2, &Self::sort},
        {"shift", 4, &Self::changeShift},
        {"look around", 2, &Self::lookAround},
    };
    return all;
}

int RandomDispatcher::pick(int count)
{
    return count > 0 ? static_cast<int>((*m_random)() % static_cast<unsigned>(count)) : 0;
}

QString RandomDispatcher::step()
{
    m_told = QStringList{m_login};
    m_mayBeRefused = false;
    const QVector<CPopTemplate*> open = pops();
    if (isGuarded() && pick(12) == 0) {
        clickUnderGuard();
        return m_told.join(QLatin1Char(' '));
    }
    if (!open.isEmpty() && (isGuarded() || pick(4) > 0)) {
        actIn(open.at(pick(open.size())));
        return m_told.join(QLatin1Char(' '));
    }
    int sum = 0;
    for (const Choice& choice : choices())
        sum += choice.weight;
    for (int attempt = 0; attempt < 8; ++attempt) {
        int drawn = pick(sum);
        for (const Choice& choice : choices()) {
            drawn -= choice.weight;
            if (drawn >= 0)
                continue;
            m_told = QStringList{m_login, QLatin1String(choice.name)};
            if ((this->*choice.act)())
                return m_told.join(QLatin1Char(' '));
            break;
        }
    }
    return m_login + QStringLiteral(" finds nothing to do");
}

LogBookTab* RandomDispatcher::tab() const
{
    const auto* tabs = in<QTabWidget>(&m_window->window(), "logbooks");
    return qobject_cast<LogBookTab*>(tabs->currentWidget());
}

QTableView* RandomDispatcher::view(const LogBookTab* tab)
{
    return tab->findChild<QTableView*>(QStringLiteral("recordsTable"));
}

QList<LogBookWidget*> RandomDispatcher::journals() const
{
    return m_window->window().findChildren<LogBookWidget*>();
}

QVector<CPopTemplate*> RandomDispatcher::pops() const
{
    QVector<CPopTemplate*> open;
    for (CPopTemplate* pop : m_window->window().findChildren<CPopTemplate*>())
        if (pop->isVisible())
            open.append(pop);
    return open;
}

bool RandomDispatcher::isGuarded() const
{
    return PopGuard::over(&m_window->window()) != nullptr;
}

bool RandomDispatcher::press(QAbstractButton* button)
{
    if (!button || !button->isVisible() || !button->isEnabled())
        return false;
    QTest::mouseClick(button, Qt::LeftButton);
    return true;
}

bool RandomDispatcher::trigger(const char* action, const char* button)
{
    auto* entry = in<QAction>(&m_window->window(), action);
    const auto* owner = in<QToolButton>(&m_window->window(), button);
    if (!entry->isEnabled() || !owner->isEnabled())
        return false;
    m_told << QLatin1String(action);
    entry->trigger();
    return true;
}

QModelIndex RandomDispatcher::anyRow()
{
    QTableView* table = view(tab());
    const int rows = table->model()->rowCount();
    if (rows == 0)
        return QModelIndex();
    const QModelIndex index = table->model()->index(pick(rows), table->horizontalHeader()->logicalIndex(4));
    table->scrollTo(index);
    m_told << QString::number(index.row());
    return index;
}

void RandomDispatcher::clickOn(const QModelIndex& index)
{
    QTableView* table = view(tab());
    const QRect cell = table->visualRect(index) & table->viewport()->rect();
    QTest::mouseClick(table->viewport(), Qt::LeftButton, Qt::NoModifier, cell.center());
}

QString RandomDispatcher::newText()
{
    static int count = 0;
    const QString text = QStringLiteral("метка%1;").arg(++count);
    m_typed.insert(text);
    m_told << text;
    return text;
}

void RandomDispatcher::drop(const QString& text)
{
    for (auto one = m_typed.begin(); one != m_typed.end();)
        one = text.contains(*one) ? m_typed.erase(one) : std::next(one);
}

// ---- in the window

bool RandomDispatcher::clickRow()
{
    const QModelIndex index = anyRow();
    if (index.isValid())
        clickOn(index);
    return index.isValid();
}

/// Nothing reaches the window below a question.
bool RandomDispatcher::clickUnderGuard()
{
    m_told << QStringLiteral("clicks under a question");
    const QTableView* table = view(tab());
    const QModelIndex before = table->currentIndex();
    const QModelIndex index = anyRow();
    if (!index.isValid())
        return false;
    clickOn(index);
    if (table->currentIndex() != before)
        qFatal("a click went through to the window under a question");
    return true;
}

bool RandomDispatcher::doubleClickRow()
{
    const QModelIndex index = anyRow();
    if (!index.isValid())
        return false;
    clickOn(index);
    QTableView* table = view(tab());
    const QRect cell = table->visualRect(index) & table->viewport()->rect();
    QTest::mouseDClick(table->viewport(), Qt::LeftButton, Qt::NoModifier, cell.center());
    return true;
}

bool RandomDispatcher::keyInTable()
{
    static const Qt::Key keys[] = {Qt::Key_Up,   Qt::Key_Down, Qt::Key_Delete,
                                   Qt::Key_Down, Qt::Key_Up,   Qt::Key_PageDown};
    const int key = pick(6);
    m_told << QString::number(key);
    m_mayBeRefused = false;
    QTableView* table = view(tab());
    if (keys[key] == Qt::Key_Delete)
        QTest::keyClick(tab(), Qt::Key_Delete); // the table passes it on to the page
    else
        QTest::keyClick(table, keys[key]);
    return true;
}

bool RandomDispatcher::createRecord()
{
    return press(in<QToolButton>(&m_window->window(), "createButton"));
}

bool RandomDispatcher::approve()
{
    static const char* const actions[] = {"approveRecordAction", "approveRecordAction", "approveRecordAction",
                                          "approveMyRecordsAction", "approveAllRecordsAction"};
    return trigger(actions[pick(5)], "approveButton");
}

bool RandomDispatcher::remove()
{
    static const char* const actions[] = {"deleteRecordAction", "deleteRecordAction", "deleteRecordAction",
                                          "deleteMyDraftsAction", "deleteAllDraftsAction"};
    return trigger(actions[pick(5)], "deleteButton");
}

bool RandomDispatcher::sign()
{
    return trigger(pick(4) ? "signRecordAction" : "signAllRecordsAction", "signButton");
}

bool RandomDispatcher::changeExecution()
{
    return press(in<QToolButton>(&m_window->window(), "executionButton"));
}

bool RandomDispatcher::useRecordMenu()
{
    auto* journal = qobject_cast<LogBookWidget*>(tab());
    const QModelIndex index = journal ? anyRow() : QModelIndex();
    if (!index.isValid())
        return false;
    clickOn(index);
    QTableView* table = view(journal);
    emit table->customContextMenuRequested(table->visualRect(index).center());
    auto* menu = journal->findChild<QMenu*>(QStringLiteral("recordMenu"));
    const QAction* chosen = menu->actions().at(pick(menu->actions().size()));
    menu->close();
    if (!chosen->isEnabled() || chosen->isSeparator())
        return false;
    m_told << chosen->text();
    const_cast<QAction*>(chosen)->trigger();
    return true;
}

bool RandomDispatcher::createComment()
{
    return press(in<QToolButton>(tab(), "createCommentButton"));
}

bool RandomDispatcher::changeComment()
{
    auto* list = in<QListWidget>(tab(), "commentsList");
    if (!list->isVisible() || list->count() == 0)
        return false;
    list->setCurrentRow(pick(list->count()));
    const QPoint place = list->visualItemRect(list->currentItem()).center();
    m_told << list->currentItem()->data(CommentKeyRole).toString();
    QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::NoModifier, place);
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, Qt::NoModifier, place);
    return true;
}

bool RandomDispatcher::removeComment()
{
    auto* list = in<QListWidget>(tab(), "commentsList");
    if (list->count() > 0)
        list->setCurrentRow(pick(list->count()));
    return press(in<QToolButton>(tab(), "deleteCommentButton"));
}

bool RandomDispatcher::readComments()
{
    auto* button = in<QToolButton>(tab(), "readedCommentButton");
    auto* list = in<QListWidget>(tab(), "commentsList");
    if (list->count() > 0)
        list->setCurrentRow(pick(list->count()));
    if (pick(3) > 0)
        return press(button);
    if (!button->isEnabled() || !button->isVisible())
        return false;
    m_told << QStringLiteral("all");
    button->actions().constFirst()->trigger();
    return true;
}

bool RandomDispatcher::attachFile()
{
    auto* pages = in<QTabWidget>(tab(), "additionalTab");
    if (!qobject_cast<LogBookWidget*>(tab()))
        return false;
    pages->setCurrentIndex(1);
    Desktop::current().askOpenFile = [this](QWidget*, const QString&, const QString&) {
        return m_files.filePath(QStringLiteral("схема.txt"));
    };
    const bool isDone = press(in<QToolButton>(tab(), "createFileButton"));
    pages->setCurrentIndex(0);
    return isDone;
}

bool RandomDispatcher::useFile()
{
    auto* table = in<QTableWidget>(tab(), "filesTable");
    auto* pages = in<QTabWidget>(tab(), "additionalTab");
    if (!qobject_cast<LogBookWidget*>(tab()) || table->rowCount() == 0)
        return false;
    pages->setCurrentIndex(1);
    table->selectRow(pick(table->rowCount()));
    Desktop::current().askSaveFile = [this](QWidget*, const QString&, const QString&) {
        return pick(3) ? m_files.filePath(QStringLiteral("сохранён.txt")) : QString();
    };
    Desktop::current().open = [](const QUrl&) {};
    static const char* const buttons[] = {"saveFileButton", "deleteFileButton"};
    const char* const chosen = buttons[pick(2)];
    m_told << QLatin1String(chosen);
    const bool isDone = press(in<QToolButton>(tab(), chosen));
    pages->setCurrentIndex(0);
    return isDone;
}

bool RandomDispatcher::changePeriod()
{
    static const char* const actions[] = {"currentWorkshiftAction", "currentWorkshiftAction",
                                          "currentWorkshiftAction", "chooseWorkshiftAction",
                                          "chooseIntervalAction"};
    return trigger(actions[pick(5)], "timeButton");
}

bool RandomDispatcher::changeTab()
{
    auto* tabs = in<QTabWidget>(&m_window->window(), "logbooks");
    switch (pick(7)) {
    case 0:
        m_told << QStringLiteral("add");
        return press(in<QToolButton>(&m_window->window(), "addButton"));
    case 1:
        m_told << QStringLiteral("comments");
        return press(in<QToolButton>(&m_window->window(), "commentsButton"));
    case 2:
        if (tabs->count() < 2)
            return false;
        m_told << QStringLiteral("close");
        emit tabs->tabCloseRequested(pick(tabs->count())); // home stays
        return true;
    case 3:
    case 4:
        m_told << QStringLiteral("home");
        tabs->setCurrentWidget(&m_window->home());
        return true;
    case 5: // like the end of dragging a tab
        m_told << QStringLiteral("move");
        tabs->tabBar()->moveTab(pick(tabs->count()), pick(tabs->count()));
        return true;
    default: {
        const int index = pick(tabs->count());
        m_told << QString::number(index);
        tabs->setCurrentIndex(index);
        return true;
    }
    }
}

bool RandomDispatcher::search()
{
    auto* edit = in<QLineEdit>(tab(), "searchEdit");
    if (!edit->isVisible() || pick(5) == 0)
        return press(in<QToolButton>(&m_window->window(), "searchButton"));
    static const char* const words[] = {"", "метка", "Отдана", "смен", "нет такого слова"};
    switch (pick(4)) {
    case 0:
        return press(in<QToolButton>(tab(), "downSearchButton"));
    case 1:
        return press(in<QToolButton>(tab(), "upSearchButton"));
    case 2:
        QTest::keyClick(edit, Qt::Key_Return);
        return true;
    default:
        edit->setText(QString::fromUtf8(words[pick(5)]));
        m_told << edit->text();
        return true;
    }
}

bool RandomDispatcher::sort()
{
    QHeaderView* header = view(tab())->horizontalHeader();
    const int column = header->logicalIndex(pick(14));
    const QPoint place(header->sectionViewportPosition(column) + header->sectionSize(column) / 2,
                       header->height() / 2);
    m_told << QString::number(column);
    if (!header->viewport()->rect().contains(place))
        return false;
    QTest::mouseClick(header->viewport(), Qt::LeftButton, Qt::NoModifier, place);
    return true;
}

bool RandomDispatcher::changeShift()
{
    if (trigger("openWorkshiftAction", "workshiftButton"))
        return true;
    return pick(2) ? trigger("closeWorkshiftAction", "workshiftButton")
                   : trigger("appendWorkerAction", "workshiftButton");
}

bool RandomDispatcher::lookAround()
{
    switch (pick(3)) {
    case 0:
        return trigger("infoWorkshiftAction", "workshiftButton");
    case 1:
        return press(in<QToolButton>(&m_window->window(), "reportButton"));
    default: { // hide and show, like F4 twice
        auto* button = in<QToolButton>(&m_window->window(), "paneButton");
        return press(button) && press(button);
    }
    }
}
