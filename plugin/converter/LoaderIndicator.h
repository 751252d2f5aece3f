#pragma once

#include <QWidget>

class QLabel;
class QMovie;

/// Busy overlay: an animated picture with a text on a dark background, over a main window during long work.
/// Hidden until it is shown. A click closes it; the work continues.
class LoaderIndicator : public QWidget
{
    Q_OBJECT

public:
    explicit LoaderIndicator(QWidget* parent);

    void setText(const QString& text);
    /// Sets the text and shows the overlay. A parent that is a QMainWindow is covered completely and
    /// disabled until the overlay closes; any other parent, and the overlay's geometry, are unchanged.
    void show(const QString& text);
    using QWidget::show;

protected:
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    void scaleMovie();

    QLabel* m_picture;
    QLabel* m_text;
    QMovie* m_movie;
};
