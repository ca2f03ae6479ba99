#include "dgGraphicalElement.h"

#include "dgStamp.h"
#include "dgStructure.h"
#include "giBox3.h"

#include <algorithm>
#include <ostream>

UT_DEFINE_TYPE(dgGraphicalElement, dgBase);

unsigned long long dg_next_stamp()
{
    static unsigned long long stamp = 0;
    return ++stamp;
}

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

int dgGraphicalElement::times_held_by(const dgStructure* structure) const
{
    int times = the_holder == structure;
    if (the_others)
        times += static_cast<int>(std::count(the_others->begin(), the_others->end(), structure));
    return times;
}

void dgGraphicalElement::print(std::ostream& os) const
{
    os << ut_dynamic_type().name() << " type " << type();
}

void dgGraphicalElement::add_holder(dgStructure* holder)
{
    if (!the_holder)
    {
        the_holder = holder;
        return;
    }
    if (!the_others)
        the_others = std::make_unique<std::vector<dgStructure*>>();
    the_others->push_back(holder);
}

void dgGraphicalElement::remove_holder(dgStructure* holder)
{
    if (the_others)
    {
        const auto found = std::find(the_others->begin(), the_others->end(), holder);
        if (found != the_others->end())
        {
            *found = the_others->back(); // their order means nothing
            the_others->pop_back();
        }
        else if (the_holder == holder)
        {
            the_holder = the_others->back();
            the_others->pop_back();
        }
        if (the_others->empty())
            the_others.reset();
    }
    else if (the_holder == holder)
    {
        the_holder = nullptr;
    }
}

void dgGraphicalElement::changed()
{
    the_stamp = dg_next_stamp();
    if (the_holder)
        the_holder->element_changed(*this);
    if (the_others)
        for (dgStructure* holder : *the_others)
            holder->element_changed(*this);
}
