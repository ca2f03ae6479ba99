#include "vwPlayer.h"

#include "vwResources.h"
#include "vwScene.h"
#include "vwSession.h"
#include "vwSessionClock.h"

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

#include <cstring>
#include <sstream>
#include <string>
#include <type_traits>
#include <vector>

namespace
{
// A slow turn that stays where it is let go, one that spins on, a wheel step and a resize.
const char session_text[] = "gr-session 1\n"
                            "size 120 90\n"
                            "0 picture start\n"
                            "0.1 press mouse_button 1 40 40\n"
                            "0.116 move 48 42\n"
                            "0.132 move 60 50\n"
                            "0.5 release mouse_button 1 60 50\n"
                            "0.5 idle 2\n"
                            "0.5 picture turned\n"
                            "1 wheel 60 45 1\n"
                            "1 picture closer\n"
                            "2 press mouse_button 1 40 40\n"
                            "2.016 move 44 40\n"
                            "2.032 move 48 41\n"
                            "2.048 move 52 42\n"
                            "2.06 release mouse_button 1 55 42\n"
                            "2.07 idle 10 0.016\n"
                            "3 picture spun\n"
                            "3.1 idle\n"
                            "3.2 picture spun-on\n"
                            "4 press qwerty_key 82 60 45\n"
                            "4.1 release qwerty_key 82 60 45\n"
                            "4.2 resize 100 100\n"
                            "4.3 picture reset\n";

vwSession the_session()
{
    std::istringstream stream(session_text);
    vwSession session;
    std::string error;
    EXPECT_EQ(vw_read_session(stream, session, error), 1) << error;
    return session;
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
    void resize(int width, int height) override
    {
        the_area.resize(width, height);
        the_window.resize(width, height);
    }
    void read_picture(dgImage& image) override
    {
        if constexpr (std::is_same_v<Window, dgGLWindow>)
            the_window.read_front(image);
        else
            image.width = the_window.width();
    }
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
    int n_frames = 0;
};

template <class Window>
Played play(Window& window, dgStructure& model)
{
    const vwSession session = the_session();
    gwResourceDB db;
    std::string error;
    EXPECT_EQ(vw_load_resources("", db, error), 1) << error;
    window.resize(session.width, session.height);
    gwHeadlessWindow area(session.width, session.height);
    vwSessionClock clock;
    vwScene scene(&window, &window, area, db, model, {});
    TestPlayer<Window> player(clock, scene, area, window);
    EXPECT_EQ(player.play(session), 1);
    return {player.pictures, static_cast<int>(scene.frame_times().frames().size())};
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
    if (a.pictures.size() != b.pictures.size())
        return 0;
    for (std::size_t i = 0; i < a.pictures.size(); ++i)
        if (!same_bits(a.pictures[i].orientation, b.pictures[i].orientation) ||
            !(a.pictures[i].view_window == b.pictures[i].view_window))
            return 0;
    return 1;
}
}

TEST(vwPlayer, every_step_of_a_session_moves_the_camera_as_its_user_saw_it)
{
    dgTraceWindow window(1, 1);
    const dgRef<dgClientStructure> model = sample();
    const Played played = play(window, *model);
    ASSERT_EQ(played.pictures.size(), 6u);
    const std::vector<vwPicture>& p = played.pictures;
    EXPECT_FALSE(same_bits(p[0].orientation, p[1].orientation)) << "the drag turns";
    EXPECT_EQ(p[0].view_window, p[1].view_window) << "and does not zoom";
    EXPECT_TRUE(same_bits(p[1].orientation, p[2].orientation)) << "a turn that stopped does not spin on";
    EXPECT_NEAR(p[2].view_window.height(), 0.9 * p[1].view_window.height(), 1e-12) << "one step of the wheel";
    EXPECT_FALSE(same_bits(p[3].orientation, p[4].orientation)) << "a view let go while moving spins on";
    for (const giVector3& axis : {giVector3(1, 0, 0), giVector3(0, 1, 0), giVector3(0, 0, 1)})
        EXPECT_EQ(p[5].orientation.transform(axis), axis) << "reset looks from above";
    EXPECT_EQ(p[5].image.width, 100) << "after the resize";
    EXPECT_EQ(p[4].name, "spun-on");
    EXPECT_EQ(p[4].session_time, 3.2);
}

TEST(vwPlayer, a_hundred_runs_give_the_same_cameras_to_the_bit)
{
    dgTraceWindow window(1, 1);
    const dgRef<dgClientStructure> model = sample();
    const Played first = play(window, *model);
    int same = 0;
    for (int i = 0; i < 100; ++i)
    {
        window.clear_log();
        same += same_cameras(first, play(window, *model));
    }
    EXPECT_EQ(same, 100);
}

TEST(vwPlayer, frames_are_counted_when_something_was_drawn)
{
    dgTraceWindow window(1, 1);
    const dgRef<dgClientStructure> model = sample();
    // Drawn: at first; 2 + 3 moves and the final frames of both turns, the wheel, 11 turns of the spin beside that of
    // the release, the reset, the resize.
    const Played played = play(window, *model);
    EXPECT_GE(played.n_frames, 1 + 2 + 3 + 1 + 11 + 1 + 1);
    EXPECT_LE(played.n_frames, static_cast<int>(the_session().steps.size()) + 12);
}

TEST(vwPlayer, two_runs_give_the_same_pictures)
{
    std::string error;
    const std::shared_ptr<dgGLDevice> device = dgGLDevice::create_off_screen(error);
    ASSERT_TRUE(device) << error;
    const dgRef<dgClientStructure> model = sample();
    Played runs[2];
    for (Played& run : runs)
    {
        dgGLWindow window(device, 1, 1);
        run = play(window, *model);
    }
    ASSERT_EQ(runs[0].pictures.size(), 6u);
    EXPECT_TRUE(same_cameras(runs[0], runs[1]));
    for (std::size_t i = 0; i < 6; ++i)
        EXPECT_EQ(runs[0].pictures[i].image.rgba, runs[1].pictures[i].image.rgba) << runs[0].pictures[i].name;
    EXPECT_NE(runs[0].pictures[0].image.rgba, runs[0].pictures[1].image.rgba) << "turning changes the picture";
}
