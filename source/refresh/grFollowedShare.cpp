#include "grFollowedShare.h"

#include <algorithm>

namespace
{
// In times that a frame may take.
constexpr double too_little = 0.8, wanted = 0.9, too_much = 1.01, far_too_much = 1.5;

// By how much one step may change the share.
constexpr double largest_fall = 0.5, largest_rise = 1.5, rise_from_next_to_nothing = 4;

// In times that a frame may take: such a frame has drawn next to nothing, and may have taken most of it for erasing.
constexpr double next_to_nothing = 0.4;

// Nothing can be learnt from a share of which nothing is seen.
constexpr double smallest_share = 1e-4;
}

void grFollowedShare::start(double share)
{
    the_share = std::max(share, smallest_share);
    the_part = the_part_in_view;
    the_nloads = 0;
    the_proved = false;
}

double grFollowedShare::share_of(double part) const
{
    return part == the_part ? the_share : std::min(the_share * the_part / part, 1.0);
}

// The middle one of the last three. Where these have grown, as the part grows in view, so much more as the lesser
// growth tells: a late frame behind two that were alike tells nothing.
double grFollowedShare::steady_load() const
{
    const auto [latest, before, first] = the_loads;
    const double middle = std::max(std::min(latest, before), std::min(std::max(latest, before), first));
    return middle + std::max(std::min(latest - before, before - first), 0.0);
}

void grFollowedShare::frame_drawn(double drawn, double load)
{
    if (!(load > 0))
        return;
    the_proved = the_proved || load <= too_much;
    // Where all that is in view takes little, nothing is learnt of shares.
    const double before = share();
    if (before >= 1 && load < too_little)
        return;
    the_loads[2] = the_loads[1];
    the_loads[1] = the_loads[0];
    the_loads[0] = load;
    the_nloads = std::min(the_nloads + 1, 3);
    double steady = 0;
    if (!the_proved)
        steady = load; // the share was measured in one frame, and one frame tells that it is too large
    else if (the_nloads == 3)
        steady = steady_load();
    else if (the_nloads == 2 && std::min(the_loads[0], the_loads[1]) > far_too_much)
        steady = std::min(the_loads[0], the_loads[1]); // two that are far too late are enough
    else
        return;
    if (steady >= too_little && steady <= too_much)
        return;
    const double rise = steady < next_to_nothing ? rise_from_next_to_nothing : largest_rise;
    const double fitting = (drawn > 0 ? drawn : before) * wanted / steady;
    // What is drawn may be far less than the share, as levels come in steps: up it goes from the share.
    const double now = steady > too_much ? std::min(before, std::max({fitting, drawn * largest_fall, smallest_share}))
                                         : std::clamp(std::min(fitting, before * rise), before, 1.0);
    if (now == before)
        return;
    the_share = now;
    the_part = the_part_in_view;
    the_nloads = 0;
}
