#pragma once

#include "SettingsPage.h"

/// Size of letters and colours.
class LookPage : public SettingsPage
{
    Q_OBJECT

public:
    explicit LookPage(UserSettings* settings, QWidget* parent = nullptr);

private:
    QWidget* makeSize();
    static QWidget* makeSample();
};
