#pragma once

#include "dgImage.h"

class dgGLWindow;
class vwScene;

/// Draws the views of a scene, which is laid out for a picture of width x height pixels, into image: by parts of the
/// window's size where that is smaller, with edges, and without what else lies over views. With transparent 1 the
/// background is left out, and alpha tells what of each pixel the model covers.
void vw_draw_picture(vwScene& scene, dgGLWindow& window, int width, int height, int transparent, dgImage& image);
