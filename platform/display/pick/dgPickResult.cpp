#include "dgPickResult.h"

#include "dgBase.h"

void dgPickResult::add(dgBase* element)
{
    element->reference();
    the_elements.add_last(element);
}

dgPickResult::~dgPickResult()
{
    for (dgBase* element : the_elements)
        element->unreference();
}
