// The twiddle locks of grView: those of each view and the process-wide table.
#include "grView.h"

#include "dgS.h"
#include "grToolTypeRegistry.h"
#include "grViewPaperChild.h"
#include "grViewPaperParent.h"
#include "grViewTwiddleLock.h"

#include <algorithm>
#include <memory>
#include <ostream>
#include <vector>

namespace
{
struct LockTable
{
    std::vector<std::unique_ptr<grViewTwiddleLock>> locks;
    // Deliberate: stays set when the display library closes, so that the table is empty until the defaults are asked
    // for; an application that opens the library again sets its own locks.
    int installed = 0;
    int close_function_registered = 0;
};

LockTable& bare_table()
{
    // Never destroyed: the display library may close after the static objects of this one are gone.
    static LockTable& table = *new LockTable;
    return table;
}

LockTable& table()
{
    if (!bare_table().installed)
        grView::default_view_twiddle_locks();
    return bare_table();
}

bool equal(const grViewTwiddleLock& a, const grViewTwiddleLock& b)
{
    return a.tool_id() == b.tool_id() && a.view_id() == b.view_id();
}

auto find(LockTable& table, const grViewTwiddleLock& lock)
{
    return std::find_if(table.locks.begin(), table.locks.end(), [&](const auto& entry) { return equal(*entry, lock); });
}
}

int grView::twiddle_locked(const utTypeID& tool_type) const
{
    need_twiddle_locks();
    return the_locked_tools.contains(&tool_type);
}

int grView::twiddle_locked(const grStdTwiddleTool* tool) const
{
    need_twiddle_locks();
    return std::any_of(the_locked_tools.begin(), the_locked_tools.end(),
                       [tool](const utTypeID* type) { return gr_tool_is_kind_of(*tool, *type); });
}

void grView::add_twiddle_lock(const utTypeID& tool_type)
{
    need_twiddle_locks();
    append_twiddle_lock(tool_type);
}

void grView::remove_twiddle_lock(const utTypeID& tool_type)
{
    need_twiddle_locks();
    the_locked_tools.remove(&tool_type);
}

void grView::clear_twiddle_locks()
{
    need_twiddle_locks();
    the_locked_tools.clear();
}

int grView::twiddle_locks_size() const
{
    need_twiddle_locks();
    return the_locked_tools.count();
}

const utTypeID& grView::twiddle_lock(int i) const
{
    need_twiddle_locks();
    return *the_locked_tools[i];
}

void grView::add_static_twiddle_locks()
{
    add_twiddle_locks();
}

void grView::print_twiddle_lock_info(std::ostream& os) const
{
    need_twiddle_locks();
    os << "grView twiddle locking information {\n"
       << "locked against " << the_locked_tools.count() << " twiddle tools\n";
    for (int i = 0; i < the_locked_tools.count(); ++i)
        os << "Twiddle tool " << i << " of rtti type \"" << *the_locked_tools[i] << "\"\n";
    os << "view_twiddle_locks_size() is " << view_twiddle_locks_size() << '\n';
    for (int i = 0; i < view_twiddle_locks_size(); ++i)
        os << "grViewTwiddleLock " << i << " is " << view_twiddle_lock(i);
    os << "}\n";
}

void grView::need_twiddle_locks() const
{
    if (!the_twiddle_locks_added)
        add_twiddle_locks();
}

void grView::add_twiddle_locks() const
{
    const LockTable& locks = table();
    the_twiddle_locks_added = 1;
    for (const auto& lock : locks.locks)
        if (ut_is_kind_of(lock->view_id()))
            append_twiddle_lock(lock->tool_id());
}

void grView::append_twiddle_lock(const utTypeID& tool_type) const
{
    if (!the_locked_tools.contains(&tool_type))
        the_locked_tools.add_last(&tool_type);
}

void grView::add_view_twiddle_lock(const grViewTwiddleLock& lock)
{
    LockTable& locks = table();
    if (find(locks, lock) == locks.locks.end())
        locks.locks.push_back(std::make_unique<grViewTwiddleLock>(lock));
}

void grView::remove_view_twiddle_lock(const grViewTwiddleLock& lock)
{
    LockTable& locks = table();
    const auto found = find(locks, lock);
    if (found != locks.locks.end())
        locks.locks.erase(found);
}

void grView::clear_view_twiddle_locks(const utTypeID& view_type)
{
    std::erase_if(table().locks, [&](const auto& lock) { return lock->view_id() == view_type; });
}

void grView::clear_all_view_twiddle_locks()
{
    table().locks.clear();
}

void grView::default_view_twiddle_locks()
{
    LockTable& locks = bare_table();
    locks.installed = 1;
    locks.locks.clear();
    if (!locks.close_function_registered)
    {
        locks.close_function_registered = 1;
        dgS::add_close_function(&grView::clear_all_view_twiddle_locks);
    }

    const utTypeID& paper_parent = grViewPaperParent::ut_static_type();
    const utTypeID& paper_child = grViewPaperChild::ut_static_type();
    add_view_twiddle_lock(grViewTwiddleLock(paper_parent, gr_trackball_tool_type()));
    add_view_twiddle_lock(grViewTwiddleLock(paper_parent, gr_spaceball_tool_type()));
    add_view_twiddle_lock(grViewTwiddleLock(paper_parent, gr_isometric_tool_type()));
    add_view_twiddle_lock(grViewTwiddleLock(paper_parent, gr_rotate_view_tool_type()));
    // Deliberate: the spaceball tool may act on a paper child: it is the way to turn what a sheet shows.
    add_view_twiddle_lock(grViewTwiddleLock(paper_child, gr_trackball_tool_type()));
    add_view_twiddle_lock(grViewTwiddleLock(paper_child, gr_isometric_tool_type()));
    add_view_twiddle_lock(grViewTwiddleLock(paper_child, gr_rotate_view_tool_type()));
}

int grView::view_twiddle_locks_size()
{
    return static_cast<int>(table().locks.size());
}

const grViewTwiddleLock& grView::view_twiddle_lock(int i)
{
    return *table().locks[static_cast<std::size_t>(i)];
}
