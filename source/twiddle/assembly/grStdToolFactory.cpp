#include "grStdToolFactory.h"

#include "grApertureTool.h"
#include "grIsometricTool.h"
#include "grMouseWheelZoomTool.h"
#include "grMoveFrontBackTool.h"
#include "grMultiIsometricTool.h"
#include "grMultiMouseWheelZoomTool.h"
#include "grMultiMoveFrontBackTool.h"
#include "grMultiPanCentreTool.h"
#include "grMultiPanTool.h"
#include "grMultiResetFrontBackTool.h"
#include "grMultiResetTool.h"
#include "grMultiRotateViewTool.h"
#include "grMultiSpaceballTool.h"
#include "grMultiToggleDepthCueingTool.h"
#include "grMultiTrackballTool.h"
#include "grMultiViewIndexTool.h"
#include "grMultiZoomBoxTool.h"
#include "grMultiZoomTool.h"
#include "grNoOpTool.h"
#include "grPanCentreTool.h"
#include "grPanTool.h"
#include "grResetFrontBackTool.h"
#include "grResetTool.h"
#include "grRotateStructureTool.h"
#include "grRotateViewTool.h"
#include "grScaleStructureTool.h"
#include "grSpaceballTool.h"
#include "grToggleDepthCueingTool.h"
#include "grTrackballTool.h"
#include "grTranslateStructureTool.h"
#include "grViewIndexTool.h"
#include "grZoomBoxTool.h"
#include "grZoomTool.h"

#include <algorithm>
#include <iterator>

namespace
{
using Creator = grTwiddleTool* (*)(const utString& args, const gwResourceDB* db, grStdTwiddleHooks* hooks);

template <class Tool>
grTwiddleTool* create(const utString& args, const gwResourceDB* db, grStdTwiddleHooks* hooks)
{
    return new Tool(args, db, hooks);
}

struct ToolRow
{
    const char* name;
    Creator single;
    Creator multi; // null: the option is ignored
};

// Row i is tool number i + 1.
constexpr ToolRow the_tools[] = {
    {"zoom", create<grZoomTool>, create<grMultiZoomTool>},
    {"pan", create<grPanTool>, create<grMultiPanTool>},
    {"trackball", create<grTrackballTool>, create<grMultiTrackballTool>},
    {"aperture", create<grApertureTool>, nullptr},
    {"isometric", create<grIsometricTool>, create<grMultiIsometricTool>},
    {"reset", create<grResetTool>, create<grMultiResetTool>},
    {"pan_centre", create<grPanCentreTool>, create<grMultiPanCentreTool>},
    {"reset_front_back", create<grResetFrontBackTool>, create<grMultiResetFrontBackTool>},
    {"move_front_back", create<grMoveFrontBackTool>, create<grMultiMoveFrontBackTool>},
    {"toggle_depth_cueing", create<grToggleDepthCueingTool>, create<grMultiToggleDepthCueingTool>},
    {"rotate_view", create<grRotateViewTool>, create<grMultiRotateViewTool>},
    {"translate_structure", create<grTranslateStructureTool>, nullptr},
    {"scale_structure", create<grScaleStructureTool>, nullptr},
    {"rotate_structure", create<grRotateStructureTool>, nullptr},
    {"view_index", create<grViewIndexTool>, create<grMultiViewIndexTool>},
    {"zoom_box", create<grZoomBoxTool>, create<grMultiZoomBoxTool>},
    {"no_op", create<grNoOpTool>, nullptr},
    {"spaceball", create<grSpaceballTool>, create<grMultiSpaceballTool>},
    {"mouse_wheel_zoom", create<grMouseWheelZoomTool>, create<grMultiMouseWheelZoomTool>},
};
static_assert(std::size(the_tools) == grStdToolFactoryOptions::the_size);
}

grStdToolFactory::grStdToolFactory(grStdTwiddleHooks* hooks, const gwResourceDB* db)
    : the_hooks(hooks), the_resource_db(db)
{
    push_options(grStdToolFactoryOptions());
}

grStdToolFactory::~grStdToolFactory() = default;

int grStdToolFactory::identify_tool(utString name) const
{
    const auto found =
        std::find_if(std::begin(the_tools), std::end(the_tools), [&](const ToolRow& row) { return name == row.name; });
    return found != std::end(the_tools) ? static_cast<int>(found - std::begin(the_tools)) + 1 : 0;
}

grTwiddleTool* grStdToolFactory::create_tool(int tool, const utString& args) const
{
    if (tool < 1 || tool > num_tools())
        return nullptr;
    const ToolRow& row = the_tools[tool - 1];
    const Creator creator = row.multi && options().use_multi_tool(tool) ? row.multi : row.single;
    return creator(args, the_resource_db, the_hooks);
}

int grStdToolFactory::push_options(const grStdToolFactoryOptions& options)
{
    return the_options.emplace_back(options).id();
}

void grStdToolFactory::pop_options(int)
{
    // Deliberate: the id is not looked at. Options are a stack, and callers whose ids went astray rely on that.
    the_options.pop_back();
}
