// Turns a tarn file with the mouse in a GTK 3 widget: host_gtk part.tarn
#include "dgClientStructure.h"
#include "dgGLHostArea.h"
#include "dgRef.h"
#include "dgRenderer.h"
#include "dgView.h"
#include "grStdTwiddling.h"
#include "grTwiddleMan.h"
#include "grView.h"
#include "grViewListUtils.h"
#include "gr_read_tarn_tblock.h"
#include "gwHostEvents.h"
#include "gwResourceDB.h"

#include <gtk/gtk.h>

#include <fstream>
#include <iostream>
#include <optional>

namespace
{
// The keys that are bound here; host_sdl.cpp has all of them.
gwHostKey key_of(guint key)
{
    if (key >= GDK_KEY_F1 && key <= GDK_KEY_F12)
        return {gwFUNCTION_KEY, static_cast<int>(key - GDK_KEY_F1) + 1};
    if (key == GDK_KEY_Home)
        return {gwOTHER_KEY, gwKEY_HOME};
    return gw_character_key(gdk_keyval_to_unicode(key));
}

int modifiers_of(guint state)
{
    return (state & GDK_CONTROL_MASK ? gwMODIFIER_CONTROL : 0) | (state & GDK_SHIFT_MASK ? gwMODIFIER_SHIFT : 0) |
           (state & GDK_MOD1_MASK ? gwMODIFIER_ALT : 0);
}

// A widget with a view of the part. What draws on the area is made when that is there, and ends before it.
struct Host
{
    GtkWidget* widget = nullptr;
    dgStructure* root = nullptr;
    std::unique_ptr<dgGLHostArea> area;
    gwResourceDB settings;
    std::optional<dgRenderer> renderer;
    std::optional<dgView> view;
    std::optional<grView> companion;
    std::optional<grStdTwiddling> twiddling;
    guint idle_source = 0;
    guint held_key = 0; // GTK reports the repeats of a key as presses

    int scale() const { return gtk_widget_get_scale_factor(widget); }
    void draw()
    {
        view->camera().view_port_dc(area->device_box());
        view->camera().window_size(giVector2(area->width(), area->height()));
        grViewListUtils::refresh_views({&*view}, nullptr, nullptr);
    }

    void start()
    {
        gtk_gl_area_make_current(GTK_GL_AREA(widget));
        std::string error = "no OpenGL";
        if (!gtk_gl_area_get_error(GTK_GL_AREA(widget)))
            area = dgGLHostArea::create([] { return gdk_gl_context_get_current() != nullptr; },
                                        gtk_widget_get_allocated_width(widget) * scale(),
                                        gtk_widget_get_allocated_height(widget) * scale(), error);
        if (!area)
        {
            std::cerr << "host_gtk: " << error << '\n';
            return gtk_main_quit();
        }
        renderer.emplace(area->main_window(), area->overlay_window(), area.get());
        view.emplace(&*renderer);
        companion.emplace(&*view);
        view->root(root);
        view->view_bbox();
        settings.set_resource("translations", "mouse_button 1 : trackball mouse_button 2 : pan mouse_button 3 : zoom "
                                              "qwerty_key 82 : reset other_key home : reset");
        twiddling.emplace(&area->input(), &settings, nullptr, nullptr);
        area->idle_callback([this] { return twiddling->twiddle_man()->idle() != grIDLE_DONE; });
        area->resize_callback([this] { draw(); });
        draw();
    }

    void stop()
    {
        gtk_gl_area_make_current(GTK_GL_AREA(widget));
        twiddling.reset();
        companion.reset();
        view.reset();
        renderer.reset();
        area.reset();
    }

