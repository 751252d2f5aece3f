#pragma once

#include "VrkExport.h"

#include <functional>
#include <QLabel>

class QAbstractItemView;

/// Says in an empty list or table why nothing is there, and what to do. It stands over the view's rows and lets the mouse
/// through; it is gone as soon as there is a row.
class VRK_EXPORT EmptyHint : public QLabel
{
    Q_OBJECT

public:
    /// \a text is asked each time that the view has become empty; an empty one shows nothing. The view has its model.
    EmptyHint(QAbstractItemView* view, std::function<QString()> text);

    /// What the text tells has changed.
    void refresh();

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void place();

    QAbstractItemView* m_view;
    std::function<QString()> m_ask;
};
