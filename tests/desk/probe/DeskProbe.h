#pragma once

#include <QLocalServer>
#include <QObject>

/// Reports the state of the windows of a running program: a Qt plug-in that tests load into the unmodified
/// program by QT_QPA_GENERIC_PLUGINS=deskprobe:SOCKET. It only reads. Every line on the socket is answered
/// by one line of JSON, see WidgetReport; while the program is busy the answer waits.
class DeskProbe : public QObject
{
    Q_OBJECT

public:
    explicit DeskProbe(const QString& socket);

    /// Counts the input events, so that a test knows when its keys have arrived.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void answer(QLocalSocket* client);

    QLocalServer m_server;
    int m_keys = 0;    ///< key releases
    int m_buttons = 0; ///< releases of mouse buttons
};
