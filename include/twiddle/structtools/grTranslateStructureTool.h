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
    using grStdStructureTwiddleTool::grStdStructureTwiddleTool;

    UT_DECLARE_TYPE(grTranslateStructureTool, grTwiddleTool);

protected:
    void start_twiddle(const gwKeyEvent& event) override;
    void mouse_event(const gwMouseEvent& event) override;

private:
    giPoint3 in_plane(const gwPositionalEvent& event) const;

    giVector3 the_normal; // of the plane of motion, world
    giPoint3 the_start;   // world point of the plane under the pointer at the press
};
