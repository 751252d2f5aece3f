#include "SheetFilter.h"

#include "SheetModel.h"

SheetFilter::SheetFilter(QObject* parent) : QSortFilterProxyModel(parent)
{
    setSortCaseSensitivity(Qt::CaseInsensitive);
    setSortLocaleAware(true);
    setDynamicSortFilter(false); // Deliberate: a row does not move away under the user's hands
}

void SheetFilter::setWords(const QString& typed)
{
    m_words = typed.simplified().split(QLatin1Char(' '), Qt::SkipEmptyParts);
    invalidateFilter();
}

void SheetFilter::showFormer(bool shown)
{
    m_showsFormer = shown;
    invalidateFilter();
}

bool SheetFilter::filterAcceptsRow(int row, const QModelIndex& parent) const
{
    Q_UNUSED(parent)
    const auto* model = qobject_cast<const SheetModel*>(sourceModel());
    if (!model || model->rows().at(row).isNew())
        return true;
    if (!m_showsFormer && model->isFormer(row))
        return false;
    if (m_words.isEmpty())
        return true;
    QString text;
    for (int i = 0; i < model->columnCount(); ++i)
        text += model->shown(model->rows().at(row), i) + QLatin1Char('\n');
    for (const QString& word : m_words)
        if (!text.contains(word, Qt::CaseInsensitive))
            return false;
    return true;
}
