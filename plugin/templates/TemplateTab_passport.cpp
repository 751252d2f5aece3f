#include "CVrkCliMod.h"
#include "Fields.h"
#include "LastRowFiller.h"
#include "LogbookTables.h"
#include "ParametersBase.h"
#include "RecordValue.h"
#include "TemplateEditor.h"
#include "TemplateMarkers.h"
#include "TemplatesEditSourceModel.h"
#include "TemplatesProxyModel.h"
#include "TemplateTab.h"
#include "ui_TemplateTab.h"

#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QHeaderView>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QTextCodec>

namespace
{
enum Page { EmptyPage, CategoryPage, TemplatePage };
enum PassportRow { NameRow, OpenRow, CloseRow, TimeRow, FirstMarkRow, SecondMarkRow, HtmlRow };
constexpr int rowHeight = 30;
constexpr int editorHeight = 400;

QTreeWidgetItem* addRow(QTreeWidget* tree, QTreeWidgetItem* parent, const QString& label, QWidget* editor,
                        int height = rowHeight)
{
    auto* item = parent ? new QTreeWidgetItem(parent) : new QTreeWidgetItem(tree);
    item->setText(0, label);
    item->setSizeHint(0, QSize(1, height));
    tree->setItemWidget(item, 1, editor);
    return item;
}

QWidget* centerCheckBox(QCheckBox* box)
{
    auto* cell = new QWidget;
    // on the table's background an empty box would be invisible in a dark theme
    cell->setAutoFillBackground(true);
    cell->setBackgroundRole(QPalette::Window);
    auto* layout = new QHBoxLayout(cell);
    layout->setSpacing(0);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addStretch();
    layout->addWidget(box);
    layout->addStretch();
    return cell;
}

void configureTree(QTreeWidget* tree, const QString& widest)
{
    tree->setUniformRowHeights(false);
    tree->setSortingEnabled(false);
    tree->setSelectionMode(QAbstractItemView::NoSelection);
    tree->setVerticalScrollMode(
        QAbstractItemView::ScrollPerPixel); // one step, the height of the text's row, would skip half a page
    tree->setFocusPolicy(Qt::NoFocus);      // the editors take the focus
    const QFontMetrics metrics(tree->font());
    const int width = metrics.horizontalAdvance(widest) + 6 * metrics.horizontalAdvance(QLatin1Char('W'));
    QHeaderView* header = tree->header();
    header->setSectionsClickable(false);
    header->setSectionsMovable(false);
    header->setStretchLastSection(false);
    header->setDefaultAlignment(Qt::AlignCenter);
    header->setMinimumSectionSize(width);
    header->setSectionResizeMode(0, QHeaderView::Interactive);
    header->resizeSection(0, width);
    header->setSectionResizeMode(1, QHeaderView::Stretch);
}

template <typename Editor>
Editor* editorAt(const QTreeWidget* tree, const QTreeWidgetItem* item)
{
    return item ? qobject_cast<Editor*>(tree->itemWidget(const_cast<QTreeWidgetItem*>(item), 1)) : nullptr;
}

QCheckBox* boxAt(const QTreeWidget* tree, int row)
{
    const auto* cell = editorAt<QWidget>(tree, tree->topLevelItem(row));
    return cell ? cell->findChild<QCheckBox*>() : nullptr;
}

void setQuietly(QLineEdit* edit, const QString& text)
{
    const QSignalBlocker blocker(edit);
    if (edit->text() != text) // an unchanged text keeps its cursor
        edit->setText(text);
}

void setQuietly(QCheckBox* box, bool isChecked)
{
    const QSignalBlocker blocker(box);
    box->setChecked(isChecked);
}

void setQuietly(QComboBox* box, int index)
{
    const QSignalBlocker blocker(box);
    box->setCurrentIndex(index);
}
} // namespace

void TemplateTab::createPassport()
{
    configureTree(m_form->categoryPropsTree, tr("Наименование"));
    configureTree(m_form->templatePropsTree, tr("Требует введения времени выполнения"));
    createCategoryPassport();
    createTemplatePassport();
}

