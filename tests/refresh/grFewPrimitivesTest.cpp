// What is seen, while it moves, of scenes of few primitives that are slow to draw.

#include "dgLineWidth.h"
#include "dgStructureCall.h"
#include "tsHeavyView.h"

#include <gtest/gtest.h>

namespace
{
// A run of its own for each structure.
void add_part(dgStructure& root, int n_segments, double width)
{
    const dgRef<dgStructure> part(new dgClientStructure);
    part->add(new dgLineWidth(width));
    part->add(tsLine(n_segments)->element(0)->copy());
    root.add(new dgStructureCall(part.get()));
}
}

TEST(grViewRendererFast, thins_few_slow_primitives_and_loses_no_part)
{
    const struct
    {
        const char* name;
        int parts, segments;
        double seconds; // of all, where a frame may take 1
        int least, most;
    } cases[] = {
        {"one part of ten lines", 1, 10, 10, 1, 2},          {"one part of a hundred", 1, 100, 4, 20, 30},
        {"a few small ones", 10, 20, 100, 10, 20},           {"two of a single line each", 2, 1, 100, 2, 2},
        {"a thousand small ones", 1000, 20, 10, 1900, 2300},
    };
    for (const auto& c : cases)
    {
        tsHeavyView heavy;
        const dgRef<dgStructure> root(new dgClientStructure);
        for (int i = 0; i < c.parts; ++i)
            add_part(*root, c.segments, 1 + i % 2);
        heavy.view().root(root.get());
        heavy.window().cost_per_feature(c.seconds / (c.parts * c.segments));
        grViewRendererFast fast(&heavy.view());
        for (int i = 0; i < 2; ++i)
            fast.refresh(nullptr, 0);
        heavy.scene.take_log();
        const long long drawn = heavy.drawn([&] { fast.refresh(nullptr, 0); });
        EXPECT_GE(drawn, c.least) << c.name;
        EXPECT_LE(drawn, c.most) << c.name;
        if (c.parts > 10)
            continue;
        int seen = 0;
        for (const std::string& line : heavy.scene.take_log())
            seen += line.rfind("draw", 0) == 0;
        EXPECT_EQ(seen, c.parts) << c.name;
    }
}
