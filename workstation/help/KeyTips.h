#pragma once

#include <QObject>

/// Tool tips of buttons end with the button's key, such as "Комментарии (Ctrl + M)". The tips themselves are not
/// changed; one that names the key is shown as it is.
class KeyTips : public QObject
{
    Q_OBJECT

public:
    /// Acts on the whole application.
    explicit KeyTips(QObject* parent = nullptr);

    /// The tip of a button as it is shown. Its key is its shortcut, or the property "shownKey" if another object
    /// handles the key.
    static QString tipOf(const QObject* button);

    bool eventFilter(QObject* watched, QEvent* event) override;
};
