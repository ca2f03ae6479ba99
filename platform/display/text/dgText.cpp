#include "dgText.h"

UT_DEFINE_TYPE(dgText, dgGraphicalPrimitive);

dgText::dgText(const giPoint3& position, const utString& text)
    : dgGraphicalPrimitive(dgTYPE_TEXT), the_position(position), the_text(text)
{}

void dgText::position(const giPoint3& position)
{
    the_position = position;
    changed();
}

void dgText::text(const utString& text)
{
    the_text = text;
    changed();
}

void dgText::extent(const giBox3& extent)
{
    the_extent = extent;
    changed();
}

dgText* dgText::copy() const
{
    return new dgText(*this);
}

dgGeometry dgText::geometry() const
{
    dgGeometry geometry;
    geometry.topology = dgTOPOLOGY_TEXT;
    geometry.points = &the_position;
    geometry.npoints = 1;
    geometry.nfeatures = 1;
    return geometry;
}

giBox3 dgText::bounding_box() const
{
    giBox3 box = the_extent;
    box.merge(the_position);
    return box;
}
