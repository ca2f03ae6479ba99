// Stands in for a fuzzing engine where the compiler has none: byte strings at random for a number of seconds. Prints
// the seed of each string first when a second argument asks for it, so that a crash can be met again.
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

int main(int argc, char** argv)
{
    const double seconds = argc > 1 ? std::atof(argv[1]) : 10;
    const auto start = std::chrono::steady_clock::now();
    unsigned seed = 0;
    for (; std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count() < seconds; ++seed)
    {
        if (argc > 2)
            std::printf("%u\n", seed);
        std::mt19937 random(seed);
        std::vector<std::uint8_t> bytes(random() % 1024);
        for (std::uint8_t& byte : bytes)
            byte = static_cast<std::uint8_t>(random());
        LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
    }
    std::printf("%u byte strings\n", seed);
}
