#include "gr_time_refresh.h"

#include "dgAppElement.h"
#include "tsHeavyView.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace
{
// Writes down the camera's scale, as a multiple, whenever it is drawn.
class ScaleWatch : public dgAppElement
{
public:
    ScaleWatch(const dgCamera& camera, std::vector<double>& scales, double unit)
        : the_camera(camera), the_scales(scales), the_unit(unit)
    {}
    ScaleWatch* copy() const override { return new ScaleWatch(*this); }
    void draw(dgRenderer*) const override { the_scales.push_back(the_camera.scale() / the_unit); }

private:
    const dgCamera& the_camera;
    std::vector<double>& the_scales;
    double the_unit;
};

int swaps(tsHeavyView& heavy)
{
    const std::vector<std::string> log = heavy.scene.take_log();
    return static_cast<int>(std::count(log.begin(), log.end(), "swap_buffers 0"));
}
}

TEST(gr_time_refresh, counts_frames_until_the_time_is_over)
{
    tsHeavyView heavy(1 << 10, 0.25);
    int frames = 0;
    double elapsed = 0;
    gr_time_static_refresh(&heavy.view(), 1, frames, elapsed);
    EXPECT_EQ(frames, 4);
    EXPECT_DOUBLE_EQ(elapsed, 1);
    EXPECT_EQ(swaps(heavy), 4);
    gr_time_static_refresh(&heavy.view(), 1.1, frames, elapsed);
    EXPECT_EQ(frames, 5);
    EXPECT_DOUBLE_EQ(elapsed, 1.25);
    gr_time_static_refresh(&heavy.view(), 0, frames, elapsed);
    EXPECT_EQ(frames, 0);
    EXPECT_EQ(elapsed, 0);
}

TEST(gr_time_refresh, a_single_buffered_renderer_is_not_swapped)
{
    tsHeavyView heavy(1 << 10, 0.25);
    heavy.window().capability(dgCAPABILITY_DOUBLE_BUFFERING, 0);
    int frames = 0;
    double elapsed = 0;
    gr_time_static_refresh(&heavy.view(), 1, frames, elapsed);
    EXPECT_EQ(frames, 4);
    EXPECT_EQ(swaps(heavy), 0);
}

TEST(gr_time_refresh, turns_the_view_once_a_frame)
{
    tsHeavyView heavy(1 << 10, 0.25);
    dgCamera expected = heavy.view().camera();
    for (int i = 0; i < 4; ++i)
        expected.rotate_view(gi_Y_AXIS, 0.1);
    int frames = 0;
    double elapsed = 0;
    gr_time_rotating_refresh(&heavy.view(), 1, gi_Y_AXIS, 0.1, frames, elapsed);
    EXPECT_EQ(frames, 4);
    for (int i = 0; i < 16; ++i)
        EXPECT_NEAR(heavy.view().camera().orientation().data()[i], expected.orientation().data()[i], 1e-12);
}

TEST(gr_time_refresh, zooms_from_the_starting_scale_and_puts_it_back)
{
    tsHeavyView heavy(1 << 10, 0.25);
    const double scale = heavy.view().camera().scale();
    const double factors[] = {2, 0.5, 4};
    std::vector<double> scales;
    heavy.view().root()->add(new ScaleWatch(heavy.view().camera(), scales, scale));
    int frames = 0;
    double elapsed = 0;
    gr_time_zooming_refresh(&heavy.view(), 1, factors, 3, frames, elapsed);
    EXPECT_EQ(frames, 4);
    ASSERT_EQ(scales.size(), 4u);
    const double expected[] = {2, 0.5, 4, 2};
    for (std::size_t i = 0; i < 4; ++i)
        EXPECT_NEAR(scales[i], expected[i], 1e-12);
    EXPECT_EQ(heavy.view().camera().scale(), scale);
    gr_time_zooming_refresh(&heavy.view(), 0.25, nullptr, 0, frames, elapsed);
    EXPECT_EQ(frames, 1);
}

TEST(gr_time_refresh, the_fast_probe_draws_what_fits_the_frame_after_two_frames_that_learn)
{
    tsHeavyView heavy(1 << 18, 10);
    int frames = 0;
    double elapsed = 0;
    gr_time_fast_rotating_refresh(&heavy.view(), 3, gi_Z_AXIS, 0.1, frames, elapsed);
    EXPECT_EQ(frames, 3);
    EXPECT_NEAR(elapsed, 3, 0.01);
    EXPECT_EQ(swaps(heavy), 2 + 3 + 1);
    gr_time_fast_rotating_refresh(&heavy.view(), 0, gi_Z_AXIS, 0.1, frames, elapsed);
    EXPECT_EQ(frames, 0);
    EXPECT_EQ(swaps(heavy), 2 + 1);
    frames = -1;
    heavy.view().renderer(nullptr);
    gr_time_fast_rotating_refresh(&heavy.view(), 1, gi_Z_AXIS, 0.1, frames, elapsed);
    EXPECT_EQ(frames, 0) << "there is nothing to draw on";
}

TEST(gr_time_refresh, times_one_drawing_of_the_network)
{
    tsHeavyView heavy(1 << 10, 0.25);
    double elapsed = 0;
    gr_time_render_network(&heavy.view(), elapsed);
    EXPECT_DOUBLE_EQ(elapsed, 0.25);
    heavy.view().root(nullptr);
    gr_time_render_network(&heavy.view(), elapsed);
    EXPECT_EQ(elapsed, 0);
}

TEST(gr_time_refresh, picks_with_settings_of_its_own)
{
    tsHeavyView heavy(1 << 10, 0.25);
    heavy.view().view_bbox();
    int frames = -1, picked = -1;
    double elapsed = -1;
    heavy.scene.renderer().pick_settings({7, 0, 1});
    gr_time_pick(&heavy.view(), 0, frames, elapsed, picked, dgPICK_EXACT, 0, 1, 1);
    EXPECT_EQ(frames, 0);
    heavy.view().root(nullptr);
    gr_time_pick(&heavy.view(), 1, frames, elapsed, picked, dgPICK_EXACT, 0, 1, 1);
    EXPECT_EQ(frames, 0);
    EXPECT_EQ(elapsed, 0);
    EXPECT_EQ(heavy.scene.renderer().pick_settings().largest_count, 7);
    EXPECT_EQ(heavy.scene.renderer().pick_settings().lines, 0);
}
