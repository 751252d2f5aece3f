#pragma once

#include "SettingsPage.h"

/// The modules that open after signing in.
class StartPage : public SettingsPage
{
    Q_OBJECT

public:
    /// \a modules: name and title of those that the user may open.
    StartPage(UserSettings* settings, const QVector<QPair<QString, QString>>& modules,
              QWidget* parent = nullptr);
};
