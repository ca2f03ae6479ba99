#pragma once

#include "dgClientStructure.h"
#include "dgGLDevice.h"
#include "dgGLDriver.h"
#include "dgGLWindow.h"
#include "dgImage.h"
#include "dgRef.h"
#include "dgRenderer.h"
#include "dgView.h"
#include "giPoint3.h"

#include <memory>
#include <ostream>
#include <vector>

class dgGraphicalElement;
class dgTriangleBlock;

/// A colour of a picture that was read back.
struct Pixel
{
    int red, green, blue;

    bool operator==(const Pixel&) const = default;
};
std::ostream& operator<<(std::ostream& os, const Pixel& pixel);

Pixel pixel_at(const dgImage& image, int x, int y);

/// Number of pixels of a colour.
int count_pixels(const dgImage& image, const Pixel& pixel);

/// 1 when sizes and all bytes are the same.
int same_pictures(const dgImage& a, const dgImage& b);
/// Pixels of two pictures of one size that are not the same.
int differing_pixels(const dgImage& a, const dgImage& b);

/// The one device of the test program, on whatever OpenGL the machine has; a failed check and null without any.
std::shared_ptr<dgGLDevice> test_device();

/// A window of a size with a renderer and a view all over it, in which world x and y are pixels: whole numbers are
/// pixel centres. Depths from -100 to 100 are seen. Background black, front buffer and depth test as they are at first.
struct Scene
{
    explicit Scene(int width = 64, int height = 48, int with_overlay = 0);
    ~Scene();

    /// Puts an element at the end of the view's network.
    void add(dgGraphicalElement* element) { root->add(element); }

    /// Erases the view and draws its network.
    void draw();

    /// Draws an element alone over what is there, with the renderer's current driver.
    void draw(const dgGraphicalElement& element);

    /// The selected buffer.
    dgImage picture() const;

    dgGLDriver& driver(int index = 0) { return static_cast<dgGLDriver&>(*renderer.driver(index)); }

    dgGLWindow window;
    dgRenderer renderer;
    dgView view;
    dgRef<dgClientStructure> root;
};

/// A block of triangles, counter-clockwise in the order of their points, three points each.
dgTriangleBlock* triangles(const std::vector<giPoint3>& points);

/// Two triangles that cover the pixels from low to high, both included, at a depth. They face the eye.
dgTriangleBlock* rectangle(int low_x, int low_y, int high_x, int high_y, double z = 0);
