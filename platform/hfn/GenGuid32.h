#pragma once

#include "VrkExport.h"

#include <QByteArray>

/// A new key: 32 upper-case hexadecimal digits from the system's cryptographic random source.
VRK_EXPORT QByteArray GenGuid32();
