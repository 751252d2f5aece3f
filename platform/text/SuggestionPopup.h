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

    /// Shows the model's rows, or closes when there are none. The row \a marked is the one that Enter takes; with -1 the
    /// user has to go down to one.
    void suggest(int marked);
    /// Enter takes the marked row and no more, as the text may go on behind it; otherwise the editor gets the key too and
    /// goes on to the next field.
    void setEnterStays(bool stays) { m_enterStays = stays; }

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
    bool m_enterStays = false;
};
