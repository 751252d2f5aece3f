#include "QrCode.h"

#include <memory>
#include <QPainter>
#include <qrencode.h>

QrCode::QrCode(const QByteArray& text)
{
    const auto* bytes = reinterpret_cast<const unsigned char*>(text.constData());
    const std::unique_ptr<QRcode, decltype(&QRcode_free)> code(
        text.isEmpty() ? nullptr : QRcode_encodeData(text.size(), bytes, 0, QR_ECLEVEL_M), QRcode_free);
    if (!code)
        return;
    m_side = code->width;
    m_dark.resize(m_side * m_side);
    for (int i = 0; i < m_dark.size(); ++i)
        m_dark.setBit(i, (code->data[i] & 1) != 0);
}

void QrCode::paint(QPainter* painter, const QRectF& square) const
{
    for (int row = 0; row < m_side; ++row)
        for (int column = 0; column < m_side; ++column)
            if (isDark(column, row))
                painter->fillRect(QRectF(square.left() + square.width() * column / m_side,
                                         square.top() + square.height() * row / m_side,
                                         square.width() / m_side, square.height() / m_side),
                                  Qt::black);
}
