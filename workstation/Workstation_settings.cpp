#include "ColumnsPage.h"
#include "CVrkCliMod.h"
#include "LookPage.h"
#include "NoticesPage.h"
#include "ReportsPage.h"
#include "SettingsWindow.h"
#include "SpellGuard.h"
#include "SpellingPage.h"
#include "StartPage.h"
#include "StorePage.h"
#include "UserSettings.h"
#include "VrkTableTool.h"
#include "WindowMemory.h"
#include "Workstation.h"

#include <QTableView>
#include <QTimer>

void Workstation::showSettings(CVrkCliMod* module)
{
    if (!m_settingsWindow) {
        m_settingsWindow = new SettingsWindow(module);
        m_settingsWindow->setAttribute(Qt::WA_DeleteOnClose);
        addSettingsPages();
    }
    m_settingsWindow->show();
    m_settingsWindow->raise();
    m_settingsWindow->activateWindow();
}

void Workstation::addSettingsPages()
{
    UserSettings* settings = m_app.settings();
    QVector<QPair<QString, QString>> modules;
    for (const PluginCatalog::Module& one : m_catalog.modules()) {
        if (mayOpen(one.name))
            modules.append({one.name, one.title});
    }
    const auto journal = [this] { return memory(this->module(QStringLiteral("logbook"))); };
    const auto tables = [journal] {
        QVector<VrkTableTool*> found;
        const WindowMemory* kept = journal();
        for (VrkTableTool* tool : kept ? kept->tables() : QVector<VrkTableTool*>()) {
            if (tool->tableView()->objectName() == QLatin1String("recordsTable"))
                found.append(tool);
        }
        return found;
    };
    const auto save = [journal] {
        if (const WindowMemory* kept = journal())
            kept->save();
    };
    auto* store = new StorePage(settings, storeAddress());
    // Queued: the window of the button will be deleted.
    connect(store, &StorePage::otherStoreRequested, this,
            [this] { QTimer::singleShot(0, this, &Workstation::changeStore); });
    for (SettingsPage* page : std::initializer_list<SettingsPage*>{
             new LookPage(settings), new NoticesPage(settings), new ColumnsPage(settings, tables, save),
             new StartPage(settings, modules), new SpellingPage(settings, m_spelling->dictionary()),
             new ReportsPage(settings), store})
        m_settingsWindow->addPage(page);
}
