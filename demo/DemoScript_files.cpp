#include "DemoScript.h"

#include <cmath>
#include <QDateTime>

namespace
{
/// The oscillogram of the line fault: 60 ms of load, 80 ms of fault, then nothing; one sample per
/// millisecond.
QByteArray oscillogram(qint64 time)
{
    constexpr double pi = 3.14159265358979;
    constexpr double frequency = 50;
    QByteArray text =
        "; V-110 Kirpichnaya, PS 110 kV Zarechnaya\r\n; start " +
        QDateTime::fromSecsSinceEpoch(time).toString(QStringLiteral("dd.MM.yyyy hh:mm:ss")).toLatin1() +
        "\r\n; t, ms; Ia, A; Ib, A; Ic, A; Ua, kV; DZ-II\r\n";
    for (int t = 0; t < 200; ++t) {
        const bool fault = t >= 60 && t < 140;
        const bool off = t >= 140;
        const auto wave = [t](double amplitude, int phase) {
            return amplitude * std::sin(2 * pi * (frequency * t / 1000 - phase / 3.0));
        };
        const double load = off ? 0 : 261;
        text += QByteArray::number(t) + "; " + QByteArray::number(wave(fault ? 5515 : load, 0), 'f', 0) +
                "; " + QByteArray::number(wave(load, 1), 'f', 0) + "; " +
                QByteArray::number(wave(load, 2), 'f', 0) + "; " +
                QByteArray::number(wave(fault ? 31 : 94, 0), 'f', 1) + "; " + (t >= 95 && fault ? "1" : "0") +
                "\r\n";
    }
    return text;
}
} // namespace

void DemoScript::writeFile(const DemoText::Line& line, const DemoRecord& record) const
{
    const QStringList values = line.values(3);
    m_journal->file(record.key, *person(line, values[0]), values[1],
                    values[2] == QLatin1String("oscillogram")
                        ? oscillogram(record.eventTime)
                        : DemoText::content(QStringLiteral("files/") + values[2]));
}
