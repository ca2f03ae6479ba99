#include "dgPicker.h"

#include "dgAttributeContext.h"
#include "dgColourTable.h"
#include "dgCompiledStructure.h"
#include "dgDrawState.h"
#include "dgFeatureTree.h"
#include "dgGlyphOutline.h"
#include "dgGraphicalAttribute.h"
#include "dgGraphicalPrimitive.h"
#include "dgLooks.h"
#include "dgNetworkWalk.h"
#include "dgPickAperture.h"
#include "dgPickHits.h"
#include "dgPickResult.h"
#include "dgPrimitiveRun.h"
#include "dgRunBounds.h"
#include "dgStepTree.h"
#include "dgText.h"
#include "dgTextLayout.h"
#include "dgViewVolume.h"
#include "giBox3.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>
#include <numeric>
#include <utility>

namespace
{
using Point = dgPicker::Point;

constexpr double slack = 0.01; // pixels by which rounding may move what meets the aperture, and more

// Whether no edge of the first of two convex shapes, of one point or more, parts them.
bool unparted(const Point* shape, int n, const Point* other, int n_other)
{
    for (int i = 0; i < n; ++i)
    {
        const Point& a = shape[i];
        const Point& b = shape[(i + 1) % n];
        const double nx = b.y - a.y, ny = a.x - b.x;
        const auto side = [&](const Point& point) { return nx * (point.x - a.x) + ny * (point.y - a.y); };
        double low = 0, high = 0;
        for (int k = 0; k < n; ++k)
        {
            low = std::min(low, side(shape[k]));
            high = std::max(high, side(shape[k]));
        }
        double other_low = side(other[0]), other_high = other_low;
        for (int k = 1; k < n_other; ++k)
        {
            other_low = std::min(other_low, side(other[k]));
            other_high = std::max(other_high, side(other[k]));
        }
        if (other_low > high || other_high < low)
            return false;
    }
    return true;
}

bool bounds_meet(const Point* points, int n, const giBox2& box)
{
    const auto [left, right] = std::minmax_element(points, points + n, [](auto& a, auto& b) { return a.x < b.x; });
    const auto [low, high] = std::minmax_element(points, points + n, [](auto& a, auto& b) { return a.y < b.y; });
    return left->x <= box.high().x() && right->x >= box.low().x() && low->y <= box.high().y() &&
           high->y >= box.low().y();
}

giBox2 intersection(const giBox2& a, const giBox2& b)
{
    return giBox2(std::max(a.low().x(), b.low().x()), std::max(a.low().y(), b.low().y()),
                  std::min(a.high().x(), b.high().x()), std::min(a.high().y(), b.high().y()));
}

// Cuts off what has a negative distance (Sutherland and Hodgman, 1974).
template <class Distance>
void cut(std::vector<giPoint3>& corners, Distance distance)
{
    const auto inside = [&](const giPoint3& point) { return distance(point) >= 0; };
    if (std::all_of(corners.begin(), corners.end(), inside))
        return;
    const std::vector<giPoint3> whole = std::exchange(corners, {});
    for (std::size_t i = 0; i < whole.size(); ++i)
    {
        const giPoint3& a = whole[i];
        const giPoint3& b = whole[(i + 1) % whole.size()];
        if (inside(a))
            corners.push_back(a);
        if (inside(a) != inside(b))
            corners.push_back(giPoint3::interpolate(a, b, distance(a) / (distance(a) - distance(b))));
    }
}
}

