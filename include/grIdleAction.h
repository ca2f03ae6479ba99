#pragma once

/// What an idle call asks of its caller; every value but 0 asks to be called again.
enum grIdleAction : int
{
    grIDLE_DONE = 0,
    grIDLE_AGAIN = 1
};
