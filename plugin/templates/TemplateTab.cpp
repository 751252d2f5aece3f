#include "TemplateTab.h"

#include "CVrkCliApp.h"
#include "CVrkCliMod.h"
#include "CVrkCliSes.h"
#include "DepsTemplatesEditSourceModel.h"
#include "Fields.h"
#include "LogbookTables.h"
#include "LogText.h"
#include "NewItems.h"
#include "NoticeBar.h"
#include "OrgsTemplatesEditSourceModel.h"
#include "PageMessages.h"
#include "PageTree.h"
#include "ParametersBase.h"
#include "PublicTemplatesEditSourceModel.h"
#include "RecordValue.h"
#include "SearchBar.h"
#include "TemplateActions.h"
#include "TemplateEditor.h"
#include "TemplateEdits.h"
#include "TemplateEvents.h"
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

TemplateTab::~TemplateTab() = default;

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
        [this](const QString& text) { return m_tree ? m_tree->matcheIndexes(text) : QModelIndexList(); },
        [this](const QModelIndex& hit) { m_tree->scrollTo(hit); }, this);
    connect(tree, &QTreeView::customContextMenuRequested, this, &TemplateTab::contextMenuRequest);

    // Otherwise the view uses the key to copy the name.
    auto* copy = new QShortcut(QKeySequence::Copy, tree, nullptr, nullptr, Qt::WidgetShortcut);
    connect(copy, &QShortcut::activated, this, [this] {
        if (m_level && canCopyCurrent())
            copyItem();
    });
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
    std::unique_ptr<TemplatesEditSourceModel> model;
    switch (type) {
    case Public:
        m_level = &TemplateLevels::publicLevel;
        model = std::make_unique<PublicTemplatesEditSourceModel>(this);
        break;
    case Orgs:
        m_level = &TemplateLevels::orgsLevel;
        model = std::make_unique<OrgsTemplatesEditSourceModel>(this);
        break;
    case Deps:
        m_level = &TemplateLevels::depsLevel;
        model = std::make_unique<DepsTemplatesEditSourceModel>(this);
        break;
    }
    model->setTextCodec(codec());
    model->setOrgTypesTable(m_orgTypesTable);
    model->setDepartmentsTable(m_departmentsTable);
    model->setEditable(canEdit());
    m_messages = std::make_unique<PageMessages>(m_module);
    m_tree = std::make_unique<PageTree>(m_form->templatesTree, std::move(model), m_tables, roots());
    m_edits = new TemplateEdits(m_module->session(), m_tables, *m_tree, m_notice, this);
    m_newItems = std::make_unique<NewItems>(*m_level, m_tables, *m_tree, *m_edits, codec());
    m_moves = std::make_unique<TemplateMoves>(m_module->session(), m_tables, m_edits->sent(), m_orgTypesTable,
                                              m_departmentsTable);
    if (type == Orgs)
        applyTemplateFilter_Orgs();
    else if (type == Deps)
        applyTemplateFilter_Deps();
    m_tree->show(canEdit());
    createPassport();
    m_form->propertiesTabWidget->setCurrentWidget(m_form->propertiesTab);
    m_events = new TemplateEvents(m_tables, *m_tree, *m_edits, *m_moves, *m_passport, codec(), this);

    const auto reloadCurrent = [this] { reloadFor(m_tree->view()->currentIndex(), QModelIndex()); };
    connect(m_tree->selection(), &QItemSelectionModel::currentChanged, this, &TemplateTab::reloadFor);
    connect(m_tree->model(), &TemplatesEditSourceModel::moveToCategory, this, &TemplateTab::moveItem);
    connect(m_edits, &TemplateEdits::currentLost, this, reloadCurrent);
    connect(m_edits, &TemplateEdits::shown, m_passport, &TemplatePassport::raiseUpPassport);
    connect(m_edits, &TemplateEdits::failed, this, &TemplateTab::showError);
    connect(m_edits, &TemplateEdits::writeLog, this, &TemplateTab::writeLog);
    connect(m_edits, &TemplateEdits::dataEdited, this, &TemplateTab::dataEdited);
    connect(m_edits, &TemplateEdits::editDataReseted, this, &TemplateTab::editDataReseted);
    connect(m_events, &TemplateEvents::currentLost, this, reloadCurrent);
    connect(m_events, &TemplateEvents::writeLog, this, &TemplateTab::writeLog);
    const bool isOfDepartment = m_level->roots == TemplateLevel::DepartmentRoots;
    m_edits->offerLeft(QStringLiteral("templates/") + objectName() +
                           (isOfDepartment ? userParameter("DEPARTMENTKEY") : QString()),
                       isAnyAdmin());
}

TemplatesEditSourceModel* TemplateTab::model() const
{
    return m_tree ? m_tree->model() : nullptr;
}

TemplatesProxyModel* TemplateTab::proxy() const
{
    return m_tree ? m_tree->proxy() : nullptr;
}

QTextCodec* TemplateTab::codec() const
{
    return m_module->session()->codec();
}

QString TemplateTab::userParameter(const char* name) const
{
    return m_module->app()->m_user_params.getValue(QLatin1String(name), QString());
}

MDRData* TemplateTab::currentRecord() const
{
    return m_tree->currentRecord();
}

void TemplateTab::reloadFor(const QModelIndex& current, const QModelIndex& previous)
{
    const QPersistentModelIndex last(previous); // a failed save takes its rows away
    // Changes that were already sent are not sent again here; saving by the button sends them each time.
    if (!m_edits->isSent() && !m_edits->sendChangesToServer()) {
        // Not during the change of selection.
        QTimer::singleShot(0, this, [this, last] { putBack(last); });
        return;
    }
    if (current != previous && previous.isValid())
        m_edits->forgetOffer();
    raiseUpPassport(current);
    emit itemChanged();
}

void TemplateTab::putBack(const QPersistentModelIndex& previous)
{
    const QModelIndex wanted = m_tree->putBack(previous);
    if (!isExistUnsaved()) // the typed changes are dropped: show the stored values
        raiseUpPassport(wanted);
    emit itemChanged();
}

void TemplateTab::selectFirst()
{
    if (!m_tree->selectFirst())
        raiseUpPassport(QModelIndex());
}

void TemplateTab::takeKeyboard()
{
    m_form->templatesTree->setFocus();
}

void TemplateTab::setFocusOn(MDRData* record)
{
    m_tree->setFocusOn(record);
    m_passport->raiseUpPassport(record);
}

void TemplateTab::MessageData(TEventNciParse* event)
{
    if (m_events)
        m_events->MessageData(event);
}

void TemplateTab::showError(const QString& text)
{
    m_messages->showMsgBox(tr("Ошибка"), LogText::centered(text), MessageIconError, MessageTypeOk, this,
                           SLOT(closeMsgBox(QAbstractButton*)));
}

void TemplateTab::closeMsgBox(QAbstractButton* button)
{
    m_messages->isConfirmed(button);
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
         label(LogbookTable::CatsTemplate), label(LogbookTable::Templates), canEdit(), *m_edits},
        this);
    connect(m_passport, &TemplatePassport::renamed, this, [this](MDRData* record) {
        // The row of an existing record keeps its name until the change event arrives.
        if (record->flags & ROW_INSERT)
            m_tree->model()->updateRecord(record);
    });
}

void TemplateTab::raiseUpPassport(const QModelIndex& proxyIndex)
{
    m_passport->raiseUpPassport(model()->recordByIndex(proxy()->mapToSource(proxyIndex)));
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
