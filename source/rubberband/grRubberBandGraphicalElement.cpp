#include "grRubberBandGraphicalElement.h"

#include "dgGraphicalElement.h"
#include "dgView.h"

#include <ostream>

UT_DEFINE_TYPE(grRubberBandGraphicalElement, grRubberBandViewItem);

grRubberBandGraphicalElement::grRubberBandGraphicalElement(dgRenderer* renderer, dgView* view,
                                                           dgGraphicalElement* element, void* user_data)
    : grRubberBandViewItem(renderer, view, user_data), the_element(element)
{}

grRubberBandGraphicalElement::~grRubberBandGraphicalElement() = default;

grRubberBandItemType grRubberBandGraphicalElement::type() const
{
    return grRUBBER_BAND_GRAPHICAL_ELEMENT_ITEM;
}

void grRubberBandGraphicalElement::execute_in_view(dgView& view)
{
    if (the_element)
        view.execute(*the_element);
}

void grRubberBandGraphicalElement::print(std::ostream& os) const
{
    os << "grRubberBandGraphicalElement {\n"
       << "  element is " << static_cast<const void*>(the_element.get()) << '\n'
       << "  view is " << static_cast<const void*>(view()) << '\n';
    grRubberBandItem::print(os);
    os << "}\n";
}
