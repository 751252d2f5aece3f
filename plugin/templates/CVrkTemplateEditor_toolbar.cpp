#include "CVrkTemplateEditor.h"
#include "TemplateActions.h"
#include "ui_CVrkTemplateEditor.h"

#include <QCoreApplication>
#include <QLabel>
#include <QMenu>
#include <QToolBar>
#include <QToolButton>

namespace
{
constexpr int statusWidth = 160;

struct Button : TemplateAction {
    int key;
};
/// The first button opens a menu.
const Button buttons[] = {{{"createButton", QT_TR_NOOP("Создать"), "add.png"}, Qt::CTRL | Qt::Key_N},
                          {{"deleteButton", QT_TR_NOOP("Удалить"), "remove.png",
                            is<&TemplateTab::isItemDeletable>, &TemplateTab::deleteSelected},
                           Qt::Key_Delete},
                          {},
                          {{"saveButton", QT_TR_NOOP("Сохранить изменения"), "apply.png",
                            is<&TemplateTab::isExistUnsaved>, &TemplateTab::applyChanges},
                           Qt::CTRL | Qt::Key_S},
                          {{"cancelButton", QT_TR_NOOP("Отменить изменения"), "cancel.png",
                            is<&TemplateTab::isExistUnsaved>, &TemplateTab::cancelChanges},
                           Qt::Key_Escape},
                          {}};
} // namespace

void CVrkTemplateEditor::createToolBar()
{
    m_toolBar = new QToolBar(this);
    m_toolBar->setObjectName(QStringLiteral("toolBar"));
    m_toolBar->setContextMenuPolicy(Qt::NoContextMenu);
    m_toolBar->setMovable(false);
    addToolBar(Qt::TopToolBarArea, m_toolBar);

    m_toolBar->addSeparator();
    for (const Button& row : buttons) {
        if (!row.name) {
            m_toolBar->addSeparator();
            continue;
        }
        auto* button = new QToolButton(m_toolBar);
        const QKeySequence shortcut(row.key);
        button->setObjectName(QLatin1String(row.name));
        button->setIcon(CVrkCliMod::icon(QLatin1String(row.icon)));
        button->setToolTip(tr(row.text) + QLatin1Char(' ') + shortcut.toString(QKeySequence::PortableText));
        button->setShortcut(shortcut);
        m_toolBar->addWidget(button);
        connect(button, &QToolButton::clicked, this, [this, run = row.request] { request(run); });
    }
    m_createButton = m_toolBar->findChild<QToolButton*>(QLatin1String(buttons[0].name));
    m_createButton->setPopupMode(QToolButton::InstantPopup);
    auto* menu = new QMenu(m_createButton);
    m_createButton->setMenu(menu);
    for (int i = 0; i < creatingActions; ++i) {
        const TemplateAction& row = templateActions[i];
        QAction* action = menu->addAction(CVrkCliMod::icon(QLatin1String(row.icon)),
                                          QCoreApplication::translate("TemplateTab", row.text));
        QString name = QLatin1String(row.name);
        name[0] = name[0].toUpper();
        action->setObjectName(QStringLiteral("create") + name);
        connect(action, &QAction::triggered, this, [this, run = row.request] { request(run); });
    }

    m_statusLabel = new QLabel(m_toolBar);
    m_statusLabel->setObjectName(QStringLiteral("statusLabel"));
    m_statusLabel->setAlignment(Qt::AlignCenter);
    m_statusLabel->setMinimumWidth(statusWidth);
    m_toolBar->addWidget(m_statusLabel);
}

void CVrkTemplateEditor::request(void (TemplateTab::*operation)())
{
    TemplateTab* tab = currentTab();
    if (tab && operation)
        (tab->*operation)();
}

void CVrkTemplateEditor::createConnections()
{
    connect(m_form->orgsTemplates, &TemplateTab::hideMe, this, [this] { hideTab(m_form->orgsTemplates); });
    connect(m_form->depsTemplates, &TemplateTab::hideMe, this, [this] { hideTab(m_form->depsTemplates); });
    connect(m_form->templatesTabWidget, &QTabWidget::currentChanged, this,
            &CVrkTemplateEditor::updateControls);
    for (TemplateTab* tab : tabs())
        connectTab(tab);
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

    const QList<QAction*> creating = m_createButton->menu()->actions();
    bool isCreatable = false;
    for (int i = 0; i < creatingActions; ++i) {
        creating[i]->setEnabled(templateActions[i].isEnabled(*tab));
        isCreatable = isCreatable || creating[i]->isEnabled();
    }
    m_createButton->setEnabled(isCreatable);
    for (const Button& row : buttons)
        if (row.isEnabled)
            m_toolBar->findChild<QToolButton*>(QLatin1String(row.name))->setEnabled(row.isEnabled(*tab));
}
