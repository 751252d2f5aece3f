#pragma once

#include <QSyntaxHighlighter>

class QTextEdit;

/// Paints the paragraphs of a report in shades of their own colours that are legible on the ground of the theme in
/// force. The document keeps the colours that it was given.
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
