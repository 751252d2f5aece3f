// Lets libFuzzer start from the seeds of the target, without a folder of files.

#include "FuzzTarget.h"

#include <algorithm>

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t maxSize);

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t maxSize,
                                               unsigned seed)
{
    static const std::vector<QByteArray> seeds = fuzzSeeds();
    if (size <= 1 || seed % 500 == 0) {
        const QByteArray& start = seeds[seed / 500 % seeds.size()];
        size = std::min(static_cast<std::size_t>(start.size()), maxSize);
        std::copy_n(start.begin(), size, data);
    }
    return LLVMFuzzerMutate(data, size, maxSize);
}
