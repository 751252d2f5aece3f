#include "TemplateTab.h"

#include "CPopMessageBox.h"
#include "CVrkCliApp.h"
#include "CVrkCliMod.h"
#include "CVrkCliSes.h"
#include "DepsTemplatesEditSourceModel.h"
#include "Fields.h"
#include "KeptDraft.h"
#include "LogbookTables.h"
#include "NoticeBar.h"
#include "OrgsTemplatesEditSourceModel.h"
#include "ParametersBase.h"
#include "PublicTemplatesEditSourceModel.h"
#include "RecordValue.h"
#include "SearchBar.h"
#include "StillTree.h"
#include "TemplateActions.h"
#include "TemplateEditor.h"
#include "TemplateMoves.h"
#include "TemplatePassport.h"
#include "TemplatesProxyModel.h"
#include "ui_TemplateTab.h"

#include <QKeyEvent>
#include <QMenu>
#include <QShortcut>
#include <QTextCodec>
#include <QTimer>

namespace
{
constexpr int searchHeight = 27;
constexpr int boxWidth = 350;
constexpr int boxHeight = 110;
enum NoticeChoice { Restore, Dismiss };
} // namespace

TemplateTab::TemplateTab(QWidget* parent) : QWidget(parent), m_form(new Ui::TemplateTab)
{
    const QString name = objectName();
    m_form->setupUi(this);
    if (!name.isEmpty())
        setObjectName(name);
    configureForm();
    createConnections();
}

TemplateTab::~TemplateTab()
{
    // Destroyed first: the views read the tables.
    if (m_form->templatesTree->model())
        m_form->templatesTree->setModel(nullptr);
    delete m_proxy;
    delete m_model;
    delete m_messageBox; // a child of the module
}

void TemplateTab::configureForm()
{
    QTreeView* tree = m_form->templatesTree;
    tree->setHeaderHidden(true);
    tree->setAnimated(true);
    tree->setUniformRowHeights(true);
    tree->setContextMenuPolicy(Qt::CustomContextMenu);
    tree->setSortingEnabled(true);
    tree->sortByColumn(0, Qt::AscendingOrder);

    QLineEdit* search = m_form->searchEdit;
    search->setFrame(false);
    search->setPlaceholderText(tr("Поиск..."));
    search->addAction(CVrkCliMod::icon(QStringLiteral("search.png")), QLineEdit::LeadingPosition);
    search->setClearButtonEnabled(true);
    search->setMinimumHeight(searchHeight);

    const std::pair<QToolButton*, QString> buttons[] = {
        {m_form->upSearchButton, QStringLiteral("up-arrow.png")},
        {m_form->downSearchButton, QStringLiteral("down-arrow.png")}};
    for (const auto& [button, icon] : buttons) {
        button->setIcon(CVrkCliMod::icon(icon));
        button->setFixedSize(searchHeight, searchHeight);
    }
    m_form->upSearchButton->setToolTip(tr("Предыдущее совпадение"));
    m_form->downSearchButton->setToolTip(tr("Следующее совпадение"));
    m_form->splitter->setStretchFactor(0, 1);
    m_form->splitter->setStretchFactor(1, 3);
    m_form->splitter->setChildrenCollapsible(false);

    m_menu = new QMenu(this);
    m_menu->setObjectName(QStringLiteral("contextMenu"));
    for (const TemplateAction& row : templateActions) {
        QAction* action = row.name
                              ? m_menu->addAction(CVrkCliMod::icon(QLatin1String(row.icon)), tr(row.text))
                              : m_menu->addSeparator();
        if (!row.name)
            continue;
        action->setObjectName(QLatin1String(row.name));
        connect(action, &QAction::triggered, this, row.request);
    }

    m_notice = new NoticeBar(this);
    m_notice->setObjectName(QStringLiteral("keptNotice"));
    m_form->verticalLayout_3->insertWidget(0, m_notice);
    m_form->verticalLayout_3->setStretchFactor(m_form->splitter, 1);
}

