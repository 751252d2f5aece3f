#pragma once

#include "CVrkCliApp.h"
#include "Options.h"
#include "PluginLoader.h"

#include <memory>
#include <QPointer>
#include <vector>

class CVrkCliMod;
class LogSink;
class LogWriter;
class SignIn;
class StatusLine;

/// The host: signs in, loads the plug-in, starts modules as windows and looks after them until they are
/// closed.
class Workstation : public QObject
{
    Q_OBJECT

public:
    /// \a log may be null: then the modules' lines go to Qt's message log.
    explicit Workstation(LogWriter* log = nullptr);
    ~Workstation() override;

    /// Opens the store and signs in, asking for what the options leave open. False, and errorText() says why;
    /// an empty text means that the user has called it off.
    bool enter(const Options& options);
    /// Makes a module and shows its window. Null, and errorText() says why. A module whose start fails stays
    /// open: it shows the reason itself.
    CVrkCliMod* startModule(const Options& options);

    QString errorText() const { return m_errorText; }
    CVrkCliApp* app() { return &m_app; }
    StatusLine* statusLine(const CVrkCliMod* module) const;

private:
    bool chooseDepartment(SignIn* signIn, const Options& options, QByteArray* department);
    bool mayClose(CVrkCliMod* module);
    void moduleClosed(CVrkCliMod* module);

    CVrkCliApp m_app;
    std::unique_ptr<LogSink> m_sink;
    std::unique_ptr<PluginLoader> m_loader;
    std::vector<QPointer<CVrkCliMod>> m_modules;
    QString m_userName;
    QString m_departmentName;
    QString m_errorText;
};
