#pragma once

#include <QSyntaxHighlighter>

class QTextEdit;

/// Paints the paragraphs of a report in shades of their colours that are legible on the current theme's
/// background. The document keeps its own colours.
class ReportColours : public QSyntaxHighlighter
{
    Q_OBJECT

public:
    explicit ReportColours(QTextEdit* report);

    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void highlightBlock(const QString& text) override;

private:
    QTextEdit* m_report;
};
