#pragma once

/// What is behind the model.
enum vwBackground
{
    vwBACKGROUND_DARK = 0,
    vwBACKGROUND_LIGHT = 1,
    vwBACKGROUND_WHITE = 2
};
