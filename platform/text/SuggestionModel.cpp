#include "SuggestionModel.h"

#include "TextMatch.h"

#include <algorithm>

namespace
{
/// 0: begins with the query; 1: a word begins with its first word; 2: contains all words; -1: does not
/// match.
int rank(const QString& folded, const QString& query, const QStringList& words)
{
    if (!TextMatch::matches(folded, words))
        return -1;
    if (folded.startsWith(query))
        return 0;
    return TextMatch::beginsWord(folded, words.first()) ? 1 : 2;
}
} // namespace

SuggestionModel::SuggestionModel(QObject* parent) : QAbstractListModel(parent) {}

void SuggestionModel::setItems(const QVector<ReferenceItem>& items)
{
    m_items = items;
    find();
}

void SuggestionModel::setNearOnly(bool nearOnly)
{
    if (m_nearOnly == nearOnly)
        return;
    m_nearOnly = nearOnly;
    find();
}

void SuggestionModel::setQuery(const QString& query)
{
    m_query = query;
    find();
}

void SuggestionModel::find()
{
    beginResetModel();
    m_rows.clear();
    m_far = 0;
    const QStringList words = TextMatch::parts(m_query);
    const QString query = words.join(QLatin1Char(' '));
    QVector<int> found[2][3]; // by distance and rank
    for (int i = 0; i < m_items.size(); ++i) {
        const ReferenceItem& item = m_items.at(i);
        const int place = words.isEmpty() ? 0 : rank(item.folded, query, words);
        if (place < 0)
            continue;
        if (m_nearOnly && !item.near)
            ++m_far;
        else
            found[item.near ? 0 : 1][place].append(i);
    }
    for (const auto& distance : found) {
        for (const QVector<int>& ranked : distance)
            m_rows += ranked;
    }
    if (m_rows.size() > shownAtMost)
        m_rows.resize(shownAtMost);
    endResetModel();
}

const ReferenceItem* SuggestionModel::item(int row) const
{
    return row >= 0 && row < m_rows.size() ? &m_items.at(m_rows.at(row)) : nullptr;
}

const ReferenceItem* SuggestionModel::itemByText(const QString& text) const
{
    const QString folded = TextMatch::folded(text.trimmed());
    const auto reads = [&folded](const ReferenceItem& item) {
        return item.folded.startsWith(folded) && TextMatch::folded(item.text) == folded;
    };
    const auto found = std::find_if(m_items.begin(), m_items.end(), reads);
    return folded.isEmpty() || found == m_items.end() ? nullptr : &*found;
}

int SuggestionModel::rowOf(const QString& text) const
{
    const ReferenceItem* wanted = itemByText(text);
    for (int row = 0; wanted && row < m_rows.size(); ++row) {
        if (item(row) == wanted)
            return row;
    }
    return -1;
}

int SuggestionModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_rows.size() + (m_far > 0 ? 1 : 0);
}

QVariant SuggestionModel::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return QVariant();
    const ReferenceItem* found = item(index.row());
    if (role == MoreRole)
        return found == nullptr;
    if (!found)
        return role == Qt::DisplayRole ? tr("Искать во всех подразделениях: ещё %1").arg(m_far) : QVariant();
    if (role == Qt::DisplayRole || role == Qt::AccessibleTextRole)
        return found->text;
    return role == DetailRole ? found->detail : QVariant();
}
