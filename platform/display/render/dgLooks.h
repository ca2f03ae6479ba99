#pragma once

#include "dgBase.h"
#include "dgElementPath.h"
#include "dgExport.h"
#include "gsColour.h"

#include <memory>
#include <unordered_map>
#include <vector>

class dgGraphicalAttribute;
class dgGraphicalPrimitive;
class dgRenderer;
struct dgPrimitiveRun;

/// How a part is shown other than its structure says.
struct dgLook
{
    int hidden = 0;
    int coloured = 0;   ///< whether colour stands in place of all colours of the part
    gsColour colour;    ///< red, green and blue from 0 to 1
    int unlit = 0;      ///< whether surfaces have their colour as it is, without light and shade
    double opacity = 1; ///< of surfaces, as dgOpacity; 1 leaves the part's own

    bool plain() const { return !hidden && !coloured && !unlit && opacity >= 1; }
    bool operator==(const dgLook& other) const
    {
        return hidden == other.hidden && coloured == other.coloured && unlit == other.unlit &&
               opacity == other.opacity && (!coloured || colour == other.colour);
    }
};

/// Shows parts of a network otherwise than its structures say, which stay as they are: coloured, see-through or not at
/// all. Counted. Views are given one by dgView::looks, and may share it.
///
/// Drawing asks for looks along the paths to such parts alone; all other structures cost one test each. Inside a part
/// its look wins over what the structures say, and the look of a part of it over its own.
class DG_EXPORT dgLooks : public dgBase
{
public:
    dgLooks();
    ~dgLooks() override;
    dgLooks(const dgLooks&) = delete;
    dgLooks& operator=(const dgLooks&) = delete;

    /// Replaces the look of a part; a plain one ends it.
    void set(const dgElementPath& path, const dgLook& look);
    /// Plain where none was set.
    dgLook find(const dgElementPath& path) const;

    /// Shows some triangles of a block in a colour, by their numbers; none ends that. Drawn over the block, whose own
    /// look stays. What is no block shows nothing, nor do numbers of no triangle.
    void set_triangles(const dgElementPath& path, const std::vector<int>& triangles, const gsColour& colour);

    /// Hides everything but some parts, and what looks hide; empty shows everything again.
    void isolate(const std::vector<dgElementPath>& paths);
    /// 1 when some part may be hidden.
    int hides() const { return isolated() || the_n_hidden > 0; }
    int isolated() const { return (the_lists & isolation) != 0; }

    /// Grows with every change.
    unsigned long long stamp() const { return the_stamp; }

    UT_DECLARE_TYPE(dgLooks, dgBase);

    // For dgView::redraw_parts: what else is not drawn for the time being.
    void redraw_only(const std::vector<dgElementPath>& paths);

    // For walks through a network, from here on.

    struct Node;
    /// Where a walk stands: below no part of interest when node is null.
    struct Place
    {
        Node* node = nullptr;
        unsigned inside = ~0u; // which lists need no further look
    };
    /// A primitive run, or a part of one, that has one look.
    struct Part
    {
        const dgPrimitiveRun* run;
        Place place;
        bool over_another = false; // triangles of the part before it
    };

    Place root() const;
    /// Goes on to an element of the structure where the walk stands, a call or another one; false when it is not shown.
    static bool enter(const Place& from, const dgGraphicalElement& element, Place& to);
    /// Puts the look of the place in force on a renderer, in the level of context that is open.
    static void put_in_force(const Place& place, dgRenderer& renderer);
    static bool has_look(const Place& place);
    /// Triangles that are drawn over a primitive where the walk stands, as a primitive that is good until it or the
    /// looks change, and their place; null for none.
    static const dgGraphicalPrimitive* triangles(const Place& place, const dgGraphicalPrimitive& of, Place& to);
    /// Whether primitives of the structure where the walk stands may look different from each other.
    static bool parts_runs(const Place& place);
    /// The shown parts of a run in order, good until looks or the run change.
    static const std::vector<Part>& parts(const Place& place, const dgPrimitiveRun& run);

private:
    static constexpr unsigned isolation = 1, redrawing = 2;
    Node& node(const dgElementPath& path);
    const Node* find_node(const dgElementPath& path) const;
    void list(unsigned which, const std::vector<dgElementPath>& paths);
    void prune(const dgElementPath& path);
    void changed();

    std::unique_ptr<Node> the_root;
    int the_n_hidden = 0;
    unsigned the_lists = 0;                                 // those that are in force
    std::vector<dgElementPath> the_isolated, the_redrawing; // what is on them
    unsigned long long the_stamp;
};
