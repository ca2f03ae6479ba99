#pragma once

#include "dgExport.h"
#include "dgGeometry.h"
#include "dgNetworkPlace.h"

class dgGraphicalElement;
class dgGraphicalPrimitive;
class dgRenderer;
class dgStructure;
struct dgPrimitiveRun;

/// Sees every primitive of a network drawing before it is drawn. Installed with dgRenderer::render_action.
///
/// Attributes, transforms and calls always take effect, and primitives are met in the same order every time, in view or
/// not.
class DG_EXPORT gsRenderAction
{
public:
    gsRenderAction() = default;
    /// Removes the action from the renderer where it is installed.
    virtual ~gsRenderAction();
    gsRenderAction(const gsRenderAction&) = delete;
    gsRenderAction& operator=(const gsRenderAction&) = delete;

    virtual void start_network(dgRenderer&, const dgStructure*) {}
    virtual void end_network(dgRenderer&) {}

    /// Asked when all primitives were met; 1 to meet them once more before the end.
    virtual int another_pass(dgRenderer&) { return 0; }

    /// Draws what is to be drawn of primitives that follow on each other under one state, which is in force. By default
    /// asks about each of them.
    virtual void run(dgRenderer& renderer, const dgPrimitiveRun& run);

    /// Asked before so many small runs that follow on each other, each of one topology and number of features, is drawn
    /// as a whole or not at all, and has a state that need not be in force yet: how many of them, from the first one
    /// on, there are before one of which something is to be drawn. They are not met, and the action has counted them as
    /// if they were.
    virtual int passes_by(dgTopology, int /*features*/, int /*runs*/) { return 0; }

    /// Where a pass starts, null for the beginning of the network: at a run of which stops_at was told while the
    /// network was as it is now. What lies before is not met; its attributes are in force. Asked behind start_network.
    virtual const dgNetworkPlace* starts_at() const { return nullptr; }

    /// Asked behind each run, whose place this is: 1 ends the pass.
    virtual int stops_at(const dgNetworkPlace&) { return 0; }

    /// 1 to draw the primitive, 0 to skip it.
    virtual int primitive(dgRenderer&, const dgGraphicalPrimitive&) { return 1; }

    /// 1 to execute an element that is neither attribute, primitive nor call, such as an application's own.
    virtual int element(dgRenderer&, const dgGraphicalElement&) { return 1; }

    /// As passes_by, of small runs of which nothing is in view: what they draw is not seen.
    virtual int passes_by_unseen(dgTopology topology, int features, int runs)
    {
        return passes_by(topology, features, runs);
    }

private:
    friend class dgRenderer;
    dgRenderer* the_renderer = nullptr;
};
