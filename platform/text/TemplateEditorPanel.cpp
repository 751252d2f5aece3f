#include "TemplateEditorPanel.h"

#include "CModelTable.h"
#include "Fields.h"
#include "HtmlParser.h"
#include "MDRValues.h"
#include "ShownText.h"
#include "TemplateEditorText.h"
#include "TextMatch.h"

#include <algorithm>
#include <QCollator>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QSortFilterProxyModel>
#include <QStandardItemModel>
#include <QTextCodec>
#include <QTreeView>
#include <QVBoxLayout>

namespace
{
/// Shows the parameters whose names, together with the names of their groups, contain every word of the
/// query. Groups are shown with their content.
class Matches : public QSortFilterProxyModel
{
public:
    using QSortFilterProxyModel::QSortFilterProxyModel;
    void setQuery(const QString& query)
    {
        m_parts = TextMatch::parts(query);
        invalidateFilter();
    }
    bool isSearching() const { return !m_parts.isEmpty(); }

    QStringList mimeTypes() const override { return {TemplateEditorText::parameterFormat()}; }
    QMimeData* mimeData(const QModelIndexList& indexes) const override
    {
        auto* mime = new QMimeData;
        if (!indexes.isEmpty())
            mime->setData(TemplateEditorText::parameterFormat(),
                          indexes.first().data(TemplateEditorPanel::HtmlRole).toString().toUtf8());
        return mime;
    }
    /// Only copying: after a move the view would remove the parameter from the tree.
    Qt::DropActions supportedDragActions() const override { return Qt::CopyAction; }

protected:
    bool filterAcceptsRow(int row, const QModelIndex& parent) const override
    {
        const QModelIndex index = sourceModel()->index(row, 0, parent);
        if (!index.data(TemplateEditorPanel::HtmlRole).isValid())
            return false;
        QString path;
        for (QModelIndex at = index; at.isValid(); at = at.parent())
            path += at.data().toString() + QLatin1Char('\n');
        return TextMatch::matches(TextMatch::folded(path), m_parts);
    }

private:
    QStringList m_parts;
};

QString groupKey(const QString& key)
{
    return QLatin1String("group/") + key;
}

QString parameterKey(const QString& key)
{
    return QLatin1String("parameter/") + key;
}
} // namespace

TemplateEditorPanel::TemplateEditorPanel(QWidget* parent)
    : QWidget(parent),
      m_codec(QTextCodec::codecForName("UTF-8")),
      m_model(new QStandardItemModel(this)),
      m_shown(new Matches(this)),
      m_search(new QLineEdit(this)),
      m_tree(new QTreeView(this))
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(4);
    layout->addWidget(m_search);
    layout->addWidget(m_tree, 1);

    m_search->setObjectName(QStringLiteral("parameterSearch"));
    m_search->setPlaceholderText(tr("Поиск параметра"));
    m_search->setAccessibleName(m_search->placeholderText());
    m_search->setClearButtonEnabled(true);
    m_search->installEventFilter(this);
    setFocusProxy(m_search);

    m_shown->setRecursiveFilteringEnabled(true);
    m_shown->setSourceModel(m_model);
    m_tree->setObjectName(QStringLiteral("parametersTree"));
    m_tree->setAccessibleName(tr("Параметры"));
    m_tree->setModel(m_shown);
    m_tree->setHeaderHidden(true);
    m_tree->setUniformRowHeights(true);
    m_tree->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_tree->setExpandsOnDoubleClick(true);
    m_tree->setDragDropMode(QAbstractItemView::DragOnly);
    m_tree->installEventFilter(this);

    connect(m_search, &QLineEdit::textChanged, this, &TemplateEditorPanel::search);
    connect(m_tree, &QTreeView::doubleClicked, this, &TemplateEditorPanel::take);
    const auto noteState = [this](const QModelIndex& index, bool open) {
        if (static_cast<Matches*>(m_shown)->isSearching())
            return;
        const QString key = index.data(KeyRole).toString();
        if (open)
            m_collapsed.remove(key);
        else
            m_collapsed.insert(key);
    };
    connect(m_tree, &QTreeView::collapsed, this, [noteState](const QModelIndex& i) { noteState(i, false); });
    connect(m_tree, &QTreeView::expanded, this, [noteState](const QModelIndex& i) { noteState(i, true); });
}

