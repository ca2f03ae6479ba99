#include "grRubberBandStructure.h"

#include "grRubberBandManager.h"

#include "dgStructure.h"
#include "dgView.h"

#include <ostream>

UT_DEFINE_TYPE(grRubberBandStructure, grRubberBandViewItem);

grRubberBandStructure::grRubberBandStructure(dgRenderer* renderer, dgView* view, dgStructure* structure,
                                             void* user_data)
    : grRubberBandViewItem(renderer, view, user_data), the_structure(structure)
{}

grRubberBandStructure::~grRubberBandStructure() = default;

grRubberBandItemType grRubberBandStructure::type() const
{
    return grRUBBER_BAND_STRUCTURE_ITEM;
}

void grRubberBandStructure::after_begin(grRubberBandIt it, int xor_mode, dgRenderer* renderer, dgView* view)
{
    grRubberBandItem::after_begin(it, xor_mode, renderer, view);
    if (!xor_mode || !grRubberBandManager::set_default_colour_in_xor_mode())
        return;
    const gsColour colour = grRubberBandManager::rubber_band_colour();
    if (the_colour)
        the_colour->set(colour, grALL_PRIM_COLOUR);
    else
        the_colour = dgRef<grRubberBandColourAppElement>(new grRubberBandColourAppElement(colour, grALL_PRIM_COLOUR));
    view->execute(*the_colour);
}

void grRubberBandStructure::execute_in_view(dgView& view)
{
    if (the_structure)
        view.execute_structure(*the_structure);
}

void grRubberBandStructure::print(std::ostream& os) const
{
    os << "grRubberBandStructure {\n"
       << "  structure is ";
    if (the_structure)
        the_structure->print(os);
    else
        os << "0\n";
    os << "  view is " << static_cast<const void*>(view()) << '\n';
    grRubberBandItem::print(os);
    os << "}\n";
}
