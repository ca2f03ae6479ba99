#pragma once

#include "giPoint3.h"
#include "grStdTwiddleTool.h"
#include "grStructureTwiddleDetail.h"

#include <memory>

class giXform3;
class grStructurePlacement;

/// Base of the tools that move a structure inside a view.
class GR_EXPORT grStdStructureTwiddleTool : public grStdTwiddleTool
{
public:
    grStdStructureTwiddleTool(const utString& args, const gwResourceDB* db, grStdTwiddleHooks* hooks);
    ~grStdStructureTwiddleTool() override;

    /// What the tool works on, or null: before the start, and for good when the hooks found no structure to move.
    grStructureTwiddleDetail* detail() const { return the_detail.get(); }

    UT_DECLARE_TYPE(grStdStructureTwiddleTool, grTwiddleTool);

protected:
    /// Asks the hooks what to work on and keeps the answer; 1 when there is a structure.
    int find_detail(const gwKeyEvent& event);
    /// Takes over what to work on, which may be null.
    void detail(grStructureTwiddleDetail* detail) { the_detail.reset(detail); }

    /// The course that structure tools share. The start finds the detail, tells the hooks, starts the refresher and
    /// finds the structure's place; it answers 0 when there is nothing to move, and the tool then stays inert. A move
    /// places the structure by a motion in world space since the start, tells the hooks and redraws. The end, which is
    /// also what a tool does that has no end of its own, ends the refresher's twiddle and tells the hooks, provided
    /// that there is a detail.
    int start_structure_twiddle(const gwKeyEvent& event);
    void move_structure(const giXform3& motion_world, const gwMouseEvent& event);
    void end_structure_twiddle(const gwKeyEvent& event);
    void end_twiddle(const gwKeyEvent& event) override;
    /// Lets the refresher go on drawing and tells the hooks; without a detail nothing is done.
    grIdleAction idle_event() override;

    /// The view the structure is moved in; null without one, also once it has been deleted.
    dgView* structure_view() const { return the_detail ? the_detail->structure_view() : nullptr; }
    grViewRefresher* refresher() const { return the_detail ? the_detail->refresher() : nullptr; }
    /// The workplane if there is one that is switched on, else null.
    grWorkPlane* workplane_in_use() const;
    /// The point in world space that stays where it is when the structure is turned or scaled: the origin of the
    /// workplane in use, else the middle of the structure's box at the start.
    const giPoint3& pivot() const { return the_pivot; }

private:
    std::unique_ptr<grStructureTwiddleDetail> the_detail;
    std::unique_ptr<grStructurePlacement> the_placement; // null before the start
    giPoint3 the_pivot;                                  // world
};
