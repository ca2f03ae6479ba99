#pragma once

#include "gwDrawingArea.h"

/// Drawing area without a screen: a size that the application sets and an input that it posts events to.
class GW_EXPORT gwHeadlessWindow : public gwDrawingArea
{
public:
    /// Device pixels.
    gwHeadlessWindow(int width, int height) : the_width(width), the_height(height) {}
    ~gwHeadlessWindow() override;

    int width() const override { return the_width; }
    int height() const override { return the_height; }
    void resize(int width, int height) override
    {
        the_width = width;
        the_height = height;
    }

    UT_DECLARE_TYPE(gwHeadlessWindow, gwWindow);

private:
    int the_width;
    int the_height;
};
