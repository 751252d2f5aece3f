#pragma once

#include "AccessibleNames.h"
#include "CVrkCliApp.h"
#include "KeyTips.h"
#include "Options.h"
#include "PluginLoader.h"

#include <memory>
#include <QPointer>
#include <vector>

class Abbreviations;
class Alerts;
class Greeting;
class Help;
class CVrkCliMod;
class HelpMenu;
class HistoryGuard;
class LogSink;
class LogWriter;
class Look;
class SettingsWindow;
class SignIn;
class SpellGuard;
class StatusLine;
class WindowMemory;

/// The host: signs in, loads the plug-ins, starts modules as windows on one session, and manages them until
/// they are closed or another user signs in.
class Workstation : public QObject
{
    Q_OBJECT

public:
    /// \a log may be null: then the modules' lines go to Qt's message log.
    explicit Workstation(LogWriter* log = nullptr);
    ~Workstation() override;

    /// Opens the store and signs in; asks for options that are not set, including the store. False with
    /// errorText(); an empty text means that the user has cancelled.
    bool enter(const Options& options);
    /// Creates the module called \a name and shows its window, or raises the one that is open. Null with
    /// errorText() on failure. A module whose start fails stays open: it shows the reason itself.
    CVrkCliMod* startModule(const QString& name);
    /// Starts the module of the options, or else those that the user has chosen, and returns the first; the
    /// journal if none of them can be started. Null with errorText().
    CVrkCliMod* start();
    /// Closes all modules after asking about their unsaved changes, signs the next user in and starts his
    /// modules. If a module refuses, nothing is closed.
    void changeUser();
    /// Asks for another store; after the user has chosen one, it does the same as changeUser().
    void changeStore();
    /// Where the dialog of changeStore() comes from; for tests.
    void setStoreChooser(std::function<QString(QWidget*)> choose) { m_chooseStore = std::move(choose); }
    /// The address of the open store, without its password.
    QString storeAddress() const;
    /// Shows the window "Настройки" over the window of \a module, or raises the one that is open.
    void showSettings(CVrkCliMod* module);
    Help* help() const { return m_help.get(); }

    QString errorText() const { return m_errorText; }
    CVrkCliApp* app() { return &m_app; }
    SpellGuard* spelling() const { return m_spelling.get(); }
    const PluginCatalog& catalog() const { return m_catalog; }
    StatusLine* statusLine(const CVrkCliMod* module) const;
    /// The open module with this name; null if there is none.
    CVrkCliMod* module(const QString& name) const;

signals:
    /// Nobody is signed in any more; errorText() is set if this was not the user's choice.
    void left();

private:
    bool enterStore(const Options& options);
    /// Asks for the store until one could be entered; \a notice says why the last one could not.
    bool askStore(const Options& options, const QString& notice = QString());
    void leaveAndEnter(const QString& store);
    bool openStore(SignIn* signIn, Options* options);
    bool chooseDepartment(SignIn* signIn, const Options& options, QByteArray* department);
    bool mayClose(CVrkCliMod* module) { return mayLeaveEdit(module) && mayLeaveTexts(module); }
    bool mayLeaveEdit(CVrkCliMod* module);
    bool mayLeaveTexts(CVrkCliMod* module);
    void moduleClosed(CVrkCliMod* module);
    void closeModules();
    void addStatusLine(CVrkCliMod* module);
    /// Whether the menu "Модули" offers the module to this user.
    bool mayOpen(const QString& name);
    void addSettingsPages();
    /// Connects the menu "Справка" of a window.
    void connectHelp(HelpMenu* menu, CVrkCliMod* module);
    void showAbout(CVrkCliMod* module);
    WindowMemory* memory(const CVrkCliMod* module);
    /// Under which name the settings of the user are kept.
    QString settingsName() const;

    AccessibleNames m_names;
    KeyTips m_tips;
    CVrkCliApp m_app;
    std::unique_ptr<Look> m_look;
    std::unique_ptr<SpellGuard> m_spelling;
    std::unique_ptr<Abbreviations> m_abbreviations;
    std::unique_ptr<Help> m_help;
    std::unique_ptr<Greeting> m_greeting;
    std::unique_ptr<LogSink> m_sink;
    PluginCatalog m_catalog;
    std::unique_ptr<PluginLoader> m_loader;
    std::unique_ptr<Alerts> m_alerts;
    std::unique_ptr<HistoryGuard> m_history; ///< of the session
    struct Open {
        QString name;
        QPointer<CVrkCliMod> module;
        std::unique_ptr<WindowMemory> memory;
    };
    std::vector<Open> m_modules;
    QPointer<SettingsWindow> m_settingsWindow; ///< belongs to the window of a module
    Options m_options;
    QString m_leavingLogin; ///< the user who leaves; not preset for the next sign-in
    bool m_changing = false;
    QByteArray m_deskPlace; ///< place of the former user's journal window, while the next user signs in
    QString m_userName;
    QString m_departmentName;
    QString m_errorText;
    std::function<QString(QWidget*)> m_chooseStore;
};
