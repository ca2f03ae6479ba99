#include "dgText.h"
#include "dgTextAlignment.h"
#include "dgTextDirection.h"
#include "dgTextFontSlot.h"
#include "dgTextHeight.h"
#include "dgTextSpacing.h"
#include "dgTextWidthFactor.h"

UT_DEFINE_TYPE(dgText, dgGraphicalPrimitive);
UT_DEFINE_TYPE(dgTextAlignment, dgGraphicalAttribute);
UT_DEFINE_TYPE(dgTextDirection, dgGraphicalAttribute);
UT_DEFINE_TYPE(dgTextFontSlot, dgNumberAttribute);
UT_DEFINE_TYPE(dgTextHeight, dgNumberAttribute);
UT_DEFINE_TYPE(dgTextSpacing, dgNumberAttribute);
UT_DEFINE_TYPE(dgTextWidthFactor, dgNumberAttribute);

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

dgTextAlignment* dgTextAlignment::copy() const
{
    return new dgTextAlignment(*this);
}

int dgTextAlignment::equal_value(const dgGraphicalAttribute& other) const
{
    const auto& alignment = static_cast<const dgTextAlignment&>(other);
    return the_horizontal == alignment.the_horizontal && the_vertical == alignment.the_vertical;
}

dgTextDirection::dgTextDirection(const giVector3& baseline, const giVector3& up)
    : dgGraphicalAttribute(dgTYPE_TEXT_DIRECTION)
{
    constexpr double least_sine = 1e-6; // of the angle between the two
    const giVector3 along = baseline.unit();
    const giVector3 across = up.unit();
    const giVector3 upright = across - along * across.dot(along);
    if (!(upright.length() > least_sine && along.length() > 0))
        return;
    the_baseline = along;
    the_up = upright.unit();
}

dgTextDirection* dgTextDirection::copy() const
{
    return new dgTextDirection(*this);
}

int dgTextDirection::equal_value(const dgGraphicalAttribute& other) const
{
    const auto& direction = static_cast<const dgTextDirection&>(other);
    return the_baseline == direction.the_baseline && the_up == direction.the_up;
}

dgTextFontSlot* dgTextFontSlot::copy() const
{
    return new dgTextFontSlot(*this);
}

dgTextHeight* dgTextHeight::copy() const
{
    return new dgTextHeight(*this);
}

dgTextSpacing* dgTextSpacing::copy() const
{
    return new dgTextSpacing(*this);
}

dgTextWidthFactor* dgTextWidthFactor::copy() const
{
    return new dgTextWidthFactor(*this);
}
