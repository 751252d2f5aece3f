#pragma once

#include <QByteArray>
#include <QVector>

/// The scale factor of windows on each screen. Qt uses the screen's exact resolution: 100 dots per inch
/// give a factor of 1.04, and lines and letters between the pixels. With quarters they match the pixels.
namespace ScreenScale
{
struct Screen {
    QByteArray name;
    double factor; ///< according to the resolution
};

/// Rounds to a quarter; 1 below 1.125, because a screen is never scaled down.
double rounded(double factor);
/// The screens with their rounded factors, in the format of QT_SCREEN_SCALE_FACTORS; empty if no screen
/// needs scaling, because Qt ignores factors that are all 1.
QByteArray setting(const QVector<Screen>& screens);
/// Applies the setting to this program; call it before there is an application. Does nothing if the user
/// has set his own factors, or if the screens cannot be examined.
void roundToQuarters(int argc, char* argv[]);
/// Call it once the application exists: programs that it starts must use their own factors.
void forget();
/// One pixel for one dot at 96 dots per inch on any screen: for pictures. Call it before there is an
/// application.
void switchOff();
} // namespace ScreenScale
