#include "vwLoading.h"

#include "vwModel.h"

#include "flTerminal.h"
#include "msReading.h"

#include "giTriBlock.h"

#include <iostream>

namespace
{
constexpr double progress_seconds = 0.1; // between looks at it while nothing comes
}

vwLoading::vwLoading(vwModel& model, const std::vector<std::string>& files)
    : the_model(model), the_files(files), the_reading(std::make_unique<msReading>(files, vwModel::crease())),
      the_bar(fl_errors_on_terminal() ? &std::cerr : nullptr, "reading")
{}

vwLoading::~vwLoading() = default;

int vwLoading::update(double seconds, std::string& error)
{
    if (the_done)
        return 1;
    std::vector<msReading::Arrival> arrivals;
    const msReadingStatus status = the_reading->take(seconds, arrivals, error);
    for (msReading::Arrival& arrival : arrivals)
    {
        while (the_started <= arrival.file)
            the_model.start_file(the_files[the_started++]);
        if (!the_model.add(std::move(arrival.block), error))
            return 0;
    }
    the_done = status == msREADING_DONE;
    if (the_done)
        the_bar.wipe();
    else
        the_bar.show(share());
    return status != msREADING_FAILED;
}

int vwLoading::finish(std::string& error)
{
    while (!the_done)
        if (!update(progress_seconds, error))
            return 0;
    return 1;
}

double vwLoading::share() const
{
    return the_reading->share();
}
