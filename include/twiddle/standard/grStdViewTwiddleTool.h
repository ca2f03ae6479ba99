#pragma once

#include "grStdTwiddleTool.h"
#include "grViewTwiddleDetail.h"

#include <memory>

class dgView;
class grCameraViewCache;

/// Base of the tools that change the camera of a view.
class GR_EXPORT grStdViewTwiddleTool : public grStdTwiddleTool
{
public:
    grStdViewTwiddleTool(const utString& args, const gwResourceDB* db, grStdTwiddleHooks* hooks);
    ~grStdViewTwiddleTool() override;

    /// What the tool works on, or null: before the start, and for good when the hooks found no view to twiddle.
    grViewTwiddleDetail* detail() const { return the_detail.get(); }

    UT_DECLARE_TYPE(grStdViewTwiddleTool, grTwiddleTool);

    /// Pushes the target view's camera into its camera cache, when the flags allow it and there is a target.
    virtual void save_camera() const;
    /// The same for a given view, which may be null.
    void save_camera(dgView* view) const;

    /// The camera cache of a view, made on first request; null for a null view and without initialise_cache.
    static grCameraViewCache* camera_cache(dgView* view);
    /// Makes the process-wide manager of camera caches unless there is one; db may be null.
    static void initialise_cache(const gwResourceDB* db);
    /// Drops it with all that was saved; the close of the display library does so too.
    static void delete_camera_cache();

protected:
    /// Asks the hooks what to work on and keeps the answer; 1 when there is a target view.
    int find_detail(const gwKeyEvent& event);
    /// Takes over what to work on, which may be null.
    void detail(grViewTwiddleDetail* detail) { the_detail.reset(detail); }

    /// The course that view tools share. The start finds the detail, tells the hooks and starts the refresher; it
    /// answers 0 when there is nothing to twiddle, and the tool then stays inert. The end, which is also what a tool
    /// does that has no end of its own, ends the refresher's twiddle, saves the camera and tells the hooks, provided
    /// that there is a detail.
    int start_view_twiddle(const gwKeyEvent& event);
    void end_twiddle(const gwKeyEvent& event) override;
    void end_view_twiddle(const gwKeyEvent& event);
    /// Redraws during the twiddle.
    void refresh_views();
    /// Lets the refresher go on drawing and tells the hooks; without a detail nothing is done.
    grIdleAction idle_event() override;

    /// Parts of the detail, each null when there is none: a target view also once it has been deleted.
    dgView* target_view() const { return the_detail ? the_detail->target_view() : nullptr; }
    grViewRefresher* refresher() const { return the_detail ? the_detail->refresher() : nullptr; }
    grWorkPlane* workplane() const { return the_detail ? the_detail->workplane() : nullptr; }

private:
    std::unique_ptr<grViewTwiddleDetail> the_detail;
};
