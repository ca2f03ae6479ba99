#pragma once

#include "dgWindow.h"

/// A window that can be drawn at any size without being shown.
class DG_EXPORT dgWidgetWindow : public dgWindow
{
public:
    ~dgWidgetWindow() override;

    /// Changes the size; the contents are then undefined.
    virtual void resize(int width, int height) = 0;
};
