#include "ReportColours.h"

#include "Contrast.h"

#include <QEvent>
#include <QTextEdit>

ReportColours::ReportColours(QTextEdit* report) : QSyntaxHighlighter(report->document()), m_report(report)
{
    report->installEventFilter(this);
}

void ReportColours::highlightBlock(const QString&)
{
    const QPalette palette = m_report->palette();
    const QTextBlock block = currentBlock();
    for (auto it = block.begin(); !it.atEnd(); ++it) {
        const QTextFragment fragment = it.fragment();
        const QTextCharFormat given = fragment.charFormat();
        const QColor color = given.hasProperty(QTextFormat::ForegroundBrush) ? given.foreground().color()
                                                                             : palette.color(QPalette::Text);
        const QColor ground = given.hasProperty(QTextFormat::BackgroundBrush) ? given.background().color()
                                                                              : palette.color(QPalette::Base);
        const QColor legible = Contrast::legible(color, ground);
        if (legible == color)
            continue;
        QTextCharFormat shown = given;
        shown.setForeground(legible);
        setFormat(fragment.position() - block.position(), fragment.length(), shown);
    }
}

bool ReportColours::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_report && event->type() == QEvent::PaletteChange)
        rehighlight();
    return QSyntaxHighlighter::eventFilter(watched, event);
}
