#include "FileNames.h"

#include <QTextCodec>

QString FileNames::fitted(const QString& name, const QTextCodec* codec)
{
    const QString composed = name.normalized(QString::NormalizationForm_C);
    QString result;
    for (int i = 0; i < composed.size(); ++i) {
        const bool isPair = composed.at(i).isHighSurrogate() && i + 1 < composed.size() &&
                            composed.at(i + 1).isLowSurrogate();
        const QString character = composed.mid(i, isPair ? 2 : 1);
        // half a surrogate pair confuses the code page
        const bool isWhole = isPair || !composed.at(i).isSurrogate();
        result += isWhole && codec->canEncode(character) ? character : QStringLiteral("_");
        i += isPair ? 1 : 0;
    }
    return result;
}

QString FileNames::local(const QString& name)
{
    constexpr int limit = 255; // bytes
    const int slash = qMax(name.lastIndexOf(QLatin1Char('/')), name.lastIndexOf(QLatin1Char('\\')));
    QString base = name.mid(slash + 1);
    base.remove(QChar::Null);
    if (base.isEmpty() || base == QLatin1String(".") || base == QLatin1String(".."))
        return QStringLiteral("file");

    const int dot = base.lastIndexOf(QLatin1Char('.'));
    const QString suffix = dot > 0 && base.mid(dot).toUtf8().size() < limit / 2 ? base.mid(dot) : QString();
    base.chop(suffix.size());
    while ((base + suffix).toUtf8().size() > limit)
        base.chop(base.size() > 1 && base.at(base.size() - 1).isLowSurrogate() ? 2 : 1);
    return base + suffix;
}

QString FileNames::shown(const QString& name)
{
    QString text;
    for (const QChar character : name)
        if (character.category() != QChar::Other_Format && character.category() != QChar::Other_Control)
            text += character;
    return text;
}
