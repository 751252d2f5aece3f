#pragma once

#include <QObject>
#include <QPointer>

class HelpWindow;
class QWidget;

/// The help of the program: F1 in any window opens the guide at the section of that window.
class Help : public QObject
{
    Q_OBJECT

public:
    explicit Help(QObject* parent = nullptr);
    ~Help() override;

    /// Shows the guide at the section of this widget, or at the top if no section describes it.
    void showFor(const QWidget* widget);
    /// Shows the section with this title.
    void showSection(const QString& title);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    HelpWindow* window();

    QPointer<HelpWindow> m_window;
};
