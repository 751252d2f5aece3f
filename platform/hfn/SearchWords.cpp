#include "SearchWords.h"

#include "RussianStem.h"

#include <algorithm>

namespace
{
constexpr int longestWord = 64; // the characters after these do not distinguish words
constexpr int shortestBeginning = 4;
constexpr int shortestStarred = 2; // almost every word begins with some single letter

ushort folded(ushort c)
{
    const bool isOurs = (c >= 'A' && c <= 'Z') || (c >= 0xC0 && c <= 0xDE) || (c >= 0x0400 && c <= 0x04FF);
    const ushort lower = isOurs ? QChar::toLower(c) : c;
    return lower == 0x0451 ? 0x0435 : lower; // ё
}

bool isDigit(ushort c)
{
    return c >= '0' && c <= '9';
}

/// For a folded character.
bool isOfWord(ushort c)
{
    return isDigit(c) || (c >= 'a' && c <= 'z') || (c >= 0xDF && c <= 0xFF && c != 0xF7) ||
           (c >= 0x0430 && c <= 0x0481) || (c >= 0x048A && c <= 0x04FF);
}

/// Calls \a found with begin, end and the folded text of each word.
template <class Found>
void forEachWord(const QString& text, Found found)
{
    QString word;
    for (int i = 0; i <= text.size(); ++i) {
        const ushort c = i < text.size() ? folded(text.at(i).unicode()) : ushort(0);
        if (isOfWord(c)) {
            word.append(QChar(c));
        } else if (!word.isEmpty()) {
            found(i - word.size(), i, word);
            word.clear();
        }
    }
}

QString stemOf(const QString& word)
{
    return RussianStem::of(word.left(longestWord));
}

/// The common beginning of all words that a long word of a query finds: where the stem of a verb has kept the vowel
/// of one of its forms, the other forms do not have it.
QString beginningOf(QString stem)
{
    if (stem.size() > shortestBeginning && QStringLiteral("аеиоуыэюя").contains(stem.at(stem.size() - 1)))
        stem.chop(1);
    return stem;
}
} // namespace

QStringList SearchWords::stems(const QString& text)
{
    QStringList all;
    forEachWord(text, [&all](int, int, const QString& word) { all.append(stemOf(word)); });
    return all;
}

QVector<SearchWords::Term> SearchWords::terms(const QString& query)
{
    QVector<Term> all;
    forEachWord(query, [&](int, int end, const QString& word) {
        const bool hasDigit =
            std::any_of(word.begin(), word.end(), [](QChar c) { return isDigit(c.unicode()); });
        const bool isStarred =
            word.size() >= shortestStarred && QStringView(query).mid(end).startsWith(QLatin1Char('*'));
        const bool isLong = !hasDigit && word.size() >= shortestBeginning;
        const Term term{isLong ? beginningOf(stemOf(word)) : stemOf(word), isLong || isStarred};
        const bool isKnown = std::any_of(all.cbegin(), all.cend(), [&term](const Term& one) {
            return one.stem == term.stem && one.isBeginning == term.isBeginning;
        });
        if (!isKnown)
            all.append(term);
    });
    return all;
}

QVector<SearchWords::Place> SearchWords::places(const QString& text, const QVector<Term>& terms)
{
    QVector<Place> all;
    forEachWord(text, [&](int begin, int end, const QString& word) {
        const QString stem = stemOf(word);
        const bool isFound = std::any_of(terms.cbegin(), terms.cend(), [&stem](const Term& term) {
            return term.isBeginning ? stem.startsWith(term.stem) : stem == term.stem;
        });
        if (isFound)
            all.append({begin, end - begin});
    });
    return all;
}
