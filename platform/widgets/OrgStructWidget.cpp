#include "OrgStructWidget.h"

#include "OrgStructModel.h"
#include "TEventNciParse.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTreeView>
#include <QVBoxLayout>

struct OrgStructWidget::Private {
    Private() : model(&tables) { filter.setSourceModel(&model); }

    bool isChoosable() const { return filter.isSelectable(tree->currentIndex()); }
    void applyRoot();
    void applyFilter();
    void selectFirst();
    QModelIndex firstSelectable(const QModelIndex& parent) const;
    void makeCurrent(const QModelIndex& source);

    OrgStructTables tables;
    OrgStructModel model;
    OrgStructFilter filter;
    QLineEdit* search = nullptr;
    QTreeView* tree = nullptr;
    QString unseenWorker; ///< current, but not in the shown tree
};

// A restricted tree begins with its department: the levels above it are not shown.
void OrgStructWidget::Private::applyRoot()
{
    const QModelIndex department =
        filter.mapFromSource(model.indexOf(OrgStruct::Department, filter.rootDepartment()));
    tree->setRootIndex(filter.rootDepartment().isEmpty() ? QModelIndex() : department.parent());
}

void OrgStructWidget::Private::applyFilter()
{
    applyRoot();
    if (!search->text().trimmed().isEmpty() || !filter.rootDepartment().isEmpty())
        tree->expandAll();
    else
        tree->expandToDepth(1);
}

QModelIndex OrgStructWidget::Private::firstSelectable(const QModelIndex& parent) const
{
    for (int row = 0; row < filter.rowCount(parent); ++row) {
        const QModelIndex index = filter.index(row, 0, parent);
        if (filter.isSelectable(index))
            return index;
        const QModelIndex below = firstSelectable(index);
        if (below.isValid())
            return below;
    }
    return QModelIndex();
}

void OrgStructWidget::Private::selectFirst()
{
    const QModelIndex first = firstSelectable(tree->rootIndex());
    if (first.isValid())
        tree->setCurrentIndex(first);
}

void OrgStructWidget::Private::makeCurrent(const QModelIndex& source)
{
    const QModelIndex index = filter.mapFromSource(source);
    if (index.isValid()) {
        tree->setCurrentIndex(index);
        tree->scrollTo(index);
    } else {
        tree->selectionModel()->clear();
    }
}

OrgStructWidget::OrgStructWidget(QWidget* parent) : QWidget(parent), d(new Private)
{
    d->search = new QLineEdit(this);
    d->search->setObjectName(QStringLiteral("searchEdit"));
    d->search->setAccessibleName(tr("Поиск"));
    d->search->setPlaceholderText(tr("Поиск..."));
    d->search->setClearButtonEnabled(true);
    d->search->installEventFilter(this);
    d->tree = new QTreeView(this);
    d->tree->setObjectName(QStringLiteral("structTree"));
    d->tree->setAccessibleName(tr("Организационная структура"));
    d->tree->setHeaderHidden(true);
    d->tree->setUniformRowHeights(true);
    d->tree->setEditTriggers(QAbstractItemView::NoEditTriggers);
    d->tree->setModel(&d->filter);
    d->tree->installEventFilter(this);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(4);
    layout->addWidget(d->search);
    layout->addWidget(d->tree);

    connect(d->search, &QLineEdit::textChanged, this, [this](const QString& text) {
        d->filter.setQuery(text);
        d->applyFilter();
        if (!text.trimmed().isEmpty() && !d->isChoosable())
            d->selectFirst();
    });
    connect(d->tree, &QTreeView::doubleClicked, this, [this](const QModelIndex& index) {
        if (d->filter.isSelectable(index))
            emit itemActivated();
    });
    connect(d->tree->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex& current) {
                if (current.isValid())
                    d->unseenWorker.clear();
                emit currentChanged();
            });
}