void TemplateTab::createConnections()
{
    QTreeView* tree = m_form->templatesTree;
    new SearchBar(
        {m_form->searchEdit, m_form->upSearchButton, m_form->downSearchButton, tree, true},
        [this](const QString& text) { return matcheIndexes(text); },
        [tree](const QModelIndex& hit) {
            const StillTree still(tree);
            tree->setCurrentIndex(hit);
            // not the hit itself: a failed save removes rows
            tree->scrollTo(tree->currentIndex(), QAbstractItemView::EnsureVisible);
        },
        this);
    connect(m_form->templatesTree, &QTreeView::customContextMenuRequested, this,
            &TemplateTab::contextMenuRequest);
    connect(m_notice, &NoticeBar::chosen, this, [this](int choice) {
        if (choice == Restore && !m_kept.isEmpty())
            restoreKept();
        else
            m_kept.clear();
        m_notice->setVisible(!m_kept.isEmpty());
        m_unsaved->touch();
    });

    // Otherwise the view uses the key to copy the name.
    auto* copy =
        new QShortcut(QKeySequence::Copy, m_form->templatesTree, nullptr, nullptr, Qt::WidgetShortcut);
    connect(copy, &QShortcut::activated, this, [this] {
        if (m_level && canCopyCurrent())
            copyItem();
    });
}

QModelIndexList TemplateTab::matcheIndexes(const QString& text) const
{
    if (!m_proxy || text.isEmpty())
        return {};
    return m_proxy->match(m_proxy->index(0, 0), Qt::DisplayRole, text, -1,
                          Qt::MatchContains | Qt::MatchFixedString | Qt::MatchWrap | Qt::MatchRecursive);
}

void TemplateTab::setCatsTemplateTable(const CModelTable* table)
{
    TemplateTables::copyFrom(&m_tables.categories, table);
}

void TemplateTab::setTemplatesTable(const CModelTable* table)
{
    TemplateTables::copyFrom(&m_tables.templates, table);
}

void TemplateTab::init(CVrkCliMod* module, TemplateTypes type, Rights::AdminRights rights)
{
    m_module = module;
    m_rights = rights;
    switch (type) {
    case Public:
        m_level = &TemplateLevels::publicLevel;
        m_model = new PublicTemplatesEditSourceModel(this);
        break;
    case Orgs:
        m_level = &TemplateLevels::orgsLevel;
        m_model = new OrgsTemplatesEditSourceModel(this);
        break;
    case Deps:
        m_level = &TemplateLevels::depsLevel;
        m_model = new DepsTemplatesEditSourceModel(this);
        break;
    }
    m_unsaved = new KeptDraft(this, KeptTexts::of(m_module), [this] { return unsaved(); });
    m_messageBox = new CPopMessageBox(m_module);
    m_messageBox->setObjectName(objectName() + QStringLiteral("MessageBox"));
    m_proxy = new TemplatesProxyModel(this);
    m_moves = std::make_unique<TemplateMoves>(m_module->session(), m_tables, m_sent, m_orgTypesTable,
                                              m_departmentsTable);

    m_model->setTextCodec(codec());
    m_model->setOrgTypesTable(m_orgTypesTable);
    m_model->setDepartmentsTable(m_departmentsTable);
    m_model->setCatsTemplateTable(&m_tables.categories);
    m_model->setTemplatesTable(&m_tables.templates);
    m_model->setCatsTemplateEdit(&m_tables.categoriesEdit);
    m_model->setTemplatesEdit(&m_tables.templatesEdit);
    m_model->setEditable(canEdit());

    m_proxy->setDynamicSortFilter(true);
    m_proxy->setCatsTemplateTable(&m_tables.categories);
    m_proxy->setCatsTemplateEdit(&m_tables.categoriesEdit);
    m_proxy->setTemplatesTable(&m_tables.templates);
    m_proxy->setTemplatesEdit(&m_tables.templatesEdit);
    if (type == Orgs)
        applyTemplateFilter_Orgs();
    else if (type == Deps)
        applyTemplateFilter_Deps();
    m_proxy->setSourceModel(m_model);

    QTreeView* tree = m_form->templatesTree;
    tree->setModel(m_proxy);
    tree->sortByColumn(0, Qt::AscendingOrder);
    if (canEdit()) {
        tree->setDragEnabled(true);
        tree->setAcceptDrops(true);
        tree->viewport()->setAcceptDrops(true);
        tree->setDropIndicatorShown(true);
        tree->setDragDropMode(QAbstractItemView::DragDrop);
        tree->setDefaultDropAction(Qt::MoveAction);
        tree->setDragDropOverwriteMode(false);
    }

    createPassport();
    m_form->propertiesTabWidget->setCurrentWidget(m_form->propertiesTab);
    connect(tree->selectionModel(), &QItemSelectionModel::currentChanged, this, &TemplateTab::reloadFor);
    connect(m_model, &TemplatesEditSourceModel::moveToCategory, this, &TemplateTab::moveItem);
    offerLeft();
}

