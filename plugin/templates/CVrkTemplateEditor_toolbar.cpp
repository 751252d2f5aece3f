#include "CVrkTemplateEditor.h"
#include "LogText.h"
#include "TemplateTab.h"
#include "ui_CVrkTemplateEditor.h"

#include <QLabel>
#include <QMenu>
#include <QToolBar>
#include <QToolButton>

namespace
{
constexpr int statusWidth = 160;

QAction* appendAction(QToolButton* button, const char* name, const QString& text, const QString& icon)
{
    QAction* action = button->menu()->addAction(CVrkCliMod::icon(icon), text);
    action->setObjectName(QLatin1String(name));
    return action;
}
} // namespace

QToolButton* CVrkTemplateEditor::appendButton(const QString& name, const QString& icon,
                                              const QString& toolTip, const QKeySequence& shortcut)
{
    auto* button = new QToolButton(m_toolBar);
    button->setObjectName(name);
    button->setIcon(CVrkCliMod::icon(icon));
    button->setToolTip(toolTip + QLatin1Char(' ') + shortcut.toString(QKeySequence::PortableText));
    button->setShortcut(shortcut);
    m_toolBar->addWidget(button);
    return button;
}

void CVrkTemplateEditor::createToolBar()
{
    m_toolBar = new QToolBar(this);
    m_toolBar->setObjectName(QStringLiteral("toolBar"));
    m_toolBar->setContextMenuPolicy(Qt::NoContextMenu);
    m_toolBar->setMovable(false);
    addToolBar(Qt::TopToolBarArea, m_toolBar);

    m_toolBar->addSeparator();
    m_createButton = appendButton(QStringLiteral("createButton"), QStringLiteral("add.png"), tr("Создать"),
                                  QKeySequence(Qt::CTRL + Qt::Key_N));
    m_createButton->setPopupMode(QToolButton::InstantPopup);
    m_createButton->setMenu(new QMenu(m_createButton));
    const QString folder = QStringLiteral("folder.png");
    m_rootFolderAction = appendAction(m_createButton, "createRootFolderAction", tr("Категория"), folder);
    m_folderAction = appendAction(m_createButton, "createFolderAction", tr("Подкатегория"), folder);
    m_templateAction =
        appendAction(m_createButton, "createTemplateAction", tr("Шаблон"), QStringLiteral("template.png"));
    m_deleteButton = appendButton(QStringLiteral("deleteButton"), QStringLiteral("remove.png"), tr("Удалить"),
                                  QKeySequence(Qt::Key_Delete));
    m_toolBar->addSeparator();
    m_saveButton = appendButton(QStringLiteral("saveButton"), QStringLiteral("apply.png"),
                                tr("Сохранить изменения"), QKeySequence(Qt::CTRL + Qt::Key_S));
    m_cancelButton = appendButton(QStringLiteral("cancelButton"), QStringLiteral("cancel.png"),
                                  tr("Отменить изменения"), QKeySequence(Qt::Key_Escape));
    m_saveButton->setEnabled(false);
    m_cancelButton->setEnabled(false);
    m_toolBar->addSeparator();
    m_statusLabel = new QLabel(m_toolBar);
    m_statusLabel->setObjectName(QStringLiteral("statusLabel"));
    m_statusLabel->setAlignment(Qt::AlignCenter);
    m_statusLabel->setMinimumWidth(statusWidth);
    m_toolBar->addWidget(m_statusLabel);
}

void CVrkTemplateEditor::createConnections()
{
    connect(m_form->orgsTemplates, &TemplateTab::hideMe, this, [this] { hideTab(m_form->orgsTemplates); });
    connect(m_form->depsTemplates, &TemplateTab::hideMe, this, [this] { hideTab(m_form->depsTemplates); });
    connect(m_form->templatesTabWidget, &QTabWidget::currentChanged, this,
            &CVrkTemplateEditor::updateControls);
    for (TemplateTab* tab : tabs())
        connectTab(tab);

    const auto onCurrent = [this](auto* sender, auto signal, void (TemplateTab::*operation)()) {
        connect(sender, signal, this, [this, operation] {
            if (TemplateTab* tab = currentTab())
                (tab->*operation)();
        });
    };
    onCurrent(m_rootFolderAction, &QAction::triggered, &TemplateTab::createRootFolder);
    onCurrent(m_folderAction, &QAction::triggered, &TemplateTab::createFolder);
    onCurrent(m_templateAction, &QAction::triggered, &TemplateTab::createTemplate);
    onCurrent(m_deleteButton, &QToolButton::clicked, &TemplateTab::deleteSelected);
    onCurrent(m_saveButton, &QToolButton::clicked, &TemplateTab::applyChanges);
    onCurrent(m_cancelButton, &QToolButton::clicked, &TemplateTab::cancelChanges);
}

void CVrkTemplateEditor::connectTab(TemplateTab* tab)
{
    for (auto signal : {&TemplateTab::dataEdited, &TemplateTab::editDataReseted, &TemplateTab::itemChanged})
        connect(tab, signal, this, &CVrkTemplateEditor::updateControls);
    connect(tab, &TemplateTab::writeLog, this, &CVrkTemplateEditor::writeLog);
}

void CVrkTemplateEditor::hideTab(TemplateTab* tab)
{
    m_form->templatesTabWidget->setTabVisible(m_form->templatesTabWidget->indexOf(tab), false);
}

void CVrkTemplateEditor::updateStatusView()
{
    const struct {
        QString text;
        QString colour;
    } views[] = {{tr("Просмотр"), QStringLiteral("#169CBA")},
                 {tr("Администратор локальный"), QStringLiteral("#2ea36a")},
                 {tr("Администратор"), QStringLiteral("#63D945")}};
    m_statusLabel->setText(views[m_rights].text);
    m_statusLabel->setStyleSheet(
        QStringLiteral("border: 2px solid %1; border-radius: 3px; border-style: inset;")
            .arg(views[m_rights].colour));
}

void CVrkTemplateEditor::updateControls()
{
    const TemplateTab* tab = currentTab();
    if (!m_toolBar || !tab || !tab->model()) // a page may send a request before all of them exist
        return;
    const bool isUnsaved = tab->isExistUnsaved();
    if (!isUnsaved)
        SetIsEdit(false);
    else if (!isEdit())
        SetIsEdit(true);
    QTabWidget* pages = m_form->templatesTabWidget;
    for (int i = 0; i < pages->count(); ++i)
        if (i != pages->currentIndex())
            pages->setTabEnabled(i, !isUnsaved);

    m_rootFolderAction->setEnabled(tab->isRootCreatable());
    m_folderAction->setEnabled(tab->isFolderCreatable());
    m_templateAction->setEnabled(tab->isTemplateCreatable());
    m_createButton->setEnabled(m_rootFolderAction->isEnabled() || m_folderAction->isEnabled() ||
                               m_templateAction->isEnabled());
    m_deleteButton->setEnabled(tab->isItemDeletable());
    m_saveButton->setEnabled(isUnsaved);
    m_cancelButton->setEnabled(isUnsaved);
}
