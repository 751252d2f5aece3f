#pragma once

#include <QObject>

/// Gives buttons that show a picture only the name that a screen reader says: their tool tip, without the keys. Names that a
/// window gives itself stay.
class AccessibleNames : public QObject
{
    Q_OBJECT

public:
    /// Watches the whole application as long as it lives.
    explicit AccessibleNames(QObject* parent = nullptr);

    bool eventFilter(QObject* watched, QEvent* event) override;
};
