#include "grRubberBandColourAppElement.h"

#include "grRubberBandManager.h"

#include "dgLineColour.h"
#include "dgMarkerColour.h"
#include "dgRenderer.h"
#include "dgTextColour.h"

#include <ostream>

UT_DEFINE_TYPE(grRubberBandColourAppElement, dgAppElement);

namespace
{
// Changes an attribute that was made before in place, and applies it.
template <class Attribute>
void apply(dgRef<dgColourAttribute>& attribute, const gsColour& colour, dgRenderer* renderer)
{
    if (attribute)
        attribute->colour(colour);
    else
        attribute = dgRef<dgColourAttribute>(new Attribute(colour));
    renderer->execute(*attribute);
}
}

grRubberBandColourAppElement::grRubberBandColourAppElement(const gsColour& colour, grPrimColourType type)
    : m_colour(colour), m_prim_type(type), m_use_manager_colour_in_xor(0)
{}

// Deliberate: the value does not matter, choosing this constructor does; callers pass either.
grRubberBandColourAppElement::grRubberBandColourAppElement(grUseManagerColourInXorMode, const gsColour& colour,
                                                           grPrimColourType type)
    : m_colour(colour), m_prim_type(type), m_use_manager_colour_in_xor(1)
{}

grRubberBandColourAppElement::~grRubberBandColourAppElement() = default;

void grRubberBandColourAppElement::set(const gsColour& colour, grPrimColourType type)
{
    m_colour = colour;
    m_prim_type = type;
    changed();
}

gsColour grRubberBandColourAppElement::calculate_rubber_band_colour(dgRenderer* renderer) const
{
    if (!renderer->in_xor_mode())
        return m_colour;
    return grRubberBandManager::calculate_xor_colour(
        renderer, m_use_manager_colour_in_xor ? grRubberBandManager::rubber_band_colour() : m_colour);
}

grRubberBandColourAppElement* grRubberBandColourAppElement::copy() const
{
    return m_use_manager_colour_in_xor
               ? new grRubberBandColourAppElement(grUSE_MANAGER_COLOUR_IN_XOR_MODE, m_colour, m_prim_type)
               : new grRubberBandColourAppElement(m_colour, m_prim_type);
}

void grRubberBandColourAppElement::draw(dgRenderer* renderer) const
{
    const gsColour colour = calculate_rubber_band_colour(renderer);
    const bool all = m_prim_type == grALL_PRIM_COLOUR;
    if (all || m_prim_type == grLINE_COLOUR)
        apply<dgLineColour>(m_line_colour, colour, renderer);
    if (all || m_prim_type == grTEXT_COLOUR)
        apply<dgTextColour>(m_text_colour, colour, renderer);
    if (all || m_prim_type == grMARKER_COLOUR)
        apply<dgMarkerColour>(m_marker_colour, colour, renderer);
}

void grRubberBandColourAppElement::print(std::ostream& os) const
{
    os << "grRubberBandColourAppElement {\n"
       << "m_prim_type is: " << m_prim_type << '\n'
       << "m_colour is: " << m_colour << '\n'
       << "m_use_manager_colour_in_xor is: " << m_use_manager_colour_in_xor << '\n'
       << "}\n";
}
