#include "Workstation.h"

#include "Abbreviations.h"
#include "Alerts.h"
#include "CPopMessageBox.h"
#include "CVrkCliMod.h"
#include "CVrkCliSes.h"
#include "Greeting.h"
#include "Help.h"
#include "HistoryGuard.h"
#include "HostSettings.h"
#include "KeptTexts.h"
#include "LogWriter.h"
#include "Look.h"
#include "ModuleMenu.h"
#include "PasswordDialog.h"
#include "SignIn.h"
#include "SignInDialog.h"
#include "SpellGuard.h"
#include "StatusLine.h"
#include "StoreDialog.h"
#include "UserSettings.h"
#include "WindowMemory.h"

#include <algorithm>
#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QStatusBar>
#include <QTimer>

Workstation::Workstation(LogWriter* log)
    : m_look(std::make_unique<Look>(m_app.settings())),
      m_spelling(std::make_unique<SpellGuard>(&m_app)),
      m_abbreviations(std::make_unique<Abbreviations>(&m_app)),
      m_help(std::make_unique<Help>()),
      m_greeting(std::make_unique<Greeting>(m_app.settings(), m_help.get())),
      m_alerts(std::make_unique<Alerts>(m_app.settings()))
{
    if (log) {
        m_sink = std::make_unique<LogSink>(&m_app, log);
        m_app.setLogSink(m_sink.get());
    }
    m_app.setCloseGuard([this](CVrkCliMod* module) { return mayClose(module); });
    m_app.setModuleOpener([this](const QString& name) { return startModule(name); });
    QVector<CVrkCliApp::RecordEntry> entries;
    for (const PluginCatalog::Module& module : m_catalog.recordModules())
        entries.append({module.name, module.title, QKeySequence(module.key)});
    m_app.setRecordEntries(entries);
    m_chooseStore = [](QWidget* parent) {
        StoreDialog dialog(parent);
        return dialog.exec() == QDialog::Accepted ? dialog.url() : QString();
    };
}

Workstation::~Workstation()
{
    for (const Open& open : m_modules) {
        if (open.module && open.module->isVisible())
            open.memory->save();
        delete open.module;
    }
    m_app.setLogSink(nullptr);
}

bool Workstation::enter(const Options& options)
{
    return options.store.isEmpty() ? askStore(options) : enterStore(options);
}

bool Workstation::askStore(const Options& options, const QString& notice)
{
    StoreDialog dialog;
    if (!notice.isEmpty())
        dialog.showNotice(notice);
    Options chosen = options;
    while (dialog.exec() == QDialog::Accepted) {
        chosen.store = dialog.url();
        if (enterStore(chosen))
            return true;
        dialog.showNotice(m_errorText);
    }
    m_errorText.clear();
    return false;
}

bool Workstation::enterStore(const Options& options)
{
    SignIn signIn;
    QByteArray department;
    m_errorText.clear();
    m_options = options;
    Options complete = options;
    if (!openStore(&signIn, &complete) || !chooseDepartment(&signIn, complete, &department))
        return false;
    if (!signIn.enter(&m_app, department)) {
        m_errorText = signIn.errorText();
        return false;
    }
    if (options.keepsTexts)
        m_app.keptTexts()->open(HostSettings::keptTextsFolder(),
                                m_app.m_user_params.getValue(QStringLiteral("KEYLINK"), QString()),
                                SignIn::storeOf(options.store));
    if (options.keepsTexts)
        m_history =
            std::make_unique<HistoryGuard>(m_app.session(), HostSettings::historyFolder(), options.store);
    m_userName = signIn.userName();
    m_look->setUser(settingsName(), !options.theme.isEmpty());
    if (options.keepsTexts)
        m_spelling->dictionary()->openOwnWords(HostSettings::ownWordsFile(settingsName()));
    m_departmentName.clear();
    for (const SignIn::Department& one : signIn.departments()) {
        if (one.key == department)
            m_departmentName = one.name;
    }
    StoreDialog::remember(options.store);
    return true;
}

/// Asks for login and password if the server requires them, or if another person signs in; they are stored
/// in the options. False without an error text: the user has cancelled.
bool Workstation::openStore(SignIn* signIn, Options* options)
{
    const bool isNextAtServer = m_changing && SignIn::isServer(options->store);
    const QString addressed = SignIn::loginOf(options->store);
    QString offered = SignInDialog::formerLoginBut(m_leavingLogin);
    if (!isNextAtServer) {
        if (signIn->open(options->store)) {
            if (options->user.isEmpty() && !addressed.isEmpty())
                SignInDialog::remember(addressed);
            return true;
        }
        if (!signIn->wantsPassword()) {
            m_errorText = signIn->errorText();
            return false;
        }
        if (!options->user.isEmpty() || !addressed.isEmpty())
            offered = options->user.isEmpty() ? addressed : options->user;
    }
    PasswordDialog dialog(signIn, options->store, offered);
    if (dialog.exec() != QDialog::Accepted)
        return false;
    SignInDialog::remember(dialog.login());
    if (signIn->logins().isEmpty())
        options->user = dialog.login();
    return true;
}

