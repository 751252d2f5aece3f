#include "Csv.h"

#include <algorithm>
#include <QTextCodec>

namespace
{
QString decoded(const QByteArray& bytes)
{
    QTextCodec* utf8 = QTextCodec::codecForName("UTF-8");
    QTextCodec::ConverterState state;
    const QTextCodec* marked = QTextCodec::codecForUtfText(bytes, nullptr);
    const QString text =
        marked ? marked->toUnicode(bytes) : utf8->toUnicode(bytes.constData(), bytes.size(), &state);
    if (marked || (state.invalidChars == 0 && state.remainingChars == 0))
        return text;
    return QTextCodec::codecForName("Windows-1251")->toUnicode(bytes);
}

/// Possible separators, the most likely first.
const QString candidates = QStringLiteral(";,\t");

QChar separatorOf(const QString& text)
{
    int counts[3] = {0, 0, 0};
    bool quoted = false;
    for (const QChar sign : text) {
        if (sign == QLatin1Char('"'))
            quoted = !quoted;
        else if (!quoted && (sign == QLatin1Char('\n') || sign == QLatin1Char('\r')))
            break;
        else if (!quoted && candidates.contains(sign))
            ++counts[candidates.indexOf(sign)];
    }
    int best = 0;
    for (int i = 1; i < 3; ++i)
        best = counts[i] > counts[best] ? i : best;
    return candidates.at(best);
}

/// One pass over the text.
class Reader
{
public:
    explicit Reader(const QString& text) : m_text(text), m_separator(separatorOf(text)) {}

    bool read(QVector<Csv::Row>* rows, QString* error)
    {
        while (m_at < m_text.size()) {
            Csv::Row row;
            row.line = m_line;
            bool filled = false;
            do {
                QString cell;
                if (!readCell(&cell, error))
                    return false;
                filled = filled || !cell.trimmed().isEmpty();
                row.cells << cell;
            } while (take(m_separator));
            takeLineEnd();
            if (filled)
                rows->append(row);
        }
        return true;
    }

private:
    bool atLineEnd() const
    {
        return m_at >= m_text.size() || m_text.at(m_at) == QLatin1Char('\n') ||
               m_text.at(m_at) == QLatin1Char('\r');
    }

    bool take(QChar sign)
    {
        if (m_at >= m_text.size() || m_text.at(m_at) != sign)
            return false;
        ++m_at;
        return true;
    }

    void takeLineEnd()
    {
        const bool carriage = take(QLatin1Char('\r'));
        if (take(QLatin1Char('\n')) || carriage)
            ++m_line;
    }

    bool readCell(QString* cell, QString* error)
    {
        if (!take(QLatin1Char('"'))) {
            while (!atLineEnd() && m_text.at(m_at) != m_separator)
                *cell += m_text.at(m_at++);
            return true;
        }
        const int begun = m_line;
        for (;;) {
            if (m_at >= m_text.size()) {
                *error = QStringLiteral("%1: кавычка не закрыта").arg(begun);
                return false;
            }
            if (take(QLatin1Char('"'))) {
                if (!take(QLatin1Char('"')))
                    break;
                *cell += QLatin1Char('"');
                continue;
            }
            if (atLineEnd()) {
                takeLineEnd();
                *cell += QLatin1Char('\n');
                continue;
            }
            *cell += m_text.at(m_at++);
        }
        if (atLineEnd() || m_text.at(m_at) == m_separator)
            return true;
        *error = QStringLiteral("%1: текст после закрывающей кавычки").arg(m_line);
        return false;
    }

    const QString m_text;
    const QChar m_separator;
    int m_at = 0;
    int m_line = 1;
};

/// \a special: characters that must be quoted.
QString quoted(const QString& cell, const QString& special)
{
    const bool isPlain =
        std::none_of(cell.begin(), cell.end(), [&](QChar sign) { return special.contains(sign); });
    return isPlain ? cell
                   : QLatin1Char('"') + QString(cell).replace(QLatin1Char('"'), QStringLiteral("\"\"")) +
                         QLatin1Char('"');
}
} // namespace

bool Csv::read(const QByteArray& bytes, QVector<Row>* rows, QString* error)
{
    return Reader(decoded(bytes)).read(rows, error);
}

QByteArray Csv::write(const QVector<QStringList>& rows)
{
    QString text(QChar(0xFEFF));
    // A reader takes the separator that occurs most often in the first row.
    QString special = candidates + QLatin1String("\"\r\n");
    for (const QStringList& row : rows) {
        QStringList cells;
        for (const QString& cell : row)
            cells << quoted(cell, special);
        text += cells.join(QLatin1Char(';')) + QStringLiteral("\r\n");
        special = QStringLiteral(";\"\r\n");
    }
    return text.toUtf8();
}

QString Csv::harmless(const QString& cell)
{
    // A tab or a line end before the sign does not stop a spreadsheet.
    const bool isFormula = !cell.isEmpty() && QStringLiteral("=+-@\t\r\n").contains(cell.at(0));
    return isFormula ? QLatin1Char('\'') + cell : cell;
}
