#include "vwFonts.h"

#include "vwFontFolders.h"
#include "vwModel.h"
#include "vwOptions.h"
#include "vwScene.h"

#include "flMessages.h"

#include "grOutlineFontFamilyReader.h"
#include "grOutlineFontListElement.h"

#include "apFile.h"
#include "apProgram.h"
#include "dgCamera.h"
#include "dgRef.h"
#include "dgRenderer.h"
#include "dgText.h"
#include "dgTextAlignment.h"
#include "dgTextColour.h"
#include "dgTextDirection.h"
#include "dgTextFontSlot.h"
#include "dgTextHeight.h"
#include "dgTextLayout.h"
#include "dgTextStyle.h"
#include "dgView.h"

#include <algorithm>
#include <fstream>
#include <iostream>
#include <memory>
#include <ostream>

namespace
{
const char* const preferred_families[] = {"DejaVu Sans", "Liberation Sans", "Arial", "Helvetica", "Nimbus Sans"};

// Of the model's size.
constexpr double largest_height = 0.12, gap = 0.05;

// GR_SHARE leads from the programs' folder to share/gr, in the build as in an installed tree.
std::string default_font_list()
{
    return (ap_program_folder() / GR_SHARE "/fonts/urw-base35.fonts").utf8();
}

struct Fonts
{
    std::unique_ptr<grOutlineFontFamilyReader> reader;
    int n_builtin = 0; // of the table and the system, before those of the list
};

int read_fonts(const vwOptions& options, Fonts& fonts, std::string& error)
{
    const auto or_default = [](const std::string& given, const std::string& otherwise)
    { return utString(given.empty() ? otherwise : given); };
    fonts.reader =
        std::make_unique<grOutlineFontFamilyReader>(or_default(options.font_path, vw_system_font_path()),
                                                    or_default(options.metrics_path, vw_system_metrics_path()));
    fonts.n_builtin = fonts.reader->num_families();
    const std::string list = options.font_list.empty() ? default_font_list() : options.font_list;
    if (options.font_list.empty() && !ap_file_exists(list))
        return 1;
    std::ifstream readable;
    if (!fl_open_for_reading(list, readable, error))
        return 0;
    int line = 0;
    if (fonts.reader->append_font_list(list, line) == grOUTLINE_FONT_FILE_READ)
        return 1;
    error = fl_name(list) + (line > 0 ? ": line " + std::to_string(line) + " is no line of a font list"
                                      : ": the font list cannot be read");
    return 0;
}

const char* keyword(ltFontType type)
{
    switch (type)
    {
    case ltTRUETYPE_FONT: return "truetype ";
    case ltADOBE_PFA_FONT: return "adobe_pfa";
    case ltADOBE_PFB_FONT: return "adobe_pfb";
    case ltMORVEX_FONT: return "own      ";
    }
    return "unknown  ";
}

void print_family(std::ostream& os, const grOutlineFontListElement& family)
{
    const auto mark = [](int available, const char* style)
    { return available ? std::string(style) : std::string(std::string_view(style).size(), '-'); };
    os << keyword(family.font_type()) << "  " << mark(family.normal_available(), "regular") << ' '
       << mark(family.bold_available(), "bold") << ' ' << mark(family.italic_available(), "italic") << ' '
       << mark(family.bold_italic_available(), "bold-italic") << "  " << family.family_name() << '\n';
}

const grOutlineFontListElement* find(const grOutlineFontFamilyReader& reader, const utString& name)
{
    for (int i = 0; i < reader.num_families(); ++i)
        if (reader.family(i).family_name() == name)
            return &reader.family(i);
    return nullptr;
}

const grOutlineFontListElement* choose(const grOutlineFontFamilyReader& reader, const std::string& name)
{
    if (!name.empty())
        return find(reader, name);
    for (const char* preferred : preferred_families)
        if (const grOutlineFontListElement* found = find(reader, preferred))
            return found;
    return reader.num_families() ? &reader.family(0) : nullptr;
}

// Answers the first slot, or -1.
int install(const grOutlineFontListElement& family, grOutlineFontFamilyReader& reader, dgRenderer& renderer,
            std::string& error)
{
    switch (reader.install_family(family.font_type(), family.family_name(), &renderer))
    {
    case grOUTLINE_FONT_INSTALLED: return family.renderer_index();
    case grOUTLINE_FONT_NO_FAMILY: break;
    case grOUTLINE_FONT_FILE_NOT_LOADED: error = "a file is missing or cannot be read"; break;
    case grOUTLINE_FONT_CONTENTS_NOT_LOADED: error = "a file is damaged, or its metrics belong to another font"; break;
    }
    error = "the font family '" + family.family_name().str() + "' cannot be installed: " + error;
    return -1;
}
}

