#pragma once

#include "coReceiver.h"
#include "grExport.h"

class grStdTwiddleHooks;
class grTwiddleMan;

/// Has a selection show what lies under the pointer, as it moves while no tool is active.
class GR_EXPORT grSelectionHover : public coReceiver
{
public:
    /// Listens to the input of man; hooks name the selection of a view, if it has one. Both must outlive this object.
    grSelectionHover(grTwiddleMan& man, grStdTwiddleHooks& hooks);
    ~grSelectionHover() override;

    UT_DECLARE_TYPE(grSelectionHover, coReceiver);

private:
    void input_event(void* sender, void* data);

    grTwiddleMan& the_man;
    grStdTwiddleHooks& the_hooks;
};
