#include "HelpWindow.h"

#include "CVrkCliMod.h"
#include "HelpBrowser.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QScreen>
#include <QShortcut>
#include <QSplitter>
#include <QTimer>
#include <QToolButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace
{
constexpr int sectionRole = Qt::UserRole;
constexpr int levelsOfContents = 3;
} // namespace

HelpWindow::HelpWindow(QWidget* parent)
    : QDialog(parent, Qt::Window),
      m_search(new QLineEdit),
      m_count(new QLabel),
      m_previous(newStep("previousButton", QStringLiteral("up-arrow"), tr("Предыдущее найденное"),
                         QKeySequence(Qt::SHIFT | Qt::Key_F3), -1)),
      m_next(newStep("nextButton", QStringLiteral("down-arrow"), tr("Следующее найденное"),
                     QKeySequence(Qt::Key_F3), 1)),
      m_contents(new QTreeWidget),
      m_browser(new HelpBrowser)
{
    setObjectName(QStringLiteral("helpWindow"));
    setWindowTitle(tr("Справка"));
    m_search->setObjectName(QStringLiteral("searchEdit"));
    m_search->setAccessibleName(tr("Поиск по справке"));
    m_search->setPlaceholderText(tr("Найти в справке (Ctrl + F)"));
    m_search->setClearButtonEnabled(true);
    m_count->setObjectName(QStringLiteral("countLabel"));
    m_contents->setObjectName(QStringLiteral("contentsTree"));
    m_contents->setAccessibleName(tr("Содержание"));
    m_contents->setHeaderHidden(true);
    m_contents->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    m_contents->header()->setStretchLastSection(false);
    m_browser->setObjectName(QStringLiteral("guideBrowser"));
    m_browser->setAccessibleName(tr("Текст справки"));

    auto* row = new QHBoxLayout;
    row->addWidget(m_search, 1);
    row->addWidget(m_count);
    row->addWidget(m_previous);
    row->addWidget(m_next);
    auto* parts = new QSplitter;
    parts->setChildrenCollapsible(false);
    parts->addWidget(m_contents);
    parts->addWidget(m_browser);
    parts->setStretchFactor(1, 1);
    auto* column = new QVBoxLayout(this);
    column->addLayout(row);
    column->addWidget(parts, 1);
    const int em = fontMetrics().height();
    const QSize room = screen() ? screen()->availableSize() * 17 / 20 : QSize(60 * em, 40 * em);
    resize(QSize(66 * em, 44 * em).boundedTo(room));
    parts->setSizes({width() * 3 / 10, width() * 7 / 10});

    m_browser->setGuide(m_guide.markdown());
    fillContents();
    connect(m_contents, &QTreeWidget::currentItemChanged, this, [this](const QTreeWidgetItem* item) {
        if (item)
            m_browser->showHeading(item->data(0, sectionRole).toInt());
    });
    connect(m_browser, &QTextBrowser::anchorClicked, this, [this](const QUrl& link) {
        const int target = m_guide.section(link.fragment(QUrl::FullyDecoded));
        if (target >= 0)
            showSection(target);
    });
    connect(m_search, &QLineEdit::textChanged, this, &HelpWindow::search);
    const auto* find = new QShortcut(QKeySequence::Find, this);
    connect(find, &QShortcut::activated, m_search, [this] {
        m_search->setFocus(Qt::ShortcutFocusReason);
        m_search->selectAll();
    });
    showCount();
    m_browser->setFocus(); // the keys of a reader: arrows and pages
}

QToolButton* HelpWindow::newStep(const char* name, const QString& icon, const QString& text,
                                 const QKeySequence& key, int by)
{
    auto* button = new QToolButton;
    button->setObjectName(QLatin1String(name));
    button->setIcon(CVrkCliMod::icon(icon + QStringLiteral(".png")));
    button->setToolTip(text);
    button->setProperty("shownKey", key.toString(QKeySequence::PortableText));
    const auto* shortcut = new QShortcut(key, this); // a button's own one acts only after a moment
    connect(shortcut, &QShortcut::activated, button, &QAbstractButton::click);
    connect(button, &QToolButton::clicked, this, [this, by] { step(by); });
    return button;
}

void HelpWindow::fillContents()
{
    QVector<QTreeWidgetItem*> path; // the last item of each level
    for (int i = 0; i < m_guide.sections().size(); ++i) {
        const GuideText::Section& section = m_guide.sections()[i];
        if (section.level > levelsOfContents)
            continue;
        while (path.size() >= section.level)
            path.removeLast();
        auto* item = path.isEmpty() ? new QTreeWidgetItem(m_contents) : new QTreeWidgetItem(path.last());
        item->setText(0, section.title);
        item->setData(0, sectionRole, i);
        while (path.size() < section.level)
            path.append(item);
    }
    m_contents->expandToDepth(0);
}

void HelpWindow::showSection(int section)
{
    show(); // the text has its lines only then
    raise();
    activateWindow();
    if (section < 0)
        return;
    for (QTreeWidgetItemIterator item(m_contents); *item; ++item) {
        if ((*item)->data(0, sectionRole).toInt() == section)
            m_contents->setCurrentItem(*item);
    }
    m_browser->showHeading(section);
    // Again when the window has its size, to which the pictures above are fitted.
    QTimer::singleShot(0, m_browser, [this, section] { m_browser->showHeading(section); });
    m_browser->setFocus();
}

void HelpWindow::search()
{
    m_hits = m_browser->mark(m_search->text());
    m_hit = m_hits > 0 ? m_browser->firstVisibleHit() : -1;
    m_browser->showHit(m_hit);
    showCount();
}

/// Goes round at both ends.
void HelpWindow::step(int by)
{
    if (m_hits == 0)
        return;
    m_hit = (m_hit + by + m_hits) % m_hits;
    m_browser->showHit(m_hit);
    showCount();
}

void HelpWindow::showCount()
{
    m_count->setText(m_search->text().trimmed().isEmpty() ? QString()
                     : m_hits == 0                        ? tr("Не найдено")
                                                          : tr("%1 из %2").arg(m_hit + 1).arg(m_hits));
    m_previous->setEnabled(m_hits > 0);
    m_next->setEnabled(m_hits > 0);
}

void HelpWindow::keyPressEvent(QKeyEvent* event)
{
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isEnter && m_search->hasFocus())
        step(event->modifiers() & Qt::ShiftModifier ? -1 : 1);
    else if (event->key() == Qt::Key_Escape && m_search->hasFocus() && !m_search->text().isEmpty())
        m_search->clear();
    else if (event->key() == Qt::Key_Escape)
        close();
    else if (!isEnter)
        QDialog::keyPressEvent(event);
}
