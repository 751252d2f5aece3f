#include "Workstation.h"

#include "CPopMessageBox.h"
#include "CVrkCliMod.h"
#include "CVrkCliSes.h"
#include "LogWriter.h"
#include "SignIn.h"
#include "SignInDialog.h"
#include "StatusLine.h"

#include <algorithm>
#include <QMessageBox>
#include <QPushButton>
#include <QStatusBar>

Workstation::Workstation(LogWriter* log)
{
    if (log) {
        m_sink = std::make_unique<LogSink>(&m_app, log);
        m_app.setLogSink(m_sink.get());
    }
    m_app.setCloseGuard([this](CVrkCliMod* module) { return mayClose(module); });
}

Workstation::~Workstation()
{
    for (const QPointer<CVrkCliMod>& module : m_modules)
        delete module;
    m_app.setLogSink(nullptr);
}

bool Workstation::enter(const Options& options)
{
    SignIn signIn;
    QByteArray department;
    m_errorText.clear();
    if (!signIn.open(options.store) || !chooseDepartment(&signIn, options, &department) ||
        !signIn.enter(&m_app, department)) {
        if (m_errorText.isEmpty())
            m_errorText = signIn.errorText();
        return false;
    }
    m_userName = signIn.userName();
    for (const SignIn::Department& one : signIn.departments()) {
        if (one.key == department)
            m_departmentName = one.name;
    }
    return true;
}

/// Signs in as well. False without an error text: the user has called it off.
bool Workstation::chooseDepartment(SignIn* signIn, const Options& options, QByteArray* department)
{
    const bool chosenByServer = signIn->logins().isEmpty();
    if (!options.user.isEmpty() || chosenByServer) {
        if (!signIn->signIn(options.user))
            return false;
        *department = SignInDialog::departmentOf(*signIn, options.department);
        if (!department->isEmpty() || signIn->departments().isEmpty())
            return true; // without a department the module says what is missing
        if (!options.department.isEmpty()) {
            m_errorText = tr("Пользователь %1 не работает в подразделении «%2».")
                              .arg(signIn->userName(), options.department);
            return false;
        }
    }
    SignInDialog dialog(signIn, options.user, options.department);
    if (dialog.exec() != QDialog::Accepted)
        return false;
    *department = dialog.departmentKey();
    return true;
}

CVrkCliMod* Workstation::startModule(const Options& options)
{
    if (!m_loader)
        m_loader = std::make_unique<PluginLoader>(options.plugin);
    CVrkCliMod* module = m_loader->create(&m_app, options.module);
    if (!module) {
        m_errorText = m_loader->errorText();
        return nullptr;
    }
    m_modules.emplace_back(module);

    auto* line = new StatusLine(m_app.session(), m_userName, m_departmentName);
    module->statusBar()->setSizeGripEnabled(false);
    module->statusBar()->addWidget(line, 1);
    connect(&m_app, &CVrkCliApp::textAdjusted, line, &StatusLine::showNotice);
    connect(module, &CVrkCliMod::closed, this, [this, module] { moduleClosed(module); });

    module->show();
    module->ModuleStart();
    return module;
}

StatusLine* Workstation::statusLine(const CVrkCliMod* module) const
{
    return module->findChild<StatusLine*>();
}

bool Workstation::mayClose(CVrkCliMod* module)
{
    if (!module->isEdit())
        return true;

    QMessageBox box(QMessageBox::Question, module->moduleTitle(), tr("Есть несохранённые изменения."),
                    QMessageBox::NoButton, module);
    box.setObjectName(QStringLiteral("unsavedBox"));
    const QPushButton* save = box.addButton(tr("Сохранить"), QMessageBox::AcceptRole);
    const QPushButton* drop = box.addButton(tr("Не сохранять"), QMessageBox::DestructiveRole);
    QPushButton* stay = box.addButton(tr("Остаться"), QMessageBox::RejectRole);
    box.setDefaultButton(stay);
    box.setEscapeButton(stay);
    box.exec();

    if (box.clickedButton() == drop) {
        module->ModDataEditCancel();
        return true;
    }
    if (box.clickedButton() != save)
        return false;
    module->ModDataEditPost();
    m_app.fetchEvents();
    const QList<CPopMessageBox*> boxes = module->findChildren<CPopMessageBox*>();
    const bool complains =
        std::any_of(boxes.begin(), boxes.end(), [](const QWidget* one) { return one->isVisible(); });
    return !module->isEdit() && !complains;
}

void Workstation::moduleClosed(CVrkCliMod* module)
{
    module->ModuleStop();
    module->deleteLater();
}
