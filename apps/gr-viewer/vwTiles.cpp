#include "vwTiles.h"

#include "vwScene.h"

#include "dgGLWindow.h"
#include "dgView.h"

#include <algorithm>
#include <vector>

namespace
{
// Shows of a view, drawn as whole is, the part that falls into a tile of the picture, and nothing where none does.
bool place(dgView& view, const dgCamera& whole, const giBox2& tile)
{
    const giBox2& port = whole.view_port_dc();
    const giBox2 part = port.intersection(tile);
    if (part.empty())
        return false;
    const double units = 1 / whole.pixels_per_unit();
    const giPoint2 middle = whole.view_window().middle(), port_middle = port.middle(), part_middle = part.middle();
    const double x = middle.x() + (part_middle.x() - port_middle.x()) * units;
    const double y = middle.y() + (part_middle.y() - port_middle.y()) * units;
    const double half_width = 0.5 * (part.width() + 1) * units, half_height = 0.5 * (part.height() + 1) * units;
    dgCamera& camera = view.camera();
    camera.view_port_dc(giBox2(part.low().x() - tile.low().x(), part.low().y() - tile.low().y(),
                               part.high().x() - tile.low().x(), part.high().y() - tile.low().y()));
    camera.view_window(giBox2(x - half_width, y - half_height, x + half_width, y + half_height));
    return true;
}

void draw_tiles(vwScene& scene, dgGLWindow& window, const std::vector<dgCamera>& cameras, dgImage& image)
{
    dgRenderer& renderer = scene.renderer();
    for (int y = 0; y < image.height; y += window.height())
        for (int x = 0; x < image.width; x += window.width())
        {
            const int width = std::min(window.width(), image.width - x);
            const int height = std::min(window.height(), image.height - y);
            renderer.select_buffer(dgBACK_BUFFER);
            renderer.erase(0);
            for (int i = 0; i < scene.n_views(); ++i)
            {
                dgView& view = scene.view(i);
                if (!place(view, cameras[static_cast<std::size_t>(i)], giBox2(x, y, x + width - 1, y + height - 1)))
                    continue;
                view.erase(dgERASE_ZBUFFER_YES);
                view.render_network(nullptr);
                scene.draw_edges(view);
            }
            dgImage tile;
            renderer.read_pixels(giBox2(0, 0, width - 1, height - 1), tile);
            for (int row = 0; row < height; ++row)
                std::copy_n(tile.rgba.begin() + std::ptrdiff_t(4) * row * width, 4 * width,
                            image.rgba.begin() + 4 * (std::ptrdiff_t(y + row) * image.width + x));
        }
}

// What differs between pictures on black and on white is not covered.
void find_alpha(dgImage& on_black, const dgImage& on_white)
{
    for (std::size_t i = 0; i + 3 < on_black.rgba.size(); i += 4)
    {
        unsigned char* black = on_black.rgba.data() + i;
        const unsigned char* white = on_white.rgba.data() + i;
        int uncovered = 0;
        for (int channel = 0; channel < 3; ++channel)
            uncovered = std::max(uncovered, white[channel] - black[channel]);
        const int alpha = 255 - uncovered;
        for (int channel = 0; channel < 3 && alpha > 0; ++channel)
            black[channel] = static_cast<unsigned char>(std::min(255, black[channel] * 255 / alpha));
        black[3] = static_cast<unsigned char>(alpha);
    }
}
}

void vw_draw_picture(vwScene& scene, dgGLWindow& window, int width, int height, int transparent, dgImage& image)
{
    std::vector<dgCamera> cameras;
    std::vector<dgViewShadingContext> shadings;
    for (int i = 0; i < scene.n_views(); ++i)
    {
        cameras.push_back(scene.view(i).camera());
        shadings.push_back(scene.view(i).shading_context());
    }
    const gsColour background = scene.renderer().background_colour();
    const auto draw = [&](dgImage& picture)
    {
        picture.width = width;
        picture.height = height;
        picture.rgba.assign(std::size_t(4) * static_cast<std::size_t>(width) * static_cast<std::size_t>(height), 255);
        draw_tiles(scene, window, cameras, picture);
    };
    const auto on = [&](const gsColour& colour)
    {
        scene.renderer().background_colour(colour);
        for (int i = 0; i < scene.n_views(); ++i)
        {
            scene.view(i).shading_context().graduated_background = 0;
            scene.view(i).shading_context().background_colour = colour;
        }
    };
    if (transparent)
    {
        dgImage on_white;
        on(gsColour(1, 1, 1));
        draw(on_white);
        on(gsColour(0, 0, 0));
        draw(image);
        find_alpha(image, on_white);
    }
    else
        draw(image);
    scene.renderer().background_colour(background);
    for (int i = 0; i < scene.n_views(); ++i)
    {
        scene.view(i).camera() = cameras[static_cast<std::size_t>(i)];
        scene.view(i).shading_context() = shadings[static_cast<std::size_t>(i)];
    }
}
