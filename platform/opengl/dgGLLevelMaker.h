#pragma once

#include "dgGLSimplify.h"
#include "dg_openglExport.h"

#include <atomic>
#include <condition_variable>
#include <cstddef>
#include <map>
#include <mutex>
#include <thread>
#include <unordered_map>
#include <vector>

/// Simplifies blocks in threads of its own, the largest first. The threads see copies of blocks and nothing else, and
/// are of low priority, so that drawing is not delayed. They start with the first block, and end within a fraction of a
/// second when the maker dies.
class DG_OPENGL_EXPORT dgGLLevelMaker
{
public:
    struct Made
    {
        unsigned geometry_id = 0;
        unsigned long long stamp = 0;
        std::vector<dgGLLevel> levels;
    };

    dgGLLevelMaker();
    ~dgGLLevelMaker();
    dgGLLevelMaker(const dgGLLevelMaker&) = delete;
    dgGLLevelMaker& operator=(const dgGLLevelMaker&) = delete;

    /// A number that waits already is not added again before it is taken back.
    void add(unsigned geometry_id, unsigned long long stamp, dgGLMesh mesh);

    /// Takes back what waits under a number; what is under way is made nevertheless.
    void cancel(unsigned geometry_id);

    /// Takes over one that is made; false when there is none, which costs next to nothing.
    bool take(Made& made);

    /// Waits until everything that was added is made.
    void wait();

private:
    struct Job
    {
        unsigned geometry_id;
        unsigned long long stamp;
        dgGLMesh mesh;
    };
    void work(const std::stop_token& stop);
    void make_largest(std::unique_lock<std::mutex>& lock, const std::stop_token& stop);

    using Jobs = std::multimap<std::size_t, Job>; // by number of indices

    std::mutex the_mutex; // of what follows, but the_ready
    std::condition_variable_any the_change;
    Jobs the_jobs;
    std::unordered_map<unsigned, Jobs::iterator> the_waiting; // by geometry number
    std::vector<Made> the_made;
    int the_under_way = 0;
    std::atomic<int> the_ready = 0;        // in the_made
    std::vector<std::jthread> the_threads; // last, so that they end first
};
