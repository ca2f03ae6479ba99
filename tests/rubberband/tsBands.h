#pragma once

#include "grRubberBandCallback.h"
#include "grRubberBandManager.h"

#include "dgClientStructure.h"
#include "dgRef.h"
#include "dgRenderer.h"
#include "dgTraceWindow.h"
#include "dgView.h"
#include "tsShapes.h"

#include <string>
#include <utility>
#include <vector>

using tsLog = std::vector<std::string>;

/// A polyline of that many segments; a log line "draw lines 3 of 1" is the drawing of one with 3.
inline dgRef<dgPolyline> tsSegments(int n)
{
    return dgRef<dgPolyline>(ts_line(n));
}

/// A renderer with one view, of 40 by 30 pixels in a window of 100 by 80, on the trace driver, which reports to be
/// OpenGL; and a manager with its defaults. An overlay, if there is one, records what it is told behind "overlay ".
class tsBands
{
public:
    explicit tsBands(int with_overlay = 0)
        : main(100, 80), overlay(100, 80), renderer(&main, with_overlay ? &overlay : nullptr), view(&renderer)
    {
        main.driver_type(dgDRIVER_OPENGL);
        overlay.driver_type(dgDRIVER_OPENGL);
        view.camera().view_port_dc(giBox2(10, 10, 49, 39));
        const dgRef<dgClientStructure> root(new dgClientStructure);
        root->add(tsSegments(9).get());
        view.root(root.get());
    }
    ~tsBands() { grRubberBandManager::to_be_deleted(&renderer); }
    tsBands(const tsBands&) = delete;
    tsBands& operator=(const tsBands&) = delete;

    /// What both windows recorded since the last call; of the drivers' brackets and the wait for a frame nothing.
    tsLog take_log()
    {
        tsLog lines;
        for (dgTraceWindow* window : {&main, &overlay})
        {
            for (const std::string& line : window->log())
                if (line != "begin" && line != "end" && line != "xor begin" && line != "xor end" && line != "finish")
                    lines.push_back((window == &overlay ? "overlay " : "") + line);
            window->clear_log();
        }
        return lines;
    }

    grRubberBandManager manager;
    dgTraceWindow main, overlay;
    dgRenderer renderer;
    dgView view;
};

/// A callback item whose drawings are counted, in the list from the start and released at the end.
class tsCountedItem
{
public:
    explicit tsCountedItem(dgRenderer& renderer) : item(new grRubberBandCallback(&renderer, count, this))
    {
        grRubberBandManager::add(item.get());
    }
    tsCountedItem(const tsCountedItem&) = delete;
    tsCountedItem& operator=(const tsCountedItem&) = delete;

    void draw() { grRubberBandManager::draw(item.get(), grDRAW_RUBBER_BAND_ITEM); }
    void undraw() { grRubberBandManager::draw(item.get(), grUNDRAW_RUBBER_BAND_ITEM); }

    int drawn = 0;
    int undrawn = 0;
    int driver = -1; ///< index of the driver that it was last drawn with
    dgRef<grRubberBandCallback> item;

private:
    static void count(grRubberBandItem* item, grRubberBandIt it)
    {
        auto& self = *static_cast<tsCountedItem*>(item->user_data());
        ++(it == grDRAW_RUBBER_BAND_ITEM ? self.drawn : self.undrawn);
        self.driver = item->renderer()->current_driver_index();
    }
};
