#pragma once

#include "grElementCategory.h"

/// Categories that have weights.
constexpr int grLINE_CATEGORY = 1, grTRIANGLE_CATEGORY = 2, grPOINT_CATEGORY = 19;

/// How much of a frame's time points, lines and triangles get, relative to each other. With 1, 1, 1 every category
/// gives up the same share; any other three numbers divide the time.
struct grDrawWeights
{
    int points = 1;
    int lines = 1;
    int triangles = 1;
};

/// Sets quotas and ratios from counts and rates, so that a frame takes budget seconds where everything would take
/// full_time; 0 is not known and draws everything. Answers whether everything is to be drawn.
bool gr_set_draw_quotas(grElementCategories& categories, const grDrawWeights& weights, double budget, double full_time);
