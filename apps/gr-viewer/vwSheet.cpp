#include "vwSheet.h"

#include "dgLighting.h"
#include "dgLineColour.h"
#include "dgLineWidth.h"
#include "dgPolyline.h"
#include "dgRenderer.h"
#include "dgSurfaceColour.h"
#include "dgText.h"
#include "dgTextColour.h"
#include "dgTextFontSlot.h"
#include "dgTextHeight.h"
#include "dgTextLayout.h"
#include "dgTextStyle.h"
#include "dgTriangleBlock.h"
#include "giTriBlock.h"

#include <algorithm>
#include <memory>

namespace
{
// Millimetres.
constexpr double width = 420, height = 297, margin = 10, gap = 5;
constexpr double split_x = 260, split_y = 160, title_y = 40;
constexpr double largest_letters = 10;

const gsColour paper(0.97, 0.97, 0.95), ink(0.1, 0.1, 0.12);

const giBox2 frame(margin, margin, width - margin, height - margin);
const giBox2 title_field(split_x, margin, width - margin, title_y);

dgPolyline* outline(const giBox2& box)
{
    const giPoint2 &low = box.low(), &high = box.high();
    return new dgPolyline({giPoint3(low.x(), low.y(), 0), giPoint3(high.x(), low.y(), 0),
                           giPoint3(high.x(), high.y(), 0), giPoint3(low.x(), high.y(), 0),
                           giPoint3(low.x(), low.y(), 0)});
}

// Behind the lines.
dgTriangleBlock* rectangle(const giBox2& box)
{
    auto block = std::make_unique<giTriBlock>();
    for (const giPoint2& corner :
         {box.low(), giPoint2(box.high().x(), box.low().y()), box.high(), giPoint2(box.low().x(), box.high().y())})
        block->nodes().append(giPoint3(corner.x(), corner.y(), -0.5));
    block->triangles().emplace_back(0, 1, 2);
    block->triangles().emplace_back(0, 2, 3);
    return new dgTriangleBlock(block.release(), 1);
}
}

vwSheet::vwSheet() : the_root(new dgClientStructure)
{
    the_root->add(new dgLighting(0));
    the_root->add(new dgSurfaceColour(paper));
    the_root->add(rectangle(box()));
    the_root->add(new dgLineColour(ink));
    the_root->add(new dgLineWidth(2));
    the_root->add(outline(frame));
    the_root->add(new dgLineWidth(1));
    the_root->add(outline(title_field));
}

giBox2 vwSheet::box()
{
    return giBox2(0, 0, width, height);
}

giBox2 vwSheet::field(int i)
{
    const double left = margin + gap, right = width - margin - gap, top = height - margin - gap;
    switch (i)
    {
    case 0: return giBox2(left, left, split_x - gap, top);
    case 1: return giBox2(split_x, split_y + gap, right, top);
    default: return giBox2(split_x, title_y + gap, right, split_y);
    }
}

void vwSheet::title(const std::string& text, const dgRenderer& renderer, int slot)
{
    dgTextStyle style;
    style.font = renderer.get_text_font(slot);
    dgRef<dgText> line(new dgText(giPoint3(), text));
    const double length = std::max(dg_text_box(*line, style).high().x(), 1e-6); // at a height of 1
    style.height = std::min(largest_letters, (title_field.width() - 2 * gap) / length);
    line->position(giPoint3(title_field.low().x() + gap, title_field.middle().y() - style.height / 3, 0));
    line->extent(dg_text_box(*line, style));
    the_root->add(new dgTextFontSlot(slot));
    the_root->add(new dgTextHeight(style.height));
    the_root->add(new dgTextColour(ink));
    the_root->add(line.get());
}