/// Also signs in. False without an error text: the user has cancelled.
bool Workstation::chooseDepartment(SignIn* signIn, const Options& options, QByteArray* department)
{
    const bool chosenByServer = signIn->logins().isEmpty();
    if (!options.user.isEmpty() || chosenByServer) {
        if (!signIn->signIn(options.user)) {
            m_errorText = signIn->errorText();
            return false;
        }
        m_leavingLogin = options.user.isEmpty() ? SignIn::loginOf(options.store) : options.user;
        *department = SignInDialog::departmentOf(*signIn, options.department);
        if (!department->isEmpty() || signIn->departments().isEmpty())
            return true; // without a department the module reports what is missing
        if (!options.department.isEmpty()) {
            m_errorText = tr("Пользователь %1 не работает в подразделении «%2».")
                              .arg(signIn->userName(), options.department);
            return false;
        }
    }
    SignInDialog dialog(signIn, options.user, options.department);
    if (m_changing)
        dialog.offerNextOf(m_leavingLogin);
    if (dialog.exec() != QDialog::Accepted)
        return false;
    *department = dialog.departmentKey();
    if (!dialog.login().isEmpty())
        m_leavingLogin = dialog.login();
    return true;
}

QString Workstation::settingsName() const
{
    return m_leavingLogin.isEmpty() ? m_userName : m_leavingLogin;
}

CVrkCliMod* Workstation::module(const QString& name) const
{
    for (const Open& open : m_modules) {
        if (open.module && open.module->isVisible() && open.name == name)
            return open.module;
    }
    return nullptr;
}

bool Workstation::mayOpen(const QString& name)
{
    const PluginCatalog::Module* module = m_catalog.module(name);
    return module && !module->isOfRecord &&
           (module->right.isEmpty() ||
            m_app.session()->OperationRights(module->right.toLatin1().constData()));
}

QString Workstation::storeAddress() const
{
    return SignIn::withoutPassword(m_options.store);
}

CVrkCliMod* Workstation::start()
{
    const QString journal = QStringLiteral("logbook");
    if (!m_options.module.isEmpty())
        return startModule(m_options.module);
    CVrkCliMod* first = nullptr;
    for (const QString& name : m_app.settings()->value(Setting::startModules).toStringList()) {
        CVrkCliMod* started = mayOpen(name) ? startModule(name) : nullptr;
        first = first ? first : started;
    }
    return first ? first : startModule(journal);
}

CVrkCliMod* Workstation::startModule(const QString& name)
{
    if (CVrkCliMod* open = module(name)) {
        if (open->isMinimized())
            open->showNormal();
        open->raise();
        open->activateWindow();
        return open;
    }
    if (!m_loader)
        m_loader = std::make_unique<PluginLoader>(m_catalog, m_options.plugin);
    CVrkCliMod* module = m_loader->create(&m_app, name);
    if (!module) {
        m_errorText = m_loader->errorText();
        return nullptr;
    }
    m_modules.push_back({name, module, std::make_unique<WindowMemory>(module, settingsName(), name)});
    addStatusLine(module);
    m_alerts->watch(module);
    connect(module, &CVrkCliMod::closed, this, [this, module] { moduleClosed(module); });

    if (!memory(module)->restorePlace() && !m_deskPlace.isEmpty())
        module->restoreGeometry(m_deskPlace); // the window arrangement of the desk is kept
    module->show();
    module->ModuleStart();
    memory(module)->restoreInside();
    if (m_departmentName.isEmpty()) // the module's own message is very short
        statusLine(module)->addFailure(
            tr("Для этого пользователя не заведён сотрудник ни в одном подразделении: "
               "это делает администратор журнала."));
    if (m_options.greets && name == QLatin1String("logbook"))
        m_greeting->greet(module, WindowMemory::knows(settingsName()));
    return module;
}

void Workstation::addStatusLine(CVrkCliMod* module)
{
    auto* line = new StatusLine(m_app.session(), m_userName, m_departmentName);
    module->statusBar()->setSizeGripEnabled(false);
    module->statusBar()->addWidget(line, 1);
    connect(&m_app, &CVrkCliApp::textAdjusted, line, &StatusLine::showNotice);
    connect(m_app.keptTexts(), &KeptTexts::failed, line, [line](const QString& reason) {
        line->showNotice(tr("Несохранённый текст не удаётся хранить на диске: %1.").arg(reason));
    });
    connect(m_spelling.get(), &SpellGuard::failed, line, &StatusLine::showNotice);
    connect(module, &CVrkCliMod::unreadCommentsChanged, line, &StatusLine::setUnreadComments);
    connect(line, &StatusLine::failed, module,
            [module](const QString& text) { module->CallAttention(text); });
    connect(line, &StatusLine::unreadCommentsClicked, module, &CVrkCliMod::unreadCommentsRequested);

    if (m_history)
        line->setHistoryGuard(m_history.get());

    auto* menu = new ModuleMenu(m_app.session(), m_catalog, line);
    line->setModuleMenu(menu);
    line->addAction(menu->changeUserAction());
    line->addAction(menu->settingsAction());
    line->addAction(menu->ownViewAction());
    connect(menu->ownViewAction(), &QAction::triggered, module, [this, module] {
        if (WindowMemory* kept = memory(module))
            kept->reset();
    });
    connect(menu->settingsAction(), &QAction::triggered, module, [this, module] { showSettings(module); });
    connectHelp(menu->helpMenu(), module);
    connect(line, &StatusLine::themeChosen, this,
            [this](const QString& name) { m_app.settings()->setValue(Setting::theme, name); });
    connect(menu, &ModuleMenu::moduleChosen, this, [this, line](const QString& name) {
        if (!startModule(name))
            line->addFailure(m_errorText);
    });
    // Queued: the window whose menu was used will be deleted.
    connect(menu->changeUserAction(), &QAction::triggered, this,
            [this] { QTimer::singleShot(0, this, &Workstation::changeUser); });
}

