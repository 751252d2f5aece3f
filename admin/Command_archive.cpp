#include "Command.h"

#include "AdminText.h"
#include "Arguments.h"
#include "Directory.h"
#include "LongWork.h"
#include "OldShiftsExport.h"
#include "ShiftBook.h"
#include "StoreAdmin.h"
#include "StoreZone.h"

#include <algorithm>
#include <QDateTime>

namespace
{
/// The time until which shifts ended; 0 with a message if the text is none, or one that is not over.
double limitOf(const QString& text, QTextStream& err)
{
    const bool isDay = !text.contains(QLatin1Char(':'));
    const double limit = Arguments::timeOf(isDay ? text + QStringLiteral(" 0:00") : text);
    if (limit == 0)
        err << QStringLiteral("«%1» не время вида дд.ММ.гггг или дд.ММ.гггг чч:мм.\n").arg(text);
    else if (limit > double(QDateTime::currentSecsSinceEpoch()))
        err << QStringLiteral("Это время ещё не наступило.\n");
    else
        return limit;
    return 0;
}

/// Lines such as "ЦДС: смен 12, с 01.01.2024 08:00 по 30.06.2024 08:00, записей 340, комментариев 2, файлов 1".
QString linesAbout(const QVector<OldShifts::Shift>& shifts, const Directory& directory)
{
    struct Sum {
        int shifts = 0;
        double start = 0;
        double end = 0;
        int rows[3] = {};
    };
    QMap<QByteArray, Sum> sums;
    for (const OldShifts::Shift& shift : shifts) {
        Sum& sum = sums[shift.department];
        sum.start = sum.shifts++ == 0 ? shift.start : std::min(sum.start, shift.start);
        sum.end = std::max(sum.end, shift.end);
        for (const OldShifts::Table table : {OldShifts::Files, OldShifts::Comments, OldShifts::Records})
            sum.rows[table] += shift.rows.at(table).size();
    }
    QStringList lines;
    for (auto sum = sums.cbegin(); sum != sums.cend(); ++sum) {
        const DirectoryRow* department = directory.row("Departments", sum.key());
        lines << QStringLiteral("%1: смен %2, с %3 по %4, записей %5, комментариев %6, файлов %7\n")
                     .arg(AdminText::printable(department ? directory.label("Departments", *department)
                                                          : QString::fromUtf8(sum.key())))
                     .arg(sum->shifts)
                     .arg(ShiftBook::shown(sum->start), ShiftBook::shown(sum->end))
                     .arg(sum->rows[OldShifts::Records])
                     .arg(sum->rows[OldShifts::Comments])
                     .arg(sum->rows[OldShifts::Files]);
    }
    lines.sort();
    return lines.join(QString());
}

Command::ExitCode removeAll(OldShifts* shifts, Streams& streams)
{
    int removed = 0;
    QStringList changed;
    const LongWork work("Удаление смен", shifts->leaving().size());
    for (const OldShifts::Shift& shift : shifts->leaving()) {
        StoreError error;
        const OldShifts::Outcome outcome = shifts->remove(shift, &error);
        if (outcome == OldShifts::Outcome::Failed) {
            streams.err << QStringLiteral("Убрано смен: %1 из %2; они сохранены в папке.\n")
                               .arg(removed)
                               .arg(shifts->leaving().size());
            return Command::fail(streams, error);
        }
        if (outcome == OldShifts::Outcome::Changed)
            changed << QStringLiteral("Осталась смена %1: её изменили, пока она сохранялась.\n")
                           .arg(ShiftBook::shown(shift.start));
        else
            work.advance(++removed);
    }
    streams.out << QStringLiteral("Убрано смен: %1\n").arg(removed) << changed.join(QString());
    return changed.isEmpty() ? Command::Success : Command::Failed;
}
} // namespace

Command::ExitCode Command::archive(const QStringList& arguments, Streams& streams)
{
    QStringList rest = arguments;
    const bool isWritten = Arguments::takeFlag(&rest, QStringLiteral("--write"));
    const QString before = Arguments::takeValue(&rest, QStringLiteral("--before"));
    const QString name = Arguments::takeValue(&rest, QStringLiteral("--department"));
    if (rest.size() != 2 || before.isEmpty() || rest[1].startsWith(QLatin1String("--")))
        return WrongUsage;
    StoreError error;
    const auto store = StoreAdmin::openLoader(rest[0], &error);
    Directory directory;
    if (!store || !directory.load(store.get(), &error))
        return fail(streams, error);
    const StoreZone zone(*store);
    const double limit = limitOf(before, streams.err);
    const QVector<QByteArray> found =
        name.isNull() ? QVector<QByteArray>{QByteArray()} : directory.resolve("Departments", name);
    if (found.size() != 1)
        streams.err << (found.isEmpty() ? QStringLiteral("Подразделения «%1» нет.\n")
                                        : QStringLiteral("Подразделений «%1» несколько.\n"))
                           .arg(name);
    if (limit == 0 || found.size() != 1)
        return Failed;

    OldShifts shifts(store.get());
    if (!shifts.load(limit, found.constFirst(), &error))
        return fail(streams, error);
    const QString about = linesAbout(shifts.leaving(), directory);
    streams.out << (about.isEmpty() ? QStringLiteral("Убирать нечего.\n") : about);
    if (!shifts.staying().isEmpty())
        streams.out << QStringLiteral("Остаются, потому что их записи заменены в остающихся сменах:\n")
                    << linesAbout(shifts.staying(), directory);
    if (about.isEmpty())
        return Success;
    if (!isWritten) {
        streams.out << QStringLiteral("Ничего не записано. Сохранить и убрать: --write\n");
        return Success;
    }
    if (!OldShiftsExport(store.get(), &shifts.leaving()).write(QDir(rest[1]), about, &error))
        return fail(streams, error);
    const ExitCode code = removeAll(&shifts, streams);
    streams.out << QStringLiteral("Архив: %1, проверить: python3 %2\n")
                       .arg(rest[1], QDir(rest[1]).filePath(QStringLiteral("evidence/verify.py")));
    return code;
}