QTextCodec* TemplateTab::codec() const
{
    return m_module->session()->codec();
}

QString TemplateTab::userParameter(const char* name) const
{
    return m_module->app()->m_user_params.getValue(QLatin1String(name), QString());
}

QModelIndex TemplateTab::currentSource() const
{
    return m_proxy->mapToSource(m_form->templatesTree->currentIndex());
}

MDRData* TemplateTab::currentRecord() const
{
    return m_model->recordByIndex(currentSource());
}

void TemplateTab::reloadFor(const QModelIndex& current, const QModelIndex& previous)
{
    const QPersistentModelIndex last(previous); // a failed save takes its rows away
    // Changes that were already sent are not sent again here; saving by the button sends them each time.
    if (!m_isSent && !sendChangesToServer()) {
        // Not during the change of selection.
        QTimer::singleShot(0, this, [this, last] { putBack(last); });
        return;
    }
    if (current != previous && previous.isValid())
        forgetOffer();
    raiseUpPassport(current);
    emit itemChanged();
}

void TemplateTab::putBack(const QPersistentModelIndex& previous)
{
    // The row may have been removed with the record that could not be saved; then the current one stays.
    QItemSelectionModel* selection = m_form->templatesTree->selectionModel();
    const QModelIndex wanted = previous.isValid() ? QModelIndex(previous) : selection->currentIndex();
    selection->blockSignals(true);
    selection->clearSelection();
    m_form->templatesTree->setCurrentIndex(
        wanted); // through the view, which still has the requested row as current
    selection->blockSignals(false);
    m_form->templatesTree->viewport()->update();
    m_form->templatesTree->scrollTo(wanted);
    if (!isExistUnsaved()) // the typed changes are dropped: show the stored values
        raiseUpPassport(wanted);
    emit itemChanged();
}

void TemplateTab::selectFirst()
{
    const QModelIndex first = m_proxy->mapFromSource(m_model->index(0, 0));
    QTreeView* tree = m_form->templatesTree;
    // The filter may hide the first row of the source.
    const QModelIndex wanted = first.isValid() ? first : m_proxy->index(0, 0);
    if (!wanted.isValid()) {
        raiseUpPassport(QModelIndex());
        return;
    }
    tree->clearSelection();
    tree->setCurrentIndex(wanted);
}

void TemplateTab::takeKeyboard()
{
    m_form->templatesTree->setFocus();
}

