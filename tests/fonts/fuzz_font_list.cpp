// Byte strings as font lists, read by a reader that finds files for some of the names.
#include "grOutlineFontFamilyReader.h"
#include "grOutlineFontListElement.h"

#include "apSystemFontsOverride.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

namespace
{
namespace fs = std::filesystem;

void require(bool condition, const char* what)
{
    if (condition)
        return;
    std::fprintf(stderr, "fuzz_font_list: %s\n", what);
    std::abort();
}

// A folder with the fonts "a" to "d", which only have to exist.
class Folder
{
public:
    Folder() : the_path(fs::temp_directory_path() / ("fuzz-font-list-" + std::to_string(std::rand())))
    {
        fs::create_directories(the_path);
        for (const char* stem : {"a", "b", "c", "d"})
            for (const char* ending : {".pfa", ".pfb", ".afm"})
                std::ofstream(the_path / (std::string(stem) + ending)) << "x";
    }
    ~Folder() { fs::remove_all(the_path); }
    std::string path() const { return the_path.string(); }

    std::string write(const std::uint8_t* data, std::size_t size) const
    {
        std::ofstream(the_path / "list", std::ios::binary)
            .write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
        return (the_path / "list").string();
    }

private:
    fs::path the_path;
};
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const Folder folder;
    static const apSystemFontsOverride no_system_fonts({});
    const std::string list = folder.write(data, size);
    grOutlineFontFamilyReader reader(folder.path(), folder.path());
    int line = 77;
    const grOutlineFontFileStatus status = reader.append_font_list(list, line);
    const int lines = static_cast<int>(std::count(data, data + size, '\n')) + 1;
    require(status == 0 ? line == -1 : line >= 1 && line <= lines, "the status and the line do not fit");
    require(reader.num_families() <= lines, "there are more families than lines");
    for (int i = 0; i < reader.num_families(); ++i)
    {
        const grOutlineFontListElement& family = reader.family(i);
        require(!family.family_name().empty(), "a family has no name");
        require(family.normal_available() || family.bold_available() || family.italic_available() ||
                    family.bold_italic_available(),
                "a family has no font");
        require(family.normal_available() == !family.normal_afm().empty(), "a font has no metrics");
        require(reader.family_exists(family.font_type(), family.family_name()), "a family does not exist");
    }
    const int families = reader.num_families();
    int again = 77;
    require(reader.append_font_list(list, again) == status && again == line, "a second reading ends otherwise");
    require(reader.num_families() == families, "a second reading adds families");
    return 0;
}
