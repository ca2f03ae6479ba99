#pragma once

#include "coReceiver.h"
#include "grExport.h"

#include <memory>

class dgView;
class grViewRefresher;
class grWorkPlane;

/// What a view tool works on: built by the hooks at the start of a twiddle, owned by the tool.
class GR_EXPORT grViewTwiddleDetail : public coReceiver
{
public:
    /// Takes the refresher over. The view is not owned; the workplane is not owned and must outlive the detail. Any may
    /// be null.
    grViewTwiddleDetail(dgView* target_view, grViewRefresher* refresher, grWorkPlane* workplane);
    ~grViewTwiddleDetail() override;

    /// Null once the view is deleted, so to be tested on every event.
    dgView* target_view() const { return the_target_view; }
    /// Redraws the target view, and others with it, during the twiddle.
    grViewRefresher* refresher() const { return the_refresher.get(); }
    grWorkPlane* workplane() const { return the_workplane; }

    /// Forgets the view; called when it is about to be deleted.
    void view_to_be_deleted() { the_target_view = nullptr; }

    UT_DECLARE_TYPE(grViewTwiddleDetail, coReceiver);

protected:
    grViewTwiddleDetail(const grViewTwiddleDetail&) = delete;
    grViewTwiddleDetail& operator=(const grViewTwiddleDetail&) = delete;

private:
    dgView* the_target_view;
    std::unique_ptr<grViewRefresher> the_refresher;
    grWorkPlane* the_workplane;
};
