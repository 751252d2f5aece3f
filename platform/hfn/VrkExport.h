#pragma once

/// Exports a symbol of a shared library of the platform; all other symbols stay hidden.
#define VRK_EXPORT __attribute__((visibility("default")))
