#pragma once

#include "gwInput.h"
#include "gwWindow.h"

/// Window with an input of its own, resized by the application.
class GW_EXPORT gwDrawingArea : public gwWindow
{
public:
    ~gwDrawingArea() override;

    /// Where the events of this window are posted.
    gwInput& input() { return the_input; }
    /// width and height are device pixels, 0 or more.
    virtual void resize(int width, int height) = 0;

    static const utTypeID& ut_static_type();
    const utTypeID& ut_dynamic_type() const override;
    int ut_is_kind_of(const utTypeID& type) const override;
    static gwDrawingArea* ut_dynamic_cast(gwWindow* window);

protected:
    gwDrawingArea() = default;

private:
    gwInput the_input;
};
