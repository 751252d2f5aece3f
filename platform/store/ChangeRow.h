#pragma once

#include <QByteArray>
#include <QVector>

struct sqlite3;

/// The values of one row in the change log: a JSON array in the order of the table's fields. Doubles are
/// written with the fewest digits that restore them exactly; a blob is written as {"sha256": ..., "length":
/// ...}, never by its bytes. Equal values have equal texts.
class ChangeRow
{
public:
    /// Adds the function vrk_row(value, ...) to a connection; the log's triggers write rows with it.
    static void installFunction(sqlite3* database);

    /// A text as it stands in a row: in quotes, with only these, backslashes and control characters escaped.
    static QByteArray quoted(const QByteArray& text);

    /// Parses the text; an empty row if it is not such an array. The text must outlive the row.
    explicit ChangeRow(const QByteArray& json);

    int count() const { return m_values.size(); }
    /// The text of one value in the log, for comparison.
    QByteArray raw(int index) const { return m_values.value(index); }
    bool isNull(int index) const { return raw(index) == "null"; }
    bool isBlob(int index) const { return raw(index).startsWith('{'); }
    /// UTF-8; null if the value is no text.
    QByteArray text(int index) const;
    double number(int index) const { return raw(index).toDouble(); }

private:
    QVector<QByteArray> m_values;
};
