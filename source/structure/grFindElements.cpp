#include "grFindElements.h"

#include "gr_walk_structure.h"

#include "dgGraphicalElement.h"
#include "dgStructure.h"

namespace
{
struct Search
{
    int type;
    dgBaseList& list;
};

void add_if_of_type(dgStructure*, dgGraphicalElement* element, void* search_under_way)
{
    const auto& search = *static_cast<const Search*>(search_under_way);
    if (element->type() == search.type)
        search.list.add_last(element);
}
}

grFindElements::grFindElements(dgStructure* structure) : the_structure(structure) {}

grFindElements::~grFindElements() = default;

int grFindElements::find_elements(int type, dgBaseList& list, grRecursive recursive) const
{
    const int before = list.count();
    Search search{type, list};
    gr_walk_structure(the_structure.get(), &search, add_if_of_type, recursive);
    return list.count() - before;
}
