#include "FillerText.h"

#include <QEvent>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QTextCursor>
#include <QtMath>
#include <QUrl>

namespace
{
QColor blended(const QColor& base, const QColor& over, qreal part)
{
    const auto mix = [part](qreal a, qreal b) { return a + (b - a) * part; };
    return QColor::fromRgbF(mix(base.redF(), over.redF()), mix(base.greenF(), over.greenF()),
                            mix(base.blueF(), over.blueF()));
}

constexpr int lettersShown = 100000; ///< some fifty pages; laying out more would take seconds at every key

const QColor warm(0xe0, 0x8a, 0x00);
} // namespace

FillerText::FillerText(QWidget* parent) : QTextBrowser(parent)
{
    setAccessibleName(tr("Текст записи"));
    setOpenLinks(false);
    setFocusPolicy(Qt::ClickFocus);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard |
                            Qt::LinksAccessibleByMouse);
    document()->setDocumentMargin(6);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    setMinimumHeight(fontMetrics().lineSpacing() * 2);
    connect(this, &QTextBrowser::anchorClicked, this,
            [this](const QUrl& link) { emit parameterClicked(link.fragment().toInt()); });
}

void FillerText::showText(const QVector<TemplateText::Run>& runs, const QVector<Shown>& parameters)
{
    m_runs = runs;
    m_parameters = parameters;
    m_current = -1;
    rebuild();
    verticalScrollBar()->setValue(0);
}

void FillerText::showParameter(int index, const Shown& shown)
{
    m_parameters[index] = shown;
    rebuild();
}

void FillerText::setCurrent(int index)
{
    if (m_current != index) {
        m_current = index;
        rebuild();
    }
    if (index < 0)
        return;
    const QRect rect = parameterRect(index);
    if (rect.top() < 0 || rect.bottom() > viewport()->height())
        verticalScrollBar()->setValue(verticalScrollBar()->value() + rect.center().y() -
                                      viewport()->height() / 2);
}

QTextCharFormat FillerText::formatOf(ParameterState state, bool current) const
{
    const QPalette colors = palette();
    QTextCharFormat format;
    format.setAnchor(true);
    if (state == ParameterState::Filled) {
        format.setFontUnderline(true);
        format.setBackground(blended(colors.color(QPalette::Base), colors.color(QPalette::Highlight), 0.16));
    } else if (state == ParameterState::Unknown) {
        format.setUnderlineStyle(QTextCharFormat::WaveUnderline);
        format.setUnderlineColor(warm);
    } else {
        format.setFontItalic(true);
        format.setUnderlineStyle(QTextCharFormat::DashUnderline);
    }
    if (state == ParameterState::Missing)
        format.setBackground(blended(colors.color(QPalette::Base), warm, 0.30));
    if (current) {
        format.setBackground(colors.brush(QPalette::Active, QPalette::Highlight));
        format.setForeground(colors.brush(QPalette::Active, QPalette::HighlightedText));
    } else {
        format.setForeground(colors.brush(QPalette::Active, QPalette::Text));
    }
    return format;
}

void FillerText::rebuild()
{
    const int scrolled = verticalScrollBar()->value();
    m_positions.fill(-1, m_parameters.size());
    document()->setUndoRedoEnabled(false);
    document()->clear();
    QTextCursor cursor(document());
    cursor.beginEditBlock();
    int room = lettersShown;
    const auto insert = [&](const QString& text, const QTextCharFormat& format) {
        cursor.insertText(text.size() > room ? text.left(room) + QChar(0x2026) : text, format);
        room = qMax(0, room - text.size());
    };
    for (const TemplateText::Run& run : qAsConst(m_runs)) {
        QTextCharFormat format = TemplateText::charFormat(run.looks);
        if (run.parameter < 0) {
            insert(run.text, format);
            continue;
        }
        if (run.parameter >= m_positions.size() || m_positions.at(run.parameter) >= 0)
            continue; // if there are several passages, the first shows the value
        const Shown& shown = m_parameters.at(run.parameter);
        m_positions[run.parameter] = cursor.position();
        format.merge(formatOf(shown.state, run.parameter == m_current));
        format.setAnchorHref(QLatin1Char('#') + QString::number(run.parameter));
        const bool missing = shown.state == ParameterState::Missing;
        insert(missing ? shown.text + QStringLiteral("\u00a0*") : shown.text, format);
    }
    cursor.endEditBlock();
    verticalScrollBar()->setValue(scrolled);
}

int FillerText::neededHeight() const
{
    return qCeil(document()->size().height()) + 2 * frameWidth();
}

QRect FillerText::parameterRect(int index) const
{
    if (index < 0 || index >= m_positions.size() || m_positions.at(index) < 0)
        return QRect();
    QTextCursor cursor(document());
    cursor.setPosition(m_positions.at(index));
    cursor.movePosition(QTextCursor::NextCharacter);
    return cursorRect(cursor);
}

void FillerText::changeEvent(QEvent* event)
{
    QTextBrowser::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange)
        rebuild();
}
