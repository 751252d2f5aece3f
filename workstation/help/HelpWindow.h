#pragma once

#include "GuideText.h"

#include <QDialog>

class HelpBrowser;
class QLabel;
class QLineEdit;
class QToolButton;
class QTreeWidget;

/// The window of the guide: its contents on the left, its text on the right, a search over all of it.
class HelpWindow : public QDialog
{
    Q_OBJECT

public:
    explicit HelpWindow(QWidget* parent = nullptr);

    const GuideText& guide() const { return m_guide; }
    /// Shows the window at a section; a negative number leaves the place as it is.
    void showSection(int section);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    QToolButton* newStep(const char* name, const QString& icon, const QString& text, const QKeySequence& key,
                         int step);
    void fillContents();
    void search();
    void step(int by);
    void showCount();

    GuideText m_guide;
    QLineEdit* m_search;
    QLabel* m_count;
    QToolButton* m_previous;
    QToolButton* m_next;
    QTreeWidget* m_contents;
    HelpBrowser* m_browser;
    int m_hits = 0;
    int m_hit = -1;
};
