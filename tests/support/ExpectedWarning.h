#pragma once

#include <QRegularExpression>
#include <QtTest/qtestcase.h>

/// Lets the running test log \a times warnings that contain \a part. It fails if fewer arrive; any other warning
/// fails the whole program (tests/CMakeLists.txt).
inline void expectWarning(const QString& part, int times = 1)
{
    for (int i = 0; i < times; ++i)
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QRegularExpression::escape(part)));
}
