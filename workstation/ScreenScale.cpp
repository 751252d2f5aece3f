#include "ScreenScale.h"

#include <algorithm>
#include <cmath>
#include <fcntl.h>
#include <QGuiApplication>
#include <QScreen>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace
{
constexpr double usualDots = 96;
const char* const settingName = "QT_SCREEN_SCALE_FACTORS";
bool isSet = false;

void enlargeNothing()
{
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling, false);
    QCoreApplication::setAttribute(Qt::AA_DisableHighDpiScaling);
#else
    QGuiApplication::setHighDpiScaleFactorRoundingPolicy(Qt::HighDpiScaleFactorRoundingPolicy::Floor);
#endif
}

QVector<ScreenScale::Screen> screensOf(int argc, char* argv[])
{
    std::vector<char*> arguments(argv, argv + argc); // Qt removes some of them
    arguments.push_back(nullptr);
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    QCoreApplication::setAttribute(Qt::AA_DisableHighDpiScaling);
#endif
    const QGuiApplication application(argc, arguments.data());
    QVector<ScreenScale::Screen> screens;
    for (const QScreen* screen : QGuiApplication::screens())
        screens.append({screen->name().toLocal8Bit(),
                        screen->logicalDotsPerInch() * screen->devicePixelRatio() / usualDots});
    return screens;
}
} // namespace

double ScreenScale::rounded(double factor)
{
    return qMax(1.0, std::floor(factor * 4 + 0.5) / 4);
}

QByteArray ScreenScale::setting(const QVector<Screen>& screens)
{
    const auto isEnlarged = [](const Screen& screen) { return rounded(screen.factor) > 1; };
    if (std::none_of(screens.begin(), screens.end(), isEnlarged))
        return QByteArray();
    QByteArray text;
    for (const Screen& screen : screens) {
        if (!text.isEmpty())
            text += ';';
        text += screen.name + '=' + QByteArray::number(rounded(screen.factor));
    }
    return text;
}

// A program has only one application, which reads its factors at its start. So a child process examines the
// screens.
void ScreenScale::roundToQuarters(int argc, char* argv[])
{
    isSet = false;
    int ends[2];
    if (qEnvironmentVariableIsSet(settingName) || qEnvironmentVariableIsSet("QT_SCALE_FACTOR") ||
        pipe(ends) != 0)
        return;
    const pid_t child = fork();
    if (child == 0) {
        const rlimit none = {0, 0};
        setrlimit(RLIMIT_CORE, &none);
        const int silence = open("/dev/null", O_WRONLY); // the program itself reports a missing display, once
        dup2(silence, STDOUT_FILENO);
        dup2(silence, STDERR_FILENO);
        const QByteArray text = setting(screensOf(argc, argv));
        _exit(write(ends[1], text.constData(), static_cast<std::size_t>(text.size())) == text.size() ? 0 : 1);
    }
    close(ends[1]);
    QByteArray text;
    char piece[256];
    for (ssize_t got = 0; (got = read(ends[0], piece, sizeof piece)) > 0;)
        text.append(piece, static_cast<int>(got));
    close(ends[0]);
    int status = 0;
    const bool isAnswered =
        child > 0 && waitpid(child, &status, 0) == child && WIFEXITED(status) && WEXITSTATUS(status) == 0;
    isSet = isAnswered && !text.isEmpty();
    if (isSet)
        qputenv(settingName, text);
    else if (isAnswered)
        enlargeNothing();
}

void ScreenScale::forget()
{
    if (isSet)
        qunsetenv(settingName);
}

void ScreenScale::switchOff()
{
    enlargeNothing();
    qputenv("QT_FONT_DPI", QByteArray::number(usualDots));
}
