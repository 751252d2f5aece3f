#pragma once

#include <QByteArray>
#include <QVector>

/// How much windows are enlarged on each screen. The toolkit takes the screen's resolution as it stands: 100 dots an inch
/// give a factor of 1.04, and lines and letters that fall between the dots. Quarters fall on them.
namespace ScreenScale
{
struct Screen {
    QByteArray name;
    double factor; ///< as the resolution gives it
};

/// To the nearest quarter; 1 below 1.125, for a screen is never made smaller.
double rounded(double factor);
/// The screens with their rounded factors, as the toolkit takes them from QT_SCREEN_SCALE_FACTORS; empty where no screen
/// is to be enlarged, for the toolkit passes over factors that are all 1.
QByteArray setting(const QVector<Screen>& screens);
/// Sets that for this program; to be called before there is an application. Does nothing where the user has set factors
/// of his own, or where the screens cannot be asked.
void roundToQuarters(int argc, char* argv[]);
/// To be called when the application is there: programs that it starts have factors of their own.
void forget();
/// One dot for one dot at 96 dots an inch, whatever the screen: for pictures. To be called before there is an application.
void switchOff();
} // namespace ScreenScale
