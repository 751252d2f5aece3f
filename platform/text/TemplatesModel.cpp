#include "TemplatesModel.h"

#include "ShownText.h"
#include "TemplatesModelBuilder.h"
#include "TextMatch.h"

#include <algorithm>
#include <QFont>

namespace
{
constexpr int PartLimit = 32; // maximum number of query words
} // namespace

TemplatesModel::TemplatesModel(QObject* parent)
    : QAbstractItemModel(parent),
      m_folderIcon(QStringLiteral(":/icons/folder.png")),
      m_templateIcon(QStringLiteral(":/icons/template.png")),
      m_nodes(1)
{
}

void TemplatesModel::rebuild(const TemplatesSource& source)
{
    beginResetModel();
    Builder builder(source);
    m_nodes = std::move(builder.nodes);
    m_places = std::move(builder.places);
    m_templateCount = builder.templateCount;
    m_hideEmpty = !source.props.isEmpty();
    applyFilter();
    endResetModel();
}

void TemplatesModel::setFilter(const QString& query)
{
    const QStringList parts = TextMatch::parts(query).mid(0, PartLimit);
    if (parts == m_parts)
        return;
    beginResetModel();
    m_parts = parts;
    applyFilter();
    endResetModel();
}

void TemplatesModel::applyFilter()
{
    const quint64 allParts = (quint64(1) << m_parts.size()) - 1;
    const bool hideEmpty = m_hideEmpty || isFiltered();
    // A bit for each word found in the name of a node or of a category above it; parents come before
    // children.
    std::vector<quint64> found(m_nodes.size(), 0);
    std::vector<bool> shown(m_nodes.size(), false);
    for (std::size_t node = 1; node < m_nodes.size(); ++node) {
        found[node] = found[static_cast<std::size_t>(m_nodes[node].parent)];
        for (int part = 0; part < m_parts.size(); ++part) {
            if (m_nodes[node].folded.contains(m_parts.at(part)))
                found[node] |= quint64(1) << part;
        }
        const Kind kind = m_nodes[node].kind;
        shown[node] =
            kind == Kind::Template ? found[node] == allParts : kind != Kind::Favourites && !hideEmpty;
    }
    for (std::size_t node = m_nodes.size() - 1; node > 0; --node) {
        if (shown[node])
            shown[static_cast<std::size_t>(m_nodes[node].parent)] = true;
    }

    m_shownCount = 0;
    for (Node& node : m_nodes)
        node.shown.clear();
    for (std::size_t number = 1; number < m_nodes.size(); ++number) {
        Node& node = m_nodes[number];
        node.row = -1;
        if (!shown[number])
            continue;
        Node& parent = m_nodes[static_cast<std::size_t>(node.parent)];
        node.row = static_cast<int>(parent.shown.size());
        parent.shown.push_back(static_cast<int>(number));
        if (node.kind == Kind::Template && parent.kind == Kind::Category)
            ++m_shownCount;
    }
    m_order.clear();
    numberTemplates(0);
}

void TemplatesModel::numberTemplates(int number)
{
    Node& node = m_nodes[static_cast<std::size_t>(number)];
    node.order = static_cast<int>(m_order.size());
    if (node.kind == Kind::Template)
        m_order.push_back(number);
    for (const int child : node.shown)
        numberTemplates(child);
}

QModelIndex TemplatesModel::firstTemplate() const
{
    for (const int number : m_order) {
        if (m_nodes[static_cast<std::size_t>(groupNode(number))].kind == Kind::Level)
            return indexOfNode(number);
    }
    return QModelIndex();
}

QModelIndex TemplatesModel::nextTemplate(const QModelIndex& from, int step) const
{
    const int count = static_cast<int>(m_order.size());
    int position = step > 0 ? 0 : count - 1;
    if (from.isValid()) {
        const Node& node = m_nodes[static_cast<std::size_t>(nodeOf(from))];
        // In the order of the tree, a category is between the template before it and the first one below
        // it.
        position = node.order + (step > 0 ? (node.kind == Kind::Template ? 1 : 0) : -1);
    }
    return position >= 0 && position < count ? indexOfNode(m_order[static_cast<std::size_t>(position)])
                                             : QModelIndex();
}

QModelIndex TemplatesModel::bestMatch() const
{
    if (m_order.empty())
        return QModelIndex();
    const auto rank = [this](int number) {
        const QString& name = m_nodes[static_cast<std::size_t>(number)].folded;
        const bool beginsWords = std::all_of(m_parts.begin(), m_parts.end(), [&name](const QString& part) {
            return TextMatch::beginsWord(name, part);
        });
        return beginsWords ? (name.startsWith(m_parts.first()) ? 0 : 1) : 2;
    };
    int best = m_order.front();
    for (const int number : m_order) // the first ones of a rank
        if (rank(number) < rank(best))
            best = number;
    return indexOfNode(best);
}