WindowMemory* Workstation::memory(const CVrkCliMod* module)
{
    for (const Open& open : m_modules) {
        if (open.module == module)
            return open.memory.get();
    }
    return nullptr;
}

void Workstation::changeUser()
{
    leaveAndEnter(m_options.store);
}

void Workstation::changeStore()
{
    const QString store = m_chooseStore(QApplication::activeWindow());
    if (!store.isEmpty())
        leaveAndEnter(store);
}

void Workstation::leaveAndEnter(const QString& store)
{
    if (m_changing)
        return;
    for (const Open& open : m_modules) {
        if (open.module && open.module->isVisible() && !mayClose(open.module))
            return;
    }
    m_changing = true;
    const CVrkCliMod* journal = module(QStringLiteral("logbook"));
    m_deskPlace = journal ? journal->saveGeometry() : QByteArray();
    const bool quits = QApplication::quitOnLastWindowClosed();
    QApplication::setQuitOnLastWindowClosed(false);
    closeModules();
    const bool isOtherStore = store != m_options.store;
    Options options = m_options;
    options.store = store;
    options.user.clear();
    options.department.clear();
    options.module.clear();
    bool isIn = enter(options);
    if (!isIn && isOtherStore && !m_errorText.isEmpty())
        isIn = askStore(options, m_errorText);
    CVrkCliMod* next = isIn ? start() : nullptr;
    m_deskPlace.clear();
    QApplication::setQuitOnLastWindowClosed(quits);
    m_changing = false;
    if (!next)
        emit left();
}

/// The modules have agreed already.
void Workstation::closeModules()
{
    for (const Open& open : m_modules) {
        if (!open.module)
            continue;
        open.memory->save();
        open.module->disconnect(this);
        open.module->hide();
        open.module->ModuleStop();
        delete open.module;
    }
    m_modules.clear();
    m_history.reset();
    m_app.keptTexts()->close(); // the next user has his own texts
}

StatusLine* Workstation::statusLine(const CVrkCliMod* module) const
{
    return module->findChild<StatusLine*>();
}

/// Asks about unsaved texts in the module's windows.
bool Workstation::mayLeaveTexts(CVrkCliMod* module)
{
    QStringList texts;
    for (const KeptTexts::Text& text : m_app.keptTexts()->held(module))
        texts << text.values.value(QStringLiteral("caption"));
    if (texts.isEmpty() || !m_options.keepsTexts)
        return true;
    const bool isOnDisk = m_app.keptTexts()->flush();
    QString error = m_app.keptTexts()->errorText();
    if (!isOnDisk && error.isEmpty())
        error = tr("диск не отвечает");

    QMessageBox box(QMessageBox::Question, module->moduleTitle(),
                    tr("Не записано: %1.").arg(texts.join(QStringLiteral(", "))), QMessageBox::NoButton,
                    module);
    box.setObjectName(QStringLiteral("unwrittenBox"));
    box.setTextFormat(Qt::PlainText);
    box.setInformativeText(error.isEmpty()
                               ? tr("Этот текст будет предложен при следующем входе.")
                               : tr("Хранить этот текст до следующего входа не удаётся: %1.").arg(error));
    const QPushButton* keep =
        error.isEmpty() ? box.addButton(tr("Закрыть, текст оставить"), QMessageBox::AcceptRole) : nullptr;
    const QPushButton* drop = box.addButton(tr("Закрыть без текста"), QMessageBox::DestructiveRole);
    QPushButton* stay = box.addButton(tr("Вернуться"), QMessageBox::RejectRole);
    box.setDefaultButton(stay);
    box.setEscapeButton(stay);
    box.exec();
    if (box.clickedButton() == drop)
        m_app.keptTexts()->dropHeld(module);
    return box.clickedButton() == drop || (keep && box.clickedButton() == keep);
}

bool Workstation::mayLeaveEdit(CVrkCliMod* module)
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
    if (const WindowMemory* kept = memory(module))
        kept->save();
    module->ModuleStop();
    m_modules.erase(std::remove_if(m_modules.begin(), m_modules.end(),
                                   [module](const Open& open) { return open.module == module; }),
                    m_modules.end());
    module->deleteLater();
}
