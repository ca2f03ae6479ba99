#pragma once

#include "grExport.h"

class dgStructure;
class dgView;
class giBox3;

/// Process-wide settings of fast drawing.
class GR_EXPORT grViewRendererFast
{
public:
    grViewRendererFast() = delete;

    /// Frames per second below which views are thinned; 1.0 by default. 1e-5 and less is no limit.
    static double minimum_framerate();
    static void minimum_framerate(double frames_per_second);

    /// Whether the clipping planes are set from a view's bounding box; 0 by default.
    static int adjust_clip_planes();
    static void adjust_clip_planes(int on);

    /// Whether a view's own root structure is drawn in place of a flattened copy; 0 by default.
    static int disable_flattening();
    static void disable_flattening(int on);

    /// World distance by which a view's bounding box is grown; 0 by default, and nothing is done below.
    static double view_bbox_offset();
    static void view_bbox_offset(double distance);

    /// Function called with a view's bounding box before a final frame; null by default.
    using ClipPlanesResetCB = void (*)(dgView*, const giBox3&);
    static ClipPlanesResetCB clip_planes_resetCB();
    static void set_clip_planes_resetCB(ClipPlanesResetCB callback);

    /// Function that receives each flattened structure after a frame; null by default.
    using PrintCallback = void (*)(dgView*, dgStructure*);
    static PrintCallback print_callback();
    static void set_print_callback(PrintCallback callback);

    /// Kept for applications that call them: setting does nothing, and the answers are 0 and null.
    static double preferred_framerate() { return 0.0; }
    static void preferred_framerate(double) {}
    static int allow_simplified_lights() { return 0; }
    static void allow_simplified_lights(int) {}
    static void* light_set() { return nullptr; }
    static void* light_state() { return nullptr; }
    static void* reflection_attributes() { return nullptr; }
    static void fast_shade_stuff() {}
    static void print_framerate() {}
    static void delete_statics() {}

private:
    static double the_minimum_framerate;
};
