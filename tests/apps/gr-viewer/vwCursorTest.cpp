#include "vwPlayer.h"
#include "vwResources.h"
#include "vwScene.h"
#include "vwSession.h"
#include "vwSessionClock.h"

#include "dgClientStructure.h"
#include "dgGLDevice.h"
#include "dgGLWindow.h"
#include "dgRef.h"
#include "dgTriangleBlock.h"
#include "gwHeadlessWindow.h"
#include "gwResourceDB.h"
#include "spPart.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

namespace
{
constexpr int cursor_x = 70, cursor_y = 20;

// All that draws: a turn, a box to zoom to, the wheel, a new size, a reset; the pointer comes to rest at the cursor.
const char session_text[] = "gr-session 1\n"
                            "size 120 90\n"
                            "views 2\n"
                            "0.1 move 10 80\n"
                            "0.2 press mouse_button 1 40 40\n"
                            "0.216 move 48 42\n"
                            "0.232 move 60 50\n"
                            "0.5 release mouse_button 1 60 50\n"
                            "0.5 idle 2\n"
                            "1 press mouse_button 3 10 20 1\n"
                            "1.1 move 30 40\n"
                            "1.2 move 40 50\n"
                            "1.3 release mouse_button 3 40 50 1\n"
                            "2 wheel 60 45 1\n"
                            "2.1 resize 140 90\n"
                            "2.2 move 5 5\n"
                            "3 press qwerty_key 82 60 45\n"
                            "3.1 release qwerty_key 82 60 45\n"
                            "4 move 70 20\n"
                            "4 picture rest\n";

class LastPicture : public vwPlayer
{
public:
    LastPicture(vwSessionClock& clock, vwScene& scene, gwHeadlessWindow& area, dgGLWindow& window)
        : vwPlayer(clock, scene, area), the_area(area), the_window(window)
    {}
    dgImage image;

protected:
    void resize(int width, int height) override
    {
        the_area.resize(width, height);
        the_window.resize(width, height);
    }
    void read_picture(dgImage& read) override { the_window.read_front(read); }
    int keep_picture(vwPicture& picture) override
    {
        image = picture.image;
        return 1;
    }

private:
    gwHeadlessWindow& the_area;
    dgGLWindow& the_window;
};

dgImage play(int cursor, vwRubberBanding rubber_banding)
{
    std::string error;
    static const std::shared_ptr<dgGLDevice> device = dgGLDevice::create_off_screen(error);
    EXPECT_TRUE(device) << error;
    std::istringstream stream(session_text);
    vwSession session;
    EXPECT_EQ(vw_read_session(stream, session, error), 1) << error;
    gwResourceDB db;
    EXPECT_EQ(vw_load_resources("", db, error), 1) << error;
    const dgRef<dgClientStructure> model(new dgClientStructure());
    for (std::unique_ptr<giTriBlock>& block : sp_make_part(20000))
        model->add(new dgTriangleBlock(block.release(), 1));
    dgGLWindow window(device, session.width, session.height);
    gwHeadlessWindow area(session.width, session.height);
    vwSessionClock clock;
    vwSceneSettings settings;
    settings.views = session.views;
    settings.cursor = cursor;
    settings.rubber_banding = rubber_banding;
    vwScene scene(&window, window.overlay(), area, db, *model, settings);
    LastPicture player(clock, scene, area, window);
    EXPECT_EQ(player.play(session), 1);
    return player.image;
}
}

TEST(vwCursor, the_cross_hair_is_all_that_it_leaves_on_the_picture)
{
    for (const vwRubberBanding rubber_banding : {vwRUBBER_BAND_OVERLAY, vwRUBBER_BAND_XOR, vwRUBBER_BAND_REDRAW})
    {
        const dgImage without = play(0, rubber_banding), with = play(1, rubber_banding);
        ASSERT_EQ(with.rgba.size(), without.rgba.size());
        int changed_on_it = 0, changed_elsewhere = 0;
        for (int y = 0; y < with.height; ++y)
            for (int x = 0; x < with.width; ++x)
            {
                const int changed = !std::equal(with.pixel(x, y), with.pixel(x, y) + 3, without.pixel(x, y));
                (x == cursor_x || y == cursor_y ? changed_on_it : changed_elsewhere) += changed;
            }
        EXPECT_EQ(changed_elsewhere, 0) << "technique " << rubber_banding;
        EXPECT_GE(changed_on_it, 140 + 90 - 2) << "technique " << rubber_banding;
    }
}
