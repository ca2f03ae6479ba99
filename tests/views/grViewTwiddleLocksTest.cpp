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
#include <sstream>
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

class grViewTwiddleLocks : public testing::Test
{
protected:
    grViewTwiddleLocks()
    {
        grView::default_view_twiddle_locks();
        scene.add_view();
        scene.add_view();
        scene.add_view();
    }
    ~grViewTwiddleLocks() override { grView::default_view_twiddle_locks(); }

    tsScene scene;
};

std::string locks(const grView& view)
{
    std::string names;
    for (int i = 0; i < view.twiddle_locks_size(); ++i)
        names += std::string(view.twiddle_lock(i).name()) + ' ';
    return names;
}
}

TEST_F(grViewTwiddleLocks, default_table_keeps_paper_views_from_being_turned)
{
    grView plain(scene.view(0));
    grViewPaperParent paper(scene.view(1));
    grViewPaperChild child(scene.view(2), &paper);
    EXPECT_EQ(locks(plain), "");
    EXPECT_EQ(locks(paper), "grTrackballTool grSpaceballTool grIsometricTool grRotateViewTool ");
    // The spaceball tool may act on a paper child.
    EXPECT_EQ(locks(child), "grTrackballTool grIsometricTool grRotateViewTool ");
    EXPECT_EQ(grView::view_twiddle_locks_size(), 7);
}

TEST_F(grViewTwiddleLocks, a_lock_holds_for_derived_tools_as_objects_only)
{
    grViewPaperChild child(scene.view(0), nullptr);
    const OwnTrackballTool tool;
    EXPECT_EQ(child.twiddle_locked(OwnTrackballTool::ut_static_type()), 0);
    EXPECT_EQ(child.twiddle_locked(trackball), 1);
    EXPECT_EQ(child.twiddle_locked(&tool), 1);
    child.remove_twiddle_lock(trackball);
    EXPECT_EQ(child.twiddle_locked(&tool), 0);
    child.add_twiddle_lock(grTwiddleTool::ut_static_type());
    EXPECT_EQ(child.twiddle_locked(&tool), 1);
}

TEST_F(grViewTwiddleLocks, views_take_the_table_when_first_asked)
{
    grViewPaperChild early(scene.view(0), nullptr), late(scene.view(1), nullptr);
    EXPECT_EQ(early.twiddle_locked(trackball), 1);
    grView::clear_all_view_twiddle_locks();
    grView::add_view_twiddle_lock(grViewTwiddleLock(grView::ut_static_type(), spaceball));
    EXPECT_EQ(early.twiddle_locked(spaceball), 0);
    EXPECT_EQ(locks(late), "grSpaceballTool ");

    early.add_static_twiddle_locks();
    early.add_static_twiddle_locks();
    EXPECT_EQ(locks(early), "grTrackballTool grIsometricTool grRotateViewTool grSpaceballTool ");
}

TEST_F(grViewTwiddleLocks, cleared_locks_come_back_only_when_asked_for)
{
    grViewPaperChild child(scene.view(0), nullptr);
    child.clear_twiddle_locks();
    EXPECT_EQ(child.twiddle_locked(trackball), 0);
    child.add_static_twiddle_locks();
    EXPECT_EQ(child.twiddle_locked(trackball), 1);
}

TEST_F(grViewTwiddleLocks, a_view_holds_each_lock_once)
{
    grView view(scene.view(0));
    view.add_twiddle_lock(trackball);
    view.add_twiddle_lock(isometric);
    view.add_twiddle_lock(trackball);
    EXPECT_EQ(locks(view), "grTrackballTool grIsometricTool ");
    view.remove_twiddle_lock(trackball);
    view.remove_twiddle_lock(trackball);
    EXPECT_EQ(locks(view), "grIsometricTool ");
}

TEST_F(grViewTwiddleLocks, the_table_holds_each_pair_once)
{
    const grViewTwiddleLock listed(grViewPaperChild::ut_static_type(), rotate_view);
    const grViewTwiddleLock unlisted(grViewPaperChild::ut_static_type(), spaceball);
    grView::add_view_twiddle_lock(listed);
    EXPECT_EQ(grView::view_twiddle_locks_size(), 7);
    grView::add_view_twiddle_lock(unlisted);
    EXPECT_EQ(grView::view_twiddle_locks_size(), 8);
    EXPECT_EQ(grView::view_twiddle_lock(7).tool_id(), spaceball);

    grView::remove_view_twiddle_lock(listed);
    grView::remove_view_twiddle_lock(listed);
    EXPECT_EQ(grView::view_twiddle_locks_size(), 7);
    grView::clear_view_twiddle_locks(grViewPaperChild::ut_static_type());
    EXPECT_EQ(grView::view_twiddle_locks_size(), 4);
    grView::clear_view_twiddle_locks(grView::ut_static_type());
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

TEST_F(grViewTwiddleLocks, dumps_name_the_classes)
{
    grView::clear_all_view_twiddle_locks();
    grView::add_view_twiddle_lock(grViewTwiddleLock(grViewPaperChild::ut_static_type(), spaceball));
    grViewPaperChild child(scene.view(0), nullptr);
    child.add_twiddle_lock(isometric);
    std::ostringstream os;
    child.print_twiddle_lock_info(os);
    const std::string info = "grView twiddle locking information {\n"
                             "locked against 2 twiddle tools\n"
                             "Twiddle tool 0 of rtti type \"grSpaceballTool\"\n"
                             "Twiddle tool 1 of rtti type \"grIsometricTool\"\n"
                             "view_twiddle_locks_size() is 1\n"
                             "grViewTwiddleLock 0 is grViewTwiddleLock {\n"
                             "  gr_view_id : grViewPaperChild\n"
                             "  tool_id : grSpaceballTool\n"
                             "}\n"
                             "}\n";
    EXPECT_EQ(os.str(), info);

    std::ostringstream dump;
    child.print(dump, 1);
    EXPECT_NE(dump.str().find("view rtti type is \"grViewPaperChild\"\n" + info), std::string::npos);
}
