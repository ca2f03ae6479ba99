#pragma once

#include "dgWindow.h"

/// A window that can be drawn at any size without being shown.
class DG_EXPORT dgWidgetWindow : public dgWindow
{
public:
    ~dgWidgetWindow() override;

    /// Changes the size in pixels; the contents are then undefined. A size that cannot be had leaves another one: ask
    /// width and height.
    virtual void resize(int width, int height) = 0;
};
