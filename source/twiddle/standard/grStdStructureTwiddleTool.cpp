#include "grStdStructureTwiddleTool.h"

#include "dgView.h"
#include "grStdTwiddleHooks.h"
#include "grStructurePlacement.h"
#include "grViewRefresher.h"
#include "grWorkPlane.h"
#include "utTypeID.h"

UT_DEFINE_TYPE(grStdStructureTwiddleTool, grStdTwiddleTool);

grStdStructureTwiddleTool::grStdStructureTwiddleTool(const utString& args, const gwResourceDB* db,
                                                     grStdTwiddleHooks* hooks)
    : grStdTwiddleTool(args, db, hooks)
{}

grStdStructureTwiddleTool::~grStdStructureTwiddleTool() = default;

int grStdStructureTwiddleTool::find_detail(const gwKeyEvent& event)
{
    the_detail.reset(hooks() ? hooks()->structure_detail(this, event) : nullptr);
    return the_detail && the_detail->structure();
}

int grStdStructureTwiddleTool::start_structure_twiddle(const gwKeyEvent& event)
{
    if (!find_detail(event) || !structure_view())
    {
        the_detail.reset();
        return 0;
    }
    the_placement = std::make_unique<grStructurePlacement>(*the_detail->structure(), structure_view()->root());
    the_pivot = workplane_in_use() ? workplane_in_use()->origin() : the_placement->middle();
    start_course(event, refresher());
    // The hooks may have closed the view.
    return structure_view() != nullptr;
}

void grStdStructureTwiddleTool::move_structure(const giXform3& motion_world, const gwMouseEvent& event)
{
    the_placement->move(motion_world);
    twiddle_mouse(event);
    if (refresher())
        refresher()->base_refresh();
}

void grStdStructureTwiddleTool::end_structure_twiddle(const gwKeyEvent& event)
{
    if (!the_detail)
        return;
    if (refresher())
        refresher()->base_end_twiddle();
    twiddle_end(event);
}

void grStdStructureTwiddleTool::end_twiddle(const gwKeyEvent& event)
{
    end_structure_twiddle(event);
}

grIdleAction grStdStructureTwiddleTool::idle_event()
{
    return the_detail ? idle_course(refresher()) : grIDLE_DONE;
}

grWorkPlane* grStdStructureTwiddleTool::workplane_in_use() const
{
    grWorkPlane* workplane = the_detail ? the_detail->workplane() : nullptr;
    return workplane && workplane->on() ? workplane : nullptr;
}
