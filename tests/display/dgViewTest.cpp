#include "dgView.h"
#include "dgRenderer.h"
#include "dgS.h"
#include "dgTraceWindow.h"

#include "coReceiver.h"
#include "gwHeadlessWindow.h"

#include <gtest/gtest.h>

#include <memory>

namespace
{
class Witness : public coReceiver
{
public:
    int altered = 0;
    int deleted = 0;
    int known_when_deleted = 0;

    explicit Witness(dgView& view)
    {
        view.call_list().add(DG_WORLD2VIEW_CHANGED, this,
                             [](coReceiver* receiver, void*, void*) { ++static_cast<Witness*>(receiver)->altered; });
        view.call_list().add(DG_VIEW_TO_BE_DELETED, this,
                             [](coReceiver* receiver, void* sender, void*)
                             {
                                 auto* witness = static_cast<Witness*>(receiver);
                                 auto* dying = static_cast<dgView*>(sender);
                                 ++witness->deleted;
                                 witness->known_when_deleted = dgS::views().contains(dying) && dying->renderer();
                                 dying->reference();
                                 dying->unreference(); // a holder lets go inside the callback
                             });
    }
};
}

TEST(dgView, fires_on_camera_changes_and_once_before_its_end_while_still_usable)
{
    dgTraceWindow window(100, 100);
    dgRenderer renderer(&window, nullptr);
    auto view = std::make_unique<dgView>(&renderer);
    Witness witness(*view);
    view->camera().pan_view(giVector2(1, 0));
    view->camera().zoom(2);
    EXPECT_EQ(witness.altered, 0);
    view->camera().world2view_altered();
    EXPECT_EQ(witness.altered, 1);
    dgCamera(view->camera()).world2view_altered(); // a copy belongs to no view
    EXPECT_EQ(witness.altered, 1);
    view->reference();
    view->unreference();
    EXPECT_EQ(witness.deleted, 0);
    view.reset();
    EXPECT_EQ(witness.deleted, 1);
    EXPECT_TRUE(witness.known_when_deleted);
}

TEST(dgS, finds_the_topmost_view_under_a_point_of_its_window)
{
    gwHeadlessWindow first_window(100, 100), second_window(100, 100);
    dgTraceWindow surface(100, 100);
    dgRenderer first(&surface, nullptr, &first_window);
    dgRenderer second(&surface, nullptr, &second_window);
    dgView below(&first), above(&first), elsewhere(&second);
    above.camera().view_port_dc(giBox2(50, 0, 99, 99));
    EXPECT_EQ(dgS_find_view(&first_window, giPoint2(49, 10)), &below);
    EXPECT_EQ(dgS_find_view(&first_window, giPoint2(50, 10)), &above);
    EXPECT_EQ(dgS_find_view(&second_window, giPoint2(50, 10)), &elsewhere);
    EXPECT_EQ(dgS_find_view(&first_window, giPoint2(100, 10)), nullptr);
    EXPECT_EQ(dgS::find_view(&first, giPoint2(99, 99)), &above);
}

TEST(dgS, runs_close_functions_once)
{
    static int runs = 0;
    runs = 0;
    dgS::add_close_function([] { ++runs; });
    dgS::close();
    dgS::close();
    EXPECT_EQ(runs, 1);
}
