#pragma once

#include "VrkExport.h"

#include <functional>
#include <QLabel>

class QAbstractItemView;

/// Explains in an empty list or table why it is empty, and what to do. It covers the view's rows and passes
/// mouse events through; it disappears as soon as there is a row.
class VRK_EXPORT EmptyHint : public QLabel
{
    Q_OBJECT

public:
    /// \a text is called each time the view becomes empty; an empty text shows nothing. The view must have
    /// its model.
    EmptyHint(QAbstractItemView* view, std::function<QString()> text);

    /// The hint's text has changed.
    void refresh();

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void place();

    QAbstractItemView* m_view;
    std::function<QString()> m_ask;
};
