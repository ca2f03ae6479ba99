// Draws a specimen of six font families of three sources into a PNG file: a line for each style, one text of each
// family turned about a point, and one as a rubber band that inverts what lies under it.
#include "pcPictureFile.h"

#include "grOutlineFontFamilyReader.h"
#include "grOutlineFontListElement.h"
#include "grRubberBandManager.h"
#include "grRubberBandStructure.h"
#include "grView.h"

#include "dgClientStructure.h"
#include "dgGLDevice.h"
#include "dgGLWindow.h"
#include "dgImage.h"
#include "dgLighting.h"
#include "dgRenderer.h"
#include "dgSurfaceColour.h"
#include "dgText.h"
#include "dgTextAlignment.h"
#include "dgTextColour.h"
#include "dgTextDirection.h"
#include "dgTextFontSlot.h"
#include "dgTextHeight.h"
#include "dgTriangleBlock.h"
#include "dgView.h"
#include "giTriBlock.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>

namespace
{
constexpr int width = 1200, height = 900;

const struct
{
    ltFontType type;
    const char* family;
    const char* source;
    gsColour colour;
} families[] = {
    {ltADOBE_PFA_FONT, "Helvetica", "Type 1, known name", {0.95, 0.93, 0.88}},
    {ltADOBE_PFA_FONT, "Times", "Type 1, known name", {0.95, 0.93, 0.88}},
    {ltTRUETYPE_FONT, "DejaVu Sans", "TrueType, system", {0.70, 0.87, 0.95}},
    {ltTRUETYPE_FONT, "Liberation Serif", "TrueType, system", {0.70, 0.87, 0.95}},
    {ltADOBE_PFB_FONT, "P052", "Type 1, font list", {0.98, 0.80, 0.55}},
    {ltADOBE_PFB_FONT, "URW Gothic", "Type 1, font list", {0.98, 0.80, 0.55}},
};
constexpr int n_families = std::size(families);

const char* const styles[] = {"regular", "bold", "italic", "bold italic"};

void add_text(dgStructure& structure, int slot, double size, const gsColour& colour, const giPoint3& position,
              const std::string& text)
{
    structure.add(new dgTextFontSlot(slot));
    structure.add(new dgTextHeight(size));
    structure.add(new dgTextColour(colour));
    structure.add(new dgText(position, text));
}

void add_lines(dgStructure& structure, const int (&slots)[n_families])
{
    double y = height - 40;
    for (int i = 0; i < n_families; ++i)
    {
        for (int style = 0; style < 4; ++style, y -= 33)
            add_text(structure, slots[i] + style, 23, families[i].colour, giPoint3(30, y, 0),
                     std::string(families[i].family) + " " + styles[style] +
                         " \xe2\x80\x94 AVTo Quartz 0123 fj\xc3\xa4");
        add_text(structure, slots[2], 11, gsColour(0.6, 0.63, 0.67), giPoint3(30, y + 15, 0), families[i].source);
        y -= 11;
    }
}

void add_turned(dgStructure& structure, const int (&slots)[n_families])
{
    const giPoint3 middle(920, 620, 0);
    for (int i = 0; i < 2 * n_families; ++i)
    {
        const double angle = 2 * 3.14159265358979 * i / (2 * n_families);
        const giVector3 along(std::cos(angle), std::sin(angle), 0);
        structure.add(new dgTextDirection(along, giVector3(-std::sin(angle), std::cos(angle), 0)));
        structure.add(new dgTextAlignment(dgTEXT_LEFT, dgTEXT_MIDDLE));
        const int family = i % n_families;
        add_text(structure, slots[family] + (i >= n_families ? 3 : 0), 26, families[family].colour, middle + along * 70,
                 families[family].family);
    }
    structure.add(new dgTextDirection(giVector3(1, 0, 0), giVector3(0, 1, 0)));
    structure.add(new dgTextAlignment(dgTEXT_LEFT, dgTEXT_BASELINE));
}

void add_rectangle(dgStructure& structure, const gsColour& colour, double low_x, double low_y, double high_x,
                   double high_y)
{
    auto block = std::make_unique<giTriBlock>();
    for (const giPoint3& corner : {giPoint3(low_x, low_y, -0.5), giPoint3(high_x, low_y, -0.5),
                                   giPoint3(high_x, high_y, -0.5), giPoint3(low_x, high_y, -0.5)})
        block->nodes().append(corner);
    block->triangles().emplace_back(0, 1, 2);
    block->triangles().emplace_back(0, 2, 3);
    structure.add(new dgSurfaceColour(colour));
    structure.add(new dgTriangleBlock(block.release(), 1));
}

// What the rubber band is drawn over.
void add_ground(dgStructure& structure)
{
    structure.add(new dgLighting(0));
    const gsColour colours[] = {{0.95, 0.93, 0.88}, {0.15, 0.35, 0.65}, {0.1, 0.1, 0.12}, {0.85, 0.45, 0.2}};
    for (int i = 0; i < 4; ++i)
        add_rectangle(structure, colours[i], 680 + 125 * i, 20, 680 + 125 * (i + 1), 310);
}

void add_band(dgStructure& structure, const int (&slots)[n_families])
{
    double y = 265;
    for (int i = 0; i < n_families; ++i, y -= 46)
        add_text(structure, slots[i] + 2, 34, gsColour(1, 1, 1), giPoint3(700, y, 0),
                 std::string(families[i].family) + " over colours");
}

int install(grOutlineFontFamilyReader& reader, dgRenderer& renderer, int (&slots)[n_families])
{
    int line = 0;
    if (reader.append_font_list(GR_SHARE "/fonts/urw-base35.fonts", line))
        return 0;
    for (int i = 0; i < n_families; ++i)
    {
        if (const auto status = reader.install_family(families[i].type, families[i].family, &renderer))
        {
            std::fprintf(stderr, "gr-font-specimen: %s: status %d\n", families[i].family, status);
            return 0;
        }
        slots[i] = reader.family_renderer_index(families[i].type, families[i].family);
    }
    return 1;
}
}