// The line through the middle of what is shown in the aperture, in a run's coordinates. Most boxes are told from it by
// a few operations.
class dgPicker::Axis
{
public:
    Axis(const dgPicker& picker, const giXform3& to_view)
    {
        const giXform3 from_view = to_view.inverse();
        giBox2 box = picker.the_box;
        box.grow(slack);
        giPoint3 ends[2];
        for (int end = 0; end < 2; ++end)
        {
            const double depth = end ? picker.the_back : picker.the_front;
            const auto place = [&](double x, double y)
            {
                giPoint3 view;
                picker.the_camera.transform(giPoint3(x, y, depth), view, dgSPACE_DEVICE, dgSPACE_VIEW);
                const giPoint3 found = view * from_view;
                the_known &= (found * to_view - view).length() <= rounding * (1 + view.vector().length());
                return found;
            };
            ends[end] = place(box.middle().x(), box.middle().y());
            for (const double x : {box.low().x(), box.high().x()})
                for (const double y : {box.low().y(), box.high().y()})
                    the_radius = std::max(the_radius, (place(x, y) - ends[end]).length());
            the_radius += rounding * (the_radius + ends[end].vector().length());
        }
        const giVector3 along = ends[1] - ends[0];
        const double components[] = {along.x(), along.y(), along.z()};
        const double starts[] = {ends[0].x(), ends[0].y(), ends[0].z()};
        for (int i = 0; i < 3; ++i)
        {
            the_start[i] = starts[i];
            the_inverse[i] = std::abs(components[i]) > smallest ? 1 / components[i] : 1 / smallest;
        }
    }

    // Whether nothing of a box lies as near to the axis as what is shown may (slabs, Kay and Kajiya 1986).
    bool misses(const giBox3& box) const
    {
        const double low[] = {box.low().x(), box.low().y(), box.low().z()};
        const double high[] = {box.high().x(), box.high().y(), box.high().z()};
        double enter = 0, leave = 1;
        for (int i = 0; i < 3; ++i)
        {
            const double a = (low[i] - the_radius - the_start[i]) * the_inverse[i];
            const double b = (high[i] + the_radius - the_start[i]) * the_inverse[i];
            enter = std::max(enter, std::min(a, b));
            leave = std::min(leave, std::max(a, b));
        }
        return enter > leave && the_known;
    }

private:
    static constexpr double rounding = 1e-6, smallest = 1e-200;
    double the_start[3], the_inverse[3]; // by axis; the way from the front to the back is 1 long
    double the_radius = 0;
    bool the_known = true; // whether there is a way back from view space
};

// What follows from where a run lies; that of many runs is the same.
struct dgPicker::Placing
{
    Placing(const dgPicker& picker, const giXform3& run_to_world)
        : to_world(run_to_world), to_view(run_to_world * picker.the_camera.orientation()),
          volume(picker.volume(to_view)), axis(picker, to_view)
    {}
    giXform3 to_world, to_view;
    dgViewVolume volume;
    Axis axis;
};

dgPicker::~dgPicker() = default;

dgPicker::dgPicker(const dgCamera& camera, const dgPickAperture& aperture, dgPickMode mode,
                   const dgPickSettings& settings, const dgTextFontSlots& fonts, dgPickResult& result)
    : the_camera(camera), the_box(intersection(aperture.device_box(), camera.view_port_dc())),
      the_corners{{the_box.low().x(), the_box.low().y()},
                  {the_box.high().x(), the_box.low().y()},
                  {the_box.high().x(), the_box.high().y()},
                  {the_box.low().x(), the_box.high().y()}},
      the_mode(mode), the_settings(settings), the_fonts(fonts), the_result(result)
{
    camera.shown_depths(the_front, the_back);
    if (const std::optional<giPlane>& plane = camera.section())
        the_section = giPlane(plane->point() * camera.orientation(), plane->normal() * camera.orientation());
    // Whatever meets the aperture is shown no farther from it than this.
    const giBox2& port = camera.view_port_dc();
    const auto share = [](double place, double low, double high)
    { return (2 * place - low - high) / (high - low + 1); };
    giBox2 box = the_box;
    box.grow(slack);
    the_part = giBox2(
        share(box.low().x(), port.low().x(), port.high().x()), share(box.low().y(), port.low().y(), port.high().y()),
        share(box.high().x(), port.low().x(), port.high().x()), share(box.high().y(), port.low().y(), port.high().y()));
    the_projection = camera.projection_transform();
}

