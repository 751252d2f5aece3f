#include "CVrkHistory.h"

#include "ChangeTable.h"
#include "CVrkCliApp.h"
#include "CVrkCliSes.h"
#include "EventRow.h"
#include "Fields.h"
#include "TEventNciParse.h"
#include "VrkPreview.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QToolBar>

CVrkHistory::CVrkHistory(CVrkCliApp* app)
    : CVrkCliMod(app),
      m_table(new ChangeTable(this)),
      m_caption(new QLabel(this)),
      m_preview(new VrkPreview(this))
{
    if (objectName().isEmpty())
        setObjectName(QStringLiteral("CVrkHistory"));
    resize(1000, 640);
    setContextMenuPolicy(Qt::NoContextMenu);
    setModuleStyle();
    setCentralWidget(m_table);
    makeBar();
}

CVrkHistory::~CVrkHistory() = default;

QAction* CVrkHistory::addButton(QToolBar* bar, const char* name, const char* icon, const QString& text,
                                void (CVrkHistory::*request)())
{
    QAction* action = bar->addAction(CVrkCliMod::icon(QLatin1String(icon)), text);
    action->setObjectName(QLatin1String(name));
    connect(action, &QAction::triggered, this, request);
    m_actions.append(action);
    return action;
}

void CVrkHistory::makeBar()
{
    auto* bar = new QToolBar(this);
    bar->setObjectName(QStringLiteral("toolBar"));
    bar->setFloatable(false);
    bar->setMovable(false);
    bar->setContextMenuPolicy(Qt::PreventContextMenu);
    bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    addToolBar(Qt::TopToolBarArea, bar);
    addButton(bar, "journalAction", "now", tr("Показать в журнале"), &CVrkHistory::showInJournal);
    addButton(bar, "copyAction", "copy", tr("Копировать всё"), &CVrkHistory::copyAll)
        ->setShortcut(Qt::CTRL | Qt::SHIFT | Qt::Key_C);
    addButton(bar, "printAction", ":/archive/print.png", tr("Печать"), &CVrkHistory::print)
        ->setShortcut(QKeySequence::Print);
    for (QAction* action : bar->actions()) {
        if (!action->shortcut().isEmpty())
            action->setToolTip(action->text() + QLatin1Char(' ') +
                               action->shortcut().toString(QKeySequence::PortableText));
        action->setEnabled(false);
    }
    auto* gap = new QWidget(this);
    gap->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    bar->addWidget(gap);
    m_caption->setObjectName(QStringLiteral("summaryLabel"));
    m_caption->setMargin(4);
    bar->addWidget(m_caption);

    auto* again = new QAction(this);
    again->setObjectName(QStringLiteral("reloadAction"));
    again->setShortcut(QKeySequence::Refresh);
    addAction(again);
    connect(again, &QAction::triggered, this, &CVrkHistory::reload);
}

bool CVrkHistory::ModuleStart()
{
    m_name = tr("История записи");
    SetModTitle(m_name, QString());
    m_isStarted = m_names.load(this) && m_text.load(this, &m_names);
    m_table->setEmptyText(
        m_isStarted ? tr("Запись не выбрана. Откройте историю из меню записи в журнале или в поиске.")
                    : tr("Не удалось загрузить данные!"));
    m_table->setFocus();
    return m_isStarted;
}

void CVrkHistory::slot_modNotify(QString name, QVariant value)
{
    if (name != QLatin1String("showRecord") || !m_isStarted)
        return;
    m_recordKey = value.toString().toUtf8();
    reload();
    m_table->setFocus();
}

void CVrkHistory::reload()
{
    if (!m_isStarted || m_recordKey.isEmpty())
        return;
    QVector<RowChange> changes;
    const bool isRead = session()->recordHistory(m_recordKey, &changes);
    m_table->setEmptyText(isRead ? tr("В журнале изменений этой записи нет.")
                                 : tr("История не прочитана: %1").arg(session()->lastErrorText()));
    m_table->show(changes, &m_text);
    m_caption->setText(changes.isEmpty() ? QString() : tr("Изменений: %1").arg(changes.size()));
    for (QAction* action : qAsConst(m_actions))
        action->setEnabled(!changes.isEmpty());
    QString title;
    m_keys = {m_recordKey};
    for (const RowChange& change : qAsConst(changes)) {
        m_keys.insert(change.key);
        if (change.table == "LogbookRecords" && !change.after.isEmpty())
            title = ChangeText::time(change.is(Field::recordTime).toDouble()).left(16) +
                    QStringLiteral(", ") + m_text.value(Field::WorkerKey.name, change.is(Field::WorkerKey));
    }
    SetModTitle(m_name, title.simplified());
}

int CVrkHistory::MessageData(HFNCliParam* block)
{
    TEventNciParse event(block);
    if (!event.isChange() || !m_isStarted || m_recordKey.isEmpty())
        return 0;
    const EventRow row(event);
    const bool isRemark = row.isOf("LogbookComments") || row.isOf("LogbookFiles");
    const bool concerns =
        m_keys.contains(event.recordKey) || (isRemark && row.bytes(Field::RecordKey) == m_recordKey);
    MDRTypFree(&event.recordType);
    if (concerns)
        reload();
    return concerns ? 1 : 0;
}

void CVrkHistory::showInJournal()
{
    m_app->notifyModule(QStringLiteral("logbook"), QStringLiteral("showRecord"),
                        QString::fromUtf8(m_recordKey));
}

void CVrkHistory::copyAll()
{
    QGuiApplication::clipboard()->setText(m_table->plainText());
}

void CVrkHistory::print()
{
    m_preview->setView(m_table->view());
    m_preview->setWindowTitle(tr("Печать истории записи"));
    m_preview->setFooter(tr("Код записи %1").arg(QString::fromUtf8(m_recordKey)));
    m_preview->showDocument();
}
