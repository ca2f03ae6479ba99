#pragma once

#include "dgGraphicalPrimitive.h"
#include "giBox3.h"
#include "giPoint3.h"
#include "utString.h"

/// Text in the plane and the style that the text attributes give. Characters are UTF-8; a line feed starts a new line.
///
/// Characters that the font lacks, and all of them when the font's slot is free, are seen as empty frames.
class DG_EXPORT dgText : public dgGraphicalPrimitive
{
public:
    /// position is in model coordinates; the alignment says which point of the text stands there.
    dgText(const giPoint3& position, const utString& text);

    const giPoint3& position() const { return the_position; }
    void position(const giPoint3& position);
    const utString& text() const { return the_text; }
    void text(const utString& text);

    /// The room that the text takes, which it cannot know by itself: fonts belong to renderers. dg_text_box tells. It
    /// becomes part of the bounding box, which is the position alone without it.
    void extent(const giBox3& extent);

    dgText* copy() const override;
    dgGraphicalPrimitiveType primitive_type() const override { return dgPRIMITIVE_TEXT; }

    /// One feature, the whole text, at one point, its position.
    dgGeometry geometry() const override;
    giBox3 bounding_box() const override;

    UT_DECLARE_TYPE(dgText, dgGraphicalElement);

private:
    giPoint3 the_position;
    utString the_text;
    giBox3 the_extent;
};
