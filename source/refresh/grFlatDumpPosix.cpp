#include "grFlatDump.h"

#include <filesystem>

std::string gr_default_flat_dump_prefix()
{
    std::error_code error;
    std::filesystem::path folder = std::filesystem::temp_directory_path(error);
    if (error)
        folder = "/tmp";
    return (folder / "flat_").string();
}