QModelIndex TemplatesModel::indexOf(const QString& templateKey, const QString& nearGroup) const
{
    const std::vector<int> places = m_places.value(templateKey);
    int chosen = -1;
    for (const int number : places) {
        const bool isNear = m_nodes[static_cast<std::size_t>(groupNode(number))].key == nearGroup;
        if (m_nodes[static_cast<std::size_t>(number)].row >= 0 && (chosen < 0 || isNear))
            chosen = number;
    }
    return chosen < 0 ? QModelIndex() : indexOfNode(chosen);
}

QString TemplatesModel::pinned(int number) const
{
    for (const Node& node : m_nodes) {
        const bool isPinned = node.kind == Kind::Template &&
                              m_nodes[static_cast<std::size_t>(node.parent)].key == QLatin1String("#pinned");
        if (isPinned && --number == 0)
            return node.key;
    }
    return QString();
}

QString TemplatesModel::shortcutOf(const QString& templateKey) const
{
    for (int number = 1; number <= PinnedKeys; ++number) {
        const QString key = pinned(number);
        if (key.isEmpty())
            break;
        if (key == templateKey)
            return QStringLiteral("Alt+%1").arg(number);
    }
    return QString();
}

QString TemplatesModel::groupOf(const QModelIndex& index) const
{
    return m_nodes[static_cast<std::size_t>(groupNode(nodeOf(index)))].key;
}

int TemplatesModel::groupNode(int number) const
{
    while (m_nodes[static_cast<std::size_t>(number)].parent > 0)
        number = m_nodes[static_cast<std::size_t>(number)].parent;
    return number;
}

QModelIndex TemplatesModel::indexOfNode(int number) const
{
    const int row = m_nodes[static_cast<std::size_t>(number)].row;
    return row < 0 ? QModelIndex() : createIndex(row, 0, static_cast<quintptr>(number));
}

int TemplatesModel::nodeOf(const QModelIndex& index) const
{
    return index.isValid() ? static_cast<int>(index.internalId()) : 0;
}

QModelIndex TemplatesModel::index(int row, int column, const QModelIndex& parent) const
{
    if (!hasIndex(row, column, parent))
        return QModelIndex();
    const Node& node = m_nodes[static_cast<std::size_t>(nodeOf(parent))];
    return createIndex(row, column, static_cast<quintptr>(node.shown[static_cast<std::size_t>(row)]));
}

QModelIndex TemplatesModel::parent(const QModelIndex& index) const
{
    if (!index.isValid())
        return QModelIndex();
    const int parent = m_nodes[static_cast<std::size_t>(nodeOf(index))].parent;
    return parent > 0 ? indexOfNode(parent) : QModelIndex();
}

int TemplatesModel::rowCount(const QModelIndex& parent) const
{
    return parent.column() > 0
               ? 0
               : static_cast<int>(m_nodes[static_cast<std::size_t>(nodeOf(parent))].shown.size());
}

QVariant TemplatesModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return QVariant();
    const Node& node = m_nodes[static_cast<std::size_t>(nodeOf(index))];
    const bool group = node.kind == Kind::Favourites || node.kind == Kind::Level;
    switch (role) {
    case Qt::DisplayRole:
        return node.name;
    case Qt::ToolTipRole: {
        // Names are truncated in a narrow tree, and a recent template does not show its category.
        QStringList path{node.name};
        int parent =
            m_nodes[static_cast<std::size_t>(m_places.value(node.key, {nodeOf(index)}).front())].parent;
        for (; parent > 0; parent = m_nodes[static_cast<std::size_t>(parent)].parent)
            path.prepend(m_nodes[static_cast<std::size_t>(parent)].name);
        const QString key = node.kind == Kind::Template ? shortcutOf(node.key) : QString();
        const QString tip = path.join(QStringLiteral(" / "));
        return ShownText::tip(key.isEmpty() ? tip : QStringLiteral("%1 (%2)").arg(tip, key));
    }
    case Qt::DecorationRole:
        if (group)
            return QVariant();
        return node.kind == Kind::Template ? m_templateIcon : m_folderIcon;
    case Qt::FontRole: {
        if (!group)
            return QVariant();
        QFont font;
        font.setBold(true);
        return font;
    }
    case KeyRole:
        return node.key;
    case TemplateRole:
        return node.kind == Kind::Template;
    default:
        return QVariant();
    }
}

Qt::ItemFlags TemplatesModel::flags(const QModelIndex& index) const
{
    if (!index.isValid())
        return Qt::NoItemFlags;
    if (m_nodes[static_cast<std::size_t>(nodeOf(index))].kind == Kind::Template)
        return Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
    return Qt::ItemIsEnabled;
}
