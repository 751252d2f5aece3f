#include "TextMatch.h"

#include <algorithm>

namespace TextMatch
{
QString folded(const QString& text)
{
    QString result = text.toLower();
    result.replace(QChar(0x0451), QChar(0x0435));
    return result;
}

QStringList parts(const QString& query)
{
    return folded(query.simplified()).split(u' ', Qt::SkipEmptyParts);
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
