#pragma once

#include <algorithm>
#include <utility>

/// How much of a kind of work may be done at a time, learnt from what it has taken.
class grWorkPace
{
public:
    /// Begins with first, and never goes beyond most, each at least 1.
    grWorkPace(int first, int most) : the_amount(first), the_most(most) {}

    int amount() const { return the_amount; }

    /// Work on amount(), or on the last bit of it, took so many seconds and should have taken others. Grows little by
    /// little, as the next work may be harder. Shrinks the second time running that work takes too long, and by the
    /// lesser excess: single times are others' doing on a busy machine.
    void took(double taken, double wanted, bool all_of_amount)
    {
        const double excess_before = std::exchange(the_excess, taken / wanted);
        if (the_excess > 1)
        {
            if (excess_before > 1)
                scale(1 / std::min(the_excess, excess_before));
        }
        else if (all_of_amount)
            scale(the_excess * most_growth > 1 ? 1 / the_excess : most_growth);
    }

private:
    void scale(double factor) { the_amount = std::clamp(static_cast<int>(the_amount * factor), 1, the_most); }

    static constexpr double most_growth = 2;
    int the_amount;
    int the_most;
    double the_excess = 0; // what was last taken of what was wanted
};
