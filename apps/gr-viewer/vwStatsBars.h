#pragma once

#include "vwPixels.h"

class dgView;
class vwFrameTimes;

/// Draws the last frame times as bars over the lower left corner of a view, against the time that a frame may take:
/// green up to it, yellow up to 1.2 times, red beyond; lines stand at both. A bar of full height took twice the time or
/// more. With a font, the times of the last frames stand over the bars in numbers.
class vwStatsBars
{
public:
    /// frame_seconds is what a frame may take.
    explicit vwStatsBars(double frame_seconds) : the_frame_seconds(frame_seconds) {}

    /// The font's slot in the renderers of the views.
    void font(int slot) { the_font = slot; }

    /// To be called where the library's overlay callback is.
    void draw(dgView& view, const vwFrameTimes& times);

private:
    void build(const vwFrameTimes& times, int most_bars);

    vwPixels the_pixels;
    double the_frame_seconds;
    int the_font = -1; // none
};
