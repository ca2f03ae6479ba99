#pragma once

#include "grStdViewTwiddleTool.h"

/// Does nothing: bound to a key, it swallows that key. While the key is held it is the active tool like any other.
class GR_EXPORT grNoOpTool : public grStdViewTwiddleTool
{
public:
    using grStdViewTwiddleTool::grStdViewTwiddleTool;

    static const utTypeID& ut_static_type();
    const utTypeID& ut_dynamic_type() const override;
    int ut_is_kind_of(const utTypeID& type) const override;
    static grNoOpTool* ut_dynamic_cast(grTwiddleTool* tool);
    static const grNoOpTool* ut_dynamic_cast(const grTwiddleTool* tool);

protected:
    void start_twiddle(const gwKeyEvent& event) override;
    void end_twiddle(const gwKeyEvent& event) override;
};
