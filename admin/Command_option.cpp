#include "Command.h"

#include "JsonList.h"
#include "OptionsFile.h"
#include "StoreAdmin.h"

#include <QRegularExpression>
#include <QTextCodec>

namespace
{
const QString folder = QStringLiteral("options");
const QString fileName = QStringLiteral("OperLogOptions");
const QString checkLength = QStringLiteral("CheckLengthShift");
const QString delay = QStringLiteral("DelayTime");
const QString interval = QStringLiteral("IntervalMessage");
const QString visa = QStringLiteral("VisaPassword");
/// Not in the file: the store's own rules use it.
const QString longest = QStringLiteral("LongestShift");
/// The workstations count the interval in 32-bit milliseconds.
constexpr qint64 longestSeconds = 24 * 24 * 3600;

/// "1h30m", "15m", "90s", "900"; also with Russian letters. -1 for anything else and for values that are
/// too large.
qint64 secondsOf(const QString& text)
{
    static const QRegularExpression pattern(
        QString::fromUtf8("\\A(?:([0-9]{1,7})[hч])?(?:([0-9]{1,7})[mм])?(?:([0-9]{1,7})[sс]?)?\\z"));
    const QRegularExpressionMatch match = pattern.match(text);
    if (text.isEmpty() || !match.hasMatch())
        return -1;
    const qint64 seconds = match.captured(1).toLongLong() * 3600 + match.captured(2).toLongLong() * 60 +
                           match.captured(3).toLongLong();
    return seconds <= longestSeconds ? seconds : -1;
}

QString spanOf(qint64 seconds)
{
    if (seconds < 0)
        return QString::number(seconds);
    QString text;
    for (const auto& [unit, letter] : {std::pair(3600, 'h'), std::pair(60, 'm'), std::pair(1, 's')}) {
        if (seconds >= unit)
            text += QString::number(seconds / unit) + QLatin1Char(letter);
        seconds %= unit;
    }
    return text.isEmpty() ? QStringLiteral("0s") : text;
}

/// The stored form of an option's typed value; null if the value is invalid.
QString storedValue(const QString& name, const QString& typed)
{
    if (name != checkLength && name != visa) {
        const qint64 seconds = secondsOf(typed.toLower());
        return seconds < (name == longest ? 1 : 0) ? QString() : QString::number(seconds);
    }
    const QString word = typed.toLower();
    if (word == QLatin1String("on") || word == QStringLiteral("да"))
        return QStringLiteral("1");
    return word == QLatin1String("off") || word == QStringLiteral("нет") ? QStringLiteral("0") : QString();
}

/// Reads the file of the store, an empty one if it does not exist yet, and the longest shift; on failure
/// writes the reason to the error stream.
bool fetch(const QString& url, OptionsFile* file, int* longestShift, QByteArray* codec, Streams& streams,
           StoreError* error)
{
    const auto store = Store::open(url, {}, error);
    if (!store)
        return false;
    QByteArray content;
    if (!store->file(folder, fileName, &content, error)) {
        if (error->code != StoreError::NoSuchRow)
            return false;
        error->clear();
    }
    *codec = store->codec()->name();
    *longestShift = store->longestShift();
    if (file->read(store->codec()->toUnicode(content)))
        return true;
    streams.err << QStringLiteral(
                       "Файл «%1/%2» испорчен, %3.\n"
                       "Сохраните его (vrk-admin file URL get), удалите (vrk-admin file URL remove) "
                       "и задайте настройки заново.\n")
                       .arg(folder, fileName, file->errorText());
    return false;
}

/// The number as the workstations read it: an invalid one counts as 0.
int numberOf(const OptionsFile& file, const QString& name)
{
    return file.value(name).toInt();
}

void tell(const OptionsFile& file, int longestShift, Streams& streams)
{
    const bool isOn = numberOf(file, checkLength) != 0;
    const auto tellSwitch = [&](const QString& name) {
        streams.out << name << (numberOf(file, name) != 0 ? "=on\n" : "=off\n");
    };
    tellSwitch(checkLength);
    for (const QString& name : {delay, interval})
        streams.out << name << QLatin1Char('=') << spanOf(numberOf(file, name)) << QLatin1Char('\n');
    tellSwitch(visa);
    streams.out << longest << QLatin1Char('=') << spanOf(longestShift) << QLatin1Char('\n');
    for (const QString& name : {checkLength, delay, interval, visa}) {
        bool isNumber = false;
        file.value(name).toInt(&isNumber);
        if (!file.value(name).isNull() && !isNumber)
            streams.err << QStringLiteral("%1: «%2» не число, журнал считает это нулём.\n")
                               .arg(name, file.value(name));
    }
    if (isOn && (numberOf(file, delay) <= 0 || numberOf(file, interval) <= 0))
        streams.err << QStringLiteral("Контроль включён, но молчит, пока %1 и %2 не больше нуля.\n")
                           .arg(delay, interval);
}

/// Switches as truth values, times in seconds.
void fill(JsonList* list, const OptionsFile& file, int longestShift)
{
    const auto add = [list](const QString& name, const QJsonValue& value) {
        list->add({{QStringLiteral("name"), name}, {QStringLiteral("value"), value}});
    };
    add(checkLength, numberOf(file, checkLength) != 0);
    add(delay, numberOf(file, delay));
    add(interval, numberOf(file, interval));
    add(visa, numberOf(file, visa) != 0);
    add(longest, longestShift);
}
} // namespace

