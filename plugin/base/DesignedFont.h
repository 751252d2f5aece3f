#pragma once

#include <QObject>

class UserSettings;
class QWidget;

/// Keeps a font whose size the design gives in points in proportion to the letters that the user has chosen.
class DesignedFont : public QObject
{
    Q_OBJECT

public:
    /// \a widget, which becomes the owner, has the size for letters of 100 %. \a settings may be null.
    DesignedFont(QWidget* widget, const UserSettings* settings);

private:
    void apply(int percent);

    QWidget* m_widget;
    double m_points;
};
