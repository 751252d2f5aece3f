#include "FiguresModel.h"

#include "ShownText.h"

#include <algorithm>
#include <QFont>
#include <QLocale>

namespace
{
/// What is read at a glance comes first, the longest group last.
int placeOf(const JournalFigures::Figure& figure)
{
    static const QByteArrayList order{"late", "overdue",  "signedHandovers", "department",
                                      "hour", "category", "template"};
    return order.indexOf(figure.group);
}
} // namespace

void FiguresModel::setFigures(const QVector<JournalFigures::Figure>& figures, int lateMinutes)
{
    beginResetModel();
    m_figures = figures;
    std::stable_sort(m_figures.begin(), m_figures.end(),
                     [](const JournalFigures::Figure& one, const JournalFigures::Figure& other) {
                         return placeOf(one) < placeOf(other);
                     });
    m_lateMinutes = lateMinutes;
    m_greatest.clear();
    for (const JournalFigures::Figure& figure : figures)
        m_greatest[figure.group] = qMax(m_greatest.value(figure.group), figure.count);
    endResetModel();
}

int FiguresModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_figures.size();
}

int FiguresModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : Columns;
}

bool FiguresModel::isFirstOfGroup(int row) const
{
    return row == 0 || m_figures.at(row - 1).group != m_figures.at(row).group;
}

QString FiguresModel::shown(int row, int column) const
{
    const JournalFigures::Figure& figure = m_figures.at(row);
    switch (column) {
    case Group:
        return JournalFigures::title(figure.group, m_lateMinutes);
    case Name:
        return figure.name;
    case Count:
        return QString::number(figure.count);
    case Total:
        return QString::number(figure.total);
    default:
        return figure.total == 0
                   ? QString()
                   : tr("%1 %").arg(
                         QLocale(QLocale::Russian)
                             .toString(100.0 * double(figure.count) / double(figure.total), 'f', 1));
    }
}

double FiguresModel::bar(int row) const
{
    const JournalFigures::Figure& figure = m_figures.at(row);
    const qint64 whole = figure.name.isNull() ? figure.total : m_greatest.value(figure.group);
    return whole == 0 ? 0 : double(figure.count) / double(whole);
}

QVariant FiguresModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return {};
    const int row = index.row();
    const bool isRepeated = index.column() == Group && !isFirstOfGroup(row);
    switch (role) {
    case Qt::DisplayRole:
        return isRepeated ? QString() : shown(row, index.column());
    case Qt::AccessibleTextRole:
        return shown(row, index.column());
    case Qt::ToolTipRole:
        return ShownText::tip(shown(row, index.column()));
    case Qt::TextAlignmentRole:
        return int((index.column() < Count ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignVCenter);
    case Qt::FontRole: {
        QFont bold;
        bold.setBold(true);
        return index.column() == Group ? QVariant(bold) : QVariant();
    }
    case BarRole:
        return index.column() == Share ? QVariant(bar(row)) : QVariant();
    default:
        return {};
    }
}

QVariant FiguresModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    const QStringList headings{tr("Показатель"), tr("Название"), tr("Число"), tr("Из"), tr("Доля")};
    return headings.value(section);
}
