#include "apProgram.h"

#include <filesystem>

apPathName ap_program_folder()
{
    std::error_code code;
    return apPathName(std::filesystem::read_symlink("/proc/self/exe", code).parent_path().string());
}
