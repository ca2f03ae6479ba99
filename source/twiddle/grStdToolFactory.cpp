#include "grStdToolFactory.h"

#include "grIsometricTool.h"
#include "grMouseWheelZoomTool.h"
#include "grMoveFrontBackTool.h"
#include "grNoOpTool.h"
#include "grPanCentreTool.h"
#include "grPanTool.h"
#include "grResetFrontBackTool.h"
#include "grResetTool.h"
#include "grRotateViewTool.h"
#include "grSpaceballTool.h"
#include "grToggleDepthCueingTool.h"
#include "grTrackballTool.h"
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
    Creator single; // null: the library does not build this tool, and does not identify its name
    Creator multi;  // null: the option is ignored
};

// Row i is tool number i + 1.
constexpr ToolRow the_tools[] = {
    {"zoom", create<grZoomTool>, nullptr},
    {"pan", create<grPanTool>, nullptr},
    {"trackball", create<grTrackballTool>, nullptr},
    {"aperture", nullptr, nullptr},
    {"isometric", create<grIsometricTool>, nullptr},
    {"reset", create<grResetTool>, nullptr},
    {"pan_centre", create<grPanCentreTool>, nullptr},
    {"reset_front_back", create<grResetFrontBackTool>, nullptr},
    {"move_front_back", create<grMoveFrontBackTool>, nullptr},
    {"toggle_depth_cueing", create<grToggleDepthCueingTool>, nullptr},
    {"rotate_view", create<grRotateViewTool>, nullptr},
    {"translate_structure", nullptr, nullptr},
    {"scale_structure", nullptr, nullptr},
    {"rotate_structure", nullptr, nullptr},
    {"view_index", nullptr, nullptr},
    {"zoom_box", nullptr, nullptr},
    {"no_op", create<grNoOpTool>, nullptr},
    {"spaceball", create<grSpaceballTool>, nullptr},
    {"mouse_wheel_zoom", create<grMouseWheelZoomTool>, nullptr},
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
    return found != std::end(the_tools) && found->single ? static_cast<int>(found - std::begin(the_tools)) + 1 : 0;
}

grTwiddleTool* grStdToolFactory::create_tool(int tool, const utString& args) const
{
    if (tool < 1 || tool > num_tools())
        return nullptr;
    const ToolRow& row = the_tools[tool - 1];
    const Creator creator = row.multi && options().use_multi_tool(tool) ? row.multi : row.single;
    return creator ? creator(args, the_resource_db, the_hooks) : nullptr;
}

int grStdToolFactory::push_options(const grStdToolFactoryOptions& options)
{
    return the_options.emplace_back(options).id();
}

void grStdToolFactory::pop_options(int)
{
    // Deliberate: the id is not looked at. Entries go strictly last in, first out.
    the_options.pop_back();
}
