#include "TextMatch.h"

#include <algorithm>

namespace TextMatch
{
QString folded(const QString& text)
{
    QString result = text;
    for (QChar& character : result) {
        character = character.toLower();
        const ushort code = character.unicode();
        if (code == 0x0451) // ё
            character = QChar(0x0435);
        else if ((code >= 0x2010 && code <= 0x2014) || code == 0x2212)
            character = u'-';
        else if (character.isSpace())
            character = u' ';
    }
    return result;
}

QStringList parts(const QString& query)
{
    return folded(query).split(u' ', Qt::SkipEmptyParts);
}

bool matches(const QString& foldedText, const QStringList& parts)
{
    return std::all_of(parts.begin(), parts.end(),
                       [&foldedText](const QString& part) { return foldedText.contains(part); });
}

bool beginsWord(const QString& foldedText, const QString& part)
{
    for (int at = foldedText.indexOf(part); at >= 0; at = foldedText.indexOf(part, at + 1)) {
        if (at == 0 || !foldedText.at(at - 1).isLetterOrNumber())
            return true;
    }
    return false;
}
} // namespace TextMatch
