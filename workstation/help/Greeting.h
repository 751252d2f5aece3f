#pragma once

#include <QObject>

class CVrkCliMod;
class Help;
class UserSettings;

/// What a user sees once above his journal: the first steps if he is new, or after an upgrade of the program that there
/// is something new. It takes neither the focus nor a key, and goes away when he has read it.
class Greeting : public QObject
{
    Q_OBJECT

public:
    enum Kind { Nothing, FirstSteps, News };

    Greeting(UserSettings* settings, Help* help, QObject* parent = nullptr);

    /// Shows in the window what this user has not seen yet. \a wasHere: he has worked here before.
    void greet(CVrkCliMod* window, bool wasHere);
    /// What is shown in the version \a version to somebody who saw \a seen; empty for no version.
    static Kind kindFor(const QString& seen, const QString& version, bool wasHere);

private:
    UserSettings* m_settings;
    Help* m_help;
};