void TemplateTab::createCategoryPassport()
{
    const MDRField* name = MDRFldByName(m_tables.categoriesEdit.data.array, Field::nameLoc);
    const QString label =
        fieldLocalName(QLatin1String(Field::nameLoc), QLatin1String(LogbookTable::CatsTemplate));
    auto* edit = new QLineEdit;
    edit->setObjectName(QStringLiteral("categoryNameEdit"));
    edit->setFrame(false);
    edit->setMaxLength(name->width);
    edit->setEnabled(canEdit());
    edit->setAccessibleName(label.isEmpty() ? tr("Наименование") : label);
    addRow(m_form->categoryPropsTree, nullptr, label.isEmpty() ? tr("Наименование") : label, edit);
    connect(edit, &QLineEdit::textChanged, this, &TemplateTab::categoryNameChanged);
}

void TemplateTab::createTemplatePassport()
{
    QTreeWidget* tree = m_form->templatePropsTree;
    new LastRowFiller(tree); // the text fills the remaining height of the window
    const auto add = [&](const QString& label, QWidget* editor, const char* name, int height = rowHeight,
                         QTreeWidgetItem* parent = nullptr) {
        editor->setObjectName(QLatin1String(name));
        editor->setAccessibleName(label);
        auto* box = qobject_cast<QCheckBox*>(editor);
        return addRow(tree, parent, label, box ? centerCheckBox(box) : editor, height);
    };
    const auto lineEdit = [] {
        auto* edit = new QLineEdit;
        edit->setFrame(false);
        return edit;
    };
    const auto markerBox = [] {
        auto* box = new QComboBox;
        for (const TemplateMarker& marker : templateMarkers) {
            const QString path = QLatin1String(marker.icon);
            box->addItem(marker.icon ? QIcon(path) : QIcon(),
                         QCoreApplication::translate("TemplateMarkers", marker.label),
                         marker.icon ? QVariant(path) : QVariant());
        }
        return box;
    };

    const QString nameLabel =
        fieldLocalName(QLatin1String(Field::nameLoc), QLatin1String(LogbookTable::Templates));
    QLineEdit* name = lineEdit();
    name->setMaxLength(MDRFldByName(m_tables.templatesEdit.data.array, Field::nameLoc)->width);
    add(nameLabel.isEmpty() ? tr("Наименование") : nameLabel, name, "templateNameEdit");
    auto* open = new QCheckBox;
    add(tr("Открытие смены"), open, "templateOpenBox");
    auto* close = new QCheckBox;
    add(tr("Закрытие смены"), close, "templateCloseBox");
    auto* time = new QCheckBox;
    add(tr("Требует введения времени выполнения"), time, "templateTimeBox");
    QComboBox* first = markerBox();
    add(tr("Первый маркер"), first, "templateFirstMarkBox");
    QComboBox* second = markerBox();
    QTreeWidgetItem* secondRow = add(tr("Второй маркер"), second, "templateSecondMarkBox");
    QLineEdit* command = lineEdit();
    add(tr("Команда"), command, "templateCommandEdit", rowHeight, secondRow);
    auto* html = new TemplateEditor(nullptr);
    html->setTextCodec(codec());
    html->setCatsParametersTable(m_catsParameterTable);
    html->setParametersTable(m_parametersTable);
    html->setParameterFilter(parameterFilter());
    add(tr("Шаблон"), html, "templateHtmlEditor", editorHeight)
        ->setTextAlignment(0, Qt::AlignLeft | Qt::AlignTop);
    const std::pair<QWidget*, QString> boxes[] = {{open, tr("Открытие смены")},
                                                  {close, tr("Закрытие смены")},
                                                  {time, tr("Требует введения времени выполнения")},
                                                  {first, tr("Первый маркер")},
                                                  {second, tr("Второй маркер")}};
    for (const auto& [editor, label] : boxes)
        editor->setAccessibleName(label);
    for (QWidget* editor : std::initializer_list<QWidget*>{name, open, close, time, first, second, command})
        editor->setEnabled(canEdit());
    html->setEnabled(canEdit()); // a separate function: the shown text can still be selected

    connect(name, &QLineEdit::textChanged, this, &TemplateTab::templateNameChanged);
    connect(open, &QCheckBox::clicked, this, &TemplateTab::templateOpenChanged);
    connect(close, &QCheckBox::clicked, this, &TemplateTab::templateCloseChanged);
    connect(time, &QCheckBox::clicked, this, &TemplateTab::templateTimeChanged);
    const auto indexChanged = QOverload<int>::of(&QComboBox::currentIndexChanged);
    connect(first, indexChanged, this, &TemplateTab::templateFirstMarkChanged);
    connect(second, indexChanged, this, &TemplateTab::templateSecondMarkChanged);
    connect(command, &QLineEdit::textChanged, this, &TemplateTab::templateCommandChanged);
    connect(html, &TemplateEditor::templateChanged, this, &TemplateTab::templateHtmlChanged);
    updateTemplateCommand();
}

