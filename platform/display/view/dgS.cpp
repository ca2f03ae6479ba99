#include "dgS.h"

#include "dgAttributeArray.h"
#include "dgRenderer.h"
#include "dgView.h"

#include <functional>
#include <utility>
#include <vector>

namespace
{
std::vector<std::function<void()>>& close_functions()
{
    static auto& functions = *new std::vector<std::function<void()>>; // static objects may close the library
    return functions;
}

template <class Belongs>
dgView* topmost_view(const giPoint2& point_device, Belongs belongs)
{
    const dgViewcoDList& views = dgS::views();
    for (auto it = views.last_it(); it; --it)
        if (belongs(*it()) && it()->camera().view_port_dc().contains(point_device))
            return it();
    return nullptr;
}
}

dgViewcoDList& dgS::all_views()
{
    static auto* const views = new dgViewcoDList; // views held by static objects outlive any static here
    return *views;
}

const dgViewcoDList& dgS::views()
{
    return all_views();
}

dgView* dgS::find_view(const dgRenderer* renderer, const giPoint2& point_device)
{
    return topmost_view(point_device, [=](const dgView& view) { return view.renderer() == renderer; });
}

dgView* dgS_find_view(const gwWindow* window, const giPoint2& point_device)
{
    return topmost_view(point_device, [=](const dgView& view)
                        { return window && view.renderer() && view.renderer()->input_window() == window; });
}

void dgS::add_close_function(void (*function)())
{
    close_functions().push_back(function);
}

void dgS::add_close_function(void (*function)(void*), void* data)
{
    close_functions().push_back([=] { function(data); });
}

void dgS::close()
{
    for (const std::function<void()>& function : std::exchange(close_functions(), {}))
        function();
}

const dgElementStore& dgS::element_store()
{
    static const dgElementStore store;
    return store;
}

dgAttributeArray& dgS::attribute_array()
{
    return dgAttributeArray::process_wide();
}
