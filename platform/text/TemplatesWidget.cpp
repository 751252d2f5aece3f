#include "TemplatesWidget.h"

#include "CModelTable.h"
#include "Fields.h"
#include "TemplateFavourites.h"
#include "TemplatesModel.h"
#include "ui_TemplatesWidget.h"

#include <QAction>
#include <QKeyEvent>
#include <QMenu>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QTimer>

namespace
{
// A tree up to this size is shown expanded, so that everything is visible.
constexpr int SmallTree = 100;
// Up to this number of matches all branches are expanded; nobody looks through more.
constexpr int UnfoldedMatches = 500;
constexpr int PageStep = 10;
} // namespace

TemplatesWidget::TemplatesWidget(QWidget* parent)
    : QWidget(parent),
      m_form(new Ui::TemplatesWidget),
      m_model(new TemplatesModel(this)),
      m_source(new TemplatesSource),
      m_favourites(new TemplateFavourites),
      m_pinAction(new QAction(tr("Закрепить"), this)),
      m_refreshTimer(new QTimer(this))
{
    m_form->setupUi(this);
    m_form->emptyLabel->hide();
    m_form->templatesTree->setModel(m_model);
    m_form->searchEdit->installEventFilter(this);
    m_form->templatesTree->installEventFilter(this);

    m_pinAction->setObjectName(QStringLiteral("pinAction"));
    m_pinAction->setShortcut(Qt::CTRL | Qt::Key_D);
    m_pinAction->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    m_pinAction->setEnabled(false);
    addAction(m_pinAction);
    m_refreshTimer->setSingleShot(true);
    m_refreshTimer->setInterval(0);

    connect(m_pinAction, &QAction::triggered, this, &TemplatesWidget::togglePinned);
    connect(m_refreshTimer, &QTimer::timeout, this, &TemplatesWidget::refresh);
    connect(m_form->searchEdit, &QLineEdit::textChanged, this, &TemplatesWidget::filter);
    QTreeView* tree = m_form->templatesTree;
    connect(tree->selectionModel(), &QItemSelectionModel::currentChanged, this, &TemplatesWidget::follow);
    connect(tree, &QTreeView::clicked, this, &TemplatesWidget::choose);
    connect(tree, &QTreeView::doubleClicked, this, &TemplatesWidget::activate);
    connect(tree, &QTreeView::customContextMenuRequested, this, &TemplatesWidget::showMenu);
    connect(tree, &QTreeView::expanded, this,
            [this](const QModelIndex& index) { noteExpanded(index, true); });
    connect(tree, &QTreeView::collapsed, this,
            [this](const QModelIndex& index) { noteExpanded(index, false); });
}

TemplatesWidget::~TemplatesWidget() = default;

void TemplatesWidget::setTextCodec(QTextCodec* codec)
{
    m_source->codec = codec;
    markStale();
}

void TemplatesWidget::setCatsTemplateTable(CModelTable* table)
{
    m_source->categories = table;
    markStale();
}

void TemplatesWidget::setTemplatesTable(CModelTable* table)
{
    m_source->templates = table;
    markStale();
}

void TemplatesWidget::setDepartmentsTable(CModelTable* table)
{
    m_source->departments = table;
    markStale();
}

void TemplatesWidget::setOrgTypesTable(CModelTable* table)
{
    m_source->orgTypes = table;
    markStale();
}

void TemplatesWidget::setRootDepKeyLink(const QString& key)
{
    m_source->departmentKey = key;
    m_favourites->setOwner(m_userKey, key);
    markStale();
}

void TemplatesWidget::setRootOrgKeyLink(const QString& key)
{
    m_source->orgTypeKey = key;
    markStale();
}

void TemplatesWidget::setTemplateProps(const QStringList& props, bool present)
{
    m_source->props = props;
    m_source->propsPresent = present;
    markStale();
}

void TemplatesWidget::setUserKey(const QString& workerKey)
{
    m_userKey = workerKey;
    m_favourites->setOwner(workerKey, m_source->departmentKey);
    m_pinAction->setEnabled(!workerKey.isEmpty());
    markStale();
}

bool TemplatesWidget::hasTemplates() const
{
    return m_model->templateCount() > 0;
}

void TemplatesWidget::reloadTemplates()
{
    markStale();
    if (isVisible() && !m_chosen.isEmpty() && !currentTemplate())
        refresh();
}

void TemplatesWidget::markStale()
{
    m_stale = true;
    if (isVisible()) // a bulk change of the tables sends thousands of events: one rebuild is enough
        m_refreshTimer->start();
}

