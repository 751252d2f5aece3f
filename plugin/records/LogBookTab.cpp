#include "LogBookTab.h"

#include "CommentsPane.h"
#include "CVrkCliMod.h"
#include "CVrkCliSes.h"
#include "EmptyHint.h"
#include "Fields.h"
#include "FilesPane.h"
#include "LocationInfo.h"
#include "MessageListDelegate.h"
#include "PageMessages.h"
#include "PaneRoom.h"
#include "RecordColumns.h"
#include "RecordKeys.h"
#include "RecordTables.h"
#include "SearchBar.h"
#include "ui_LogBookTab.h"
#include "VrkTableModel.h"
#include "VrkTableProxyModel.h"
#include "VrkTableTool.h"

#include <QAction>
#include <QKeyEvent>
#include <QShortcut>

LogBookTab::LogBookTab(QWidget* parent)
    : QWidget(parent),
      m_ui(new Ui::LogBookTab),
      m_allReaded(new QAction(tr("Отметить все как прочитанные"), this))
{
    m_ui->setupUi(this);
    configureForm();
    configureKeys();

    connect(m_ui->closeSearchButton, &QToolButton::clicked, m_ui->searchWidget, &QWidget::close);
    new SearchBar(
        {m_ui->searchEdit, m_ui->upSearchButton, m_ui->downSearchButton, m_ui->recordsTable},
        [this](const QString& text) { return matcheIndexes(text); },
        [this](const QModelIndex& hit) {
            m_ui->recordsTable->setCurrentIndex(hit);
            m_ui->recordsTable->scrollTo(hit);
        },
        this);
    const auto* leave =
        new QShortcut(Qt::Key_Escape, m_ui->searchWidget, nullptr, nullptr, Qt::WidgetWithChildrenShortcut);
    connect(leave, &QShortcut::activated, this, [this] {
        switchVisibleSearch();
        m_ui->recordsTable->setFocus(Qt::ShortcutFocusReason);
    });
}

LogBookTab::~LogBookTab() = default;

/// Keys that press a button of a pane, which is shown first, and those of the table.
void LogBookTab::configureKeys()
{
    const struct {
        const char* key;
        QToolButton* button;
        QWidget* pane;
    } keys[] = {{RecordKey::comment, m_ui->createCommentButton, m_ui->commentsTab},
                {RecordKey::file, m_ui->createFileButton, m_ui->filesTab}};
    for (const auto& [key, button, pane] : keys) {
        button->setProperty(RecordKey::property, QString::fromLatin1(key));
        const auto* shortcut = new QShortcut(QKeySequence(QLatin1String(key)), this, nullptr, nullptr,
                                             Qt::WidgetWithChildrenShortcut);
        connect(shortcut, &QShortcut::activated, this, [this, pressed = button, shown = pane] {
            m_ui->additionalTab->setCurrentWidget(shown);
            pressed->click();
        });
    }
    m_ui->recordsTable->installEventFilter(this);
}

/// Return, Enter and F2 in the table do the same as a double click (deliberate: so that both follow one rule). They are no
/// shortcuts, because those would also take the keys of a dialog that is shown but not active yet.
bool LogBookTab::eventFilter(QObject* watched, QEvent* event)
{
    const QTableView* table = m_ui->recordsTable;
    if (watched == table && event->type() == QEvent::KeyPress && table->currentIndex().isValid()) {
        const auto* key = static_cast<QKeyEvent*>(event);
        const auto pressed = QKeySequence(key->key() | int(key->modifiers() & ~Qt::KeypadModifier));
        for (const char* opening : {"Return", "Enter", RecordKey::edit})
            if (pressed == QKeySequence(QLatin1String(opening))) {
                emit m_ui->recordsTable->doubleClicked(table->currentIndex());
                return true;
            }
    }
    return QWidget::eventFilter(watched, event);
}

void LogBookTab::configureForm()
{
    const auto configureButton = [](QToolButton* button, const char* icon, const QString& tip) {
        button->setIcon(QIcon(QLatin1String(":/icons/") + QLatin1String(icon)));
        button->setToolTip(tip);
        button->setEnabled(false);
    };
    configureButton(m_ui->createCommentButton, "add.png", tr("Добавить комментарий"));
    configureButton(m_ui->deleteCommentButton, "delete.png", tr("Удалить комментарий"));
    configureButton(m_ui->readedCommentButton, "readed.png", tr("Отметить как прочитанный"));
    configureButton(m_ui->createFileButton, "add.png", tr("Добавить файл..."));
    configureButton(m_ui->deleteFileButton, "delete.png", tr("Удалить файл"));
    configureButton(m_ui->saveFileButton, "save.png", tr("Сохранить файл..."));
    configureButton(m_ui->upSearchButton, "up-arrow.png", QString());
    configureButton(m_ui->downSearchButton, "down-arrow.png", QString());

    m_ui->readedCommentButton->setPopupMode(QToolButton::MenuButtonPopup);
    m_ui->readedCommentButton->addAction(m_allReaded);
    m_ui->closeSearchButton->setIcon(QIcon(QStringLiteral(":/icons/close.png")));
    m_ui->searchEdit->addAction(QIcon(QStringLiteral(":/icons/search.png")), QLineEdit::LeadingPosition);
    m_ui->searchEdit->setPlaceholderText(tr("Поиск..."));
    m_ui->searchEdit->setClearButtonEnabled(true);
    m_ui->additionalTab->setTabIcon(0, QIcon(QStringLiteral(":/icons/comment.png")));
    m_ui->additionalTab->setTabIcon(1, QIcon(QStringLiteral(":/icons/affix.png")));
    m_ui->commentsList->setAlternatingRowColors(true);
    m_ui->commentsList->setItemDelegate(new MessageListDelegate(this));
    // The table takes the remaining space; the panes keep their width.
    m_ui->splitter->setStretchFactor(0, 1);
    m_ui->searchWidget->hide();
}

