#pragma once

#include "AccessibleNames.h"
#include "CVrkCliApp.h"
#include "Options.h"
#include "PluginLoader.h"

#include <memory>
#include <QPointer>
#include <vector>

class Alerts;
class CVrkCliMod;
class LogSink;
class LogWriter;
class SignIn;
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
    /// Closes all modules after asking about their unsaved changes, signs the next user in and starts the
    /// journal for him. If a module refuses, nothing is closed.
    void changeUser();

    QString errorText() const { return m_errorText; }
    CVrkCliApp* app() { return &m_app; }
    const PluginCatalog& catalog() const { return m_catalog; }
    StatusLine* statusLine(const CVrkCliMod* module) const;
    /// The open module with this name; null if there is none.
    CVrkCliMod* module(const QString& name) const;

signals:
    /// Nobody is signed in any more; errorText() is set if this was not the user's choice.
    void left();

private:
    bool enterStore(const Options& options);
    bool openStore(SignIn* signIn, Options* options);
    bool chooseDepartment(SignIn* signIn, const Options& options, QByteArray* department);
    bool mayClose(CVrkCliMod* module) { return mayLeaveEdit(module) && mayLeaveTexts(module); }
    bool mayLeaveEdit(CVrkCliMod* module);
    bool mayLeaveTexts(CVrkCliMod* module);
    void moduleClosed(CVrkCliMod* module);
    void closeModules();
    void addStatusLine(CVrkCliMod* module);
    WindowMemory* memory(const CVrkCliMod* module);

    AccessibleNames m_names;
    CVrkCliApp m_app;
    std::unique_ptr<LogSink> m_sink;
    PluginCatalog m_catalog;
    std::unique_ptr<PluginLoader> m_loader;
    std::unique_ptr<Alerts> m_alerts;
    struct Open {
        QString name;
        QPointer<CVrkCliMod> module;
        std::unique_ptr<WindowMemory> memory;
    };
    std::vector<Open> m_modules;
    Options m_options;
    QString m_leavingLogin; ///< the user who leaves; not preset for the next sign-in
    bool m_changing = false;
    QByteArray m_deskPlace; ///< place of the former user's journal window, while the next user signs in
    QString m_userName;
    QString m_departmentName;
    QString m_errorText;
};
