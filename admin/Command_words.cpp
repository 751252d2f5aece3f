#include "Command.h"

#include "JsonList.h"
#include "StoreAdmin.h"

#include <algorithm>

namespace
{
const QString folder = QStringLiteral("words");
const QString name = QStringLiteral("ru");
constexpr int longestWord = 60;

/// Cyrillic letters with hyphens between them: only these are examined in texts.
bool isWord(const QString& text)
{
    const bool isOnlyLetters = std::all_of(text.begin(), text.end(), [](QChar character) {
        return character.script() == QChar::Script_Cyrillic || character == QLatin1Char('-');
    });
    return isOnlyLetters && !text.isEmpty() && text.size() <= longestWord &&
           !text.startsWith(QLatin1Char('-')) && !text.endsWith(QLatin1Char('-'));
}
} // namespace

Command::ExitCode Command::words(const QStringList& all, Streams& streams)
{
    QStringList arguments = all;
    JsonList list(&arguments);
    if (arguments.size() < 2 || (list.isWanted() && arguments[1] != QLatin1String("list")))
        return WrongUsage;
    const QString& url = arguments[0];
    const QString& verb = arguments[1];
    const QStringList named = arguments.mid(2);
    const bool isList = verb == QLatin1String("list") && named.isEmpty();
    const bool isAdding = verb == QLatin1String("add");
    if (!isList && (named.isEmpty() || (!isAdding && verb != QLatin1String("remove"))))
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
        for (const QString& word : qAsConst(kept)) {
            if (list.isWanted())
                list.add({{QStringLiteral("word"), word}});
            else
                streams.out << word << QLatin1Char('\n');
        }
        if (list.isWanted())
            list.print(streams.out);
        return Success;
    }
    for (const QString& word : named) {
        if (isAdding && !isWord(word)) {
            streams.err << QStringLiteral("«%1» не слово из русских букв.\n").arg(word);
            return Failed;
        }
        kept.removeAll(word);
        if (isAdding)
            kept.append(word);
    }
    kept.sort();
    const QByteArray bytes = kept.join(QLatin1Char('\n')).toUtf8();
    return outcome(kept.isEmpty() ? StoreAdmin::removeFile(url, folder, name, &error)
                                  : StoreAdmin::putFile(url, folder, name, bytes + '\n', &error),
                   streams, error);
}
