#pragma once

#include <filesystem>
#include <string>

/// The file of a name, as the programs get and show names (UTF-8 on Windows, bytes elsewhere), for the standard
/// library, which knows other narrow names on Windows; of any length.
std::filesystem::path fl_path(const std::string& name);

/// The name of such a file.
std::string fl_name_of(const std::filesystem::path& path);
