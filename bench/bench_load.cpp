// Reading mesh files: into blocks that can be drawn, beside a bare read of the same bytes and a bare pass over their
// numbers; growth with the number of triangles; and, where the viewer f3d and Xvfb are installed, from the start of
// gr-viewer to the first picture on disk beside f3d.
#include "benchTiming.h"

#include "msMeshFile.h"
#include "msTarnFile.h"
#include "spPart.h"

#include "giAngleDegrees.h"

#include <signal.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace
{
const char* const formats[] = {"stl", "ply", "obj", "tarn"};
constexpr int repetitions = 5;

int triangles_of(const ms_blocks& blocks)
{
    int sum = 0;
    for (const auto& block : blocks)
        sum += block->triangle_count();
    return sum;
}

// A wavy grid of about so many triangles.
ms_blocks grid(double triangles)
{
    const int side = std::max(2, static_cast<int>(std::sqrt(triangles / 2)));
    ms_blocks blocks;
    blocks.push_back(std::make_unique<giTriBlock>());
    giTriBlock& block = *blocks.back();
    std::vector<giPoint3> nodes;
    for (int i = 0; i <= side; ++i)
        for (int j = 0; j <= side; ++j)
        {
            const double x = 200.0 * i / side, y = 100.0 * j / side;
            nodes.emplace_back(x, y, 5 * std::sin(x / 7) * std::cos(y / 5));
            if (i == side || j == side)
                continue;
            const int node = i * (side + 1) + j;
            block.triangles().emplace_back(node, node + side + 1, node + 1);
            block.triangles().emplace_back(node + side + 1, node + side + 2, node + 1);
        }
    block.nodes() = giBoxArrPoint3(std::move(nodes));
    return blocks;
}

// PLY and STL without normals, OBJ and tarn with what the blocks have.
std::string write(const ms_blocks& blocks, const std::string& folder, const std::string& format)
{
    const std::string file = folder + "/mesh." + format;
    std::string error;
    ms_blocks bare;
    for (const auto& block : blocks)
    {
        bare.push_back(std::make_unique<giTriBlock>(*block));
        if (format != "ply")
            continue;
        bare.back()->remove_normals();
        bare.back()->remove_texture_coordinates();
    }
    if (!(format == "tarn" ? ms_write_tarn(file, bare, error) : ms_write(file, bare, error)))
    {
        std::fprintf(stderr, "bench_load: %s\n", error.c_str());
        std::exit(EXIT_FAILURE);
    }
    return file;
}

double load_seconds(const std::string& file, int expected)
{
    ms_blocks blocks;
    std::string error;
    const double time = seconds(
        [&]
        {
            if (ms_readable(file))
                ms_read(file, giAngleDegrees(30), blocks, error);
            else
                ms_read_tarn(file, blocks, error);
        });
    if (triangles_of(blocks) != expected)
    {
        std::fprintf(stderr, "bench_load: %s was not read as written: %s\n", file.c_str(), error.c_str());
        std::exit(EXIT_FAILURE);
    }
    return time;
}

std::vector<char> bytes_of(const std::string& file)
{
    std::vector<char> bytes(std::filesystem::file_size(file));
    std::ifstream(file, std::ios::binary).read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    return bytes;
}

// The sum of the numbers of a file: of text, or of floats one after the other.
double bare_pass(const std::vector<char>& bytes, bool text)
{
    double sum = 0;
    const char* const end = bytes.data() + bytes.size();
    if (!text)
        for (const char* at = bytes.data(); at + sizeof(float) <= end; at += sizeof(float))
        {
            float value;
            std::memcpy(&value, at, sizeof value);
            sum += value;
        }
    for (const char* at = bytes.data(); text && at < end;)
    {
        double value = 0;
        const auto [behind, status] = std::from_chars(at, end, value);
        sum += status == std::errc() ? value : 0;
        at = std::max(behind, at + 1);
    }
    return sum;
}

template <class Work>
double best(Work work, int times = repetitions)
{
    double least = work();
    for (int i = 1; i < times; ++i)
        least = std::min(least, work());
    return least;
}

// The best of several runs.
struct Run
{
    double seconds = 1e30;
    double processor_seconds = 1e30; // of it and of processes of its own
    double megabytes = 0;            // the most that one of them had
};

// Runs a program, output thrown away; seconds stay when it fails.
void run(const std::vector<std::string>& words, Run& run)
{
    std::vector<char*> arguments;
    for (const std::string& word : words)
        arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);
    int status = 0;
    rusage usage = {};
    const double time = seconds(
        [&]
        {
            const pid_t child = ::fork();
            if (child == 0)
            {
                if (!std::freopen("/dev/null", "w", stdout) || !std::freopen("/dev/null", "w", stderr))
                    ::_exit(127);
                ::execvp(arguments[0], arguments.data());
                ::_exit(127);
            }
            ::wait4(child, &status, 0, &usage);
        });
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0)
        return;
    const auto seconds_of = [](const timeval& t)
    { return static_cast<double>(t.tv_sec) + 1e-6 * static_cast<double>(t.tv_usec); };
    run.seconds = std::min(run.seconds, time);
    run.processor_seconds = std::min(run.processor_seconds, seconds_of(usage.ru_utime) + seconds_of(usage.ru_stime));
    run.megabytes = static_cast<double>(usage.ru_maxrss) / 1024;
}

