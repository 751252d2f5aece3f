#include "StillTree.h"
#include "TemplatesProxyModel.h"
#include "TemplateTab.h"
#include "ui_TemplateTab.h"

QModelIndexList TemplateTab::matcheIndexes(const QString& text) const
{
    if (!m_proxy || text.isEmpty())
        return {};
    return m_proxy->match(m_proxy->index(0, 0), Qt::DisplayRole, text, -1,
                          Qt::MatchContains | Qt::MatchFixedString | Qt::MatchWrap | Qt::MatchRecursive);
}

void TemplateTab::goTo(const QModelIndex& index)
{
    QTreeView* tree = m_form->templatesTree;
    const StillTree still(tree);
    tree->setCurrentIndex(index);
    tree->scrollTo(tree->currentIndex(), QAbstractItemView::EnsureVisible); // a failed save removes rows
}

void TemplateTab::search(const QString& text)
{
    QPalette colours = palette();
    m_form->upSearchButton->setEnabled(false);
    m_form->downSearchButton->setEnabled(false);
    if (!text.isEmpty()) {
        const QModelIndexList found = matcheIndexes(text);
        if (found.isEmpty()) {
            colours.setColor(QPalette::Text, QColor(QStringLiteral("#DC143C")));
        } else {
            goTo(found.first());
            m_form->downSearchButton->setEnabled(found.size() >= 2);
        }
    }
    m_form->searchEdit->setPalette(colours);
}

void TemplateTab::searchUp()
{
    m_form->downSearchButton->setEnabled(true);
    const QModelIndexList found = matcheIndexes(m_form->searchEdit->text());
    const int position = found.indexOf(m_form->templatesTree->currentIndex());
    if (position >= 1)
        goTo(found.at(position - 1));
    if (position <= 1)
        m_form->upSearchButton->setEnabled(false);
}

void TemplateTab::searchDown()
{
    m_form->upSearchButton->setEnabled(true);
    const QModelIndexList found = matcheIndexes(m_form->searchEdit->text());
    const int next = found.indexOf(m_form->templatesTree->currentIndex()) + 1;
    if (next < found.size()) {
        goTo(found.at(next));
        m_form->downSearchButton->setEnabled(found.size() >= 2 && next + 1 < found.size());
    } else {
        m_form->downSearchButton->setEnabled(false);
    }
}

void TemplateTab::searchNext()
{
    if (m_form->downSearchButton->isEnabled())
        searchDown();
    else if (m_form->upSearchButton->isEnabled())
        search(m_form->searchEdit->text());
}
