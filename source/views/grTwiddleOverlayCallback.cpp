#include "grTwiddleOverlayCallback.h"

#include "dgSelectedDriver.h"
#include "dgView.h"

#include <optional>

namespace
{
void (*the_callback)(dgView&) = nullptr;
void (*the_data_callback)(dgView&, void*) = nullptr;
void* the_data = nullptr;
}

void grTwiddleOverlayCallback::register_callback(void (*callback)(dgView&))
{
    the_callback = callback;
    the_data_callback = nullptr;
}

void grTwiddleOverlayCallback::register_callback(void (*callback)(dgView&, void*), void* data)
{
    the_callback = nullptr;
    the_data_callback = callback;
    the_data = data;
}

void grTwiddleOverlayCallback::call_callback(dgView& view)
{
    if (!the_callback && !the_data_callback)
        return;
    // Rubber bands may have left the driver of the overlay selected.
    std::optional<dgSelectedDriver> main_driver;
    if (view.renderer())
        main_driver.emplace(*view.renderer(), 0);
    if (the_callback)
        the_callback(view);
    else
        the_data_callback(view, the_data);
}
