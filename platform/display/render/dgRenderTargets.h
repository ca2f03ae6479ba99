#pragma once

#include "dgEnums.h"
#include "dgExport.h"
#include "giBox2.h"
#include "gsColour.h"

#include <memory>

class dgDriver;
class dgWindow;
class gwWindow;
struct dgImage;

/// The windows that a renderer draws on, the drivers that it draws with, and their colour buffers.
class DG_EXPORT dgRenderTargets
{
public:
    dgRenderTargets(const dgRenderTargets&) = delete;
    dgRenderTargets& operator=(const dgRenderTargets&) = delete;

    /// 0 the main window, 1 the overlay; equal when there is no overlay.
    dgWindow* window(int index) const { return the_windows[index]; }
    const gwWindow* input_window() const { return the_input_window; }

    /// Device box of the main window, low and high pixels included.
    giBox2 window_box() const;

    /// The driver of an index, made on first request: 0 normal, 1 rubber bands, -1 the current one.
    dgDriver* driver(int index = -1) const;

    /// Makes a driver the current one; 1 on success.
    int select_driver(int index);
    int current_driver_index() const { return the_current_driver; }

    /// 1 when what is drawn is combined with what is there by exclusive or: driver 1 where there is no overlay.
    int in_xor_mode() const;

    /// Choose and exchange colour buffers; nothing happens on a single-buffered renderer.
    void select_buffer(dgDoubleBuffer buffer);
    void swap_buffers(dgDoubleBufferSwap mode);

    /// Copies a device box, low and high pixels included, of the back buffer's colours to the front one.
    void show_back_buffer(const giBox2& device_box);

    /// Add the selected buffer to the sums of the main window's pixels inside a device box, and put the means of so
    /// many pictures in its place, see dgDriver. 0 when there can be no sums.
    int add_to_sums(const giBox2& device_box, int anew);
    void put_mean(const giBox2& device_box, int pictures);

    /// Grows whenever driver 0 may have drawn, and when what is seen was exchanged. No two renderers have had the same
    /// number.
    unsigned long long picture_stamp() const { return the_picture_stamp; }

    /// 1 when a mode, or any mode for -1, has the capability. The last argument is ignored.
    int driver_capability(int mode, dgDriverCapability capability, int ignored = 0) const;
    int mode() const { return the_mode; }
    void mode(int mode) { the_mode = mode; }

    /// Clears a window: 0 the main one to the background colour, 1 the overlay to nothing.
    void erase(int window);

    /// How many times the main window was erased.
    unsigned long long erasures() const { return the_erasures; }

    gsColour background_colour() const { return the_background; }
    void background_colour(const gsColour& colour) { the_background = colour; }

    /// Confines what is erased and drawn on the main window to a device box, low and high pixels included; an empty box
    /// lifts it. The picture inside is the same as without.
    void clip(const giBox2& device_box);
    int clipped() const { return the_clipped; }

    /// Bracket what is asked of the current driver. They nest; the outermost pair acts.
    void begin();
    void end();

    /// Reads the selected buffer inside a device box.
    void read_pixels(const giBox2& device_box, dgImage& image);

    /// Waits until everything is drawn.
    void finish();

    /// Waits until everything is drawn that came before the last call of this one. So a picture that is drawn piece by
    /// piece is never more than one piece behind, and the driver is at work while the next piece is made.
    void finish_all_but_last();

protected:
    dgRenderTargets(dgWindow* main, dgWindow* overlay, const gwWindow* input_window);
    virtual ~dgRenderTargets();

    bool begun() const { return the_begun > 0; }

    /// Called when a driver starts to draw that knows nothing of what is in force, and before and after the outermost
    /// pair ends.
    virtual void driver_begun() = 0;
    virtual void driver_ends() = 0;
    virtual void driver_ended() = 0;

private:
    void touch_picture();
    void begin_driver();

    dgWindow* the_windows[2];
    const gwWindow* the_input_window;
    mutable std::unique_ptr<dgDriver> the_drivers[2];
    int the_current_driver = 0;
    int the_mode = 0;
    int the_begun = 0;
    unsigned long long the_picture_stamp = 0;
    unsigned long long the_erasures = 0;
    int the_clipped = 0;
    gsColour the_background{0, 0, 0};
};
