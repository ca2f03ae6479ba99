#include "splitScene.h"

#include "gr_make_tblock.h"

#include "dgGLDevice.h"

#include <gtest/gtest.h>

#include <numeric>

namespace
{
std::shared_ptr<dgGLDevice> shared_device()
{
    static std::string error;
    static const std::shared_ptr<dgGLDevice> device = dgGLDevice::create_off_screen(error);
    EXPECT_NE(device, nullptr) << error;
    return device;
}
}

SplitScene::SplitScene() : window(shared_device(), 8, 8) {}

int SplitScene::add(std::unique_ptr<giTriBlock> block)
{
    blocks.add_last(block.get());
    owned.push_back(std::move(block));
    return static_cast<int>(owned.size()) - 1;
}

int SplitScene::add_box(const giPoint3& low, const giPoint3& high, std::size_t n_triangles)
{
    std::unique_ptr<giTriBlock> box(gr_make_box_tblock(giBox3(low, high)));
    box->triangles().resize(n_triangles);
    return add(std::move(box));
}

int SplitScene::add_plate(double low_x, double low_y, double high_x, double high_y, double z, int facing)
{
    const std::vector<giPoint3> corners{{low_x, low_y, z}, {high_x, low_y, z}, {high_x, high_y, z}, {low_x, high_y, z}};
    const std::vector<giTriangle> up{{0, 1, 2}, {0, 2, 3}}, down{{0, 2, 1}, {0, 3, 2}};
    return add(std::unique_ptr<giTriBlock>(gr_make_tblock(corners, facing > 0 ? up : down)));
}

std::vector<int> SplitScene::all() const
{
    std::vector<int> numbers(owned.size());
    std::iota(numbers.begin(), numbers.end(), 0);
    return numbers;
}
