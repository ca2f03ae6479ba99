// Tells from which side parts are seen, from above, from below or from both, and colours them so:
// visibility [picture.png]
#include "dgClientStructure.h"
#include "dgGLDevice.h"
#include "dgGLWindow.h"
#include "dgImage.h"
#include "dgRef.h"
#include "dgRenderer.h"
#include "dgSurfaceColour.h"
#include "dgTriangleBlock.h"
#include "dgView.h"
#include "dg_write_png.h"
#include "giAngleDegrees.h"
#include "giTriBlock.h"
#include "grCanvas.h"
#include "grSplitter.h"
#include "grViewOperations.h"
#include "grViewSmoother.h"
#include "gr_make_tblock.h"

#include <fstream>
#include <iostream>

namespace
{
// A sheet at height z, facing up or down.
giTriBlock* sheet(double x0, double x1, double z, int up)
{
    const std::vector<giPoint3> corners{giPoint3(x0, 0, z), giPoint3(x1, 0, z), giPoint3(x1, 80, z),
                                        giPoint3(x0, 80, z)};
    if (up)
        return gr_make_tblock(corners, {giTriangle(0, 1, 2), giTriangle(0, 2, 3)});
    return gr_make_tblock(corners, {giTriangle(2, 1, 0), giTriangle(3, 2, 0)});
}

void paint(const grBlockIdx& blocks, const gsColour& colour, const giTriBlockcoDList& parts, dgStructure& scene)
{
    scene.add(new dgSurfaceColour(colour));
    for (const int i : blocks)
        scene.add(new dgTriangleBlock(parts[i], 0));
}
}

int main(int argc, char** argv)
{
    // A box, and a plate beside it of two sheets.
    const char* const names[] = {"box", "top of the plate", "underside"};
    const std::unique_ptr<giTriBlock> owned[] = {
        std::unique_ptr<giTriBlock>(gr_make_box_tblock(giBox3(giPoint3(0, 0, 0), giPoint3(80, 80, 50)))),
        std::unique_ptr<giTriBlock>(sheet(100, 220, 20, 1)), std::unique_ptr<giTriBlock>(sheet(100, 220, 10, 0))};
    giTriBlockcoDList parts;
    for (const auto& block : owned)
        parts.add_last(block.get());

    std::string error;
    const std::shared_ptr<dgGLDevice> device = dgGLDevice::create_off_screen(error);
    if (!device)
        return std::cerr << "visibility: " << error << '\n', 1;
    dgGLWindow window(device, 1, 1);
    grBlockIdx upper, lower, undecided, both;
    if (!grSplitter().split(&window, parts, giVector3(0, 0, 1), 0, upper, lower, undecided, both))
        return std::cerr << "visibility: there is no memory for the images\n", 1;
    for (int i = 0; i < parts.count(); ++i)
        std::cout << names[i] << ": "
                  << (upper.contains(i)   ? "from above"
                      : lower.contains(i) ? "from below"
                      : both.contains(i)  ? "from both sides"
                                          : "undecided")
                  << '\n';

    if (argc < 2)
        return 0;
    const dgRef<dgClientStructure> scene(new dgClientStructure);
    paint(upper, gsColour(0.4, 0.7, 0.35), parts, *scene);
    paint(lower, gsColour(0.35, 0.5, 0.85), parts, *scene);
    paint(both, gsColour(0.7, 0.7, 0.7), parts, *scene);
    paint(undecided, gsColour(0.85, 0.35, 0.25), parts, *scene);
    window.resize(480, 240);
    grCanvas canvas(&window, window.overlay(), nullptr, nullptr);
    for (const int beneath : {0, 1})
    {
        dgView& view = canvas.add_view();
        view.root(scene.get());
        view.shading_context().graduated_background = 1;
        view.camera().view_port_dc(giBox2(beneath * 240, 0, beneath * 240 + 239, 239));
        grViewOperations::isometric(view);
        if (beneath)
            grViewOperations::turn(view, scene->bounding_box().middle(), giVector3(1, 0, 0), giAngleDegrees(-110));
        grViewOperations::fit(view);
    }
    canvas.redraw();
    canvas.renderer()->accumulate(1);
    for (grViewSmoother smoother(*canvas.renderer()); smoother.idle() == grIDLE_AGAIN;)
        ; // edges become smooth in idle time, of which a picture takes as much as it needs
    dgImage picture;
    window.read_front(picture);
    std::ofstream file(argv[1], std::ios::binary);
    return dg_write_png(file, picture) ? 0 : 1;
}
