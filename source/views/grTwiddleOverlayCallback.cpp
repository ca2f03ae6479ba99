#include "grTwiddleOverlayCallback.h"

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
    if (the_callback)
        the_callback(view);
}
