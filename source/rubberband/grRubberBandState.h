#pragma once

#include "coDList.h"
#include "coSet.h"
#include "grRefreshRecorder.h"
#include "grRubberBandSettings.h"

#include <memory>

class dgRenderer;
class grRubberBandItem;
class grRubberBandWalk;

/// All state of rubber banding in this process.
struct grRubberBandState
{
    grRubberBandSettings settings;
    int existence_counter = 0;
    std::unique_ptr<coDList<grRubberBandItem*>> items; // null while there is no manager
    dgRenderer* last_renderer = nullptr;
    int last_in_xor_mode = 0;
    int draw_in_progress = 0;
    int saved_driver = -1; // -1: none saved
    dgRenderer* saved_renderer = nullptr;
    std::unique_ptr<coSet<dgRenderer*>> slow_renderers;
    std::unique_ptr<grRefreshRecorder> recorder;
    int removals = 0; // counts the items that have left the list
    grRubberBandWalk* walks = nullptr;

    void remember(dgRenderer* renderer, int in_xor_mode)
    {
        last_renderer = renderer;
        last_in_xor_mode = in_xor_mode;
    }
    grRefreshRecorder& refresh_recorder();
    coSet<dgRenderer*>& slow_set();

    /// Never destroyed: items may outlive all other static objects.
    static grRubberBandState& instance();
};
