#include "dgRenderTargets.h"

#include "dgDrawState.h"
#include "dgDriver.h"
#include "dgImage.h"
#include "dgWindow.h"

#include <cassert>

dgRenderTargets::dgRenderTargets(dgWindow* main, dgWindow* overlay, const gwWindow* input_window)
    : the_windows{main, overlay ? overlay : main}, the_input_window(input_window)
{
    touch_picture();
}

dgRenderTargets::~dgRenderTargets() = default;

giBox2 dgRenderTargets::window_box() const
{
    return the_windows[0]->device_box();
}

void dgRenderTargets::touch_picture()
{
    static unsigned long long last = 0;
    the_picture_stamp = ++last;
}

dgDriver* dgRenderTargets::driver(int index) const
{
    if (index < 0)
        index = the_current_driver;
    std::unique_ptr<dgDriver>& driver = the_drivers[index];
    if (!driver)
        driver =
            index == 0 ? the_windows[0]->make_driver(0) : the_windows[1]->make_driver(the_windows[0] == the_windows[1]);
    return driver.get();
}

int dgRenderTargets::select_driver(int index)
{
    if (index < 0 || index > 1)
        return 0;
    if (index == the_current_driver)
        return 1;
    if (the_begun)
    {
        driver_ends();
        driver()->end();
    }
    the_current_driver = index;
    if (the_begun)
        begin_driver();
    return 1;
}

int dgRenderTargets::in_xor_mode() const
{
    return the_current_driver == 1 && the_windows[0] == the_windows[1];
}

void dgRenderTargets::select_buffer(dgDoubleBuffer buffer)
{
    if (driver_capability(the_mode, dgCAPABILITY_DOUBLE_BUFFERING))
        driver(0)->select_buffer(buffer);
}

void dgRenderTargets::swap_buffers(dgDoubleBufferSwap mode)
{
    if (!driver_capability(the_mode, dgCAPABILITY_DOUBLE_BUFFERING))
        return;
    touch_picture();
    driver(0)->swap_buffers(mode);
    the_windows[0]->present();
}

void dgRenderTargets::show_back_buffer(const giBox2& device_box)
{
    touch_picture();
    driver()->show_back_buffer(device_box);
}

int dgRenderTargets::add_to_sums(const giBox2& device_box, int anew)
{
    return driver(0)->add_to_sums(device_box, anew);
}

void dgRenderTargets::put_mean(const giBox2& device_box, int pictures)
{
    touch_picture();
    driver(0)->put_mean(device_box, pictures);
}

int dgRenderTargets::driver_capability(int mode, dgDriverCapability capability, int) const
{
    return driver(0)->capability(mode, capability);
}

void dgRenderTargets::erase(int window)
{
    const int overlay = window == 1 && the_windows[0] != the_windows[1];
    if (!overlay)
        touch_picture();
    the_erasures += !overlay;
    dgDriver* target = driver(overlay);
    target->begin();
    target->clear(window_box(), dgBackground::plain(overlay ? gsColour(0, 0, 0) : the_background),
                  dgERASE_FRAMEBUFFER_YES, dgERASE_ZBUFFER_YES);
    target->end();
}

void dgRenderTargets::clip(const giBox2& device_box)
{
    driver(0)->clip(device_box);
    the_clipped = !device_box.empty();
}

void dgRenderTargets::begin()
{
    if (the_begun++ == 0)
        begin_driver();
}

void dgRenderTargets::begin_driver()
{
    if (the_current_driver == 0)
        touch_picture();
    driver()->begin();
    driver_begun();
}

void dgRenderTargets::end()
{
    assert(the_begun > 0);
    if (the_begun == 1)
        driver_ends();
    if (--the_begun > 0)
        return;
    driver()->end();
    driver_ended();
}

void dgRenderTargets::read_pixels(const giBox2& device_box, dgImage& image)
{
    const unsigned long long picture_stamp = the_picture_stamp;
    begin();
    driver()->read_pixels(device_box, image);
    end();
    the_picture_stamp = picture_stamp;
}

void dgRenderTargets::finish()
{
    driver()->finish();
}

void dgRenderTargets::finish_all_but_last()
{
    driver()->finish_all_but_last();
}
