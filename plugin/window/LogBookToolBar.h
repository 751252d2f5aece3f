#pragma once

#include <functional>
#include <QToolBar>
#include <QVector>

class LogBookWidget;
class QLabel;
class QToolButton;

/// The tool bar of the journal window: buttons with menus, made from one table, and the labels with the
/// shown period and the state of the workshift.
class LogBookToolBar : public QToolBar
{
    Q_OBJECT

public:
    /// Changes go to \a home, views to the page that \a current returns (null: it is no journal).
    LogBookToolBar(LogBookWidget* home, std::function<LogBookWidget*()> current, QWidget* window);

    /// Enables what the current page allows.
    void updateControls(const LogBookWidget& page);
    /// The current page is no journal.
    void disable();
    QAction* action(const char* name) const;
    QToolButton* button(const char* name) const;

    QLabel* statusLabel() const { return m_statusLabel; }
    QLabel* intervalLabel() const { return m_intervalLabel; }
    /// The bar below, for the labels that do not fit into this one.
    QToolBar* statusRow() const { return m_statusRow; }
    /// Sets the widths of the labels, and their places in a window of this width: the buttons come first,
    /// then the interval, then the status, as far as there is space.
    void placeLabels(int width);

private:
    struct Item;
    static const Item items[];

    void append(const Item& item);
    QToolButton* newButton(const Item& item);
    QAction* newEntry(const Item& item, QToolButton* button);
    void request(const Item& item);
    /// Triggers the first entry of a button if it is enabled; \a isNext: the first one that is.
    static void triggerEntry(const QToolButton* button, bool isNext);
    void placeLabel(QAction* label, bool inBar, QAction* before);

    LogBookWidget* m_home;
    std::function<LogBookWidget*()> m_current;
    struct Shown {
        QToolButton* button; ///< also that of an entry
        QAction* entry;      ///< null for a button
    };
    QVector<Shown> m_items; ///< in the order of the table
    QToolBar* m_statusRow;
    QLabel* m_intervalLabel;
    QLabel* m_statusLabel;
    QAction* m_intervalAction = nullptr; ///< the action of the label in its bar
    QAction* m_statusAction = nullptr;   ///< the same
    QAction* m_afterInterval = nullptr;  ///< the action after the interval in the bar
};
