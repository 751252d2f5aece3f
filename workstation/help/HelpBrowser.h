#pragma once

#include <QTextBrowser>
#include <QVector>

/// Shows the guide's Markdown: its pictures fit the window, its icons are the program's own, its tables have lines.
class HelpBrowser : public QTextBrowser
{
    Q_OBJECT

public:
    explicit HelpBrowser(QWidget* parent = nullptr);

    void setGuide(const QString& markdown);
    /// Scrolls to the heading with this number, in the order of the text.
    void showHeading(int number);
    /// Marks all occurrences of \a words, in any letter case, and returns their number. None for an empty text.
    int mark(const QString& words);
    /// Scrolls to one of the marked occurrences and marks it as the current one.
    void showHit(int number);
    /// The marked occurrence at the top of the visible text, or the first after it; 0 if there is none.
    int firstVisibleHit() const;

    QVariant loadResource(int type, const QUrl& name) override;

protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void styleTables();
    void fitPictures();
    void setPictureWidth(qreal room);
    void paintHits();

    QVector<QTextCursor> m_hits;
    int m_current = -1;
    bool m_isFitting = false;
};
