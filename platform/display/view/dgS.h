#pragma once

#include "coDList.h"
#include "dgElementStore.h"
#include "dgExport.h"

class dgAttributeArray;
class dgRenderer;
class dgView;
class giPoint2;
class gwWindow;

using dgViewcoDList = coDList<dgView*>;
using dgRenderercoDList = coDList<dgRenderer*>;

/// Global state of the display library.
class DG_EXPORT dgS
{
public:
    dgS() = delete;

    /// All live views in order of construction, later ones on top.
    static const dgViewcoDList& views();

    /// A walk over all live views, from the first one; views().last_it() walks from the last.
    static coDListIt<const dgViewcoDList> view_it() { return views().it(); }

    /// The topmost view of a renderer whose viewport holds a device point, or null.
    static dgView* find_view(const dgRenderer* renderer, const giPoint2& point_device);

    /// Registers a function that close() runs once.
    static void add_close_function(void (*function)());
    static void add_close_function(void (*function)(void* data), void* data);

    /// Runs the registered functions once and forgets them. The library may be used again afterwards.
    static void close();

    static const dgElementStore& element_store();

    /// The process-wide default attributes.
    static dgAttributeArray& attribute_array();

private:
    friend class dgView;
    static dgViewcoDList& all_views();
};

/// The topmost view on a window whose viewport holds a device point, or null.
DG_EXPORT dgView* dgS_find_view(const gwWindow* window, const giPoint2& point_device);
