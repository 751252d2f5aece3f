#pragma once

#include <QListView>
#include <QPointer>

class SuggestionModel;

/// The list of suggestions below an editor. The keyboard stays in the editor: up and down move in the list, Enter and
/// Tab take the marked row, Esc closes it. The list closes when the editor loses the keyboard.
class SuggestionPopup : public QListView
{
    Q_OBJECT

public:
    /// \a editor takes the keys; the popup belongs to it.
    SuggestionPopup(QWidget* editor, SuggestionModel* model);

    /// Shows the model's rows, or closes when there are none. With \a marked the first item is marked, so that Enter
    /// takes it; otherwise the user has to go down to it.
    void suggest(bool marked);

signals:
    /// The user has taken this row of the model; the list is closed before.
    void taken(int row);
    /// The user has asked for the list, with the down key.
    void asked();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool handleKey(int key, Qt::KeyboardModifiers modifiers);
    void take(const QModelIndex& index);
    void place();
    void mark(int row); ///< -1 marks none

    QWidget* m_editor;
    QPointer<QWidget> m_window; ///< that the editor stands in
    SuggestionModel* m_model;
};
