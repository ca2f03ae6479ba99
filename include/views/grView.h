#pragma once

#include "coDList.h"
#include "coReceiver.h"
#include "dgBase.h"
#include "dgEnums.h"
#include "giXform3.h"
#include "grExport.h"
#include "grViewBackground.h"
#include "grViewLinkType.h"

#include <iosfwd>

class dgView;
class giBox3;
class grStdTwiddleTool;
class grView;
class grViewTwiddleLock;
class utTypeID;

/// List of views, not owned by the list.
using grViewcoDListPtr = coDList<grView*>;

/// This library's companion of a display view: its place in a hierarchy of views whose cameras follow each other, its
/// background, whether it is hidden, and the tools that may not twiddle it.
///
/// Every live view is in one process-wide registry, where contains finds it. A view owns neither its display view nor
/// its parent and children: deleting a view orphans its children, and they live on. When the display view is destroyed
/// first, the view leaves the hierarchy and the registry, and view() is null from then on; its owner still has to
/// delete it.
class GR_EXPORT grView : public coReceiver, public dgBase
{
public:
    /// A root view. view is not null.
    explicit grView(dgView* view);
    /// A view behind the last child of parent, its camera locked to the parent's at its present relative placement. A
    /// null parent makes a root view.
    grView(dgView* view, grView* parent);
    ~grView() override;

    /// The view of a display view, or null.
    static grView* contains(const dgView* view);
    /// Appends a view to the registry, as the constructors do.
    static void add_view(grView* view);
    /// Takes a view out of the registry and the hierarchy; its children have no parent then. Does nothing more for a
    /// view that is out already.
    static void remove_view(grView* view);

    /// Null once the display view has been destroyed.
    dgView* view() { return the_view; }
    const dgView* view() const { return the_view; }

    grView* parent() const { return the_parent; }
    /// Clears the parent and nothing else: the former parent still lists this view, and moves its camera while it is
    /// locked.
    void orphan() { the_parent = nullptr; }

    /// Children in the order in which they were attached; i counts from 0 and is in range.
    int nchild_views() const { return the_children.count(); }
    grView* child(int i) const { return the_children[i]; }
    coDListIt<const grViewcoDListPtr> it() const { return the_children.it(); }

    /// Whether the camera follows the parent's. Locking keeps the present relative placement.
    void lock_child(int on);
    int locked_child() const { return the_locked_child; }
    /// Takes the parent's world-to-view transform to this view's (offset times parent's) while locked.
    const giXform3& child_offset() const { return the_child_offset; }
    /// 1 while this view moves the cameras of its locked children.
    int called_from_parent() const { return the_called_from_parent; }

    /// Stored and dumped; nothing acts on it.
    void link_type(grViewLinkType type) { the_link_type = type; }
    grViewLinkType link_type() const { return the_link_type; }

    void background(grViewBackground background) { the_background = background; }
    grViewBackground background() const { return the_background; }

    /// A hidden view is erased when it is refreshed, but its network is not drawn.
    void hidden(int on) { the_hidden = on; }
    int hidden() const { return the_hidden; }

    /// Sets the camera's scale here and in all children, locked or not, without camera callbacks.
    void same_scale(double scale);
    /// Fits the cameras here and in all children, locked or not, to a box in world space; the result is the smallest
    /// scale among them. No camera callbacks are fired; locked children keep the placement that they then have.
    double view_bounding_box(const giBox3& box, dgBoundingViewType type);

    /// Whether exactly this tool class is locked.
    int twiddle_locked(const utTypeID& tool_type) const;
    /// Whether the tool's class, or one that it derives from, is locked.
    int twiddle_locked(const grStdTwiddleTool* tool) const;
    void add_twiddle_lock(const utTypeID& tool_type);
    void remove_twiddle_lock(const utTypeID& tool_type);
    /// Removes all locks; the process-wide table does not bring them back.
    void clear_twiddle_locks();
    int twiddle_locks_size() const;
    /// i counts from 0 and is in range.
    const utTypeID& twiddle_lock(int i) const;
    /// Adds the locks that the process-wide table now has for this view.
    void add_static_twiddle_locks();
    void print_twiddle_lock_info(std::ostream& os) const;

    /// The process-wide table of locks, made of the default ones on first use. A view takes its locks from it when it
    /// is first asked about them; later changes of the table reach it through add_static_twiddle_locks alone.
    static void add_view_twiddle_lock(const grViewTwiddleLock& lock);
    static void remove_view_twiddle_lock(const grViewTwiddleLock& lock);
    static void clear_view_twiddle_locks(const utTypeID& view_type);
    static void clear_all_view_twiddle_locks();
    /// Puts the default locks in place of all others: paper views cannot be turned.
    static void default_view_twiddle_locks();
    static int view_twiddle_locks_size();
    /// i counts from 0 and is in range.
    static const grViewTwiddleLock& view_twiddle_lock(int i);

    /// Called back by the display view: its camera has changed, it is about to be destroyed. Camera callbacks may
    /// destroy any view, also this one, which then moves no further children.
    void world2view_altered();
    void view_to_be_deleted();

    UT_DECLARE_TYPE(grView, grView);

    /// From level 1 on with the twiddle locks, from 2 on with the display view's own dump at level - 2.
    virtual void print(std::ostream& os, int level) const;

protected:
    grView(const grView&) = delete;
    grView& operator=(const grView&) = delete;

    int has_child_view(const grView* view) const;

private:
    void initialise();
    void add_child_view(grView* view) { the_children.add_last(view); }
    void remove_child_view(grView* view) { the_children.remove(view); }
    void update_offset();
    void parent_updated(const grView& parent);
    void add_twiddle_locks() const;
    void need_twiddle_locks() const;
    void append_twiddle_lock(const utTypeID& tool_type) const;

    dgView* the_view;
    grView* the_parent = nullptr;
    grViewcoDListPtr the_children;
    grViewLinkType the_link_type = grVIEW_LINK_ONE_WAY;
    int the_called_from_parent = 0;
    bool* the_deleted = nullptr; // told of the end of this view while it moves its children
    int the_locked_child = 0;
    giXform3 the_child_offset;
    grViewBackground the_background = grVIEW_BACKGROUND_OPAQUE;
    int the_hidden = 0;

    // Taken from the table when first asked for: in a constructor the class would not be known yet.
    mutable int the_twiddle_locks_added = 0;
    mutable coDList<const utTypeID*> the_locked_tools;
};

/// Dumps at level 0.
GR_EXPORT std::ostream& operator<<(std::ostream& os, const grView& view);
