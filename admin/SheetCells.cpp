#include "SheetCells.h"

#include "DemoTemplates.h"
#include "HfnTime.h"

#include <QRegularExpression>
#include <QStringList>

namespace
{
constexpr int secondsOfDay = 86400;

const QVector<QPair<QString, QString>>& kinds()
{
    static const QVector<QPair<QString, QString>> known{
        {QStringLiteral("substation"), QStringLiteral("подстанция")},
        {QStringLiteral("line"), QStringLiteral("линия")},
        {QStringLiteral("bay"), QStringLiteral("присоединение")}};
    return known;
}
} // namespace

QString SheetCells::flag(bool set)
{
    return set ? QStringLiteral("да") : QStringLiteral("нет");
}

QVariant SheetCells::readFlag(const QString& text)
{
    const QString word = text.trimmed().toLower();
    static const QStringList yes{QStringLiteral("да"), QStringLiteral("1"), QStringLiteral("истина"),
                                 QStringLiteral("true"), QStringLiteral("+")};
    static const QStringList no{QString(),
                                QStringLiteral("нет"),
                                QStringLiteral("0"),
                                QStringLiteral("ложь"),
                                QStringLiteral("false"),
                                QStringLiteral("-")};
    return yes.contains(word) ? QVariant(true) : no.contains(word) ? QVariant(false) : QVariant();
}

QString SheetCells::time(double seconds)
{
    if (!(seconds >= 0 && seconds <= secondsOfDay))
        return HfnTime_to_DateTime(seconds, -1).toString(QStringLiteral("dd.MM.yyyy hh:mm"));
    const int minutes = static_cast<int>(seconds) / 60;
    return QStringLiteral("%1:%2")
        .arg(minutes / 60, 2, 10, QLatin1Char('0'))
        .arg(minutes % 60, 2, 10, QLatin1Char('0'));
}

QVariant SheetCells::readTime(const QString& text)
{
    static const QRegularExpression form(
        QStringLiteral("^(?:(\\d{1,2})\\.(\\d{1,2})\\.(\\d{4}) +)?(\\d{1,2}):(\\d{2})(?::(\\d{2}))?$"));
    const QRegularExpressionMatch match = form.match(text.trimmed());
    if (!match.hasMatch())
        return {};
    const int hour = match.captured(4).toInt();
    const int minute = match.captured(5).toInt();
    const int second = match.captured(6).toInt();
    if (match.captured(1).isEmpty()) {
        const int seconds = (hour * 60 + minute) * 60 + second;
        return minute < 60 && second < 60 && seconds <= secondsOfDay ? QVariant(double(seconds)) : QVariant();
    }
    const QDate day(match.captured(3).toInt(), match.captured(2).toInt(), match.captured(1).toInt());
    const QDateTime moment(day, QTime(hour, minute, second));
    return moment.isValid() ? QVariant(DateTime_To_HfnTime(moment)) : QVariant();
}

QString SheetCells::equipmentKind(const QString& kind)
{
    for (const auto& [stored, shown] : kinds()) {
        if (stored == kind)
            return shown;
    }
    return kind;
}

QString SheetCells::readEquipmentKind(const QString& text)
{
    for (const auto& [stored, shown] : kinds()) {
        if (shown.compare(text.trimmed(), Qt::CaseInsensitive) == 0)
            return stored;
    }
    return text.simplified();
}

QString SheetCells::marker(const QString& path)
{
    for (const QString& label : DemoTemplates::markerLabels()) {
        if (DemoTemplates::markerPath(label) == path)
            return label;
    }
    return path;
}
