#pragma once

#include "VrkExport.h"

#include <memory>
#include <QByteArray>
#include <QString>
#include <QVector>

class CVrkCliApp;

/// From a store's URL to a signed-in application, step by step: open, signIn, enter. A step that fails
/// returns false and sets errorText(); it may be tried again with other values.
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

    /// Opens "sqlite:///absolute/path" or "postgresql://...". From then on the process uses the time zone
    /// of the store; a store with another zone is refused as long as a session of the first one exists. On
    /// a server \a login replaces that of the address; without a \a password the one that the machine keeps
    /// for the server is used, or none.
    bool open(const QString& url, const QString& login = QString(), const QString& password = QString());
    /// Why open() failed: the server requires a password and did not get the right one.
    bool wantsPassword() const;
    /// Whether the store at the address may ask persons for passwords itself, as servers may.
    static bool isServer(const QString& url);
    /// The address of the store without login and password: the key for settings of each store.
    static QString storeOf(const QString& url);
    /// The login in the address of a server.
    static QString loginOf(const QString& url);
    /// The address without its password, safe to keep.
    static QString withoutPassword(const QString& url);
    /// The logins to choose from; empty if the server knows its users itself. Then an empty login means the
    /// one of the URL.
    QVector<Login> logins() const;
    bool signIn(const QString& login);
    /// Name of the person who signed in.
    QString userName() const;
    /// The departments to choose from, sorted by name; empty for a login without a worker.
    QVector<Department> departments() const;
    /// Gives \a app the session and its parameters "KEYLINK", "DEPARTMENTKEY", "ORGANIZATIONKEY", and
    /// starts the events. An empty \a departmentKey selects the only department, or none if there is none.
    /// This object cannot be used again.
    bool enter(CVrkCliApp* app, const QByteArray& departmentKey);

    /// Why the last step failed, in the user's words; empty after a success.
    QString errorText() const;

private:
    struct Private;
    std::unique_ptr<Private> d;
};
