#include "splitScene.h"

#include "gr_make_tblock.h"

#include "dgGLDevice.h"

#include <gtest/gtest.h>

std::shared_ptr<dgGLDevice> split_device()
{
    static std::string error;
    static const std::shared_ptr<dgGLDevice> device = dgGLDevice::create_off_screen(error);
    EXPECT_NE(device, nullptr) << error;
    return device;
}

int SplitScene::add(std::unique_ptr<giTriBlock> block)
{
    blocks.add_last(block.get());
    owned.push_back(std::move(block));
    return static_cast<int>(owned.size()) - 1;
}

int SplitScene::add_box(const giPoint3& low, const giPoint3& high)
{
    return add(std::unique_ptr<giTriBlock>(gr_make_box_tblock(giBox3(low, high))));
}

int SplitScene::add_plate(double low_x, double low_y, double high_x, double high_y, double z, int facing)
{
    const std::vector<giPoint3> corners{{low_x, low_y, z}, {high_x, low_y, z}, {high_x, high_y, z}, {low_x, high_y, z}};
    const std::vector<giTriangle> up{{0, 1, 2}, {0, 2, 3}}, down{{0, 2, 1}, {0, 3, 2}};
    return add(std::unique_ptr<giTriBlock>(gr_make_tblock(corners, facing > 0 ? up : down)));
}

giBox3 SplitScene::box() const
{
    giBox3 sum;
    for (const auto& block : owned)
        sum.merge(block->box());
    return sum;
}