// Meets the steps of a structure that lie about the aperture, in drawing order.
class dgPicker::Cursor
{
public:
    using Item = const dgCompiledStructure::Step*;

    Cursor(const dgStructure& structure, Walk& walk);

    Item next();
    static const dgGraphicalElement* element(Item step) { return step->element; }

private:
    Walk* the_walk;
    const std::vector<dgCompiledStructure::Step>* the_steps;
    std::shared_ptr<const dgStepTree> the_tree;
    std::vector<int> the_leaves;
    std::size_t the_next = 0;
    int the_passed = 0; // steps whose attributes are in force
};

class dgPicker::Walk : public dgNetworkVisitor<Cursor>
{
public:
    Walk(dgPicker& picker, const dgLooks* looks) : the_picker(picker)
    {
        if (looks)
            the_next_look = looks->root();
    }

    bool enter(const dgStructure&)
    {
        if (the_met && !dgLooks::enter(the_looks.back(), *the_met, the_next_look))
            return false;
        the_looks.push_back(the_next_look);
        if (dgPickHits* hits = the_picker.the_hits; hits && the_met)
            hits->calls.push_back(the_met);
        the_transforms.push_back(the_transform);
        the_attributes.push();
        return true;
    }
    Cursor cursor(const dgStructure& structure) { return Cursor(structure, *this); }
    bool visit(const dgCompiledStructure::Step* step)
    {
        if (!step->run)
            return true;
        if (!dgLooks::parts_runs(the_looks.back()))
            pick(*step->run);
        else
            for (const dgLooks::Part& part : dgLooks::parts(the_looks.back(), *step->run))
                if (!part.over_another)
                    pick(*part.run);
        return !the_picker.full();
    }
    void leave(const dgStructure&)
    {
        the_looks.pop_back();
        if (dgPickHits* hits = the_picker.the_hits; hits && !hits->calls.empty())
            hits->calls.pop_back();
        the_transforms.pop_back();
        the_attributes.pop();
    }

private:
    friend class dgPicker::Cursor;
    void pick(const dgPrimitiveRun& run)
    {
        if (run.topology == dgTOPOLOGY_TEXT)
            the_picker.pick_texts(run, the_attributes, the_transform);
        else
            the_picker.pick_in(run, the_transform);
    }
    dgPicker& the_picker;
    std::vector<giXform3> the_transforms;        // to world space, of the structures under way
    giXform3 the_transform;                      // of the step that was met last
    const dgGraphicalElement* the_met = nullptr; // the call that was met last
    dgLooks::Place the_next_look;
    std::vector<dgLooks::Place> the_looks; // of the structures under way
    dgAttributeContext the_attributes;     // those of texts, in force there
};

dgPicker::Cursor::Cursor(const dgStructure& structure, Walk& walk) : the_walk(&walk)
{
    const giXform3& to_world = walk.the_transforms.back();
    const dgBounds& bounds = structure.bounds();
    const dgCompiledStructure& form = structure.compiled();
    the_steps = &form.steps();
    the_tree = form.tree();
    if (bounds.world && !(to_world == giXform3()))
    {
        the_leaves.resize(static_cast<std::size_t>(the_tree->drawing_steps()));
        std::iota(the_leaves.begin(), the_leaves.end(), 0);
        return;
    }
    dgPicker& picker = walk.the_picker;
    const giXform3 to_view = to_world * picker.the_camera.orientation();
    const dgViewVolume volume = picker.volume(to_view);
    the_tree->tree().find([&](const giBox3& box) { return picker.look(box, to_view, volume); },
                          [&](int leaf, bool) { the_leaves.push_back(leaf); });
    // Where texts reach is not known to boxes.
    for (const std::vector<int>* leaves : {&the_tree->open_leaves(), &the_tree->vague_leaves()})
        the_leaves.insert(the_leaves.end(), leaves->begin(), leaves->end());
    std::sort(the_leaves.begin(), the_leaves.end());
    the_leaves.erase(std::unique(the_leaves.begin(), the_leaves.end()), the_leaves.end());
}