QLineEdit* TemplateTab::categoryNameEditor() const
{
    return editorAt<QLineEdit>(m_form->categoryPropsTree, m_form->categoryPropsTree->topLevelItem(NameRow));
}

QLineEdit* TemplateTab::templateNameEditor() const
{
    return editorAt<QLineEdit>(m_form->templatePropsTree, m_form->templatePropsTree->topLevelItem(NameRow));
}

QCheckBox* TemplateTab::templateOpenEditor() const
{
    return boxAt(m_form->templatePropsTree, OpenRow);
}

QCheckBox* TemplateTab::templateCloseEditor() const
{
    return boxAt(m_form->templatePropsTree, CloseRow);
}

QCheckBox* TemplateTab::templateTimeEditor() const
{
    return boxAt(m_form->templatePropsTree, TimeRow);
}

QComboBox* TemplateTab::templateFirstMarkEditor() const
{
    return editorAt<QComboBox>(m_form->templatePropsTree,
                               m_form->templatePropsTree->topLevelItem(FirstMarkRow));
}

QComboBox* TemplateTab::templateSecondMarkEditor() const
{
    return editorAt<QComboBox>(m_form->templatePropsTree,
                               m_form->templatePropsTree->topLevelItem(SecondMarkRow));
}

QLineEdit* TemplateTab::templateCommandEditor() const
{
    const QTreeWidgetItem* row = m_form->templatePropsTree->topLevelItem(SecondMarkRow);
    return editorAt<QLineEdit>(m_form->templatePropsTree, row ? row->child(0) : nullptr);
}

TemplateEditor* TemplateTab::templateHtmlEditor() const
{
    return editorAt<TemplateEditor>(m_form->templatePropsTree,
                                    m_form->templatePropsTree->topLevelItem(HtmlRow));
}

void TemplateTab::raiseUpPassport(const QModelIndex& proxyIndex)
{
    if (proxyIndex.isValid())
        raiseUpPassport(m_model->recordByIndex(m_proxy->mapToSource(proxyIndex)));
    else
        m_form->passportStack->setCurrentIndex(EmptyPage);
}

void TemplateTab::raiseUpPassport(MDRData* record)
{
    const auto isIn = [record](const CModelTable& table) {
        return TemplateTables::isContains(&table, record);
    };
    if (isIn(m_tables.categories) || isIn(m_tables.categoriesEdit)) {
        reloadCategoryPassport(record);
        m_form->passportStack->setCurrentIndex(CategoryPage);
    } else if (isIn(m_tables.templates) || isIn(m_tables.templatesEdit)) {
        reloadTemplatePassport(record);
        m_form->passportStack->setCurrentIndex(TemplatePage);
    } else {
        m_form->passportStack->setCurrentIndex(EmptyPage);
    }
}

void TemplateTab::clearCategoryPassport()
{
    setQuietly(categoryNameEditor(), QString());
}

void TemplateTab::reloadCategoryPassport(MDRData* record)
{
    if (!TemplateTables::isContains(&m_tables.categories, record) &&
        !TemplateTables::isContains(&m_tables.categoriesEdit, record)) {
        clearCategoryPassport();
        return;
    }
    setQuietly(categoryNameEditor(), Row(record).text(Field::nameLoc, codec()));
}

void TemplateTab::clearTemplatePassport()
{
    fillTemplatePassport(nullptr);
}

void TemplateTab::reloadTemplatePassport(MDRData* record)
{
    const bool isTemplate = TemplateTables::isContains(&m_tables.templates, record) ||
                            TemplateTables::isContains(&m_tables.templatesEdit, record);
    fillTemplatePassport(isTemplate ? record : nullptr);
}

