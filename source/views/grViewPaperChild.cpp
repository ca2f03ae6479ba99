#include "grViewPaperChild.h"

#include "dgView.h"
#include "grViewPaperParent.h"

#include <algorithm>
#include <cmath>
#include <ostream>

namespace
{
// Viewports include their low and high pixels, whose centres are whole numbers.
constexpr double half_pixel = 0.5;

giPoint3 on_paper(const dgCamera& paper, const giPoint2& edge_device)
{
    giPoint3 result;
    paper.transform(giPoint3(edge_device.x(), edge_device.y(), 0), result, dgSPACE_DEVICE, dgSPACE_WORLD);
    return result;
}

giPoint2 on_screen(const dgCamera& paper, const giPoint3& edge_world)
{
    giPoint3 result;
    paper.transform(edge_world, result, dgSPACE_WORLD, dgSPACE_DEVICE);
    return giPoint2(result.x(), result.y());
}
}

UT_DEFINE_TYPE(grViewPaperChild, grViewPaper);

grViewPaperChild::grViewPaperChild(dgView* view, grViewPaperParent* paper_parent)
    : grViewPaper(view), the_paper_parent(paper_parent)
{
    if (paper_parent)
        paper_parent->the_paper_children.add_last(this);
}

grViewPaperChild::~grViewPaperChild()
{
    leave_paper_parent();
}

void grViewPaperChild::print(std::ostream& os, int level) const
{
    os << "grViewPaperChild {\n"
       << "  paper_parent is " << static_cast<const void*>(static_cast<const grView*>(the_paper_parent)) << '\n';
    grViewPaper::print(os, level);
    os << "}\n";
}

void grViewPaperChild::leave_paper_parent()
{
    if (the_paper_parent)
        the_paper_parent->the_paper_children.remove(this);
    the_paper_parent = nullptr;
}

void grViewPaperChild::follow_paper(const dgCamera& paper_before, const dgCamera& paper_now)
{
    if (!view())
        return;
    dgCamera& camera = view()->camera();
    const giBox2& port = camera.view_port_dc();
    // Where it was moved by anybody else, it has a new place on the paper.
    if (port != the_carried_port)
    {
        const giVector2 border(half_pixel, half_pixel);
        the_low_on_paper = on_paper(paper_before, port.low() - border);
        the_high_on_paper = on_paper(paper_before, port.high() + border);
    }
    const giPoint2 low = on_screen(paper_now, the_low_on_paper), high = on_screen(paper_now, the_high_on_paper);
    const double low_x = std::round(low.x() + half_pixel), low_y = std::round(low.y() + half_pixel);
    the_carried_port = giBox2(low_x, low_y, std::max(std::round(high.x() - half_pixel), low_x),
                              std::max(std::round(high.y() - half_pixel), low_y));
    camera.view_port_dc(the_carried_port);
}
