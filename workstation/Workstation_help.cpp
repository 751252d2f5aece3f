#include "AboutDialog.h"
#include "CVrkCliMod.h"
#include "Help.h"
#include "HelpMenu.h"
#include "SignIn.h"
#include "Workstation.h"

#include <QApplication>

void Workstation::connectHelp(HelpMenu* menu, CVrkCliMod* module)
{
    connect(menu, &HelpMenu::guideWanted, module, [this, module] {
        const QWidget* front = QApplication::focusWidget();
        m_help->showFor(front ? front : module);
    });
    connect(menu, &HelpMenu::sectionWanted, m_help.get(), &Help::showSection);
    connect(menu, &HelpMenu::aboutWanted, module, [this, module] { showAbout(module); });
}

void Workstation::showAbout(CVrkCliMod* module)
{
    const bool isServer = SignIn::isServer(m_options.store);
    AboutDialog dialog(storeAddress(), isServer ? tr("PostgreSQL, на сервере") : tr("SQLite, файл"), module);
    dialog.exec();
}