void TemplatesWidget::refresh()
{
    m_refreshTimer->stop();
    if (!m_stale)
        return;
    m_stale = false;
    m_source->recent = m_favourites->recent();
    m_source->pinned = m_favourites->pinned();
    const QModelIndex current = m_form->templatesTree->currentIndex();
    const bool searching = m_model->isFiltered() && m_form->searchEdit->hasFocus();
    const QString key = current.data(TemplatesModel::KeyRole).toString();
    const QString group = current.isValid() ? m_model->groupOf(current) : QString();
    const int scrolled = m_form->templatesTree->verticalScrollBar()->value();
    {
        QScopedValueRollback<bool> arranging(m_arranging, true);
        m_model->rebuild(*m_source);
        arrange();
    }
    if (searching)
        highlight(m_model->indexOf(key, group));
    else
        highlightChosen();
    m_form->templatesTree->doItemsLayout(); // the scroll bar has no range before
    m_form->templatesTree->verticalScrollBar()->setValue(scrolled);
    if (!m_chosen.isEmpty() && !m_model->contains(m_chosen))
        clearSelection();
}

void TemplatesWidget::arrange()
{
    if (!m_model->isFiltered())
        restoreExpanded(QModelIndex());
    else if (m_model->shownCount() <= UnfoldedMatches)
        m_form->templatesTree->expandAll();
    else
        m_form->templatesTree->expandToDepth(0);
    m_form->emptyLabel->setText(
        m_model->isFiltered() ? tr("Ничего не найдено")
                              : tr("Нет доступных шаблонов.\nИх заводит администратор в конфигураторе."));
    m_form->emptyLabel->setVisible(m_model->rowCount() == 0);
}

bool TemplatesWidget::isOpenByDefault(const QModelIndex& branch) const
{
    return !branch.parent().isValid() || m_model->templateCount() <= SmallTree;
}

void TemplatesWidget::restoreExpanded(const QModelIndex& parent)
{
    for (int row = 0; row < m_model->rowCount(parent); ++row) {
        const QModelIndex branch = m_model->index(row, 0, parent);
        if (branch.data(TemplatesModel::TemplateRole).toBool())
            continue;
        const bool toggled = m_toggled.contains(branch.data(TemplatesModel::KeyRole).toString());
        if (isOpenByDefault(branch) != toggled) {
            m_form->templatesTree->expand(branch);
            restoreExpanded(branch);
        }
    }
}

void TemplatesWidget::noteExpanded(const QModelIndex& branch, bool expanded)
{
    if (m_arranging || m_model->isFiltered())
        return;
    const QString key = branch.data(TemplatesModel::KeyRole).toString();
    if (expanded == isOpenByDefault(branch))
        m_toggled.remove(key);
    else
        m_toggled.insert(key);
}

void TemplatesWidget::filter(const QString& query)
{
    refresh();
    QScopedValueRollback<bool> arranging(m_arranging, true);
    m_model->setFilter(query);
    arrange();
    if (m_model->isFiltered())
        highlight(m_model->bestMatch());
    else
        highlightChosen();
}

void TemplatesWidget::highlight(const QModelIndex& index)
{
    QScopedValueRollback<bool> arranging(m_arranging, true);
    m_form->templatesTree->selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect);
    if (index.isValid())
        m_form->templatesTree->scrollTo(index);
}

void TemplatesWidget::highlightChosen()
{
    highlight(m_model->indexOf(m_chosen, m_chosenGroup));
}

void TemplatesWidget::follow(const QModelIndex& index)
{
    if (!m_arranging)
        choose(index);
}

void TemplatesWidget::choose(const QModelIndex& index)
{
    if (index.data(TemplatesModel::TemplateRole).toBool()) {
        setChosen(index.data(TemplatesModel::KeyRole).toString(), m_model->groupOf(index));
    } else { // moving over a category does not change the chosen template
        m_form->templatesTree->selectionModel()->select(m_model->indexOf(m_chosen, m_chosenGroup),
                                                        QItemSelectionModel::ClearAndSelect);
    }
}

void TemplatesWidget::activate(const QModelIndex& index)
{
    if (!index.data(TemplatesModel::TemplateRole).toBool())
        return;
    choose(index);
    emit templateActivated();
}

void TemplatesWidget::setChosen(const QString& key, const QString& group)
{
    m_chosenGroup = group;
    if (key == m_chosen)
        return;
    m_chosen = key;
    emit selectionChanged();
}

void TemplatesWidget::selectFirstTemplate()
{
    m_form->searchEdit->clear();
    refresh();
    const QModelIndex first = m_model->firstTemplate();
    if (!first.isValid()) {
        clearSelection();
        return;
    }
    highlight(first);
    choose(first);
}

