#include "Sheet.h"

#include "AdminText.h"

#include <algorithm>

namespace
{
/// Reads sheets.txt, which describes its words. A fault in it aborts the program.
QVector<Sheet> readSheets()
{
    // In the order of the enumerations.
    static const QStringList kinds =
        QStringLiteral("text verbatim safety-group flag time reference scope equipment-kind rights notation "
                       "template-flag template-marker template-command code")
            .split(QLatin1Char(' '));
    static const QStringList uses{QString(), QStringLiteral("required"), QStringLiteral("identity"),
                                  QStringLiteral("identified")};
    QVector<Sheet> sheets;
    int number = 0;
    for (const QString& line : AdminText::content("sheets.txt").split(QLatin1Char('\n'))) {
        ++number;
        if (line.isEmpty() || line.startsWith(QLatin1Char('#')))
            continue;
        const QStringList parts = line.split(QStringLiteral(" | "));
        if (line.startsWith(QLatin1String("== ")) && parts.size() > 2) {
            sheets.append({parts[0].mid(3), parts[1], parts[2].toLatin1(), {}, parts.size() > 3});
            continue;
        }
        const QString kindWord = parts.value(2).section(QLatin1Char(' '), 0, 0);
        const int kind = kinds.indexOf(kindWord);
        const int use = uses.indexOf(parts.value(3));
        if (sheets.isEmpty() || kind < 0 || use < 0)
            qFatal("sheets.txt, line %d: \"%s\" is no column", number, qPrintable(line));
        const QByteArray field = parts[1] == QLatin1String("-") ? QByteArray() : parts[1].toLatin1();
        sheets.last().columns.append({parts[0], field, static_cast<SheetColumn::Kind>(kind), use,
                                      parts[2].mid(kindWord.size() + 1).toLatin1()});
    }
    return sheets;
}

/// The number of characters to insert, delete or replace.
int distance(const QString& from, const QString& to)
{
    QVector<int> row(to.size() + 1);
    for (int i = 0; i < row.size(); ++i)
        row[i] = i;
    for (int i = 0; i < from.size(); ++i) {
        int diagonal = row[0];
        row[0] = i + 1;
        for (int k = 0; k < to.size(); ++k) {
            const int changed = diagonal + (from.at(i) == to.at(k) ? 0 : 1);
            diagonal = row[k + 1];
            row[k + 1] = std::min({changed, row[k] + 1, row[k + 1] + 1});
        }
    }
    return row.constLast();
}
} // namespace

const SheetColumn* Sheet::column(const QString& heading) const
{
    for (const SheetColumn& one : columns) {
        if (one.heading.compare(heading.trimmed(), Qt::CaseInsensitive) == 0)
            return &one;
    }
    return nullptr;
}

QStringList Sheet::headings() const
{
    QStringList all;
    for (const SheetColumn& one : columns)
        all << one.heading;
    return all;
}

const QVector<Sheet>& Sheets::all()
{
    static const QVector<Sheet> sheets = readSheets();
    return sheets;
}

const Sheet& Sheets::of(const QByteArray& table)
{
    for (const Sheet& one : all()) {
        if (one.table == table)
            return one;
    }
    qFatal("No sheet for the table %s", table.constData());
}

const Sheet* Sheets::byFile(const QString& file)
{
    for (const Sheet& one : all()) {
        if (one.file.compare(file, Qt::CaseInsensitive) == 0)
            return &one;
    }
    return nullptr;
}

const QStringList& Sheets::rights()
{
    static const QStringList known{
        QStringLiteral("ADMINISTRATOR"), QStringLiteral("ADMINISTRATOR_OPERLOG_LOCAL"),
        QStringLiteral("SQL_EXEC"),      QStringLiteral("SQL_REQUEST"),
        QStringLiteral("TBL_REQUEST"),   QStringLiteral("TBL_UPDATE")};
    return known;
}

QString Sheets::nearest(const QString& word, const QStringList& known)
{
    constexpr int shortestBeginning = 3;
    for (const QString& one : known) {
        if (word.size() >= shortestBeginning && one.startsWith(word, Qt::CaseInsensitive))
            return one;
    }
    QString best;
    int least = std::max(2, int(word.size()) / 2);
    for (const QString& one : known) {
        const int steps = distance(word.toCaseFolded(), one.toCaseFolded());
        if (steps <= least && (best.isEmpty() || steps < least)) {
            best = one;
            least = steps;
        }
    }
    return best;
}
