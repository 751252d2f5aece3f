#pragma once

#include <QDialog>
#include <QVector>

class QLabel;
class QLineEdit;
class QListWidget;
class QStackedWidget;
class SettingsPage;

/// The window "Настройки": pages, found by a search for the words of their settings. Changes apply and are kept
/// at once; "Вернуть как было" takes all changes back that were made since the window was opened.
class SettingsWindow : public QDialog
{
    Q_OBJECT

public:
    explicit SettingsWindow(QWidget* parent = nullptr);

    /// Appends a page; call it before the window is shown. The window owns it.
    void addPage(SettingsPage* page);
    void showPage(SettingsPage* page);

protected:
    void changeEvent(QEvent* event) override;

private:
    void fitList();
    void search(const QString& query);
    void showFailure(const QString& text);

    QLineEdit* m_search;
    QListWidget* m_list;
    QStackedWidget* m_stack;
    QLabel* m_nothing;
    QLabel* m_failure;
    QVector<SettingsPage*> m_pages;
};
