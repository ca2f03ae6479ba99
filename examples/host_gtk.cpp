// Turns a tarn file with the mouse in a GTK 3 widget: host_gtk part.tarn
#include "dgClientStructure.h"
#include "dgGLHostArea.h"
#include "dgRef.h"
#include "dgView.h"
#include "grCanvas.h"
#include "grStdTwiddling.h"
#include "grTwiddleMan.h"
#include "gr_read_tarn_tblock.h"
#include "gwHostEvents.h"
#include "gwResourceDB.h"

#include <gtk/gtk.h>

#include <fstream>
#include <iostream>
#include <optional>

namespace
{
// A widget with a view of the part. What draws on the area is made when that is there, and ends before it.
struct Host
{
    GtkWidget* widget = gtk_gl_area_new();
    dgRef<dgClientStructure> part{new dgClientStructure()};
    gwResourceDB settings;
    std::unique_ptr<dgGLHostArea> area;
    std::optional<grCanvas> canvas;
    std::optional<grStdTwiddling> twiddling;
    guint idle_source = 0;

    int scale() const { return gtk_widget_get_scale_factor(widget); }
    int make_current()
    {
        gtk_gl_area_make_current(GTK_GL_AREA(widget));
        return !gtk_gl_area_get_error(GTK_GL_AREA(widget));
    }

    void start()
    {
        std::string error;
        area = dgGLHostArea::create([this] { return make_current(); }, gtk_widget_get_allocated_width(widget) * scale(),
                                    gtk_widget_get_allocated_height(widget) * scale(), error);
        if (!area)
        {
            std::cerr << "host_gtk: " << error << '\n';
            return gtk_main_quit();
        }
        canvas.emplace(area->main_window(), area->overlay_window(), area.get(), &settings);
        dgView& view = canvas->add_view();
        view.root(part.get());
        view.view_bbox();
        twiddling.emplace(&area->input(), &settings, nullptr, nullptr);
        area->idle_callback([this] { return twiddling->twiddle_man()->idle() != grIDLE_DONE; });
        area->resize_callback([this] { canvas->resize(area->width(), area->height()); });
        canvas->redraw();
    }

    void stop()
    {
        twiddling.reset();
        canvas.reset();
        area.reset();
    }

    void resize(int width, int height)
    {
        area->events().scale(scale(), scale());
        area->resize(width, height);
    }

    void report(const GdkEvent& event)
    {
        gwHostEvents& events = area->events();
        switch (event.type)
        {
        case GDK_MOTION_NOTIFY: events.pointer(event.motion.x, event.motion.y); break;
        case GDK_BUTTON_PRESS:
        case GDK_BUTTON_RELEASE:
            events.pointer(event.button.x, event.button.y);
            events.button(static_cast<int>(event.button.button), event.type == GDK_BUTTON_PRESS,
                          gw_x_modifiers(event.button.state));
            break;
        case GDK_SCROLL:
            if (event.scroll.direction == GDK_SCROLL_SMOOTH)
                events.wheel(-event.scroll.delta_y);
            else if (event.scroll.direction == GDK_SCROLL_UP || event.scroll.direction == GDK_SCROLL_DOWN)
                events.wheel(event.scroll.direction == GDK_SCROLL_UP ? 1 : -1);
            break;
        case GDK_KEY_PRESS:
        case GDK_KEY_RELEASE:
            events.key(gw_keysym_key(event.key.keyval), event.type == GDK_KEY_PRESS, gw_x_modifiers(event.key.state));
            break;
        case GDK_FOCUS_CHANGE:
            if (!event.focus_change.in)
                events.focus_lost();
            break;
        default: return;
        }
        if (!idle_source)
            idle_source = g_idle_add([](gpointer data) { return static_cast<Host*>(data)->idle(); }, this);
    }

    gboolean idle()
    {
        const int more = area && area->idle();
        if (area && area->wants_paint())
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
    Host host;
    std::ifstream file(argc > 1 ? argv[1] : "part.tarn");
    if (!gr_read_tarn_tblock(file, host.part.get()))
        return std::cerr << "host_gtk: no triangle blocks could be read\n", 1;
    host.settings.set_resource("translations", "mouse_button 1 : trackball mouse_button 2 : pan mouse_button 3 : zoom "
                                               "qwerty_key 82 : reset");
    gtk_widget_set_can_focus(host.widget, TRUE);
    gtk_widget_add_events(host.widget, GDK_POINTER_MOTION_MASK | GDK_BUTTON_PRESS_MASK | GDK_BUTTON_RELEASE_MASK |
                                           GDK_SCROLL_MASK | GDK_KEY_PRESS_MASK | GDK_KEY_RELEASE_MASK |
                                           GDK_FOCUS_CHANGE_MASK);
    const auto connect = [&](const char* signal, auto function)
    { g_signal_connect(host.widget, signal, G_CALLBACK(+function), &host); };
    connect("realize", [](GtkWidget*, Host* h) { h->start(); });
    connect("unrealize", [](GtkWidget*, Host* h) { h->stop(); });
    connect("resize", [](GtkGLArea*, int width, int height, Host* h) { h->resize(width, height); });
    connect("render", [](GtkGLArea*, GdkGLContext*, Host* h) { return h->area->paint(), TRUE; });
    connect("event", [](GtkWidget*, GdkEvent* event, Host* h) { return h->report(*event), FALSE; });

    GtkWidget* window = gtk_window_new(GTK_WINDOW_TOPLEVEL);
    g_signal_connect(window, "destroy", G_CALLBACK(gtk_main_quit), nullptr);
    gtk_container_add(GTK_CONTAINER(window), host.widget);
    gtk_window_set_title(GTK_WINDOW(window), "host_gtk");
    gtk_window_set_default_size(GTK_WINDOW(window), 800, 600);
    gtk_widget_show_all(window);
    gtk_widget_grab_focus(host.widget);
    gtk_main();
}
