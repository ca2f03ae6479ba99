#include "spPart.h"

#include "spOutline.h"
#include "spProfile.h"
#include "spSurface.h"

#include <cmath>

namespace
{
// Heights and lengths in millimetres. A hole's profile runs downwards, a boss's from its foot to its top.
const double plate_top = 24, pocket_floor = 10, counterbore_floor = 15;
const double edge_fillet = 3, foot_chamfer = 1, pocket_chamfer = 0.8, pocket_fillet = 4;
const double hub_top = 34, hub_fillet = 3, hub_chamfer = 1.5, bore_chamfer = 1;
const double boss_top = 38, boss_fillet = 4, boss_chamfer = 1, blind_chamfer = 1, blind_floor = 12, blind_radius = 6;
const double blind_tip = 0.4; // radius of the flat that ends the drill's cone
const double drill_chamfer = 0.5, slot_chamfer = 0.8;
const double shank_end = -6, head_top = 23, head_fillet = 0.6, socket_floor = 19, socket_chamfer = 0.4;
const giPoint2 hub_centre(18, 0);

// All outlines of the part, cut to one spacing.
struct part_outlines
{
    explicit part_outlines(double spacing);

    spOutline plate, pocket, hub, bore, slot;
    std::vector<spOutline> bosses, blind_holes, floor_holes;
    std::vector<spOutline> counterbores, clearances, heads, shanks, sockets;
};

part_outlines::part_outlines(double spacing)
    : plate(spOutline::rectangle(giPoint2(0, 0), 180, 120, 14, spacing)),
      pocket(spOutline::rectangle(hub_centre, 100, 80, 12, spacing)), hub(spOutline::circle(hub_centre, 17, spacing)),
      bore(spOutline::circle(hub_centre, 9, spacing)), slot(spOutline::rectangle(giPoint2(-56, 0), 32, 12, 6, spacing))
{
    for (const double y : {-29.0, 29.0})
    {
        bosses.push_back(spOutline::circle(giPoint2(-56, y), 13, spacing));
        blind_holes.push_back(spOutline::circle(giPoint2(-56, y), blind_radius, spacing));
    }
    for (int hole = 0; hole < 6; ++hole)
    {
        const giAngle angle(hole * 3.14159265358979323846 / 3);
        const giPoint2 centre = hub_centre + giVector2(angle.cos(), angle.sin()) * 28.5;
        floor_holes.push_back(spOutline::circle(centre, 2.5, spacing));
    }
    for (const giPoint2& centre : {giPoint2(-78, -48), giPoint2(78, -48), giPoint2(78, 48), giPoint2(-78, 48)})
    {
        counterbores.push_back(spOutline::circle(centre, 6.5, spacing));
        clearances.push_back(spOutline::circle(centre, 3.6, spacing));
        heads.push_back(spOutline::circle(centre, 5.4, spacing));
        shanks.push_back(spOutline::circle(centre, 3, spacing));
        sockets.push_back(spOutline::hexagon(centre, 5, 0.3, spacing));
    }
}

using loops = std::vector<spSurface::loop>;

void append(loops& all, const std::vector<spOutline>& outlines, double offset)
{
    for (const spOutline& outline : outlines)
        all.push_back({outline, offset});
}

// A hole with a chamfer at its upper end, and at its lower end unless lower_chamfer is 0.
spProfile hole(double top, double bottom, double upper_chamfer, double lower_chamfer, double spacing)
{
    spProfile profile(giPoint2(upper_chamfer, top), spacing);
    if (upper_chamfer > 0)
        profile.line_to(0, top - upper_chamfer);
    profile.line_to(0, bottom + lower_chamfer);
    if (lower_chamfer > 0)
        profile.line_to(lower_chamfer, bottom);
    return profile;
}

void make_plate(spSurface& surface, const part_outlines& part, double spacing)
{
    spProfile wall(giPoint2(-foot_chamfer, 0), spacing);
    wall.line_to(0, foot_chamfer)
        .line_to(0, plate_top - edge_fillet)
        .arc_to(-edge_fillet, plate_top, giPoint2(-edge_fillet, plate_top - edge_fillet));
    surface.sweep(part.plate, wall);

    loops top{{part.plate, -edge_fillet}, {part.pocket, pocket_chamfer}, {part.slot, slot_chamfer}};
    append(top, part.bosses, boss_fillet);
    append(top, part.counterbores, drill_chamfer);
    surface.face(plate_top, true, top);

    loops bottom{{part.plate, -foot_chamfer}, {part.bore, bore_chamfer}, {part.slot, slot_chamfer}};
    append(bottom, part.floor_holes, drill_chamfer);
    append(bottom, part.clearances, drill_chamfer);
    surface.face(0, false, bottom);
}

void make_pocket(spSurface& surface, const part_outlines& part, double spacing)
{
    spProfile wall(giPoint2(pocket_chamfer, plate_top), spacing);
    wall.line_to(0, plate_top - pocket_chamfer)
        .line_to(0, pocket_floor + pocket_fillet)
        .arc_to(-pocket_fillet, pocket_floor, giPoint2(-pocket_fillet, pocket_floor + pocket_fillet));
    surface.sweep(part.pocket, wall);

    loops floor{{part.pocket, -pocket_fillet}, {part.hub, hub_fillet}};
    append(floor, part.floor_holes, drill_chamfer);
    surface.face(pocket_floor, true, floor);
}

void make_hub(spSurface& surface, const part_outlines& part, double spacing)
{
    spProfile wall(giPoint2(hub_fillet, pocket_floor), spacing);
    wall.arc_to(0, pocket_floor + hub_fillet, giPoint2(hub_fillet, pocket_floor + hub_fillet)).line_to(0, 27);
    // The groove for a retaining ring.
    wall.line_to(-1.2, 27).line_to(-1.2, 29).line_to(0, 29);
    wall.line_to(0, hub_top - hub_chamfer).line_to(-hub_chamfer, hub_top);
    surface.sweep(part.hub, wall);
    surface.face(hub_top, true, {{part.hub, -hub_chamfer}, {part.bore, bore_chamfer}});
    surface.sweep(part.bore, hole(hub_top, 0, bore_chamfer, bore_chamfer, spacing));
}

void make_bosses(spSurface& surface, const part_outlines& part, double spacing)
{
    spProfile wall(giPoint2(boss_fillet, plate_top), spacing);
    wall.arc_to(0, plate_top + boss_fillet, giPoint2(boss_fillet, plate_top + boss_fillet))
        .line_to(0, boss_top - boss_chamfer)
        .line_to(-boss_chamfer, boss_top);

    // A drill's point has an angle of 118 degrees.
    const double cone_depth = (blind_radius - blind_tip) / std::tan(59 * 3.14159265358979323846 / 180);
    spProfile blind = hole(boss_top, blind_floor + cone_depth, blind_chamfer, 0, spacing);
    blind.line_to(blind_tip - blind_radius, blind_floor);

    for (std::size_t boss = 0; boss < part.bosses.size(); ++boss)
    {
        surface.sweep(part.bosses[boss], wall);
        surface.face(boss_top, true, {{part.bosses[boss], -boss_chamfer}, {part.blind_holes[boss], blind_chamfer}});
        surface.sweep(part.blind_holes[boss], blind);
        surface.face(blind_floor, true, {{part.blind_holes[boss], blind_tip - blind_radius}});
    }
}

void make_holes(spSurface& surface, const part_outlines& part, double spacing)
{
    surface.sweep(part.slot, hole(plate_top, 0, slot_chamfer, slot_chamfer, spacing));
    for (const spOutline& outline : part.floor_holes)
        surface.sweep(outline, hole(pocket_floor, 0, drill_chamfer, drill_chamfer, spacing));
    for (std::size_t corner = 0; corner < part.counterbores.size(); ++corner)
    {
        surface.sweep(part.counterbores[corner], hole(plate_top, counterbore_floor, drill_chamfer, 0, spacing));
        surface.face(counterbore_floor, true, {{part.counterbores[corner], 0}, {part.clearances[corner], 0}});
        surface.sweep(part.clearances[corner], hole(counterbore_floor, 0, 0, drill_chamfer, spacing));
    }
}

void make_screws(spSurface& surface, const part_outlines& part, double spacing)
{
    // Grooves of a millimetre's pitch stand for the thread.
    const double core = -0.5;
    spProfile shank(giPoint2(core, shank_end), spacing);
    shank.line_to(0, shank_end + 0.5);
    for (double z = shank_end + 0.5; z < 6; z += 1)
        shank.line_to(core, z + 0.5).line_to(0, z + 1);
    shank.line_to(0, counterbore_floor);

    spProfile head(giPoint2(0, counterbore_floor), spacing);
    head.line_to(0, head_top - head_fillet)
        .arc_to(-head_fillet, head_top, giPoint2(-head_fillet, head_top - head_fillet));
    const spProfile socket = hole(head_top, socket_floor, socket_chamfer, 0, spacing);

    for (std::size_t corner = 0; corner < part.heads.size(); ++corner)
    {
        surface.face(shank_end, false, {{part.shanks[corner], core}});
        surface.sweep(part.shanks[corner], shank);
        surface.face(counterbore_floor, false, {{part.heads[corner], 0}, {part.shanks[corner], 0}});
        surface.sweep(part.heads[corner], head);
        surface.face(head_top, true, {{part.heads[corner], -head_fillet}, {part.sockets[corner], socket_chamfer}});
        surface.sweep(part.sockets[corner], socket);
        surface.face(socket_floor, true, {{part.sockets[corner], 0}});
    }
}

using block_maker = void (*)(spSurface&, const part_outlines&, double);
const block_maker block_makers[] = {make_plate, make_pocket, make_hub, make_bosses, make_holes, make_screws};

int triangles_at(double spacing)
{
    const part_outlines part(spacing);
    spSurface counter(nullptr);
    for (const block_maker make : block_makers)
        make(counter, part, spacing);
    return counter.triangles();
}

double spacing_for(int triangles)
{
    // Bisection of the exponent: the number of triangles falls with the spacing, by steps.
    double finest = std::log(0.01), coarsest = std::log(20.0);
    for (int step = 0; step < 40; ++step)
    {
        const double middle = (finest + coarsest) / 2;
        (triangles_at(std::exp(middle)) > triangles ? finest : coarsest) = middle;
    }
    return std::exp(coarsest);
}
}

std::vector<std::unique_ptr<giTriBlock>> sp_make_part(int triangles)
{
    const double spacing = spacing_for(triangles);
    const part_outlines part(spacing);
    std::vector<std::unique_ptr<giTriBlock>> blocks;
    for (const block_maker make : block_makers)
    {
        blocks.push_back(std::make_unique<giTriBlock>());
        spSurface surface(blocks.back().get());
        make(surface, part, spacing);
    }
    return blocks;
}