int vw_list_fonts(const vwOptions& options, std::ostream& os, std::string& error)
{
    Fonts fonts;
    if (!read_fonts(options, fonts, error))
        return 0;
    int n_type1 = 0;
    const int n = fonts.reader->num_families();
    for (int i = 0; i < n; ++i)
    {
        const grOutlineFontListElement& family = fonts.reader->family(i);
        print_family(os, family);
        n_type1 += i < fonts.n_builtin && family.font_type() != ltTRUETYPE_FONT;
    }
    os << n << " font families: " << n_type1 << " known Type 1 families, " << fonts.n_builtin - n_type1
       << " of the system, " << n - fonts.n_builtin << " of the font list\n";
    return 1;
}

int vw_install_font(const vwOptions& options, dgRenderer& renderer, std::string& error)
{
    Fonts fonts;
    if (!read_fonts(options, fonts, error))
        return -1;
    if (const grOutlineFontListElement* family = choose(*fonts.reader, options.font))
        return install(*family, *fonts.reader, renderer, error);
    error = options.font.empty() ? "there is no outline font on this machine"
                                 : "there is no font family " + fl_quoted(options.font) + "; --list-fonts prints all";
    return -1;
}

void vw_lay_text(const vwOptions& options, const dgRenderer& renderer, int slot, const dgCamera& camera,
                 dgStructure& root)
{
    const giBox3 model = root.bounding_box();
    dgTextStyle style;
    style.font = renderer.get_text_font(slot);
    style.horizontal = dgTEXT_CENTRE;
    style.vertical = dgTEXT_TOP;
    giPoint3 position;
    const dgRef<dgText> text(new dgText(position, options.text));
    if (model.empty())
    {
        const giXform3 view_to_world = camera.orientation().inverse();
        style.baseline = view_to_world.transform(giVector3(1, 0, 0));
        style.up = view_to_world.transform(giVector3(0, 1, 0));
    }
    else
    {
        const double width = model.high().x() - model.low().x(), size = (model.high() - model.low()).length();
        const giBox3 box = dg_text_box(*text, style); // at a height of 1
        const double text_width = std::max(box.high().x() - box.low().x(), 1e-6);
        style.height = std::min(largest_height * size, std::max(width, size / 2) / text_width);
        position = giPoint3((model.low().x() + model.high().x()) / 2, model.low().y() - gap * size, model.low().z());
        text->position(position);
    }
    text->extent(dg_text_box(*text, style));
    root.add(new dgTextFontSlot(slot));
    root.add(new dgTextHeight(style.height));
    root.add(new dgTextDirection(style.baseline, style.up));
    root.add(new dgTextAlignment(style.horizontal, style.vertical));
    root.add(new dgTextColour(gsColour(0.93, 0.94, 0.96)));
    root.add(text.get());
}

void vw_offer_font(const vwOptions& options, vwScene& scene)
{
    scene.overlay().font_source(
        [&options, &scene]
        {
            // Strokes of small regular letters are thinner than a pixel. The slot after them has the bold ones.
            std::string error;
            const int slot = vw_install_font(options, scene.renderer(), error);
            return slot >= 0 && scene.renderer().get_text_font(slot + 1) ? slot + 1 : slot;
        });
}

int vw_add_text(const vwOptions& options, vwScene& scene, vwModel& model, std::string& error)
{
    if (options.text.empty() && !options.scene.stats && !options.scene.paper)
        return 1;
    const int slot = vw_install_font(options, scene.renderer(), error);
    if (slot >= 0)
    {
        scene.stats_font(slot);
        scene.title(model.names(), slot);
    }
    if (options.text.empty())
    {
        if (slot < 0)
            std::cerr << "gr-viewer: there are no numbers and titles: " << error << '\n';
        return 1;
    }
    if (slot < 0)
        return 0;
    vw_lay_text(options, scene.renderer(), slot, scene.view(0).camera(), model.root());
    scene.fit();
    return 1;
}