dgPicker::Cursor::Item dgPicker::Cursor::next()
{
    if (the_next == the_leaves.size())
        return nullptr;
    const int leaf = the_leaves[the_next++];
    bool world = false;
    const giXform3 placement = the_tree->placement(leaf, world);
    the_walk->the_transform = world ? placement : placement * the_walk->the_transforms.back();
    const int step = the_tree->step(leaf);
    const auto set = [&](const dgGraphicalElement& element)
    {
        if (element.type() >= dgTYPE_TEXT_FONT_SLOT && element.type() <= dgTYPE_TEXT_ALIGNMENT)
            the_walk->the_attributes.set(static_cast<const dgGraphicalAttribute&>(element));
    };
    the_tree->attributes_between(std::exchange(the_passed, step), step, set);
    const Item item = &(*the_steps)[static_cast<std::size_t>(step)];
    the_walk->the_met = item->element;
    return item;
}

void dgPicker::pick(const dgStructure& root, const dgLooks* looks)
{
    if (the_box.low().x() > the_box.high().x() || the_box.low().y() > the_box.high().y())
        return;
    dg_walk_network(root, Walk(*this, looks));
}

bool dgPicker::full() const
{
    return the_settings.largest_count > 0 && the_result.count() >= the_settings.largest_count;
}

void dgPicker::take(const dgGraphicalPrimitive& primitive, const giXform3& to_view, const dgViewVolume& volume)
{
    if (the_hits)
        add_hits(primitive, to_view, volume);
    else
        the_result.add(const_cast<dgGraphicalPrimitive*>(&primitive));
}

void dgPicker::pick_in(const dgPrimitiveRun& run, const giXform3& to_world)
{
    if (!the_placing || !(the_placing->to_world == to_world))
        the_placing = std::make_unique<Placing>(*this, to_world);
    const giXform3& to_view = the_placing->to_view;
    const dgViewVolume& volume = the_placing->volume;
    const dgRunBounds& bounds = run.bounds();
    the_groups.clear();
    const Axis& axis = the_placing->axis;
    const bool exact = the_mode == dgPICK_EXACT;
    bounds.tree().find([&](const giBox3& box)
                       { return exact && axis.misses(box) ? dgBOX_OUTSIDE : look(box, to_view, volume); },
                       [&](int group, bool) { the_groups.push_back(group); });
    std::sort(the_groups.begin(), the_groups.end());
    for (const int group : the_groups)
        for (int i = bounds.first_primitive(group); i < bounds.end_primitive(group) && !full(); ++i)
        {
            const dgGraphicalPrimitive* primitive = run.primitives[static_cast<std::size_t>(i)];
            if (picks(*primitive, to_view, volume))
                take(*primitive, to_view, volume);
        }
}

void dgPicker::pick_texts(const dgPrimitiveRun& run, const dgAttributeContext& attributes, const giXform3& to_world)
{
    if (!the_settings.lines)
        return;
    dgDrawState state;
    attributes.resolve(the_fonts, dgColourTable(), state);
    const giXform3 to_view = to_world * the_camera.orientation();
    for (const dgGraphicalPrimitive* primitive : run.primitives)
        if (!full() && picks(static_cast<const dgText&>(*primitive), state.text, to_view))
            take(*primitive, to_view, volume(to_view));
}

