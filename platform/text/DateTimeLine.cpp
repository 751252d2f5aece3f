#include "DateTimeLine.h"

#include <algorithm>
#include <QKeyEvent>
#include <QRegularExpression>
#include <QVector>

namespace
{
bool hasDate(const QString& format)
{
    return format.contains(QLatin1Char('d'));
}
bool hasTime(const QString& format)
{
    return format.contains(QLatin1Char('h'), Qt::CaseInsensitive);
}

QVector<int> numbers(const QString& text)
{
    QVector<int> list;
    for (const QString& part : text.split(QRegularExpression(QStringLiteral("[^0-9]+")), Qt::SkipEmptyParts))
        list << part.toInt();
    return list;
}

/// Splits digits without separators into groups of two from the left; a last group of four is a year.
QVector<int> cut(const QString& digits, int parts)
{
    QVector<int> list;
    int at = 0;
    for (int part = 0; part < parts && at < digits.size(); ++part) {
        const int width = part == parts - 1 ? digits.size() - at : 2;
        list << digits.mid(at, width).toInt();
        at += width;
    }
    return list;
}

bool readDate(const QString& chunk, const QDate& today, QDate* date)
{
    const bool bare = chunk.size() > 2 && numbers(chunk).size() == 1;
    const QVector<int> parts = bare ? cut(chunk, 3) : numbers(chunk);
    if (parts.isEmpty() || parts.size() > 3)
        return false;
    int year = parts.size() > 2 ? parts.at(2) : today.year();
    if (year < 100)
        year += 2000;
    *date = QDate(year, parts.size() > 1 ? parts.at(1) : today.month(), parts.at(0));
    return date->isValid();
}

bool readTime(const QString& chunk, QTime* time)
{
    QString digits = chunk;
    QVector<int> parts = numbers(chunk);
    if (parts.size() == 1 && chunk.size() > 2) {
        if (digits.size() % 2 == 1)
            digits.prepend(QLatin1Char('0')); // "830" means 08:30
        parts = cut(digits, digits.size() / 2);
    }
    if (parts.isEmpty() || parts.size() > 4)
        return false;
    parts.resize(4);
    *time = QTime(parts.at(0), parts.at(1), parts.at(2), parts.at(3));
    return time->isValid();
}
/// Decides which chunks are the date and which the time. A ":" marks a time, a "." or "/" a date; bare
/// numbers are a date if a time may follow: "25 2200", "2511 22 00". A single number is a time. False:
/// there is a part too many.
bool split(const QStringList& chunks, QString* date, QString* time)
{
    static const QRegularExpression dateMarks(QStringLiteral("[./-]"));
    QStringList dates;
    QStringList times;
    QStringList bare;
    for (const QString& chunk : chunks) {
        if (chunk.contains(QLatin1Char(':')))
            times << chunk;
        else if (chunk.contains(dateMarks))
            dates << chunk;
        else
            bare << chunk;
    }
    if (!dates.isEmpty() && !times.isEmpty() && !bare.isEmpty())
        return false;
    if (!dates.isEmpty()) {
        times += bare;
    } else if (!times.isEmpty()) {
        dates += bare;
    } else {
        const auto isShort = [](const QString& chunk) { return chunk.size() <= 2; };
        const bool pairs = std::all_of(bare.begin(), bare.end(), isShort);
        const int forTime = pairs ? qMin(2, bare.size()) : (isShort(bare.last()) && bare.size() > 2 ? 2 : 1);
        times = bare.mid(bare.size() - forTime);
        dates = bare.mid(0, bare.size() - forTime);
    }
    *date = dates.join(QLatin1Char('.'));
    *time = times.join(QLatin1Char(':'));
    return true;
}
} // namespace

