#pragma once

#include "giPoint3.h"
#include "giVector3.h"
#include "grStdStructureTwiddleTool.h"

class gwPositionalEvent;

/// Moves a structure with the pointer: what was under the pointer at the press stays under it.
///
/// The structure moves in the plane through its pivot that is parallel to the workplane when there is one that is
/// switched on, unless that is seen nearly from its edge, and parallel to the view plane otherwise.
class GR_EXPORT grTranslateStructureTool : public grStdStructureTwiddleTool
{
public:
    grTranslateStructureTool(const utString& args, const gwResourceDB* db, grStdTwiddleHooks* hooks);
    ~grTranslateStructureTool() override;

    static const utTypeID& ut_static_type();
    const utTypeID& ut_dynamic_type() const override;
    int ut_is_kind_of(const utTypeID& type) const override;
    static grTranslateStructureTool* ut_dynamic_cast(grTwiddleTool* tool);
    static const grTranslateStructureTool* ut_dynamic_cast(const grTwiddleTool* tool);

protected:
    void start_twiddle(const gwKeyEvent& event) override;
    void mouse_event(const gwMouseEvent& event) override;
    void end_twiddle(const gwKeyEvent& event) override;

private:
    giPoint3 in_plane(const gwPositionalEvent& event) const;

    giVector3 the_normal; // of the plane of motion, world
    giPoint3 the_start;   // world point of the plane under the pointer at the press
};
