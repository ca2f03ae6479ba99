#include "vwPixels.h"

#include "dgCamera.h"
#include "dgLighting.h"
#include "dgLineColour.h"
#include "dgLineWidth.h"
#include "dgPolyline.h"
#include "dgRenderer.h"
#include "dgSurfaceColour.h"
#include "dgText.h"
#include "dgTextColour.h"
#include "dgTextFontSlot.h"
#include "dgTextHeight.h"
#include "dgTriangleBlock.h"
#include "dgView.h"
#include "giTriBlock.h"

#include <memory>

vwPixels::vwPixels() : the_structure(new dgClientStructure()) {}

void vwPixels::clear()
{
    the_structure->clear();
    the_structure->add(new dgLighting(0));
}

void vwPixels::rectangle(double low_x, double low_y, double high_x, double high_y, const gsColour& colour)
{
    auto block = std::make_unique<giTriBlock>();
    for (const giPoint3& corner : {giPoint3(low_x, low_y, 0), giPoint3(high_x, low_y, 0), giPoint3(high_x, high_y, 0),
                                   giPoint3(low_x, high_y, 0)})
        block->nodes().append(corner);
    block->triangles().push_back(giTriangle{0, 1, 2});
    block->triangles().push_back(giTriangle{0, 2, 3});
    the_structure->add(new dgSurfaceColour(colour));
    the_structure->add(new dgTriangleBlock(block.release(), 1));
}

void vwPixels::line(double from_x, double from_y, double to_x, double to_y, const gsColour& colour, double width)
{
    the_structure->add(new dgLineColour(colour));
    the_structure->add(new dgLineWidth(width));
    the_structure->add(new dgPolyline({giPoint3(from_x, from_y, 0), giPoint3(to_x, to_y, 0)}));
}

void vwPixels::text(double x, double y, const std::string& text, double height, const gsColour& colour, int font)
{
    if (font < 0 || text.empty())
        return;
    the_structure->add(new dgTextFontSlot(font));
    the_structure->add(new dgTextHeight(height));
    the_structure->add(new dgTextColour(colour));
    the_structure->add(new dgText(giPoint3(x, y, 0), text));
}

void vwPixels::draw(dgView& view) const
{
    const dgCamera& camera = view.camera();
    const giBox2& port = camera.view_port_dc();
    dgCamera flat;
    flat.window_size(camera.window_size());
    flat.view_port_dc(port);
    flat.view_window(giBox2(-0.5, -0.5, port.width() + 0.5, port.height() + 0.5));
    flat.front_back_plane(1, -1);

    dgRenderer& renderer = *view.renderer();
    const dgHLHSRMode mode = renderer.hlhsr_mode();
    renderer.begin();
    renderer.set_hlhsr_mode(dgHLHSR_OFF);
    renderer.set_camera(&flat);
    renderer.draw_structure(*the_structure);
    renderer.end();
    renderer.set_hlhsr_mode(mode);
}
