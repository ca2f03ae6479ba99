#include "vwPlayer.h"

#include "vwResources.h"
#include "vwScene.h"
#include "vwSession.h"
#include "vwSessionClock.h"
#include "vwTiles.h"

#include "dgClientStructure.h"
#include "dgGLDevice.h"
#include "dgGLWindow.h"
#include "dgRef.h"
#include "dgTraceWindow.h"
#include "dgTriangleBlock.h"
#include "dgView.h"
#include "gwHeadlessWindow.h"
#include "gwResourceDB.h"
#include "spPart.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <fstream>

namespace
{
constexpr int last_size = 100, largest_size = 1000, cursor_x = 70, cursor_y = 20;

dgWindow* overlay_of(dgTraceWindow& window)
{
    return &window;
}
dgWindow* overlay_of(dgGLWindow& window)
{
    return window.overlay();
}
void read(dgTraceWindow& window, dgImage& image)
{
    image.width = window.width();
}
void read(dgGLWindow& window, dgImage& image)
{
    window.read_front(image);
}

// Plays on any kind of surface and keeps the pictures.
template <class Window>
class TestPlayer : public vwPlayer
{
public:
    TestPlayer(vwSessionClock& clock, vwScene& scene, gwHeadlessWindow& area, Window& window)
        : vwPlayer(clock, scene, area), the_area(area), the_window(window)
    {}
    std::vector<vwPicture> pictures;

protected:
    int resize(int width, int height) override
    {
        the_area.resize(width, height);
        the_window.resize(width, height);
        return width <= largest_size;
    }
    void read_picture(dgImage& image) override { read(the_window, image); }
    int keep_picture(vwPicture& picture) override
    {
        pictures.push_back(picture);
        return 1;
    }

private:
    gwHeadlessWindow& the_area;
    Window& the_window;
};

struct Played
{
    std::vector<vwPicture> pictures;
    std::size_t n_steps = 0, n_frames = 0;
};

template <class Window>
Played play(Window& window, dgStructure& model, const vwSceneSettings& settings = {})
{
    std::ifstream stream(VW_TEST_DATA "/drawing.session");
    vwSession session;
    gwResourceDB db;
    std::string error;
    EXPECT_EQ(vw_read_session(stream, session, error), 1) << error;
    EXPECT_EQ(vw_load_resources("", db, error), 1) << error;
    window.resize(session.width, session.height);
    gwHeadlessWindow area(session.width, session.height);
    vwSessionClock clock;
    vwScene scene(&window, overlay_of(window), area, db, model, settings);
    TestPlayer<Window> player(clock, scene, area, window);
    EXPECT_EQ(player.play(session), 1);
    return {player.pictures, session.steps.size(), scene.frame_times().frames().size()};
}

Played play_drawn(dgStructure& model, const vwSceneSettings& settings = {})
{
    std::string error;
    static const std::shared_ptr<dgGLDevice> device = dgGLDevice::create_off_screen(error);
    EXPECT_TRUE(device) << error;
    dgGLWindow window(device, 1, 1);
    return play(window, model, settings);
}

dgRef<dgClientStructure> sample()
{
    dgRef<dgClientStructure> root(new dgClientStructure());
    for (std::unique_ptr<giTriBlock>& block : sp_make_part(20000))
        root->add(new dgTriangleBlock(block.release(), 1));
    return root;
}

int same_bits(const giXform3& a, const giXform3& b)
{
    return std::memcmp(a.data(), b.data(), 16 * sizeof(double)) == 0;
}

int same_cameras(const Played& a, const Played& b)
{
    return std::equal(a.pictures.begin(), a.pictures.end(), b.pictures.begin(), b.pictures.end(),
                      [](const vwPicture& p, const vwPicture& q)
                      { return same_bits(p.orientation, q.orientation) && p.view_window == q.view_window; });
}
}

TEST(vwPlayer, every_step_of_a_session_moves_the_camera_as_its_user_saw_it)
{
    dgTraceWindow window(1, 1);
    const Played played = play(window, *sample());
    ASSERT_EQ(played.pictures.size(), 6u);
    const std::vector<vwPicture>& p = played.pictures;
    EXPECT_FALSE(same_bits(p[0].orientation, p[1].orientation)) << "the drag turns";
    EXPECT_EQ(p[0].view_window, p[1].view_window) << "and does not zoom";
    EXPECT_TRUE(same_bits(p[1].orientation, p[2].orientation)) << "a turn that stopped does not spin on";
    EXPECT_NEAR(p[2].view_window.height(), 0.9 * p[1].view_window.height(), 1e-12) << "one step of the wheel";
    EXPECT_FALSE(same_bits(p[3].orientation, p[4].orientation)) << "a view let go while moving spins on";
    for (const giVector3& axis : {giVector3(1, 0, 0), giVector3(0, 1, 0), giVector3(0, 0, 1)})
        EXPECT_EQ(p[5].orientation.transform(axis), axis) << "reset looks from above";
    EXPECT_EQ(p[5].image.width, last_size) << "after the resize";
    EXPECT_EQ(p[4].name, "spun-on");
    EXPECT_EQ(p[4].session_time, 3.2);
    // Drawn: at first; 2 + 3 moves and the final frames of both turns, the wheel, 11 turns of the spin beside that of
    // the release, the box, the resize, the reset.
    EXPECT_GE(played.n_frames, 1u + 2 + 3 + 1 + 11 + 1 + 1 + 1);
    EXPECT_LE(played.n_frames, played.n_steps + 12);
}

