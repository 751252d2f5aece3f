#include "TextFit.h"

#include <algorithm>
#include <QCoreApplication>
#include <QHash>
#include <QStringList>
#include <QTextCodec>

namespace
{
/// Replacements that decomposition does not give.
const QHash<QChar, QString>& closestTable()
{
    struct Row {
        char16_t from;
        const char16_t* to;
    };
    static const Row rows[] = {
        // dashes and hyphens
        {0x2010, u"-"},
        {0x2011, u"-"},
        {0x2012, u"-"},
        {0x2015, u"\u2014"},
        {0x2043, u"-"},
        {0x2212, u"-"},
        // quotes and strokes
        {0x201B, u"\u2018"},
        {0x201F, u"\u201C"},
        {0x2032, u"'"},
        {0x2033, u"\""},
        {0x02B9, u"'"},
        {0x02BA, u"\""},
        {0x02BC, u"\u2019"},
        {0x2044, u"/"},
        {0x2215, u"/"},
        {0x2217, u"*"},
        {0x2219, u"\u00B7"},
        {0x22C5, u"\u00B7"},
        {0x25CF, u"\u2022"},
        {0x25E6, u"\u2022"},
        // arrows
        {0x2190, u"<-"},
        {0x2191, u"^"},
        {0x2192, u"->"},
        {0x2194, u"<->"},
        {0x21D0, u"<="},
        {0x21D2, u"=>"},
        {0x21D4, u"<=>"},
        {0x27F5, u"<-"},
        {0x27F6, u"->"},
        {0x2794, u"->"},
        // signs
        {0x00D7, u"x"},
        {0x00F7, u":"},
        {0x2248, u"~"},
        {0x2260, u"<>"},
        {0x2264, u"<="},
        {0x2265, u">="},
        {0x2205, u"\u0424"},
        {0x2300, u"\u0424"},
        {0x2713, u"v"},
        {0x2714, u"v"},
        // Greek letters of electrical engineering
        {0x0394, u"\u0434\u0435\u043B\u044C\u0442\u0430 "},
        {0x03A3, u"\u0441\u0443\u043C\u043C\u0430 "},
        {0x2211, u"\u0441\u0443\u043C\u043C\u0430 "},
        {0x03A9, u"\u041E\u043C"},
        {0x03BC, u"\u00B5"},
        {0x03C6, u"\u0444\u0438"},
        {0x03D5, u"\u0444\u0438"},
        // Latin letters that do not decompose
        {0x00C6, u"AE"},
        {0x00D0, u"D"},
        {0x00D8, u"O"},
        {0x00DE, u"Th"},
        {0x00DF, u"ss"},
        {0x00E6, u"ae"},
        {0x00F0, u"d"},
        {0x00F8, u"o"},
        {0x00FE, u"th"},
        {0x0110, u"D"},
        {0x0111, u"d"},
        {0x0131, u"i"},
        {0x0141, u"L"},
        {0x0142, u"l"},
        {0x0152, u"OE"},
        {0x0153, u"oe"},
    };
    static const QHash<QChar, QString> table = [] {
        QHash<QChar, QString> closest;
        for (const Row& row : rows)
            closest.insert(QChar(row.from), QString::fromUtf16(row.to));
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
