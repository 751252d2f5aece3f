#include "SheetDelegate.h"

#include "SheetCells.h"
#include "SheetModel.h"

#include <memory>
#include <QAbstractProxyModel>
#include <QComboBox>
#include <QCompleter>
#include <QLineEdit>

namespace
{
/// The cell behind a cell of the view.
QModelIndex sourceOf(const QModelIndex& index)
{
    const auto* proxy = qobject_cast<const QAbstractProxyModel*>(index.model());
    return proxy ? proxy->mapToSource(index) : index;
}

/// The names of the rows to which a cell may refer, with their keys: those that are not retired.
QVector<QPair<QString, QByteArray>> referred(const SheetModel& model, const EditedRow& row,
                                             const SheetColumn& column)
{
    const Directory& directory = *model.directory();
    const QByteArray department = model.scope(row);
    QVector<QPair<QString, QByteArray>> all;
    for (const DirectoryRow* one : directory.rows(column.refers)) {
        const bool isElsewhere = column.refers != "Workers" && !department.isEmpty() &&
                                 one->reference("DepartmentKey") != department;
        if (!one->retired() && !isElsewhere && one->key != row.key)
            all.append({directory.reference(column.refers, one->key, department), one->key});
    }
    return all;
}

QStringList choices(const SheetColumn& column)
{
    switch (column.kind) {
    case SheetColumn::Flag:
        return {SheetCells::flag(false), SheetCells::flag(true)};
    case SheetColumn::EquipmentKind:
        return {SheetCells::equipmentKind(QStringLiteral("substation")),
                SheetCells::equipmentKind(QStringLiteral("line")),
                SheetCells::equipmentKind(QStringLiteral("bay"))};
    case SheetColumn::SafetyGroup:
        return {QString(),           QStringLiteral("1"), QStringLiteral("2"),
                QStringLiteral("3"), QStringLiteral("4"), QStringLiteral("5")};
    case SheetColumn::Rights:
        return Sheets::rights();
    default:
        return {};
    }
}

/// A right that is chosen is added to the text, or taken out of it.
void switchRight(QComboBox* box, QString* text, const QString& right)
{
    QStringList rights;
    for (const QString& one : text->split(QLatin1Char(','), Qt::SkipEmptyParts))
        rights << one.trimmed();
    if (!rights.removeAll(right))
        rights << right;
    rights.sort();
    *text = rights.join(QStringLiteral(", "));
    box->setEditText(*text);
}
} // namespace

SheetDelegate::SheetDelegate(QObject* parent) : QStyledItemDelegate(parent)
{
    // A closed editor lives until the next turn of the event loop.
    connect(this, &QAbstractItemDelegate::closeEditor, this, [this] { m_editor = nullptr; });
}

void SheetDelegate::finish()
{
    if (!m_editor)
        return;
    QWidget* editor = m_editor;
    emit commitData(editor);
    emit closeEditor(editor);
}

QWidget* SheetDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                                     const QModelIndex& index) const
{
    Q_UNUSED(option)
    const QModelIndex source = sourceOf(index);
    const auto& model = *qobject_cast<const SheetModel*>(source.model());
    const SheetColumn& column = model.sheet().columns.at(source.column());
    const bool isReference = column.kind == SheetColumn::Reference;
    const QStringList listed = choices(column);
    if (!isReference && listed.isEmpty()) {
        auto* line = new QLineEdit(parent);
        line->setAccessibleName(column.heading);
        if (column.kind == SheetColumn::Time)
            line->setPlaceholderText(tr("чч:мм"));
        m_editor = line;
        return line;
    }
    auto* box = new QComboBox(parent);
    m_editor = box;
    box->setAccessibleName(column.heading);
    box->setEditable(true);
    box->setInsertPolicy(QComboBox::NoInsert);
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    if (isReference) {
        box->addItem(QString());
        for (const auto& [name, key] : referred(model, model.rows().at(source.row()), column))
            box->addItem(name, key);
    }
    box->addItems(listed);
    if (column.kind == SheetColumn::Rights) {
        box->setCompleter(nullptr);
        auto text = std::make_shared<QString>(model.rows().at(source.row()).cells.at(source.column()));
        connect(box->lineEdit(), &QLineEdit::textEdited, box,
                [text](const QString& typed) { *text = typed; });
        connect(box, QOverload<int>::of(&QComboBox::activated), box,
                [box, text](int item) { switchRight(box, text.get(), box->itemText(item)); });
    } else {
        auto* completer = new QCompleter(box->model(), box);
        completer->setCaseSensitivity(Qt::CaseInsensitive);
        completer->setFilterMode(Qt::MatchContains);
        box->setCompleter(completer);
    }
    return box;
}

void SheetDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const
{
    const QString text = index.data(Qt::EditRole).toString();
    if (auto* box = qobject_cast<QComboBox*>(editor)) {
        const int item = box->findText(text, Qt::MatchFixedString);
        box->setCurrentIndex(item);
        box->setEditText(text);
        box->lineEdit()->selectAll();
    } else if (auto* line = qobject_cast<QLineEdit*>(editor)) {
        line->setText(text);
    }
}

void SheetDelegate::setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const
{
    if (auto* box = qobject_cast<QComboBox*>(editor)) {
        // A name in the list is of one row, though a typed one may be of several.
        const int item = box->findText(box->currentText().simplified(), Qt::MatchFixedString);
        const QString key = item < 0 ? QString() : box->itemData(item).toString();
        model->setData(index, key.isEmpty() ? box->currentText() : key);
    } else if (auto* line = qobject_cast<QLineEdit*>(editor)) {
        model->setData(index, line->text());
    }
}