    void report(const GdkEvent& event)
    {
        gwHostEvents& events = area->events();
        gtk_gl_area_make_current(GTK_GL_AREA(widget));
        switch (event.type)
        {
        case GDK_MOTION_NOTIFY: events.pointer(event.motion.x, event.motion.y); break;
        case GDK_BUTTON_PRESS:
        case GDK_BUTTON_RELEASE:
            events.pointer(event.button.x, event.button.y);
            events.button(static_cast<int>(event.button.button), event.type == GDK_BUTTON_PRESS,
                          modifiers_of(event.button.state));
            break;
        case GDK_SCROLL:
            if (event.scroll.direction == GDK_SCROLL_SMOOTH)
                events.wheel(-event.scroll.delta_y);
            else if (event.scroll.direction == GDK_SCROLL_UP || event.scroll.direction == GDK_SCROLL_DOWN)
                events.wheel(event.scroll.direction == GDK_SCROLL_UP ? 1 : -1);
            break;
        case GDK_KEY_PRESS:
        case GDK_KEY_RELEASE:
            if (event.type == GDK_KEY_PRESS && event.key.keyval == held_key)
                break;
            held_key = event.type == GDK_KEY_PRESS ? event.key.keyval : 0;
            events.key(key_of(event.key.keyval), event.type == GDK_KEY_PRESS, modifiers_of(event.key.state));
            break;
        case GDK_FOCUS_CHANGE:
            if (!event.focus_change.in)
                events.focus_lost();
            break;
        default: return;
        }
        wake();
    }

    void wake()
    {
        if (!idle_source)
            idle_source = g_idle_add([](gpointer data) { return static_cast<Host*>(data)->idle(); }, this);
        if (area->wants_paint())
            gtk_gl_area_queue_render(GTK_GL_AREA(widget));
    }

    gboolean idle()
    {
        gtk_gl_area_make_current(GTK_GL_AREA(widget));
        const int more = area->idle();
        if (area->wants_paint())
            gtk_gl_area_queue_render(GTK_GL_AREA(widget));
        if (!more)
            idle_source = 0;
        return more;
    }
};
}

int main(int argc, char** argv)
{
    gtk_init(&argc, &argv);
    std::ifstream file(argc > 1 ? argv[1] : "part.tarn");
    const dgRef<dgClientStructure> part(new dgClientStructure());
    if (!gr_read_tarn_tblock(file, part.get()))
        return std::cerr << "host_gtk: no triangle blocks could be read\n", 1;

    Host host;
    host.root = part.get();
    GtkWidget* window = gtk_window_new(GTK_WINDOW_TOPLEVEL);
    host.widget = gtk_gl_area_new();
    gtk_widget_set_can_focus(host.widget, TRUE);
    gtk_widget_add_events(host.widget, GDK_POINTER_MOTION_MASK | GDK_BUTTON_PRESS_MASK | GDK_BUTTON_RELEASE_MASK |
                                           GDK_SCROLL_MASK | GDK_KEY_PRESS_MASK | GDK_KEY_RELEASE_MASK |
                                           GDK_FOCUS_CHANGE_MASK);
    const auto connect = [&](const char* signal, auto function)
    { g_signal_connect(host.widget, signal, G_CALLBACK(+function), &host); };
    connect("realize", [](GtkWidget*, Host* h) { h->start(); });
    connect("unrealize", [](GtkWidget*, Host* h) { h->stop(); });
    connect("resize",
            [](GtkGLArea*, int width, int height, Host* h)
            {
                h->area->events().scale(h->scale(), h->scale());
                h->area->resize(width, height);
            });
    connect("render",
            [](GtkGLArea*, GdkGLContext*, Host* h) -> gboolean
            {
                h->area->paint();
                return TRUE;
            });
    connect("event",
            [](GtkWidget*, GdkEvent* event, Host* h) -> gboolean
            {
                if (h->area)
                    h->report(*event);
                return FALSE;
            });
    g_signal_connect(window, "destroy", G_CALLBACK(gtk_main_quit), nullptr);
    gtk_container_add(GTK_CONTAINER(window), host.widget);
    gtk_window_set_title(GTK_WINDOW(window), "host_gtk");
    gtk_window_set_default_size(GTK_WINDOW(window), 800, 600);
    gtk_widget_show_all(window);
    gtk_widget_grab_focus(host.widget);
    gtk_main();
}
