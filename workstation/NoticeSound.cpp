#include "NoticeSound.h"

#include <cmath>
#include <QApplication>
#include <QDataStream>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QSaveFile>
#include <QStandardPaths>

namespace
{
/// The file that players read, written on demand; empty if it cannot be written.
QString waveFile()
{
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::CacheLocation);
    const QString name = folder + QStringLiteral("/notice.wav");
    const QByteArray wave = NoticeSound::wave();
    QFile former(name);
    if (former.open(QIODevice::ReadOnly) && former.readAll() == wave)
        return name;
    QDir().mkpath(folder);
    QSaveFile file(name); // another program may be playing the former one
    return file.open(QIODevice::WriteOnly) && file.write(wave) == wave.size() && file.commit() ? name
                                                                                               : QString();
}
} // namespace

NoticeSound::NoticeSound(const QStringList& folders)
{
    struct Player {
        const char* program;
        QStringList arguments;
    };
    for (const Player& one :
         {Player{"pw-play", {}}, Player{"paplay", {}}, Player{"aplay", {QStringLiteral("-q")}}}) {
        m_player = QStandardPaths::findExecutable(QLatin1String(one.program), folders);
        m_arguments = one.arguments;
        if (!m_player.isEmpty())
            return;
    }
}

bool NoticeSound::play() const
{
    const QString file = m_player.isEmpty() ? QString() : waveFile();
    if (!file.isEmpty() && QProcess::startDetached(m_player, m_arguments + QStringList{file}))
        return true;
    QApplication::beep();
    return false;
}

QByteArray NoticeSound::wave()
{
    constexpr int rate = 22050;
    constexpr int length = rate * 45 / 100;
    constexpr double tones[] = {880, 1175};
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setByteOrder(QDataStream::LittleEndian);
    stream.writeRawData("RIFF", 4);
    stream << quint32(36 + 2 * length);
    stream.writeRawData("WAVEfmt ", 8);
    stream << quint32(16) << quint16(1) << quint16(1) << quint32(rate) << quint32(2 * rate) << quint16(2)
           << quint16(16);
    stream.writeRawData("data", 4);
    stream << quint32(2 * length);
    for (int i = 0; i < length; ++i) {
        const int half = length / 2;
        const double time = double(i % half) / rate;
        const double fading = std::exp(-12 * time) * qMin(1.0, time * 200); // no click at the beginning
        stream << qint16(12000 * fading * std::sin(2 * M_PI * tones[i / half % 2] * time));
    }
    return bytes;
}
