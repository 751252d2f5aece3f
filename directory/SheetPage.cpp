#include "SheetPage.h"

#include "EmptyHint.h"
#include "SheetDelegate.h"
#include "SheetFilter.h"
#include "SheetModel.h"

#include <algorithm>
#include <QCheckBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QTableView>
#include <QVBoxLayout>

namespace
{
constexpr int widestColumn = 340; // pixels
constexpr int narrowestColumn = 90;
} // namespace

SheetPage::SheetPage(SheetModel* model, QWidget* parent)
    : QWidget(parent),
      m_model(model),
      m_filter(new SheetFilter(this)),
      m_delegate(new SheetDelegate(this)),
      m_search(new QLineEdit(this)),
      m_count(new QLabel(this)),
      m_table(new QTableView(this))
{
    m_search->setObjectName(QStringLiteral("search"));
    m_search->setPlaceholderText(tr("Найти (Ctrl+F)"));
    m_search->setAccessibleName(tr("Найти в таблице"));
    m_search->setClearButtonEnabled(true);
    m_search->installEventFilter(this);
    auto* former = new QCheckBox(tr("Показывать удалённых"), this);
    former->setObjectName(QStringLiteral("former"));
    former->setVisible(model->retirement() >= 0);
    m_filter->setSourceModel(model);
    m_table->setObjectName(QStringLiteral("table"));
    m_table->setAccessibleName(model->sheet().title);
    m_table->setModel(m_filter);
    m_table->setItemDelegate(m_delegate);
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setSortingEnabled(true);
    m_table->horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
    m_table->setTabKeyNavigation(false); // Tab leaves the table, arrows move in it
    m_table->verticalHeader()->setMinimumWidth(m_table->fontMetrics().horizontalAdvance(QLatin1Char('M')) *
                                               2);
    m_table->verticalHeader()->setDefaultAlignment(Qt::AlignCenter);
    m_table->setAlternatingRowColors(true);
    m_table->horizontalHeader()->setStretchLastSection(true);
    new EmptyHint(m_table, [this] {
        return m_search->text().isEmpty() ? tr("Строк пока нет. Добавьте первую: клавиша Insert.")
                                          : tr("Ничего не найдено. Esc убирает поиск.");
    });

    auto* top = new QHBoxLayout;
    top->addWidget(m_search, 1);
    top->addWidget(former);
    top->addWidget(m_count);
    auto* all = new QVBoxLayout(this);
    all->addLayout(top);
    all->addWidget(m_table, 1);

    connect(m_search, &QLineEdit::textChanged, this, &SheetPage::search);
    connect(former, &QCheckBox::toggled, this, [this](bool shown) {
        m_filter->showFormer(shown);
        count();
    });
    connect(m_model, &QAbstractItemModel::modelAboutToBeReset, this, &SheetPage::remember);
    connect(m_filter, &QAbstractItemModel::modelReset, this, &SheetPage::restore);
    connect(m_filter, &QAbstractItemModel::rowsInserted, this, &SheetPage::count);
    connect(m_filter, &QAbstractItemModel::rowsRemoved, this, &SheetPage::count);
    count();
}

void SheetPage::fitColumns()
{
    m_table->resizeColumnsToContents();
    for (int i = 0; i < m_model->columnCount(); ++i)
        m_table->setColumnWidth(i, std::clamp(m_table->columnWidth(i), narrowestColumn, widestColumn));
}

void SheetPage::search()
{
    commit();
    m_filter->setWords(m_search->text());
    count();
}

void SheetPage::count()
{
    const int shown = m_filter->rowCount();
    const int all = m_model->rowCount();
    m_count->setText(shown == all ? tr("Строк: %1").arg(all) : tr("Строк: %1 из %2").arg(shown).arg(all));
}

void SheetPage::remember()
{
    const QModelIndex current = m_filter->mapToSource(m_table->currentIndex());
    m_currentKey = current.isValid() ? m_model->rows().at(current.row()).key : QByteArray();
    m_currentColumn = current.column();
}

void SheetPage::restore()
{
    count();
    const int row = m_currentKey.isEmpty() ? -1 : m_model->find(m_currentKey);
    const QModelIndex current =
        row < 0 ? QModelIndex() : m_filter->mapFromSource(m_model->index(row, m_currentColumn));
    if (!current.isValid())
        return;
    m_table->setCurrentIndex(current);
    m_table->scrollTo(current);
}

void SheetPage::commit()
{
    m_delegate->finish();
}

void SheetPage::addRow()
{
    commit();
    const QByteArray key = m_model->append();
    showCell(key, -1);
    const QModelIndex current = m_table->currentIndex();
    if (current.isValid() && (current.flags() & Qt::ItemIsEditable))
        m_table->edit(current);
}

QVector<QByteArray> SheetPage::selected() const
{
    QVector<QByteArray> keys;
    const QModelIndexList rows = m_table->selectionModel()->selectedRows();
    for (const QModelIndex& one : rows)
        keys << m_model->rows().at(m_filter->mapToSource(one).row()).key;
    return keys;
}

void SheetPage::showCell(const QByteArray& key, int column)
{
    const int row = m_model->find(key);
    if (row < 0)
        return;
    int shown = column;
    while (shown < 0 || !(m_model->flags(m_model->index(row, shown)) & Qt::ItemIsEditable))
        ++shown;
    if (!m_filter->mapFromSource(m_model->index(row, shown)).isValid()) {
        m_search->clear();
        findChild<QCheckBox*>(QStringLiteral("former"))->setChecked(true);
    }
    const QModelIndex index = m_filter->mapFromSource(m_model->index(row, shown));
    m_table->setFocus();
    m_table->setCurrentIndex(index);
    m_table->scrollTo(index);
}

void SheetPage::focusSearch()
{
    commit();
    m_search->setFocus(Qt::ShortcutFocusReason);
    m_search->selectAll();
}

bool SheetPage::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_search && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Escape)
            m_search->clear();
        if (key == Qt::Key_Escape || key == Qt::Key_Return || key == Qt::Key_Down) {
            m_table->setFocus();
            if (!m_table->currentIndex().isValid())
                m_table->setCurrentIndex(m_filter->index(0, 0));
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}
