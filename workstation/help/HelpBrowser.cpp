#include "HelpBrowser.h"

#include <QAbstractTextDocumentLayout>
#include <QIcon>
#include <QRegularExpression>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextTable>

namespace
{
/// Legible in every theme: they bring the colour of the letters along.
constexpr QRgb letters = 0xFF000000;
constexpr QRgb hitColour = 0xFFFFE08A;
constexpr QRgb currentColour = 0xFFFF9632;

/// The program's own icon for a drawing of the sources; empty for other pictures.
QString iconOf(const QString& path)
{
    static const QRegularExpression drawing(QStringLiteral("/(icons|markers|vrk)/([^/]+)\\.svg$"));
    const QRegularExpressionMatch match = drawing.match(path);
    return match.hasMatch() ? QStringLiteral(":/%1/%2.png").arg(match.captured(1), match.captured(2))
                            : QString();
}
} // namespace

HelpBrowser::HelpBrowser(QWidget* parent) : QTextBrowser(parent)
{
    setOpenLinks(false);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn); // pictures that fit must not change the width again
    document()->setDocumentMargin(14);
}

void HelpBrowser::setGuide(const QString& markdown)
{
    m_hits.clear();
    document()->setMarkdown(markdown);
    document()->setUndoRedoEnabled(false);
    styleTables();
    fitPictures();
}

QVariant HelpBrowser::loadResource(int type, const QUrl& name)
{
    if (type != QTextDocument::ImageResource)
        return QTextBrowser::loadResource(type, name);
    const QString icon = iconOf(name.path());
    if (!icon.isEmpty())
        return QIcon(icon).pixmap(48);
    return QPixmap(QStringLiteral(":/help/") + name.path());
}

void HelpBrowser::styleTables()
{
    const QList<QTextFrame*> frames = document()->rootFrame()->childFrames();
    for (QTextFrame* frame : frames) {
        auto* table = qobject_cast<QTextTable*>(frame);
        if (!table)
            continue;
        QTextTableFormat format = table->format();
        format.setBorder(1);
        format.setBorderCollapse(true);
        format.setBorderBrush(palette().mid());
        format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
        format.setCellPadding(5);
        format.setCellSpacing(0);
        table->setFormat(format);
    }
}

/// A picture is at most as wide as the text, an icon as high as a line.
void HelpBrowser::fitPictures()
{
    if (m_isFitting)
        return;
    const QScopedValueRollback<bool> fitting(m_isFitting, true);
    const qreal room = viewport()->width() - 2 * document()->documentMargin() - 4;
    setPictureWidth(room);
    // The toolkit may draw pictures larger than they are said to be, depending on the dots in an inch.
    const qreal excess = document()->size().width() / viewport()->width();
    if (excess > 1)
        setPictureWidth(room / excess - 4);
    document()->markContentsDirty(0, document()->characterCount()); // pictures have other heights
}

void HelpBrowser::setPictureWidth(qreal room)
{
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
        for (auto part = block.begin(); !part.atEnd(); ++part) {
            QTextImageFormat format = part.fragment().charFormat().toImageFormat();
            if (!format.isValid())
                continue;
            const bool isIcon = !iconOf(QUrl(format.name()).path()).isEmpty();
            const auto picture =
                document()->resource(QTextDocument::ImageResource, QUrl(format.name())).value<QPixmap>();
            const qreal width = isIcon ? fontMetrics().height() * 1.3 : qMin<qreal>(room, picture.width());
            if (picture.isNull() || width < 1 || qFuzzyCompare(format.width(), width))
                continue;
            format.setWidth(width);
            format.setHeight(width * picture.height() / picture.width());
            QTextCursor cursor(block);
            cursor.setPosition(part.fragment().position());
            cursor.setPosition(part.fragment().position() + part.fragment().length(),
                               QTextCursor::KeepAnchor);
            cursor.setCharFormat(format);
            part = block.begin(); // the fragments are others now
        }
    }
}

void HelpBrowser::showHeading(int number)
{
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
        if (block.blockFormat().headingLevel() == 0 || number-- > 0)
            continue;
        setTextCursor(QTextCursor(block));
        verticalScrollBar()->setValue(int(document()->documentLayout()->blockBoundingRect(block).top()) - 6);
        return;
    }
}

int HelpBrowser::mark(const QString& words)
{
    m_hits.clear();
    m_current = -1;
    if (!words.trimmed().isEmpty()) {
        for (QTextCursor hit = document()->find(words.trimmed()); !hit.isNull();
             hit = document()->find(words.trimmed(), hit))
            m_hits.append(hit);
    }
    paintHits();
    return m_hits.size();
}

int HelpBrowser::firstVisibleHit() const
{
    const int top = cursorForPosition(QPoint(4, 4)).position();
    for (int i = 0; i < m_hits.size(); ++i) {
        if (m_hits[i].selectionStart() >= top)
            return i;
    }
    return 0;
}

void HelpBrowser::showHit(int number)
{
    if (number < 0 || number >= m_hits.size())
        return;
    m_current = number;
    paintHits();
    QTextCursor place = m_hits[number];
    place.clearSelection();
    setTextCursor(place);
    // In the middle: the sentence around it is visible, too.
    const QRect hit = cursorRect(place);
    verticalScrollBar()->setValue(verticalScrollBar()->value() + hit.center().y() - viewport()->height() / 2);
}

void HelpBrowser::paintHits()
{
    QList<QTextEdit::ExtraSelection> marks;
    for (int i = 0; i < m_hits.size(); ++i) {
        QTextEdit::ExtraSelection mark;
        mark.cursor = m_hits[i];
        mark.format.setForeground(QColor(letters));
        mark.format.setBackground(QColor(i == m_current ? currentColour : hitColour));
        marks.append(mark);
    }
    setExtraSelections(marks);
}

void HelpBrowser::resizeEvent(QResizeEvent* event)
{
    QTextBrowser::resizeEvent(event);
    fitPictures();
}

void HelpBrowser::changeEvent(QEvent* event)
{
    QTextBrowser::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        fitPictures();
    if (event->type() == QEvent::PaletteChange)
        styleTables();
}
