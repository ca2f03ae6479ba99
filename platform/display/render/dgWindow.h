#pragma once

#include "dgEnums.h"
#include "dgExport.h"
#include "giBox2.h"

#include <memory>

class dgDriver;

/// A surface that a renderer draws on: a window, an off-screen picture or an overlay layer over one of these.
class DG_EXPORT dgWindow
{
public:
    virtual ~dgWindow();

    /// Make the surface the current one and release it again; they nest.
    virtual void begin() = 0;
    virtual void end() = 0;

    /// Size in pixels, each at least 1.
    virtual int width() const = 0;
    virtual int height() const = 0;

    /// (0, 0) to (width - 1, height - 1).
    giBox2 device_box() const { return giBox2(0, 0, width() - 1, height() - 1); }

    /// A new driver for this surface; with inverting 1, the colours of all that it draws are combined with those there
    /// by exclusive or, so that white inverts and the same drawn twice leaves no trace.
    virtual std::unique_ptr<dgDriver> make_driver(int inverting) = 0;

    /// Shows what was drawn, where there is somewhere to show it.
    virtual void present() {}
};
