#include "grView.h"

#include "dgS.h"
#include "grIsometricTool.h"
#include "grRotateViewTool.h"
#include "grSpaceballTool.h"
#include "grTrackballTool.h"
#include "grViewPaperChild.h"
#include "grViewPaperParent.h"
#include "grViewTwiddleLock.h"
#include "tsScene.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

namespace
{
const utTypeID& trackball = grTrackballTool::ut_static_type();
const utTypeID& spaceball = grSpaceballTool::ut_static_type();
const utTypeID& isometric = grIsometricTool::ut_static_type();
const utTypeID& rotate_view = grRotateViewTool::ut_static_type();

class OwnTrackballTool : public grTrackballTool
{
public:
    OwnTrackballTool() : grTrackballTool("", nullptr, nullptr) {}
    UT_DECLARE_TYPE(OwnTrackballTool, grTwiddleTool);
};
UT_DEFINE_TYPE(OwnTrackballTool, grTrackballTool);

struct grViewTwiddleLocks : testing::Test
{
    grViewTwiddleLocks() { grView::default_view_twiddle_locks(); }
    ~grViewTwiddleLocks() override { grView::default_view_twiddle_locks(); }
    tsScene scene;
    grView plain{scene.add_view()};
    grViewPaperParent sheet{scene.add_view()};
    grViewPaperChild child{scene.add_view(), &sheet}, late{scene.add_view(), &sheet};
};

// The tools that a view is locked against, in order, by the middles of their names.
std::string locks(const grView& view)
{
    std::string names;
    for (int i = 0; i < view.twiddle_locks_size(); ++i)
    {
        const std::string name = view.twiddle_lock(i).name();
        names += name.substr(2, name.size() - 6) + ' ';
    }
    return names;
}
}

TEST_F(grViewTwiddleLocks, views_take_the_table_when_first_asked_and_hold_each_lock_once)
{
    EXPECT_EQ(locks(plain), "");
    EXPECT_EQ(locks(sheet), "Trackball Spaceball Isometric RotateView ");
    EXPECT_EQ(locks(child), "Trackball Isometric RotateView ") << "a spaceball may move the picture on the sheet";
    grView::clear_all_view_twiddle_locks();
    grView::add_view_twiddle_lock(grViewTwiddleLock(grView::ut_static_type(), spaceball));
    EXPECT_EQ(child.twiddle_locked(spaceball), 0);
    EXPECT_EQ(locks(late), "Spaceball ");
    for (int i = 0; i < 2; ++i)
        child.add_static_twiddle_locks();
    EXPECT_EQ(locks(child), "Trackball Isometric RotateView Spaceball ");
    child.add_twiddle_lock(trackball);
    child.remove_twiddle_lock(isometric);
    child.remove_twiddle_lock(isometric);
    EXPECT_EQ(locks(child), "Trackball RotateView Spaceball ");
    child.clear_twiddle_locks();
    EXPECT_EQ(locks(child), "") << "they come back only when asked for";
    child.add_static_twiddle_locks();
    EXPECT_EQ(locks(child), "Spaceball ");
}

TEST_F(grViewTwiddleLocks, a_lock_holds_for_derived_tools_as_objects_only)
{
    const OwnTrackballTool tool;
    EXPECT_EQ(child.twiddle_locked(OwnTrackballTool::ut_static_type()), 0);
    EXPECT_EQ(child.twiddle_locked(trackball), 1);
    EXPECT_EQ(child.twiddle_locked(&tool), 1);
    child.remove_twiddle_lock(trackball);
    EXPECT_EQ(child.twiddle_locked(&tool), 0);
    child.add_twiddle_lock(grTwiddleTool::ut_static_type());
    EXPECT_EQ(child.twiddle_locked(&tool), 1);
}

TEST_F(grViewTwiddleLocks, the_table_holds_each_pair_once)
{
    const grViewTwiddleLock listed(grViewPaperChild::ut_static_type(), rotate_view);
    grView::add_view_twiddle_lock(listed);
    EXPECT_EQ(grView::view_twiddle_locks_size(), 7);
    grView::add_view_twiddle_lock(grViewTwiddleLock(grViewPaperChild::ut_static_type(), spaceball));
    EXPECT_EQ(grView::view_twiddle_locks_size(), 8);
    EXPECT_EQ(grView::view_twiddle_lock(7).tool_id(), spaceball);
    for (int i = 0; i < 2; ++i)
        grView::remove_view_twiddle_lock(listed);
    EXPECT_EQ(grView::view_twiddle_locks_size(), 7);
    for (const utTypeID* type : {&grViewPaperChild::ut_static_type(), &grView::ut_static_type()})
        grView::clear_view_twiddle_locks(*type);
    EXPECT_EQ(grView::view_twiddle_locks_size(), 4);
}

// In a process of its own: the close function is registered once in the life of a process.
TEST_F(grViewTwiddleLocks, closing_the_display_library_empties_the_table_once)
{
    const auto sizes_after_closing = []
    {
        dgS::close();
        const int after_first = grView::view_twiddle_locks_size();
        grView::default_view_twiddle_locks();
        dgS::close();
        return 10 * after_first + grView::view_twiddle_locks_size();
    };
    EXPECT_EXIT(std::_Exit(sizes_after_closing()), testing::ExitedWithCode(7), "");
}
