#pragma once

#include "grOtherViews.h"
#include "grStdViewTwiddleTool.h"

#include <cstddef>
#include <type_traits>
#include <variant>
#include <vector>

/// Makes a tool that acts on one view, Single, act on the views that belong with that one as well: on these others
/// first, in the order in which the hooks name them, and then on the target by Single's own code.
///
/// Start is what the tool has to know of how each other view was at the start; by default nothing.
template <class Single, class Start = std::monostate>
class GR_EXPORT grMultiTool : public Single
{
public:
    using Single::Single;

    using grStdViewTwiddleTool::save_camera;
    /// Saves the cameras of the other views and then the target's, when the flags allow it.
    void save_camera() const override
    {
        the_others.save_cameras(*this);
        Single::save_camera();
    }

protected:
    /// Finds the other views, and keeps start_of(view) for each; there are none without a target.
    template <class Function>
    void find_others(const gwKeyEvent& event, Function start_of)
    {
        the_others.find(*this, event, this->target_view());
        the_starts.assign(static_cast<std::size_t>(the_others.count()), Start());
        the_others.each([&](dgView* view, int i) { the_starts[static_cast<std::size_t>(i)] = start_of(view); });
    }
    void find_others(const gwKeyEvent& event) { the_others.find(*this, event, this->target_view()); }

    /// Calls function(view) or function(view, start) for each other view in order. It may delete views.
    template <class Function>
    void each_other(Function function) const
    {
        if constexpr (std::is_invocable_v<Function&, dgView*>)
            the_others.each([&](dgView* view, int) { function(view); });
        else
            the_others.each([&](dgView* view, int i) { function(view, the_starts[static_cast<std::size_t>(i)]); });
    }

private:
    grOtherViews the_others;
    std::vector<Start> the_starts; // of the others
};