Command::ExitCode Command::option(const QStringList& all, Streams& streams)
{
    QStringList arguments = all;
    JsonList list(&arguments);
    if (arguments.size() < 2 || (list.isWanted() && arguments[1] != QLatin1String("list")))
        return WrongUsage;
    const QString& url = arguments[0];
    const bool isList = arguments[1] == QLatin1String("list") && arguments.size() == 2;
    if (!isList && (arguments[1] != QLatin1String("set") || arguments.size() < 3))
        return WrongUsage;

    QMap<QString, QString> values;
    for (const QString& argument : arguments.mid(2)) {
        const QString name = argument.section(QLatin1Char('='), 0, 0);
        const QString typed = argument.section(QLatin1Char('='), 1);
        QString fault;
        if (name != checkLength && name != delay && name != interval && name != visa && name != longest)
            fault = QStringLiteral("Нет настройки «%1».").arg(name);
        else if (values.contains(name))
            fault = QStringLiteral("Настройка «%1» названа дважды.").arg(name);
        else if (storedValue(name, typed).isNull())
            fault = QStringLiteral("Настройка «%1» не принимает значение «%2».").arg(name, typed);
        if (!fault.isEmpty()) {
            streams.err << fault << QLatin1Char('\n');
            return WrongUsage;
        }
        values.insert(name, storedValue(name, typed));
    }

    OptionsFile file;
    int longestShift = 0;
    QByteArray codec;
    StoreError error;
    if (!fetch(url, &file, &longestShift, &codec, streams, &error))
        return error ? fail(streams, error) : Failed;
    if (values.contains(longest)) {
        longestShift = values.take(longest).toInt();
        if (!StoreAdmin::setLongestShift(url, longestShift, &error))
            return fail(streams, error);
    }
    if (!values.isEmpty()) {
        const QString xml = QStringLiteral("<?xml version=\"1.0\" encoding=\"%1\"?>\n")
                                .arg(QString::fromLatin1(codec).toLower()) +
                            file.with(values);
        const QByteArray content = QTextCodec::codecForName(codec)->fromUnicode(xml);
        if (!StoreAdmin::putFile(url, folder, fileName, content, &error))
            return fail(streams, error);
        file.read(xml);
    }
    if (list.isWanted()) {
        fill(&list, file, longestShift);
        list.print(streams.out);
    } else {
        tell(file, longestShift, streams);
    }
    return Success;
}
