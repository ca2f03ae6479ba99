#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <set>
#include <string>

/// A folder, empty at first, that goes with the object.
class tsFolder
{
public:
    tsFolder()
    {
        // Several builds may run their tests at the same time.
        std::random_device random;
        do
            the_path = std::filesystem::path(testing::TempDir()) / ("gr_test_" + std::to_string(random()));
        while (!std::filesystem::create_directory(the_path));
    }
    tsFolder(const tsFolder&) = delete;
    tsFolder& operator=(const tsFolder&) = delete;
    ~tsFolder() { std::filesystem::remove_all(the_path); }

    std::string path() const { return the_path.string(); }
    std::string operator/(const std::string& name) const { return (the_path / name).string(); }
    /// The names of what it holds now, in order, with blanks between them.
    std::string names() const
    {
        std::set<std::string> found;
        for (const auto& entry : std::filesystem::directory_iterator(the_path))
            found.insert(entry.path().filename().string());
        std::string names;
        for (const std::string& name : found)
            names += (names.empty() ? "" : " ") + name;
        return names;
    }
    /// Answers the file's path.
    std::string write(const std::string& name, const std::string& text) const
    {
        std::ofstream(*this / name, std::ios::binary) << text;
        return *this / name;
    }
    /// Of a file in the folder, or anywhere.
    std::string text(const std::string& name) const
    {
        const bool elsewhere = std::filesystem::path(name).has_root_directory();
        std::ifstream stream(elsewhere ? name : *this / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
    }

private:
    std::filesystem::path the_path;
};
