#include "grDrawQuotas.h"

#include <algorithm>

namespace
{
long long truncated(double value)
{
    return static_cast<long long>(std::clamp(value, -1e18, 1e18));
}

struct Heavy
{
    grElementCategory& category;
    int weight;
    long long quota; // a category of few primitives may have a rate that makes it enormous
};

void hand_over(const Heavy& giver, Heavy (&heavies)[3])
{
    const long long spare = giver.quota - giver.category.count;
    if (spare <= 0 || !giver.category.count)
        return;
    const double seconds = static_cast<double>(spare) / giver.category.rate;
    const auto takes = [&](const Heavy& heavy) { return &heavy != &giver && heavy.category.count; };
    const double part = std::count_if(std::begin(heavies), std::end(heavies), takes) == 2 ? 0.5 : 1.0;
    for (Heavy& heavy : heavies)
        if (takes(heavy))
            heavy.quota += truncated(part * seconds * heavy.category.rate);
}

// Divides the time that the uniform quotas would take by weight.
void weight_quotas(grElementCategories& categories, const grDrawWeights& weights, double budget)
{
    // In the order in which they hand over what they cannot use.
    Heavy heavies[] = {{categories[grPOINT_CATEGORY], weights.points, 0},
                       {categories[grLINE_CATEGORY], weights.lines, 0},
                       {categories[grTRIANGLE_CATEGORY], weights.triangles, 0}};
    int sum = 0;
    double uniform_time = 0;
    for (const Heavy& heavy : heavies)
    {
        if (!heavy.category.count)
            continue;
        sum += heavy.weight;
        uniform_time += static_cast<double>(heavy.category.quota) / heavy.category.rate;
    }
    if (sum == 0)
        return;
    const double time = std::min(budget, uniform_time);
    for (Heavy& heavy : heavies)
        if (heavy.category.count)
            heavy.quota = truncated(static_cast<double>(heavy.weight) / sum * time * heavy.category.rate);
    for (const Heavy& giver : heavies)
        hand_over(giver, heavies);
    for (const Heavy& heavy : heavies)
    {
        const long long count = heavy.category.count;
        heavy.category.quota = std::min(heavy.quota, count);
        heavy.category.ratio =
            heavy.category.quota ? static_cast<double>(heavy.category.quota) / static_cast<double>(count) : 0;
    }
}
}

bool gr_set_draw_quotas(grElementCategories& categories, const grDrawWeights& weights, double budget, double full_time)
{
    const double share = full_time > 0 ? std::min(1.0, budget / full_time) : 1.0;
    for (grElementCategory& category : categories)
    {
        category.quota = category.count ? truncated(static_cast<double>(category.count) * share) : 0;
        category.ratio = category.count ? share : 0;
    }
    const bool all = share == 1.0;
    if (!all && !(weights.points == 1 && weights.lines == 1 && weights.triangles == 1))
        weight_quotas(categories, weights, budget);
    return all;
}
