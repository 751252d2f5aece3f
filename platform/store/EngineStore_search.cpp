#include "CMDArray.h"
#include "EngineStore.h"
#include "Fields.h"
#include "RecordText.h"
#include "Row.h"
#include "SearchWords.h"

#include <cmath>
#include <QSet>
#include <QTextCodec>

namespace
{
constexpr int firstPage = 1000;
constexpr int nextPage = 8000;
constexpr int mostRead = 200000;

/// Reads what the index finds page by page, from the newest to the oldest, and keeps what has the phrases. Neither
/// index knows where in a record a word is.
class PhraseSearch
{
public:
    using Index = std::function<MDArray*(const RecordQuery& query, StoreError* error)>;

    PhraseSearch(const RecordQuery& query, const QTextCodec* codec, Index index)
        : m_query(query),
          m_words(SearchWords::query(query.words)),
          m_equipment(SearchWords::query(query.equipment)),
          m_codec(codec),
          m_index(std::move(index))
    {
    }
    bool isNeeded() const { return m_words.hasPhrases() || m_equipment.hasPhrases(); }

    MDArray* run(StoreError* error)
    {
        const int wanted = qMax(m_query.limit, 0);
        CMDArray kept;
        for (m_query.limit = firstPage;;) {
            CMDArray page;
            page = m_index(m_query, error);
            if (!page.array)
                return nullptr;
            const bool isLast = page.RecCount() < m_query.limit;
            const int before = m_read.size();
            keepHits(page, wanted - kept.RecCount());
            if (!kept.array)
                std::swap(kept.array, page.array);
            else
                MDARecsAppend(kept.array, page.array);
            if (isLast || kept.RecCount() >= wanted) {
                MDArray* answer = nullptr;
                std::swap(answer, kept.array);
                return answer;
            }
            if (m_read.size() > mostRead) {
                *error = {StoreError::TooLarge,
                          QStringLiteral(
                              "слова фразы есть в слишком многих записях; сузьте период или добавьте слово"),
                          QString()};
                return nullptr;
            }
            // A page may end within a second: the next one begins with this second again. It is larger if all
            // records of the page were of one second.
            const double second = std::floor(m_oldest) + 1;
            m_query.to = m_query.to > 0 ? qMin(m_query.to, second) : second;
            m_query.limit = m_read.size() > before ? nextPage : 4 * m_query.limit;
        }
    }

private:
    /// Deletes all other records of the page.
    void keepHits(CMDArray& page, int wanted)
    {
        for (int i = 0; i < page.RecCount();) {
            MDRData* record = MDARec(page.array, 0, i);
            const Row row(record);
            const QByteArray key = row.key();
            const bool isNew = !m_read.contains(key);
            m_read.insert(key);
            m_oldest = row.time(Field::recordTime);
            if (isNew && i < wanted && isHit(row))
                ++i;
            else
                MDARecDel(record);
        }
    }
    bool isHit(const Row& row) const
    {
        const RecordText text(row.text(Field::html, m_codec));
        return SearchWords::fitsPhrases(SearchWords::stems(text.visible), m_words) &&
               SearchWords::fitsPhrases(SearchWords::stems(text.equipment), m_equipment);
    }

    RecordQuery m_query;
    const SearchWords::Query m_words;
    const SearchWords::Query m_equipment;
    const QTextCodec* m_codec;
    const Index m_index;
    QSet<QByteArray> m_read; ///< keys
    double m_oldest = 0;     ///< time of the last one
};
} // namespace

MDArray* EngineStore::search(const RecordQuery& query, StoreError* error)
{
    PhraseSearch phrases(query, codec(), [this](const RecordQuery& one, StoreError* failure) {
        return searchIndex(one, failure);
    });
    return phrases.isNeeded() ? phrases.run(error) : searchIndex(query, error);
}
