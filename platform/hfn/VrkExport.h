#pragma once

/// Marks what a shared library of the platform shows to others; everything else stays hidden.
#define VRK_EXPORT __attribute__((visibility("default")))
