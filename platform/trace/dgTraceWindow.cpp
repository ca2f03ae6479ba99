#include "dgTraceWindow.h"

#include "apClockOverride.h"
#include "dgTraceDriver.h"

#include <utility>

dgTraceWindow::dgTraceWindow(int width, int height) : the_width(width), the_height(height)
{
    capability(dgCAPABILITY_DOUBLE_BUFFERING, 1);
}

dgTraceWindow::~dgTraceWindow() = default;

void dgTraceWindow::resize(int width, int height)
{
    the_width = width;
    the_height = height;
}

std::unique_ptr<dgDriver> dgTraceWindow::make_driver(int inverting)
{
    return std::make_unique<dgTraceDriver>(*this, inverting);
}

void dgTraceWindow::count_drawn(int features)
{
    the_features += features;
    apClockOverride* clock = apClockOverride::current();
    if (!clock)
        return;
    double cost = features * the_cost;
    if (the_cost_noise != 0)
        cost *= 1 + std::uniform_real_distribution<double>(-the_cost_noise, the_cost_noise)(the_random);
    clock->advance(cost);
}

void dgTraceWindow::count_wait()
{
    const double cost = std::exchange(the_waiting_cost, 0);
    if (apClockOverride* clock = apClockOverride::current())
        clock->advance(cost);
}

void dgTraceWindow::present()
{
    record("present");
}

void dgTraceWindow::capability(dgDriverCapability capability, int present)
{
    the_capabilities[static_cast<std::size_t>(capability)] = present;
}

int dgTraceWindow::capability(dgDriverCapability capability) const
{
    return the_capabilities[static_cast<std::size_t>(capability)];
}
