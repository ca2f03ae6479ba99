#include "msReading.h"

#include "msChild.h"
#include "msMeshFile.h"
#include "msReceiving.h"
#include "msTarnFile.h"

#include "flMessages.h"
#include "flPath.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <fstream>
#include <iterator>
#include <mutex>
#include <new>
#include <optional>
#include <system_error>
#include <thread>

namespace
{
// Thrown out of reports of progress.
struct Stopped
{};

double bytes_of(const std::string& file)
{
    std::error_code failure;
    const auto size = std::filesystem::file_size(fl_path(file), failure);
    return failure ? 1 : std::max(1.0, static_cast<double>(size));
}
}

struct msReading::Shared
{
    std::vector<std::string> files;
    giAngle crease;
    std::optional<msChild> child; // where there are files for importers

    std::mutex mutex; // of what follows
    std::condition_variable news;
    std::vector<Arrival> arrivals;
    msReadingStatus status = msREADING_GOES_ON;
    std::string error;

    std::atomic<double> share{0};
    std::atomic<bool> stop{false};
    std::thread thread;

    void read();
    int read(std::size_t file, const ms_progress& progress, std::string& fault);
};

int msReading::Shared::read(std::size_t file, const ms_progress& progress, std::string& fault)
{
    const ms_block_taker take = [&](std::unique_ptr<giTriBlock> block)
    {
        const std::lock_guard<std::mutex> lock(mutex);
        arrivals.push_back({std::move(block), file});
        news.notify_one();
    };
    if (!ms_readable(files[file]))
        return ms_read_tarn(files[file], take, fault, progress);
    fault = ms_receive_file(child->stream(), crease, take, progress);
    if (fault.empty())
        return 1;
    if (const std::string end = child->finish(); !end.empty())
        fault = end;
    fault = fl_name(files[file]) + ": " + fault;
    return 0;
}

void msReading::Shared::read()
{
    double total = 0, before = 0;
    for (const std::string& file : files)
        total += bytes_of(file);
    msReadingStatus end = msREADING_DONE;
    std::string fault;
    try
    {
        for (std::size_t file = 0; file < files.size() && end == msREADING_DONE; ++file)
        {
            const double bytes = bytes_of(files[file]);
            const ms_progress progress = [&](double part)
            {
                if (stop)
                    throw Stopped();
                share = (before + bytes * std::clamp(part, 0.0, 1.0)) / total;
            };
            if (!read(file, progress, fault))
                end = msREADING_FAILED;
            before += bytes;
            share = before / total;
        }
    }
    catch (const std::bad_alloc&)
    {
        end = msREADING_FAILED;
        fault = "there is not enough memory for what the files hold";
    }
    catch (const Stopped&)
    {
        end = msREADING_FAILED;
    }
    const std::lock_guard<std::mutex> lock(mutex);
    status = end;
    error = fault;
    news.notify_one();
}

msReading::msReading(const std::vector<std::string>& files, const giAngle& crease)
    : the_shared(std::make_unique<Shared>())
{
    Shared& shared = *the_shared;
    shared.files = files;
    shared.crease = crease;
    for (const std::string& file : files)
        if (std::ifstream stream; !fl_open_for_reading(file, stream, shared.error))
        {
            shared.status = msREADING_FAILED;
            return;
        }
    std::vector<std::string> imported;
    std::copy_if(files.begin(), files.end(), std::back_inserter(imported),
                 [](const std::string& file) { return ms_readable(file); });
    if (!imported.empty())
        shared.child.emplace(imported);
    shared.thread = std::thread([&shared] { shared.read(); });
}

msReading::~msReading()
{
    the_shared->stop = true;
    if (the_shared->child)
        the_shared->child->stop();
    if (the_shared->thread.joinable())
        the_shared->thread.join();
}

msReadingStatus msReading::take(double seconds, std::vector<Arrival>& arrivals, std::string& error)
{
    Shared& shared = *the_shared;
    std::unique_lock<std::mutex> lock(shared.mutex);
    shared.news.wait_for(lock, std::chrono::duration<double>(seconds),
                         [&] { return !shared.arrivals.empty() || shared.status != msREADING_GOES_ON; });
    std::move(shared.arrivals.begin(), shared.arrivals.end(), std::back_inserter(arrivals));
    shared.arrivals.clear();
    if (shared.status == msREADING_FAILED)
        error = shared.error;
    return shared.status;
}

double msReading::share() const
{
    return the_shared->share;
}
