#pragma once

/// The functions that every fuzz target defines. The same file is built into two programs: one driven by
/// libFuzzer (option VRK_BUILD_FUZZ), and one that runs a fixed number of seeded mutations among the tests.

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <QByteArray>
#include <vector>

/// Tries one input. A finding is a crash: a sanitizer's report or fuzzRequire().
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

/// Well-formed inputs to start from.
std::vector<QByteArray> fuzzSeeds();

/// Ends the program if a property is violated, and prints the line of the call.
inline void fuzzRequire(bool holds, const char* file = __builtin_FILE(), int line = __builtin_LINE())
{
    if (!holds) {
        std::fprintf(stderr, "%s:%d: the property does not hold\n", file, line);
        __builtin_trap();
    }
}
