#pragma once

#include "TemplatesModel.h"

#include "MDArray.h"

#include <QSet>

/// Builds the nodes of the tree in one pass over the tables. Starts at the top categories of each level and
/// finds children by the arrays' indexes; a category is entered only once, which guards against cycles in
/// damaged rows.
class TemplatesModel::Builder
{
public:
    explicit Builder(const TemplatesSource& source);

    std::vector<Node> nodes;
    QHash<QString, std::vector<int>> places;
    int templateCount = 0;

private:
    using Records = std::vector<MDRData*>;

    int addNode(Kind kind, int parent, const QString& key, const QString& name);
    void addLevel(const QString& key, const QString& caption, const Records& topCategories);
    void addCategories(int parent, const Records& categories);
    void addTemplates(int parent, const QString& categoryKey);
    void addFavourites(int group, const QStringList& keys);
    Records commonCategories() const;
    Records subcategories(const QString& parentKey) const;
    bool isWanted(const MDRData* record) const;

    const TemplatesSource& m_source;
    QSet<QString> m_seen;
};
