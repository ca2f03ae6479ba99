#include "renderScene.h"

#include "dgTriangleBlock.h"
#include "giTriBlock.h"

#include <gtest/gtest.h>

#include <string>

std::ostream& operator<<(std::ostream& os, const Pixel& pixel)
{
    return os << "(" << pixel.red << ", " << pixel.green << ", " << pixel.blue << ")";
}

Pixel pixel_at(const dgImage& image, int x, int y)
{
    const unsigned char* rgba = image.pixel(x, y);
    return {rgba[0], rgba[1], rgba[2]};
}

int count_pixels(const dgImage& image, const Pixel& pixel)
{
    int count = 0;
    for (int y = 0; y < image.height; ++y)
        for (int x = 0; x < image.width; ++x)
            count += pixel_at(image, x, y) == pixel;
    return count;
}

int same_pictures(const dgImage& a, const dgImage& b)
{
    return a.width == b.width && a.height == b.height && a.rgba == b.rgba;
}

int differing_pixels(const dgImage& a, const dgImage& b)
{
    int count = 0;
    for (int y = 0; y < a.height; ++y)
        for (int x = 0; x < a.width; ++x)
            count += !(pixel_at(a, x, y) == pixel_at(b, x, y));
    return count;
}

std::shared_ptr<dgGLDevice> test_device()
{
    static std::string error;
    static const std::shared_ptr<dgGLDevice> device = dgGLDevice::create_off_screen(error);
    EXPECT_NE(device, nullptr) << error;
    return device;
}

Scene::Scene(int width, int height, int with_overlay)
    : window(test_device(), width, height), renderer(&window, with_overlay ? window.overlay() : &window),
      view(&renderer), root(new dgClientStructure)
{
    dgCamera& camera = view.camera();
    camera.view_window(giBox2(-0.5, -0.5, width - 0.5, height - 0.5));
    camera.front_back_plane(100, -100);
    view.user_clip_planes(1);
    view.root(root.get());
}

Scene::~Scene()
{
    EXPECT_TRUE(window.device().no_errors());
}

void Scene::draw()
{
    view.erase(dgERASE_ZBUFFER_YES);
    view.render_network(nullptr);
}

void Scene::draw(const dgGraphicalElement& element)
{
    view.begin();
    view.execute(element);
    view.end();
}

dgImage Scene::picture() const
{
    dgImage image;
    const_cast<dgRenderer&>(renderer).read_pixels(window.device_box(), image);
    return image;
}

dgTriangleBlock* triangles(const std::vector<giPoint3>& points)
{
    auto* block = new giTriBlock;
    for (const giPoint3& point : points)
        block->nodes().append(point);
    for (int i = 0; i + 2 < static_cast<int>(points.size()); i += 3)
        block->triangles().emplace_back(i, i + 1, i + 2);
    return new dgTriangleBlock(block, 1);
}

dgTriangleBlock* rectangle(int low_x, int low_y, int high_x, int high_y, double z)
{
    // The edges lie half a pixel outside the centres.
    const double x0 = low_x - 0.5, y0 = low_y - 0.5, x1 = high_x + 0.5, y1 = high_y + 0.5;
    return triangles({{x0, y0, z}, {x1, y0, z}, {x1, y1, z}, {x0, y0, z}, {x1, y1, z}, {x0, y1, z}});
}
