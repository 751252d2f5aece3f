#pragma once

#include "SettingsPage.h"

/// What alerts the user while he works elsewhere, with which sound, and when not.
class NoticesPage : public SettingsPage
{
    Q_OBJECT

public:
    explicit NoticesPage(UserSettings* settings, QWidget* parent = nullptr);

private:
    QWidget* makeHours();
};
