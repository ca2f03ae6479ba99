#pragma once

#include "dgWidgetWindow.h"
#include "dg_traceExport.h"

#include <array>
#include <memory>
#include <random>
#include <string>
#include <vector>

/// A surface without pixels whose drivers record every call in order, for tests and for tracing an application.
///
/// Each call becomes one line of log(): "xor " for the calls of an inverting driver,
/// then the call and its values. Drivers may be told what they can do, what type they report and what a primitive
/// costs.
class DG_TRACE_EXPORT dgTraceWindow : public dgWidgetWindow
{
public:
    dgTraceWindow(int width, int height);
    ~dgTraceWindow() override;

    void begin() override {}
    void end() override {}
    int width() const override { return the_width; }
    int height() const override { return the_height; }
    void resize(int width, int height) override;
    std::unique_ptr<dgDriver> make_driver(int inverting) override;
    void present() override;

    const std::vector<std::string>& log() const { return the_log; }
    void clear_log() { the_log.clear(); }

    /// Adds a line of the caller's own to the log.
    void record(std::string line) { the_log.push_back(std::move(line)); }

    /// Whether camera, transform and state calls are recorded too; they are not by default.
    void record_state(int on) { the_state_recorded = on; }
    int record_state() const { return the_state_recorded; }

    /// What the drivers of this surface answer. Double buffering alone by default.
    void capability(dgDriverCapability capability, int present);
    int capability(dgDriverCapability capability) const;

    /// The type that the drivers report; dgDRIVER_TRACE by default.
    void driver_type(dgDriverKind type) { the_type = type; }
    dgDriverKind driver_type() const { return the_type; }

    /// Seconds by which drawing one feature (point, line segment or triangle) moves the hand-driven clock on. 0 by
    /// default.
    void cost_per_feature(double seconds) { the_cost = seconds; }
    double cost_per_feature() const { return the_cost; }

    /// By what share of it, up or down, the cost of each call strays; 0 by default. The same every time.
    void cost_noise(double share) { the_cost_noise = share; }

    /// Seconds by which the next wait for the drivers to finish moves the hand-driven clock on, for what they have been
    /// told before.
    void cost_of_waiting(double seconds) { the_waiting_cost = seconds; }

    /// Features drawn since the last reset.
    long long features_drawn() const { return the_features; }
    void reset_features_drawn() { the_features = 0; }

    /// For the drivers: counts features and moves the hand-driven clock on by what they cost.
    void count_drawn(int features);

    /// For the drivers: moves the hand-driven clock on by what a wait costs.
    void count_wait();

private:
    int the_width;
    int the_height;
    std::vector<std::string> the_log;
    int the_state_recorded = 0;
    std::array<int, 16> the_capabilities{};
    dgDriverKind the_type = dgDRIVER_TRACE;
    double the_cost = 0;
    double the_cost_noise = 0;
    double the_waiting_cost = 0;
    std::minstd_rand the_random;
    long long the_features = 0;
};
