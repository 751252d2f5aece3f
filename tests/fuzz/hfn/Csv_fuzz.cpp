#include "Csv.h"
#include "FuzzTarget.h"

// For any bytes as a file: they are read, or refused with the line; rows that were read are the same after
// writing and reading them.

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    QVector<Csv::Row> rows;
    QString error;
    const bool isRead =
        Csv::read(QByteArray(reinterpret_cast<const char*>(data), static_cast<int>(size)), &rows, &error);
    fuzzRequire(isRead == error.isEmpty());
    if (!isRead)
        return 0;
    QVector<QStringList> cells;
    int last = 0;
    for (const Csv::Row& row : qAsConst(rows)) {
        fuzzRequire(row.line > last && !row.cells.isEmpty());
        last = row.line;
        cells.append(row.cells);
        for (QString& cell : cells.last()) {
            cell.remove(QChar::ByteOrderMark); // at the beginning of a file it is the byte order mark
            for (QChar& sign : cell)
                if (sign.isSurrogate())
                    sign = QLatin1Char('?'); // half a surrogate pair is not a text
        }
        if (cells.last().join(QString()).trimmed().isEmpty())
            cells.removeLast();
    }
    QVector<Csv::Row> again;
    fuzzRequire(Csv::read(Csv::write(cells), &again, &error));
    fuzzRequire(again.size() == cells.size());
    for (int i = 0; i < cells.size(); ++i)
        fuzzRequire(again.at(i).cells == cells.at(i));
    return 0;
}

std::vector<QByteArray> fuzzSeeds()
{
    return {QByteArrayLiteral("Key;Name;Note\r\n1;\"a;\"\"b\"\"\";\r\n\r\n2;\"line\r\nend\";x"),
            QByteArrayLiteral("\xEF\xBB\xBFone,two\n\"1,5\",2\n"), QByteArrayLiteral("a\tb\rc\td"),
            QByteArrayLiteral("\xFF\xFE"
                              "a\0;\0b\0\n\0"),
            QByteArrayLiteral("\xC0\xE1;\"\xE2\"\n\"open")};
}
