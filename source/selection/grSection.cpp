#include "grSection.h"

#include "dgTriangleBlock.h"
#include "dgView.h"
#include "giBox3.h"
#include "grRedraw.h"
#include "grSectionCap.h"

#include <algorithm>
#include <cmath>
#include <limits>

UT_DEFINE_TYPE(grSection, coReceiver);

namespace
{
giBox3 box_of(const dgView& view)
{
    return view.root() ? view.root()->bounding_box() : giBox3();
}

giVector3 seen_along(const dgView& view)
{
    giVector3 direction;
    dgCamera::orientation(view.camera().orientation(), nullptr, &direction, nullptr);
    return direction;
}
}

grSection::grSection() : the_cap(std::make_unique<grSectionCap>(the_surface_colour, the_line_colour)) {}

grSection::~grSection()
{
    while (!the_views.empty())
        remove_view(the_views.back());
}

void grSection::add_view(dgView* view)
{
    if (std::find(the_views.begin(), the_views.end(), view) != the_views.end())
        return;
    the_views.push_back(view);
    view->camera().section(the_plane);
    view->call_list().add(DG_VIEW_ERASED, coCallFunc::member<&grSection::erased>(this));
    view->call_list().add(DG_VIEW_TO_BE_DELETED, coCallFunc::member<&grSection::view_deleted>(this));
}

void grSection::remove_view(dgView* view)
{
    if (std::erase(the_views, view) == 0)
        return;
    view->call_list().remove(this);
    view->camera().section({});
}

void grSection::view_deleted(void* sender, void*)
{
    std::erase(the_views, static_cast<dgView*>(sender));
}

void grSection::plane(const std::optional<giPlane>& plane)
{
    the_plane = plane;
    if (plane)
        the_last_plane = plane;
    for (dgView* view : the_views)
        view->camera().section(plane);
}

void grSection::across(const dgView& view, gi_Axis axis, const std::optional<double>& offset)
{
    const giVector3 direction(axis == gi_X_AXIS, axis == gi_Y_AXIS, axis == gi_Z_AXIS);
    const giBox3 box = box_of(view);
    const giPoint3 middle = box.empty() ? giPoint3() : box.middle();
    const giPoint3 point = offset ? middle + direction * (*offset - middle[axis]) : middle;
    plane(giPlane(point, seen_along(view).dot(direction) < 0 ? -direction : direction));
}

void grSection::resume(const dgView& view)
{
    if (the_last_plane)
        return plane(std::optional<giPlane>(the_last_plane));
    const giVector3 direction = seen_along(view);
    int axis = 0;
    for (int other = 1; other < 3; ++other)
        if (std::abs(direction[other]) > std::abs(direction[axis]))
            axis = other;
    across(view, static_cast<gi_Axis>(axis));
}

void grSection::flip()
{
    if (the_plane)
        plane(giPlane(the_plane->point(), -the_plane->normal()));
}

void grSection::move(const dgView& view, double distance)
{
    if (!the_plane)
        return;
    const giBox3 box = box_of(view);
    double low = std::numeric_limits<double>::max(), high = -low;
    for (int i = 0; i < 8 && !box.empty(); ++i)
    {
        const double corner = the_plane->distance(box.corner(i));
        low = std::min(low, corner);
        high = std::max(high, corner);
    }
    if (low <= high)
        distance = std::clamp(distance, low, high);
    plane(giPlane(the_plane->point() + the_plane->normal() * distance, the_plane->normal()));
}

const giTriBlock* grSection::cap() const
{
    return the_plane && the_cap->block() ? &the_cap->block()->block() : nullptr;
}

int grSection::open_pieces() const
{
    return the_plane ? the_cap->open_pieces() : 0;
}

void grSection::colours(const gsColour& surface, const gsColour& lines)
{
    the_surface_colour = surface;
    the_line_colour = lines;
    the_cap = std::make_unique<grSectionCap>(surface, lines);
}

void grSection::erased(void* sender, void*)
{
    dgView& view = *static_cast<dgView*>(sender);
    if (!the_plane || !view.root())
        return;
    the_cap->find(view, *the_plane);
    the_cap->draw(view);
}

void grSection::redraw()
{
    std::vector<dgRenderer*> renderers;
    for (const dgView* view : the_views)
        renderers.push_back(view->renderer());
    gr_redraw(renderers, the_views);
}
