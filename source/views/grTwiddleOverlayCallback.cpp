#include "grTwiddleOverlayCallback.h"

#include "dgSelectedDriver.h"
#include "dgView.h"

#include <optional>

namespace
{
void (*the_callback)(dgView&) = nullptr;
}

void grTwiddleOverlayCallback::register_callback(void (*callback)(dgView&))
{
    the_callback = callback;
}

void grTwiddleOverlayCallback::call_callback(dgView& view)
{
    if (!the_callback)
        return;
    // Rubber bands may have left the driver of the overlay selected.
    std::optional<dgSelectedDriver> main_driver;
    if (view.renderer())
        main_driver.emplace(*view.renderer(), 0);
    the_callback(view);
}
