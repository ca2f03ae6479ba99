// Draws a tarn file and turns it without a window, a display or a graphics card: offscreen part.tarn
#include "dgClientStructure.h"
#include "dgGLDevice.h"
#include "dgGLWindow.h"
#include "dgImage.h"
#include "dgRef.h"
#include "dgView.h"
#include "grCanvas.h"
#include "grStdTwiddling.h"
#include "gr_read_tarn_tblock.h"
#include "gwHeadlessWindow.h"
#include "gwKeyEvent.h"
#include "gwMouseEvent.h"
#include "gwResourceDB.h"

#include <algorithm>
#include <fstream>
#include <iostream>

int main(int argc, char** argv)
{
    const int width = 400, height = 300;
    std::ifstream file(argc > 1 ? argv[1] : "part.tarn");
    const dgRef<dgClientStructure> part(new dgClientStructure());
    std::string error = "no triangle blocks could be read";
    const std::shared_ptr<dgGLDevice> device =
        gr_read_tarn_tblock(file, part.get()) ? dgGLDevice::create_off_screen(error) : nullptr;
    if (!device)
        return std::cerr << "offscreen: " << error << '\n', 1;

    dgGLWindow window(device, width, height);
    gwHeadlessWindow area(width, height);
    grCanvas canvas(&window, window.overlay(), &area, nullptr);
    dgView& view = canvas.add_view();
    view.root(part.get());
    view.view_bbox();

    gwResourceDB settings;
    settings.set_resource("translations", "mouse_button 1 : trackball");
    grStdTwiddling twiddling(&area.input(), &settings, nullptr, nullptr);

    dgImage before, after;
    canvas.redraw();
    window.read_front(before);
    area.input().post(gwKeyEvent(&area, 100, 150, 0, gwPRESSED, gwMOUSE_BUTTON, 1));
    area.input().post(gwMouseEvent(&area, 200, 150));
    area.input().post(gwKeyEvent(&area, 200, 150, 0, gwRELEASED, gwMOUSE_BUTTON, 1));
    canvas.redraw();
    window.read_front(after);

    int covered = 0, changed = 0;
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
        {
            const unsigned char *old_rgba = before.pixel(x, y), *rgba = after.pixel(x, y);
            covered += rgba[0] + rgba[1] + rgba[2] > 0;
            changed += !std::equal(rgba, rgba + 3, old_rgba);
        }
    std::cout << "offscreen: the part covers " << covered << " pixels; turning it changed " << changed << '\n';
    return covered && changed ? 0 : 1;
}
