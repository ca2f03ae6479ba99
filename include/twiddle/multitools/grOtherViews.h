#pragma once

#include "coReceiver.h"
#include "grExport.h"

#include <vector>

class dgView;
class grStdTwiddleTool;
class grStdViewTwiddleTool;
class gwKeyEvent;

/// The views that a multi-view tool changes beside its target, in the order in which the hooks name them.
///
/// A view that is deleted leaves the list: its place stays empty, so that whatever a tool keeps for view i stays that
/// of view i.
class GR_EXPORT grOtherViews : public coReceiver
{
public:
    grOtherViews() = default;
    ~grOtherViews() override;

    /// Asks the tool's hooks which views belong with an event, and keeps all but the target and those that are locked
    /// against the tool. Without hooks there are none.
    void find(const grStdTwiddleTool& tool, const gwKeyEvent& event, dgView* target);

    /// Number of places, which does not change until the next find.
    int count() const { return static_cast<int>(the_views.size()); }
    /// Null once the view is deleted; i counts from 0.
    dgView* view(int i) const { return the_views[static_cast<std::size_t>(i)]; }

    /// Calls function(view, i) for each view in order; function may delete views.
    template <class Function>
    void each(Function function) const
    {
        for (int i = 0; i < count(); ++i)
            if (dgView* other = view(i))
                function(other, i);
    }

    /// Saves the camera of each view, as far as the tool may save cameras.
    void save_cameras(const grStdViewTwiddleTool& tool) const;

    UT_DECLARE_TYPE(grOtherViews, coReceiver);

protected:
    grOtherViews(const grOtherViews&) = delete;
    grOtherViews& operator=(const grOtherViews&) = delete;

private:
    void view_to_be_deleted(void* sender, void* data);

    std::vector<dgView*> the_views; // null where a view was deleted
};
