#include "tnCommands.h"

#include "flProgress.h"
#include "tnCut.h"
#include "tnNumbers.h"
#include "tnVisibility.h"

#include "flMessages.h"
#include "msMeshFile.h"
#include "msTarnFile.h"
#include "spPart.h"

#include "giAngleDegrees.h"

#include <CLI/CLI.hpp>

#include <cmath>
#include <iomanip>
#include <ostream>
#include <sstream>

namespace
{
const int most_sample_triangles = 20000000;

struct tn_options
{
    std::string input;
    std::string output;
    double crease_degrees = 30;
    int triangles = 200000;
    tnCutOptions cut;
    tnVisibilityOptions visibility;
};

// What a command reports to.
struct tn_outlets
{
    std::ostream& out;
    std::ostream& notes;
    std::ostream* progress; // null: no bars
};

// Files of different formats: the one that is read would be lost.
bool replaces_input(const tn_options& options, std::string& error)
{
    if (!fl_same_file(options.input, options.output))
        return false;
    error = fl_name(options.output) + ": this is the file that is read, it would be lost";
    return true;
}

bool import_mesh(const tn_options& options, const tn_outlets& outlets, std::string& error)
{
    if (replaces_input(options, error))
        return false;
    ms_blocks blocks;
    {
        flProgress bar(outlets.progress, "reading");
        if (!ms_read(options.input, giAngleDegrees(options.crease_degrees), blocks, error, bar.reporter()))
            return false;
    }
    flProgress bar(outlets.progress, "writing");
    return ms_write_tarn(options.output, blocks, error, bar.reporter());
}

bool export_mesh(const tn_options& options, const tn_outlets& outlets, std::string& error)
{
    // Asked first: a long file should not be read for nothing.
    if (replaces_input(options, error) || !ms_check_writable(options.output, error))
        return false;
    ms_blocks blocks;
    flProgress bar(outlets.progress, "reading");
    return ms_read_tarn(options.input, blocks, error, bar.reporter()) && ms_write(options.output, blocks, error);
}

std::string three(double x, double y, double z)
{
    std::ostringstream text;
    text << std::setprecision(6) << x << ' ' << y << ' ' << z;
    return text.str();
}

void print_row(std::ostream& out, const std::string& name, long long nodes, long long triangles,
               const std::string& vectors, const std::string& texture, const giBox3& box)
{
    out << std::left << std::setw(6) << name << std::right << std::setw(11) << nodes << std::setw(11) << triangles
        << "  " << std::left << std::setw(11) << vectors << std::setw(8) << texture;
    if (box.empty())
        out << "empty\n";
    else
        out << three(box.low().x(), box.low().y(), box.low().z()) << "  to  "
            << three(box.high().x(), box.high().y(), box.high().z()) << '\n';
}

bool print_info(const tn_options& options, const tn_outlets& outlets, std::string& error)
{
    ms_blocks blocks;
    {
        flProgress bar(outlets.progress, "reading");
        if (!ms_read_tarn(options.input, blocks, error, bar.reporter()))
            return false;
    }
    outlets.out << "block       nodes  triangles  vectors    texture box\n";
    long long nodes = 0, triangles = 0;
    giBox3 box;
    int number = 0;
    for (const auto& block : blocks)
    {
        print_row(outlets.out, std::to_string(++number), block->node_count(), block->triangle_count(),
                  block->normals() ? "normals" : "curvatures", block->texture_coordinates() ? "yes" : "no",
                  block->box());
        nodes += block->node_count();
        triangles += block->triangle_count();
        box.merge(block->box());
    }
    print_row(outlets.out, "all", nodes, triangles, "", "", box);
    return true;
}

bool write_sample(const tn_options& options, const tn_outlets& outlets, std::string& error)
{
    const ms_blocks blocks = sp_make_part(options.triangles);
    flProgress bar(outlets.progress, "writing");
    return ms_write_tarn(options.output, blocks, error, bar.reporter());
}

bool cut_blocks(const tn_options& options, const tn_outlets& outlets, std::string& error)
{
    return tn_cut(options.cut, outlets.notes, outlets.progress, error);
}

bool sort_by_visibility(const tn_options& options, const tn_outlets& outlets, std::string& error)
{
    return tn_visibility(options.visibility, outlets.out, outlets.progress, error);
}

// An option whose value is so many numbers with commas between them.
CLI::Option* add_numbers(CLI::App& command, const std::string& name, std::size_t count, std::vector<double>& numbers,
                         const std::string& format, const std::string& help)
{
    return command
        .add_option_function<std::string>(
            name, [count, &numbers](const std::string& text) { tn_read_numbers(text, count, numbers); }, help)
        ->check(CLI::Validator(
            [count](const std::string& text)
            {
                std::vector<double> read;
                return tn_read_numbers(text, count, read)
                           ? std::string()
                           : "needs " + std::to_string(count) + " numbers with commas between them, not " +
                                 fl_quoted(text);
            },
            ""))
        ->type_name(format)
        ->required();
}
}

