#include "grRefreshRecorder.h"

#include "apWallClock.h"
#include "grRefreshTimeList.h"

#include <algorithm>

namespace
{
constexpr int n_times_kept = 5;
}

grRefreshRecorder::grRefreshRecorder(int max_renderers) : the_maximum(max_renderers) {}

grRefreshRecorder::~grRefreshRecorder() = default;

void grRefreshRecorder::add_frame_time(dgRenderer* renderer, double seconds)
{
    find_or_add(renderer).add_timing(seconds, current_time());
}

int grRefreshRecorder::average_frame_time(dgRenderer* renderer, double& average) const
{
    int count;
    return average_frame_time(renderer, average, count);
}

int grRefreshRecorder::average_frame_time(dgRenderer* renderer, double& average, int& count) const
{
    average = 0;
    count = 0;
    if (const grRefreshTimeList* list = find(renderer))
        average = list->average_frame_time(count);
    return count >= 1;
}

int grRefreshRecorder::latest_time(dgRenderer* renderer, double& time) const
{
    const grRefreshTimeList* list = find(renderer);
    time = list ? list->latest_time() : 0;
    return list != nullptr;
}

int grRefreshRecorder::clear_times(dgRenderer* renderer)
{
    return std::erase_if(the_lists, [&](const auto& list) { return list->renderer() == renderer; }) != 0;
}

double grRefreshRecorder::current_time() const
{
    return timedp();
}

const grRefreshTimeList* grRefreshRecorder::find(const dgRenderer* renderer) const
{
    for (const auto& list : the_lists)
        if (list->renderer() == renderer)
            return list.get();
    return nullptr;
}

grRefreshTimeList& grRefreshRecorder::find_or_add(dgRenderer* renderer)
{
    // The one to be forgotten is chosen before the new one is there, so that it is never the new one.
    const auto oldest =
        std::min_element(the_lists.begin(), the_lists.end(),
                         [](const auto& a, const auto& b) { return a->latest_time() < b->latest_time(); });
    for (const auto& list : the_lists)
        if (list->renderer() == renderer)
            return *list;
    if (oldest != the_lists.end() && static_cast<int>(the_lists.size()) >= the_maximum)
        the_lists.erase(oldest);
    return *the_lists.emplace_back(std::make_unique<grRefreshTimeList>(renderer, n_times_kept));
}