bool dgPicker::picks(const dgText& text, const dgTextStyle& style, const giXform3& to_view)
{
    // No letter is wider than two of its heights, nor are lines farther apart.
    const double letters = static_cast<double>(text.text().length()) + 1;
    const double reach =
        std::abs(style.height) * letters * (2 + 2 * std::abs(style.width_factor) + std::abs(style.spacing));
    giBox3 about(text.position(), text.position());
    about.grow(reach * std::max(style.baseline.length(), style.up.length()));
    const dgViewVolume volume = this->volume(to_view);
    if (look(about, to_view, volume) == dgBOX_OUTSIDE)
        return false;
    if (the_mode != dgPICK_EXACT)
        return shown_part(dg_text_box(text, style), to_view).overlap(the_box);
    for (const dgPlacedGlyph& placed : dg_lay_out_text(text.text(), style))
    {
        dgGlyphOutline letter;
        dg_glyph_outline(style, placed.glyph, letter);
        const giVector3 x = style.baseline, y = style.up, z = x.cross(y);
        const giVector3 o = text.position().vector() + x * placed.origin.x() + y * placed.origin.y();
        const double width = style.height * style.width_factor, height = style.height;
        const giXform3 from_ems({width * x.x(), width * x.y(), width * x.z(), 0, height * y.x(), height * y.y(),
                                 height * y.z(), 0, z.x(), z.y(), z.z(), 0, o.x(), o.y(), o.z(), 1});
        if (meets(letter, from_ems * to_view))
            return true;
    }
    return false;
}

// Whether the aperture meets an outline or lies wholly inside it, by the rule by which letters are filled.
bool dgPicker::meets(const dgGlyphOutline& letter, const giXform3& to_view)
{
    const Point& inside = the_corners[0];
    int winding = 0;
    bool whole = true;
    for (const std::vector<giPoint2>& contour : letter.contours)
        for (std::size_t i = 0; i < contour.size(); ++i)
        {
            const giPoint2& a = contour[i];
            const giPoint2& b = contour[(i + 1) % contour.size()];
            const giPoint3 ends[] = {giPoint3(a.x(), a.y(), 0) * to_view, giPoint3(b.x(), b.y(), 0) * to_view};
            if (meets(ends, 2))
                return true;
            whole &= shows(ends[0]);
            if (!whole)
                continue;
            const Point p = device(ends[0]), q = device(ends[1]);
            const double side = (q.x - p.x) * (inside.y - p.y) - (q.y - p.y) * (inside.x - p.x);
            if (p.y <= inside.y && q.y > inside.y)
                winding += side > 0;
            else if (q.y <= inside.y && p.y > inside.y)
                winding -= side < 0;
        }
    return whole && winding != 0;
}

bool dgPicker::picks(const dgGraphicalPrimitive& primitive, const giXform3& to_view, const dgViewVolume& volume)
{
    const dgGeometry geometry = primitive.geometry();
    const int surface = geometry.topology == dgTOPOLOGY_TRIANGLES;
    if (surface ? !the_settings.surfaces : !the_settings.lines)
        return false;
    // The box of next to nothing costs what it may spare.
    if (constexpr int few = 2; the_mode == dgPICK_EXACT && geometry.points && geometry.nfeatures <= few)
        return features_meet(primitive, geometry, to_view, volume);
    const giBox3 box = primitive.bounding_box();
    if (box.empty())
        return false;
    if (the_mode != dgPICK_EXACT || !geometry.points)
        return shown_part(box, to_view).overlap(the_box);
    return look(box, to_view, volume) != dgBOX_OUTSIDE && features_meet(primitive, geometry, to_view, volume);
}

dgViewVolume dgPicker::volume(const giXform3& to_view) const
{
    dgViewVolume volume(to_view * the_projection, the_part, true);
    if (the_section)
        volume.cut(to_view, *the_section);
    return volume;
}

// Whether a box may hold something that is picked. Rounding must not part it from what is in it.
dgBoxTest dgPicker::look(const giBox3& box, const giXform3& to_view, const dgViewVolume& volume)
{
    if (the_mode == dgPICK_EXACT)
        return volume.test(box);
    giBox2 shown = shown_part(box, to_view);
    shown.grow(slack);
    return shown.overlap(the_box) ? dgBOX_PARTLY : dgBOX_OUTSIDE;
}

