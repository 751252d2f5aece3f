#pragma once

#include <QByteArray>
#include <QString>

/// The key of a thing in the demo journal: 32 hexadecimal digits that follow from its name, so that the same journal
/// comes out twice with the same keys.
QByteArray demoKey(const QString& name);