void TemplatesWidget::clearSelection()
{
    highlight(QModelIndex());
    setChosen(QString(), QString());
}

bool TemplatesWidget::selectTemplate(const QString& key)
{
    refresh();
    if (!m_model->contains(key))
        return false;
    if (!m_model->indexOf(key).isValid())
        m_form->searchEdit->clear();
    const QModelIndex index = m_model->indexOf(key);
    highlight(index);
    choose(index);
    return true;
}

bool TemplatesWidget::activatePinned(int number)
{
    refresh();
    const QString key = m_model->pinned(number);
    if (key.isEmpty() || !selectTemplate(key))
        return false;
    emit templateActivated();
    return true;
}

MDRData* TemplatesWidget::currentTemplate() const
{
    return recordByKeyLink(m_source->templates, m_chosen.toUtf8().constData());
}

void TemplatesWidget::noteUse()
{
    m_favourites->noteUse(m_chosen);
    markStale();
}

void TemplatesWidget::togglePinned()
{
    const QModelIndex index = m_form->templatesTree->currentIndex();
    if (!index.data(TemplatesModel::TemplateRole).toBool())
        return;
    const QString key = index.data(TemplatesModel::KeyRole).toString();
    m_favourites->setPinned(key, !m_favourites->pinned().contains(key));
    m_stale = true;
    refresh();
}

void TemplatesWidget::showMenu(const QPoint& position)
{
    const QModelIndex index = m_form->templatesTree->indexAt(position);
    if (m_userKey.isEmpty() || !index.data(TemplatesModel::TemplateRole).toBool())
        return;
    const QString key = index.data(TemplatesModel::KeyRole).toString();
    const bool pinned = m_favourites->pinned().contains(key);
    m_pinAction->setText(pinned ? tr("Открепить") : tr("Закрепить"));
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->addAction(m_pinAction);
    if (const QString shortcut = m_model->shortcutOf(key); !shortcut.isEmpty()) {
        QAction* write = menu->addAction(tr("Написать по шаблону"), this, [this, key] {
            if (selectTemplate(key))
                emit templateActivated();
        });
        write->setObjectName(QStringLiteral("writeAction"));
        write->setShortcut(QKeySequence(shortcut));
        write->setShortcutVisibleInContextMenu(true);
    }
    menu->popup(m_form->templatesTree->viewport()->mapToGlobal(position));
}

void TemplatesWidget::startSearch()
{
    m_form->searchEdit->clear();
    m_form->searchEdit->setFocus(Qt::OtherFocusReason);
}

void TemplatesWidget::showEvent(QShowEvent* event)
{
    refresh();
    QWidget::showEvent(event);
}

bool TemplatesWidget::eventFilter(QObject* watched, QEvent* event)
{
    const bool search = watched == m_form->searchEdit;
    if (event->type() == QEvent::KeyPress) {
        auto* key = static_cast<QKeyEvent*>(event);
        if (search ? searchKey(key) : treeKey(key))
            return true;
    } else if (event->type() == QEvent::FocusOut && search && !m_form->templatesTree->hasFocus()) {
        // A template that was only current while typing is not chosen. It remains current when the focus
        // moves into the tree, or to another window and back.
        const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
        if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason)
            highlightChosen();
    }
    return QWidget::eventFilter(watched, event);
}

bool TemplatesWidget::searchKey(QKeyEvent* event)
{
    const QModelIndex current = m_form->templatesTree->currentIndex();
    const auto move = [&](int step, int count) {
        QModelIndex target = current;
        for (int i = 0; i < count; ++i) {
            const QModelIndex next = m_model->nextTemplate(target, step);
            if (!next.isValid())
                break;
            target = next;
        }
        highlight(target);
        return true;
    };
    switch (event->key()) {
    case Qt::Key_Down:
        return move(1, 1);
    case Qt::Key_Up:
        return move(-1, 1);
    case Qt::Key_PageDown:
        return move(1, PageStep);
    case Qt::Key_PageUp:
        return move(-1, PageStep);
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (event->modifiers() & Qt::ControlModifier)
            return false;
        activate(current);
        return true;
    case Qt::Key_Escape:
        if (m_form->searchEdit->text().isEmpty())
            return false;
        m_form->searchEdit->clear();
        return true;
    default:
        return false;
    }
}

bool TemplatesWidget::treeKey(QKeyEvent* event)
{
    const bool command = event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    if (command)
        return false;
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        activate(m_form->templatesTree->currentIndex());
        return true;
    }
    const QString text = event->text();
    if (text.isEmpty() || !text.at(0).isLetterOrNumber())
        return false;
    startSearch();
    QCoreApplication::sendEvent(m_form->searchEdit, event);
    return true;
}
