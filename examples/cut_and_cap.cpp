// Cuts a tarn file open by a plane, closes the cut, and compares the volumes: cut_and_cap part.tarn [picture.png]
#include "dgClientStructure.h"
#include "dgGLDevice.h"
#include "dgGLWindow.h"
#include "dgImage.h"
#include "dgRef.h"
#include "dgRenderer.h"
#include "dgSurfaceColour.h"
#include "dgTriangleBlock.h"
#include "dgView.h"
#include "dg_cap_tblocks.h"
#include "dg_write_png.h"
#include "giPlane.h"
#include "giTriBlock.h"
#include "grCanvas.h"
#include "grTriCut.h"
#include "grTriCutterPlane.h"
#include "grViewOperations.h"
#include "grViewSmoother.h"
#include "gr_read_tarn_tblock.h"

#include <cmath>
#include <fstream>
#include <iostream>
#include <memory>
#include <vector>

namespace
{
using Blocks = std::vector<std::unique_ptr<giTriBlock>>;

// What lies on the positive side of a plane; the last block closes the cut.
Blocks half(const Blocks& part, const giPlane& plane)
{
    const double tolerance = 1e-6; // model units: what is nearer to the plane lies on it
    Blocks kept;
    giTriBlockcoDList list;
    for (const auto& block : part)
    {
        kept.push_back(std::make_unique<giTriBlock>(*block));
        grTriCut::cut(*kept.back(), grTriCutterPlane(plane, tolerance), 0);
        list.add_last(kept.back().get());
    }
    kept.push_back(std::make_unique<giTriBlock>());
    if (const int open = dg_cap_tblocks(list, plane, tolerance, *kept.back()))
        std::cerr << "cut_and_cap: the mesh is open at the cut in " << open << " places\n";
    return kept;
}

// Of what closed blocks enclose: the sum of the tetrahedra between the origin and their triangles.
double volume(const Blocks& blocks)
{
    double sum = 0;
    for (const auto& block : blocks)
        for (const giTriangle& t : block->triangles())
        {
            const giVector3 a = block->nodes()[t[0]] - giPoint3(), b = block->nodes()[t[1]] - giPoint3(),
                            c = block->nodes()[t[2]] - giPoint3();
            sum += a.cross(b).dot(c) / 6;
        }
    return sum;
}
}

int main(int argc, char** argv)
{
    std::ifstream file(argc > 1 ? argv[1] : "part.tarn");
    Blocks part;
    std::string complaint;
    gr_read_tarn_tblock(
        file, [&](std::unique_ptr<giTriBlock> block) { part.push_back(std::move(block)); }, complaint);
    if (part.empty())
        return std::cerr << "cut_and_cap: no triangle blocks could be read: " << complaint << '\n', 1;

    const giVector3 normal(0.3, 1, 0.1);
    Blocks back = half(part, giPlane(giPoint3(), normal));
    const Blocks front = half(part, giPlane(giPoint3(), -normal));
    const double whole = volume(part), sum = volume(back) + volume(front);
    std::cout << "cut_and_cap: " << volume(back) << " and " << volume(front) << " make " << sum << " of " << whole
              << '\n';

    if (argc > 2)
    {
        const dgRef<dgClientStructure> scene(new dgClientStructure);
        for (auto& block : back)
        {
            if (&block == &back.back())
                scene->add(new dgSurfaceColour(gsColour(1, 0.6, 0.35)));
            scene->add(new dgTriangleBlock(block.release(), 1));
        }
        std::string error;
        const std::shared_ptr<dgGLDevice> device = dgGLDevice::create_off_screen(error);
        if (!device)
            return std::cerr << "cut_and_cap: " << error << '\n', 1;
        dgGLWindow window(device, 480, 320);
        grCanvas canvas(&window, window.overlay(), nullptr, nullptr);
        dgView& view = canvas.add_view();
        view.root(scene.get());
        view.shading_context().graduated_background = 1;
        grViewOperations::isometric(view);
        canvas.redraw();
        canvas.renderer()->accumulate(1);
        for (grViewSmoother smoother(*canvas.renderer()); smoother.idle() == grIDLE_AGAIN;)
            ; // edges become smooth in idle time, of which a picture takes as much as it needs
        dgImage picture;
        window.read_front(picture);
        std::ofstream png(argv[2], std::ios::binary);
        if (!dg_write_png(png, picture))
            return std::cerr << "cut_and_cap: " << argv[2] << " could not be written\n", 1;
    }
    return std::abs(sum - whole) < 1e-6 * std::abs(whole) ? 0 : 1;
}