void TemplateEditorPanel::setTextCodec(QTextCodec* codec)
{
    if (codec)
        m_codec = codec;
    reload();
}

void TemplateEditorPanel::setCategories(CModelTable* table)
{
    m_categories = table;
    reload();
}

void TemplateEditorPanel::setParameters(CModelTable* table)
{
    m_parameters = table;
    reload();
}

void TemplateEditorPanel::setFilter(const QStringList& names)
{
    m_filter = names;
    reload();
}

void TemplateEditorPanel::setTaking(bool taking)
{
    m_taking = taking;
    m_tree->setDragEnabled(taking);
}

QSize TemplateEditorPanel::sizeHint() const
{
    return QSize(fontMetrics().averageCharWidth() * 32, fontMetrics().lineSpacing() * 12);
}

TemplateEditorPanel::Row TemplateEditorPanel::read(const MDRData* record, bool parameter) const
{
    const auto text = [&](const char* name) {
        MDRVar value;
        MDRGetVal(MDRFldByName(record->owner, name), record, &value);
        return m_codec->toUnicode(MDRValue::copy(value));
    };
    Row row;
    row.key = parameter ? parameterKey(text(Field::KeyLink)) : groupKey(text(Field::KeyLink));
    row.name = text(Field::nameLoc);
    const QString category = text(parameter ? Field::CategoryKey : Field::ParentKey);
    row.category = category.isEmpty() ? QString() : groupKey(category);
    if (parameter) {
        row.html = text(Field::html);
        const HtmlParser parser(row.html.toStdString());
        const QString name = QString::fromStdString(parser.propertyNameValue(0));
        row.offered = parser.countParameters() > 0 && (m_filter.isEmpty() || m_filter.contains(name));
    }
    return row;
}

QVector<TemplateEditorPanel::Row> TemplateEditorPanel::rows(const CModelTable* table, bool parameters) const
{
    QVector<Row> rows;
    const int count = table ? MDAKeyRecCount(table->data.array, 0) : 0;
    for (int i = 0; i < count; ++i) {
        Row row = read(MDARec(table->data.array, 0, i), parameters);
        if (row.offered)
            rows.append(row);
    }
    QCollator byName;
    byName.setNumericMode(true);
    std::stable_sort(rows.begin(), rows.end(),
                     [&byName](const Row& a, const Row& b) { return byName.compare(a.name, b.name) < 0; });
    return rows;
}

void TemplateEditorPanel::reload()
{
    const QString current = m_tree->currentIndex().data(KeyRole).toString();
    m_model->clear();
    m_items.clear();
    const QVector<Row> groups = rows(m_categories, false);
    const QVector<Row> parameters = rows(m_parameters, true);
    for (const Row& group : groups)
        m_items.insert(group.key, itemOf(group));
    QHash<QString, QString> parents;
    for (const Row& group : groups)
        parents.insert(group.key, m_items.contains(group.category) ? group.category : QString());
    for (const Row& group : groups) {
        // Groups that contain each other have no valid parent: they are shown at the top level.
        QSet<QString> seen{group.key};
        QString above = parents.value(group.key);
        while (!above.isEmpty() && !seen.contains(above)) {
            seen.insert(above);
            above = parents.value(above);
        }
        if (!above.isEmpty())
            parents.insert(group.key, QString());
    }
    for (const Row& group : groups) {
        QStandardItem* parent = m_items.value(parents.value(group.key), m_model->invisibleRootItem());
        parent->appendRow(m_items.value(group.key));
    }
    for (const Row& parameter : parameters) {
        QStandardItem* item = itemOf(parameter);
        m_items.value(parameter.category, m_model->invisibleRootItem())->appendRow(item);
        m_items.insert(parameter.key, item);
    }
    expandAsBefore();
    if (QStandardItem* item = m_items.value(current))
        m_tree->setCurrentIndex(m_shown->mapFromSource(item->index()));
}

