#pragma once

#include "CStringParams.h"
#include "VrkExport.h"

#include <QObject>
#include <QVector>
#include <memory>

class CVrkCliMod;
class CVrkCliSes;

/// The client application: holds the session and the login's parameters, knows the modules, and hands them their
/// change events from the event loop. One place watches over all editors: a character that the session's code page
/// cannot carry is replaced by its nearest kin or left out, and said so.
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

    /// Parameters of the login: "KEYLINK", "DEPARTMENTKEY", "ORGANIZATIONKEY".
    CStringParams m_user_params;

signals:
    /// Text that was typed or pasted had characters the code page cannot carry; \a notice says what became of them.
    void textAdjusted(const QString& notice);
    /// The last of the waiting events was delivered.
    void eventsDelivered();

private:
    friend class CVrkCliMod;
    struct Private;
    std::unique_ptr<Private> d;
};
