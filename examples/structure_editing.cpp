// Builds a table of structures that call each other, and edits it: a part in all its places, a run of elements that is
// taken out and put back, colours. Writes a picture after each step: structure_editing [FOLDER]
#include "dgClientStructure.h"
#include "dgGLDevice.h"
#include "dgGLWindow.h"
#include "dgImage.h"
#include "dgLabel.h"
#include "dgRef.h"
#include "dgRenderer.h"
#include "dgStructureCall.h"
#include "dgSurfaceColour.h"
#include "dgTransform.h"
#include "dgTriangleBlock.h"
#include "dgView.h"
#include "dg_write_png.h"
#include "grCanvas.h"
#include "grFindElements.h"
#include "grStructureCutPaste.h"
#include "grStructureStats.h"
#include "grViewOperations.h"
#include "grViewSmoother.h"
#include "gr_make_tblock.h"

#include <fstream>
#include <iostream>

namespace
{
enum
{
    legs_begin = 1,
    legs_end = 2
};

dgTriangleBlock* box(const giPoint3& low, const giPoint3& high)
{
    return new dgTriangleBlock(gr_make_box_tblock(giBox3(low, high)), 1); // which owns the block
}

// A structure that shows another one at an offset.
dgStructure* placed(dgStructure* structure, const giVector3& offset)
{
    dgStructure* const place = new dgClientStructure;
    place->add(new dgTransform(giXform3::translation(offset)));
    place->add(new dgStructureCall(structure));
    return place;
}

// Draws the table, and counts what it is made of.
void show(const char* name, dgGLWindow& window, grCanvas& canvas, const std::string& folder)
{
    grViewOperations::fit(canvas.view(0));
    canvas.redraw();
    canvas.renderer()->accumulate(1);
    for (grViewSmoother smoother(*canvas.renderer()); smoother.idle() == grIDLE_AGAIN;)
        ; // edges become smooth in idle time, of which a picture takes as much as it needs
    dgImage picture;
    window.read_front(picture);
    std::ofstream file(folder + "/structure_editing-" + name + ".png", std::ios::binary);
    if (!dg_write_png(file, picture))
        std::cerr << "structure_editing: the picture '" << name << "' could not be written\n";

    const grStructureStats stats(canvas.view(0).root()); // each structure once, however often it is called
    long long calls = 0;
    for (const auto& called : stats.calls())
        calls += called.calls;
    std::cout << name << ": structures " << stats.structures() << ", calls " << calls << ", triangles "
              << stats.features(dgTOPOLOGY_TRIANGLES) << '\n';
}
}

int main(int argc, char** argv)
{
    const std::string folder = argc > 1 ? argv[1] : ".";
    std::string error;
    const std::shared_ptr<dgGLDevice> device = dgGLDevice::create_off_screen(error);
    if (!device)
        return std::cerr << "structure_editing: " << error << '\n', 1;

    // Elements and structures are counted: whoever keeps one holds a reference.
    const dgRef<dgClientStructure> table(new dgClientStructure), leg(new dgClientStructure);
    table->add(new dgSurfaceColour(gsColour(0.8, 0.6, 0.3)));
    table->add(box(giPoint3(0, 0, 70), giPoint3(160, 80, 75)));
    leg->add(new dgSurfaceColour(gsColour(0.4, 0.4, 0.45)));
    leg->add(box(giPoint3(-4, -4, 0), giPoint3(4, 4, 70)));
    table->add(new dgLabel(legs_begin));
    for (const double x : {8, 152})
        for (const double y : {8, 72})
            table->add(new dgStructureCall(placed(leg.get(), giVector3(x, y, 0))));
    table->add(new dgLabel(legs_end));

    dgGLWindow window(device, 320, 240);
    grCanvas canvas(&window, window.overlay(), nullptr, nullptr);
    dgView& view = canvas.add_view();
    view.root(table.get());
    view.shading_context().graduated_background = 1;
    grViewOperations::isometric(view);
    show("built", window, canvas, folder);

    // What one structure holds changes wherever it is called.
    leg->add(box(giPoint3(-9, -9, 0), giPoint3(9, 9, 4)));
    show("feet", window, canvas, folder);

    // What lies between two labels is taken out, and put back where it was.
    grStructureSlicecoDListPtr slices;
    if (grStructureCutPaste::cut(table.get(), legs_begin, legs_end, 0, slices) != grSTRUCTURE_CUT_OK)
        return std::cerr << "structure_editing: there are no legs\n", 1;
    show("cut", window, canvas, folder);
    grStructureCutPaste::paste(slices);
    for (const grStructureSlice* slice : slices)
        delete slice;

    // All elements of a type, wherever they are.
    dgBaseList colours;
    grFindElements(table.get()).find_elements(dgTYPE_SURFACE_COLOUR, colours, grRECURSIVE_YES);
    static_cast<dgSurfaceColour*>(colours[0])->colour(gsColour(0.3, 0.55, 0.75));
    show("recoloured", window, canvas, folder);
}
