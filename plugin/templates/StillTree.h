#pragma once

#include <QTreeView>

/// Lets branches of a tree unfold at once while it lives: under an animation a row that is scrolled to would slide out of
/// sight again.
class StillTree
{
public:
    explicit StillTree(QTreeView* tree) : m_tree(tree), m_wasAnimated(tree->isAnimated())
    {
        tree->setAnimated(false);
    }
    ~StillTree() { m_tree->setAnimated(m_wasAnimated); }
    StillTree(const StillTree&) = delete;
    StillTree& operator=(const StillTree&) = delete;

private:
    QTreeView* m_tree;
    bool m_wasAnimated;
};
