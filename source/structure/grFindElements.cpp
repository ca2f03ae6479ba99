#include "grFindElements.h"

#include "gr_walk_structure.h"

#include "dgGraphicalElement.h"
#include "dgStructure.h"

namespace
{
// The walk's callback takes an element alone: this is the search under way.
int the_type;
dgBaseList* the_list;

void add_if_of_type(dgGraphicalElement* element)
{
    if (element->type() == the_type)
        the_list->add_last(element);
}
}

grFindElements::grFindElements(dgStructure* structure) : the_structure(structure) {}

grFindElements::~grFindElements() = default;

int grFindElements::find_elements(int type, dgBaseList& list, grRecursive recursive) const
{
    const int before = list.count();
    the_type = type;
    the_list = &list;
    gr_walk_structure(the_structure.get(), add_if_of_type, recursive);
    return list.count() - before;
}
