// Fonts beside their practical limits: making the list of families beside a bare fontconfig listing of the same names,
// and a frame of 10,000 glyphs of 16 pixels beside one bare draw call of the same triangles with the same program.
#include "benchTiming.h"
#include "dgClientStructure.h"
#include "dgGLDevice.h"
#include "dgGLGeometryStore.h"
#include "dgGLTextStore.h"
#include "dgGLWindow.h"
#include "dgRenderer.h"
#include "dgText.h"
#include "dgTextFont.h"
#include "dgTextHeight.h"
#include "dgView.h"
#include "grOutlineFontFamilyReader.h"

#include <epoxy/gl.h>
#include <fontconfig/fontconfig.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

namespace
{
constexpr int width = 1600, height = 1700;
constexpr int lines = 100, line_glyphs = 100;

int bare_listing()
{
    FcPattern* any = FcPatternCreate();
    FcObjectSet* objects = FcObjectSetBuild(FC_FAMILY, FC_FULLNAME, FC_WEIGHT, FC_SLANT, FC_FILE, FC_FONTFORMAT,
                                            static_cast<char*>(nullptr));
    FcFontSet* fonts = FcFontList(nullptr, any, objects);
    const int count = fonts->nfont;
    FcFontSetDestroy(fonts);
    FcObjectSetDestroy(objects);
    FcPatternDestroy(any);
    return count;
}

void compare_lists(int rounds)
{
    const char* const fonts = "/usr/share/htmldoc/fonts;/usr/share/fonts/X11/Type1";
    const char* const metrics = "/usr/share/htmldoc/fonts;/usr/share/fonts/type1/urw-base35";
    int families = 0, faces = 0;
    const double start = seconds([&] { faces = bare_listing(); }); // reads the configuration and its caches
    const double first = seconds([&] { families = grOutlineFontFamilyReader(fonts, metrics).num_families(); });
    std::vector<double> ours, bare;
    for (int i = 0; i < rounds; ++i)
    {
        ours.push_back(seconds([&] { grOutlineFontFamilyReader(fonts, metrics); }));
        bare.push_back(seconds([&] { bare_listing(); }));
    }
    std::printf("list of %d families out of %d faces: %.2f ms, the first time %.2f ms\n", families, faces,
                1e3 * median(ours), 1e3 * first);
    std::printf("  bare fontconfig listing %.2f ms: ratio %.1f; its start %.2f ms: ratio of the first list %.2f\n",
                1e3 * median(bare), median(ours) / median(bare), 1e3 * start, first / start);
}

std::string line_of_text(int number)
{
    std::string text;
    for (int i = 0; i < line_glyphs; ++i)
        text += static_cast<char>('!' + (7 * i + 13 * number) % ('~' - '!' + 1));
    return text;
}

// A frame of plain OpenGL. The program of the last drawing is still the current one, with its values.
void bare_frame(const dgGLIndexRanges& ranges)
{
    glClearColor(0, 0, 0, 1);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT | GL_STENCIL_BUFFER_BIT);
    glDrawElements(GL_TRIANGLES, ranges.counts[0], GL_UNSIGNED_INT, ranges.offsets[0]);
    glFinish();
}

void compare_drawing(const std::shared_ptr<dgGLDevice>& device, const char* file, int glyphs_per_text, int rounds)
{
    dgGLWindow window(device, width, height);
    dgRenderer renderer(&window, &window);
    dgView view(&renderer);
    const dgRef<dgTextFont> font(new dgTextFont(file, ""));
    if (font->load_status() != dgTEXT_FONT_LOADED)
    {
        std::printf("%s cannot be loaded\n", file);
        return;
    }
    renderer.set_text_font(font.get(), 0);
    const dgRef<dgClientStructure> root(new dgClientStructure);
    root->add(new dgTextHeight(16));
    for (int line = 0; line < lines; ++line)
    {
        const std::string text = line_of_text(line);
        for (int i = 0; i < line_glyphs; i += glyphs_per_text)
            root->add(new dgText(giPoint3(15.0 * i, 17.0 * line + 4, 0), text.substr(i, glyphs_per_text)));
    }
    view.root(root.get());
    view.camera().view_port_dc(window.device_box());
    view.camera().window_size(giVector2(width, height));
    view.camera().view_window(giBox2(-0.5, -0.5, width - 0.5, height - 0.5));
    view.camera().front_back_plane(1, -1);
    const auto frame = [&]
    {
        view.erase(dgERASE_ZBUFFER_YES);
        view.render_network(nullptr);
        renderer.finish();
    };
    const double first = seconds(frame);

    // What was drawn lies together in the buffers, which are those bound last.
    dgTextStyle style;
    style.font = font.get();
    style.height = 16;
    dgGLIndexRanges ranges;
    for (int i = 1; i < root->nelements(); ++i)
    {
        const auto& text = static_cast<const dgText&>(*root->element(i));
        const auto& record = device->geometry().store(*device->texts().shape(text, style, 0).triangles);
        ranges.add(record.first_index, record.index_count);
    }
    if (ranges.counts.size() != 1)
        std::printf("not comparable, the texts lie apart\n");

    std::vector<double> ours, bare;
    for (int i = 0; i < rounds; ++i)
    {
        ours.push_back(seconds(frame));
        bare.push_back(seconds([&] { bare_frame(ranges); }));
    }
    std::printf("10,000 glyphs of 16 pixels in %d texts, %zu triangles: %.2f ms a frame\n",
                lines * line_glyphs / glyphs_per_text, static_cast<std::size_t>(ranges.counts[0]) / 3,
                1e3 * median(ours));
    std::printf("  bare draw of the same triangles %.2f ms: ratio %.3f (goal at most 1.25)\n", 1e3 * median(bare),
                median(ours) / median(bare));
    std::printf("  first frame, with layout, triangles and copying: %.1f ms\n", 1e3 * first);
}
}

int main(int argc, char** argv)
{
    const int rounds = argc > 1 ? std::max(3, std::atoi(argv[1])) : 31;
    compare_lists(rounds);
    for (const int glyphs_per_text : {100, 1})
    {
        std::string error;
        const std::shared_ptr<dgGLDevice> device = dgGLDevice::create_off_screen(error);
        if (!device)
        {
            std::fprintf(stderr, "bench_fonts: %s\n", error.c_str());
            return EXIT_FAILURE;
        }
        if (glyphs_per_text == 100)
            std::printf("%s\n", device->name().c_str());
        compare_drawing(device, "/usr/share/fonts/X11/Type1/NimbusSans-Regular.pfb", glyphs_per_text, rounds);
    }
    return EXIT_SUCCESS;
}
