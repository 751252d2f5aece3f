#include "PageTree.h"

#include "RecordValue.h"
#include "StillTree.h"
#include "TemplatesEditSourceModel.h"
#include "TemplatesProxyModel.h"
#include "TemplateTables.h"

#include <QSignalBlocker>

PageTree::PageTree(QTreeView* view, std::unique_ptr<TemplatesEditSourceModel> model, TemplateTables& tables,
                   const CModelTable* roots)
    : m_view(view),
      m_model(std::move(model)),
      m_proxy(std::make_unique<TemplatesProxyModel>()),
      m_tables(tables),
      m_roots(roots)
{
    m_model->setCatsTemplateTable(&tables.categories);
    m_model->setTemplatesTable(&tables.templates);
    m_model->setCatsTemplateEdit(&tables.categoriesEdit);
    m_model->setTemplatesEdit(&tables.templatesEdit);
    m_proxy->setDynamicSortFilter(true);
    m_proxy->setCatsTemplateTable(&tables.categories);
    m_proxy->setCatsTemplateEdit(&tables.categoriesEdit);
    m_proxy->setTemplatesTable(&tables.templates);
    m_proxy->setTemplatesEdit(&tables.templatesEdit);
}

PageTree::~PageTree()
{
    m_view->setModel(nullptr); // the view reads the tables
}

void PageTree::show(bool isEditable)
{
    m_proxy->setSourceModel(m_model.get());
    m_view->setModel(m_proxy.get());
    m_view->sortByColumn(0, Qt::AscendingOrder);
    if (!isEditable)
        return;
    m_view->setDragEnabled(true);
    m_view->setAcceptDrops(true);
    m_view->viewport()->setAcceptDrops(true);
    m_view->setDropIndicatorShown(true);
    m_view->setDragDropMode(QAbstractItemView::DragDrop);
    m_view->setDefaultDropAction(Qt::MoveAction);
    m_view->setDragDropOverwriteMode(false);
}

QItemSelectionModel* PageTree::selection() const
{
    return m_view->selectionModel();
}

QModelIndex PageTree::currentSource() const
{
    return m_proxy->mapToSource(m_view->currentIndex());
}

QModelIndex PageTree::folder(const QByteArray& key) const
{
    for (const CModelTable* folders : {&m_tables.categories, m_roots}) {
        const QModelIndex found = m_model->indexByRecord(recordByKeyLink(folders, key.constData()));
        if (found.isValid())
            return found;
    }
    return {};
}

MDRData* PageTree::currentRecord() const
{
    return m_model->recordByIndex(currentSource());
}

QModelIndexList PageTree::matcheIndexes(const QString& text) const
{
    if (text.isEmpty())
        return {};
    return m_proxy->match(m_proxy->index(0, 0), Qt::DisplayRole, text, -1,
                          Qt::MatchContains | Qt::MatchFixedString | Qt::MatchWrap | Qt::MatchRecursive);
}

bool PageTree::selectFirst()
{
    const QModelIndex first = m_proxy->mapFromSource(m_model->index(0, 0));
    // The filter may hide the first row of the source.
    const QModelIndex wanted = first.isValid() ? first : m_proxy->index(0, 0);
    if (!wanted.isValid())
        return false;
    m_view->clearSelection();
    m_view->setCurrentIndex(wanted);
    return true;
}

void PageTree::scrollTo(const QModelIndex& index)
{
    const StillTree still(m_view);
    m_view->setCurrentIndex(index);
    // not the index itself: a failed save removes rows
    m_view->scrollTo(m_view->currentIndex(), QAbstractItemView::EnsureVisible);
}

void PageTree::setFocusOn(const MDRData* record)
{
    const StillTree still(m_view);
    const QModelIndex index = m_proxy->mapFromSource(m_model->indexByRecord(record));
    {
        const QSignalBlocker quiet(selection());
        selection()->clearSelection();
        selection()->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
        selection()->select(index, QItemSelectionModel::Select | QItemSelectionModel::Current);
    }
    m_view->scrollTo(index, QAbstractItemView::EnsureVisible);
    if (index.parent().isValid())
        m_view->expand(index.parent());
    m_view->viewport()->update();
}

QModelIndex PageTree::putBack(const QModelIndex& previous)
{
    const QModelIndex wanted = previous.isValid() ? previous : selection()->currentIndex();
    {
        const QSignalBlocker quiet(selection());
        selection()->clearSelection();
        // through the view, which still has the requested row as current
        m_view->setCurrentIndex(wanted);
    }
    m_view->viewport()->update();
    m_view->scrollTo(wanted);
    return wanted;
}

void PageTree::removeRow(CModelTable* table, MDRData* record)
{
    const QModelIndex index = m_model->indexByRecord(record);
    if (index.isValid())
        m_model->beginRemoveRow(index.row(), index.parent());
    TemplateTables::deleteRecord(table, record);
    if (index.isValid())
        m_model->endRemoveRow();
}