/// Fills the editors from a record, or clears them, without emitting signals to the handlers.
void TemplateTab::fillTemplatePassport(const MDRData* record)
{
    const MDRVar html = Row(record).value(Field::html);
    const HtmlParser parser = templateOf(html);
    const auto flag = [&parser](const char* name) {
        bool value = false;
        parser.templatePropertyValue(name, value);
        return value;
    };
    const auto text = [&parser](const char* name) {
        std::string value;
        parser.templatePropertyValue(name, value);
        return value;
    };

    setQuietly(templateNameEditor(), Row(record).text(Field::nameLoc, codec()));
    const QString shown = codec()->toUnicode(MDRValue::bytes(html));
    {
        TemplateEditor* editor = templateHtmlEditor();
        const QSignalBlocker blocker(editor);
        const QByteArray key = Row(record).key();
        if (shown.isEmpty() || key != m_shownTemplate)
            editor->clearTemplateText(); // changes of one template must not be undone on another
        m_shownTemplate = key;
        if (!shown.isEmpty() && editor->templateText() != shown) // an unchanged text keeps its cursor
            editor->setTemplateText(shown);
    }
    setQuietly(templateOpenEditor(), flag("open_wshift"));
    setQuietly(templateCloseEditor(), flag("close_wshift"));
    setQuietly(templateTimeEditor(), flag("time_exec"));

    const std::pair<QComboBox*, const char*> markers[] = {{templateFirstMarkEditor(), "first_mark"},
                                                          {templateSecondMarkEditor(), "second_mark"}};
    for (const auto& [box, property] : markers) {
        const std::string value = text(property);
        const int found = value.empty() ? 0
                                        : box->findData(QString::fromStdString(value), Qt::UserRole,
                                                        Qt::MatchExactly | Qt::MatchCaseSensitive);
        setQuietly(box,
                   found > 0 ? found : 0); // an unknown value is shown as none; the text keeps it
    }
    const bool hasSecond = templateSecondMarkEditor()->currentIndex() > 0;
    const std::string command = hasSecond ? text("command") : std::string();
    setQuietly(templateCommandEditor(), codec()->toUnicode(command.data(), static_cast<int>(command.size())));
    updateTemplateCommand();
}

void TemplateTab::updateTemplateCommand()
{
    QTreeWidget* tree = m_form->templatePropsTree;
    const bool hasSecond = templateSecondMarkEditor()->currentData().isValid();
    tree->setItemsExpandable(hasSecond);
    tree->topLevelItem(SecondMarkRow)->setExpanded(hasSecond);
}

void TemplateTab::updateTemplateHtml()
{
    const MDRVar html = Row(editedTemplate()).value(Field::html);
    if (html.isNull || html.type == mdr_TNone)
        return;
    TemplateEditor* editor = templateHtmlEditor();
    const QSignalBlocker blocker(editor);
    editor->setTemplateText(codec()->toUnicode(MDRValue::bytes(html)));
}

QStringList TemplateTab::parameterFilter() const
{
    QStringList names =
        QStringLiteral("datetime text list signalName signalNum baseVoltage organization department "
                       "employee_fio employee_fio_role employee_fio_group employee_fio_dep_org "
                       "equipmentName equipmentPath interval shift_workers shift_workers_groups")
            .split(QLatin1Char(' '));
    CModelTable equipment{std::string()};
    ParametersBase(m_module).createBaseEquipmentsParameter(&equipment, QByteArray());
    for (int i = 0; i < equipment.data.RecCount(); ++i) {
        const HtmlParser parser = templateOf(Row(MDARec(equipment.data.array, 0, i)).value(Field::html));
        if (parser.countParameters() > 0)
            names << QString::fromStdString(parser.propertyNameValue(0));
    }
    return names;
}

QString TemplateTab::fieldLocalName(QString field, QString table)
{
    if (!m_tablesTable || !m_fieldsTable)
        return {};
    const QByteArray tableName = table.toUtf8();
    const MDRVar wanted = MDRValue::text(tableName);
    const MDRData* directory = MDARecSeekV(m_tablesTable->data.array, 1, &wanted, 0);
    if (!directory)
        return {};

    CMDArray& fields = m_fieldsTable->data;
    const int key = MDAKeyCount(fields.array);
    if (fields.KeyAdd("TablesKey;nameLat", 0) != mdr_Ok)
        return {};
    const QByteArray fieldName = field.toUtf8();
    const MDRVar pair[] = {Row(directory).value(Field::KeyLink), MDRValue::text(fieldName)};
    const MDRVar name = Row(MDARecSeekV(fields.array, key, pair, 0)).value(Field::nameLoc);
    const QString local = codec()->toUnicode(MDRValue::bytes(name));
    fields.lastError = MDAKeyDel(fields.array, key);
    return local;
}
