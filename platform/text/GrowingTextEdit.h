#pragma once

#include <QPlainTextEdit>

/// A plain text editor that is one line high and grows with its lines, up to a limit. Tab moves the focus
/// out of it.
class GrowingTextEdit : public QPlainTextEdit
{
    Q_OBJECT

public:
    explicit GrowingTextEdit(QWidget* parent = nullptr);

    void setLines(int atLeast, int atMost);

    QSize sizeHint() const override { return QSize(fontMetrics().averageCharWidth() * 30, height()); }
    QSize minimumSizeHint() const override
    {
        return QSize(fontMetrics().averageCharWidth() * 12, heightOf(1));
    }

protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    int heightOf(int lines) const;
    void fit();

    int m_atLeast = 1;
    int m_atMost = 8;
};
