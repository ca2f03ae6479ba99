#include "grView.h"

#include "dgView.h"
#include "grViewPaperChild.h"
#include "grViewPaperParent.h"
#include "gsHeap.h"

#include <algorithm>
#include <limits>
#include <ostream>
#include <utility>

UT_DEFINE_TYPE(grView, coReceiver, dgBase);

namespace
{
grViewcoDListPtr& all_views()
{
    // Never destroyed: views that are static objects of an application leave it during the process's exit.
    static grViewcoDListPtr& views = *new grViewcoDListPtr;
    return views;
}
}

grView::grView(dgView* view) : the_view(view)
{
    initialise();
}

grView::grView(dgView* view, grView* parent) : the_view(view)
{
    initialise();
    if (!parent)
        return;
    parent->add_child_view(this);
    the_parent = parent;
    the_locked_child = 1;
    update_offset();
}

void grView::initialise()
{
    gsHeap::object_add(this);
    add_view(this);
    the_view->call_list().add(DG_WORLD2VIEW_CHANGED, coCallFunc::member<&grView::world2view_altered>(this));
    the_view->call_list().add(DG_VIEW_TO_BE_DELETED, coCallFunc::member<&grView::view_to_be_deleted>(this));
}

grView::~grView()
{
    if (the_deleted)
        *the_deleted = true;
    remove_view(this);
    gsHeap::object_remove(this);
}

grView* grView::contains(const dgView* view)
{
    for (grView* candidate : all_views())
        if (candidate->the_view == view)
            return candidate;
    return nullptr;
}

void grView::add_view(grView* view)
{
    all_views().add_last(view);
}

void grView::remove_view(grView* view)
{
    for (auto it = all_views().it(); it; ++it)
    {
        grView* other = it();
        other->remove_child_view(view);
        if (other->the_parent == view)
            other->the_parent = nullptr;
        if (other == view)
            it.remove();
    }

    // Once out of the registry, a view cannot be told of the end of its relatives: it must not know them any more. Its
    // parent may be out already, when the view was made under it after that.
    if (view->the_parent)
        view->the_parent->remove_child_view(view);
    view->the_parent = nullptr;
    view->the_children.clear();
    if (grViewPaperParent* paper = grViewPaperParent::ut_dynamic_cast(view))
        paper->release_paper_children();
    else if (grViewPaperChild* child = grViewPaperChild::ut_dynamic_cast(view))
        child->leave_paper_parent();
}

void grView::lock_child(int on)
{
    the_locked_child = on;
    if (on)
        update_offset();
}

void grView::same_scale(double scale)
{
    if (the_view)
        the_view->camera().scale(scale);
    for (grView* child : the_children)
        child->same_scale(scale);
}

double grView::view_bounding_box(const giBox3& box, dgBoundingViewType type)
{
    double smallest = std::numeric_limits<double>::max();
    if (the_view)
    {
        the_view->camera().view_bounding_box(box, type);
        smallest = the_view->camera().scale();
        // A parent is fitted before its children.
        update_offset();
    }
    for (grView* child : the_children)
        smallest = std::min(smallest, child->view_bounding_box(box, type));
    return smallest;
}

void grView::world2view_altered()
{
    // A move that comes from the parent leaves the offset exactly as it was, so that it does not drift.
    if (the_parent && !the_parent->the_called_from_parent)
        update_offset();

    bool deleted = false;
    bool* const told_before = std::exchange(the_deleted, &deleted);
    const int called_before = std::exchange(the_called_from_parent, 1);
    // Callbacks on the children's cameras may destroy children: the step is left out when the list has moved up.
    for (int i = 0; i < the_children.count();)
    {
        grView* child = the_children[i];
        child->parent_updated(*this);
        if (deleted)
        {
            if (told_before)
                *told_before = true;
            return;
        }
        i += i < the_children.count() && the_children[i] == child;
    }
    the_called_from_parent = called_before;
    the_deleted = told_before;
}

void grView::view_to_be_deleted()
{
    clear_callbacks();
    remove_view(this);
    the_view = nullptr;
}

void grView::print(std::ostream& os, int level) const
{
    os << "grView {\n"
       << "view rtti type is \"" << ut_dynamic_type() << "\"\n";
    if (level >= 1)
        print_twiddle_lock_info(os);
    os << "nchild views is " << nchild_views() << '\n';
    for (int i = 0; i < nchild_views(); ++i)
        os << "Child " << i << " is " << static_cast<const void*>(child(i)) << '\n';
    os << "Parent is " << static_cast<const void*>(the_parent) << '\n'
       << "Link type is " << the_link_type << '\n'
       << "Locked is " << the_locked_child << '\n'
       << "Background is " << the_background << '\n'
       << "Hidden is " << the_hidden << '\n';
    if (level >= 2 && the_view)
        the_view->print(os, level - 2, 0);
    os << "}\n";
}

int grView::has_child_view(const grView* view) const
{
    return std::find(the_children.begin(), the_children.end(), view) != the_children.end();
}

void grView::update_offset()
{
    if (!the_locked_child || !the_parent || !the_parent->the_view)
        return;
    const giXform3& transform = the_view->camera().orientation();
    const giXform3& parent_transform = the_parent->the_view->camera().orientation();
    the_child_offset = parent_transform.is_identity() ? transform : transform * parent_transform.inverse();
}

// The parent is handed over: a child that has been orphaned is still moved by its former parent. Both have their
// display views, as a view that loses its own leaves its family.
void grView::parent_updated(const grView& parent)
{
    if (!the_locked_child)
        return;
    giPoint3 eye;
    giVector3 direction, up;
    dgCamera::orientation(the_child_offset * parent.the_view->camera().orientation(), &eye, &direction, &up);
    the_view->camera().orientation(eye, direction, up);
    the_view->camera().world2view_altered();
}

std::ostream& operator<<(std::ostream& os, const grView& view)
{
    view.print(os, 0);
    return os;
}
