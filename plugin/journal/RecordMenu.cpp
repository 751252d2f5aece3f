#include "RecordMenu.h"

#include "LogBookWidget.h"
#include "MarkerIcon.h"
#include "RecordKeys.h"
#include "ShownText.h"

#include <QAbstractScrollArea>
#include <QShortcut>

namespace
{
struct Entry {
    const char* icon; ///< null for a separator
    const char* text;
    const char* key;
    bool (*isEnabled)(const LogBookWidget& page);
    void (LogBookWidget::*request)();
};
using Page = const LogBookWidget&;

constexpr Entry secondMark = {":/icons/two.png", QT_TRANSLATE_NOOP("RecordMenu", "Второй маркер..."),
                              RecordKey::secondMark, [](Page) { return true; },
                              &LogBookWidget::changeSecondMarkRequest};
constexpr Entry separator = {};
constexpr Entry entries[] = {
    {":/icons/hour_glass.png", QT_TRANSLATE_NOOP("RecordMenu", "Время выполнения..."), RecordKey::execution,
     [](Page page) { return page.isTimeExecutionChangable(); }, &LogBookWidget::changeTimeExecRequest},
    secondMark,
    separator,
    {":/icons/apply.png", QT_TRANSLATE_NOOP("RecordMenu", "Утвердить текущую запись"), RecordKey::approve,
     [](Page page) { return page.isRecordDraft(); }, &LogBookWidget::approveRecordRequest},
    {":/icons/sign.png", QT_TRANSLATE_NOOP("RecordMenu", "Поставить визу на текущую запись"), RecordKey::visa,
     [](Page page) { return page.isRecordSignable(); }, &LogBookWidget::signRecordRequest},
    {":/icons/star.png", QT_TRANSLATE_NOOP("RecordMenu", "Перейти к первичной записи"), RecordKey::origin,
     [](Page page) { return page.isRecordHasOrigin(); }, &LogBookWidget::goToOriginRecord},
    separator,
    {":/icons/copy.png", QT_TRANSLATE_NOOP("RecordMenu", "Копировать запись"), RecordKey::copy,
     [](Page page) { return page.isRecordCopyable(); }, &LogBookWidget::copyRecordRequest},
    {":/icons/paste.png", QT_TRANSLATE_NOOP("RecordMenu", "Вставить запись"), RecordKey::paste,
     [](Page page) { return page.isRecordPastable(); }, &LogBookWidget::pasteRecordRequest},
};
} // namespace

RecordMenu::RecordMenu(LogBookWidget* page, QAbstractScrollArea* table)
    : QMenu(table), m_page(page), m_table(table)
{
    setObjectName(QStringLiteral("recordMenu"));
    for (const Entry& entry : entries) {
        QAction* action =
            entry.icon ? addAction(QIcon(QLatin1String(entry.icon)), tr(entry.text)) : addSeparator();
        if (!entry.icon)
            continue;
        connect(action, &QAction::triggered, page, entry.request);
        // The entry only shows the key: it is as enabled as when the menu was shown last.
        const QKeySequence key(QLatin1String(entry.key));
        action->setShortcut(key);
        const auto* shortcut = new QShortcut(key, page, nullptr, nullptr, Qt::WidgetWithChildrenShortcut);
        connect(shortcut, &QShortcut::activated, page, [page, chosen = &entry] {
            if (page->currentRecord() && chosen->isEnabled(*page))
                (page->*chosen->request)();
        });
    }
    table->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(table, &QWidget::customContextMenuRequested, this, &RecordMenu::showRecordMenu);
}

void RecordMenu::showRecordMenu(const QPoint& pos)
{
    for (int i = 0; i < int(std::size(entries)); ++i) {
        QAction* action = actions().at(i);
        if (entries[i].isEnabled)
            action->setEnabled(entries[i].isEnabled(*m_page));
        if (entries[i].request == secondMark.request)
            nameSecondMark(action);
    }
    popup(m_table->viewport()->mapToGlobal(pos));
}

/// Deliberate: the entry is never disabled, so the dialog opens on any record; only its look follows the
/// record.
void RecordMenu::nameSecondMark(QAction* action)
{
    const QString path = m_page->secondMarkIconPath();
    const QString command = m_page->secondMarkCommand();
    const QString name = command.isEmpty() ? m_page->iconPathToName(path) : command;
    const QIcon marker = MarkerIcon::at(path);
    action->setIcon(marker.isNull() ? QIcon(QLatin1String(secondMark.icon)) : marker);
    action->setText(name.isEmpty() ? tr(secondMark.text) : ShownText::entry(name));
}