TEST(vwPlayer, a_hundred_runs_give_the_same_cameras_to_the_bit)
{
    dgTraceWindow window(1, 1);
    const dgRef<dgClientStructure> model = sample();
    const Played first = play(window, *model);
    ASSERT_EQ(first.pictures.size(), 6u);
    int same = 0;
    for (int i = 0; i < 100; ++i)
    {
        window.clear_log();
        same += same_cameras(first, play(window, *model));
    }
    EXPECT_EQ(same, 100);
}

TEST(vwPlayer, the_cross_hair_is_all_that_it_leaves_on_the_picture)
{
    const dgRef<dgClientStructure> model = sample();
    for (const vwRubberBanding rubber_banding : {vwRUBBER_BAND_OVERLAY, vwRUBBER_BAND_XOR, vwRUBBER_BAND_REDRAW})
    {
        vwSceneSettings settings;
        settings.views = 2;
        settings.rubber_banding = rubber_banding;
        const dgImage without = play_drawn(*model, settings).pictures.back().image;
        settings.cursor = 1;
        const dgImage with = play_drawn(*model, settings).pictures.back().image;
        ASSERT_EQ(with.rgba.size(), without.rgba.size());
        int changed_on_it = 0, changed_elsewhere = 0;
        for (int y = 0; y < with.height; ++y)
            for (int x = 0; x < with.width; ++x)
            {
                const int changed = !std::equal(with.pixel(x, y), with.pixel(x, y) + 3, without.pixel(x, y));
                (x == cursor_x || y == cursor_y ? changed_on_it : changed_elsewhere) += changed;
            }
        EXPECT_EQ(changed_elsewhere, 0) << "technique " << rubber_banding;
        EXPECT_GE(changed_on_it, 2 * last_size - 2) << "technique " << rubber_banding;
    }
}

TEST(vwPlayer, a_size_that_cannot_be_had_ends_the_playing)
{
    dgTraceWindow window(1, 1);
    gwHeadlessWindow area(1, 1);
    gwResourceDB db;
    vwSessionClock clock;
    const dgRef<dgClientStructure> model = sample();
    vwScene scene(&window, &window, area, db, *model, {});
    TestPlayer<dgTraceWindow> player(clock, scene, area, window);
    vwSession session;
    session.steps.resize(2);
    session.steps[0].kind = vwSTEP_RESIZE;
    session.steps[0].width = session.steps[0].height = largest_size + 1;
    session.steps[1].kind = vwSTEP_PICTURE;
    EXPECT_EQ(player.play(session), 0);
    EXPECT_TRUE(player.pictures.empty());
}

TEST(vwTiles, parts_join_to_the_picture_and_alpha_is_where_the_model_is)
{
    std::string error;
    const std::shared_ptr<dgGLDevice> device = dgGLDevice::create_off_screen(error);
    ASSERT_TRUE(device) << error;
    gwResourceDB db;
    const dgRef<dgClientStructure> model = sample();
    dgImage pictures[2], transparent;
    for (const int tiled : {0, 1})
    {
        const int width = 97, height = 61;
        dgGLWindow window(device, tiled ? 40 : width, tiled ? 23 : height);
        gwHeadlessWindow area(width, height);
        vwSceneSettings settings;
        settings.views = 2;
        settings.perspective = 1;
        settings.background = vwBACKGROUND_WHITE;
        settings.edges = 1;
        const std::vector<vwPart> parts{{"edges of this", {dgRef<dgGraphicalElement>(model->element(0))}}};
        vwScene scene(&window, &window, area, db, *model, settings);
        scene.parts(parts, giXform3());
        vw_draw_picture(scene, window, width, height, 0, pictures[tiled]);
        vw_draw_picture(scene, window, width, height, 1, transparent);
    }
    // Positions are rounded in single precision, about another middle in each tile.
    int different = 0, covered = 0, edges = 0;
    for (std::size_t i = 0; i < pictures[0].rgba.size(); i += 4)
    {
        int largest = 0;
        for (std::size_t channel = i; channel < i + 3; ++channel)
            largest = std::max(largest, std::abs(pictures[0].rgba[channel] - pictures[1].rgba[channel]));
        different += largest > 8;
        covered += transparent.rgba[i + 3] == 255;
        edges += pictures[1].rgba[i] < 20 && i / 4 % 97 <= 46; // before the gap
        const bool background =
            pictures[1].rgba[i] == 255 && pictures[1].rgba[i + 1] == 255 && pictures[1].rgba[i + 2] == 255;
        EXPECT_TRUE(transparent.rgba[i + 3] == (background ? 0 : 255) || i / 4 % 97 > 46)
            << i / 4; // the gap is covered
    }
    EXPECT_LE(different, 30);
    EXPECT_GT(covered, 500);
    EXPECT_GT(edges, 50);
}