// The rectangle that holds the shown part of a box, in device pixels.
giBox2 dgPicker::shown_part(const giBox3& box, const giXform3& to_view)
{
    giBox2 shown;
    const auto merge = [&](const giPoint3& point)
    {
        const Point found = device(point);
        shown.merge(giPoint2(found.x, found.y));
    };
    giPoint3 corners[8];
    bool whole = true;
    for (int corner = 0; corner < 8; ++corner)
    {
        corners[corner] = box.corner(corner) * to_view;
        whole &= shows(corners[corner]);
    }
    if (whole)
    {
        for (const giPoint3& corner : corners)
            merge(corner);
        return shown;
    }
    // The shown part is the hull of the corners between the planes and of where the edges go through these.
    for (int corner = 0; corner < 8; ++corner)
        for (int bit = 1; bit < 8; bit *= 2)
        {
            if (corner & bit)
                continue;
            the_shown_part = {corners[corner], corners[corner | bit]};
            leave_shown_part();
            for (const giPoint3& point : the_shown_part)
                merge(point);
        }
    return shown;
}

bool dgPicker::shows(const giPoint3& point_view) const
{
    return point_view.z() <= the_front && point_view.z() >= the_back &&
           !(the_section && the_section->distance(point_view) < 0);
}

// Cuts off what lies beyond the planes.
void dgPicker::leave_shown_part()
{
    cut(the_shown_part, [this](const giPoint3& point) { return the_front - point.z(); });
    cut(the_shown_part, [this](const giPoint3& point) { return point.z() - the_back; });
    if (the_section)
        cut(the_shown_part, [this](const giPoint3& point) { return the_section->distance(point); });
}

dgPicker::Point dgPicker::device(const giPoint3& point_view) const
{
    giPoint3 found;
    the_camera.transform(point_view, found, dgSPACE_VIEW, dgSPACE_DEVICE);
    return {found.x(), found.y()};
}

bool dgPicker::features_meet(const dgGraphicalPrimitive& primitive, const dgGeometry& geometry, const giXform3& to_view,
                             const dgViewVolume& volume)
{
    if (geometry.nfeatures < dgFeatureTree::least_features)
    {
        for (int i = 0; i < geometry.nfeatures; ++i)
            if (feature_meets(geometry, i, to_view))
                return true;
        return false;
    }
    const dgFeatureTree& features = primitive.feature_tree();
    bool found = false;
    features.tree().find([&](const giBox3& box) { return found ? dgBOX_OUTSIDE : look(box, to_view, volume); },
                         [&](int group, bool)
                         {
                             for (const unsigned feature : features.features(group))
                                 found = found || feature_meets(geometry, static_cast<int>(feature), to_view);
                         });
    return found;
}

bool dgPicker::feature_meets(const dgGeometry& geometry, int feature, const giXform3& to_view)
{
    int points[3];
    const int n = dg_feature_points(geometry, feature, points);
    giPoint3 corners[3];
    for (int i = 0; i < n; ++i)
        corners[i] = geometry.points[points[i]] * to_view;
    return meets(corners, n);
}

// Whether the shown part of a point, a segment or a triangle meets the aperture.
bool dgPicker::meets(const giPoint3* corners_view, int n)
{
    the_shown_part.assign(corners_view, corners_view + n);
    leave_shown_part();
    constexpr int most_corners = 8; // each of the three planes adds one at most to a convex shape
    Point points[most_corners];
    int count = 0;
    for (const giPoint3& corner : the_shown_part)
        points[count++] = device(corner);
    return count > 0 && bounds_meet(points, count, the_box) && unparted(points, count, the_corners, 4);
}

