#include "grStandardViewTool.h"

#include "grTokeniser.h"
#include "grViewOperations.h"
#include "utTypeID.h"

#include <string_view>

UT_DEFINE_TYPE(grStandardViewTool, grOneShotViewTool);

namespace
{
constexpr struct
{
    std::string_view word;
    grViewSide side;
} sides[] = {{"front", grVIEW_FRONT}, {"back", grVIEW_BACK}, {"left", grVIEW_LEFT},
             {"right", grVIEW_RIGHT}, {"top", grVIEW_TOP},   {"bottom", grVIEW_BOTTOM}};
}

grStandardViewTool::grStandardViewTool(const utString& args, const gwResourceDB* db, grStdTwiddleHooks* hooks)
    : grOneShotViewTool(args, db, hooks)
{
    flags().can_save_camera(1);
}

void grStandardViewTool::do_action(const gwKeyEvent&)
{
    grViewSide side = grVIEW_FRONT;
    gi_Axis up = gi_Z_AXIS;
    grTokeniser tokens(args().c_str(), " ,\t");
    while (const char* token = tokens.next_token())
    {
        const std::string_view word(token);
        if (word == "x_up")
            up = gi_X_AXIS;
        if (word == "y_up")
            up = gi_Y_AXIS;
        for (const auto& row : sides)
            if (word == row.word)
                side = row.side;
    }
    grViewOperations::look(*target_view(), side, up);
}
