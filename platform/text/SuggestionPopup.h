#pragma once

#include <QListView>
#include <QPointer>

class SuggestionModel;

/// The list of suggestions below an editor. The focus stays in the editor: up and down move in the list,
/// Enter and Tab take the marked row, Esc closes it. The list closes when the editor loses the focus.
class SuggestionPopup : public QListView
{
    Q_OBJECT

public:
    /// \a editor receives the keys and owns the popup.
    SuggestionPopup(QWidget* editor, SuggestionModel* model);

    /// Shows the model's rows, or closes if there are none. Enter takes the row \a marked; with -1 the user
    /// must first move down to a row.
    void suggest(int marked);
    /// With true, Enter only takes the marked row, since the text may continue after it; otherwise the
    /// editor gets the key, too, and goes to the next field.
    void setEnterStays(bool stays) { m_enterStays = stays; }

signals:
    /// The user has chosen this row of the model; emitted after the list has closed.
    void taken(int row);
    /// The user has requested the list with the down key.
    void asked();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool handleKey(int key, Qt::KeyboardModifiers modifiers);
    void take(const QModelIndex& index);
    void place();
    void mark(int row); ///< -1 marks no row

    QWidget* m_editor;
    QPointer<QWidget> m_window; ///< the editor's window
    SuggestionModel* m_model;
    bool m_enterStays = false;
};
