#include "ChangeTable.h"

#include "AbstractHfnCellConversion.h"
#include "ChangeText.h"
#include "LogbookFields.h"
#include "MDRValues.h"
#include "Row.h"
#include "TemplateText.h"
#include "VrkTableTool.h"

#include <QHeaderView>
#include <QLabel>
#include <QSplitter>
#include <QStackedLayout>
#include <QTableView>
#include <QTextEdit>
#include <QVBoxLayout>

namespace
{
constexpr NumberField place("place"); // in the list of changes
constexpr RealField changeTime("changeTime");
constexpr MemoField person("person");
constexpr MemoField deed("deed");
const MDRFieldDescr fields[] = {place, changeTime, person, deed, Field::html};

class TimeCell : public AbstractHfnCellConversion
{
public:
    QVariant data(const AbstractHfnCellData& cell) const override
    {
        if (cell.role != Qt::DisplayRole)
            return AbstractHfnCellConversion::data(cell);
        return ChangeText::time(Row(cell.record).time(changeTime));
    }
};

QTextEdit* pane(const char* name, const QString& title, QSplitter* beside)
{
    auto* box = new QWidget(beside);
    auto* label = new QLabel(title, box);
    auto* edit = new QTextEdit(box);
    edit->setObjectName(QLatin1String(name));
    edit->setReadOnly(true);
    edit->setTabChangesFocus(true);
    label->setBuddy(edit);
    auto* layout = new QVBoxLayout(box);
    layout->setContentsMargins(4, 2, 4, 4);
    layout->setSpacing(2);
    layout->addWidget(label);
    layout->addWidget(edit);
    return edit;
}
} // namespace

class ChangeTable::Cells
{
public:
    TimeCell time;
    AbstractHfnCellConversion text;
};

ChangeTable::ChangeTable(QWidget* parent)
    : QWidget(parent),
      m_pages(new QStackedLayout(this)),
      m_empty(new QLabel(this)),
      m_cells(std::make_unique<Cells>()),
      m_tool(std::make_unique<VrkTableTool>())
{
    auto* halves = new QSplitter(Qt::Vertical, this);
    halves->setObjectName(QStringLiteral("changeSplitter"));
    halves->setChildrenCollapsible(false);
    m_view = new QTableView(halves);
    m_view->setObjectName(QStringLiteral("changeTable"));
    m_view->setAccessibleName(tr("Изменения"));
    auto* sides = new QSplitter(Qt::Horizontal, halves);
    sides->setObjectName(QStringLiteral("sidesSplitter"));
    sides->setChildrenCollapsible(false);
    m_before = pane("beforeEdit", tr("&Было"), sides);
    m_after = pane("afterEdit", tr("&Стало"), sides);
    halves->setStretchFactor(0, 3);
    halves->setStretchFactor(1, 2);
    m_empty->setObjectName(QStringLiteral("emptyLabel"));
    m_empty->setAlignment(Qt::AlignCenter);
    m_empty->setWordWrap(true);
    m_empty->setMargin(24);
    m_pages->addWidget(halves);
    m_pages->addWidget(m_empty);
    m_pages->setCurrentWidget(m_empty);
    setFocusProxy(m_view);

    MDACreate(&m_rows.array, 0);
    MDAFldAdd(m_rows.array, fieldCount(fields), fields);
    m_rows.KeyAdd("", 0);
    m_tool->setTableView(m_view);
    m_tool->setCMDArray(&m_rows);
    m_tool->setDefaultSettingsView();
    m_tool->setDayLines(VrkTableTool::NoDayLines);
    m_view->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_tool->setColumns({
        {changeTime, &m_cells->time, tr("Время")},
        {person, &m_cells->text, tr("Кто")},
        {deed, &m_cells->text, tr("Что сделано")},
        {Field::html, &m_cells->text, tr("Подробности")},
    });
    m_tool->sortByColumn(QLatin1String(changeTime), Qt::DescendingOrder);
    connect(m_view->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            &ChangeTable::showCurrent);
}

ChangeTable::~ChangeTable() = default;

void ChangeTable::setEmptyText(const QString& text)
{
    m_empty->setText(text);
}

void ChangeTable::show(const QVector<RowChange>& changes, const ChangeText* text)
{
    m_changes = changes;
    m_text = text;
    m_tool->model()->beginResetModel();
    MDAClearRec(m_rows.array);
    // The latest come first, also among those of one second.
    for (int i = changes.size() - 1; i >= 0; --i) {
        const RowChange& change = changes.at(i);
        MDRData* row = MDARecNew(m_rows.array);
        const auto set = [&](const char* field, const QString& value) {
            const QByteArray bytes = value.toUtf8();
            m_rows.SetValF(row, field, MDRValue::text(bytes, mdr_TMemo));
        };
        m_rows.SetValF(row, place, MDRValue::number(i));
        m_rows.SetValF(row, changeTime, MDRValue::real(change.time));
        set(person, text->who(change));
        set(deed, ChangeText::visible(change.deed()));
        set(Field::html, text->summary(change));
        m_rows.RecPost(row);
    }
    m_tool->model()->endResetModel();
    m_tool->adjustColumnsWidth();
    m_pages->setCurrentIndex(changes.isEmpty() ? 1 : 0);
    m_tool->setCurrentFirst();
    showCurrent();
}

void ChangeTable::showCurrent()
{
    const MDRData* row = m_tool->currentRecord();
    const int current = row ? Row(row).number(place, -1) : -1;
    const ChangeText::Sides sides = current >= 0 && current < m_changes.size()
                                        ? m_text->sides(m_changes.at(current))
                                        : ChangeText::Sides();
    TemplateText::fill(m_before->document(), sides.before);
    TemplateText::fill(m_after->document(), sides.after);
    m_before->setPlaceholderText(current < 0 ? QString() : tr("Ничего не было"));
    m_after->setPlaceholderText(current < 0 ? QString() : tr("Ничего не осталось"));
}

QString ChangeTable::plainText() const
{
    QString all;
    for (const RowChange& change : m_changes) {
        const ChangeText::Sides sides = m_text->sides(change);
        all +=
            QStringLiteral("%1  %2\n%3\n")
                .arg(ChangeText::time(change.time), m_text->who(change), ChangeText::visible(change.deed()));
        if (!sides.before.isEmpty())
            all += tr("Было:\n%1\n").arg(TemplateText::plain(sides.before));
        if (!sides.after.isEmpty())
            all += tr("Стало:\n%1\n").arg(TemplateText::plain(sides.after));
        all += QLatin1Char('\n');
    }
    return all;
}
