#include "gsStructureUtils.h"

#include "dgStructure.h"

int gsStructureUtils::element_index(const dgGraphicalElement* element, const dgStructure* structure)
{
    const int count = structure->nelements();
    for (int i = 0; i < count; ++i)
        if (structure->element(i) == element)
            return i + 1;
    return 0;
}
