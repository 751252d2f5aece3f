#include "RunnableFile.h"

#include <QByteArray>
#include <QFile>
#include <QFileInfo>
#include <QSet>
#include <QStringList>

namespace
{
constexpr qint64 lengthOfHead = 4096;

const QSet<QString>& suffixes()
{
    static const QStringList names =
        QString::fromLatin1(
            "desktop sh bash csh ksh zsh fish py pyc pyw pyz pl pm rb php lua tcl awk run bin "
            "out elf so appimage flatpakref flatpak snap deb rpm apk jar jnlp class exe com "
            "bat cmd msi msp scr pif cpl dll lnk url reg inf ps1 psm1 vb vbs vbe js jse mjs "
            "ws wsf wsh hta sct gadget chm application docm dotm xlsm xltm xlam pptm potm "
            "ppam ppsm sldm service timer mount")
            .split(QLatin1Char(' '));
    static const QSet<QString> known(names.begin(), names.end());
    return known;
}

/// A launcher may have comments and empty lines before its first group.
bool isLauncher(const QByteArray& head)
{
    for (const QByteArray& line : head.split('\n')) {
        const QByteArray text = line.trimmed();
        if (!text.isEmpty() && !text.startsWith('#'))
            return text.startsWith("[Desktop Entry]") || text.startsWith("[KDE Desktop Entry]");
    }
    return false;
}
} // namespace

bool RunnableFile::isName(const QString& name)
{
    // Some desktops ignore spaces and dots at the end.
    int end = name.size();
    while (end > 0 && (name.at(end - 1).isSpace() || name.at(end - 1) == u'.'))
        --end;
    const QString cut = name.left(end);
    return suffixes().contains(cut.mid(cut.lastIndexOf(u'.') + 1).toLower()) && cut.contains(u'.');
}

bool RunnableFile::isContent(const QByteArray& head)
{
    QByteArray bytes = head;
    if (bytes.startsWith("\xEF\xBB\xBF"))
        bytes.remove(0, 3);
    static const QByteArray magics[] = {
        QByteArrayLiteral("#!"),
        QByteArrayLiteral("\x7F"
                          "ELF"),
        QByteArrayLiteral("MZ"),
        QByteArrayLiteral("\xCA\xFE\xBA\xBE"),
        QByteArrayLiteral("\xFE\xED\xFA\xCE"),
        QByteArrayLiteral("\xFE\xED\xFA\xCF"),
        QByteArrayLiteral("\xCE\xFA\xED\xFE"),
        QByteArrayLiteral("\xCF\xFA\xED\xFE"),
        QByteArrayLiteral("\x4C\x00\x00\x00\x01\x14\x02\x00"), // a shortcut
    };
    for (const QByteArray& magic : magics)
        if (bytes.startsWith(magic))
            return true;
    return isLauncher(bytes);
}

bool RunnableFile::is(const QString& path)
{
    if (isName(QFileInfo(path).fileName()))
        return true;
    QFile file(path);
    return file.open(QIODevice::ReadOnly) && isContent(file.read(lengthOfHead));
}
