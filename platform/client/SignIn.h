#pragma once

#include "VrkExport.h"

#include <memory>
#include <QByteArray>
#include <QString>
#include <QVector>

class CVrkCliApp;

/// The way from a store's URL to a signed-in application, step by step: open, signIn, enter. A step that
/// fails returns false and leaves the reason in errorText(); it may be tried again with other values.
class VRK_EXPORT SignIn
{
public:
    /// A login to choose from.
    struct Login {
        QString login;
        QString name; ///< the person's name as shown
    };
    /// A department in which the signed-in login works.
    struct Department {
        QByteArray key;
        QString name;
        QByteArray organizationKey;
        QString organizationName;
    };

    SignIn();
    ~SignIn();
    SignIn(const SignIn&) = delete;
    SignIn& operator=(const SignIn&) = delete;

    /// Opens "sqlite:///absolute/path" or "postgresql://...". From here on the process lives in the time zone
    /// of the store; a store of another zone is refused as long as a session of the first one lives. On a server \a login stands for that of the address; without a \a password the one that the
    /// machine keeps for the server is tried, or none.
    bool open(const QString& url, const QString& login = QString(), const QString& password = QString());
    /// Why open() has failed: the server wants a password and has not got the right one.
    bool wantsPassword() const;
    /// Whether the store at the address asks persons for their passwords by itself, as servers may.
    static bool isServer(const QString& url);
    /// The store at the address, without who enters it and how: for what is remembered of each store.
    static QString storeOf(const QString& url);
    /// The login in the address of a server.
    static QString loginOf(const QString& url);
    /// An address as it may be kept: the password, if there is one in it, left out.
    static QString withoutPassword(const QString& url);
    /// The logins to choose from; empty where the server knows its users itself. There an empty login means
    /// the one of the URL.
    QVector<Login> logins() const;
    bool signIn(const QString& login);
    /// Name of the person who signed in.
    QString userName() const;
    /// The departments to choose from, by name; empty for a login without a worker.
    QVector<Department> departments() const;
    /// Gives \a app the session and its parameters "KEYLINK", "DEPARTMENTKEY", "ORGANIZATIONKEY", and starts
    /// the events. An empty \a departmentKey stands for the only department, or for none where there is none.
    /// This object is spent then.
    bool enter(CVrkCliApp* app, const QByteArray& departmentKey);

    /// Why the last step failed, in the user's words; empty after a success.
    QString errorText() const;

private:
    struct Private;
    std::unique_ptr<Private> d;
};