OrgStructWidget::~OrgStructWidget()
{
    // The tree must disconnect from the models before they are destroyed.
    d->tree->disconnect(this);
    d->tree->selectionModel()->disconnect(this);
    delete d->tree;
}

void OrgStructWidget::init(CVrkCliMod* module)
{
    if (!module)
        return;
    d->tables.load(module);
    d->model.rebuild();
    d->applyFilter();
}

void OrgStructWidget::setRootDepartment(const QString& key)
{
    d->filter.setRootDepartment(key.isNull() ? QString(QLatin1String("")) : key);
    d->applyFilter();
}

void OrgStructWidget::resetRoot()
{
    d->filter.setRootDepartment(QString());
    d->applyFilter();
}

void OrgStructWidget::setSelectionType(int type)
{
    if (type == d->filter.selectionType())
        return;
    d->filter.setSelectionType(type);
    d->applyFilter();
    emit currentChanged();
}

int OrgStructWidget::selectionType() const
{
    return d->filter.selectionType();
}

void OrgStructWidget::setSelectionMode(QAbstractItemView::SelectionMode mode)
{
    d->tree->setSelectionMode(mode);
}

void OrgStructWidget::setCurrectItem(const OrgStruct::Worker& worker)
{
    const QModelIndex item = d->model.indexOf(OrgStruct::Person, worker.keyLink);
    if (item.isValid() && !d->filter.mapFromSource(item).isValid())
        d->search->clear();
    d->makeCurrent(item);
    // Dialogs query the names of a worker by his key, even if the tree does not show him.
    const bool known = d->tables.row(OrgStruct::Person, worker.keyLink).type == OrgStruct::Person;
    d->unseenWorker = known && !d->tree->currentIndex().isValid() ? worker.keyLink : QString();
}

OrgStruct::SelectedItem OrgStructWidget::selectedItem() const
{
    OrgStruct::SelectedItem item;
    int type = OrgStruct::None;
    QString key;
    const QModelIndex current = d->tree->currentIndex();
    if (d->filter.isSelectable(current)) {
        type = current.data(OrgStructModel::TypeRole).toInt();
        key = current.data(OrgStructModel::KeyRole).toString();
    } else if (!d->unseenWorker.isEmpty() && (d->filter.selectionType() & OrgStruct::Person)) {
        type = OrgStruct::Person;
        key = d->unseenWorker;
    }
    OrgStructTables::Row row = d->tables.row(type, key);
    item.type = row.type;
    if (row.type == OrgStruct::Person)
        item.worker = d->tables.worker(key);
    for (; row.type != OrgStruct::None; row = d->tables.parent(row.type, row.key)) {
        // The nearest item of each level counts: a department within a department has its own key.
        QString* keys[] = {&item.orgTypeKey, &item.organizationKey, &item.departmentKey};
        const int level = row.type == OrgStruct::OrgType ? 0 : row.type == OrgStruct::Organization ? 1 : 2;
        if (row.type != OrgStruct::Person) {
            if (keys[level]->isEmpty())
                *keys[level] = row.key;
            if (item.type == OrgStruct::Person)
                item.worker.path.prepend(row.name);
        }
    }
    return item;
}

void OrgStructWidget::MessageData(TEventNciParse* event)
{
    const int type = event ? d->tables.apply(*event) : OrgStruct::None;
    if (type == OrgStruct::None)
        return;
    d->model.refresh(type, QString::fromUtf8(event->recordKey));
    d->applyRoot();
}

void OrgStructWidget::startSearch()
{
    d->search->clear();
    d->search->setFocus(Qt::OtherFocusReason);
}

bool OrgStructWidget::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    auto* key = static_cast<QKeyEvent*>(event);
    switch (key->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (d->isChoosable())
            emit itemActivated();
        return true;
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        if (watched != d->search)
            break;
        QCoreApplication::sendEvent(d->tree, event);
        return true;
    default:
        break;
    }
    return QWidget::eventFilter(watched, event);
}
