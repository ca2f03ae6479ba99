#include "tnVisibility.h"

#include "flProgress.h"
#include "tnNumbers.h"

#include "flMessages.h"
#include "flPath.h"
#include "msTarnFile.h"
#include "pcPictureFile.h"

#include "grDiagSplitter.h"
#include "grSplit.h"
#include "grSplitBlock.h"
#include "grSplitter.h"

#include "dgGLDevice.h"
#include "dgGLWindow.h"
#include "dgImage.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <iomanip>
#include <ostream>

namespace
{
const char* const class_names[] = {"upper", "lower", "undecided", "both"};

// What decided, by grBlockDiagClass.
const char* const rule_names[] = {"overview",       "overview",         "overview",         "point zoom",
                                  "point zoom",     "point zoom",       "block zoom",       "block zoom",
                                  "block zoom",     "block zoom, thin", "block zoom, thin", "nothing vertical",
                                  "not classified", "hides itself"};

// Identifiers next to each other differ by a few steps of one channel: the same image in colours to be told apart.
dgImage coloured(const dgImage& image)
{
    dgImage result = image;
    for (int y = 0; y < image.height; ++y)
        for (int x = 0; x < image.width; ++x)
        {
            const int index = grSplit::get_pixel(image, x, y);
            if (index == grSplit::max_index())
                continue;
            // Hues a golden section apart; brightness goes round more slowly.
            const double hue = std::fmod((index + 1) * 0.6180339887498949, 1.0) * 6;
            const double value = 230 - 25 * (index / 3 % 4);
            unsigned char* rgba = result.rgba.data() + 4 * (static_cast<std::size_t>(y) * result.width + x);
            for (int channel = 0; channel < 3; ++channel)
            {
                const double distance = std::abs(std::fmod(hue + 6 - 2 * channel, 6.0) - 3);
                rgba[channel] = static_cast<unsigned char>(value * (0.3 + 0.7 * std::clamp(distance - 1, 0.0, 1.0)));
            }
        }
    return result;
}

// Keeps what the split tells, and writes the overview images.
class Observer : public grDiagSplitter
{
public:
    struct Outcome
    {
        grSplitBlock counts;
        grBlockVisClass vis = grVIS_BOTH;
        grBlockDiagClass diag = grDIAG_NOT_CLASSIFIED;
    };

    Observer(std::string folder, std::size_t n_blocks) : the_folder(std::move(folder)), the_outcomes(n_blocks) {}

    void image(const std::string& name, const dgImage& image) override
    {
        if (the_folder.empty() || !the_error.empty())
            return;
        const std::string path = fl_name_of(fl_path(the_folder) / name);
        if (pc_write_png(path + ".png", image, the_error))
            pc_write_png(path + "_coloured.png", coloured(image), the_error);
    }
    void classified(const grSplitBlock& block, grBlockVisClass vis, grBlockDiagClass diag) override
    {
        the_outcomes[static_cast<std::size_t>(block.block_index())] = {block, vis, diag};
    }

