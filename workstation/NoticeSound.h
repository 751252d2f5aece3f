#pragma once

#include <QStringList>

/// A short sound for notices, played by one of the players that desktops have; without one the desktop's bell
/// rings.
class NoticeSound
{
public:
    /// \a folders: where players are looked for; empty: where the desktop finds its programs.
    explicit NoticeSound(const QStringList& folders = {});

    /// Starts the sound and returns. False if there is only the bell.
    bool play() const;
    /// The sound as a file in the WAV format.
    static QByteArray wave();

private:
    QString m_player;
    QStringList m_arguments;
};