int main(int argc, char** argv)
{
    std::string error = "usage: gr-font-specimen OUT.png";
    const std::shared_ptr<dgGLDevice> device = argc == 2 ? dgGLDevice::create_off_screen(error) : nullptr;
    if (!device)
    {
        std::fprintf(stderr, "%s\n", error.c_str());
        return EXIT_FAILURE;
    }
    dgGLWindow window(device, width, height);
    dgRenderer renderer(&window, &window);
    int slots[n_families];
    grOutlineFontFamilyReader reader("/usr/share/htmldoc/fonts;/usr/share/fonts/X11/Type1",
                                     "/usr/share/htmldoc/fonts;/usr/share/fonts/type1/urw-base35");
    if (!install(reader, renderer, slots))
        return EXIT_FAILURE;

    dgView view(&renderer);
    const grView companion(&view);
    view.camera().view_port_dc(window.device_box());
    view.camera().window_size(giVector2(width, height));
    view.camera().view_window(giBox2(-0.5, -0.5, width - 0.5, height - 0.5));
    view.camera().front_back_plane(1, -1);
    view.shading_context().background_colour = gsColour(0.09, 0.10, 0.12);
    const dgRef<dgClientStructure> root(new dgClientStructure), band(new dgClientStructure);
    add_ground(*root);
    add_lines(*root, slots);
    add_turned(*root, slots);
    add_band(*band, slots);
    view.root(root.get());
    view.erase(dgERASE_ZBUFFER_YES);
    view.render_network(nullptr);
    dgImage before, picture, after;
    renderer.read_pixels(window.device_box(), before);

    const dgRef<grRubberBandStructure> item(new grRubberBandStructure(&renderer, &view, band.get(), nullptr));
    grRubberBandManager::draw(item.get(), grDRAW_RUBBER_BAND_ITEM);
    renderer.read_pixels(window.device_box(), picture);
    grRubberBandManager::draw(item.get(), grUNDRAW_RUBBER_BAND_ITEM);
    renderer.read_pixels(window.device_box(), after);
    if (before.rgba != after.rgba || before.rgba == picture.rgba)
    {
        std::fprintf(stderr, "gr-font-specimen: the rubber band left a trace, or drew nothing\n");
        return EXIT_FAILURE;
    }
    if (pc_write_png(argv[1], picture, error))
        return EXIT_SUCCESS;
    std::fprintf(stderr, "gr-font-specimen: %s\n", error.c_str());
    return EXIT_FAILURE;
}
