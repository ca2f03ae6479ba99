#pragma once

#include "apClockOverride.h"
#include "grViewRendererFast.h"
#include "tsScene.h"

/// A view whose network costs a multiple of a second to draw, on a clock that only drawing moves on, and the settings
/// of fast drawing for one frame a second, put back at the end.
class tsHeavyView
{
public:
    explicit tsHeavyView(int n_segments = 0, double times_a_second = 0)
    {
        grViewRendererFast::minimum_framerate(1);
        scene.add_view();
        if (n_segments)
            fill(n_segments, times_a_second);
    }
    /// Replaces the network by one line that takes times_a_second seconds to draw.
    void fill(int n_segments, double times_a_second)
    {
        const dgRef<dgStructure> root = tsLine(n_segments);
        view().root(root.get());
        scene.window().cost_per_feature(times_a_second / n_segments);
    }
    dgView& view() { return *scene.view(0); }
    dgTraceWindow& window() { return scene.window(); }

    /// Segments that are drawn while work is done.
    template <class Work>
    long long drawn(Work work)
    {
        window().reset_features_drawn();
        work();
        return window().features_drawn();
    }

    apClockOverride clock;
    tsScene scene;

private:
    tsSetting<double> the_rate{grViewRendererFast::minimum_framerate(),
                               [](double rate) { grViewRendererFast::minimum_framerate(rate); }};
};
