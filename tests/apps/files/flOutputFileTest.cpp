#include "flOutputFile.h"

#include "tsFolder.h"

#include <gtest/gtest.h>

#include <sys/resource.h>
#include <sys/stat.h>

#include <csignal>
#include <thread>

namespace fs = std::filesystem;

namespace
{
std::string read_pipe(const std::string& pipe)
{
    std::ifstream stream(pipe);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

// What becomes of a file that is being written when the process ends.
[[noreturn]] void write_until(const std::string& path, int signal)
{
    std::string error;
    flOutputFile file;
    file.open(path, error);
    file.stream() << "half" << std::flush;
    std::raise(signal);
    std::_Exit(0);
}

// On a disk that is full after a megabyte.
[[noreturn]] void write_too_much(const std::string& path)
{
    const rlimit limit = {1 << 20, 1 << 20};
    ::setrlimit(RLIMIT_FSIZE, &limit);
    std::string error;
    fl_write(path, std::string(2 << 20, 'x'), error);
    std::cerr << error;
    std::_Exit(error.empty());
}

// Lines after the first are added to a file that is there already, until the disk is full.
[[noreturn]] void add_too_much(const std::string& path)
{
    const rlimit limit = {1000, 1000};
    ::setrlimit(RLIMIT_FSIZE, &limit);
    std::string error;
    flOutputFile file;
    file.open(path, error);
    file.stream() << "head\n";
    file.publish(error);
    while (file.stream() << std::string(99, 'x') << '\n' << std::flush)
        ;
    std::_Exit(file.commit(error));
}
}

TEST(flOutputFile, what_was_there_stays_until_the_new_file_is_complete)
{
    const tsFolder folder;
    const std::string path = folder.write("file", "old");
    fs::permissions(path, fs::perms(0640));
    std::string error;
    {
        flOutputFile dropped;
        ASSERT_TRUE(dropped.open(path, error)) << error;
        dropped.stream() << "half" << std::flush;
    }
    EXPECT_EQ(folder.text("file"), "old");
    EXPECT_EQ(folder.names(), "file");
    {
        flOutputFile one, other;
        ASSERT_TRUE(one.open(path, error) && other.open(path, error));
        one.stream() << "one";
        other.stream() << "other";
        EXPECT_EQ(folder.text("file"), "old");
        EXPECT_TRUE(one.commit(error) && other.commit(error)) << error;
    }
    EXPECT_EQ(folder.text("file"), "other");
    EXPECT_EQ(folder.names(), "file");
    EXPECT_EQ(fs::status(path).permissions(), fs::perms(0640));
}

TEST(flOutputFile, published_contents_grow_with_every_flush)
{
    const tsFolder folder;
    std::string error;
    flOutputFile file;
    ASSERT_TRUE(file.open(folder.write("file", "old"), error));
    file.stream() << "1\n";
    EXPECT_EQ(folder.text("file"), "old");
    ASSERT_TRUE(file.publish(error)) << error;
    EXPECT_EQ(folder.text("file"), "1\n");
    file.stream() << "2\n" << std::flush;
    EXPECT_EQ(folder.text("file"), "1\n2\n");
}

TEST(flOutputFile, links_are_followed)
{
    const tsFolder folder;
    fs::create_directory(folder / "deep");
    folder.write("deep/file", "old");
    fs::create_symlink("deep/file", folder / "link");
    fs::create_symlink("new", folder / "dangling");
    std::string error;
    EXPECT_TRUE(fl_write(folder / "link", "1", error)) << error;
    EXPECT_TRUE(fl_write(folder / "dangling", "2", error)) << error;
    EXPECT_EQ(folder.text("deep/file") + folder.text("new"), "12");
    EXPECT_TRUE(fs::is_symlink(folder / "link") && fs::is_symlink(folder / "dangling"));
    EXPECT_EQ(folder.names(), "dangling deep link new");
}

TEST(flOutputFile, a_pipe_is_written_to)
{
    const tsFolder folder;
    ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
    std::string read, error;
    std::thread reader([&] { read = read_pipe(folder / "pipe"); });
    EXPECT_TRUE(fl_write(folder / "pipe", "through", error)) << error;
    reader.join();
    EXPECT_EQ(read, "through");
    EXPECT_TRUE(fs::is_fifo(folder / "pipe"));
    EXPECT_EQ(folder.names(), "pipe");
}

TEST(flOutputFile, what_is_in_the_way_is_said)
{
    const tsFolder folder;
    fs::create_symlink("circle", folder / "circle");
    std::string error;
    EXPECT_FALSE(fl_write(folder / "no/file", "x", error));
    EXPECT_NE(error.find("no/file: the file cannot be written: No such file"), std::string::npos) << error;
    EXPECT_FALSE(fl_write(folder / "circle", "x", error));
    EXPECT_FALSE(fl_write(folder / ".", "x", error));
    EXPECT_NE(error.find(".: this is a folder"), std::string::npos) << error;
    EXPECT_EQ(folder.names(), "circle");
}

TEST(flOutputFileDeathTest, nothing_unfinished_is_left_behind)
{
    const tsFolder folder;
    const std::string path = folder.write("file", "old");
    for (const int signal : {SIGINT, SIGTERM, SIGHUP})
        EXPECT_EXIT(write_until(path, signal), testing::KilledBySignal(signal), "") << signal;
    EXPECT_EXIT(write_too_much(path), testing::ExitedWithCode(0), "file: writing failed: File too large");
    EXPECT_EQ(folder.text("file"), "old");
    EXPECT_EQ(folder.names(), "file");
    EXPECT_EXIT(add_too_much(path), testing::ExitedWithCode(0), "");
    EXPECT_EQ(folder.text("file").size(), 5u + 900) << "whole lines alone";
}
