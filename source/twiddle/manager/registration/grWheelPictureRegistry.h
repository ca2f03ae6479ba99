#pragma once

#include "grIdleAction.h"

// The picture of the last turn of the wheel, whose tool is gone while idle calls complete it. Defined beside the hooks
// of the standard tools, which lie above the manager.
grIdleAction gr_complete_wheel_picture();
// Draws at once what is left of it, before something else moves views.
void gr_finish_wheel_picture();
// Before each notch: whether idle calls come, which alone complete a picture that lacks something.
void gr_before_wheel_notch(int idle_calls_come);
