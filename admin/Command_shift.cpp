#include "Command.h"

#include "Arguments.h"
#include "Directory.h"
#include "JsonList.h"
#include "ShiftBook.h"
#include "StoreZone.h"

namespace
{
constexpr int longestReason = 500;

void tell(const ShiftBook::Shift& shift, const QVector<ShiftBook::Correction>& corrections, QTextStream& out)
{
    out << QStringLiteral("  %1  %2  %3 - %4\n")
               .arg(QString::fromUtf8(shift.key),
                    shift.isOpen ? QStringLiteral("открыта") : QStringLiteral("закрыта"),
                    ShiftBook::shown(shift.start), ShiftBook::shown(shift.end));
    for (const ShiftBook::Correction& correction : corrections)
        out << QStringLiteral("    исправлена %1: %2\n")
                   .arg(ShiftBook::shown(correction.time), correction.reason);
}

QJsonObject jsonOf(const ShiftBook::Shift& shift, const QVector<ShiftBook::Correction>& corrections,
                   const QString& department)
{
    QJsonArray made;
    for (const ShiftBook::Correction& correction : corrections)
        made.append(QJsonObject{{QStringLiteral("time"), JsonList::time(correction.time)},
                                {QStringLiteral("reason"), correction.reason}});
    return {{QStringLiteral("department"), department},
            {QStringLiteral("key"), QString::fromUtf8(shift.key)},
            {QStringLiteral("open"), shift.isOpen},
            {QStringLiteral("start"), JsonList::time(shift.start)},
            {QStringLiteral("end"), JsonList::time(shift.end)},
            {QStringLiteral("corrections"), made}};
}

/// The shifts that may be corrected, of one department.
void tellAll(Store& store, const ShiftBook& book, const QString& department, JsonList* list, QTextStream& out,
             StoreError* error)
{
    if (!list->isWanted())
        out << department << QStringLiteral(":\n");
    for (const ShiftBook::Shift& shift : book.correctable()) {
        const auto corrections = ShiftBook::corrections(&store, shift.key, error);
        if (list->isWanted())
            list->add(jsonOf(shift, corrections, department));
        else
            tell(shift, corrections, out);
    }
}

struct Wanted {
    QString key;
    QMap<QString, QString> options; ///< "--start", "--end", "--reason"
};

/// False for anything except a key and options with their values.
bool read(const QStringList& arguments, Wanted* wanted)
{
    for (int i = 0; i < arguments.size(); ++i) {
        const QString& word = arguments[i];
        if (!word.startsWith(QLatin1String("--"))) {
            if (!wanted->key.isEmpty())
                return false;
            wanted->key = word;
        } else if (QStringList{QStringLiteral("--start"), QStringLiteral("--end"), QStringLiteral("--reason")}
                       .contains(word) &&
                   i + 1 < arguments.size() && !wanted->options.contains(word)) {
            wanted->options.insert(word, arguments[++i].simplified());
        } else {
            return false;
        }
    }
    return !wanted->key.isEmpty() && wanted->options.contains(QStringLiteral("--reason")) &&
           wanted->options.size() > 1;
}

Command::ExitCode correct(Store& store, const ShiftBook& book, const ShiftBook::Shift& shift,
                          const QMap<QString, QString>& options, Streams& streams)
{
    ShiftBook::Shift mended = shift;
    for (const auto& [option, time] : {std::pair<const char*, double*>("--start", &mended.start),
                                       std::pair<const char*, double*>("--end", &mended.end)}) {
        const QString text = options.value(QLatin1String(option));
        if (text.isNull())
            continue;
        *time = Arguments::timeOf(text);
        if (*time == 0) {
            streams.err << QStringLiteral("«%1» не время вида дд.ММ.гггг чч:мм.\n").arg(text);
            return Command::Failed;
        }
    }
    const QString reason = options.value(QStringLiteral("--reason"));
    const QString refusal = reason.isEmpty() ? QStringLiteral("Скажите, почему смена исправляется: --reason.")
                            : reason.size() > longestReason
                                ? QStringLiteral("Причина длиннее %1 знаков.").arg(longestReason)
                            : mended.start == shift.start && mended.end == shift.end
                                ? QStringLiteral("Смена уже начинается и кончается в это время.")
                                : book.refusal(shift.key, mended.start, mended.end, store.longestShift());
    StoreError error;
    if (!refusal.isEmpty()) {
        streams.err << refusal << QLatin1Char('\n');
        return Command::Failed;
    }
    if (!ShiftBook::correct(&store, shift.key, mended.start, mended.end, reason, &error))
        return Command::fail(streams, error);
    tell(mended, ShiftBook::corrections(&store, shift.key, &error), streams.out);
    return Command::Success;
}
} // namespace

Command::ExitCode Command::shift(const QStringList& all, Streams& streams)
{
    QStringList arguments = all;
    JsonList list(&arguments);
    Wanted wanted;
    const bool isList = arguments.size() == 2 && arguments[1] == QLatin1String("list");
    if (!isList && (arguments.size() < 2 || arguments[1] != QLatin1String("correct") ||
                    !read(arguments.mid(2), &wanted) || list.isWanted()))
        return WrongUsage;
    StoreError error;
    Store::Options options;
    options.loader = !isList;
    const auto store = Store::open(arguments[0], options, &error);
    Directory directory;
    if (!store || !directory.load(store.get(), &error))
        return fail(streams, error);
    const StoreZone zone(*store);
    for (const DirectoryRow* department : directory.rows("Departments")) {
        ShiftBook book;
        if (!book.load(store.get(), department->key, &error))
            return fail(streams, error);
        if (isList) {
            tellAll(*store, book, directory.label("Departments", *department), &list, streams.out, &error);
        } else if (const ShiftBook::Shift* shift = book.find(wanted.key.toUtf8())) {
            return correct(*store, book, *shift, wanted.options, streams);
        }
    }
    if (error)
        return fail(streams, error);
    if (list.isWanted())
        list.print(streams.out);
    if (isList)
        return Success;
    streams.err
        << QStringLiteral("Смены «%1» нет. Коды показывает vrk-admin shift URL list.\n").arg(wanted.key);
    return Failed;
}
