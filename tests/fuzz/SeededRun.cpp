// Drives a fuzz target without libFuzzer: all seeds, and mutations of them from a fixed random sequence.

#include "FuzzTarget.h"

#include <cstdio>
#include <cstdlib>
#include <random>

namespace
{
void mutate(QByteArray& input, const std::vector<QByteArray>& seeds, std::mt19937& random)
{
    const auto below = [&](int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); };
    for (int changes = 1 + below(4); changes > 0; --changes) {
        const int at = below(input.size() + 1);
        switch (below(6)) {
        case 0:
            input.insert(at, static_cast<char>(random()));
            break;
        case 1:
            input.remove(at, 1 + below(8));
            break;
        case 2:
            if (at < input.size())
                input[at] = static_cast<char>(input[at] ^ (1 << below(8)));
            break;
        case 3:
            if (at < input.size())
                input[at] = static_cast<char>(below(2) == 0 ? 0xff : 0);
            break;
        case 4:
            input.insert(at, input.mid(below(input.size() + 1), below(32)));
            break;
        default: {
            const QByteArray& other = seeds[static_cast<std::size_t>(below(static_cast<int>(seeds.size())))];
            input = input.left(at) + other.mid(below(other.size() + 1));
        }
        }
    }
}
} // namespace

int main(int argc, char** argv)
{
    const int runs = argc > 1 ? std::atoi(argv[1]) : 0;
    const std::vector<QByteArray> seeds = fuzzSeeds();
    std::mt19937 random(1);
    const auto tryOut = [](const QByteArray& input) {
        // A copy of exactly this size, so that an access beyond its end is outside the allocation.
        const std::vector<std::uint8_t> bytes(input.begin(), input.end());
        LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
    };
    tryOut(QByteArray());
    for (const QByteArray& seed : seeds)
        tryOut(seed);
    QByteArray input;
    for (int run = 0; run < runs; ++run) {
        if (run % 8 == 0 || input.size() > 20000) // a chain of eight mutations each
            input = seeds[random() % seeds.size()];
        mutate(input, seeds, random);
        tryOut(input);
    }
    std::printf("%d mutations of %d seeds\n", runs, static_cast<int>(seeds.size()));
    return 0;
}
