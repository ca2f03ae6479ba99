#include "grCameraViewCache.h"

#include <algorithm>

grCameraViewCache::grCameraViewCache(const dgView* view, int capacity)
    : the_view(view), the_capacity(std::max(capacity, 1))
{}

void grCameraViewCache::push(const dgView& view)
{
    if (the_position >= 0 && current()->is_position_of(view))
        return;
    the_positions.erase(the_positions.begin() + the_position + 1, the_positions.end());
    if (count() == the_capacity)
        the_positions.pop_front();
    the_positions.emplace_back(view);
    the_position = count() - 1;
}

const grSavedCameraPosition* grCameraViewCache::current() const
{
    return the_position < 0 ? nullptr : &the_positions[static_cast<std::size_t>(the_position)];
}

const grSavedCameraPosition* grCameraViewCache::previous()
{
    if (the_position < 1)
        return nullptr;
    --the_position;
    return current();
}

const grSavedCameraPosition* grCameraViewCache::next()
{
    if (the_position + 1 >= count())
        return nullptr;
    ++the_position;
    return current();
}
