#include "RussianStem.h"

#include <initializer_list>
#include <string_view>

namespace
{
using View = std::u16string_view;
using Endings = std::initializer_list<View>;

const Endings gerunds = {u"ив", u"ивши", u"ившись", u"ыв", u"ывши", u"ывшись"};
const Endings gerundsBehindVowel = {u"в", u"вши", u"вшись"};
const Endings adjectives = {u"ее", u"ие", u"ые", u"ое", u"ими", u"ыми", u"ей",  u"ий",  u"ый",
                            u"ой", u"ем", u"им", u"ым", u"ом",  u"его", u"ого", u"ему", u"ому",
                            u"их", u"ых", u"ую", u"юю", u"ая",  u"яя",  u"ою",  u"ею"};
const Endings participles = {u"ивш", u"ывш", u"ующ"};
const Endings participlesBehindVowel = {u"ем", u"нн", u"вш", u"ющ", u"щ"};
const Endings reflexives = {u"ся", u"сь"};
const Endings verbs = {u"ила", u"ыла", u"ена", u"ейте", u"уйте", u"ите", u"или", u"ыли", u"ей", u"уй",
                       u"ил",  u"ыл",  u"им",  u"ым",   u"ен",   u"ило", u"ыло", u"ено", u"ят", u"ует",
                       u"уют", u"ит",  u"ыт",  u"ены",  u"ить",  u"ыть", u"ишь", u"ую",  u"ю"};
const Endings verbsBehindVowel = {u"ла", u"на", u"ете", u"йте", u"ли", u"й",  u"л",   u"ем", u"н",
                                  u"ло", u"но", u"ет",  u"ют",  u"ны", u"ть", u"ешь", u"нно"};
const Endings nouns = {u"а",  u"ев",  u"ов", u"ие",  u"ье", u"е",  u"иями", u"ями", u"ами",
                       u"еи", u"ии",  u"и",  u"ией", u"ей", u"ой", u"ий",   u"й",   u"иям",
                       u"ям", u"ием", u"ем", u"ам",  u"ом", u"о",  u"у",    u"ах",  u"иях",
                       u"ях", u"ы",   u"ь",  u"ию",  u"ью", u"ю",  u"ия",   u"ья",  u"я"};
const Endings derivations = {u"ост", u"ость"};
const Endings superlatives = {u"ейш", u"ейше"};

bool isVowel(char16_t letter)
{
    return View(u"аеиоуыэюя").find(letter) != View::npos;
}

/// A word that loses its endings; the part before the region of the endings stays.
class Word
{
public:
    explicit Word(View word) : m_left(word)
    {
        m_region = past(0, true);
        m_second = past(past(past(m_region, false), true), false);
    }

    View left() const { return m_left; }

    /// Removes the longest of the endings that fits. Those of \a behindVowel need "а" or "я" before them, which
    /// stays; if the longest one that fits does not have it, nothing happens.
    bool drop(const Endings& endings, const Endings& behindVowel = {})
    {
        const std::size_t free = longest(endings);
        const std::size_t bound = longest(behindVowel);
        if (bound > free) {
            const std::size_t at = m_left.size() - bound;
            if (at <= m_region || (m_left[at - 1] != u'а' && m_left[at - 1] != u'я'))
                return false;
        }
        const std::size_t length = free > bound ? free : bound;
        m_left.remove_suffix(length);
        return length > 0;
    }
    /// The same for an ending that must be in the second region.
    void dropDerivation()
    {
        const std::size_t length = longest(derivations);
        if (length > 0 && m_left.size() - length >= m_second)
            m_left.remove_suffix(length);
    }
    /// Removes one of two "н" at the end.
    void undouble()
    {
        if (longest({u"нн"}) > 0)
            m_left.remove_suffix(1);
    }

private:
    /// The position after the first vowel (or the first other letter) from \a from on; the end if there is none.
    std::size_t past(std::size_t from, bool vowel) const
    {
        while (from < m_left.size() && isVowel(m_left[from]) != vowel)
            ++from;
        return from < m_left.size() ? from + 1 : m_left.size();
    }
    std::size_t longest(const Endings& endings) const
    {
        const View region = m_region < m_left.size() ? m_left.substr(m_region) : View();
        std::size_t length = 0;
        for (const View ending : endings) {
            if (ending.size() > length && ending.size() <= region.size() &&
                region.substr(region.size() - ending.size()) == ending)
                length = ending.size();
        }
        return length;
    }

    View m_left;
    std::size_t m_region; ///< endings are in this region
    std::size_t m_second;
};
} // namespace

QString RussianStem::of(const QString& word)
{
    Word rest(View(reinterpret_cast<const char16_t*>(word.utf16()), static_cast<std::size_t>(word.size())));
    if (!rest.drop(gerunds, gerundsBehindVowel)) {
        rest.drop(reflexives);
        if (rest.drop(adjectives))
            rest.drop(participles, participlesBehindVowel);
        else if (!rest.drop(verbs, verbsBehindVowel))
            rest.drop(nouns);
    }
    rest.drop({u"и"});
    rest.dropDerivation();
    if (rest.drop(superlatives) || !rest.drop({u"ь"}))
        rest.undouble();
    return word.left(static_cast<int>(rest.left().size()));
}
