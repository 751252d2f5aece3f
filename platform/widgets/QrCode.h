#pragma once

#include <QBitArray>
#include <QByteArray>

class QPainter;
class QRectF;

/// A text as a QR code, for a telephone's camera.
class QrCode
{
public:
    /// At most a few hundred bytes; empty if the text is empty or too long.
    explicit QrCode(const QByteArray& text);

    /// Number of modules on each side; 0 if empty.
    int side() const { return m_side; }
    bool isDark(int column, int row) const { return m_dark.testBit(row * m_side + column); }
    /// Fills a square with black modules. The white margin of four modules is the caller's.
    void paint(QPainter* painter, const QRectF& square) const;

private:
    int m_side = 0;
    QBitArray m_dark; ///< row by row
};
