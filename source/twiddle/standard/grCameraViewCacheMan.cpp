#include "grCameraViewCacheMan.h"

#include "dgS.h"
#include "dgView.h"
#include "grCameraViewCache.h"
#include "grStringConverter.h"
#include "gwResourceDB.h"
#include "utTypeID.h"

#include <algorithm>
#include <utility>

namespace
{
// No owner by type: it would be destroyed at the end of the process, before static objects of an application whose
// tools still save cameras.
grCameraViewCacheMan* the_instance = nullptr;
int the_close_function_added = 0;

void close_camera_caches()
{
    the_close_function_added = 0;
    grCameraViewCacheMan::delete_instance();
}

template <class Caches>
auto find_cache(Caches& caches, const dgView* view)
{
    return std::find_if(caches.begin(), caches.end(), [=](const auto& cache) { return cache->view() == view; });
}
}

UT_DEFINE_TYPE(grCameraViewCacheMan, coReceiver);

grCameraViewCacheMan::grCameraViewCacheMan(const gwResourceDB* db)
{
    utString text;
    int size = 0;
    if (db && db->get_resource("camera_cache_size", text) && grStringConverter::to_int(text, size) && size >= 1)
        the_capacity = size;
}

grCameraViewCacheMan::~grCameraViewCacheMan() = default;

grCameraViewCache& grCameraViewCacheMan::cache(dgView& view)
{
    const auto found = find_cache(the_caches, &view);
    if (found != the_caches.end())
        return **found;
    view.call_list().add(DG_VIEW_TO_BE_DELETED, coCallFunc::member<&grCameraViewCacheMan::view_to_be_deleted>(this));
    return *the_caches.emplace_back(std::make_unique<grCameraViewCache>(&view, the_capacity));
}

int grCameraViewCacheMan::has_cache(const dgView* view) const
{
    return find_cache(the_caches, view) != the_caches.end();
}

grCameraViewCacheMan* grCameraViewCacheMan::instance()
{
    return the_instance;
}

void grCameraViewCacheMan::initialise(const gwResourceDB* db)
{
    if (!the_instance)
        the_instance = new grCameraViewCacheMan(db);
    if (!the_close_function_added)
        dgS::add_close_function(close_camera_caches);
    the_close_function_added = 1;
}

void grCameraViewCacheMan::delete_instance()
{
    delete std::exchange(the_instance, nullptr);
}

void grCameraViewCacheMan::view_to_be_deleted(void* sender, void*)
{
    const auto found = find_cache(the_caches, static_cast<dgView*>(sender));
    if (found != the_caches.end())
        the_caches.erase(found);
}
