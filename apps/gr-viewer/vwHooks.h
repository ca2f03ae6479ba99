#pragma once

#include "grStdTwiddleHooks.h"
#include "vwRefresher.h"

/// The viewer's settings of the standard tools: views spin on when let go while moving, and are redrawn as asked for.
class vwHooks : public grStdTwiddleHooks
{
public:
    /// framerate is what moving views shall hold, in frames per second; 0 takes the resource "framerate", or 20
    /// without.
    vwHooks(const gwResourceDB& db, double framerate, vwRefresher refresher);

    /// A sheet of paper comes last, which is drawn first: its views lie on it.
    dgView* identify_views(const gwKeyEvent& event, dgViewcoDList& views) override;

    /// The rate that moving views shall hold, in frames per second.
    double framerate() const { return the_framerate; }

    /// What the structure tools move, null at first; not owned.
    void structure(dgStructure* structure) { the_structure = structure; }
    dgStructure* identify_structure() override { return the_structure; }

private:
    dgStructure* the_structure = nullptr;
    double the_framerate;
};
