#pragma once

#include "coReceiver.h"
#include "dgElementPath.h"
#include "dgLooks.h"
#include "dgRef.h"
#include "grExport.h"
#include "gsColour.h"

#include <functional>
#include <map>
#include <vector>

class dgView;
struct dgPickHit;

/// Triangles of a block.
struct grSelectedTriangles
{
    dgElementPath path;       ///< to the block
    std::vector<int> numbers; ///< ascending
};

/// What becomes of parts that are selected already when others are.
enum grSelectMode
{
    grSELECT_ONLY = 0,  ///< they no longer are
    grSELECT_ADD = 1,   ///< they stay
    grSELECT_TOGGLE = 2 ///< what is selected no longer is, what is not becomes it
};

/// Parts of what views show that are selected, lie under the pointer, are hidden or see-through: shown so in these
/// views without an edit of their structures.
///
/// Every change is drawn at once. Where colours alone have changed since a whole picture, and nothing in it is
/// see-through, only the parts concerned are drawn, over the picture; everything else redraws the views' renderers. A
/// part is named by its path from the root of a view, as picking gives it: see dgElementPath. Views that share a
/// selection should show the same network.
class GR_EXPORT grSelection : public coReceiver
{
public:
    grSelection();
    /// Shows everything as it is, without drawing it.
    ~grSelection() override;
    grSelection(const grSelection&) = delete;
    grSelection& operator=(const grSelection&) = delete;

    /// A view that shows the selection from now on, until it is removed or deleted. Not drawn by either call.
    void add_view(dgView* view);
    void remove_view(dgView* view);

    /// How many calls of the path of a hit name a part; what they call is then one part. 0, the default, has each
    /// primitive be a part; so has a path with fewer calls.
    int part_calls() const { return the_part_calls; }
    void part_calls(int n) { the_part_calls = n; }
    /// The part that a path to a primitive belongs to.
    dgElementPath part(const dgElementPath& path) const;

    void select(const std::vector<dgElementPath>& parts, grSelectMode mode = grSELECT_ONLY);
    /// Selects neither parts nor triangles.
    void clear() { select({}); }
    /// In the order in which they were selected.
    const std::vector<dgElementPath>& selected() const { return the_selected; }
    int is_selected(const dgElementPath& part) const;

    /// Selects triangles that were picked (grPICK_FEATURES), apart from parts; hits of anything else are left out.
    /// Either kind ends the selection of the other with grSELECT_ONLY. Blocks are in the order in which they were met.
    void select_triangles(const std::vector<dgPickHit>& hits, grSelectMode mode = grSELECT_ONLY);
    const std::vector<grSelectedTriangles>& selected_triangles() const { return the_selected_triangles; }

    /// What lies under the pointer; an empty path is nothing.
    void hover(const dgElementPath& part);
    const dgElementPath& hovered() const { return the_hovered; }

    void hide(const std::vector<dgElementPath>& parts, int hidden = 1);
    int is_hidden(const dgElementPath& part) const;
    /// Whether neither it nor what it belongs to is hidden, and no isolation leaves it out.
    int is_shown(const dgElementPath& part) const;
    /// Hides everything else; nothing is isolated when there are no parts.
    void isolate(const std::vector<dgElementPath>& parts);
    int isolated() const { return the_looks->isolated(); }
    /// The share of what is behind that surfaces cover: 1 shows parts as they are.
    void opacity(const std::vector<dgElementPath>& parts, double share);
    double opacity(const dgElementPath& part) const;
    /// Ends all hiding, isolation and seeing through.
    void show_all();

    /// Red, green and blue from 0 to 1. What is both has the mean.
    const gsColour& selected_colour() const { return the_selected_colour; }
    const gsColour& hovered_colour() const { return the_hovered_colour; }
    void colours(const gsColour& selected, const gsColour& hovered);

    /// Is told after what is selected has changed and was drawn; it may change it again.
    void changed_callback(std::function<void(grSelection&)> callback) { the_changed_callback = std::move(callback); }

    /// What is given to the views; applications may add looks of their own.
    dgLooks& looks() const { return *the_looks; }

    UT_DECLARE_TYPE(grSelection, coReceiver);

private:
    using Key = std::vector<const dgGraphicalElement*>;
    struct State
    {
        dgElementPath path;
        int selected = 0, hovered = 0, hidden = 0;
        double opacity = 1;
    };
    static Key key(const dgElementPath& path);
    const State* find(const dgElementPath& path) const;
    void show_triangles(const grSelectedTriangles& triangles);
    template <class Change>
    void change(const dgElementPath& path, Change change);
    void draw();
    void view_deleted(void* sender, void* data);

    dgRef<dgLooks> the_looks;
    std::vector<dgView*> the_views;
    int the_part_calls = 0;
    std::map<Key, State> the_states; // of parts that are not as usual
    std::vector<dgElementPath> the_selected;
    std::vector<grSelectedTriangles> the_selected_triangles;
    dgElementPath the_hovered;
    gsColour the_selected_colour{1.0, 0.55, 0.1};
    gsColour the_hovered_colour{0.5, 0.75, 1.0};
    std::function<void(grSelection&)> the_changed_callback;

    // Not drawn yet.
    std::vector<dgElementPath> the_recoloured;
    int the_redraw_needed = 0;
};
