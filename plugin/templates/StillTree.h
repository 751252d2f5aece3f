#pragma once

#include <QTreeView>

/// Switches the animation of a tree off as long as it exists: during an animation a row that was scrolled
/// to would move out of view.
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
