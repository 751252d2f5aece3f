#pragma once

#include <QString>
#include <QVector>

/// The words in which two texts differ.
namespace WordDiff
{
struct Piece {
    QString text;
    bool isSame = true; ///< also in the other text
};
struct Sides {
    QVector<Piece> before;
    QVector<Piece> after;
};
/// Both texts in pieces. Between very long differing parts it compares nothing: these differ as a whole.
Sides of(const QString& before, const QString& after);
} // namespace WordDiff
