#pragma once

#include <QByteArray>
#include <QString>

/// The key of a thing in the demo journal: 32 hexadecimal digits derived from its name, so that the same
/// journal always has the same keys.
QByteArray demoKey(const QString& name);
