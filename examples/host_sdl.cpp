// Turns a tarn file with the mouse in a window that SDL made: host_sdl part.tarn
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

#include <SDL.h>

#include <fstream>
#include <iostream>

namespace
{
// SDL's scancodes are those of USB keyboards.
gwHostKey key_of(const SDL_Keysym& key)
{
    const gwHostKey found = gw_hid_key(static_cast<unsigned>(key.scancode));
    return found.number ? found : gw_character_key(static_cast<unsigned>(key.sym));
}

int modifiers()
{
    const int held = SDL_GetModState();
    return (held & KMOD_CTRL ? gwMODIFIER_CONTROL : 0) | (held & KMOD_SHIFT ? gwMODIFIER_SHIFT : 0) |
           (held & KMOD_ALT ? gwMODIFIER_ALT : 0);
}

// Passes one event on; 0 when it asks for the end.
int report(const SDL_Event& event, SDL_Window* window, dgGLHostArea& area)
{
    gwHostEvents& events = area.events();
    switch (event.type)
    {
    case SDL_QUIT: return 0;
    case SDL_MOUSEMOTION: events.pointer(event.motion.x, event.motion.y); break;
    case SDL_MOUSEBUTTONDOWN:
    case SDL_MOUSEBUTTONUP:
        SDL_CaptureMouse(event.button.state == SDL_PRESSED ? SDL_TRUE : SDL_FALSE);
        events.pointer(event.button.x, event.button.y);
        events.button(event.button.button, event.button.state == SDL_PRESSED, modifiers());
        break;
    case SDL_MOUSEWHEEL: events.wheel(event.wheel.preciseY); break;
    case SDL_KEYDOWN:
    case SDL_KEYUP: events.key(key_of(event.key.keysym), event.key.state == SDL_PRESSED, modifiers()); break;
    case SDL_WINDOWEVENT:
        if (event.window.event == SDL_WINDOWEVENT_FOCUS_LOST)
            events.focus_lost();
        if (event.window.event == SDL_WINDOWEVENT_SIZE_CHANGED)
        {
            int width = 0, height = 0, wide = 1, high = 1;
            SDL_GL_GetDrawableSize(window, &width, &height);
            SDL_GetWindowSize(window, &wide, &high);
            events.scale(1.0 * width / wide, 1.0 * height / high);
            area.resize(width, height);
        }
    }
    return 1;
}
}

int main(int argc, char** argv)
{
    std::ifstream file(argc > 1 ? argv[1] : "part.tarn");
    const dgRef<dgClientStructure> part(new dgClientStructure());
    if (!gr_read_tarn_tblock(file, part.get()))
        return std::cerr << "host_sdl: no triangle blocks could be read\n", 1;
    SDL_SetHint(SDL_HINT_VIDEODRIVER, "x11,wayland,windows,cocoa");
    SDL_Init(SDL_INIT_VIDEO);
    SDL_GL_SetAttribute(SDL_GL_CONTEXT_MAJOR_VERSION, 3);
    SDL_GL_SetAttribute(SDL_GL_CONTEXT_MINOR_VERSION, 3);
    SDL_GL_SetAttribute(SDL_GL_CONTEXT_PROFILE_MASK, SDL_GL_CONTEXT_PROFILE_CORE);
    SDL_Window* window = SDL_CreateWindow("host_sdl", SDL_WINDOWPOS_UNDEFINED, SDL_WINDOWPOS_UNDEFINED, 800, 600,
                                          SDL_WINDOW_OPENGL | SDL_WINDOW_RESIZABLE | SDL_WINDOW_ALLOW_HIGHDPI);
    SDL_GLContext context = window ? SDL_GL_CreateContext(window) : nullptr;
    if (!context)
        return std::cerr << "host_sdl: " << SDL_GetError() << '\n', 1;
    {
        int width = 0, height = 0;
        SDL_GL_GetDrawableSize(window, &width, &height);
        std::string error;
        const auto area =
            dgGLHostArea::create([=] { return SDL_GL_MakeCurrent(window, context) == 0; }, width, height, error);
        if (!area)
            return std::cerr << "host_sdl: " << error << '\n', 1;

        gwResourceDB settings;
        settings.set_resource("translations", "mouse_button 1 : trackball mouse_button 2 : pan mouse_button 3 : zoom "
                                              "qwerty_key 82 : reset");
        grCanvas canvas(area->main_window(), area->overlay_window(), area.get(), &settings);
        dgView& view = canvas.add_view();
        view.root(part.get());
        view.view_bbox();
        grStdTwiddling twiddling(&area->input(), &settings, nullptr, nullptr);
        area->idle_callback([&] { return twiddling.twiddle_man()->idle() != grIDLE_DONE; });
        area->resize_callback([&] { canvas.resize(area->width(), area->height()); });
        canvas.redraw();

        SDL_Event event;
        for (int running = 1, more = 0; running;)
        {
            for (int waiting = more ? SDL_PollEvent(&event) : SDL_WaitEvent(&event); waiting && running;
                 waiting = SDL_PollEvent(&event))
                running = report(event, window, *area);
            more = area->idle();
            if (area->wants_paint())
            {
                area->paint(0);
                SDL_GL_SwapWindow(window);
            }
        }
    }
    SDL_GL_DeleteContext(context);
    SDL_DestroyWindow(window);
    SDL_Quit();
}
