#include "vwBench.h"
#include "vwHooks.h"
#include "vwOptions.h"

#include "grPanTool.h"
#include "grViewRefresherFast.h"
#include "grViewRefresherFull.h"
#include "grViewRefresherTimeout.h"
#include "grViewRendererFast.h"
#include "gwResourceDB.h"
#include "tsScene.h"

#include <gtest/gtest.h>

#include <memory>
#include <sstream>
#include <string>

TEST(vwHooks, redraw_by_the_refresher_and_at_the_rate_asked_for)
{
    const tsSetting<double> guard(grViewRendererFast::minimum_framerate(),
                                  [](double rate) { grViewRendererFast::minimum_framerate(rate); });
    tsScene scene;
    scene.add_view();
    gwResourceDB db;
    const auto type = [&](vwRefresher refresher) -> const utTypeID&
    {
        vwHooks hooks(db, 12, refresher);
        const grPanTool pan("", nullptr, &hooks);
        const std::unique_ptr<grViewRefresher> made(hooks.view_refresher(&pan, {scene.view(0)}));
        EXPECT_EQ(grViewRendererFast::minimum_framerate(), 12);
        return made->ut_dynamic_type();
    };
    EXPECT_TRUE(type(vwREFRESHER_FAST) == grViewRefresherFast::ut_static_type());
    EXPECT_TRUE(type(vwREFRESHER_FULL) == grViewRefresherFull::ut_static_type());
    EXPECT_TRUE(type(vwREFRESHER_TIMEOUT) == grViewRefresherTimeout::ut_static_type());
    db.set_resource("framerate", "7");
    EXPECT_EQ(vwHooks(db, 0, vwREFRESHER_FAST).framerate(), 7);
    EXPECT_EQ(vwHooks(db, 9, vwREFRESHER_FAST).framerate(), 9) << "the command line wins";
}

TEST(vw_bench, prints_a_table_and_json)
{
    const tsSetting<double> guard(grViewRendererFast::minimum_framerate(),
                                  [](double rate) { grViewRendererFast::minimum_framerate(rate); });
    vwOptions options;
    options.files = {VW_TEST_DATA "/tetrahedron.tarn"};
    options.bench = {"static", "rotate", "zoom", "fast", "pick"};
    options.seconds = 0; // no frames: what they take is not for a test
    options.width = options.height = 32;
    std::ostringstream out;
    std::string error;
    ASSERT_EQ(vw_bench(options, out, error), 1) << error;
    const std::string text = out.str();
    const std::size_t json = text.find("{\"model\"");
    ASSERT_NE(json, std::string::npos);
    for (const std::string& probe : options.bench)
    {
        EXPECT_LT(text.find(probe + " "), json) << probe;
        EXPECT_NE(text.find("{\"probe\": \"" + probe + "\", \"frames\": 0, "), std::string::npos) << probe;
    }
    EXPECT_NE(text.find("\"triangles\": 4, \"width\": 32"), std::string::npos);
    EXPECT_EQ(text.substr(text.size() - 4), "}]}\n");

    options.files = {"/no/such/file.tarn"};
    EXPECT_EQ(vw_bench(options, out, error), 0);
    EXPECT_NE(error.find("/no/such/file.tarn"), std::string::npos);
}
