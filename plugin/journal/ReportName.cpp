#include "ReportName.h"

#include "Row.h"
#include "ShownJournal.h"

#include <QCoreApplication>

namespace
{
constexpr int firstHourOfDay = 5;
constexpr int firstHourOfNight = 17;

QString shiftName(const ShownJournal& shown, const QDateTime& start, const QTextCodec* codec)
{
    const Row own(shown.workshift);
    for (int i = 0; i < shown.shifts.data.RecCount(); ++i) {
        const Row shift(MDARec(shown.shifts.data.array, 0, i));
        const QString name = shift.text(Field::name_, codec).trimmed();
        const QTime begin = QTime(0, 0).addSecs(qRound(shift.time(Field::startTime)));
        if (!name.isEmpty() && shift.bytes(Field::DepartmentKey) == own.bytes(Field::DepartmentKey) &&
            begin == start.time())
            return name;
    }
    const int hour = start.time().hour();
    return hour >= firstHourOfDay && hour < firstHourOfNight
               ? QCoreApplication::translate("ReportName", "день")
               : QCoreApplication::translate("ReportName", "ночь");
}
} // namespace

QString reportName(const QString& department, const ShownJournal& shown, const QDateTime& start,
                   const QDateTime& end, const QTextCodec* codec)
{
    if (!start.isValid())
        return department;
    const QString format = QStringLiteral("yyyy-MM-dd");
    const QString name = QStringLiteral("%1 %2").arg(department, start.toString(format));
    if (shown.workshift)
        return name + QLatin1Char(' ') + shiftName(shown, start, codec);
    return end.isValid() && end.date() != start.date() ? name + QStringLiteral(" - ") + end.toString(format)
                                                       : name;
}
