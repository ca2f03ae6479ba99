#pragma once

#include "grExport.h"

class dgView;

/// The application's function that draws over a view each time the library has drawn its network. The driver of the
/// main window is selected while it runs.
class GR_EXPORT grTwiddleOverlayCallback
{
public:
    grTwiddleOverlayCallback() = delete;

    /// Replaces the function; null removes it. It may destroy views, also the one it is called for, but no renderer.
    static void register_callback(void (*callback)(dgView&));
    /// The same for a function that gets data with each call. There is one function, of whichever kind came last.
    static void register_callback(void (*callback)(dgView&, void* data), void* data);
    static void call_callback(dgView& view);
};
