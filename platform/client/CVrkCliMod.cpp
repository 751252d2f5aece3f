#include "CVrkCliMod.h"

#include "CVrkCliApp.h"

#include <QCloseEvent>
#include <QDebug>
#include <QFile>

CVrkCliMod::CVrkCliMod(CVrkCliApp* app) : m_app(app)
{
    qRegisterMetaType<CVrkCliMod::Attention>();
    if (m_app)
        m_app->addModule(this);
}

CVrkCliMod::~CVrkCliMod()
{
    if (m_app)
        m_app->removeModule(this);
}

CVrkCliSes* CVrkCliMod::session() const
{
    return m_app ? m_app->session() : nullptr;
}

CVrkCliMod* CVrkCliMod::logSink()
{
    CVrkCliMod* sink = m_app ? m_app->logSink() : nullptr;
    return sink ? sink : this;
}

void CVrkCliMod::LogFile(int level, QString func, QString text)
{
    CVrkCliMod* sink = logSink();
    if (sink != this)
        sink->LogFile(level, func, text);
    else
        qWarning().noquote() << func << text;
}

bool CVrkCliMod::ModuleStart()
{
    return true;
}

void CVrkCliMod::ModuleStop() {}

int CVrkCliMod::MessageOn()
{
    return MessageGet();
}

int CVrkCliMod::MessageData(HFNCliParam*)
{
    return 0;
}

int CVrkCliMod::MessageGet()
{
    return m_app ? m_app->deliverTo(this) : 0;
}

void CVrkCliMod::SetError(QString text)
{
    LogFile(2, m_name, text);
}

void CVrkCliMod::SetParamMod(QString name, QString value)
{
    m_parameters.insert(name, value);
}

void CVrkCliMod::GetParamMod(QString name, QString& value)
{
    value = m_parameters.value(name);
}

int CVrkCliMod::SetParamCommand(QString)
{
    return 0;
}

int CVrkCliMod::SetParamProfile(QString)
{
    return 0;
}

QString CVrkCliMod::GetParamProfile()
{
    return QString();
}

void CVrkCliMod::SetParamState(QString) {}

QString CVrkCliMod::GetParamState()
{
    return QString();
}

void CVrkCliMod::ParentResizeOn(int, int) {}

QVariantList CVrkCliMod::GetAlarmsList()
{
    return QVariantList();
}

void CVrkCliMod::AppIdleEvent() {}

void CVrkCliMod::ModSesReconnect() {}

void CVrkCliMod::ModDataEditPost() {}

void CVrkCliMod::ModDataEditCancel() {}

void CVrkCliMod::slot_modNotify(QString, QVariant) {}

void CVrkCliMod::slot_toolFinished() {}

void CVrkCliMod::slot_popMessageBoxClicked(QAbstractButton*) {}

void CVrkCliMod::slot_endRestructure() {}

void CVrkCliMod::SetModTitle(QString title, QString subtitle)
{
    m_title = title;
    m_subtitle = subtitle;
    const QString whole = subtitle.isEmpty() ? title : QStringLiteral("%1 – %2").arg(title, subtitle);
    setWindowTitle(whole + QStringLiteral("[*]")); // placeholder of the modified mark
    emit titleChanged(title, subtitle);
}

void CVrkCliMod::SetIsEdit(bool edit)
{
    if (m_edit == edit)
        return;
    m_edit = edit;
    setWindowModified(edit);
    emit editStateChanged(edit);
}

void CVrkCliMod::CallAttention(const QString& text, Attention kind)
{
    emit attentionCalled(text, kind);
}

void CVrkCliMod::SetUnreadComments(int count)
{
    if (m_unreadComments == count)
        return;
    m_unreadComments = count;
    emit unreadCommentsChanged(count);
}

QIcon CVrkCliMod::icon(const QString& name)
{
    if (name.isEmpty())
        return QIcon();
    QString path = name;
    if (!name.startsWith(QLatin1String(":/"))) {
        if (name.contains(QLatin1String("..")))
            return QIcon(); // only a plain name: no path that leaves the folder of the host's icons
        path = QStringLiteral(":/vrk/") + name;
        for (const char* suffix : {".svg", ".png"}) {
            if (!QFile::exists(path) && QFile::exists(path + QLatin1String(suffix)))
                path += QLatin1String(suffix);
        }
    }
    return QFile::exists(path) ? QIcon(path) : QIcon();
}

void CVrkCliMod::setModuleStyle()
{
    // The application sets colours and fonts for both themes; a style sheet here would slow down painting
    // of all tables.
    setIconSize(QSize(24, 24));
    setToolButtonStyle(Qt::ToolButtonIconOnly);
    setDocumentMode(true);
    setAnimated(false);
    setContentsMargins(0, 0, 0, 0);
}

void CVrkCliMod::closeEvent(QCloseEvent* event)
{
    if (m_app && !m_app->mayClose(this)) {
        event->ignore();
        return;
    }
    event->accept();
    emit closed();
}