DateTimeLine::DateTimeLine(const QString& format, QWidget* parent)
    : QLineEdit(parent), m_format(format.isEmpty() ? QStringLiteral("dd.MM.yyyy hh:mm") : format)
{
    setPlaceholderText(shownFormat(m_format));
    setToolTip(tr("F5 — текущее время, стрелки вверх и вниз меняют число под курсором"));
}

QString DateTimeLine::shownFormat(const QString& format)
{
    QString shown;
    for (const QChar c : format) {
        switch (c.unicode()) {
        case 'd':
            shown += QChar(0x0434); // д
            break;
        case 'M':
            shown += QChar(0x041c); // М
            break;
        case 'y':
            shown += QChar(0x0433); // г
            break;
        case 'h':
        case 'H':
            shown += QChar(0x0447); // ч
            break;
        case 'm':
        case 'z':
            shown += QChar(0x043c); // м
            break;
        case 's':
            shown += QChar(0x0441); // с
            break;
        default:
            shown += c;
        }
    }
    return shown;
}

QDateTime DateTimeLine::parsed(const QString& text, const QString& format, const QDateTime& now)
{
    static const QRegularExpression others(QStringLiteral("[^0-9.:/\\- ]"));
    const QString plain = text.simplified();
    if (plain.isEmpty() || plain.contains(others))
        return QDateTime();
    const QStringList chunks = plain.split(QLatin1Char(' '));
    const bool wantsDate = hasDate(format);
    const bool wantsTime = hasTime(format);

    QString dateText;
    QString timeText;
    if (!wantsDate) {
        timeText = chunks.join(QLatin1Char(':')); // "21 08" and "21.08" are times here
    } else if (!wantsTime) {
        dateText = chunks.join(QLatin1Char('.'));
    } else if (!split(chunks, &dateText, &timeText)) {
        return QDateTime();
    }
    if (wantsTime && timeText.isEmpty())
        return QDateTime();
    QDate date = now.date();
    QTime time(0, 0);
    if ((!dateText.isEmpty() || !wantsTime) && !readDate(dateText, now.date(), &date))
        return QDateTime();
    if (!timeText.isEmpty() && !readTime(timeText, &time))
        return QDateTime();
    return QDateTime(date, time);
}

QDateTime DateTimeLine::time() const
{
    return parsed(text(), m_format, now());
}

void DateTimeLine::complete()
{
    const QDateTime understood = time();
    if (!understood.isValid())
        return;
    const QString complete = understood.toString(m_format);
    if (complete != text()) {
        setText(complete);
        emit textEdited(complete);
    }
}

void DateTimeLine::setNow()
{
    setText(now().toString(m_format));
    emit textEdited(text());
}

void DateTimeLine::step(int by)
{
    if (text().trimmed().isEmpty()) {
        setNow();
        return;
    }
    const int position = cursorPosition();
    complete();
    QDateTime value = time();
    if (!value.isValid())
        return;
    int at = qMin(position, m_format.size() - 1);
    while (at > 0 && !m_format.at(at).isLetter())
        --at;
    switch (m_format.at(at).unicode()) {
    case 'd':
        value = value.addDays(by);
        break;
    case 'M':
        value = value.addMonths(by);
        break;
    case 'y':
        value = value.addYears(by);
        break;
    case 'h':
    case 'H':
        value = value.addSecs(by * 3600);
        break;
    case 'm':
        value = value.addSecs(by * 60);
        break;
    default:
        value = value.addSecs(by);
    }
    setText(value.toString(m_format));
    setCursorPosition(position);
    emit textEdited(text());
}

QSize DateTimeLine::minimumSizeHint() const
{
    const QSize hint = QLineEdit::minimumSizeHint();
    return QSize(fontMetrics().horizontalAdvance(shownFormat(m_format)) + 12, hint.height());
}

void DateTimeLine::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_F5)
        setNow();
    else if (event->key() == Qt::Key_Up)
        step(1);
    else if (event->key() == Qt::Key_Down)
        step(-1);
    else
        QLineEdit::keyPressEvent(event);
}
