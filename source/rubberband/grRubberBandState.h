#pragma once

#include "coDList.h"
#include "coSet.h"
#include "grRefreshRecorder.h"
#include "gsColour.h"

#include <memory>

class dgRenderer;
class grRubberBandItem;

/// What the manager can be told, with its defaults.
struct grRubberBandSettings
{
    int do_redraw = 1;
    int via_redraw = 0;
    int (*redraw_callback)(dgRenderer*, void*) = nullptr;
    void* redraw_callback_data = nullptr;
    double slow_retry_time = 30; // seconds
    double minimum_framerate = 20;
    gsColour colour{1, 1, 1};
    int set_default_colour_in_xor_mode = 0;
    int calculate_colour_in_xor_mode = 0;
    int xor_mode_with_stencil_planes = 1;
    int line_width = 1; // pixels
    int suspended = 0;
};

/// A walk along the items that neither meets one twice nor passes one over when items leave the list meanwhile.
class grRubberBandWalk
{
public:
    grRubberBandWalk();
    ~grRubberBandWalk();
    grRubberBandWalk(const grRubberBandWalk&) = delete;
    grRubberBandWalk& operator=(const grRubberBandWalk&) = delete;

    /// The next item, or null at the end.
    grRubberBandItem* next();

    /// Tells all walks that the item at a position has left.
    static void item_left(int position);

private:
    int the_position = 0;
    grRubberBandWalk* the_outer;
};

/// Selects a driver of a renderer for its own life, and afterwards the one before, unless the renderer has gone.
class grRubberBandDriver
{
public:
    explicit grRubberBandDriver(dgRenderer* renderer, int index = 1);
    ~grRubberBandDriver();
    grRubberBandDriver(const grRubberBandDriver&) = delete;
    grRubberBandDriver& operator=(const grRubberBandDriver&) = delete;

    int renderer_is_gone() const { return !the_renderer; }

    static void to_be_deleted(dgRenderer* renderer);

private:
    dgRenderer* the_renderer;
    int the_before;
    grRubberBandDriver* the_outer;
};

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
    grRubberBandDriver* drivers = nullptr;

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
