#include "FuzzTarget.h"
#include "VrkTableTool.h"
#include "WindowMemory.h"

#include <QApplication>
#include <QMainWindow>
#include <QSettings>
#include <QSplitter>
#include <QTableView>
#include <QTemporaryDir>

// For any content of the settings file, a window opens at a visible place, with usable panes and columns,
// and its saved state is read back.

namespace
{
struct Host {
    int count = 1;
    char name[14] = "settings_fuzz";
    char* names[2] = {name, nullptr};
    QApplication application{count, names};
    QTemporaryDir folder{QStringLiteral("/dev/shm/vrk-fuzz-XXXXXX")};

    Host()
    {
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, folder.path());
        QCoreApplication::setOrganizationName(QStringLiteral("fuzz"));
        QCoreApplication::setApplicationName(QStringLiteral("fuzz"));
    }
};

/// As Qt reads "@Rect(x y width height)", with the integer overflow of its release build.
QRect rectOf(int x, int y, int width, int height)
{
    const auto end = [](int begin, int length) {
        return static_cast<int>(static_cast<uint>(begin) + static_cast<uint>(length) - 1U);
    };
    QRect rect;
    rect.setCoords(x, y, end(x, width), end(y, height));
    return rect;
}

/// The possible values in a line of an INI file: a text, a number, a list, a map, bytes, a rectangle.
QVariant valueOf(const QByteArray& bytes)
{
    if (bytes.isEmpty())
        return QVariant();
    const QByteArray rest = bytes.mid(1);
    const auto number = [&](int i) {
        return static_cast<int>(static_cast<uint>(rest.mid(4 * i, 4).toHex().toUInt(nullptr, 16)));
    };
    switch (static_cast<uchar>(bytes.at(0)) % 7) {
    case 0:
        return QString::fromUtf8(rest);
    case 1:
        return number(0);
    case 2:
        return QVariantList{number(0), number(1)};
    case 3:
        return QVariantMap{{QStringLiteral("name"), number(0)}, {QString::fromUtf8(rest), number(1)}};
    case 4:
        return rest;
    case 5:
        return rectOf(number(0), number(1), number(2), number(3));
    default:
        return QSize(number(0), number(1));
    }
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static Host host;
    static const QSettings open; // keeps what was read of the file
    static QMainWindow window;
    static auto* splitter = new QSplitter;
    static const bool isMade = [] {
        splitter->setObjectName(QStringLiteral("splitter"));
        splitter->addWidget(new QWidget);
        splitter->addWidget(new QWidget);
        window.setCentralWidget(splitter);
        return true;
    }();
    Q_UNUSED(isMade)

    const QList<QByteArray> lines =
        QByteArray(reinterpret_cast<const char*>(data), static_cast<int>(size)).split('\n');
    {
        QSettings settings;
        settings.beginGroup(QStringLiteral("windows/ivanov/logbook"));
        const char* const keys[] = {"frame", "around", "maximized", "splitter.splitter", "columns."};
        for (int i = 0; i < 5; ++i)
            settings.setValue(QLatin1String(keys[i]), valueOf(lines.value(i)));
    }
    WindowMemory memory(&window, QStringLiteral("ivanov"), QStringLiteral("logbook"));
    memory.restorePlace();
    memory.restoreInside();
    fuzzRequire(window.width() > 0 && window.height() > 0 && window.width() <= 4096 &&
                window.height() <= 4096);
    for (int pane : splitter->sizes())
        fuzzRequire(pane >= 0 && pane <= 20000);
    memory.save();
    if (size % 8 == 0)
        memory.reset();
    return 0;
}

std::vector<QByteArray> fuzzSeeds()
{
    const QByteArray rect("\x05\0\0\0\x0a\0\0\0\x14\0\0\x03\x20\0\0\x02\x58", 17);
    return {rect + '\n' + QByteArray("\x06\0\0\0\x08\0\0\0\x24", 9) + '\n' + QByteArray("\0true", 5) + '\n' +
                QByteArray("\x02\0\0\0\xc8\0\0\0\x64", 9) + '\n' + QByteArray("\x03\0\0\0\x10\0\0\0\x01", 9),
            QByteArray("\x05\x80\0\0\0\x7f\xff\xff\xff\x7f\xff\xff\xff\x7f\xff\xff\xff", 17),
            QByteArrayLiteral("\x04"
                              "bytes\n\x01"
                              "aaaa\n\n\x02zzzzzzzz")};
}
