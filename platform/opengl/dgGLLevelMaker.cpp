#include "dgGLLevelMaker.h"

#include "apThread.h"

#include <algorithm>
#include <iterator>
#include <new>
#include <system_error>
#include <utility>

namespace
{
// One core is left for drawing.
unsigned thread_count()
{
    return std::clamp(std::thread::hardware_concurrency(), 2u, 5u) - 1;
}
}

dgGLLevelMaker::dgGLLevelMaker() = default;

dgGLLevelMaker::~dgGLLevelMaker()
{
    // All at once, rather than each when the one before has ended.
    for (std::jthread& thread : the_threads)
        thread.request_stop();
}

void dgGLLevelMaker::add(unsigned geometry_id, unsigned long long stamp, dgGLMesh mesh)
{
    {
        const std::lock_guard lock(the_mutex);
        const std::size_t size = mesh.indices.size();
        the_waiting[geometry_id] = the_jobs.emplace(size, Job{geometry_id, stamp, std::move(mesh)});
    }
    if (the_threads.size() < thread_count())
    {
        try
        {
            the_threads.emplace_back([this](const std::stop_token& stop) { work(stop); });
        }
        catch (const std::system_error&)
        {
            // The system has no more threads to give; there may be some already.
        }
    }
    the_change.notify_all();
}

void dgGLLevelMaker::cancel(unsigned geometry_id)
{
    const std::lock_guard lock(the_mutex);
    const auto waiting = the_waiting.find(geometry_id);
    if (waiting == the_waiting.end())
        return;
    the_jobs.erase(waiting->second);
    the_waiting.erase(waiting);
}

bool dgGLLevelMaker::take(Made& made)
{
    if (!the_ready.load(std::memory_order_acquire))
        return false;
    const std::lock_guard lock(the_mutex);
    made = std::move(the_made.back());
    the_made.pop_back();
    --the_ready;
    return true;
}

void dgGLLevelMaker::wait()
{
    // Whoever waits works too, and at its own priority.
    std::unique_lock lock(the_mutex);
    while (!the_jobs.empty())
        make_largest(lock, {});
    the_change.wait(lock, [this] { return the_jobs.empty() && !the_under_way; });
}

void dgGLLevelMaker::work(const std::stop_token& stop)
{
    ap_lower_thread_priority();
    std::unique_lock lock(the_mutex);
    while (the_change.wait(lock, stop, [this] { return !the_jobs.empty(); }) && !stop.stop_requested())
        make_largest(lock, stop);
}

void dgGLLevelMaker::make_largest(std::unique_lock<std::mutex>& lock, const std::stop_token& stop)
{
    const auto largest = std::prev(the_jobs.end());
    Job job = std::move(largest->second);
    the_jobs.erase(largest);
    the_waiting.erase(job.geometry_id);
    ++the_under_way;
    lock.unlock();
    Made made{job.geometry_id, job.stamp, {}};
    try
    {
        made.levels = dg_gl_simplify(std::move(job.mesh), stop);
    }
    catch (const std::bad_alloc&)
    {
        // Then the block has no levels, and samples of it are drawn.
    }
    lock.lock();
    if (the_jobs.empty())
    {
        lock.unlock();
        ap_give_memory_back();
        lock.lock();
    }
    --the_under_way;
    if (!made.levels.empty())
    {
        the_made.push_back(std::move(made));
        ++the_ready;
    }
    the_change.notify_all();
}
