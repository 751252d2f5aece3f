#pragma once

#include "SettingsPage.h"

/// Which store is open, and a button to open another one.
class StorePage : public SettingsPage
{
    Q_OBJECT

public:
    StorePage(UserSettings* settings, const QString& address, QWidget* parent = nullptr);

signals:
    void otherStoreRequested();
};
