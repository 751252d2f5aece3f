#include "DirectoryWindow.h"

#include "LongWork.h"
#include "NoticeBar.h"
#include "SheetPage.h"
#include "StoreAdmin.h"

#include <QAction>
#include <QLabel>
#include <QListWidget>
#include <QScreen>
#include <QShortcut>
#include <QSplitter>
#include <QStackedWidget>
#include <QStatusBar>
#include <QTableView>
#include <QTimer>
#include <QToolBar>
#include <QUrl>
#include <QVBoxLayout>

namespace
{
constexpr int pauseMs = 300; // after an edit, before the check
constexpr QSize usualSize(1180, 680);
constexpr QSize frameOfWindow(20, 40); // about

/// The tab's title: the sheet's title with a capital letter, short where it is long.
QString titleOf(const Sheet& sheet)
{
    if (sheet.table == "Users")
        return DirectoryWindow::tr("Пользователи");
    if (sheet.table == "WorkerRoles")
        return DirectoryWindow::tr("Кто в какой должности");
    if (sheet.table == "Shifts")
        return DirectoryWindow::tr("Смены");
    return sheet.title.left(1).toUpper() + sheet.title.mid(1);
}

/// The address without a password.
QString shownAddress(const QString& url)
{
    const QUrl parsed(url);
    return parsed.scheme() == QLatin1String("sqlite") ? parsed.path()
                                                      : parsed.toDisplayString(QUrl::RemovePassword);
}
} // namespace

DirectoryWindow::DirectoryWindow(std::unique_ptr<Store> store, const QString& url, QWidget* parent)
    : QMainWindow(parent),
      m_store(std::move(store)),
      m_url(url),
      m_notice(new NoticeBar(this)),
      m_sheets(new QListWidget(this)),
      m_stack(new QStackedWidget(this)),
      m_faultPane(new QWidget(this)),
      m_faults(new QListWidget(this)),
      m_faultCount(new QLabel(this)),
      m_work(new QLabel(this)),
      m_pause(new QTimer(this))
{
    setObjectName(QStringLiteral("DirectoryWindow"));
    setWindowTitle(tr("Справочники: %1[*]").arg(shownAddress(url)));
    m_notice->setObjectName(QStringLiteral("notice"));
    m_sheets->setObjectName(QStringLiteral("sheets"));
    m_sheets->setAccessibleName(tr("Таблицы"));
    m_sheets->setToolTip(tr("Следующая таблица: Ctrl+Page Down, предыдущая: Ctrl+Page Up"));
    m_sheets->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_sheets->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
    m_faults->setObjectName(QStringLiteral("faults"));
    m_faults->setAccessibleName(tr("Ошибки"));
    m_faults->setWordWrap(true);
    m_faults->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_faultCount->setObjectName(QStringLiteral("faultCount"));
    for (SheetModel* model : m_draft.models()) {
        m_pages.append(new SheetPage(model, m_stack));
        m_stack->addWidget(m_pages.constLast());
        m_sheets->addItem(titleOf(model->sheet()));
        connect(model, &SheetModel::edited, this, [this] {
            m_pause->start();
            showState();
        });
    }
    auto* faults = new QVBoxLayout(m_faultPane);
    faults->setContentsMargins(0, 0, 0, 0);
    faults->addWidget(m_faultCount);
    faults->addWidget(m_faults);
    m_faultPane->hide();
    auto* sheets = new QWidget(this);
    auto* beside = new QHBoxLayout(sheets);
    beside->setContentsMargins(0, 0, 0, 0);
    beside->addWidget(m_sheets);
    beside->addWidget(m_stack, 1);
    auto* halves = new QSplitter(Qt::Vertical, this);
    halves->addWidget(sheets);
    halves->addWidget(m_faultPane);
    halves->setStretchFactor(0, 4);
    halves->setStretchFactor(1, 1);
    halves->setChildrenCollapsible(false);
    auto* content = new QWidget(this);
    auto* all = new QVBoxLayout(content);
    all->addWidget(m_notice);
    all->addWidget(halves, 1);
    setCentralWidget(content);
    statusBar()->addWidget(m_work, 1);
    makeActions();
    m_pause->setSingleShot(true);
    m_pause->setInterval(pauseMs);
    connect(m_sheets, &QListWidget::currentRowChanged, m_stack, &QStackedWidget::setCurrentIndex);
    m_sheets->setCurrentRow(0);
    for (int i = 0; i < m_pages.size(); ++i)
        nameSheet(i, 0);
    connect(m_pause, &QTimer::timeout, this, &DirectoryWindow::check);
    connect(m_faults, &QListWidget::itemActivated, this, [this] { showFault(m_faults->currentRow()); });
    connect(m_faults, &QListWidget::itemClicked, this, [this] { showFault(m_faults->currentRow()); });
    connect(m_notice, &NoticeBar::chosen, m_notice, &QWidget::hide);
    LongWork::listen([this](const char* name, qint64 done, qint64 total) { showWork(name, done, total); });
    resize(usualSize.boundedTo(screen()->availableSize() - frameOfWindow));
    showState();
}