// An X server without a screen, for the life of the object.
class Display
{
public:
    Display() : the_process(::fork())
    {
        if (the_process == 0)
        {
            if (!std::freopen("/dev/null", "w", stderr))
                ::_exit(127);
            ::execlp("Xvfb", "Xvfb", the_name, "-screen", "0", "1280x1024x24", nullptr);
            ::_exit(127);
        }
        ::setenv("DISPLAY", the_name, 1);
        ::sleep(2);
    }
    ~Display()
    {
        ::kill(the_process, SIGTERM);
        ::waitpid(the_process, nullptr, 0);
    }
    Display(const Display&) = delete;
    Display& operator=(const Display&) = delete;

private:
    const char* the_name = ":91";
    pid_t the_process;
};

bool installed(const char* program)
{
    std::string command = std::string("command -v ") + program + " >/dev/null 2>&1";
    return std::system(command.c_str()) == 0;
}

void measure_formats(const ms_blocks& part, const std::string& folder)
{
    const int expected = triangles_of(part);
    for (const std::string format : formats)
    {
        const std::string file = write(part, folder, format);
        const double load = best([&] { return load_seconds(file, expected); });
        std::vector<char> bytes;
        const double read = best([&] { return seconds([&] { bytes = bytes_of(file); }); });
        const bool text = format == "obj" || format == "tarn";
        volatile double sink = 0;
        const double pass = best([&] { return seconds([&] { sink = bare_pass(bytes, text); }); });
        std::printf("%-4s %8d triangles, %6.1f MB: loaded in %.3f s; bare read %.3f s, bare pass %.3f s: ratio %.1f\n",
                    format.c_str(), expected, static_cast<double>(bytes.size()) / 1e6, load, read, pass,
                    load / (read + pass));
        std::fflush(stdout);
    }
}

void measure_growth(double most, const std::string& folder)
{
    for (const std::string format : formats)
    {
        std::printf("%-4s growth:", format.c_str());
        double last = 0, slope = 0;
        for (double n = 1e3; n <= 1.01 * most; n *= 10)
        {
            const ms_blocks blocks = grid(n);
            const int expected = triangles_of(blocks);
            const std::string file = write(blocks, folder, format);
            const double load = best([&] { return load_seconds(file, expected); }, n > 1e6 ? 1 : 3);
            slope = last > 0 ? std::log10(load / last) : 0;
            last = load;
            std::printf(" 10^%.0f %.4f s;", std::log10(n), load);
            std::fflush(stdout);
        }
        std::printf(" slope of the last step %.2f (goal 1.1)\n", slope);
    }
}

// From the start of the process to the first picture on disk, turn and turn about.
void compare_viewers(const ms_blocks& part, const std::string& programs, const std::string& folder)
{
    if (!installed("f3d") || !installed("Xvfb"))
    {
        std::printf("first picture: f3d and Xvfb are not both installed, nothing to compare with\n");
        return;
    }
    const Display display;
    const std::string session = folder + "/still.session";
    std::ofstream(session) << "gr-session 1\nsize 960 720\nviews 1\n0 picture still\n";
    for (const std::string format : formats)
    {
        const std::string file = write(part, folder, format);
        Run ours, theirs;
        for (int i = 0; i < repetitions; ++i)
        {
            run({programs + "/gr-viewer", "--offscreen", "--play", session, "--out", folder + "/out", file}, ours);
            if (format != "tarn")
                run({"f3d", "--dry-run", "--resolution", "960,720", "--output", folder + "/f3d.png", file}, theirs);
        }
        std::printf("%-4s first picture: gr-viewer %.2f s, CPU %.2f s, %.0f MB", format.c_str(), ours.seconds,
                    ours.processor_seconds, ours.megabytes);
        if (theirs.seconds < 1e30)
            std::printf("; f3d %.2f s, CPU %.2f s, %.0f MB: ratio %.2f (goal 0.70), CPU %.2f", theirs.seconds,
                        theirs.processor_seconds, theirs.megabytes, ours.seconds / theirs.seconds,
                        ours.processor_seconds / theirs.processor_seconds);
        std::printf("\n");
        std::fflush(stdout);
    }
}
}

int main(int argc, char** argv)
{
    const int triangles = argc > 1 ? std::max(20000, std::atoi(argv[1])) : 871414;
    const double most = argc > 2 ? std::max(1e4, std::atof(argv[2])) : 1e6;
    char name[] = "/tmp/bench_load_XXXXXX";
    if (!::mkdtemp(name))
        return EXIT_FAILURE;
    const std::string programs = std::filesystem::path(argv[0]).parent_path().string();
    const ms_blocks part = sp_make_part(triangles);
    compare_viewers(part, programs.empty() ? "." : programs, name);
    measure_formats(part, name);
    measure_growth(most, name);
    std::filesystem::remove_all(name);
    return EXIT_SUCCESS;
}
