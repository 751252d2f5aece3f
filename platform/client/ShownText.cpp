#include "ShownText.h"

#include <QStringList>

namespace
{
constexpr int longestEntry = 120;
constexpr int longestLine = 120;
constexpr int longestTip = 1000;

bool isControl(QChar character)
{
    return character.category() == QChar::Other_Control || character == QChar::LineSeparator ||
           character == QChar::ParagraphSeparator;
}

/// Changes the direction of the following text, including the program's own words.
bool turnsDirection(QChar character)
{
    const ushort code = character.unicode();
    return (code >= 0x202a && code <= 0x202e) || (code >= 0x2066 && code <= 0x2069);
}

QString cut(const QString& text, int longest)
{
    return text.size() > longest ? text.left(longest - 1) + QChar(0x2026) : text;
}

QString line(const QString& text)
{
    QString shown;
    shown.reserve(text.size());
    for (const QChar character : text) {
        if (!turnsDirection(character))
            shown += isControl(character) ? QChar(QLatin1Char(' ')) : character;
    }
    return shown;
}
} // namespace

QString ShownText::entry(const QString& text)
{
    return line(cut(text, longestEntry)).replace(QLatin1Char('&'), QLatin1String("&&"));
}

QString ShownText::tip(const QString& text)
{
    QStringList lines;
    for (const QString& whole : cut(text, longestTip).split(QLatin1Char('\n'))) {
        QString rest = line(whole);
        while (rest.size() > longestLine) {
            const int blank = rest.lastIndexOf(QLatin1Char(' '), longestLine);
            const int end = blank > 0 ? blank : longestLine;
            lines += rest.left(end);
            rest.remove(0, blank > 0 ? end + 1 : end);
        }
        lines += rest;
    }
    return lines.join(QLatin1Char('\n'));
}

QString ShownText::notification(const QString& text)
{
    QStringList lines;
    for (const QString& whole : text.split(QLatin1Char('\n')))
        lines += line(whole);
    return lines.join(QLatin1Char('\n'))
        .replace(QLatin1Char('<'), QChar(0x2039))
        .replace(QLatin1Char('>'), QChar(0x203a));
}
