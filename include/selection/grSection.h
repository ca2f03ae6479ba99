#pragma once

#include "coReceiver.h"
#include "dgRef.h"
#include "giPlane.h"
#include "gi_Axis.h"
#include "grExport.h"
#include "gsColour.h"

#include <memory>
#include <optional>
#include <vector>

class dgStructure;
class dgView;
class giTriBlock;
class grSectionCap;

/// A plane that cuts open what views show: what lies on its negative side is neither drawn nor picked, and the surfaces
/// that it cuts through are closed by a cap, hatched and in one colour, without an edit of any structure.
///
/// The cap is that of the triangle blocks which the views show, hidden parts left out. It is found anew when the plane
/// or what is shown has changed, and drawn by every redraw of a view, whatever draws it; where a mesh is open, the cut
/// has no cap. Views that share a section should show the same network. Nothing here draws but redraw.
class GR_EXPORT grSection : public coReceiver
{
public:
    grSection();
    /// Shows everything whole, without drawing it.
    ~grSection() override;
    grSection(const grSection&) = delete;
    grSection& operator=(const grSection&) = delete;

    /// A view that is cut from now on, until it is removed or deleted.
    void add_view(dgView* view);
    void remove_view(dgView* view);

    /// Where the views are cut, in world space; none at first.
    const std::optional<giPlane>& plane() const { return the_plane; }
    void plane(const std::optional<giPlane>& plane);

    /// Cuts across an axis of world space at an offset along it, so that the side away from a view's eye stays. Without
    /// an offset it is the middle of what the view shows.
    void across(const dgView& view, gi_Axis axis, const std::optional<double>& offset = {});
    /// Cuts where the last cut was, or at first across the axis along which a view is seen most.
    void resume(const dgView& view);
    /// Lets the other side stay.
    void flip();
    /// Moves the plane along its normal, in world units, not beyond what a view shows.
    void move(const dgView& view, double distance);

    /// The cap that was drawn last, in world space, with normals to the negative side; null when there is none.
    const giTriBlock* cap() const;
    /// How many pieces of its outline do not close and were left out.
    int open_pieces() const;

    /// Red, green and blue from 0 to 1, of the surface and of the lines on it.
    void colours(const gsColour& surface, const gsColour& lines);

    /// Draws all that the renderers of the views show.
    void redraw();

    UT_DECLARE_TYPE(grSection, coReceiver);

private:
    void erased(void* sender, void* data);
    void view_deleted(void* sender, void* data);

    std::vector<dgView*> the_views;
    std::optional<giPlane> the_plane, the_last_plane;
    gsColour the_surface_colour{0.84, 0.56, 0.44};
    gsColour the_line_colour{0.42, 0.20, 0.14};
    std::unique_ptr<grSectionCap> the_cap;
};
