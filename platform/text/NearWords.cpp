#include "NearWords.h"

#include "TextMatch.h"

#include <algorithm>
#include <QPair>
#include <QVector>

namespace
{
constexpr int shortestWord = 4;
constexpr int shortestOfTwo = 7; ///< shorter words may differ in one place only
constexpr int mostWords = 3;

int differences(const QString& one, const QString& other)
{
    QVector<int> before;
    QVector<int> last(other.size() + 1);
    for (int i = 0; i <= other.size(); ++i)
        last[i] = i;
    for (int i = 1; i <= one.size(); ++i) {
        QVector<int> row(other.size() + 1);
        row[0] = i;
        for (int j = 1; j <= other.size(); ++j) {
            const int unlike = one[i - 1] == other[j - 1] ? 0 : 1;
            row[j] = std::min({last[j] + 1, row[j - 1] + 1, last[j - 1] + unlike});
            if (i > 1 && j > 1 && one[i - 1] == other[j - 2] && one[i - 2] == other[j - 1])
                row[j] = qMin(row[j], before[j - 2] + 1);
        }
        before = last;
        last = row;
    }
    return last.constLast();
}
} // namespace

void NearWords::setWords(const QStringList& words)
{
    m_words.clear();
    for (const QString& word : words)
        if (word.size() >= shortestWord && word != word.toUpper())
            m_words.insert(TextMatch::folded(word), word);
}

QStringList NearWords::of(const QString& word) const
{
    const QString wanted = TextMatch::folded(word);
    const int most = wanted.size() >= shortestOfTwo ? 2 : 1;
    QVector<QPair<int, QString>> found;
    for (auto it = m_words.begin(); it != m_words.end(); ++it) {
        if (qAbs(it.key().size() - wanted.size()) > most)
            continue;
        const int count = differences(wanted, it.key());
        if (count <= most)
            found.append({count, it.value()});
    }
    std::sort(found.begin(), found.end());
    QStringList near;
    for (const auto& one : found.mid(0, mostWords))
        near.append(one.second);
    return near;
}
