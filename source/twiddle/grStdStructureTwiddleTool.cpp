#include "grStdStructureTwiddleTool.h"

#include "grStdTwiddleHooks.h"
#include "utTypeID.h"

UT_DEFINE_TYPE(grStdStructureTwiddleTool, grStdTwiddleTool);

grStdStructureTwiddleTool* grStdStructureTwiddleTool::ut_dynamic_cast(grTwiddleTool* tool)
{
    return ut_cast<grStdStructureTwiddleTool>(tool);
}

const grStdStructureTwiddleTool* grStdStructureTwiddleTool::ut_dynamic_cast(const grTwiddleTool* tool)
{
    return ut_cast<grStdStructureTwiddleTool>(tool);
}

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
