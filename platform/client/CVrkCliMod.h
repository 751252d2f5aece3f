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

    /// Writes a log line: function signature and sentence. The base passes it to the application's log
    /// sink. If it is the sink itself, or there is none, it writes a warning to Qt's message log.
    virtual void LogFile(int level, QString func, QString text);
    virtual bool ModuleStart();
    virtual void ModuleStop();
    /// Called by the host when change events are waiting. Modules answer with MessageGet().
    virtual int MessageOn();
    /// Receives one message. The caller owns the block.
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
    /// A notice from the host or another module (CVrkCliApp::notifyModule); unknown ones are ignored.
    virtual void slot_modNotify(QString name, QVariant value);
    virtual void slot_toolFinished();
    virtual void slot_popMessageBoxClicked(QAbstractButton* button);
    virtual void slot_endRestructure();

public:
    CVrkCliApp* app() const { return m_app; }
    /// The application's session.
    CVrkCliSes* session() const;
    /// The module that receives the log lines of all modules; this one if the host has set none.
    CVrkCliMod* logSink();

    void SetModTitle(QString title, QString subtitle);
    /// Edit state: the title gets a star, and the host asks before it closes the window.
    void SetIsEdit(bool edit);
    bool isEdit() const { return m_edit; }
    QString moduleTitle() const { return m_title; }
    /// What needs attention: the user chooses in the settings of what the host alerts him.
    enum class Attention {
        Message, ///< anything else, such as a failure
        Shift,   ///< the workshift is too long
        Comment, ///< on the user's record
        Record,  ///< of another person
    };
    Q_ENUM(Attention)
    /// Something in the module needs the user's attention: the host alerts him in the task bar and the
    /// tray, unless one of the module's windows is active. Each call is a separate alert.
    void CallAttention(const QString& text, Attention kind = Attention::Message);
    /// Number of unread comments: the host shows it in its status line, nothing for 0. Call it at the start
    /// and whenever the number changes.
    void SetUnreadComments(int count);
    int unreadComments() const { return m_unreadComments; }
    /// The host's named icons: a resource path is used unchanged, a bare name is looked up under ":/vrk/".
    /// Null icon if unknown.
    static QIcon icon(const QString& name);
    /// Applies the look that all modules share.
    void setModuleStyle();
    /// Delivers this module's waiting events through MessageData, in order, and returns their number.
    /// During a delivery or a request it delivers nothing and returns 0.
    int MessageGet();

signals:
    void titleChanged(const QString& title, const QString& subtitle);
    void editStateChanged(bool edit);
    void attentionCalled(const QString& text, CVrkCliMod::Attention kind);
    void unreadCommentsChanged(int count);
    /// Emitted by the host when the user wants to see the unread comments. A module that counts them shows
    /// them.
    void unreadCommentsRequested();
    /// The window was closed: the host may delete the module.
    void closed();

protected:
    /// Calls the application's close guard; the window stays open if the guard refuses.
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

/// The function that a plug-in exports under this plain name: makes the module called \a name, or returns
/// null.
using CppCliModuleFunction = CVrkCliMod* (*)(CVrkCliApp* app, const char* name);
