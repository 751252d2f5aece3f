#pragma once

#include <QTest>

/// Types a text into a widget, one press and release for each character. QTest's own keyClicks supports
/// only ASCII.
inline void typeText(QWidget* widget, const QString& text)
{
    for (const QChar character : text)
        QTest::sendKeyEvent(QTest::Click, widget, Qt::Key_unknown, QString(character), Qt::NoModifier);
}
