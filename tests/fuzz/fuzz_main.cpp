// Stands in for a fuzzing engine: fuzz_NAME RUNS [FOLDER [names]] tries the files of a folder and then so many byte
// strings with the seeds 0, 1, 2..., half of them at random and half changed from those files. With a third argument it
// names each of them first, so that the last line before a crash tells which it was.
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace
{
using Bytes = std::vector<std::uint8_t>;

std::vector<Bytes> files_of(const char* folder)
{
    std::vector<std::filesystem::path> paths;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        paths.push_back(entry.path());
    std::sort(paths.begin(), paths.end());
    std::vector<Bytes> files;
    for (const auto& path : paths)
    {
        std::ifstream file(path, std::ios::binary);
        files.emplace_back(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
    }
    return files;
}

Bytes random_bytes(std::mt19937& random)
{
    Bytes bytes(random() % 1024);
    std::generate(bytes.begin(), bytes.end(), [&random] { return static_cast<std::uint8_t>(random()); });
    return bytes;
}

// Some bytes replaced, and perhaps a piece left out or there twice.
Bytes changed(Bytes bytes, std::mt19937& random)
{
    const char likely[] = "0123456789-+.e *#:\n\r\t";
    for (unsigned n = random() % 4; n > 0 && !bytes.empty(); --n)
        bytes[random() % bytes.size()] = static_cast<std::uint8_t>(random() % 4 ? likely[random() % 21] : random());
    const auto first = static_cast<std::ptrdiff_t>(random() % (bytes.size() + 1));
    const auto last =
        first + static_cast<std::ptrdiff_t>(random() % (bytes.size() + 1 - static_cast<std::size_t>(first)));
    const Bytes piece(bytes.begin() + first, bytes.begin() + last);
    const unsigned choice = random() % 4;
    if (choice == 0)
        bytes.erase(bytes.begin() + first, bytes.begin() + last);
    if (choice == 1)
        bytes.insert(bytes.begin() + first, piece.begin(), piece.end());
    return bytes;
}

void run(const Bytes& bytes, bool named, const char* kind, unsigned number)
{
    if (named)
        std::fprintf(stderr, "%s %u\n", kind, number);
    LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
}
}

int main(int argc, char** argv)
{
    const unsigned runs = argc > 1 ? static_cast<unsigned>(std::atoi(argv[1])) : 1000;
    const std::vector<Bytes> corpus = argc > 2 ? files_of(argv[2]) : std::vector<Bytes>();
    for (unsigned i = 0; i < corpus.size(); ++i)
        run(corpus[i], argc > 3, "file", i);
    for (unsigned seed = 0; seed < runs; ++seed)
    {
        std::mt19937 random(seed);
        const bool from_file = seed % 2 && !corpus.empty();
        run(from_file ? changed(corpus[random() % corpus.size()], random) : random_bytes(random), argc > 3, "seed",
            seed);
    }
    std::printf("%zu files and %u byte strings\n", corpus.size(), runs);
}
