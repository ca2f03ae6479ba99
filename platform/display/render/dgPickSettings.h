#pragma once

/// What a renderer picks.
struct dgPickSettings
{
    int largest_count = 0; ///< ends after so many elements; 0 for no limit
    int lines = 1;         ///< whether lines, points and texts are picked
    int surfaces = 1;      ///< whether surfaces are picked
};

/// How an element is tried.
enum dgPickMode
{
    dgPICK_EXACT = 0, ///< something of it lies in the aperture
    dgPICK_BOX = 1    ///< its box does
};