QStandardItem* TemplateEditorPanel::itemOf(const Row& row) const
{
    auto* item = new QStandardItem(row.name);
    item->setEditable(false);
    item->setDragEnabled(!row.html.isEmpty());
    item->setDropEnabled(false);
    item->setData(row.key, KeyRole);
    item->setToolTip(ShownText::tip(row.name));
    if (!row.html.isEmpty())
        item->setData(row.html, HtmlRole);
    return item;
}

void TemplateEditorPanel::update(MDRData* record)
{
    const bool isParameter = record && m_parameters && record->owner == m_parameters->data.array;
    const bool isGroup = record && m_categories && record->owner == m_categories->data.array;
    if (!isParameter && !isGroup)
        return;
    const Row row = read(record, isParameter);
    QStandardItem* item = m_items.value(row.key);
    const QString parent = item && item->parent() ? item->parent()->data(KeyRole).toString() : QString();
    if (!item || !row.offered || parent != row.category || item->text() != row.name) {
        reload(); // it may have moved
        return;
    }
    if (isParameter)
        item->setData(row.html, HtmlRole);
}

void TemplateEditorPanel::search(const QString& query)
{
    static_cast<Matches*>(m_shown)->setQuery(query);
    expandAsBefore();
    if (static_cast<Matches*>(m_shown)->isSearching())
        m_tree->setCurrentIndex(firstParameter());
}

void TemplateEditorPanel::expandAsBefore()
{
    const bool blocked = m_tree->blockSignals(true);
    m_tree->expandAll();
    if (!static_cast<Matches*>(m_shown)->isSearching()) {
        for (const QString& key : qAsConst(m_collapsed)) {
            if (QStandardItem* item = m_items.value(key))
                m_tree->collapse(m_shown->mapFromSource(item->index()));
        }
    }
    m_tree->blockSignals(blocked);
}

QModelIndex TemplateEditorPanel::firstParameter() const
{
    QModelIndex index = m_shown->index(0, 0);
    while (index.isValid() && !index.data(HtmlRole).isValid())
        index = m_shown->index(0, 0, index); // a group is shown only if it contains a parameter
    return index;
}

void TemplateEditorPanel::take(const QModelIndex& index)
{
    const QString html = index.data(HtmlRole).toString();
    if (m_taking && !html.isEmpty())
        emit taken(html);
}

bool TemplateEditorPanel::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress && event->type() != QEvent::ShortcutOverride)
        return QWidget::eventFilter(watched, event);
    const auto* key = static_cast<QKeyEvent*>(event);
    const bool escape = key->key() == Qt::Key_Escape;
    if (event->type() == QEvent::ShortcutOverride) {
        // The window may use these keys for its own content; here they must not reach it.
        if (!escape && !(watched == m_tree && key->key() == Qt::Key_Delete))
            return QWidget::eventFilter(watched, event);
        event->accept();
        return true;
    }
    if (escape) {
        m_search->clear();
        emit left();
        return true;
    }
    const bool enter = key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter;
    const QModelIndex current = m_tree->currentIndex();
    if (enter && current.isValid() && !current.data(HtmlRole).isValid() && watched == m_tree) {
        m_tree->setExpanded(current, !m_tree->isExpanded(current));
        return true;
    }
    if (enter) {
        take(current);
        return true;
    }
    if (watched == m_search && key->key() == Qt::Key_Down) {
        if (!current.isValid())
            m_tree->setCurrentIndex(m_shown->index(0, 0));
        m_tree->setFocus();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}
