#include "Fields.h"
#include "LogBookTab.h"
#include "ui_LogBookTab.h"
#include "VrkTableModel.h"
#include "VrkTableProxyModel.h"
#include "VrkTableTool.h"

void LogBookTab::switchVisibleSearch()
{
    if (m_ui->searchWidget->isVisible()) {
        m_ui->searchWidget->hide();
        m_ui->searchEdit->clear();
    } else {
        m_ui->searchWidget->show();
        m_ui->searchEdit->setFocus(Qt::ShortcutFocusReason);
    }
}

QModelIndexList LogBookTab::matcheIndexes(const QString& text) const
{
    if (!m_tableTool)
        return QModelIndexList();
    const auto* proxy = m_tableTool->proxy();
    // Deliberate: the search starts at the second row and reaches the first one last, after wrapping.
    const int start = proxy->rowCount() > 1 ? 1 : 0;
    const QModelIndex from = proxy->index(start, m_tableTool->model()->idxField(QLatin1String(Field::html)));
    return proxy->match(from, Qt::DisplayRole, text, -1,
                        Qt::MatchWrap | Qt::MatchFixedString | Qt::MatchContains);
}

void LogBookTab::setCurrentIndex(const QModelIndex& index)
{
    m_ui->recordsTable->setCurrentIndex(index);
    m_ui->recordsTable->scrollTo(index);
}

void LogBookTab::search(const QString& text)
{
    m_ui->upSearchButton->setEnabled(false);
    m_ui->downSearchButton->setEnabled(false);
    QPalette colors = palette();
    if (!text.isEmpty()) {
        const QModelIndexList hits = matcheIndexes(text);
        if (hits.isEmpty())
            colors.setColor(QPalette::Text, QColor(QStringLiteral("#DC143C")));
        else
            setCurrentIndex(hits.first());
        m_ui->downSearchButton->setEnabled(hits.size() > 1);
    }
    m_ui->searchEdit->setPalette(colors);
}

void LogBookTab::searchUp()
{
    m_ui->downSearchButton->setEnabled(true);
    const QModelIndexList hits = matcheIndexes(m_ui->searchEdit->text());
    const int position = hits.indexOf(m_ui->recordsTable->currentIndex());
    if (position > 0)
        setCurrentIndex(hits.at(position - 1));
    if (position < 2)
        m_ui->upSearchButton->setEnabled(false);
}

void LogBookTab::searchDown()
{
    m_ui->upSearchButton->setEnabled(true);
    const QModelIndexList hits = matcheIndexes(m_ui->searchEdit->text());
    const int next = hits.indexOf(m_ui->recordsTable->currentIndex()) + 1;
    if (next < hits.size()) {
        setCurrentIndex(hits.at(next));
        m_ui->upSearchButton->setEnabled(hits.size() > 1);
    }
    if (next >= hits.size() - 1)
        m_ui->downSearchButton->setEnabled(false);
}

void LogBookTab::searchNext()
{
    if (m_ui->downSearchButton->isEnabled())
        searchDown();
    else if (m_ui->upSearchButton->isEnabled())
        search(m_ui->searchEdit->text());
}
