#pragma once

#include <QObject>

/// Gives buttons with only a picture the name that a screen reader reads: their tool tip, without the keys.
/// Names that a window sets itself are kept.
class AccessibleNames : public QObject
{
    Q_OBJECT

public:
    /// Watches the whole application as long as it exists.
    explicit AccessibleNames(QObject* parent = nullptr);

    bool eventFilter(QObject* watched, QEvent* event) override;
};