int tn_run(int argc, const char* const* argv, std::ostream& out, std::ostream& errors, int show_progress)
{
    using command = bool (*)(const tn_options&, const tn_outlets&, std::string&);
    tn_options options;
    command chosen = nullptr;
    CLI::App app("Converts triangle meshes to and from tarn files.", "gr-tarn");
    app.allow_windows_style_options(false); // what begins with a slash is a file on every system
    app.set_version_flag("--version", "gr-tarn " GR_VERSION);
    app.require_subcommand(1);

    CLI::App* importer =
        app.add_subcommand("import", "Make a tarn file of a mesh file (" + ms_readable_endings() + ")");
    importer->add_option("MESH", options.input, "File to read; its ending tells the format")->required();
    importer->add_option("TARN", options.output, "File to write; - is standard output")->required();
    importer
        ->add_option("--crease", options.crease_degrees,
                     "Where normals are computed, edges sharper than this stay sharp, in degrees")
        ->check(CLI::Range(0.0, 175.0))
        ->capture_default_str();
    importer->callback([&chosen] { chosen = import_mesh; });

    CLI::App* exporter =
        app.add_subcommand("export", "Make a mesh file (" + ms_writable_endings() + ") of a tarn file");
    exporter->add_option("TARN", options.input, "File to read")->required();
    exporter->add_option("MESH", options.output, "File to write; its ending tells the format")->required();
    exporter->callback([&chosen] { chosen = export_mesh; });

    CLI::App* info = app.add_subcommand("info", "List the blocks of a tarn file");
    info->add_option("TARN", options.input, "File to read")->required();
    info->callback([&chosen] { chosen = print_info; });

    CLI::App* sample = app.add_subcommand("sample", "Write a generated machined part");
    sample->add_option("TARN", options.output, "File to write; - is standard output")->required();
    sample->add_option("--triangles", options.triangles, "About how many triangles; the coarsest part has about 13000")
        ->check(CLI::Range(1, most_sample_triangles))
        ->capture_default_str();
    sample->callback([&chosen] { chosen = write_sample; });

    CLI::App* cut = app.add_subcommand("cut", "Cut a tarn file open along a plane");
    cut->add_option("TARN", options.cut.input, "File to read")->required();
    cut->add_option("OUT", options.cut.output, "File to write; - is standard output")->required();
    add_numbers(*cut, "--plane", 4, options.cut.plane, "NX,NY,NZ,D",
                "The plane nx x + ny y + nz z = d; the side that (nx, ny, nz) points to is kept");
    cut->add_flag("--keep-both", options.cut.keep_both, "Keep the other side as well, in blocks of its own");
    cut->add_flag("--cap", options.cut.cap, "Close the cut, with a block of its own for each side");
    cut->callback([&chosen] { chosen = cut_blocks; });

    CLI::App* visibility = app.add_subcommand("visibility", "List which side each block is seen from");
    visibility->add_option("TARN", options.visibility.input, "File to read")->required();
    add_numbers(*visibility, "--direction", 3, options.visibility.direction, "X,Y,Z", "Where the upper side is");
    visibility->add_option("--images", options.visibility.images,
                           "Folder to write the identifier images to, as they are and in colours to be told apart");
    visibility->add_option("--classes", options.visibility.classes,
                           "Tarn file to write: a block each for upper, lower, undecided and both");
    visibility->add_option("--size", options.visibility.size, "Size of the overview images in pixels")
        ->check(CLI::Range(16, 8192))
        ->capture_default_str();
    visibility->callback([&chosen] { chosen = sort_by_visibility; });

    try
    {
        app.parse(argc, argv);
    }
    catch (const CLI::ParseError& error)
    {
        return app.exit(error, out, errors) == 0 ? 0 : 2;
    }
    if (std::isnan(options.crease_degrees))
    {
        errors << "gr-tarn: --crease: nan is no angle\n";
        return 2;
    }
    std::string error;
    if (chosen(options, tn_outlets{out, errors, show_progress ? &errors : nullptr}, error))
        return 0;
    errors << "gr-tarn: " << error << '\n';
    return 1;
}
