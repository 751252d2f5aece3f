#include "TemplatePassport.h"

#include "Fields.h"
#include "LastRowFiller.h"
#include "RecordValue.h"
#include "TemplateEditor.h"
#include "TemplateEdits.h"
#include "TemplateMarkers.h"
#include "TemplateTables.h"
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

QComboBox* markerBox()
{
    auto* box = new QComboBox;
    for (const TemplateMarker& marker : templateMarkers) {
        const QString path = QLatin1String(marker.icon);
        box->addItem(marker.icon ? QIcon(path) : QIcon(),
                     QCoreApplication::translate("TemplateMarkers", marker.label),
                     marker.icon ? QVariant(path) : QVariant());
    }
    return box;
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
Editor* editorAt(const QTreeWidget* tree, QTreeWidgetItem* item)
{
    return item ? qobject_cast<Editor*>(tree->itemWidget(item, 1)) : nullptr;
}

template <typename Editor>
Editor* editorAt(const QTreeWidget* tree, PassportRow row)
{
    return editorAt<Editor>(tree, tree->topLevelItem(row));
}

QCheckBox* boxAt(const QTreeWidget* tree, PassportRow row)
{
    const auto* cell = editorAt<QWidget>(tree, row);
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

TemplatePassport::TemplatePassport(const Source& source, QObject* parent) : QObject(parent), m_source(source)
{
    configureTree(m_source.form->categoryPropsTree, tr("Наименование"));
    configureTree(m_source.form->templatePropsTree, tr("Требует введения времени выполнения"));
    createCategoryPassport();
    createTemplatePassport();
}

void TemplatePassport::raiseUpPassport(MDRData* record)
{
    const auto isIn = [record](const CModelTable& table) {
        return TemplateTables::isContains(&table, record);
    };
    if (isIn(m_source.tables.categories) || isIn(m_source.tables.categoriesEdit)) {
        setQuietly(categoryNameEditor(), Row(record).text(Field::nameLoc, m_source.codec));
        m_source.form->passportStack->setCurrentIndex(CategoryPage);
    } else if (isIn(m_source.tables.templates) || isIn(m_source.tables.templatesEdit)) {
        reloadTemplatePassport(record);
        m_source.form->passportStack->setCurrentIndex(TemplatePage);
    } else {
        m_source.form->passportStack->setCurrentIndex(EmptyPage);
    }
}

void TemplatePassport::createCategoryPassport()
{
    const MDRField* name = MDRFldByName(m_source.tables.categoriesEdit.data.array, Field::nameLoc);
    auto* edit = new QLineEdit;
    edit->setObjectName(QStringLiteral("categoryNameEdit"));
    edit->setFrame(false);
    edit->setMaxLength(name->width);
    edit->setEnabled(m_source.canEdit);
    edit->setAccessibleName(m_source.categoryLabel);
    addRow(m_source.form->categoryPropsTree, nullptr, m_source.categoryLabel, edit);
    connect(edit, &QLineEdit::textChanged, this, &TemplatePassport::categoryNameChanged);
}

void TemplatePassport::createTemplatePassport()
{
    QTreeWidget* tree = m_source.form->templatePropsTree;
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

    QLineEdit* name = lineEdit();
    name->setMaxLength(MDRFldByName(m_source.tables.templatesEdit.data.array, Field::nameLoc)->width);
    add(m_source.templateLabel, name, "templateNameEdit");
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
    html->setTextCodec(m_source.codec);
    html->setCatsParametersTable(m_source.catsParameterTable);
    html->setParametersTable(m_source.parametersTable);
    html->setParameterFilter(m_source.parameterFilter);
    add(tr("Шаблон"), html, "templateHtmlEditor", editorHeight)
        ->setTextAlignment(0, Qt::AlignLeft | Qt::AlignTop);
    for (QWidget* editor : std::initializer_list<QWidget*>{name, open, close, time, first, second, command})
        editor->setEnabled(m_source.canEdit);
    html->setEnabled(m_source.canEdit); // a separate function: the shown text can still be selected

    connect(name, &QLineEdit::textChanged, this, &TemplatePassport::templateNameChanged);
    connect(open, &QCheckBox::clicked, this, &TemplatePassport::templateOpenChanged);
    connect(close, &QCheckBox::clicked, this, &TemplatePassport::templateCloseChanged);
    connect(time, &QCheckBox::clicked, this, &TemplatePassport::templateTimeChanged);
    const auto indexChanged = QOverload<int>::of(&QComboBox::currentIndexChanged);
    connect(first, indexChanged, this, &TemplatePassport::templateFirstMarkChanged);
    connect(second, indexChanged, this, &TemplatePassport::templateSecondMarkChanged);
    connect(command, &QLineEdit::textChanged, this, &TemplatePassport::templateCommandChanged);
    connect(html, &TemplateEditor::templateChanged, this, &TemplatePassport::templateHtmlChanged);
    updateTemplateCommand();
}

QLineEdit* TemplatePassport::categoryNameEditor() const
{
    return editorAt<QLineEdit>(m_source.form->categoryPropsTree, NameRow);
}

QLineEdit* TemplatePassport::templateNameEditor() const
{
    return editorAt<QLineEdit>(m_source.form->templatePropsTree, NameRow);
}

QCheckBox* TemplatePassport::templateOpenEditor() const
{
    return boxAt(m_source.form->templatePropsTree, OpenRow);
}

QCheckBox* TemplatePassport::templateCloseEditor() const
{
    return boxAt(m_source.form->templatePropsTree, CloseRow);
}

QCheckBox* TemplatePassport::templateTimeEditor() const
{
    return boxAt(m_source.form->templatePropsTree, TimeRow);
}

QComboBox* TemplatePassport::templateFirstMarkEditor() const
{
    return editorAt<QComboBox>(m_source.form->templatePropsTree, FirstMarkRow);
}

QComboBox* TemplatePassport::templateSecondMarkEditor() const
{
    return editorAt<QComboBox>(m_source.form->templatePropsTree, SecondMarkRow);
}

QLineEdit* TemplatePassport::templateCommandEditor() const
{
    QTreeWidgetItem* row = m_source.form->templatePropsTree->topLevelItem(SecondMarkRow);
    return editorAt<QLineEdit>(m_source.form->templatePropsTree, row ? row->child(0) : nullptr);
}

TemplateEditor* TemplatePassport::templateHtmlEditor() const
{
    return editorAt<TemplateEditor>(m_source.form->templatePropsTree, HtmlRow);
}

/// Without emitting signals to the handlers.
void TemplatePassport::reloadTemplatePassport(const MDRData* record)
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

    setQuietly(templateNameEditor(), Row(record).text(Field::nameLoc, m_source.codec));
    const QString shown = m_source.codec->toUnicode(MDRValue::bytes(html));
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
    setQuietly(templateCommandEditor(),
               m_source.codec->toUnicode(command.data(), static_cast<int>(command.size())));
    updateTemplateCommand();
}

void TemplatePassport::updateTemplateCommand()
{
    QTreeWidget* tree = m_source.form->templatePropsTree;
    const bool hasSecond = templateSecondMarkEditor()->currentData().isValid();
    tree->setItemsExpandable(hasSecond);
    tree->topLevelItem(SecondMarkRow)->setExpanded(hasSecond);
}

void TemplatePassport::updateTemplateHtml()
{
    const MDRVar html = Row(m_source.edits.editedTemplate()).value(Field::html);
    if (html.isNull || html.type == mdr_TNone)
        return;
    TemplateEditor* editor = templateHtmlEditor();
    const QSignalBlocker blocker(editor);
    editor->setTemplateText(m_source.codec->toUnicode(MDRValue::bytes(html)));
}