    const std::vector<Outcome>& outcomes() const { return the_outcomes; }
    const std::string& error() const { return the_error; }

private:
    std::string the_folder;
    std::vector<Outcome> the_outcomes;
    std::string the_error;
};

// Of the triangles about each node, by their areas.
std::vector<giVector3> mean_normals(const giTriBlock& block)
{
    std::vector<giVector3> normals(static_cast<std::size_t>(block.node_count()));
    for (const giTriangle& t : block.triangles())
    {
        const giPoint3& p = block.nodes()[t[0]];
        const giVector3 area = (block.nodes()[t[1]] - p).cross(block.nodes()[t[2]] - p);
        for (int k = 0; k < 3; ++k)
            normals[static_cast<std::size_t>(t[k])] += area;
    }
    for (giVector3& normal : normals)
        if (!normal.unitise())
            normal = giVector3(0, 0, 1);
    return normals;
}

// Appends a block with normals, of its own or made from its triangles.
void append(giTriBlock& all, const giTriBlock& block)
{
    const int first = all.node_count();
    std::vector<giVector3>& normals = all.create_normals();
    const std::vector<giVector3> added = block.normals() ? *block.normals() : mean_normals(block);
    for (int node = 0; node < block.node_count(); ++node)
        all.nodes().append(block.nodes()[node]);
    normals.insert(normals.end(), added.begin(), added.begin() + block.node_count());
    for (const giTriangle& t : block.triangles())
        all.triangles().emplace_back(first + t[0], first + t[1], first + t[2]);
}

int write_classes(const std::string& file, const ms_blocks& blocks, const std::vector<Observer::Outcome>& outcomes,
                  std::ostream* progress, std::string& error)
{
    ms_blocks classes;
    for (std::size_t i = 0; i < std::size(class_names); ++i)
        classes.push_back(std::make_unique<giTriBlock>());
    for (std::size_t i = 0; i < blocks.size(); ++i)
        append(*classes[outcomes[i].vis], *blocks[i]);
    for (auto& block : classes)
        block->create_normals();
    flProgress bar(progress, "writing");
    return ms_write_tarn(file, classes, error, bar.reporter());
}

// The counts of the zoom that decided a block, or of the last one that was made; dashes for none.
void print_zoom(std::ostream& out, const grSplitBlock& counts)
{
    if (counts.alone_count_block_zoom() >= 0)
        out << std::setw(10) << counts.upper_count_block_zoom() << std::setw(9) << counts.lower_count_block_zoom()
            << std::setw(9) << counts.alone_count_block_zoom();
    else if (counts.alone_count_point_zoom() >= 0)
        out << std::setw(10) << counts.upper_count_point_zoom() << std::setw(9) << counts.lower_count_point_zoom()
            << std::setw(9) << counts.alone_count_point_zoom();
    else
        out << std::setw(10) << '-' << std::setw(9) << '-' << std::setw(9) << '-';
}

void print_table(std::ostream& out, const ms_blocks& blocks, const std::vector<Observer::Outcome>& outcomes)
{
    out << "                           overview pixels                   zoom pixels\n"
           "block  triangles     upper    lower    alone     upper    lower    alone  class      rule\n";
    std::array<int, std::size(class_names)> totals{};
    for (std::size_t i = 0; i < blocks.size(); ++i)
    {
        const grSplitBlock& counts = outcomes[i].counts;
        out << std::left << std::setw(5) << i + 1 << std::right << std::setw(11) << blocks[i]->triangle_count()
            << std::setw(10) << counts.upper_count_overview() << std::setw(9) << counts.lower_count_overview()
            << std::setw(9) << counts.alone_count_overview();
        print_zoom(out, counts);
        out << "  " << std::left << std::setw(11) << class_names[outcomes[i].vis] << rule_names[outcomes[i].diag]
            << '\n';
        ++totals[outcomes[i].vis];
    }
    for (std::size_t i = 0; i < totals.size(); ++i)
        out << (i ? ", " : "") << totals[i] << ' ' << class_names[i];
    out << '\n';
}

// One bar after the other for the sections of a split.
class SectionBars
{
public:
    explicit SectionBars(std::ostream* stream) : the_stream(stream) {}

    int operator()(grSplitterProgressSection section, int done, int total)
    {
        static const char* const titles[] = {"overview", "point zooms", "block zooms", "classes"};
        if (section != the_section)
        {
            the_bar.reset();
            the_bar = std::make_unique<flProgress>(the_stream, titles[section]);
            the_section = section;
        }
        the_bar->show(total > 0 ? static_cast<double>(done) / total : 1);
        return 1;
    }
    void end() { the_bar.reset(); }

private:
    std::ostream* the_stream;
    int the_section = -1;
    std::unique_ptr<flProgress> the_bar;
};
}

int tn_visibility(const tnVisibilityOptions& options, std::ostream& out, std::ostream* progress, std::string& error)
{
    double size = 0;
    const giVector3 direction = tn_direction(options.direction, size);
    if (!(size > 0))
    {
        error = "a direction needs a length: x, y and z are all 0";
        return 0;
    }
    if (options.classes == "-")
    {
        error = "the list goes to standard output: --classes needs a file";
        return 0;
    }
    if (fl_same_file(options.input, options.classes))
    {
        error = fl_name(options.input) + ": --classes would replace the file that is read";
        return 0;
    }
    if (!options.images.empty())
    {
        std::error_code failure;
        std::filesystem::create_directories(fl_path(options.images), failure);
        if (failure)
        {
            error = fl_name(options.images) + ": the folder cannot be made: " + failure.message();
            return 0;
        }
    }
    ms_blocks blocks;
    {
        flProgress bar(progress, "reading");
        if (!ms_read_tarn(options.input, blocks, error, bar.reporter()))
            return 0;
    }
    std::string reason;
    const std::shared_ptr<dgGLDevice> device = dgGLDevice::create_off_screen(reason);
    if (!device)
    {
        error = "images cannot be drawn, OpenGL says: " + reason;
        return 0;
    }
    giTriBlockcoDList list;
    for (const auto& block : blocks)
        list.add_last(block.get());
    dgGLWindow window(device, 1, 1);
    Observer observer(options.images, blocks.size());
    SectionBars bars(progress);
    grBlockIdx upper, lower, undecided, both;
    const int done = grSplitter().split(&window, list, direction, options.size, upper, lower, undecided, both,
                                        std::ref(bars), &observer);
    bars.end();
    if (!done || !observer.error().empty())
    {
        error = done ? observer.error() : fl_name(options.input) + ": images of this part cannot be drawn";
        return 0;
    }
    print_table(out, blocks, observer.outcomes());
    return options.classes.empty() || write_classes(options.classes, blocks, observer.outcomes(), progress, error);
}
