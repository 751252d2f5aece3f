#include "SaveDialog.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace
{
constexpr QSize usualSize(760, 480);
constexpr QSize frameOfWindow(20, 40); // about

QString shownOr(const QString& text)
{
    return text.isEmpty() ? SaveDialog::tr("пусто") : text;
}

/// The changed cells of a row, "heading: before → after".
QStringList changes(const SheetModel& model, const EditedRow& row)
{
    QStringList texts;
    for (int i = 0; i < model.columnCount(); ++i)
        if (row.cells.at(i) != row.stored.at(i))
            texts << SaveDialog::tr("%1: %2 → %3")
                         .arg(model.sheet().columns.at(i).heading, shownOr(model.shown(row, i, true)),
                              shownOr(model.shown(row, i)));
    return texts;
}

/// The rows of a sheet in one state below a heading; nothing if there are none.
void addGroup(QTreeWidget* tree, const SheetModel& model, SheetModel::State state, const QString& heading)
{
    QTreeWidgetItem* group = nullptr;
    int count = 0;
    for (int i = 0; i < model.rows().size(); ++i) {
        if (model.state(i) != state)
            continue;
        const EditedRow& row = model.rows().at(i);
        if (!group)
            group = new QTreeWidgetItem(tree);
        new QTreeWidgetItem(
            group,
            {model.label(row), row.isNew() ? QString() : changes(model, row).join(QStringLiteral("; "))});
        ++count;
    }
    if (!group)
        return;
    group->setText(0, heading.arg(model.sheet().title).arg(count));
    group->setFirstColumnSpanned(true);
    constexpr int mostOpened = 200;
    group->setExpanded(count <= mostOpened);
}

QTreeWidget* makeTree(const QStringList& headings, QWidget* parent)
{
    auto* tree = new QTreeWidget(parent);
    tree->setObjectName(QStringLiteral("changes"));
    tree->setHeaderLabels(headings);
    tree->setUniformRowHeights(true);
    tree->setTabKeyNavigation(false);
    tree->header()->resizeSection(0, usualSize.width() / 2);
    return tree;
}

QLabel* makeText(const QString& text, QWidget* parent)
{
    auto* label = new QLabel(text, parent);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setObjectName(QStringLiteral("text"));
    return label;
}

QPushButton* addButton(QDialogButtonBox* box, const QString& text, QDialogButtonBox::ButtonRole role,
                       const char* name)
{
    QPushButton* button = box->addButton(text, role);
    button->setObjectName(QLatin1String(name));
    return button;
}
} // namespace

SaveDialog::SaveDialog(const DirectoryDraft& draft, const QString& note, QWidget* parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("SaveDialog"));
    setWindowTitle(tr("Сохранить справочники"));
    auto* tree = makeTree({tr("Строка"), tr("Что изменится")}, this);
    tree->setAccessibleName(tr("Что изменится"));
    for (const SheetModel* model : draft.models()) {
        addGroup(tree, *model, SheetModel::Added, tr("Добавится (%1): %2"));
        addGroup(tree, *model, SheetModel::Changed, tr("Изменится (%1): %2"));
        addGroup(tree, *model, SheetModel::Retired, tr("Уйдёт, записи сохранят имя (%1): %2"));
    }
    auto* buttons = new QDialogButtonBox(this);
    addButton(buttons, tr("Записать"), QDialogButtonBox::AcceptRole, "write")->setDefault(true);
    addButton(buttons, tr("Отмена"), QDialogButtonBox::RejectRole, "cancel");
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(makeText(note.isEmpty() ? tr("Будет записано одной транзакцией:")
                                              : tr("%1\n\nБудет записано одной транзакцией:").arg(note),
                               this));
    layout->addWidget(tree, 1);
    layout->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    resize(usualSize.boundedTo(screen()->availableSize() - frameOfWindow));
}

ConflictDialog::ConflictDialog(const DirectoryDraft::Meanwhile& meanwhile, QWidget* parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("ConflictDialog"));
    setWindowTitle(tr("Эти ячейки изменил и кто-то другой"));
    auto* tree = makeTree({tr("Строка"), tr("Столбец"), tr("У вас"), tr("В журнале теперь")}, this);
    tree->setAccessibleName(tr("Ячейки, изменённые дважды"));
    tree->setRootIsDecorated(false);
    tree->header()->resizeSection(0, usualSize.width() / 3);
    for (const DirectoryDraft::Conflict& one : meanwhile.conflicts) {
        const EditedRow& row = one.model->rows().at(one.model->find(one.key));
        EditedRow theirs = row;
        theirs.cells[one.column] = one.theirs;
        new QTreeWidgetItem(tree, {one.model->label(row), one.model->sheet().columns.at(one.column).heading,
                                   shownOr(one.model->shown(row, one.column)),
                                   shownOr(one.model->shown(theirs, one.column))});
    }
    auto* buttons = new QDialogButtonBox(this);
    QPushButton* mine = addButton(buttons, tr("Оставить мои"), QDialogButtonBox::AcceptRole, "mine");
    QPushButton* theirs = addButton(buttons, tr("Взять из журнала"), QDialogButtonBox::AcceptRole, "theirs");
    addButton(buttons, tr("Отмена"), QDialogButtonBox::RejectRole, "cancel")->setDefault(true);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(
        makeText(tr("Пока вы правили, эти ячейки записал кто-то другой. Чьё значение останется?"), this));
    layout->addWidget(tree, 1);
    layout->addWidget(buttons);
    connect(mine, &QPushButton::clicked, this, &QDialog::accept);
    connect(theirs, &QPushButton::clicked, this, [this] {
        m_wantsTheirs = true;
        accept();
    });
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    resize(usualSize.boundedTo(screen()->availableSize() - frameOfWindow));
}
