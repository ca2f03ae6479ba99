#pragma once

/// What the library may do around a tool's twiddle. All off on construction.
class grTwiddleToolFlags
{
public:
    /// The tool pushes the camera it leaves into the view's camera cache.
    int can_save_camera() const { return the_can_save_camera; }
    void can_save_camera(int on) { the_can_save_camera = on; }

    /// The tool may be drawn by a time-limited renderer while it moves.
    int can_timeout_twiddle() const { return the_can_timeout_twiddle; }
    void can_timeout_twiddle(int on) { the_can_timeout_twiddle = on; }

private:
    int the_can_save_camera = 0;
    int the_can_timeout_twiddle = 0;
};
