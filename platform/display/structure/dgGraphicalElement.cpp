#include "dgGraphicalElement.h"

#include "dgStamp.h"
#include "dgStructure.h"
#include "giBox3.h"

#include <ostream>

UT_DEFINE_TYPE(dgGraphicalElement, dgBase);

dgGraphicalElement::dgGraphicalElement(dgGraphicalElementKind kind, int type)
    : the_kind(static_cast<unsigned char>(kind)), the_type(static_cast<unsigned char>(type)), the_stamp(dg_next_stamp())
{}

dgGraphicalElement::dgGraphicalElement(const dgGraphicalElement& other)
    : dgBase(other), the_kind(other.the_kind), the_type(other.the_type), the_stamp(dg_next_stamp())
{}

dgGraphicalElement::~dgGraphicalElement() = default;

giBox3 dgGraphicalElement::bounding_box() const
{
    return giBox3();
}

void dgGraphicalElement::print(std::ostream& os) const
{
    os << ut_dynamic_type().name() << " type " << type();
}

void dgGraphicalElement::changed()
{
    the_stamp = dg_next_stamp();
    forget();
    the_holders.for_each([this](dgStructure& holder) { holder.element_changed(*this); });
}