DirectoryWindow::~DirectoryWindow()
{
    LongWork::listen({});
}

QAction* DirectoryWindow::addAction(const QString& text, const char* name, const QKeySequence& keys,
                                    void (DirectoryWindow::*slot)())
{
    auto* action = new QAction(text, this);
    action->setObjectName(QLatin1String(name));
    action->setShortcut(keys);
    action->setToolTip(tr("%1 (%2)").arg(text, keys.toString(QKeySequence::NativeText)));
    connect(action, &QAction::triggered, this, slot);
    // Delete elsewhere, such as in the list of faults, must not remove rows.
    const bool isOfTables = keys == QKeySequence(Qt::Key_Insert) || keys == QKeySequence(Qt::Key_Delete);
    action->setShortcutContext(isOfTables ? Qt::WidgetWithChildrenShortcut : Qt::WindowShortcut);
    QWidget* const owner = isOfTables ? static_cast<QWidget*>(m_stack) : this;
    owner->addAction(action);
    return action;
}

void DirectoryWindow::makeActions()
{
    auto* bar = addToolBar(tr("Действия"));
    bar->setObjectName(QStringLiteral("actions"));
    bar->setMovable(false);
    bar->setContextMenuPolicy(Qt::PreventContextMenu);
    bar->setToolButtonStyle(Qt::ToolButtonTextOnly);
    // Deliberate: enabled without edits, too, because the first one may still be in its editor.
    bar->addAction(addAction(tr("Сохранить"), "save", QKeySequence::Save, &DirectoryWindow::save));
    bar->addAction(addAction(tr("Обновить"), "refresh", Qt::Key_F5, &DirectoryWindow::refresh));
    bar->addSeparator();
    bar->addAction(addAction(tr("Добавить"), "add", Qt::Key_Insert, &DirectoryWindow::addRow));
    bar->addAction(addAction(tr("Убрать"), "discard", Qt::Key_Delete, &DirectoryWindow::discard));
    bar->addSeparator();
    QAction* undo = m_draft.undo()->createUndoAction(this, tr("Отменить"));
    undo->setObjectName(QStringLiteral("undo"));
    undo->setShortcut(QKeySequence::Undo);
    QAction* redo = m_draft.undo()->createRedoAction(this, tr("Повторить"));
    redo->setObjectName(QStringLiteral("redo"));
    redo->setShortcut(QKeySequence(QStringLiteral("Ctrl+Shift+Z")));
    bar->addAction(undo);
    bar->addAction(redo);
    bar->addSeparator();
    bar->addAction(addAction(tr("Найти"), "find", QKeySequence::Find, &DirectoryWindow::find));
    bar->addAction(addAction(tr("К ошибке"), "nextFault", Qt::Key_F8, &DirectoryWindow::nextFault));
    const auto turn = [this](Qt::Key key, int step) {
        auto* shortcut = new QShortcut(QKeySequence(int(Qt::CTRL) | key), this);
        connect(shortcut, &QShortcut::activated, this, [this, step] { turnPage(step); });
    };
    turn(Qt::Key_PageDown, 1);
    turn(Qt::Key_PageUp, -1);
}

