#pragma once

#include "dgGeometryListener.h"
#include "dgPolyline.h"
#include "dgRef.h"
#include "dgTextStyle.h"
#include "dgTriangleBlock.h"
#include "dg_openglExport.h"

#include <unordered_map>
#include <vector>

class dgText;

/// What is drawn of texts, made when a text is first drawn under a style and kept until the text changes or goes.
///
/// Glyphs are triangulated once for each font. Of texts that invert pixels, glyphs that reach into each other are
/// triangulated together, so that no pixel is covered twice.
class DG_OPENGL_EXPORT dgGLTextStore : public dgGeometryListener
{
public:
    /// Primitives that look like a text, for the geometry store.
    struct Shape
    {
        dgRef<dgTriangleBlock> triangles; ///< null where it is drawn by lines
        std::vector<dgRef<dgPolyline>> lines;
    };
    /// Good until the next call.
    const Shape& shape(const dgText& text, const dgTextStyle& style, int inverting);

    void geometry_released(unsigned geometry_id) override;

private:
    struct Variant
    {
        unsigned long long text_stamp;
        unsigned long long font_serial;
        dgTextStyle style;
        int inverting;
        Shape shape;
    };
    struct Entry
    {
        std::vector<Variant> variants;
        std::size_t oldest = 0; // that is replaced next when there are too many
    };
    std::unordered_map<unsigned, Entry> the_entries; // by geometry number
};
