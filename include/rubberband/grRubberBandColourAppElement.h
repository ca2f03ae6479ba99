#pragma once

#include "dgAppElement.h"
#include "dgRef.h"
#include "grExport.h"
#include "grPrimColourType.h"
#include "grUseManagerColourInXorMode.h"
#include "gsColour.h"

class dgColourAttribute;

/// An element that sets the colours of primitives, in XOR mode to what shows the wanted colour over the background.
class GR_EXPORT grRubberBandColourAppElement : public dgAppElement
{
public:
    grRubberBandColourAppElement(const gsColour& colour, grPrimColourType type);

    /// In XOR mode the manager's rubber band colour is used in place of colour, whatever the value of the first
    /// argument: choosing this constructor is what asks for it.
    grRubberBandColourAppElement(grUseManagerColourInXorMode, const gsColour& colour, grPrimColourType type);
    ~grRubberBandColourAppElement() override;

    void set(const gsColour& colour, grPrimColourType type);

    /// The colour that drawing sets on a renderer in its present mode.
    gsColour calculate_rubber_band_colour(dgRenderer* renderer) const;

    /// A new element with the same colour, type and choice of colour.
    grRubberBandColourAppElement* copy() const override;
    void draw(dgRenderer* renderer) const override;
    void print(std::ostream& os) const override;

    UT_DECLARE_TYPE(grRubberBandColourAppElement, dgAppElement);

protected:
    grRubberBandColourAppElement(const grRubberBandColourAppElement&) = delete;
    grRubberBandColourAppElement& operator=(const grRubberBandColourAppElement&) = delete;

private:
    gsColour m_colour;
    grPrimColourType m_prim_type;
    int m_use_manager_colour_in_xor;

    // Made on first use and changed in place.
    mutable dgRef<dgColourAttribute> m_line_colour;
    mutable dgRef<dgColourAttribute> m_text_colour;
    mutable dgRef<dgColourAttribute> m_marker_colour;
};
