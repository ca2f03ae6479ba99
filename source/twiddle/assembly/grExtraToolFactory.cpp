#include "grExtraToolFactory.h"

#include "grFitTool.h"
#include "grPerspectiveTool.h"
#include "grSectionTool.h"
#include "grSelectBoxTool.h"
#include "grShowTool.h"
#include "grStandardViewTool.h"

#include <algorithm>
#include <iterator>

namespace
{
template <class Tool>
grTwiddleTool* create(const utString& args, const gwResourceDB* db, grStdTwiddleHooks* hooks)
{
    return new Tool(args, db, hooks);
}

// Row i is tool number i + 1.
constexpr struct
{
    const char* name;
    grTwiddleTool* (*create)(const utString& args, const gwResourceDB* db, grStdTwiddleHooks* hooks);
} the_tools[] = {{"select", create<grSelectTool>},  {"select_box", create<grSelectBoxTool>},
                 {"show", create<grShowTool>},      {"view", create<grStandardViewTool>},
                 {"fit", create<grFitTool>},        {"perspective", create<grPerspectiveTool>},
                 {"section", create<grSectionTool>}};
}

int grExtraToolFactory::identify_tool(utString name) const
{
    const auto found =
        std::find_if(std::begin(the_tools), std::end(the_tools), [&](const auto& row) { return name == row.name; });
    return found != std::end(the_tools) ? static_cast<int>(found - std::begin(the_tools)) + 1 : 0;
}

grTwiddleTool* grExtraToolFactory::create_tool(int tool, const utString& args) const
{
    if (tool < 1 || tool > static_cast<int>(std::size(the_tools)))
        return nullptr;
    return the_tools[tool - 1].create(args, the_resource_db, the_hooks);
}
