#include "dgS.h"

#include "dgAttributeArray.h"
#include "dgBackSurfaceColour.h"
#include "dgEnums.h"
#include "dgInteriorStyle.h"
#include "dgLighting.h"
#include "dgLineColour.h"
#include "dgLineStyle.h"
#include "dgLineWidth.h"
#include "dgMarkerColour.h"
#include "dgMarkerSize.h"
#include "dgRenderer.h"
#include "dgSurfaceColour.h"
#include "dgTextAlignment.h"
#include "dgTextColour.h"
#include "dgTextDirection.h"
#include "dgTextFontSlot.h"
#include "dgTextHeight.h"
#include "dgTextSpacing.h"
#include "dgTextWidthFactor.h"
#include "dgView.h"

#include <utility>
#include <vector>

namespace
{
std::vector<void (*)()>& close_functions()
{
    static std::vector<void (*)()> functions;
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

int dgElementStore::max_elements() const
{
    return dgNUMBER_OF_TYPES;
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

void dgS::close()
{
    for (void (*function)() : std::exchange(close_functions(), {}))
        function();
}

const dgElementStore& dgS::element_store()
{
    static const dgElementStore store;
    return store;
}

dgAttributeArray& dgS::attribute_array()
{
    static auto* const attributes = new dgAttributeArray;
    return *attributes;
}

dgAttributeArray::dgAttributeArray()
{
    const gsColour white(1, 1, 1);
    const gsColour grey(0.8, 0.8, 0.8);
    set(new dgLineColour(white));
    set(new dgLineStyle(0));
    set(new dgLineWidth(1));
    set(new dgTextFontSlot(0));
    set(new dgTextHeight(1));
    set(new dgTextWidthFactor(1));
    set(new dgTextSpacing(0));
    set(new dgTextDirection(giVector3(1, 0, 0), giVector3(0, 1, 0)));
    set(new dgTextAlignment(dgTEXT_LEFT, dgTEXT_BASELINE));
    set(new dgTextColour(white));
    set(new dgMarkerColour(white));
    set(new dgMarkerSize(1));
    set(new dgInteriorStyle(1));
    set(new dgSurfaceColour(grey));
    set(new dgBackSurfaceColour(grey));
    set(new dgLighting(1));
}

dgAttributeArray::dgAttributeArray(const dgAttributeArray&) = default;
dgAttributeArray& dgAttributeArray::operator=(const dgAttributeArray&) = default;
dgAttributeArray::~dgAttributeArray() = default;

dgGraphicalAttribute* dgAttributeArray::query(int type) const
{
    return the_attributes[static_cast<std::size_t>(type)].get();
}

void dgAttributeArray::set(dgGraphicalAttribute* attribute)
{
    the_attributes[static_cast<std::size_t>(attribute->type())] = dgRef<dgGraphicalAttribute>(attribute);
}
