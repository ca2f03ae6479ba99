#pragma once

#include <algorithm>
#include <atomic>
#include <exception>
#include <mutex>
#include <system_error>
#include <thread>
#include <vector>

/// Calls work(piece) for every piece from 0 to n_pieces - 1, in several threads where the machine has several
/// processors; all have ended when it returns. Calls for different pieces may run at the same time. What one of them
/// throws is thrown here, and the pieces that are not begun by then are left out.
template <class Work>
void gr_in_parallel(int n_pieces, const Work& work)
{
    std::atomic<int> next{0};
    std::exception_ptr failure;
    std::mutex failing;
    const auto run = [&]
    {
        try
        {
            for (int piece = next++; piece < n_pieces; piece = next++)
                work(piece);
        }
        catch (...)
        {
            next = n_pieces;
            const std::lock_guard<std::mutex> lock(failing);
            failure = std::current_exception();
        }
    };
    std::vector<std::thread> helpers;
    const int n_threads = std::min(n_pieces, static_cast<int>(std::thread::hardware_concurrency()));
    helpers.reserve(static_cast<std::size_t>(std::max(n_threads, 1)));
    try
    {
        while (static_cast<int>(helpers.size()) + 1 < n_threads)
            helpers.emplace_back(run);
    }
    catch (const std::system_error&)
    {
        // Those that could be started do all of it.
    }
    run();
    for (std::thread& helper : helpers)
        helper.join();
    if (failure)
        std::rethrow_exception(failure);
}
