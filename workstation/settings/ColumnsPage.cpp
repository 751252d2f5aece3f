#include "ColumnsPage.h"

#include "EmptyHint.h"
#include "VrkTableTool.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSpinBox>

ColumnsPage::ColumnsPage(UserSettings* settings, std::function<QVector<VrkTableTool*>()> tables,
                         std::function<void()> save, QWidget* parent)
    : SettingsPage(settings, tr("Столбцы"), parent),
      m_tables(std::move(tables)),
      m_save(std::move(save)),
      m_list(new QListWidget),
      m_width(new QSpinBox),
      m_up(new QPushButton(tr("Выше"))),
      m_down(new QPushButton(tr("Ниже")))
{
    QWidget* columns = makeColumns();
    addRow(tr("Столбцы журнала"), columns,
           tr("Отмеченные видны, в этом порядке. Строку можно перетащить. Текст записи виден всегда."),
           tr("столбец колонки порядок скрыть показать таблица"));
    qobject_cast<QVBoxLayout*>(layout())->setStretchFactor(columns->parentWidget(),
                                                           1); // all columns, if possible
    m_width->setObjectName(QStringLiteral("columnWidthSpin"));
    m_width->setRange(0, 120);
    m_width->setSpecialValueText(tr("сама"));
    m_width->setSuffix(tr(" зн."));
    m_width->setKeyboardTracking(false);
    m_width->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
    addRow(tr("Ширина выбранного столбца"), m_width,
           tr("В знаках. «Сама»: по содержимому. Ширину можно менять и мышью в заголовке таблицы."),
           tr("столбец колонки таблица шире уже"));
    connect(m_width, QOverload<int>::of(&QSpinBox::valueChanged), this, &ColumnsPage::applyWidth);
    showState();
}

QWidget* ColumnsPage::makeColumns()
{
    auto* row = new QWidget;
    auto* line = new QHBoxLayout(row);
    line->setContentsMargins(0, 0, 0, 0);
    m_list->setObjectName(QStringLiteral("columnList"));
    m_list->setAccessibleName(tr("Столбцы журнала"));
    m_list->setDragDropMode(QAbstractItemView::InternalMove);
    m_list->setSizeAdjustPolicy(QAbstractScrollArea::AdjustToContents);
    m_list->setMinimumHeight(8 * fontMetrics().height());
    new EmptyHint(m_list, [] { return tr("Откройте журнал, чтобы выбрать его столбцы."); });
    m_up->setObjectName(QStringLiteral("columnUpButton"));
    m_down->setObjectName(QStringLiteral("columnDownButton"));
    auto* buttons = new QVBoxLayout;
    for (QPushButton* button : {m_up, m_down}) {
        button->setAutoDefault(false);
        buttons->addWidget(button);
    }
    buttons->addStretch();
    line->addWidget(m_list, 1);
    line->addLayout(buttons);
    row->setFocusProxy(m_list);
    connect(m_list, &QListWidget::itemChanged, this, &ColumnsPage::apply);
    connect(m_list->model(), &QAbstractItemModel::rowsMoved, this, &ColumnsPage::apply);
    connect(m_list, &QListWidget::currentRowChanged, this, &ColumnsPage::showWidth);
    connect(m_up, &QPushButton::clicked, this, [this] { move(-1); });
    connect(m_down, &QPushButton::clicked, this, [this] { move(1); });
    return row;
}

void ColumnsPage::showState()
{
    const QSignalBlocker quiet(m_list);
    const QVector<VrkTableTool*> tables = m_tables();
    const int row = qMax(0, m_list->currentRow());
    m_list->clear();
    if (!tables.isEmpty()) {
        for (const VrkTableTool::Choice& choice : tables.constFirst()->columnChoices()) {
            auto* item = new QListWidgetItem(choice.name, m_list);
            item->setData(Qt::UserRole, choice.field);
            item->setCheckState(choice.isShown ? Qt::Checked : Qt::Unchecked);
            Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsDragEnabled;
            item->setFlags(choice.isFixed ? flags : flags | Qt::ItemIsUserCheckable);
        }
    }
    m_list->setCurrentRow(qMin(row, m_list->count() - 1));
    showWidth();
}

void ColumnsPage::showWidth()
{
    const QVector<VrkTableTool*> tables = m_tables();
    const QListWidgetItem* item = m_list->currentItem();
    const int row = m_list->currentRow();
    m_up->setEnabled(row > 0);
    m_down->setEnabled(row >= 0 && row < m_list->count() - 1);
    // The text of records takes the remaining space.
    m_width->setEnabled(!tables.isEmpty() && item && (item->flags() & Qt::ItemIsUserCheckable));
    const QSignalBlocker quiet(m_width);
    const QString field = item ? item->data(Qt::UserRole).toString() : QString();
    m_width->setValue(tables.isEmpty() ? 0
                                       : qRound(tables.constFirst()->userWidths().value(field).toDouble()));
}

void ColumnsPage::apply()
{
    QStringList order;
    QStringList hidden;
    for (int i = 0; i < m_list->count(); ++i) {
        const QListWidgetItem* item = m_list->item(i);
        order << item->data(Qt::UserRole).toString();
        if (item->checkState() == Qt::Unchecked)
            hidden << order.constLast();
    }
    for (VrkTableTool* tool : m_tables())
        tool->setUserColumns(order, hidden);
    showWidth();
    m_save();
}

void ColumnsPage::applyWidth(int characters)
{
    const QListWidgetItem* item = m_list->currentItem();
    if (!item)
        return;
    for (VrkTableTool* tool : m_tables()) {
        QVariantMap widths = tool->userWidths();
        if (characters > 0)
            widths.insert(item->data(Qt::UserRole).toString(), double(characters));
        else
            widths.remove(item->data(Qt::UserRole).toString());
        tool->adjustColumnsWidth();
        tool->setUserWidths(widths);
    }
    m_save();
}

void ColumnsPage::move(int rows)
{
    const int row = m_list->currentRow();
    {
        const QSignalBlocker quiet(m_list->model());
        m_list->insertItem(row + rows, m_list->takeItem(row));
    }
    m_list->setCurrentRow(row + rows);
    apply();
}

void ColumnsPage::setState(const State& state)
{
    for (VrkTableTool* tool : m_tables()) {
        tool->setUserColumns(state.order, state.hidden);
        tool->adjustColumnsWidth();
        tool->setUserWidths(state.widths);
    }
    m_save();
    showState();
}

void ColumnsPage::remember()
{
    SettingsPage::remember();
    const QVector<VrkTableTool*> tables = m_tables();
    if (!tables.isEmpty())
        m_before = {tables.constFirst()->userOrder(), tables.constFirst()->userHidden(),
                    tables.constFirst()->userWidths()};
}

void ColumnsPage::takeBack()
{
    SettingsPage::takeBack();
    setState(m_before);
}

void ColumnsPage::setDefaults()
{
    SettingsPage::setDefaults();
    setState({});
}
