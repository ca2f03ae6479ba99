#include "grIdImage.h"

#include "grPixels.h"
#include "grViewFrame.h"

#include "dgCamera.h"
#include "dgInteriorStyle.h"
#include "dgLighting.h"
#include "dgRef.h"
#include "dgRenderer.h"
#include "dgSurfaceColour.h"
#include "dgTriangleBlock.h"
#include "dgWidgetWindow.h"

#include <algorithm>
#include <cmath>

namespace
{
// A rectangle of pixels, of an image or of the window.
struct Pixels
{
    int x, y, width, height;
    giBox2 box() const { return giBox2(x, y, x + width - 1, y + height - 1); }
};

// A box as it lies in an image: seen from one side, with the pixels counted from its low corner.
struct Frame
{
    grIdImageSense sense;
    double low_x, low_y; // in the camera's space
    double pixel_size;
    int width, height;

    Pixels all() const { return {0, 0, width, height}; }

    // The pixels of the image that a box covers, with one more around.
    Pixels around(const giBox3& box) const
    {
        const double box_low = sense == grID_IMAGE_UPPER ? box.low().x() : -box.high().x();
        const auto cell = [](double value, int size) { return static_cast<int>(std::clamp<double>(value, 0, size)); };
        const double x = (box_low - low_x) / pixel_size, y = (box.low().y() - low_y) / pixel_size;
        const int first_x = cell(std::floor(x) - 1, width), first_y = cell(std::floor(y) - 1, height);
        const int end_x = cell(std::ceil(x + box.width() / pixel_size) + 1, width);
        const int end_y = cell(std::ceil(y + box.height() / pixel_size) + 1, height);
        return {first_x, first_y, end_x - first_x, end_y - first_y};
    }
};

// Lays rectangles side by side in rows, none over another.
class Shelves
{
public:
    Shelves(int width, int height) : the_width(width), the_height(height) {}

    // Sets the place of a rectangle, or returns false when there is no more room.
    bool place(Pixels& rectangle)
    {
        if (the_x + rectangle.width > the_width)
        {
            the_x = 0;
            the_y = the_top;
        }
        if (the_y + rectangle.height > the_height)
            return false;
        rectangle.x = the_x;
        rectangle.y = the_y;
        the_x += rectangle.width;
        the_top = std::max(the_top, the_y + rectangle.height);
        the_used_width = std::max(the_used_width, the_x);
        return true;
    }
    Pixels used() const { return {0, 0, the_used_width, the_top}; }

private:
    int the_width, the_height;
    int the_x = 0, the_y = 0, the_top = 0, the_used_width = 0;
};
}

class grIdImage::Canvas
{
public:
    Canvas(dgWidgetWindow& window, const giTriBlockcoDList& blocks, const giBox3& model_box)
        : the_width(window.width()), the_height(window.height()), the_front(model_box.high().z()),
          the_back(model_box.low().z()), the_renderer(&window, &window), the_unlit(new dgLighting(0)),
          the_filled(new dgInteriorStyle(1))
    {
        const double slack = 1e-3 * model_box.diagonal().length();
        the_front += slack;
        the_back -= slack;
        the_renderer.background_colour(gsColour(1, 1, 1));
        the_elements.reserve(static_cast<std::size_t>(blocks.count()));
        for (giTriBlock* block : blocks)
        {
            double red, green, blue;
            grSplit::index_to_rgb(static_cast<int>(the_elements.size()), red, green, blue);
            the_elements.push_back({dgRef<dgTriangleBlock>(new dgTriangleBlock(block, 0)),
                                    dgRef<dgSurfaceColour>(new dgSurfaceColour(gsColour(red, green, blue)))});
        }
    }

    int width() const { return the_width; }
    int height() const { return the_height; }
    const giBox3 box_of(int block) const { return element(block).triangles->bounding_box(); }
    int n_blocks() const { return static_cast<int>(the_elements.size()); }

    void begin(const Pixels& place)
    {
        the_renderer.select_buffer(dgBACK_BUFFER);
        the_renderer.clip(place.box());
        the_renderer.erase(0);
        the_renderer.begin();
        the_renderer.push_structure();
        the_renderer.execute(*the_unlit);
        the_renderer.execute(*the_filled);
    }
    // Chooses what is drawn next where: the part of a frame, and the low corner of its place in the window.
    void aim(const Frame& frame, const Pixels& part, const Pixels& place)
    {
        const double sign = frame.sense == grID_IMAGE_UPPER ? 1 : -1;
        the_camera.orientation(giXform3({sign, 0, 0, 0, 0, 1, 0, 0, 0, 0, sign, 0, 0, 0, 0, 1}));
        const double x = frame.low_x + part.x * frame.pixel_size, y = frame.low_y + part.y * frame.pixel_size;
        the_camera.view_window(giBox2(x, y, x + part.width * frame.pixel_size, y + part.height * frame.pixel_size));
        the_camera.view_port_dc(giBox2(place.x, place.y, place.x + part.width - 1, place.y + part.height - 1));
        the_camera.window_size(giVector2(the_width, the_height));
        if (sign > 0)
            the_camera.front_back_plane(the_front, the_back);
        else
            the_camera.front_back_plane(-the_back, -the_front);
        the_renderer.set_camera(&the_camera);
    }
    void draw(int block)
    {
        the_renderer.execute(*element(block).colour);
        the_renderer.execute(*element(block).triangles);
    }
    const dgImage& end(const Pixels& place)
    {
        the_renderer.pop_structure();
        the_renderer.end();
        the_renderer.read_pixels(place.box(), the_image);
        the_renderer.clip(giBox2());
        return the_image;
    }
    const dgImage& empty_image()
    {
        the_image = dgImage();
        return the_image;
    }

private:
    struct Element
    {
        dgRef<dgTriangleBlock> triangles;
        dgRef<dgSurfaceColour> colour;
    };
    const Element& element(int block) const { return the_elements[static_cast<std::size_t>(block)]; }

