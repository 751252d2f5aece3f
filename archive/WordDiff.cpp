#include "WordDiff.h"

#include <QStringList>

namespace
{
constexpr qint64 mostComparisons = 4000000;

/// Words with their letters and digits; any other character stands alone.
QStringList wordsOf(const QString& text)
{
    QStringList words;
    for (int i = 0; i < text.size();) {
        int end = i + 1;
        if (text.at(i).isLetterOrNumber())
            while (end < text.size() && text.at(end).isLetterOrNumber())
                ++end;
        words.append(text.mid(i, end - i));
        i = end;
    }
    return words;
}

void append(QVector<WordDiff::Piece>* side, const QString& text, bool isSame)
{
    if (!side->isEmpty() && side->constLast().isSame == isSame)
        side->last().text += text;
    else
        side->append({text, isSame});
}

/// Lengths of the longest common sequences of the ends of both lists.
class Table
{
public:
    Table(const QStringList& before, const QStringList& after)
        : m_width(after.size() + 1), m_lengths((before.size() + 1) * m_width)
    {
        for (int i = before.size() - 1; i >= 0; --i)
            for (int j = after.size() - 1; j >= 0; --j)
                m_lengths[i * m_width + j] =
                    before.at(i) == after.at(j) ? at(i + 1, j + 1) + 1 : qMax(at(i + 1, j), at(i, j + 1));
    }
    int at(int i, int j) const { return m_lengths.at(i * m_width + j); }

private:
    int m_width;
    QVector<int> m_lengths;
};

void compare(const QStringList& before, const QStringList& after, WordDiff::Sides* sides)
{
    if (qint64(before.size()) * after.size() > mostComparisons) {
        append(&sides->before, before.join(QString()), false);
        append(&sides->after, after.join(QString()), false);
        return;
    }
    const Table table(before, after);
    int i = 0;
    int j = 0;
    while (i < before.size() || j < after.size()) {
        if (i < before.size() && j < after.size() && before.at(i) == after.at(j)) {
            append(&sides->before, before.at(i++), true);
            append(&sides->after, after.at(j++), true);
        } else if (j == after.size() || (i < before.size() && table.at(i + 1, j) >= table.at(i, j + 1))) {
            append(&sides->before, before.at(i++), false);
        } else {
            append(&sides->after, after.at(j++), false);
        }
    }
}
} // namespace

WordDiff::Sides WordDiff::of(const QString& before, const QString& after)
{
    QStringList old = wordsOf(before);
    QStringList present = wordsOf(after);
    const int shorter = qMin(old.size(), present.size());
    int begin = 0;
    while (begin < shorter && old.at(begin) == present.at(begin))
        ++begin;
    int end = 0;
    while (end < shorter - begin && old.at(old.size() - 1 - end) == present.at(present.size() - 1 - end))
        ++end;
    const QString head = QStringList(old.mid(0, begin)).join(QString());
    const QString tail = QStringList(old.mid(old.size() - end)).join(QString());

    Sides sides;
    if (!head.isEmpty()) {
        append(&sides.before, head, true);
        append(&sides.after, head, true);
    }
    compare(old.mid(begin, old.size() - begin - end), present.mid(begin, present.size() - begin - end),
            &sides);
    if (!tail.isEmpty()) {
        append(&sides.before, tail, true);
        append(&sides.after, tail, true);
    }
    return sides;
}
