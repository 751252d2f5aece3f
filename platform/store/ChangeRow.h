#pragma once

#include <QByteArray>
#include <QVector>

struct sqlite3;

/// The values of one row as the change log keeps them: a JSON array in the order of the table's fields. Doubles are
/// written with the fewest digits that give them back exactly; a blob stands there as {"sha256": ..., "length": ...},
/// never by its bytes. Equal values have equal texts.
class ChangeRow
{
public:
    /// Teaches a connection the function vrk_row(value, ...), with which the triggers of the log write rows.
    static void installFunction(sqlite3* database);

    /// Takes the text apart; an empty row when it is not such an array. The text must outlive the row.
    explicit ChangeRow(const QByteArray& json);

    int count() const { return m_values.size(); }
    /// The text of one value as it stands in the log, for comparing.
    QByteArray raw(int index) const { return m_values.value(index); }
    bool isNull(int index) const { return raw(index) == "null"; }
    bool isBlob(int index) const { return raw(index).startsWith('{'); }
    /// UTF-8; null when the value is no text.
    QByteArray text(int index) const;
    double number(int index) const { return raw(index).toDouble(); }

private:
    QVector<QByteArray> m_values;
};