void TemplateTab::setFocusOn(MDRData* record, MDRData* edit)
{
    QTreeView* tree = m_form->templatesTree;
    const StillTree still(tree);
    QItemSelectionModel* selection = tree->selectionModel();
    selection->blockSignals(true);
    const QModelIndex index = m_proxy->mapFromSource(m_model->indexByRecord(record));
    const QModelIndex parent = index.parent();
    selection->clearSelection();
    selection->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
    selection->select(index, QItemSelectionModel::Select | QItemSelectionModel::Current);
    m_passport->show(edit ? edit : record);
    selection->blockSignals(false);
    tree->scrollTo(index, QAbstractItemView::EnsureVisible);
    if (parent.isValid() && !tree->isExpanded(parent))
        tree->expand(parent);
    tree->viewport()->update();
}

void TemplateTab::showError(const QString& text)
{
    m_messageBox->setMessage(tr("Ошибка"), QStringLiteral("<center>%1</center>").arg(text), MessageIconError,
                             MessageTypeOk);
    connect(m_messageBox->buttonBox(), &QDialogButtonBox::clicked, this, &TemplateTab::closeMsgBox);
    m_messageBox->resize(boxWidth, boxHeight);
    m_messageBox->show();
}

void TemplateTab::closeMsgBox(QAbstractButton*)
{
    disconnect(m_messageBox->buttonBox(), &QDialogButtonBox::clicked, nullptr, nullptr);
    m_messageBox->close();
}

void TemplateTab::contextMenuRequest(const QPoint& pos)
{
    if (!isAnyAdmin() || isExistUnsaved())
        return;
    const QList<QAction*> actions = m_menu->actions();
    for (int i = 0; i < actions.size(); ++i)
        if (templateActions[i].isEnabled)
            actions[i]->setEnabled(templateActions[i].isEnabled(*this));
    m_menu->popup(m_form->templatesTree->viewport()->mapToGlobal(pos));
}

void TemplateTab::keyPressEvent(QKeyEvent* event)
{
    const bool isControl = event->modifiers() & Qt::ControlModifier;
    if (m_level && isControl && event->key() == Qt::Key_C && canCopyCurrent())
        copyItem();
    else if (m_level && isControl && event->key() == Qt::Key_V && canPasteHere())
        pasteItem();
    else if (isControl && event->key() == Qt::Key_F) {
        m_form->searchEdit->selectAll();
        m_form->searchEdit->setFocus();
    } else if (m_level && !isControl && event->key() == Qt::Key_Delete && isCurrentDeletable()) {
        // Deliberate: the key checks only the level, not unsaved changes.
        deleteSelected();
    }
    QWidget::keyPressEvent(event);
}

void TemplateTab::updateParameters(MDRData* record)
{
    if (m_passport)
        m_passport->templateHtmlEditor()->updateParameters(record);
}

void TemplateTab::reloadParameters()
{
    if (m_passport)
        m_passport->templateHtmlEditor()->reloadParameters();
}

void TemplateTab::createPassport()
{
    const auto label = [this](const char* table) {
        const QString name = fieldLocalName(QLatin1String(Field::nameLoc), QLatin1String(table));
        return name.isEmpty() ? tr("Наименование") : name;
    };
    m_passport = new TemplatePassport(
        {m_form.get(), codec(), m_tables, m_catsParameterTable, m_parametersTable, parameterFilter(),
         label(LogbookTable::CatsTemplate), label(LogbookTable::Templates), canEdit(),
         [this] { return editedCategory(); }, [this] { return editedTemplate(); }},
        this);
    connect(m_passport, &TemplatePassport::edited, this, [this] {
        m_isSent = false;
        m_unsaved->touch();
    });
    connect(m_passport, &TemplatePassport::renamed, this, [this](MDRData* record) {
        // The row of an existing record keeps its name until the change event arrives.
        if (record->flags & ROW_INSERT)
            m_model->updateRecord(record);
    });
}

void TemplateTab::raiseUpPassport(const QModelIndex& proxyIndex)
{
    m_passport->show(m_model->recordByIndex(m_proxy->mapToSource(proxyIndex)));
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
