#include "GrowingTextEdit.h"

#include <QEvent>
#include <QtMath>

GrowingTextEdit::GrowingTextEdit(QWidget* parent) : QPlainTextEdit(parent)
{
    setTabChangesFocus(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    document()->setDocumentMargin(2);
    connect(this, &QPlainTextEdit::textChanged, this, &GrowingTextEdit::fit);
    fit();
}

void GrowingTextEdit::setLines(int atLeast, int atMost)
{
    m_atLeast = atLeast;
    m_atMost = atMost;
    fit();
}

int GrowingTextEdit::heightOf(int lines) const
{
    return qCeil(lines * QFontMetricsF(font()).lineSpacing() + 2 * document()->documentMargin()) +
           2 * frameWidth() + 2;
}

void GrowingTextEdit::fit()
{
    const int lines = qRound(document()->size().height()); // the layout of plain text counts lines
    setVerticalScrollBarPolicy(lines > m_atMost ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOff);
    setFixedHeight(heightOf(qBound(m_atLeast, lines, m_atMost)));
}

void GrowingTextEdit::resizeEvent(QResizeEvent* event)
{
    QPlainTextEdit::resizeEvent(event);
    fit();
}

void GrowingTextEdit::changeEvent(QEvent* event)
{
    QPlainTextEdit::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        fit();
}
