#pragma once

#include "SettingsPage.h"

/// The folder of reports.
class ReportsPage : public SettingsPage
{
    Q_OBJECT

public:
    explicit ReportsPage(UserSettings* settings, QWidget* parent = nullptr);

    /// Replaces the desktop's dialog; gets the current folder, an empty answer changes nothing.
    void setFolderChooser(std::function<QString(const QString&)> choose) { m_choose = std::move(choose); }

private:
    std::function<QString(const QString&)> m_choose;
};
