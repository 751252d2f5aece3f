#include "DeskProbe.h"

#include "WidgetReport.h"

#include <QApplication>
#include <QEvent>
#include <QGenericPlugin>
#include <QJsonDocument>
#include <QLocalSocket>

DeskProbe::DeskProbe(const QString& socket)
{
    m_server.setSocketOptions(QLocalServer::UserAccessOption);
    if (!m_server.listen(socket))
        qFatal("no probe at %s: %s", qPrintable(socket), qPrintable(m_server.errorString()));
    connect(&m_server, &QLocalServer::newConnection, this, [this] {
        QLocalSocket* client = m_server.nextPendingConnection();
        connect(client, &QLocalSocket::readyRead, this, [this, client] { answer(client); });
        connect(client, &QLocalSocket::disconnected, client, &QObject::deleteLater);
    });
    QCoreApplication::instance()->installEventFilter(this);
}

bool DeskProbe::eventFilter(QObject* watched, QEvent* event)
{
    if (watched->isWindowType() && event->spontaneous()) {
        m_keys += event->type() == QEvent::KeyRelease;
        m_buttons += event->type() == QEvent::MouseButtonRelease;
    }
    return false;
}

void DeskProbe::answer(QLocalSocket* client)
{
    while (client->canReadLine()) {
        client->readLine();
        QJsonObject report = WidgetReport::make();
        report.insert(QStringLiteral("keys"), m_keys);
        report.insert(QStringLiteral("buttons"), m_buttons);
        client->write(QJsonDocument(report).toJson(QJsonDocument::Compact) + '\n');
    }
}

class DeskProbePlugin : public QGenericPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "deskprobe.json")

public:
    /// Nothing for an application without widgets: the program uses one only to examine the screens, in a
    /// child process.
    QObject* create(const QString&, const QString& socket) override
    {
        return qobject_cast<QApplication*>(QCoreApplication::instance()) ? new DeskProbe(socket) : nullptr;
    }
};

#include "DeskProbe.moc"
