// Lists the font families of the machine, puts one into a renderer, and draws a line in each of its styles with a frame
// around it: fonts [family [picture.png]]
#include "dgClientStructure.h"
#include "dgGLDevice.h"
#include "dgGLWindow.h"
#include "dgImage.h"
#include "dgLineColour.h"
#include "dgPolyline.h"
#include "dgRef.h"
#include "dgRenderer.h"
#include "dgText.h"
#include "dgTextColour.h"
#include "dgTextFontSlot.h"
#include "dgTextHeight.h"
#include "dgTextLayout.h"
#include "dgTextStyle.h"
#include "dgView.h"
#include "dg_write_png.h"
#include "grCanvas.h"
#include "grOutlineFontFamilyReader.h"
#include "grViewOperations.h"

#include <fstream>
#include <iostream>

int main(int argc, char** argv)
{
    const utString wanted(argc > 1 ? argv[1] : "DejaVu Sans");
    std::string error;
    const std::shared_ptr<dgGLDevice> device = dgGLDevice::create_off_screen(error);
    if (!device)
        return std::cerr << "fonts: " << error << '\n', 1;
    dgGLWindow window(device, 480, 240);
    grCanvas canvas(&window, window.overlay(), nullptr, nullptr);

    // The families of the system are there without a word; folders of Type 1 fonts and of their metrics would be named
    // here.
    grOutlineFontFamilyReader fonts("", "");
    ltFontType type = ltTRUETYPE_FONT;
    for (int i = 0; i < fonts.num_families(); ++i)
        std::cout << fonts.family_name(i, type) << '\n';
    if (fonts.install_family(ltTRUETYPE_FONT, wanted, canvas.renderer()) != grOUTLINE_FONT_INSTALLED)
        return std::cerr << "fonts: there is no family '" << wanted << "', or it cannot be read\n", 1;
    const int slot = fonts.family_renderer_index(ltTRUETYPE_FONT, wanted);

    const dgRef<dgClientStructure> page(new dgClientStructure);
    dgTextStyle style;
    style.height = 10; // model units
    page->add(new dgTextHeight(style.height));
    page->add(new dgTextColour(gsColour(1, 1, 0.9)));
    page->add(new dgLineColour(gsColour(1, 0.6, 0.2)));
    for (int i = grOUTLINE_FONT_NORMAL; i <= grOUTLINE_FONT_BOLD_ITALIC; ++i)
    {
        auto* const line = new dgText(giPoint3(0, -16.0 * i, 0), "Flange 12, \xC3\x98 8 \xC2\xB1 0.1"); // UTF-8
        // A text does not know its own size, since fonts belong to renderers.
        style.font = canvas.renderer()->get_text_font(slot + i);
        giBox3 room = dg_text_box(*line, style);
        std::cout << "fonts: style " << i << " takes " << room.width() << " x " << room.height() << '\n';
        line->extent(room);
        page->add(new dgTextFontSlot(slot + i));
        page->add(line);
        room.grow(1);
        const giPoint3 low = room.low(), high = room.high();
        page->add(new dgPolyline({low, giPoint3(high.x(), low.y(), 0), giPoint3(high.x(), high.y(), 0),
                                  giPoint3(low.x(), high.y(), 0), giPoint3(low.x(), low.y(), 0)}));
    }

    dgView& view = canvas.add_view();
    view.root(page.get());
    grViewOperations::fit(view);
    canvas.redraw();
    dgImage picture;
    window.read_front(picture);
    if (argc < 3)
        return 0;
    std::ofstream file(argv[2], std::ios::binary);
    return dg_write_png(file, picture) ? 0 : 1;
}
