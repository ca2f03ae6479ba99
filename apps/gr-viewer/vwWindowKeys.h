#pragma once

#include "coReceiver.h"

#include <functional>

class gwInput;

/// The keys of the viewer that its window serves: control Q closes it, F5 reads the files again, F11 fills the screen,
/// F12 writes a picture, P notes one in the session that is recorded.
class vwWindowKeys : public coReceiver
{
public:
    struct Actions
    {
        std::function<void()> close, reload, full_screen, screenshot, note_picture;
    };
    /// Listens to the input; actions that are empty are left out.
    vwWindowKeys(gwInput& input, Actions actions);

private:
    void event(void* sender, void* data);
    Actions the_actions;
};
