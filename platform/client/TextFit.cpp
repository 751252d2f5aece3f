#include "TextFit.h"

#include <algorithm>
#include <QCoreApplication>
#include <QHash>
#include <QStringList>
#include <QTextCodec>

namespace
{
struct Replacement {
    const char16_t* from; ///< each of these characters
    const char16_t* to;
};
/// Replacements that decomposition does not give.
const Replacement replacements[] = {
    // dashes and hyphens
    {u"\u2010\u2011\u2012\u2043\u2212", u"-"},
    {u"\u2015", u"\u2014"},
    // quotes and strokes
    {u"\u201B", u"\u2018"},
    {u"\u201F", u"\u201C"},
    {u"\u2032\u02B9", u"'"},
    {u"\u2033\u02BA", u"\""},
    {u"\u02BC", u"\u2019"},
    {u"\u2044\u2215", u"/"},
    {u"\u2217", u"*"},
    {u"\u2219\u22C5", u"\u00B7"},
    {u"\u25CF\u25E6", u"\u2022"},
    // arrows
    {u"\u2190\u27F5", u"<-"},
    {u"\u2191", u"^"},
    {u"\u2192\u27F6\u2794", u"->"},
    {u"\u2194", u"<->"},
    {u"\u21D0", u"<="},
    {u"\u21D2", u"=>"},
    {u"\u21D4", u"<=>"},
    // signs
    {u"\u00D7", u"x"},
    {u"\u00F7", u":"},
    {u"\u2248", u"~"},
    {u"\u2260", u"<>"},
    {u"\u2264", u"<="},
    {u"\u2265", u">="},
    {u"\u2205\u2300", u"\u0424"},
    {u"\u2713\u2714", u"v"},
    // Greek letters of electrical engineering
    {u"\u0394", u"\u0434\u0435\u043B\u044C\u0442\u0430 "},
    {u"\u03A3\u2211", u"\u0441\u0443\u043C\u043C\u0430 "},
    {u"\u03A9", u"\u041E\u043C"},
    {u"\u03BC", u"\u00B5"},
    {u"\u03C6\u03D5", u"\u0444\u0438"},
    // Latin letters that do not decompose
    {u"\u00C6", u"AE"},
    {u"\u00E6", u"ae"},
    {u"\u00D0\u0110", u"D"},
    {u"\u00F0\u0111", u"d"},
    {u"\u00D8", u"O"},
    {u"\u00F8", u"o"},
    {u"\u00DE", u"Th"},
    {u"\u00FE", u"th"},
    {u"\u00DF", u"ss"},
    {u"\u0131", u"i"},
    {u"\u0141", u"L"},
    {u"\u0142", u"l"},
    {u"\u0152", u"OE"},
    {u"\u0153", u"oe"},
};

const QHash<QChar, QString>& closestTable()
{
    static const QHash<QChar, QString> table = [] {
        QHash<QChar, QString> closest;
        for (const Replacement& one : replacements)
            for (const QChar from : QString::fromUtf16(one.from))
                closest.insert(from, QString::fromUtf16(one.to));
        return closest;
    }();
    return table;
}

constexpr QChar strokeThrough(0x0338);

/// The passage as shown to the user: characters without a glyph by their numbers.
QString shown(const QString& passage)
{
    QStringList codes;
    for (const uint code : passage.toUcs4()) {
        if (QChar::isPrint(code) && !QChar::isSpace(code))
            return QStringLiteral("«%1»").arg(passage);
        codes.append(QStringLiteral("U+%1").arg(code, 4, 16, QLatin1Char('0')).toUpper());
    }
    return codes.join(QLatin1Char(' '));
}
} // namespace

TextFit::TextFit(const QTextCodec* codec)
{
    const QString beyond = QStringLiteral("\u2192\u4E00");
    m_all = !codec || codec->toUnicode(codec->fromUnicode(beyond)) == beyond;
    if (m_all)
        return;
    for (int byte = 1; byte < 256; ++byte) {
        const QByteArray bytes(1, static_cast<char>(byte));
        const QString text = codec->toUnicode(bytes);
        const bool isControl = byte >= 0x80 && text.size() == 1 && text[0].category() == QChar::Other_Control;
        if (text.size() == 1 && !isControl && codec->fromUnicode(text) == bytes)
            m_carried.set(text[0].unicode());
    }
}

bool TextFit::carries(const QString& text) const
{
    return std::all_of(text.begin(), text.end(), [this](QChar character) { return carries(character); });
}

QVector<TextFit::Change> TextFit::changes(const QString& text) const
{
    QVector<Change> found;
    if (m_all)
        return found;
    for (int i = 0; i < text.size(); ++i) {
        if (carries(text[i]))
            continue;
        int start = i;
        // A combining mark belongs to the letter before it: и and a breve are й.
        if (text[i].isMark() && i > 0 && text[i - 1].isLetter() &&
            (found.isEmpty() || found.last().start + found.last().length < i))
            --start;
        int end = i + 1;
        while (end < text.size() && !carries(text[end]) && (text[end].isMark() || text[end].isLowSurrogate()))
            ++end;
        found.append({start, end - start, closest(text.mid(start, end - start))});
        i = end - 1;
    }
    return found;
}

QString TextFit::closest(const QString& passage) const
{
    const QString composed = passage.normalized(QString::NormalizationForm_C);
    if (carries(composed))
        return composed;
    QString result;
    for (const QChar whole : composed) {
        const auto known = closestTable().constFind(whole);
        const QString parts = known != closestTable().constEnd()
                                  ? *known
                                  : QString(whole).normalized(QString::NormalizationForm_KD);
        for (const QChar part : parts) {
            if (part == strokeThrough)
                return QString(); // without its stroke the sign would have the opposite meaning
            if (carries(part))
                result += part;
            else if (part.isSpace())
                result += QLatin1Char(' ');
            else if (!part.isMark())
                result += closestTable().value(part);
        }
    }
    return carries(result) ? result : QString();
}

QString TextFit::applied(QString text, const QVector<Change>& changes)
{
    for (auto change = changes.rbegin(); change != changes.rend(); ++change)
        text.replace(change->start, change->length, change->replacement);
    return text;
}

QString TextFit::notice(const QString& text, const QVector<Change>& changes)
{
    constexpr int longest = 5;
    QStringList parts;
    for (const Change& change : changes) {
        const QString passage = shown(text.mid(change.start, change.length));
        const QString part = change.replacement.isEmpty()
                                 ? QCoreApplication::translate("TextFit", "%1 опущено").arg(passage)
                                 : QCoreApplication::translate("TextFit", "%1 заменено на «%2»")
                                       .arg(passage, change.replacement);
        if (!parts.contains(part))
            parts.append(part);
    }
    if (parts.size() > longest) {
        parts = parts.mid(0, longest);
        parts.append(QCoreApplication::translate("TextFit", "и другие"));
    }
    return QCoreApplication::translate("TextFit", "Журнал не может хранить некоторые знаки: %1.")
        .arg(parts.join(QStringLiteral("; ")));
}
