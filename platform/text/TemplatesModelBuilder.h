#pragma once

#include "TemplatesModel.h"

#include "MDArray.h"

#include <QSet>

/// One pass over the tables that makes the nodes of the tree. Starts at the top categories of each level and
/// finds children by the arrays' indexes; a category that was reached once is not entered again, so that
/// damaged rows whose parents form a ring cannot hold it up.
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
