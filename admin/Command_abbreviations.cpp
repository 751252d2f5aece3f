#include "Command.h"

#include "StoreAdmin.h"

#include <algorithm>

namespace
{
const QString folder = QStringLiteral("words");
const QString name = QStringLiteral("abbreviations");
constexpr int longestShort = 30;
constexpr int longestText = 200;

/// One word of letters, digits, hyphens and full stops, beginning with a letter: it is found where a word begins.
bool isAbbreviation(const QString& text)
{
    const bool isWord = std::all_of(text.begin(), text.end(), [](QChar character) {
        return character.isLetterOrNumber() || character == QLatin1Char('-') || character == QLatin1Char('.');
    });
    return isWord && !text.isEmpty() && text[0].isLetter() && text.size() <= longestShort;
}

bool isText(const QString& text)
{
    return !text.isEmpty() && text.size() <= longestText && text == text.simplified();
}
} // namespace

Command::ExitCode Command::abbreviations(const QStringList& arguments, Streams& streams)
{
    if (arguments.size() < 2)
        return WrongUsage;
    const QString& url = arguments[0];
    const QString& verb = arguments[1];
    const QStringList named = arguments.mid(2);
    const bool isList = verb == QLatin1String("list") && named.isEmpty();
    const bool isAdding = verb == QLatin1String("add") && named.size() == 2;
    if (!isList && !isAdding && (verb != QLatin1String("remove") || named.isEmpty()))
        return WrongUsage;

    StoreError error;
    QByteArray content;
    const auto store = Store::open(url, {}, &error);
    if (store && !store->file(folder, name, &content, &error) && error.code == StoreError::NoSuchRow)
        error.clear();
    if (error)
        return fail(streams, error);
    QStringList kept = QString::fromUtf8(content).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    if (isList) {
        for (QString line : qAsConst(kept))
            streams.out << line.replace(QLatin1Char('\t'), QLatin1String(" = ")) << QLatin1Char('\n');
        return Success;
    }
    if (isAdding && !isAbbreviation(named[0])) {
        streams.err << QStringLiteral("«%1» не сокращение: одно слово из букв, цифр, точек и дефисов.\n")
                           .arg(named[0]);
        return Failed;
    }
    if (isAdding && !isText(named[1])) {
        streams.err << QStringLiteral("Полный текст — до %1 знаков в одной строке.\n").arg(longestText);
        return Failed;
    }
    const QStringList leaving = isAdding ? QStringList{named[0]} : named;
    kept.erase(std::remove_if(kept.begin(), kept.end(),
                              [&leaving](const QString& line) {
                                  return leaving.contains(line.section(QLatin1Char('\t'), 0, 0));
                              }),
               kept.end());
    if (isAdding)
        kept.append(named[0] + QLatin1Char('\t') + named[1]);
    kept.sort();
    const QByteArray bytes = kept.join(QLatin1Char('\n')).toUtf8();
    return outcome(kept.isEmpty() ? StoreAdmin::removeFile(url, folder, name, &error)
                                  : StoreAdmin::putFile(url, folder, name, bytes + '\n', &error),
                   streams, error);
}
