#pragma once

#include "giBox2.h"
#include "grExport.h"
#include "grRubberBandManager.h"

#include <iosfwd>
#include <memory>
#include <vector>

class dgRenderer;
class dgView;
class dgWindow;
class grView;
class gwResourceDB;
class gwWindow;

/// A drawing area with all that is shown on it: windows, one renderer and its views, later ones on top.
///
/// Rubber banding finds the canvas of a renderer by itself and has it redraw what lies under an item. As long as there
/// is a canvas, there is a grRubberBandManager.
class GR_EXPORT grCanvas
{
public:
    /// A canvas without a renderer. Reads the resources of rubber banding from db, which may be null and is not kept.
    explicit grCanvas(const gwResourceDB* db = nullptr);
    /// The same with windows.
    grCanvas(dgWindow* main, dgWindow* overlay, const gwWindow* input_window, const gwResourceDB* db);
    ~grCanvas();
    grCanvas(const grCanvas&) = delete;
    grCanvas& operator=(const grCanvas&) = delete;

    /// Makes the renderer, in place of one that was there with its views. overlay is null or the same as main when
    /// there is none; input_window is what events name, or null. The windows must outlive the canvas, unless
    /// take_window hands them over.
    void windows(dgWindow* main, dgWindow* overlay, const gwWindow* input_window);
    /// Hands a window over to the canvas, which destroys it after everything that draws on it.
    void take_window(std::unique_ptr<dgWindow> window);
    /// Null without windows.
    dgRenderer* renderer() const { return the_renderer.get(); }

    /// Adds a view of its own, all over the window, with its companion. There must be a renderer.
    dgView& add_view();
    /// Adds a view of the canvas' renderer and takes it over with its companion, which may be null.
    dgView& add_view(std::unique_ptr<dgView> view, std::unique_ptr<grView> companion);
    /// Destroys a view and its companion; answers 0 when it is not of this canvas.
    int remove_view(dgView* view);
    /// In the order of addition; i counts from 0 and is in range.
    int n_views() const { return static_cast<int>(the_views.size()); }
    dgView& view(int i) const { return *the_views[static_cast<std::size_t>(i)].view; }
    grView* companion(int i) const { return the_views[static_cast<std::size_t>(i)].companion.get(); }

    /// The canvas whose renderer this is, or null.
    static grCanvas* find_canvas(const dgRenderer* renderer);

    /// Erases, and renders, the views that meet a device box, and nothing outside the box. Transparent views are not
    /// erased and hidden ones not rendered. A box that covers the window is drawn into the back buffer and shown at
    /// once, a smaller one straight into the picture that is shown. Where rubber bands lay in the box, the manager is
    /// told that they are gone; putting them back is left to the caller.
    void erase_and_render_views(const giBox2& device_box, int erase, int render);

    /// Draws all views into the back buffer and shows them. Rubber bands are taken off before and put back after it.
    void redraw();
    /// Gives the canvas another size in device pixels with everything in it, and draws it: windows that can be resized,
    /// unless they have that size already, and the views, which keep their shares of it. The input window is the
    /// application's to resize.
    void resize(int width, int height);

    /// To be called when the windows have another size and the views were laid out for it: clears what lies between the
    /// views and draws them.
    void resized();

    /// Passes the resources of rubber banding on to the manager. A value that cannot be understood changes nothing.
    ///     xor_rubberbanding                  no: items are taken off by redrawing, where that is fast and there is no
    ///                                        overlay; yes changes nothing
    ///     slow_retry_time_rubberbanding      seconds, above 0; also becomes the minimum frame rate
    ///     xor_colour                         the rubber band colour
    ///     set_default_colour_in_xor_mode, calculate_colour_in_xor_mode, xor_mode_with_stencil_planes      yes or no
    ///     overlay_rubberbanding              yes or no, without effect
    void read_resources(const gwResourceDB& db);

    void print(std::ostream& os) const;

private:
    struct Entry
    {
        std::unique_ptr<dgView> view;
        std::unique_ptr<grView> companion; // goes before its view
        giBox2 viewport, shares;           // as resize has left it, and its edges as shares of the canvas
    };
    void remove_views();
    void remove_renderer();
    void draw_views(const giBox2& device_box, int erase, int render) const;

    grRubberBandManager the_rubber_band_manager;
    std::vector<std::unique_ptr<dgWindow>> the_windows;
    std::unique_ptr<dgRenderer> the_renderer;
    std::vector<Entry> the_views;
    int the_width = 0, the_height = 0; // as of the last resize, or when the renderer was made
};

GR_EXPORT std::ostream& operator<<(std::ostream& os, const grCanvas& canvas);