void LogBookTab::createTable(RecordTables& tables, VrkTableFilterRow* filter)
{
    m_tables = &tables;
    m_tableTool = new VrkTableTool(this);
    m_tableTool->setTableView(m_ui->recordsTable);
    m_tableTool->setCMDArray(&tables.records.data);
    m_tableTool->setDefaultSettingsView();
    m_tableTool->proxy()->setFilterRows(filter);
}

void LogBookTab::configureTableTool()
{
    m_columns = new RecordColumns(m_module->session(),
                                  m_location->table(QLatin1String(LogbookTable::Workers)), font(), this);
    m_columns->configure(m_tableTool);
}

void LogBookTab::createAnnex(const Annex& annex)
{
    const auto current = [this] { return currentRecord(); };
    m_messages = std::make_unique<PageMessages>(m_module);
    const auto source = [&](CModelTable& table) {
        return RecordPane::Source{annex.owner, m_module, m_location, &table, m_messages.get(), current};
    };
    m_commentsPane = std::make_unique<CommentsPane>(
        CommentsPane::Controls{m_ui->commentsList, m_ui->createCommentButton, m_ui->deleteCommentButton,
                               m_ui->readedCommentButton, m_allReaded},
        source(m_tables->comments), CommentsPane::Habits{annex.commentTime, annex.isCommentReaded}, nullptr);
    m_filesPane =
        std::make_unique<FilesPane>(FilesPane::Controls{m_ui->filesTable, m_ui->createFileButton,
                                                        m_ui->deleteFileButton, m_ui->saveFileButton},
                                    source(m_tables->files), this, nullptr);
    m_paneRoom = new PaneRoom(m_ui->splitter, m_tableTool);
    const auto ofRecord = [this](const QString& text) {
        return m_tableTool && currentRecord() ? text : QString();
    };
    new EmptyHint(m_ui->commentsList, [ofRecord] { return ofRecord(tr("Комментариев нет")); });
    new EmptyHint(m_ui->filesTable, [ofRecord] { return ofRecord(tr("Файлов нет")); });
}

void LogBookTab::switchVisibleSearch()
{
    if (m_ui->searchWidget->isVisible()) {
        m_ui->searchWidget->hide();
        m_ui->searchEdit->clear();
    } else {
        m_ui->searchWidget->show();
        m_ui->searchEdit->setFocus(Qt::ShortcutFocusReason);
    }
}

QModelIndexList LogBookTab::matcheIndexes(const QString& text) const
{
    if (!m_tableTool)
        return QModelIndexList();
    const auto* proxy = m_tableTool->proxy();
    // Deliberate: the search starts at the second row and reaches the first one last, after wrapping.
    const int start = proxy->rowCount() > 1 ? 1 : 0;
    const QModelIndex from = proxy->index(start, m_tableTool->model()->idxField(QLatin1String(Field::html)));
    return proxy->match(from, Qt::DisplayRole, text, -1,
                        Qt::MatchWrap | Qt::MatchFixedString | Qt::MatchContains);
}

void LogBookTab::takeKeyboard()
{
    m_ui->recordsTable->setFocus();
}

void LogBookTab::switchVisiblePanes()
{
    if (m_paneRoom)
        m_paneRoom->toggle();
}

void LogBookTab::showKeptComment(const KeptTexts::Text& text)
{
    m_commentsPane->showKept(text);
}

void LogBookTab::dropAnnex()
{
    delete m_paneRoom;
    m_paneRoom = nullptr;
    // First: closing a question or a dialog lets a waiting row become current.
    delete m_tableTool;
    m_tableTool = nullptr;
    m_filesPane.reset();
    m_commentsPane.reset();
    m_messages.reset();
}

void LogBookTab::reloadPanes(MDRData* record)
{
    m_commentsPane->reload(record);
    m_filesPane->reload(record);
}

bool LogBookTab::deleteInPanes()
{
    if (m_ui->filesTable->hasFocus())
        m_filesPane->deleteByKey();
    else if (m_ui->commentsList->hasFocus())
        m_commentsPane->deleteByKey();
    else
        return false;
    return true;
}

void LogBookTab::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange && m_columns)
        m_columns->setFont(font());
}

MDRData* LogBookTab::currentRecord() const
{
    return m_tableTool ? m_tableTool->currentRecord() : nullptr;
}
