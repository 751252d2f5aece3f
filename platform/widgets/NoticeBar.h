#pragma once

#include "VrkExport.h"

#include <QFrame>
#include <QVector>

class QHBoxLayout;
class QLabel;

/// A line inside a window with a message or a question: an icon, a text, and a button for each possible
/// action. Hidden until it is shown; needs nothing from the window but a place.
class VRK_EXPORT NoticeBar : public QFrame
{
    Q_OBJECT

public:
    enum Kind { Information, Warning, Question, Error };
    /// One answer: the id that chosen() emits, the button's text, its object name.
    struct Choice {
        int id;
        QString text;
        QString name;
    };

    explicit NoticeBar(QWidget* parent = nullptr);

    /// Shows the bar with this text and these buttons; replaces its current content.
    void tell(Kind kind, const QString& text, const QVector<Choice>& choices = {});
    QString text() const;
    /// Moves the focus to the button of this answer.
    void focusChoice(int id);

signals:
    /// A button was pressed. The bar stays until its owner hides it.
    void chosen(int id);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    QHBoxLayout* m_layout;
    QLabel* m_icon;
    QLabel* m_text;
    QVector<QWidget*> m_buttons; ///< in the order of the answers
    QVector<int> m_ids;          ///< of the answers
};
