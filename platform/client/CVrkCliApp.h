#pragma once

#include "CStringParams.h"
#include "VrkExport.h"

#include <functional>
#include <memory>
#include <QKeySequence>
#include <QObject>
#include <QVariant>
#include <QVector>

class CVrkCliMod;
class CVrkCliSes;
class KeptTexts;
class UserSettings;

/// The client application: holds the session and the login's parameters, knows the modules, and delivers
/// their change events from the event loop. It also watches all editors: a character that the session's
/// code page does not have is replaced by the closest available one or dropped, and the user is informed.
class VRK_EXPORT CVrkCliApp : public QObject
{
    Q_OBJECT

public:
    explicit CVrkCliApp(QObject* parent = nullptr);
    ~CVrkCliApp() override;

    /// Takes ownership of the session and starts to follow its events.
    void setSession(std::unique_ptr<CVrkCliSes> session);
    CVrkCliSes* session() const;

    /// Sets the module whose LogFile receives the log lines of all modules; called by the host. Null: Qt's
    /// message log.
    void setLogSink(CVrkCliMod* module);
    CVrkCliMod* logSink() const;

    QVector<CVrkCliMod*> modules() const;
    /// True while change events are being delivered to a module.
    bool isDelivering() const;
    /// Reads the events that the server has sent so far and delivers them to all modules before it returns,
    /// including those of own writes; for the host after a save. Returns the number of events read; 0 if
    /// called during a delivery or a request.
    int fetchEvents();

    /// Sets the function that decides whether a module's window may close, for example by asking about
    /// unsaved changes. Without a guard windows close.
    void setCloseGuard(std::function<bool(CVrkCliMod*)> guard);

    /// Asks the host to start the module called \a module, or to raise it if it is open, and to pass it a
    /// notice through CVrkCliMod::slot_modNotify. A module can open another this way: "logbook" takes
    /// "showRecord" with the KeyLink of a record as text, and shows the record in its workshift. False:
    /// there is no host or no such module.
    bool notifyModule(const QString& module, const QString& name, const QVariant& value);
    /// An entry in the context menus of records: opens a module for the record, by the notice "showRecord".
    struct RecordEntry {
        QString module;
        QString title;
        QKeySequence key; ///< may be empty
    };
    /// Sets the entries; called by the host before the first module starts.
    void setRecordEntries(const QVector<RecordEntry>& entries);
    const QVector<RecordEntry>& recordEntries() const;
    /// Sets how the host starts or raises a module; null when it cannot.
    void setModuleOpener(std::function<CVrkCliMod*(const QString& module)> opener);

    /// Texts that the user has typed and that are not saved yet. In memory only, unless the host has opened
    /// a folder for them.
    KeptTexts* keptTexts() const;
    /// What the signed-in user has chosen for himself, such as the folder of reports.
    UserSettings* settings() const;

    /// Parameters of the login: "KEYLINK", "DEPARTMENTKEY", "ORGANIZATIONKEY".
    CStringParams m_user_params;

signals:
    /// Typed or pasted text had characters that the code page does not have; \a notice says what happened
    /// to them.
    void textAdjusted(const QString& notice);
    /// The last waiting event was delivered.
    void eventsDelivered();

private:
    friend class CVrkCliMod;
    void addModule(CVrkCliMod* module);
    void removeModule(CVrkCliMod* module);
    bool mayClose(CVrkCliMod* module) const;
    /// Delivers the module's waiting events; 0 if called during a delivery or a request.
    int deliverTo(CVrkCliMod* module);
    /// Distributes the session's waiting events and notifies the modules. Returns the number of events.
    int deliver();

    struct Private;
    std::unique_ptr<Private> d;
};
