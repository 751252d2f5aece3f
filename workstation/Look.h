#pragma once

#include <QObject>

class UserSettings;

/// Applies the look that the signed-in user has chosen, colours and size of letters, to all windows: at once
/// when a setting changes, and when another user signs in.
class Look : public QObject
{
    Q_OBJECT

public:
    explicit Look(UserSettings* settings);

    /// Takes the settings of this login. With \a keepsTheme the colours stay as they are until somebody
    /// changes them.
    void setUser(const QString& login, bool keepsTheme);

private:
    void apply(const QByteArray& name);

    UserSettings* m_settings;
    bool m_keepsTheme = false;
};
