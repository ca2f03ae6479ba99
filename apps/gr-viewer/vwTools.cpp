#include "vwTools.h"

#include "vwPerspectiveTool.h"

namespace
{
constexpr int perspective = 1;
}

int vwTools::identify_tool(utString name) const
{
    return name == "perspective" ? perspective : 0;
}

grTwiddleTool* vwTools::create_tool(int, const utString& args) const
{
    return new vwPerspectiveTool(args, nullptr, the_hooks);
}
