#pragma once

#include "giPoint2.h"
#include "grStdStructureTwiddleTool.h"

/// Scales a structure about its pivot by vertical drag: up enlarges. Half the height of the renderer is a factor of 10,
/// which is also the limit; back at the press point the structure is as it was.
class GR_EXPORT grScaleStructureTool : public grStdStructureTwiddleTool
{
public:
    grScaleStructureTool(const utString& args, const gwResourceDB* db, grStdTwiddleHooks* hooks);
    ~grScaleStructureTool() override;

    static const utTypeID& ut_static_type();
    const utTypeID& ut_dynamic_type() const override;
    int ut_is_kind_of(const utTypeID& type) const override;
    static grScaleStructureTool* ut_dynamic_cast(grTwiddleTool* tool);
    static const grScaleStructureTool* ut_dynamic_cast(const grTwiddleTool* tool);

protected:
    void start_twiddle(const gwKeyEvent& event) override;
    void mouse_event(const gwMouseEvent& event) override;
    void end_twiddle(const gwKeyEvent& event) override;

private:
    giPoint2 the_start_point; // device
};
