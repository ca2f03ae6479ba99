#pragma once

#include "gw_glfwExport.h"

class gwDrawingArea;
struct gwGLFWKey;

/// Posts what GLFW's callbacks report as events on the input of a drawing area. It makes no call to GLFW.
///
/// Positions come as GLFW gives them, in screen coordinates from the upper left corner of the window, and are turned
/// into device pixels here and nowhere else. A press happens where the pointer was last reported.
///
/// Motion is held back until something else happens or flush is called, and only its last position is posted: where
/// drawing takes longer than the mouse's interval, frames would otherwise pile up behind the pointer.
class GW_GLFW_EXPORT gwGLFWEvents
{
public:
    /// The area is not owned and must outlive this object.
    explicit gwGLFWEvents(gwDrawingArea& area) : the_area(area) {}
    gwGLFWEvents(const gwGLFWEvents&) = delete;
    gwGLFWEvents& operator=(const gwGLFWEvents&) = delete;

    /// Device pixels per screen coordinate; 1 until it is set. Values that are not above 0 are ignored.
    void scale(double x_scale, double y_scale);

    /// The pointer moved.
    void cursor(double x, double y);
    /// action is GLFW_PRESS or GLFW_RELEASE.
    void button(int glfw_button, int action, int glfw_modifiers);
    /// layout_name as gw_glfw_key takes it. Repeats of a held key are not posted.
    void key(int glfw_key, const char* layout_name, int action, int glfw_modifiers);
    /// The wheel turned: one press per whole step, with a delta of 1 or -1. Parts of a step add up to later ones. With
    /// a fine wheel each turn is one press with its own delta, parts of a step and many steps alike.
    void wheel(double y_steps);
    void fine_wheel(int on) { the_fine_wheel = on; }
    /// The window lost the keyboard: held keys are forgotten, because their release will not be reported.
    void focus_lost();
    /// Posts motion that was held back.
    void flush();

    /// Bits of gwModifier that are held.
    int modifiers() const { return the_modifiers | the_held_function_keys; }
    int x_device() const { return the_x; }
    int y_device() const { return the_y; }

private:
    void post_key(const gwGLFWKey& key, int action, int modifiers);

    gwDrawingArea& the_area;
    double the_x_scale = 1;
    double the_y_scale = 1;
    double the_wheel_remainder = 0;
    int the_fine_wheel = 0;
    int the_x = 0;
    int the_y = 0;
    int the_motion_held = 0;
    int the_modifiers = 0;          // control, shift, alt
    int the_held_function_keys = 0; // modifier bits
};
