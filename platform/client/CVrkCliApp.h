#pragma once

#include "CStringParams.h"
#include "VrkExport.h"

#include <functional>
#include <memory>
#include <QObject>
#include <QVariant>
#include <QVector>

class CVrkCliMod;
class CVrkCliSes;
class KeptTexts;

/// The client application: holds the session and the login's parameters, knows the modules, and hands them
/// their change events from the event loop. One place watches over all editors: a character that the
/// session's code page cannot carry is replaced by its nearest kin or left out, and said so.
class VRK_EXPORT CVrkCliApp : public QObject
{
    Q_OBJECT

public:
    explicit CVrkCliApp(QObject* parent = nullptr);
    ~CVrkCliApp() override;

    /// Takes the session over and starts to follow its events.
    void setSession(std::unique_ptr<CVrkCliSes> session);
    CVrkCliSes* session() const;

    /// The module whose LogFile receives the log lines of all; the host sets it. Null: the message log of Qt.
    void setLogSink(CVrkCliMod* module);
    CVrkCliMod* logSink() const;

    QVector<CVrkCliMod*> modules() const;
    /// True while change events are being delivered to a module.
    bool isDelivering() const;
    /// Reads what the server has told by now and delivers it to all modules before it returns, the own writes
    /// included; for the host after a save. Returns the number of events read; 0 from inside a delivery or a
    /// request.
    int fetchEvents();

    /// Decides whether a module's window may close, such as by asking about its edit state. Without a guard
    /// windows close.
    void setCloseGuard(std::function<bool(CVrkCliMod*)> guard);

    /// Asks the host to start the module called \a module, or to raise the one that is open, and to hand it a notice
    /// through CVrkCliMod::slot_modNotify. So a module leads to another: "logbook" takes "showRecord" with the KeyLink of
    /// a record as a text, and shows the record in its workshift. False: there is no host or no such module.
    bool notifyModule(const QString& module, const QString& name, const QVariant& value);
    /// How the host starts or raises a module; null when it cannot.
    void setModuleOpener(std::function<CVrkCliMod*(const QString& module)> opener);

    /// What the user has typed and not written yet. In memory only, unless the host has opened a folder for it.
    KeptTexts* keptTexts() const;

    /// Parameters of the login: "KEYLINK", "DEPARTMENTKEY", "ORGANIZATIONKEY".
    CStringParams m_user_params;

signals:
    /// Text that was typed or pasted had characters the code page cannot carry; \a notice says what became of
    /// them.
    void textAdjusted(const QString& notice);
    /// The last of the waiting events was delivered.
    void eventsDelivered();

private:
    friend class CVrkCliMod;
    void addModule(CVrkCliMod* module);
    void removeModule(CVrkCliMod* module);
    bool mayClose(CVrkCliMod* module) const;
    /// Hands the module its waiting events; 0 from inside a delivery or a request.
    int deliverTo(CVrkCliMod* module);
    /// Shares out the session's waiting events and knocks at the modules. Returns the number of events.
    int deliver();

    struct Private;
    std::unique_ptr<Private> d;
};