// Of what meet has left of a feature, the point next to the middle of the aperture; the answer is its distance there in
// pixels, 0 inside.
double dgPicker::next_to_middle(giPoint3& point_view) const
{
    const std::vector<giPoint3>& shape = the_shown_part;
    const Point middle{0.5 * (the_box.low().x() + the_box.high().x()), 0.5 * (the_box.low().y() + the_box.high().y())};
    double nearest = std::numeric_limits<double>::max(), area = 0;
    bool left = false, right = false;
    const auto w = [this](const giPoint3& point) { return point.z() * the_projection(2, 3) + the_projection(3, 3); };
    for (std::size_t i = 0; i < shape.size(); ++i)
    {
        const giPoint3 &a = shape[i], &b = shape[(i + 1) % shape.size()];
        const Point p = device(a), q = device(b);
        const double x = q.x - p.x, y = q.y - p.y;
        const double side = x * (middle.y - p.y) - y * (middle.x - p.x);
        left |= side > 0;
        right |= side < 0;
        area += p.x * q.y - p.y * q.x;
        const double length = x * x + y * y;
        const double t =
            length > 0 ? std::clamp(((middle.x - p.x) * x + (middle.y - p.y) * y) / length, 0.0, 1.0) : 0.0;
        const double distance = std::hypot(p.x + t * x - middle.x, p.y + t * y - middle.y);
        if (distance >= nearest)
            continue;
        nearest = distance;
        // Shares of a projected segment are those of the segment divided by w.
        const double share = t * w(a) / (t * w(a) + (1 - t) * w(b));
        point_view = giPoint3::interpolate(a, b, share);
    }
    if (shape.size() < 3 || (left && right) || area == 0)
        return nearest;
    giPoint3 start, end;
    the_camera.transform(giPoint3(middle.x, middle.y, the_front), start, dgSPACE_DEVICE, dgSPACE_VIEW);
    the_camera.transform(giPoint3(middle.x, middle.y, the_back), end, dgSPACE_DEVICE, dgSPACE_VIEW);
    const giVector3 normal = (shape[1] - shape[0]).cross(shape[2] - shape[0]);
    const double along = normal.dot(end - start);
    if (along == 0)
        return nearest;
    point_view = start + (end - start) * (normal.dot(shape[0] - start) / along);
    return 0;
}

// Adds the hits of a primitive that meets the aperture.
void dgPicker::add_hits(const dgGraphicalPrimitive& primitive, const giXform3& to_view, const dgViewVolume& volume)
{
    const dgGeometry geometry = primitive.geometry();
    const giXform3 to_world = the_camera.orientation().inverse();
    const auto add = [&](int feature, const giPoint3& point, double distance)
    { the_hits->add(primitive, feature, point * to_world, point.z(), distance); };
    if (geometry.topology == dgTOPOLOGY_TEXT || !geometry.points)
    {
        const giPoint3 middle = primitive.bounding_box().middle() * to_view;
        return add(0, middle, 0);
    }
    int best = -1;
    giPoint3 best_point;
    double best_distance = 0;
    const auto look_at = [&](int feature)
    {
        if (!feature_meets(geometry, feature, to_view))
            return;
        giPoint3 point;
        const double distance = next_to_middle(point);
        if (the_hits->features)
            add(feature, point, distance);
        else if (const bool under = distance == 0; best < 0 || under > (best_distance == 0) ||
                                                   (under == (best_distance == 0) && point.z() > best_point.z()))
        {
            best = feature;
            best_point = point;
            best_distance = distance;
        }
    };
    if (geometry.nfeatures < dgFeatureTree::least_features)
        for (int i = 0; i < geometry.nfeatures; ++i)
            look_at(i);
    else
    {
        const dgFeatureTree& features = primitive.feature_tree();
        features.tree().find([&](const giBox3& box) { return look(box, to_view, volume); },
                             [&](int group, bool)
                             {
                                 for (const unsigned feature : features.features(group))
                                     look_at(static_cast<int>(feature));
                             });
    }
    if (best >= 0)
        add(best, best_point, best_distance);
}
