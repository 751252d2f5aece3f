#pragma once

#include "HFNCliParam.h"
#include "VrkExport.h"

#include <deque>
#include <memory>
#include <QAbstractButton>
#include <QHash>
#include <QIcon>
#include <QMainWindow>
#include <QVariant>
#include <QVariantList>

class CVrkCliApp;
class CVrkCliSes;

/// Base of all modules: a window that the host drives through the virtual operations below. Their order is
/// part of the contract with plug-ins and must not change.
class VRK_EXPORT CVrkCliMod : public QMainWindow
{
    Q_OBJECT

public:
    explicit CVrkCliMod(CVrkCliApp* app);
    ~CVrkCliMod() override;

    /// Takes a log line: function signature and sentence. The base hands it to the application's log sink,
    /// and as the sink itself, or without one, writes a warning to the message log of Qt.
    virtual void LogFile(int level, QString func, QString text);
    virtual bool ModuleStart();
    virtual void ModuleStop();
    /// The host's knock: change events wait. Modules answer with MessageGet().
    virtual int MessageOn();
    /// One message. The block belongs to the caller.
    virtual int MessageData(HFNCliParam* block);
    virtual void SetError(QString text);
    virtual void SetParamMod(QString name, QString value);
    virtual void GetParamMod(QString name, QString& value);
    virtual int SetParamCommand(QString command);
    virtual int SetParamProfile(QString profile);
    virtual QString GetParamProfile();
    virtual void SetParamState(QString state);
    virtual QString GetParamState();
    virtual void ParentResizeOn(int width, int height);
    virtual QVariantList GetAlarmsList();
    virtual void AppIdleEvent();
    virtual void ModSesReconnect();
    virtual void ModDataEditPost();
    virtual void ModDataEditCancel();

public slots:
    /// A notice of the host or of another module (CVrkCliApp::notifyModule); unknown ones are passed over.
    virtual void slot_modNotify(QString name, QVariant value);
    virtual void slot_toolFinished();
    virtual void slot_popMessageBoxClicked(QAbstractButton* button);
    virtual void slot_endRestructure();

public:
    CVrkCliApp* app() const { return m_app; }
    /// The application's session.
    CVrkCliSes* session() const;
    /// The module that receives the log lines of all; this one when the host named none.
    CVrkCliMod* logSink();

    void SetModTitle(QString title, QString subtitle);
    /// Edit state: the title gets a star, and the host asks before it closes the window.
    void SetIsEdit(bool edit);
    bool isEdit() const { return m_edit; }
    QString moduleTitle() const { return m_title; }
    /// What happens in the module concerns the user now: the host alerts him, in the task bar and the tray, unless he has
    /// one of the module's windows before him. Each call is an alert of its own.
    void CallAttention(const QString& text);
    /// How many unread comments wait for the user: the host shows the number in its status line, and nothing for 0. Tell
    /// it at the start and whenever it changes.
    void SetUnreadComments(int count);
    int unreadComments() const { return m_unreadComments; }
    /// The host's named icons: a resource path as it stands, a bare name under ":/vrk/". Null icon when
    /// unknown.
    static QIcon icon(const QString& name);
    /// The look that all modules share.
    void setModuleStyle();
    /// Delivers this module's waiting events through MessageData, in order, and returns their count. Called
    /// from inside a delivery or a request it delivers nothing and returns 0.
    int MessageGet();

signals:
    void titleChanged(const QString& title, const QString& subtitle);
    void editStateChanged(bool edit);
    void attentionCalled(const QString& text);
    void unreadCommentsChanged(int count);
    /// Emitted by the host: the user wants to see the comments that wait. A module that counts them shows them.
    void unreadCommentsRequested();
    /// The window was closed: the host may delete the module.
    void closed();

protected:
    /// Asks the application's close guard, and stays open when it says no.
    void closeEvent(QCloseEvent* event) override;

    CVrkCliApp* m_app;
    QString m_name;

private:
    friend class CVrkCliApp;

    std::deque<std::shared_ptr<HFNCliParam>> m_waiting; ///< shared with the other modules
    QHash<QString, QString> m_parameters;
    QString m_title;
    QString m_subtitle;
    bool m_edit = false;
    int m_unreadComments = 0;
};

/// What a plug-in exports under this plain name: makes the module called \a name, or gives null.
using CppCliModuleFunction = CVrkCliMod* (*)(CVrkCliApp* app, const char* name);