    int the_width, the_height;
    double the_front, the_back; // z of the clipping planes, seen from the upper side
    dgRenderer the_renderer;
    dgRef<dgLighting> the_unlit;
    dgRef<dgInteriorStyle> the_filled;
    std::vector<Element> the_elements;
    dgCamera the_camera;
    dgImage the_image;
};

namespace
{
// False for a box that has no extent to be enlarged.
bool frame_of(const giBox3& box, grIdImageSense sense, int width, int height, Frame& frame)
{
    const double size = std::max(box.width() / width, box.height() / height);
    if (!(size > 0) || !std::isfinite(size))
        return false;
    frame.sense = sense;
    frame.low_x = sense == grID_IMAGE_UPPER ? box.low().x() : -box.high().x();
    frame.low_y = box.low().y();
    frame.pixel_size = size;
    frame.width = std::clamp(static_cast<int>(std::lround(box.width() / size)), 1, width);
    frame.height = std::clamp(static_cast<int>(std::lround(box.height() / size)), 1, height);
    return true;
}
}

grIdImage::grIdImage() = default;
grIdImage::~grIdImage() = default;

int grIdImage::initialize(dgWidgetWindow* window, int width, int height, const giTriBlockcoDList& blocks,
                          const giBox3& model_box)
{
    the_canvas.reset();
    if (!window || width < 1 || height < 1 || !gr_is_finite(model_box) || blocks.count() > grSplit::max_index())
        return 0;
    if (window->width() != width || window->height() != height)
        window->resize(width, height);
    if (window->width() != width || window->height() != height)
        return 0;
    the_model_box = model_box;
    the_canvas = std::make_unique<Canvas>(*window, blocks, model_box);
    return 1;
}

void grIdImage::image_size(int& width, int& height) const
{
    width = the_canvas ? the_canvas->width() : 0;
    height = the_canvas ? the_canvas->height() : 0;
}

void grIdImage::size_of_box(const giBox3& box, int& width, int& height, int reduction) const
{
    Frame frame{};
    image_size(width, height);
    frame_of(box, grID_IMAGE_UPPER, std::max(width / reduction, 1), std::max(height / reduction, 1), frame);
    width = frame.width;
    height = frame.height;
}

const dgImage& grIdImage::make_image(const giBox3& box, const std::vector<int>& blocks, grIdImageSense sense,
                                     int reduction)
{
    Frame frame;
    if (!frame_of(box, sense, std::max(the_canvas->width() / reduction, 1),
                  std::max(the_canvas->height() / reduction, 1), frame))
        return the_canvas->empty_image();
    the_canvas->begin(frame.all());
    the_canvas->aim(frame, frame.all(), frame.all());
    for (const int block : blocks)
        the_canvas->draw(block);
    return the_canvas->end(frame.all());
}

void grIdImage::count_pixels(const dgImage& image, grPixelCountcoDynArr& counts) const
{
    const int n = the_canvas ? the_canvas->n_blocks() : 0;
    if (counts.count() < n)
        counts.resize(n);
    gr_for_each_run(image,
                    [&](int index, int length)
                    {
                        if (index < n)
                            counts[index] += length;
                    });
}

void grIdImage::count_alone(const giBox3& box, const std::vector<int>& blocks, grIdImageSense sense,
                            grPixelCountcoDynArr& counts)
{
    Frame frame;
    if (!frame_of(box, sense, the_canvas->width(), the_canvas->height(), frame))
        return;
    struct Tile
    {
        int block;
        Pixels part; // of the frame
    };
    std::vector<Tile> tiles;
    for (const int block : blocks)
        if (const Pixels part = frame.around(the_canvas->box_of(block)); part.width > 0 && part.height > 0)
            tiles.push_back({block, part});
    // Tiles of like height fill rows best.
    std::stable_sort(tiles.begin(), tiles.end(),
                     [](const Tile& a, const Tile& b) { return a.part.height > b.part.height; });

    for (std::size_t first = 0; first < tiles.size();)
    {
        Shelves shelves(the_canvas->width(), the_canvas->height());
        std::vector<Pixels> places;
        for (std::size_t i = first; i < tiles.size(); ++i)
        {
            Pixels place = tiles[i].part;
            if (!shelves.place(place))
                break;
            places.push_back(place);
        }
        the_canvas->begin(shelves.used());
        for (std::size_t i = 0; i < places.size(); ++i)
        {
            the_canvas->aim(frame, tiles[first + i].part, places[i]);
            the_canvas->draw(tiles[first + i].block);
        }
        count_pixels(the_canvas->end(shelves.used()), counts);
        first += places.size();
    }
}
