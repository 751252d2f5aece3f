#include "LoaderIndicator.h"

#include <algorithm>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QMainWindow>
#include <QMovie>

namespace
{
constexpr int smallestSide = 50;
constexpr int textPoints = 16;
const QColor ground(0, 0, 0, 150);
} // namespace

LoaderIndicator::LoaderIndicator(QWidget* parent)
    : QWidget(parent),
      m_picture(new QLabel(this)),
      m_text(new QLabel(this)),
      m_movie(new QMovie(QStringLiteral(":/gifs/loader.gif"), QByteArray(), this))
{
    setObjectName(QStringLiteral("loaderIndicator"));
    m_picture->setObjectName(QStringLiteral("loaderPicture"));
    m_text->setObjectName(QStringLiteral("loaderText"));
    hide(); // a child that was not hidden would be shown with its window
    QPalette colours = palette();
    colours.setColor(QPalette::Window, ground);
    setPalette(colours);
    setAutoFillBackground(true);

    m_picture->setMovie(m_movie);
    m_picture->setAlignment(Qt::AlignCenter);
    m_text->setAlignment(Qt::AlignCenter);
    m_text->setStyleSheet(QStringLiteral(
        "border-radius: 4px; opacity: 150; background: #5F5F5F; color: #F4F4F4; padding: 10px;"));
    auto* column = new QVBoxLayout;
    column->addStretch();
    column->addWidget(m_picture);
    column->addWidget(m_text);
    column->addStretch();
    auto* row = new QHBoxLayout(this);
    row->addStretch();
    row->addLayout(column);
    row->addStretch();
}

void LoaderIndicator::setText(const QString& text)
{
    m_text->setText(text);
}

void LoaderIndicator::show(const QString& text)
{
    setText(text);
    QWidget::show();
}

void LoaderIndicator::showEvent(QShowEvent* event)
{
    if (auto* window = qobject_cast<QMainWindow*>(parentWidget())) {
        window->setEnabled(false);
        // setEnabled(true) does nothing below a disabled parent, but the overlay must receive the click
        // that closes it.
        setAttribute(Qt::WA_Disabled, false);
        setGeometry(QRect(QPoint(0, 0), window->size()));
        raise();
    }
    scaleMovie();
    QFont font = m_text->font();
    font.setPointSize(textPoints);
    m_text->setFont(font);
    m_movie->start();
    QWidget::showEvent(event);
}

void LoaderIndicator::closeEvent(QCloseEvent* event)
{
    if (auto* window = qobject_cast<QMainWindow*>(parentWidget()))
        window->setEnabled(true);
    m_movie->stop();
    m_text->clear();
    QWidget::closeEvent(event);
}

void LoaderIndicator::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    scaleMovie();
}

void LoaderIndicator::mousePressEvent(QMouseEvent* event)
{
    QWidget::mousePressEvent(event);
    close();
}

void LoaderIndicator::scaleMovie()
{
    const int side = std::max(smallestSide, std::max(width(), height()) / 100 * 3);
    m_movie->setScaledSize(QSize(side, side));
}
