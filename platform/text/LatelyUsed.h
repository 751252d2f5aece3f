#pragma once

#include <QString>
#include <QStringList>

/// The texts that a user has recently given to parameters, by the parameter's label, kept in his settings.
class LatelyUsed
{
public:
    static constexpr int keptAtMost = 20;

    /// \a user is the key of the login: several people may share one account of the computer.
    void setUser(const QString& user) { m_user = user; }

    /// Latest first.
    QStringList texts(const QString& label) const;
    /// Puts the text first. Blank texts and very long ones are not kept.
    void add(const QString& label, const QString& text);

private:
    QString settingsKey(const QString& label) const;

    QString m_user;
};