bool DirectoryWindow::load(StoreError* error)
{
    if (!m_draft.load(m_store.get(), error))
        return false;
    for (SheetPage* page : qAsConst(m_pages))
        page->fitColumns();
    if (!StoreAdmin::mayLoad(*m_store, m_url))
        m_notice->tell(NoticeBar::Warning,
                       tr("Эта учётная запись сервера может только смотреть справочники. Чтобы записать "
                          "правки, откройте журнал под записью администратора."));
    else if (!m_store->caution().isEmpty())
        m_notice->tell(
            NoticeBar::Warning,
            tr("Журнал открыт с оговоркой: %1. Записать правки не удастся.").arg(m_store->caution()));
    showState();
    return true;
}

SheetPage* DirectoryWindow::page(const QByteArray& table) const
{
    for (SheetPage* one : m_pages)
        if (one->model()->sheet().table == table)
            return one;
    return nullptr;
}

SheetPage* DirectoryWindow::current() const
{
    return m_pages.at(m_stack->currentIndex());
}

void DirectoryWindow::addRow()
{
    current()->addRow();
}

void DirectoryWindow::discard()
{
    SheetPage* page = current();
    page->commit();
    const QVector<QByteArray> keys = page->selected();
    if (keys.isEmpty())
        return;
    if (page->model()->discard(keys))
        m_notice->hide();
    else
        m_notice->tell(
            NoticeBar::Warning,
            tr("Эту строку убрать нельзя: на неё могут ссылаться записи журнала. Её можно переименовать; "
               "убрать можно новую строку, сотрудника и пользователя."));
}

void DirectoryWindow::find()
{
    current()->focusSearch();
}

void DirectoryWindow::nextFault()
{
    current()->commit();
    check();
    if (m_faults->count() > 0)
        showFault((m_faults->currentRow() + 1) % m_faults->count());
}

void DirectoryWindow::showFault(int number)
{
    if (number < 0 || number >= m_draft.faults().size())
        return;
    m_faults->setCurrentRow(number);
    const DirectoryDraft::Fault& fault = m_draft.faults().at(number);
    const int column =
        fault.fault.column ? int(fault.fault.column - fault.model->sheet().columns.constData()) : -1;
    SheetPage* page = this->page(fault.model->sheet().table);
    m_sheets->setCurrentRow(m_pages.indexOf(page));
    page->showCell(fault.key, column);
}

void DirectoryWindow::check()
{
    m_pause->stop();
    m_draft.check(m_store.get());
    showFaults();
}

void DirectoryWindow::showFaults()
{
    m_faults->clear();
    QHash<SheetModel*, int> counts;
    for (const DirectoryDraft::Fault& one : m_draft.faults()) {
        const EditedRow& row = one.model->rows().at(one.model->find(one.key));
        m_faults->addItem(
            tr("%1, %2: %3").arg(titleOf(one.model->sheet()), one.model->label(row), one.fault.line()));
        ++counts[one.model];
    }
    m_faultCount->setText(tr("Ошибок: %1. Enter или F8 ведёт к ячейке.").arg(m_draft.faults().size()));
    m_faultPane->setVisible(!m_draft.faults().isEmpty());
    for (int i = 0; i < m_pages.size(); ++i)
        nameSheet(i, counts.value(m_pages.at(i)->model()));
}

void DirectoryWindow::nameSheet(int number, int faults)
{
    const QString title = titleOf(m_pages.at(number)->model()->sheet());
    m_sheets->item(number)->setText(faults > 0 ? tr("%1 (ошибок: %2)").arg(title).arg(faults) : title);
    const int frame = 2 * m_sheets->frameWidth() + fontMetrics().averageCharWidth();
    m_sheets->setFixedWidth(m_sheets->sizeHintForColumn(0) + frame);
}

void DirectoryWindow::turnPage(int step)
{
    const int count = m_pages.size();
    m_sheets->setCurrentRow((m_sheets->currentRow() + step + count) % count);
}

void DirectoryWindow::showState()
{
    setWindowModified(m_draft.isEdited());
}

void DirectoryWindow::showWork(const char* name, qint64 done, qint64 total)
{
    QString text = name ? QString::fromUtf8(name) : QString();
    if (name && total > 0)
        text = tr("%1: %2 из %3").arg(text).arg(done).arg(total);
    m_work->setText(text);
    m_work->repaint(); // the work runs on this thread
}

void DirectoryWindow::fail(const QString& text)
{
    m_closesAfterSaving = false;
    m_notice->tell(NoticeBar::Error, text, {{0, tr("Понятно"), QStringLiteral("understood")}});
}
