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

bool isFoundBy(const QString& stem, const SearchWords::Term& term)
{
    return term.isBeginning ? stem.startsWith(term.stem) : stem == term.stem;
}

/// The words of a part of a query, each as often as it occurs.
SearchWords::Phrase termsOf(const QString& chunk)
{
    SearchWords::Phrase all;
    forEachWord(chunk, [&](int, int end, const QString& word) {
        const bool hasDigit =
            std::any_of(word.begin(), word.end(), [](QChar c) { return isDigit(c.unicode()); });
        const bool isStarred =
            word.size() >= shortestStarred && QStringView(chunk).mid(end).startsWith(QLatin1Char('*'));
        const bool isLong = !hasDigit && word.size() >= shortestBeginning;
        all.append({isLong ? beginningOf(stemOf(word)) : stemOf(word), isLong || isStarred});
    });
    return all;
}

void appendNew(QVector<SearchWords::Term>* terms, const SearchWords::Term& term)
{
    const bool isKnown = std::any_of(terms->cbegin(), terms->cend(), [&term](const SearchWords::Term& one) {
        return one.stem == term.stem && one.isBeginning == term.isBeginning;
    });
    if (!isKnown)
        terms->append(term);
}

/// A part of a query up to a blank, or what stands in quotes.
struct Chunk {
    QString text;
    bool isExcluded = false;
    bool isPhrase = false;
    int end = 0; ///< where the next one begins
};

bool nextChunk(const QString& query, Chunk* chunk)
{
    const QLatin1Char quote('"');
    int at = chunk->end;
    while (at < query.size() && query.at(at).isSpace())
        ++at;
    if (at == query.size())
        return false;
    const bool isFirst = at == 0 || query.at(at - 1).isSpace();
    const QChar next = at + 1 < query.size() ? query.at(at + 1) : QChar();
    chunk->isExcluded =
        isFirst && query.at(at) == QLatin1Char('-') && (next == quote || isOfWord(folded(next.unicode())));
    if (chunk->isExcluded)
        ++at;
    const int closing = query.at(at) == quote ? query.indexOf(quote, at + 1) : -1;
    if (closing > 0) {
        chunk->text = query.mid(at + 1, closing - at - 1);
        chunk->end = closing + 1;
        chunk->isPhrase = true;
        return true;
    }
    chunk->end = at + 1;
    while (chunk->end < query.size() && !query.at(chunk->end).isSpace() && query.at(chunk->end) != quote)
        ++chunk->end;
    chunk->text = query.mid(at, chunk->end - at);
    chunk->isPhrase = chunk->isExcluded; // such as -ВЛ-110: nobody wants all records without "110"
    return true;
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
    return SearchWords::query(query).terms;
}

SearchWords::Query SearchWords::query(const QString& text)
{
    Query all;
    for (Chunk chunk; nextChunk(text, &chunk);) {
        const Phrase words = termsOf(chunk.text);
        if (words.size() > 1 && chunk.isPhrase)
            (chunk.isExcluded ? all.excludedPhrases : all.phrases).append(words);
        if (!chunk.isExcluded)
            for (const Term& word : words)
                appendNew(&all.terms, word);
        else if (words.size() == 1)
            appendNew(&all.excluded, words.first());
    }
    return all;
}

bool SearchWords::fitsPhrases(const QStringList& stems, const Query& query)
{
    const auto has = [&stems](const Phrase& phrase) {
        return std::search(stems.begin(), stems.end(), phrase.begin(), phrase.end(), isFoundBy) !=
               stems.end();
    };
    return std::all_of(query.phrases.begin(), query.phrases.end(), has) &&
           std::none_of(query.excludedPhrases.begin(), query.excludedPhrases.end(), has);
}

QVector<SearchWords::Place> SearchWords::places(const QString& text, const QVector<Term>& terms)
{
    QVector<Place> all;
    forEachWord(text, [&](int begin, int end, const QString& word) {
        const QString stem = stemOf(word);
        const bool isFound = std::any_of(terms.cbegin(), terms.cend(),
                                         [&stem](const Term& term) { return isFoundBy(stem, term); });
        if (isFound)
            all.append({begin, end - begin});
    });
    return all;
}
